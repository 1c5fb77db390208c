#pragma once

#include "vostel/Containers.h"

#include <cstddef>

namespace vostel {

// Smallest and largest element, scanned from 10000000 down and from -10000000 up: data that lies wholly
// beyond such a start value reports the start value, and so does an empty plane. Not a number is passed over.
float FloatMin(StructData2D<float>& data);
float FloatMax(StructData2D<float>& data);
void  FloatMinMax(const float* data, std::size_t count, float& lo, float& hi);

// FloatMinMax of source, and copy = source, in one pass. The two do not overlap.
void FloatCopyMinMax(const float* source, float* copy, std::size_t count, float& lo, float& hi);

// A clamped linear map of floats, every step in float:
// v <= LowLimit: OutLow, else v >= HighLimit: OutHigh, else (v - Base) * Slope + OutLow; not a number stays
// so.
struct RemapRule {
    bool  Active = false;    // false leaves every value as it is
    float LowLimit = 0.0f;
    float HighLimit = 0.0f;
    float Base = 0.0f;
    float Slope = 0.0f;
    float OutLow = 0.0f;
    float OutHigh = 0.0f;
};

// The rule that takes a..b to outLow..outHigh; not active where either span is below 1e-10. Where b is not
// above a, the ramp runs from outLow at a to outHigh at b, while everything below b gives outLow and
// everything above a gives outHigh: the clamped ends do not join the ramp. That is intended.
RemapRule MakeRemapRule(float a, float b, float outLow, float outHigh);

// Target = rule(source); the same plane, or disjoint.
void RemapFloats(const RemapRule& rule, const float* source, float* target, std::size_t count);

// Dst = src remapped by MakeRemapRule(a, b, outLow, outHigh), or, where useRange is 0, from src's own
// smallest and largest element to 0..255. Where the rule is not active dst stays untouched, and so it does
// where the sizes differ. Src and dst may be the same plane.
void RemapRange(StructData2D<float>& src, StructData2D<float>& dst, float a, float b, float outLow,
                float outHigh, int useRange);

struct FloatRangeVariant {
    // Folds count elements into lo and hi and, unless copy is null, writes them to copy. Reports a -0.0 among
    // them: of zeros, the plain variant keeps the first, the others any.
    void (*MinMax)(const float* source, float* copy, std::size_t count, bool streaming, float& lo, float& hi,
                   bool& negativeZero);
    void (*Remap)(const RemapRule& rule, const float* source, float* target, std::size_t count,
                  bool streaming);
};
const FloatRangeVariant& ActiveFloatRangeVariant();

extern const FloatRangeVariant FloatRangePlain;
extern const FloatRangeVariant FloatRangeAvx2;

}
