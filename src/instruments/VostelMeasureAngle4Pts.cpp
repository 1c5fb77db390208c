#include "instruments/VostelMeasureAngle4Pts.h"

#include "base/Truncate.h"
#include "geometry/Lengths.h"
#include "instruments/CaptionTexts.h"

#include <cstdint>

namespace vostel {

namespace {

constexpr double NearEnd = 100.0;    // client px from the press at its zoom; the far ends lie twice as far
constexpr int    GripRadius = 4;     // px
constexpr int    FarthestCross = 30000;    // client px; open-made lines that meet beyond end at their points

// A x + B y + C = 0 through two points. The integers are formed whole and then rounded to float once.
struct Line {
    float A, B, C;
};

Line LineThrough(CPoint p, CPoint q)
{
    const std::int64_t x0 = p.x, y0 = p.y, x1 = q.x, y1 = q.y;
    return {static_cast<float>(y1 - y0), static_cast<float>(x0 - x1), static_cast<float>(y0 * x1 - y1 * x0)};
}

}

VostelMeasureAngle4Pts::VostelMeasureAngle4Pts()
{
    TypeCode = OverlayAngle4Pts;
    MaxPoints = 4;
}

void VostelMeasureAngle4Pts::OnLButtonDown(unsigned int flags, CPoint point)
{
    BeginPress(point);
    if (PtInRect(&CrossBox, point))
        BeginMove();
    if ((flags & MK_SHIFT) != 0) {
        PlaceCross(point.x, point.y);
        if (static_cast<int>(ImagePoints.size()) >= MaxPoints)
            StartOver();
        const PointTemplateBase<double> at = ClientToImage(point);
        const double                    u = NearEnd * PixelRatio() / (View ? View->Scale : 1.0);
        ImagePoints.emplace_back(at.x, at.y - u);
        ImagePoints.emplace_back(at.x, at.y - 2.0 * u);
        ImagePoints.emplace_back(at.x + u, at.y);
        ImagePoints.emplace_back(at.x + 2.0 * u, at.y);
        RefreshClientGeometry();
        PlaceLabel(static_cast<float>(Cross.x) - static_cast<float>(Scaled(200)),
                   static_cast<float>(Cross.y) - static_cast<float>(Scaled(100)), 50.0f, 30.0f);
    }
    Label.OnLButtonDown(flags, point);
}

void VostelMeasureAngle4Pts::OnMouseMove(unsigned int flags, CPoint point)
{
    VostelMeasureAngle::OnMouseMove(flags, point);
    if (ImagePoints.size() == 4) {
        RefreshCross();
        UpdateLabel();
    }
}

void VostelMeasureAngle4Pts::SetCanvasView(CanvasView* view)
{
    VostelMeasureAngle::SetCanvasView(view);
    RefreshCross();
}

bool VostelMeasureAngle4Pts::Covers(CPoint point) const
{
    return PtInRect(&CrossBox, point) || VostelMeasureAngle::Covers(point);
}

void VostelMeasureAngle4Pts::OnDraw(HDC dc)
{
    BindKit(dc);
    Kit.DrawHandles(HandleRects, LineColor(), HandleShape);
    if (ImagePoints.size() == 4 && ClientPoints.size() == 4) {
        if (OpenMade) {
            Kit.DrawLine(ClientPoints[0], ClientPoints[1], 0, LineColor(), PS_SOLID);
            Kit.DrawLine(ClientPoints[2], ClientPoints[3], 0, LineColor(), PS_SOLID);
        }
        if (!OpenMade || IsCrossNear()) {
            Kit.DrawHandles({CrossBox}, Yellow, RoundHandles);
            for (const CPoint& end : ClientPoints)
                Kit.DrawLine(end, Cross, 0, LineColor(), PS_SOLID);
        }
        DrawLabel(dc, ClientPoints[0]);
    } else if (!OpenMade) {
        Label.OnDraw(dc);
    }
}

void VostelMeasureAngle4Pts::DerivePainted()
{
    RefreshCross();
    VostelMeasureAngle::DerivePainted();
}

VostelMPoint::PointCounts VostelMeasureAngle4Pts::CountsTaken() const
{
    return {4, 4};
}

// Where a gesture places it too, told from the first point: of any two lines the cross may lie far away.
void VostelMeasureAngle4Pts::PlaceFirstLabel()
{
    PlaceLabel(static_cast<float>(ClientPoints[0].x) - static_cast<float>(Scaled(200)),
               static_cast<float>(ClientPoints[0].y), 50.0f, 30.0f);
}

bool VostelMeasureAngle4Pts::IsCrossNear() const
{
    const CRect around(-FarthestCross, -FarthestCross, FarthestCross, FarthestCross);
    return PtInRect(&around, Cross) != 0;
}

void VostelMeasureAngle4Pts::PlaceCross(int x, int y)
{
    Cross = CPoint(x, y);
    const int radius = Scaled(GripRadius);
    CrossBox = CRect(WrapSub(x, radius), WrapSub(y, radius), WrapAdd(x, radius), WrapAdd(y, radius));
}

// Parallel lines divide by zero: the grip then lies where truncating an infinite value puts it.
void VostelMeasureAngle4Pts::RefreshCross()
{
    if (ClientPoints.size() != 4)
        return;
    const Line  first = LineThrough(ClientPoints[0], ClientPoints[1]);
    const Line  second = LineThrough(ClientPoints[2], ClientPoints[3]);
    const float d1 = second.A * first.B;
    const float d2 = second.B * first.A;
    const float x = (second.C * first.B - second.B * first.C) / (d2 - d1);
    const float y = (second.C * first.A - second.A * first.C) / (d1 - d2);
    PlaceCross(TruncToInt(x), TruncToInt(y));
}

CString VostelMeasureAngle4Pts::CaptionText() const
{
    if (ClientPoints.size() < 4 || ImagePoints.size() < 4)
        return CString();
    if (OpenMade)
        return AngleCaption(AngleBetween(ImagePoints[0], ImagePoints[1], ImagePoints[2], ImagePoints[3]),
                            Settings());
    return AngleText(WrapSub(Cross.x, ClientPoints[0].x), WrapSub(Cross.y, ClientPoints[0].y),
                     WrapSub(Cross.x, ClientPoints[2].x), WrapSub(Cross.y, ClientPoints[2].y));
}

}
