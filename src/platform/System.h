#pragma once

// Facts and clocks of the machine, one source per platform.

#include <cstddef>
#include <cstdint>
#include <string>

namespace vostel {

int          ProcessorCount();    // logical processors, at least 1
std::int64_t ClockFrequency();    // counts per second of ClockCount
std::int64_t ClockCount();        // a clock that never goes back

std::string EnvironmentText(const char* name);    // of a variable; empty without it

// A hint before memory that was just allocated is filled from end to end: the system may give it in large
// pages, which costs a fraction of many small ones. The contents do not change.
void PreferLargePages(void* memory, std::size_t bytes);

// Prints "耗费时间为%2.9f" and a line end on standard output, in the encoding that a narrow print has on the
// platform.
void PrintElapsedTime(double seconds);

}
