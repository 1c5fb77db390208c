#include "instruments/VostelProgress.h"
#include "instruments/VostelSlider.h"

#include "support/HostCanvas.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

namespace {

constexpr unsigned int Face = 0xB4B4B4;          // 180
constexpr unsigned int Edge = 0x969696;          // 150
constexpr unsigned int DarkThumb = 0x505050;     // 80
constexpr unsigned int LightThumb = 0xDCDCDC;    // 220
constexpr unsigned int Bar = 0x646464;           // 100

CanvasView ViewOf(int width, int height)
{
    CanvasView view;
    view.SetClientRect(CRect(0, 0, width, height));
    return view;
}

// In a client area of 500 x 300: box 20,249 to 420,279, caption 22 to 78, track 82 to 418 with a travel of
// 326.
struct PlacedSlider {
    CanvasView   View = ViewOf(500, 300);
    VostelSlider Slider;

    PlacedSlider()
    {
        Slider.SetCanvasView(&View);
        Slider.SetPlacement(20.0f, 20.0f, 400.0f, 30.0f);
    }
    void Press(int x, int y = 260) { Slider.OnLButtonDown(MK_LBUTTON, CPoint(x, y)); }
    void Move(int x) { Slider.OnMouseMove(MK_LBUTTON, CPoint(x, 260)); }
    void Release() { Slider.OnLButtonUp(0, CPoint()); }
};

// The whole control as it looks at rest, but for the letters of its caption.
Frame SliderFrame(Frame frame, float low, float high)
{
    frame.FillRect(20, 249, 420, 279, Face);
    frame.OutlineRect(22, 251, 78, 277, Edge);
    frame.OutlineRect(82, 251, 418, 277, Edge);
    const int lowLeft = static_cast<int>(326.0f * low + 87.0f - 5.0f);
    const int highLeft = static_cast<int>(326.0f * high + 87.0f - 5.0f);
    frame.FillRect(lowLeft, 251, lowLeft + 10, 277, DarkThumb);
    frame.FillRect(highLeft, 251, highLeft + 10, 277, LightThumb);
    return frame;
}

// The letters inside the caption's outline are the platform's.
Frame WithoutCaption(Frame frame)
{
    frame.FillRect(23, 252, 77, 276, 0);
    return frame;
}

}

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

TEST_CASE("a fresh slider spans the whole range")
{
    const VostelSlider slider;
    CHECK_FALSE(slider.ControlHit);
    CHECK(slider.Low == 0.0f);
    CHECK(slider.High == 1.0f);
    CHECK(slider.Caption == L"阈值");
    CHECK_FALSE(slider.SingleThumb);
    CHECK(slider.CaptionWidth == 60);
    CHECK(slider.Travel == 0);
    CHECK_FALSE(slider.DragLow);
    CHECK_FALSE(slider.DragHigh);
    CHECK(slider.ThumbWidth == 10);
    CHECK(slider.TrackWidth == 0);
    CHECK(slider.TrackGap == 0);
    CHECK(slider.Inset == -2);
    CHECK(slider.CaptionRect == CRect());
    CHECK(slider.TrackRect == CRect());
}

TEST_CASE("a caption brings the whole range and both thumbs back")
{
    VostelSlider slider;
    slider.Low = 0.25f;
    slider.High = 0.5f;
    slider.SingleThumb = true;
    slider.SetCaption(L"window");
    CHECK(slider.Caption == L"window");
    CHECK_FALSE(slider.SingleThumb);
    CHECK(slider.Low == 0.0f);
    CHECK(slider.High == 1.0f);
}

TEST_CASE("a slider lays caption, track and thumbs into its box")
{
    PlacedSlider  placed;
    VostelSlider& slider = placed.Slider;
    CHECK(slider.ClientBox == CRect(20, 249, 420, 279));
    CHECK(slider.CaptionRect == CRect(22, 251, 78, 277));
    CHECK(slider.TrackRect == CRect(82, 251, 418, 277));
    CHECK(slider.TrackWidth == 336);
    CHECK(slider.Travel == 326);
    CHECK(slider.LowThumbRect == CRect(82, 251, 92, 277));
    CHECK(slider.HighThumbRect == CRect(408, 251, 418, 277));
    slider.Low = 0.25f;
    slider.High = 0.7f;
    slider.TrackGap = 7;
    slider.ThumbWidth = 9;    // an odd width halves to 4 in both places
    slider.RefreshClientGeometry();
    CHECK(slider.TrackRect == CRect(89, 251, 418, 277));
    CHECK(slider.Travel == 320);
    CHECK(slider.LowThumbRect == CRect(169, 251, 178, 277));
    CHECK(slider.HighThumbRect.left == static_cast<int>(320.0f * 0.7f + 93.0f - 4.0f));
}

