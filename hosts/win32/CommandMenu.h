#pragma once

// The table of commands as a menu bar and a table of accelerators. Menu numbers are the commands' own; those
// of the recent files follow from FirstRecentFile on.

#include "commands/Commands.h"

#include <functional>
#include <string>
#include <vector>

namespace vostel::viewer {

constexpr UINT FirstRecentFile = 1000;

HMENU  MakeMenuBar(Language language);
HACCEL MakeAccelerators();

// Enables and checks the entries of a menu that is about to open.
void RefreshMenu(HMENU menu, const std::function<bool(Command)>& isEnabled,
                 const std::function<bool(Command)>&         isOn,
                 const std::function<std::wstring(Command)>& textOf);

// Replaces the entries of the submenu of recent files.
void ShowRecentFiles(HMENU menuBar, const std::vector<std::wstring>& files, Language language);

}
