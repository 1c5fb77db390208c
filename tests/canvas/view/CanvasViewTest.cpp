#include "canvas/view/CanvasView.h"

#include <doctest/doctest.h>

#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>

using namespace vostel;

namespace {

constexpr unsigned int Control = MK_LBUTTON | MK_CONTROL;

// A view of an image in the middle of a client area, as it stands after its first blit.
CanvasView ViewOf(int imageWidth, int imageHeight, int clientWidth, int clientHeight)
{
    CanvasView view;
    view.ImageWidth = imageWidth;
    view.ImageHeight = imageHeight;
    view.SetClientRect(CRect(0, 0, clientWidth, clientHeight));
    view.SourceRect = CRect(0, 0, imageWidth, imageHeight);
    return view;
}

void Drag(CanvasView& view, CPoint from, CPoint to, unsigned int flags)
{
    view.LeftDown = true;
    view.LastPoint = from;
    view.OnViewMouseMove(flags, to);
    view.LeftDown = false;
}

float Fraction(int distance, int extent)
{
    return static_cast<float>(distance) / static_cast<float>(extent);
}

// The rectangle by its formula.
CRect DisplayOf(const CanvasView& view)
{
    const double w = view.ImageWidth * view.Scale;
    const double h = view.ImageHeight * view.Scale;
    return CRect(static_cast<int>(view.CentreX - w * 0.5), static_cast<int>(view.CentreY - h * 0.5),
                 static_cast<int>((view.CentreX - w * 0.5) + w),
                 static_cast<int>((view.CentreY - h * 0.5) + h));
}

}

TEST_CASE("a fresh view shows nothing at scale 1 and zooms about the cursor")
{
    const CanvasView view;
    CHECK(view.ImageWidth == 0);
    CHECK(view.ImageHeight == 0);
    CHECK(view.Scale == 1.0);
    CHECK(std::bit_cast<std::uint64_t>(view.ZoomFactor) == 0x3FF3333333333333u);
    CHECK(view.ClientRect == CRect());
    CHECK(view.DisplayRect == CRect());
    CHECK(view.LastPoint == CPoint());
    CHECK_FALSE(view.LeftDown);
    CHECK(view.MoveMode == DisplayZoomCursor);
    CHECK(view.CentreX == 0);
    CHECK(view.CentreY == 0);
    CHECK(view.AnchorX == 0.0);
    CHECK(view.AnchorY == 0.0);
    CHECK(view.SourceRect == CRect());
    CHECK(view.FirstClient);
}

TEST_CASE("the first client rectangle centres the image and does not fit it")
{
    CanvasView view;
    view.ImageWidth = 30;
    view.ImageHeight = 20;
    view.SetClientRect(CRect(0, 0, 101, 51));
    CHECK(view.CentreX == 50);
    CHECK(view.CentreY == 25);
    CHECK(view.Scale == 1.0);
    CHECK_FALSE(view.FirstClient);
    CHECK(view.ClientRect == CRect(0, 0, 101, 51));
    CHECK(view.DisplayRect == CRect(35, 15, 65, 35));
    CHECK(view.SourceRect == CRect(35, 15, 65, 35));
}

TEST_CASE(
    "the halves of odd sizes truncate in whole numbers in the source and in doubles in the display rectangle")
{
    CanvasView view;
    view.ImageWidth = 31;
    view.ImageHeight = 21;
    view.SetClientRect(CRect(0, 0, 100, 50));
    CHECK(view.SourceRect == CRect(35, 15, 66, 36));
    CHECK(view.DisplayRect == CRect(34, 14, 65, 35));    // 34.5 and 14.5
}

TEST_CASE("an image larger than the client area overhangs it on all sides, truncated towards zero")
{
    CanvasView view;
    view.ImageWidth = 201;
    view.ImageHeight = 101;
    view.SetClientRect(CRect(0, 0, 100, 50));
    CHECK(view.DisplayRect == CRect(-50, -25, 150, 75));    // -50.5 and -25.5
    CHECK(view.SourceRect == CRect(-50, -25, 151, 76));
}

