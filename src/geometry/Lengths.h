#pragma once

// Lengths and angles of lines and outlines.

#include "geometry/Outline.h"

#include <span>

namespace vostel {

// Of the open line through the points.
double LengthOf(std::span<const ImagePoint> points);
// All the way round. An ellipse by the complete elliptic integral, curves by quadrature, both to about 1e-13
// of the result.
double PerimeterOf(const Outline& outline);

// The mean place along the open line through the points, and the mean of the points.
ImagePoint CentroidOfLine(std::span<const ImagePoint> points);
ImagePoint CentroidOfPoints(std::span<const ImagePoint> points);

// Degrees from 0 to 180 between the directions from a to b and from c to d; 0 where one has no length.
double AngleBetween(ImagePoint a, ImagePoint b, ImagePoint c, ImagePoint d);

}
