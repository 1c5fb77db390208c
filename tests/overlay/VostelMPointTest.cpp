#include "overlay/VostelMPoint.h"

#include "overlay/VostelPolygon.h"
#include "overlay/VostelRect.h"
#include "support/OverlayCanvas.h"

using namespace vostel;

namespace {

const std::vector<CPoint> Square = {CPoint(20, 20), CPoint(60, 20), CPoint(60, 50), CPoint(20, 50)};

VostelPolygon& DrawSquare(OverlayCanvas& host)
{
    host.AddNodes(gCVSAddPoly, Square);
    VostelPolygon& polygon = host.Last<VostelPolygon>();
    REQUIRE(polygon.ImagePoints.size() == 4);
    return polygon;
}

}

TEST_CASE("each Shift press adds a node with its client point and its handle")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    REQUIRE(polygon.ClientPoints.size() == 4);
    REQUIRE(polygon.HandleRects.size() == 4);
    for (std::size_t i = 0; i < 4; ++i) {
        CHECK(IsAt(polygon.ImagePoints[i], Square[i].x, Square[i].y));
        CHECK(polygon.ClientPoints[i] == host.At(Square[i].x, Square[i].y));
        const CPoint at = polygon.ClientPoints[i];
        CHECK(polygon.HandleRects[i] == CRect(at.x - 4, at.y - 4, at.x + 4, at.y + 4));
    }
    CHECK(polygon.Selected);
    CHECK(polygon.MoveState == 2);
    CHECK(polygon.ActiveNode == -1);
    CHECK_FALSE(polygon.ButtonDown);
}

TEST_CASE("a handle is hit left and top inclusive, right and bottom exclusive, on 8 by 8 pixels")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    int            hits = 0;
    for (int y = 10; y < 30; ++y) {
        for (int x = 10; x < 20; ++x) {    // left of the shape, so that only the handle is hit
            host.PressAt(x, y);
            hits += polygon.ActiveNode == 0;
            CHECK((polygon.ActiveNode == 0) == (x >= 16 && y >= 16 && y < 24));
            host.ReleaseAt(x, y);
        }
    }
    CHECK(hits == 4 * 8);
}

TEST_CASE("a press on a handle drags that node and never adds a point, with or without Shift")
{
    for (const unsigned int flags : {static_cast<unsigned int>(MK_LBUTTON), DrawFlags}) {
        OverlayCanvas  host;
        VostelPolygon& polygon = DrawSquare(host);
        host.PressAt(61, 21, flags);
        CHECK(polygon.ActiveNode == 1);
        CHECK(polygon.MoveState == 2);
        host.MoveTo(66, 14, flags);
        CHECK(IsAt(polygon.ImagePoints[1], 65, 13));
        CHECK(polygon.ClientPoints[1] == host.At(65, 13));
        host.ReleaseAt(66, 14);
        host.MoveTo(90, 70);
        CHECK(polygon.ImagePoints.size() == 4);
        CHECK(IsAt(polygon.ImagePoints[1], 65, 13));
        CHECK(IsAt(polygon.ImagePoints[0], 20, 20));
    }
}

TEST_CASE("a node drag asks for no button and ignores Control")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    host.PressAt(60, 20);
    host.MoveTo(63, 25, 0);
    CHECK(IsAt(polygon.ImagePoints[1], 63, 25));
    // Through the object alone, as the canvas would pan.
    polygon.OnMouseMove(MK_LBUTTON | MK_CONTROL, host.At(64, 27));
    CHECK(IsAt(polygon.ImagePoints[1], 64, 27));
    host.ReleaseAt(64, 27);
    CHECK(polygon.ActiveNode == -1);
}

