#include "geometry/InteriorMoments.h"

#include "geometry/CompensatedSum.h"
#include "geometry/CurvePieces.h"
#include "geometry/LocalFrame.h"
#include "geometry/Quadrature.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>
#include <vector>

namespace vostel {

namespace {

// In local units, in which the outline is of the size of 1.
constexpr double NegligibleArea = 1e-13;
constexpr double RoundingArea = 1e-13;    // what two ways to the same sum may differ by

// The integrals of dA, x dA and y dA over what lies left of a line, as integrals along it: of x dy, x^2 / 2
// dy and x y dy.
struct Integrals {
    double Area = 0.0;
    double X = 0.0;
    double Y = 0.0;
};

struct IntegralSums {
    CompensatedSum Area;
    CompensatedSum X;
    CompensatedSum Y;

    void Add(const Integrals& part, double factor)
    {
        Area.Add(factor * part.Area);
        X.Add(factor * part.X);
        Y.Add(factor * part.Y);
    }
    Integrals Value() const { return {Area.Value(), X.Value(), Y.Value()}; }
};

Integrals AlongLine(ImagePoint a, ImagePoint b)
{
    const double height = b.y - a.y;
    return {height * (a.x + b.x) / 2.0, height * (a.x * a.x + a.x * b.x + b.x * b.x) / 6.0,
            height * (a.x * (2.0 * a.y + b.y) + b.x * (a.y + 2.0 * b.y)) / 6.0};
}

// Polynomials of the degree 8 at most, which five nodes integrate exactly.
Integrals AlongCurve(const CubicSegment& curve, double from, double to)
{
    Integrals integrals;
    for (const QuadratureNode& node : FiveNodes) {
        const double     t = 0.5 * (from + to) + 0.5 * (to - from) * node.Place;
        const ImagePoint p = curve.At(t);
        const double     dy = 0.5 * (to - from) * node.Weight * curve.Derivative(t).y;
        integrals.Area += p.x * dy;
        integrals.X += 0.5 * p.x * p.x * dy;
        integrals.Y += p.x * p.y * dy;
    }
    return integrals;
}

// The signed integrals over a closed outline, by its whole lines and segments. For one that does not cross
// itself they are those of its interior, with less rounding than a sweep has.
Integrals AroundPolygon(const std::vector<ImagePoint>& points)
{
    IntegralSums sums;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const ImagePoint a = points[i];
        const ImagePoint b = points[i + 1 < points.size() ? i + 1 : 0];
        const double     cross = a.x * b.y - b.x * a.y;
        sums.Add({cross / 2.0, (a.x + b.x) * cross / 6.0, (a.y + b.y) * cross / 6.0}, 1.0);
    }
    return sums.Value();
}

Integrals AroundCurve(const std::vector<ImagePoint>& points)
{
    IntegralSums sums;
    for (std::size_t segment = 0; 3 * segment < points.size(); ++segment)
        sums.Add(AlongCurve(SegmentOf(points, segment), 0.0, 1.0), 1.0);
    return sums.Value();
}

// Walks the plane from top to bottom in slabs without ends of pieces. In a slab the pieces lie side by side;
// between the first and the second is interior, between the third and the fourth, and so on. Two pieces that
// change places cross there, and beyond that point each bounds the interior from its other side.
class Sweep {
public:
    explicit Sweep(std::vector<DescendingPiece> pieces) : Pieces(std::move(pieces))
    {
        std::sort(Pieces.begin(), Pieces.end(),
                  [](const DescendingPiece& a, const DescendingPiece& b) { return a.Top.y < b.Top.y; });
        for (const DescendingPiece& piece : Pieces) {
            Levels.push_back(piece.Top.y);
            Levels.push_back(piece.Bottom.y);
        }
        std::sort(Levels.begin(), Levels.end());
        Levels.erase(std::unique(Levels.begin(), Levels.end()), Levels.end());
    }

