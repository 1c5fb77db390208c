#include "overlay/VostelPolygon.h"

namespace vostel {

VostelPolygon::VostelPolygon()
{
    TypeCode = OverlayPolygon;
}

void VostelPolygon::OnDraw(HDC dc)
{
    BindKit(dc);
    FillRegion();
    VostelMPoint::OnDraw(dc);
    Kit.DrawClosedPolyline(ClientPoints, LineColor());
}

std::optional<Outline> VostelPolygon::RegionOutline() const
{
    return OutlineOfCorners();
}

VostelMPoint::PointCounts VostelPolygon::CountsTaken() const
{
    return {.Fewest = FewestCorners};
}

}
