#include "canvas/VostelDC.h"

#include "base/Truncate.h"
#include "canvas/view/Colors.h"
#include "platform/HostServices.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr unsigned int DeleteAllKey = 'C';
constexpr unsigned int DeleteSelectedKey = 'R';
constexpr int          AlphaKey = 'S';
constexpr int          AlphaStep = 5;

}

// Elements deleted while an event is on its way are destroyed when the outermost event has returned.
class VostelDC::EventScope {
public:
    explicit EventScope(VostelDC& canvas) : Canvas(canvas) { ++Canvas.EventsUnderWay; }
    ~EventScope()
    {
        if (--Canvas.EventsUnderWay == 0 && Canvas.DestroyPending)
            Canvas.DestroyRemoved();
    }
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;

private:
    VostelDC& Canvas;
};

VostelDC::~VostelDC()
{
    DropClientSurface();
    FreeClientRowTable();
    for (VostelObj* element : Elements)
        delete element;
    DestroyRemoved();
}

void VostelDC::PaintAll()
{
    const EventScope scope(*this);
    if (!UseDirect) {
        if (ClientMemDC)
            PaintBackground(ClientMemDC);
        CanvasSurface.BlitTo(ClientMemDC);
        if (ShowContrastCtrl)
            ContrastCtrl.OnDraw(ClientMemDC);
        if (ShowProgress)
            ProgressCtrl.OnDraw(ClientMemDC);
        for (std::size_t i = 0; i < Elements.size(); ++i)
            Elements[i]->OnDraw(ClientMemDC);
    }
    const CRect& client = View.ClientRect;
    BitBlt(ClientDC, 0, 0, WrapSub(client.right, client.left), WrapSub(client.bottom, client.top),
           ClientMemDC, 0, 0, SRCCOPY);
}

void VostelDC::PaintBackground(HDC dc)
{
    PaintBackgroundTo(dc);
}

void VostelDC::PaintBackgroundTo(HDC dc)
{
    Kit.Dc = dc;
    // The image is copied over the background next, so the background is skipped where the image hides it.
    Kit.DrawHatchBackground(View.ClientRect, CanvasSurface.CoveredClient());
    Kit.DrawRectOutline(View.DisplayRect, Blue);
    AfterBackground();
}

void VostelDC::AfterBackground() {}

void VostelDC::SetLutPara(float, float) {}

void VostelDC::PlaceView(CRect clientRect)
{
    View.SetClientRect(clientRect);
    View.ImageWidth = CanvasSurface.Width;
    View.ImageHeight = CanvasSurface.Height;
    CanvasSurface.ViewRef = &View;

    ContrastCtrl.SetCanvasView(&View);
    ContrastCtrl.RefreshClientGeometry();
    ProgressCtrl.SetCanvasView(&View);
    HandViewToElements(true);
}

void VostelDC::SetClient(CRect rect, HDC dc)
{
    PlaceView(rect);
    ClientDC = dc;
    DropClientSurface();
    ClientMemDC = CreateCompatibleDC(dc);
    void* bits = nullptr;
    ClientBitmap =
        CreateDibPixels(ClientMemDC, WrapSub(rect.right, rect.left), WrapSub(rect.bottom, rect.top), &bits);
    ClientPixels = static_cast<unsigned int*>(bits);
    if (!ClientBitmap) {
        DeleteDC(ClientMemDC);
        ClientMemDC = nullptr;
        return;
    }
    if (ShowContrastCtrl)
        ContrastCtrl.SurfacePixels = ClientPixels;
    ClientOldBitmap = SelectObject(ClientMemDC, ClientBitmap);
}

void VostelDC::PrepareImage(int width, int height, bool clearObjects, bool cleared)
{
    if (clearObjects)
        DeleteAll();
    View.ImageWidth = width;
    View.ImageHeight = height;
    CanvasSurface.Rebuild(ClientDC, width, height, cleared);
    // In the same client area, for the view and the objects to find their places on the new image.
    SetClient(View.ClientRect, ClientDC);
}

void VostelDC::ShowSurface(PixelSurface* made)
{
    if (made)
        CanvasSurface.Exchange(*made);
    View.ImageWidth = CanvasSurface.Width;
    View.ImageHeight = CanvasSurface.Height;
    PlaceView(View.ClientRect);
}

void VostelDC::OnLButtonDown(unsigned int flags, CPoint p)
{
    const EventScope scope(*this);
    View.LeftDown = true;
    View.LastPoint = p;
    if (ShowContrastCtrl) {
        ContrastCtrl.OnLButtonDown(flags, p);
        if (ContrastCtrl.ControlHit)
            return;
    }
    if (Elements.empty())
        return;
    for (VostelObj* element : Elements)
        element->Selected = false;
    const bool sticks = (flags & MK_SHIFT) != 0 && SelIndex != -1;
    if (!sticks) {
        SelIndex = -1;
        for (std::size_t i = Elements.size(); i-- > 0 && i < Elements.size();) {
            if (Elements[i]->HitTest(p)) {
                SelIndex = static_cast<int>(i);
                break;
            }
        }
    }
    if (VostelObj* const selected = SelectedElement())
        selected->OnLButtonDown(flags, p);
    for (std::size_t i = 0; i < Elements.size(); ++i) {
        if (Elements[i]->TypeCode == OverlayPanel)
            Elements[i]->OnLButtonDown(flags, p);
    }
}

