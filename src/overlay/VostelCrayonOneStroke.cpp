#include "overlay/VostelCrayonOneStroke.h"

#include "canvas/view/HitTests.h"
#include "overlay/StateArchive.h"

namespace vostel {

VostelCrayonOneStroke::VostelCrayonOneStroke()
{
    TypeCode = OverlayOneStroke;
}

void VostelCrayonOneStroke::OnLButtonDown(unsigned int flags, CPoint point)
{
    ButtonDown = true;
    LastPoint = point;
    if ((flags & MK_SHIFT) != 0) {
        if (ClampToImage)
            point = SnapIntoImage(point);
        AddImagePoint(point);
        StrokeDone = false;
    }
    if (!StrokeDone)
        return;
    if (ExactInterior(point).value_or(PointInPolygon(ClientPoints, point))) {
        BeginMove();
    } else {
        EndMove();
    }
}

void VostelCrayonOneStroke::OnLButtonUp(unsigned int, CPoint)
{
    ButtonDown = false;
    EndMove();
    StrokeDone = true;
}

void VostelCrayonOneStroke::OnMouseMove(unsigned int flags, CPoint point)
{
    // No refresh here: the canvas refreshes every object on each move.
    if (IsMoving() && (flags & MK_CONTROL) == 0) {
        MoveShape(point);
        if (ClampToImage)
            ClampImagePoints();
    }
    if (!StrokeDone) {
        AddImagePoint(point);
        if (ClampToImage)
            ClampImagePoints();
        RefreshClientGeometry();
    }
    LastPoint = point;
}

void VostelCrayonOneStroke::OnDraw(HDC dc)
{
    BindKit(dc);
    FillRegion();
    Kit.DrawClosedPolyline(ClientPoints, LineColor());
}

bool VostelCrayonOneStroke::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    if (!VostelMPoint::TakePoints(points))
        return false;
    StrokeDone = true;
    return true;
}

std::optional<Outline> VostelCrayonOneStroke::RegionOutline() const
{
    return OutlineOfCorners();
}

void VostelCrayonOneStroke::Persist(StateArchive& archive)
{
    VostelMPoint::Persist(archive);
    archive(StrokeDone);
}

VostelMPoint::PointCounts VostelCrayonOneStroke::CountsTaken() const
{
    return {.Fewest = FewestCorners};
}

}
