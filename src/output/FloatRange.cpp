#include "output/FloatRange.h"

#include "base/CpuVariants.h"
#include "base/PixelFill.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace vostel {

namespace {

constexpr float MinimumStart = 10000000.0f;
constexpr float MaximumStart = -10000000.0f;

std::size_t ElementCount(const StructData2D<float>& data)
{
    if (!data.Ptr1D || data.Width <= 0 || data.Height <= 0)
        return 0;
    return static_cast<std::size_t>(data.Width) * static_cast<std::size_t>(data.Height);
}

void MinMax(const float* source, float* copy, std::size_t count, bool, float& lo, float& hi,
            bool& negativeZero)
{
    for (std::size_t i = 0; i < count; ++i) {
        const float v = source[i];
        if (v < lo)
            lo = v;
        if (v > hi)
            hi = v;
        if (v == 0.0f && std::signbit(v))
            negativeZero = true;
    }
    if (copy && count > 0)
        std::memcpy(copy, source, count * sizeof(float));
}

void Remap(const RemapRule& rule, const float* source, float* target, std::size_t count, bool)
{
    for (std::size_t i = 0; i < count; ++i) {
        const float v = source[i];
        if (v <= rule.LowLimit)
            target[i] = rule.OutLow;
        else if (v >= rule.HighLimit)
            target[i] = rule.OutHigh;
        else
            target[i] = (v - rule.Base) * rule.Slope + rule.OutLow;
    }
}

// A running minimum or maximum keeps the first of equal elements, and 0.0 equals -0.0.
float FirstZero(const float* data, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        if (data[i] == 0.0f)
            return data[i];
    return 0.0f;
}

void ScanFloats(const float* source, float* copy, std::size_t count, float& lo, float& hi)
{
    const bool streaming = copy && UsesStreamingStores(count * sizeof(float));
    bool       negativeZero = false;
    lo = MinimumStart;
    hi = MaximumStart;
    ActiveFloatRangeVariant().MinMax(source, copy, count, streaming, lo, hi, negativeZero);
    if (streaming)
        FenceStreamingStores();
    if (negativeZero && lo == 0.0f)
        lo = FirstZero(source, count);
    if (negativeZero && hi == 0.0f)
        hi = FirstZero(source, count);
}

}

const FloatRangeVariant FloatRangePlain = {.MinMax = MinMax, .Remap = Remap};

// Registers wider than AVX2's do not pay: memory is the limit.
const FloatRangeVariant& ActiveFloatRangeVariant()
{
    return Choose<FloatRangeVariant>({.Plain = &FloatRangePlain, .Avx2 = VOSTEL_X86(&FloatRangeAvx2)});
}

void FloatMinMax(const float* data, std::size_t count, float& lo, float& hi)
{
    ScanFloats(data, nullptr, count, lo, hi);
}

void FloatCopyMinMax(const float* source, float* copy, std::size_t count, float& lo, float& hi)
{
    ScanFloats(source, copy, count, lo, hi);
}

float FloatMin(StructData2D<float>& data)
{
    float lo;
    float hi;
    FloatMinMax(data.Ptr1D, ElementCount(data), lo, hi);
    return lo;
}

float FloatMax(StructData2D<float>& data)
{
    float lo;
    float hi;
    FloatMinMax(data.Ptr1D, ElementCount(data), lo, hi);
    return hi;
}

RemapRule MakeRemapRule(float a, float b, float outLow, float outHigh)
{
    RemapRule rule;
    if (static_cast<double>(std::fabs(b - a)) < 1e-10 ||
        static_cast<double>(std::fabs(outHigh - outLow)) < 1e-10)
        return rule;
    rule.Active = true;
    rule.LowLimit = b > a ? a : b;
    rule.HighLimit = b > a ? b : a;
    rule.Base = a;
    rule.Slope = (outHigh - outLow) / (b - a);
    rule.OutLow = outLow;
    rule.OutHigh = outHigh;
    return rule;
}

void RemapFloats(const RemapRule& rule, const float* source, float* target, std::size_t count)
{
    // In place the caches hold the line already.
    const bool streaming = source != target && UsesStreamingStores(count * sizeof(float));
    if (rule.Active)
        ActiveFloatRangeVariant().Remap(rule, source, target, count, streaming);
    else if (source != target)
        CopyPixels(reinterpret_cast<const std::uint32_t*>(source), reinterpret_cast<std::uint32_t*>(target),
                   count, streaming);
    if (streaming)
        FenceStreamingStores();
}

void RemapRange(StructData2D<float>& src, StructData2D<float>& dst, float a, float b, float outLow,
                float outHigh, int useRange)
{
    const std::size_t count = ElementCount(src);
    if (useRange == 0) {
        FloatMinMax(src.Ptr1D, count, a, b);
        outLow = 0.0f;
        outHigh = 255.0f;
    }
    const RemapRule rule = MakeRemapRule(a, b, outLow, outHigh);
    if (!rule.Active || !dst.Ptr1D || dst.Width != src.Width || dst.Height != src.Height)
        return;
    RemapFloats(rule, src.Ptr1D, dst.Ptr1D, count);
}

}
