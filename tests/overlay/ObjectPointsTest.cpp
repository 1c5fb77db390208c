#include "support/EveryObject.h"

#include <doctest/doctest.h>

#include <random>

using namespace vostel;

namespace {

bool Same(const ImagePoints& a, const ImagePoints& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), SamePlace);
}

}

TEST_CASE("each kind gives the points that it took")
{
    for (const ObjectClass& kind : EveryClass()) {
        if (kind.Fewest == 0)
            continue;
        CAPTURE(kind.Name);
        CanvasView                       view = SomeView();
        const std::unique_ptr<VostelObj> object = kind.Make();
        object->SetCanvasView(&view);
        ImagePoints points = SomePoints(kind.Fewest);
        if (object->TypeCode == OverlayPanel || object->TypeCode == OverlayNeighbours)
            points = {{30.0, 40.0}};    // client px are whole
        REQUIRE(object->TakePoints(points));
        CHECK(Same(object->GivePoints(), points));
        const std::size_t most = std::min<std::size_t>(kind.Most, 500);
        if (most > kind.Fewest) {
            REQUIRE(object->TakePoints(SomePoints(most)));
            CHECK(Same(object->GivePoints(), SomePoints(most)));
        }
    }
}

TEST_CASE("another number of points is refused and changes nothing")
{
    for (const ObjectClass& kind : EveryClass()) {
        CAPTURE(kind.Name);
        CanvasView                       view = SomeView();
        const std::unique_ptr<VostelObj> object = kind.Make();
        object->SetCanvasView(&view);
        if (kind.Fewest > 0)
            REQUIRE(object->TakePoints(SomePoints(kind.Fewest)));
        const std::vector<unsigned char> state = object->SaveState();
        for (std::size_t count = 0; count < 300; ++count) {
            if (kind.Fewest > 0 && count >= kind.Fewest && count <= kind.Most)
                continue;
            CHECK_FALSE(object->TakePoints(SomePoints(count)));
        }
        CHECK(object->SaveState() == state);
    }
}

TEST_CASE("points that were taken stand as they are, off the image too")
{
    CanvasView    view = SomeView();
    VostelPolygon polygon;
    polygon.SetCanvasView(&view);
    const ImagePoints points = {{-5.5, 0.0}, {1e6, 3.0}, {7.0, -2e5}};
    REQUIRE(polygon.TakePoints(points));
    CHECK(Same(polygon.GivePoints(), points));
    CHECK(polygon.ClientPoints[0] == CPoint(-1, 20));
}

TEST_CASE("an angle takes end, vertex, end and measures at the vertex")
{
    CanvasView             view = SomeView();
    VostelMeasureAngle3Pts angle;
    angle.SetCanvasView(&view);
    REQUIRE(angle.TakePoints(ImagePoints{{10.0, 0.0}, {0.0, 0.0}, {0.0, 10.0}}));
    CHECK(angle.CaptionText() == L"角度 = 90.000 度");
    CHECK(angle.Label.Text == L"角度 = 90.000 度");
}

TEST_CASE("a length has its caption where a drawn one has it")
{
    CanvasView        view = SomeView();
    VostelMeasureLine line;
    line.SetCanvasView(&view);
    REQUIRE(line.TakePoints(ImagePoints{{10.0, 10.0}, {40.0, 50.0}}));
    CHECK(line.CaptionText() == L"长度 = 50.000 mm");
    CHECK_FALSE(line.LabelUnplaced);
    CHECK(line.Label.Anchor == CPoint(60 + 100, 80 - 100));
}

TEST_CASE("a caption goes along when its measure gets other points")
{
    CanvasView view = SomeView();
    for (const ObjectClass& kind : {ClassOf<VostelMeasureAngle3Pts>("angle", 3, 3),
                                    ClassOf<VostelMeasureAngle4Pts>("angle of two lines", 4, 4)}) {
        CAPTURE(kind.Name);
        const std::unique_ptr<VostelObj> object = kind.Make();
        auto* const                      angle = static_cast<VostelMeasureAngle*>(object.get());
        angle->SetCanvasView(&view);
        ImagePoints points = SomePoints(kind.Fewest);
        REQUIRE(angle->TakePoints(points));
        const PointTemplateBase<double> before = angle->Label.ImagePoints[0];
        for (PointTemplateBase<double>& point : points)
            point.x += 8.0;
        REQUIRE(angle->TakePoints(points));
        CHECK(angle->Label.ImagePoints[0].x == doctest::Approx(before.x + 8.0));
        CHECK(angle->Label.ImagePoints[0].y == doctest::Approx(before.y));
    }
}