    Integrals Run()
    {
        std::size_t next = 0;
        for (std::size_t level = 0; level + 1 < Levels.size(); ++level) {
            const double top = Levels[level];
            std::erase_if(Active, [top](const Strand& strand) { return strand.Piece->Bottom.y <= top; });
            for (; next < Pieces.size() && Pieces[next].Top.y <= top; ++next) {
                Strand strand;
                strand.Piece = &Pieces[next];
                strand.Top = strand.Bottom = PlaceAt(Pieces[next], Pieces[next].Top.y);
                Active.push_back(std::move(strand));
            }
            AddSlab(top, Levels[level + 1]);
        }
        return Sums.Value();
    }

private:
    // Where a piece crosses a level: its x, and its parameter if it is curved.
    struct Place {
        double Y = 0.0;
        double X = 0.0;
        double T = 0.0;
    };

    struct Strand {
        const DescendingPiece* Piece = nullptr;
        Place                  Top;
        Place                  Bottom;
        double                 Bend = 0.0;    // how far a curve strays from its chord in the slab, at most
        std::vector<double>    Crossings;     // y, of other strands
    };

    std::vector<DescendingPiece> Pieces;
    std::vector<double>          Levels;
    std::vector<Strand>          Active;
    std::vector<std::size_t>     Order;    // of Active, by the bottom of the slab
    IntegralSums                 Sums;

    static Place PlaceAt(const DescendingPiece& piece, double y)
    {
        if (!piece.Curved || y == piece.Top.y || y == piece.Bottom.y)
            return {y, piece.XAt(y), y == piece.Top.y ? piece.TopT : piece.BottomT};
        const double t = piece.ParameterAt(y);
        return {y, piece.Curve.At(t).x, t};
    }

    // The curve lies in the hull of its Bezier points, of which the inner two count by 3/4 at most.
    static double BendOf(const Strand& strand)
    {
        if (!strand.Piece->Curved)
            return 0.0;
        const Place& top = strand.Top;
        const Place& bottom = strand.Bottom;
        const double slope = (bottom.X - top.X) / (bottom.Y - top.Y);
        const double third = (bottom.T - top.T) / 3.0;
        const auto   stray = [&](double t) {
            const ImagePoint step = strand.Piece->Curve.Derivative(t);
            return std::fabs(third * (step.x - slope * step.y));
        };
        return 0.75 * std::max(stray(top.T), stray(bottom.T));
    }

    // Curves may cross twice without changing places, or three times. Where neighbours come closer than they
    // bend, the slab is halved, until what could hide between them is negligible.
    bool HidesCrossings(double height) const
    {
        for (std::size_t i = 0; i + 1 < Active.size(); ++i) {
            const Strand& left = Active[i];
            const Strand& right = Active[i + 1];
            const double  bend = left.Bend + right.Bend;
            const double  gap = std::min(right.Top.X - left.Top.X, std::fabs(right.Bottom.X - left.Bottom.X));
            if (bend * height > NegligibleArea && bend >= gap)
                return true;
        }
        return false;
    }

    void AddSlab(double top, double bottom)
    {
        for (Strand& strand : Active) {
            if (strand.Bottom.Y == top)
                strand.Top = strand.Bottom;    // of the slab above
            strand.Bottom = PlaceAt(*strand.Piece, bottom);
            strand.Bend = BendOf(strand);
        }
        std::sort(Active.begin(), Active.end(), [](const Strand& a, const Strand& b) {
            return a.Top.X != b.Top.X ? a.Top.X < b.Top.X : a.Bottom.X < b.Bottom.X;
        });
        const double middle = 0.5 * (top + bottom);
        if (middle > top && middle < bottom && HidesCrossings(bottom - top)) {
            AddSlab(top, middle);
            AddSlab(middle, bottom);
            return;
        }
        FindCrossings(top, bottom);
        double sign = -1.0;
        for (Strand& strand : Active) {
            AddStrand(strand, sign);
            sign = -sign;
        }
    }

