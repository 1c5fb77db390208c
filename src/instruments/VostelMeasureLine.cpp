#include "instruments/VostelMeasureLine.h"

#include "base/Truncate.h"
#include "canvas/view/HitTests.h"
#include "foundation/FormatText.h"
#include "geometry/Lengths.h"
#include "overlay/StateArchive.h"

#include <cmath>

namespace vostel {

VostelMeasureLine::VostelMeasureLine()
{
    TypeCode = OverlayMeasureLine;
    ClampToImage = false;
}

void VostelMeasureLine::OnLButtonDown(unsigned int flags, CPoint point)
{
    VostelSingleLine::OnLButtonDown(flags, point);
    if (ImagePoints.size() == 2)
        MeasureArmed = true;
    if (MeasureArmed)
        Label.OnLButtonDown(flags, point);
}

void VostelMeasureLine::OnLButtonUp(unsigned int flags, CPoint point)
{
    VostelSingleLine::OnLButtonUp(flags, point);
    if (ImagePoints.size() == 2 && LabelUnplaced)
        PlaceLabel();
    if (MeasureArmed)
        Label.OnLButtonUp(flags, point);
}

void VostelMeasureLine::OnMouseMove(unsigned int flags, CPoint point)
{
    if (!LabelHit)
        VostelSingleLine::OnMouseMove(flags, point);
    if (MeasureArmed) {
        CString text = CaptionText();
        Label.SetText(text);
        Label.OnMouseMove(flags, point);
    }
}

void VostelMeasureLine::SetCanvasView(CanvasView* view)
{
    VostelSingleLine::SetCanvasView(view);
    Label.SetCanvasView(view);
}

bool VostelMeasureLine::Hits(CPoint point) const
{
    return PtInRect(&MidRect, point) || HitRectList(HandleRects, point) != -1 || Label.Hits(point);
}

bool VostelMeasureLine::HitTest(CPoint point)
{
    LabelHit = Label.HitTest(point);
    return VostelSingleLine::HitTest(point);
}

void VostelMeasureLine::OnDraw(HDC dc)
{
    VostelSingleLine::OnDraw(dc);
    if (MeasureArmed)
        Label.OnDraw(dc);
    if (!LabelUnplaced)
        Kit.DrawLine(MidPoint, Label.NearestCorner(MidPoint), 0, Black, PS_DOT);
}

CString VostelMeasureLine::GetResultText()
{
    return Label.GetResultText();
}

void VostelMeasureLine::DerivePainted()
{
    VostelSingleLine::DerivePainted();
    Label.DerivePainted();
}

bool VostelMeasureLine::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    const ImagePoint before = CentroidOfPoints(ImagePoints);
    if (!VostelSingleLine::TakePoints(points))
        return false;
    MeasureArmed = true;
    const ImagePoint now = CentroidOfPoints(ImagePoints);
    if (!LabelUnplaced)
        Label.MoveBy(now.x - before.x, now.y - before.y);
    else if (View)
        PlaceLabel();
    return true;
}

void VostelMeasureLine::Persist(StateArchive& archive)
{
    VostelSingleLine::Persist(archive);
    archive(LabelUnplaced);
    Label.Persist(archive);
}

void VostelMeasureLine::PlaceLabel()
{
    LabelUnplaced = false;
    CString text = CaptionText();
    Label.SetTextAt(text, CPoint(WrapAdd(MidPoint.x, 100), WrapSub(MidPoint.y, 100)));
}

CString VostelMeasureLine::CaptionText() const
{
    double length = 0.0;
    if (ImagePoints.size() == 2) {
        const double dx = ImagePoints[0].x - ImagePoints[1].x;
        const double dy = ImagePoints[0].y - ImagePoints[1].y;
        length = std::sqrt(dx * dx + dy * dy);
    }
    return FormatText(L"长度 = %4.3f mm", length * MeasureScale);
}

}
