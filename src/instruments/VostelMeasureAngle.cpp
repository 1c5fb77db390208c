#include "instruments/VostelMeasureAngle.h"

#include "canvas/view/HitTests.h"
#include "foundation/FormatText.h"
#include "geometry/Lengths.h"
#include "overlay/StateArchive.h"

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

bool VostelMeasureAngle::Hits(CPoint point) const
{
    return HitRectList(HandleRects, point) != -1 || Label.Hits(point);
}

bool VostelMeasureAngle::HitTest(CPoint point)
{
    LabelHit = Label.HitTest(point);
    return VostelMPoint::HitTest(point);
}

void VostelMeasureAngle::DerivePainted()
{
    VostelMPoint::DerivePainted();
    Label.DerivePainted();
}

bool VostelMeasureAngle::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    const ImagePoint before = CentroidOfPoints(ImagePoints);
    if (!VostelMPoint::TakePoints(points))
        return false;
    const ImagePoint now = CentroidOfPoints(ImagePoints);
    if (!Label.ImagePoints.empty())
        Label.MoveBy(now.x - before.x, now.y - before.y);
    else if (View)
        PlaceFirstLabel();
    return true;
}

void VostelMeasureAngle::Persist(StateArchive& archive)
{
    VostelMPoint::Persist(archive);
    Label.Persist(archive);
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

void VostelMeasureAngle::PlaceLabel(float x, float y, float width, float height)
{
    Label.SetPlacement(x, y, width, height);
    CString text = CaptionText();
    Label.SetTextAndFit(text);
}

void VostelMeasureAngle::DrawConnector(CPoint from)
{
    Kit.DrawLine(from, Label.NearestCorner(from), 0, Black, PS_DOT);
}

}
