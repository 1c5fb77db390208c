#include "canvas/SampleRange.h"

#include "geometry/FloatRanks.h"
#include "output/FloatRange.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace vostel {

namespace {

template <typename Value>
struct Ends {
    Value Min = std::numeric_limits<Value>::max();
    Value Max = std::numeric_limits<Value>::lowest();

    void Take(Value v)
    {
        Min = std::min(Min, v);
        Max = std::max(Max, v);
    }
};

template <typename Sample>
Ends<Sample> EndsOf(const PlaneView& plane)
{
    Ends<Sample> ends;
    for (int y = 0; y < plane.Height; ++y) {
        const Sample* const row = plane.Row<Sample>(y);
        for (int x = 0; x < plane.Width; ++x)
            ends.Take(row[x]);
    }
    return ends;
}

template <typename Sample>
SampleRange WholeRange(const PlaneView& plane)
{
    const Ends<Sample> ends = EndsOf<Sample>(plane);
    return {static_cast<double>(ends.Min), static_cast<double>(ends.Max), 0, true};
}

SampleRange FloatsRange(const PlaneView& plane)
{
    Ends<float>  ends;
    std::int64_t notFinite = 0;
    for (int y = 0; y < plane.Height; ++y) {
        const float* const row = plane.Row<float>(y);
        for (int x = 0; x < plane.Width; ++x) {
            if (IsFiniteFloat(row[x]))
                ends.Take(row[x]);
            else
                ++notFinite;
        }
    }
    if (ends.Min > ends.Max)
        return {0.0, 0.0, notFinite, false};
    // Minus zero comes as zero.
    return {static_cast<double>(ends.Min) + 0.0, static_cast<double>(ends.Max) + 0.0, notFinite, true};
}

SampleRange ColorsRange(const PlaneView& plane)
{
    const ColorLayout layout(plane.Type);
    Ends<int>         ends;
    for (int y = 0; y < plane.Height; ++y) {
        const std::uint8_t* pixel = plane.Row<std::uint8_t>(y);
        for (int x = 0; x < plane.Width; ++x, pixel += layout.PixelBytes)
            ends.Take(layout.LumaCode(pixel));
    }
    return {static_cast<double>(ends.Min) / LumaUnit, static_cast<double>(ends.Max) / LumaUnit, 0, true};
}

CopiedRange CopyFloats(const PlaneView& source, ImageSamples& target)
{
    const std::size_t width = static_cast<std::size_t>(target.Width);
    const bool        tight = source.RowBytes == static_cast<std::ptrdiff_t>(target.RowBytes());
    const int         rows = tight ? 1 : source.Height;
    const std::size_t count = tight ? width * static_cast<std::size_t>(source.Height) : width;
    CopiedRange       range;
    for (int y = 0; y < rows; ++y) {
        float low;
        float high;
        FloatCopyMinMax(source.Row<float>(y), target.Row<float>(y), count, low, high);
        range.Low = y == 0 ? low : std::min(range.Low, low);
        range.High = y == 0 ? high : std::max(range.High, high);
    }
    // Within these ends no infinity hides, and the scan's start values have not been met.
    constexpr float ScanStart = 10000000.0f;
    if (std::isfinite(range.Low) && range.Low < ScanStart && std::isfinite(range.High) &&
        range.High > -ScanStart) {
        range.Min = static_cast<double>(range.Low) + 0.0;
        range.Max = static_cast<double>(range.High) + 0.0;
        range.AnyFinite = true;
    } else {
        const SampleRange exact = FloatsRange(ViewOf(target));
        range.Min = exact.Min;
        range.Max = exact.Max;
        range.AnyFinite = exact.AnyFinite;
    }
    return range;
}

void CopyRows(const PlaneView& source, ImageSamples& target)
{
    for (int y = 0; y < source.Height; ++y)
        std::memcpy(target.Row<char>(y), source.Row<char>(y), target.RowBytes());
}

bool IsAligned(const PlaneView& plane)
{
    const std::size_t bytes = IsColor(plane.Type) ? 1 : PixelBytes(plane.Type);
    return reinterpret_cast<std::uintptr_t>(plane.Data) % bytes == 0 &&
           plane.RowBytes % static_cast<std::ptrdiff_t>(bytes) == 0;
}

}

PlaneView ViewOf(const ImageSamples& samples)
{
    return {samples.Type, samples.Width, samples.Height, static_cast<std::ptrdiff_t>(samples.RowBytes()),
            samples.Data()};
}

SampleRange RangeOf(const PlaneView& plane)
{
    switch (plane.Type) {
    case SampleType::U8:
        return WholeRange<std::uint8_t>(plane);
    case SampleType::U16:
        return WholeRange<std::uint16_t>(plane);
    case SampleType::I16:
        return WholeRange<std::int16_t>(plane);
    case SampleType::F32:
        return FloatsRange(plane);
    default:
        return ColorsRange(plane);
    }
}

CopiedRange CopySamples(const PlaneView& source, ImageSamples& target)
{
    if (source.Type == SampleType::F32 && IsAligned(source))
        return CopyFloats(source, target);
    CopyRows(source, target);
    return RangeOfSamples(target);
}

CopiedRange RangeOfSamples(const ImageSamples& samples)
{
    CopiedRange range;
    if (!IsDeep(samples.Type))
        return range;
    const PlaneView plane = ViewOf(samples);
    if (samples.Type == SampleType::F32)
        FloatMinMax(plane.Row<float>(0), samples.Bytes() / sizeof(float), range.Low, range.High);
    const SampleRange exact = RangeOf(plane);
    range.Min = exact.Min;
    range.Max = exact.Max;
    range.AnyFinite = exact.AnyFinite;
    if (samples.Type != SampleType::F32) {
        range.Low = static_cast<float>(exact.Min);
        range.High = static_cast<float>(exact.Max);
    }
    return range;
}

ContrastState FirstContrast(SampleType type, const CopiedRange& range)
{
    ContrastState state;
    if (IsDeep(type)) {
        state.Low = range.AnyFinite ? range.Min : 0.0;
        state.High = range.AnyFinite ? range.Max : 1.0;
    }
    return state;
}

}
