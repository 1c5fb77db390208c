#pragma once

#include "geometry/ImagePoint.h"

#include <cstddef>
#include <span>
#include <vector>

namespace vostel {

enum class OutlineForm {
    Polygon,    // straight lines
    Ellipse,    // x = middle + a cos, y = middle + b sin, exactly
    Curve       // cubic Bézier segments
};

// The exact closed outline of a region, in image px. Coverage, measures and drawing all start from it. The
// points are finite.
struct Outline {
    OutlineForm Form = OutlineForm::Polygon;
    // Polygon: the corners, closed from the last to the first. Ellipse: the upper left and the lower right
    // corner of its box. Curve: three points for each segment, the fourth is the first of the next one and of
    // the first segment after the last.
    std::vector<ImagePoint> Points;

    // From two opposite corners.
    static Outline OfRectangle(ImagePoint a, ImagePoint b);
    static Outline OfEllipse(ImagePoint a, ImagePoint b);
    static Outline OfPolygon(std::span<const ImagePoint> corners);
    // The cubic B-spline that mB3Line samples for the nodes with the first one repeated, solved where they
    // are instead of in client px and never rounded to pixels. It passes through every node, is smooth in all
    // of them but the first, and is the same curve for both drawing directions.
    static Outline OfSpline(std::span<const ImagePoint> nodes);

    Bounds BoundingBox() const;
    // A polygon that stays within the tolerance of the outline, in its order, the first point not repeated.
    // Beyond 65536 points for an ellipse and 4096 for a segment it gets coarser instead.
    std::vector<ImagePoint> Flattened(double tolerance) const;
};

Bounds BoundsOf(std::span<const ImagePoint> points);

}
