#include "overlay/VostelRect.h"

#include "canvas/view/HitTests.h"

namespace vostel {

VostelRect::VostelRect()
{
    TypeCode = OverlayRect;
}

void VostelRect::OnLButtonDown(unsigned int flags, CPoint point)
{
    VostelSingleLine::OnLButtonDown(flags, point);
    if (PtInRect(&ClientBox, point))
        BeginMove();
}

void VostelRect::OnMouseMove(unsigned int flags, CPoint point)
{
    VostelMPoint::OnMouseMove(flags, point);
}

bool VostelRect::HitTest(CPoint point)
{
    Selected = PtInRect(&ClientBox, point) || HitRectList(HandleRects, point) != -1;
    return Selected;
}

void VostelRect::OnDraw(HDC dc)
{
    DrawBody = true;
    VostelSingleLine::OnDraw(dc);
}

}
