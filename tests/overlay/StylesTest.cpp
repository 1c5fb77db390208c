#include "canvas/view/HitTests.h"
#include "geometry/Coverage.h"
#include "overlay/InteriorFill.h"
#include "support/EveryObject.h"
#include "support/OverlayScene.h"

#include <cmath>
#include <memory>

using namespace vostel;

namespace {

constexpr unsigned int Ground = 0x646464;    // the flat image of a scene

// A new open-made object on a scene's canvas, not selected.
template <typename Shape>
Shape& Add(OverlayScene& scene, const ImagePoints& points)
{
    auto shape = std::make_unique<Shape>();
    shape->OpenMade = true;
    shape->SetCanvasView(&scene.Canvas().View);
    REQUIRE(shape->TakePoints(points));
    scene.Canvas().Elements.push_back(shape.get());
    return *shape.release();
}

// Sets the pixel ratio of a scene's canvas for the length of a scope.
class RatioScope {
public:
    RatioScope(OverlayScene& scene, double ratio) : View(scene.Canvas().View)
    {
        View.Settings.PixelRatio = ratio;
    }
    ~RatioScope() { View.Settings.PixelRatio = 1.0; }
    RatioScope(const RatioScope&) = delete;
    RatioScope& operator=(const RatioScope&) = delete;

private:
    CanvasView& View;
};

const ImagePoints Square = {{100.0, 100.0}, {200.0, 100.0}, {200.0, 200.0}, {100.0, 200.0}};

}

TEST_CASE("the line of a shape is as wide as its style says")
{
    for (const int width : {1, 2, 3, 6}) {
        CAPTURE(width);
        OverlayScene   scene;
        VostelPolygon& polygon = Add<VostelPolygon>(scene, Square);
        polygon.LineWidth = width;
        scene.Paint();
        CHECK(scene.Count(CRect(130, 90, 131, 110), BluePixel) == width);
        CHECK(scene.Count(CRect(190, 150, 210, 151), BluePixel) == width);
    }
}

TEST_CASE("a fill lies on exactly the pixels of the interior, blended with what was there")
{
    struct Case {
        const char*                Name;
        std::unique_ptr<VostelObj> Object;
        ImagePoints                Points;
    };
    std::vector<Case> cases;
    cases.push_back({"polygon that crosses itself",
                     std::make_unique<VostelPolygon>(),
                     {{60.3, 40.1}, {200.7, 180.2}, {60.3, 180.2}, {200.7, 40.1}}});
    cases.push_back({"spline",
                     std::make_unique<VostelSpline>(),
                     {{60.3, 40.1}, {200.7, 60.2}, {180.1, 220.7}, {50.3, 130.1}}});
    cases.push_back({"free region",
                     std::make_unique<VostelCrayonOneStroke>(),
                     {{-60.3, 40.1}, {200.7, 60.2}, {180.1, 920.7}}});
    cases.push_back({"box", std::make_unique<VostelRect>(), {{50.5, 60.5}, {150.5, 250.5}}});
    cases.push_back({"ellipse", std::make_unique<VostelRect>(), {{50.2, 60.1}, {350.5, 250.5}}});
    cases.back().Object->EllipseMode = true;
    for (Case& test : cases) {
        CAPTURE(test.Name);
        OverlayScene scene;
        VostelObj&   object = *test.Object;
        object.OpenMade = true;
        object.SetCanvasView(&scene.Canvas().View);
        REQUIRE(object.TakePoints(test.Points));
        scene.Canvas().Elements.push_back(test.Object.release());
        object.FillColor = 0x80FF0000;
        scene.Paint();
        // 100 + (255 - 100) * 128 / 255 and 100 * 127 / 255
        constexpr unsigned int     Blended = 0xB23232;
        std::vector<unsigned char> mask(400 * 300);
        WriteMask(CoverageOf(*object.RegionOutline(), 400, 300), 400, 300, mask.data(), 400);
        int inside = 0;
        int wrong = 0;
        for (int y = 0; y < 300; ++y) {
            for (int x = 0; x < 400; ++x) {
                const unsigned int pixel = scene.Pixel(x, y);
                const bool         covered = mask[static_cast<std::size_t>(y * 400 + x)] != 0;
                inside += covered;
                // Lines and handles lie over the fill.
                wrong += pixel != BluePixel && pixel != (covered ? Blended : Ground);
            }
        }
        CHECK(inside > 5000);
        CHECK(wrong == 0);
    }
}

