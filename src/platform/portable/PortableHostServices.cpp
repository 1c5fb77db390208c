// A platform without a desktop: messages go to standard error, dialogs count as cancelled, no key is down
// and windows do not exist.

#include "platform/Files.h"
#include "platform/HostServices.h"

#include <cstdio>

namespace vostel {

namespace desktop {

void ShowMessage(const CString& text)
{
    const std::string line = NarrowAnsi(text.GetString(), text.GetLength()) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

bool ChooseFiles(const VostelFileRequest&, std::vector<CString>&)
{
    return false;
}

bool ChooseFolder(const CString&, CString&)
{
    return false;
}

bool IsKeyDown(int)
{
    return false;
}

void InvalidateWindow(HWND) {}

POINT ScreenToWindow(HWND, POINT screen)
{
    return screen;
}

}

}
