#pragma once

#include "output/ContrastCurve.h"

#include <cstddef>
#include <vector>

namespace vostel {

// Floats to pixels through a contrast curve, without its double arithmetic: at most one level from the
// formula, and exact at both ends of the window, outside it and for values that are not finite.
//
// Gamma 1: level = trunc((v - Base) * Factor + Offset), in float, held within 0..255. Others: the share of
// the window, (v - Base) * Factor + Offset held within 0..1, has a level for each of its upper bits, with
// steps of 2^-11 of its own size. Windows that float cannot resolve, and gammas below 1/8 or above
// 16, take the formula itself.
struct FloatWindow {
    ContrastCurve Curve;
    bool          IsFast = false;
    bool          IsLinear = false;
    bool          IsGray = false;    // the color map is the gray one
    float         Base = 0.0f;
    float         Factor = 0.0f;
    float         Offset = 0.0f;
    float         Top = 0.0f;        // what place is held below
    float         Lowest = 0.0f;     // the lowest float inside the window
    float         Highest = 0.0f;    // the highest one
    // Of a share's bits >> DroppedBits; vector gathers read past the last entry.
    std::vector<unsigned char> LevelOfBits;

    static constexpr int DroppedBits = 12;

    explicit FloatWindow(const ContrastState& state);
};

void ShowFloats(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count);

struct FloatWindowVariant {
    void (*Row)(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count);
};
const FloatWindowVariant& ActiveFloatWindowVariant();

extern const FloatWindowVariant FloatWindowPlain;
extern const FloatWindowVariant FloatWindowAvx2;

}
