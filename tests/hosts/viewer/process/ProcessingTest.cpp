#include "hosts/viewer/window/ShownWindow.h"

#include "window/Processing.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QPixmap>

using namespace vostel::viewer;

namespace {

struct ShownRuns : ShownWindow {
    using ShownWindow::ShownWindow;

    void Choose(const char* command) { Window.Commands().Of(command).trigger(); }
    bool WaitForEnd()
    {
        const bool ended = hand::Wait([&] { return !Window.Runs().IsRunning(); }, 60000);
        hand::Settle();
        return ended;
    }

    // What to do with the dialog of a routine, once its preview is there.
    static void InDialog(const std::function<void(QDialog&)>& act)
    {
        hand::InDialog([act](QDialog& dialog) {
            REQUIRE(dialog.objectName() == "Routine");
            hand::Wait([&] {
                auto* const preview = dialog.findChild<QLabel*>(QStringLiteral("RoutinePreview"));
                return !preview || !preview->pixmap(Qt::ReturnByValue).isNull();
            });
            act(dialog);
        });
    }
};

}

TEST_CASE("a result comes as a document of its own with the objects, and the source stays")
{
    ShownRuns at;
    at.Open().add_rectangle(20, 20, 80, 80).set_name("coin");
    at.Open().set_scale(0.25, "mm");
    const auto before = at.Open().image_copy<float>().values;
    ShownRuns::InDialog([](QDialog& dialog) {
        hand::Keep(dialog, "routine");
        hand::Key("Return");
    });
    at.Choose("process.gaussian");
    REQUIRE(at.WaitForEnd());
    REQUIRE(at.Window.Area().All().size() == 2);
    CHECK(at.Window.Shown().Title() == "coins.png, Smooth (Gaussian)");
    const auto         result = at.Open().image_copy<float>();
    std::vector<float> wanted(before.size());
    vostel::gaussian(vostel::Plane<const float>(before.data(), result.width, result.height), 11, 1.5,
                     vostel::Plane<float>(wanted.data(), result.width, result.height));
    CHECK(result.values == wanted);
    REQUIRE(at.Open().object_list().size() == 1);
    CHECK(at.Open().object_list()[0].name() == "coin");
    CHECK(at.Open().scale().second == "mm");
    CHECK(at.Window.Shown().IsModified());
    at.Window.Area().SetCurrent(0);
    CHECK(at.Open().image_copy<float>().values == before);
    CHECK(at.Open().object_list().size() == 1);
    hand::Keep(at.Window, "process-result");
}

TEST_CASE("a result of another size comes without objects, a mask as bytes")
{
    ShownRuns at;
    at.Open().add_rectangle(20, 20, 80, 80);
    ShownRuns::InDialog([](QDialog&) { hand::Key("Return"); });
    at.Choose("process.resize");
    REQUIRE(at.WaitForEnd());
    CHECK(at.Open().object_list().empty());
    CHECK(at.Open().image_info()->width == 192);
    at.Window.Area().SetCurrent(0);
    at.Choose("process.otsu");
    REQUIRE(at.WaitForEnd());
    CHECK(at.Open().image_info()->type == VOSTEL_U8);
    CHECK(at.Open().image_info()->max == 255.0);
    CHECK(at.Open().object_list().size() == 1);
}

TEST_CASE("the preview follows the values, and what was chosen is there the next time")
{
    ShownRuns at;
    ShownRuns::InDialog([](QDialog& dialog) {
        auto&        preview = *dialog.findChild<QLabel*>(QStringLiteral("RoutinePreview"));
        const QImage first = preview.pixmap(Qt::ReturnByValue).toImage();
        dialog.findChild<QDoubleSpinBox*>(QStringLiteral("low"))->setValue(60.0);
        CHECK(hand::Wait([&] { return preview.pixmap(Qt::ReturnByValue).toImage() != first; }));
        hand::Key("Return");
    });
    at.Choose("process.range");
    REQUIRE(at.WaitForEnd());
    at.Window.Area().SetCurrent(0);
    ShownRuns::InDialog([](QDialog& dialog) {
        CHECK(dialog.findChild<QDoubleSpinBox*>(QStringLiteral("low"))->value() == 60.0);
        hand::Key("Escape");
    });
    at.Choose("process.range");
    CHECK_FALSE(at.Window.Runs().IsRunning());
    CHECK(at.Window.Area().All().size() == 2);
}

