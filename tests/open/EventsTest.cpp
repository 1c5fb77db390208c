// What a person does to objects through events: drawing, locked and hidden objects, keys, the pixel ratio.

#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

// An image of 200 x 150 px at scale 1, at 50, 25 of the area.
class Stage {
public:
    OpenCanvas Canvas{300, 200};
    int32_t    Number = Canvas.Number;

    Stage()
    {
        ShowBytes(Number, 200, 150, [](int x, int) { return x; });
    }

    void Press(double x, double y, uint32_t flags = 0) const
    {
        REQUIRE(vostel_event_press(Number, x + 50.0, y + 25.0, flags) == VOSTEL_OK);
    }
    void Move(double x, double y, uint32_t flags = 0) const
    {
        REQUIRE(vostel_event_move(Number, x + 50.0, y + 25.0, flags | VOSTEL_LEFT_BUTTON) == VOSTEL_OK);
    }
    void Release(double x, double y, uint32_t flags = 0) const
    {
        REQUIRE(vostel_event_release(Number, x + 50.0, y + 25.0, flags) == VOSTEL_OK);
    }
    void Drag(VostelPoint from, VostelPoint to, uint32_t flags = 0) const
    {
        Press(from.x, from.y, flags);
        Move(to.x, to.y, flags);
        Release(to.x, to.y, flags);
    }
    void Key(char letter) const
    {
        REQUIRE(vostel_event_key(Number, static_cast<unsigned char>(letter), 0) == VOSTEL_OK);
    }
    VostelObject At(double x, double y) const
    {
        VostelObject object = 0;
        REQUIRE(vostel_object_at(Number, x + 50.0, y + 25.0, &object) == VOSTEL_OK);
        return object;
    }
    VostelObject Rectangle() const { return Add(Number, VOSTEL_RECTANGLE, {{20, 20}, {80, 60}}); }
    void         SetFlags(VostelObject object, uint32_t flags) const
    {
        REQUIRE(vostel_object_set_flags(Number, object, flags) == VOSTEL_OK);
    }
    std::vector<VostelObject> Selection() const
    {
        VostelObject list[8];
        std::size_t  count = 0;
        REQUIRE(vostel_selection(Number, list, 8, &count) == VOSTEL_OK);
        return {list, list + count};
    }
    VostelView View() const
    {
        VostelView view = {};
        view.size = sizeof view;
        REQUIRE(vostel_view_get(Number, &view) == VOSTEL_OK);
        return view;
    }
};

bool AreAt(const Points& points, const Points& expected)
{
    return std::equal(points.begin(), points.end(), expected.begin(), expected.end(),
                      [](const VostelPoint& a, const VostelPoint& b) { return a.x == b.x && a.y == b.y; });
}

}

TEST_CASE("presses with Shift draw what draw_next made")
{
    const Stage  stage;
    VostelObject object = 0;
    REQUIRE(vostel_draw_next(stage.Number, VOSTEL_POLYGON, &object) == VOSTEL_OK);
    CHECK(stage.Selection() == std::vector<VostelObject>{object});
    CHECK(PointsOf(stage.Number, object).empty());
    const Points corners = {{20, 20}, {80, 24}, {50, 90}};
    for (const VostelPoint& corner : corners) {
        stage.Press(corner.x, corner.y, VOSTEL_SHIFT);
        stage.Release(corner.x, corner.y, VOSTEL_SHIFT);
    }
    CHECK(AreAt(PointsOf(stage.Number, object), corners));
    CHECK(MeasuresOf(stage.Number, object).area == 2040.0);

    REQUIRE(vostel_draw_next(stage.Number, VOSTEL_RECTANGLE, &object) == VOSTEL_OK);
    stage.Drag({10, 12}, {60, 42}, VOSTEL_SHIFT);
    CHECK(AreAt(PointsOf(stage.Number, object), {{10, 12}, {60, 42}}));
    REQUIRE(vostel_draw_next(stage.Number, VOSTEL_ARROW, &object) == VOSTEL_OK);
    stage.Drag({30, 40}, {60, 80}, VOSTEL_SHIFT);
    CHECK(MeasuresOf(stage.Number, object).length == 50.0);
}

TEST_CASE("a drag inside moves an object, one of a handle its point")
{
    const Stage        stage;
    const VostelObject object = stage.Rectangle();
    stage.Drag({30, 30}, {35, 37});
    CHECK(AreAt(PointsOf(stage.Number, object), {{25, 27}, {85, 67}}));
    stage.Drag({85, 67}, {95, 70});
    CHECK(AreAt(PointsOf(stage.Number, object), {{25, 27}, {95, 70}}));
}

