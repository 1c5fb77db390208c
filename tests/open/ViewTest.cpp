#include "support/OpenCanvas.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace {

void ShowGray(int32_t canvas, int32_t width, int32_t height)
{
    const std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                                           100);
    REQUIRE(vostel_image_show(canvas, VOSTEL_U8, pixels.data(), width, height, 0, 0) == VOSTEL_OK);
}

VostelView ViewOf(int32_t canvas)
{
    VostelView view = {};
    view.size = sizeof view;
    REQUIRE(vostel_view_get(canvas, &view) == VOSTEL_OK);
    return view;
}

VostelStatus SetView(int32_t canvas, double scale, double left, double top)
{
    const VostelView view = {sizeof view, scale, left, top};
    return vostel_view_set(canvas, &view);
}

VostelPoint ImageAt(int32_t canvas, double x, double y)
{
    VostelPoint point = {};
    REQUIRE(vostel_view_to_image(canvas, x, y, &point.x, &point.y) == VOSTEL_OK);
    return point;
}

// Two canvases show the same image point in their middles, to a device px.
bool LookAtTheSame(int32_t a, VostelPoint middleOfA, int32_t b, VostelPoint middleOfB)
{
    const VostelPoint inA = ImageAt(a, middleOfA.x, middleOfA.y);
    const VostelPoint inB = ImageAt(b, middleOfB.x, middleOfB.y);
    const double      scale = ViewOf(a).scale;
    return scale == ViewOf(b).scale && std::fabs(inA.x - inB.x) * scale <= 1.0 &&
           std::fabs(inA.y - inB.y) * scale <= 1.0;
}

}

TEST_CASE("a view comes back within half a px of what was asked, on whole px")
{
    OpenCanvas canvas(301, 200);
    ShowGray(canvas.Number, 97, 64);
    std::mt19937                           random(7);
    std::uniform_real_distribution<double> place(-500.0, 500.0), power(-4.0, 5.0);
    for (int i = 0; i < 2000; ++i) {
        const double scale = std::exp2(power(random));
        const double left = place(random);
        const double top = place(random);
        REQUIRE(SetView(canvas.Number, scale, left, top) == VOSTEL_OK);
        const VostelView view = ViewOf(canvas.Number);
        CHECK(view.scale == scale);
        CHECK(std::fabs(view.left - left) <= 0.5);
        CHECK(std::fabs(view.top - top) <= 0.5);
        CHECK(view.left == std::floor(view.left));
        CHECK(view.top == std::floor(view.top));
    }
}

TEST_CASE("whole places are taken as they are")
{
    OpenCanvas canvas(300, 200);
    ShowGray(canvas.Number, 7, 5);
    for (const double scale : {1.0, 3.0, 0.5, 1.7}) {
        for (double left = -4.0; left <= 4.0; ++left) {
            REQUIRE(SetView(canvas.Number, scale, left, -left) == VOSTEL_OK);
            CHECK(ViewOf(canvas.Number).left == left);
            CHECK(ViewOf(canvas.Number).top == -left);
        }
    }
}

