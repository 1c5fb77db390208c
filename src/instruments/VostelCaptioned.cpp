#include "instruments/VostelCaptioned.h"

#include "base/Truncate.h"
#include "canvas/view/HitTests.h"
#include "geometry/Lengths.h"
#include "overlay/StateArchive.h"

namespace vostel {

void VostelCaptioned::OnLButtonUp(unsigned int flags, CPoint point)
{
    VostelMPoint::OnLButtonUp(flags, point);
    Label.OnLButtonUp(flags, point);
}

void VostelCaptioned::OnMouseMove(unsigned int flags, CPoint point)
{
    VostelMPoint::OnMouseMove(flags, point);
    Label.OnMouseMove(flags, point);
}

void VostelCaptioned::SetCanvasView(CanvasView* view)
{
    VostelMPoint::SetCanvasView(view);
    Label.SetCanvasView(view);
}

bool VostelCaptioned::Covers(CPoint point) const
{
    return HitRectList(HandleRects, point) != -1 || Label.Hits(point);
}

bool VostelCaptioned::HitTest(CPoint point)
{
    LabelHit = Label.HitTest(point);
    return VostelMPoint::HitTest(point);
}

void VostelCaptioned::DerivePainted()
{
    VostelMPoint::DerivePainted();
    RefreshLabel();
    Label.DerivePainted();
}

bool VostelCaptioned::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    const ImagePoint before = CentroidOfPoints(ImagePoints);
    if (!VostelMPoint::TakePoints(points))
        return false;
    const ImagePoint now = CentroidOfPoints(ImagePoints);
    if (IsLabelPlaced())
        Label.MoveBy(now.x - before.x, now.y - before.y);
    else if (View)
        PlaceFirstLabel();
    return true;
}

void VostelCaptioned::Persist(StateArchive& archive)
{
    VostelMPoint::Persist(archive);
    Label.PersistCaption(archive, OpenMade);
}

void VostelCaptioned::PlaceLabel(float x, float y, float width, float height)
{
    CString text = CaptionText();
    if (OpenMade) {
        Label.PlaceCaption(text, CPoint(TruncToInt(x), TruncToInt(y)), StyleHeight);
        return;
    }
    Label.SetPlacement(x, y, width, height);
    Label.SetTextAndFit(text);
}

void VostelCaptioned::DrawLabel(HDC dc, CPoint from)
{
    if (!ShowsCaptions())
        return;
    RefreshLabel();
    Kit.DrawLine(from, Label.NearestCorner(from), 0, Black, PS_DOT);
    Label.OnDraw(dc);
}

void VostelCaptioned::UpdateLabel()
{
    CString text = CaptionText();
    if (OpenMade)
        RefreshLabel();
    else
        Label.SetText(text);
}

void VostelCaptioned::RefreshLabel()
{
    if (OpenMade && IsLabelPlaced())
        Label.ShowCaption(CaptionText(), StyleHeight);
}

}