TEST_CASE("a fill of alpha 0 draws nothing, of alpha 255 its color, and one far beyond the window no further")
{
    OverlayScene   scene;
    VostelPolygon& polygon = Add<VostelPolygon>(scene, Square);
    polygon.FillColor = 0x00FFFFFF;
    scene.Paint();
    CHECK(scene.Pixel(150, 150) == Ground);
    polygon.FillColor = 0xFF123456;
    scene.Paint();
    CHECK(scene.Pixel(150, 150) == 0x123456);
    REQUIRE(polygon.TakePoints(ImagePoints{{-1e12, -1e12}, {1e12, -1e12}, {1e12, 1e12}, {-1e12, 1e12}}));
    scene.Paint();
    CHECK(scene.Pixel(0, 0) == 0x123456);
    CHECK(scene.Pixel(399, 299) == 0x123456);
}

TEST_CASE("hidden and locked objects are not hit")
{
    CanvasView view = SomeView();
    for (const ObjectClass& kind : EveryClass()) {
        if (kind.Fewest == 0)
            continue;
        CAPTURE(kind.Name);
        const std::unique_ptr<VostelObj> object = kind.Make();
        object->SetCanvasView(&view);
        object->SetPlacement(20.0f, 30.0f, 80.0f, 30.0f);
        REQUIRE(object->TakePoints(SomePoints(kind.Fewest)));
        object->TakeText(L"some text");
        std::vector<CPoint> hits;
        for (int y = 0; y < 250; y += 2)
            for (int x = 0; x < 300; x += 2)
                if (object->Hits(CPoint(x, y)))
                    hits.emplace_back(x, y);
        CHECK_FALSE(hits.empty());
        for (bool VostelObj::*const flag : {&VostelObj::Hidden, &VostelObj::Locked}) {
            (*object).*flag = true;
            for (const CPoint& at : hits) {
                CHECK_FALSE(object->Hits(at));
                CHECK_FALSE(object->HitTest(at));
            }
            (*object).*flag = false;
        }
        CHECK(object->Hits(hits.front()));
    }
}

TEST_CASE("keys leave a locked object alone")
{
    VostelRect rect;
    rect.Locked = true;
    rect.OnKeyDown('E', 1, 0);
    CHECK_FALSE(rect.EllipseMode);
    rect.Locked = false;
    rect.OnKeyDown('E', 1, 0);
    CHECK(rect.EllipseMode);
    VostelCrayonMStroke stroke;
    stroke.Selected = stroke.Locked = true;
    stroke.OnKeyDown('A', 1, 0);
    CHECK(stroke.StrokeWidth == 1);
}

TEST_CASE("an open-made ellipse is hit by its exact outline to one pixel, also unpainted and zoomed")
{
    for (const double scale : {0.7, 1.0, 3.0}) {
        CAPTURE(scale);
        CanvasView view = SomeView(scale);
        VostelRect ellipse;
        ellipse.OpenMade = true;
        ellipse.EllipseMode = true;
        ellipse.SetCanvasView(&view);
        REQUIRE(ellipse.TakePoints(ImagePoints{{10.0, 10.0}, {90.0, 70.0}}));
        const double a = 40.0 * scale;
        const double b = 30.0 * scale;
        const double middleX = 10 + 50.0 * scale;
        const double middleY = 20 + 40.0 * scale;
        for (int y = 0; y < 250; ++y) {
            for (int x = 0; x < 300; ++x) {
                const CPoint at(x, y);
                if (HitRectList(ellipse.HandleRects, at) != -1)
                    continue;
                const auto holds = [&](double grown) {
                    const double dx = (x + 0.5 - middleX) / (a + grown);
                    const double dy = (y + 0.5 - middleY) / (b + grown);
                    return dx * dx + dy * dy < 1.0;
                };
                if (holds(0.0))
                    CHECK(ellipse.Hits(at));
                if (!holds(2.2))    // a pixel to the side and one down, and the flat of the curve
                    CHECK_FALSE(ellipse.Hits(at));
            }
        }
    }
}

