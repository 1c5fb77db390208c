#include "overlay/VostelMovableRect.h"

#include "base/Truncate.h"

namespace vostel {

namespace {

constexpr COLORREF FrameColor = RGB(218, 165, 105);

}

void VostelMovableRect::OnLButtonDown(unsigned int, CPoint point)
{
    ActiveNode = NoNode;
    ButtonDown = PtInRect(&ClientBox, point) != 0;
    LastPoint = point;
}

void VostelMovableRect::OnMouseMove(unsigned int, CPoint point)
{
    HoverPoint = point;
    if (!ButtonDown)
        return;
    OffsetRect(&ClientBox, WrapSub(point.x, LastPoint.x), WrapSub(point.y, LastPoint.y));
    LastPoint = point;
}

bool VostelMovableRect::HitTest(CPoint point)
{
    Selected = PtInRect(&ClientBox, point) != 0;
    return Selected;
}

void VostelMovableRect::SetPlacement(float x, float y, float w, float h)
{
    ClientBox.left = TruncToInt(x);
    ClientBox.top = TruncToInt(y);
    ClientBox.right = TruncToInt(static_cast<float>(ClientBox.left) + w);
    ClientBox.bottom = TruncToInt(static_cast<float>(ClientBox.top) + h);
}

void VostelMovableRect::OnDraw(HDC dc)
{
    BindKit(dc);
    Kit.DrawRectOutline(ClientBox, FrameColor);
}

}
