#include "documents/Stack.h"

#include "documents/Document.h"
#include "documents/RawFiles.h"
#include "hosts/viewer/Hand.h"
#include "hosts/viewer/documents/Heard.h"
#include "hosts/viewer/documents/MadeFiles.h"

#include <doctest/doctest.h>

#include <QJsonDocument>
#include <QJsonObject>

using namespace vostel::viewer;

namespace {

constexpr int Side = 2100;    // 8.8 MB of 16 bits: more than is read while somebody waits

double PageValue(Document& document, double x, double y)
{
    return document.Model().Open().image_value(x, y).value_or(-1.0);
}

bool ComesTo(Document& document, int index)
{
    return hand::Wait([&] { return document.Pages().Index() == index; });
}

// Slices of 16 bits with their layout beside them; every value of slice i is 257 (i + 1).
QString Volume(const MadeFiles& files, int slices)
{
    QByteArray bytes;
    for (int slice = 0; slice < slices; ++slice)
        bytes += QByteArray(2 * Side * Side, static_cast<char>(slice + 1));
    RawVolume volume;
    volume.Layout.type = VOSTEL_U16;
    volume.Layout.width = volume.Layout.height = Side;
    volume.Slices = slices;
    QJsonObject layout = QJsonObject::fromVariantMap(ToMap(volume));
    layout.insert(QStringLiteral("Format"), QStringLiteral("vostel-raw"));
    files.Bytes("volume.raw.json", QJsonDocument(layout).toJson());
    return files.Bytes("volume.raw", bytes);
}

}

TEST_CASE("a numbered series opens at its file, with all files whose names differ in the number alone")
{
    const MadeFiles files;
    for (const char* const name : {"scan9.png", "scan10.png", "scan011.png", "scan9-old.png", "other10.png"})
        files.Deep(name, 6, 6, QFileInfo(QString::fromLatin1(name)).size() > 0 ? 1 : 2);
    CHECK(SeriesOfFile(files.Path("scan10.png")) ==
          QStringList{files.Path("scan9.png"), files.Path("scan10.png"), files.Path("scan011.png")});
    CHECK(SeriesOfFile(files.Path("scan9-old.png")) == QStringList{files.Path("scan9-old.png")});
    Document document;
    REQUIRE(document.OpenSeries(files.Path("scan10.png")).IsDone());
    CHECK(document.Title() == QStringLiteral("scan10.png, page 2 of 3"));
    document.Pages().Go(0);
    CHECK(document.PicturePath() == files.Path("scan9.png"));
}

TEST_CASE("frames of a GIF are pages, and objects stay on them")
{
    Document document;
    REQUIRE(
        document.Open(QStringLiteral(VOSTEL_SAMPLES "/../tests/hostile/gif-of-2000-frames-that-restore.gif"))
            .IsDone());
    CHECK(document.Pages().Count() == 2000);
    document.Model().Open().add_length({0, 0}, {1, 1});
    document.Pages().Go(3);
    CHECK(document.Pages().Index() == 3);
    document.Pages().Go(2000);
    document.Pages().Go(-1);
    CHECK(document.Pages().Index() == 3);
    CHECK(document.Model().Open().object_list().size() == 1);
}

TEST_CASE("the contrast stays from page to page, or each page gets its own")
{
    const MadeFiles files;
    files.Deep("a1.png", 10, 10, 0);
    files.Deep("a2.png", 10, 10, 5000);
    Document document;
    REQUIRE(document.Open(files.Folder()).IsDone());
    document.Model().Open().contrast_set(7.0, 8.0);
    document.Pages().Go(1);
    CHECK(document.Model().Open().contrast_get() == std::pair(7.0, 8.0));
    document.Pages().SetKeepsContrast(false);
    document.Pages().Go(0);
    document.Pages().Go(1);
    CHECK(document.Model().Open().contrast_get() == std::pair(5000.0, 5099.0));
}

TEST_CASE("a page that cannot be read is reported, and the one that is shown stays")
{
    const MadeFiles files;
    for (const char* const name : {"a1.png", "a2.png"})
        files.Deep(name, 10, 10);
    Document document;
    REQUIRE(document.Open(files.Folder()).IsDone());
    QFile::remove(files.Path("a2.png"));
    QStringList reasons;
    QObject::connect(&document.Model(), &CanvasModel::failed,
                     [&](const QString& reason) { reasons << reason; });
    Heard changes(&document.Pages(), &Stack::changed);
    document.Pages().Go(1);
    REQUIRE(reasons.size() == 1);
    CHECK(reasons.front().contains(files.Path("a2.png")));
    CHECK(document.Pages().Index() == 0);
    CHECK(changes.count() == 1);    // a slider goes back
}

TEST_CASE(
    "large slices come while the window goes on, the last one asked for counts, and the next is read ahead")
{
    const MadeFiles files;
    Document        document;
    REQUIRE(document.Open(Volume(files, 5)).IsDone());
    CHECK(PageValue(document, 5, 5) == 1 * 257.0);
    document.Model().Open().add_rectangle(10, 10, 50, 50).set_name("bore");
    document.Pages().Go(1);
    CHECK(document.Pages().Index() == 0);
    document.Pages().Go(2);
    CHECK(ComesTo(document, 2));
    CHECK(PageValue(document, 5, 5) == 3 * 257.0);
    CHECK(document.Title() == QStringLiteral("volume.raw, page 3 of 5"));
    CHECK(hand::Wait([&] { return document.Pages().IsReady(3); }));
    document.Pages().Go(3);
    CHECK(document.Pages().Index() == 3);
    CHECK(PageValue(document, 5, 5) == 4 * 257.0);
    CHECK(document.Model().Open().object_list().size() == 1);

    const QString session = files.Path("slice.vostel.json");
    REQUIRE(document.SaveSession(session).IsDone());
    CHECK_FALSE(QFileInfo::exists(session + QStringLiteral(".part")));
    Document      again;
    const Outcome opened = again.Open(session);
    REQUIRE_MESSAGE(opened.IsDone(), opened.Text.toStdString());
    CHECK(opened.Text == QStringLiteral("Opened slice.vostel.json"));    // no word of changed values
    CHECK(PageValue(again, 5, 5) == 4 * 257.0);
    CHECK(again.PicturePath() == files.Path("volume.raw"));
    CHECK(again.Model().Open().object_list().at(0).name() == "bore");
}

TEST_CASE("a document that goes while a page is read waits for it, and another stack forgets it")
{
    const MadeFiles files;
    const QString   volume = Volume(files, 3);
    {
        Document document;
        REQUIRE(document.Open(volume).IsDone());
        document.Pages().Go(2);
        REQUIRE(document.Open(files.Deep("a.png", 4, 4, 77)).IsDone());
        CHECK_FALSE(hand::Wait([&] { return document.Pages().Index() == 2; }, 200));
        CHECK(PageValue(document, 0, 0) == 77.0);
    }
    Document document;
    REQUIRE(document.Open(volume).IsDone());
    document.Pages().Go(1);
}