TEST_CASE("a client rectangle off the origin centres in whole numbers, towards zero")
{
    CanvasView view;
    view.SetClientRect(CRect(-11, -7, 4, 2));
    CHECK(view.CentreX == -3);
    CHECK(view.CentreY == -2);
}

TEST_CASE(
    "after a resize an image panned to a quarter of the width stays a quarter of the new width off centre")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    Drag(view, CPoint(0, 0), CPoint(50, -25), Control);
    CHECK(view.AnchorX == 0.25);
    CHECK(view.AnchorY == -0.25);
    view.SetClientRect(CRect(0, 0, 400, 1000));
    CHECK(view.CentreX == 300);
    CHECK(view.CentreY == 250);
    CHECK(view.DisplayRect == CRect(280, 240, 320, 260));
    CHECK(view.SourceRect == CRect(280, 240, 320, 260));
    CHECK(view.AnchorX == 0.25);    // a resize refreshes no anchor
}

TEST_CASE("the anchor is a quotient in single precision, and the resize truncates what comes of it")
{
    for (int width = 3; width < 400; width += 7) {
        CanvasView view = ViewOf(10, 10, width, 77);
        Drag(view, CPoint(0, 0), CPoint(width / 3 + 1, 5), Control);
        CAPTURE(width);
        const int distance = width / 3 + 1;
        REQUIRE(view.AnchorX == static_cast<double>(Fraction(distance, width)));
        REQUIRE(view.AnchorY == static_cast<double>(Fraction(5, 77)));
        view.SetClientRect(CRect(0, 0, 1001, 333));
        REQUIRE(view.CentreX ==
                static_cast<int>(1001 * static_cast<double>(Fraction(distance, width)) + 500));
        REQUIRE(view.CentreY == static_cast<int>(333 * static_cast<double>(Fraction(5, 77)) + 166));
    }
}

TEST_CASE("a second client rectangle without a move in between centres again, since the anchors are 0")
{
    CanvasView view = ViewOf(10, 10, 100, 100);
    view.SetClientRect(CRect(0, 0, 300, 60));
    CHECK(view.CentreX == 150);
    CHECK(view.CentreY == 30);
}

TEST_CASE("a client area without an extent keeps the anchors, per axis")
{
    CanvasView view = ViewOf(10, 10, 200, 100);
    Drag(view, CPoint(0, 0), CPoint(50, 25), Control);
    view.SetClientRect(CRect(0, 0, 0, 0));
    CHECK(view.CentreX == 0);
    CHECK(view.CentreY == 0);
    view.OnViewMouseMove(0, CPoint(3, 3));
    CHECK(view.AnchorX == 0.25);
    CHECK(view.AnchorY == 0.25);
    CHECK(view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(0, 0)) == 1);
    CHECK(view.AnchorX == 0.25);
    view.SetClientRect(CRect(0, 0, 400, 200));
    CHECK(view.CentreX == 300);
    CHECK(view.CentreY == 150);
    view.SetClientRect(CRect(0, 0, 0, 200));
    view.CentreY = 180;
    view.OnViewMouseMove(0, CPoint(3, 3));
    CHECK(view.AnchorX == 0.25);
    CHECK(view.AnchorY == static_cast<double>(Fraction(80, 200)));
}

TEST_CASE("a Control drag pans")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    Drag(view, CPoint(10, 10), CPoint(13, 6), Control);
    CHECK(view.CentreX == 103);
    CHECK(view.CentreY == 46);
    CHECK(view.LastPoint == CPoint(13, 6));
    CHECK(view.DisplayRect == CRect(83, 36, 123, 56));
    CHECK(view.AnchorX == static_cast<double>(Fraction(3, 200)));
    CHECK(view.AnchorY == static_cast<double>(Fraction(-4, 100)));
}

TEST_CASE("a plain drag leaves view and last point alone but refreshes the anchors")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.AnchorX = view.AnchorY = 9.0;
    Drag(view, CPoint(10, 10), CPoint(13, 6), MK_LBUTTON);
    CHECK(view.CentreX == 100);
    CHECK(view.CentreY == 50);
    CHECK(view.LastPoint == CPoint(10, 10));
    CHECK(view.AnchorX == 0.0);
    CHECK(view.AnchorY == 0.0);
}

