#include "foundation/RowThreads.h"

#include "foundation/Limits.h"
#include "platform/System.h"

#include <algorithm>
#include <atomic>
#include <cfenv>
#include <doctest/doctest.h>
#include <mutex>
#include <new>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace vostel;

namespace {

int RunsOfProcessors()
{
    return ProcessorCount() == 1 ? 1 : 4 * ProcessorCount();
}

}

TEST_CASE("four runs for each thread, of lengths that differ by a row at most, hold every row once")
{
    for (int threads = 1; threads <= 9; ++threads) {
        ForceRowThreads(threads);
        for (int rows = 1; rows <= 80; ++rows) {
            std::mutex          lock;
            std::vector<RowRun> runs;
            ForEachRowRun(rows, [&](RowRun run) {
                const std::lock_guard<std::mutex> guard(lock);
                runs.push_back(run);
            });
            std::sort(runs.begin(), runs.end(), [](RowRun a, RowRun b) { return a.First < b.First; });
            const bool alone = threads == 1 || rows < threads;
            const int  count = alone ? 1 : std::min(rows, 4 * threads);
            CHECK(runs.size() == static_cast<std::size_t>(count));
            int next = 0;
            for (const RowRun run : runs) {
                CHECK(run.First == next);
                CHECK(run.End - run.First >= rows / count);
                CHECK(run.End - run.First <= rows / count + 1);
                next = run.End;
            }
            CHECK(next == rows);
        }
    }
    ForceRowThreads(0);
}

TEST_CASE("fewer rows than threads are one run")
{
    std::mutex          lock;
    std::vector<RowRun> runs;
    ForceRowThreads(5);
    ForEachRowRun(4, [&](RowRun run) {
        const std::lock_guard<std::mutex> guard(lock);
        runs.push_back(run);
    });
    REQUIRE(runs.size() == 1);
    CHECK(runs[0].First == 0);
    CHECK(runs[0].End == 4);
    runs.clear();
    ForEachRowRun(5, [&](RowRun run) {
        const std::lock_guard<std::mutex> guard(lock);
        runs.push_back(run);
    });
    ForceRowThreads(0);
    CHECK(runs.size() == 5);
}

TEST_CASE("at most so many threads take runs, and a lone run is done by the caller")
{
    std::mutex                lock;
    std::set<std::thread::id> ids;
    const auto                remember = [&](RowRun) {
        const std::lock_guard<std::mutex> guard(lock);
        ids.insert(std::this_thread::get_id());
    };
    ForceRowThreads(9);
    ForEachRowRun(1000, remember);
    ids.clear();
    ForceRowThreads(3);
    ForEachRowRun(1000, remember);
    CHECK(!ids.empty());
    CHECK(ids.size() <= 3);
    ids.clear();
    ForEachRowRun(2, remember);
    ForceRowThreads(1);
    ForEachRowRun(1000, remember);
    ForceRowThreads(0);
    CHECK(ids == std::set<std::thread::id>{std::this_thread::get_id()});
}

TEST_CASE("runs may be done at the same time")
{
    std::atomic<int>   begun{0};
    const std::int64_t end = ClockCount() + 10 * ClockFrequency();
    ForceRowThreads(2);
    ForEachRowRun(2, [&](RowRun) {
        ++begun;
        while (begun < 2 && ClockCount() < end)
            std::this_thread::yield();
        CHECK(begun == 2);
    });
    ForceRowThreads(0);
}

TEST_CASE("a run may divide rows of its own")
{
    std::atomic<int> rows{0};
    ForceRowThreads(3);
    ForEachRowRun(30, [&](RowRun outer) {
        for (int y = outer.First; y < outer.End; ++y)
            ForEachRowRun(7, [&](RowRun inner) { rows += inner.End - inner.First; });
    });
    ForceRowThreads(0);
    CHECK(rows == 210);
}

TEST_CASE("all runs round alike, and the caller rounds as before")
{
    std::atomic<int> runs{0};
    ForceRowThreads(3);
    std::fesetround(FE_UPWARD);
    ForEachRowRun(3, [&](RowRun) {
    // A new thread of Windows rounds by the default.
#if defined(_WIN32)
        runs += std::fegetround() == FE_TONEAREST;
#else
        runs += std::fegetround() == FE_UPWARD;
#endif
    });
    const int after = std::fegetround();
    std::fesetround(FE_TONEAREST);
    ForceRowThreads(0);
    CHECK(runs == 3);
    CHECK(after == FE_UPWARD);
}

TEST_CASE("by default there are four runs for each processor")
{
    std::atomic<int> runs{0};
    ForEachRowRun(1000, [&](RowRun) { ++runs; });
    CHECK(runs == std::min(RunsOfProcessors(), 1000));
}

TEST_CASE("no rows, or less than none, call nothing")
{
    std::atomic<int> calls{0};
    for (const int rows : {0, -1, -100})
        ForEachRowRun(rows, [&](RowRun) { ++calls; });
    CHECK(calls == 0);
    ForEachRowRun(1, [&](RowRun) { ++calls; });
    CHECK(calls == 1);
}

TEST_CASE("a failed allocation in a thread reaches the caller after all runs have ended")
{
    std::atomic<int> done{0};
    ForceRowThreads(4);
    CHECK_THROWS_AS(ForEachRowRun(48,
                                  [&](RowRun run) {
                                      if (run.First == 12)
                                          throw std::bad_alloc();
                                      done += run.End - run.First;
                                  }),
                    std::bad_alloc);
    CHECK(done == 45);
    done = 0;
    ForEachRowRun(40, [&](RowRun run) { done += run.End - run.First; });
    ForceRowThreads(0);
    CHECK(done == 40);
}

TEST_CASE("of several failures that of the first run reaches the caller")
{
    ForceRowThreads(4);
    for (int i = 0; i < 50; ++i) {
        std::string message;
        try {
            ForEachRowRun(48, [&](RowRun run) {
                if (run.First > 0)
                    throw std::runtime_error(std::to_string(run.First));
            });
        } catch (const std::runtime_error& failure) {
            message = failure.what();
        }
        CHECK(message == "3");
    }
    ForceRowThreads(0);
}

TEST_CASE("the limit on threads holds for the runs, and 0 takes it away")
{
    Limits limits;
    limits.MaxThreads = 1;
    SetLimits(limits);
    std::atomic<int> runs{0};
    ForEachRowRun(1000, [&](RowRun run) {
        CHECK(run.End == 1000);
        ++runs;
    });
    CHECK(runs == 1);
    SetLimits(Limits());
    runs = 0;
    ForEachRowRun(1000, [&](RowRun) { ++runs; });
    CHECK(runs == std::min(RunsOfProcessors(), 1000));
}
