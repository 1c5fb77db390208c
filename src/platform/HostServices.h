#pragma once

// The one way in which the library asks a person, a keyboard or a window for something. Each call goes to
// the host's replacement or, without one, to the platform's own behaviour.

#include "vostel/host.h"

namespace vostel {

void  ShowMessage(const CString& text);
bool  ChooseFiles(const VostelFileRequest& request, std::vector<CString>& paths);
bool  ChooseFolder(const CString& title, CString& folder);
bool  IsKeyDown(int virtualKey);
void  InvalidateHostWindow(HWND window);
POINT ScreenToHostWindow(HWND window, POINT screen);

// The platform's own behaviour, one source per platform.
namespace desktop {
void  ShowMessage(const CString& text);
bool  ChooseFiles(const VostelFileRequest& request, std::vector<CString>& paths);
bool  ChooseFolder(const CString& title, CString& folder);
bool  IsKeyDown(int virtualKey);
void  InvalidateWindow(HWND window);
POINT ScreenToWindow(HWND window, POINT screen);
}

}
