#include "instruments/VostelMarking.h"

#include "base/Truncate.h"
#include "canvas/view/HitTests.h"
#include "geometry/Lengths.h"
#include "instruments/CaptionTexts.h"

namespace vostel {

namespace {

const CPoint FirstLabelOffset(30, -50);    // px from the first point

}

VostelMarking::VostelMarking()
{
    OpenMade = true;
}

void VostelMarking::OnLButtonDown(unsigned int flags, CPoint point)
{
    const bool shift = (flags & MK_SHIFT) != 0;
    LabelHit = !shift && Label.Hits(point) && HitRectList(HandleRects, point) == -1;
    if (LabelHit) {
        Selected = ButtonDown = ShowHandles = true;
        LastPoint = point;
        EndMove();
        Label.OnLButtonDown(flags, point);
        return;
    }
    VostelMPoint::OnLButtonDown(flags, point);
    if (shift && !IsLabelPlaced() && View && !ImagePoints.empty())
        PlaceFirstLabel();
}

void VostelMarking::OnMouseMove(unsigned int flags, CPoint point)
{
    if (LabelHit) {
        VostelCaptioned::OnMouseMove(flags, point);
        return;
    }
    const ImagePoint before = CentroidOfPoints(ImagePoints);
    VostelMPoint::OnMouseMove(flags, point);
    if (IsMoving() && IsLabelPlaced()) {
        const ImagePoint now = CentroidOfPoints(ImagePoints);
        Label.MoveBy(now.x - before.x, now.y - before.y);
    }
}

void VostelMarking::OnKeyDown(unsigned int, unsigned int, unsigned int) {}

bool VostelMarking::Covers(CPoint point) const
{
    return VostelCaptioned::Covers(point) || HitsMark(point);
}

void VostelMarking::OnDraw(HDC dc)
{
    BindKit(dc);
    if (ClientPoints.empty())
        return;
    DrawMark();
    VostelMPoint::OnDraw(dc);
    if (IsLabelPlaced())
        DrawLabel(dc, ClientPoints[0]);
}

CString VostelMarking::LengthText() const
{
    const double          length = LengthOf(ImagePoints);
    const CanvasSettings* settings = Settings();
    return settings ? LengthCaption(length * settings->UnitsPerPixel, settings->Unit, settings)
                    : LengthCaption(length, L"px", settings);
}

void VostelMarking::PlaceFirstLabel()
{
    PlaceLabel(static_cast<float>(WrapAdd(ClientPoints[0].x, Scaled(FirstLabelOffset.x))),
               static_cast<float>(WrapAdd(ClientPoints[0].y, Scaled(FirstLabelOffset.y))), 0.0f, 0.0f);
}

}
