#include "hosts/viewer/window/ShownWindow.h"

#include "help/Tour.h"
#include "window/StatusLine.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTextBrowser>

using namespace vostel::viewer;

namespace {

QDialog* Dialog(const char* name)
{
    for (QWidget* const top : QApplication::topLevelWidgets())
        if (top->isVisible() && top->objectName() == QLatin1String(name))
            return qobject_cast<QDialog*>(top);
    return nullptr;
}

}

TEST_CASE("five lengths in a row take one key and five drags, and undo takes them back by name")
{
    ShownWindow at;
    hand::Key("l");
    for (int i = 0; i < 5; ++i)
        at.Drag(50, 40 + 40 * i, 250, 40 + 40 * i);
    CHECK(at.Open().object_list().size() == 5);
    CHECK(at.Window.Commands().Of("measure.length").isChecked());
    CHECK(at.Window.Commands().Of("edit.undo").text() == "&Undo Add length");
    for (int i = 0; i < 5; ++i)
        hand::Key("ctrl+z");
    CHECK(at.Open().object_list().empty());
    CHECK_FALSE(at.Window.Commands().Of("edit.undo").isEnabled());
    CHECK(at.Window.Commands().Of("edit.redo").isEnabled());
    hand::Key("ctrl+shift+z");
    CHECK(at.Open().object_list().size() == 1);
    hand::Keep(at.Window, "window-length");
}

TEST_CASE("lengths are in px and their captions English until somebody calibrates")
{
    ShownWindow at;
    hand::Key("l");
    at.Drag(50, 40, 250, 40);
    const std::string caption = at.Open().object_list().at(0).text();
    CHECK(caption.find("px") != std::string::npos);
    CHECK(caption.find("mm") == std::string::npos);
    CHECK(at.Label("Scale") == "not calibrated");
    at.Open().set_scale(0.5, "mm");
    hand::Move(at.View(), at.At(100, 100));
    CHECK(at.Label("Scale") == "1 px = 0.5 mm");
    CHECK(at.Label("Cursor").contains(QStringLiteral("mm")));
}

TEST_CASE("no single key deletes what was drawn, Delete does and is undone")
{
    ShownWindow at;
    hand::Key("r");
    at.Drag(50, 40, 150, 140);
    hand::Key("Escape");
    for (const char* const letter : {"c", "x", "d", "b", "q", "y", "g", "h"})
        hand::Key(letter);
    CHECK(at.Open().object_list().size() == 1);
    hand::Key("Escape");
    hand::Click(at.View(), at.At(50, 90));
    hand::Key("Delete");
    CHECK(at.Open().object_list().empty());
    hand::Key("ctrl+z");
    CHECK(at.Open().object_list().size() == 1);
}

TEST_CASE("the status bar tells place, value, size and zoom, and what the tool does")
{
    ShownWindow at;
    hand::Move(at.View(), at.At(100.5, 50.5));
    CHECK(at.Label("Values").startsWith(QStringLiteral("Value ")));
    CHECK(at.Label("Size") == "384 x 303, 8 bits");
    CHECK(at.Label("Zoom").endsWith(QStringLiteral(" %")));
    hand::Key("p");
    CHECK(at.Label("Hint").startsWith(QStringLiteral("Click the first node")));
    hand::Click(at.View(), at.At(50, 50));
    CHECK(at.Label("Hint").startsWith(QStringLiteral("Click the next node")));
}

TEST_CASE("views: whole image, 100 percent, in and out, and the selection")
{
    ShownWindow  at;
    const double fitted = at.View().Scale();
    hand::Key("ctrl+1");
    CHECK(at.View().Scale() == 1.0);
    hand::Key("ctrl+plus");
    CHECK(at.View().Scale() == 1.25);
    hand::Key("ctrl+0");
    CHECK(at.View().Scale() == fitted);
    at.Open().select({at.Open().add_rectangle(100, 100, 110, 110)});
    hand::Settle();
    hand::Key("ctrl+2");
    CHECK(at.View().Scale() > 20.0);
}

TEST_CASE("a command is found by parts of its name and run")
{
    ShownWindow at;
    hand::Do([](XScreen& screen) { screen.Key("ctrl+shift+p"); });
    REQUIRE(Dialog("CommandPalette"));
    hand::Type("full scr");
    hand::Keep(*Dialog("CommandPalette"), "palette");
    hand::Key("Escape");
    CHECK_FALSE(Dialog("CommandPalette"));
    hand::Key("ctrl+shift+p");
    hand::Type("tiles");
    hand::Key("Return");
    CHECK(hand::Wait([&] { return at.Window.Area().IsTiled(); }));
}

