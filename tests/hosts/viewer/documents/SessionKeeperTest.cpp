#include "documents/SessionKeeper.h"

#include "documents/Document.h"
#include "documents/RecentPaths.h"
#include "hosts/viewer/Hand.h"
#include "hosts/viewer/documents/MadeFiles.h"

#include <doctest/doctest.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QProcess>

using namespace vostel::viewer;

namespace {

constexpr int  Soon = 30;    // ms
constexpr char KilledName[] = "works on documents until it is killed";
constexpr char KeepIn[] = "VOSTEL_TEST_KEEP_IN";
constexpr char PictureOfIt[] = "VOSTEL_TEST_PICTURE";

int FileCount(const QString& folder, const QString& pattern)
{
    int count = 0;
    for (QDirIterator files(folder, {pattern}, QDir::Files, QDirIterator::Subdirectories); files.hasNext();
         ++count)
        files.next();
    return count;
}

// A program of its own that keeps two documents in the folder, and is killed.
void KeepAndDie(const QString& folder, const QString& picture)
{
    QProcess            program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(KeepIn), folder);
    environment.insert(QLatin1String(PictureOfIt), picture);
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--no-skip"), QStringLiteral("-tc=") + QLatin1String(KilledName)});
    REQUIRE(program.waitForStarted());
    REQUIRE(hand::Wait([&] { return FileCount(folder, QStringLiteral("*.raw")) == 1; }, 20000));
    REQUIRE(hand::Wait([&] { return FileCount(folder, QStringLiteral("*.json")) == 4; }));
    SessionKeeper other(folder, Soon);
    CHECK(other.Lost().isEmpty());    // it runs
    program.kill();
    REQUIRE(program.waitForFinished());
    CHECK(program.exitStatus() == QProcess::CrashExit);
}

}

TEST_CASE(KilledName* doctest::skip())
{
    if (!qEnvironmentVariableIsSet(KeepIn))
        return;
    SessionKeeper keeper(qEnvironmentVariable(KeepIn), Soon);
    Document      coins, result;
    keeper.Watch(coins);
    keeper.Watch(result);
    REQUIRE(coins.Open(qEnvironmentVariable(PictureOfIt)).IsDone());
    coins.Model().Open().add_rectangle(1, 2, 3, 4).set_name("bore");
    coins.Model().Open().set_scale(0.5, "mm");
    std::vector<float> values(12, 0.25F);
    result.Model().Open().image_show(VOSTEL_F32, values.data(), 4, 3);
    result.Model().Open().add_length({0, 0}, {3, 2});
    hand::Wait([] { return false; }, 60000);
}

TEST_CASE("what a killed program had not saved is recovered, objects, scale and a picture of no file")
{
    const MadeFiles files;
    const QString   kept = files.Path("recovery");
    const QString   picture = files.Deep("bore.png", 20, 10);
    KeepAndDie(kept, picture);
    {
        SessionKeeper             keeper(kept, Soon);
        const QList<LostDocument> lost = keeper.Lost();
        REQUIRE(lost.size() == 2);
        for (const LostDocument& one : lost) {
            Document      document;
            const Outcome outcome = keeper.Recover(one, document);
            REQUIRE_MESSAGE(outcome.IsDone(), outcome.Text.toStdString());
            CHECK(document.IsModified());
            CHECK(document.SessionPath().isEmpty());
            CHECK(one.Kept.secsTo(QDateTime::currentDateTimeUtc()) < 60);
            if (one.Title == QStringLiteral("bore.png")) {
                CHECK(document.PicturePath() == picture);
                CHECK(document.Model().Open().object_list().at(0).name() == "bore");
                CHECK(document.Model().Open().scale() == std::pair(0.5, std::string("mm")));
            } else {
                CHECK(document.PicturePath().isEmpty());
                CHECK(document.Model().Open().image_value(2.5, 1.5) == 0.25);
                CHECK(document.Model().Open().object_list().at(0).kind() == VOSTEL_LENGTH);
            }
            document.Close();
        }
        CHECK(keeper.Lost().isEmpty());
    }
    CHECK(FileCount(kept, QStringLiteral("*")) == 0);
}

