#include "output/FloatWindow.h"

#include "base/CpuVariants.h"

#include <algorithm>
#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>

namespace vostel {

namespace {

// Spans whose factors are normal floats, with room to spare.
constexpr double LeastSpan = 1e-30;
constexpr double GreatestSpan = 1e30;
constexpr double LeastGamma = 0.125;
// Above, even the smallest shares show.
constexpr double GreatestGamma = 16.0;

constexpr float Infinity = HUGE_VALF;

float LowestNotBelow(double v)
{
    const float nearest = static_cast<float>(v);
    return static_cast<double>(nearest) < v ? std::nextafter(nearest, Infinity) : nearest;
}

float HighestNotAbove(double v)
{
    const float nearest = static_cast<float>(v);
    return static_cast<double>(nearest) > v ? std::nextafter(nearest, -Infinity) : nearest;
}

// Each level begins at the share whose power reaches the half below it: 255 powers for the whole table.
void FillPixelsOfBits(const ContrastCurve& curve, std::vector<unsigned>& pixels)
{
    const std::size_t entries = (std::bit_cast<std::uint32_t>(1.0f) >> FloatWindow::DroppedBits) + 1;
    pixels.assign(entries, curve.Colors.back());
    std::size_t begin = 0;
    for (std::size_t level = 0; level < 255; ++level) {
        const double      half = (static_cast<double>(level) + 0.5) / 255.0;
        const float       next = static_cast<float>(std::pow(half, curve.Gamma));
        const std::size_t end =
            std::clamp<std::size_t>(std::bit_cast<std::uint32_t>(next) >> FloatWindow::DroppedBits,
                                    std::max<std::size_t>(begin, 1), entries - 1);
        std::fill(pixels.begin() + static_cast<std::ptrdiff_t>(begin),
                  pixels.begin() + static_cast<std::ptrdiff_t>(end), curve.Colors[level]);
        begin = end;
    }
}

// Without a branch: which values lie outside is anyone's guess.
int Select(bool first, int a, int b)
{
    const int mask = -static_cast<int>(first);
    return (a & mask) | (b & ~mask);
}

template <bool Linear>
int EntryOf(const FloatWindow& window, float v)
{
    float place = (v - window.Base) * window.Factor + window.Offset;
    place = place > 0.0f ? place : 0.0f;
    place = place < window.Top ? place : window.Top;
    int entry = Linear ? static_cast<int>(place)
                       : static_cast<int>(std::bit_cast<std::uint32_t>(place) >> FloatWindow::DroppedBits);
    entry = Select(v < window.Lowest, window.Below, entry);
    entry = Select(v > window.Highest, window.Above, entry);
    const std::uint32_t exponent = std::bit_cast<std::uint32_t>(v) & 0x7F800000u;
    return Select(exponent == 0x7F800000u, window.NotFinite, entry);
}

// The entries first and then their pixels: without a branch in either, and the first without a table.
template <bool Linear>
void FastRow(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count)
{
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = static_cast<unsigned>(EntryOf<Linear>(window, values[x]));
    const unsigned* const table = window.Pixels();
    for (std::size_t x = 0; x < count; ++x)
        pixels[x] = table[pixels[x]];
}

void Row(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count, bool)
{
    if (!window.IsFast) {
        for (std::size_t x = 0; x < count; ++x)
            pixels[x] = window.Curve.PixelOf(static_cast<double>(values[x]));
    } else if (window.IsLinear) {
        FastRow<true>(window, values, pixels, count);
    } else {
        FastRow<false>(window, values, pixels, count);
    }
}

}

FloatWindow::FloatWindow(const ContrastState& state) : Curve(state)
{
    const double span = state.High - state.Low;
    const double farthest = std::max(std::fabs(state.Low), std::fabs(state.High));
    IsLinear = state.Gamma == 1.0;
    IsGray = state.Map == "gray";
    IsFast = span >= LeastSpan && span <= GreatestSpan && farthest < static_cast<double>(FLT_MAX) &&
             state.Gamma >= LeastGamma && state.Gamma <= GreatestGamma;
    if (!IsFast)
        return;
    // The difference from a float is exact where values lie close to it; what Base misses of Low is added.
    const double steps = IsLinear ? 255.0 : 1.0;
    const double rounding = IsLinear ? 0.5 : 0.0;
    Base = static_cast<float>(state.Low);
    Factor = static_cast<float>(steps / span);
    Offset = static_cast<float>((static_cast<double>(Base) - state.Low) * steps / span + rounding);
    Top = IsLinear ? 255.5f : 1.0f;
    Lowest = LowestNotBelow(state.Low);
    Highest = HighestNotAbove(state.High);
    if (!IsLinear)
        FillPixelsOfBits(Curve, OfBits);
    Below = IsLinear ? Levels : static_cast<int>(OfBits.size());
    Above = Below + 1;
    NotFinite = Below + 2;
    const unsigned outside[] = {Curve.BelowPixel, Curve.AbovePixel, Curve.NotFinitePixel};
    if (IsLinear)
        std::copy(std::begin(outside), std::end(outside),
                  std::copy(Curve.Colors.begin(), Curve.Colors.end(), OfLevels.begin()));
    else
        OfBits.insert(OfBits.end(), std::begin(outside), std::end(outside));
}

const FloatWindowVariant FloatWindowPlain = {.Row = Row};

const FloatWindowVariant& ActiveFloatWindowVariant()
{
    return Choose<FloatWindowVariant>({.Plain = &FloatWindowPlain,
                                       .Avx2 = VOSTEL_X86(&FloatWindowAvx2),
                                       .Avx512 = VOSTEL_X86(&FloatWindowAvx512)});
}

void ShowFloats(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count,
                bool streaming)
{
    ActiveFloatWindowVariant().Row(window, values, pixels, count, streaming);
}

}
