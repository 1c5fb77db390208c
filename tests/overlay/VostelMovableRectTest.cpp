#include "overlay/VostelMovableRect.h"

#include "support/OverlayCanvas.h"

#include <memory>

using namespace vostel;

namespace {

VostelMovableRect& AddFrame(OverlayCanvas& host)
{
    auto frame = std::make_unique<VostelMovableRect>();
    frame->TypeCode = OverlayMStroke;    // no panel: routed as the selected object only
    frame->SetPlacement(10.0f, 20.0f, 60.0f, 30.0f);
    host.Canvas().Elements.push_back(frame.get());
    return *frame.release();
}

}

TEST_CASE("a placement truncates left and top first, then adds the sizes")
{
    VostelMovableRect frame;
    frame.SetPlacement(10.9f, -3.9f, 5.9f, 2.5f);
    CHECK(frame.ClientBox == CRect(10, -3, 15, 0));
    frame.SetPlacement(3e9f, 0.0f, 1.0f, 1.0f);
    CHECK(frame.ClientBox.left == INT32_MIN);
}

TEST_CASE("a press in the frame drags it, with and without Shift; outside it the frame stays")
{
    for (const unsigned int flags : {static_cast<unsigned int>(MK_LBUTTON), DrawFlags}) {
        OverlayCanvas      host;
        VostelMovableRect& frame = AddFrame(host);
        host.Canvas().SelIndex = 0;
        host.Press(15, 25, flags);
        CHECK(frame.ButtonDown);
        host.Move(18, 24, 0);    // no flag is asked for
        CHECK(frame.ClientBox == CRect(13, 19, 73, 49));
        CHECK(frame.LastPoint == CPoint(18, 24));
        host.Release(18, 24);
        host.Move(40, 40);
        CHECK(frame.ClientBox == CRect(13, 19, 73, 49));
        CHECK(frame.HoverPoint == CPoint(40, 40));
        frame.OnLButtonDown(flags, CPoint(73, 30));
        CHECK_FALSE(frame.ButtonDown);
        frame.OnMouseMove(flags, CPoint(80, 30));
        CHECK(frame.ClientBox == CRect(13, 19, 73, 49));
        CHECK(frame.LastPoint == CPoint(73, 30));
    }
}

TEST_CASE("a hit in the frame selects it, left and top inclusive, right and bottom exclusive")
{
    VostelMovableRect frame;
    frame.SetPlacement(10.0f, 20.0f, 60.0f, 30.0f);
    CHECK(frame.HitTest(CPoint(10, 20)));
    CHECK(frame.Selected);
    CHECK_FALSE(frame.HitTest(CPoint(70, 30)));
    CHECK_FALSE(frame.Selected);
    CHECK_FALSE(frame.HitTest(CPoint(30, 50)));
    CHECK(frame.HitTest(CPoint(69, 49)));
}

TEST_CASE("the frame is a hollow box of one color, selected or not")
{
    OverlayCanvas          host;
    VostelMovableRect&     frame = AddFrame(host);
    constexpr unsigned int FramePixel = 0xDAA569;
    CHECK(host.CountPixels(FramePixel) == 2 * 60 + 2 * 30 - 4);
    host.Paint();
    CHECK(host.Pixel(10, 20) == FramePixel);
    CHECK(host.Pixel(69, 49) == FramePixel);
    frame.Selected = true;
    CHECK(host.CountPixels(FramePixel) == 2 * 60 + 2 * 30 - 4);
}

TEST_CASE("the frame stays in its client place when the canvas is zoomed and panned")
{
    OverlayCanvas      host(3);
    VostelMovableRect& frame = AddFrame(host);
    host.Paint();
    host.Wheel(100, 80, 120);
    host.Pan(7, 3);
    CHECK(frame.ClientBox == CRect(10, 20, 70, 50));
    CHECK(host.ZoomBack());
}

TEST_CASE("a frame dragged from one end of the integers to the other does no harm")
{
    VostelMovableRect frame;
    frame.SetPlacement(10.0f, 20.0f, 60.0f, 30.0f);
    frame.OnLButtonDown(MK_LBUTTON, CPoint(15, 25));
    for (const CPoint p : {CPoint(INT32_MIN, INT32_MAX), CPoint(INT32_MAX, INT32_MIN), CPoint(15, 25)})
        frame.OnMouseMove(MK_LBUTTON, p);
    CHECK(frame.ClientBox == CRect(10, 20, 70, 50));
}
