#pragma once

#include "base/Compiler.h"

#include <cstddef>
#include <cstdint>

namespace vostel {

// Bins of a histogram of floats and codes, bounded in double by Low + k Width.
struct BinRule {
    double       Low;
    double       High;
    double       Width;
    double       PerUnit;    // bins
    std::int32_t Last;       // bin
    // The same in float. A place whose distance to a whole number is more than Doubt lies in that bin; others
    // are looked at in double. Not usable where Doubt is a quarter or more.
    float LowFloat;
    float PerUnitFloat;
    float Doubt;

    BinRule(double low, double high, std::size_t bins);
    VOSTEL_INLINE bool IsFloatUsable() const { return Doubt < 0.25f; }
    double             Bound(std::int32_t bin) const { return Low + static_cast<double>(bin) * Width; }
    std::int32_t       BinOf(double v) const;    // Last + 1 outside, and for not a number
};

struct BinRowVariant {
    void (*Row)(const BinRule& rule, const float* values, std::int32_t* bins, std::size_t count);
};
const BinRowVariant& ActiveBinRowVariant();

extern const BinRowVariant BinRowPlain;
extern const BinRowVariant BinRowAvx2;

}
