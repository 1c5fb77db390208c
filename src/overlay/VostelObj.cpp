#include "overlay/VostelObj.h"

#include "platform/HostServices.h"

namespace vostel {

VostelObj::~VostelObj() = default;

void VostelObj::OnLButtonDown(unsigned int, CPoint point)
{
    ButtonDown = true;
    LastPoint = point;
    ActiveNode = NoNode;
}

void VostelObj::OnLButtonUp(unsigned int, CPoint)
{
    ButtonDown = false;
    EndMove();
}

void VostelObj::OnMouseMove(unsigned int, CPoint) {}

void VostelObj::OnKeyDown(unsigned int, unsigned int, unsigned int) {}

void VostelObj::OnTimer(std::uint64_t timerId)
{
    if (timerId == 1 && Kit.DashPeriod != 0)
        Kit.DashPhase = Kit.DashPhase % Kit.DashPeriod + 2;
}

void VostelObj::SetCanvasView(CanvasView* view)
{
    View = view;
    RefreshClientGeometry();
}

void VostelObj::RefreshClientGeometry() {}

bool VostelObj::HitTest(CPoint)
{
    return false;
}

void VostelObj::SetPlacement(float, float, float, float) {}

void VostelObj::OnDraw(HDC dc)
{
    BindKit(dc);
}

void VostelObj::SetHandleColors(COLORREF selected, COLORREF second)
{
    HandleColorSel = selected;
    HandleColorAlt = second;
}

void VostelObj::SetHandleShape(int shape)
{
    HandleShape = shape;
}

void VostelObj::SetHandleRadius(int radius)
{
    HandleRadius = radius;
}

void VostelObj::SetClickPerPoint(int) {}

void VostelObj::SetMaxPoints(int) {}

void VostelObj::ReservedOp() {}

void VostelObj::SetTextAndFit(CString&) {}

void VostelObj::SetText(CString&) {}

CRect VostelObj::MeasureText(CString&)
{
    return CRect();
}

void VostelObj::SetTextAt(CString&, CPoint) {}

void VostelObj::BeginMove()
{
    MoveState = ShapeMoves;
    ActiveNode = WholeShape;
}

bool VostelObj::IsMoving()
{
    return MoveState == ShapeMoves;
}

void VostelObj::EndMove()
{
    MoveState = ShapeRests;
    ActiveNode = NoNode;
}

bool VostelObj::GetLabelOutline(std::vector<PointTemplateBase<int>>&)
{
    return true;
}

bool VostelObj::ReservedCheck()
{
    return true;
}

bool VostelObj::GetImagePoints(std::vector<PointTemplateBase<int>>&)
{
    return true;
}

bool VostelObj::GetImagePolygon(std::vector<PointTemplateBase<int>>&)
{
    return true;
}

void VostelObj::ClearPoints()
{
    // Assigning {} would keep the storage.
    std::vector<CPoint>().swap(ClientPoints);
    std::vector<PointTemplateBase<double>>().swap(ImagePoints);
    std::vector<CRect>().swap(HandleRects);
    std::vector<int>().swap(StrokeStarts);
}

void VostelObj::SetOwnerImage(ImageValues* image)
{
    OwnerImage = image;
}

void VostelObj::SetTextLines(std::vector<CString>&) {}

void VostelObj::AddTextLine(CString) {}

void VostelObj::SetData(ClassData2DIO<float>& source)
{
    if (&source != &Data)
        Data = source;
}

CString VostelObj::GetResultText()
{
    return L"NULL";
}

PointTemplateBase<double> VostelObj::ClientToImage(CPoint point) const
{
    if (!View) {
        ShowMessage(L"显示信息未提供");
        return PointTemplateBase<double>(0.0, 0.0);
    }
    return View->ClientToImage(point);
}

CPoint VostelObj::ImageToClient(PointTemplateBase<double> point) const
{
    if (!View) {
        ShowMessage(L"显示信息未提供");
        return CPoint(0, 0);
    }
    return View->ImageToClient(point);
}

void VostelObj::BindKit(HDC dc)
{
    Kit.Dc = dc;
    Kit.BindSurface(SurfacePixels);
}

}
