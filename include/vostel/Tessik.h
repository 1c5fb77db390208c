#pragma once

// The three parameter dialogs. They live in a library of their own, Tessik, so that another component
// with the same three operations can stand in for it.

#include "vostel/export.h"
#include "vostel/platform.h"

#include <cstdint>
#include <functional>

// The layout of a headerless raw file, and how it is to be shown.
struct tagZEKImaLoadPara {
    std::int32_t  Width = 0;       // pixels
    std::int32_t  Height = 0;      // pixels
    std::int32_t  DataType = 0;    // 0 unsigned 16-bit, 1 32-bit float, 2 signed 16-bit, 3 unsigned 8-bit
    std::int32_t  Reserved = 0;
    std::uint32_t HeaderBytes = 0;    // skipped at the file's start; not honoured for DataType 3
    std::int32_t  MapToByte = 0;      // 0: show as float data; else map to 8 bits and show as gray
    float         InLow = 0.0f;       // limits of the mapping, in sample values
    float         InHigh = 0.0f;
    float         OutLow = 0.0f;    // what InLow and InHigh map to, gray levels
    float         OutHigh = 0.0f;
};
static_assert(sizeof(tagZEKImaLoadPara) == 40, "the dialog library fills this record by offset");

// A rectangle in image pixels.
struct tagZEKImaROIRectPara {
    std::int32_t RoiLeft = 0;
    std::int32_t RoiRight = 0;
    std::int32_t RoiTop = 0;
    std::int32_t RoiBottom = 0;
};
static_assert(sizeof(tagZEKImaROIRectPara) == 16, "the dialog library fills this record by offset");

// One text value, remembered by the dialog under a section of a file.
struct tagZEKImaGeneralPara {
    CString Value;
};

// Each asks the user and answers true with the record filled, or false if the user cancelled. Without a
// replacement they are modal dialogs prefilled with the last answer on Windows, and answer false elsewhere.
TESSIK_API bool gDlgGetImaLoadPara(tagZEKImaLoadPara& para);
TESSIK_API bool gDlgGetImaROIRectPara(tagZEKImaROIRectPara& para);
TESSIK_API bool gDlgGetImaGeneralParaV2(tagZEKImaGeneralPara& para, CString& section, CString& file);

struct TessikDialogs {    // an empty member keeps the library's own dialog
    std::function<bool(tagZEKImaLoadPara&)>                                     ImaLoadPara;
    std::function<bool(tagZEKImaROIRectPara&)>                                  ImaROIRectPara;
    std::function<bool(tagZEKImaGeneralPara&, CString& section, CString& file)> ImaGeneralPara;
};

// Replaces all three at once; the record is copied. An empty record brings the library's own back.
TESSIK_API void gDlgSetDialogs(const TessikDialogs& dialogs);
