#include "platform/System.h"

#include "vostel/platform.h"

#include <cstdio>

namespace vostel {

int ProcessorCount()
{
    SYSTEM_INFO facts;
    GetSystemInfo(&facts);
    return facts.dwNumberOfProcessors < 1 ? 1 : static_cast<int>(facts.dwNumberOfProcessors);
}

std::int64_t ClockFrequency()
{
    LARGE_INTEGER value;
    QueryPerformanceFrequency(&value);
    return value.QuadPart;
}

std::int64_t ClockCount()
{
    LARGE_INTEGER value;
    QueryPerformanceCounter(&value);
    return value.QuadPart;
}

std::string EnvironmentText(const char* name)
{
    std::string text;
    DWORD       length = GetEnvironmentVariableA(name, nullptr, 0);    // with the end of the text
    while (length > text.size()) {                                     // which another thread may make longer
        text.resize(length);
        length = GetEnvironmentVariableA(name, text.data(), length);
    }
    text.resize(length);
    return text;
}

void PreferLargePages(void*, std::size_t)
{
    // Large pages need a privilege here that users do not have.
}

void PrintElapsedTime(double seconds)
{
    // The words in the GBK code page, which the consoles of the users read.
    std::printf("\xBA\xC4\xB7\xD1\xCA\xB1\xBC\xE4\xCE\xAA%2.9f\n", seconds);
    std::fflush(stdout);
}

}
