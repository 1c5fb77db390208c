#include "platform/HelperThreads.h"

#include "platform/System.h"
#include "support/AtOnce.h"

#include <doctest/doctest.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <set>
#include <thread>

#if !defined(_WIN32)
#    include <unistd.h>
#endif

using namespace vostel;

namespace {

void Call(int helpers, std::function<void()> work)
{
    const auto task = [](void* context) noexcept { (*static_cast<std::function<void()>*>(context))(); };
    CallWithHelpers(helpers, task, &work);
}

// Waits in a task until so many threads have been in it; false after ten seconds.
bool WaitFor(const std::atomic<int>& arrived, int threads)
{
    const std::int64_t end = ClockCount() + 10 * ClockFrequency();
    while (arrived < threads && ClockCount() < end)
        std::this_thread::yield();
    return arrived >= threads;
}

}

TEST_CASE("helpers are in the task at the same time as the caller")
{
    for (const int helpers : {1, 2, 5}) {
#if defined(_WIN32)    // its pool has no more threads at work than there are processors
        if (helpers >= ProcessorCount())
            continue;
#endif
        std::atomic<int> arrived{0}, met{0};
        Call(helpers, [&] {
            ++arrived;
            if (WaitFor(arrived, helpers + 1))
                ++met;
        });
        CAPTURE(helpers);
        CHECK(arrived == helpers + 1);
        CHECK(met == helpers + 1);
    }
}

TEST_CASE("without helpers the task runs once, on the caller")
{
    for (const int helpers : {0, -1, -1000}) {
        int calls = 0;
        Call(helpers, [&, caller = std::this_thread::get_id()] {
            CHECK(std::this_thread::get_id() == caller);
            ++calls;
        });
        CHECK(calls == 1);
    }
}

TEST_CASE("nobody is in a task that has returned")
{
    for (int i = 0; i < 2000; ++i) {
        std::atomic<int> inside{0}, left{2};
        Call(3, [&] {
            ++inside;
            while (left-- > 0)
                std::this_thread::yield();
            --inside;
        });
        REQUIRE(inside == 0);
    }
}

TEST_CASE("a task may call with helpers itself")
{
    std::atomic<int>               leaves{0};
    const std::function<void(int)> branch = [&](int depth) {
        std::atomic<int> left{3};
        Call(2, [&] {
            while (left-- > 0)
                depth > 0 ? branch(depth - 1) : void(++leaves);
        });
    };
    for (int i = 0; i < 20; ++i) {
        leaves = 0;
        branch(4);
        CHECK(leaves == 243);
    }
}

TEST_CASE("several threads call at once")
{
    std::atomic<int> wrong{0};
    AtOnce(
        [&](int) {
            for (int i = 0; i < 500; ++i) {
                std::atomic<int> next{0}, sum{0};
                Call(3, [&] {
                    for (int n = next++; n < 8; n = next++)
                        sum += n;
                });
                if (sum != 28)
                    ++wrong;
            }
        },
        6);
    CHECK(wrong == 0);
}

#if !defined(_WIN32)    // there the pool is the system's
TEST_CASE("threads are kept from call to call")
{
    std::mutex      lock;
    std::set<pid_t> threads;
    for (int i = 0; i < 100; ++i) {
        std::atomic<int> arrived{0};
        Call(2, [&] {
            ++arrived;
            WaitFor(arrived, 3);
            const std::lock_guard<std::mutex> hold(lock);
            threads.insert(gettid());
        });
    }
    CHECK(threads.size() >= 3);
    CHECK(threads.size() < 50);    // other tests may have started more than two
}
#endif
