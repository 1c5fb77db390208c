#include "process/Thresholds.h"

#include "process/Bands.h"

#include <array>
#include <cmath>

namespace vostel::viewer {

namespace {

struct Range {
    float Low = 0.0f, High = 0.0f;
};

Range FiniteRange(const Samples& image)
{
    Range range{INFINITY, -INFINITY};
    for (const float value : image.Values)
        if (std::isfinite(value)) {
            range.Low = std::min(range.Low, value);
            range.High = std::max(range.High, value);
        }
    return range.Low <= range.High ? range : Range();
}

Samples Where(const Samples& image, double low, double high)
{
    Samples result(image.Width, image.Height);
    std::transform(image.Values.begin(), image.Values.end(), result.Values.begin(), [=](float value) {
        return static_cast<double>(value) >= low && static_cast<double>(value) <= high ? 255.0f : 0.0f;
    });
    return result;
}

}

Samples ThresholdRange(const Samples& image, std::span<const double> values, RunState&)
{
    return Where(image, values[0], values[1]);
}

double OtsuValue(const Samples& image)
{
    constexpr int               Classes = 256;
    std::array<double, Classes> counts{};
    const Range                 range = FiniteRange(image);
    const double width = (static_cast<double>(range.High) - static_cast<double>(range.Low)) / Classes;
    if (!(width > 0.0))
        return static_cast<double>(range.Low);
    double all = 0.0, sum = 0.0;
    for (const float value : image.Values)
        if (std::isfinite(value)) {
            const auto place = static_cast<std::size_t>(std::min(
                (static_cast<double>(value) - static_cast<double>(range.Low)) / width, Classes - 1.0));
            ++counts[place];
            ++all;
            sum += static_cast<double>(place);
        }
    double      best = -1.0, below = 0.0, sumBelow = 0.0;
    std::size_t found = 0;
    for (std::size_t i = 0; i + 1 < Classes; ++i) {
        below += counts[i];
        sumBelow += static_cast<double>(i) * counts[i];
        if (below == 0.0 || below == all)
            continue;
        const double apart = sumBelow / below - (sum - sumBelow) / (all - below);
        const double between = below * (all - below) * apart * apart;
        if (between > best) {
            best = between;
            found = i;
        }
    }
    return static_cast<double>(range.Low) + width * static_cast<double>(found + 1);
}

Samples ThresholdOtsu(const Samples& image, std::span<const double>, RunState& state)
{
    const double value = OtsuValue(image);
    state.Reach(1, 2);
    return Where(image, value, INFINITY);
}

Samples ThresholdLocal(const Samples& image, std::span<const double> values, RunState& state)
{
    const int    side = static_cast<int>(values[0]);
    const double factor = values[1];
    const Range  range = FiniteRange(image);
    Samples      bytes = image;
    if (range.Low < 0.0f || range.High > 255.0f || range.High <= 1.0f) {
        const float scale = range.High > range.Low ? 255.0f / (range.High - range.Low) : 0.0f;
        for (float& value : bytes.Values)
            value = (value - range.Low) * scale;
    }
    return ByBands(bytes, side, 20.0, state, [&](const Plane<const float>& rows, const Plane<float>& result) {
        adaptive_threshold(rows, side, factor, result);
    });
}

}
