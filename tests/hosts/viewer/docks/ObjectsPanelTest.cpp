#include "docks/ObjectsPanel.h"

#include "docks/ColourMenu.h"
#include "hosts/viewer/docks/ShownPanel.h"

#include <doctest/doctest.h>

#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QTreeView>

#include <memory>

using namespace vostel::viewer;

namespace {

struct ShownObjects : ShownPanel<ObjectsPanel> {
    QTreeView& List = Of<QTreeView>("objects");

    ShownObjects()
    {
        for (int i = 0; i < 3; ++i)
            Open().add_rectangle(20 + 10 * i, 20, 60 + 10 * i, 60).set_name(std::string(1, "abc"[i]));
        Open().add_length({10, 10}, {90, 10});
        Open().select({});
        hand::Settle();
    }
    std::string Names()    // from the bottom
    {
        std::string names;
        for (const vostel::Object& object : Objects())
            names += object.name().empty() ? "-" : object.name();
        return names;
    }
    ColourMenu& Menu(const char* title)
    {
        for (ColourMenu* const menu : Window.findChildren<ColourMenu*>())
            if (menu->title() == QString::fromLatin1(title))
                return *menu;
        throw std::runtime_error("no such menu");
    }
};

}

TEST_CASE("objects are listed with the topmost first, and the list says so")
{
    ShownObjects at;
    REQUIRE(at.List.model()->rowCount() == 4);
    CHECK(hand::CellText(at.List, 0, ObjectsModel::Kind) == "Length");
    CHECK(hand::CellText(at.List, 1, ObjectsModel::Name) == "c");
    CHECK(hand::CellText(at.List, 3, ObjectsModel::Name) == "a");
    CHECK(hand::CellText(at.List, 3, ObjectsModel::Label) == "1");
    CHECK(at.Of<QLabel>("objectsOrder").text().contains("topmost first"));
    at.Objects()[1].remove();
    at.Open().add_ellipse(1, 1, 5, 5);
    hand::Settle();
    CHECK(hand::CellText(at.List, 0, ObjectsModel::Kind) == "Ellipse");
    CHECK(hand::CellText(at.List, 2, ObjectsModel::Name) == "c");
    at.Open().select({at.Objects()[1], at.Objects()[3]});
    at.Keep("objects");
}

TEST_CASE("what is selected in the list is selected on the canvas and the other way round")
{
    ShownObjects at;
    hand::ClickCell(at.List, 1, ObjectsModel::Kind);
    CHECK(at.Objects()[2].selected());
    hand::With("shift", [&] { hand::ClickCell(at.List, 3, ObjectsModel::Kind); });
    CHECK(at.Open().selection().size() == 3);
    CHECK(at.Undos() == 7);
    at.Open().select({at.Objects()[3], at.Objects()[0]});
    hand::Settle();
    const QModelIndexList rows = at.List.selectionModel()->selectedRows();
    REQUIRE(rows.size() == 2);
    CHECK(rows[0].row() + rows[1].row() == 3);
    at.Open().select({});
    hand::Settle();
    CHECK(at.List.selectionModel()->selectedRows().empty());
}

TEST_CASE("a double click on a name renames in place, as one step")
{
    ShownObjects        at;
    const std::uint32_t before = at.Undos();
    hand::DoubleClickCell(at.List, 3, ObjectsModel::Name);
    hand::Type("bore");
    hand::Key("Return");
    CHECK(at.Objects()[0].name() == "bore");
    CHECK(at.Undos() == before + 1);
    CHECK(at.LastStep() == "Rename object");
    at.Open().undo();
    hand::Settle();
    CHECK(hand::CellText(at.List, 3, ObjectsModel::Name) == "a");
}

TEST_CASE("boxes hide and lock, and buttons do it for all that are selected as one step")
{
    ShownObjects at;
    const auto   box = [&](int row, int column) {
        const QRect cell = at.List.visualRect(at.List.model()->index(row, column));
        hand::Click(*at.List.viewport(), QPoint(cell.left() + 10, cell.center().y()));
    };
    box(3, ObjectsModel::Visible);
    CHECK(at.Objects()[0].flags() == VOSTEL_HIDDEN);
    box(3, ObjectsModel::Locked);
    CHECK(at.Objects()[0].flags() == (VOSTEL_HIDDEN | VOSTEL_LOCKED));
    at.Open().select(at.Objects());
    hand::Settle();
    const std::uint32_t before = at.Undos();
    at.Press("hide");
    CHECK(at.Objects()[3].flags() == VOSTEL_HIDDEN);
    CHECK(at.Undos() == before + 1);
    CHECK(at.LastStep() == "Hide objects");
    at.Press("hide");
    CHECK(at.Objects()[0].flags() == VOSTEL_LOCKED);
    at.Press("remove");
    CHECK(at.Names() == "a");    // the locked one stays
    at.Open().undo();
    CHECK(at.Names() == "abc-");
}