TEST_CASE("a view that coordinates cannot hold is refused and changes nothing")
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    OpenCanvas   canvas(300, 200);
    ShowGray(canvas.Number, 100, 100);
    REQUIRE(SetView(canvas.Number, 2.0, 10.0, 20.0) == VOSTEL_OK);
    for (const double scale : {0.0, -1.0, nan, infinite, 1e8, 1e300, 1e-300})
        CHECK(SetView(canvas.Number, scale, 0.0, 0.0) == VOSTEL_INVALID_ARGUMENT);
    for (const double left : {nan, infinite, 2e9, -2e9}) {
        CHECK(SetView(canvas.Number, 1.0, left, 0.0) == VOSTEL_INVALID_ARGUMENT);
        CHECK(SetView(canvas.Number, 1.0, 0.0, left) == VOSTEL_INVALID_ARGUMENT);
    }
    for (const double factor : {0.0, -2.0, nan, infinite, 1e9, 1e-15})
        CHECK(vostel_view_zoom(canvas.Number, factor, 0.0, 0.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_view_zoom(canvas.Number, 2.0, nan, 0.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_view_zoom(canvas.Number, 2.0, 0.0, infinite) == VOSTEL_INVALID_ARGUMENT);
    const VostelView view = ViewOf(canvas.Number);
    CHECK(view.scale == 2.0);
    CHECK(view.left == 10.0);
    CHECK(view.top == 20.0);
}

TEST_CASE("a record that ends after the scale leaves the place")
{
    OpenCanvas canvas(300, 200);
    ShowGray(canvas.Number, 100, 100);
    REQUIRE(SetView(canvas.Number, 1.0, 12.0, 34.0) == VOSTEL_OK);
    VostelView view = {};
    view.size = offsetof(VostelView, left);
    view.scale = 3.0;
    REQUIRE(vostel_view_set(canvas.Number, &view) == VOSTEL_OK);
    CHECK(ViewOf(canvas.Number).scale == 3.0);
    CHECK(ViewOf(canvas.Number).left == 12.0);
    CHECK(ViewOf(canvas.Number).top == 34.0);
    view.size = offsetof(VostelView, top) - 1;    // within the left edge
    view.left = 77.0;
    REQUIRE(vostel_view_set(canvas.Number, &view) == VOSTEL_OK);
    CHECK(ViewOf(canvas.Number).left == 12.0);
}

TEST_CASE("fit shows the whole image in the middle, and one side of it fills the area")
{
    for (const int32_t width : {1, 7, 300, 301, 1000}) {
        for (const int32_t height : {1, 8, 200, 777}) {
            OpenCanvas canvas(300, 200);
            ShowGray(canvas.Number, width, height);
            REQUIRE(vostel_view_fit(canvas.Number) == VOSTEL_OK);
            const VostelView view = ViewOf(canvas.Number);
            const double     shownWidth = view.scale * width;
            const double     shownHeight = view.scale * height;
            CAPTURE(width);
            CAPTURE(height);
            CHECK(std::fabs(std::fmin(300.0 - shownWidth, 200.0 - shownHeight)) < 1e-9);
            CHECK(std::fabs(view.left + shownWidth * 0.5 - 150.0) <= 0.5);
            CHECK(std::fabs(view.top + shownHeight * 0.5 - 100.0) <= 0.5);
        }
    }
}

TEST_CASE("actual shows the image at scale 1 in the middle")
{
    OpenCanvas canvas(300, 200);
    ShowGray(canvas.Number, 100, 50);
    REQUIRE(SetView(canvas.Number, 5.0, -900.0, 3.0) == VOSTEL_OK);
    REQUIRE(vostel_view_actual(canvas.Number) == VOSTEL_OK);
    CHECK(ViewOf(canvas.Number).scale == 1.0);
    CHECK(ViewOf(canvas.Number).left == 100.0);
    CHECK(ViewOf(canvas.Number).top == 75.0);
}

TEST_CASE("without an image nothing can be fitted")
{
    OpenCanvas canvas(300, 200);
    CHECK(vostel_view_fit(canvas.Number) == VOSTEL_NO_IMAGE);
    CHECK(vostel_view_actual(canvas.Number) == VOSTEL_NO_IMAGE);
}

TEST_CASE("zooming keeps the image point under the client point to a device px")
{
    OpenCanvas canvas(300, 200);
    ShowGray(canvas.Number, 640, 480);
    REQUIRE(vostel_view_fit(canvas.Number) == VOSTEL_OK);
    for (const double factor : {1.2, 1.2, 2.0, 0.3, 7.0, 0.9}) {
        const VostelPoint before = ImageAt(canvas.Number, 41.0, 133.0);
        const double      scale = ViewOf(canvas.Number).scale;
        REQUIRE(vostel_view_zoom(canvas.Number, factor, 41.0, 133.0) == VOSTEL_OK);
        double x = 0.0, y = 0.0;
        REQUIRE(vostel_view_to_client(canvas.Number, before.x, before.y, &x, &y) == VOSTEL_OK);
        CHECK(ViewOf(canvas.Number).scale == scale * factor);
        CHECK(std::fabs(x - 41.0) <= 1.0);
        CHECK(std::fabs(y - 133.0) <= 1.0);
    }
}

TEST_CASE("client and image points convert into each other without rounding")
{
    OpenCanvas canvas(300, 200);
    ShowGray(canvas.Number, 640, 480);
    REQUIRE(SetView(canvas.Number, 4.0, -12.0, 8.0) == VOSTEL_OK);
    const VostelPoint point = ImageAt(canvas.Number, 1.0, 9.5);
    CHECK(point.x == 3.25);
    CHECK(point.y == 0.375);
    double x = 0.0, y = 0.0;
    REQUIRE(vostel_view_to_client(canvas.Number, point.x, point.y, &x, &y) == VOSTEL_OK);
    CHECK(x == 1.0);
    CHECK(y == 9.5);
}

TEST_CASE("linked canvases look at the same, whichever of them moves and by whatever call")
{
    OpenCanvas        wide(301, 200), tall(100, 333), third(64, 64);
    const VostelPoint middleOfWide = {150.5, 100.0}, middleOfTall = {50.0, 166.5},
                      middleOfThird = {32.0, 32.0};
    ShowGray(wide.Number, 200, 150);
    ShowGray(tall.Number, 400, 31);
    ShowGray(third.Number, 64, 64);
    const auto allLookAtTheSame = [&] {
        return LookAtTheSame(wide.Number, middleOfWide, tall.Number, middleOfTall) &&
               LookAtTheSame(wide.Number, middleOfWide, third.Number, middleOfThird);
    };
    REQUIRE(SetView(wide.Number, 3.0, 20.0, 10.0) == VOSTEL_OK);
    REQUIRE(vostel_view_link(tall.Number, wide.Number) == VOSTEL_OK);
    REQUIRE(vostel_view_link(third.Number, tall.Number) == VOSTEL_OK);
    CHECK(ViewOf(wide.Number).scale == 3.0);
    CHECK(ViewOf(wide.Number).left == 20.0);
    CHECK(allLookAtTheSame());

    SUBCASE("set")
    {
        REQUIRE(SetView(tall.Number, 0.37, -7.0, 99.0) == VOSTEL_OK);
    }
    SUBCASE("zoom")
    {
        REQUIRE(vostel_view_zoom(third.Number, 1.7, 3.0, 60.0) == VOSTEL_OK);
    }
    SUBCASE("fit")
    {
        REQUIRE(vostel_view_fit(wide.Number) == VOSTEL_OK);
    }
    SUBCASE("wheel")
    {
        REQUIRE(vostel_event_wheel(tall.Number, 10.0, 10.0, 1.0, VOSTEL_CONTROL) == VOSTEL_OK);
        CHECK(ViewOf(tall.Number).scale == 3.0 * 1.2);
    }
    SUBCASE("drag")
    {
        const double left = ViewOf(third.Number).left;
        REQUIRE(vostel_event_press(wide.Number, 10.0, 10.0, VOSTEL_CONTROL) == VOSTEL_OK);
        REQUIRE(vostel_event_move(wide.Number, 31.0, 15.0, VOSTEL_CONTROL | VOSTEL_LEFT_BUTTON) == VOSTEL_OK);
        REQUIRE(vostel_event_release(wide.Number, 31.0, 15.0, VOSTEL_CONTROL) == VOSTEL_OK);
        CHECK(ViewOf(third.Number).left == left + 21.0);
    }
    SUBCASE("resize")
    {
        REQUIRE(vostel_canvas_resize(wide.Number, 500, 77) == VOSTEL_OK);
    }
    if (ViewOf(wide.Number).left != 20.0)
        CHECK(LookAtTheSame(tall.Number, middleOfTall, third.Number, middleOfThird));
    else
        CHECK(allLookAtTheSame());
}

TEST_CASE("one px of panning moves every linked canvas by one px")
{
    OpenCanvas a(300, 200), b(101, 77);
    ShowGray(a.Number, 100, 100);
    ShowGray(b.Number, 100, 100);
    REQUIRE(SetView(a.Number, 2.5, 0.0, 0.0) == VOSTEL_OK);
    REQUIRE(vostel_view_link(b.Number, a.Number) == VOSTEL_OK);
    for (int step = 1; step <= 20; ++step) {
        const double before = ViewOf(b.Number).left;
        REQUIRE(SetView(a.Number, 2.5, step, -step) == VOSTEL_OK);
        CHECK(ViewOf(b.Number).left == before + 1.0);
        CHECK(ViewOf(a.Number).left == step);
    }
}

TEST_CASE("a linked one of the five canvases follows and leads")
{
    OpenCanvas canvas(300, 200);
    REQUIRE(vostel_canvas_resize(2, 300, 200) == VOSTEL_OK);
    ShowGray(2, 50, 50);
    ShowGray(canvas.Number, 50, 50);
    REQUIRE(vostel_view_link(2, canvas.Number) == VOSTEL_OK);
    REQUIRE(SetView(canvas.Number, 2.0, 5.0, 6.0) == VOSTEL_OK);
    CHECK(ViewOf(2).left == 5.0);
    gCVSOnMouseWheel(2, MK_CONTROL, 120, CPoint(5, 6));
    CHECK(ViewOf(canvas.Number).scale == 2.0 * 1.2);
    CHECK(ViewOf(canvas.Number).left == ViewOf(2).left);
    REQUIRE(vostel_view_link(2, 2) == VOSTEL_OK);
}

TEST_CASE("a canvas that has left its group, or is gone, is not moved and moves none")
{
    OpenCanvas a, b, c;
    for (const int32_t canvas : {a.Number, b.Number, c.Number})
        ShowGray(canvas, 50, 50);
    REQUIRE(vostel_view_link(a.Number, b.Number) == VOSTEL_OK);
    REQUIRE(vostel_view_link(b.Number, c.Number) == VOSTEL_OK);
    REQUIRE(vostel_view_link(b.Number, b.Number) == VOSTEL_OK);
    REQUIRE(SetView(b.Number, 1.0, 1.0, 1.0) == VOSTEL_OK);
    REQUIRE(SetView(a.Number, 4.0, 9.0, 9.0) == VOSTEL_OK);
    CHECK(ViewOf(b.Number).scale == 1.0);
    CHECK(ViewOf(c.Number).scale == 4.0);
    {
        OpenCanvas gone;
        REQUIRE(vostel_view_link(gone.Number, a.Number) == VOSTEL_OK);
        CHECK(ViewOf(gone.Number).scale == 4.0);
    }
    REQUIRE(SetView(c.Number, 5.0, 0.0, 0.0) == VOSTEL_OK);
    CHECK(ViewOf(a.Number).scale == 5.0);
    CHECK(vostel_view_link(a.Number, 1000000) == VOSTEL_NOT_FOUND);
    CHECK(vostel_view_link(1000000, a.Number) == VOSTEL_NOT_FOUND);
}

namespace {

struct Heard {
    int32_t Canvas = -1;
    int     Views = 0;
};

void Count(const VostelEvent* event, void* user)
{
    ++static_cast<Heard*>(user)->Views;
    static_cast<Heard*>(user)->Canvas = event->canvas;
}

}

TEST_CASE("a listener of a linked canvas hears that its view has changed, once")
{
    OpenCanvas a, b;
    ShowGray(a.Number, 50, 50);
    ShowGray(b.Number, 50, 50);
    REQUIRE(vostel_view_link(a.Number, b.Number) == VOSTEL_OK);
    Heard        heard;
    std::int64_t token = 0;
    REQUIRE(vostel_listen(b.Number, VOSTEL_VIEW_CHANGED, Count, &heard, &token) == VOSTEL_OK);
    REQUIRE(SetView(a.Number, 2.0, 3.0, 4.0) == VOSTEL_OK);
    CHECK(heard.Views == 1);
    CHECK(heard.Canvas == b.Number);
    REQUIRE(SetView(a.Number, 2.0, 3.0, 4.0) == VOSTEL_OK);
    CHECK(heard.Views == 1);
}

namespace {

struct Meddler {
    int32_t Moves = -1;
    int     Times = 0;
};

void MoveOnce(const VostelEvent*, void* user)
{
    Meddler& meddler = *static_cast<Meddler*>(user);
    if (meddler.Times++ == 0)
        CHECK(SetView(meddler.Moves, 0.5, 7.0, 8.0) == VOSTEL_OK);
}

void Destroy(const VostelEvent* event, void*)
{
    CHECK(vostel_canvas_destroy(event->canvas) == VOSTEL_OK);
}

}

TEST_CASE("what a listener does to a linked canvas in the middle of a call is followed too")
{
    OpenCanvas a, b, c;
    for (const int32_t canvas : {a.Number, b.Number, c.Number})
        ShowGray(canvas, 50, 50);
    REQUIRE(vostel_view_link(b.Number, a.Number) == VOSTEL_OK);
    REQUIRE(vostel_view_link(c.Number, a.Number) == VOSTEL_OK);
    Meddler      meddler;
    std::int64_t token = 0;
    SUBCASE("to itself")
    {
        meddler.Moves = b.Number;
        REQUIRE(vostel_listen(b.Number, VOSTEL_VIEW_CHANGED, MoveOnce, &meddler, &token) == VOSTEL_OK);
    }
    SUBCASE("to the one that the call is for")
    {
        meddler.Moves = a.Number;
        REQUIRE(vostel_listen(b.Number, VOSTEL_VIEW_CHANGED, MoveOnce, &meddler, &token) == VOSTEL_OK);
    }
    SUBCASE("to another, from the one that the call is for")
    {
        meddler.Moves = c.Number;
        REQUIRE(vostel_listen(a.Number, VOSTEL_VIEW_CHANGED, MoveOnce, &meddler, &token) == VOSTEL_OK);
    }
    REQUIRE(SetView(a.Number, 2.0, 3.0, 4.0) == VOSTEL_OK);
    CHECK(meddler.Times >= 1);
    for (const int32_t canvas : {a.Number, b.Number, c.Number}) {
        CAPTURE(canvas - a.Number);
        CHECK(ViewOf(canvas).scale == 0.5);
        CHECK(ViewOf(canvas).left == 7.0);
        CHECK(ViewOf(canvas).top == 8.0);
    }
}

TEST_CASE("a linked canvas that a listener destroys in the middle of a call is left out")
{
    OpenCanvas a;
    int32_t    goes = -1;
    REQUIRE(vostel_canvas_create(300, 200, &goes) == VOSTEL_OK);
    OpenCanvas c;
    for (const int32_t canvas : {a.Number, goes, c.Number})
        ShowGray(canvas, 50, 50);
    REQUIRE(vostel_view_link(goes, a.Number) == VOSTEL_OK);
    REQUIRE(vostel_view_link(c.Number, a.Number) == VOSTEL_OK);
    std::int64_t token = 0;
    REQUIRE(vostel_listen(goes, VOSTEL_VIEW_CHANGED, Destroy, nullptr, &token) == VOSTEL_OK);
    REQUIRE(SetView(a.Number, 2.0, 3.0, 4.0) == VOSTEL_OK);
    CHECK(ViewOf(c.Number).left == 3.0);
    VostelView view = {};
    view.size = sizeof view;
    CHECK(vostel_view_get(goes, &view) == VOSTEL_NOT_FOUND);
}

namespace {

// Gray 10 + 20x + 3y.
void ShowSteps(int32_t canvas, int32_t width, int32_t height)
{
    std::vector<std::uint8_t> pixels;
    for (int32_t y = 0; y < height; ++y) {
        for (int32_t x = 0; x < width; ++x)
            pixels.push_back(static_cast<std::uint8_t>(10 + 20 * x + 3 * y));
    }
    REQUIRE(vostel_image_show(canvas, VOSTEL_U8, pixels.data(), width, height, 0, 0) == VOSTEL_OK);
}

// The client px, more than a px from a border of image px, that do not show the image px they lie on.
int WronglyShown(int32_t canvas, int32_t width, int32_t height)
{
    VostelFrame frame = {};
    frame.size = sizeof frame;
    REQUIRE(vostel_frame_render(canvas, &frame) == VOSTEL_OK);
    const double scale = ViewOf(canvas).scale;
    const auto   isNearBorder = [scale](double place) {
        return std::fabs(place - std::round(place)) * scale < 1.6;
    };
    int wrong = 0;
    for (int y = 0; y < frame.height; ++y) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(reinterpret_cast<const char*>(frame.pixels) +
                                                                 y * frame.row_bytes);
        for (int x = 0; x < frame.width; ++x) {
            const VostelPoint at = ImageAt(canvas, x + 0.5, y + 0.5);
            const bool        inside = at.x >= 0.0 && at.x < width && at.y >= 0.0 && at.y < height;
            if (!inside || isNearBorder(at.x) || isNearBorder(at.y))
                continue;
            const auto gray =
                static_cast<std::uint32_t>(10 + 20 * static_cast<int>(at.x) + 3 * static_cast<int>(at.y));
            wrong += (row[x] & 0xFFFFFF) != gray * 0x010101;
        }
    }
    return wrong;
}

}

