#include "instruments/VostelSlider.h"

#include "Controls.h"

#include <climits>

using namespace vostel;

TEST_CASE("a fresh control has no size, is on and keeps its size in client pixels")
{
    VostelFixedRect control;
    CHECK(control.LeftMargin == 0);
    CHECK(control.BottomMargin == 0);
    CHECK(control.FixedWidth == 0);
    CHECK(control.FixedHeight == 0);
    CHECK(control.ControlOn);
    CHECK(control.FixedSize);
    CHECK(control.ClientBox == CRect());
    CanvasView view = ViewOf(100, 50);
    control.SetCanvasView(&view);
    CHECK(control.ClientBox == CRect(0, 49, 0, 49));    // empty, at the bottom left
    CHECK_FALSE(control.HitTest(CPoint(0, 49)));
}

TEST_CASE("a control is anchored to the bottom left by its margins")
{
    VostelFixedRect control;
    CanvasView      view = ViewOf(500, 300);
    control.SetCanvasView(&view);
    control.SetPlacement(20.0f, 10.0f, 100.0f, 30.0f);
    CHECK(control.ClientBox == CRect(20, 259, 120, 289));
    view.SetClientRect(CRect(0, 0, 50, 1000));
    control.UpdateAnchoredRect();
    CHECK(control.ClientBox == CRect(20, 959, 120, 989));
    view.ClientRect = CRect(7, 100, 500, 300);    // the top counts, the left edge does not
    control.UpdateAnchoredRect();
    CHECK(control.ClientBox == CRect(20, 159, 120, 189));
}

TEST_CASE("placements are truncated towards zero")
{
    VostelFixedRect control;
    CanvasView      view = ViewOf(500, 300);
    control.SetCanvasView(&view);
    control.SetPlacement(20.9f, -10.9f, 100.5f, 30.99f);
    CHECK(control.LeftMargin == 20);
    CHECK(control.BottomMargin == -10);
    CHECK(control.FixedWidth == 100);
    CHECK(control.FixedHeight == 30);
    CHECK(control.ClientBox == CRect(20, 279, 120, 309));
    control.SetPlacement(3e9f, -3e9f, std::nanf(""), HUGE_VALF);
    CHECK(control.LeftMargin == INT_MIN);
    CHECK(control.BottomMargin == INT_MIN);
    CHECK(control.FixedWidth == INT_MIN);
    CHECK(control.FixedHeight == INT_MIN);
}

TEST_CASE("a control that has no view yet keeps its placement until it gets one")
{
    VostelSlider slider;
    slider.SetPlacement(20.0f, 20.0f, 400.0f, 30.0f);
    CHECK(slider.LeftMargin == 20);
    CanvasView view = ViewOf(500, 300);
    slider.SetCanvasView(&view);
    CHECK(slider.ClientBox == CRect(20, 249, 420, 279));
}

TEST_CASE("a control's hit test is its box and leaves the selection alone")
{
    VostelFixedRect control;
    control.ClientBox = CRect(10, 20, 30, 40);
    CHECK(control.HitTest(CPoint(10, 20)));
    CHECK(control.HitTest(CPoint(29, 39)));
    CHECK_FALSE(control.HitTest(CPoint(30, 39)));
    CHECK_FALSE(control.HitTest(CPoint(29, 40)));
    CHECK_FALSE(control.Selected);
}

TEST_CASE("Tab turns a control off and on, X recalls it whether on or off, other keys do nothing")
{
    VostelFixedRect control;
    CanvasView      view = ViewOf(500, 300);
    control.SetCanvasView(&view);
    control.OnKeyDown(9, 1, 0);
    CHECK_FALSE(control.ControlOn);
    control.OnKeyDown(0x58, 1, 0);
    CHECK_FALSE(control.ControlOn);
    CHECK(control.ClientBox == CRect(20, 249, 420, 279));
    control.OnKeyDown(9, 1, 0);
    CHECK(control.ControlOn);
    control.SetPlacement(1.0f, 2.0f, 3.0f, 4.0f);
    for (const unsigned int key : {0u, 8u, 10u, unsigned('x'), unsigned('C'), unsigned('R'), 0x109u, ~0u})
        control.OnKeyDown(key, 1, 0);
    CHECK(control.ControlOn);
    CHECK(control.LeftMargin == 1);
}

TEST_CASE("a control fills its box whether on or off, and moves do nothing to it")
{
    TestDesktop  desktop;
    MemoryWindow window(30, 20);
    for (const bool on : {true, false}) {
        window.Fill(0x123456);
        VostelFixedRect control;
        control.ControlOn = on;
        control.ClientBox = CRect(3, 4, 25, 15);
        control.OnMouseMove(MK_LBUTTON, CPoint(5, 5));
        control.RefreshClientGeometry();
        CHECK(control.LastPoint == CPoint());
        control.OnDraw(window.Dc);
        Frame expected(30, 20, 0x123456);
        expected.FillRect(3, 4, 25, 15, Face);
        CHECK(FrameDifference(window.Capture(), expected) == "");
        CHECK(control.Kit.BmpWidth == 30);
    }
}
