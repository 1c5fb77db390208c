#include "platform/portable/PortableLines.h"

#include "base/Compiler.h"
#include "platform/Polylines.h"
#include "platform/portable/WideIntegers.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace vostel::gdi {
namespace {

// Lengths in pixels of dash, gap, dash, gap of the styles.
constexpr int Dashed[] = {18, 6};
constexpr int Dotted[] = {3, 3};
constexpr int DashDotted[] = {9, 6, 3, 6};
constexpr int DashDotDotted[] = {9, 3, 3, 3, 3, 3};

// By the unsigned value, which is large for what lies left or above.
bool IsOn(const Bitmap& surface, DevicePoint point)
{
    return static_cast<std::uint64_t>(point.X) < static_cast<std::uint64_t>(surface.Width) &&
           static_cast<std::uint64_t>(point.Y) < static_cast<std::uint64_t>(surface.Height);
}

// Products of such coordinates fit 64 bits.
bool IsNear(DevicePoint point)
{
    constexpr std::int64_t Reach = 1 << 29;
    return point.X > -Reach && point.X < Reach && point.Y > -Reach && point.Y < Reach;
}

// Calls put(address) for count pixels: a step along the longer axis each, and one along the shorter axis
// whenever the remainder of the division reaches its divisor. Without a branch, because branches on short
// lines are mispredicted. The offset is kept apart from the pointer, which must not leave the bitmap.
template <typename Put>
void WalkPixels(unsigned char* target, std::ptrdiff_t majorStep, std::ptrdiff_t minorStep,
                std::int64_t longer, std::int64_t shorter, std::int64_t remainder, std::int64_t count,
                Put&& put)
{
    const std::int64_t step = 2 * shorter, full = 2 * longer;
    std::ptrdiff_t     offset = 0;
    remainder -= full;    // below 0: its sign says whether to turn
    for (;;) {
        put(target + offset);
        if (--count == 0)
            break;
        remainder += step;
        const std::int64_t straight = remainder >> 63;    // all ones or none
        remainder -= full & ~straight;
        offset += majorStep + (minorStep & ~straight);
    }
}

// The pixels of a line one pixel wide, by its longer and its shorter axis.
//
// Pixel i of a line whose longer extent is m and whose shorter is n lies i steps along the longer axis and
// floor((2 i n + m - bias) / 2 m) along the shorter one: the nearest grid point. Exactly between two points
// the bias takes the upper or left one, whichever way the line runs.
class ThinLine {
public:
    ThinLine(DevicePoint from, DevicePoint to)
    {
        std::int64_t dx = to.X - from.X, dy = to.Y - from.Y;
        std::int64_t lengthX = dx < 0 ? -dx : dx, lengthY = dy < 0 ? -dy : dy;
        AlongX = lengthX >= lengthY;
        Longer = AlongX ? lengthX : lengthY;
        Shorter = AlongX ? lengthY : lengthX;
        MajorSign = (AlongX ? dx : dy) < 0 ? -1 : 1;
        MinorSign = (AlongX ? dy : dx) < 0 ? -1 : 1;
        Major = AlongX ? from.X : from.Y;
        Minor = AlongX ? from.Y : from.X;
    }

    std::int64_t Length() const { return Longer; }
    bool         IsRow() const { return AlongX && Shorter == 0; }

    // Finds the pixels on the bitmap, which alone are walked; false if there is none.
    bool Clip(const Bitmap& surface, DevicePoint from, DevicePoint to)
    {
        if (Longer == 0)
            return false;
        if (IsOn(surface, from) && IsOn(surface, to)) {
            Skipped = 0;
            Count = Longer;
            Remainder = Longer - Bias();
            return true;
        }
        return IsNear(from) && IsNear(to) ? ClipWith<std::int64_t>(surface) : ClipWith<Int128>(surface);
    }

    std::int64_t SkippedSteps() const { return Skipped; }

    // The part on the bitmap of a line that is a row.
    void FillClippedRow(const Bitmap& surface, const Paint& paint) const
    {
        std::int64_t last = Major + MajorSign * (Count - 1);
        FillRow(surface, paint, Minor, std::min(Major, last), std::max(Major, last) + 1);
    }