TEST_CASE("at any high scale a client px shows the image px that it lies on")
{
    OpenCanvas canvas(300, 200);
    ShowSteps(canvas.Number, 4, 4);
    for (const double scale : {75.5, 100.0, 150.0, 201.0, 299.7, 1000.0, 1e5, 2e8}) {
        for (const double share : {0.0, 0.13, 0.5, 0.871}) {
            CAPTURE(scale);
            CAPTURE(share);
            REQUIRE(SetView(canvas.Number, scale, 150.0 - 4.0 * scale * share, 100.0 - 3.7 * scale * share) ==
                    VOSTEL_OK);
            CHECK(WronglyShown(canvas.Number, 4, 4) == 0);
        }
    }
    ShowSteps(canvas.Number, 11, 9);
    REQUIRE(SetView(canvas.Number, 58.3, -77.0, -99.0) == VOSTEL_OK);    // five columns, fewer than four rows
    CHECK(WronglyShown(canvas.Number, 11, 9) == 0);
    REQUIRE(SetView(canvas.Number, 20.0, 269.0, 171.0) == VOSTEL_OK);    // but for two px out of the area
    CHECK(WronglyShown(canvas.Number, 11, 9) == 0);
}

TEST_CASE("one of the five canvases shows a high scale that was set for it")
{
    REQUIRE(vostel_canvas_resize(1, 300, 200) == VOSTEL_OK);
    ShowSteps(1, 4, 4);
    REQUIRE(SetView(1, 201.0, -250.0, -250.0) == VOSTEL_OK);
    CHECK(WronglyShown(1, 4, 4) == 0);
}

