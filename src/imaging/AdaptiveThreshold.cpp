#include "vostel/AdaptiveThreshold.h"

#include "base/Reflect.h"
#include "imaging/PlaneRows.h"
#include "imaging/ThresholdByShare.h"
#include "imaging/ThresholdRows.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

using namespace vostel;

namespace {

using Plane = ClassData2DIO<unsigned char>;

constexpr double ShareOfMean = 0.85;

// With these radii 20 * 255 * area, and 255 * area, still fit in 31 bits.
constexpr int LargestScaledRadius = 323;
constexpr int LargestNarrowRadius = 1450;

// With this one sums and products of pixels fit in 63 bits, and with room.
constexpr int LargestRadius = 1 << 26;

// How often each coordinate of 0..extent-1 is read by the reflected ones first..first+count-1. Whole periods
// of the reflection read each one twice.
std::vector<std::int64_t> TimesRead(std::int64_t first, std::int64_t count, int extent)
{
    const std::int64_t        period = 2 * static_cast<std::int64_t>(extent);
    std::vector<std::int64_t> times(static_cast<std::size_t>(extent), 2 * (count / period));
    for (std::int64_t c = first; c < first + count % period; ++c)
        ++times[static_cast<std::size_t>(ReflectRepeatingEdge(c, extent))];
    return times;
}

// A row is written back only after its last read: row y is read last, as the one that leaves the square, for
// row y + radius + 1. Reflected rows are read earlier than that.
class WaitingRows {
public:
    WaitingRows(Plane& image, int radius)
        : Image(image), Delay(std::min<std::int64_t>(static_cast<std::int64_t>(radius) + 1, image.Height)),
          Memory(static_cast<std::size_t>(Delay) * static_cast<std::size_t>(image.Width))
    {
    }

    // Where the results of row y go; rows are asked for in turn, each after the row before has read its last.
    unsigned char* Next(int y)
    {
        unsigned char* const place = Memory.data() + y % Delay * Image.Width;
        if (y >= Delay)
            Deliver(static_cast<int>(y - Delay));
        return place;
    }

    void DeliverRest()
    {
        for (std::int64_t y = Image.Height - Delay; y < Image.Height; ++y)
            Deliver(static_cast<int>(y));
    }

private:
    void Deliver(int y)
    {
        std::copy_n(Memory.data() + y % Delay * Image.Width, Image.Width, RowOf(Image, y));
    }

    Plane&                     Image;
    std::int64_t               Delay;
    std::vector<unsigned char> Memory;
};

// For squares whose sums fit in 31 bits and whose reflection folds no further than the image is wide.
void ThresholdNarrow(Plane& image, int radius)
{
    const ThresholdVariant& variant = ActiveThresholdVariant();
    const int               width = image.Width;
    const int               height = image.Height;
    const int               side = 2 * radius + 1;
    const bool              scaled = radius <= LargestScaledRadius;
    const auto              decide = scaled ? variant.Decide : variant.DecideInDouble;
    const int               scale = scaled ? 20 * side * side : side * side;
    const int               sumScale = scaled ? 17 : 1;
    // Column sums times the scale of the sums of the columns -radius-1 .. width+radius-1: those of the image
    // and reflected ones.
    std::vector<int> columns(static_cast<std::size_t>(width) + static_cast<std::size_t>(side));
    int* const       inside = columns.data() + radius + 1;
    int* const       right = inside + width;

    const std::vector<std::int64_t> times = TimesRead(-static_cast<std::int64_t>(radius) - 1, side, height);
    for (int y = 0; y < height; ++y) {
        const int                  factor = sumScale * static_cast<int>(times[static_cast<std::size_t>(y)]);
        const unsigned char* const row = RowOf(image, y);
        for (int x = 0; factor > 0 && x < width; ++x)
            inside[x] += factor * row[x];
    }

    WaitingRows results(image, radius);
    for (int y = 0; y < height; ++y) {
        variant.Slide(inside, sumScale,
                      RowOf(image, ReflectRepeatingEdge(static_cast<std::int64_t>(y) + radius, height)),
                      RowOf(image, ReflectRepeatingEdge(static_cast<std::int64_t>(y) - radius - 1, height)),
                      width);
        for (int k = 0; k <= radius; ++k)
            columns[static_cast<std::size_t>(radius - k)] = inside[k];
        for (int k = 0; k < radius; ++k)
            right[k] = inside[width - 1 - k];
        int before = 0;
        for (int k = 0; k < side; ++k)
            before += columns[static_cast<std::size_t>(k)];
        unsigned char* const target = results.Next(y);
        decide(columns.data(), side, before, scale, RowOf(image, y), target, width);
    }
    results.DeliverRest();
}

// For all others, in 64 bits and with the quotient as it reads.
void ThresholdWide(Plane& image, int radius, double share)
{
    const int                 width = image.Width;
    const int                 height = image.Height;
    const std::int64_t        side = 2 * static_cast<std::int64_t>(radius) + 1;
    const std::int64_t        area = side * side;
    const std::size_t         count = static_cast<std::size_t>(width);
    std::vector<std::int64_t> columns(count);
    std::vector<int>          entering(count), leaving(count);
    for (int x = 0; x < width; ++x) {
        entering[static_cast<std::size_t>(x)] =
            ReflectRepeatingEdge(static_cast<std::int64_t>(x) + radius, width);
        leaving[static_cast<std::size_t>(x)] =
            ReflectRepeatingEdge(static_cast<std::int64_t>(x) - radius - 1, width);
    }
    const std::vector<std::int64_t> rowTimes =
        TimesRead(-static_cast<std::int64_t>(radius) - 1, side, height);
    const std::vector<std::int64_t> columnTimes =
        TimesRead(-static_cast<std::int64_t>(radius) - 1, side, width);
    for (int y = 0; y < height; ++y) {
        const std::int64_t         factor = rowTimes[static_cast<std::size_t>(y)];
        const unsigned char* const row = RowOf(image, y);
        for (std::size_t x = 0; factor > 0 && x < count; ++x)
            columns[x] += factor * row[x];
    }

    WaitingRows results(image, radius);
    for (int y = 0; y < height; ++y) {
        const unsigned char* const entered =
            RowOf(image, ReflectRepeatingEdge(static_cast<std::int64_t>(y) + radius, height));
        const unsigned char* const left =
            RowOf(image, ReflectRepeatingEdge(static_cast<std::int64_t>(y) - radius - 1, height));
        std::int64_t sum = 0;
        for (std::size_t x = 0; x < count; ++x) {
            columns[x] += entered[x] - left[x];
            sum += columnTimes[x] * columns[x];
        }
        unsigned char* const       target = results.Next(y);
        const unsigned char* const pixels = RowOf(image, y);
        for (std::size_t x = 0; x < count; ++x) {
            sum += columns[static_cast<std::size_t>(entering[x])] -
                   columns[static_cast<std::size_t>(leaving[x])];
            target[x] = static_cast<double>(pixels[x] * area) > static_cast<double>(sum) * share ? 255 : 0;
        }
    }
    results.DeliverRest();
}

}

void LAT_Constant(ClassData2DIO<unsigned char>& image, int size)
{
    ThresholdByShare(image, size, ShareOfMean);
}

void vostel::ThresholdByShare(ClassData2DIO<unsigned char>& image, int size, double share)
{
    const int radius = std::min(size / 2, LargestRadius);
    if (radius < 0 || CountOf(image) == 0)
        return;
    if (share == ShareOfMean && radius <= LargestNarrowRadius && radius < image.Width)
        ThresholdNarrow(image, radius);
    else
        ThresholdWide(image, radius, share);
}
