#pragma once

// How a call of the open interface ends early, and the checks that do so.

#include "vostel.h"

#include <cstdint>
#include <string>

namespace vostel {

// Ends a call with a status and what was wrong. Thrown before anything has changed.
class Failure {
public:
    VostelStatus Status;
    std::string  Message;
};

[[noreturn]] void Fail(VostelStatus status, std::string message);

// Checks of arguments; each fails with VOSTEL_INVALID_ARGUMENT and the argument's name.
void NeedPointer(const void* pointer, const char* name);
void NeedFinite(double value, const char* name);
void NeedPositive(double value, const char* name);    // above 0 and finite
void NeedRange(std::int64_t value, std::int64_t low, std::int64_t high, const char* name);

}
