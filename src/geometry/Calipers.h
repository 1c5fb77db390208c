#pragma once

#include "geometry/Outline.h"

#include <span>
#include <vector>

namespace vostel {

// The widest and the narrowest pair of parallel lines with the figure between them.
struct CaliperWidths {
    double Most = 0.0;
    double Least = 0.0;
};

CaliperWidths CalipersOf(std::span<const ImagePoint> points);
// Of the outline itself. Those of curves are found by a search over the directions, to about 1e-12.
CaliperWidths CalipersOf(const Outline& outline);

// The corners of the convex hull, in order, without points on its edges.
std::vector<ImagePoint> ConvexHull(std::span<const ImagePoint> points);

}
