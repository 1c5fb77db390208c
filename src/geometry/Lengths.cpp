#include "geometry/Lengths.h"

#include "geometry/CompensatedSum.h"
#include "geometry/CurvePieces.h"
#include "geometry/LocalFrame.h"
#include "geometry/Quadrature.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace vostel {

namespace {

constexpr double ArcError = 1e-14;    // of one part, in local units
constexpr int    MostHalvings = 40;
constexpr int    MostMeans = 64;

double Distance(ImagePoint a, ImagePoint b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

double LocalLength(std::span<const ImagePoint> points, const LocalFrame& frame)
{
    CompensatedSum length;
    for (std::size_t i = 1; i < points.size(); ++i)
        length.Add(Distance(frame.ToLocal(points[i - 1]), frame.ToLocal(points[i])));
    return length.Value();
}

double ArcByQuadrature(const CubicSegment& curve, double from, double to)
{
    double length = 0.0;
    for (const QuadratureNode& node : FiveNodes) {
        const ImagePoint d = curve.Derivative(0.5 * (from + to) + 0.5 * (to - from) * node.Place);
        length += node.Weight * std::hypot(d.x, d.y);
    }
    return 0.5 * (to - from) * length;
}

// Halves the arc until the halves agree with the whole.
void AddArc(const CubicSegment& curve, double from, double to, double whole, int halvings,
            CompensatedSum& length)
{
    const double middle = 0.5 * (from + to);
    const double first = ArcByQuadrature(curve, from, middle);
    const double second = ArcByQuadrature(curve, middle, to);
    if (halvings == 0 || std::fabs(first + second - whole) <= ArcError) {
        length.Add(first);
        length.Add(second);
        return;
    }
    AddArc(curve, from, middle, first, halvings - 1, length);
    AddArc(curve, middle, to, second, halvings - 1, length);
}

// The arithmetic and the geometric mean of a and b, taken again and again, meet in M; with
// c(n)^2 = a(n)^2 - b(n)^2 the perimeter is
//   2 pi / M (a^2 - sum of 2^(n-1) c(n)^2).
double EllipsePerimeter(double a, double b)
{
    if (a < b)
        std::swap(a, b);
    if (!(b > 0.0))
        return 4.0 * a;
    double mean = 1.0;
    double root = b / a;
    double weight = 0.5;
    double rest = 1.0 - weight * (1.0 - root) * (1.0 + root);
    for (int i = 0; i < MostMeans && mean - root > 1e-15 * mean; ++i) {
        const double c = 0.5 * (mean - root);
        const double next = 0.5 * (mean + root);
        root = std::sqrt(mean * root);
        mean = next;
        weight *= 2.0;
        rest -= weight * c * c;
    }
    return 2.0 * std::numbers::pi * a * rest / mean;
}

}

double LengthOf(std::span<const ImagePoint> points)
{
    const LocalFrame frame(points);
    return frame.ToImageLength(LocalLength(points, frame));
}

double PerimeterOf(const Outline& outline)
{
    const std::vector<ImagePoint>& points = outline.Points;
    if (points.empty())
        return 0.0;
    if (outline.Form == OutlineForm::Ellipse)
        return 2.0 * EllipsePerimeter(0.25 * points[1].x - 0.25 * points[0].x,
                                      0.25 * points[1].y - 0.25 * points[0].y);
    const LocalFrame frame(points);
    if (outline.Form == OutlineForm::Polygon)
        return frame.ToImageLength(LocalLength(points, frame) +
                                   Distance(frame.ToLocal(points.back()), frame.ToLocal(points.front())));
    std::vector<ImagePoint> local;
    local.reserve(points.size());
    for (const ImagePoint& point : points)
        local.push_back(frame.ToLocal(point));
    CompensatedSum length;
    for (std::size_t segment = 0; 3 * segment < local.size(); ++segment) {
        const CubicSegment curve = SegmentOf(local, segment);
        AddArc(curve, 0.0, 1.0, ArcByQuadrature(curve, 0.0, 1.0), MostHalvings, length);
    }
    return frame.ToImageLength(length.Value());
}

ImagePoint CentroidOfPoints(std::span<const ImagePoint> points)
{
    if (points.empty())
        return {};
    const LocalFrame frame(points);
    CompensatedSum   x;
    CompensatedSum   y;
    for (const ImagePoint& point : points) {
        x.Add(frame.ToLocal(point).x);
        y.Add(frame.ToLocal(point).y);
    }
    const double count = static_cast<double>(points.size());
    return frame.ToImage({x.Value() / count, y.Value() / count});
}

ImagePoint CentroidOfLine(std::span<const ImagePoint> points)
{
    const LocalFrame frame(points);
    CompensatedSum   length;
    CompensatedSum   x;
    CompensatedSum   y;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const ImagePoint a = frame.ToLocal(points[i - 1]);
        const ImagePoint b = frame.ToLocal(points[i]);
        const double     part = Distance(a, b);
        length.Add(part);
        x.Add(part * 0.5 * (a.x + b.x));
        y.Add(part * 0.5 * (a.y + b.y));
    }
    if (!(length.Value() > 0.0))
        return CentroidOfPoints(points);
    return frame.ToImage({x.Value() / length.Value(), y.Value() / length.Value()});
}

double AngleBetween(ImagePoint a, ImagePoint b, ImagePoint c, ImagePoint d)
{
    const auto direction = [](ImagePoint from, ImagePoint to) {
        const ImagePoint ends[] = {from, to};
        return LocalFrame(ends).ToLocal(to);
    };
    const ImagePoint first = direction(a, b);
    const ImagePoint second = direction(c, d);
    const double     cross = first.x * second.y - first.y * second.x;
    const double     dot = first.x * second.x + first.y * second.y;
    return std::atan2(std::fabs(cross), dot) * 180.0 / std::numbers::pi;
}

}
