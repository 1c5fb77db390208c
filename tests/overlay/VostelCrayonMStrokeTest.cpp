#include "overlay/VostelCrayonMStroke.h"

#include "support/OverlayCanvas.h"

using namespace vostel;

namespace {

void DrawStroke(OverlayCanvas& host, CPoint from, CPoint to)
{
    host.PressAt(from.x, from.y, DrawFlags);
    host.MoveTo(to.x, to.y, DrawFlags);
    host.ReleaseAt(to.x, to.y, MK_SHIFT);
}

// Two strokes, at rows 20 and 40.
VostelCrayonMStroke& DrawStrokes(OverlayCanvas& host)
{
    gCVSAddFreeStroke(host.Number);
    host.Hover();
    DrawStroke(host, CPoint(20, 20), CPoint(60, 20));
    DrawStroke(host, CPoint(20, 40), CPoint(60, 40));
    VostelCrayonMStroke& strokes = host.Last<VostelCrayonMStroke>();
    REQUIRE(strokes.ImagePoints.size() == 4);
    return strokes;
}

}

TEST_CASE("each Shift press starts a stroke of its own, and no line joins two strokes")
{
    OverlayCanvas        host;
    VostelCrayonMStroke& strokes = DrawStrokes(host);
    CHECK(strokes.TypeCode == OverlayMStroke);
    CHECK(strokes.StrokeStarts == std::vector<int>{0, 2});
    host.Paint();
    const auto pixel = [&](int x, int y) { return host.Pixel(host.At(x, y).x, host.At(x, y).y); };
    CHECK(pixel(40, 20) == RedPixel);
    CHECK(pixel(40, 40) == RedPixel);
    CHECK(host.CountPixels(RedPixel) == 80);
    CHECK_FALSE(strokes.ShowHandles);
}

TEST_CASE("letting go of Shift stops the stroke, holding it again goes on with the same one")
{
    OverlayCanvas host;
    gCVSAddFreeStroke(host.Number);
    host.Hover();
    VostelCrayonMStroke& strokes = host.Last<VostelCrayonMStroke>();
    host.PressAt(20, 20, DrawFlags);
    host.MoveTo(30, 20, DrawFlags);
    host.MoveTo(40, 25, MK_LBUTTON);
    CHECK(strokes.ImagePoints.size() == 2);
    host.MoveTo(50, 20, DrawFlags);
    CHECK(strokes.ImagePoints.size() == 3);
    CHECK(strokes.StrokeStarts.size() == 1);
    host.ReleaseAt(50, 20);
    host.MoveTo(60, 20, DrawFlags);
    CHECK(strokes.ImagePoints.size() == 3);
    CHECK(strokes.LastPoint == host.At(60, 20));
}

TEST_CASE("a drawing of one point draws nothing and nothing hits it")
{
    OverlayCanvas host;
    gCVSAddFreeStroke(host.Number);
    host.Hover();
    host.PressAt(20, 20, DrawFlags);
    host.ReleaseAt(20, 20);
    VostelCrayonMStroke& strokes = host.Last<VostelCrayonMStroke>();
    CHECK(strokes.ImagePoints.size() == 1);
    CHECK(host.CountPixels(RedPixel) == 0);
    CHECK(strokes.StrokeBox() == CRect());
    CHECK_FALSE(strokes.HitTest(host.At(20, 20)));
}

TEST_CASE("the box of a drawing is that of its client points, right and bottom exclusive for hits")
{
    OverlayCanvas        host;
    VostelCrayonMStroke& strokes = DrawStrokes(host);
    CHECK(strokes.StrokeBox() == CRect(host.At(20, 20), host.At(60, 40)));
    CHECK(strokes.HitTest(host.At(20, 20)));
    CHECK(strokes.Selected);
    CHECK(strokes.StrokeBounds == strokes.StrokeBox());
    CHECK_FALSE(strokes.HitTest(host.At(60, 30)));
    CHECK_FALSE(strokes.Selected);
    CHECK_FALSE(strokes.HitTest(host.At(30, 40)));
}

