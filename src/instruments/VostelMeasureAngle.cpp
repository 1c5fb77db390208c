#include "instruments/VostelMeasureAngle.h"

#include "canvas/view/HitTests.h"
#include "foundation/FormatText.h"

#include <cmath>

namespace vostel {

namespace {

constexpr double DegreesPerRadian = 57.295780490442965;    // 180 / 3.1415926

}

VostelMeasureAngle::VostelMeasureAngle()
{
    ClampToImage = false;
}

void VostelMeasureAngle::OnLButtonUp(unsigned int flags, CPoint point)
{
    VostelMPoint::OnLButtonUp(flags, point);
    Label.OnLButtonUp(flags, point);
}

void VostelMeasureAngle::OnMouseMove(unsigned int flags, CPoint point)
{
    VostelMPoint::OnMouseMove(flags, point);
    Label.OnMouseMove(flags, point);
}

void VostelMeasureAngle::SetCanvasView(CanvasView* view)
{
    VostelMPoint::SetCanvasView(view);
    Label.SetCanvasView(view);
}

void VostelMeasureAngle::BeginPress(CPoint point)
{
    ButtonDown = true;
    LastPoint = point;
    ActiveNode = HitRectList(HandleRects, point);
}

// Directions without length give no number, which is what the caption then shows.
CString VostelMeasureAngle::AngleText(double ax, double ay, double bx, double by)
{
    const double angle =
        std::acos((by * ay + bx * ax) / std::sqrt((by * by + bx * bx) * (ay * ay + ax * ax))) *
        DegreesPerRadian;
    return FormatText(L"角度 = %3.3f 度", angle);
}

void VostelMeasureAngle::DrawConnector(CPoint from)
{
    Kit.DrawLine(from, Label.NearestCorner(from), 0, Black, PS_DOT);
}

}
