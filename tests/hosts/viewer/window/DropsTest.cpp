// Files come onto the window by a drop, from the menus of what was last, and in every format that leaves.

#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/window/Dialogs.h"

#include "documents/Saves.h"

#include <doctest/doctest.h>

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

using namespace vostel::viewer;

namespace {

bool IsThere(ShownWindow& at, std::size_t objects)
{
    return hand::Wait([&] {
        return !at.Window.Shown().IsReading() && at.Window.Shown().Model().HasImage() &&
               at.Open().object_list().size() == objects;
    });
}

QMenu& MenuNamed(MainWindow& window, const char* title)
{
    for (QMenu* const menu : window.findChildren<QMenu*>())
        if (menu->title() == QLatin1String(title))
            return *menu;
    throw std::runtime_error(title);
}

// Answers the dialog of files that a command brings.
void GivePath(ShownWindow& at, const char* command, const QString& path)
{
    hand::Settle();
    REQUIRE(at.Window.Commands().Of(command).isEnabled());
    hand::InDialog([&](QDialog& dialog) {
        auto& name = hand::Of<QLineEdit>(dialog, "fileNameEdit");
        name.setFocus();
        name.setText(path);
        hand::Key("Return");
    });
    at.Window.Commands().Of(command).trigger();
    hand::Settle();
}

}

TEST_CASE("a picture, regions and a session are dropped onto the window")
{
    const MadeFiles files;
    const QString   session = files.Path("coins.vostel.json"), regions = files.Path("coins.geojson");
    ShownWindow     at(QStringList{});
    CHECK(hand::Drop(at.View(), ShownWindow::Sample()));
    CHECK(IsThere(at, 0));
    CHECK(at.Window.Area().All().size() == 1);
    at.Open().add_rectangle(20, 20, 80, 80).set_name("coin");
    REQUIRE(at.Window.Shown().SaveSession(session).IsDone());
    at.Open().regions_export(regions.toStdString(), "geojson");

    CHECK(hand::Drop(at.View(), regions));    // added to what is shown, as one step
    CHECK(IsThere(at, 2));
    CHECK(at.Window.Area().All().size() == 1);
    hand::Key("ctrl+z");
    CHECK(IsThere(at, 1));

    CHECK(hand::Drop(at.View(), session));    // in a document of its own
    CHECK(hand::Wait([&] { return at.Window.Area().All().size() == 2; }));
    CHECK(IsThere(at, 1));
    CHECK(at.Open().object_list()[0].name() == "coin");
    CHECK(at.Window.Shown().SessionPath() == session);
}

TEST_CASE("what was opened and saved last stands in the menus and opens from there")
{
    const MadeFiles files;
    const QString   session = files.Path("a & b.vostel.json");
    ShownWindow     at;
    at.Open().add_rectangle(20, 20, 80, 80);
    GivePath(at, "file.saveAs", session);
    REQUIRE(QFileInfo::exists(session));
    at.Window.CloseDocument(0);
    QMenu& recent = MenuNamed(at.Window, "Recent sess&ions");
    Q_EMIT recent.aboutToShow();
    REQUIRE(!recent.actions().isEmpty());
    CHECK(recent.actions().front()->text() ==
          QString(session).replace(QLatin1Char('&'), QStringLiteral("&&")));
    recent.actions().front()->trigger();
    CHECK(IsThere(at, 1));
    CHECK(at.Window.Shown().SessionPath() == session);
    QMenu& pictures = MenuNamed(at.Window, "Open &recent");
    Q_EMIT pictures.aboutToShow();
    CHECK(pictures.actions().front()->text().endsWith(QStringLiteral("coins.png")));
    pictures.actions().back()->trigger();    // forget all
    Q_EMIT recent.aboutToShow();
    CHECK(recent.actions().size() == 2);    // a gap and what forgets
}

TEST_CASE("objects leave by the menu in every format that the save offers, and come back by Open")
{
    const MadeFiles files;
    ShownWindow     at;
    at.Open().add_rectangle(20, 20, 80, 80);
    at.Open().add_polygon({{100, 100}, {150, 110}, {120, 160}});
    for (const SaveFormat& format : Saves::Of("regions").Formats) {
        const QString ending = QString::fromLatin1(format.Ending).section(QLatin1Char(' '), 0, 0);
        const bool    one = ending == QStringLiteral("roi");    // holds a single object
        CAPTURE(ending.toStdString());
        const QString path = files.Path("r.") + ending;
        if (one)
            at.Open().object_list()[1].remove();
        GivePath(at, "regions", path);
        REQUIRE(hand::Wait([&] { return QFileInfo::exists(path); }));
        if (one)
            at.Open().undo();
        const std::size_t before = at.Open().object_list().size();
        GivePath(at, "file.open", path);
        CHECK(IsThere(at, before + (one ? 1 : 2)));
        CHECK(at.Window.Area().All().size() == 1);
        hand::Key("ctrl+z");
        CHECK(IsThere(at, before));
    }
    GivePath(at, "picture", files.Path("drawn.svg"));
    CHECK(BytesOf(files.Path("drawn.svg")).contains("<svg"));
    GivePath(at, "measures", files.Path("table.csv"));
    CHECK(BytesOf(files.Path("table.csv")).count('\n') == 3);
}