    // Calls put(address) for each pixel on the bitmap.
    template <typename Put>
    void ForEachPixel(const Bitmap& surface, Put&& put) const
    {
        std::ptrdiff_t bytesPerPixel = surface.BitsPerPixel / 8;
        std::ptrdiff_t rowStep =
            surface.TopDown ? surface.RowBytes : -static_cast<std::ptrdiff_t>(surface.RowBytes);
        std::ptrdiff_t majorStep = MajorSign * (AlongX ? bytesPerPixel : rowStep);
        std::ptrdiff_t minorStep = MinorSign * (AlongX ? rowStep : bytesPerPixel);
        unsigned char* target = surface.Row(static_cast<int>(AlongX ? Minor : Major)) +
                                static_cast<std::ptrdiff_t>(AlongX ? Major : Minor) * bytesPerPixel;
        WalkPixels(target, majorStep, minorStep, Longer, Shorter, Remainder, Count, put);
    }

private:
    std::int64_t Longer, Shorter;    // pixels
    std::int64_t Major, Minor;       // device coordinates; of the first pixel on the bitmap after Clip
    std::int64_t Skipped = 0;        // steps before it
    std::int64_t Count = 0;          // pixels on the bitmap
    std::int64_t Remainder = 0;      // of the division above at the first of them
    int          MajorSign, MinorSign;
    bool         AlongX;

    std::int64_t Bias() const { return MinorSign > 0 ? 1 : 0; }

    template <typename Int>
    bool ClipWith(const Bitmap& surface)
    {
        Int m = Longer, n = Shorter, bias = Bias();
        Int majorLimit = AlongX ? surface.Width : surface.Height;
        Int minorLimit = AlongX ? surface.Height : surface.Width;
        Int first = MajorSign > 0 ? -Int(Major) : Int(Major) - (majorLimit - 1);
        Int last = MajorSign > 0 ? majorLimit - 1 - Int(Major) : Int(Major);
        first = std::max(first, Int(0));
        last = std::min(last, m - 1);
        Int minorEnter = MinorSign > 0 ? -Int(Minor) : Int(Minor) - (minorLimit - 1);
        Int minorLeave = MinorSign > 0 ? minorLimit - 1 - Int(Minor) : Int(Minor);
        if (first > last || minorEnter > n || minorLeave < 0)
            return false;
        if (n != 0) {
            first = std::max(first, CeilDivide<Int>(2 * minorEnter * m - m + bias, 2 * n));
            last = std::min(last, CeilDivide<Int>(2 * (minorLeave + 1) * m - m + bias, 2 * n) - 1);
            if (first > last)
                return false;
        }
        Int start = 2 * first * n + m - bias;
        Skipped = static_cast<std::int64_t>(first);
        Count = static_cast<std::int64_t>(last - first) + 1;
        Remainder = static_cast<std::int64_t>(start % (2 * m));
        Major += MajorSign * Skipped;
        Minor += MinorSign * static_cast<std::int64_t>(start / (2 * m));
        return true;
    }
};

// The top row of a bitmap and what draws on it.
struct Sheet {
    unsigned char* Top;
    std::ptrdiff_t Down;    // bytes to the row below
    std::uint32_t  Pixel;

