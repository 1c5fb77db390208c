#pragma once

#include "documents/Outcome.h"

#include <functional>

class QIODevice;

namespace vostel::viewer {

// Has a file written beside its place and moved there when it is whole and on the disk; what fails leaves the
// file that was there. Returns "Saved NAME" or the reason with the path.
// @param write returns whether everything was taken
Outcome WriteFile(const QString& path, const std::function<bool(QIODevice& file)>& write);

// "Saved NAME".
QString SavedText(const QString& path);

}
