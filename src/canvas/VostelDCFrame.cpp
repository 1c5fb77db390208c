// How a frame is composed: background, image, controls and objects in their order, or copies of what has not
// changed since the paint before.

#include "base/Truncate.h"
#include "canvas/VostelDC.h"
#include "canvas/view/Colors.h"
#include "canvas/view/SelectedObject.h"

#include <algorithm>
#include <new>
#include <utility>

namespace vostel {

namespace {

CRect BoxAround(const CRect& a, const CRect& b)
{
    if (a.IsRectEmpty() || b.IsRectEmpty())
        return a.IsRectEmpty() ? b : a;
    return CRect(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                 std::max(a.bottom, b.bottom));
}

CRect BoxWithin(const CRect& a, const CRect& b)
{
    return CRect(std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                 std::min(a.bottom, b.bottom));
}

}

void VostelDC::PaintAll()
{
    const CallScope scope(*this);
    if (!UseDirect)
        ComposeFrame();
    const CRect& client = View.ClientRect;
    BitBlt(ClientDC, 0, 0, WrapSub(client.right, client.left), WrapSub(client.bottom, client.top),
           ClientMemDC, 0, 0, SRCCOPY);
}

void VostelDC::ComposeFrame()
{
    if (ClientMemDC)
        PrepareSurface();
    if (!CanKeepFrame()) {
        Kept.Free();
        ComposeWholly();
        return;
    }
    // Only what has stood still once is worth keeping.
    if (!Kept.Follows(StampOfFrame())) {
        ComposeWholly();
        return;
    }
    if (!Kept.IsTaken() && Kept.Reserve(View.ClientRect.Width(), View.ClientRect.Height()))
        TakeKeptFrame();
    if (!Kept.IsTaken() || !ComposeFromKept())
        ComposeWholly();
}

void VostelDC::ComposeBackground()
{
    if (ClientMemDC)
        PaintBackground(ClientMemDC);
    CanvasSurface.BlitTo(ClientMemDC);
}

void VostelDC::ComposeWholly()
{
    Kept.IsShown = false;
    ComposeBackground();
    if (ShowContrastCtrl)
        ContrastCtrl.OnDraw(ClientMemDC);
    if (ShowProgress)
        ProgressCtrl.OnDraw(ClientMemDC);
    Elements.BeginPaint();
    // Without a surface every object says so.
    const std::vector<VostelObj*>& shown =
        ClientMemDC ? Elements.NearArea(WrapSub(View.ClientRect.right, View.ClientRect.left),
                                        WrapSub(View.ClientRect.bottom, View.ClientRect.top))
                    : Elements.AsTheyLie();
    for (std::size_t i = 0; i < shown.size(); ++i)
        PaintObject(*shown[i]);
}

void VostelDC::PaintObject(VostelObj& object)
{
    if (object.Hidden)
        return;
    Elements.SettleForPaint(object).OnDraw(ClientMemDC);
    Elements.NotePaint(object);
}

bool VostelDC::CanKeepFrame() const
{
    const CRect& client = View.ClientRect;
    return ClientMemDC && ClientPixels && !ClientIsHandedOut && !CanvasSurface.IsHandedOut &&
           !ShowContrastCtrl && !ShowProgress && !View.Recorder && client.left == 0 && client.top == 0 &&
           Elements.RestingCount() >= Kept.Fewest;
}

FrameStamp VostelDC::StampOfFrame() const
{
    return {View.ClientRect,           View.DisplayRect,      View.Scale,
            View.Settings.PixelRatio,  View.AnyScale,         View.Settings.Handles,
            CanvasSurface.StretchMode, CanvasSurface.Pixels,  CanvasSurface.Width,
            CanvasSurface.Height,      CanvasSurface.Changes, Elements.RestingStamp()};
}

void VostelDC::TakeKeptFrame()
{
    const unsigned int missedBefore = MissedDrawings;
    ComposeBackground();
    Kept.SourceRect = View.SourceRect;
    Kept.LowestMoving = Elements.LowestMoving();
    Elements.BeginPaint();
    const std::vector<VostelObj*>& shown =
        Elements.NearArea(View.ClientRect.Width(), View.ClientRect.Height());
    bool isBelow = Kept.LowestMoving < Elements.size();
    for (std::size_t i = 0; i < shown.size(); ++i) {
        VostelObj& object = *shown[i];
        if (isBelow && object.Entry.Place >= Kept.LowestMoving) {
            GdiFlush();
            Kept.TakeBelow(ClientPixels);
            isBelow = false;
        }
        if (object.Entry.Resting)
            PaintObject(object);
    }
    if (MissedDrawings != missedBefore) {
        Kept.Free();    // the next paint may find the memory
        return;
    }
    GdiFlush();
    Kept.TakeAll(ClientPixels);
    Kept.IsShown = true;
    Kept.Shown = CRect();
}

bool VostelDC::ComposeFromKept()
{
    std::vector<CRect>             areas;
    const std::vector<VostelObj*>* shown = nullptr;
    try {
        areas = AreasInMotion();
        shown = Elements.NearAreas(areas);
    } catch (const std::bad_alloc&) {
        shown = nullptr;
    }
    if (!shown)
        return false;
    // Hosts that hold the pixels may have written there.
    const bool isShown = std::exchange(Kept.IsShown, false) && !ClientPixelsAreHandedOut;
    CRect      spoilt = isShown ? Kept.Shown : View.ClientRect;
    CRect      moving;
    for (const CRect& area : areas)
        moving = BoxAround(moving, area);
    View.SourceRect = Kept.SourceRect;
    Elements.BeginPaint();
    Kit.Dc = ClientMemDC;
    Kit.SelectStock();
    GdiFlush();
    Kept.CopyBelow(areas, ClientPixels);
    for (std::size_t i = 0; i < shown->size(); ++i) {
        VostelObj& object = *(*shown)[i];
        if (object.Entry.Resting) {
            if (object.Entry.Place < Kept.LowestMoving)
                continue;
            spoilt = BoxAround(spoilt, Elements.ClientBoxOf(object));
        }
        PaintObject(object);
    }
    GdiFlush();
    Kept.CopyAround(areas, BoxWithin(spoilt, View.ClientRect), ClientPixels);
    Kept.Shown = moving;
    Kept.IsShown = true;
    return true;
}

std::vector<CRect> VostelDC::AreasInMotion()
{
    constexpr std::size_t most = 16;
    const CRect           client = View.ClientRect;
    std::vector<CRect>    areas;
    for (VostelObj* const object : Elements.NotResting()) {
        if (object->Hidden)
            continue;
        if (object->PlacedBy() == DerivedFrom::Client)
            return {client};    // texts end nobody knows where
        object->DerivePainted();
        const Bounds box = object->DrawnBox();
        const auto   within = [](double v, LONG low, LONG high) {
            return static_cast<int>(std::clamp<double>(v, low, high));
        };
        CRect area(within(box.Left, client.left, client.right), within(box.Top, client.top, client.bottom),
                   within(box.Right, client.left, client.right),
                   within(box.Bottom, client.top, client.bottom));
        if (area.left >= area.right || area.top >= area.bottom)
            continue;
        // One that touches others takes them in, and then whatever the larger one touches.
        for (std::size_t i = 0; i < areas.size();) {
            if (BoxWithin(area, areas[i]).IsRectEmpty()) {
                ++i;
                continue;
            }
            area = BoxAround(area, areas[i]);
            areas.erase(areas.begin() + static_cast<std::ptrdiff_t>(i));
            i = 0;
        }
        areas.push_back(area);
        if (areas.size() > most)
            return {client};
    }
    std::sort(areas.begin(), areas.end(), [](const CRect& a, const CRect& b) { return a.left < b.left; });
    return areas;
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

}    // namespace vostel
