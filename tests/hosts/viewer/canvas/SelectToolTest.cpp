#include "hosts/viewer/canvas/ShownView.h"

#include "canvas/ZoomTool.h"

#include <doctest/doctest.h>

using namespace vostel::viewer;

TEST_CASE("a drag on the background moves the image, as the middle button does everywhere")
{
    ShownView at;
    hand::Drag(at.View, {200, 150}, {230, 170});
    CHECK(at.Open().view_get().left == 30.0);
    CHECK(at.Open().view_get().top == 20.0);
    at.Arm(Shape::Rectangle);
    hand::DragMiddle(at.View, {200, 150}, {170, 130});
    CHECK(at.Open().view_get().left == 0.0);
    CHECK(at.Count() == 0);
    CHECK(at.Undos() == 0);
}

TEST_CASE("the wheel zooms and keeps the image point under the pointer")
{
    ShownView     at;
    const QPointF before = at.View.ImageAt({100, 80});
    hand::Wheel(at.View, {100, 80}, 3);
    CHECK(at.View.Scale() == doctest::Approx(2.0 * 1.2 * 1.2 * 1.2));
    CHECK(at.View.ImageAt({100, 80}).x() == doctest::Approx(before.x()).epsilon(0.01));
    hand::Wheel(at.View, {100, 80}, -60);
    CHECK(at.View.Scale() > 0.0009);
    at.View.Fit();
    CHECK(at.View.Scale() == 2.0);
    at.View.ShowActual();
    CHECK(at.View.Scale() == 1.0);
}

TEST_CASE("a fitted image stays fitted when the window changes, a zoomed one keeps its scale")
{
    ShownView at;
    hand::Show(at.View, QRect(50, 40, 200, 150));
    CHECK(at.View.Scale() == 1.0);
    hand::Wheel(at.View, {100, 80}, 1);
    hand::Show(at.View, QRect(50, 40, 400, 300));
    CHECK(at.View.Scale() == doctest::Approx(1.2));
}

TEST_CASE("a click selects, a drag moves and is one step, a click beside deselects")
{
    ShownView at;
    at.Open().add_rectangle(20, 20, 60, 60);
    at.Open().select({});
    hand::Drag(at.View, {80, 80}, {100, 90});
    CHECK(at.Objects()[0].selected());
    CHECK(at.Points(0)[0].x == 30.0);
    CHECK(at.Points(0)[0].y == 25.0);
    CHECK(at.Undos() == 2);
    hand::Click(at.View, {300, 250});
    CHECK_FALSE(at.Objects()[0].selected());
    at.Open().undo();
    CHECK(at.Points(0)[0].x == 20.0);
}

TEST_CASE("a drag of a corner changes it alone")
{
    ShownView at;
    at.Open().add_rectangle(20, 20, 60, 60);
    hand::Drag(at.View, {120, 120}, {160, 140});
    CHECK(at.Points(0)[0].x == 20.0);
    CHECK(at.Points(0)[1].x == 80.0);
    CHECK(at.Points(0)[1].y == 70.0);
}

TEST_CASE("Shift selects several, by clicks and by a box, and they move together as one step")
{
    ShownView at;
    at.Open().add_rectangle(10, 10, 30, 30);
    at.Open().add_rectangle(50, 10, 70, 30);
    at.Open().add_rectangle(150, 100, 170, 120);
    at.Open().select({});
    hand::With("shift", [&] { hand::Drag(at.View, {5, 5}, {180, 90}); });
    CHECK(at.Open().selection().size() == 2);
    hand::Drag(at.View, {40, 40}, {60, 50});
    CHECK(at.Points(0)[0].x == 20.0);
    CHECK(at.Points(1)[0].x == 60.0);
    CHECK(at.Points(2)[0].x == 150.0);
    CHECK(at.Undos() == 4);
    hand::With("shift", [&] { hand::Click(at.View, {320, 220}); });
    CHECK(at.Open().selection().size() == 3);
    hand::Key("Delete");
    CHECK(at.Count() == 3);    // that key belongs to the window's commands
    at.View.RemoveSelection();
    CHECK(at.Count() == 0);
    at.Open().undo();
    CHECK(at.Count() == 3);
}

TEST_CASE("arrow keys move by one pixel, with Shift by ten and with Alt by a tenth")
{
    ShownView at;
    at.Open().select({at.Open().add_rectangle(20, 20, 60, 60)});
    hand::Key("Right");
    hand::Key("shift+Down");
    hand::Key("alt+Left");
    CHECK(at.Points(0)[0].x == doctest::Approx(20.9));
    CHECK(at.Points(0)[0].y == 30.0);
    CHECK(at.Undos() == 4);
}

