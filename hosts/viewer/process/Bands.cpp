#include "process/Bands.h"

namespace vostel::viewer {

Samples ByBands(const Samples& image, int reach, double cost, RunState& state, const BandWork& work)
{
    constexpr double Once = 3e8;    // of the cost, about a tenth of a second
    const int rows = std::max(static_cast<int>(Once / (std::max(cost, 1.0) * image.Width)), 2 * reach + 1);
    Samples   result(image.Width, image.Height);
    std::vector<float> made;
    const auto         width = static_cast<std::size_t>(image.Width);
    for (int top = 0; top < image.Height; top += rows) {
        state.Reach(top, image.Height);
        const int bottom = std::min(top + rows, image.Height);
        // At the border of the image a band is as deep as a neighborhood, which is mirrored there.
        const int from = std::max(0, std::min(top, image.Height - reach - 1) - reach);
        const int to = std::min(image.Height, std::max(bottom, reach + 1) + reach);
        made.resize(width * static_cast<std::size_t>(to - from));
        work(Plane<const float>(image.Values.data() + width * static_cast<std::size_t>(from), image.Width,
                                to - from),
             Plane<float>(made.data(), image.Width, to - from));
        std::copy_n(made.begin() + static_cast<std::ptrdiff_t>(width) * (top - from),
                    width * static_cast<std::size_t>(bottom - top),
                    result.Values.begin() + static_cast<std::ptrdiff_t>(width) * top);
    }
    return result;
}

}