TEST_CASE("locked and hidden objects take no gesture, and calls change them all the same")
{
    const Stage        stage;
    const VostelObject below = stage.Rectangle();
    const VostelObject above = stage.Rectangle();
    for (const uint32_t flag : {VOSTEL_LOCKED, VOSTEL_HIDDEN}) {
        CAPTURE(flag);
        stage.SetFlags(above, flag);
        CHECK(stage.At(50, 40) == below);
        stage.Press(50, 40);
        stage.Release(50, 40);
        CHECK(stage.Selection() == std::vector<VostelObject>{below});
        stage.SetFlags(below, flag);
        CHECK(stage.At(50, 40) == 0);
        stage.Drag({50, 40}, {60, 50});
        CHECK(AreAt(PointsOf(stage.Number, below), {{20, 20}, {80, 60}}));
        const VostelPoint moved[] = {{21, 21}, {81, 61}};
        CHECK(vostel_object_set_points(stage.Number, above, moved, 2) == VOSTEL_OK);
        CHECK(MeasuresOf(stage.Number, above).left == 21.0);
        stage.SetFlags(below, 0);
        stage.SetFlags(above, 0);
        CHECK(stage.At(50, 40) == above);
    }
}

TEST_CASE("keys leave locked objects as they are")
{
    const Stage        stage;
    const VostelObject locked = stage.Rectangle();
    const VostelObject other = stage.Rectangle();
    stage.SetFlags(locked, VOSTEL_LOCKED);
    REQUIRE(vostel_select(stage.Number, &locked, 1) == VOSTEL_OK);
    stage.Key('R');
    stage.Key('E');
    CHECK(ObjectsOf(stage.Number) == std::vector<VostelObject>{locked, other});
    const auto flagsOf = [&](VostelObject object) {
        VostelObjectInfo info = {};
        info.size = sizeof info;
        REQUIRE(vostel_object_get(stage.Number, object, &info) == VOSTEL_OK);
        return info.flags;
    };
    CHECK(flagsOf(locked) == VOSTEL_LOCKED);
    CHECK(flagsOf(other) == VOSTEL_ELLIPSE);
    stage.Key('C');
    CHECK(ObjectsOf(stage.Number) == std::vector<VostelObject>{locked});
    CHECK(vostel_object_remove(stage.Number, locked) == VOSTEL_OK);
}

TEST_CASE("on created canvases I, T and X do not act, and the host chooses the letters that do")
{
    const Stage        stage;
    const VostelObject text = Add(stage.Number, VOSTEL_TEXT, {{40, 40}});
    REQUIRE(vostel_object_set_text(stage.Number, text, "bore") == VOSTEL_OK);
    const std::string before = StateOf(stage.Number);
    for (const char letter : {'I', 'T', 'X'})
        stage.Key(letter);
    CHECK(StateOf(stage.Number) == before);
    REQUIRE(vostel_event_keys(stage.Number, "T") == VOSTEL_OK);
    stage.Key('C');
    CHECK(ObjectsOf(stage.Number).size() == 1);
    stage.Key('T');
    CHECK(StateOf(stage.Number) != before);
    REQUIRE(vostel_event_keys(stage.Number, "") == VOSTEL_OK);
    stage.Key('C');
    CHECK(ObjectsOf(stage.Number).size() == 1);
    REQUIRE(vostel_event_keys(stage.Number, "ACDERS") == VOSTEL_OK);
    stage.Key('C');
    CHECK(ObjectsOf(stage.Number).empty());
    CHECK(vostel_event_keys(stage.Number, "c") == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("with Control the wheel zooms about the pointer and a drag pans")
{
    const Stage stage;
    REQUIRE(vostel_event_wheel(stage.Number, 50, 25, 1.0, VOSTEL_CONTROL) == VOSTEL_OK);
    CHECK(stage.View().scale == 1.2);
    CHECK(std::fabs(stage.View().left - 50.0) <= 1.0);
    REQUIRE(vostel_event_wheel(stage.Number, 50, 25, 1.0, 0) == VOSTEL_OK);
    CHECK(stage.View().scale == 1.2);
    const VostelView before = stage.View();
    stage.Drag({30, 30}, {37, 33}, VOSTEL_CONTROL);
    CHECK(stage.View().left == before.left + 7.0);
    CHECK(stage.View().top == before.top + 3.0);
}

TEST_CASE("the pixel ratio makes handles larger for who draws and for who presses")
{
    const Stage        stage;
    const VostelObject object = stage.Rectangle();
    CHECK(stage.At(17, 17) == object);
    CHECK(stage.At(13, 13) == 0);
    REQUIRE(vostel_canvas_set_pixel_ratio(stage.Number, 2.0) == VOSTEL_OK);
    CHECK(stage.At(13, 13) == object);
    CHECK(stage.At(10, 10) == 0);
    CHECK(stage.View().scale == 1.0);
    REQUIRE(vostel_canvas_set_pixel_ratio(stage.Number, 1.0) == VOSTEL_OK);
    CHECK(stage.At(13, 13) == 0);
    for (const double ratio : {0.0, 0.2, 17.0})
        CHECK(vostel_canvas_set_pixel_ratio(stage.Number, ratio) == VOSTEL_INVALID_ARGUMENT);
}
