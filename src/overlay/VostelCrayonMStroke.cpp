#include "overlay/VostelCrayonMStroke.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr unsigned int WiderKey = 'A';
constexpr unsigned int ThinnerKey = 'D';
constexpr int          ThinnestPen = 1;
constexpr int          WidestPen = 40;
constexpr LONG         BoxStart = 10000;

}

VostelCrayonMStroke::VostelCrayonMStroke()
{
    TypeCode = OverlayMStroke;
}

void VostelCrayonMStroke::OnLButtonDown(unsigned int flags, CPoint point)
{
    LastPoint = point;
    ButtonDown = true;
    if ((flags & MK_SHIFT) != 0) {
        Selected = true;
        StrokeStarts.push_back(static_cast<int>(ImagePoints.size()));
        AddImagePoint(point);
    } else {
        StrokeBounds = StrokeBox();
        if (PtInRect(&StrokeBounds, point)) {
            BeginMove();
        } else {
            EndMove();
        }
    }
    RefreshClientGeometry();
}

// MoveState is left alone: a Shift stroke whose Shift is let go during the drag then moves the drawing.
void VostelCrayonMStroke::OnLButtonUp(unsigned int, CPoint)
{
    ButtonDown = false;
}

void VostelCrayonMStroke::OnMouseMove(unsigned int flags, CPoint point)
{
    if (ButtonDown) {
        if ((flags & MK_SHIFT) != 0)
            AddImagePoint(point);
        else if (IsMoving())
            MoveShape(point);
        RefreshClientGeometry();
    }
    LastPoint = point;
}

void VostelCrayonMStroke::OnKeyDown(unsigned int key, unsigned int, unsigned int)
{
    if (!Selected || Locked)
        return;
    if (key == WiderKey)
        ++StrokeWidth;
    else if (key == ThinnerKey)
        --StrokeWidth;
    StrokeWidth = std::clamp(StrokeWidth, ThinnestPen, WidestPen);
}

bool VostelCrayonMStroke::Covers(CPoint point) const
{
    const CRect box = StrokeBox();
    return PtInRect(&box, point) != 0;
}

bool VostelCrayonMStroke::HitTest(CPoint point)
{
    StrokeBounds = StrokeBox();
    return VostelMPoint::HitTest(point);
}

void VostelCrayonMStroke::OnDraw(HDC dc)
{
    ShowHandles = false;
    BindKit(dc);
    Kit.DrawSegments(ClientPoints, StrokeStarts, Scaled(LineWidth + StrokeWidth - 1), LineColor());
}

bool VostelCrayonMStroke::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    if (!VostelMPoint::TakePoints(points))
        return false;
    StrokeStarts.assign(1, 0);
    return true;
}

VostelMPoint::PointCounts VostelCrayonMStroke::CountsTaken() const
{
    return {.Fewest = 2};
}

CRect VostelCrayonMStroke::StrokeBox() const
{
    if (ClientPoints.size() < 2)
        return CRect();
    CRect box(BoxStart, BoxStart, -BoxStart, -BoxStart);
    for (const CPoint& point : ClientPoints) {
        box.left = std::min(box.left, point.x);
        box.top = std::min(box.top, point.y);
        box.right = std::max(box.right, point.x);
        box.bottom = std::max(box.bottom, point.y);
    }
    return box;
}

}
