#include "canvas/view/HitTests.h"

#include "base/Truncate.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vostel {

namespace {

// Differences of client coordinates need 33 bits and their products 66. Clipping a difference to 32 bits
// keeps every quadrant; it bends an edge only where one end is more than two thousand million pixels away.
struct Offset {
    std::int64_t X, Y;
};

std::int64_t Limited(std::int64_t v)
{
    constexpr std::int64_t Reach = INT32_MAX;    // the difference of two products still fits
    return v < -Reach ? -Reach : v > Reach ? Reach : v;
}

Offset OffsetOf(CPoint point, CPoint origin)
{
    return {Limited(static_cast<std::int64_t>(point.x) - origin.x),
            Limited(static_cast<std::int64_t>(point.y) - origin.y)};
}

int QuadrantOf(Offset at)
{
    if (at.Y >= 0)
        return at.X >= 0 ? 0 : 1;
    return at.X < 0 ? 2 : 3;
}

}

void CalcHandleRects(const std::vector<CPoint>& points, std::vector<CRect>& rects, int radius)
{
    rects.resize(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        rects[i].left = WrapSub(points[i].x, radius);
        rects[i].right = WrapAdd(points[i].x, radius);
        rects[i].top = WrapSub(points[i].y, radius);
        rects[i].bottom = WrapAdd(points[i].y, radius);
    }
}

int HitRectList(const std::vector<CRect>& rects, CPoint p)
{
    for (std::size_t i = 0; i < rects.size(); ++i) {
        if (PtInRect(&rects[i], p))
            return static_cast<int>(i);
    }
    return -1;
}

bool PointInPolygon(const std::vector<CPoint>& points, CPoint p)
{
    if (points.size() < 3)
        return false;
    int    winding = 0;
    Offset previous = OffsetOf(points[0], p);
    int    quadrant = QuadrantOf(previous);
    for (std::size_t i = 1; i <= points.size(); ++i) {
        const Offset current = OffsetOf(points[i < points.size() ? i : 0], p);
        if (current.X == 0 && current.Y == 0)
            return true;    // on a vertex
        const std::int64_t cross = previous.X * current.Y - previous.Y * current.X;
        if (cross == 0 && previous.X * current.X < 1 && previous.Y * current.Y < 1)
            return true;    // on an edge
        const int next = QuadrantOf(current);
        if (next == (quadrant + 1) % 4)
            winding += 1;
        else if (next == (quadrant + 3) % 4)
            winding -= 1;
        else if (next == (quadrant + 2) % 4)
            winding += cross >= 1 ? 2 : -2;
        quadrant = next;
        previous = current;
    }
    return winding != 0;
}

bool IsNearLine(const std::vector<CPoint>& points, CPoint p, double distance)
{
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double x = static_cast<double>(points[i].x) - points[i - 1].x;
        const double y = static_cast<double>(points[i].y) - points[i - 1].y;
        const double toX = static_cast<double>(p.x) - points[i - 1].x;
        const double toY = static_cast<double>(p.y) - points[i - 1].y;
        const double square = x * x + y * y;
        const double along = square > 0.0 ? std::clamp((toX * x + toY * y) / square, 0.0, 1.0) : 0.0;
        if (std::hypot(toX - along * x, toY - along * y) <= distance)
            return true;
    }
    return false;
}

}
