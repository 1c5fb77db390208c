// Lines of wide pens: a four-cornered body and two round ends. All of it is one color, so the parts are
// painted over one another instead of being joined first.

#include "platform/portable/PortableEllipse.h"
#include "platform/portable/PortableLines.h"
#include "platform/portable/WideIntegers.h"

#include <algorithm>
#include <cmath>

namespace vostel::gdi {
namespace {

// The smallest whole x on or right of the edge at row y; the edge is not level.
std::int64_t EdgeAt(const DevicePoint& a, const DevicePoint& b, std::int64_t y)
{
    const DevicePoint& upper = a.Y < b.Y ? a : b;
    const DevicePoint& lower = a.Y < b.Y ? b : a;
    const Int128       across = static_cast<Int128>(lower.X - upper.X) * (y - upper.Y);
    return upper.X + static_cast<std::int64_t>(CeilDivide<Int128>(across, lower.Y - upper.Y));
}

// Pixels on or inside the left and upper edges and not on the right and lower ones.
void FillConvex(const Bitmap& surface, const Paint& paint, const DevicePoint (&corners)[4])
{
    std::int64_t top = INT64_MAX, bottom = INT64_MIN;
    for (const DevicePoint& corner : corners) {
        top = std::min(top, corner.Y);
        bottom = std::max(bottom, corner.Y);
    }
    top = std::max<std::int64_t>(top, 0);
    bottom = std::min<std::int64_t>(bottom, surface.Height);
    for (std::int64_t y = top; y < bottom; ++y) {
        std::int64_t left = INT64_MAX, right = INT64_MIN;
        for (int i = 0; i < 4; ++i) {
            const DevicePoint &a = corners[i], &b = corners[(i + 1) % 4];
            if (y < std::min(a.Y, b.Y) || y >= std::max(a.Y, b.Y))
                continue;
            std::int64_t x = EdgeAt(a, b, y);
            left = std::min(left, x);
            right = std::max(right, x);
        }
        FillRow(surface, paint, y, left, right);
    }
}

void FillEnd(const Bitmap& surface, const Paint& paint, int width, DevicePoint at)
{
    std::int64_t left = at.X - width / 2, top = at.Y - width / 2;
    if (left >= surface.Width || top >= surface.Height || left + width <= 0 || top + width <= 0)
        return;
    if (width <= 2)
        FillBox(surface, paint, left, top, left + width, top + width);
    else
        EllipseRows(surface, left, top, left + width, top + width).Fill(paint);
}

}

void DrawWideLine(const Bitmap& surface, const Paint& paint, int width, DevicePoint from, DevicePoint to)
{
    if (!paint.Draws || surface.BitsPerPixel < 24)
        return;
    FillEnd(surface, paint, width, from);
    FillEnd(surface, paint, width, to);
    std::int64_t dx = to.X - from.X, dy = to.Y - from.Y;
    if (dx == 0 && dy == 0)
        return;
    // The vector across the line, both parts grown to the next whole pixel unless the line is level or
    // upright. The smaller half of an odd part goes to the left, and of a level line's width to the top.
    std::int64_t acrossX = dx == 0 ? width : 0, acrossY = dy == 0 ? width : 0;
    if (dx != 0 && dy != 0) {
        double x = std::fabs(static_cast<double>(dx)), y = std::fabs(static_cast<double>(dy));
        double length = std::sqrt(x * x + y * y);
        acrossX = static_cast<std::int64_t>(width * y / length) + 1;
        acrossY = static_cast<std::int64_t>(width * x / length) + 1;
    }
    std::int64_t      sign = (dx > 0) == (dy > 0) && dx != 0 && dy != 0 ? -1 : 1;
    std::int64_t      lessX = -(acrossX / 2), lessY = -sign * (acrossY / 2);
    std::int64_t      moreX = acrossX - acrossX / 2, moreY = sign * (acrossY - acrossY / 2);
    const DevicePoint corners[4] = {{from.X + lessX, from.Y + lessY},
                                    {to.X + lessX, to.Y + lessY},
                                    {to.X + moreX, to.Y + moreY},
                                    {from.X + moreX, from.Y + moreY}};
    FillConvex(surface, paint, corners);
}

}