TEST_CASE("line color, fill color and width change for all that are selected, one step each")
{
    ShownObjects at;
    at.Open().select(at.Objects());
    hand::Settle();
    const std::uint32_t before = at.Undos();
    at.Press("lineColor");
    hand::Choose(at.Menu("Line color"), "Cyan");
    CHECK(at.Objects()[0].style().line_color == 0x19D3E6);
    CHECK(at.Objects()[3].style().line_color == 0x19D3E6);
    at.Press("fillColor");
    hand::Choose(at.Menu("Fill color"), "Green");
    CHECK(at.Objects()[1].style().fill_color == 0x5034D058);
    CHECK(at.Objects()[3].style().fill_color < 0x1000000);
    at.Press("fillColor");
    hand::Choose(at.Menu("Fill color"), "None");
    CHECK(at.Objects()[1].style().fill_color < 0x1000000);
    auto& width = at.Of<QDoubleSpinBox>("lineWidth");
    hand::DoubleClick(width, QPoint(12, width.height() / 2));
    hand::Key("ctrl+a");
    hand::Type("4");
    hand::Key("Return");
    CHECK(at.Objects()[2].style().line_width == 4.0);
    CHECK(at.Undos() == before + 4);
    CHECK(at.LastStep() == "Change line width");
}

TEST_CASE("a drag in the list, buttons and the menu change the order")
{
    ShownObjects at;
    const QRect  last = at.List.visualRect(at.List.model()->index(3, 0));
    const QRect  first = at.List.visualRect(at.List.model()->index(0, 0));
    hand::DragAlong(*at.List.viewport(), {last.center(), last.center() - QPoint(0, 15), first.center(),
                                          first.topLeft() + QPoint(30, 1)});
    CHECK(at.Names() == "bc-a");
    CHECK(at.LastStep() == "Change order");
    at.Open().undo();
    CHECK(at.Names() == "abc-");
    at.Open().select({at.Objects()[1]});
    hand::Settle();
    at.Press("raise");
    CHECK(at.Names() == "acb-");
    at.Press("lower");
    at.Press("lower");
    CHECK(at.Names() == "bac-");
    hand::RightClick(*at.List.viewport(), at.List.visualRect(at.List.model()->index(0, 0)).center());
    hand::Choose(at.Of<QMenu>("objectsMenu"), "To the bottom");
    CHECK(at.Names() == "-bac");
}

TEST_CASE("very many objects are listed without waiting")
{
    ShownObjects  at;
    QElapsedTimer time;
    at.AddMany();
    time.start();
    CHECK(hand::Wait([&] { return at.List.model()->rowCount() == Many + 4; }));
    at.Open().select({at.Objects()[Many / 2]});
    CHECK(hand::Wait([&] { return at.List.selectionModel()->isRowSelected(Many / 2 + 3); }));
    CHECK(at.List.visualRect(at.List.model()->index(Many / 2 + 3, 0)).isValid());
    at.Objects()[Many / 2].set_name("found");
    CHECK(hand::Wait([&] { return hand::CellText(at.List, Many / 2 + 3, ObjectsModel::Name) == "found"; }));
    at.Objects()[50].remove();
    CHECK(hand::Wait([&] { return at.List.model()->rowCount() == Many + 3; }));
    MESSAGE("four updates: ", time.elapsed(), " ms, of which 120 ms are waited");
    CHECK(time.elapsed() < 8000);
}

TEST_CASE("the list is empty without a canvas, also when it has gone")
{
    ObjectsPanel panel;
    hand::Show(panel, QRect(50, 40, 300, 300));
    auto& list = hand::Of<QTreeView>(panel, "objects");
    {
        CanvasModel canvas;
        canvas.Open().add_rectangle(1, 1, 5, 5);
        panel.SetCanvas(&canvas);
        CHECK(list.model()->rowCount() == 1);
    }
    hand::Settle();
    CHECK(list.model()->rowCount() == 0);
    CHECK(hand::Of<QLabel>(panel, "objectsOrder").text() == "No canvas");
}

TEST_CASE("the box of an object that is not locked is seen on a dark list")
{
    ShownObjects at;
    QPalette     dark(QColor(0x2b, 0x2d, 0x30));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    dark.setColor(QPalette::Text, QColor(0xdf, 0xe1, 0xe5));
    at.List.setPalette(dark);
    hand::Settle();
    const QImage cell = at.List.viewport()
                            ->grab(at.List.visualRect(at.List.model()->index(1, ObjectsModel::Locked)))
                            .toImage();
    int brightest = 0;
    for (int y = 0; y < cell.height(); ++y)
        for (int x = 0; x < cell.width(); ++x)
            brightest = std::max(brightest, qGray(cell.pixel(x, y)));
    CHECK(brightest > qGray(cell.pixel(cell.width() - 1, 0)) + 60);
}