    Sheet(const Bitmap& surface, std::uint32_t pixel)
        : Top(surface.Row(0)),
          Down(surface.TopDown ? surface.RowBytes : -static_cast<std::ptrdiff_t>(surface.RowBytes)),
          Pixel(pixel)
    {
    }
};

// Lines with both ends on a bitmap of 32 bits per pixel, the many short ones of outlines: as ThinLine has
// them, with the eight directions distinguished by masks instead of branches.
VOSTEL_INLINE void DrawInside(const Sheet& sheet, int x, int y, int dx, int dy)
{
    const int signX = dx >> 31, signY = dy >> 31;    // all ones or none
    const int lengthX = (dx ^ signX) - signX, lengthY = (dy ^ signY) - signY;
    const int alongY = (lengthX - lengthY) >> 31;
    const int excess = (lengthX - lengthY) & alongY;
    const int longer = lengthX - excess, shorter = lengthY + excess;
    const int bias = 1 + (signY ^ ((signX ^ signY) & alongY));
    if (longer == 0)
        return;
    const std::ptrdiff_t stepX = (4 ^ signX) - signX;
    const std::ptrdiff_t stepY = (sheet.Down ^ signY) - signY;
    const std::ptrdiff_t exchange = (stepX ^ stepY) & alongY;
    WalkPixels(sheet.Top + y * sheet.Down + 4 * static_cast<std::ptrdiff_t>(x), stepX ^ exchange,
               stepY ^ exchange, longer, shorter, longer - bias, longer,
               [&](unsigned char* at) { std::memcpy(at, &sheet.Pixel, 4); });
}

// Apart from DrawUnbroken, whose many short lines would otherwise save its registers.
VOSTEL_NOINLINE void DrawClipped(const Bitmap& surface, std::uint32_t pixel, DevicePoint from, DevicePoint to)
{
    ThinLine line(from, to);
    if (surface.BitsPerPixel < 24 || !line.Clip(surface, from, to))
        return;
    Paint paint;
    paint.Draws = true;
    paint.Pixel = pixel;
    if (line.IsRow())
        line.FillClippedRow(surface, paint);
    else if (surface.BitsPerPixel == 32)
        line.ForEachPixel(surface, [pixel](unsigned char* at) { std::memcpy(at, &pixel, 4); });
    else
        line.ForEachPixel(surface, [pixel](unsigned char* at) { std::memcpy(at, &pixel, 3); });
}

// From here on a row is worth a fill.
constexpr int LongRow = 32;

inline void DrawUnbroken(const Bitmap& surface, std::uint32_t pixel, DevicePoint from, DevicePoint to)
{
    const std::int64_t dx = to.X - from.X, dy = to.Y - from.Y;
    if (surface.BitsPerPixel == 32 && IsOn(surface, from) && IsOn(surface, to) &&
        (dy != 0 || (dx < LongRow && -dx < LongRow)))
        DrawInside(Sheet(surface, pixel), static_cast<int>(from.X), static_cast<int>(from.Y),
                   static_cast<int>(dx), static_cast<int>(dy));
    else
        DrawClipped(surface, pixel, from, to);
}

// Calls draw(from, to) for each line of a polyline, in device coordinates.
VOSTEL_INLINE void ForEachLine(std::span<const CPoint> points, bool closed, POINT origin, auto&& draw)
{
    const auto place = [&](const CPoint& point) {
        return DevicePoint{static_cast<std::int64_t>(point.x) + origin.x,
                           static_cast<std::int64_t>(point.y) + origin.y};
    };
    DevicePoint from = place(points[0]);
    for (std::size_t i = 1; i < points.size(); ++i) {
        const DevicePoint to = place(points[i]);
        draw(from, to);
        from = to;
    }
    if (closed)
        draw(from, place(points[0]));
}

// An unbroken polyline one pixel wide. One that lies on the bitmap as a whole is drawn without a look at the
// ends of its lines.
void DrawThinPolyline(const Bitmap& surface, std::uint32_t pixel, std::span<const CPoint> points, bool closed,
                      POINT origin)
{
    auto left = points[0].x, right = left;
    auto top = points[0].y, bottom = top;
    for (const CPoint& point : points) {
        left = std::min(left, point.x);
        right = std::max(right, point.x);
        top = std::min(top, point.y);
        bottom = std::max(bottom, point.y);
    }
    const DevicePoint low = {static_cast<std::int64_t>(left) + origin.x,
                             static_cast<std::int64_t>(top) + origin.y};
    const DevicePoint high = {static_cast<std::int64_t>(right) + origin.x,
                              static_cast<std::int64_t>(bottom) + origin.y};
    if (high.X < 0 || high.Y < 0 || low.X >= surface.Width || low.Y >= surface.Height)
        return;
    if (surface.BitsPerPixel == 32 && IsOn(surface, low) && IsOn(surface, high)) {
        const Sheet sheet(surface, pixel);
        ForEachLine(points, closed, origin, [&](DevicePoint from, DevicePoint to) VOSTEL_INLINE_LAMBDA {
            const int dx = static_cast<int>(to.X - from.X), dy = static_cast<int>(to.Y - from.Y);
            if (dy != 0 || (dx < LongRow && -dx < LongRow))
                DrawInside(sheet, static_cast<int>(from.X), static_cast<int>(from.Y), dx, dy);
            else
                DrawClipped(surface, pixel, from, to);
        });
        return;
    }
    ForEachLine(points, closed, origin,
                [&](DevicePoint from, DevicePoint to) { DrawUnbroken(surface, pixel, from, to); });
}

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
        take(Dashed);
        break;
    case PS_DOT:
        take(Dotted);
        break;
    case PS_DASHDOT:
        take(DashDotted);
        break;
    case PS_DASHDOTDOT:
        take(DashDotDotted);
        break;
    default:
        break;
    }
    return dashes;
}