void VostelDC::OnLButtonUp(unsigned int flags, CPoint p)
{
    const EventScope scope(*this);
    View.LeftDown = false;
    if (ShowContrastCtrl) {
        ContrastCtrl.OnLButtonUp(flags, p);
        if (ContrastCtrl.ControlHit)
            SetLutPara(ContrastCtrl.Low, ContrastCtrl.High);
    }
    if (VostelObj* const selected = SelectedElement())
        selected->OnLButtonUp(flags, p);
    for (std::size_t i = 0; i < Elements.size(); ++i) {
        if (Elements[i]->TypeCode == OverlayPanel)
            Elements[i]->OnLButtonUp(flags, p);
    }
}

void VostelDC::OnMouseMove(unsigned int flags, CPoint p)
{
    const EventScope scope(*this);
    View.OnViewMouseMove(flags, p);
    if (ShowContrastCtrl) {
        ContrastCtrl.OnMouseMove(flags, p);
        ContrastCtrl.SetCanvasView(&View);
    }
    HandViewToElements(false);
    if (VostelObj* const selected = SelectedElement())
        selected->OnMouseMove(flags, p);
    for (std::size_t i = 0; i < Elements.size(); ++i) {
        const int kind = Elements[i]->TypeCode;
        if (kind == OverlayPanel || kind == OverlayNeighbours)
            Elements[i]->OnMouseMove(flags, p);
    }
}

void VostelDC::OnMouseWheel(unsigned int flags, short delta, CPoint p)
{
    const EventScope scope(*this);
    if (IsKeyDown(AlphaKey))
        OverlayAlpha = std::clamp(OverlayAlpha + (delta >= 1 ? AlphaStep : -AlphaStep), 0, 255);
    View.OnViewMouseWheel(flags, delta, p);
    if (ShowContrastCtrl)
        ContrastCtrl.SetCanvasView(&View);
    if (ShowProgress)
        ProgressCtrl.SetCanvasView(&View);
    HandViewToElements(false);
}

void VostelDC::OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags)
{
    const EventScope scope(*this);
    if (ShowContrastCtrl)
        ContrastCtrl.OnKeyDown(key, repeat, keyFlags);
    if (key == DeleteAllKey)
        DeleteAll();
    else if (key == DeleteSelectedKey)
        DeleteSelected();
    for (std::size_t i = 0; i < Elements.size(); ++i)
        Elements[i]->OnKeyDown(key, repeat, keyFlags);
}

void VostelDC::DeleteAll()
{
    Removed.insert(Removed.end(), Elements.begin(), Elements.end());
    std::vector<VostelObj*>().swap(Elements);    // an assigned empty list would keep the storage
    RectCount = CustomRectCount = PolygonCount = SplineCount = OneStrokeCount = RegionSerial = MStrokeCount =
        0;
    TextCount = MeasureLineCount = Angle3Count = Angle4Count = SpareCount = ElementSerial = 0;
    DestroyPending = true;
    if (EventsUnderWay == 0)
        DestroyRemoved();
}

void VostelDC::DeleteSelected()
{
    VostelObj* const removed = SelectedElement();
    if (!removed)
        return;
    const int kind = removed->TypeCode;
    for (std::size_t i = static_cast<std::size_t>(SelIndex) + 1; i < Elements.size(); ++i) {
        --Elements[i]->SerialNo;
        if (Elements[i]->TypeCode == kind)
            --Elements[i]->TypeSerial;
    }
    switch (kind) {
    case OverlayRect:
        --RectCount;
        break;
    case OverlayCustomRect:
        --CustomRectCount;
        break;
    case OverlayPolygon:
        --PolygonCount;
        break;
    case OverlaySpline:
        --SplineCount;
        break;
    case OverlayOneStroke:
        --OneStrokeCount;
        break;
    default:
        break;
    }
    --RegionSerial;    // for every kind: hosts rely on the resulting numbers
    Removed.push_back(removed);
    Elements.erase(Elements.begin() + SelIndex);
    --SelIndex;    // selected by index only: the flag of the object that stands there now is not set
}

unsigned int** VostelDC::CreateClientRowTable()
{
    FreeClientRowTable();
    const CRect&      client = View.ClientRect;
    const std::size_t rows = ClientPixels ? static_cast<std::size_t>(WrapSub(client.bottom, client.top)) : 0;
    const std::size_t width = ClientPixels ? static_cast<std::size_t>(WrapSub(client.right, client.left)) : 0;
    ClientRows = new unsigned int*[rows];
    for (std::size_t i = 0; i < rows; ++i)
        ClientRows[i] = ClientPixels + i * width;
    return ClientRows;
}

void VostelDC::FreeClientRowTable()
{
    delete[] ClientRows;
    ClientRows = nullptr;
}

VostelObj* VostelDC::SelectedElement()
{
    return SelIndex >= 0 && static_cast<std::size_t>(SelIndex) < Elements.size()
               ? Elements[static_cast<std::size_t>(SelIndex)]
               : nullptr;
}

void VostelDC::DestroyRemoved()
{
    DestroyPending = false;
    std::vector<VostelObj*> destroyed;
    destroyed.swap(Removed);
    for (VostelObj* element : destroyed)
        delete element;
}

void VostelDC::DropClientSurface()
{
    if (ClientBitmap) {
        SelectObject(ClientMemDC, ClientOldBitmap);
        DeleteObject(ClientBitmap);
    }
    if (ClientMemDC)
        DeleteDC(ClientMemDC);
    ClientMemDC = nullptr;
    ClientBitmap = nullptr;
    ClientOldBitmap = nullptr;
    ClientPixels = nullptr;
    ContrastCtrl.SurfacePixels = nullptr;
}

void VostelDC::HandViewToElements(bool refreshAgain)
{
    const EventScope scope(*this);
    for (std::size_t i = 0; i < Elements.size(); ++i) {
        VostelObj* const element = Elements[i];
        element->SetCanvasView(&View);
        if (refreshAgain)
            element->RefreshClientGeometry();
    }
}

}
