#include "overlay/VostelRect.h"

#include "support/OverlayCanvas.h"

using namespace vostel;

namespace {

VostelRect& DrawRect(OverlayCanvas& host, CPoint from, CPoint to)
{
    gCVSAddMRectangle(host.Number);
    host.Hover();
    host.DragOf(from, to, DrawFlags);
    return host.Last<VostelRect>();
}

// Image box of a rectangle after a paint.
CRect BoxOf(OverlayCanvas& host, VostelRect& rect)
{
    host.Paint();
    return rect.ImageBox;
}

}

TEST_CASE("a line or rectangle is made with two points a press, two points at most and no body")
{
    const VostelSingleLine line;
    CHECK(line.ClickPerPoint == 0);
    CHECK(line.MaxPoints == 2);
    CHECK_FALSE(line.DrawBody);
    CHECK(line.TypeCode == OverlayLine);
    CHECK(line.MidPoint == CPoint());
    CHECK(line.MidRect == CRect());
    OverlayCanvas host;
    gCVSAddMRectangle(host.Number);
    const VostelRect& rect = host.Last<VostelRect>();
    CHECK(rect.TypeCode == OverlayRect);
    CHECK(rect.ClickPerPoint == 0);
    CHECK(rect.MaxPoints == 2);
    CHECK_FALSE(rect.DrawBody);
    host.Paint();
    CHECK(rect.DrawBody);
}

TEST_CASE("a Shift press lays two coincident points and the second follows until the release")
{
    OverlayCanvas host;
    gCVSAddMRectangle(host.Number);
    host.Hover();
    host.PressAt(20, 20, DrawFlags);
    VostelRect& rect = host.Last<VostelRect>();
    REQUIRE(rect.ImagePoints.size() == 2);
    CHECK(IsAt(rect.ImagePoints[0], 20, 20));
    CHECK(IsAt(rect.ImagePoints[1], 20, 20));
    CHECK(rect.ActiveNode == 1);
    host.MoveTo(50, 45, DrawFlags);
    CHECK(IsAt(rect.ImagePoints[0], 20, 20));
    CHECK(IsAt(rect.ImagePoints[1], 50, 45));
    host.ReleaseAt(50, 45);
    host.MoveTo(70, 70);
    CHECK(IsAt(rect.ImagePoints[1], 50, 45));
}

TEST_CASE("boxes are normalised whichever way the second corner is dragged")
{
    for (const CPoint to : {CPoint(70, 60), CPoint(10, 60), CPoint(70, 10), CPoint(10, 10)}) {
        OverlayCanvas host;
        VostelRect&   rect = DrawRect(host, CPoint(40, 35), to);
        const CRect   box = BoxOf(host, rect);
        CHECK(box == CRect(std::min(40, static_cast<int>(to.x)), std::min(35, static_cast<int>(to.y)),
                           std::max(40, static_cast<int>(to.x)), std::max(35, static_cast<int>(to.y))));
        CHECK(rect.ClientBox == CRect(box.left + 50, box.top + 40, box.right + 50, box.bottom + 40));
    }
}

TEST_CASE("the image box truncates: from 10.7 to 20.2 it has left 10 and right 20")
{
    OverlayCanvas host;
    VostelRect&   rect = DrawRect(host, CPoint(20, 20), CPoint(40, 40));
    rect.ImagePoints[0] = PointTemplateBase<double>(10.7, 30.9);
    rect.ImagePoints[1] = PointTemplateBase<double>(20.2, 5.999);
    CHECK(BoxOf(host, rect) == CRect(10, 5, 20, 30));
}

TEST_CASE("boxes are only rebuilt at a paint")
{
    OverlayCanvas host;
    VostelRect&   rect = DrawRect(host, CPoint(20, 20), CPoint(60, 50));
    CHECK(rect.ClientBox == CRect());
    CHECK_FALSE(rect.HitTest(host.At(40, 35)));
    host.Paint();
    CHECK(rect.HitTest(host.At(40, 35)));
    CHECK(rect.Selected);
    host.DragOf(CPoint(40, 35), CPoint(60, 55));
    CHECK(rect.ImageBox == CRect(20, 20, 60, 50));
    CHECK(rect.HitTest(host.At(25, 25)));
    host.Paint();
    CHECK(rect.ImageBox == CRect(40, 40, 80, 70));
    CHECK_FALSE(rect.HitTest(host.At(25, 25)));
    CHECK_FALSE(rect.Selected);
}

