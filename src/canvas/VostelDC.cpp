#include "canvas/VostelDC.h"

#include "base/Truncate.h"
#include "canvas/view/ViewPlacing.h"
#include "platform/HostServices.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace vostel {

namespace {

constexpr unsigned int DeleteAllKey = 'C';
constexpr unsigned int DeleteSelectedKey = 'R';
constexpr int          AlphaKey = 'S';
constexpr int          AlphaStep = 5;

// From the whole middle of one client side to that of another one at the origin, in client px.
double MiddleShift(LONG low, LONG high, int extent)
{
    return extent / 2 - std::floor((static_cast<double>(low) + high) * 0.5);
}

// Hidden objects are not there for the user, and locked ones take no gesture.
bool TakesGestures(const VostelObj& object)
{
    return !object.Hidden && !object.Locked;
}

}

VostelDC::~VostelDC()
{
    DropClientSurface();
    if (OwnDC)
        DeleteDC(OwnDC);
    FreeClientRowTable();
    for (VostelObj* element : Elements.AsTheyLie())
        delete element;
    DestroyRemoved();
}

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

void VostelDC::UseOwnArea(int width, int height)
{
    const CRect before = View.ClientRect;
    if (!OwnDC)
        OwnDC = CreateCompatibleDC(nullptr);
    const CanvasView view = View;
    SetClient(CRect(0, 0, width, height), OwnDC);
    if (!ClientMemDC) {
        View = view;
        SetClient(before, OwnDC);
        throw std::bad_alloc();
    }
    View.AnyScale = true;
    if (!view.FirstClient) {
        // Whole middles, so that resizes one after the other do not add up their halves.
        PlaceImage(View, {view.Scale, view.DisplayRect.left + MiddleShift(before.left, before.right, width),
                          view.DisplayRect.top + MiddleShift(before.top, before.bottom, height)});
    }
    try {
        ViewMoved();
    } catch (...) {
        // Objects that have moved already find their places again with the next paint or move.
        SetClient(before, OwnDC);
        View = view;
        throw;
    }
}

bool VostelDC::HasOwnArea(int width, int height) const
{
    return OwnDC && ClientDC == OwnDC && ClientMemDC && View.ClientRect == CRect(0, 0, width, height);
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
    if (Observer)
        Observer->ImageChanged();
}

void VostelDC::ShowSurface(PixelSurface* made)
{
    if (made)
        CanvasSurface.Exchange(*made);
    View.ImageWidth = CanvasSurface.Width;
    View.ImageHeight = CanvasSurface.Height;
    PlaceView(View.ClientRect);
    if (Observer)
        Observer->ImageChanged();
}

void VostelDC::OnLButtonDown(unsigned int flags, CPoint p)
{
    const CallScope scope(*this);
    if (Observer)
        Observer->GestureBegins();
    View.LeftDown = true;
    View.LastPoint = p;
    if (ShowContrastCtrl) {
        ContrastCtrl.OnLButtonDown(flags, p);
        if (ContrastCtrl.ControlHit)
            return;
    }
    if (Elements.empty())
        return;
    Elements.Deselect();
    const bool sticks = (flags & MK_SHIFT) != 0 && SelIndex != -1;
    if (!sticks) {
        SelIndex = -1;
        Elements.NoteRestChanges();
        const std::vector<VostelObj*>& asked = Elements.NearPoint(p);
        for (std::size_t i = asked.size(); i-- > 0 && i < asked.size();) {
            VostelObj& object = Elements.Settle(*asked[i]);
            const int  place = static_cast<int>(object.Entry.Place);
            if (TakesGestures(object) && object.HitTest(p)) {
                SelIndex = place;
                break;
            }
        }
    }
    RouteGesture(&VostelObj::OnLButtonDown, flags, p, {OverlayPanel});
}