TEST_CASE("points beyond client coordinate 10000 leave left and top of the box at 10000")
{
    VostelCrayonMStroke strokes;
    strokes.ClientPoints = {CPoint(20000, 30000), CPoint(20500, 30500)};
    CHECK(strokes.StrokeBox() == CRect(10000, 10000, 20500, 30500));
    strokes.ClientPoints = {CPoint(-20000, -30000), CPoint(-20500, -30500)};
    CHECK(strokes.StrokeBox() == CRect(-20500, -30500, -10000, -10000));
}

TEST_CASE("a press in the box moves the drawing, off the image too")
{
    OverlayCanvas        host;
    VostelCrayonMStroke& strokes = DrawStrokes(host);
    host.PressAt(40, 30);
    CHECK(strokes.IsMoving());
    host.MoveTo(0, -20, 0);    // no button is asked for
    CHECK(IsAt(strokes.ImagePoints[0], -20, -30));
    CHECK(strokes.ClientPoints[0] == host.At(-20, -30));
    host.ReleaseAt(0, -20);
    host.MoveTo(10, 10);
    CHECK(IsAt(strokes.ImagePoints[0], -20, -30));
}

TEST_CASE("a drawing that was moved stays in its move state until a press outside its box")
{
    OverlayCanvas        host;
    VostelCrayonMStroke& strokes = DrawStrokes(host);
    host.DragOf(CPoint(40, 30), CPoint(41, 30));
    CHECK(strokes.IsMoving());
    CHECK_FALSE(strokes.ButtonDown);
    // A Shift stroke whose Shift is let go moves the drawing.
    host.PressAt(30, 60, DrawFlags);
    host.MoveTo(35, 60, DrawFlags);
    CHECK(strokes.ImagePoints.size() == 6);
    host.MoveTo(36, 60, MK_LBUTTON);
    CHECK(strokes.ImagePoints.size() == 6);
    CHECK(IsAt(strokes.ImagePoints[0], 22, 20));
    host.ReleaseAt(36, 60);
    strokes.OnLButtonDown(MK_LBUTTON, host.At(95, 75));
    CHECK_FALSE(strokes.IsMoving());
    CHECK(strokes.ActiveNode == -1);
    host.ReleaseAt(95, 75);
}

TEST_CASE("A and D change the pen of the selected drawing between 1 and 40")
{
    OverlayCanvas        host;
    VostelCrayonMStroke& strokes = DrawStrokes(host);
    REQUIRE(strokes.Selected);
    for (int i = 0; i < 60; ++i)
        host.Key('A');
    CHECK(strokes.StrokeWidth == 40);
    for (int i = 0; i < 60; ++i)
        host.Key('D');
    CHECK(strokes.StrokeWidth == 1);
    host.Key('A');
    host.Key('A');
    CHECK(strokes.StrokeWidth == 3);
    CHECK(host.CountPixels(RedPixel) > 200);
    host.Press(2, 2);
    host.Release(2, 2);
    host.Key('A');
    host.Key('D');
    host.Key('D');
    CHECK(strokes.StrokeWidth == 3);
}

TEST_CASE("the keys of other shapes do nothing to a drawing, which never reaches the label image")
{
    OverlayCanvas        host;
    VostelCrayonMStroke& strokes = DrawStrokes(host);
    host.Key('E');
    host.Key('I');
    host.Key('T');
    CHECK_FALSE(strokes.EllipseMode);
    CHECK(strokes.ImagePoints.size() == 4);
    CHECK(host.CountLabels(0) == 8000);
}

TEST_CASE("without Shift a press does not draw; strokes may lie off the image")
{
    OverlayCanvas        host;
    VostelCrayonMStroke& strokes = DrawStrokes(host);
    strokes.OnLButtonDown(MK_LBUTTON, host.At(90, 70));
    strokes.OnMouseMove(MK_LBUTTON, host.At(95, 75));
    CHECK(strokes.ImagePoints.size() == 4);
    strokes.OnLButtonUp(0, host.At(95, 75));
    DrawStroke(host, CPoint(-30, -20), CPoint(130, 100));
    if (strokes.ImagePoints.size() == 6)
        CHECK(IsAt(strokes.ImagePoints[4], -30, -20));
    CHECK(strokes.ImagePoints.size() == 6);
}
