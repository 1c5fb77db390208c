#pragma once

/// @file
/// The three parameter dialogs. They live in a library of their own, Tessik, so that another component with
/// the same three operations can stand in for it.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <cstdint>
#include <functional>

/// The layout of a headerless raw file, and how it is to be shown.
struct tagZEKImaLoadPara {
    std::int32_t Width = 0;     ///< pixels
    std::int32_t Height = 0;    ///< pixels
    /// Element type: 0 unsigned 16-bit, 1 32-bit float, 2 signed 16-bit, 3 unsigned 8-bit.
    std::int32_t  DataType = 0;
    std::int32_t  Reserved = 0;       ///< not used
    std::uint32_t HeaderBytes = 0;    ///< bytes skipped at the file's start; not honored for DataType 3
    std::int32_t  MapToByte = 0;      ///< 0: show as float data; else map to 8 bits and show as gray
    float         InLow = 0.0f;       ///< lower limit of the mapping, in sample values
    float         InHigh = 0.0f;      ///< upper limit of the mapping, in sample values
    float         OutLow = 0.0f;      ///< gray that InLow maps to; below 0 counts as 0
    float         OutHigh = 0.0f;     ///< gray that InHigh maps to; above 255 counts as 255
};
static_assert(sizeof(tagZEKImaLoadPara) == 40, "the dialog library fills this record by offset");

/// A rectangle in image pixels. Its width is RoiRight - RoiLeft, its height RoiBottom - RoiTop.
struct tagZEKImaROIRectPara {
    std::int32_t RoiLeft = 0;      ///< left edge
    std::int32_t RoiRight = 0;     ///< right edge
    std::int32_t RoiTop = 0;       ///< top edge
    std::int32_t RoiBottom = 0;    ///< bottom edge
};
static_assert(sizeof(tagZEKImaROIRectPara) == 16, "the dialog library fills this record by offset");

/// One text value, remembered by the dialog under a section of a file.
struct tagZEKImaGeneralPara {
    CString Value;    ///< the text
};

/// Asks for the layout of a raw file. Returns true with the record filled, false if the user cancelled.
///
/// Without a replacement the three dialogs are modal dialogs prefilled with the last answer on Windows, and
/// return false elsewhere.
TESSIK_API bool gDlgGetImaLoadPara(tagZEKImaLoadPara& para);

/// Asks for a rectangle. Returns true with the record filled, false if the user cancelled.
TESSIK_API bool gDlgGetImaROIRectPara(tagZEKImaROIRectPara& para);

/// Asks for a text that is remembered under a section of a file. Returns true with the record filled, false
/// if the user cancelled.
TESSIK_API bool gDlgGetImaGeneralParaV2(tagZEKImaGeneralPara& para, CString& section, CString& file);

/// Replacements of the dialogs. An empty member keeps the library's own; a member returns what the call of
/// its name returns.
struct TessikDialogs {
    /// Asks for the layout of a raw file, for gDlgGetImaLoadPara.
    std::function<bool(tagZEKImaLoadPara&)> ImaLoadPara;
    /// Asks for a rectangle, for gDlgGetImaROIRectPara.
    std::function<bool(tagZEKImaROIRectPara&)> ImaROIRectPara;
    /// Asks for a text, for gDlgGetImaGeneralParaV2.
    std::function<bool(tagZEKImaGeneralPara&, CString& section, CString& file)> ImaGeneralPara;
};

/// Replaces all three dialogs at once; the record is copied. An empty record brings the library's own back.
TESSIK_API void gDlgSetDialogs(const TessikDialogs& dialogs);
