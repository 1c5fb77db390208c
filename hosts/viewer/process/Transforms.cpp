#include "process/Transforms.h"

#include "process/Bands.h"

#include <bit>
#include <cmath>
#include <numeric>

namespace vostel::viewer {

namespace {

int PercentOf(int side, double percent)
{
    return std::max(1, static_cast<int>(std::lround(side * percent / 100.0)));
}

// A plane of complex numbers with sides that are powers of two.
struct Frequencies {
    std::size_t         Width, Height;
    std::vector<double> Real, Imaginary;

    void TransformRows(RunState& state, int& done, int all)
    {
        std::vector<double> real(Width), imaginary(Width);
        for (std::size_t y = 0; y < Height; ++y, ++done) {
            state.Reach(done, all);
            const auto at = static_cast<std::ptrdiff_t>(y * Width);
            std::copy_n(Real.begin() + at, Width, real.begin());
            std::copy_n(Imaginary.begin() + at, Width, imaginary.begin());
            fft(real, imaginary);
            std::copy(real.begin(), real.end(), Real.begin() + at);
            std::copy(imaginary.begin(), imaginary.end(), Imaginary.begin() + at);
        }
    }

    void TransformColumns(RunState& state, int& done, int all)
    {
        std::vector<double> real(Height), imaginary(Height);
        for (std::size_t x = 0; x < Width; ++x, ++done) {
            state.Reach(done, all);
            for (std::size_t y = 0; y < Height; ++y) {
                real[y] = Real[y * Width + x];
                imaginary[y] = Imaginary[y * Width + x];
            }
            fft(real, imaginary);
            for (std::size_t y = 0; y < Height; ++y) {
                Real[y * Width + x] = real[y];
                Imaginary[y * Width + x] = imaginary[y];
            }
        }
    }
};

}

Samples ResizeTo(const Samples& image, std::span<const double> values, RunState& state)
{
    Samples result(PercentOf(image.Width, values[0]), PercentOf(image.Height, values[1]));
    state.Reach(0, 1);
    resize(Plane<const float>(image.Values.data(), image.Width, image.Height),
           Plane<float>(result.Values.data(), result.Width, result.Height));
    return result;
}

Samples Spectrum(const Samples& image, std::span<const double> values, RunState& state)
{
    enum { Logarithm, Magnitude, Phase };
    const int   part = static_cast<int>(values[0]);
    Frequencies plane{std::bit_ceil(static_cast<std::size_t>(image.Width)),
                      std::bit_ceil(static_cast<std::size_t>(image.Height)),
                      {},
                      {}};
    plane.Real.resize(plane.Width * plane.Height);
    plane.Imaginary.resize(plane.Width * plane.Height);
    const double mean = std::accumulate(image.Values.begin(), image.Values.end(), 0.0) /
                        static_cast<double>(image.Values.size());
    for (int y = 0; y < image.Height; ++y)
        for (int x = 0; x < image.Width; ++x)
            plane.Real[static_cast<std::size_t>(y) * plane.Width + static_cast<std::size_t>(x)] =
                static_cast<double>(
                    image.Values[static_cast<std::size_t>(y) * static_cast<std::size_t>(image.Width) +
                                 static_cast<std::size_t>(x)]) -
                mean;
    const int all = static_cast<int>(plane.Width + plane.Height);
    int       done = 0;
    plane.TransformRows(state, done, all);
    plane.TransformColumns(state, done, all);

    Samples result(static_cast<int>(plane.Width), static_cast<int>(plane.Height));
    for (std::size_t y = 0; y < plane.Height; ++y)
        for (std::size_t x = 0; x < plane.Width; ++x) {
            const std::size_t at = y * plane.Width + x;
            const double      magnitude = std::hypot(plane.Real[at], plane.Imaginary[at]);
            const double      shown = part == Phase       ? std::atan2(plane.Imaginary[at], plane.Real[at])
                                      : part == Magnitude ? magnitude
                                                          : std::log1p(magnitude);
            const std::size_t toX = (x + plane.Width / 2) % plane.Width;
            const std::size_t toY = (y + plane.Height / 2) % plane.Height;
            result.Values[toY * plane.Width + toX] = static_cast<float>(shown);
        }
    return result;
}

Samples RampFilter(const Samples& image, std::span<const double> values, RunState& state)
{
    const int taps = 2 * image.Width - 1;
    return ByBands(image, 0, 100.0, state, [&](const Plane<const float>& rows, const Plane<float>& result) {
        ramp_filter(rows, taps, values[0], result);
    });
}

}