TEST_CASE("a corner drags on the part of its handle outside the box, inside the press moves the box")
{
    OverlayCanvas host;
    VostelRect&   rect = DrawRect(host, CPoint(20, 20), CPoint(60, 50));
    host.Paint();
    host.DragOf(CPoint(18, 18), CPoint(16, 15));
    CHECK(IsAt(rect.ImagePoints[0], 18, 17));
    CHECK(IsAt(rect.ImagePoints[1], 60, 50));
    host.Paint();
    host.DragOf(CPoint(19, 18), CPoint(24, 25));
    CHECK(IsAt(rect.ImagePoints[0], 23, 24));
    CHECK(IsAt(rect.ImagePoints[1], 65, 57));
    // The right and bottom edges lie outside the box.
    host.Paint();
    host.DragOf(CPoint(65, 57), CPoint(70, 60));
    CHECK(IsAt(rect.ImagePoints[0], 23, 24));
    CHECK(IsAt(rect.ImagePoints[1], 70, 60));
}

TEST_CASE("a Shift press outside the old box starts a new one, inside it the new pair only moves")
{
    OverlayCanvas host;
    VostelRect&   rect = DrawRect(host, CPoint(20, 20), CPoint(50, 50));
    host.Paint();
    host.DragOf(CPoint(70, 10), CPoint(90, 30), DrawFlags);
    REQUIRE(rect.ImagePoints.size() == 2);
    CHECK(IsAt(rect.ImagePoints[0], 70, 10));
    CHECK(IsAt(rect.ImagePoints[1], 90, 30));
    host.Paint();
    host.PressAt(80, 20, DrawFlags);
    REQUIRE(rect.ImagePoints.size() == 2);
    CHECK(IsAt(rect.ImagePoints[0], 80, 20));
    CHECK(IsAt(rect.ImagePoints[1], 80, 20));
    CHECK(rect.IsMoving());
    host.MoveTo(85, 30, DrawFlags);
    CHECK(IsAt(rect.ImagePoints[0], 85, 30));
    CHECK(IsAt(rect.ImagePoints[1], 85, 30));
    host.ReleaseAt(85, 30);
}

TEST_CASE("a rectangle is clamped to the image while it moves, so that it may shrink at the edge")
{
    OverlayCanvas host;
    VostelRect&   rect = DrawRect(host, CPoint(20, 20), CPoint(60, 50));
    host.Paint();
    host.DragOf(CPoint(40, 35), CPoint(10, 35));
    CHECK(IsAt(rect.ImagePoints[0], 0, 20));
    CHECK(IsAt(rect.ImagePoints[1], 30, 50));
}

TEST_CASE("a rectangle shows its box, two corner handles and one in the middle")
{
    OverlayCanvas host;
    VostelRect&   rect = DrawRect(host, CPoint(20, 20), CPoint(61, 50));
    host.Paint();
    const auto pixel = [&](int x, int y) { return host.Pixel(host.At(x, y).x, host.At(x, y).y); };
    CHECK(pixel(30, 20) == RedPixel);
    CHECK(pixel(20, 30) == RedPixel);
    CHECK(pixel(60, 30) == RedPixel);
    CHECK(pixel(61, 30) == 0x404040);    // the right edge is left out
    CHECK(pixel(30, 49) == RedPixel);
    CHECK(pixel(30, 50) == 0x404040);
    CHECK(pixel(16, 20) == RedPixel);
    CHECK(rect.MidPoint == host.At(40, 35));
    CHECK(rect.MidRect == CRect(host.At(36, 31), host.At(44, 39)));
    CHECK(pixel(36, 35) == RedPixel);
    CHECK(pixel(36, 31) == 0x404040);    // round
    rect.HandleShape = 1;
    host.Paint();
    CHECK(pixel(36, 31) == RedPixel);
    rect.HandleShape = 2;
    host.Paint();
    CHECK(pixel(36, 31) == 0x404040);
    CHECK(pixel(36, 35) == 0x404040);
    CHECK(pixel(30, 20) == RedPixel);
}

