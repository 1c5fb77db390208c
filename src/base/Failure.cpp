#include "base/Failure.h"

#include <cmath>
#include <utility>

namespace vostel {

void Fail(VostelStatus status, std::string message)
{
    throw Failure{status, std::move(message)};
}

void NeedPointer(const void* pointer, const char* name)
{
    if (!pointer)
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + " is null");
}

void NeedFinite(double value, const char* name)
{
    if (!std::isfinite(value))
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + " is not finite");
}

void NeedPositive(double value, const char* name)
{
    NeedFinite(value, name);
    if (value <= 0.0)
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + " is not above 0");
}

void NeedRange(std::int64_t value, std::int64_t low, std::int64_t high, const char* name)
{
    if (value < low || value > high)
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + " is " + std::to_string(value) + ", not " +
                                          std::to_string(low) + " to " + std::to_string(high));
}

}
