#pragma once

#include "output/FloatRange.h"

#include <cstddef>

namespace vostel {

// The forms of FloatRange.h. MinMax folds count elements into lo and hi and, unless copy is null, writes them
// to copy. It reports a -0.0 among them: of zeros, the plain form keeps the first, the others any.
void MinMaxPlain(const float* source, float* copy, std::size_t count, bool streaming, float& lo, float& hi,
                 bool& negativeZero);
void RemapPlain(const RemapRule& rule, const float* source, float* target, std::size_t count, bool streaming);

void MinMaxAvx2(const float* source, float* copy, std::size_t count, bool streaming, float& lo, float& hi,
                bool& negativeZero);
void RemapAvx2(const RemapRule& rule, const float* source, float* target, std::size_t count, bool streaming);

// The form in use.
struct FloatRangeVariants {
    decltype(&MinMaxPlain) MinMax;
    decltype(&RemapPlain)  Remap;
};
const FloatRangeVariants& ActiveFloatRangeVariants();

}
