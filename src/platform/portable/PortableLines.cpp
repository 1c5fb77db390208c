#include "platform/portable/PortableLines.h"

#include <algorithm>
#include <cstring>

namespace gdi {
namespace {

__extension__ typedef __int128 Wide;    // products of two 34-bit lengths

// Lengths in pixels of dash, gap, dash, gap of the styles.
constexpr int dashed[] = {18, 6};
constexpr int dotted[] = {3, 3};
constexpr int dashDotted[] = {9, 6, 3, 6};
constexpr int dashDotDotted[] = {9, 3, 3, 3, 3, 3};

Wide FloorDivide(Wide a, Wide b)
{
    return a >= 0 ? a / b : -((b - 1 - a) / b);
}
Wide CeilDivide(Wide a, Wide b)
{
    return -FloorDivide(-a, b);
}

// The steps first..last of a line that lie on the bitmap, by one of its two axes.
struct Steps {
    Wide First, Last;
};

}

Dashes DashesOfPen(const Context& context)
{
    const Pen& pen = *context.SelectedPen;
    Dashes     dashes;
    dashes.Ink = Paint::OfPen(context);
    if (context.BkMode == OPAQUE)
        dashes.Gap = Paint::Solid(context.BkColor);
    auto take = [&](auto& lengths) {
        dashes.Lengths = lengths;
        dashes.Count = static_cast<int>(std::size(lengths));
        for (int length : lengths)
            dashes.Period += length;
    };
    switch (pen.Style) {
    case PS_DASH:
        take(dashed);
        break;
    case PS_DOT:
        take(dotted);
        break;
    case 3:
        take(dashDotted);
        break;
    case 4:
        take(dashDotDotted);
        break;
    default:
        break;
    }
    return dashes;
}

// Pixel i of a line whose longer extent is m and whose shorter is n lies i steps along the longer axis and
// floor((2 i n + m - bias) / 2 m) along the shorter one: the nearest grid point. Exactly between two points
// the bias takes the upper or left one, whichever way the line runs.
void DrawThinLine(const Bitmap& surface, Dashes& dashes, DevicePoint from, DevicePoint to)
{
    std::int64_t  dx = to.X - from.X, dy = to.Y - from.Y;
    std::int64_t  lengthX = dx < 0 ? -dx : dx, lengthY = dy < 0 ? -dy : dy;
    bool          alongX = lengthX >= lengthY;
    std::int64_t  m = alongX ? lengthX : lengthY, n = alongX ? lengthY : lengthX;
    std::uint64_t startSteps = dashes.Steps;
    dashes.Steps += static_cast<std::uint64_t>(m);
    if (m == 0 || surface.BitsPerPixel < 24 || !dashes.Ink.Draws)
        return;

    int          majorSign = (alongX ? dx : dy) < 0 ? -1 : 1, minorSign = (alongX ? dy : dx) < 0 ? -1 : 1;
    std::int64_t major = alongX ? from.X : from.Y, minor = alongX ? from.Y : from.X;
    std::int64_t majorLimit = alongX ? surface.Width : surface.Height;
    std::int64_t minorLimit = alongX ? surface.Height : surface.Width;
    std::int64_t bias = minorSign > 0 ? 1 : 0;

    // Only the steps on the bitmap are walked.
    Steps steps = {0, static_cast<Wide>(m) - 1};
    Wide  enter = majorSign > 0 ? -static_cast<Wide>(major) : static_cast<Wide>(major) - (majorLimit - 1);
    Wide  leave = majorSign > 0 ? static_cast<Wide>(majorLimit) - 1 - major : static_cast<Wide>(major);
    steps.First = std::max(steps.First, enter);
    steps.Last = std::min(steps.Last, leave);
    Wide minorEnter = minorSign > 0 ? -static_cast<Wide>(minor) : static_cast<Wide>(minor) - (minorLimit - 1);
    Wide minorLeave = minorSign > 0 ? static_cast<Wide>(minorLimit) - 1 - minor : static_cast<Wide>(minor);
    if (n == 0) {
        if (minorEnter > 0 || minorLeave < 0)
            return;
    } else {
        steps.First =
            std::max(steps.First, CeilDivide(2 * minorEnter * m - m + bias, 2 * static_cast<Wide>(n)));
        steps.Last = std::min(steps.Last,
                              CeilDivide(2 * (minorLeave + 1) * m - m + bias, 2 * static_cast<Wide>(n)) - 1);
    }
    if (steps.First > steps.Last)
        return;

    Wide         start = 2 * steps.First * n + m - bias;
    std::int64_t remainder = static_cast<std::int64_t>(start % (2 * m));
    std::int64_t majorAt = major + majorSign * static_cast<std::int64_t>(steps.First);
    std::int64_t minorAt = minor + minorSign * static_cast<std::int64_t>(start / (2 * m));
    std::int64_t count = static_cast<std::int64_t>(steps.Last - steps.First) + 1;
    if (n == 0 && alongX && dashes.Lengths == nullptr) {
        std::int64_t last = majorAt + majorSign * (count - 1);
        FillRow(surface, dashes.Ink, minorAt, std::min(majorAt, last), std::max(majorAt, last) + 1);
        return;
    }

    std::ptrdiff_t bytesPerPixel = surface.BitsPerPixel / 8;
    std::ptrdiff_t rowStep =
        surface.TopDown ? surface.RowBytes : -static_cast<std::ptrdiff_t>(surface.RowBytes);
    std::ptrdiff_t majorStep = majorSign * (alongX ? bytesPerPixel : rowStep);
    std::ptrdiff_t minorStep = minorSign * (alongX ? rowStep : bytesPerPixel);
    unsigned char* target = surface.Row(static_cast<int>(alongX ? minorAt : majorAt)) +
                            static_cast<std::ptrdiff_t>(alongX ? majorAt : minorAt) * bytesPerPixel;
    int dash = 0, left = 0;
    if (dashes.Lengths != nullptr) {
        left = static_cast<int>((startSteps + static_cast<std::uint64_t>(steps.First)) %
                                static_cast<std::uint64_t>(dashes.Period));
        while (left >= dashes.Lengths[dash])
            left -= dashes.Lengths[dash++];
        left = dashes.Lengths[dash] - left;
    }
    std::ptrdiff_t offset = 0;    // kept apart from the pointer, which must not leave the bitmap
    for (;;) {
        const Paint& paint = dash & 1 ? dashes.Gap : dashes.Ink;
        if (paint.Draws)
            std::memcpy(target + offset, &paint.Pixel, static_cast<std::size_t>(bytesPerPixel));
        if (--count == 0)
            break;
        offset += majorStep;
        remainder += 2 * n;
        if (remainder >= 2 * m) {
            remainder -= 2 * m;
            offset += minorStep;
        }
        if (dashes.Lengths != nullptr && --left == 0) {
            dash = (dash + 1) % dashes.Count;
            left = dashes.Lengths[dash];
        }
    }
}

void DrawDashedRing(const Bitmap& surface, const Dashes& dashes, const std::vector<DevicePoint>& ring)
{
    int dash = 0, left = dashes.Count == 0 ? 0 : dashes.Lengths[0];
    for (const DevicePoint& point : ring) {
        FillRow(surface, dash & 1 ? dashes.Gap : dashes.Ink, point.Y, point.X, point.X + 1);
        if (dashes.Count != 0 && --left == 0) {
            dash = (dash + 1) % dashes.Count;
            left = dashes.Lengths[dash];
        }
    }
}

}

using namespace gdi;

BOOL MoveToEx(HDC dc, int x, int y, POINT* before)
{
    Context* context = FindContext(dc);
    if (context == nullptr)
        return FALSE;
    if (before != nullptr)
        *before = context->Position;
    context->Position = {x, y};
    return TRUE;
}

BOOL LineTo(HDC dc, int x, int y)
{
    Context* context = FindContext(dc);
    if (context == nullptr)
        return FALSE;
    DevicePoint from = {static_cast<std::int64_t>(context->Position.x) + context->Origin.x,
                        static_cast<std::int64_t>(context->Position.y) + context->Origin.y};
    DevicePoint to = {static_cast<std::int64_t>(x) + context->Origin.x,
                      static_cast<std::int64_t>(y) + context->Origin.y};
    const Pen&  pen = *context->SelectedPen;
    context->Position = {x, y};
    if (pen.Width > 1) {
        DrawWideLine(*context->Surface, Paint::OfPen(*context), pen.Width, from, to);
        return TRUE;
    }
    Dashes dashes = DashesOfPen(*context);
    DrawThinLine(*context->Surface, dashes, from, to);
    return TRUE;
}
