#include "overlay/VostelCustomRect.h"

#include "support/OverlayCanvas.h"
#include "support/RegionAnswer.h"

using namespace vostel;

namespace {

VostelCustomRect& AddBox(OverlayCanvas& host, int left, int top, int right, int bottom)
{
    const TestDialogs dialogs(RegionAnswer(left, top, right, bottom));
    gCVSAddCustomRectangle(host.Number);
    host.Hover();
    return host.Last<VostelCustomRect>();
}

}

TEST_CASE("the box of the dialog becomes the two points of a custom rectangle")
{
    OverlayCanvas     host;
    VostelCustomRect& rect = AddBox(host, 10, 15, 40, 35);
    CHECK(rect.TypeCode == OverlayCustomRect);
    CHECK(rect.DrawBody);
    CHECK(rect.Selected);
    REQUIRE(rect.ImagePoints.size() == 2);
    CHECK(IsAt(rect.ImagePoints[0], 10, 15));
    CHECK(IsAt(rect.ImagePoints[1], 40, 35));
    host.Paint();
    CHECK(rect.ClientBox == CRect(host.At(10, 15), host.At(40, 35)));
    CHECK(host.CountLabels(1) == 31 * 21);
}

TEST_CASE("a cancelled rectangle dialog adds nothing and bumps no counter")
{
    OverlayCanvas host;
    TessikDialogs dialogs;
    int           asked = 0;
    dialogs.ImaROIRectPara = [&](tagZEKImaROIRectPara&) {
        ++asked;
        return false;
    };
    {
        const TestDialogs installed(dialogs);
        gCVSAddCustomRectangle(host.Number);
    }
    CHECK(asked == 1);
    CHECK(host.Canvas().Elements.empty());
    CHECK(host.Canvas().RegionSerial == 0);
    CHECK(host.Canvas().ElementSerial == 0);
    CHECK(host.Canvas().CustomRectCount == 0);
    AddBox(host, 1, 1, 5, 5);
    CHECK(host.Canvas().RegionSerial == 1);
    CHECK(host.Canvas().CustomRectCount == 1);
}

