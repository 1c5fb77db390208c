// While the button is held the panels tell what is being changed.

#include "hosts/viewer/docks/ShownPanel.h"
#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/window/ShownWindow.h"

#include "documents/SessionKeeper.h"
#include "plots/CurvePlot.h"
#include "window/DockSet.h"

#include <doctest/doctest.h>

#include <QDir>
#include <QDirIterator>
#include <QDockWidget>
#include <QTreeView>

using namespace vostel::viewer;

namespace {

QStringList FirstRow(QTreeView& table)
{
    QStringList texts;
    for (int column = 0; column < table.model()->columnCount(); ++column)
        texts << hand::CellText(table, 0, column);
    return texts;
}

}

TEST_CASE("measures and profile follow a drag while the button is held, and go back with it")
{
    ShownWindow at;
    at.Open().add_length({50, 60}, {150, 60});
    at.Open().select(at.Open().object_list());
    at.Window.Docks().Of("Measures").raise();
    hand::Settle();
    QTreeView& table = *at.Window.Docks().Of("Measures").findChild<QTreeView*>();
    auto&      plot = hand::Of<CurvePlot>(at.Window, "profile");
    REQUIRE(FirstRow(table).contains(QStringLiteral("100")));
    const std::uint32_t steps = at.Open().history_info().undo_count;

    hand::Press(at.View(), at.At(150, 60));
    hand::Move(at.View(), at.At(180, 60));
    hand::Move(at.View(), at.At(250, 60));
    const auto follows = [&] {
        const double length = at.Open().object_list()[0].measure().length;
        return length > 190.0 && FirstRow(table).contains(QString::number(length, 'g', 6));
    };
    CHECK(hand::Wait(follows));
    CHECK(at.Open().history_info().undo_count == steps);    // no step yet

    at.Window.Docks().Of("Profile").raise();
    hand::Move(at.View(), at.At(220, 60));
    hand::Settle();
    CHECK(hand::Wait([&] { return plot.Values().size() > 160 && plot.Values().size() < 180; }));
    hand::Move(at.View(), at.At(300, 60));
    CHECK(hand::Wait([&] { return plot.Values().size() > 240; }));
    hand::Keep(at.Window, "live-profile");
    hand::Lift();
    CHECK(at.Open().history_info().undo_count == steps + 1);
    hand::Key("ctrl+z");
    CHECK(hand::Wait([&] { return plot.Values().size() == 101; }));
}

TEST_CASE("what is not saved is kept for a recovery after a drag, and never in the middle of one")
{
    const MadeFiles files;
    const auto      kept = [&] {
        return QDir(files.Folder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size() == 1 &&
               QDirIterator(files.Folder(), {QStringLiteral("*.vostel.json")}, QDir::Files,
                                 QDirIterator::Subdirectories)
                   .hasNext();
    };
    constexpr int Soon = 20;    // ms
    SessionKeeper keeper(files.Folder(), Soon);
    ShownWindow   at;
    hand::Press(at.View(), at.At(150, 60));
    keeper.Watch(at.Window.Shown());
    at.Open().add_rectangle(20, 20, 80, 80);
    CHECK_FALSE(hand::Wait(kept, 20 * Soon));
    hand::Lift();
    CHECK(hand::Wait(kept));
}

TEST_CASE("a line that is being drawn is measured before the button is lifted")
{
    ShownWindow at;
    QTreeView&  table = *at.Window.Docks().Of("Measures").findChild<QTreeView*>();
    hand::Key("l");
    hand::Press(at.View(), at.At(50, 60));
    hand::Move(at.View(), at.At(90, 60));
    hand::Move(at.View(), at.At(250, 60));
    CHECK(hand::Wait([&] {
        return table.model()->rowCount() == 1 &&
               FirstRow(table).contains(
                   QString::number(at.Open().object_list()[0].measure().length, 'g', 6)) &&
               at.Open().object_list()[0].measure().length > 190.0;
    }));
    hand::Lift();
    CHECK(at.Open().object_list().size() == 1);
}
