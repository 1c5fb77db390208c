#include "support/EveryObject.h"
#include "support/OverlayScene.h"

#include <memory>

using namespace vostel;

namespace {

// A new object on a scene's canvas, selected, as one that is drawn next.
template <typename Shape>
Shape& Add(OverlayScene& scene)
{
    auto shape = std::make_unique<Shape>();
    shape->SetCanvasView(&scene.Canvas().View);
    scene.Canvas().Elements.push_back(shape.get());
    scene.Canvas().SelIndex = static_cast<int>(scene.Canvas().Elements.size()) - 1;
    return *shape.release();
}

void ShiftPress(OverlayScene& scene, int x, int y)
{
    scene.Press(x, y, DrawFlags);
    scene.Release(x, y, MK_SHIFT);
}

bool IsAt(PointTemplateBase<double> p, double x, double y)
{
    return p.x == x && p.y == y;
}

}

TEST_CASE("each Shift press counts one point more, with its cross and the count in the caption")
{
    OverlayScene  scene;
    VostelPoints& points = Add<VostelPoints>(scene);
    ShiftPress(scene, 50, 200);
    CHECK(points.CaptionText() == L"点数 = 1");
    CHECK(points.IsMoving() == false);
    ShiftPress(scene, 150, 210);
    ShiftPress(scene, 250, 220);
    CHECK(points.ImagePoints.size() == 3);
    CHECK(points.CaptionText() == L"点数 = 3");
    scene.Paint();
    CHECK(points.Label.Text == L"点数 = 3");
    for (const CPoint& at : points.ClientPoints)
        for (int step = 1; step <= 5; ++step) {
            CHECK(scene.Pixel(at.x + step, at.y) == 0xFF0000);
            CHECK(scene.Pixel(at.x - step, at.y) == 0xFF0000);
            CHECK(scene.Pixel(at.x, at.y + step) == 0xFF0000);
            if (at != points.ClientPoints.back())    // the caption's connector starts there
                CHECK(scene.Pixel(at.x, at.y - step) == 0xFF0000);
        }
    // Their numbers beside them.
    const auto isRed = [](unsigned int pixel) { return RedOf(pixel) > GreenOf(pixel) + 60; };
    CHECK(scene.Count(CRect(257, 206, 275, 219), isRed) > 0);
    CHECK(scene.Count(CRect(357, 206, 375, 219), isRed) == 0);
}

TEST_CASE("a mark is hit within the handle radius and dragged alone")
{
    OverlayScene  scene;
    VostelPoints& points = Add<VostelPoints>(scene);
    ShiftPress(scene, 50, 200);
    ShiftPress(scene, 150, 200);
    CHECK(points.Hits(CPoint(153, 203)));
    CHECK_FALSE(points.Hits(CPoint(156, 200)));
    CHECK_FALSE(points.Hits(CPoint(100, 200)));
    scene.Drag(CPoint(150, 200), CPoint(170, 230));
    CHECK(IsAt(points.ImagePoints[0], 50, 200));
    CHECK(IsAt(points.ImagePoints[1], 170, 230));
}

TEST_CASE("Shift presses lay a polyline, which stays open and is hit near its line only")
{
    OverlayScene    scene;
    VostelPolyline& line = Add<VostelPolyline>(scene);
    ShiftPress(scene, 50, 100);
    ShiftPress(scene, 150, 100);
    ShiftPress(scene, 150, 200);
    CHECK(line.ImagePoints.size() == 3);
    CHECK(line.CaptionText() == L"长度 = 200.000 px");
    scene.Press(300, 250);
    scene.Release(300, 250);
    scene.Paint();
    CHECK(scene.Pixel(100, 100) == 0x0000FF);
    CHECK(scene.Pixel(150, 150) == 0x0000FF);
    CHECK(scene.Pixel(100, 150) != 0x0000FF);    // no way back
    CHECK(line.Hits(CPoint(100, 104)));
    CHECK_FALSE(line.Hits(CPoint(100, 105)));
    CHECK_FALSE(line.Hits(CPoint(100, 150)));
    CHECK(line.Hits(CPoint(146, 170)));
}

TEST_CASE("a drag on the line moves a marking whole, its caption with it, and one on the caption that alone")
{
    OverlayScene    scene;
    VostelPolyline& line = Add<VostelPolyline>(scene);
    REQUIRE(line.TakePoints(ImagePoints{{50.0, 100.0}, {150.0, 100.0}, {150.0, 200.0}}));
    scene.Paint();
    const PointTemplateBase<double> caption = line.Label.ImagePoints[0];
    scene.Drag(CPoint(100, 100), CPoint(110, 130));
    CHECK(IsAt(line.ImagePoints[0], 60, 130));
    CHECK(IsAt(line.ImagePoints[2], 160, 230));
    CHECK(line.Label.ImagePoints[0].x == doctest::Approx(caption.x + 10));
    CHECK(line.Label.ImagePoints[0].y == doctest::Approx(caption.y + 30));
    scene.Paint();

    const CPoint grip(line.Label.ClientBox.left + 20, line.Label.ClientBox.top + 8);
    scene.Drag(grip, CPoint(grip.x + 40, grip.y + 7));
    CHECK(IsAt(line.ImagePoints[0], 60, 130));
    CHECK(line.Label.ImagePoints[0].x == doctest::Approx(caption.x + 50));
    CHECK(line.Label.ImagePoints[0].y == doctest::Approx(caption.y + 37));
    CHECK(line.Selected);
}

