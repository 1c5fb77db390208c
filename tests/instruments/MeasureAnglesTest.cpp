#include "instruments/VostelMeasureAngle3Pts.h"
#include "instruments/VostelMeasureAngle4Pts.h"

#include "support/OverlayScene.h"

#include <climits>
#include <cmath>

using namespace vostel;

namespace {

// A window paints what is added before the next press, which gives the caption its context.
VostelMeasureAngle3Pts& Place3(OverlayScene& scene, CPoint at)
{
    gCVSAddMeasureAngle3Pts(0);
    scene.Paint();
    scene.Move(at.x, at.y);
    scene.Drag(at, at, DrawFlags);
    scene.Paint();
    return scene.Last<VostelMeasureAngle3Pts>();
}

VostelMeasureAngle4Pts& Place4(OverlayScene& scene, CPoint at)
{
    gCVSAddMeasureAngle4Pts(0);
    scene.Paint();
    scene.Move(at.x, at.y);
    scene.Drag(at, at, DrawFlags);
    scene.Paint();
    return scene.Last<VostelMeasureAngle4Pts>();
}

void DragHandle(OverlayScene& scene, CPoint from, CPoint to)
{
    scene.Drag(from, to);
    scene.Paint();
}

CRect SizeOf(const wchar_t* text)
{
    return gCVSGetTextRectOL(0, text, 0, 0, FontPlain18, 1, 0, 0);
}

}

TEST_CASE("the angle measures are numbered, selected and free of the image's edges")
{
    OverlayScene scene;
    gCVSAddMeasureAngle3Pts(0);
    VostelMeasureAngle3Pts& three = scene.Last<VostelMeasureAngle3Pts>();
    CHECK(three.TypeCode == 9);
    CHECK(three.MaxPoints == 3);
    CHECK(three.ClickPerPoint == 1);
    CHECK_FALSE(three.ClampToImage);
    CHECK(three.Selected);
    CHECK(three.SerialNo == 0);
    gCVSAddMeasureAngle4Pts(0);
    VostelMeasureAngle4Pts& four = scene.Last<VostelMeasureAngle4Pts>();
    CHECK(four.TypeCode == 10);
    CHECK(four.MaxPoints == 4);
    CHECK_FALSE(four.ClampToImage);
    CHECK(four.Cross == CPoint(100, 100));
    CHECK(four.CrossBox == CRect());
    CHECK(four.SerialNo == 1);
    CHECK(four.TypeSerial == 0);
    CHECK(scene.Canvas().Angle3Count == 1);
    CHECK(scene.Canvas().Angle4Count == 1);
    CHECK(three.GetResultText() == L"NULL");    // only length measures give their text away
    CHECK(four.GetResultText() == L"NULL");
}

TEST_CASE("a Shift press lays a vertex with arms of 150 pixels upwards and to the right: 90 degrees")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    REQUIRE(angle.ImagePoints.size() == 3);
    CHECK(angle.ImagePoints[0].x == 120.0);
    CHECK(angle.ImagePoints[0].y == 200.0);
    CHECK(angle.ImagePoints[1].x == 120.0);
    CHECK(angle.ImagePoints[1].y == 50.0);
    CHECK(angle.ImagePoints[2].x == 270.0);
    CHECK(angle.ImagePoints[2].y == 200.0);
    CHECK(angle.Label.Text == L"角度 = 90.000 度");
    const CRect size = SizeOf(L"角度 = 90.000 度");
    CHECK(angle.Label.ClientBox == CRect(17, 97, 20 + size.Width() + 3, 100 + size.Height() + 3));
}

TEST_CASE("the arms are as long on the screen at every zoom")
{
    OverlayScene scene;
    scene.Zoom(3);
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    CHECK(std::abs(angle.ClientPoints[0].y - angle.ClientPoints[1].y - 150) <= 1);
    CHECK(std::abs(angle.ClientPoints[2].x - angle.ClientPoints[0].x - 150) <= 1);
    CHECK(angle.ImagePoints[2].x - angle.ImagePoints[0].x < 90.0);
}

TEST_CASE("dragging an arm changes the angle, and the caption keeps its place and size")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    const CRect             box = angle.Label.ClientBox;
    DragHandle(scene, CPoint(270, 200), CPoint(270, 50));
    CHECK(angle.Label.Text == L"角度 = 45.000 度");
    CHECK(angle.Label.ClientBox == box);
    DragHandle(scene, CPoint(270, 50), CPoint(120, 280));
    CHECK(angle.Label.Text.Left(9) == L"角度 = 180.");    // straight, with a circle constant cut short
    CHECK(angle.Label.ClientBox == box);
    CHECK(angle.ImagePoints[0].x == 120.0);
}

