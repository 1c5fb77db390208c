#include "foundation/RowThreads.h"

#include "foundation/Limits.h"
#include "platform/HelperThreads.h"
#include "platform/System.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstdint>
#include <exception>
#include <mutex>

namespace vostel {

namespace {

// Short runs even out that a sleeping thread comes late and a busy processor lends less of its time.
constexpr int RunsPerThread = 4;

std::atomic<int> ForcedThreads{0};

// The runs of one call. Each thread takes the next one until none is left.
class Division {
public:
    Division(int rows, int runs, const std::function<void(RowRun)>& work) : Rows(rows), Runs(runs), Work(work)
    {
    }

    static void Help(void* division) noexcept { static_cast<Division*>(division)->DoRuns(); }

    void RethrowFirstFailure() const
    {
        if (Failure)
            std::rethrow_exception(Failure);
    }

private:
    void DoRuns() noexcept
    {
        for (int run = Next++; run < Runs; run = Next++) {
            try {
                Work({RowsBefore(run), RowsBefore(run + 1)});
            } catch (...) {
                Remember(run);
            }
        }
    }

    int RowsBefore(int run) const { return static_cast<int>(std::int64_t{Rows} * run / Runs); }

    void Remember(int run)
    {
        const std::lock_guard<std::mutex> hold(FailureLock);
        if (run < FailedRun) {
            FailedRun = run;
            Failure = std::current_exception();
        }
    }

    const int                          Rows;
    const int                          Runs;
    const std::function<void(RowRun)>& Work;
    std::atomic<int>                   Next{0};
    std::mutex                         FailureLock;
    int                                FailedRun = INT_MAX;
    std::exception_ptr                 Failure;
};

}

int RowThreadsInForce()
{
    const int forced = ForcedThreads.load(std::memory_order_relaxed);
    if (forced > 0)
        return forced;
    const int most = MaxThreadsInForce();
    return most > 0 ? std::min(most, ProcessorCount()) : ProcessorCount();
}

void ForEachRowRun(int rows, const std::function<void(RowRun)>& work)
{
    if (rows <= 0)
        return;
    const int threads = RowThreadsInForce();
    // Nothing would be done beside it.
    if (threads == 1 || rows < threads) {
        work({0, rows});
        return;
    }
    Division division(rows, std::min(rows, RunsPerThread * threads), work);
    CallWithHelpers(threads - 1, Division::Help, &division);
    division.RethrowFirstFailure();
}

void ForceRowThreads(int threads)
{
    ForcedThreads.store(threads, std::memory_order_relaxed);
}

}
