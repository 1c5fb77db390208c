#include "process/Filters.h"

#include "process/Bands.h"

#include <cmath>

namespace vostel::viewer {

namespace {

int OddOf(double side)
{
    return static_cast<int>(side) | 1;
}

void NeedRoom(const Samples& image, int side)
{
    if (side > image.Width || side > image.Height)
        throw Error(VOSTEL_INVALID_ARGUMENT, "the neighborhood is larger than the image");
}

Samples Correlated(const Samples& image, const std::vector<float>& kernel, int side, RunState& state)
{
    NeedRoom(image, side);
    return ByBands(image, side / 2, static_cast<double>(side) * side, state,
                   [&](const Plane<const float>& rows, const Plane<float>& result) {
                       correlate(rows, Plane<const float>(kernel.data(), side, side), result);
                   });
}

}

Samples SmoothGaussian(const Samples& image, std::span<const double> values, RunState& state)
{
    const double sigma = values[0];
    const int    side = 2 * static_cast<int>(std::ceil(3.0 * sigma)) + 1;    // all but 0.3 per cent
    NeedRoom(image, side);
    return ByBands(image, side / 2, static_cast<double>(side) * side, state,
                   [&](const Plane<const float>& rows, const Plane<float>& result) {
                       gaussian(rows, side, sigma, result);
                   });
}

Samples SmoothMean(const Samples& image, std::span<const double> values, RunState& state)
{
    const int         side = OddOf(values[0]);
    const std::size_t area = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    return Correlated(image, std::vector<float>(area, 1.0f / static_cast<float>(area)), side, state);
}

Samples Sharpen(const Samples& image, std::span<const double> values, RunState& state)
{
    const int          side = OddOf(values[0]);
    const auto         amount = static_cast<float>(values[1]);
    const std::size_t  area = static_cast<std::size_t>(side) * static_cast<std::size_t>(side);
    std::vector<float> kernel(area, -amount / static_cast<float>(area));
    kernel[area / 2] += 1.0f + amount;
    return Correlated(image, kernel, side, state);
}

Samples Edges(const Samples& image, std::span<const double> values, RunState& state)
{
    static const std::vector<float> sobelX = {-1, 0, 1, -2, 0, 2, -1, 0, 1};
    static const std::vector<float> sobelY = {-1, -2, -1, 0, 0, 0, 1, 2, 1};
    static const std::vector<float> laplace = {-1, -1, -1, -1, 8, -1, -1, -1, -1};
    enum { Strength, AcrossColumns, AcrossRows, Laplace };
    switch (static_cast<int>(values[0])) {
    case AcrossColumns:
        return Correlated(image, sobelX, 3, state);
    case AcrossRows:
        return Correlated(image, sobelY, 3, state);
    case Laplace:
        return Correlated(image, laplace, 3, state);
    default:
        break;
    }
    Samples       across = Correlated(image, sobelX, 3, state);
    const Samples down = Correlated(image, sobelY, 3, state);
    std::transform(across.Values.begin(), across.Values.end(), down.Values.begin(), across.Values.begin(),
                   [](float x, float y) { return std::sqrt(x * x + y * y); });
    return across;
}

Samples Invert(const Samples& image, std::span<const double>, RunState&)
{
    float low = INFINITY, high = -INFINITY;
    for (const float value : image.Values)
        if (std::isfinite(value)) {
            low = std::min(low, value);
            high = std::max(high, value);
        }
    Samples result = image;
    for (float& value : result.Values)
        value = low + (high - value);
    return result;
}

}
