#include "overlay/VostelMPoint.h"

#include "base/Truncate.h"
#include "canvas/view/HitTests.h"
#include "canvas/view/VectorDrawing.h"
#include "overlay/InteriorFill.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr unsigned int EllipseKey = 'E';
constexpr unsigned int PlaceKey = 'I';
constexpr unsigned int TextKey = 'T';

double Clamped(double v, int extent)
{
    if (v < 0.0)
        v = 0.0;
    if (v > extent - 1.0)
        v = extent - 1.0;
    return v;
}

}

CRect NormalisedBox(CPoint a, CPoint b)
{
    return CRect(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y));
}

void VostelMPoint::OnLButtonDown(unsigned int flags, CPoint point)
{
    Selected = false;
    ButtonDown = true;
    LastPoint = point;
    ActiveNode = HitRectList(HandleRects, point);
    if (ActiveNode == NoNode) {
        const bool shift = (flags & MK_SHIFT) != 0;
        if (ClampToImage && (shift || !OpenMade))
            point = SnapIntoImage(point);
        if (shift) {
            if (static_cast<int>(ImagePoints.size()) >= MaxPoints)
                StartOver();
            AddImagePoint(point);
            if (ClickPerPoint == 0) {
                AddImagePoint(point);
                ActiveNode = static_cast<int>(ImagePoints.size()) - 1;
            }
            RefreshClientGeometry();
        }
        if (!HitTest(point)) {
            Selected = false;
            ShowHandles = TypeCode != OverlayPolygon;    // a polygon that is missed hides its handles
            return;
        }
        if (ActiveNode == NoNode && !shift)
            BeginMove();
    }
    ShowHandles = true;
    Selected = true;
}

void VostelMPoint::OnMouseMove(unsigned int flags, CPoint point)
{
    if (ActiveNode != NoNode) {
        MoveNode(point);
        RefreshClientGeometry();
    }
    // With Control the view is panned, not the shape. A node drag asks for no button: it runs to the release.
    if (IsMoving() && (flags & MK_LBUTTON) != 0 && (flags & MK_CONTROL) == 0) {
        MoveShape(point);
        RefreshClientGeometry();
    }
    // After the refresh: a clamped position shows at the next one.
    if (ClampToImage)
        ClampDragged();
    LastPoint = point;
}

void VostelMPoint::OnKeyDown(unsigned int key, unsigned int, unsigned int)
{
    constexpr float Place = 50.0f;
    if (Locked)
        return;
    if (key == EllipseKey) {
        if (!OpenMade || TypeCode <= OverlayCustomRect)    // the flag means nothing to others
            EllipseMode = !EllipseMode;
    } else if (key == PlaceKey) {
        SetPlacement(Place, Place, Place, Place);
    } else if (key == TextKey) {
        SetPlacement(Place, Place, Place, Place);
        CString text = L"这是一个测试";
        SetTextAndFit(text);
    }
}

void VostelMPoint::RefreshClientGeometry()
{
    if (ImagePoints.empty())
        return;
    BuildClientPoints();
    CalcHandleRects(ClientPoints, HandleRects, Scaled(HandleRadius));
}

bool VostelMPoint::Covers(CPoint point) const
{
    return ExactInterior(point).value_or(PointInPolygon(ClientPoints, point)) ||
           HitRectList(HandleRects, point) != -1;
}

bool VostelMPoint::HitTest(CPoint point)
{
    Selected = Hits(point);
    return Selected;
}

void VostelMPoint::OnDraw(HDC dc)
{
    BindKit(dc);
    if (ShowHandles)
        Kit.DrawHandles(HandleRects, HandleColor(), HandleShape);
}

void VostelMPoint::SetClickPerPoint(int mode)
{
    ClickPerPoint = mode;
}

void VostelMPoint::SetMaxPoints(int count)
{
    MaxPoints = count;
}

bool VostelMPoint::GetImagePoints(std::vector<PointTemplateBase<int>>& out)
{
    TruncateImagePoints(out);
    return true;
}

bool VostelMPoint::GetImagePolygon(std::vector<PointTemplateBase<int>>& out)
{
    if (ImagePoints.size() < FewestCorners)
        return false;
    TruncateImagePoints(out);
    return true;
}

bool VostelMPoint::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    const PointCounts counts = CountsTaken();
    if (points.size() < counts.Fewest || points.size() > counts.Most)
        return false;
    std::vector<PointTemplateBase<double>> before(points.begin(), points.end());
    ImagePoints.swap(before);
    EndMove();
    if (!View)
        return true;
    try {
        RefreshClientGeometry();
        DerivePainted();
    } catch (...) {
        ImagePoints.swap(before);
        ClientPoints.clear();
        HandleRects.clear();
        RefreshClientGeometry();    // of no more points than there was room for
        throw;
    }
    return true;
}

VostelMPoint::PointCounts VostelMPoint::CountsTaken() const
{
    return {};
}

void VostelMPoint::AddImagePoint(CPoint point, PointTemplateBase<double> offset)
{
    const PointTemplateBase<double> imagePoint = ClientToImage(point);
    ImagePoints.emplace_back(imagePoint.x + offset.x, imagePoint.y + offset.y);
}

