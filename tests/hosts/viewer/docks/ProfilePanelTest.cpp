#include "docks/ProfilePanel.h"

#include "hosts/viewer/docks/ShownPanel.h"
#include "plots/CurvePlot.h"

#include <doctest/doctest.h>

#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QSpinBox>
#include <QTemporaryDir>

using namespace vostel::viewer;

namespace {

struct ShownProfile : ShownPanel<ProfilePanel> {
    CurvePlot&     Plot = Of<CurvePlot>("profile");
    vostel::Object Line = Open().add_length({10.5, 20.5}, {90.5, 20.5});

    ShownProfile() : ShownPanel(QSize(460, 300))
    {
        Open().select({Line});
        hand::Settle();
    }
    QString    Text(const char* name) { return Of<QLabel>(name).text(); }
    QByteArray Saved(const QString& path)
    {
        Press("saveProfile");
        auto* const dialog = Window.findChild<QFileDialog*>();
        REQUIRE(dialog);
        REQUIRE(hand::Wait([&] { return dialog->isActiveWindow(); }));
        hand::Key("ctrl+a");
        hand::Type(path.toUtf8().constData());
        hand::Key("Return");
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

}

TEST_CASE("the curve of the selected line is drawn and follows it")
{
    ShownProfile at;
    REQUIRE(at.Plot.Values().size() == 81);
    CHECK(at.Plot.Values()[3] == 13.0);
    CHECK(at.Text("profileSource").contains("minimum 10, maximum 90, mean 50"));
    at.Line.set_points({{10.5, 20.5}, {110.5, 20.5}});
    hand::Settle();
    CHECK(at.Plot.Values().size() == 101);
    at.Keep("profile");
    at.Open().select({});
    hand::Settle();
    CHECK(at.Plot.Values().empty());
    CHECK(at.Text("profileSource") == "Select a line, a profile or a length.");
}

TEST_CASE("the cursor reads length, value and place, in units of the scale")
{
    ShownProfile           at;
    std::optional<QPointF> pointed;
    QObject::connect(&at.Window, &ProfilePanel::pointed,
                     [&](std::optional<QPointF> place) { pointed = place; });
    at.Open().set_scale(0.5, "mm");
    hand::Settle();
    hand::Move(at.Plot, at.Plot.PlaceOf(40));
    CHECK(at.Text("profilePointed") == "20 mm: value 50 at x 50.5, y 20.5");
    REQUIRE(pointed);
    CHECK(pointed->x() == 50.5);
    hand::Move(at.Of<QLabel>("profileSource"), {3, 3});
    CHECK_FALSE(pointed);
}

TEST_CASE("a wider line averages")
{
    ShownProfile       at;
    std::vector<float> rows(200 * 150);
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = i / 200 == 20 ? 90.0F : 0.0F;
    at.Open().image_show(VOSTEL_F32, rows.data(), 200, 150, 0, VOSTEL_KEEP_OBJECTS);
    at.Open().select({at.Line});
    hand::Settle();
    CHECK(at.Plot.Values()[5] == 90.0);
    auto& width = at.Of<QSpinBox>("profileWidth");
    hand::Click(width, QPoint(20, width.height() / 2));
    hand::Key("Up");
    hand::Key("Up");
    CHECK(at.Plot.Values()[5] == doctest::Approx(30.0));
}

TEST_CASE("a profile is saved as table and as drawing")
{
    ShownProfile        at;
    QString             report;
    const QTemporaryDir folder;
    QObject::connect(&at.Window, &CanvasPanel::reported,
                     [&](const Outcome& outcome) { report = outcome.Text; });
    at.Open().set_scale(0.25, "mm");
    hand::Settle();
    const QByteArray table = at.Saved(folder.filePath(QStringLiteral("edge.csv")));
    CHECK(table.startsWith("length (mm),x (px),y (px),value\r\n0,10.5,20.5,10\r\n0.25,11.5,20.5,11\r\n"));
    CHECK(table.count('\n') == 82);
    CHECK(report == "Saved edge.csv");
    const QByteArray drawing = at.Saved(folder.filePath(QStringLiteral("edge.svg")));
    CHECK(drawing.contains("<svg"));
    CHECK(drawing.contains("Length (mm)"));
    CHECK(drawing.contains(">Value</text>"));
    CHECK(drawing.count('L') >= 80);
}