TEST_CASE("Control without the button pans nothing")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.LastPoint = CPoint(1, 1);
    view.OnViewMouseMove(MK_CONTROL, CPoint(13, 6));
    CHECK(view.CentreX == 100);
    CHECK(view.LastPoint == CPoint(1, 1));
}

TEST_CASE("Control pressed in the middle of a drag jumps by the distance from the press")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.LeftDown = true;
    view.LastPoint = CPoint(10, 10);
    view.OnViewMouseMove(MK_LBUTTON, CPoint(40, 10));
    CHECK(view.CentreX == 100);
    view.OnViewMouseMove(Control, CPoint(41, 10));
    CHECK(view.CentreX == 131);
    view.OnViewMouseMove(Control, CPoint(42, 10));
    CHECK(view.CentreX == 132);
}

TEST_CASE("a fixed view takes a Control drag as its last point only")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.MoveMode = DisplayFixed;
    view.DisplayRect = CRect();
    Drag(view, CPoint(10, 10), CPoint(13, 6), Control);
    CHECK(view.CentreX == 100);
    CHECK(view.CentreY == 50);
    CHECK(view.LastPoint == CPoint(13, 6));
    CHECK(view.DisplayRect == CRect(80, 40, 120, 60));    // computed afresh
}

TEST_CASE("a fixed view takes a Control wheel step as a refresh only")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.MoveMode = DisplayFixed;
    view.DisplayRect = CRect(0, 0, 500, 500);
    view.CentreX = 150;
    CHECK(view.OnViewMouseWheel(MK_CONTROL, 120, CPoint(0, 0)) == 1);
    CHECK(view.OnViewMouseWheel(MK_CONTROL, -120, CPoint(0, 0)) == 1);
    CHECK(view.Scale == 1.0);
    CHECK(view.CentreX == 150);
    CHECK(view.DisplayRect == CRect(130, 40, 170, 60));
    CHECK(view.AnchorX == 0.25);
}

TEST_CASE("a wheel step without Control changes nothing, not even the anchors")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.CentreX = 150;
    view.DisplayRect = CRect(1, 2, 3, 4);
    CHECK(view.OnViewMouseWheel(MK_LBUTTON | MK_SHIFT, 120, CPoint(5, 5)) == 0);
    CHECK(view.Scale == 1.0);
    CHECK(view.CentreX == 150);
    CHECK(view.AnchorX == 0.0);
    CHECK(view.DisplayRect == CRect(1, 2, 3, 4));
}

TEST_CASE("a Control wheel step without a direction returns 1 and keeps the scale")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.CentreX = 150;
    CHECK(view.OnViewMouseWheel(MK_CONTROL, 0, CPoint(7, 7)) == 1);
    CHECK(view.Scale == 1.0);
    CHECK(view.CentreX == 150);
    CHECK(view.AnchorX == 0.25);
}

TEST_CASE("of a wheel step only the sign counts")
{
    CanvasView one = ViewOf(40, 20, 200, 100);
    CanvasView many = one;
    one.OnViewMouseWheel(MK_CONTROL, 1, CPoint(0, 0));
    many.OnViewMouseWheel(MK_CONTROL, 32767, CPoint(0, 0));
    CHECK(one.Scale == 1.2);
    CHECK(many.Scale == 1.2);
    one.OnViewMouseWheel(MK_CONTROL, -1, CPoint(0, 0));
    many.OnViewMouseWheel(MK_CONTROL, -32768, CPoint(0, 0));
    CHECK(one.Scale == 1.2 / 1.2);
    CHECK(many.Scale == 1.2 / 1.2);
    CHECK(one.DisplayRect == many.DisplayRect);
}

TEST_CASE("zooming about the centre keeps it")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.MoveMode = DisplayZoomCentre;
    view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(0, 0));
    CHECK(view.CentreX == 100);
    CHECK(view.CentreY == 50);
    CHECK(view.DisplayRect == CRect(76, 38, 124, 62));
    Drag(view, CPoint(0, 0), CPoint(5, 5), Control);    // panning works in this mode
    CHECK(view.CentreX == 105);
}

