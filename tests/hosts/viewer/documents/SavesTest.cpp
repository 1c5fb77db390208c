#include "documents/Saves.h"

#include "documents/Document.h"
#include "hosts/viewer/Hand.h"
#include "hosts/viewer/documents/MadeFiles.h"
#include "saves/SmallDisk.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTimer>

#include <sys/mount.h>

#include <cstring>
#include <numeric>

using namespace vostel::viewer;

namespace {

constexpr int Width = 37, Height = 23;

// Samples of every value that the bytes can have, without those of float that are not a number.
std::vector<unsigned char> Samples(VostelPixel type, int pixelBytes)
{
    std::vector<unsigned char> bytes(static_cast<std::size_t>(Width * Height * pixelBytes));
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(1));
    if (type == VOSTEL_F32)
        for (int i = 0; i < Width * Height; ++i) {
            const float value = static_cast<float>(i - 300) * 1234.567F;
            std::memcpy(bytes.data() + 4 * i, &value, 4);
        }
    return bytes;
}

QString FilterFor(const SaveKind& kind, const char* ending)
{
    for (const QString& filter : Saves::Filters(kind))
        if (filter.contains(QStringLiteral("*.%1").arg(QLatin1String(ending))))
            return filter;
    throw std::runtime_error(ending);
}

Outcome Save(const char* kind, Document& document, const QString& path)
{
    return Saves::Run(Saves::Of(kind), document, path, QString());
}

// The bytes of the samples, row after row.
QByteArray PlaneBytes(const Document& document)
{
    const VostelPlane plane = document.Model().Open().image_plane();
    QByteArray        bytes;
    for (int y = 0; y < plane.height; ++y)
        bytes.append(static_cast<const char*>(plane.data) + y * plane.row_bytes,
                     plane.width * BytesOfPixel(plane.type));
    return bytes;
}

struct ShownCoins : Document {
    ShownCoins()
    {
        REQUIRE(Open(QStringLiteral(VOSTEL_SAMPLES "/coins.png")).IsDone());
        Model().Open().add_rectangle(10, 20, 30, 50).set_name("first");
        Model().Open().add_ellipse(60, 20, 90, 60);
        Model().Open().add_length({5, 5}, {45, 35});
    }
};

}

TEST_CASE("data of every type come back from TIFF and raw files as they were")
{
    const MadeFiles files;
    for (const char* const ending : {"tif", "raw"})
        for (const VostelPixel type :
             {VOSTEL_U8, VOSTEL_U16, VOSTEL_I16, VOSTEL_F32, VOSTEL_RGB8, VOSTEL_BGR8, VOSTEL_BGRA8}) {
            Document   shown;
            const auto samples = Samples(type, BytesOfPixel(type));
            shown.Model().Open().image_show(type, samples.data(), Width, Height);
            shown.Model().Open().contrast_set(3.0, 4.0);    // what is shown does not matter
            const QString path =
                files.Path(qPrintable(QStringLiteral("data%1.%2").arg(type).arg(QLatin1String(ending))));
            const Outcome saved = Save("data", shown, path);
            CHECK(saved.Text == QStringLiteral("Saved ") + QFileInfo(path).fileName());
            Document      again;
            const Outcome opened = again.Open(path);
            REQUIRE_MESSAGE(opened.IsDone(), opened.Text.toStdString());
            const auto info = *again.Model().Open().image_info();
            INFO("type " << type << " in " << ending << " comes as " << info.type);
            const bool swaps = type == VOSTEL_RGB8 || type == VOSTEL_BGR8;    // red may be first or last
            CHECK((swaps || info.type == type));
            if (info.type == type)
                CHECK(PlaneBytes(again) == PlaneBytes(shown));
            else
                for (int channel = 1; channel <= 3; ++channel)
                    CHECK(again.Model().Open().image_value(7, 3, channel) ==
                          shown.Model().Open().image_value(7, 3, channel));
        }
}

TEST_CASE("a calibrated picture has its resolution in the TIFF")
{
    const MadeFiles files;
    ShownCoins      shown;
    shown.Model().Open().set_scale(0.05, "mm");
    REQUIRE(Save("data", shown, files.Path("a.tif")).IsDone());
    const QByteArray tiff = BytesOf(files.Path("a.tif"));
    const QByteArray resolution("\x40\x0D\x03\0\xE8\x03\0\0", 8);    // 200000 / 1000 px in a centimetre
    CHECK(tiff.contains(resolution));
}