TEST_CASE("the inner rectangles of a slider lag one refresh behind a change of client size")
{
    PlacedSlider placed;
    placed.View.SetClientRect(CRect(0, 0, 500, 400));
    placed.Slider.SetCanvasView(&placed.View);
    CHECK(placed.Slider.ClientBox == CRect(20, 349, 420, 379));
    CHECK(placed.Slider.TrackRect == CRect(82, 251, 418, 277));
    placed.Slider.SetCanvasView(&placed.View);
    CHECK(placed.Slider.TrackRect == CRect(82, 351, 418, 377));
}

TEST_CASE("a press on a thumb drags it, a press elsewhere in the box only counts as a hit")
{
    PlacedSlider placed;
    placed.Slider.ActiveNode = 5;
    placed.Press(85);
    CHECK(placed.Slider.DragLow);
    CHECK_FALSE(placed.Slider.DragHigh);
    CHECK(placed.Slider.ControlHit);
    CHECK(placed.Slider.ButtonDown);
    CHECK(placed.Slider.LastPoint == CPoint(85, 260));
    CHECK(placed.Slider.ActiveNode == -1);
    placed.Release();
    CHECK_FALSE(placed.Slider.DragLow);
    CHECK_FALSE(placed.Slider.ButtonDown);
    CHECK(placed.Slider.MoveState == 2);
    CHECK(placed.Slider.ControlHit);    // for the canvas to read
    placed.Press(410);
    CHECK(placed.Slider.DragHigh);
    CHECK_FALSE(placed.Slider.DragLow);
    placed.Release();
    placed.Press(200);
    CHECK(placed.Slider.ControlHit);
    CHECK_FALSE(placed.Slider.DragLow);
    CHECK_FALSE(placed.Slider.DragHigh);
    placed.Press(20, 249);    // the box's corner
    CHECK(placed.Slider.ControlHit);
    placed.Press(420, 260);
    CHECK_FALSE(placed.Slider.ControlHit);
    placed.Press(85, 250);    // in the box, above the thumb
    CHECK(placed.Slider.ControlHit);
    CHECK_FALSE(placed.Slider.DragLow);
}

TEST_CASE("dragging moves a value by the fraction of the travel")
{
    PlacedSlider placed;
    placed.Press(85);
    placed.Move(85 + 163);
    CHECK(placed.Slider.Low == 0.5f);
    CHECK(placed.Slider.High == 1.0f);
    CHECK(placed.Slider.LastPoint == CPoint(248, 260));
    CHECK(placed.Slider.LowThumbRect.left == 82 + 163);
    placed.Move(85 + 164);
    CHECK(placed.Slider.Low == 0.5f + 1.0f / 326.0f);
    placed.Release();
    placed.Press(410);
    placed.Move(410 - 100);
    CHECK(placed.Slider.High == 1.0f + -100.0f / 326.0f);
    placed.Release();
    placed.Move(0);    // nothing is dragged any more
    CHECK(placed.Slider.High == 1.0f + -100.0f / 326.0f);
}

TEST_CASE("the thumbs stay in 0 to 1 and at least one thumb's width of travel apart")
{
    PlacedSlider placed;
    placed.Press(85);
    placed.Move(-1000);
    CHECK(placed.Slider.Low == 0.0f);
    placed.Move(100000);
    CHECK(placed.Slider.Low == 1.0f - 10.0f / 326.0f);
    placed.Release();
    placed.Slider.RefreshClientGeometry();
    placed.Press(410);
    placed.Move(100000);
    CHECK(placed.Slider.High == 1.0f);
    placed.Release();
    placed.Slider.Low = 0.25f;
    placed.Slider.RefreshClientGeometry();
    placed.Press(410);
    placed.Move(-100000);
    CHECK(placed.Slider.High == 10.0f / 326.0f + 0.25f);
}

