#include "geometry/Outline.h"

#include "geometry/CurvePieces.h"
#include "geometry/LocalFrame.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vostel {

namespace {

constexpr double LargestControl = 0x1p1020;    // differences of two and their sums stay finite
constexpr int    MostEllipsePoints = 65536;
constexpr int    MostSegmentPoints = 4096;

Outline OfBox(OutlineForm form, ImagePoint a, ImagePoint b)
{
    const ImagePoint upperLeft(std::min(a.x, b.x), std::min(a.y, b.y));
    const ImagePoint lowerRight(std::max(a.x, b.x), std::max(a.y, b.y));
    Outline          outline;
    outline.Form = form;
    if (form == OutlineForm::Ellipse)
        outline.Points = {upperLeft, lowerRight};
    else
        outline.Points = {upperLeft, {lowerRight.x, upperLeft.y}, lowerRight, {upperLeft.x, lowerRight.y}};
    return outline;
}

// Whether the nodes from the second to the last come before those from the last to the second.
bool RunsForward(std::span<const ImagePoint> nodes)
{
    for (std::size_t i = 1, j = nodes.size() - 1; i < j; ++i, --j) {
        if (nodes[i].x != nodes[j].x)
            return nodes[i].x < nodes[j].x;
        if (nodes[i].y != nodes[j].y)
            return nodes[i].y < nodes[j].y;
    }
    return true;
}

// The control points b of the B-spline at the knots p0, p1, ..., pm, where pm = p0:
//   3 b0 + b1 = 4 p0,  b(k-1) + 4 bk + b(k+1) = 6 pk,  b(m-1) + 3 bm = 4 pm.
// It is what remains of the system of mB3Line without the controls beyond the ends. The diagonal dominates:
// elimination needs no pivots.
std::vector<ImagePoint> SplineControls(const std::vector<ImagePoint>& knots)
{
    const std::size_t       last = knots.size() - 1;
    std::vector<ImagePoint> controls(knots.size());
    std::vector<double>     above(knots.size());    // the entry right of the diagonal, which is 1
    for (std::size_t k = 0; k <= last; ++k) {
        const bool       isEnd = k == 0 || k == last;
        const double     weight = isEnd ? 4.0 : 6.0;
        const double     left = k == 0 ? 0.0 : above[k - 1];
        const double     pivot = (isEnd ? 3.0 : 4.0) - left;
        const ImagePoint before = k == 0 ? ImagePoint() : controls[k - 1];
        above[k] = 1.0 / pivot;
        controls[k] = {(weight * knots[k].x - before.x) / pivot, (weight * knots[k].y - before.y) / pivot};
    }
    for (std::size_t k = last; k-- > 0;) {
        controls[k].x -= above[k] * controls[k + 1].x;
        controls[k].y -= above[k] * controls[k + 1].y;
    }
    return controls;
}

ImagePoint Limited(ImagePoint p)
{
    return {std::clamp(p.x, -LargestControl, LargestControl),
            std::clamp(p.y, -LargestControl, LargestControl)};
}

// A third of the way from a to b.
ImagePoint ThirdTowards(ImagePoint a, ImagePoint b)
{
    return {(2.0 * a.x + b.x) / 3.0, (2.0 * a.y + b.y) / 3.0};
}

void Extend(Bounds& bounds, ImagePoint p)
{
    bounds.Left = std::min(bounds.Left, p.x);
    bounds.Right = std::max(bounds.Right, p.x);
    bounds.Top = std::min(bounds.Top, p.y);
    bounds.Bottom = std::max(bounds.Bottom, p.y);
}

// The least for what is not a number: corners in views of extreme scales.
int WholeWithin(int least, double value, int most)
{
    return static_cast<int>(std::fmin(std::fmax(value, least), most));
}

void FlattenEllipse(const Outline& ellipse, double tolerance, std::vector<ImagePoint>& points)
{
    const ImagePoint low = ellipse.Points[0];
    const ImagePoint high = ellipse.Points[1];
    const ImagePoint middle(0.5 * low.x + 0.5 * high.x, 0.5 * low.y + 0.5 * high.y);
    const double     a = 0.5 * high.x - 0.5 * low.x;
    const double     b = 0.5 * high.y - 0.5 * low.y;
    // A chord of 2 pi / n stays within r (1 - cos(pi / n)) < r (pi / n)^2 / 2.
    const double quarter = std::ceil(0.25 * std::numbers::pi * std::sqrt(0.5 * std::max(a, b) / tolerance));
    const int    count = 4 * WholeWithin(2, quarter, MostEllipsePoints / 4);
    for (int i = 0; i < count; ++i) {
        const double turn = 2.0 * std::numbers::pi * i / count;
        points.emplace_back(middle.x + a * std::cos(turn), middle.y + b * std::sin(turn));
    }
}

double SecondDifference(const ImagePoint& a, const ImagePoint& b, const ImagePoint& c)
{
    return std::hypot((b.x - a.x) - (c.x - b.x), (b.y - a.y) - (c.y - b.y));
}

void FlattenSegment(const CubicSegment& curve, double tolerance, std::vector<ImagePoint>& points)
{
    // The second derivative is at most 6 times the larger second difference, and a chord of 1 / n strays by
    // at most an eighth of it over n^2.
    const double bend = std::max(SecondDifference(curve.P[0], curve.P[1], curve.P[2]),
                                 SecondDifference(curve.P[1], curve.P[2], curve.P[3]));
    const int    count = WholeWithin(1, std::ceil(std::sqrt(0.75 * bend / tolerance)), MostSegmentPoints);
    points.push_back(curve.P[0]);
    for (int i = 1; i < count; ++i)
        points.push_back(curve.At(static_cast<double>(i) / count));
}

}