TEST_CASE("zooming about the cursor keeps the image point under it")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(110, 45));
    CHECK(view.CentreX == 98);    // 110 - (110 - 100) * 1.2
    CHECK(view.CentreY == 51);    // 45 - (45 - 50) * 1.2
    CHECK(view.DisplayRect == DisplayOf(view));
    CHECK(view.AnchorX == static_cast<double>(Fraction(-2, 200)));
}

TEST_CASE("each step of a zoom multiplies, then divides, and truncates the centre")
{
    CanvasView view = ViewOf(640, 480, 500, 400);
    double     scale = 1.0;
    int        centreX = 250;
    int        centreY = 200;
    for (int step = 0; step < 40; ++step) {
        CAPTURE(step);
        const double old = scale;
        const bool   in = step % 5 < 3;
        const CPoint at(step * 37 % 500, step * 91 % 400);
        scale = in ? scale * 1.2 : scale / 1.2;
        volatile double movedX = (at.x - centreX) * scale;
        volatile double movedY = (at.y - centreY) * scale;
        movedX = movedX / old;
        movedY = movedY / old;
        centreX = static_cast<int>(at.x - movedX);
        centreY = static_cast<int>(at.y - movedY);
        view.OnViewMouseWheel(MK_CONTROL, in ? 120 : -120, at);
        REQUIRE(view.Scale == scale);
        REQUIRE(view.CentreX == centreX);
        REQUIRE(view.CentreY == centreY);
        REQUIRE(view.DisplayRect == DisplayOf(view));
        REQUIRE(view.AnchorX == static_cast<double>(Fraction(centreX - 250, 500)));
        REQUIRE(view.AnchorY == static_cast<double>(Fraction(centreY - 200, 400)));
    }
}

TEST_CASE("right minus left of the display rectangle may differ from the truncated width by one")
{
    bool differs = false;
    for (int width = 1; width < 60; ++width) {
        CanvasView view = ViewOf(width, 10, 200, 100);
        view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(3, 3));
        CHECK(view.DisplayRect == DisplayOf(view));
        differs = differs || view.DisplayRect.Width() != static_cast<int>(width * 1.2);
    }
    CHECK(differs);
}

TEST_CASE("zooming in stops when no more than 4 image rows are visible, however wide they are")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.SourceRect = CRect(0, 10, 40, 14);
    view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(0, 0));
    CHECK(view.Scale == 1.0);
    view.SourceRect = CRect(0, 10, 1, 15);    // one column, but five rows
    view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(0, 0));
    CHECK(view.Scale == 1.2);
    view.SourceRect = CRect(0, 10, 40, 14);
    view.OnViewMouseWheel(MK_CONTROL, -1, CPoint(0, 0));    // the way out stays open
    CHECK(view.Scale == 1.2 / 1.2);
}

TEST_CASE("zooming out stops when the image is no more than 4 pixels wide or high on the screen")
{
    const auto scaleAfter = [](const CRect& shown) {
        CanvasView view = ViewOf(40, 20, 200, 100);
        view.DisplayRect = shown;
        view.OnViewMouseWheel(MK_CONTROL, -1, CPoint(0, 0));
        return view.Scale;
    };
    CHECK(scaleAfter(CRect(10, 10, 14, 50)) == 1.0);
    CHECK(scaleAfter(CRect(10, 10, 50, 14)) == 1.0);
    CHECK(scaleAfter(CRect(10, 10, 15, 15)) == 1.0 / 1.2);
    CanvasView view = ViewOf(40, 20, 200, 100);
    view.DisplayRect = CRect(10, 10, 14, 14);
    view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(0, 0));    // the way in stays open
    CHECK(view.Scale == 1.2);
}

TEST_CASE("zooming out ends by itself")
{
    CanvasView view = ViewOf(1000, 400, 200, 100);
    for (int i = 0; i < 200; ++i)
        view.OnViewMouseWheel(MK_CONTROL, -1, CPoint(50, 50));
    CHECK(view.Scale > 0.005);
    CHECK(view.Scale < 0.013);
}

