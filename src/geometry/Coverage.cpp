#include "geometry/Coverage.h"

#include "geometry/CurvePieces.h"
#include "geometry/Predicates.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace vostel {

namespace {

// A piece of the outline on its way through the rows whose centres it crosses.
struct ScanEdge {
    int                    FirstRow = 0;
    int                    EndRow = 0;
    const DescendingPiece* Piece = nullptr;
    double                 X = 0.0;         // where it crosses the centres of FirstRow
    double                 Slope = 0.0;     // X per row
    double                 Margin = 0.0;    // how far X can be off in any row
    int                    Column = 0;      // the first centre right of the crossing in the current row
};

ScanEdge MakeEdge(const DescendingPiece& piece, int height)
{
    ScanEdge edge;
    edge.FirstRow = FirstCentre(piece.Top.y, height);
    edge.EndRow = FirstCentre(piece.Bottom.y, height);
    edge.Piece = &piece;
    if (piece.Curved)
        return edge;
    const double width = piece.Bottom.x - piece.Top.x;
    edge.X = piece.Top.x;
    if (width == 0.0)
        return edge;
    // Differences, quotient, product and sum round by less than 2^-52 of their size each, and no part is
    // larger than the two ends together.
    edge.Slope = width / (piece.Bottom.y - piece.Top.y);
    edge.X += (edge.FirstRow + 0.5 - piece.Top.y) * edge.Slope;
    edge.Margin = 1e-14 * (std::fabs(piece.Top.x) + std::fabs(piece.Bottom.x));
    if (!std::isfinite(edge.X) || !std::isfinite(edge.Slope)) {
        edge.X = 0.0;
        edge.Slope = 0.0;
        edge.Margin = std::numeric_limits<double>::infinity();
    }
    return edge;
}

int ColumnOf(const ScanEdge& edge, int row, int width)
{
    const DescendingPiece& piece = *edge.Piece;
    const double           y = row + 0.5;
    if (piece.Curved)
        return FirstCentre(piece.XAt(y), width);
    const double x = edge.X + (row - edge.FirstRow) * edge.Slope;
    const int    least = FirstCentre(x - edge.Margin, width);
    const int    most = FirstCentre(x + edge.Margin, width);
    if (least == most)
        return least;
    if (most - least == 1)
        return Orientation(piece.Top, piece.Bottom, {least + 0.5, y}) > 0 ? most : least;
    return FirstColumnRightOf(piece.Top, piece.Bottom, y, width);
}

void AddRun(std::vector<PixelRun>& runs, int row, int begin, int end)
{
    if (begin >= end)
        return;
    if (!runs.empty() && runs.back().Row == row && runs.back().End == begin)
        runs.back().End = end;
    else
        runs.push_back({row, begin, end});
}

// Rows of the outline are walked once with the edges that cross them. From row to row their order hardly
// changes, which an insertion sort likes best.
std::vector<PixelRun> ScanPieces(const std::vector<DescendingPiece>& pieces, int width, int height)
{
    std::vector<ScanEdge> edges;
    edges.reserve(pieces.size());
    for (const DescendingPiece& piece : pieces) {
        const ScanEdge edge = MakeEdge(piece, height);
        if (edge.FirstRow < edge.EndRow)
            edges.push_back(edge);
    }
    std::sort(edges.begin(), edges.end(),
              [](const ScanEdge& a, const ScanEdge& b) { return a.FirstRow < b.FirstRow; });

    int lastEnd = 0;
    for (const ScanEdge& edge : edges)
        lastEnd = std::max(lastEnd, edge.EndRow);
    std::vector<PixelRun> runs;
    if (!edges.empty())
        runs.reserve(static_cast<std::size_t>(lastEnd - edges.front().FirstRow));    // most have one a row
    std::vector<ScanEdge> active;
    std::size_t           next = 0;
    int                   row = 0;
    int                   firstEnd = height;    // of the active edges
    while (next < edges.size() || !active.empty()) {
        if (active.empty())
            row = edges[next].FirstRow;
        for (; next < edges.size() && edges[next].FirstRow == row; ++next) {
            active.push_back(edges[next]);
            firstEnd = std::min(firstEnd, edges[next].EndRow);
        }
        for (std::size_t i = 0; i < active.size(); ++i) {
            active[i].Column = ColumnOf(active[i], row, width);
            for (std::size_t place = i; place > 0 && active[place - 1].Column > active[place].Column; --place)
                std::swap(active[place - 1], active[place]);
        }
        for (std::size_t i = 0; i + 1 < active.size(); i += 2)
            AddRun(runs, row, active[i].Column, active[i + 1].Column);
        if (++row < firstEnd)
            continue;
        std::erase_if(active, [row](const ScanEdge& edge) { return edge.EndRow == row; });
        firstEnd = height;
        for (const ScanEdge& edge : active)
            firstEnd = std::min(firstEnd, edge.EndRow);
    }
    return runs;
}

// The first i of 0..limit-1 for which the condition holds, limit for none; from there on it holds for all.
// The search starts at a guess and is short where that is good.
template <typename Condition>
int FirstThat(int guess, int limit, Condition holds)
{
    std::int64_t before = guess;    // does not hold there, or -1
    std::int64_t from = guess;      // holds there, or the limit
    std::int64_t step = 1;
    if (guess < limit && !holds(guess)) {
        do {
            before = from;
            from = std::min<std::int64_t>(from + step, limit);
            step *= 2;
        } while (from < limit && !holds(static_cast<int>(from)));
    } else {
        do {
            from = before;
            before = std::max<std::int64_t>(before - step, -1);
            step *= 2;
        } while (before >= 0 && holds(static_cast<int>(before)));
    }
    while (from - before > 1) {
        const std::int64_t middle = before + (from - before) / 2;
        (holds(static_cast<int>(middle)) ? from : before) = middle;
    }
    return static_cast<int>(from);
}

std::vector<PixelRun> ScanEllipse(const Bounds& box, int width, int height)
{
    std::vector<PixelRun> runs;
    if (!(box.Left < box.Right && box.Top < box.Bottom))
        return runs;
    const double middleX = 0.5 * box.Left + 0.5 * box.Right;
    const double middleY = 0.5 * box.Top + 0.5 * box.Bottom;
    const double a = 0.5 * box.Right - 0.5 * box.Left;
    const double b = 0.5 * box.Bottom - 0.5 * box.Top;
    const int    end = FirstCentre(box.Bottom, height);
    for (int row = FirstCentre(box.Top, height); row < end; ++row) {
        const double y = row + 0.5;
        const double v = (y - middleY) / b;
        const double half = a * std::sqrt(std::max(0.0, 1.0 - v * v));
        const int    begin = FirstThat(FirstCentre(middleX - half, width), width, [&](int i) {
            const double x = i + 0.5;
            return SideOfMiddle(box.Left, box.Right, x) >= 0 || SideOfEllipse(box, {x, y}) <= 0;
        });
        int          finish = FirstThat(FirstCentre(middleX + half, width), width, [&](int i) {
            const double x = i + 0.5;
            return SideOfMiddle(box.Left, box.Right, x) >= 0 && SideOfEllipse(box, {x, y}) >= 0;
        });
        // The topmost point, on a centre, is a level edge.
        if (y == box.Top && begin == finish && begin < width &&
            SideOfMiddle(box.Left, box.Right, begin + 0.5) == 0)
            ++finish;
        AddRun(runs, row, begin, finish);
    }
    return runs;
}

template <typename Sample>
Sample* RowAt(Sample* plane, std::ptrdiff_t rowBytes, int row)
{
    return reinterpret_cast<Sample*>(reinterpret_cast<char*>(plane) + row * rowBytes);
}

}

