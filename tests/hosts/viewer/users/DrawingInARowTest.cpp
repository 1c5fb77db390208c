#include "hosts/viewer/users/AtTheWindow.h"

#include <QToolBar>
#include <QToolButton>

using namespace vostel::viewer;

namespace {

QToolButton& ButtonOf(MainWindow& window, const char* command)
{
    for (QToolButton* const button : window.findChildren<QToolButton*>())
        if (button->defaultAction() == &window.Commands().Of(command) && button->isVisible())
            return *button;
    throw std::runtime_error(command);
}

}

TEST_CASE("every tool that drags draws one object after another, and each keeps its place")
{
    const struct {
        const char* Key;
        VostelKind  Kind;
    } tools[] = {{"l", VOSTEL_LENGTH},      {"r", VOSTEL_RECTANGLE}, {"e", VOSTEL_RECTANGLE},
                 {"o", VOSTEL_PROFILE},     {"w", VOSTEL_ARROW},     {"f", VOSTEL_FREE_REGION},
                 {"k", VOSTEL_FREE_STROKES}};
    for (const auto& tool : tools) {
        INFO(tool.Key);
        ShownWindow at;
        hand::Key(tool.Key);
        at.Drag(100, 60, 200, 100);
        const std::vector<vostel::Point> first = at.Open().object_list().at(0).points();
        at.Drag(120, 160, 220, 200);
        at.Drag(150, 80, 250, 120);    // begins upon the first
        REQUIRE(at.Open().object_list().size() == 3);
        for (const vostel::Object& object : at.Open().object_list())
            CHECK(object.kind() == tool.Kind);
        const std::vector<vostel::Point> after = at.Open().object_list()[0].points();
        REQUIRE(after.size() == first.size());
        for (std::size_t i = 0; i < first.size(); ++i)
            CHECK((after[i].x == first[i].x && after[i].y == first[i].y));
    }
}

TEST_CASE("Shift while a tool is armed draws another object too, and changes none that stands")
{
    ShownWindow at;
    hand::Key("r");
    at.Drag(50, 40, 150, 140);
    hand::With("shift", [&] { at.Drag(180, 150, 240, 210); });
    hand::With("shift", [&] { hand::Click(at.View(), at.At(300, 60)); });
    REQUIRE(at.Open().object_list().size() == 2);
    CHECK(at.Open().object_list()[0].info().right == doctest::Approx(150).epsilon(0.01));
    hand::Key("p");
    for (const QPoint node : {QPoint(60, 200), QPoint(120, 200), QPoint(90, 260)})
        hand::Click(at.View(), at.At(node.x(), node.y()));
    hand::Key("Return");
    const std::size_t nodes = at.Open().object_list().at(2).points().size();
    hand::With("shift", [&] { hand::Click(at.View(), at.At(330, 280)); });
    hand::Key("Escape");
    hand::Key("Escape");
    hand::With("shift", [&] { hand::Click(at.View(), at.At(330, 280)); });
    CHECK(at.Open().object_list().size() == 3);
    CHECK(at.Open().object_list()[2].points().size() == nodes);
}

TEST_CASE("the armed tool stays until Esc, is pressed in the bar, and the hint says what it does")
{
    ShownWindow at;
    hand::Click(ButtonOf(at.Window, "measure.length"));
    CHECK(ButtonOf(at.Window, "measure.length").isChecked());
    CHECK(at.Label("Hint").startsWith("Drag from end to end"));
    hand::Click(at.View(), at.At(60, 60));    // a press that draws nothing
    CHECK(ButtonOf(at.Window, "measure.length").isChecked());
    CHECK(at.Label("Hint").startsWith("Drag from end to end"));
    at.Drag(60, 60, 160, 60);
    CHECK(at.Open().object_list().size() == 1);
    CHECK(ButtonOf(at.Window, "measure.length").isChecked());
    hand::Key("Escape");
    CHECK_FALSE(ButtonOf(at.Window, "measure.length").isChecked());
    CHECK(ButtonOf(at.Window, "draw.select").isChecked());
    CHECK_FALSE(at.Label("Hint").startsWith("Drag from end to end"));
}

TEST_CASE("an angle takes three clicks, and its caption reads in the language of the window")
{
    ShownWindow at;
    hand::Key("a");
    for (const QPoint node : {QPoint(200, 100), QPoint(100, 100), QPoint(100, 200)})
        hand::Click(at.View(), at.At(node.x(), node.y()));
    REQUIRE(at.Open().object_list().size() == 1);
    CHECK(at.Open().object_list()[0].measure().angle == doctest::Approx(90).epsilon(0.01));
    CHECK(hand::IsEnglish(QString::fromStdString(at.Open().object_list()[0].text())));
}

TEST_CASE("Esc drops a polygon that is half drawn and keeps the tool")
{
    ShownWindow at;
    hand::Key("p");
    hand::Click(at.View(), at.At(60, 60));
    hand::Click(at.View(), at.At(160, 60));
    hand::Key("Escape");
    CHECK(at.Open().object_list().empty());
    CHECK(at.Window.Commands().Of("draw.polygon").isChecked());
    CHECK_FALSE(at.Window.Commands().Of("edit.undo").isEnabled());
}

TEST_CASE("a text stands under the cursor, on the picture")
{
    ShownWindow at;
    hand::Key("t");
    hand::Click(at.View(), at.At(200, 150));
    hand::Type("Pore 7");
    hand::Key("Return");
    REQUIRE(at.Open().object_list().size() == 1);
    const vostel::ObjectInfo text = at.Open().object_list()[0].info();
    CHECK(text.left == doctest::Approx(200).epsilon(0.01));
    CHECK(text.top == doctest::Approx(150).epsilon(0.01));
    CHECK(at.Open().object_list()[0].text() == "Pore 7");
}

TEST_CASE("arrow keys move what is selected, on and on, and each press is undone")
{
    ShownWindow at;
    hand::Key("r");
    at.Drag(100, 100, 200, 160);
    hand::Key("Escape");
    const double left = at.Open().object_list()[0].info().left;
    hand::Key("Right");
    hand::Key("Right");
    hand::Key("shift+Right");
    CHECK(at.Open().object_list()[0].info().left == doctest::Approx(left + 12));
    hand::Key("ctrl+z");
    CHECK(at.Open().object_list()[0].info().left == doctest::Approx(left + 2));
}

TEST_CASE("an ellipse is a tool of its own, in the bar, the menu and under a key")
{
    ShownWindow at;
    hand::Choose(at.Window, "draw.ellipse");
    CHECK(ButtonOf(at.Window, "draw.ellipse").isChecked());
    at.Drag(100, 60, 200, 140);
    REQUIRE(at.Open().object_list().size() == 1);
    CHECK((at.Open().object_list()[0].flags() & VOSTEL_ELLIPSE) != 0);
    CHECK(at.Window.Commands().Of("draw.ellipse").shortcut() == QKeySequence("E"));
}