TEST_CASE("client and image points convert by the truncated display rectangle")
{
    CanvasView view = ViewOf(41, 21, 200, 100);
    CHECK(view.DisplayRect.left == 79);    // not 79.5
    CHECK(view.ClientToImage(CPoint(80, 40)).x == 1.0);
    CHECK(view.ClientToImage(CPoint(80, 40)).y == 1.0);
    CHECK(view.ImageToClient({1.0, 1.0}) == CPoint(80, 40));
    view.Scale = 2.5;
    view.DisplayRect.left = -3;
    view.DisplayRect.top = 7;
    CHECK(view.ClientToImage(CPoint(1, 6)).x == 4 / 2.5);
    CHECK(view.ClientToImage(CPoint(1, 6)).y == -1 / 2.5);
    CHECK(view.ImageToClient({1.6, -0.4}) == CPoint(1, 6));
    CHECK(view.ImageToClient({1.0, 0.0}) == CPoint(0, 7));        // -0.5 truncates towards zero
    CHECK(view.ImageToClient({0.9, 0.0}) == CPoint(0, 7));        // so does -0.75
    CHECK(view.ImageToClient({-1.0, -5.0}) == CPoint(-5, -5));    // -5.5, -5.5
}

TEST_CASE("conversions neither round nor clamp")
{
    CanvasView view = ViewOf(10, 10, 100, 100);
    view.Scale = 3.0;
    CHECK(view.ClientToImage(CPoint(-1000, 1000)).x == (-1000 - 45) / 3.0);
    CHECK(view.ClientToImage(CPoint(-1000, 1000)).y == (1000 - 45) / 3.0);
    CHECK(view.ImageToClient({-100.0, 100.0}) == CPoint(-255, 345));
}

TEST_CASE("conversions at far coordinates keep their sign")
{
    CanvasView view = ViewOf(10, 10, 100, 100);
    view.DisplayRect.left = INT_MIN;
    view.DisplayRect.top = INT_MAX;
    view.Scale = 0.5;
    CHECK(view.ClientToImage(CPoint(100, -100)).x == 2.0 * (100.0 + 2147483648.0));
    CHECK(view.ClientToImage(CPoint(100, -100)).y == 2.0 * (-100.0 - 2147483647.0));
    CHECK(view.ImageToClient({8589934592.0, 0.0}) == CPoint(INT_MIN, INT_MAX));    // beyond 32 bits
    CHECK(view.ImageToClient({std::nan(""), -8589934592.0}) == CPoint(INT_MIN, INT_MIN));
    CHECK(view.ImageToClient({4294967296.0, 0.0}) == CPoint(0, INT_MAX));
}

TEST_CASE("any client rectangle, drag and wheel step at the limits of 32 bits does no harm")
{
    const int limits[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, INT_MAX - 1, INT_MAX};
    for (const int a : limits) {
        for (const int b : limits) {
            for (const int size : {0, 1, 65536, INT_MAX}) {
                CanvasView view;
                view.ImageWidth = size;
                view.ImageHeight = size;
                view.SetClientRect(CRect(a, b, b, a));
                CHECK(view.CentreX == static_cast<int>((static_cast<long long>(a) + b) / 2));
                Drag(view, CPoint(a, b), CPoint(b, a), Control);
                view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(a, b));
                view.OnViewMouseWheel(MK_CONTROL, -1, CPoint(b, a));
                view.ClientToImage(CPoint(a, b));
                view.SetClientRect(CRect(b, b, a, a));
                CHECK_FALSE(view.FirstClient);
            }
        }
    }
}

TEST_CASE("zooming in without end, no paint between, does no harm")
{
    CanvasView view = ViewOf(40, 20, 200, 100);
    for (int i = 0; i < 5000; ++i)
        view.OnViewMouseWheel(MK_CONTROL, 1, CPoint(7, 9));
    CHECK(std::isinf(view.Scale));
    view.OnViewMouseMove(Control, CPoint(1, 1));
    view.ImageToClient({1.0, 1.0});
    CHECK(view.ClientToImage(CPoint(1, 1)).x == 0.0);
}