std::vector<PixelRun> CoverageOf(const Outline& outline, int width, int height)
{
    if (width <= 0 || height <= 0 || outline.Points.empty())
        return {};
    switch (outline.Form) {
    case OutlineForm::Ellipse:
        return ScanEllipse(BoundsOf(outline.Points), width, height);
    case OutlineForm::Curve:
        return ScanPieces(DescendingCurves(outline.Points), width, height);
    case OutlineForm::Polygon:
        break;
    }
    return ScanPieces(DescendingLines(outline.Points), width, height);
}

std::int64_t CountPixels(std::span<const PixelRun> runs)
{
    std::int64_t count = 0;
    for (const PixelRun& run : runs)
        count += run.End - run.Begin;
    return count;
}

void WriteMask(std::span<const PixelRun> runs, int width, int height, std::uint8_t* mask,
               std::ptrdiff_t rowBytes)
{
    std::size_t next = 0;
    for (int row = 0; row < height; ++row) {
        std::uint8_t* const line = RowAt(mask, rowBytes, row);
        int                 x = 0;
        for (; next < runs.size() && runs[next].Row == row; ++next) {
            const PixelRun& run = runs[next];
            std::memset(line + x, 0, static_cast<std::size_t>(run.Begin - x));
            std::memset(line + run.Begin, 255, static_cast<std::size_t>(run.End - run.Begin));
            x = run.End;
        }
        std::memset(line + x, 0, static_cast<std::size_t>(width - x));
    }
}

void WriteLabel(std::span<const PixelRun> runs, std::int32_t label, std::int32_t* labels,
                std::ptrdiff_t rowBytes)
{
    for (const PixelRun& run : runs) {
        std::int32_t* const line = RowAt(labels, rowBytes, run.Row);
        std::fill(line + run.Begin, line + run.End, label);
    }
}

}