TEST_CASE("a box given with its corners swapped draws and labels the same place")
{
    OverlayCanvas     host;
    VostelCustomRect& rect = AddBox(host, 40, 35, 10, 15);
    host.Paint();
    CHECK(rect.ClientBox == CRect(host.At(10, 15), host.At(40, 35)));
    CHECK(host.CountLabels(1) == 31 * 21);
    AddBox(host, -2000000000, -2000000000, 2000000000, 2000000000);
    host.Paint();
    CHECK(host.CountLabels(2) == 8000);
    // The right edge leaves 32 bits and is truncated to the left one: no box is left.
    AddBox(host, INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
    host.Paint();
    CHECK(IsAt(host.Last().ImagePoints[1], INT32_MIN, INT32_MIN));
    CHECK(host.CountLabels(3) == 0);
}

TEST_CASE("a placement truncates its floats, the sums taken in float")
{
    VostelCustomRect rect;
    rect.SetPlacement(10.9f, -3.9f, 5.2f, 3.0f);
    REQUIRE(rect.ImagePoints.size() == 2);
    CHECK(IsAt(rect.ImagePoints[0], 10, -3));
    CHECK(IsAt(rect.ImagePoints[1], 16, 0));
    rect.SetPlacement(16777216.0f, 0.0f, 1.0f, 3e9f);    // the sum does not fit a float
    CHECK(IsAt(rect.ImagePoints[0], 16777216, 0));
    CHECK(IsAt(rect.ImagePoints[1], 16777216, INT32_MIN));
}

TEST_CASE("a press on a box that was never painted misses, after the paint it moves the box")
{
    OverlayCanvas     host;
    VostelCustomRect& rect = AddBox(host, 10, 15, 40, 35);
    host.DragOf(CPoint(25, 25), CPoint(30, 30));
    CHECK(IsAt(rect.ImagePoints[0], 10, 15));
    CHECK_FALSE(rect.Selected);
    host.Paint();
    host.DragOf(CPoint(25, 25), CPoint(30, 30));
    CHECK(IsAt(rect.ImagePoints[0], 15, 20));
    CHECK(IsAt(rect.ImagePoints[1], 45, 40));
    CHECK(rect.Selected);
}

TEST_CASE("Shift adds nothing to a custom rectangle, and no handle reacts")
{
    OverlayCanvas     host;
    VostelCustomRect& rect = AddBox(host, 10, 15, 40, 35);
    host.Paint();
    host.PressAt(60, 60, DrawFlags);
    CHECK(rect.ImagePoints.size() == 2);
    CHECK_FALSE(rect.Selected);
    CHECK(rect.ButtonDown);
    CHECK_FALSE(rect.IsMoving());
    host.ReleaseAt(60, 60);
    host.DragOf(CPoint(25, 25), CPoint(26, 25), DrawFlags);
    CHECK(IsAt(rect.ImagePoints[0], 11, 15));
    host.Paint();
    host.DragOf(CPoint(9, 14), CPoint(2, 2));    // on the corner's handle, outside the box
    CHECK(IsAt(rect.ImagePoints[0], 11, 15));
    CHECK(IsAt(rect.ImagePoints[1], 41, 35));
}

TEST_CASE("a custom rectangle may leave the image; Control stops it, a lost button too")
{
    OverlayCanvas     host;
    VostelCustomRect& rect = AddBox(host, 10, 15, 40, 35);
    host.Paint();
    host.PressAt(25, 25);
    host.MoveTo(-10, -30);
    CHECK(IsAt(rect.ImagePoints[0], -25, -40));
    host.MoveTo(0, 0, 0);
    CHECK(IsAt(rect.ImagePoints[0], -25, -40));
    rect.OnMouseMove(MK_LBUTTON | MK_CONTROL, host.At(5, 5));
    CHECK(IsAt(rect.ImagePoints[0], -25, -40));
    rect.OnMouseMove(MK_LBUTTON, host.At(6, 5));
    CHECK(IsAt(rect.ImagePoints[0], -24, -40));
    host.ReleaseAt(0, 0);
}

TEST_CASE("a press that misses a custom rectangle brings its client points up to date all the same")
{
    OverlayCanvas     host;
    VostelCustomRect& rect = AddBox(host, 10, 15, 40, 35);
    rect.SetPlacement(20.0f, 30.0f, 5.0f, 6.0f);
    REQUIRE(rect.ClientPoints.size() == 2);
    CHECK(rect.ClientPoints[0] == host.At(10, 15));
    host.PressAt(90, 70, DrawFlags);    // Shift, so that it goes to the newest object
    CHECK_FALSE(rect.Selected);
    CHECK(rect.ClientPoints[0] == host.At(20, 30));
    CHECK(rect.ClientPoints[1] == host.At(25, 36));
    host.ReleaseAt(90, 70);
}

TEST_CASE("I sends every custom rectangle to 50, 50 with a size of 50 by 50")
{
    OverlayCanvas     host;
    VostelCustomRect& first = AddBox(host, 10, 15, 40, 35);
    VostelCustomRect& second = AddBox(host, 1, 2, 3, 4);
    host.Key('I');
    for (const VostelCustomRect* rect : {&first, &second}) {
        REQUIRE(rect->ImagePoints.size() == 2);
        CHECK(IsAt(rect->ImagePoints[0], 50, 50));
        CHECK(IsAt(rect->ImagePoints[1], 100, 100));
    }
    first.SetPlacement(1.0f, 1.0f, 2.0f, 2.0f);
    host.Key('T');
    CHECK(IsAt(first.ImagePoints[0], 50, 50));
}

TEST_CASE("a custom rectangle draws its box alone: no handles, and an ellipse in ellipse mode")
{
    OverlayCanvas host;
    AddBox(host, 10, 15, 40, 35);
    const int count = host.CountPixels(RedPixel);
    CHECK(count == 2 * 30 + 2 * 20 - 4);
    host.Key('E');
    host.Paint();
    CHECK(host.Pixel(host.At(10, 15).x, host.At(10, 15).y) == 0x404040);
    CHECK(host.Pixel(host.At(10, 25).x, host.At(10, 25).y) == RedPixel);
}

TEST_CASE("in ellipse mode the region of a custom rectangle is the ellipse of its two points")
{
    OverlayCanvas host;
    AddBox(host, 10, 15, 40, 35);
    host.Key('E');
    host.Paint();
    ClassData2DIO<int> plane;
    plane.Allocate(100, 80);
    std::fill_n(plane.Ptr1D, 8000, 0);
    DrawEcllipse(plane, 10, 15, 40, 35, true, 1);
    gCVSGenerateLabel(host.Number, false);
    bool same = true;
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 100; ++x)
            same = same && gCVSGetLabelImaPtr2D(host.Number)[79 - y][x] == plane.Ptr2D[y][x];
    CHECK(same);
    CHECK(std::count(plane.Ptr1D, plane.Ptr1D + 8000, 1) > 400);
}