TEST_CASE("a press inside moves all nodes until the release")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    host.PressAt(40, 35);
    CHECK(polygon.MoveState == 0);
    CHECK(polygon.ActiveNode == -2);
    CHECK(polygon.Selected);
    host.MoveTo(47, 30);
    for (std::size_t i = 0; i < 4; ++i)
        CHECK(IsAt(polygon.ImagePoints[i], Square[i].x + 7, Square[i].y - 5));
    CHECK(polygon.LastDeltaX == 7.0);
    CHECK(polygon.LastDeltaY == -5.0);
    host.MoveTo(48, 30, 0);    // without the button the shape stays
    CHECK(IsAt(polygon.ImagePoints[0], 27, 15));
    host.ReleaseAt(47, 30);
    CHECK(polygon.MoveState == 2);
    host.MoveTo(80, 70);
    CHECK(IsAt(polygon.ImagePoints[0], 27, 15));
}

TEST_CASE("a Shift press inside a shape adds its node and moves nothing while the button is held")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    host.PressAt(40, 35, DrawFlags);
    REQUIRE(polygon.ImagePoints.size() == 5);
    CHECK(polygon.MoveState == 2);
    CHECK(polygon.ActiveNode == -1);
    CHECK(polygon.Selected);
    host.MoveTo(47, 30, DrawFlags);
    for (std::size_t i = 0; i < 4; ++i)
        CHECK(IsAt(polygon.ImagePoints[i], Square[i].x, Square[i].y));
    CHECK(IsAt(polygon.ImagePoints[4], 40, 35));
    host.ReleaseAt(47, 30);
}

TEST_CASE("Control held during a shape move stops the shape while the view pans")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    host.PressAt(40, 35);
    host.MoveTo(42, 36);
    REQUIRE(IsAt(polygon.ImagePoints[0], 22, 21));
    host.Move(host.At(52, 46).x, host.At(52, 46).y, MK_LBUTTON | MK_CONTROL);
    CHECK(IsAt(polygon.ImagePoints[0], 22, 21));
    // The view keeps the point of the press as its reference, so it pans by the whole distance.
    CHECK(host.Region().left == 50 + 12);
    host.Move(host.At(53, 46).x, host.At(53, 46).y, MK_LBUTTON);
    CHECK(IsAt(polygon.ImagePoints[0], 23, 21));
    host.ReleaseAt(53, 46);
}

TEST_CASE("a press that hits nothing leaves every shape unselected with its handles in blue")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddPoly, Square);
    VostelPolygon& polygon = host.Last<VostelPolygon>();
    gCVSAddMRectangle(host.Number);
    host.Hover();
    host.DragOf(CPoint(70, 5), CPoint(90, 15), DrawFlags);
    VostelRect& rect = host.Last<VostelRect>();
    host.Paint();
    REQUIRE(rect.Selected);
    host.Press(5, 5);
    host.Release(5, 5);
    CHECK_FALSE(polygon.Selected);
    CHECK_FALSE(rect.Selected);
    CHECK(polygon.ShowHandles);
    CHECK(rect.ShowHandles);
    CHECK(host.Canvas().SelIndex == -1);
    CHECK(host.CountPixels(RedPixel) == 0);
    const CPoint corner = host.At(20, 20);
    CHECK(host.Pixel(corner.x - 4, corner.y) == BluePixel);    // the left of the round handle
    // A hit brings the red back.
    host.PressAt(40, 35);
    host.ReleaseAt(40, 35);
    host.Paint();
    CHECK(host.Pixel(corner.x - 4, corner.y) == RedPixel);
}

TEST_CASE("a polygon that is handed a press which misses hides its handles, another shape keeps them")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    polygon.OnLButtonDown(MK_LBUTTON, CPoint(2, 2));
    CHECK_FALSE(polygon.ShowHandles);
    CHECK_FALSE(polygon.Selected);
    polygon.TypeCode = OverlayOneStroke;
    polygon.OnLButtonDown(MK_LBUTTON, CPoint(2, 2));
    CHECK(polygon.ShowHandles);
    polygon.TypeCode = OverlayPolygon;
    polygon.OnLButtonDown(MK_LBUTTON, CPoint(2, 2));
    polygon.OnLButtonDown(MK_LBUTTON, host.At(40, 35));
    CHECK(polygon.ShowHandles);
    CHECK(polygon.Selected);
    CHECK(polygon.IsMoving());
}

