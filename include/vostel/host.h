#pragma once

/// @file
/// What the library asks of a person, a keyboard or a window, in one record that a host can replace.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <functional>
#include <vector>

/// One file dialog, as it would be shown.
struct VostelFileRequest {
    bool     Save = false;        ///< save dialog, else open dialog
    CString  DefaultExtension;    ///< without a dot; added to a name that has none
    CString  DefaultName;         ///< name that the dialog starts with
    unsigned Flags = 0;           ///< OFN_ bits
    CString  Filter;              ///< pairs of text and pattern, "text|pattern|text|pattern||"
};

/// The services. They are called on the thread that called the library. An empty member keeps the platform's
/// own behavior.
struct VostelHostServices {
    /// Shows a message and returns when it has been read. Platform: a message box on Windows, standard error
    /// elsewhere.
    std::function<void(const CString& text)> ShowMessage;
    /// Asks for files. Returns true with at least one full path, false if the user cancelled. Platform: the
    /// file dialog on Windows, cancelled elsewhere.
    std::function<bool(const VostelFileRequest& request, std::vector<CString>& paths)> ChooseFiles;
    /// Asks for a folder. Returns false if the user cancelled. Platform: the folder dialog on Windows,
    /// cancelled elsewhere.
    std::function<bool(const CString& title, CString& folder)> ChooseFolder;
    /// Returns whether a virtual key is held now. Platform: the asynchronous key state on Windows, false
    /// elsewhere.
    std::function<bool(int virtualKey)> IsKeyDown;
    /// Has a window painted anew. Platform: InvalidateRect on Windows, nothing elsewhere.
    std::function<void(HWND window)> InvalidateWindow;
    /// Converts a screen point to a client point of a window. Platform: ScreenToClient on Windows, the point
    /// as it is elsewhere.
    std::function<POINT(HWND window, POINT screen)> ScreenToWindow;
};

/// Replaces all services at once; the record is copied. An empty record brings the platform's own back.
VOSTEL_API void gSetHostServices(const VostelHostServices& services);
