#include "overlay/VostelSpline.h"

#include "base/Truncate.h"
#include "vostel/RasterFills.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace vostel {

namespace {

constexpr std::size_t  MostNodes = 198;    // that mB3Line solves, with the first one repeated
constexpr std::int64_t OutlineStep = 4;    // client px, |dx| + |dy|

std::int64_t Distance(PointTemplateBase<int> a, PointTemplateBase<int> b)
{
    return std::llabs(static_cast<std::int64_t>(a.x) - b.x) +
           std::llabs(static_cast<std::int64_t>(a.y) - b.y);
}

// By the bit: a zero may have another sign in the curve.
bool IsSame(const std::vector<PointTemplateBase<double>>& a, const std::vector<PointTemplateBase<double>>& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0;
}

}

VostelSpline::VostelSpline()
{
    TypeCode = OverlaySpline;
}

void VostelSpline::OnDraw(HDC dc)
{
    BindKit(dc);
    DerivePainted();
    FillRegion();
    // Ten samples a segment lie far apart at high scales, between nodes in whole client px.
    if (!DrawExactOutline(LineColor()))
        Kit.DrawClosedPolyline(CurvePoints, LineColor());
    // Always round, always shown and always in the line color, unlike the handles of other shapes.
    Kit.DrawHandles(HandleRects, LineColor(), RoundHandles);
}

void VostelSpline::DerivePainted()
{
    ClientCount = static_cast<int>(ClientPoints.size());
    if (!HasSolved()) {
        IsSolved = false;
        ClosedNodes.clear();
        CurvePoints.clear();
        ControlPoints.clear();
        for (const CPoint& point : ClientPoints)
            ClosedNodes.emplace_back(point.x, point.y);
        if (!ClosedNodes.empty())
            ClosedNodes.push_back(ClosedNodes.front());
        if (ClientCount > 1)
            mB3Line(ClosedNodes, CurvePoints, ControlPoints);
        IsSolved = true;
    }
    if (OpenMade && ImagePoints.size() >= FewestCorners && !IsSame(ExactNodes, ImagePoints)) {
        ExactNodes.clear();
        ExactCurve = Outline::OfSpline(ImagePoints);
        ExactNodes = ImagePoints;
    }
}

bool VostelSpline::HasSolved() const
{
    return IsSolved && ClosedNodes.size() == ClientPoints.size() + (ClientPoints.empty() ? 0 : 1) &&
           std::equal(ClientPoints.begin(), ClientPoints.end(), ClosedNodes.begin(),
                      [](CPoint a, PointTemplateBase<int> b) { return a.x == b.x && a.y == b.y; });
}

std::optional<Bounds> VostelSpline::PlaceOnImage() const
{
    const std::optional<Outline> curve = FixedSize ? std::nullopt : RegionOutline();
    return curve ? std::optional(curve->BoundingBox()) : std::nullopt;
}

Bounds VostelSpline::DrawnBox() const
{
    Bounds box = VostelPolygon::DrawnBox();
    for (const PointTemplateBase<int>& point : CurvePoints)
        Cover(box, point.x, point.y);
    return box;
}

bool VostelSpline::GetLabelOutline(std::vector<PointTemplateBase<int>>& out)
{
    if (CurvePoints.size() < 3)
        return false;
    std::vector<PointTemplateBase<int>> kept;
    PointTemplateBase<int>              reference = CurvePoints[0];
    for (std::size_t i = 1; i < CurvePoints.size(); ++i) {
        if (Distance(reference, CurvePoints[i]) >= OutlineStep) {
            kept.push_back(reference);
            reference = CurvePoints[i];
        }
    }
    if (Distance(CurvePoints[CurvePoints.size() - 2], CurvePoints.back()) >= OutlineStep)
        kept.push_back(CurvePoints.back());
    out.clear();
    for (const PointTemplateBase<int>& point : kept) {
        const PointTemplateBase<double> imagePoint = ClientToImage(CPoint(point.x, point.y));
        out.emplace_back(TruncToInt(imagePoint.x), TruncToInt(imagePoint.y));
    }
    return true;
}

void VostelSpline::ClearPoints()
{
    VostelPolygon::ClearPoints();
    // Assigning {} would keep the storage.
    std::vector<PointTemplateBase<int>>().swap(ClosedNodes);
    std::vector<PointTemplateBase<int>>().swap(ControlPoints);
    std::vector<PointTemplateBase<int>>().swap(CurvePoints);
    std::vector<PointTemplateBase<double>>().swap(ExactNodes);
    ExactCurve = Outline();
    IsSolved = false;
}

std::optional<Outline> VostelSpline::RegionOutline() const
{
    if (ImagePoints.size() < FewestCorners)
        return std::nullopt;
    return IsSame(ExactNodes, ImagePoints) ? ExactCurve : Outline::OfSpline(ImagePoints);
}

VostelMPoint::PointCounts VostelSpline::CountsTaken() const
{
    return {FewestCorners, MostNodes};
}

}
