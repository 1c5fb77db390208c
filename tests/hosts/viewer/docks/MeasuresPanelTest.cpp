#include "docks/MeasuresPanel.h"

#include "canvas/CanvasView.h"
#include "hosts/viewer/docks/ShownPanel.h"

#include <doctest/doctest.h>

#include <QClipboard>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QSettings>
#include <QTemporaryDir>
#include <QTreeView>

using namespace vostel::viewer;

namespace {

struct ForgottenColumns {
    ForgottenColumns() { QSettings().remove(QStringLiteral("measures/columns")); }
};

struct ShownMeasures : ForgottenColumns, ShownPanel<MeasuresPanel> {
    QTreeView&  Table = Of<QTreeView>("measures");
    QStringList Reports;
    int         Beside = 20;    // px

    ShownMeasures() : ShownPanel(QSize(900, 300))
    {
        Open().add_rectangle(20, 20, 60, 60).set_name("wide");
        Open().add_rectangle(10, 10, 20, 20).set_name("small");
        Open().add_length({10, 10}, {90, 10});
        Open().select({});
        hand::Settle();
        QObject::connect(&Window, &CanvasPanel::reported,
                         [this](const Outcome& outcome) { Reports << outcome.Text; });
    }
    int ColumnOf(const char* title)
    {
        for (int column = 0; column < Table.model()->columnCount(); ++column)
            if (Table.model()->headerData(column, Qt::Horizontal).toString() == QString::fromUtf8(title))
                return column;
        return -1;
    }
    QString Cell(int row, const char* title) { return hand::CellText(Table, row, ColumnOf(title)); }
    QString Statistics() { return Of<QLabel>("measureStatistics").text(); }
    void    ClickTitle(const char* title)
    {
        QHeaderView& header = *Table.header();
        const int    column = ColumnOf(title);
        Beside = 50 - Beside;    // two clicks beside each other are no double click
        hand::Click(*header.viewport(),
                    QPoint(header.sectionViewportPosition(column) + Beside, header.height() / 2));
    }
};

}

TEST_CASE("the table shows the measures of all objects, in units of the scale")
{
    ShownMeasures at;
    REQUIRE(at.Table.model()->rowCount() == 3);
    CHECK(at.Cell(0, "Area (px²)") == "1600");
    CHECK(at.Cell(0, "Mean") == "39.5");
    CHECK(at.Cell(0, "Length (px)") == "");
    CHECK(at.Cell(2, "Length (px)") == "80");
    at.Open().set_scale(0.5, "mm");
    hand::Settle();
    CHECK(at.Cell(0, "Area (mm²)") == "400");
    CHECK(at.Cell(2, "Length (mm)") == "40");
    at.Open().undo();
    hand::Settle();
    CHECK(at.Cell(2, "Length (px)") == "80");
    at.Keep("measures");
}

TEST_CASE("a click on a row selects the object, and a title sorts, with empty cells last")
{
    ShownMeasures at;
    hand::ClickCell(at.Table, 1, 0);
    CHECK(at.Objects()[1].selected());
    at.ClickTitle("Area (px²)");
    CHECK(at.Cell(0, "Name") == "small");
    CHECK(at.Cell(2, "Kind") == "Length");
    CHECK(at.Table.selectionModel()->isRowSelected(0));
    at.ClickTitle("Area (px²)");
    CHECK(at.Cell(0, "Name") == "wide");
    CHECK(at.Cell(2, "Kind") == "Length");
    CHECK(at.Statistics().startsWith("Area (px²), all rows: mean 850, "));
    CHECK(at.Statistics().endsWith("minimum 100, maximum 1600, sum 1700, count 2"));
    at.Open().select({at.Objects()[0], at.Objects()[2]});
    hand::Settle();
    CHECK(at.Statistics().contains("selected rows: mean 1600, deviation 0,"));
}