TEST_CASE("degrees come from the short circle constant, so that a straight angle is above 180")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    DragHandle(scene, CPoint(270, 200), CPoint(120, 280));
    wchar_t expected[40];
    std::swprintf(expected, 40, L"角度 = %3.3f 度", std::acos(-1.0) * 57.295780490442965);
    CHECK(angle.Label.Text == expected);
    CHECK(std::acos(-1.0) * 57.295780490442965 > 180.0);
    // With the full constant this one is 159.0752...; the third decimal shows it.
    DragHandle(scene, CPoint(120, 280), CPoint(133, 234));
    CHECK(angle.Label.Text == L"角度 = 159.076 度");
}

TEST_CASE("the vertex handle drags the whole shape, and the caption stays")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    const CRect             box = angle.Label.ClientBox;
    DragHandle(scene, CPoint(120, 200), CPoint(140, 210));
    CHECK(angle.ClientPoints[0] == CPoint(140, 210));
    CHECK(angle.ClientPoints[1] == CPoint(140, 60));
    CHECK(angle.ClientPoints[2] == CPoint(290, 210));
    CHECK(angle.Label.ClientBox == box);
    DragHandle(scene, CPoint(140, 210), CPoint(140, 400));    // outside the image
    CHECK(angle.ImagePoints[0].y == 400.0);
}

TEST_CASE("the caption of an angle is dragged as a box, and the shape stays")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    const CRect             box = angle.Label.ClientBox;
    DragHandle(scene, CPoint(box.left + 5, box.top + 5), CPoint(box.left + 165, box.top + 155));
    CHECK(angle.LabelHit);
    CHECK(angle.Label.ClientBox.left == box.left + 160);
    CHECK(angle.Label.ClientBox.top == box.top + 150);
    CHECK(angle.ClientPoints[0] == CPoint(120, 200));
    CHECK(angle.ClientPoints[2] == CPoint(270, 200));
    scene.Move(0, 0);
    CHECK(angle.Label.ClientBox.left == box.left + 160);
}

TEST_CASE("the arms are blue after the Shift press that lays them, and red once a press has hit the shape")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(150, 250));
    const CRect             upright(150, 110, 151, 240);
    const CRect             level(160, 250, 290, 251);
    CHECK_FALSE(angle.Selected);    // the press clears the flag, and nothing asks for a hit
    CHECK(scene.Count(upright, 0x0000FF) == 130);
    CHECK(scene.Count(level, 0x0000FF) == 130);
    CHECK(scene.Pixel(150, 96) == 0x0000FF);    // a handle at the end of the arm
    scene.Drag(CPoint(150, 250), CPoint(150, 250));
    scene.Paint();
    CHECK(scene.Count(upright, 0xFF0000) == 130);
    CHECK(scene.Count(level, 0xFF0000) == 130);
    CHECK(scene.Pixel(150, 96) == 0xFF0000);
    scene.Press(395, 5);    // beside everything
    scene.Release(395, 5);
    scene.Paint();
    CHECK(scene.Count(upright, 0x0000FF) == 130);
}

TEST_CASE("a dotted black connector leads from the vertex to the nearest corner of the white caption")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(150, 250));
    const CPoint            corner = angle.Label.NearestCorner(CPoint(150, 250));
    const CRect             below(50, angle.Label.ClientBox.bottom + 1, 145, 246);
    CHECK(corner.y == angle.Label.ClientBox.bottom);
    const int black = scene.Count(below, 0x000000);
    CHECK(black > 4);
    CHECK(black < below.Height());    // a solid line would have a pixel in each row
    CHECK(scene.Count(below, 0x646464) + black == below.Width() * below.Height());
    CHECK(scene.Count(angle.Label.ClientBox, 0xFFFFFF) > 100);
}

TEST_CASE("a further Shift press starts the shape over and places the caption anew")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    DragHandle(scene, CPoint(270, 200), CPoint(270, 50));
    scene.Drag(CPoint(220, 240), CPoint(220, 240), DrawFlags);
    REQUIRE(angle.ImagePoints.size() == 3);
    CHECK(angle.ImagePoints[2].x == 370.0);
    CHECK(angle.Label.Text == L"角度 = 90.000 度");
    CHECK(angle.Label.ClientBox.left == 117);
    CHECK(angle.Label.ClientBox.top == 137);
}

