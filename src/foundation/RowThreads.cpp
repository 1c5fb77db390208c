#include "foundation/RowThreads.h"

#include "foundation/Limits.h"
#include "platform/System.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <thread>
#include <vector>

namespace vostel {

namespace {

std::atomic<int> ForcedThreads{0};

// One thread's share. What it throws must not leave the thread: that would end the process.
struct Share {
    RowRun             Run;
    std::exception_ptr Failure;
    std::thread        Thread;
};

int ThreadsInForce()
{
    const int forced = ForcedThreads.load(std::memory_order_relaxed);
    if (forced > 0)
        return forced;
    const int most = LimitsInForce().MaxThreads;
    return most > 0 ? std::min(most, ProcessorCount()) : ProcessorCount();
}

void Work(Share& share, const std::function<void(RowRun)>& work) noexcept
{
    try {
        work(share.Run);
    } catch (...) {
        share.Failure = std::current_exception();
    }
}

}

RowRun RowRunOf(int rows, int threads, int thread)
{
    const int perThread = rows / threads;
    RowRun    run;
    run.First = perThread * thread;
    run.End = thread == threads - 1 ? rows : run.First + perThread;
    return run;
}

void ForEachRowRun(int rows, const std::function<void(RowRun)>& work)
{
    if (rows <= 0)
        return;
    const int threads = ThreadsInForce();
    // Nothing would be done beside it.
    if (threads == 1 || rows < threads) {
        work(RowRunOf(rows, threads, threads - 1));
        return;
    }
    std::vector<Share>  shares(static_cast<std::size_t>(threads));
    std::vector<Share*> unstarted;
    unstarted.reserve(shares.size());
    for (int i = 0; i < threads; ++i) {
        Share& share = shares[static_cast<std::size_t>(i)];
        share.Run = RowRunOf(rows, threads, i);
        try {
            share.Thread = std::thread([&share, &work] { Work(share, work); });
        } catch (...) {
            // Neither the system's refusal nor a failed allocation may leave the others running.
            unstarted.push_back(&share);
        }
    }
    for (Share* const share : unstarted)
        Work(*share, work);
    for (Share& share : shares)
        if (share.Thread.joinable())
            share.Thread.join();
    for (const Share& share : shares)
        if (share.Failure)
            std::rethrow_exception(share.Failure);
}

void ForceRowThreads(int threads)
{
    ForcedThreads.store(threads, std::memory_order_relaxed);
}

}
