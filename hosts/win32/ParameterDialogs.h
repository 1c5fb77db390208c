#pragma once

#include "SettingsFile.h"
#include "commands/Texts.h"

#include <VostelObj.h>

#include <functional>

namespace vostel::viewer {

// The dialogs that the library asks a host for: the layout of a raw file, a rectangle by its edges, a line of
// text and the length of a pixel. Its own are in one language and take what is no number for nought. The
// settings have to outlive the dialogs.
TessikDialogs ParameterDialogs(HWND owner, const SettingsFile& settings, std::function<Language()> language,
                               std::function<void(double length)> takePixelLength);

}
