// What becomes of the kept threads in a forked child and under a limit of threads, and which signals they
// take.

#include "foundation/RowThreads.h"
#include "platform/HelperThreads.h"

#include <doctest/doctest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <functional>
#include <iterator>
#include <thread>

using namespace vostel;

namespace {

constexpr int Threads = 4, Rows = 1000;

bool RowsAreDone()
{
    std::atomic<int> done{0};
    ForceRowThreads(Threads);
    ForEachRowRun(Rows, [&](RowRun run) { done += run.End - run.First; });
    ForceRowThreads(0);
    return done == Rows;
}

long ThreadsOfProcess()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

// What the child returns or exits with; -1 if it hangs or is killed.
int InChild(const std::function<int()>& work)
{
    const pid_t child = fork();
    REQUIRE(child >= 0);
    if (child == 0) {
        alarm(60);
        _exit(work());
    }
    int status = 0;
    REQUIRE(waitpid(child, &status, 0) == child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}

TEST_CASE("a forked child starts threads of its own")
{
    REQUIRE(RowsAreDone());
    REQUIRE(ThreadsOfProcess() >= Threads);
    const int end = InChild([] {
        const long before = ThreadsOfProcess();
        if (!RowsAreDone())
            return 1;
        return before == 1 && ThreadsOfProcess() == Threads ? 0 : 2;
    });
    CHECK(end == 0);
    CHECK(RowsAreDone());
}

TEST_CASE("so does the child of a child, and a child of a process at work")
{
    std::atomic<bool> over{false};
    std::thread       work([&] {
        while (!over)
            ForEachRowRun(Rows, [](RowRun) {});
    });
    for (int i = 0; i < 50; ++i) {
        const auto grandchild = [] { return RowsAreDone() ? 0 : 1; };
        REQUIRE(InChild([&] { return RowsAreDone() ? InChild(grandchild) : 1; }) == 0);
    }
    over = true;
    work.join();
}

TEST_CASE("rows for which no thread can be started are done by the caller")
{
    REQUIRE(RowsAreDone());
    const int end = InChild([] {
        // Root may start as many as it likes.
        const rlimit none = {0, 0};
        if (setrlimit(RLIMIT_NPROC, &none) != 0 || (geteuid() == 0 && setuid(54321) != 0))
            return 1;
        for (int i = 0; i < 3; ++i) {
            if (!RowsAreDone())
                return 2;
        }
        return ThreadsOfProcess() == 1 ? 0 : 3;
    });
    CHECK(end == 0);
}

TEST_CASE("kept threads take no signals")
{
    struct Seen {
        std::thread::id  Caller = std::this_thread::get_id();
        std::atomic<int> Arrived{0}, Open{0};
    } seen;
    const auto task = [](void* context) noexcept {
        Seen&    its = *static_cast<Seen*>(context);
        sigset_t mask;
        pthread_sigmask(SIG_SETMASK, nullptr, &mask);
        if (std::this_thread::get_id() != its.Caller && !sigismember(&mask, SIGUSR1))
            ++its.Open;
        ++its.Arrived;
        while (its.Arrived < 3)
            std::this_thread::yield();
    };
    CallWithHelpers(2, task, &seen);
    CHECK(seen.Open == 0);
}
