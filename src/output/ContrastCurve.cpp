#include "output/ContrastCurve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vostel {

unsigned LayOver(unsigned color, unsigned pixel)
{
    const unsigned alpha = color >> 24;
    unsigned       result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const unsigned over = color >> shift & 0xFF;
        const unsigned under = pixel >> shift & 0xFF;
        result |= (over * alpha + under * (255 - alpha) + 127) / 255 << shift;
    }
    return result;
}

ContrastCurve::ContrastCurve(const ContrastState& state)
    : Low(state.Low), High(state.High), Gamma(state.Gamma), Colors(FindColorMap(state.Map)),
      BelowPixel(LayOver(state.Below, Colors.front())), AbovePixel(LayOver(state.Above, Colors.back())),
      NotFinitePixel(LayOver(state.NotFinite, 0))
{
}

int ContrastCurve::LevelOf(double v) const
{
    if (v <= Low || v >= High || High <= Low)
        return v > Low ? 255 : 0;
    // Halved, so that the whole range of doubles has no infinite span.
    const double share = (v * 0.5 - Low * 0.5) / (High * 0.5 - Low * 0.5);
    const double shown = Gamma == 1.0 ? share : std::pow(share, 1.0 / Gamma);
    return static_cast<int>(std::clamp(shown, 0.0, 1.0) * 255.0 + 0.5);
}

unsigned ContrastCurve::PixelOf(double v) const
{
    if (!std::isfinite(v))
        return NotFinitePixel;
    if (v < Low)
        return BelowPixel;
    if (v > High)
        return AbovePixel;
    return Colors[static_cast<std::size_t>(LevelOf(v))];
}

bool ContrastCurve::IsIdentity() const
{
    for (int level = 0; level < Levels; ++level) {
        if (PixelOf(level) != static_cast<unsigned>(level) * 0x010101u)
            return false;
    }
    return true;
}

}
