#include "vostel/RasterFills.h"

#include "base/PixelFill.h"
#include "base/Reflect.h"
#include "base/ReusedMemory.h"
#include "base/Truncate.h"
#include "imaging/BoundaryChain.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace vostel;

namespace {

using Point = PointTemplateBase<int>;

bool IsEmpty(const ClassData2DIO<int>& plane)
{
    return !plane.Ptr1D || plane.Width < 1 || plane.Height < 1;
}

// Fills columns first..last, both included, of a row that lies in the plane.
void FillRun(ClassData2DIO<int>& plane, std::int64_t row, std::int64_t first, std::int64_t last, int value,
             bool streaming)
{
    constexpr std::int64_t Short = 32;    // not worth a call
    first = std::max<std::int64_t>(first, 0);
    last = std::min<std::int64_t>(last, plane.Width - 1);
    if (first > last)
        return;
    int* const         target = plane.Ptr1D + row * static_cast<std::int64_t>(plane.Width) + first;
    const std::int64_t count = last - first + 1;
    if (count <= Short) {
        for (std::int64_t i = 0; i < count; ++i)
            target[i] = value;
        return;
    }
    FillPixels(reinterpret_cast<std::uint32_t*>(target), static_cast<std::size_t>(count),
               static_cast<std::uint32_t>(value), streaming);
}

// Ends in a row from which on marking their columns beats comparing them.
constexpr std::ptrdiff_t ManyInRow = 32;

// Orders the ends of a row; returns how many pixels lie between them in pairs.
std::size_t SortFewEnds(int* first, int* last)
{
    for (int* at = first + (first != last); at < last; ++at) {
        const int value = *at;
        int*      place = at;
        for (; place > first && place[-1] > value; --place)
            *place = place[-1];
        *place = value;
    }
    std::size_t words = 0;
    for (const int* at = first; last - at > 1; at += 2)
        words += static_cast<std::size_t>(at[1] - at[0] + 1);
    return words;
}

// From each set bit to the next, the first of a pair included and the second not.
std::uint64_t BetweenPairs(std::uint64_t bits)
{
    for (int shift = 1; shift < 64; shift *= 2)
        bits ^= bits << shift;
    return bits;
}

// Every four bits as a mask of four words.
struct NibbleMasks {
    int Words[16][4];

