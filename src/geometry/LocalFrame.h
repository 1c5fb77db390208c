#pragma once

#include "geometry/ImagePoint.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace vostel {

// Coordinates about the first of some points, scaled by a power of two so that all are of the size of 1: sums
// lose no digits far from the origin, and squares neither overflow nor underflow. The way there rounds once,
// where the subtraction does.
class LocalFrame {
public:
    explicit LocalFrame(std::span<const ImagePoint> points)
    {
        if (points.empty())
            return;
        Origin = points.front();
        double reach = 0.0;
        for (const ImagePoint& point : points)
            reach = std::max({reach, std::fabs(0.5 * point.x - 0.5 * Origin.x),
                              std::fabs(0.5 * point.y - 0.5 * Origin.y)});
        if (reach > 0.0) {
            const int exponent = std::clamp(std::ilogb(reach), -1000, 1023);
            Scale = std::ldexp(1.0, -exponent);
            Unit = std::ldexp(1.0, exponent);
        }
    }

    // Halved on the way: the difference of two finite coordinates need not be finite.
    ImagePoint ToLocal(ImagePoint p) const
    {
        return {(0.5 * p.x - 0.5 * Origin.x) * Scale, (0.5 * p.y - 0.5 * Origin.y) * Scale};
    }
    ImagePoint ToImage(ImagePoint local) const
    {
        return {2.0 * (0.5 * Origin.x + local.x * Unit), 2.0 * (0.5 * Origin.y + local.y * Unit)};
    }
    double ToImageLength(double local) const { return 2.0 * local * Unit; }
    double ToImageArea(double local) const { return 4.0 * local * Unit * Unit; }

private:
    ImagePoint Origin;
    double     Scale = 1.0;    // local units per half image px
    double     Unit = 1.0;     // 1 / Scale
};

}
