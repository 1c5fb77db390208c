#include "vostel/RasterFills.h"

#include "foundation/Truncate.h"
#include "imaging/BoundaryChain.h"
#include "output/WordRows.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

using Point = PointTemplateBase<int>;

bool IsEmpty(const ClassData2DIO<int>& plane)
{
    return !plane.Ptr1D || plane.Width < 1 || plane.Height < 1;
}

// Fills columns first..last, both included, of a row that lies in the plane.
void FillRun(ClassData2DIO<int>& plane, std::int64_t row, std::int64_t first, std::int64_t last, int value)
{
    first = std::max<std::int64_t>(first, 0);
    last = std::min<std::int64_t>(last, plane.Width - 1);
    if (first > last)
        return;
    std::uint32_t* const target =
        reinterpret_cast<std::uint32_t*>(plane.Ptr1D + row * static_cast<std::int64_t>(plane.Width) + first);
    FillWords(target, static_cast<std::size_t>(last - first + 1), static_cast<std::uint32_t>(value), false);
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

        // From the top, stepping x.
        std::int64_t d = a2 + 4 * (b2 - (height * a2) / 2);
        std::int64_t stepDiagonal = (2 * b - 2) * a2;
        std::int64_t t = 3 * b2;
        std::int64_t u = 12 * b2;
        for (std::int64_t x = 0; x <= limitX;) {
            if (d > 0) {
                d += 4 * (t - stepDiagonal);
                b -= 1;
                stepDiagonal -= 2 * a2;
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
                d += 4 * (t - stepDiagonal);
                a -= 1;
                stepDiagonal -= 2 * b2;
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
        FillRun(plane, y, cx - half, cx + half - 1, value);
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
            FillRun(plane, y, cx - half, cx + half - 1, value);    // the right end is left out
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
    const std::vector<BoundaryPixel> ends = SpanEnds(points, plane.Height);
    for (std::size_t i = 0; i + 1 < ends.size(); i += 2)
        FillRun(plane, ends[i].Y, ends[i].X, ends[i + 1].X, value);
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
    const auto reflect = [skipEdge](int c, int extent) {
        std::int64_t       at = c;
        const std::int64_t n = extent;
        if (at < 0)
            at = skipEdge ? -at : -at - 1;
        if (n > 0)
            at %= 2 * n;
        if (at >= n)
            at = skipEdge ? 2 * n - 2 - at : 2 * n - 1 - at;
        return static_cast<int>(at);
    };
    x = reflect(x, width);
    y = reflect(y, height);
}
