#include "support/GdiObjectCount.h"

#include <VostelObj.h>

#include <cstddef>

namespace {

// One entry of the table of handles that the system shares with every process.
struct SharedHandle {
    unsigned long long Object;
    unsigned           Owner;    // process number, lowest bit left out
    unsigned short     Generation;
    unsigned char      Type;
    unsigned char      Flags;
    unsigned long long UserData;
};
static_assert(sizeof(SharedHandle) == 24, "the table is the system's");

constexpr std::size_t SharedTable = 0xF8;        // in the process environment block of 64 bits
constexpr std::size_t SharedEntries = 0x4000;    // of the table

const SharedHandle* SharedHandles()
{
    const unsigned char* block = nullptr;
#if defined(__GNUC__)
    __asm__("mov %%gs:0x60, %0" : "=r"(block));
#else
    block = reinterpret_cast<const unsigned char*>(__readgsqword(0x60));
#endif
    return *reinterpret_cast<const SharedHandle* const*>(block + SharedTable);
}

}

// Wine keeps the shared table as Windows does, but returns 0 for the count.
unsigned GdiObjectCount()
{
    unsigned counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (counted != 0)
        return counted;
    unsigned            count = 0;
    const SharedHandle* handles = SharedHandles();
    for (std::size_t i = 0; handles && i < SharedEntries; ++i)
        count += handles[i].Type != 0 ? 1 : 0;
    return count;
}