void VostelDC::OnLButtonUp(unsigned int flags, CPoint p)
{
    const CallScope scope(*this);
    View.LeftDown = false;
    if (ShowContrastCtrl) {
        ContrastCtrl.OnLButtonUp(flags, p);
        if (ContrastCtrl.ControlHit)
            SetLutPara(ContrastCtrl.Low, ContrastCtrl.High);
    }
    RouteGesture(&VostelObj::OnLButtonUp, flags, p, {OverlayPanel});
    if (Observer)
        Observer->GestureEnds();
}

void VostelDC::OnMouseMove(unsigned int flags, CPoint p)
{
    const CallScope scope(*this);
    View.OnViewMouseMove(flags, p);
    if (ShowContrastCtrl) {
        ContrastCtrl.OnMouseMove(flags, p);
        ContrastCtrl.SetCanvasView(&View);
    }
    HandViewToElements(false);
    PointerAt = p;
    RouteGesture(&VostelObj::OnMouseMove, flags, p, {OverlayPanel, OverlayNeighbours});
    // What read-outs say is no state of theirs.
    const auto says = [](const VostelObj* element) {
        return (element->TypeCode == OverlayPanel || element->TypeCode == OverlayNeighbours) &&
               !element->Hidden;
    };
    if (Observer && std::any_of(Elements.NeverResting().begin(), Elements.NeverResting().end(), says))
        Observer->PictureChanged();
}

// To the selected object first and then to the kinds that get every such event.
void VostelDC::RouteGesture(GestureHandler handler, unsigned int flags, CPoint p,
                            std::initializer_list<OverlayKind> always)
{
    const auto route = [&](VostelObj& object) {
        if (!TakesGestures(object))
            return;
        if (Observer)
            Observer->WillChange(object);
        (object.*handler)(flags, p);
    };
    if (VostelObj* const selected = SelectedElement())
        route(*selected);
    const std::vector<VostelObj*>& others = Elements.NeverResting();
    for (std::size_t i = 0; i < others.size(); ++i) {
        if (std::find(always.begin(), always.end(), others[i]->TypeCode) != always.end())
            route(*others[i]);
    }
}

void VostelDC::OnMouseWheel(unsigned int flags, short delta, CPoint p)
{
    const CallScope scope(*this);
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
    const CallScope scope(*this);
    if (key >= 'A' && key <= 'Z' && KeyLetters.find(static_cast<char>(key)) == std::string::npos)
        return;
    if (ShowContrastCtrl)
        ContrastCtrl.OnKeyDown(key, repeat, keyFlags);
    if (key == DeleteAllKey)
        DeleteUnlocked();
    else if (key == DeleteSelectedKey && SelectedElement() && !SelectedElement()->Locked)
        DeleteSelected();
    for (std::size_t i = 0; i < Elements.size(); ++i) {
        VostelObj& element = *Elements[i];
        if (element.Locked)
            continue;
        if (Observer)
            Observer->WillChange(element);
        element.OnKeyDown(key, repeat, keyFlags);
    }
}

HDC VostelDC::HandOutClient()
{
    ClientIsHandedOut = true;
    return ClientMemDC;
}

unsigned int* VostelDC::HandOutClientPixels()
{
    ClientPixelsAreHandedOut = true;
    return ClientPixels;
}

unsigned int** VostelDC::CreateClientRowTable()
{
    ClientPixelsAreHandedOut = true;
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

void VostelDC::BeginCall()
{
    if (CallsUnderWay++ > 0)
        return;
    Elements.BeginCall();
    if (Observer)
        Observer->CallBegins();
}

void VostelDC::EndCall()
{
    if (--CallsUnderWay > 0)
        return;
    if (DestroyPending)
        DestroyRemoved();
    // Calls from within are outermost ones too.
    if (Observer)
        Observer->CallEnds();
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
    ClientIsHandedOut = ClientPixelsAreHandedOut = false;
    Kept.Free();
    ContrastCtrl.SurfacePixels = nullptr;
}

void VostelDC::HandViewToElements(bool refreshAgain)
{
    const CallScope scope(*this);
    Elements.TakeView(refreshAgain);
}

}