TEST_CASE("a thumb pushed past its limit is placed past it until the next refresh")
{
    PlacedSlider placed;
    placed.Press(85);
    placed.Move(85 - 40);
    CHECK(placed.Slider.Low == 0.0f);
    CHECK(placed.Slider.LowThumbRect.left == 82 - 40);
    placed.Slider.RefreshClientGeometry();
    CHECK(placed.Slider.LowThumbRect.left == 82);
}

TEST_CASE("a press where the thumbs overlap drags both, and the light one takes the whole step")
{
    PlacedSlider placed;
    placed.Slider.Low = 0.5f;
    placed.Slider.High = 0.51f;
    placed.Slider.RefreshClientGeometry();
    placed.Press(placed.Slider.HighThumbRect.left);
    CHECK(placed.Slider.DragLow);
    CHECK(placed.Slider.DragHigh);
    placed.Move(placed.Slider.HighThumbRect.left + 50);
    CHECK(placed.Slider.High == 0.51f + 50.0f / 326.0f);
    CHECK(placed.Slider.Low == 0.5f);
}

TEST_CASE("random drags follow the steps of the rule")
{
    const unsigned seed = 8086;
    CAPTURE(seed);
    std::mt19937 random(seed);
    PlacedSlider placed;
    float        low = 0.0f;
    float        high = 1.0f;
    for (int round = 0; round < 400; ++round) {
        CAPTURE(round);
        placed.Slider.RefreshClientGeometry();
        const bool  dark = random() % 2 == 0;
        const CRect thumb = dark ? placed.Slider.LowThumbRect : placed.Slider.HighThumbRect;
        const int   from = thumb.left + static_cast<int>(random() % 10);
        const int   by = static_cast<int>(random() % 700) - 350;
        placed.Press(from);
        const bool dragsLow = placed.Slider.DragLow;
        const bool dragsHigh = placed.Slider.DragHigh;
        REQUIRE((dragsLow || dragsHigh));
        placed.Move(from + by);
        placed.Release();
        volatile float step = static_cast<float>(by) / 326.0f;
        if (dragsHigh) {
            high = high + step;
            const float nearest = 10.0f / 326.0f + low;
            high = std::max(std::max(nearest, 0.0f), std::min(high, 1.0f));
            step = 0.0f;
        }
        if (dragsLow) {
            low = low + step;
            const float nearest = high - 10.0f / 326.0f;
            low = std::max(0.0f, std::min(low, std::min(nearest, 1.0f)));
        }
        REQUIRE(placed.Slider.Low == low);
        REQUIRE(placed.Slider.High == high);
    }
}

TEST_CASE("a slider that is off is deaf, but its geometry is kept up")
{
    PlacedSlider placed;
    placed.Slider.OnKeyDown(VK_TAB, 1, 0);
    placed.Press(85);
    CHECK_FALSE(placed.Slider.DragLow);
    CHECK_FALSE(placed.Slider.ControlHit);
    CHECK_FALSE(placed.Slider.ButtonDown);
    placed.Slider.DragLow = true;
    placed.Move(200);
    CHECK(placed.Slider.Low == 0.0f);
    placed.Release();
    CHECK(placed.Slider.DragLow);
    placed.Slider.OnKeyDown('X', 1, 0);
    placed.Slider.Low = 0.5f;
    placed.Slider.RefreshClientGeometry();
    CHECK(placed.Slider.LowThumbRect.left == 245);
    TestDesktop  desktop;
    MemoryWindow window(500, 300);
    placed.Slider.OnDraw(window.Dc);
    CHECK(FrameDifference(window.Capture(), Frame(500, 300)) == "");
}

TEST_CASE("a slider without travel is dragged without harm")
{
    for (const float width : {0.0f, 60.0f, 70.0f, 73.0f, 74.0f, 75.0f, 80.0f, -500.0f}) {
        CAPTURE(width);
        PlacedSlider placed;
        placed.Slider.SetPlacement(20.0f, 20.0f, width, 30.0f);
        CHECK(placed.Slider.Travel == static_cast<int>(width) - 74);
        placed.Slider.DragLow = placed.Slider.DragHigh = true;
        placed.Slider.LastPoint = CPoint(100, 100);
        for (const int x : {105, 95, INT_MAX, INT_MIN, 100, 100}) {
            placed.Move(x);
            placed.Slider.RefreshClientGeometry();
        }
    }
}

