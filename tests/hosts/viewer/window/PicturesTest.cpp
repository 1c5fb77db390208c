// The window as the documentation shows it: tests/hosts/viewer/copy-pictures makes its pictures here.

#include "hosts/viewer/window/ShownWindow.h"
#include "hosts/viewer/window/Speaking.h"

#include "window/Theme.h"

#include <doctest/doctest.h>

#include <QScrollBar>
#include <QTreeView>

using namespace vostel::viewer;

namespace {

void DrawCoins(ShownWindow& at)
{
    vostel::Canvas& canvas = at.Open();
    canvas.set_scale(0.05, "mm");
    const auto dress = [&](vostel::Object object, const char* name) {
        at.View().Dress(object);
        object.set_name(name);
    };
    dress(canvas.add_ellipse(308, 15, 366, 73), "A 6");
    dress(canvas.add_rectangle(196, 18, 243, 66), "A 4");
    dress(
        canvas.add_polygon(
            {{347, 155}, {372, 166}, {380, 187}, {371, 211}, {347, 219}, {322, 210}, {315, 187}, {323, 164}}),
        "C 6");
    dress(canvas.add_length({24, 258}, {86, 258}), "D 1");
    dress(canvas.add_length({90, 110}, {350, 110}), "row B");
    canvas.select({canvas.object_list()[4]});
}

int Brightness(const QImage& picture)
{
    return qGray(picture.pixel(picture.width() - 8, picture.height() - 60));
}

}

TEST_CASE("the window in two languages and two themes, each cut off nowhere")
{
    for (const char* const language : {"en", "zh_CN"}) {
        const Speaking speaking(language);
        int            brightness[2] = {0, 0};
        for (const Theme theme : {Theme::Light, Theme::Dark}) {
            const bool  dark = theme == Theme::Dark;
            ShownWindow at;
            at.Window.setGeometry(0, 0, 1280, 840);
            at.Window.Themes().Choose(theme);
            DrawCoins(at);
            hand::Key("F9");
            hand::Settle();
            at.View().Fit();
            hand::Settle();
            brightness[dark] = Brightness(at.Window.grab().toImage());
            hand::Keep(at.Window, (std::string("viewer-") + language + (dark ? "-dark" : "-light")).c_str());
            CHECK(hand::Of<QTreeView>(at.Window, "objects").horizontalScrollBar()->maximum() == 0);
            for (const char* const name : {"Scale", "Zoom", "Size"}) {
                const QLabel& label = hand::Of<QLabel>(at.Window, name);
                CHECK(label.width() >= label.sizeHint().width());
            }
            at.Window.Themes().Choose(Theme::System);
        }
        CHECK(brightness[0] > brightness[1] + 100);
    }
}
