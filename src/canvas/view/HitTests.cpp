#include "canvas/view/HitTests.h"

#include "base/Truncate.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

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

int SideOf(CPoint point, CPoint origin)
{
    return static_cast<int>(point.x > origin.x) - static_cast<int>(point.x < origin.x);
}

// By an edge, counterclockwise as Y grows; none if the origin lies on it or is its end.
std::optional<int> QuadrantsPassed(Offset from, Offset to)
{
    if (to.X == 0 && to.Y == 0)
        return std::nullopt;
    const std::int64_t cross = from.X * to.Y - from.Y * to.X;
    if (cross == 0 && from.X * to.X < 1 && from.Y * to.Y < 1)
        return std::nullopt;
    switch ((QuadrantOf(to) - QuadrantOf(from) + 4) % 4) {
    case 1:
        return 1;
    case 2:
        return cross >= 1 ? 2 : -2;
    case 3:
        return -1;
    default:
        return 0;
    }
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
        const CRect& rect = rects[i];
        if (p.x >= rect.left && p.x < rect.right && p.y >= rect.top && p.y < rect.bottom)
            return static_cast<int>(i);
    }
    return -1;
}

bool PointInPolygon(const std::vector<CPoint>& points, CPoint p)
{
    const std::size_t count = points.size();
    if (count < 3)
        return false;
    // Most edges lie wholly to the right or to the left. Such a run of edges passes by at most one half axis,
    // which its two ends tell: they are counted where it ends and where the next one begins.
    int    winding = 0;
    CPoint from = points.back();
    for (std::size_t i = 0; i < count; ++i) {
        const int side = SideOf(from, p);
        if (side > 0)
            while (i < count && points[i].x > p.x)
                ++i;
        else if (side < 0)
            while (i < count && points[i].x < p.x)
                ++i;
        if (i == count)
            break;
        if (i > 0)
            from = points[i - 1];
        const CPoint             to = points[i];
        const std::optional<int> passed = QuadrantsPassed(OffsetOf(from, p), OffsetOf(to, p));
        if (!passed)
            return true;
        winding +=
            *passed + side * static_cast<int>(from.y >= p.y) - SideOf(to, p) * static_cast<int>(to.y >= p.y);
        from = to;
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