TEST_CASE("a text has its place and size at once, and keeps its corner when it is changed")
{
    CanvasView     view = SomeView();
    VostelTextRect text;
    text.SetCanvasView(&view);
    REQUIRE(text.TakePoints(ImagePoints{{10.5, 20.25}}));
    REQUIRE(text.TakeText(L"ab"));
    const CRect narrow = text.ClientBox;
    CHECK(narrow.left == 31 - 3);
    CHECK(narrow.top == 60 - 3);
    CHECK(narrow.Width() > 6);
    REQUIRE(text.TakeText(L"abcdefgh"));
    CHECK(text.ClientBox.left == narrow.left);
    CHECK(text.ClientBox.top == narrow.top);
    CHECK(text.ClientBox.Width() > narrow.Width());
    CHECK(text.Hits(CPoint(narrow.right + 5, narrow.top + 5)));
    CHECK(Same(text.GivePoints(), {{10.5, 20.25}}));
    CHECK(text.CaptionText() == L"abcdefgh");
    CHECK_FALSE(VostelPolygon().TakeText(L"a"));
}

TEST_CASE("a panel is hit where its lines will be drawn")
{
    CanvasView   view = SomeView();
    VostelTextML panel;
    panel.SetCanvasView(&view);
    REQUIRE(panel.TakePoints(ImagePoints{{15.0, 25.0}}));
    REQUIRE(panel.TakeText(L"one\n\nthree"));
    CHECK(panel.Lines.size() == 3);
    CHECK(panel.CaptionText() == L"one\n\nthree");
    CHECK(panel.ClientBox.left == 15);
    CHECK(panel.ClientBox.Width() > 20);
    CHECK(panel.Hits(CPoint(20, 30)));
}

TEST_CASE("only regions of enough points have an outline")
{
    const ImagePoints corners = {{1.0, 2.0}, {5.0, 1.0}};
    VostelRect        rect;
    CHECK_FALSE(rect.RegionOutline());
    REQUIRE(rect.TakePoints(corners));
    CHECK(rect.RegionOutline()->Form == OutlineForm::Polygon);
    CHECK(rect.RegionOutline()->Points.size() == 4);
    rect.EllipseMode = true;
    CHECK(rect.RegionOutline()->Form == OutlineForm::Ellipse);
    CHECK(Same(rect.RegionOutline()->Points, {{1.0, 1.0}, {5.0, 2.0}}));

    const ImagePoints nodes = SomePoints(4);
    VostelPolygon     polygon;
    CHECK_FALSE(polygon.RegionOutline());
    REQUIRE(polygon.TakePoints(nodes));
    CHECK(Same(polygon.RegionOutline()->Points, nodes));
    VostelCrayonOneStroke stroke;
    CHECK_FALSE(stroke.RegionOutline());
    REQUIRE(stroke.TakePoints(nodes));
    CHECK(Same(stroke.RegionOutline()->Points, nodes));
    VostelSpline spline;
    CHECK_FALSE(spline.RegionOutline());
    REQUIRE(spline.TakePoints(nodes));
    CHECK(spline.RegionOutline()->Form == OutlineForm::Curve);
    CHECK(spline.RegionOutline()->Points.size() == 12);

    for (const ObjectClass& kind : EveryClass()) {
        CAPTURE(kind.Name);
        const std::unique_ptr<VostelObj> object = kind.Make();
        CanvasView                       view = SomeView();
        object->SetCanvasView(&view);
        if (kind.Fewest > 0)
            REQUIRE(object->TakePoints(SomePoints(kind.Fewest)));
        const int code = object->TypeCode;
        if (code > OverlayOneStroke)
            CHECK_FALSE(object->RegionOutline());
    }
}

TEST_CASE("Hits says what HitTest says and writes nothing")
{
    std::mt19937 random(7);
    for (const ObjectClass& kind : EveryClass()) {
        CAPTURE(kind.Name);
        CanvasView                       view = SomeView();
        const std::unique_ptr<VostelObj> object = kind.Make();
        object->SetCanvasView(&view);
        object->SetPlacement(20.0f, 30.0f, 80.0f, 30.0f);
        if (kind.Fewest > 0)
            REQUIRE(
                object->TakePoints(SomePoints(std::max<std::size_t>(kind.Fewest, kind.Most > 10 ? 6 : 1))));
        object->TakeText(L"hit me");
        int hits = 0;
        for (int round = 0; round < 2000; ++round) {
            const CPoint at(static_cast<int>(random() % 300), static_cast<int>(random() % 250));
            const bool   selected = object->Selected = random() % 2 != 0;
            const CRect  bounds = object->StrokeBounds;
            const std::vector<unsigned char> state = object->SaveState();
            const bool                       hit = object->Hits(at);
            CHECK(object->Selected == selected);
            CHECK(object->StrokeBounds == bounds);
            CHECK(object->SaveState() == state);
            CHECK(object->HitTest(at) == hit);
            hits += hit;
        }
        CHECK(hits > 0);
        CHECK(hits < 2000);
    }
}