TEST_CASE("a picture with objects has the picture's own size, or that of the scale")
{
    const MadeFiles files;
    ShownCoins      shown;
    const QSize     size = QImage(shown.PicturePath()).size();
    shown.Model().Open().view_zoom(0.2, {0, 0});
    for (const char* const ending : {"png", "jpg", "tif", "bmp", "svg", "pdf"}) {
        const QString path = files.Path("picture.") + QLatin1String(ending);
        const Outcome saved = Save("picture", shown, path);
        CHECK_MESSAGE(saved.IsDone(), saved.Text.toStdString());
        CHECK(QFileInfo(path).size() > 100);
    }
    CHECK(QImage(files.Path("picture.png")).size() == size);
    const SaveKind& picture = Saves::Of("picture");
    REQUIRE(Saves::Run(picture, shown, files.Path("double.png"), {}, 2.0).IsDone());
    CHECK(QImage(files.Path("double.png")).size() == size * 2);
    REQUIRE(Save("shown", shown, files.Path("plain.png")).IsDone());
    CHECK(QImage(files.Path("plain.png")) != QImage(files.Path("picture.png")));
    CHECK(QImage(files.Path("plain.png")).pixelColor(20, 30) ==
          QImage(shown.PicturePath()).pixelColor(20, 30));
}

TEST_CASE("labels and masks have the top row first, lie over the picture and can be opened")
{
    const MadeFiles files;
    ShownCoins      shown;
    REQUIRE(Save("labels", shown, files.Path("l.png")).IsDone());
    REQUIRE(Save("mask", shown, files.Path("m.png")).IsDone());
    REQUIRE(Save("mask", shown, files.Path("m.tif")).IsDone());
    Document again;
    REQUIRE(again.Open(files.Path("l.png")).IsDone());
    CHECK(again.Model().Open().image_value(20, 25) == 1.0);
    CHECK(again.Model().Open().image_value(75, 40) == 2.0);
    CHECK(again.Model().Open().image_value(20, 60) == 0.0);
    for (const char* const name : {"m.png", "m.tif"}) {
        REQUIRE(again.Open(files.Path(name)).IsDone());
        CHECK(again.Model().Open().image_value(20, 25) == 255.0);
        CHECK(again.Model().Open().image_value(75, 40) == 255.0);
        CHECK(again.Model().Open().image_value(20, 60) == 0.0);
    }
    shown.Model().Open().select({shown.Model().Open().object_list().front()});
    REQUIRE(Save("mask", shown, files.Path("m.png")).IsDone());
    REQUIRE(again.Open(files.Path("m.png")).IsDone());
    CHECK(again.Model().Open().image_value(75, 40) == 0.0);
}

TEST_CASE("regions leave in every format and are what the viewer opens")
{
    const MadeFiles files;
    ShownCoins      shown;
    const SaveKind& regions = Saves::Of("regions");
    for (const char* const ending : {"json", "geojson", "coco.json", "zip", "csv"}) {
        const QString path = files.Path("r.") + QLatin1String(ending);
        const Outcome saved = Saves::Run(regions, shown, path, FilterFor(regions, ending));
        CHECK_MESSAGE(saved.IsDone(), saved.Text.toStdString());
        Document again;
        REQUIRE(again.Open(shown.PicturePath()).IsDone());
        const Outcome opened = again.Open(path);
        CHECK_MESSAGE(opened.IsDone(), opened.Text.toStdString());
        CHECK(again.Model().Open().object_list().size() >= 2);
    }
    CHECK(Saves::Run(regions, shown, files.Path("coco.json"), FilterFor(regions, "coco.json"))
              .Text.contains(QStringLiteral("(")));    // the length that the format cannot hold
}

TEST_CASE("measures leave as the table of the library")
{
    const MadeFiles files;
    ShownCoins      shown;
    for (const char* const ending : {"csv", "tsv", "json"}) {
        const QString path = files.Path("t.") + QLatin1String(ending);
        REQUIRE(Save("measures", shown, path).IsDone());
        CHECK(BytesOf(path).toStdString() == shown.Model().Open().table(ending));
    }
}

TEST_CASE("a name without a known ending gets that of the chosen format")
{
    const MadeFiles files;
    ShownCoins      shown;
    const SaveKind& picture = Saves::Of("picture");
    const Outcome   saved = Saves::Run(picture, shown, files.Path("a.webp"), FilterFor(picture, "tif"));
    CHECK_MESSAGE(saved.Text == QStringLiteral("Saved a.webp.tif"), saved.Text.toStdString());
    CHECK(QFileInfo::exists(files.Path("a.webp.tif")));
    CHECK(Saves::SuggestedPath(shown, picture) == QStringLiteral(VOSTEL_SAMPLES "/coins-objects.png"));
}

