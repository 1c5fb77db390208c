#pragma once

#include "output/FloatRange.h"

#include <cstddef>

// The forms of FloatRange.h. MinMax folds count elements into lo and hi and, unless copy is null, writes them
// to copy. It reports a -0.0 among them: of zeros, the plain form keeps the first, the others any.
void MinMaxPlain(const float* source, float* copy, std::size_t count, bool pastCaches, float& lo, float& hi,
                 bool& negativeZero);
void RemapPlain(const RemapRule& rule, const float* source, float* target, std::size_t count,
                bool pastCaches);

void MinMaxAvx2(const float* source, float* copy, std::size_t count, bool pastCaches, float& lo, float& hi,
                bool& negativeZero);
void RemapAvx2(const RemapRule& rule, const float* source, float* target, std::size_t count, bool pastCaches);

// The form in use.
struct FloatRangeForms {
    decltype(&MinMaxPlain) MinMax;
    decltype(&RemapPlain)  Remap;
};
const FloatRangeForms& ActiveFloatRangeForms();
