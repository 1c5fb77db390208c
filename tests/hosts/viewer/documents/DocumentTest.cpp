#include "documents/Document.h"

#include "hosts/viewer/documents/Heard.h"
#include "hosts/viewer/documents/MadeFiles.h"

#include <doctest/doctest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace vostel::viewer;

namespace {

const QString Coins = QStringLiteral(VOSTEL_SAMPLES "/coins.png");

double ValueAt(Document& document, double x, double y)
{
    return document.Model().Open().image_value(x, y).value_or(-1.0);
}

QString Refused(Document& document, const QString& path)
{
    const Outcome outcome = document.Open(path);
    CHECK(outcome.Result == Outcome::Kind::Failed);
    CHECK_MESSAGE(outcome.Text.contains(path), outcome.Text.toStdString());
    return outcome.Text;
}

}

TEST_CASE("a new document is untitled, has no picture and nothing to save")
{
    Document document;
    CHECK(document.Title() == QStringLiteral("Untitled"));
    CHECK(document.PicturePath().isEmpty());
    CHECK(document.SessionPath().isEmpty());
    CHECK_FALSE(document.IsModified());
    CHECK(document.Pages().Count() == 0);
}

TEST_CASE("a picture opens under its name, with its own values and nothing to undo")
{
    const MadeFiles files;
    Document        document;
    Heard           titles(&document, &Document::titleChanged);
    const Outcome   outcome = document.Open(files.Deep("part.png", 20, 10, 27000));
    CHECK(outcome.IsDone());
    CHECK(outcome.Text == QStringLiteral("Opened part.png"));
    CHECK(titles.count() > 0);
    CHECK(document.Title() == QStringLiteral("part.png"));
    CHECK(document.PicturePath() == files.Path("part.png"));
    CHECK_FALSE(document.IsModified());
    CHECK(ValueAt(document, 3.5, 2.5) == 27043.0);
    CHECK(document.Model().Open().history_info().undo_count == 0);
}

TEST_CASE("a 16-bit picture of small values is not black, and a few hot pixels do not darken it")
{
    const MadeFiles files;
    Document        document;
    REQUIRE(document.Open(files.Deep("dim.png", 16, 16)).IsDone());
    CHECK(document.Model().Open().contrast_get() == std::pair(0.0, 255.0));

    QImage hot(100, 100, QImage::Format_Grayscale16);
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 100; ++x)
            reinterpret_cast<std::uint16_t*>(hot.scanLine(y))[x] = static_cast<std::uint16_t>(1000 + x);
    reinterpret_cast<std::uint16_t*>(hot.scanLine(50))[50] = 65535;
    REQUIRE(hot.save(files.Path("hot.png")));
    REQUIRE(document.Open(files.Path("hot.png")).IsDone());
    CHECK(document.Model().Open().contrast_get() == std::pair(1000.0, 1099.0));
    CHECK(document.Model().Open().history_info().undo_count == 0);
    CHECK_FALSE(document.IsModified());
}

TEST_CASE("a picture of bytes shows its bytes")
{
    Document document;
    REQUIRE(document.Open(Coins).IsDone());
    CHECK(document.Model().Open().contrast_get() == std::pair(0.0, 255.0));
}

TEST_CASE("what is no picture is refused with its path and the reason, and nothing is lost")
{
    const MadeFiles files;
    Document        document;
    REQUIRE(document.Open(Coins).IsDone());
    document.Model().Open().add_length({1, 1}, {9, 9});
    const QByteArray whole = BytesOf(Coins);

    CHECK(Refused(document, files.Path("none.png")).contains(QStringLiteral("does not exist")));
    CHECK(Refused(document, files.Bytes("empty.raw", {})).contains(QStringLiteral("is empty")));
    CHECK(Refused(document, files.Bytes("cut.png", whole.left(whole.size() / 2)))
              .contains(QStringLiteral("PNG file that is cut short")));
    QByteArray damaged = whole;
    damaged[damaged.size() / 2] = static_cast<char>(~damaged[damaged.size() / 2]);
    CHECK(Refused(document, files.Bytes("damaged.png", damaged))
              .contains(QStringLiteral("PNG file that is damaged")));
    CHECK(Refused(document, files.Bytes("text.png", "This is a text."))
              .contains(QStringLiteral("is no picture")));
    CHECK(Refused(document, files.Bytes("star.fits", "SIMPLE  =                    T"))
              .contains(QStringLiteral("FITS")));
    CHECK(Refused(document, files.Folder()).contains(QStringLiteral("folder")) == false);
    CHECK(document.Title() == QStringLiteral("coins.png"));
    CHECK(document.Model().Open().object_list().size() == 1);
    CHECK(document.IsModified());
}

TEST_CASE("a pipe and a device are named as such, not as folders")
{
    const MadeFiles files;
    Document        document;
    const QString   pipe = files.Path("pipe.png");
    REQUIRE(mkfifo(pipe.toLocal8Bit().constData(), 0600) == 0);
    for (const QString& path : {pipe, QStringLiteral("/dev/zero")}) {
        const QString reason = Refused(document, path);
        CHECK(reason.contains(QStringLiteral("a pipe or a device")));
        CHECK_FALSE(reason.contains(QStringLiteral("folder")));
    }
}

TEST_CASE("a file that may not be read is refused as that")
{
    if (geteuid() != 0)
        return;    // only root can become somebody else
    const MadeFiles files;
    const QString   path = files.Deep("secret.png", 4, 4);
    chmod(files.Folder().toLocal8Bit().constData(), 0755);
    chmod(path.toLocal8Bit().constData(), 0600);
    Document document;
    REQUIRE(seteuid(65534) == 0);
    const Outcome outcome = document.Open(path);
    REQUIRE(seteuid(0) == 0);
    CHECK(outcome.Result == Outcome::Kind::Failed);
    CHECK(outcome.Text.contains(path));
    CHECK(outcome.Text.contains(QStringLiteral("ermission")));
}

