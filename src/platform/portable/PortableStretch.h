#pragma once

// Copies between two bitmaps that may change the size of the picture. Only pixels that lie in both bitmaps
// are worked on, however large the extents are.

#include "platform/portable/PixelRows.h"
#include "platform/portable/StretchAxis.h"

namespace vostel::gdi {

// One pixel to one pixel; the bitmaps may be the same one and the areas may overlap.
void CopyPixels(const PixelCopy& copy, const StretchAxis& columns, const StretchAxis& rows);

// By one of the stretch modes 1 to 4. As if the source was read whole before the target is written.
void StretchPixels(const PixelCopy& copy, const StretchAxis& columns, const StretchAxis& rows, int mode);

}