TEST_CASE("placements at the limits of 32 bits do no harm")
{
    const float  limits[] = {-3e9f, -2147483648.0f, -1.0f, 0.0f, 2147483520.0f, 3e9f};
    MemoryWindow window(50, 30);
    TestDesktop  desktop;
    for (const float a : limits) {
        for (const float b : limits) {
            PlacedSlider placed;
            placed.Slider.SetPlacement(a, b, b, a);
            placed.Press(85);
            placed.Slider.DragLow = placed.Slider.DragHigh = true;
            placed.Move(INT_MIN);
            placed.Move(INT_MAX);
            placed.View.ClientRect = CRect(INT_MAX, INT_MIN, INT_MIN, INT_MAX);
            placed.Slider.SetCanvasView(&placed.View);
            VostelProgress progress;
            progress.SetCanvasView(&placed.View);
            progress.SetPlacement(b, a, a, b);
            progress.Pos = INT_MAX;
            progress.RangeLow = INT_MIN;
            progress.RefreshClientGeometry();
            CHECK(progress.RangeHigh == 200);
        }
    }
}

TEST_CASE("a slider with one thumb draws the dark one only")
{
    TestDesktop  desktop;
    MemoryWindow window(500, 300);
    PlacedSlider placed;
    placed.Slider.SingleThumb = true;
    placed.Slider.OnDraw(window.Dc);
    const Frame drawn = window.Capture();
    CHECK(drawn.At(85, 260) == DarkThumb);
    CHECK(drawn.At(410, 260) == Face);
    CHECK(drawn.At(417, 260) == Edge);
}

TEST_CASE("a slider leaves opaque black text on its face, the stock brush and its pen")
{
    TestDesktop  desktop;
    MemoryWindow window(500, 300);
    PlacedSlider placed;
    placed.Slider.OnDraw(window.Dc);
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < 10; ++i)
        placed.Slider.OnDraw(window.Dc);
    CHECK(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS) == before);
    CHECK(SetBkColor(window.Dc, 0) == RGB(180, 180, 180));
    CHECK(SetTextColor(window.Dc, 5) == 0);
    CHECK(SetBkMode(window.Dc, TRANSPARENT) == OPAQUE);
    CHECK(GetCurrentObject(window.Dc, OBJ_BRUSH) == GetStockObject(WHITE_BRUSH));
    CHECK(GetCurrentObject(window.Dc, OBJ_PEN) == GetStockObject(BLACK_PEN));
}

TEST_CASE("the bar of a progress control is its box shrunk by 3 and filled by the position")
{
    VostelProgress progress;
    CHECK(progress.RangeLow == 100);
    CHECK(progress.RangeHigh == 200);
    CHECK(progress.Pos == 150);
    CanvasView view = ViewOf(500, 300);
    progress.SetCanvasView(&view);
    progress.SetPlacement(30.0f, 50.0f, 106.0f, 20.0f);
    CHECK(progress.ClientBox == CRect(30, 229, 136, 249));
    CHECK(progress.BarRect == CRect(33, 232, 83, 246));
    const auto rightAt = [&](int low, int high, int pos) {
        progress.RangeLow = low;
        progress.RangeHigh = high;
        progress.Pos = pos;
        progress.RefreshClientGeometry();
        CHECK(progress.BarRect.left == 33);
        return progress.BarRect.right;
    };
    CHECK(rightAt(0, 3, 1) == 66);    // 33.33 + 33, truncated
    CHECK(rightAt(0, 3, 0) == 33);
    CHECK(rightAt(0, 3, 3) == 133);
    CHECK(rightAt(0, 100, 250) == 283);    // beyond the control
    CHECK(rightAt(0, 100, -20) == 13);
    CHECK(rightAt(100, 0, 75) == 58);    // a range that runs down
    CHECK(rightAt(5, 5, 5) == INT_MIN);
    CHECK(rightAt(5, 5, 6) == INT_MIN);
    CHECK(rightAt(INT_MIN, INT_MAX, 0) == 83);
    CHECK(rightAt(INT_MIN, INT_MAX, INT_MAX) == 133);
}

