#include "geometry/CurvePieces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace vostel {

namespace {

constexpr int MostSteps = 100;    // bisection alone ends before that

double Between(double a, double b, double t)
{
    return a + t * (b - a);    // equal ends give that value, whatever t
}

ImagePoint Between(ImagePoint a, ImagePoint b, double t)
{
    return {Between(a.x, b.x, t), Between(a.y, b.y, t)};
}

// The same curve in the same bits, whichever way it was drawn.
CubicSegment InOneDirection(const CubicSegment& curve)
{
    const auto before = [](ImagePoint a, ImagePoint b) { return a.y < b.y || (a.y == b.y && a.x < b.x); };
    const bool turned =
        SamePlace(curve.P[0], curve.P[3]) ? before(curve.P[2], curve.P[1]) : before(curve.P[3], curve.P[0]);
    return turned ? CubicSegment{{curve.P[3], curve.P[2], curve.P[1], curve.P[0]}} : curve;
}

}

ImagePoint CubicSegment::At(double t) const
{
    const ImagePoint middle = Between(P[1], P[2], t);
    const ImagePoint first = Between(Between(P[0], P[1], t), middle, t);
    const ImagePoint last = Between(middle, Between(P[2], P[3], t), t);
    return Between(first, last, t);
}

ImagePoint CubicSegment::Derivative(double t) const
{
    const ImagePoint middle = Between(P[1], P[2], t);
    const ImagePoint first = Between(Between(P[0], P[1], t), middle, t);
    const ImagePoint last = Between(middle, Between(P[2], P[3], t), t);
    return {3.0 * (last.x - first.x), 3.0 * (last.y - first.y)};
}

int CubicSegment::Extrema(double directionX, double directionY, std::array<double, 2>& t) const
{
    double step[3];    // the derivative is 3 (step0 (1-t)^2 + 2 step1 (1-t) t + step2 t^2)
    double size = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        step[i] = directionX * (P[i + 1].x - P[i].x) + directionY * (P[i + 1].y - P[i].y);
        size = std::max(size, std::fabs(step[i]));
    }
    if (!(size > 0.0) || !std::isfinite(size))
        return 0;
    const double constant = step[0] / size;
    const double half = (step[1] - step[0]) / size;
    const double square = (step[0] - 2.0 * step[1] + step[2]) / size;
    const double discriminant = half * half - square * constant;
    if (discriminant < 0.0)
        return 0;
    const double larger = -(half + std::copysign(std::sqrt(discriminant), half));
    int          count = 0;
    const auto   take = [&](double root) {
        if (root > 0.0 && root < 1.0 && (count == 0 || root != t[0]))
            t[static_cast<std::size_t>(count++)] = root;
    };
    if (square != 0.0)
        take(larger / square);
    if (larger != 0.0)
        take(constant / larger);
    if (count == 2 && t[1] < t[0])
        std::swap(t[0], t[1]);
    return count;
}

double DescendingPiece::ParameterAt(double y) const
{
    if (y <= Top.y)
        return TopT;
    if (y >= Bottom.y)
        return BottomT;
    double above = TopT;
    double below = BottomT;
    double t = above + (below - above) * ((y - Top.y) / (Bottom.y - Top.y));
    for (int step = 0; step < MostSteps; ++step) {
        const double miss = Curve.At(t).y - y;
        if (miss == 0.0)
            break;
        (miss < 0.0 ? above : below) = t;
        double next = t - miss / Curve.Derivative(t).y;
        if (!(next > std::min(above, below) && next < std::max(above, below)))
            next = 0.5 * (above + below);
        if (next == t || next == above || next == below)
            break;
        t = next;
    }
    return t;
}

double DescendingPiece::XAt(double y) const
{
    if (y == Top.y)
        return Top.x;
    if (y == Bottom.y)
        return Bottom.x;
    if (Curved)
        return Curve.At(ParameterAt(y)).x;
    return Top.x + (y - Top.y) * ((Bottom.x - Top.x) / (Bottom.y - Top.y));
}

std::vector<DescendingPiece> DescendingLines(std::span<const ImagePoint> corners)
{
    std::vector<DescendingPiece> pieces;
    pieces.reserve(corners.size());
    for (std::size_t i = 0; i < corners.size(); ++i) {
        ImagePoint top = corners[i];
        ImagePoint bottom = corners[i + 1 < corners.size() ? i + 1 : 0];
        if (top.y > bottom.y)
            std::swap(top, bottom);
        if (top.y < bottom.y) {
            DescendingPiece piece;
            piece.Top = top;
            piece.Bottom = bottom;
            pieces.push_back(piece);
        }
    }
    return pieces;
}

CubicSegment SegmentOf(std::span<const ImagePoint> bezierPoints, std::size_t segment)
{
    CubicSegment curve;
    for (std::size_t i = 0; i < 4; ++i)
        curve.P[i] = bezierPoints[(3 * segment + i) % bezierPoints.size()];
    return curve;
}

std::vector<DescendingPiece> DescendingCurves(std::span<const ImagePoint> bezierPoints)
{
    std::vector<DescendingPiece> pieces;
    for (std::size_t segment = 0; 3 * segment < bezierPoints.size(); ++segment) {
        const CubicSegment    curve = InOneDirection(SegmentOf(bezierPoints, segment));
        std::array<double, 2> turns{};
        const int             count = curve.Extrema(0.0, 1.0, turns);
        double                t = 0.0;
        ImagePoint            start = curve.P[0];
        for (int i = 0; i <= count; ++i) {
            const double     endT = i < count ? turns[static_cast<std::size_t>(i)] : 1.0;
            const ImagePoint end = i < count ? curve.At(endT) : curve.P[3];
            DescendingPiece  piece;
            piece.Curved = true;
            piece.Curve = curve;
            const bool down = start.y < end.y;
            piece.Top = down ? start : end;
            piece.Bottom = down ? end : start;
            piece.TopT = down ? t : endT;
            piece.BottomT = down ? endT : t;
            if (piece.Top.y < piece.Bottom.y)
                pieces.push_back(piece);
            t = endT;
            start = end;
        }
    }
    return pieces;
}

}
