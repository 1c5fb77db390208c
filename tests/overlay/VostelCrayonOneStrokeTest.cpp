#include "overlay/VostelCrayonOneStroke.h"

#include "support/OverlayCanvas.h"

using namespace vostel;

namespace {

// A closed stroke from 20,20 to 60,50, clockwise.
VostelCrayonOneStroke& DrawRegion(OverlayCanvas& host)
{
    gCVSAddFreeRegion(host.Number);
    host.Hover();
    host.PressAt(20, 20, DrawFlags);
    host.MoveTo(60, 20, DrawFlags);
    host.MoveTo(60, 50, DrawFlags);
    host.MoveTo(20, 50, DrawFlags);
    host.ReleaseAt(20, 50, MK_SHIFT);
    VostelCrayonOneStroke& region = host.Last<VostelCrayonOneStroke>();
    REQUIRE(region.ImagePoints.size() == 4);
    return region;
}

}

TEST_CASE("every move adds a point while the stroke is open, also many at one spot")
{
    OverlayCanvas host;
    gCVSAddFreeRegion(host.Number);
    host.Hover();
    VostelCrayonOneStroke& region = host.Last<VostelCrayonOneStroke>();
    CHECK(region.TypeCode == OverlayOneStroke);
    CHECK(region.StrokeDone);
    host.MoveTo(30, 30, DrawFlags);
    CHECK(region.ImagePoints.empty());
    host.PressAt(20, 20, DrawFlags);
    CHECK_FALSE(region.StrokeDone);
    CHECK(region.ImagePoints.size() == 1);
    for (int i = 0; i < 5; ++i)
        host.MoveTo(30, 30, 0);    // neither Shift nor the button is asked for
    CHECK(region.ImagePoints.size() == 6);
    CHECK(region.ClientPoints.size() == 6);
    host.ReleaseAt(30, 30);
    CHECK(region.StrokeDone);
    CHECK_FALSE(region.ButtonDown);
    host.MoveTo(40, 40);
    CHECK(region.ImagePoints.size() == 6);
}

TEST_CASE("a region of one point draws nothing, and it cannot be hit before it has three")
{
    OverlayCanvas host;
    gCVSAddFreeRegion(host.Number);
    host.Hover();
    host.PressAt(20, 20, DrawFlags);
    host.ReleaseAt(20, 20);
    VostelCrayonOneStroke& region = host.Last<VostelCrayonOneStroke>();
    host.Press(2, 2);    // without a mouse move since, the client list is still empty
    host.Release(2, 2);
    CHECK(host.CountPixels(RedPixel) + host.CountPixels(BluePixel) == 0);
    CHECK(region.ImagePoints.size() == 1);
    region.ImagePoints.emplace_back(40.0, 20.0);
    region.HandleRects.clear();
    region.ClientPoints = {host.At(20, 20), host.At(40, 20)};
    CHECK_FALSE(region.HitTest(host.At(30, 20)));
    region.ClientPoints.push_back(host.At(30, 40));
    CHECK(region.HitTest(host.At(30, 30)));
}

TEST_CASE("a stroke that is begun beside the image begins on its edge, and beside it without the clamp")
{
    for (const bool clamped : {true, false}) {
        OverlayCanvas host;
        gCVSAddFreeRegion(host.Number);
        host.Hover();
        VostelCrayonOneStroke& region = host.Last<VostelCrayonOneStroke>();
        region.ClampToImage = clamped;
        host.PressAt(120, -10, DrawFlags);
        REQUIRE(region.ImagePoints.size() == 1);
        CHECK(IsAt(region.ImagePoints[0], clamped ? 99 : 120, clamped ? 0 : -10));
        host.ReleaseAt(120, -10);
    }
}