TEST_CASE("a Shift press beyond the last column lands exactly on column width - 1")
{
    OverlayCanvas host;
    gCVSAddPoly(host.Number);
    host.Hover();
    host.Node(140, 30);
    host.Node(30, 200);
    host.Node(-20, -3);
    VostelPolygon& polygon = host.Last<VostelPolygon>();
    REQUIRE(polygon.ImagePoints.size() == 3);
    CHECK(IsAt(polygon.ImagePoints[0], 99, 30));
    CHECK(IsAt(polygon.ImagePoints[1], 30, 79));
    CHECK(IsAt(polygon.ImagePoints[2], 0, 0));
    polygon.ClampToImage = false;
    host.Node(140, 30);
    REQUIRE(polygon.ImagePoints.size() == 4);
    CHECK(IsAt(polygon.ImagePoints[3], 140, 30));
}

TEST_CASE("the drag reference is the point of the press, not the one snapped into the image")
{
    OverlayCanvas host;
    gCVSAddPoly(host.Number);
    host.Hover();
    host.PressAt(140, 30, DrawFlags);
    CHECK(host.Last().LastPoint == host.At(140, 30));
    host.ReleaseAt(140, 30);
}

TEST_CASE("a node dragged past the edge stays on it, and the clamped place shows at the next refresh")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    host.PressAt(60, 20);
    host.MoveTo(160, -30);
    CHECK(IsAt(polygon.ImagePoints[1], 99, 0));
    CHECK(polygon.ClientPoints[1] == host.At(160, -30));    // refreshed before the clamp
    host.MoveTo(160, -30);
    CHECK(polygon.ClientPoints[1] == host.At(99, 0));
    host.ReleaseAt(160, -30);
    polygon.ClampToImage = false;
    host.PressAt(99, 0);
    host.MoveTo(120, -8);
    CHECK(IsAt(polygon.ImagePoints[1], 120, -8));
    host.ReleaseAt(120, -8);
}

TEST_CASE("the press that reaches MaxPoints adds, the next one starts over")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    polygon.SetMaxPoints(5);
    host.Node(20, 35);
    CHECK(polygon.ImagePoints.size() == 5);
    host.Node(70, 70);
    REQUIRE(polygon.ImagePoints.size() == 1);
    CHECK(polygon.ClientPoints.size() == 1);
    CHECK(polygon.HandleRects.size() == 1);
    CHECK(IsAt(polygon.ImagePoints[0], 70, 70));
    polygon.SetClickPerPoint(0);
    polygon.SetMaxPoints(1);
    host.PressAt(10, 10, DrawFlags);
    REQUIRE(polygon.ImagePoints.size() == 2);
    CHECK(polygon.ActiveNode == 1);
    host.MoveTo(25, 12, DrawFlags);
    CHECK(IsAt(polygon.ImagePoints[0], 10, 10));
    CHECK(IsAt(polygon.ImagePoints[1], 25, 12));
    host.ReleaseAt(25, 12);
}

TEST_CASE("a shape of two points has no inside: its handles hit, the rest does not")
{
    OverlayCanvas host;
    host.AddNodes(gCVSAddPoly, {CPoint(20, 20), CPoint(60, 20)});
    VostelPolygon& polygon = host.Last<VostelPolygon>();
    host.PressAt(40, 20);
    CHECK_FALSE(polygon.Selected);
    CHECK_FALSE(polygon.IsMoving());
    host.ReleaseAt(40, 20);
    host.PressAt(60, 20);
    CHECK(polygon.Selected);
    CHECK(polygon.ActiveNode == 1);
    host.MoveTo(64, 22);
    host.ReleaseAt(64, 22);
    CHECK(IsAt(polygon.ImagePoints[1], 64, 22));
    CHECK(IsAt(polygon.ImagePoints[0], 20, 20));
}

