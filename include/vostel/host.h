#pragma once

/// @file
/// What the library asks of a person, a keyboard or a window, in one record that a host can replace; and
/// what it takes from files of pictures.

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

/// Limits of files of pictures. They hold for ATL::CImage, where it is the library's own, and so for
/// gCVSReadFile; for ZEKReadColorBmp and ZEKReadGrayBmp; not for raw data, whose size the host gives, and not
/// for vostel_... calls, which have vostel_set_limits.
///
/// The variable VOSTEL_LIMITS of the environment sets defaults: "pixels=100000000,file=500000000", of the
/// names pixels, file and memory. It is read once; what else it holds has no effect and is reported on
/// standard error.
struct VostelPictureLimits {
    long long MaxPixels = 0;    ///< of a picture; 0: the default, 2^28 for CImage, which takes no larger ones
    long long MaxFileBytes =
        0;    ///< of its file; 0: the default, 2^31 for CImage, which takes no larger ones
    /// Bytes that reading it may take: four times the larger of the file and the picture of 4 bytes a pixel,
    /// and 64 MiB. A picture that could take more is refused before it is decoded. 0: the default, any.
    long long MaxMemory = 0;
};

/// Replaces all limits at once, for the whole process; may be called on any thread. A picture beyond them
/// fails to load, as a damaged one does. Returns false, with the limits as they were, if one is negative.
VOSTEL_API bool gSetPictureLimits(const VostelPictureLimits& limits);

/// Returns the limits of CImage that are in force; MaxMemory is 0 if there is none.
VOSTEL_API VostelPictureLimits gGetPictureLimits();
