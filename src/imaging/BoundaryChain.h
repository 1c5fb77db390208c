#pragma once

#include "vostel/Geometry.h"

#include <vector>

// An end of a horizontal span of a filled polygon.
struct BoundaryPixel {
    int X;
    int Y;
};

// The span ends of the closed polygon through the points, ascending by y and within a row by x, so that
// consecutive pairs are the spans. All points lie at x, y >= 0 and y < height.
std::vector<BoundaryPixel> SpanEnds(const std::vector<PointTemplateBase<int>>& points, int height);