TEST_CASE("GetImagePolygon asks for three points, GetImagePoints for none; both truncate")
{
    OverlayCanvas host;
    gCVSAddPoly(host.Number);
    VostelPolygon&                      polygon = host.Last<VostelPolygon>();
    std::vector<PointTemplateBase<int>> out(7);
    CHECK(polygon.GetImagePoints(out));
    CHECK(out.empty());
    polygon.ImagePoints.emplace_back(10.7, -0.9);
    polygon.ImagePoints.emplace_back(-3.9, 20.2);
    out.assign(7, PointTemplateBase<int>(5, 5));
    CHECK_FALSE(polygon.GetImagePolygon(out));
    CHECK(out.size() == 7);
    CHECK(polygon.GetImagePoints(out));
    REQUIRE(out.size() == 2);
    CHECK(out[0].x == 10);
    CHECK(out[0].y == 0);
    CHECK(out[1].x == -3);
    CHECK(out[1].y == 20);
    polygon.ImagePoints.emplace_back(1e12, 1.0);
    CHECK(polygon.GetImagePolygon(out));
    REQUIRE(out.size() == 3);
    CHECK(out[2].x == INT32_MIN);
}

TEST_CASE("without image points the derived lists stay as they are")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    polygon.ImagePoints.clear();
    host.Hover();
    CHECK(polygon.ClientPoints.size() == 4);
    CHECK(polygon.HandleRects.size() == 4);
}

TEST_CASE("a box of fixed size keeps the distance of its two points in client pixels through zoom")
{
    OverlayCanvas  host(3);
    VostelPolygon& polygon =
        (host.AddNodes(gCVSAddPoly, {CPoint(20, 20), CPoint(60, 40)}), host.Last<VostelPolygon>());
    polygon.FixedSize = true;
    host.Wheel(100, 80, 120);
    const CPoint first = polygon.ClientPoints[0];
    CHECK(first != host.At(20, 20));
    CHECK(polygon.ClientPoints[1] == CPoint(first.x + 40, first.y + 20));
    polygon.ImagePoints.emplace_back(5.0, 5.0);
    polygon.RefreshClientGeometry();
    REQUIRE(polygon.ClientPoints.size() == 3);
    for (const CPoint& p : polygon.ClientPoints)
        CHECK(p == CPoint(0, 0));
    host.Wheel(100, 80, -120);
    CHECK(host.ZoomBack());
}

TEST_CASE("the shape stays glued to the image through pan and zoom")
{
    OverlayCanvas  host(3);
    VostelPolygon& polygon = DrawSquare(host);
    host.Paint();
    host.Pan(9, -7);
    CHECK(polygon.ClientPoints[0] == CPoint(host.At(20, 20).x + 9, host.At(20, 20).y - 7));
    host.Wheel(30, 30, 120);
    for (std::size_t i = 0; i < 4; ++i) {
        CPoint expected;
        gCVSGetDisplayPt(host.Number, Square[i].x, Square[i].y, expected);
        CHECK(polygon.ClientPoints[i] == expected);
        CHECK(IsAt(polygon.ImagePoints[i], Square[i].x, Square[i].y));
    }
    // A drag step is divided by the scale.
    const double scale = host.Canvas().View.Scale;
    const CPoint inside((polygon.ClientPoints[0].x + polygon.ClientPoints[2].x) / 2,
                        (polygon.ClientPoints[0].y + polygon.ClientPoints[2].y) / 2);
    host.Drag(inside, CPoint(inside.x + 6, inside.y + 3));
    CHECK(polygon.ImagePoints[0].x == 20.0 + 6 / scale);
    CHECK(polygon.ImagePoints[0].y == 20.0 + 3 / scale);
    CHECK(host.ZoomBack());
}

