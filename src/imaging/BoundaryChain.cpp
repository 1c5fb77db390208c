#include "imaging/BoundaryChain.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using Point = PointTemplateBase<int>;

// Directions, x to the right and y downwards: 0 east, then counter-clockwise on the screen to 7 south-east.
constexpr int StepX[8] = {1, 1, 0, -1, -1, -1, 0, 1};
constexpr int StepY[8] = {0, -1, -1, -1, 0, 1, 1, 1};

// Direction of a step by (dy + 1) * 3 + (dx + 1).
constexpr std::uint8_t DirectionOf[9] = {3, 2, 1, 4, 0, 0, 5, 6, 7};

// How often a boundary pixel is an end of a span, by the step that reaches it and the one that leaves it: 1
// and 2 are the two kinds of a single end, 3 is a span of its own. The table belongs to one sense of travel.
constexpr std::uint8_t BoundaryTable[8][8] = {
    {0, 0, 0, 0, 2, 2, 2, 2}, {1, 1, 1, 1, 0, 3, 3, 3}, {1, 1, 1, 1, 0, 0, 3, 3}, {1, 1, 1, 1, 0, 0, 0, 3},
    {1, 1, 1, 1, 0, 0, 0, 0}, {0, 3, 3, 3, 2, 2, 2, 2}, {0, 0, 3, 3, 2, 2, 2, 2}, {0, 0, 0, 3, 2, 2, 2, 2},
};
constexpr int EndsOfClass[4] = {0, 1, 1, 2};

// The steps of a line: along the longer axis every time, along the other when the accumulated rest says so.
void AppendSegment(Point from, Point to, std::vector<std::uint8_t>& chain)
{
    const int  dx = to.x - from.x;
    const int  dy = to.y - from.y;
    const int  signX = (dx > 0) - (dx < 0);
    const int  signY = (dy > 0) - (dy < 0);
    const int  longer = std::max(std::abs(dx), std::abs(dy));
    const int  shorter = std::min(std::abs(dx), std::abs(dy));
    const bool flat = std::abs(dx) >= std::abs(dy);
    if (longer == 0)
        return;
    const std::uint8_t straight = DirectionOf[((flat ? 0 : signY) + 1) * 3 + (flat ? signX : 0) + 1];
    const std::uint8_t diagonal = DirectionOf[(signY + 1) * 3 + signX + 1];
    const std::size_t  start = chain.size();
    chain.resize(start + static_cast<std::size_t>(longer));
    std::uint8_t* const codes = chain.data() + start;
    std::int64_t        rest = 1;
    for (int i = 0; i < longer; ++i) {
        rest += shorter;
        const bool both = rest > longer;
        codes[i] = both ? diagonal : straight;
        rest -= both ? longer : 0;
    }
}

// Order of ends within a row: few by insertion, many by the library's sort.
void SortRow(int* first, int* last)
{
    constexpr std::ptrdiff_t Few = 24;
    if (last - first > Few) {
        std::sort(first, last);
        return;
    }
    for (int* at = first + (first != last); at < last; ++at) {
        const int value = *at;
        int*      place = at;
        for (; place > first && place[-1] > value; --place)
            *place = place[-1];
        *place = value;
    }
}

}

std::vector<BoundaryPixel> SpanEnds(const std::vector<Point>& points, int height)
{
    std::vector<std::uint8_t> chain;
    for (std::size_t i = 0; i < points.size(); ++i)
        AppendSegment(points[i], points[i + 1 < points.size() ? i + 1 : 0], chain);
    std::vector<BoundaryPixel> found;
    if (chain.empty())
        return found;
    found.reserve(chain.size());

    std::vector<std::size_t> rowStarts(static_cast<std::size_t>(height) + 1, 0);
    int                      x = points[0].x;
    int                      y = points[0].y;
    const std::uint8_t       firstCode = chain[0];
    for (std::size_t i = 0; i < chain.size(); ++i) {
        const int code = chain[i];
        const int next = i + 1 < chain.size() ? chain[i + 1] : firstCode;
        x += StepX[code];
        y += StepY[code];
        for (int ends = EndsOfClass[BoundaryTable[code][next]]; ends > 0; --ends) {
            found.push_back({x, y});
            ++rowStarts[static_cast<std::size_t>(y) + 1];
        }
    }
    // By row, then by column within a row.
    for (std::size_t row = 1; row < rowStarts.size(); ++row)
        rowStarts[row] += rowStarts[row - 1];
    std::vector<int>         columns(found.size());
    std::vector<std::size_t> fill(rowStarts.begin(), rowStarts.end() - 1);
    for (const BoundaryPixel& end : found)
        columns[fill[static_cast<std::size_t>(end.Y)]++] = end.X;
    for (int row = 0; row < height; ++row) {
        const std::size_t from = rowStarts[static_cast<std::size_t>(row)];
        const std::size_t to = rowStarts[static_cast<std::size_t>(row) + 1];
        SortRow(columns.data() + from, columns.data() + to);
        for (std::size_t i = from; i < to; ++i)
            found[i] = {columns[i], row};
    }
    return found;
}
