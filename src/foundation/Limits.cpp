#include "foundation/Limits.h"

#include <atomic>
#include <mutex>

namespace vostel {

namespace {

struct SharedLimits {
    std::mutex Lock;
    Limits     Values;
};

constinit std::atomic<std::int32_t> MaxThreads{Limits().MaxThreads};

SharedLimits& Shared()
{
    static SharedLimits shared;
    return shared;
}

}

Limits LimitsInForce()
{
    const std::lock_guard<std::mutex> hold(Shared().Lock);
    return Shared().Values;
}

void SetLimits(const Limits& limits)
{
    const std::lock_guard<std::mutex> hold(Shared().Lock);
    Shared().Values = limits;
    MaxThreads.store(limits.MaxThreads, std::memory_order_relaxed);
}

std::int32_t MaxThreadsInForce()
{
    return MaxThreads.load(std::memory_order_relaxed);
}

}