TEST_CASE("a double click on an outline adds a node and Alt with a click takes one away")
{
    ShownView at;
    at.Open().add_polygon({{20, 20}, {100, 20}, {100, 80}, {20, 80}});
    hand::DoubleClick(at.View, {120, 40});
    REQUIRE(at.Points(0).size() == 5);
    CHECK(at.Points(0)[1].x == 60.0);
    hand::With("alt", [&] { hand::Click(at.View, {200, 160}); });
    CHECK(at.Points(0).size() == 4);
    hand::With("alt", [&] { hand::Click(at.View, {200, 40}); });
    hand::With("alt", [&] { hand::Click(at.View, {120, 40}); });
    CHECK(at.Points(0).size() == 3);    // a polygon keeps three
}

TEST_CASE("a locked object is neither moved nor removed by hand")
{
    ShownView      at;
    vostel::Object locked = at.Open().add_rectangle(20, 20, 60, 60);
    locked.set_flags(VOSTEL_LOCKED);
    at.Open().select({locked});
    hand::Key("Right");
    at.View.RemoveSelection();
    hand::Drag(at.View, {80, 80}, {100, 90});
    CHECK(at.Count() == 1);
    CHECK(at.Points(0)[0].x == 20.0);
}

TEST_CASE("the zoom tool fills the window with a box, and a click doubles the scale")
{
    ShownView at;
    at.View.Arm(std::make_unique<ZoomTool>(at.View));
    hand::Drag(at.View, {100, 75}, {200, 150});
    CHECK(at.View.Scale() == doctest::Approx(8.0 / 1.1).epsilon(0.01));
    CHECK(at.View.ImageAt({200, 150}).x() == doctest::Approx(75.0).epsilon(0.01));
    at.View.ShowActual();
    hand::Click(at.View, {200, 150});
    CHECK(at.View.Scale() == 2.0);
}

TEST_CASE("the classic grammar draws with Shift and pans with Control")
{
    ShownView at;
    at.View.SetClassic(true);
    at.Open().draw_next(VOSTEL_RECTANGLE);
    hand::With("shift", [&] { hand::Drag(at.View, {40, 40}, {140, 120}); });
    REQUIRE(at.Count() == 1);
    CHECK(at.Points(0)[1].x == 70.0);
    hand::With("ctrl", [&] { hand::Drag(at.View, {300, 200}, {310, 220}); });
    CHECK(at.Open().view_get().left != 0.0);
}

TEST_CASE("grid, scale bar and cross lie over the frame")
{
    ShownView    at;
    const QImage plain = at.View.grab().toImage();
    at.View.SetGrid(true);
    const QImage grid = at.View.grab().toImage();
    CHECK(grid != plain);
    at.View.SetGrid(false);
    CHECK(at.View.grab().toImage() == plain);
    at.Open().set_scale(0.02, "mm");
    at.View.SetScaleBar(true);
    at.View.ShowCross(QPointF(50, 50));
    CHECK(at.View.grab().toImage() != plain);
    hand::Keep(at.View, "scale-bar-and-cross");
    at.View.SetGrid(true);
    hand::Keep(at.View, "grid");
}

TEST_CASE("handles have their color while the object is selected too")
{
    ShownView at;
    at.Arm(Shape::Rectangle);
    hand::Drag(at.View, {100, 80}, {200, 180});
    at.View.Disarm();
    REQUIRE(at.Objects().at(0).selected());
    const auto pixelsOf = [&](std::uint32_t color) {
        const QImage frame = at.View.grab().toImage();
        int          count = 0;
        for (int y = 0; y < frame.height(); ++y)
            for (int x = 0; x < frame.width(); ++x)
                count += (frame.pixel(x, y) & 0xFFFFFF) == color;
        return count;
    };
    constexpr std::uint32_t Red = 0xFF0000, Green = 0x00FF00, Blue = 0x0000FF;
    const auto              give = [&](std::uint32_t color) {
        vostel::Object object = at.Objects().at(0);
        vostel::Style  style = object.style();
        style.handle_color = color;
        object.set_style(style);
        hand::Settle();
    };
    hand::Keep(at.View, "selected-handles");
    CHECK(pixelsOf(at.View.Drawn().Handle) > 0);
    CHECK(pixelsOf(Red) == 0);
    give(Green);
    CHECK(pixelsOf(Green) > 0);
    at.Open().undo();
    hand::Settle();
    CHECK(pixelsOf(Green) == 0);
    give(Blue);
    CHECK(pixelsOf(Red) > 0);
}