TEST_CASE("a stroke dragged beyond the edge goes on along it")
{
    OverlayCanvas host;
    gCVSAddFreeRegion(host.Number);
    host.Hover();
    host.PressAt(130, 20, DrawFlags);
    host.MoveTo(130, 40, DrawFlags);
    host.MoveTo(120, 200, DrawFlags);
    host.ReleaseAt(120, 200);
    VostelCrayonOneStroke& region = host.Last<VostelCrayonOneStroke>();
    REQUIRE(region.ImagePoints.size() == 3);
    CHECK(IsAt(region.ImagePoints[0], 99, 20));
    CHECK(IsAt(region.ImagePoints[1], 99, 40));
    CHECK(IsAt(region.ImagePoints[2], 99, 79));
    region.ClampToImage = false;
    host.PressAt(130, 20, DrawFlags);
    host.MoveTo(140, 20, DrawFlags);
    host.ReleaseAt(140, 20);
    REQUIRE(region.ImagePoints.size() == 5);
    CHECK(IsAt(region.ImagePoints[3], 130, 20));
    CHECK(IsAt(region.ImagePoints[4], 140, 20));
}

TEST_CASE("a press inside a finished region moves it, without asking for the button; Control stops it")
{
    OverlayCanvas          host;
    VostelCrayonOneStroke& region = DrawRegion(host);
    host.PressAt(40, 35);
    CHECK(region.IsMoving());
    CHECK(region.Selected);
    host.MoveTo(43, 37, 0);
    CHECK(IsAt(region.ImagePoints[0], 23, 22));
    CHECK(region.ClientPoints[0] == host.At(20, 20));    // shows at the next move of the canvas
    region.OnMouseMove(MK_LBUTTON | MK_CONTROL, host.At(50, 50));
    CHECK(IsAt(region.ImagePoints[0], 23, 22));
    host.ReleaseAt(50, 50);
    host.Hover();
    CHECK(region.ClientPoints[0] == host.At(23, 22));
    CHECK_FALSE(region.IsMoving());
    host.PressAt(5, 70);
    CHECK_FALSE(region.IsMoving());
    CHECK_FALSE(region.Selected);
    host.ReleaseAt(5, 70);
}

TEST_CASE("a press inside during an open stroke neither adds nor moves")
{
    OverlayCanvas          host;
    VostelCrayonOneStroke& region = DrawRegion(host);
    region.StrokeDone = false;
    region.OnLButtonDown(MK_LBUTTON, host.At(40, 35));
    CHECK(region.ImagePoints.size() == 4);
    CHECK_FALSE(region.IsMoving());
    region.StrokeDone = true;
    region.OnLButtonDown(MK_LBUTTON, host.At(40, 35));
    CHECK(region.IsMoving());
}

TEST_CASE("a second stroke goes on in the same outline, beyond MaxPoints too")
{
    OverlayCanvas          host;
    VostelCrayonOneStroke& region = DrawRegion(host);
    region.MaxPoints = 2;
    host.PressAt(10, 40, DrawFlags);
    host.MoveTo(12, 30, DrawFlags);
    host.ReleaseAt(12, 30);
    CHECK(region.ImagePoints.size() == 6);
    CHECK(IsAt(region.ImagePoints[0], 20, 20));
    CHECK(IsAt(region.ImagePoints[5], 12, 30));
}

TEST_CASE("a region draws its closed outline without handles and reaches the label image")
{
    OverlayCanvas          host;
    VostelCrayonOneStroke& region = DrawRegion(host);
    CHECK(host.CountPixels(BluePixel) + host.CountPixels(RedPixel) == 2 * 40 + 2 * 30);
    CHECK(region.HandleRects.size() == 4);
    host.Paint();
    CHECK(host.Pixel(host.At(20, 35).x, host.At(20, 35).y) != 0x404040);
    CHECK(host.CountLabels(1) == 41 * 31);
    // A handle still makes it hit.
    CHECK(region.HitTest(host.At(17, 17)));
}

TEST_CASE("A and D leave a freehand region alone, E toggles its ellipse mode")
{
    OverlayCanvas          host;
    VostelCrayonOneStroke& region = DrawRegion(host);
    region.Selected = true;
    host.Key('A');
    host.Key('D');
    host.Key('D');
    CHECK(region.StrokeWidth == 1);
    host.Key('E');
    CHECK(region.EllipseMode);
}
