#include "docks/HistoryPanel.h"

#include "hosts/viewer/docks/ShownPanel.h"

#include <doctest/doctest.h>

#include <QLabel>
#include <QListView>

using namespace vostel::viewer;

namespace {

struct ShownHistory : ShownPanel<HistoryPanel> {
    QListView& List = Of<QListView>("history");

    ShownHistory() : ShownPanel(QSize(260, 320)) {}

    QStringList Steps()
    {
        QStringList steps;
        for (int row = 1; row < List.model()->rowCount(); ++row)
            steps << hand::CellText(List, row, 0);
        return steps;
    }
};

}

TEST_CASE("steps are listed by name and a click goes to one, back and forth")
{
    ShownHistory   at;
    vostel::Object region = at.Open().add_rectangle(10, 10, 30, 20);
    region.set_name("bore");
    at.Open().contrast_set(5, 60);
    at.Open().add_length({1, 1}, {9, 9});
    hand::Settle();
    CHECK(at.Steps() == QStringList{"Add rectangle", "Change rectangle", "Change contrast", "Add length"});
    CHECK(at.List.currentIndex().row() == 4);
    hand::ClickCell(at.List, 1, 0);
    CHECK(at.Objects().size() == 1);
    CHECK(region.name().empty());
    CHECK(at.Open().contrast_get().second == 199.0);
    CHECK(at.Steps().size() == 4);
    CHECK(at.List.currentIndex().row() == 1);
    at.Keep("history");
    hand::ClickCell(at.List, 0, 0);
    CHECK(at.Objects().empty());
    hand::ClickCell(at.List, 3, 0);
    CHECK(at.Objects().size() == 1);
    CHECK(at.Open().contrast_get().second == 60.0);
    at.Open().add_arrow({1, 1}, {9, 9});
    hand::Settle();
    CHECK(at.Steps() == QStringList{"Add rectangle", "Change rectangle", "Change contrast", "Add arrow"});
}

TEST_CASE("what history holds is told, and the oldest steps go when it is full")
{
    ShownHistory at;
    at.Open().add_rectangle(10, 10, 30, 20);
    hand::Settle();
    const QString memory = at.Of<QLabel>("historyMemory").text();
    CHECK(memory.startsWith("1 step, "));
    CHECK(memory.endsWith("of 64.0 MiB"));
    at.Open().history_limit(8 * at.Open().history_info().bytes);
    for (int i = 0; i < 30; ++i)
        at.Open().add_length({1, 1}, {9, 9});
    at.Open().contrast_set(5, 60);
    hand::Settle();
    CHECK(at.Steps().size() == static_cast<int>(at.Undos()));
    CHECK(at.Undos() < 31);
    CHECK(at.Steps().last() == "Change contrast");
    CHECK(at.Steps().first() == "Add length");
}

TEST_CASE("steps of a canvas keep their names while another one is shown")
{
    ShownHistory at;
    CanvasModel  other;
    at.Open().add_rectangle(10, 10, 30, 20);
    at.Window.SetCanvas(&other);
    at.Open().add_length({1, 1}, {9, 9});
    at.Open().add_arrow({1, 1}, {9, 9});
    CHECK(at.Steps().empty());
    at.Window.SetCanvas(&at.Model);
    CHECK(at.Steps() == QStringList{"Add rectangle", "Add length", "Add arrow"});
    at.Window.SetCanvas(nullptr);
    CHECK(at.Of<QLabel>("historyMemory").text() == "No canvas");
}
