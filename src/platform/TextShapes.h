#pragma once

// Sizes and outlines of text as contexts draw it, one source per platform.

#include "vostel/platform.h"

#include <array>
#include <string_view>
#include <vector>

namespace vostel {

// Of a font, px.
struct FontSizes {
    double Ascent = 0.0;    // of the cell above the base line
    double Height = 0.0;    // of the whole cell
    double Em = 0.0;
};

// A step of a path. Curve is a cubic Bézier from where the path stands.
struct PathStep {
    enum class Kind { Move, Line, Curve, Close };
    struct Place {
        double X = 0.0;
        double Y = 0.0;
    };
    Kind                 Does = Kind::Close;
    std::array<Place, 3> Places;    // Move and Line take one, Curve two controls and the end
};

// Of the font that a context holds; all 0 for none.
FontSizes SizesOfFont(HDC dc);

// Px that a line of text advances with that font.
int WidthOfText(HDC dc, std::wstring_view line);

// The glyphs of a line of text in that font, px, the pen at 0, 0 on the base line, y downwards. Inside by the
// nonzero rule. Empty for faces without outlines.
std::vector<PathStep> PathOfText(HDC dc, std::wstring_view line);

}