void VostelMPoint::MoveNode(CPoint point)
{
    if (ActiveNode < 0 || static_cast<std::size_t>(ActiveNode) >= ImagePoints.size())
        return;
    StepSince(point);
    PointTemplateBase<double>& node = ImagePoints[static_cast<std::size_t>(ActiveNode)];
    node.x += LastDeltaX;
    node.y += LastDeltaY;
}

void VostelMPoint::MoveShape(CPoint point)
{
    StepSince(point);
    for (PointTemplateBase<double>& node : ImagePoints) {
        node.x += LastDeltaX;
        node.y += LastDeltaY;
    }
}

void VostelMPoint::ClampImagePoints()
{
    if (!View)
        return;
    for (PointTemplateBase<double>& node : ImagePoints)
        ClampNode(node);
}

void VostelMPoint::ClampDragged()
{
    if (!OpenMade || IsMoving())
        ClampImagePoints();
    else if (View && ActiveNode >= 0 && static_cast<std::size_t>(ActiveNode) < ImagePoints.size())
        ClampNode(ImagePoints[static_cast<std::size_t>(ActiveNode)]);
}

void VostelMPoint::ClampNode(PointTemplateBase<double>& node) const
{
    node.x = Clamped(node.x, View->ImageWidth);
    node.y = Clamped(node.y, View->ImageHeight);
}

void VostelMPoint::BuildClientPoints()
{
    if (!FixedSize) {
        ClientPoints.resize(ImagePoints.size());
        for (std::size_t i = 0; i < ImagePoints.size(); ++i)
            ClientPoints[i] = ImageToClient(ImagePoints[i]);
        return;
    }
    // Corners that are no whole px round the sizes that are kept.
    const double half = OpenMade ? 0.5 : 0.0;
    // Only a box of two points keeps its size on the screen; other counts have no place to keep.
    ClientPoints.assign(ImagePoints.size(), CPoint());
    if (ImagePoints.size() != 2)
        return;
    ClientPoints[0] = ImageToClient(ImagePoints[0]);
    ClientPoints[1].x = WrapAdd(ClientPoints[0].x, TruncToInt(ImagePoints[1].x - ImagePoints[0].x + half));
    ClientPoints[1].y = WrapAdd(ClientPoints[0].y, TruncToInt(ImagePoints[1].y - ImagePoints[0].y + half));
}

std::optional<bool> VostelMPoint::ExactInterior(CPoint point) const
{
    const std::optional<Outline> outline = OpenMade && View ? RegionOutline() : std::nullopt;
    if (!outline)
        return std::nullopt;
    return IsInsideOutline(ClientOutline(*outline, *View), point);
}

bool VostelMPoint::DrawExactOutline(COLORREF color)
{
    constexpr double             flatness = 0.25;    // client px
    constexpr double             leastCurved = 2.0;
    const std::optional<Outline> outline = OpenMade && !FixedSize && View ? RegionOutline() : std::nullopt;
    if (!outline)
        return false;
    const Outline client = ClientOutline(*outline, *View);
    const Bounds  box = client.BoundingBox();
    if (Kit.Recorder && box.Right - box.Left > leastCurved && box.Bottom - box.Top > leastCurved) {
        Kit.Recorder->AddOutline(client, Kit.PenWidth, color);
        return true;
    }
    std::vector<CPoint> polygon;
    for (const ImagePoint& point : client.Flattened(flatness))
        polygon.emplace_back(TruncToInt(point.x), TruncToInt(point.y));
    Kit.DrawClosedPolyline(polygon, color);
    return !polygon.empty();
}

void VostelMPoint::FillRegion()
{
    if (FillColor >> 24 == 0 || !View)
        return;
    if (const std::optional<Outline> outline = RegionOutline())
        FillInterior(Kit, ClientOutline(*outline, *View), FillColor);
}

void VostelMPoint::StartOver()
{
    ImagePoints.clear();
    ClientPoints.clear();
    HandleRects.clear();
}

CPoint VostelMPoint::SnapIntoImage(CPoint point) const
{
    if (!View)
        return point;
    PointTemplateBase<double> imagePoint = View->ClientToImage(point);
    imagePoint.x = Clamped(imagePoint.x, View->ImageWidth);
    imagePoint.y = Clamped(imagePoint.y, View->ImageHeight);
    return View->ImageToClient(imagePoint);
}

std::optional<Outline> VostelMPoint::OutlineOfCorners() const
{
    if (ImagePoints.size() < FewestCorners)
        return std::nullopt;
    return Outline::OfPolygon(ImagePoints);
}

void VostelMPoint::TruncateImagePoints(std::vector<PointTemplateBase<int>>& out) const
{
    out.resize(ImagePoints.size());
    for (std::size_t i = 0; i < ImagePoints.size(); ++i)
        out[i] = PointTemplateBase<int>(TruncToInt(ImagePoints[i].x), TruncToInt(ImagePoints[i].y));
}

// The drag step in image px. Without a view the last step stands.
void VostelMPoint::StepSince(CPoint point)
{
    if (!View)
        return;
    LastDeltaX = WrapSub(point.x, LastPoint.x) / View->Scale;
    LastDeltaY = WrapSub(point.y, LastPoint.y) / View->Scale;
}

}
