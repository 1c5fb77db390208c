#include "geometry/ProfileSampling.h"

#include "geometry/Lengths.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace vostel {

namespace {

constexpr double MostSamples = 0x1p53;

double ValueAt(const PlaneView& plane, int channel, int x, int y)
{
    switch (plane.Type) {
    case SampleType::U8:
        return plane.Row<std::uint8_t>(y)[x];
    case SampleType::U16:
        return plane.Row<std::uint16_t>(y)[x];
    case SampleType::I16:
        return plane.Row<std::int16_t>(y)[x];
    case SampleType::F32:
        return static_cast<double>(plane.Row<float>(y)[x]);
    default:
        break;
    }
    const ColorLayout         layout(plane.Type);
    const std::uint8_t* const pixel =
        plane.Row<std::uint8_t>(y) + static_cast<std::ptrdiff_t>(x) * layout.PixelBytes;
    return channel == 0 ? layout.LumaCode(pixel) / static_cast<double>(LumaUnit)
                        : pixel[layout.Offset(channel)];
}

// The centre at or before a place on an axis of so many pixels, and how far the place lies beyond it.
struct AxisPlace {
    int    Pixel = 0;
    double Part = 0.0;

    AxisPlace(double place, int pixels)
    {
        const double centres = std::clamp(place - 0.5, 0.0, pixels - 1.0);
        Pixel = static_cast<int>(centres);
        Part = centres - Pixel;
    }
};

// A neighbour of the weight 0 does not count, even if it is not a number.
double Interpolated(double a, double b, double part)
{
    return a + (b - a) * part;
}

}

ProfileLine::ProfileLine(ImagePoint from, ImagePoint to) : From(from), To(to)
{
    const ImagePoint ends[] = {from, to};
    Length = LengthOf(ends);
    if (Length >= 1.0) {
        Count = static_cast<std::int64_t>(std::min(Length, MostSamples - 1.0)) + 1;
        Spacing = Length / static_cast<double>(Count - 1);
    }
}

double InterpolatedAt(const PlaneView& plane, int channel, ImagePoint point)
{
    if (!(point.x >= 0.0 && point.x <= plane.Width && point.y >= 0.0 && point.y <= plane.Height) ||
        plane.Width <= 0 || plane.Height <= 0)
        return std::numeric_limits<double>::quiet_NaN();
    const AxisPlace x(point.x, plane.Width);
    const AxisPlace y(point.y, plane.Height);
    const auto      inRow = [&](int row) {
        const double left = ValueAt(plane, channel, x.Pixel, row);
        return x.Part == 0.0 ? left : Interpolated(left, ValueAt(plane, channel, x.Pixel + 1, row), x.Part);
    };
    const double upper = inRow(y.Pixel);
    return y.Part == 0.0 ? upper : Interpolated(upper, inRow(y.Pixel + 1), y.Part);
}

void SampleProfile(const PlaneView& plane, int channel, const ProfileLine& line, int width,
                   std::span<double> samples)
{
    const double dx = line.To.x - line.From.x;
    const double dy = line.To.y - line.From.y;
    const double acrossX = line.Length > 0.0 ? -dy / line.Length : 0.0;
    const double acrossY = line.Length > 0.0 ? dx / line.Length : 1.0;
    const double last = static_cast<double>(line.Count - 1);
    const auto   count = std::min<std::int64_t>(line.Count, static_cast<std::int64_t>(samples.size()));
    for (std::int64_t i = 0; i < count; ++i) {
        // In this order whole lengths give whole steps.
        const double     step = static_cast<double>(i);
        const ImagePoint place = i == 0                ? line.From
                                 : i + 1 == line.Count ? line.To
                                                       : ImagePoint(line.From.x + dx * step / last,
                                                                    line.From.y + dy * step / last);
        double           sum = 0.0;
        for (int k = 0; k < width; ++k) {
            const double away = k - 0.5 * (width - 1);
            sum += InterpolatedAt(plane, channel, {place.x + away * acrossX, place.y + away * acrossY});
        }
        samples[static_cast<std::size_t>(i)] = sum / width;
    }
}

}
