#pragma once

// Work in a process of its own, which is looked at before each of its calls to the system. Linux only.

#include <cstdint>
#include <functional>

enum class ProcessEnd {
    Killed,
    Done,
    Unknown    // the system does not let processes be watched
};

struct SystemCall {
    std::uint64_t        Number;    // SYS_...
    const std::uint64_t* Arguments;
};

// look returns false to kill the process in the place of the call.
ProcessEnd RunWatched(const std::function<void()>& work, const std::function<bool(const SystemCall&)>& look);

// How a process has ended, of what the system says of it.
ProcessEnd EndOfProcess(int status);
// What a process ends with that cannot be watched.
inline constexpr int CannotBeWatched = 77;