TEST_CASE("a progress control ignores moves and refreshes when it draws")
{
    TestDesktop    desktop;
    MemoryWindow   window(160, 60);
    VostelProgress progress;
    CanvasView     view = ViewOf(160, 60);
    progress.SetCanvasView(&view);
    progress.SetPlacement(10.0f, 10.0f, 106.0f, 20.0f);
    progress.Pos = 175;
    progress.OnMouseMove(MK_LBUTTON, CPoint(20, 40));
    CHECK(progress.BarRect.right == 63);
    progress.OnDraw(window.Dc);
    CHECK(progress.BarRect.right == 88);
    Frame expected(160, 60);
    expected.FillRect(10, 29, 116, 49, Face);
    expected.FillRect(13, 32, 88, 46, Bar);
    CHECK(FrameDifference(window.Capture(), expected) == "");
}

TEST_CASE("the shown slider is painted over the image, and nothing of it when hidden or off")
{
    HostCanvas host(0, 500, 300);
    host.ShowFlatGray(400, 280, 77);
    const Frame bare = host.PaintAndCapture();
    gCVSSetContrastCtrlRectPos(0, 20, 20, 400, 30);
    CHECK(FrameDifference(host.PaintAndCapture(), bare) == "");
    gCVSShowContrastCtrl(0, true);
    const Frame shown = host.PaintAndCapture();
    CHECK(FrameDifference(WithoutCaption(shown), WithoutCaption(SliderFrame(bare, 0.0f, 1.0f))) == "");
    int letters = 0;
    for (int y = 252; y < 276; ++y)
        for (int x = 23; x < 77; ++x)
            letters += shown.At(x, y) != Face ? 1 : 0;
    CHECK(letters > 10);
    host.Key(VK_TAB);
    CHECK(FrameDifference(host.PaintAndCapture(), bare) == "");
    host.Key(VK_TAB);
    CHECK(FrameDifference(host.PaintAndCapture(), shown) == "");
    gCVSShowContrastCtrl(0, false);
    host.Key(VK_TAB);    // a hidden slider gets no keys
    gCVSShowContrastCtrl(0, true);
    CHECK(FrameDifference(host.PaintAndCapture(), shown) == "");
}

TEST_CASE("X brings the shown slider to its recall place, off or on")
{
    HostCanvas  host(0, 500, 300);
    const Frame bare = host.PaintAndCapture();
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 1000, 1000, 50, 30);
    host.Key(VK_TAB);
    host.Key('X');
    host.Key(VK_TAB);
    CHECK(FrameDifference(WithoutCaption(host.PaintAndCapture()),
                          WithoutCaption(SliderFrame(bare, 0.0f, 1.0f))) == "");
}

TEST_CASE("releasing a dragged thumb changes the contrast of float data")
{
    HostCanvas host(0, 500, 300);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 20, 20, 400, 30);
    host.ShowFloat(4, 1, [](int x, int) { return x; });
    CHECK(host.Surface().Words == std::vector<unsigned int>{0x000000, 0x555555, 0xAAAAAA, 0xFFFFFF});
    host.Press(85, 260);
    host.Move(85 + 163, 260, MK_LBUTTON);
    CHECK(host.Surface().At(1, 0) == 0x555555);    // nothing before the release
    host.Release(85 + 163, 260);
    // The window is now 32767 to 65535: 43690 is a third of it.
    CHECK(host.Surface().Words == std::vector<unsigned int>{0x000000, 0x000000, 0x555555, 0xFFFFFF});
    const Frame drawn = host.PaintAndCapture();
    CHECK(drawn.At(82 + 163, 260) == DarkThumb);
    CHECK(drawn.At(82 + 162, 260) == Face);
    CHECK(drawn.At(408, 260) == LightThumb);
}

TEST_CASE("a press inside the slider on no thumb still applies the window on release")
{
    HostCanvas host(0, 500, 300);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 20, 20, 400, 30);
    host.ShowFloat(4, 1, [](int x, int) { return x; });
    gCVSSetLutPara(0, 0.5f, 1.0f);
    CHECK(host.Surface().At(1, 0) == 0x000000);
    host.Press(200, 260);
    host.Release(200, 260);
    CHECK(host.Surface().At(1, 0) == 0x555555);    // the slider's own window, 0 to 1
    gCVSSetLutPara(0, 0.5f, 1.0f);
    host.Press(200, 100);
    host.Release(200, 100);
    CHECK(host.Surface().At(1, 0) == 0x000000);    // outside: nothing is applied
}

