#pragma once

// The curves of an outline and the pieces of it that run down the plane.

#include "geometry/ImagePoint.h"

#include <array>
#include <span>
#include <vector>

namespace vostel {

// P0 (1-t)^3 + 3 P1 (1-t)^2 t + 3 P2 (1-t) t^2 + P3 t^3 for t from 0 to 1.
struct CubicSegment {
    std::array<ImagePoint, 4> P;

    ImagePoint At(double t) const;
    ImagePoint Derivative(double t) const;
    // Where the component of the derivative along (directionX, directionY) is 0, for t inside 0..1,
    // ascending. The number of them, at most 2.
    int Extrema(double directionX, double directionY, std::array<double, 2>& t) const;
};

// A part of an outline whose y only grows from Top to Bottom; Top.y < Bottom.y. Neighbours on the outline
// have their common point in the same bits.
struct DescendingPiece {
    ImagePoint   Top;
    ImagePoint   Bottom;
    bool         Curved = false;    // else the straight line from Top to Bottom
    CubicSegment Curve;             // of Curved ones
    double       TopT = 0.0;
    double       BottomT = 0.0;

    // Top.y <= y <= Bottom.y; the end points come in their own bits.
    double XAt(double y) const;
    double ParameterAt(double y) const;    // of a curved one
};

// Of the closed chain of straight lines through the points; level ones bound nothing.
std::vector<DescendingPiece> DescendingLines(std::span<const ImagePoint> corners);
// Of a closed chain of cubic segments: three Bézier points for each, the fourth is the first of the next.
std::vector<DescendingPiece> DescendingCurves(std::span<const ImagePoint> bezierPoints);

CubicSegment SegmentOf(std::span<const ImagePoint> bezierPoints, std::size_t segment);

}
