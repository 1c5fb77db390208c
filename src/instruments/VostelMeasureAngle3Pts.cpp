#include "instruments/VostelMeasureAngle3Pts.h"

#include "canvas/view/HitTests.h"

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
        const double                    arm = ArmLength / (View ? View->Scale : 1.0);
        ImagePoints.emplace_back(at.x, at.y);
        ImagePoints.emplace_back(at.x, at.y - arm);
        ImagePoints.emplace_back(at.x + arm, at.y);
        RefreshClientGeometry();
        Label.SetPlacement(static_cast<float>(ClientPoints[0].x) - 100.0f,
                           static_cast<float>(ClientPoints[0].y) - 100.0f, 0.0f, 0.0f);
        CString text = Caption();
        Label.SetTextAndFit(text);
    }
    Label.OnLButtonDown(flags, point);
}

void VostelMeasureAngle3Pts::OnMouseMove(unsigned int flags, CPoint point)
{
    VostelMeasureAngle::OnMouseMove(flags, point);
    if (ClientPoints.size() == 3) {
        CString text = Caption();
        Label.SetText(text);
    }
}

bool VostelMeasureAngle3Pts::HitTest(CPoint point)
{
    LabelHit = Label.HitTest(point);
    Selected = HitRectList(HandleRects, point) != -1 || Label.HitTest(point);
    return Selected;
}

void VostelMeasureAngle3Pts::OnDraw(HDC dc)
{
    BindKit(dc);
    Kit.DrawHandles(HandleRects, LineColor(), HandleShape);
    if (ClientPoints.size() == 3) {
        Kit.DrawLine(ClientPoints[0], ClientPoints[1], 0, LineColor(), PS_SOLID);
        Kit.DrawLine(ClientPoints[0], ClientPoints[2], 0, LineColor(), PS_SOLID);
        DrawConnector(ClientPoints[0]);
    }
    Label.OnDraw(dc);
}

CString VostelMeasureAngle3Pts::Caption() const
{
    const PointTemplateBase<double>& vertex = ImagePoints[0];
    return AngleText(vertex.x - ImagePoints[1].x, vertex.y - ImagePoints[1].y, vertex.x - ImagePoints[2].x,
                     vertex.y - ImagePoints[2].y);
}

}
