#pragma once

// What every window around a canvas needs and the library has no single call for.

#include <VostelObj.h>

namespace vostel::hosts {

// Client px per image px.
inline double ScaleOf(int canvas)
{
    constexpr int Apart = 1 << 16;    // of two client positions, whose image positions differ by as many px
    double        left = 0.0, right = 0.0, y = 0.0;
    gCVSGetOriPt(canvas, CPoint(0, 0), left, y);
    gCVSGetOriPt(canvas, CPoint(Apart, 0), right, y);
    return right > left ? Apart / (right - left) : 1.0;
}

// Whether the name is that of headerless data, whose layout a dialog asks for.
inline bool IsRawFile(const CString& path)
{
    CString       name(path);
    const CString extension = OSCString().GetExt(name);
    return extension == L"raw" || extension == L"hraw" || extension == L"his" || extension == L"nul";
}

// Whether the file is a picture of a depth that a canvas shows. To be asked before loading: the library drops
// what it shows before it finds a file unreadable.
inline bool IsPictureFile(const CString& path)
{
    ATL::CImage picture;
    if (picture.Load(path.GetString()) < 0 || picture.IsNull())
        return false;
    const int depth = picture.GetBPP();
    return depth == 8 || depth == 24 || depth == 32;
}

}
