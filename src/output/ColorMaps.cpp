#include "output/ColorMaps.h"

#include "output/PerceptualMaps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vostel {

namespace {

// A share of 0..1 in 8 bits.
unsigned Byte(double share)
{
    return static_cast<unsigned>(std::clamp(share, 0.0, 1.0) * 255.0 + 0.5);
}

unsigned Pixel(double red, double green, double blue)
{
    return Byte(red) << 16 | Byte(green) << 8 | Byte(blue);
}

template <typename ColorOf>
ColorMap MapOf(const ColorOf& colorOf)
{
    ColorMap map;
    for (int level = 0; level < Levels; ++level)
        map[static_cast<std::size_t>(level)] = colorOf(level / 255.0);
    return map;
}

unsigned GrayAt(double t)
{
    return Pixel(t, t, t);
}

unsigned InvertedAt(double t)
{
    return GrayAt(1.0 - t);
}

struct Stop {
    double At;
    double Red, Green, Blue;
};

unsigned BetweenStops(std::span<const Stop> stops, double t)
{
    std::size_t next = 1;
    while (next + 1 < stops.size() && t > stops[next].At)
        ++next;
    const Stop&  a = stops[next - 1];
    const Stop&  b = stops[next];
    const double part = (t - a.At) / (b.At - a.At);
    return Pixel(a.Red + (b.Red - a.Red) * part, a.Green + (b.Green - a.Green) * part,
                 a.Blue + (b.Blue - a.Blue) * part);
}

// Stops of our own, of rising luma.
unsigned FireAt(double t)
{
    static constexpr Stop stops[] = {{0.0, 0.0, 0.0, 0.0},
                                     {0.35, 0.75, 0.0, 0.1},
                                     {0.65, 1.0, 0.55, 0.0},
                                     {0.88, 1.0, 0.95, 0.35},
                                     {1.0, 1.0, 1.0, 1.0}};
    return BetweenStops(stops, t);
}

unsigned IceAt(double t)
{
    static constexpr Stop stops[] = {{0.0, 0.0, 0.0, 0.0},
                                     {0.35, 0.05, 0.15, 0.6},
                                     {0.65, 0.0, 0.6, 0.9},
                                     {0.88, 0.6, 0.95, 1.0},
                                     {1.0, 1.0, 1.0, 1.0}};
    return BetweenStops(stops, t);
}

double Polynomial(std::span<const double> coefficients, double t)
{
    double sum = 0.0;
    for (std::size_t i = coefficients.size(); i-- > 0;)
        sum = sum * t + coefficients[i];
    return sum;
}

// The polynomial of Nuñez, Anderton and Renslow's map (2018); at most 19 levels from their table.
unsigned CividisAt(double t)
{
    static constexpr double red[] = {-4.54, -35.34, 2381.73, -6402.7, 7024.72, -2710.57};
    static constexpr double green[] = {32.49, 170.73, 52.82, -131.46, 176.58, -67.37};
    static constexpr double blue[] = {81.24, 442.36, -2482.43, 6167.24, -6614.94, 2475.67};
    return Pixel(Polynomial(red, t) / 255.0, Polynomial(green, t) / 255.0, Polynomial(blue, t) / 255.0);
}

// The polynomial that Mikhailov and Du published with the map (2019); at most 32 levels from their table, at
// its dark end.
unsigned TurboAt(double t)
{
    static constexpr double red[] = {0.13572138,   4.61539260,    -42.66032258,
                                     132.13108234, -152.94239396, 59.28637943};
    static constexpr double green[] = {0.09140261,   2.19418839, 4.84296658,
                                       -14.18503333, 4.27729857, 2.82956604};
    static constexpr double blue[] = {0.10667330,   12.64194608,  -60.58204836,
                                      110.36276771, -89.90310912, 27.34824973};
    return Pixel(Polynomial(red, t), Polynomial(green, t), Polynomial(blue, t));
}

// Three trapezia, a quarter apart.
unsigned JetAt(double t)
{
    const auto trapezium = [t](double middle) { return 1.5 - std::fabs(4.0 * t - middle); };
    return Pixel(trapezium(3.0), trapezium(2.0), trapezium(1.0));
}

constexpr std::string_view Names[] = {"gray",    "inverted", "fire",    "ice",   "viridis", "magma",
                                      "inferno", "plasma",   "cividis", "turbo", "jet"};
constexpr std::size_t      NameCount = std::size(Names);

using Maps = std::array<ColorMap, NameCount>;

const Maps& AllMaps()
{
    static const Maps maps = {
        MapOf(GrayAt), MapOf(InvertedAt), MapOf(FireAt),  MapOf(IceAt), Viridis, Magma, Inferno,
        Plasma,        MapOf(CividisAt),  MapOf(TurboAt), MapOf(JetAt)};
    return maps;
}

}

std::span<const std::string_view> ColorMapNames()
{
    return Names;
}

bool IsColorMap(std::string_view name)
{
    return std::find(std::begin(Names), std::end(Names), name) != std::end(Names);
}

const ColorMap& FindColorMap(std::string_view name)
{
    const auto place = std::find(std::begin(Names), std::end(Names), name);
    return AllMaps()[place == std::end(Names) ? 0 : static_cast<std::size_t>(place - std::begin(Names))];
}

}