    // Where two strands that change places in the slab have the same x.
    static double CrossingOf(const Strand& left, const Strand& right, double top, double bottom)
    {
        const double above = right.Top.X - left.Top.X;
        const double below = left.Bottom.X - right.Bottom.X;
        double       y = top + (bottom - top) * (above / (above + below));
        if (!left.Piece->Curved)
            return y;
        for (int step = 0; step < 60 && y > top && y < bottom; ++step) {
            const double gap = right.Piece->XAt(y) - left.Piece->XAt(y);
            if (gap == 0.0)
                break;
            (gap > 0.0 ? top : bottom) = y;
            y = 0.5 * (top + bottom);
        }
        return y;
    }

    // Sorts the strands, which lie in the order of the top, by the bottom: each exchange is a crossing.
    void FindCrossings(double top, double bottom)
    {
        Order.resize(Active.size());
        for (std::size_t i = 0; i < Active.size(); ++i) {
            Strand& strand = Active[i];
            strand.Crossings.clear();
            std::size_t place = i;
            for (; place > 0 && Active[Order[place - 1]].Bottom.X > strand.Bottom.X; --place) {
                Strand&      other = Active[Order[place - 1]];
                const double y = CrossingOf(other, strand, top, bottom);
                strand.Crossings.push_back(y);
                other.Crossings.push_back(y);
                Order[place] = Order[place - 1];
            }
            Order[place] = i;
        }
    }

    void AddStrand(Strand& strand, double sign)
    {
        std::sort(strand.Crossings.begin(), strand.Crossings.end());
        Place from = strand.Top;
        for (const double y : strand.Crossings) {
            const Place to = PlaceAt(*strand.Piece, y);
            AddPart(*strand.Piece, from, to, sign);
            sign = -sign;
            from = to;
        }
        AddPart(*strand.Piece, from, strand.Bottom, sign);
    }

    void AddPart(const DescendingPiece& piece, const Place& from, const Place& to, double sign)
    {
        if (piece.Curved)
            Sums.Add(AlongCurve(piece.Curve, from.T, to.T), sign);
        else
            Sums.Add(AlongLine({from.X, from.Y}, {to.X, to.Y}), sign);
    }
};

bool Agree(const Integrals& a, const Integrals& b)
{
    return std::fabs(a.Area - b.Area) <= RoundingArea && std::fabs(a.X - b.X) <= RoundingArea &&
           std::fabs(a.Y - b.Y) <= RoundingArea;
}

InteriorMoments OfEllipse(const Bounds& box)
{
    const double a = 0.5 * box.Right - 0.5 * box.Left;
    const double b = 0.5 * box.Bottom - 0.5 * box.Top;
    return {std::numbers::pi * a * b, {0.5 * box.Left + 0.5 * box.Right, 0.5 * box.Top + 0.5 * box.Bottom}};
}

}

InteriorMoments MomentsOf(const Outline& outline)
{
    if (outline.Points.empty())
        return {};
    const Bounds box = outline.BoundingBox();
    if (outline.Form == OutlineForm::Ellipse)
        return OfEllipse(box);

    const LocalFrame        frame(outline.Points);
    std::vector<ImagePoint> points;
    points.reserve(outline.Points.size());
    for (const ImagePoint& point : outline.Points)
        points.push_back(frame.ToLocal(point));
    const bool curved = outline.Form == OutlineForm::Curve;
    Integrals  interior = Sweep(curved ? DescendingCurves(points) : DescendingLines(points)).Run();
    Integrals  around = curved ? AroundCurve(points) : AroundPolygon(points);
    if (around.Area < 0.0)
        around = {-around.Area, -around.X, -around.Y};
    if (Agree(interior, around))
        interior = around;

    // What rounding of a curve's points can enclose.
    const double nothing = curved ? 1e-14 : 0.0;
    if (!(interior.Area > nothing))
        return {0.0, {0.5 * box.Left + 0.5 * box.Right, 0.5 * box.Top + 0.5 * box.Bottom}};
    // Rounding must not push it out of the figure.
    const ImagePoint centroid = frame.ToImage({interior.X / interior.Area, interior.Y / interior.Area});
    return {frame.ToImageArea(interior.Area),
            {std::clamp(centroid.x, box.Left, box.Right), std::clamp(centroid.y, box.Top, box.Bottom)}};
}

}
