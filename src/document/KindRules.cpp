#include "document/KindRules.h"

#include "instruments/VostelArrow.h"
#include "instruments/VostelImaInfo.h"
#include "instruments/VostelLineProfile.h"
#include "instruments/VostelMeasureAngle3Pts.h"
#include "instruments/VostelMeasureAngle4Pts.h"
#include "instruments/VostelMeasureLine.h"
#include "instruments/VostelNeighborV.h"
#include "instruments/VostelPoints.h"
#include "instruments/VostelPolyline.h"
#include "instruments/VostelTextRect.h"
#include "overlay/VostelCrayonMStroke.h"
#include "overlay/VostelCrayonOneStroke.h"
#include "overlay/VostelCustomRect.h"
#include "overlay/VostelSpline.h"

namespace vostel {

ElementClass ClassOf(const VostelObj& object)
{
    return dynamic_cast<const VostelImaInfo*>(&object) ? ElementClass::ReadOut
                                                       : static_cast<ElementClass>(object.TypeCode);
}

bool IsKind(int kind)
{
    return kind >= 0 && MakeObject(static_cast<ElementClass>(kind));
}

bool IsRegion(int kind)
{
    return kind == OverlayRect || kind == OverlayCustomRect || kind == OverlayPolygon ||
           kind == OverlaySpline || kind == OverlayOneStroke;
}

std::unique_ptr<VostelObj> MakeObject(ElementClass objectClass)
{
    switch (static_cast<int>(objectClass)) {
    case static_cast<int>(ElementClass::ReadOut):
        return std::make_unique<VostelImaInfo>();
    case OverlayRect:
        return std::make_unique<VostelRect>();
    case OverlayCustomRect:
        return std::make_unique<VostelCustomRect>();
    case OverlayPolygon:
        return std::make_unique<VostelPolygon>();
    case OverlaySpline:
        return std::make_unique<VostelSpline>();
    case OverlayOneStroke:
        return std::make_unique<VostelCrayonOneStroke>();
    case OverlayTextRect:
        return std::make_unique<VostelTextRect>();
    case OverlayMStroke:
        return std::make_unique<VostelCrayonMStroke>();
    case OverlayMeasureLine:
        return std::make_unique<VostelMeasureLine>();
    case OverlayAngle3Pts:
        return std::make_unique<VostelMeasureAngle3Pts>();
    case OverlayAngle4Pts:
        return std::make_unique<VostelMeasureAngle4Pts>();
    case OverlayPanel:
        return std::make_unique<VostelTextML>();
    case OverlayNeighbours:
        return std::make_unique<VostelNeighborV>();
    case OverlayLineProfile:
        return std::make_unique<VostelLineProfile>();
    case OverlayPoints:
        return std::make_unique<VostelPoints>();
    case OverlayPolyline:
        return std::make_unique<VostelPolyline>();
    case OverlayArrow:
        return std::make_unique<VostelArrow>();
    default:
        return nullptr;
    }
}

ElementClass AddedClass(int kind)
{
    if (kind == OverlayPanel)
        return ElementClass::ReadOut;
    return static_cast<ElementClass>(kind == OverlayCustomRect ? OverlayRect : kind);
}

PointCounts PointCountsOf(int kind)
{
    constexpr std::size_t MostPoints = std::size_t(1) << 24;
    constexpr std::size_t MostNodes = 198;    // of a spline: what its solver takes
    switch (kind) {
    case OverlayPolygon:
    case OverlayOneStroke:
        return {3, MostPoints};
    case OverlaySpline:
        return {3, MostNodes};
    case OverlayTextRect:
    case OverlayPanel:
    case OverlayNeighbours:
        return {1, 1};
    case OverlayMStroke:
    case OverlayPolyline:
        return {2, MostPoints};
    case OverlayPoints:
        return {1, MostPoints};
    case OverlayAngle3Pts:
        return {3, 3};
    case OverlayAngle4Pts:
        return {4, 4};
    default:
        return {2, 2};
    }
}

Bounds BoundsOfObject(const VostelObj& object)
{
    if (const std::optional<Outline> outline = object.RegionOutline())
        return outline->BoundingBox();
    const std::vector<ImagePoint> points = object.GivePoints();
    return points.empty() ? Bounds() : BoundsOf(points);
}

const char* KindName(int kind)
{
    switch (kind) {
    case OverlayRect:
    case OverlayCustomRect:
        return "rectangle";
    case OverlayPolygon:
        return "polygon";
    case OverlaySpline:
        return "spline";
    case OverlayOneStroke:
        return "free region";
    case OverlayTextRect:
        return "text";
    case OverlayMStroke:
        return "strokes";
    case OverlayMeasureLine:
        return "length";
    case OverlayAngle3Pts:
    case OverlayAngle4Pts:
        return "angle";
    case OverlayPanel:
    case OverlayNeighbours:
        return "panel";
    case OverlayLineProfile:
        return "profile";
    case OverlayPoints:
        return "points";
    case OverlayPolyline:
        return "polyline";
    case OverlayArrow:
        return "arrow";
    default:
        return "object";
    }
}

}
