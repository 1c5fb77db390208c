// Stacks of every kind at the window: the slider, its number and the keys turn pages, objects and contrast
// stay.

#include "hosts/viewer/documents/MadeFiles.h"
#include "hosts/viewer/window/Dialogs.h"

#include "documents/Document.h"
#include "documents/RawVolume.h"
#include "documents/Stack.h"

#include <doctest/doctest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSlider>
#include <QSpinBox>

using namespace vostel::viewer;

namespace {

struct ShownStack : ShownWindow {
    QSlider&  Slider = hand::Of<QSlider>(Window, "Pages");
    QSpinBox& Number = hand::Of<QSpinBox>(Window, "PageNumber");

    explicit ShownStack(const QString& path) : ShownWindow(path.isEmpty() ? QStringList() : QStringList{path})
    {
    }

    int  Page() { return Window.Shown().Pages().Index(); }
    int  Count() { return Window.Shown().Pages().Count(); }
    bool ComesTo(int page)
    {
        return hand::Wait([&] { return Page() == page && Slider.value() == page; });
    }
    double Value(double x, double y) { return Open().image_value(x, y).value_or(-1.0); }
};

// A slice of 16 bits of 30 x 20 px after the other; every value of slice i is 257 (i + 1).
QString Volume(const MadeFiles& files)
{
    QByteArray bytes;
    for (char slice = 1; slice <= 4; ++slice)
        bytes += QByteArray(2 * 30 * 20, slice);
    RawVolume volume;
    volume.Layout.type = VOSTEL_U16;
    volume.Layout.width = 30;
    volume.Layout.height = 20;
    volume.Slices = 4;
    QJsonObject layout = QJsonObject::fromVariantMap(ToMap(volume));
    layout.insert(QStringLiteral("Format"), QStringLiteral("vostel-raw"));
    files.Bytes("volume.raw.json", QJsonDocument(layout).toJson());
    return files.Bytes("volume.raw", bytes);
}

// Through all the ways of turning pages; ends at the first one.
void TurnPages(ShownStack& at, int count)
{
    REQUIRE(at.Count() == count);
    REQUIRE(at.Slider.isVisible());
    hand::Key("ctrl+Prior");
    REQUIRE(at.ComesTo(0));
    at.Open().add_rectangle(2, 2, 9, 9);
    hand::Key("Next");
    CHECK(at.ComesTo(1));
    CHECK(at.Number.value() == 2);
    hand::Key("ctrl+Next");
    CHECK(at.ComesTo(count - 1));
    hand::Key("Next");    // no further
    CHECK(at.ComesTo(count - 1));
    hand::Key("Prior");
    CHECK(at.ComesTo(count - 2));
    hand::Drag(at.Slider, at.Slider.rect().center(), QPoint(1, at.Slider.height() / 2));
    hand::Click(at.Slider, QPoint(at.Slider.width() - 3, at.Slider.height() / 2));    // a step of the bar
    CHECK(hand::Wait([&] { return at.Page() == at.Slider.value() && at.Page() > 0; }));
    at.Number.setFocus();
    at.Number.selectAll();
    hand::Type("1");
    hand::Key("Return");
    CHECK(at.ComesTo(0));
    CHECK(at.Open().object_list().size() == 1);
    CHECK(at.Open().object_list()[0].points()[0].x == 2.0);
}

}

TEST_CASE("pages of a folder are turned by slider, number and keys, and objects stay")
{
    const MadeFiles files;
    for (int i = 1; i <= 5; ++i)
        files.Deep(("cell" + std::to_string(i) + ".png").c_str(), 30, 20, 1000 * i);
    ShownStack at(files.Folder());
    TurnPages(at, 5);
    CHECK(at.Value(0.5, 0.5) == 1000.0);
    CHECK(at.Window.windowTitle().contains(QStringLiteral("cell1.png")));
    hand::Keep(at.Window, "stack");
}

TEST_CASE("pages of a numbered series are turned by slider, number and keys, and objects stay")
{
    const MadeFiles files;
    for (int i = 8; i <= 11; ++i)
        files.Deep(("scan" + std::to_string(i) + ".png").c_str(), 30, 20, 100 * i);
    ShownWindow at({files.Path("scan8.png")});
    CHECK_FALSE(hand::Of<QSlider>(at.Window, "Pages").isVisible());    // one picture
    at.Window.CloseDocument(0);
    hand::Settle();
    ShownStack series(QString{});
    series.Window.OpenAs(files.Path("scan10.png"), &Document::OpenSeries);
    hand::Settle();
    series.View().setFocus();
    CHECK(series.Page() == 2);
    TurnPages(series, 4);
    CHECK(series.Value(0.5, 0.5) == 800.0);
}

TEST_CASE("slices of a raw volume are turned by slider, number and keys, and objects stay")
{
    const MadeFiles files;
    ShownStack      at(Volume(files));
    TurnPages(at, 4);
    CHECK(at.Value(5.5, 5.5) == 257.0);
}

TEST_CASE("frames of a GIF are turned by slider, number and keys, and objects stay")
{
    ShownStack at(QStringLiteral(VOSTEL_SAMPLES "/../tests/hostile/gif-of-2000-frames-that-restore.gif"));
    TurnPages(at, 2000);
}

TEST_CASE("the contrast stays from page to page, or each page gets its own, as the menu says")
{
    const MadeFiles files;
    for (int i = 1; i <= 3; ++i)
        files.Deep(("cell" + std::to_string(i) + ".png").c_str(), 30, 20, 1000 * i);
    ShownStack at(files.Folder());
    QAction&   keep = at.Window.Commands().Of("image.keepContrast");
    REQUIRE(keep.isChecked());
    at.Open().contrast_set(1100.0, 1300.0);
    hand::Key("Next");
    REQUIRE(at.ComesTo(1));
    CHECK(at.Open().contrast_info().low == 1100.0);
    keep.trigger();
    hand::Key("Next");
    REQUIRE(at.ComesTo(2));
    CHECK(at.Open().contrast_info().low >= 2900.0);
    CHECK(at.Open().contrast_info().high > 3000.0);
}