TEST_CASE("an arm without length gives an angle that is not a number, printed as such")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    DragHandle(scene, CPoint(270, 200), CPoint(120, 200));
    CHECK(angle.Label.Text == L"角度 = nan 度");
    scene.Paint();
}

TEST_CASE("two arms on each other are 0 degrees or no number, never anything else")
{
    OverlayScene            scene;
    VostelMeasureAngle3Pts& angle = Place3(scene, CPoint(120, 200));
    DragHandle(scene, CPoint(270, 200), CPoint(120, 50));
    CHECK(angle.Label.Text == L"角度 = 0.000 度");
}

TEST_CASE("an angle's caption that has not been painted yet measures nothing")
{
    OverlayScene scene;
    gCVSAddMeasureAngle3Pts(0);
    scene.Move(120, 200);
    scene.Press(120, 200, DrawFlags);
    VostelMeasureAngle3Pts& angle = scene.Last<VostelMeasureAngle3Pts>();
    CHECK(angle.Label.ClientBox == CRect(17, 97, 23, 103));
    scene.Release(120, 200);
}

TEST_CASE("a Shift press without a view is reported and starts at 0, 0")
{
    for (const bool three : {true, false}) {
        OverlayScene scene;
        three ? gCVSAddMeasureAngle3Pts(0) : gCVSAddMeasureAngle4Pts(0);
        scene.Press(120, 200, DrawFlags);
        REQUIRE_FALSE(scene.Messages().empty());
        for (const CString& message : scene.Messages())
            CHECK(message == NoView);
        const VostelObj& angle = *scene.Canvas().Elements.back();
        REQUIRE(angle.ImagePoints.size() == (three ? 3 : 4));
        CHECK(angle.ImagePoints[0].x == 0.0);
        scene.Release(120, 200);
        scene.Move(50, 50);
        scene.Paint();
    }
}

TEST_CASE("a Shift press lays two lines near and far of the point, and the caption 200 left and 100 above")
{
    OverlayScene            scene(600, 400);
    VostelMeasureAngle4Pts& angle = Place4(scene, CPoint(300, 300));
    REQUIRE(angle.ImagePoints.size() == 4);
    CHECK(angle.ClientPoints ==
          std::vector<CPoint>{CPoint(300, 200), CPoint(300, 100), CPoint(400, 300), CPoint(500, 300)});
    CHECK(angle.Cross == CPoint(300, 300));
    CHECK(angle.CrossBox == CRect(296, 296, 304, 304));
    CHECK(angle.Label.Text == L"角度 = 90.000 度");
    const CRect size = SizeOf(L"角度 = 90.000 度");
    CHECK(angle.Label.ClientBox == CRect(97, 197, 100 + size.Width() + 3, 200 + size.Height() + 3));
    // The crossing's yellow grip, the lines to it, the connector from the first point.
    CHECK(scene.Pixel(296, 299) == 0xFFFF00);
    CHECK(scene.Pixel(300, 150) == 0x0000FF);
    CHECK(scene.Pixel(300, 250) == 0x0000FF);    // from the near end on to the crossing
    CHECK(scene.Pixel(350, 300) == 0x0000FF);
    CHECK(scene.Pixel(450, 300) == 0x0000FF);
    scene.Drag(CPoint(300, 300), CPoint(300, 300));    // a press on the grip selects the shape
    scene.Paint();
    CHECK(scene.Pixel(300, 150) == 0xFF0000);
    CHECK(scene.Pixel(450, 300) == 0xFF0000);
    CHECK(scene.Pixel(296, 299) == 0xFFFF00);
    const CRect between(angle.Label.ClientBox.right + 1, 190, 296, 230);
    const int   black = scene.Count(between, 0x000000);
    CHECK(black > 10);
    CHECK(black < between.Width());
}

TEST_CASE("dragging an end moves the crossing to where the lines meet, and the angle is taken there")
{
    OverlayScene            scene(600, 400);
    VostelMeasureAngle4Pts& angle = Place4(scene, CPoint(300, 300));
    DragHandle(scene, CPoint(300, 100), CPoint(400, 100));    // 45 degrees through 300,200
    CHECK(angle.Cross == CPoint(200, 300));
    CHECK(angle.CrossBox == CRect(196, 296, 204, 304));
    CHECK(angle.Label.Text == L"角度 = 45.000 度");
    DragHandle(scene, CPoint(200, 300), CPoint(210, 310));    // the grip moves all four
    CHECK(angle.ClientPoints[0] == CPoint(310, 210));
    CHECK(angle.ClientPoints[3] == CPoint(510, 310));
    CHECK(angle.Cross == CPoint(210, 310));
    const CRect box = angle.Label.ClientBox;
    DragHandle(scene, CPoint(box.left + 4, box.top + 4), CPoint(box.left + 14, box.top - 6));
    CHECK(angle.Label.ClientBox.left == box.left + 10);
    CHECK(angle.ClientPoints[0] == CPoint(310, 210));
}

