#pragma once

// What the library asks of a person, a keyboard or a window, in one record that a host can replace.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <functional>
#include <vector>

struct VostelFileRequest {        // one file dialog, as it would be shown
    bool     Save = false;        // save dialog, else open dialog
    CString  DefaultExtension;    // without a dot
    CString  DefaultName;
    unsigned Flags = 0;    // OFN_ bits
    CString  Filter;       // "text|pattern|text|pattern||"
};

// An empty member keeps the platform's own behaviour. On Windows that is the message box, the file and
// folder dialogs, the asynchronous key state, InvalidateRect and ScreenToClient. Elsewhere the message
// goes to standard error, dialogs count as cancelled, no key is down and the window calls do nothing.
struct VostelHostServices {
    std::function<void(const CString& text)> ShowMessage;
    // False: cancelled. Otherwise paths holds the chosen full paths, at least one.
    std::function<bool(const VostelFileRequest& request, std::vector<CString>& paths)> ChooseFiles;
    std::function<bool(const CString& title, CString& folder)>                         ChooseFolder;
    std::function<bool(int virtualKey)>                                                IsKeyDown;
    std::function<void(HWND window)>                                                   InvalidateWindow;
    std::function<POINT(HWND window, POINT screen)>                                    ScreenToWindow;
};

// Replaces all services at once; the record is copied. An empty record brings the platform's own back.
VOSTEL_API void gSetHostServices(const VostelHostServices& services);
