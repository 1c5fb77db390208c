#include "overlay/VostelSingleLine.h"

#include "base/Truncate.h"

#include <cmath>

namespace vostel {

VostelSingleLine::VostelSingleLine()
{
    ClickPerPoint = 0;
    MaxPoints = 2;
    DrawBody = false;
    TypeCode = OverlayLine;
}

void VostelSingleLine::OnLButtonDown(unsigned int flags, CPoint point)
{
    VostelMPoint::OnLButtonDown(flags, point);
    // The point as it came in, not the one snapped into the image.
    const std::int64_t dx = static_cast<std::int64_t>(point.x) - MidPoint.x;
    const std::int64_t dy = static_cast<std::int64_t>(point.y) - MidPoint.y;
    const float distance = static_cast<float>(std::sqrt(static_cast<double>(dx) * static_cast<double>(dx) +
                                                        static_cast<double>(dy) * static_cast<double>(dy)));
    // A Shift press of an open-made shape starts a new one, wherever the middle of the last one was.
    if (OpenMade && (flags & MK_SHIFT) != 0)
        return;
    if (distance < static_cast<float>(Scaled(HandleRadius)) && HandleShape == RoundHandles)
        BeginMove();
}

// Open-made shapes are hit where they are, painted or not.
void VostelSingleLine::RefreshClientGeometry()
{
    VostelMPoint::RefreshClientGeometry();
    if (OpenMade)
        VostelSingleLine::DerivePainted();
}

void VostelSingleLine::OnDraw(HDC dc)
{
    if (OpenMade && ClientPoints.size() != 2)
        return;
    ShowHandles = true;
    VostelSingleLine::DerivePainted();
    VostelMPoint::OnDraw(dc);
    Kit.DrawHandles({MidRect}, HandleColor(), HandleShape);
    if (DrawBody)
        DrawBox(LineColor());
    else if (ClientPoints.size() == 2)
        Kit.DrawLine(ClientPoints[0], ClientPoints[1], 0, LineColor(), PS_SOLID);
}

void VostelSingleLine::DerivePainted()
{
    if (ClientPoints.size() != 2)
        return;
    const CPoint& a = ClientPoints[0];
    const CPoint& b = ClientPoints[1];
    MidPoint = CPoint(TruncToInt((static_cast<double>(a.x) + b.x) * 0.5),
                      TruncToInt((static_cast<double>(a.y) + b.y) * 0.5));
    const int radius = Scaled(HandleRadius);
    MidRect = CRect(WrapSub(MidPoint.x, radius), WrapSub(MidPoint.y, radius), WrapAdd(MidPoint.x, radius),
                    WrapAdd(MidPoint.y, radius));
    ClientBox = NormalisedBox(a, b);
    if (ImagePoints.size() == 2)
        ImageBox = NormalisedBox(CPoint(TruncToInt(ImagePoints[0].x), TruncToInt(ImagePoints[0].y)),
                                 CPoint(TruncToInt(ImagePoints[1].x), TruncToInt(ImagePoints[1].y)));
}

VostelMPoint::PointCounts VostelSingleLine::CountsTaken() const
{
    return {2, 2};
}

void VostelSingleLine::DrawBox(COLORREF color)
{
    // The box in whole client px ends up to two of them before the exact one.
    if (EllipseMode && DrawExactOutline(color))
        return;
    if (EllipseMode)
        Kit.DrawEllipseOutline(ClientBox, color);
    else
        Kit.DrawRectOutline(ClientBox, color);
}

}
