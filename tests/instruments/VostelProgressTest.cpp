#include "instruments/VostelProgress.h"

#include "Controls.h"

#include <climits>

using namespace vostel;

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
