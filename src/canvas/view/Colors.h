#pragma once

// The colors that more than one thing on the canvas has.

#include "vostel/platform.h"

namespace vostel {

inline constexpr COLORREF Black = RGB(0, 0, 0);
inline constexpr COLORREF White = RGB(255, 255, 255);
inline constexpr COLORREF Red = RGB(255, 0, 0);
inline constexpr COLORREF Blue = RGB(0, 0, 255);
inline constexpr COLORREF Yellow = RGB(255, 255, 0);

inline constexpr COLORREF ControlFace = RGB(180, 180, 180);    // of slider and progress bar

// 0xFFRRGGBB.
constexpr unsigned int OpaqueOf(COLORREF color)
{
    return 0xFF000000u | static_cast<unsigned int>(GetRValue(color)) << 16 |
           static_cast<unsigned int>(GetGValue(color)) << 8 | GetBValue(color);
}

}