TEST_CASE("a resize keeps the image point in the middle, however many follow each other")
{
    OpenCanvas   canvas(300, 200);
    std::mt19937 random(23);
    ShowGray(canvas.Number, 64, 48);
    REQUIRE(SetView(canvas.Number, 3.7, 11.0, -17.0) == VOSTEL_OK);
    const VostelPoint first = ImageAt(canvas.Number, 150.0, 100.0);
    const auto        resize = [&](int32_t width, int32_t height) {
        REQUIRE(vostel_canvas_resize(canvas.Number, width, height) == VOSTEL_OK);
        const VostelPoint now = ImageAt(canvas.Number, width * 0.5, height * 0.5);
        CAPTURE(width);
        CAPTURE(height);
        CHECK(std::fabs(now.x - first.x) * 3.7 <= 1.0);
        CHECK(std::fabs(now.y - first.y) * 3.7 <= 1.0);
    };
    SUBCASE("by one px")
    {
        for (int32_t step = 1; step <= 100; ++step)
            resize(300 + step, 200 + 3 * step);
    }
    SUBCASE("to any size")
    {
        for (int step = 0; step < 300; ++step)
            resize(static_cast<int32_t>(1 + random() % 900), static_cast<int32_t>(1 + random() % 900));
    }
    SUBCASE("there and back")
    {
        for (int step = 0; step < 50; ++step) {
            resize(301, 333);
            resize(300, 200);
            CHECK(ViewOf(canvas.Number).left == 11.0);
            CHECK(ViewOf(canvas.Number).top == -17.0);
        }
    }
}