TEST_CASE("an open-made spline is hit where its curve bulges beyond the nodes, a classic one is not")
{
    CanvasView   view = SomeView(2.0);
    VostelSpline open;
    open.OpenMade = true;
    VostelSpline classic;
    for (VostelSpline* const spline : {&open, &classic}) {
        spline->SetCanvasView(&view);
        REQUIRE(spline->TakePoints(ImagePoints{{20.0, 20.0}, {80.0, 20.0}, {80.0, 60.0}, {20.0, 60.0}}));
    }
    const Bounds bounds = ClientOutline(*open.RegionOutline(), view).BoundingBox();
    const CPoint bulge(110, static_cast<int>(bounds.Bottom) - 2);
    REQUIRE(bulge.y > 20 + 120 + 3);
    CHECK(open.Hits(bulge));
    CHECK_FALSE(classic.Hits(bulge));
}

TEST_CASE("a self-crossing open-made polygon is hit where its interior is")
{
    CanvasView    view = SomeView(2.0);
    VostelPolygon star;
    star.OpenMade = true;
    star.SetCanvasView(&view);
    REQUIRE(
        star.TakePoints(ImagePoints{{50.0, 5.0}, {75.0, 75.0}, {10.0, 30.0}, {90.0, 30.0}, {25.0, 75.0}}));
    CHECK_FALSE(star.Hits(CPoint(110, 20 + 90)));    // twice around
    CHECK(star.Hits(CPoint(110, 20 + 40)));
}

TEST_CASE("corners and middle of open-made shapes are dragged by their handles before any paint")
{
    CanvasView view = SomeView(2.0);
    VostelRect rect;
    rect.OpenMade = true;
    rect.SetCanvasView(&view);
    REQUIRE(rect.TakePoints(ImagePoints{{20.0, 20.0}, {60.0, 50.0}}));
    REQUIRE(rect.HitTest(CPoint(51, 61)));
    rect.OnLButtonDown(MK_LBUTTON, CPoint(51, 61));    // on the corner, inside the box
    CHECK(rect.ActiveNode == 0);
    rect.OnMouseMove(MK_LBUTTON, CPoint(41, 71));
    rect.OnLButtonUp(0, CPoint(41, 71));
    CHECK(SamePlace(rect.ImagePoints[0], {15.0, 25.0}));
    CHECK(SamePlace(rect.ImagePoints[1], {60.0, 50.0}));

    VostelMeasureLine line;
    line.OpenMade = true;
    line.SetCanvasView(&view);
    REQUIRE(line.TakePoints(ImagePoints{{20.0, 20.0}, {60.0, 50.0}}));
    view.DisplayRect = CRect(0, 0, 200, 160);
    line.SetCanvasView(&view);
    CHECK(line.HitTest(CPoint(80, 70)));
    line.OnLButtonDown(MK_LBUTTON, CPoint(80, 70));
    line.OnMouseMove(MK_LBUTTON, CPoint(90, 90));
    CHECK(SamePlace(line.ImagePoints[0], {25.0, 30.0}));
    CHECK(SamePlace(line.ImagePoints[1], {65.0, 60.0}));
}

TEST_CASE("pens, handles and their reach grow with the pixel ratio")
{
    OverlayScene     scene;
    const RatioScope ratio(scene, 2.0);
    VostelPolygon&   polygon = Add<VostelPolygon>(scene, Square);
    CHECK(polygon.HandleRects[0] == CRect(92, 92, 108, 108));
    CHECK(polygon.Hits(CPoint(93, 93)));
    CHECK_FALSE(polygon.Hits(CPoint(91, 91)));
    scene.Paint();
    CHECK(scene.Count(CRect(150, 90, 151, 110), BluePixel) == 2);
    polygon.LineWidth = 1.5;
    scene.Paint();
    CHECK(scene.Count(CRect(150, 90, 151, 110), BluePixel) == 3);
}

