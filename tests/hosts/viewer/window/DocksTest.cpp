#include "hosts/viewer/docks/ShownPanel.h"
#include "hosts/viewer/window/ShownWindow.h"

#include "window/DockSet.h"

#include <doctest/doctest.h>

#include <QDockWidget>
#include <QLineEdit>
#include <QMenuBar>
#include <QSpinBox>
#include <QTreeView>

using namespace vostel::viewer;

namespace {

struct ShownDocks : ShownWindow {
    using ShownWindow::ShownWindow;

    QDockWidget& Dock(const char* name) { return Window.Docks().Of(name); }
    bool         IsSeen(const char* name) { return !Dock(name).visibleRegion().isEmpty(); }
    QTreeView&   Table() { return *Dock("Measures").findChild<QTreeView*>(); }
    QTreeView&   List() { return *Dock("Objects").findChild<QTreeView*>(); }
    int          Rows(QTreeView& list) { return list.model()->rowCount(); }
};

}

TEST_CASE("each panel comes and goes by its key and stands in the menu with it")
{
    ShownDocks at;
    hand::Keep(at.Window, "docks");
    for (const char* const name : {"Histogram", "Objects", "Measures"})
        CHECK(at.IsSeen(name));
    for (const char* const name : {"Profile", "History", "Overview"})
        CHECK_FALSE(at.IsSeen(name));    // behind another tab
    for (const auto& [key, name] : {std::pair("F6", "Histogram"),
                                    {"F7", "Objects"},
                                    {"F8", "Measures"},
                                    {"F9", "Profile"},
                                    {"F10", "History"},
                                    {"F12", "Overview"}}) {
        const bool was = at.IsSeen(name);
        hand::Key(key);
        CHECK(at.IsSeen(name) != was);
        hand::Key(key);
        CHECK(at.IsSeen(name) == was);
    }
    CHECK(at.Window.Commands().PathOf(at.Window.Commands().Of("dock.profile")) == "View, Panels, Profile");
}

TEST_CASE("the panels follow the current document")
{
    ShownDocks at({ShownWindow::Sample(), ShownWindow::Sample()});
    REQUIRE(at.Window.Area().All().size() == 2);
    at.Open().add_rectangle(10, 10, 50, 50);
    hand::Settle();
    CHECK(at.Rows(at.List()) == 1);
    hand::Key("ctrl+Tab");
    CHECK(at.Rows(at.List()) == 0);
    CHECK(at.Rows(at.Table()) == 0);
    hand::Key("ctrl+Tab");
    CHECK(at.Rows(at.List()) == 1);
    at.Window.CloseDocument(at.Window.Area().CurrentIndex() == 0 ? 1 : 0);
    hand::Settle();
    CHECK(at.Rows(at.List()) == 1);
}

TEST_CASE("selection goes from the list and the table to the canvas and back")
{
    ShownDocks at;
    at.Open().add_rectangle(20, 20, 80, 80);
    at.Open().add_rectangle(120, 20, 180, 80);
    at.Open().select({});
    hand::Settle();
    hand::ClickCell(at.List(), 0, 0);
    REQUIRE(at.Open().selection().size() == 1);
    const vostel::Object first = at.Open().selection().front();
    CHECK(at.Table().selectionModel()->selectedRows().size() == 1);
    hand::ClickCell(at.Table(), at.Table().selectionModel()->selectedRows().front().row() == 0 ? 1 : 0, 0);
    REQUIRE(at.Open().selection().size() == 1);
    CHECK(at.Open().selection().front().id() != first.id());
    hand::Click(at.View(), at.At(20, 50));
    CHECK(at.Open().selection().front().id() == at.Open().object_list().front().id());
    CHECK(at.List().selectionModel()->selectedRows().size() == 1);
}

TEST_CASE("the table of measures has a line that was drawn")
{
    ShownDocks at;
    hand::Key("l");
    at.Drag(50, 60, 150, 60);
    REQUIRE(at.Rows(at.Table()) == 1);
    QStringList texts;
    for (int column = 0; column < at.Table().model()->columnCount(); ++column)
        texts << hand::CellText(at.Table(), 0, column);
    CHECK(texts.contains(QString::number(at.Open().object_list()[0].measure().length, 'g', 6)));
    hand::Keep(at.Window, "docks-length");
}

TEST_CASE("what is shown and where stays for the next start, and the standard layout brings it back")
{
    ShownDocks at;
    hand::Key("F7");
    if (!at.IsSeen("History"))
        hand::Key("F10");
    at.Window.close();
    MainWindow again;
    hand::Show(again, QRect(20, 20, 1000, 700));
    CHECK(again.Docks().Of("Objects").visibleRegion().isEmpty());
    CHECK_FALSE(again.Docks().Of("History").visibleRegion().isEmpty());
    again.Commands().Of("dock.standard").trigger();
    hand::Settle();
    CHECK_FALSE(again.Docks().Of("Objects").visibleRegion().isEmpty());
    CHECK(again.Docks().Of("History").visibleRegion().isEmpty());
}

TEST_CASE("a known length calibrates all measures")
{
    ShownDocks at;
    hand::Key("l");
    at.Drag(50, 60, 250, 60);
    hand::Key("Escape");
    hand::Click(at.View(), at.At(150, 60));
    REQUIRE(at.Open().selection().size() == 1);
    hand::InDialog([](QDialog& dialog) {
        CHECK(dialog.objectName() == "Calibration");
        hand::Type("10");
        hand::Key("Return");
    });
    hand::Key("ctrl+u");
    CHECK(at.Open().scale().second == "mm");
    CHECK(at.Open().scale().first ==
          doctest::Approx(10.0 / at.Open().object_list()[0].measure().length * at.Open().scale().first));
    CHECK(at.Label("Scale").startsWith(QStringLiteral("1 px = 0.0")));
    CHECK(at.Window.Commands().Of("measure.calibrateNot").isEnabled());
    at.Window.Commands().Of("measure.calibrateNot").trigger();
    CHECK(at.Label("Scale") == "not calibrated");
}
