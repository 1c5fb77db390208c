#pragma once

#include "geometry/ImagePoint.h"

namespace vostel {

// Decisions about points that are right for all finite coordinates, 1e300 and 1e-300 among them. Each one is
// made in double where the error bound allows it and without rounding where it does not.

// The sign of (b - a) x (c - a): 0 for three points on one line; with y downwards, 1 where a, b, c turn
// clockwise on the screen.
int Orientation(ImagePoint a, ImagePoint b, ImagePoint c);

// The sign of x - (low + high) / 2.
int SideOfMiddle(double low, double high, double x);

// -1 inside the ellipse, 0 on it and 1 outside: the sign of
//   ((2x - left - right) / (right - left))^2 + ((2y - top - bottom) / (bottom - top))^2 - 1.
// The box is not empty: left < right, top < bottom.
int SideOfEllipse(const Bounds& box, ImagePoint point);

// The first of 0, 1, ... whose centre, i + 0.5, is not below v; limit if none of those before it is.
inline int FirstCentre(double v, int limit)
{
    if (!(v > 0.0))
        return 0;
    if (v >= limit)
        return limit;
    const int cell = static_cast<int>(v);
    return v > cell + 0.5 ? cell + 1 : cell;
}

// The first of the columns 0, 1, ... whose centre is not left of where the edge crosses the level y; width if
// none before it is. top.y <= y < bottom.y.
int FirstColumnRightOf(ImagePoint top, ImagePoint bottom, double y, int width);

}
