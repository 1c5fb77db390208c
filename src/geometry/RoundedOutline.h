#pragma once

#include "geometry/Outline.h"

#include <vector>

namespace vostel {

// What becomes of an outline where only polygons of rounded coordinates can be held.
struct RoundedOutline {
    std::vector<ImagePoint> Corners;
    bool                    CoversTheSame = true;    // pixels of an image of the size
};

// Curves are flattened to the tolerance, and every coordinate goes through the rounding, which keeps halves
// of whole numbers as they are. Edges move a little by both. Where one comes to lie on the other side of a
// pixel's centre, it gets a notch around that centre, a quarter pixel long and some thousandths deep: so the
// polygon covers the very pixels that the outline does.
RoundedOutline RoundOutline(const Outline& outline, double tolerance, double (*rounding)(double), int width,
                            int height);

}
