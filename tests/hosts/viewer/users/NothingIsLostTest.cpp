#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/users/AtTheWindow.h"

#include "window/Processing.h"

#include <functional>
#include <set>

using namespace vostel::viewer;

namespace {

// All that a step may change.
struct State {
    std::string               Objects;
    std::pair<double, double> Contrast;
    double                    Scale;

    explicit State(ShownWindow& at)
        : Objects(at.Open().regions_text(at.Open().object_list())), Contrast(at.Open().contrast_get()),
          Scale(at.Open().scale().first)
    {
    }
    bool operator==(const State&) const = default;
};

void Run(ShownWindow& at, const char* command)
{
    hand::InDialog([](QDialog& dialog) {
        REQUIRE(dialog.objectName() == "Routine");
        hand::Key("Return");
    });
    at.Window.Commands().Of(command).trigger();
    REQUIRE(hand::Wait([&] { return !at.Window.Runs().IsRunning(); }, 60000));
    hand::Settle();
}

}

TEST_CASE("whatever was done with objects is taken back by Ctrl+Z, one by one, and done again")
{
    ShownWindow        at;
    std::vector<State> states = {State(at)};
    const auto         after = [&](const std::function<void()>& act) {
        act();
        states.emplace_back(at);
        REQUIRE_FALSE(states.back() == states[states.size() - 2]);
    };
    hand::Key("r");
    after([&] { at.Drag(60, 60, 140, 120); });
    hand::Key("l");
    after([&] { at.Drag(200, 60, 300, 60); });
    hand::Key("Escape");
    after([&] { at.Drag(60, 90, 80, 110); });       // moves
    after([&] { at.Drag(160, 140, 190, 160); });    // a corner
    after([&] { hand::Key("Right"); });
    after([&] { hand::Key("ctrl+d"); });
    after([&] { hand::Key("ctrl+x"); });
    after([&] { hand::Key("ctrl+v"); });
    after([&] {
        hand::Key("ctrl+a");
        hand::Key("Delete");
    });
    CHECK(at.Open().object_list().empty());
    for (std::size_t step = states.size() - 1; step-- > 0;) {
        INFO(step);
        hand::Key("ctrl+z");
        CHECK(State(at) == states[step]);
    }
    CHECK_FALSE(at.Window.Commands().Of("edit.undo").isEnabled());
    for (std::size_t step = 1; step < states.size(); ++step) {
        INFO(step);
        hand::Key("ctrl+shift+z");
        CHECK(State(at) == states[step]);
    }
}

TEST_CASE("routines in a row leave the picture that was opened, its objects and its view")
{
    ShownWindow at;
    hand::Key("r");
    at.Drag(60, 60, 140, 120);
    hand::Key("l");
    at.Drag(200, 60, 300, 60);
    hand::Key("Escape");
    hand::Wheel(at.View(), at.View().rect().center(), 2);
    const auto         values = at.Open().image_copy<float>().values;
    const State        state(at);
    const vostel::View view = at.Open().view_get();
    for (const char* const routine : {"process.gaussian", "process.gaussian", "process.resize"})
        Run(at, routine);
    CHECK(at.Window.Area().All().size() == 4);
    at.Window.Area().SetCurrent(0);
    hand::Settle();
    CHECK(at.Open().image_copy<float>().values == values);
    CHECK(State(at) == state);
    CHECK(at.Open().view_get().scale == view.scale);
    CHECK(at.Open().view_get().left == view.left);
    hand::Key("ctrl+z");
    CHECK(at.Open().object_list().size() == 1);
}

TEST_CASE("another picture opens beside the one with objects, whatever its size")
{
    const MadeFiles files;
    ShownWindow     at;
    hand::Key("r");
    at.Drag(60, 60, 140, 120);
    at.OpenAll({files.Deep("other.png", 20, 10)});
    at.OpenAll({ShownWindow::Sample()});
    REQUIRE(at.Window.Area().All().size() == 3);
    CHECK(at.Open().object_list().empty());
    at.Window.Area().SetCurrent(0);
    CHECK(at.Open().object_list().size() == 1);
}

TEST_CASE("a window with objects that are not saved asks before it closes")
{
    ShownWindow at;
    hand::Key("r");
    at.Drag(60, 60, 140, 120);
    bool asked = false;
    hand::InDialog([&](QDialog& dialog) {
        asked = dialog.objectName() == "NotSaved";
        hand::Key("Escape");
    });
    hand::Key("ctrl+q");
    CHECK(hand::Wait([&] { return asked; }));
    CHECK(at.Window.isVisible());
    CHECK(at.Open().object_list().size() == 1);
}

TEST_CASE("a color picture that becomes gray in a routine is said to")
{
    const MadeFiles files;
    QImage          color(60, 40, QImage::Format_RGB32);
    color.fill(qRgb(200, 40, 10));
    REQUIRE(color.save(files.Path("color.png")));
    ShownWindow at({files.Path("color.png")});
    Run(at, "process.gaussian");
    CHECK(at.Label("Hint").contains(QStringLiteral("gray")));
}

TEST_CASE("one pass over a large picture tells its rows, and a stop is told at once")
{
    ShownWindow              at;
    const std::vector<float> large(4000 * 3000, 7.0f);
    at.Open().image_show(VOSTEL_F32, large.data(), 4000, 3000);
    QSettings().setValue(QStringLiteral("Process/process.mean/side"), 63);
    hand::InDialog([](QDialog&) { hand::Key("Return"); });
    at.Window.Commands().Of("process.mean").trigger();
    REQUIRE(at.Window.Runs().IsRunning());
    std::set<QString> told;
    CHECK(hand::Wait([&] {
        if (at.Window.Runs().IsRunning())
            told.insert(at.Label("Hint"));
        return told.size() >= 3;
    }));
    REQUIRE(at.Window.Runs().IsRunning());
    at.Window.Commands().Of("process.stop").trigger();
    CHECK(at.Label("Hint").contains(QStringLiteral("stopping ...")));
    CHECK(hand::Wait([&] { return !at.Window.Runs().IsRunning(); }));
}
