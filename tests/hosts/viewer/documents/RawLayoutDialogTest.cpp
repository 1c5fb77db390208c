#include "documents/RawLayoutDialog.h"

#include "documents/Document.h"
#include "hosts/viewer/Hand.h"
#include "hosts/viewer/documents/MadeFiles.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QTimer>

#include <functional>

using namespace vostel::viewer;

namespace {

// What the person does in the dialog that comes up.
void InDialog(const std::function<void(QWidget&)>& act)
{
    QTimer::singleShot(0, [act] {
        REQUIRE(hand::Wait([] { return QApplication::activeModalWidget() != nullptr; }));
        QWidget& dialog = *QApplication::activeModalWidget();
        hand::Settle();
        act(dialog);
    });
}

QByteArray Shorts(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        bytes.append(static_cast<char>(i & 0xFF));
        bytes.append(static_cast<char>(i >> 8));
    }
    return bytes;
}

}

TEST_CASE("raw data of a common size open with Enter alone, with their values")
{
    const MadeFiles files;
    Document        document;
    InDialog([](QWidget& dialog) {
        CHECK(hand::Of<QSpinBox>(dialog, "RawWidth").value() == 128);
        CHECK(hand::Of<QLabel>(dialog, "RawVerdict").text() == QStringLiteral("Fits the file exactly."));
        hand::Keep(dialog, "raw-layout");
        hand::Key("Return");
    });
    REQUIRE(document.Open(files.Bytes("square.raw", Shorts(128 * 128))).IsDone());
    CHECK(document.Model().Open().image_value(5.5, 1.5) == 133.0);
    CHECK(document.Title() == QStringLiteral("square.raw"));
}

TEST_CASE("a cancelled layout leaves everything and is no failure")
{
    const MadeFiles files;
    Document        document;
    REQUIRE(document.Open(QStringLiteral(VOSTEL_SAMPLES "/coins.png")).IsDone());
    InDialog([](QWidget&) { hand::Key("Escape"); });
    CHECK(document.Open(files.Bytes("some.raw", Shorts(100))).Result == Outcome::Kind::Cancelled);
    CHECK(document.Title() == QStringLiteral("coins.png"));
}

TEST_CASE("big-endian data come with their values, and the next file of the folder starts with that layout")
{
    const MadeFiles  files;
    const QByteArray header(10, '\0');
    QByteArray       swapped;
    for (int i = 0; i < 12 * 10; ++i) {
        swapped.append('\x01');
        swapped.append(static_cast<char>(i));
    }
    Document document;
    InDialog([](QWidget& dialog) {
        hand::Of<QSpinBox>(dialog, "RawWidth").setValue(12);
        hand::Of<QSpinBox>(dialog, "RawHeight").setValue(10);
        hand::Of<QSpinBox>(dialog, "RawOffset").setValue(10);
        hand::Key("alt+b");
        CHECK(hand::Wait([&] { return hand::Of<QCheckBox>(dialog, "RawBigEndian").isChecked(); }));
        hand::Key("Return");
    });
    REQUIRE(document.Open(files.Bytes("first.raw", header + swapped)).IsDone());
    CHECK(document.Model().Open().image_value(1.5, 0.5) == 257.0);
    InDialog([](QWidget& dialog) {
        CHECK(hand::Of<QSpinBox>(dialog, "RawOffset").value() == 10);
        hand::Key("Return");
    });
    REQUIRE(document.Open(files.Bytes("second.raw", header + swapped)).IsDone());
    CHECK(document.Model().Open().image_value(1.5, 0.5) == 257.0);
}

TEST_CASE("a file that holds several slices is a stack of them")
{
    const MadeFiles files;
    QByteArray      volume;
    for (int slice = 0; slice < 5; ++slice)
        volume.append(QByteArray(30 * 20, static_cast<char>(10 * slice)));
    Document document;
    InDialog([](QWidget& dialog) {
        auto& type = hand::Of<QComboBox>(dialog, "RawType");
        type.setCurrentIndex(type.findData(VOSTEL_U8));
        hand::Of<QSpinBox>(dialog, "RawWidth").setValue(30);
        hand::Of<QSpinBox>(dialog, "RawHeight").setValue(20);
        CHECK(hand::Of<QSpinBox>(dialog, "RawSlices").value() == 5);
        hand::Key("Return");
    });
    REQUIRE(document.Open(files.Bytes("volume.vol", volume)).IsDone());
    CHECK(document.Pages().Count() == 5);
    document.Pages().Go(3);
    CHECK(document.Model().Open().image_value(2.5, 2.5) == 30.0);
}

TEST_CASE("a layout that is longer than the file cannot be taken")
{
    const MadeFiles files;
    const QString   path = files.Bytes("short.raw", Shorts(50));
    RawLayoutDialog dialog(path);
    hand::Show(dialog, QRect(60, 60, dialog.sizeHint().width(), dialog.sizeHint().height()));
    hand::Of<QSpinBox>(dialog, "RawWidth").setValue(11);
    hand::Of<QSpinBox>(dialog, "RawHeight").setValue(5);
    CHECK(hand::Of<QLabel>(dialog, "RawVerdict").text().contains(QStringLiteral("10 bytes too short")));
    hand::Key("Return");
    CHECK(dialog.isVisible());
}
