#pragma once

// Lines one pixel wide, plain or broken, and lines of wider pens.

#include "platform/portable/PortableFill.h"

namespace vostel::gdi {

// Device coordinates: sums of 32-bit ones.
struct DevicePoint {
    std::int64_t X, Y;
};

// The dashes of a pen one pixel wide. Every call of LineTo starts them anew; along the outline of a shape
// they run on. Steps counts the pixels so far.
struct Dashes {
    Paint         Ink, Gap;
    const int*    Lengths = nullptr;    // dash, gap, dash, gap ...; null for an unbroken line
    int           Count = 0;
    int           Period = 0;
    std::uint64_t Steps = 0;
};

Dashes DashesOfPen(const Context& context);

// Without its end point. Advances the dashes by the whole length, drawn or clipped.
void DrawThinLine(const Bitmap& surface, Dashes& dashes, DevicePoint from, DevicePoint to);

// A closed row of neighbouring pixels, broken by the dashes.
void DrawDashedRing(const Bitmap& surface, const Dashes& dashes, const std::vector<DevicePoint>& ring);

// A line of a pen wider than one pixel, with its round ends.
void DrawWideLine(const Bitmap& surface, const Paint& paint, int width, DevicePoint from, DevicePoint to);

}