TEST_CASE("a slider drawn after a drag beyond its limit stands at the limit")
{
    HostCanvas  host(0, 500, 300);
    const Frame bare = host.PaintAndCapture();
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 20, 20, 400, 30);
    host.Press(410, 260);
    host.Move(10000, 260, MK_LBUTTON);
    host.Release(10000, 260);
    CHECK(FrameDifference(WithoutCaption(host.PaintAndCapture()),
                          WithoutCaption(SliderFrame(bare, 0.0f, 1.0f))) == "");
}

TEST_CASE("the shown progress bar follows range and position")
{
    HostCanvas  host(0, 500, 300);
    const Frame bare = host.PaintAndCapture();
    gCVSSetProgressRectPos(0, 30, 50, 106, 20);
    CHECK(FrameDifference(host.PaintAndCapture(), bare) == "");
    gCVSShowProgress(0, true);
    const auto expected = [&](int right) {
        Frame frame = bare;
        frame.FillRect(30, 229, 136, 249, Face);
        frame.FillRect(33, 232, right, 246, Bar);
        return frame;
    };
    CHECK(FrameDifference(host.PaintAndCapture(), expected(83)) == "");
    gCVSSetPos(0, 125);
    CHECK(FrameDifference(host.PaintAndCapture(), expected(58)) == "");
    gCVSSetRange(0, 0, 1000);    // drawing refreshes
    CHECK(FrameDifference(host.PaintAndCapture(), expected(45)) == "");
    gCVSSetPos(0, 1000);
    CHECK(FrameDifference(host.PaintAndCapture(), expected(133)) == "");
    gCVSSetPos(0, 1500);    // runs beyond the control
    CHECK(FrameDifference(host.PaintAndCapture(), expected(183)) == "");
    gCVSSetPos(0, 0);
    CHECK(FrameDifference(host.PaintAndCapture(), expected(33)) == "");
    host.Key(VK_TAB);    // the bar gets no keys
    host.Key('X');
    CHECK(FrameDifference(host.PaintAndCapture(), expected(33)) == "");
    gCVSShowProgress(0, false);
    CHECK(FrameDifference(host.PaintAndCapture(), bare) == "");
}

TEST_CASE("a bar before the start of its range runs to the left of the control")
{
    HostCanvas host(0, 500, 300);
    Frame      expected = host.PaintAndCapture();
    gCVSSetProgressRectPos(0, 30, 50, 106, 20);
    gCVSShowProgress(0, true);
    gCVSSetPos(0, 80);    // 20 px to the left of the bar's start: columns 33 down to 14
    expected.FillRect(30, 229, 136, 249, Face);
    expected.FillRect(14, 232, 34, 246, Bar);
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
}

TEST_CASE("a range without an extent is drawn without harm")
{
    HostCanvas host(0, 500, 300);
    gCVSSetProgressRectPos(0, 30, 50, 106, 20);
    gCVSShowProgress(0, true);
    gCVSSetRange(0, 7, 7);
    for (const int pos : {7, 8, 6, INT_MAX, INT_MIN}) {
        gCVSSetPos(0, pos);
        host.Paint();
    }
    CHECK(host.Pixel(31, 230) == Face);
}

TEST_CASE("controls placed at the limits of 32 bits are painted and pressed without harm")
{
    HostCanvas host(0, 100, 60);
    gCVSShowProgress(0, true);
    gCVSShowContrastCtrl(0, true);
    for (const int a : {INT_MIN, -1, INT_MAX}) {
        for (const int b : {INT_MIN, 0, INT_MAX}) {
            gCVSSetContrastCtrlRectPos(0, a, b, b, a);
            gCVSSetProgressRectPos(0, b, a, a, b);
            host.Paint();
            host.Press(50, 30);
            host.Move(INT_MIN, INT_MAX);
            host.Release(INT_MAX, INT_MIN);
        }
    }
    gCVSShowContrastCtrl(0, false);
    gCVSShowProgress(0, false);
    host.ShowFlatGray(100, 60, 9);
    host.Paint();
    CHECK(host.Pixel(50, 30) == 0x090909);
}