TEST_CASE("what is kept goes when the document is saved, undone or closed, and comes with the next change")
{
    const MadeFiles files;
    const QString   kept = files.Path("recovery");
    SessionKeeper   keeper(kept, Soon);
    Document        document;
    keeper.Watch(document);
    const auto count = [&] { return FileCount(kept, QStringLiteral("*.json")); };
    REQUIRE(document.Open(files.Deep("a.png", 8, 8)).IsDone());
    CHECK(count() == 0);
    document.Model().Open().add_length({0, 0}, {3, 4});
    CHECK(count() == 0);
    CHECK(hand::Wait([&] { return count() == 2; }));
    document.Model().Open().undo();
    CHECK(count() == 0);
    document.Model().Open().redo();
    CHECK(hand::Wait([&] { return count() == 2; }));
    REQUIRE(document.SaveSession(files.Path("a.vostel.json")).IsDone());
    CHECK(count() == 0);
    document.Model().Open().add_length({0, 0}, {5, 5});
    CHECK(hand::Wait([&] { return count() == 2; }));
    document.Close();
    CHECK(count() == 0);
}

TEST_CASE("a dropped document is gone, and a recovered one knows the session that it was saved in")
{
    const MadeFiles files;
    const QString   kept = files.Path("recovery");
    const QString   session = files.Path("a.vostel.json");
    // Two runs whose locks are gone, as after a power cut.
    {
        SessionKeeper keeper(kept, Soon);
        Document      document;
        keeper.Watch(document);
        REQUIRE(document.Open(files.Deep("a.png", 8, 8)).IsDone());
        REQUIRE(document.SaveSession(session).IsDone());
        document.Model().Open().add_length({0, 0}, {3, 4});
        keeper.KeepAll();
    }
    SessionKeeper keeper(kept, Soon);
    REQUIRE(keeper.Lost().size() == 1);
    CHECK(keeper.Lost().front().SessionPath == session);
    Document document;
    REQUIRE(keeper.Recover(keeper.Lost().front(), document).IsDone());
    CHECK(document.SessionPath() == session);
    CHECK(document.IsModified());
    CHECK(keeper.Lost().isEmpty());    // kept anew, as a document of this run
    CHECK(FileCount(kept, QStringLiteral("*.vostel.json")) == 1);
    document.Close();
    CHECK(FileCount(kept, QStringLiteral("*.vostel.json")) == 0);
}

TEST_CASE("a folder that takes nothing is reported once, and the work goes on")
{
    SessionKeeper keeper(QStringLiteral("/dev/null/recovery"), Soon);
    Document      document;
    QStringList   reasons;
    QObject::connect(&keeper, &SessionKeeper::failed, [&](const QString& reason) { reasons << reason; });
    keeper.Watch(document);
    document.Model().Open().add_length({0, 0}, {3, 4});
    CHECK(hand::Wait([&] { return !reasons.isEmpty(); }));
    document.Model().Open().add_length({0, 0}, {3, 4});
    keeper.KeepAll();
    CHECK(reasons.size() == 1);
}

TEST_CASE("files and sessions that were used last come first, each once")
{
    const MadeFiles files;
    RecentPaths::Clear();
    Document document;
    for (const char* const name : {"a.png", "b.png", "a.png"})
        REQUIRE(document.Open(files.Deep(name, 4, 4)).IsDone());
    REQUIRE(document.SaveSession(files.Path("s.vostel.json")).IsDone());
    CHECK(RecentPaths::Files() == QStringList{files.Path("a.png"), files.Path("b.png")});
    CHECK(RecentPaths::Sessions() == QStringList{files.Path("s.vostel.json")});
    RecentPaths::Remove(files.Path("a.png"));
    CHECK(RecentPaths::Files() == QStringList{files.Path("b.png")});
}
