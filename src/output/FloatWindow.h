#pragma once

#include "base/Compiler.h"
#include "output/ContrastCurve.h"

#include <array>
#include <cstddef>
#include <vector>

namespace vostel {

// Floats to pixels through a contrast curve, without its double arithmetic: at most one level from the
// formula, and exact at both ends of the window, outside it and for values that are not finite.
//
// place = (v - Base) * Factor + Offset, in float, held within 0..Top, finds an entry of a table of pixels.
// Gamma 1: trunc(place) is the level. Others: place is the share of the window, and there is an entry for
// each of its upper bits, with steps of 2^-11 of its own size. Windows that float cannot resolve, and gammas
// below 1/8 or above 16, take the formula itself.
struct FloatWindow {
    ContrastCurve Curve;
    bool          IsFast = false;
    bool          IsLinear = false;
    bool          IsGray = false;    // the color map is the gray one
    float         Base = 0.0f;
    float         Factor = 0.0f;
    float         Offset = 0.0f;
    float         Top = 0.0f;
    float         Lowest = 0.0f;     // the lowest float inside the window
    float         Highest = 0.0f;    // the highest one
    // Behind those of the places the pixels of values below, above and not finite. Gamma 1 takes no memory.
    std::array<unsigned, Levels + 3> OfLevels = {};
    std::vector<unsigned>            OfBits;
    int                              Below = 0;    // entries
    int                              Above = 0;
    int                              NotFinite = 0;

    static constexpr int DroppedBits = 12;

    explicit FloatWindow(const ContrastState& state);
    VOSTEL_INLINE const unsigned* Pixels() const { return IsLinear ? OfLevels.data() : OfBits.data(); }
};

// With streaming, FenceStreamingStores (see PixelFill.h) has to follow.
void ShowFloats(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count,
                bool streaming);

struct FloatWindowVariant {
    void (*Row)(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count,
                bool streaming);
};
const FloatWindowVariant& ActiveFloatWindowVariant();

extern const FloatWindowVariant FloatWindowPlain;
extern const FloatWindowVariant FloatWindowAvx2;
extern const FloatWindowVariant FloatWindowAvx512;

}
