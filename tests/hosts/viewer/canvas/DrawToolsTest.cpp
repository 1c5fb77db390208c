#include "hosts/viewer/canvas/ShownView.h"

#include <doctest/doctest.h>

using namespace vostel::viewer;

TEST_CASE("a plain drag draws while a tool is armed, one object after another, each one step to undo")
{
    ShownView at;
    at.Arm(Shape::Length);
    hand::Drag(at.View, {40, 60}, {100, 140});
    hand::Drag(at.View, {200, 60}, {320, 60});
    REQUIRE(at.Count() == 2);
    CHECK(at.Objects()[0].kind() == VOSTEL_LENGTH);
    CHECK(at.Points(0)[0].x == 20.0);
    CHECK(at.Points(0)[1].y == 70.0);
    CHECK(at.Objects()[0].measure().length == 50.0);
    CHECK(at.View.IsArmed());
    CHECK(at.Undos() == 2);
    CHECK(at.Open().history_name(-1) == "Add length");
    at.Open().undo();
    at.Open().undo();
    CHECK(at.Count() == 0);
}

TEST_CASE("Shift makes a square, and an ellipse lies in its box")
{
    ShownView at;
    at.Arm(Shape::Ellipse);
    hand::With("shift", [&] { hand::Drag(at.View, {100, 100}, {180, 140}); });
    REQUIRE(at.Count() == 1);
    CHECK(at.Objects()[0].flags() == VOSTEL_ELLIPSE);
    CHECK(at.Points(0)[1].x == 90.0);
    CHECK(at.Points(0)[1].y == 90.0);
}

TEST_CASE("a click with a tool that drags draws nothing, and a second one changes nothing that stands")
{
    ShownView at;
    at.Arm(Shape::Rectangle);
    hand::Drag(at.View, {40, 40}, {140, 120});
    hand::Click(at.View, {300, 200});
    REQUIRE(at.Count() == 1);
    CHECK(at.Points(0)[1].x == 70.0);
    CHECK(at.Undos() == 1);
}

TEST_CASE("Esc drops what is half drawn and leaves no step, then puts the tool away, then deselects")
{
    ShownView at;
    at.Arm(Shape::Polygon);
    hand::Click(at.View, {40, 40});
    hand::Click(at.View, {140, 40});
    hand::Key("Escape");
    CHECK(at.Count() == 0);
    CHECK(at.View.IsArmed());
    hand::Key("Escape");
    CHECK_FALSE(at.View.IsArmed());
    at.Open().add_rectangle(0, 0, 20, 20);
    at.Open().select(at.Objects());
    hand::Key("Escape");
    CHECK(at.Open().selection().empty());
    CHECK(at.Undos() == 1);
}

TEST_CASE("a drag that is cancelled half way leaves neither an object nor a step")
{
    ShownView at;
    at.Arm(Shape::Rectangle);
    Tool& tool = at.View.Current();
    tool.Press({{40, 40}, {20, 20}, true, {}});
    tool.Move({{140, 120}, {70, 60}, true, {}});
    CHECK(at.Count() == 1);
    tool.Cancel();
    CHECK(at.Count() == 0);
    CHECK(at.Undos() == 0);
}

TEST_CASE("clicks draw a polygon that Enter, a double click or a click on its first node ends")
{
    ShownView at;
    at.Arm(Shape::Polygon);
    for (const char* const end : {"Enter", "double", "first"}) {
        hand::Click(at.View, {40, 40});
        hand::Click(at.View, {140, 40});
        hand::Move(at.View, {140, 120});
        if (end == std::string("double")) {
            hand::DoubleClick(at.View, {140, 120});
        } else {
            hand::Click(at.View, {140, 120});
            if (end == std::string("Enter"))
                hand::Key("Return");
            else
                hand::Click(at.View, {42, 41});
        }
        hand::Move(at.View, {300, 200});
    }
    REQUIRE(at.Count() == 3);
    for (std::size_t i = 0; i < 3; ++i)
        CHECK(at.Points(i).size() == 3);
    CHECK(at.Undos() == 3);
}

TEST_CASE("three clicks make an angle of any size")
{
    ShownView at;
    at.Arm(Shape::Angle);
    hand::Click(at.View, {200, 40});
    hand::Click(at.View, {100, 40});
    hand::Click(at.View, {200, 140});
    REQUIRE(at.Count() == 1);
    CHECK(at.Objects()[0].measure().angle == doctest::Approx(45.0));
}

TEST_CASE("Backspace takes the last node back while a spline is drawn")
{
    ShownView at;
    at.Arm(Shape::Spline);
    for (const QPoint node :
         {QPoint(40, 40), QPoint(160, 40), QPoint(300, 200), QPoint(160, 140), QPoint(40, 140)})
        hand::Click(at.View, node);
    hand::Key("BackSpace");
    hand::Key("Return");
    REQUIRE(at.Count() == 1);
    CHECK(at.Points(0).size() == 4);
}