    constexpr NibbleMasks() : Words{}
    {
        for (int nibble = 0; nibble < 16; ++nibble)
            for (int bit = 0; bit < 4; ++bit)
                Words[nibble][bit] = (nibble >> bit & 1) != 0 ? -1 : 0;
    }
};

void FillByMask(int* target, std::uint64_t mask, int value)
{
    static constexpr NibbleMasks masks;
    if (mask == ~std::uint64_t{0}) {
        std::fill_n(target, 64, value);
        return;
    }
    for (; mask != 0; mask >>= 4, target += 4) {
        const int* const words = masks.Words[mask & 15];
        for (int i = 0; i < 4; ++i)
            target[i] = (target[i] & ~words[i]) | (value & words[i]);
    }
}

// Working memory of a fill.
struct FillMemory {
    SpanEnds                   Ends;
    std::vector<std::uint64_t> Any, Odd;    // ends of a row, a bit per column
};

constinit ReusedMemory<FillMemory> gFillMemory;

// Fills between the ends of a row in pairs as if they were sorted. One bit per column marks an end, another
// an odd number of ends: only those change between inside and outside, and an even number outside is a span
// of one pixel.
void FillBetweenMany(ClassData2DIO<int>& plane, std::int64_t y, std::size_t row, FillMemory& memory,
                     int value)
{
    const int         left = memory.Ends.Left;
    const int         right = memory.Ends.Right;
    auto&             any = memory.Any;
    auto&             odd = memory.Odd;
    const std::size_t words = static_cast<std::size_t>((right - left) / 64 + 1);
    any.assign(words, 0);
    odd.assign(words, 0);
    const int* const last = memory.Ends.End(row);
    for (const int* at = memory.Ends.Begin(row); at != last; ++at) {
        const unsigned      column = static_cast<unsigned>(*at - left);
        const std::uint64_t bit = std::uint64_t{1} << (column % 64);
        any[column / 64] |= bit;
        odd[column / 64] ^= bit;
    }
    int* const    target = plane.Ptr1D + y * static_cast<std::int64_t>(plane.Width) + left;
    std::uint64_t inside = 0;    // all ones while a span is open
    for (std::size_t word = 0; word < words; ++word) {
        const std::uint64_t spans = BetweenPairs(odd[word]) ^ inside;
        inside = static_cast<std::uint64_t>(static_cast<std::int64_t>(spans) >> 63);
        const std::uint64_t mask = spans | any[word];
        const std::size_t   columns =
            std::min<std::size_t>(64, static_cast<std::size_t>(right - left) + 1 - 64 * word);
        if (columns == 64) {
            FillByMask(target + 64 * word, mask, value);
            continue;
        }
        for (std::size_t i = 0; i < columns; ++i) {
            if ((mask >> i & 1) != 0)
                target[64 * word + i] = value;
        }
    }
}

// Half widths of an ellipse by the distance of a row from its centre; the spans of the midpoint rule on one
// row all have one centre, so that the widest covers the others.
class HalfWidths {
public:
    HalfWidths(std::int64_t width, std::int64_t height)
        // Each step of an arc moves by one row at most, and flat ellipses step past the centre and out of the
        // box.
        : ByRow(static_cast<std::size_t>(std::max(width, height) / 2 + 3), -1)
    {
        std::int64_t       a = width / 2;
        std::int64_t       b = height / 2;
        const std::int64_t a2 = a * a;
        const std::int64_t b2 = b * b;
        Add(0, b);
        Add(a, 0);
        const double r = std::sqrt(static_cast<double>(a2 + b2));
        if (!(r > 0.0))
            return;    // a box without extent has no turning points: neither arc runs
        const std::int64_t limitX = TruncToInt(static_cast<double>(a2) / r + 0.5);
        const std::int64_t limitY = TruncToInt(static_cast<double>(b2) / r + 0.5);
        const std::int64_t widestColumn = a;

        // From the top, stepping x. Past the centre, where stepDiagonal is not positive, d only grows, and
        // out of 64 bits where the box is flat; its sign alone counts, so that it may stay as it is.
        std::int64_t d = a2 + 4 * (b2 - (height * a2) / 2);
        std::int64_t stepDiagonal = (2 * b - 2) * a2;
        std::int64_t t = 3 * b2;
        std::int64_t u = 12 * b2;
        for (std::int64_t x = 0; x <= limitX;) {
            if (d > 0) {
                b -= 1;
                if (stepDiagonal > 0) {
                    d += 4 * (t - stepDiagonal);
                    stepDiagonal -= 2 * a2;
                }
            } else {
                d += u;
            }
            x += 1;
            u += 8 * b2;
            t += 2 * b2;
            Add(x, b);
        }
        // From the side, stepping y.
        a = widestColumn;
        d = b2 + 4 * (a2 - (width * b2) / 2);
        stepDiagonal = (2 * a - 2) * b2;
        t = 3 * a2;
        u = 12 * a2;
        for (std::int64_t y = 0; y <= limitY;) {
            if (d > 0) {
                a -= 1;
                if (stepDiagonal > 0) {
                    d += 4 * (t - stepDiagonal);
                    stepDiagonal -= 2 * b2;
                }
            } else {
                d += u;
            }
            y += 1;
            u += 8 * a2;
            t += 2 * a2;
            Add(a, y);
        }
    }

    // -1 where the ellipse has no span.
    std::int64_t At(std::int64_t distance) const
    {
        return distance < static_cast<std::int64_t>(ByRow.size()) ? ByRow[static_cast<std::size_t>(distance)]
                                                                  : -1;
    }
    std::int64_t Rows() const { return static_cast<std::int64_t>(ByRow.size()); }

private:
    std::vector<std::int64_t> ByRow;

    // Rows on both sides of the centre get the span.
    void Add(std::int64_t halfWidth, std::int64_t distance)
    {
        std::int64_t& widest = ByRow[static_cast<std::size_t>(std::llabs(distance))];
        widest = std::max(widest, halfWidth);
    }
};

// Beyond this the steps of the midpoint rule would leave 64 bits.
constexpr std::int64_t LargestStepped = std::int64_t(1) << 20;

void FillByEquation(ClassData2DIO<int>& plane, std::int64_t cx, std::int64_t cy, std::int64_t width,
                    std::int64_t height, int value)
{
    const double a = static_cast<double>(width) / 2.0;
    const double b = static_cast<double>(height) / 2.0;
    for (std::int64_t y = 0; y < plane.Height; ++y) {
        const double at = b > 0.0 ? static_cast<double>(y - cy) / b : 0.0;
        if (at < -1.0 || at > 1.0 || (b <= 0.0 && y != cy))
            continue;
        const std::int64_t half = static_cast<std::int64_t>(a * std::sqrt(1.0 - at * at));
        FillRun(plane, y, cx - half, cx + half - 1, value, false);
    }
}

}

