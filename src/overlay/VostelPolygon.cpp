#include "overlay/VostelPolygon.h"

namespace vostel {

VostelPolygon::VostelPolygon()
{
    TypeCode = OverlayPolygon;
}

void VostelPolygon::OnDraw(HDC dc)
{
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
