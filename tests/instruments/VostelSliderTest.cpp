#include "instruments/VostelSlider.h"
#include "instruments/VostelProgress.h"

#include "Controls.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

using namespace vostel;

namespace {

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