Outline Outline::OfRectangle(ImagePoint a, ImagePoint b)
{
    return OfBox(OutlineForm::Polygon, a, b);
}

Outline Outline::OfEllipse(ImagePoint a, ImagePoint b)
{
    return OfBox(OutlineForm::Ellipse, a, b);
}

Outline Outline::OfPolygon(std::span<const ImagePoint> corners)
{
    Outline outline;
    outline.Points.assign(corners.begin(), corners.end());
    return outline;
}

Outline Outline::OfSpline(std::span<const ImagePoint> nodes)
{
    Outline outline;
    outline.Form = OutlineForm::Curve;
    if (nodes.empty())
        return outline;
    const LocalFrame        frame(nodes);
    std::vector<ImagePoint> knots;
    for (const ImagePoint& node : nodes)
        knots.push_back(frame.ToLocal(node));
    // Elimination rounds differently from the other end.
    const bool forward = RunsForward(nodes);
    if (!forward)
        std::reverse(knots.begin() + 1, knots.end());
    knots.push_back(knots.front());
    std::vector<ImagePoint> controls = SplineControls(knots);
    if (!forward)
        std::reverse(controls.begin(), controls.end());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        outline.Points.push_back(Limited(nodes[i]));
        outline.Points.push_back(Limited(frame.ToImage(ThirdTowards(controls[i], controls[i + 1]))));
        outline.Points.push_back(Limited(frame.ToImage(ThirdTowards(controls[i + 1], controls[i]))));
    }
    return outline;
}

Bounds BoundsOf(std::span<const ImagePoint> points)
{
    if (points.empty())
        return {};
    Bounds bounds{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const ImagePoint& point : points)
        Extend(bounds, point);
    return bounds;
}

Bounds Outline::BoundingBox() const
{
    if (Form != OutlineForm::Curve || Points.empty())
        return BoundsOf(Points);
    Bounds bounds{Points[0].x, Points[0].y, Points[0].x, Points[0].y};
    for (std::size_t segment = 0; 3 * segment < Points.size(); ++segment) {
        const CubicSegment curve = SegmentOf(Points, segment);
        Extend(bounds, curve.P[0]);
        for (const bool across : {true, false}) {
            std::array<double, 2> turns{};
            const int             count = curve.Extrema(across ? 1.0 : 0.0, across ? 0.0 : 1.0, turns);
            for (int i = 0; i < count; ++i)
                Extend(bounds, curve.At(turns[static_cast<std::size_t>(i)]));
        }
    }
    return bounds;
}

std::vector<ImagePoint> Outline::Flattened(double tolerance) const
{
    if (Form == OutlineForm::Polygon || Points.empty())
        return Points;
    std::vector<ImagePoint> points;
    if (Form == OutlineForm::Ellipse) {
        FlattenEllipse(*this, tolerance, points);
        return points;
    }
    for (std::size_t segment = 0; 3 * segment < Points.size(); ++segment)
        FlattenSegment(SegmentOf(Points, segment), tolerance, points);
    return points;
}

}