TEST_CASE("a folder opens as a stack in natural order, and the page stands in the title")
{
    const MadeFiles files;
    for (int number : {10, 2, 1})
        files.Deep(qPrintable(QStringLiteral("slice%1.png").arg(number)), 8, 8, 1000 * number);
    files.Bytes("notes.txt", "no picture");
    Document      document;
    Heard         stacks(&document, &Document::stackChanged);
    const Outcome outcome = document.Open(files.Folder());
    REQUIRE_MESSAGE(outcome.IsDone(), outcome.Text.toStdString());
    CHECK(document.Pages().Count() == 3);
    CHECK(document.Title() == QStringLiteral("slice1.png, page 1 of 3"));
    document.Model().Open().add_rectangle(1, 1, 4, 4);
    document.Pages().Go(2);
    CHECK(ValueAt(document, 0.5, 0.5) == 10000.0);
    CHECK(document.Title() == QStringLiteral("slice10.png, page 3 of 3"));
    CHECK(document.PicturePath() == files.Path("slice10.png"));
    CHECK(document.Model().Open().object_list().size() == 1);
    CHECK(stacks.count() == 2);
}

TEST_CASE("a session brings picture, objects and scale back, and only changes after it are not saved")
{
    const MadeFiles files;
    const QString   path = files.Path("bore.vostel.json");
    {
        Document document;
        REQUIRE(document.Open(files.Deep("bore.png", 20, 20)).IsDone());
        document.Model().Open().add_rectangle(2, 2, 9, 9).set_name("bore");
        document.Model().Open().set_scale(0.25, "mm");
        CHECK(document.IsModified());
        Heard         modified(&document, &Document::modifiedChanged);
        const Outcome saved = document.SaveSession(path);
        CHECK(saved.IsDone());
        CHECK(saved.Text == QStringLiteral("Saved bore.vostel.json"));
        CHECK_FALSE(document.IsModified());
        CHECK(modified.count() == 1);
        CHECK(document.SessionPath() == path);
        document.Model().Open().undo();
        CHECK(document.IsModified());
        document.Model().Open().undo();
        document.Model().Open().redo();
        document.Model().Open().undo();
        CHECK(document.IsModified());
    }
    Document document;
    document.Model().Open().set_language("en");
    REQUIRE(document.Open(path).IsDone());
    CHECK(document.PicturePath() == files.Path("bore.png"));
    CHECK(document.Title() == QStringLiteral("bore.png"));
    CHECK(document.SessionPath() == path);
    CHECK_FALSE(document.IsModified());
    CHECK(document.Model().Open().object_list().at(0).name() == "bore");
    CHECK(document.Model().Open().scale().second == "mm");
    CHECK(document.Model().Open().language() == "en");
    document.Model().Open().object_list().at(0).set_name("other");
    CHECK(document.IsModified());
    document.Model().Open().undo();
    CHECK_FALSE(document.IsModified());
}

TEST_CASE("a session that cannot be written says where and why, and stays unsaved")
{
    Document document;
    REQUIRE(document.Open(Coins).IsDone());
    document.Model().Open().add_length({1, 1}, {9, 9});
    const Outcome outcome = document.SaveSession(QStringLiteral("/no/such/folder/a.vostel.json"));
    CHECK(outcome.Result == Outcome::Kind::Failed);
    CHECK(outcome.Text.contains(QStringLiteral("/no/such/folder/a.vostel.json")));
    CHECK(outcome.Text.contains(QStringLiteral("no such folder")));
    CHECK(document.IsModified());
    CHECK(document.SessionPath().isEmpty());
}

TEST_CASE("regions are added to what is shown, as one step")
{
    const MadeFiles files;
    Document        document;
    REQUIRE(document.Open(Coins).IsDone());
    document.Model().Open().add_rectangle(1, 1, 4, 4);
    document.Model().Open().add_rectangle(5, 5, 9, 9);
    for (const char* const name : {"two.geojson", "two.zip", "two.csv", "two.json", "two.labels.json"}) {
        const QString path = files.Path(name);
        document.Model().Open().regions_export(path.toStdString());
        CHECK(Document::AddsToShown(path));
        const std::uint32_t steps = document.Model().Open().history_info().undo_count;
        const Outcome       outcome = document.Open(path);
        CHECK_MESSAGE(outcome.IsDone(), outcome.Text.toStdString());
        CHECK(document.Model().Open().object_list().size() == 4);
        CHECK(document.Model().Open().history_info().undo_count == steps + 1);
        document.Model().Open().undo();
    }
    document.Model().Open().regions_export(files.Path("coco.json").toStdString(), "coco");
    CHECK(document.Open(files.Path("coco.json")).IsDone());
    CHECK(document.Title() == QStringLiteral("coins.png"));
    CHECK_FALSE(Document::AddsToShown(Coins));
    CHECK_FALSE(Document::AddsToShown(files.Folder()));
}

TEST_CASE("values that a routine shows are in no file, which the title and the state say")
{
    Document document;
    REQUIRE(document.Open(Coins).IsDone());
    const std::vector<float> result(12, 1.0F);
    document.Model().Open().image_show(VOSTEL_F32, result.data(), 4, 3, 0, VOSTEL_KEEP_OBJECTS);
    CHECK(document.Title() == QStringLiteral("Untitled"));
    CHECK(document.PicturePath().isEmpty());
    CHECK(document.IsModified());
}
