// Threads of our own, started by the first call that wants them and ended with the library. They are raw
// handles and the pool has no destructor: a forked child drops them, and a host may call until its very end.

#include "platform/HelperThreads.h"

#include <pthread.h>
#include <sched.h>
#include <signal.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cfenv>
#include <cstddef>
#include <mutex>
#include <new>
#include <type_traits>

namespace vostel {

namespace {

// A call that has not returned. It lies on its caller's stack.
struct Call {
    void (*Task)(void*) noexcept;
    void*            Context;
    int              Wanted;       // helpers that may still come
    std::atomic<int> Inside{0};    // helpers in the task; changes under the lock
    std::fenv_t      Environment{};
    pthread_cond_t   Left = PTHREAD_COND_INITIALIZER;
    Call*            Next = nullptr;
};

constexpr int MostThreads = 255;

struct Pool {
    std::mutex         Lock;    // held for a few instructions, and while threads are started
    pthread_cond_t     Wake = PTHREAD_COND_INITIALIZER;
    std::atomic<Call*> First{nullptr};    // of the calls that want helpers; changes under the lock
    int                Sleeping = 0;
    bool               Ending = false;
    std::size_t        Started = 0;

    std::array<pthread_t, MostThreads> Threads{};
};
static_assert(std::is_trivially_destructible_v<Pool>);

constinit Pool ThePool;
constinit bool WatchingForks = false;    // under the lock; a child keeps it

using Hold = std::unique_lock<std::mutex>;

void Wait(pthread_cond_t& condition, Hold& hold)
{
    pthread_cond_wait(&condition, hold.mutex()->native_handle());
}

// Looks for some microseconds before it sleeps, which would cost more. Others have the processor meanwhile:
// often the very thread that is waited for.
template <typename Condition>
void Linger(Condition done)
{
    for (int looks = 0; looks < 50 && !done(); ++looks)
        sched_yield();
}

void Append(Call& call)
{
    Call* last = ThePool.First;
    if (!last) {
        ThePool.First = &call;
        return;
    }
    while (last->Next)
        last = last->Next;
    last->Next = &call;
}

void Remove(Call& call)
{
    if (ThePool.First == &call) {
        ThePool.First = call.Next;
        return;
    }
    Call* before = ThePool.First;
    while (before->Next != &call)
        before = before->Next;
    before->Next = call.Next;
}

void HelpWith(Call& call, Hold& hold)
{
    if (--call.Wanted == 0)
        Remove(call);
    ++call.Inside;
    hold.unlock();
    std::fesetenv(&call.Environment);
    call.Task(call.Context);
    hold.lock();
    if (--call.Inside == 0)
        pthread_cond_signal(&call.Left);
}

void* Help(void*)
{
    Hold hold(ThePool.Lock);
    for (;;) {
        while (Call* const call = ThePool.First)
            HelpWith(*call, hold);
        hold.unlock();
        Linger([] { return ThePool.First.load(std::memory_order_relaxed) != nullptr; });
        hold.lock();
        while (!ThePool.First) {
            if (ThePool.Ending)
                return nullptr;
            ++ThePool.Sleeping;
            Wait(ThePool.Wake, hold);
            --ThePool.Sleeping;
        }
    }
}

// The child of a fork has none of the threads, and the lock as it was at that moment.
void ForgetThreads()
{
    new (&ThePool) Pool;
}

bool WatchForks()
{
    WatchingForks = WatchingForks || pthread_atfork(nullptr, nullptr, ForgetThreads) == 0;
    return WatchingForks;
}

// Signals are for the host's threads.
void StartThreads(int helpers)
{
    const std::size_t count = static_cast<std::size_t>(std::clamp(helpers, 0, MostThreads));
    if (ThePool.Started >= count || ThePool.Ending || !WatchForks())
        return;
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    while (ThePool.Started < count &&
           pthread_create(&ThePool.Threads[ThePool.Started], nullptr, Help, nullptr) == 0)
        ++ThePool.Started;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

// Ended before their code is unmapped.
struct EndOfThreads {
    ~EndOfThreads()
    {
        Hold hold(ThePool.Lock);
        ThePool.Ending = true;
        pthread_cond_broadcast(&ThePool.Wake);
        while (ThePool.Started > 0) {
            const pthread_t thread = ThePool.Threads[--ThePool.Started];
            hold.unlock();
            pthread_join(thread, nullptr);
            hold.lock();
        }
    }
};

const EndOfThreads End;

}

void CallWithHelpers(int helpers, void (*task)(void*) noexcept, void* context) noexcept
{
    Call call = {task, context, helpers};
    std::fegetenv(&call.Environment);
    Hold hold(ThePool.Lock);
    StartThreads(helpers);
    if (helpers <= 0 || ThePool.Started == 0) {
        hold.unlock();
        task(context);
        return;
    }
    Append(call);
    const int asleep = std::min(helpers, ThePool.Sleeping);
    hold.unlock();
    for (int i = 0; i < asleep; ++i)
        pthread_cond_signal(&ThePool.Wake);
    task(context);
    hold.lock();
    if (call.Wanted > 0)
        Remove(call);
    hold.unlock();
    Linger([&] { return call.Inside.load(std::memory_order_relaxed) == 0; });
    hold.lock();
    while (call.Inside > 0)
        Wait(call.Left, hold);
}

}