void DrawThinLine(const Bitmap& surface, Dashes& dashes, DevicePoint from, DevicePoint to)
{
    if (!dashes.Lengths) {
        if (dashes.Ink.Draws)
            DrawUnbroken(surface, dashes.Ink.Pixel, from, to);
        return;
    }
    ThinLine      line(from, to);
    std::uint64_t startSteps = dashes.Steps;
    dashes.Steps += static_cast<std::uint64_t>(line.Length());
    if (!dashes.Ink.Draws || surface.BitsPerPixel < 24 || !line.Clip(surface, from, to))
        return;
    int dash = 0;
    int left = static_cast<int>((startSteps + static_cast<std::uint64_t>(line.SkippedSteps())) %
                                static_cast<std::uint64_t>(dashes.Period));
    while (left >= dashes.Lengths[dash])
        left -= dashes.Lengths[dash++];
    left = dashes.Lengths[dash] - left;
    std::size_t bytesPerPixel = static_cast<std::size_t>(surface.BitsPerPixel) / 8;
    line.ForEachPixel(surface, [&](unsigned char* at) {
        const Paint& paint = dash & 1 ? dashes.Gap : dashes.Ink;
        if (paint.Draws)
            std::memcpy(at, &paint.Pixel, bytesPerPixel);
        if (--left == 0) {
            dash = (dash + 1) % dashes.Count;
            left = dashes.Lengths[dash];
        }
    });
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

using namespace vostel::gdi;

BOOL MoveToEx(HDC dc, int x, int y, POINT* before)
{
    Context* context = FindContext(dc);
    if (!context)
        return FALSE;
    if (before)
        *before = context->Position;
    context->Position = {x, y};
    return TRUE;
}

BOOL LineTo(HDC dc, int x, int y)
{
    Context* context = FindContext(dc);
    if (!context)
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
    if (pen.Style == PS_SOLID) {
        DrawUnbroken(*context->Surface, PixelOf(pen.Color), from, to);
        return TRUE;
    }
    Dashes dashes = DashesOfPen(*context);
    DrawThinLine(*context->Surface, dashes, from, to);
    return TRUE;
}

namespace vostel {

void DrawPolyline(HDC dc, std::span<const CPoint> points, bool closed)
{
    Context* const context = FindContext(dc);
    if (!context || points.empty())
        return;
    const Pen& pen = *context->SelectedPen;
    if (pen.Width <= 1 && pen.Style == PS_SOLID) {
        DrawThinPolyline(*context->Surface, PixelOf(pen.Color), points, closed, context->Origin);
        const CPoint& end = closed ? points.front() : points.back();
        context->Position = {end.x, end.y};
        return;
    }
    MoveToEx(dc, points[0].x, points[0].y, nullptr);
    for (const CPoint& point : points.subspan(1))
        LineTo(dc, point.x, point.y);
    if (closed)
        LineTo(dc, points[0].x, points[0].y);
}

}
