#pragma once

// A host's canvas whose objects can be looked at. Inner tests only.

#include "canvas/exports/CanvasTable.h"
#include "support/HostCanvas.h"

namespace vostel {

// Mouse flags that draw a shape: the left button with Shift.
constexpr unsigned int DrawFlags = MK_LBUTTON | MK_SHIFT;

// Of captured frames.
constexpr unsigned int RedPixel = 0xFF0000;
constexpr unsigned int BluePixel = 0x0000FF;

class ObjectCanvas : public HostCanvas {
public:
    using HostCanvas::HostCanvas;

    VostelImage& Canvas() const { return gCanvasTable[Number]; }

    // The newest object, as what it is.
    template <typename T = VostelObj>
    T& Last() const
    {
        REQUIRE_FALSE(Canvas().Elements.empty());
        T* const object = dynamic_cast<T*>(Canvas().Elements.back());
        REQUIRE(object != nullptr);
        return *object;
    }
};

}