TEST_CASE("saves apply to what is there: nothing to an empty canvas, no mask without a region")
{
    const Document empty;
    for (const SaveKind& kind : Saves::All())
        CHECK_FALSE(kind.Applies(empty));
    Document picture;
    REQUIRE(picture.Open(QStringLiteral(VOSTEL_SAMPLES "/coins.png")).IsDone());
    CHECK(Saves::Of("data").Applies(picture));
    CHECK_FALSE(Saves::Of("mask").Applies(picture));
}

TEST_CASE("every save that fails gives the reason with the path")
{
    ShownCoins shown;
    for (const SaveKind& kind : Saves::All()) {
        const QString path = QStringLiteral("/no/such/folder/a.") +
                             QString::fromLatin1(kind.Formats.front().Ending).section(QLatin1Char(' '), 0, 0);
        const Outcome outcome = Saves::Run(kind, shown, path, QString());
        CHECK(outcome.Result == Outcome::Kind::Failed);
        CHECK_MESSAGE(outcome.Text.contains(path), outcome.Text.toStdString());
        CHECK_MESSAGE(outcome.Text.contains(QStringLiteral("no such folder")), outcome.Text.toStdString());
    }
}

TEST_CASE("on a full or read-only disk every save fails with its reason and leaves the file that was there")
{
    ShownCoins        shown;
    const std::string said = FaultOnSmallDisk([&](const std::string& disk) -> std::string {
        const auto pathOf = [&](const SaveKind& kind) {
            return QString::fromStdString(disk) + QLatin1Char('/') + QLatin1String(kind.Id) +
                   QLatin1Char('.') +
                   QString::fromLatin1(kind.Formats.front().Ending).section(QLatin1Char(' '), 0, 0);
        };
        std::string wrong;
        const auto  needFailure = [&](const SaveKind& kind) {
            const Outcome outcome = Saves::Run(kind, shown, pathOf(kind), QString());
            if (outcome.Result != Outcome::Kind::Failed || !outcome.Text.contains(pathOf(kind)) ||
                BytesOf(pathOf(kind)) != "before")
                wrong += std::string(kind.Id) + ": " + outcome.Text.toStdString() + "\n";
        };
        for (const SaveKind& kind : Saves::All()) {
            QFile file(pathOf(kind));
            if (!file.open(QIODevice::WriteOnly) || file.write("before") != 6)
                return "the disk takes no file";
        }
        FillDisk(disk + "/filler");
        for (const SaveKind& kind : Saves::All())
            needFailure(kind);
        const qsizetype count = QDir(QString::fromStdString(disk)).entryList(QDir::Files).size();
        if (count != static_cast<qsizetype>(Saves::All().size()) + 1)
            wrong += std::to_string(count) + " files\n";
        if (mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
            return wrong + "the disk cannot be made read-only";
        for (const SaveKind& kind : Saves::All())
            needFailure(kind);
        return wrong;
    });
    if (said != CannotMount)
        CHECK(said == "");
}

TEST_CASE("the dialog of a save has the scale, proposes a name and saves by Enter")
{
    const MadeFiles files;
    ShownCoins      shown;
    QTimer::singleShot(0, [&] {
        REQUIRE(hand::Wait([] { return QApplication::activeModalWidget() != nullptr; }));
        QWidget& dialog = *QApplication::activeModalWidget();
        hand::Settle();
        CHECK(hand::Of<QLineEdit>(dialog, "fileNameEdit").text() == QStringLiteral("coins-objects.png"));
        hand::Of<QSpinBox>(dialog, "SaveScale").setValue(50);
        CHECK(hand::Of<QLabel>(dialog, "SaveSize").text().endsWith(QStringLiteral("px")));
        hand::Keep(dialog, "save-dialog");
        hand::Of<QLineEdit>(dialog, "fileNameEdit").setText(files.Path("half"));
        hand::Of<QLineEdit>(dialog, "fileNameEdit").setFocus();
        hand::Key("Return");
    });
    const Outcome outcome = Saves::Ask(Saves::Of("picture"), shown, nullptr);
    CHECK_MESSAGE(outcome.Text == QStringLiteral("Saved half.png"), outcome.Text.toStdString());
    const QSize size = QImage(shown.PicturePath()).size();
    CHECK(QImage(files.Path("half.png")).size() == QSize((size.width() + 1) / 2, (size.height() + 1) / 2));
}