TEST_CASE("Esc stops a long run soon and tells so, while the window goes on")
{
    ShownRuns                at;
    const std::vector<float> large(3000 * 2000, 7.0f);
    at.Open().image_show(VOSTEL_F32, large.data(), 3000, 2000);
    QSettings().setValue(QStringLiteral("Process/process.mean/side"), 63);
    ShownRuns::InDialog([](QDialog&) { hand::Key("Return"); });
    at.Choose("process.mean");
    REQUIRE(at.Window.Runs().IsRunning());
    CHECK_FALSE(at.Window.Commands().Of("process.otsu").isEnabled());
    CHECK(hand::Wait([&] { return at.Label("Hint").contains(QLatin1Char('%')); }));
    hand::Key("Escape");
    CHECK(hand::Wait([&] { return !at.Window.Runs().IsRunning(); }));
    CHECK(at.Label("Hint").contains(QStringLiteral("stopped")));
    CHECK(at.Window.Area().All().size() == 1);
    hand::Settle();
    CHECK(at.Window.Commands().Of("process.otsu").isEnabled());
    CHECK_FALSE(at.Window.Commands().Of("process.stop").isEnabled());
}

TEST_CASE("a window that closes while a routine runs goes at once")
{
    const std::vector<float> large(3000 * 2000, 7.0f);
    QElapsedTimer            time;
    {
        ShownRuns at;
        at.Open().image_show(VOSTEL_F32, large.data(), 3000, 2000);
        QSettings().setValue(QStringLiteral("Process/process.mean/side"), 63);
        ShownRuns::InDialog([](QDialog&) { hand::Key("Return"); });
        at.Choose("process.mean");
        REQUIRE(at.Window.Runs().IsRunning());
        time.start();
    }
    CHECK(time.elapsed() < 5000);
}

TEST_CASE("two documents are joined side by side, and those of different heights are refused")
{
    ShownRuns at;
    const int width = 384, height = 303, overlap = 20;
    at.OpenAll({ShownRuns::Sample()});
    hand::InDialog([&](QDialog& dialog) {
        hand::Type("20");
        hand::Key("Return");
        hand::Wait([&] { return !dialog.isVisible(); });
    });
    at.Choose("process.join");
    REQUIRE(at.Window.Area().All().size() == 3);
    const vostel::ImageOf<float> joined = at.Open().image_copy<float>();
    CHECK(joined.width == 2 * width - overlap);
    CHECK(joined.height == height);
    const vostel::ImageOf<float> left = at.Window.Area().All()[0]->View().Open().image_copy<float>();
    for (const int x : {0, width - overlap - 1})
        CHECK(joined.values[std::size_t(100 * joined.width + x)] ==
              left.values[std::size_t(100 * width + x)]);
    CHECK(at.Window.Shown().Title() == "coins.png and coins.png");

    const std::vector<float> values(12);
    at.Open().image_show(VOSTEL_F32, values.data(), 4, 3);
    hand::InDialog([](QDialog& box) {
        CHECK(box.objectName() == "Failure");
        hand::Key("Return");
    });
    at.Choose("process.join");
    CHECK(at.Window.Area().All().size() == 3);
}

TEST_CASE("the image of regions wants a region")
{
    ShownRuns at;
    hand::InDialog([](QDialog& box) {
        CHECK(box.objectName() == "Failure");
        hand::Key("Return");
    });
    at.Choose("process.labels");
    CHECK(hand::Wait([] { return QApplication::activeModalWidget() == nullptr; }));
    CHECK(at.Window.Area().All().size() == 1);
    at.Open().add_rectangle(10, 10, 20, 20);
    at.Choose("process.labels");
    CHECK(at.Window.Area().All().size() == 2);
    CHECK(at.Open().image_info()->max == 1.0);
}
