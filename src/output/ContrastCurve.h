#pragma once

#include "output/ColorMaps.h"
#include "output/ContrastState.h"

namespace vostel {

// A contrast state ready for use: the formula, value by value.
class ContrastCurve {
public:
    double   Low;
    double   High;
    double   Gamma;
    ColorMap Colors;
    // What shows of values outside the window and of those that are not finite, marks laid over.
    unsigned BelowPixel;
    unsigned AbovePixel;
    unsigned NotFinitePixel;

    explicit ContrastCurve(const ContrastState& state);

    int      LevelOf(double v) const;    // of a finite value: 0..255
    unsigned PixelOf(double v) const;
    // Whether values show as in an image that nothing has been done to, of 8 bits.
    bool IsIdentity() const;
};

// A 0xAARRGGBB color over a 0x00RRGGBB pixel.
unsigned LayOver(unsigned color, unsigned pixel);

}