TEST_CASE("the crossing is found anew after each change of the view")
{
    OverlayScene            scene(600, 400);
    VostelMeasureAngle4Pts& angle = Place4(scene, CPoint(300, 300));
    scene.Pan(20, -10);
    CHECK(angle.Cross == CPoint(320, 290));
    CHECK(angle.CrossBox == CRect(316, 286, 324, 294));
    scene.Pan(-20, 10);
    scene.Zoom(3);
    CHECK(angle.Cross == CPoint(angle.ClientPoints[0].x, angle.ClientPoints[2].y));
}

TEST_CASE("parallel lines put the crossing where the truncation of an infinite value lies")
{
    OverlayScene            scene(600, 400);
    VostelMeasureAngle4Pts& angle = Place4(scene, CPoint(300, 300));
    DragHandle(scene, CPoint(500, 300), CPoint(400, 100));    // both lines upright
    CHECK(angle.ClientPoints[3] == CPoint(400, 100));
    CHECK(angle.Cross == CPoint(INT_MIN, INT_MIN));
    scene.Paint();
    scene.Press(10, 10);
    scene.Release(10, 10);
    // And out of it again.
    DragHandle(scene, CPoint(400, 100), CPoint(500, 300));
    CHECK(angle.Cross == CPoint(300, 300));
    CHECK(angle.Label.Text == L"角度 = 90.000 度");
}

TEST_CASE("a line without length in the four-point angle has no direction, and that ends in an outcome too")
{
    OverlayScene            scene(600, 400);
    VostelMeasureAngle4Pts& angle = Place4(scene, CPoint(300, 300));
    DragHandle(scene, CPoint(300, 100), CPoint(300, 200));
    CHECK(angle.Cross == CPoint(INT_MIN, INT_MIN));
    scene.Paint();
}

TEST_CASE("the four-point angle measures on whole client pixels, the three-point angle on the image")
{
    OverlayScene            scene(600, 400);
    VostelMeasureAngle3Pts& three = Place3(scene, CPoint(200, 300));
    VostelMeasureAngle4Pts& four = Place4(scene, CPoint(300, 300));
    scene.Zoom(5);
    // An odd direction in image pixels, for both alike.
    three.ImagePoints = {PointTemplateBase<double>(100.0, 100.0), PointTemplateBase<double>(103.3, 71.7),
                         PointTemplateBase<double>(140.1, 100.9)};
    four.ImagePoints = {PointTemplateBase<double>(103.3, 71.7),
                        PointTemplateBase<double>(100.0 + 2 * 3.3, 100.0 - 2 * 28.3),
                        PointTemplateBase<double>(140.1, 100.9), PointTemplateBase<double>(180.2, 101.8)};
    scene.Move(590, 390);
    const auto degrees = [](double ax, double ay, double bx, double by) {
        return std::acos((by * ay + bx * ax) / std::sqrt((by * by + bx * bx) * (ay * ay + ax * ax))) *
               57.295780490442965;
    };
    wchar_t expected[40];
    std::swprintf(expected, 40, L"角度 = %3.3f 度",
                  degrees(100.0 - 103.3, 100.0 - 71.7, 100.0 - 140.1, 100.0 - 100.9));
    scene.Canvas().SelIndex = 0;
    scene.Move(590, 390);
    CHECK(three.Label.Text == expected);
    const CPoint cross = four.Cross;
    std::swprintf(expected, 40, L"角度 = %3.3f 度",
                  degrees(cross.x - four.ClientPoints[0].x, cross.y - four.ClientPoints[0].y,
                          cross.x - four.ClientPoints[2].x, cross.y - four.ClientPoints[2].y));
    CHECK(four.Label.Text == expected);
    CHECK(four.Label.Text != three.Label.Text);
}

TEST_CASE("angles of canvases that do not exist are not made")
{
    OverlayScene scene;
    for (const int number : {-1, 5}) {
        gCVSAddMeasureAngle3Pts(number);
        gCVSAddMeasureAngle4Pts(number);
        gCVSAddMeasureLine(number, 1.0);
    }
    CHECK(scene.Canvas().Elements.empty());
}
