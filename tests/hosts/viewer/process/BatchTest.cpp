#include "process/Batch.h"

#include "hosts/viewer/documents/MadeFiles.h"
#include "process/BatchTable.h"

#include <doctest/doctest.h>
#include <vostel.hpp>

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <atomic>
#include <thread>

using namespace vostel::viewer;

namespace {

const Routine& RoutineOf(const char* id)
{
    for (const Routine& routine : AllRoutines())
        if (QByteArray(routine.Id) == id)
            return routine;
    throw std::runtime_error(id);
}

// a1, a2 and a10 of 40 x 30, with a broken file before the last.
struct ManyFiles : MadeFiles {
    QStringList Pictures;
    QString     Results = Path("results");

    ManyFiles()
    {
        QDir().mkdir(Results);
        Pictures = {Deep("a1.png", 40, 30, 100), Deep("a2.png", 40, 30, 200),
                    Bytes("a3.png", "\x89PNG\r\n\x1a\n broken"), Deep("a10.png", 40, 30, 300)};
    }

    BatchPlan Plan() const
    {
        BatchPlan plan;
        plan.Pictures = Pictures;
        plan.Chain = {{&RoutineOf("process.gaussian"), {1.5}}, {&RoutineOf("process.mean"), {3}}};
        plan.Folder = Results;
        return plan;
    }

    // Of a rectangle over the whole picture.
    QString Session() const
    {
        vostel::Canvas canvas(40, 30);
        canvas.image_open(Pictures[0].toStdString());
        canvas.add_rectangle(0, 0, 40, 30).set_name("all, of it");
        canvas.session_save(Path("all.vostel.json").toStdString());
        return Path("all.vostel.json");
    }
};

BatchResult Run(const BatchPlan& plan)
{
    RunState state;
    return RunBatch(plan, state, [](int) {});
}

}

TEST_CASE("each picture goes through the chain, and one that fails holds up none")
{
    const ManyFiles   files;
    const BatchResult result = Run(files.Plan());
    CHECK(result.Done == 3);
    REQUIRE(result.Failures.size() == 1);
    CHECK(result.Failures[0].contains(QStringLiteral("a3.png")));
    CHECK_FALSE(result.IsStopped);
    REQUIRE(result.Saved.size() == 3);
    CHECK(result.Saved[2] == files.Results + QStringLiteral("/a10.tif"));

    vostel::Canvas source(40, 30), saved(40, 30);
    source.image_open(files.Pictures[3].toStdString());
    saved.image_open(result.Saved[2].toStdString());
    CHECK(saved.image_info()->type == VOSTEL_F32);
    const auto         image = source.image_copy<float>();
    std::vector<float> smooth(40 * 30), wanted(40 * 30), taps(9, 1.0f / 9.0f);
    vostel::gaussian(vostel::Plane<const float>(image.values.data(), 40, 30), 11, 1.5,
                     vostel::Plane<float>(smooth.data(), 40, 30));
    vostel::correlate(vostel::Plane<const float>(smooth.data(), 40, 30),
                      vostel::Plane<const float>(taps.data(), 3, 3),
                      vostel::Plane<float>(wanted.data(), 40, 30));
    CHECK(saved.image_copy<float>().values == wanted);
}

TEST_CASE("a result whose name is taken gets another one, and the file that was there stays")
{
    const ManyFiles files;
    files.Bytes("results/a1.tif", "mine");
    const BatchResult first = Run(files.Plan());
    const BatchResult second = Run(files.Plan());
    CHECK(BytesOf(files.Results + QStringLiteral("/a1.tif")) == "mine");
    CHECK(first.Saved[0] == files.Results + QStringLiteral("/a1-2.tif"));
    CHECK(second.Saved[0] == files.Results + QStringLiteral("/a1-3.tif"));
    CHECK(second.Saved[1] == files.Results + QStringLiteral("/a2-2.tif"));
}

