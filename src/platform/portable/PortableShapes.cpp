// Rectangles and ellipses: a filled inside and an outline of the pen.

#include "platform/portable/PortableEllipse.h"
#include "platform/portable/PortableLines.h"

#include <algorithm>

using namespace vostel::gdi;

namespace {

// A box of device coordinates, right and bottom left out, made of two corners in any order.
struct DeviceBox {
    std::int64_t Left, Top, Right, Bottom;
};

DeviceBox BoxOf(const Context& context, int left, int top, int right, int bottom)
{
    std::int64_t x = context.Origin.x, y = context.Origin.y;
    return {std::min(left, right) + x, std::min(top, bottom) + y, std::max(left, right) + x,
            std::max(top, bottom) + y};
}

// A shape of a single pixel has an outline of no length and no inside.
bool IsEmpty(const Context& context, const DeviceBox& box)
{
    std::int64_t width = box.Right - box.Left, height = box.Bottom - box.Top;
    return width <= 0 || height <= 0 || (width == 1 && height == 1 && context.SelectedPen->Style != PS_NULL);
}

void DrawRectangle(const Context& context, DeviceBox box)
{
    const Bitmap& surface = *context.Surface;
    const Pen&    pen = *context.SelectedPen;
    if (pen.Style == PS_NULL) {
        // What a pen would draw on at the right and the bottom is left out.
        FillBox(surface, Paint::OfBrush(context, *context.SelectedBrush), box.Left, box.Top, box.Right - 1,
                box.Bottom - 1);
        return;
    }
    // The gaps of a broken outline show what was there before, not the brush.
    FillBox(surface, Paint::OfBrush(context, *context.SelectedBrush), box.Left + 1, box.Top + 1,
            box.Right - 1, box.Bottom - 1);
    DevicePoint corners[] = {{box.Right - 1, box.Top},
                             {box.Left, box.Top},
                             {box.Left, box.Bottom - 1},
                             {box.Right - 1, box.Bottom - 1},
                             {box.Right - 1, box.Top}};
    if (pen.Width > 1) {
        for (int i = 0; i < 4; ++i)
            DrawWideLine(surface, Paint::OfPen(context), pen.Width, corners[i], corners[i + 1]);
        return;
    }
    Dashes dashes = DashesOfPen(context);
    for (int i = 0; i < 4; ++i)
        DrawThinLine(surface, dashes, corners[i], corners[i + 1]);
}

void DrawEllipse(const Context& context, const DeviceBox& box)
{
    const Bitmap& surface = *context.Surface;
    const Pen&    pen = *context.SelectedPen;
    const Paint   ink = Paint::OfPen(context), fill = Paint::OfBrush(context, *context.SelectedBrush);
    EllipseRows   rows(surface, box.Left, box.Top, box.Right, box.Bottom);
    if (!ink.Draws) {
        rows.Fill(fill);
        return;
    }
    rows.Fill(fill);
    std::vector<DevicePoint> ring;
    if (pen.Width > 1 || pen.Style != PS_SOLID)
        ring = EllipseRing(box.Left, box.Top, box.Right, box.Bottom);
    if (ring.empty()) {
        rows.Outline(ink);
    } else if (pen.Width > 1) {
        for (std::size_t i = 0; i < ring.size(); ++i)
            DrawWideLine(surface, ink, pen.Width, ring[i], ring[(i + 1) % ring.size()]);
    } else {
        DrawDashedRing(surface, DashesOfPen(context), ring);
    }
}

}

BOOL Rectangle(HDC dc, int left, int top, int right, int bottom)
{
    Context* context = FindContext(dc);
    if (!context)
        return FALSE;
    DeviceBox box = BoxOf(*context, left, top, right, bottom);
    if (!IsEmpty(*context, box))
        DrawRectangle(*context, box);
    return TRUE;
}

BOOL Ellipse(HDC dc, int left, int top, int right, int bottom)
{
    Context* context = FindContext(dc);
    if (!context)
        return FALSE;
    DeviceBox box = BoxOf(*context, left, top, right, bottom);
    if (IsEmpty(*context, box))
        return TRUE;
    if (box.Right - box.Left <= 2 || box.Bottom - box.Top <= 2) {
        DrawRectangle(*context, box);
        return TRUE;
    }
    DrawEllipse(*context, box);
    return TRUE;
}
