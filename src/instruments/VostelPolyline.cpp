#include "instruments/VostelPolyline.h"

#include "canvas/view/HitTests.h"

namespace vostel {

VostelPolyline::VostelPolyline()
{
    TypeCode = OverlayPolyline;
}

CString VostelPolyline::CaptionText() const
{
    return LengthText();
}

bool VostelPolyline::HitsMark(CPoint point) const
{
    return IsNearLine(ClientPoints, point, Scaled(HandleRadius));
}

void VostelPolyline::DrawMark()
{
    Kit.DrawOpenPolyline(ClientPoints, LineColor());
}

VostelMPoint::PointCounts VostelPolyline::CountsTaken() const
{
    return {.Fewest = 2};
}

}
