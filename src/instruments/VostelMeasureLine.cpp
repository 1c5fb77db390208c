#include "instruments/VostelMeasureLine.h"

#include "base/Truncate.h"
#include "canvas/view/HitTests.h"
#include "foundation/FormatText.h"

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
    if (ImagePoints.size() == 2 && LabelUnplaced) {
        LabelUnplaced = false;
        CString text = Caption();
        Label.SetTextAt(text, CPoint(WrapAdd(MidPoint.x, 100), WrapSub(MidPoint.y, 100)));
    }
    if (MeasureArmed)
        Label.OnLButtonUp(flags, point);
}

void VostelMeasureLine::OnMouseMove(unsigned int flags, CPoint point)
{
    if (!LabelHit)
        VostelSingleLine::OnMouseMove(flags, point);
    if (MeasureArmed) {
        CString text = Caption();
        Label.SetText(text);
        Label.OnMouseMove(flags, point);
    }
}

void VostelMeasureLine::SetCanvasView(CanvasView* view)
{
    VostelSingleLine::SetCanvasView(view);
    Label.SetCanvasView(view);
}

bool VostelMeasureLine::HitTest(CPoint point)
{
    LabelHit = Label.HitTest(point);
    Selected = PtInRect(&MidRect, point) || HitRectList(HandleRects, point) != -1 || Label.HitTest(point);
    return Selected;
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

CString VostelMeasureLine::Caption() const
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
