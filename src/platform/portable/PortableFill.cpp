#include "platform/portable/PortableFill.h"

#include <algorithm>
#include <cstring>

namespace vostel::gdi {
namespace {

// Rows of the six hatches; bit 7 is the leftmost pixel.
constexpr unsigned char HatchRows[6][8] = {
    {0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00},    // horizontal
    {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08},    // vertical
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01},    // falling diagonal
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},    // rising diagonal
    {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08},    // cross
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},    // diagonal cross
};

bool HatchDraws(int hatch, int x, int y)
{
    return (HatchRows[hatch][y & 7] >> (7 - (x & 7)) & 1) != 0;
}

void PutPixel(unsigned char* target, int bytesPerPixel, std::uint32_t pixel)
{
    if (bytesPerPixel == 4) {
        std::memcpy(target, &pixel, 4);
    } else {
        target[0] = static_cast<unsigned char>(pixel);
        target[1] = static_cast<unsigned char>(pixel >> 8);
        target[2] = static_cast<unsigned char>(pixel >> 16);
    }
}

// Continues the first bytes of a row to its end.
void Repeat(unsigned char* row, std::size_t known, std::size_t bytes)
{
    while (known < bytes) {
        std::size_t step = std::min(known, bytes - known);
        std::memcpy(row + known, row, step);
        known += step;
    }
}

struct Box {
    int Left, Top, Right, Bottom;
};

// The first row is doubled up from one pixel, the others are copies of the one above: the library's copy is
// faster than any loop here.
void FillSolid(const Bitmap& surface, std::uint32_t pixel, const Box& box)
{
    int            bytesPerPixel = surface.BitsPerPixel / 8;
    std::ptrdiff_t start = static_cast<std::ptrdiff_t>(box.Left) * bytesPerPixel;
    std::size_t    bytes =
        static_cast<std::size_t>(box.Right - box.Left) * static_cast<std::size_t>(bytesPerPixel);
    unsigned char* first = surface.Row(box.Top) + start;
    PutPixel(first, bytesPerPixel, pixel);
    Repeat(first, static_cast<std::size_t>(bytesPerPixel), bytes);
    for (int y = box.Top + 1; y < box.Bottom; ++y)
        std::memcpy(surface.Row(y) + start, surface.Row(y - 1) + start, bytes);
}

// Every pixel is written, so a row equals the one eight rows above it.
void FillOpaqueHatch(const Bitmap& surface, const Paint& paint, const Box& box)
{
    int         bytesPerPixel = surface.BitsPerPixel / 8;
    std::size_t bytes =
        static_cast<std::size_t>(box.Right - box.Left) * static_cast<std::size_t>(bytesPerPixel);
    for (int y = box.Top; y < box.Bottom; ++y) {
        std::ptrdiff_t start = static_cast<std::ptrdiff_t>(box.Left) * bytesPerPixel;
        unsigned char* row = surface.Row(y) + start;
        if (y - box.Top >= 8) {
            std::memcpy(row, surface.Row(y - 8) + start, bytes);
            continue;
        }
        int period = std::min(8, box.Right - box.Left);
        for (int i = 0; i < period; ++i)
            PutPixel(row + i * bytesPerPixel, bytesPerPixel,
                     HatchDraws(paint.Hatch, box.Left + i, y) ? paint.Pixel : paint.GapPixel);
        Repeat(row, static_cast<std::size_t>(period * bytesPerPixel), bytes);
    }
}

void FillOpenHatch(const Bitmap& surface, const Paint& paint, const Box& box)
{
    int bytesPerPixel = surface.BitsPerPixel / 8;
    for (int y = box.Top; y < box.Bottom; ++y) {
        if (HatchRows[paint.Hatch][y & 7] == 0xFF) {
            FillSolid(surface, paint.Pixel, {box.Left, y, box.Right, y + 1});
            continue;
        }
        unsigned char* row = surface.Row(y);
        for (int column = 0; column < 8; ++column)
            if (HatchDraws(paint.Hatch, box.Left + column, y))
                for (std::int64_t x = static_cast<std::int64_t>(box.Left) + column; x < box.Right; x += 8)
                    PutPixel(row + x * bytesPerPixel, bytesPerPixel, paint.Pixel);
    }
}

}

Paint Paint::Solid(COLORREF color)
{
    Paint paint;
    paint.Draws = true;
    paint.Pixel = PixelOf(color);
    return paint;
}

Paint Paint::OfBrush(const Context& context, const Brush& brush)
{
    if (brush.Fill == Brush::Kind::Null)
        return Paint();
    Paint paint = Solid(brush.Color);
    paint.Hatched = brush.Fill == Brush::Kind::Hatch;
    paint.Hatch = brush.Hatch;
    paint.FillsGaps = context.BkMode == OPAQUE;
    paint.GapPixel = PixelOf(context.BkColor);
    return paint;
}

Paint Paint::OfPen(const Context& context)
{
    const Pen& pen = *context.SelectedPen;
    return pen.Style == PS_NULL ? Paint() : Solid(pen.Color);
}

void FillBox(const Bitmap& surface, const Paint& paint, std::int64_t left, std::int64_t top,
             std::int64_t right, std::int64_t bottom)
{
    Box box;
    box.Left = static_cast<int>(std::clamp<std::int64_t>(left, 0, surface.Width));
    box.Right = static_cast<int>(std::clamp<std::int64_t>(right, 0, surface.Width));
    box.Top = static_cast<int>(std::clamp<std::int64_t>(top, 0, surface.Height));
    box.Bottom = static_cast<int>(std::clamp<std::int64_t>(bottom, 0, surface.Height));
    if (!paint.Draws || box.Left >= box.Right || box.Top >= box.Bottom || surface.BitsPerPixel < 24)
        return;
    if (!paint.Hatched)
        FillSolid(surface, paint.Pixel, box);
    else if (paint.FillsGaps)
        FillOpaqueHatch(surface, paint, box);
    else
        FillOpenHatch(surface, paint, box);
}

}

using namespace vostel::gdi;

namespace {

// The pixels of an extent. One that runs backwards holds its first pixel and not its last, as a forward one
// does: it lies one pixel further on than the sorted ends would.
struct Extent {
    std::int64_t Begin, End;
};

Extent ExtentOf(std::int64_t from, std::int64_t to)
{
    return from <= to ? Extent{from, to} : Extent{to + 1, from + 1};
}

}

int FillRect(HDC dc, const RECT* rect, HBRUSH handle)
{
    const Context* context = FindContext(dc);
    const Brush*   brush = FindBrush(handle);
    if (!context || !brush || !rect)
        return 0;
    std::int64_t x = context->Origin.x, y = context->Origin.y;
    Extent       columns = ExtentOf(rect->left + x, rect->right + x);
    Extent       rows = ExtentOf(rect->top + y, rect->bottom + y);
    FillBox(*context->Surface, Paint::OfBrush(*context, *brush), columns.Begin, rows.Begin, columns.End,
            rows.End);
    return 1;
}
