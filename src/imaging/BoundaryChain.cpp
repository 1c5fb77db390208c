#include "imaging/BoundaryChain.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace vostel {

namespace {

using Point = PointTemplateBase<int>;

// How often a boundary pixel is an end of a span, by the step that reaches it and the one that leaves it: not
// at all, once, or twice, where it is a span of its own. Directions count from 0 for east counter-clockwise
// on the screen to 7 for south-east. The table belongs to one sense of travel.
constexpr std::uint8_t EndsAt[8][8] = {
    {0, 0, 0, 0, 1, 1, 1, 1}, {1, 1, 1, 1, 0, 2, 2, 2}, {1, 1, 1, 1, 0, 0, 2, 2}, {1, 1, 1, 1, 0, 0, 0, 2},
    {1, 1, 1, 1, 0, 0, 0, 0}, {0, 2, 2, 2, 1, 1, 1, 1}, {0, 0, 2, 2, 1, 1, 1, 1}, {0, 0, 0, 2, 1, 1, 1, 1},
};

// Direction of a step by (dy + 1) * 3 + (dx + 1).
constexpr std::uint8_t DirectionOf[9] = {3, 2, 1, 4, 0, 0, 5, 6, 7};

int Direction(int dx, int dy)
{
    return DirectionOf[(dy + 1) * 3 + dx + 1];
}

// A side of the polygon as a walk of pixel steps. After i of its n steps it has gone i along the longer axis
// and floor(shorter * i / n) along the other. Sides are seen without their two corners here, whose ends
// depend on the neighbours.
//
// Between steps of one side the table comes down to this: a steep side, diagonals included, has one end on
// every pixel. A flat one has an end a row, on the last pixel before it changes the row when it runs down to
// the right or up to the left, on the first one after it otherwise.
class Side {
public:
    Side(Point from, Point to)
        : From(from), SignX((to.x > from.x) - (to.x < from.x)), SignY((to.y > from.y) - (to.y < from.y)),
          Dx(std::abs(to.x - from.x)), Dy(std::abs(to.y - from.y))
    {
    }

    bool IsPoint() const { return Dx == 0 && Dy == 0; }
    // The other axis moves at once only where both are as long, and always in the last step.
    int FirstStep() const { return Dx == Dy ? Direction(SignX, SignY) : Straight(); }
    int LastStep() const { return Dx != 0 && Dy != 0 ? Direction(SignX, SignY) : Straight(); }

    // The rows with an end, one each, first to last in the order of the walk; none if count is 0.
    int FirstRow() const { return From.y + (IsSteep() || !EndsBeforeStep() ? SignY : 0); }
    int RowCount() const { return IsSteep() || !EndsBeforeStep() ? Dy - 1 : Dy; }
    int RowStep() const { return SignY; }

    // Calls put(row, column) for each of them.
    template <typename Put>
    void ForEachEnd(Put&& put) const
    {
        const int count = RowCount();
        int       row = FirstRow();
        if (IsSteep()) {
            // Columns are From.x + SignX * floor(Dx * i / Dy), Dx <= Dy.
            int          x = From.x;
            std::int64_t rest = 0;
            for (int i = 0; i < count; ++i, row += SignY) {
                rest += Dx;
                const bool moves = rest >= Dy;
                x += moves ? SignX : 0;
                rest -= moves ? Dy : 0;
                put(row, x);
            }
            return;
        }
        if (count <= 0)
            return;
        // The row changes for the k-th time in step ceil(k * Dx / Dy).
        const int    quotient = Dx / Dy;
        const int    remainder = Dx % Dy;
        int          x = From.x - (EndsBeforeStep() ? SignX : 0);
        std::int64_t rest = Dy - 1;
        for (int i = 0; i < count; ++i, row += SignY) {
            rest += remainder;
            const bool longer = rest >= Dy;
            x += SignX * (quotient + (longer ? 1 : 0));
            rest -= longer ? Dy : 0;
            put(row, x);
        }
    }

private:
    Point From;
    int   SignX, SignY;
    int   Dx, Dy;    // without sign

    bool IsSteep() const { return Dy >= Dx; }
    bool EndsBeforeStep() const { return SignX == SignY; }
    int  Straight() const { return IsSteep() ? Direction(0, SignY) : Direction(SignX, 0); }
};

// Calls side(side) for each side that is longer than a point, and corner(point, ends) where it ends.
template <typename OnSide, typename OnCorner>
void Walk(const std::vector<Point>& points, OnSide&& onSide, OnCorner&& onCorner)
{
    const std::size_t count = points.size();
    int               lastStep = -1;
    int               firstStep = -1;
    Point             start;
    for (std::size_t i = 0; i < count; ++i) {
        const Side side(points[i], points[i + 1 < count ? i + 1 : 0]);
        if (side.IsPoint())
            continue;
        if (lastStep < 0) {
            firstStep = side.FirstStep();
            start = points[i];
        } else {
            onCorner(points[i], EndsAt[lastStep][side.FirstStep()]);
        }
        onSide(side);
        lastStep = side.LastStep();
    }
    if (lastStep >= 0)
        onCorner(start, EndsAt[lastStep][firstStep]);
}

}

void FindSpanEnds(const std::vector<Point>& points, SpanEnds& ends)
{
    ends.Left = ends.Right = points[0].x;
    ends.Top = ends.Bottom = points[0].y;
    for (const Point& p : points) {
        ends.Left = std::min(ends.Left, p.x);
        ends.Right = std::max(ends.Right, p.x);
        ends.Top = std::min(ends.Top, p.y);
        ends.Bottom = std::max(ends.Bottom, p.y);
    }
    // Differences of the counts first: a side adds one to a run of rows. Unsigned ones wrap back.
    std::vector<std::size_t>& rows = ends.RowEnds;
    rows.assign(ends.Rows() + 2, 0);
    const auto at = [&](int row) -> std::size_t& {
        return rows[static_cast<std::size_t>(row - ends.Top) + 1];
    };
    Walk(
        points,
        [&](const Side& side) {
            const int count = side.RowCount();
            if (count <= 0)
                return;
            const int first = side.FirstRow();
            const int last = first + side.RowStep() * (count - 1);
            ++at(std::min(first, last));
            if (std::max(first, last) < ends.Bottom)
                --at(std::max(first, last) + 1);
        },
        [&](Point corner, int times) {
            at(corner.y) += static_cast<std::size_t>(times);
            if (corner.y < ends.Bottom)
                at(corner.y + 1) -= static_cast<std::size_t>(times);
        });
    // Counts, then where each row begins.
    std::size_t count = 0;
    std::size_t total = 0;
    for (std::size_t row = 0; row < ends.Rows(); ++row) {
        count += rows[row + 1];
        rows[row] = total;
        total += count;
    }
    ends.Columns.resize(total);
    rows.resize(ends.Rows());
    int* const columns = ends.Columns.data();
    // The place of a row moves on to its end.
    const auto put = [&](int row, int column) {
        columns[rows[static_cast<std::size_t>(row - ends.Top)]++] = column;
    };
    Walk(
        points, [&](const Side& side) { side.ForEachEnd(put); },
        [&](Point corner, int times) {
            for (; times > 0; --times)
                put(corner.y, corner.x);
        });
}

}
