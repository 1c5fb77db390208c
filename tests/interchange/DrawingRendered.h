#pragma once

// Compares what another program shows of a drawing with our own picture of it.

#include "interchange/DrawingFiles.h"

#include <algorithm>
#include <cstdlib>
#include <string>

inline bool IsInstalled(const std::string& program)
{
    const std::string command = "command -v " + program + " >/dev/null 2>&1";
    return std::system(command.c_str()) == 0;
}

inline int Distance(unsigned int a, unsigned int b)
{
    int most = 0;
    for (const int shift : {0, 8, 16})
        most = std::max(most,
                        std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
    return most;
}

// Calls visit for each of a pixel's neighbours and for itself.
template <typename Visit>
void AroundOf(const Frame& frame, int x, int y, Visit&& visit)
{
    for (int v = std::max(0, y - 1); v <= std::min(frame.Height - 1, y + 1); ++v) {
        for (int u = std::max(0, x - 1); u <= std::min(frame.Width - 1, x + 1); ++u)
            visit(frame.At(u, v));
    }
}

// Px of a pixel from the color around it that is nearest to the given one, and from the one that is farthest.
struct Around {
    int Nearest = 255;
    int Farthest = 0;
};

inline Around DistancesAround(const Frame& frame, int x, int y, unsigned int color)
{
    Around found;
    AroundOf(frame, x, y, [&](unsigned int pixel) {
        found.Nearest = std::min(found.Nearest, Distance(pixel, color));
        found.Farthest = std::max(found.Farthest, Distance(pixel, color));
    });
    return found;
}

struct DrawingDifference {
    int         Away = 0;       // pixels that differ where ours has no edge within one pixel
    int         Missing = 0;    // pixels of ours that the other does not have within one, not even by half
    std::string Places;         // of the first few
};

// Pixels of the mask are left out.
inline DrawingDifference Compare(const Frame& ours, const Frame& other, const Frame& mask)
{
    constexpr int     Rounding = 2;    // of translucent fillings
    DrawingDifference found;
    REQUIRE(other.Width == ours.Width);
    REQUIRE(other.Height == ours.Height);
    for (int y = 0; y < ours.Height; ++y) {
        for (int x = 0; x < ours.Width; ++x) {
            if (mask.At(x, y) != 0)
                continue;
            const unsigned int pixel = ours.At(x, y);
            const int          contrast = DistancesAround(ours, x, y, pixel).Farthest;
            const bool         away = contrast == 0 && Distance(pixel, other.At(x, y)) > Rounding;
            const bool missing = 2 * DistancesAround(other, x, y, pixel).Nearest > contrast + 2 * Rounding;
            found.Away += away ? 1 : 0;
            found.Missing += missing ? 1 : 0;
            if ((away || missing) && found.Places.size() < 200)
                found.Places += std::to_string(x) + "," + std::to_string(y) + (away ? "+ " : "- ");
        }
    }
    return found;
}

// The places of the texts of an SVG: glyphs are compared by how much of them there is.
inline Frame PlacesOfTexts(const std::vector<XmlElement>& svg, int width, int height)
{
    Frame mask(width, height);
    for (const XmlElement& text : Named(svg, "text")) {
        const double size = text.Number("font-size");
        mask.FillRect(static_cast<int>(text.Number("x")) - 2, static_cast<int>(text.Number("y") - size),
                      static_cast<int>(text.Number("x") + text.Number("textLength")) + 3,
                      static_cast<int>(text.Number("y") + 0.3 * size) + 2, 1);
    }
    return mask;
}

// Sum of how far the pixels of texts are from their boxes' white.
inline double InkOf(const Frame& frame, const Frame& mask)
{
    double ink = 0.0;
    for (std::size_t i = 0; i < mask.Pixels.size(); ++i)
        ink += mask.Pixels[i] != 0 ? Distance(frame.Pixels[i], 0xFFFFFF) : 0;
    return ink;
}
