#pragma once

// Filling rows of pixels: the one place where shapes reach the memory of a bitmap.

#include "platform/portable/PortableContext.h"

namespace vostel::gdi {

// What a brush or a pen puts on a pixel. A pattern repeats every 8 pixels each way from the bitmap's top
// left corner, whatever the viewport origin.
class Paint {
public:
    static Paint Solid(COLORREF color);
    // A hatch takes the context's background: its color fills the gaps if the mode is opaque.
    static Paint OfBrush(const Context& context, const Brush& brush);
    // The pen's own color, whatever its style.
    static Paint OfPen(const Context& context);

    bool          Draws = false;    // false: the null brush, the null pen
    bool          Hatched = false;
    bool          FillsGaps = false;    // hatched, opaque background
    int           Hatch = 0;
    std::uint32_t Pixel = 0;
    std::uint32_t GapPixel = 0;
};

// Pixels left..right-1 of rows top..bottom-1, clipped to the bitmap. Coordinates are device coordinates,
// wide enough for any sum of two 32-bit ones. Bitmaps of other depths than 24 and 32 bits are left alone.
void        FillBox(const Bitmap& surface, const Paint& paint, std::int64_t left, std::int64_t top,
                    std::int64_t right, std::int64_t bottom);
inline void FillRow(const Bitmap& surface, const Paint& paint, std::int64_t y, std::int64_t left,
                    std::int64_t right)
{
    FillBox(surface, paint, left, y, right, y + 1);
}

}
