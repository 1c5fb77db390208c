#include "foundation/Limits.h"

#include <mutex>

namespace vostel {

namespace {

struct SharedLimits {
    std::mutex Lock;
    Limits     Values;
};

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
}

}