TEST_CASE("the objects of a session are measured on every picture, as one table")
{
    const ManyFiles files;
    BatchPlan       plan;
    plan.Pictures = files.Pictures;
    plan.Session = files.Session();
    const BatchResult result = Run(plan);
    CHECK(result.Saved.isEmpty());
    const QList<QByteArray> lines = result.Table.trimmed().split('\n');
    REQUIRE(lines.size() == 4);
    CHECK(lines[0].startsWith("file,"));
    CHECK(lines[1].startsWith("a1.png,"));
    CHECK(lines[3].startsWith("a10.png,"));
    CHECK(lines[1].contains("\"all, of it\""));
    const qsizetype mean = lines[0].split(',').indexOf("mean");
    REQUIRE(mean > 0);
    plan.Format = "json";
    const QJsonArray rows = QJsonDocument::fromJson(Run(plan).Table).array();
    REQUIRE(rows.size() == 3);
    CHECK(rows[2].toObject()[QStringLiteral("file")] == QStringLiteral("a10.png"));
    CHECK(QJsonDocument(rows[2].toObject()).toJson().contains("all, of it"));
    // The values run from 300 by ones over 1,200 pixels.
    plan.Format = "tsv";
    const QList<QByteArray> cells = Run(plan).Table.trimmed().split('\n')[3].split('\t');
    REQUIRE(cells.size() > mean);
    CHECK(cells[mean].toDouble() == 300.0 + 1199.0 / 2.0);
}

TEST_CASE("a session that is none fails by its own name")
{
    const ManyFiles files;
    BatchPlan       plan;
    plan.Pictures = {files.Pictures[0]};
    plan.Session = files.Bytes("none.vostel.json", "{");
    const BatchResult result = Run(plan);
    REQUIRE(result.Failures.size() == 1);
    CHECK(result.Failures[0].contains(QStringLiteral("none.vostel.json")));
}

TEST_CASE("a kernel larger than a picture is a failure of that picture")
{
    const ManyFiles files;
    BatchPlan       plan = files.Plan();
    plan.Pictures = {files.Pictures[0]};
    plan.Chain = {{&RoutineOf("process.mean"), {63}}};
    const BatchResult result = Run(plan);
    REQUIRE(result.Failures.size() == 1);
    CHECK(result.Failures[0].contains(QStringLiteral("a1.png")));
    CHECK(result.Saved.isEmpty());
}

TEST_CASE("a batch that is paused goes no further until it goes on, and stops when asked")
{
    const ManyFiles  files;
    RunState         state;
    std::atomic<int> told = -1;
    BatchResult      result;
    state.Pause(true);
    std::thread worker([&] { result = RunBatch(files.Plan(), state, [&](int through) { told = through; }); });
    while (told < 0)
        std::this_thread::yield();
    CHECK(QDir(files.Results).isEmpty());
    SUBCASE("it goes on")
    {
        state.Pause(false);
        worker.join();
        CHECK(result.Done == 3);
    }
    SUBCASE("it is stopped")
    {
        state.Stop();
        worker.join();
        CHECK(result.IsStopped);
        CHECK(result.Done == 0);
        CHECK(QDir(files.Results).isEmpty());
    }
}

TEST_CASE("pictures of a folder are chosen by patterns, in natural order")
{
    const ManyFiles files;
    files.Bytes("note.txt", "no picture");
    CHECK(BatchPictures(files.Folder(), QString()) == files.Pictures);
    CHECK(BatchPictures(files.Folder(), QStringLiteral("*1*.png;b*")) ==
          QStringList{files.Pictures[0], files.Pictures[3]});
}

TEST_CASE("a row that goes on behind a line break in quotes stays one row")
{
    BatchTable table("csv");
    table.Add(QStringLiteral("a,b.png"), "n,x\r\n\"1\n2\",3\r\n");
    table.Add(QStringLiteral("c.png"), "n,x\r\n4,5\r\n");
    CHECK(table.Whole() == "file,n,x\r\n\"a,b.png\",\"1\n2\",3\r\nc.png,4,5\r\n");
}