TEST_CASE("E toggles the ellipse of every shape, selected or not; I and T place nothing here")
{
    OverlayCanvas  host;
    VostelPolygon& first = DrawSquare(host);
    VostelPolygon& second = DrawSquare(host);
    host.Press(2, 2);
    host.Release(2, 2);
    host.Key('E');
    CHECK(first.EllipseMode);
    CHECK(second.EllipseMode);
    host.Key('E');
    CHECK_FALSE(first.EllipseMode);
    host.Key('I');
    host.Key('T');
    host.Key('A');
    host.Key('D');
    CHECK(first.ImagePoints.size() == 4);
    CHECK(IsAt(first.ImagePoints[0], 20, 20));
    CHECK(first.StrokeWidth == 1);
    CHECK_FALSE(first.EllipseMode);
}

TEST_CASE("a Shift press before the view has come says so and leaves the point at the origin")
{
    OverlayCanvas host;
    gCVSAddPoly(host.Number);
    VostelPolygon& polygon = host.Last<VostelPolygon>();
    REQUIRE(polygon.View == nullptr);
    host.Node(20, 20);
    REQUIRE_FALSE(host.Desktop.Messages.empty());
    for (const CString& message : host.Desktop.Messages)
        CHECK(message == L"显示信息未提供");
    REQUIRE(polygon.ImagePoints.size() == 1);
    CHECK(IsAt(polygon.ImagePoints[0], 0, 0));
    host.Desktop.Messages.clear();
    host.Hover();
    host.Node(20, 20);
    CHECK(host.Desktop.Messages.empty());
    REQUIRE(polygon.ImagePoints.size() == 2);
    CHECK(IsAt(polygon.ImagePoints[1], 20, 20));
}

TEST_CASE("a drag without a view leaves points and steps as they were")
{
    VostelPolygon polygon;
    polygon.ImagePoints.assign(3, PointTemplateBase<double>(4.0, 5.0));
    polygon.ActiveNode = 1;
    polygon.LastPoint = CPoint(1, 1);
    polygon.MoveNode(CPoint(9, 9));
    polygon.MoveShape(CPoint(9, 9));
    polygon.ClampImagePoints();
    CHECK(polygon.LastDeltaX == 0.0);
    CHECK(IsAt(polygon.ImagePoints[1], 4, 5));
}

TEST_CASE("cleared points leave a shape without handles, and a draw after it draws no outline")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    CHECK(host.CountPixels(RedPixel) > 100);
    polygon.ClearPoints();
    CHECK(polygon.HandleRects.empty());
    CHECK(host.CountPixels(RedPixel) == 0);
}

TEST_CASE("handles are round for shape 0, square for shape 1 and absent for any other or when hidden")
{
    OverlayCanvas  host;
    VostelPolygon& polygon = DrawSquare(host);
    polygon.LineColorSel = 0x00FF00;    // handles alone are red
    const CPoint corner = host.At(20, 20);
    host.Paint();
    CHECK(host.Pixel(corner.x - 4, corner.y) == RedPixel);
    CHECK(host.Pixel(corner.x - 4, corner.y - 4) != RedPixel);
    polygon.SetHandleShape(1);
    host.Paint();
    CHECK(host.Pixel(corner.x - 4, corner.y - 4) == RedPixel);
    polygon.SetHandleShape(2);
    CHECK(host.CountPixels(RedPixel) == 0);
    polygon.SetHandleShape(0);
    polygon.ShowHandles = false;
    CHECK(host.CountPixels(RedPixel) == 0);
    CHECK(host.CountPixels(0x00FF00) > 50);
}

TEST_CASE("the newest shape under the press takes it")
{
    OverlayCanvas  host;
    VostelPolygon& lower = DrawSquare(host);
    VostelPolygon& upper = DrawSquare(host);
    host.DragOf(CPoint(40, 35), CPoint(43, 35));
    CHECK(IsAt(lower.ImagePoints[0], 20, 20));
    CHECK(IsAt(upper.ImagePoints[0], 23, 20));
    CHECK(upper.Selected);
    CHECK_FALSE(lower.Selected);
}
