#include "geometry/BinRows.h"

#include "base/CpuVariants.h"

#include <cfloat>
#include <cmath>

namespace vostel {

namespace {

void Row(const BinRule& rule, const float* values, std::int32_t* bins, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x)
        bins[x] = rule.BinOf(static_cast<double>(values[x]));
}

double WidthOf(double low, double high, double bins)
{
    return std::isfinite(high - low) ? (high - low) / bins : high / bins - low / bins;
}

}

BinRule::BinRule(double low, double high, std::size_t bins)
    : Low(low), High(high), Width(WidthOf(low, high, static_cast<double>(bins))),
      PerUnit(std::isfinite(high - low) ? static_cast<double>(bins) / (high - low) : 1.0 / Width),
      Last(static_cast<std::int32_t>(bins) - 1), LowFloat(0.0f), PerUnitFloat(0.0f), Doubt(1.0f)
{
    const double farthest = std::fmax(std::fabs(low), std::fabs(high));
    if (!(farthest < static_cast<double>(FLT_MAX) / 4.0) || !(PerUnit < 1e30) || !(PerUnit > 1e-30))
        return;
    LowFloat = static_cast<float>(low);
    PerUnitFloat = static_cast<float>(PerUnit);
    // What the bounds, the difference and the product may each lose, and as much again.
    const double lost = std::ldexp(4.0 * farthest * PerUnit + 8.0 * static_cast<double>(bins), -24);
    Doubt = static_cast<float>(std::fmin(lost, 1.0));
}

std::int32_t BinRule::BinOf(double v) const
{
    // Not a number fails the comparison.
    if (!(v >= Low && v <= High))
        return Last + 1;
    // The product can miss by one where v lies near a bound.
    const double place = (v - Low) * PerUnit;
    std::int32_t bin = place < static_cast<double>(Last) ? static_cast<std::int32_t>(place) : Last;
    if (bin > 0 && v < Bound(bin))
        --bin;
    else if (bin < Last && v >= Bound(bin + 1))
        ++bin;
    return bin;
}

const BinRowVariant BinRowPlain = {.Row = Row};

const BinRowVariant& ActiveBinRowVariant()
{
    return Choose<BinRowVariant>({.Plain = &BinRowPlain, .Avx2 = VOSTEL_X86(&BinRowAvx2)});
}

}
