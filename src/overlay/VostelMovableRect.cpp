#include "overlay/VostelMovableRect.h"

#include "base/Truncate.h"
#include "overlay/StateArchive.h"

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

bool VostelMovableRect::Covers(CPoint point) const
{
    return PtInRect(&ClientBox, point) != 0;
}

bool VostelMovableRect::HitTest(CPoint point)
{
    Selected = Hits(point);
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

std::vector<PointTemplateBase<double>> VostelMovableRect::GivePoints() const
{
    return {PointTemplateBase<double>(ClientBox.left, ClientBox.top)};
}

bool VostelMovableRect::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    if (points.size() != 1)
        return false;
    MoveCorner(CPoint(TruncToInt(points[0].x), TruncToInt(points[0].y)));
    ButtonDown = false;
    return true;
}

// The size belongs to what the panel shows.
void VostelMovableRect::Persist(StateArchive& archive)
{
    VostelObj::Persist(archive);
    CPoint corner(ClientBox.left, ClientBox.top);
    archive(corner);
    MoveCorner(corner);
}

void VostelMovableRect::MoveCorner(CPoint corner)
{
    OffsetRect(&ClientBox, WrapSub(corner.x, ClientBox.left), WrapSub(corner.y, ClientBox.top));
}

}
