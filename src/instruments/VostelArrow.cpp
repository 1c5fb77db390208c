#include "instruments/VostelArrow.h"

#include "base/Truncate.h"
#include "overlay/InteriorFill.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vostel {

namespace {

constexpr double HeadLength = 12.0;           // px, of a thin line
constexpr double HeadPerWidth = 3.0;          // px more for each of the line's width beyond one
constexpr double HalfHeadPerLength = 0.36;    // half the head's width

}

VostelArrow::VostelArrow()
{
    TypeCode = OverlayArrow;
    MaxPoints = 2;
    ClickPerPoint = 0;
}

// The shaft ends inside the head, so that a wide one does not blunt the tip.
void VostelArrow::DrawMark()
{
    if (ClientPoints.size() != 2)
        return;
    const ImagePoint tail(ClientPoints[0].x + 0.5, ClientPoints[0].y + 0.5);
    const ImagePoint tip(ClientPoints[1].x + 0.5, ClientPoints[1].y + 0.5);
    const double     length = std::hypot(tip.x - tail.x, tip.y - tail.y);
    if (!(length > 0.0))
        return;
    const double wanted = (HeadLength + HeadPerWidth * std::max(0.0, LineWidth - 1.0)) * PixelRatio();
    const double head = std::min(wanted, length);
    const double alongX = (tip.x - tail.x) / length * head;
    const double alongY = (tip.y - tail.y) / length * head;
    const double acrossX = -alongY * HalfHeadPerLength;
    const double acrossY = alongX * HalfHeadPerLength;
    const std::array<ImagePoint, 3> corners = {
        tip, ImagePoint(tip.x - alongX + acrossX, tip.y - alongY + acrossY),
        ImagePoint(tip.x - alongX - acrossX, tip.y - alongY - acrossY)};
    Kit.DrawLine(ClientPoints[0], CPoint(TruncToInt(tip.x - 0.7 * alongX), TruncToInt(tip.y - 0.7 * alongY)),
                 0, LineColor(), PS_SOLID);
    FillInterior(Kit, Outline::OfPolygon(corners), OpaqueOf(LineColor()));
}

VostelMPoint::PointCounts VostelArrow::CountsTaken() const
{
    return {2, 2};
}

}
