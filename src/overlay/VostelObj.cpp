#include "overlay/VostelObj.h"

#include "base/Truncate.h"
#include "overlay/StateArchive.h"
#include "platform/HostServices.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vostel {

namespace {

constexpr int MostWidth = 100;    // px of pens and handles that a state may have

}

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

std::optional<Bounds> VostelObj::PlaceOnImage() const
{
    if (ImagePoints.empty() || FixedSize)
        return std::nullopt;
    return BoundsOf(ImagePoints);
}

bool VostelObj::Covers(CPoint) const
{
    return false;
}

bool VostelObj::HitTest(CPoint point)
{
    return Hits(point);
}

void VostelObj::DerivePainted() {}

Bounds VostelObj::DrawnBox() const
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Bounds           box{infinity, infinity, -infinity, -infinity};
    for (const CPoint& point : ClientPoints)
        Cover(box, point.x, point.y);
    for (const CRect& handle : HandleRects) {
        Cover(box, handle.left, handle.top);
        Cover(box, handle.right, handle.bottom);
    }
    const std::optional<Outline> outline =
        View && (OpenMade || FillColor >> 24 != 0) ? RegionOutline() : std::nullopt;
    for (std::size_t i = 0; outline && i < outline->Points.size(); ++i)
        Cover(box, outline->Points[i].x * View->Scale + View->DisplayRect.left,
              outline->Points[i].y * View->Scale + View->DisplayRect.top);
    return box;
}

void VostelObj::Cover(Bounds& box, double x, double y) const
{
    constexpr double farthest = 1e7;    // client px of a point that counts
    constexpr double everywhere = 1e9;
    constexpr double beside = 4.0;    // client px, of rounding and of the ends of lines
    if (!(std::fabs(x) < farthest && std::fabs(y) < farthest)) {
        box = {-everywhere, -everywhere, everywhere, everywhere};
        return;
    }
    const double reach = std::max(1.0, LineWidth) * std::max(1.0, PixelRatio()) + beside;
    box.Left = std::min(box.Left, x - reach);
    box.Top = std::min(box.Top, y - reach);
    box.Right = std::max(box.Right, x + reach);
    box.Bottom = std::max(box.Bottom, y + reach);
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

std::vector<PointTemplateBase<double>> VostelObj::GivePoints() const
{
    return ImagePoints;
}

bool VostelObj::TakePoints(std::span<const PointTemplateBase<double>>)
{
    return false;
}

std::optional<Outline> VostelObj::RegionOutline() const
{
    return std::nullopt;
}

CString VostelObj::CaptionText() const
{
    return CString();
}

bool VostelObj::TakeText(const CString&)
{
    return false;
}

void VostelObj::Persist(StateArchive& archive)
{
    archive.Expect(TypeCode);
    archive(TypeSerial, SerialNo, ImagePoints, StrokeStarts);
    archive(StyleFontType, StyleColor, StyleBkMode, StyleHeight, LineColorIdle, LineColorSel, LineWidth,
            StrokeWidth, FillColor);
    archive(HandleShape, HandleColorSel, HandleColorIdle, HandleColorAlt, HandleRadius);
    // A drawing context is not asked for shapes beyond what it is made for.
    if (archive.IsLoading() && (HandleRadius < 0 || HandleRadius > MostWidth || StrokeWidth > MostWidth ||
                                !(LineWidth > 0.0 && LineWidth <= MostWidth)))
        archive.Refuse();
    archive(Hidden, Locked, OpenMade, EllipseMode, FixedSize, ClampToImage, ControlOn, ClickPerPoint,
            MaxPoints);
    archive(MeasureScale, MeasureArmed, WindowLow, WindowHigh);
}

std::vector<unsigned char> VostelObj::SaveState()
{
    StateArchive archive;
    Persist(archive);
    return archive.TakeBytes();
}

bool VostelObj::LoadState(std::span<const unsigned char> state)
{
    StateArchive archive(state);
    Persist(archive);
    if (!archive.IsWhole())
        return false;
    if (View) {
        SetCanvasView(View);
        DerivePainted();
    }
    return true;
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

int VostelObj::Scaled(double px) const
{
    return TruncToInt(std::floor(px * PixelRatio() + 0.5));
}

void VostelObj::BindKit(HDC dc)
{
    Kit.Dc = dc;
    SetPens();
    Kit.BindSurface(SurfacePixels);
}

void VostelObj::SetPens()
{
    Kit.PenWidth = std::max(1, Scaled(LineWidth));
    Kit.HandlePenWidth = std::max(1, Scaled(1));
    Kit.TextMargin = Scaled(3);
    Kit.HandlesOn = !View || View->Settings.Handles;
    Kit.Recorder = View ? View->Recorder : nullptr;
}

}