TEST_CASE("the ellipse mode draws an ellipse and leaves the region of a rubber-banded box a box")
{
    OverlayCanvas host;
    DrawRect(host, CPoint(20, 20), CPoint(60, 50));
    host.Paint();
    const int area = host.CountLabels(1);
    CHECK(area == 41 * 31);
    host.Key('E');
    host.Paint();
    CHECK(host.Pixel(host.At(25, 20).x, host.At(25, 20).y) == 0x404040);
    CHECK(host.Pixel(host.At(40, 20).x, host.At(40, 20).y) == RedPixel);
    CHECK(host.CountLabels(1) == area);
}

TEST_CASE("the middle handle moves a line as a whole, while handles are round")
{
    OverlayCanvas    host;
    VostelSingleLine line;
    line.SetCanvasView(&host.Canvas().View);
    line.ImagePoints.emplace_back(20.0, 20.0);
    line.ImagePoints.emplace_back(60.0, 40.0);
    line.RefreshClientGeometry();
    line.OnDraw(host.Window.Dc);
    REQUIRE(line.MidPoint == host.At(40, 30));
    const auto moves = [&](int x, int y) {
        line.OnLButtonDown(MK_LBUTTON, host.At(x, y));
        const bool moving = line.IsMoving();
        line.OnLButtonUp(0, host.At(x, y));
        return moving;
    };
    CHECK(moves(40, 30));
    CHECK(moves(43, 30));
    CHECK_FALSE(moves(44, 30));    // strictly below the radius of 4
    CHECK(moves(38, 27));          // 3.6 away
    CHECK_FALSE(moves(37, 33));    // 4.2 away
    CHECK_FALSE(moves(50, 35));    // on the line itself
    line.HandleShape = 1;
    CHECK_FALSE(moves(40, 30));
}

TEST_CASE("a line is drawn straight between its two points, in the color of its selection")
{
    OverlayCanvas    host;
    VostelSingleLine line;
    line.SetCanvasView(&host.Canvas().View);
    line.HandleShape = 2;
    line.ImagePoints.emplace_back(20.0, 20.0);
    line.RefreshClientGeometry();
    host.Window.Fill(0);
    line.OnDraw(host.Window.Dc);
    CHECK(host.Window.Capture().At(70, 60) == 0);
    line.ImagePoints.emplace_back(60.0, 20.0);
    line.RefreshClientGeometry();
    line.ShowHandles = false;
    line.OnDraw(host.Window.Dc);
    CHECK(line.ShowHandles);
    for (const int x : {70, 90, 109})
        CHECK(host.Window.Capture().At(x, 60) == BluePixel);
    CHECK(host.Window.Capture().At(110, 60) == 0);
    line.Selected = true;
    line.OnDraw(host.Window.Dc);
    CHECK(host.Window.Capture().At(90, 60) == RedPixel);
}

TEST_CASE("the middle of two points truncates towards zero")
{
    OverlayCanvas host;
    VostelRect&   rect = DrawRect(host, CPoint(20, 20), CPoint(60, 50));
    rect.ClientPoints[0] = CPoint(-4, 3);
    rect.ClientPoints[1] = CPoint(1, 8);
    rect.OnDraw(host.Window.Dc);
    CHECK(rect.MidPoint == CPoint(-1, 5));
    rect.ClientPoints[0] = CPoint(INT32_MAX, INT32_MIN);
    rect.ClientPoints[1] = CPoint(INT32_MAX - 2, INT32_MIN + 2);
    rect.OnDraw(host.Window.Dc);
    CHECK(rect.MidPoint == CPoint(INT32_MAX - 1, INT32_MIN + 1));
}
