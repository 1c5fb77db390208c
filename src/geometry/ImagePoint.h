#pragma once

#include "vostel/Geometry.h"

namespace vostel {

// Image px, y downwards. Pixel (i, j) covers [i, i + 1) x [j, j + 1); its centre is (i + 0.5, j + 0.5).
using ImagePoint = PointTemplateBase<double>;

inline bool SamePlace(ImagePoint a, ImagePoint b)
{
    return a.x == b.x && a.y == b.y;
}

// Image px, of the outline itself and not of pixels.
struct Bounds {
    double Left = 0.0;
    double Top = 0.0;
    double Right = 0.0;
    double Bottom = 0.0;
};

}
