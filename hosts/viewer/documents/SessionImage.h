#pragma once

#include "documents/PageSource.h"

#include <optional>

namespace vostel::viewer {

// Saves a session. Where the canvas has the image from memory, but it is a page of a file, the session names
// that.
// @param page null: whatever the canvas knows
void SaveSessionNaming(const Canvas& canvas, const QString& path, const PageSource* page);

// The picture that a session file names; nothing if it names none.
std::optional<PageSource> ImageOfSession(const QString& path);

}
