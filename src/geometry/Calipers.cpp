#include "geometry/Calipers.h"

#include "geometry/CurvePieces.h"
#include "geometry/LocalFrame.h"
#include "geometry/Predicates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace vostel {

namespace {

constexpr int    Directions = 512;    // over half a turn
constexpr int    Narrowings = 80;     // each leaves 0.618 of the interval: more than double can hold
constexpr double Golden = 0.6180339887498948482;

double Cross(ImagePoint a, ImagePoint b, ImagePoint c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double Distance(ImagePoint a, ImagePoint b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

// Rotates a pair of calipers about the hull: for each edge the corner farthest from it, which only moves on.
CaliperWidths OfHull(const std::vector<ImagePoint>& hull)
{
    const std::size_t count = hull.size();
    if (count < 2)
        return {};
    if (count == 2)
        return {Distance(hull[0], hull[1]), 0.0};
    CaliperWidths widths{0.0, INFINITY};
    std::size_t   opposite = 1;
    for (std::size_t i = 0; i < count; ++i) {
        const ImagePoint& a = hull[i];
        const ImagePoint& b = hull[(i + 1) % count];
        widths.Most = std::max(widths.Most, Distance(a, hull[opposite]));
        while (Cross(a, b, hull[(opposite + 1) % count]) > Cross(a, b, hull[opposite])) {
            opposite = (opposite + 1) % count;
            widths.Most = std::max(widths.Most, Distance(a, hull[opposite]));
        }
        widths.Most =
            std::max({widths.Most, Distance(b, hull[opposite]), Distance(b, hull[(opposite + 1) % count])});
        widths.Least = std::min(widths.Least, Cross(a, b, hull[opposite]) / Distance(a, b));
    }
    return widths;
}

// How wide a closed curve is in a direction: the range of its points' products with it.
class CurveWidth {
public:
    explicit CurveWidth(std::span<const ImagePoint> bezierPoints)
    {
        for (std::size_t segment = 0; 3 * segment < bezierPoints.size(); ++segment)
            Segments.push_back(SegmentOf(bezierPoints, segment));
    }

    double operator()(double turn) const
    {
        const ImagePoint direction(std::cos(turn), std::sin(turn));
        const auto       along = [&](ImagePoint p) { return p.x * direction.x + p.y * direction.y; };
        double           least = along(Segments[0].P[0]);
        double           most = least;
        for (const CubicSegment& segment : Segments) {
            least = std::min(least, along(segment.P[3]));
            most = std::max(most, along(segment.P[3]));
        }
        for (const CubicSegment& segment : Segments) {
            // A segment stays within its four points.
            const double first = along(segment.P[1]);
            const double second = along(segment.P[2]);
            if (std::min(first, second) >= least && std::max(first, second) <= most)
                continue;
            std::array<double, 2> turns{};
            const int             count = segment.Extrema(direction.x, direction.y, turns);
            for (int i = 0; i < count; ++i) {
                const double place = along(segment.At(turns[static_cast<std::size_t>(i)]));
                least = std::min(least, place);
                most = std::max(most, place);
            }
        }
        return most - least;
    }

private:
    std::vector<CubicSegment> Segments;
};

// The least value of a function between two directions, where it has one valley; the greatest with sign -1.
template <typename Function>
double Narrowed(const Function& f, double from, double to, double sign)
{
    double left = to - Golden * (to - from);
    double right = from + Golden * (to - from);
    double atLeft = sign * f(left);
    double atRight = sign * f(right);
    double least = std::min(atLeft, atRight);
    for (int i = 0; i < Narrowings; ++i) {
        if (atLeft <= atRight) {
            to = right;
            right = left;
            atRight = atLeft;
            left = to - Golden * (to - from);
            atLeft = sign * f(left);
        } else {
            from = left;
            left = right;
            atLeft = atRight;
            right = from + Golden * (to - from);
            atRight = sign * f(right);
        }
        least = std::min({least, atLeft, atRight});
    }
    return sign * least;
}

// Between neighbouring directions the width changes by at most the step times the diameter, so only valleys
// and peaks that close to the best one can beat it.
CaliperWidths OfCurve(const std::vector<ImagePoint>& points)
{
    const CurveWidth    width(points);
    const double        step = std::numbers::pi / Directions;
    std::vector<double> widths;
    for (int i = 0; i < Directions; ++i)
        widths.push_back(width(step * i));
    const double  most = *std::max_element(widths.begin(), widths.end());
    const double  least = *std::min_element(widths.begin(), widths.end());
    CaliperWidths result{most, least};
    for (std::size_t i = 0; i < Directions; ++i) {
        const double before = widths[(i + Directions - 1) % Directions];
        const double after = widths[(i + 1) % Directions];
        const double turn = step * static_cast<double>(i);
        if (widths[i] <= std::min(before, after) && widths[i] <= least + step * most)
            result.Least = std::min(result.Least, Narrowed(width, turn - step, turn + step, 1.0));
        if (widths[i] >= std::max(before, after) && widths[i] >= most - step * most)
            result.Most = std::max(result.Most, Narrowed(width, turn - step, turn + step, -1.0));
    }
    return result;
}

}

std::vector<ImagePoint> ConvexHull(std::span<const ImagePoint> points)
{
    std::vector<ImagePoint> sorted(points.begin(), points.end());
    std::sort(sorted.begin(), sorted.end(),
              [](ImagePoint a, ImagePoint b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    sorted.erase(std::unique(sorted.begin(), sorted.end(), SamePlace), sorted.end());
    if (sorted.size() < 3)
        return sorted;
    std::vector<ImagePoint> hull;
    const auto              addChain = [&hull](auto begin, auto end) {
        const std::size_t start = hull.size();
        for (auto point = begin; point != end; ++point) {
            while (hull.size() >= start + 2 && Orientation(hull[hull.size() - 2], hull.back(), *point) <= 0)
                hull.pop_back();
            hull.push_back(*point);
        }
        hull.pop_back();    // the next chain starts there
    };
    addChain(sorted.begin(), sorted.end());
    addChain(sorted.rbegin(), sorted.rend());
    return hull;
}

CaliperWidths CalipersOf(std::span<const ImagePoint> points)
{
    const LocalFrame        frame(points);
    std::vector<ImagePoint> local;
    local.reserve(points.size());
    for (const ImagePoint& point : points)
        local.push_back(frame.ToLocal(point));
    const CaliperWidths widths = OfHull(ConvexHull(local));
    return {frame.ToImageLength(widths.Most), frame.ToImageLength(widths.Least)};
}

CaliperWidths CalipersOf(const Outline& outline)
{
    if (outline.Form == OutlineForm::Polygon || outline.Points.empty())
        return CalipersOf(std::span(outline.Points));
    if (outline.Form == OutlineForm::Ellipse) {
        const double width = outline.Points[1].x - outline.Points[0].x;
        const double height = outline.Points[1].y - outline.Points[0].y;
        return {std::max(width, height), std::min(width, height)};
    }
    const LocalFrame        frame(outline.Points);
    std::vector<ImagePoint> local;
    for (const ImagePoint& point : outline.Points)
        local.push_back(frame.ToLocal(point));
    const CaliperWidths widths = OfCurve(local);
    return {frame.ToImageLength(widths.Most), frame.ToImageLength(widths.Least)};
}

}
