#include "instruments/VostelMeasureLine.h"

#include "base/Truncate.h"
#include "canvas/view/HitTests.h"
#include "geometry/Lengths.h"
#include "instruments/CaptionTexts.h"
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
    if (OpenMade && (flags & MK_SHIFT) != 0)
        LabelUnplaced = true;    // the caption of a new line finds a new place
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
        if (OpenMade)
            RefreshLabel();
        else
            Label.SetText(text);
        Label.OnMouseMove(flags, point);
    }
}

void VostelMeasureLine::SetCanvasView(CanvasView* view)
{
    VostelSingleLine::SetCanvasView(view);
    Label.SetCanvasView(view);
}

bool VostelMeasureLine::Covers(CPoint point) const
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
    if (!ShowsCaptions())
        return;
    RefreshLabel();
    if (OpenMade ? !LabelUnplaced : MeasureArmed)
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
    RefreshLabel();
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
    Label.PersistCaption(archive, OpenMade);
}

void VostelMeasureLine::PlaceLabel()
{
    LabelUnplaced = false;
    CString      text = CaptionText();
    const CPoint at(WrapAdd(MidPoint.x, Scaled(100)), WrapSub(MidPoint.y, Scaled(100)));
    if (OpenMade)
        Label.PlaceCaption(text, at, StyleHeight);
    else
        Label.SetTextAt(text, at);
}

void VostelMeasureLine::RefreshLabel()
{
    if (OpenMade && !LabelUnplaced)
        Label.ShowCaption(CaptionText(), StyleHeight);
}

CString VostelMeasureLine::CaptionText() const
{
    double length = 0.0;
    if (OpenMade && View)
        return LengthCaption(LengthOf(ImagePoints) * View->Settings.UnitsPerPixel, View->Settings.Unit,
                             &View->Settings);
    if (ImagePoints.size() == 2) {
        const double dx = ImagePoints[0].x - ImagePoints[1].x;
        const double dy = ImagePoints[0].y - ImagePoints[1].y;
        length = std::sqrt(dx * dx + dy * dy);
    }
    return LengthCaption(length * MeasureScale, L"mm", Settings());
}

}
