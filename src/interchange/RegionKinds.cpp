#include "interchange/RegionKinds.h"

#include "document/KindRules.h"
#include "document/ObjectLooks.h"
#include "geometry/Keyhole.h"

#include <algorithm>
#include <cmath>

namespace vostel {

namespace {

// Files of others may have rounded coordinates to a few places.
constexpr double RoundedBy = 1e-3;    // px

constexpr double Farthest = 1e150;    // px; areas and curves are finite as far as that

bool Fits(int kind, std::size_t points)
{
    const PointCounts counts = PointCountsOf(kind);
    return points >= counts.Least && points <= counts.Most;
}

}

std::string KindWord(const FileObject& object)
{
    return (object.Flags & VOSTEL_ELLIPSE) != 0 ? "ellipse" : KindName(object.Kind);
}

std::optional<NamedKind> KindOfWord(std::string_view word, std::size_t points)
{
    if (word == "ellipse" && points == 2)
        return NamedKind{VOSTEL_RECTANGLE, VOSTEL_ELLIPSE};
    for (int kind = 0; kind <= VOSTEL_ARROW; ++kind) {
        if (IsKind(kind) && word == KindName(kind) && Fits(kind, points))
            return NamedKind{kind, 0};
    }
    return std::nullopt;
}

bool IsWhole(const FileObject& object)
{
    return Fits(object.Kind, object.Points.size()) &&
           std::all_of(object.Points.begin(), object.Points.end(), [](const ImagePoint& point) {
               return std::fabs(point.x) <= Farthest && std::fabs(point.y) <= Farthest;
           });
}

Outline ExactOutline(const FileObject& region)
{
    switch (region.Kind) {
    case VOSTEL_RECTANGLE:
    case VOSTEL_CUSTOM_RECTANGLE:
        return (region.Flags & VOSTEL_ELLIPSE) != 0
                   ? Outline::OfEllipse(region.Points[0], region.Points[1])
                   : Outline::OfRectangle(region.Points[0], region.Points[1]);
    case VOSTEL_SPLINE:
        return Outline::OfSpline(region.Points);
    default:
        return Outline::OfPolygon(region.Points);
    }
}

void RestoreRegion(FileObject& polygon, const NamedKind& kind, const std::vector<ImagePoint>& points)
{
    FileObject restored = polygon;
    restored.Kind = kind.Kind;
    restored.Flags |= kind.Flags;
    if (!points.empty())
        restored.Points = points;
    const std::optional<Bounds> box = points.empty() ? BoxOf(polygon.Points) : std::nullopt;
    if (box && kind.Kind == VOSTEL_RECTANGLE)
        restored.Points = {{box->Left, box->Top}, {box->Right, box->Bottom}};
    if (IsRegion(restored.Kind) && IsWhole(restored) &&
        AreSameRing(ExactOutline(restored).Flattened(OutlineTolerance), polygon.Points, RoundedBy))
        polygon = std::move(restored);
}

std::optional<Bounds> BoxOf(const std::vector<ImagePoint>& ring)
{
    if (ring.size() != 4)
        return std::nullopt;
    const Bounds box = BoundsOf(ring);
    const Ring   corners = Outline::OfRectangle({box.Left, box.Top}, {box.Right, box.Bottom}).Flattened(1.0);
    return AreSameRing(corners, ring, 0.0) ? std::optional(box) : std::nullopt;
}

}