void DrawEcllipse(ClassData2DIO<int>& plane, int x1, int y1, int x2, int y2, bool fill, int value)
{
    if (!fill || IsEmpty(plane))
        return;
    const std::int64_t width = std::llabs(static_cast<std::int64_t>(x2) - x1);
    const std::int64_t height = std::llabs(static_cast<std::int64_t>(y2) - y1);
    const std::int64_t cx = (static_cast<std::int64_t>(x1) + x2) / 2;
    const std::int64_t cy = (static_cast<std::int64_t>(y1) + y2) / 2;
    if (width > LargestStepped || height > LargestStepped) {
        FillByEquation(plane, cx, cy, width, height, value);
        return;
    }
    const HalfWidths   halves(width, height);
    const std::int64_t top = std::max<std::int64_t>(0, cy - halves.Rows() + 1);
    const std::int64_t bottom = std::min<std::int64_t>(plane.Height - 1, cy + halves.Rows() - 1);
    for (std::int64_t y = top; y <= bottom; ++y) {
        const std::int64_t half = halves.At(std::llabs(y - cy));
        if (half > 0)
            FillRun(plane, y, cx - half, cx + half - 1, value, false);    // the right end is left out
    }
}

void FillPolygon(ClassData2DIO<int>& plane, std::vector<Point>& points, int value)
{
    if (IsEmpty(plane) || points.empty())
        return;
    for (Point& p : points) {
        p.x = std::clamp(p.x, 0, plane.Width - 1);
        p.y = std::clamp(p.y, 0, plane.Height - 1);
    }
    const ReusedMemory<FillMemory>::Loan memory(gFillMemory);
    SpanEnds&                            ends = memory->Ends;
    FindSpanEnds(points, ends);
    std::size_t words = 0;    // of rows with few ends; many ends have short spans between them
    for (std::size_t row = 0; row < ends.Rows(); ++row) {
        if (ends.End(row) - ends.Begin(row) < ManyInRow)
            words += SortFewEnds(ends.Begin(row), ends.End(row));
    }
    const bool streaming = UsesStreamingStores(words * sizeof(int));
    for (std::size_t row = 0; row < ends.Rows(); ++row) {
        const std::int64_t y = ends.Top + static_cast<std::int64_t>(row);
        const int* const   end = ends.End(row);
        if (end - ends.Begin(row) >= ManyInRow) {
            FillBetweenMany(plane, y, row, *memory, value);
            continue;
        }
        for (const int* at = ends.Begin(row); end - at > 1; at += 2)
            FillRun(plane, y, at[0], at[1], value, streaming);
    }
    if (streaming)
        FenceStreamingStores();
    constexpr std::size_t Kept = std::size_t{1} << 22;
    if (ends.Columns.capacity() > Kept)
        std::vector<int>().swap(ends.Columns);
}

void FillSpline(ClassData2DIO<int>& plane, std::vector<Point>& points, int value)
{
    std::vector<Point> curve, controls;
    mB3Line(points, curve, controls);
    FillPolygon(plane, curve, value);
}

void GetBlobOutRect(ClassData2DIO<int>& plane, ZEKRECT& rect, int label)
{
    constexpr int Start = 10000;
    rect.left = Start;
    rect.top = Start;
    rect.right = -Start;
    rect.bottom = -Start;
    if (IsEmpty(plane))
        return;
    for (int y = 0; y < plane.Height; ++y) {
        const int* const row = plane.Ptr1D + static_cast<std::ptrdiff_t>(y) * plane.Width;
        const int* const end = row + plane.Width;
        const int* const first = std::find(row, end, label);
        if (first == end)
            continue;
        const int* last = end - 1;
        while (*last != label)
            --last;
        rect.left = std::min(rect.left, static_cast<std::int32_t>(first - row));
        rect.right = std::max(rect.right, static_cast<std::int32_t>(last - row));
        rect.top = std::min(rect.top, y);
        rect.bottom = std::max(rect.bottom, y);
    }
}

void mMapXYOutOfIma(int& x, int& y, int width, int height, bool skipEdge)
{
    // One fold and no clamp: with a skipped edge the result may be -1.
    const int skipped = skipEdge ? 1 : 0;
    x = static_cast<int>(FoldAtEdges(x, width, skipped));
    y = static_cast<int>(FoldAtEdges(y, height, skipped));
}
