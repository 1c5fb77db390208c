#include "platform/System.h"

#include <sys/mman.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace vostel {

int ProcessorCount()
{
    const unsigned count = std::thread::hardware_concurrency();
    return count < 1 ? 1 : static_cast<int>(count);
}

std::int64_t ClockFrequency()
{
    return 1000000000;
}

std::int64_t ClockCount()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

std::string EnvironmentText(const char* name)
{
    const char* const text = std::getenv(name);
    return text ? text : "";
}

void PreferLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes)
{
#if defined(MADV_HUGEPAGE)
    const std::uintptr_t pageBytes = 4096;
    const std::uintptr_t start =
        (reinterpret_cast<std::uintptr_t>(memory) + pageBytes - 1) / pageBytes * pageBytes;
    const std::uintptr_t end = (reinterpret_cast<std::uintptr_t>(memory) + bytes) / pageBytes * pageBytes;
    if (start < end)
        madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);    // a refusal changes nothing
#endif
}

void PrintElapsedTime(double seconds)
{
    std::printf("耗费时间为%2.9f\n", seconds);
    std::fflush(stdout);
}

}
