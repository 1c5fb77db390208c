#pragma once

#include <VostelObj.h>

#include <vector>

namespace vostel::viewer {

// The system's dialog for opening or saving, modal to the owner. False: cancelled.
bool AskForFileNames(HWND owner, const VostelFileRequest& request, std::vector<CString>& paths);

}
