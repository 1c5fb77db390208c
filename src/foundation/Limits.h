#pragma once

#include <cstdint>

namespace vostel {

// What is taken from files and callers of the open interface, for the whole process.
struct Limits {
    std::int32_t MaxSide = 1 << 20;                       // px
    std::int64_t MaxPixels = std::int64_t(1) << 28;       // of an image
    std::int64_t MaxFileBytes = std::int64_t(1) << 33;    // of a file that is opened
    std::int32_t MaxThreads = 0;                          // of a routine; 0: as many as processors
    std::int64_t MaxMemory = 0;                           // bytes for reading a picture; 0: any
};

Limits LimitsInForce();
void   SetLimits(const Limits& limits);

// Without the lock, which a forked child may find taken.
std::int32_t MaxThreadsInForce();

}