TEST_CASE("texts and captions grow with the pixel ratio and fit their box")
{
    CanvasView     view = SomeView();
    VostelTextRect text;
    text.SetCanvasView(&view);
    REQUIRE(text.TakePoints(ImagePoints{{10.0, 10.0}}));
    REQUIRE(text.TakeText(L"Sphinx 12.5"));
    VostelMeasureLine line;
    line.OpenMade = true;
    line.SetCanvasView(&view);
    REQUIRE(line.TakePoints(ImagePoints{{20.0, 20.0}, {60.0, 50.0}}));
    VostelTextML panel;
    panel.SetCanvasView(&view);
    REQUIRE(panel.TakePoints(ImagePoints{{10.0, 10.0}}));
    REQUIRE(panel.TakeText(L"one\ntwo"));
    const auto boxes = [&] {
        return std::vector<CRect>{text.ClientBox, line.Label.ClientBox, panel.ClientBox};
    };
    const std::vector<CRect> before = boxes();
    view.Settings.PixelRatio = 2.0;
    for (VostelObj* const object :
         {static_cast<VostelObj*>(&text), static_cast<VostelObj*>(&line), static_cast<VostelObj*>(&panel)})
        object->DerivePainted();
    const std::vector<CRect> after = boxes();
    for (std::size_t i = 0; i < before.size(); ++i) {
        CAPTURE(i);
        CHECK(after[i].Height() >= 2 * before[i].Height() - 4);
        CHECK(after[i].Height() <= 2 * before[i].Height() + 4);
        CHECK(after[i].Width() >= before[i].Width() * 18 / 10);
        CHECK(after[i].Width() <= before[i].Width() * 22 / 10);
    }
    view.Settings.PixelRatio = 1.0;
    text.DerivePainted();
    CHECK(text.ClientBox == before[0]);
}

TEST_CASE("on-canvas controls grow with the pixel ratio and keep their grammar")
{
    CanvasView view = SomeView();
    view.Settings.PixelRatio = 2.0;
    VostelSlider slider;
    slider.SetCanvasView(&view);
    slider.SetPlacement(10.0f, 20.0f, 130.0f, 30.0f);
    CHECK(slider.ClientBox == CRect(20, 250 - 40 - 1 - 60, 280, 250 - 40 - 1));
    CHECK(slider.CaptionRect == CRect(24, 153, 136, 205));
    CHECK(slider.LowThumbRect.Width() == 20);
    slider.OnLButtonDown(MK_LBUTTON, CPoint(slider.LowThumbRect.left + 5, 180));
    CHECK(slider.DragLow);
    slider.OnMouseMove(MK_LBUTTON, CPoint(slider.LowThumbRect.left + 5 + slider.Travel / 2, 180));
    CHECK(slider.Low == doctest::Approx(0.5).epsilon(0.02));
    VostelProgress progress;
    progress.SetCanvasView(&view);
    progress.SetPlacement(10.0f, 20.0f, 130.0f, 30.0f);
    progress.RefreshClientGeometry();
    CHECK(progress.BarRect == CRect(26, 155, 26 + 124, 203));
}

TEST_CASE("a canvas may leave handles and captions out of its picture")
{
    OverlayScene scene;
    Add<VostelMeasureLine>(scene, {{100.0, 100.0}, {200.0, 200.0}});
    CanvasSettings& settings = scene.Canvas().View.Settings;
    scene.Paint();
    const int whole = scene.Count(scene.Whole(), [](unsigned int pixel) { return pixel != Ground; });
    settings.Captions = false;
    scene.Paint();
    const int bare = scene.Count(scene.Whole(), [](unsigned int pixel) { return pixel != Ground; });
    CHECK(bare < whole - 1000);
    CHECK(scene.Count(CRect(90, 90, 210, 210), BluePixel) > 101);
    settings.Handles = false;
    scene.Paint();
    CHECK(scene.Count(scene.Whole(), [](unsigned int pixel) { return pixel != Ground; }) == 100);
    settings = CanvasSettings();
    scene.Paint();
    CHECK(scene.Count(scene.Whole(), [](unsigned int pixel) { return pixel != Ground; }) == whole);
}
