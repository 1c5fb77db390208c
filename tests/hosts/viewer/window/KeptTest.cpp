// What the person chose is there again at the next start.

#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/window/ShownWindow.h"

#include "canvas/Ruler.h"
#include "window/DockSet.h"

#include <doctest/doctest.h>

#include <QCheckBox>
#include <QDialog>
#include <QDockWidget>

using namespace vostel::viewer;

namespace {

bool HasRulers(const MainWindow& window)
{
    const QList<Ruler*> rulers = window.findChildren<Ruler*>();
    return !rulers.isEmpty() &&
           std::all_of(rulers.begin(), rulers.end(), [](const Ruler* ruler) { return ruler->isVisible(); });
}

}

TEST_CASE("grid, scale bar, rulers, linked views and snapping hold for all documents and the next start")
{
    ShownWindow at;
    for (const char* const key : {"ctrl+g", "ctrl+b", "ctrl+r", "ctrl+l"})
        hand::Key(key);
    at.Window.Commands().Of("draw.snapCentres").trigger();
    hand::Settle();
    CHECK(HasRulers(at.Window));
    at.OpenAll({ShownWindow::Sample()});    // a document that comes later
    CHECK(at.View().HasGrid());
    CHECK(at.View().HasScaleBar());
    CHECK(at.View().Snapped() == Snap::PixelCentres);
    hand::Key("ctrl+b");
    for (CanvasPane* const pane : at.Window.Area().All())
        CHECK_FALSE(pane->View().HasScaleBar());
    at.Window.close();

    MainWindow again;
    hand::Show(again, QRect(20, 20, 1000, 700));
    CHECK(HasRulers(again));
    CHECK(again.View().HasGrid());
    CHECK_FALSE(again.View().HasScaleBar());
    CHECK(again.Area().IsLinked());
    CHECK(again.View().Snapped() == Snap::PixelCentres);
    for (const char* const on : {"view.grid", "view.rulers", "window.link", "draw.snapCentres"})
        CHECK(again.Commands().Of(on).isChecked());
    CHECK_FALSE(again.Commands().Of("view.scaleBar").isChecked());
    again.close();
}

TEST_CASE("the window comes back where it was, with its panels as they were")
{
    ShownWindow at;
    at.Window.setGeometry(60, 50, 900, 640);
    at.Window.Docks().Of("Overview").setFloating(true);
    at.Window.Docks().Of("Measures").hide();
    hand::Settle();
    at.Window.close();
    MainWindow again;
    again.show();
    REQUIRE(hand::Wait([&] { return again.isVisible(); }));
    hand::Settle();
    CHECK(again.geometry() == QRect(60, 50, 900, 640));
    CHECK(again.Docks().Of("Overview").isFloating());
    CHECK_FALSE(again.Docks().Of("Measures").isVisible());
    CHECK(again.Docks().Of("Histogram").isVisible());
    again.close();
}

TEST_CASE("settings that no viewer has written are taken as none")
{
    ShownWindow at(QStringList{});
    QSettings().setValue(QStringLiteral("Draw/Snap"), 77);
    QSettings().setValue(QStringLiteral("View/Grid"), QStringLiteral("blue"));
    QSettings().setValue(QStringLiteral("Window/Geometry"), QByteArray("no geometry"));
    QSettings().setValue(QStringLiteral("Window/Bars"), QByteArray("no bars"));
    MainWindow again;
    hand::Show(again, QRect(20, 20, 1000, 700));
    CHECK(int(again.View().Snapped()) <= int(Snap::PixelEdges));
    CHECK(again.Docks().Of("Histogram").isVisible());
    again.close();
}

TEST_CASE("the scale of a folder is there at the next start, for its other pictures too")
{
    const MadeFiles files;
    const QString   first = files.Deep("first.png", 60, 40), second = files.Deep("second.png", 60, 40);
    {
        ShownWindow at({first});
        hand::InDialog([](QDialog& dialog) {
            CHECK(dialog.objectName() == "Calibration");
            hand::Key("ctrl+a");
            hand::Type("0.25");
            hand::Key("Tab");
            hand::Key("ctrl+a");
            hand::Type("mm");
            QCheckBox& forFolder = hand::Of<QCheckBox>(dialog, "CalibrationForFolder");
            hand::Click(forFolder, QPoint(8, forFolder.height() / 2));
            CHECK(forFolder.isChecked());
            hand::Key("Return");
        });
        hand::Key("ctrl+u");
        CHECK(at.Open().scale() == std::pair(0.25, std::string("mm")));
    }
    MainWindow again;
    hand::Show(again, QRect(20, 20, 1000, 700));
    again.OpenFiles({second});
    CHECK(hand::Wait([&] { return again.Shown().Model().HasImage() && !again.Shown().IsReading(); }));
    hand::Settle();
    CHECK(hand::Of<QLabel>(again, "Scale").text().toStdString() == "1 px = 0.25 mm");
    again.close();
}
