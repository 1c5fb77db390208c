#pragma once

#include "canvas/VostelImage.h"

namespace vostel {

// The five canvases, made when the library is loaded and torn down when it is unloaded. Making one creates no
// GDI object.
inline constexpr int CanvasCount = 5;
extern VostelImage   gCanvasTable[CanvasCount];

// The canvas of a number, null outside 0..4: such a number changes nothing.
VostelImage* FindCanvas(int number);

// For calls that answer something: a number outside 0..4 reads as a canvas without anything.
VostelImage& CanvasToRead(int number);

}
