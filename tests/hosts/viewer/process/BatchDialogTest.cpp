#include "process/BatchDialog.h"

#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/window/ShownWindow.h"

#include <doctest/doctest.h>

#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

using namespace vostel::viewer;

namespace {

struct ShownBatch : MadeFiles, ShownWindow {
    BatchDialog* Dialog;

    ShownBatch()
    {
        QDir(Folder()).mkdir(QStringLiteral("results"));
        hand::Key("ctrl+shift+b");
        hand::Wait([&] {
            return Window.findChild<BatchDialog*>() && Window.findChild<BatchDialog*>()->isVisible();
        });
        Dialog = Window.findChild<BatchDialog*>();
        REQUIRE(Dialog != nullptr);
    }

    void    Set(const char* field, const QString& text) { hand::Of<QLineEdit>(*Dialog, field).setText(text); }
    void    Press(const char* name) { hand::Click(hand::Of<QPushButton>(*Dialog, name)); }
    QString Told() { return hand::Of<QLabel>(*Dialog, "BatchTold").text(); }
    bool    WaitForEnd()
    {
        return hand::Wait([&] { return !Dialog->IsRunning(); }, 60000);
    }
};

const Routine& Mean()
{
    return AllRoutines()[1];
}

}

TEST_CASE("a batch is set up in its dialog, tells what failed and saves its table beside an old one")
{
    ShownBatch at;
    at.Deep("a1.png", 40, 30);
    at.Bytes("a2.png", "broken");
    at.Deep("a3.png", 40, 30);
    at.Bytes("table.csv", "mine");
    vostel::Canvas canvas(40, 30);
    canvas.image_open(at.Path("a1.png").toStdString());
    canvas.add_rectangle(0, 0, 10, 10);
    canvas.session_save(at.Path("one.vostel.json").toStdString());
    at.Set("BatchSource", at.Folder());
    at.Press("BatchStart");
    CHECK(hand::Wait([&] { return at.Told().contains(QStringLiteral("session")); }));
    at.Dialog->AddStep(Mean(), {3});
    at.Set("BatchTarget", at.Path("results"));
    at.Set("BatchSession", at.Path("one.vostel.json"));
    at.Set("BatchTable", at.Path("table.csv"));
    at.Press("BatchStart");
    REQUIRE(hand::Wait([&] { return at.Told().startsWith(QStringLiteral("2 of 3")); }, 60000));
    auto& failures = hand::Of<QListWidget>(*at.Dialog, "BatchFailures");
    REQUIRE(failures.count() == 1);
    CHECK(failures.item(0)->text().contains(QStringLiteral("a2.png")));
    CHECK(QDir(at.Path("results")).entryList(QDir::Files) == QStringList{"a1.tif", "a3.tif"});
    CHECK(BytesOf(at.Path("table.csv")) == "mine");
    CHECK(BytesOf(at.Path("table-2.csv")).contains("a3.png,"));
    hand::Settle();
    hand::Keep(*at.Dialog, "batch");
    CHECK(at.Window.Area().All().size() == 1);
}

TEST_CASE("a batch pauses, goes on and stops while the window is free")
{
    ShownBatch at;
    for (int i = 0; i < 3; ++i)
        at.Deep(QByteArray("p" + QByteArray::number(i) + ".png").constData(), 1500, 1200);
    at.Dialog->AddStep(Mean(), {63});
    at.Set("BatchSource", at.Folder());
    at.Set("BatchTarget", at.Path("results"));
    at.Press("BatchStart");
    REQUIRE(hand::Wait([&] { return at.Dialog->IsRunning(); }));
    at.Press("BatchPause");
    REQUIRE(hand::Wait([&] { return at.Told().contains(QStringLiteral("paused")); }));
    CHECK(at.Window.isEnabled());
    at.Press("BatchPause");
    CHECK(hand::Wait([&] { return !at.Told().contains(QStringLiteral("paused")); }));
    at.Press("BatchPause");
    at.Press("BatchStop");    // stops what is paused, too
    REQUIRE(at.WaitForEnd());
    CHECK(at.Told().contains(QStringLiteral("Stopped")));
    CHECK(QDir(at.Path("results")).entryList({"p2.tif"}).isEmpty());
    CHECK(at.Dialog->isVisible());
}
