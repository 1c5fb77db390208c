#include "overlay/VostelRect.h"

#include "canvas/view/HitTests.h"

#include <cmath>

namespace vostel {

VostelRect::VostelRect()
{
    TypeCode = OverlayRect;
}

void VostelRect::OnLButtonDown(unsigned int flags, CPoint point)
{
    VostelSingleLine::OnLButtonDown(flags, point);
    // The press of an open-made box has found its handle or interior already.
    if (!OpenMade && PtInRect(&ClientBox, point))
        BeginMove();
}

void VostelRect::OnMouseMove(unsigned int flags, CPoint point)
{
    VostelMPoint::OnMouseMove(flags, point);
}

// Boxes of other counts of points stay where they were derived last.
std::optional<Bounds> VostelRect::PlaceOnImage() const
{
    return ImagePoints.size() == 2 ? VostelSingleLine::PlaceOnImage() : std::nullopt;
}

Bounds VostelRect::DrawnBox() const
{
    Bounds box = VostelSingleLine::DrawnBox();
    if (ClientPoints.size() != 2)
        Cover(box, HUGE_VAL, HUGE_VAL);    // what was derived before is drawn
    Cover(box, MidRect.left, MidRect.top);
    Cover(box, MidRect.right, MidRect.bottom);
    return box;
}

bool VostelRect::Covers(CPoint point) const
{
    return ExactInterior(point).value_or(PtInRect(&ClientBox, point) != 0) ||
           HitRectList(HandleRects, point) != -1;
}

void VostelRect::OnDraw(HDC dc)
{
    DrawBody = true;
    BindKit(dc);
    FillRegion();
    VostelSingleLine::OnDraw(dc);
}

std::optional<Outline> VostelRect::RegionOutline() const
{
    if (ImagePoints.size() != 2)
        return std::nullopt;
    return EllipseMode ? Outline::OfEllipse(ImagePoints[0], ImagePoints[1])
                       : Outline::OfRectangle(ImagePoints[0], ImagePoints[1]);
}

}
