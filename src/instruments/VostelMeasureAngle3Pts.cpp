#include "instruments/VostelMeasureAngle3Pts.h"

#include "geometry/Lengths.h"
#include "instruments/CaptionTexts.h"

#include <array>
#include <utility>

namespace vostel {

namespace {

constexpr double ArmLength = 150.0;    // client px at the zoom of the press

}

VostelMeasureAngle3Pts::VostelMeasureAngle3Pts()
{
    TypeCode = OverlayAngle3Pts;
    MaxPoints = 3;
}

void VostelMeasureAngle3Pts::OnLButtonDown(unsigned int flags, CPoint point)
{
    BeginPress(point);
    if (ActiveNode == 0)
        BeginMove();    // the vertex drags the whole shape
    if ((flags & MK_SHIFT) != 0) {
        if (static_cast<int>(ImagePoints.size()) >= MaxPoints)
            StartOver();
        const PointTemplateBase<double> at = ClientToImage(point);
        const double                    arm = ArmLength * PixelRatio() / (View ? View->Scale : 1.0);
        ImagePoints.emplace_back(at.x, at.y);
        ImagePoints.emplace_back(at.x, at.y - arm);
        ImagePoints.emplace_back(at.x + arm, at.y);
        RefreshClientGeometry();
        PlaceFirstLabel();
    }
    Label.OnLButtonDown(flags, point);
}

void VostelMeasureAngle3Pts::OnMouseMove(unsigned int flags, CPoint point)
{
    VostelMeasureAngle::OnMouseMove(flags, point);
    if (ClientPoints.size() == 3) {
        UpdateLabel();
    }
}

void VostelMeasureAngle3Pts::OnDraw(HDC dc)
{
    BindKit(dc);
    Kit.DrawHandles(HandleRects, LineColor(), HandleShape);
    if (ClientPoints.size() == 3) {
        Kit.DrawLine(ClientPoints[0], ClientPoints[1], 0, LineColor(), PS_SOLID);
        Kit.DrawLine(ClientPoints[0], ClientPoints[2], 0, LineColor(), PS_SOLID);
        DrawLabel(dc, ClientPoints[0]);
    } else if (!OpenMade) {
        Label.OnDraw(dc);
    }
}

std::vector<PointTemplateBase<double>> VostelMeasureAngle3Pts::GivePoints() const
{
    std::vector<PointTemplateBase<double>> points = ImagePoints;
    if (points.size() >= 2)
        std::swap(points[0], points[1]);
    return points;
}

bool VostelMeasureAngle3Pts::TakePoints(std::span<const PointTemplateBase<double>> points)
{
    if (points.size() != 3)
        return false;
    return VostelMeasureAngle::TakePoints(std::array{points[1], points[0], points[2]});
}

VostelMPoint::PointCounts VostelMeasureAngle3Pts::CountsTaken() const
{
    return {3, 3};
}

void VostelMeasureAngle3Pts::PlaceFirstLabel()
{
    const float offset = static_cast<float>(Scaled(100));
    PlaceLabel(static_cast<float>(ClientPoints[0].x) - offset, static_cast<float>(ClientPoints[0].y) - offset,
               0.0f, 0.0f);
}

CString VostelMeasureAngle3Pts::CaptionText() const
{
    if (ImagePoints.size() < 3)
        return CString();
    const PointTemplateBase<double>& vertex = ImagePoints[0];
    if (OpenMade)
        return AngleCaption(AngleBetween(vertex, ImagePoints[1], vertex, ImagePoints[2]), Settings());
    return AngleText(vertex.x - ImagePoints[1].x, vertex.y - ImagePoints[1].y, vertex.x - ImagePoints[2].x,
                     vertex.y - ImagePoints[2].y);
}

}