TEST_CASE("a node of a marking that calls set off the image stays there while another is dragged")
{
    OverlayScene    scene;
    VostelPolyline& line = Add<VostelPolyline>(scene);
    REQUIRE(line.TakePoints(ImagePoints{{-50.0, 100.0}, {150.0, 100.0}}));
    scene.Paint();
    scene.Move(200, 200);
    CHECK(IsAt(line.ImagePoints[0], -50, 100));
    scene.Drag(CPoint(150, 100), CPoint(160, 110));
    CHECK(IsAt(line.ImagePoints[0], -50, 100));
    CHECK(IsAt(line.ImagePoints[1], 160, 110));
    scene.Drag(CPoint(160, 110), CPoint(160, -40));
    CHECK(IsAt(line.ImagePoints[1], 160, 0));
}

TEST_CASE("a Shift drag lays an arrow whose filled head is at its end, and a second one starts over")
{
    OverlayScene scene;
    VostelArrow& arrow = Add<VostelArrow>(scene);
    scene.Drag(CPoint(50, 150), CPoint(200, 150), DrawFlags);
    CHECK(arrow.ImagePoints.size() == 2);
    CHECK(arrow.CaptionText() == L"长度 = 150.000 px");
    scene.Paint();
    CHECK(scene.Pixel(100, 150) == 0xFF0000);
    CHECK(scene.Pixel(100, 152) != 0xFF0000);
    CHECK(scene.Pixel(190, 152) == 0xFF0000);    // beside the shaft, in the head
    CHECK(scene.Pixel(190, 148) == 0xFF0000);
    CHECK(scene.Pixel(197, 153) != 0xFF0000);    // the head narrows towards the tip
    CHECK(scene.Pixel(60, 152) != 0xFF0000);
    scene.Drag(CPoint(250, 250), CPoint(250, 200), DrawFlags);
    CHECK(arrow.ImagePoints.size() == 2);
    CHECK(IsAt(arrow.ImagePoints[1], 250, 200));
    CHECK(arrow.CaptionText() == L"长度 = 50.000 px");
}

TEST_CASE("letter keys leave markings alone")
{
    OverlayScene    scene;
    VostelPolyline& line = Add<VostelPolyline>(scene);
    REQUIRE(line.TakePoints(ImagePoints{{50.0, 100.0}, {150.0, 100.0}}));
    const std::vector<unsigned char> state = line.SaveState();
    for (const unsigned int key : {'A', 'D', 'E', 'I', 'T', 'X'})
        line.OnKeyDown(key, 1, 0);
    CHECK(line.SaveState() == state);
}

TEST_CASE("of very many marks all crosses are drawn, and numbers where there is room")
{
    OverlayScene  scene;
    VostelPoints& points = Add<VostelPoints>(scene);
    ImagePoints   many;
    for (int i = 0; i < 501; ++i)
        many.emplace_back(30.0 + i % 3 * 12.0, 150.0);
    many.emplace_back(300.0, 200.0);
    REQUIRE(points.TakePoints(many));
    scene.Paint();
    for (int i = 0; i < 3; ++i)
        CHECK(scene.Pixel(30 + 12 * i, 153) == 0x0000FF);
    const auto isBlue = [](unsigned int pixel) { return BlueOf(pixel) > GreenOf(pixel) + 40; };
    CHECK(scene.Count(CRect(308, 186, 330, 198), isBlue) > 10);
    // One number in the place of 501.
    CHECK(scene.Count(CRect(36, 136, 44, 144), isBlue) < 40);
}

TEST_CASE("a caption goes beside each new point until it is dragged")
{
    OverlayScene    scene;
    VostelPolyline& line = Add<VostelPolyline>(scene);
    ShiftPress(scene, 50, 200);
    ShiftPress(scene, 100, 150);
    const CRect& box = line.Label.ClientBox;
    CHECK(box.left > 100);
    CHECK(box.bottom < 150);
    ShiftPress(scene, 200, 120);
    CHECK(box.left > 200);
    CHECK(box.bottom < 120);
    CHECK(line.Label.Text == line.CaptionText());
    scene.Drag(CPoint(box.left + 20, box.top + 8), CPoint(40, 40));
    const PointTemplateBase<double> place = line.Label.ImagePoints[0];
    ShiftPress(scene, 250, 100);
    CHECK(IsAt(line.Label.ImagePoints[0], place.x, place.y));
    CHECK(line.LabelDragged);
}

TEST_CASE("the caption of an arrow stays beside it while it is laid")
{
    OverlayScene scene;
    VostelArrow& arrow = Add<VostelArrow>(scene);
    scene.Drag(CPoint(50, 250), CPoint(200, 150), DrawFlags);
    CHECK(arrow.Label.ClientBox.left > 200);
    CHECK(arrow.Label.ClientBox.bottom < 150);
}