TEST_CASE("a free region and strokes follow the drag")
{
    ShownView at;
    at.Arm(Shape::FreeRegion);
    hand::DragAlong(at.View, {{40, 40}, {160, 40}, {160, 120}, {40, 120}});
    at.Arm(Shape::Strokes);
    hand::DragAlong(at.View, {{200, 40}, {260, 80}});
    REQUIRE(at.Count() == 2);
    CHECK(at.Objects()[0].measure().area > 2000.0);
    const std::vector<vostel::Point> stroke = at.Points(1);    // a busy screen may join steps of the drag
    CHECK(stroke.size() > 2);
    CHECK(Between(stroke.front(), {100, 20}) < 1.0);
    CHECK(Between(stroke.back(), {130, 40}) < 1.0);
}

TEST_CASE("each click adds a mark to the count, and Enter begins another")
{
    ShownView at;
    at.Arm(Shape::Points);
    for (int i = 0; i < 3; ++i)
        hand::Click(at.View, {40 + 40 * i, 60});
    hand::Key("BackSpace");
    hand::Key("Return");
    hand::Click(at.View, {40, 200});
    REQUIRE(at.Count() == 2);
    CHECK(at.Objects()[0].measure().pixels == 2);
    CHECK(at.Objects()[1].measure().pixels == 1);
}

TEST_CASE("a text is typed where it stands, changed by a double click, and left alone by Esc")
{
    ShownView at;
    at.Arm(Shape::Text);
    hand::Click(at.View, {80, 60});
    hand::Type("Crack 1");
    hand::Key("Return");
    REQUIRE(at.Count() == 1);
    CHECK(at.Objects()[0].text() == "Crack 1");
    CHECK(at.Points(0)[0].x == 40.0);
    hand::Key("Escape");
    hand::DoubleClick(at.View, {90, 66});
    hand::Key("End");
    hand::Type("2");
    hand::Key("Return");
    CHECK(at.Objects()[0].text() == "Crack 12");
    hand::DoubleClick(at.View, {90, 66});
    hand::Type("x");
    hand::Key("Escape");
    CHECK(at.Objects()[0].text() == "Crack 12");
    at.Open().undo();
    at.Open().undo();
    CHECK(at.Count() == 0);
}

TEST_CASE("points snap to pixel centres or to edges")
{
    ShownView at;
    at.View.SetSnap(Snap::PixelCentres);
    at.Arm(Shape::Length);
    hand::Drag(at.View, {41, 61}, {101, 141});
    at.View.SetSnap(Snap::PixelEdges);
    hand::Drag(at.View, {201, 61}, {261, 141});
    REQUIRE(at.Count() == 2);
    CHECK(at.Points(0)[0].x == 20.5);
    CHECK(at.Points(0)[1].y == 70.5);
    CHECK(at.Points(1)[0].y == 31.0);
}

TEST_CASE("what is drawn has colors that are seen, and its look is part of its step")
{
    ShownView at;
    at.Arm(Shape::Rectangle);
    hand::Drag(at.View, {40, 40}, {200, 160});
    at.View.Disarm();
    hand::Keep(at.View, "drawn-rectangle");
    CHECK(at.Objects()[0].style().line_color == at.View.Drawn().Line);
    CHECK(at.Undos() == 1);
}

TEST_CASE("lines and captions are as large to the eye on screens of every density")
{
    ShownView at;
    at.Arm(Shape::Length);
    hand::Drag(at.View, {60, 200}, {160, 200});
    at.View.Disarm();
    at.Open().select({});
    hand::Settle();
    const QImage with = at.View.grab().toImage();
    at.Objects().at(0).set_flags(VOSTEL_HIDDEN);
    hand::Settle();
    const QImage without = at.View.grab().toImage();
    const double ratio = with.devicePixelRatio();
    QRect        paper;    // of the caption
    int          thick = 0;
    for (int y = 0; y < with.height(); ++y)
        for (int x = 0; x < with.width(); ++x)
            if (with.pixel(x, y) != without.pixel(x, y) && y < 185 * ratio &&
                QColor(with.pixel(x, y)) == QColor(Qt::white))
                paper |= QRect(x, y, 1, 1);
    for (int y = 0, x = qRound(85 * ratio); y < with.height(); ++y)
        if ((with.pixel(x, y) & 0xFFFFFF) == at.View.Drawn().Line)
            ++thick;
    hand::Keep(at.View, "drawn-length");
    CHECK(paper.height() / ratio > 17.0);
    CHECK(paper.height() / ratio < 30.0);
    CHECK(thick / ratio >= 1.0);
    CHECK(thick / ratio <= 2.0);
}
