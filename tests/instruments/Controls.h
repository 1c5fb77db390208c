#pragma once

// Colors of the on-canvas controls, as pixels 0x00RRGGBB, and a view to place them in.

#include "canvas/view/CanvasView.h"
#include "support/HostCanvas.h"

namespace vostel {

constexpr unsigned int Face = 0xB4B4B4;          // 180
constexpr unsigned int Edge = 0x969696;          // 150
constexpr unsigned int DarkThumb = 0x505050;     // 80
constexpr unsigned int LightThumb = 0xDCDCDC;    // 220
constexpr unsigned int Bar = 0x646464;           // 100

inline CanvasView ViewOf(int width, int height)
{
    CanvasView view;
    view.SetClientRect(CRect(0, 0, width, height));
    return view;
}

}