TEST_CASE("the row of what is dragged follows at once and stays where it is until it is let go")
{
    ShownMeasures at;
    CanvasView    view(at.Model);
    hand::Show(view, QRect(50, 400, 400, 300));
    view.Fit();
    at.ClickTitle("Mean");
    CHECK(at.Cell(0, "Name") == "small");
    QStringList means;
    QObject::connect(at.Table.model(), &QAbstractItemModel::dataChanged,
                     [&] { means << at.Cell(0, "Mean"); });
    hand::Drag(view, {26, 26}, {226, 26});
    CHECK(means.size() > 3);
    CHECK(at.Cell(1, "Name") == "small");
    CHECK(at.Cell(1, "Mean") == "114.5");
}

TEST_CASE("columns are chosen and remembered")
{
    ShownMeasures at;
    const int     before = at.Table.model()->columnCount();
    at.Press("measureColumns");
    hand::Choose(at.Of<QMenu>("measureColumnMenu"), "Median");
    REQUIRE(at.Table.model()->columnCount() == before + 1);
    CHECK(at.Cell(0, "Median") == "39.5");
    at.Press("measureColumns");
    hand::Choose(at.Of<QMenu>("measureColumnMenu"), "Label");
    CHECK(at.ColumnOf("Label") == -1);
    MeasuresPanel other;
    auto&         table = hand::Of<QTreeView>(other, "measures");
    CHECK(table.model()->columnCount() == before);
}

TEST_CASE("rows are copied as text that spreadsheets take")
{
    ShownMeasures at;
    at.Open().set_scale(1.0 / 3.0, "mm");
    hand::Settle();
    at.Press("copyMeasures");
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    REQUIRE(lines.size() == 5);
    CHECK(lines[0].startsWith("Name\tKind\tLabel\tArea (mm²)\t"));
    CHECK(lines[1].startsWith("wide\tRectangle\t1\t177.7777777777777"));
    CHECK(at.Reports.last() == "Copied 3 rows");
    hand::ClickCell(at.Table, 2, 0);
    hand::Key("ctrl+c");
    CHECK(QApplication::clipboard()->text().count('\n') == 2);
    CHECK(at.Reports.last() == "Copied 1 row");
}

TEST_CASE("the table is saved with every measure, and a save that fails says why")
{
    ShownMeasures       at;
    const QTemporaryDir folder;
    const auto          save = [&](const QString& path) {
        at.Press("saveMeasures");
        auto* const dialog = at.Window.findChild<QFileDialog*>();
        REQUIRE(dialog);
        REQUIRE(hand::Wait([&] { return dialog->isActiveWindow(); }));
        hand::Key("ctrl+a");
        hand::Type(path.toUtf8().constData());
        hand::Key("Return");
    };
    const QString path = folder.filePath(QStringLiteral("parts.csv"));
    save(path);
    CHECK(at.Reports.last() == "Saved parts.csv");
    QFile file(path);
    REQUIRE(file.open(QIODevice::ReadOnly));
    CHECK(file.readAll().toStdString() == at.Open().table("csv"));
    save(folder.filePath(QStringLiteral("parts.json")));
    CHECK(QFile::exists(folder.filePath(QStringLiteral("parts.json"))));
    save(folder.filePath(QStringLiteral("none/parts.csv")));
    CHECK(at.Reports.last().contains(folder.filePath(QStringLiteral("none/parts.csv"))));
}

TEST_CASE("very many objects are measured while the window goes on")
{
    ShownMeasures at;
    at.AddMany();
    const QString all = QStringLiteral("count %1").arg(Many + 2);
    QElapsedTimer time;
    qint64        longest = 0;
    time.start();
    while (!at.Statistics().contains(all) && time.elapsed() < 20000) {
        QElapsedTimer turn;
        turn.start();
        QApplication::processEvents();
        longest = std::max(longest, turn.elapsed());
    }
    CHECK(at.Statistics().contains(all));
    MESSAGE("all measured after ", time.elapsed(), " ms, longest turn ", longest, " ms");
}