TEST_CASE("a key is changed, taken from the command that had it, and kept")
{
    {
        ShownWindow  at;
        CommandList& commands = at.Window.Commands();
        commands.SetKey(commands.Of("draw.rectangle"), QKeySequence(QStringLiteral("L")));
        CHECK(commands.Of("measure.length").shortcut().isEmpty());
        hand::Key("l");
        at.Drag(50, 40, 150, 140);
        CHECK(at.Open().object_list().at(0).kind() == VOSTEL_RECTANGLE);
        hand::Key("Escape");
    }
    MainWindow again;
    CHECK(again.Commands().Of("draw.rectangle").shortcut() == QKeySequence(QStringLiteral("L")));
    again.Commands().ResetKeys();
    CHECK(again.Commands().Of("measure.length").shortcut() == QKeySequence(QStringLiteral("L")));
}

TEST_CASE("every command stands in a menu, and no two share a key")
{
    ShownWindow   at;
    QSet<QString> keys;
    for (QAction* const action : at.Window.Commands().All()) {
        CHECK_FALSE(action->associatedObjects().isEmpty());
        CHECK_FALSE(action->text().isEmpty());
        const QString key = action->shortcut().toString();
        CHECK_MESSAGE((key.isEmpty() || !keys.contains(key)), key.toStdString());
        keys.insert(key);
    }
}

TEST_CASE("several documents stand in tabs or tiles, and linked ones move together")
{
    ShownWindow at({ShownWindow::Sample(), ShownWindow::Sample()});
    Workspace&  area = at.Window.Area();
    CHECK(area.All().size() == 2);
    CHECK(hand::Of<QTabBar>(at.Window, "Documents").isVisible());
    hand::Key("F4");
    CHECK(area.All()[0]->isVisible());
    CHECK(area.All()[1]->isVisible());
    hand::Key("ctrl+l");
    hand::Wheel(area.All()[1]->View(), area.All()[1]->View().rect().center(), 3);
    CHECK(area.All()[0]->View().Scale() == doctest::Approx(area.All()[1]->View().Scale()));
    hand::Keep(at.Window, "window-tiles");
    hand::Click(area.All()[0]->View());
    CHECK(area.CurrentIndex() == 0);
    hand::Key("ctrl+w");
    CHECK(area.All().size() == 1);
}

TEST_CASE("a small window cuts the hint with an ellipsis and nothing else")
{
    ShownWindow at;
    hand::Show(at.Window, QRect(0, 0, 800, 600));
    hand::Key("p");
    hand::Click(at.View(), at.At(50, 50));
    hand::Keep(at.Window, "window-800x600");
    CHECK(at.Window.width() == 800);
    CHECK(at.Label("Hint").endsWith(QChar(0x2026)));
    CHECK(hand::Of<ShortLabel>(at.Window, "Hint").toolTip().contains(QStringLiteral("Esc drops it")));
    CHECK(hand::Of<QLabel>(at.Window, "Zoom").geometry().right() <= 800);
}

TEST_CASE("a blink shows the current document and the one before in turns")
{
    ShownWindow at({ShownWindow::Sample(), ShownWindow::Sample()});
    const auto& panes = at.Window.Area().All();
    hand::Key("ctrl+k");
    CHECK(hand::Wait([&] { return panes[0]->isVisible() && !panes[1]->isVisible(); }));
    CHECK(hand::Wait([&] { return panes[1]->isVisible() && !panes[0]->isVisible(); }));
    hand::Key("ctrl+k");
    CHECK(panes[1]->isVisible());
    CHECK_FALSE(at.Window.Area().IsBlinking());
}

TEST_CASE("the dark theme and larger texts reach the whole window and are kept")
{
    ShownWindow  at;
    const double size = at.Window.font().pointSizeF();
    at.Window.Commands().Of("view.themeDark").trigger();
    for (int i = 0; i < 3; ++i)
        at.Window.Commands().Of("view.textLarger").trigger();
    hand::Settle();
    CHECK(at.Window.palette().color(QPalette::Window).lightness() < 80);
    CHECK(at.Window.font().pointSizeF() == doctest::Approx(size * 1.331));
    hand::Keep(at.Window, "window-dark");
    for (int i = 0; i < 3; ++i)
        at.Window.Commands().Of("view.textSmaller").trigger();
    at.Window.Commands().Of("view.themeSystem").trigger();
    hand::Settle();
    CHECK(at.Window.palette().color(QPalette::Window).lightness() > 150);
}

TEST_CASE("the help has its pages with it and finds words in them")
{
    ShownWindow at;
    hand::Key("F1");
    QDialog* const help = Dialog("HelpWindow");
    REQUIRE(help);
    auto& pages = hand::Of<QListWidget>(*help, "Pages");
    CHECK(pages.count() == 6);
    hand::Keep(*help, "help");
    hand::Type("percentile");
    CHECK(pages.count() < 6);
    CHECK(pages.count() > 0);
    CHECK(hand::Of<QTextBrowser>(*help, "Text").toPlainText().contains(QStringLiteral("percentile")));
    help->close();
}

TEST_CASE("the first steps are told one by one and only once by themselves")
{
    ShownWindow at;
    CHECK_FALSE(Tour::WasSeen());
    at.Window.Commands().Of("help.tour").trigger();
    hand::Settle();
    hand::Keep(at.Window, "tour");
    for (int i = 0; i < 5; ++i)
        hand::Click(hand::Of<QWidget>(hand::Of<QWidget>(at.Window, "Tour"), "Next"));
    CHECK(Tour::WasSeen());
    CHECK_FALSE(at.Window.findChild<QWidget*>(QStringLiteral("Tour")));
}

TEST_CASE("the difference of two documents is a new one, with the values of the one less the other")
{
    ShownWindow at({ShownWindow::Sample(), ShownWindow::Sample()});
    at.Open().image_show(VOSTEL_U8, std::vector<std::uint8_t>(384 * 303, 200).data(), 384, 303);
    const double below = at.Window.Area().All()[0]->View().Open().image_value(10, 10).value();
    hand::Key("ctrl+shift+d");
    REQUIRE(at.Window.Area().All().size() == 3);
    CHECK(at.Open().image_value(10, 10).value() == 200.0 - below);
    CHECK(at.Open().image_info()->type == VOSTEL_F32);
}

TEST_CASE("what is not saved is asked about before it goes")
{
    ShownWindow at;
    hand::Key("l");
    at.Drag(50, 40, 250, 40);
    CHECK(at.Window.windowTitle().contains(QStringLiteral("[*]")));
    CHECK(at.Window.isWindowModified());
    const auto answer = [&](QMessageBox::StandardButton button) {
        hand::InDialog([button](QDialog& dialog) {
            CHECK(dialog.objectName() == "NotSaved");
            static_cast<QMessageBox&>(dialog).button(button)->click();
        });
        hand::Key("ctrl+w");
    };
    answer(QMessageBox::Cancel);
    CHECK(at.Open().object_list().size() == 1);
    answer(QMessageBox::Discard);
    CHECK(at.Open().object_list().empty());
    CHECK_FALSE(at.View().Model().HasImage());
}

TEST_CASE("a picture is read while the window goes on, and a refused one leaves what is there")
{
    ShownWindow at{QStringList()};
    at.Window.OpenFiles({ShownWindow::Sample()});
    CHECK(at.Window.Shown().IsReading());
    hand::Wait([&] { return !at.Window.Shown().IsReading(); });
    hand::Settle();
    CHECK(at.Label("Size") == "384 x 303, 8 bits");
    CHECK(at.Label("Hint") == "Opened coins.png");
    const double scale = at.View().Scale();
    CHECK(scale > 1.0);    // fitted
    at.OpenAll({QStringLiteral("/no/such.png")});
    CHECK(at.Window.Area().All().size() == 1);
    QDialog* const box = Dialog("Failure");
    REQUIRE(box);
    CHECK(qobject_cast<QMessageBox*>(box)->text().contains(QStringLiteral("such.png")));
    box->close();
}

TEST_CASE("a window that closes while a picture is read waits for nothing that it would miss")
{
    ShownWindow at{QStringList()};
    at.Window.OpenFiles({ShownWindow::Sample()});
    hand::Key("ctrl+w");
    hand::Settle();
    CHECK_FALSE(at.View().Model().HasImage());
}

TEST_CASE("objects are copied to another document, cut, pasted and duplicated by the usual keys")
{
    ShownWindow at({ShownWindow::Sample(), ShownWindow::Sample()});
    hand::Key("r");
    at.Drag(50, 40, 150, 140);
    hand::Key("Escape");
    hand::Key("ctrl+c");
    hand::Key("ctrl+d");
    CHECK(at.Open().object_list().size() == 2);
    hand::Key("ctrl+x");
    CHECK(at.Open().object_list().size() == 1);
    at.Window.Area().SetCurrent(0);
    hand::Settle();
    hand::Key("ctrl+v");
    REQUIRE(at.Open().object_list().size() == 1);
    CHECK(at.Open().object_list()[0].kind() == VOSTEL_RECTANGLE);
    hand::Key("ctrl+z");
    CHECK(at.Open().object_list().empty());
}

TEST_CASE("without a selection the picture is copied, and pasted into a document of its own")
{
    ShownWindow at;
    hand::Key("ctrl+c");
    hand::Key("ctrl+v");
    REQUIRE(at.Window.Area().All().size() == 2);
    CHECK(at.View().Model().Image()->width == 384);
    CHECK(at.Window.Shown().IsModified());
}
