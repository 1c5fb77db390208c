// Large bitmaps lie on large pages where the system has them: a canvas of 4096 x 4096 pixels spans 16384
// small ones, more than the processor keeps translations of, and a picture that is shown rotates through
// all of them.

#include "platform/portable/BitmapMemory.h"

#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace vostel::gdi {
namespace {

constexpr std::size_t LineBytes = 64;
constexpr std::size_t LargePage = std::size_t{2} << 20;

bool TakesLargePages(std::size_t bytes)
{
    return bytes >= 2 * LargePage;
}

// 0 when it does not fit.
std::size_t RoundedUp(std::size_t bytes, std::size_t unit)
{
    return bytes > SIZE_MAX - unit ? 0 : (bytes + unit - 1) / unit * unit;
}

unsigned char* MapLargePages(std::size_t bytes)
{
    const std::size_t size = RoundedUp(bytes, LargePage);
    if (size == 0 || size > SIZE_MAX - LargePage)
        return nullptr;
    // One page more than needed, to cut the piece that starts on a border of large pages out of it.
    void* mapped =
        mmap(nullptr, size + LargePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        return nullptr;
    unsigned char*    start = static_cast<unsigned char*>(mapped);
    const std::size_t before = (LargePage - reinterpret_cast<std::uintptr_t>(start) % LargePage) % LargePage;
    if (before > 0)
        munmap(start, before);
    if (before < LargePage)
        munmap(start + before + size, LargePage - before);
#if defined(MADV_HUGEPAGE)
    madvise(start + before, size, MADV_HUGEPAGE);    // a wish: without it the pages are small
#endif
    return start + before;
}

}

unsigned char* AllocateBits(std::size_t bytes)
{
    if (TakesLargePages(bytes))
        return MapLargePages(bytes);
    const std::size_t size = RoundedUp(bytes == 0 ? 1 : bytes, LineBytes);
    void*             bits = std::aligned_alloc(LineBytes, size);
    if (bits)
        std::memset(bits, 0, size);
    return static_cast<unsigned char*>(bits);
}

void FreeBits(unsigned char* bits, std::size_t bytes)
{
    if (!bits)
        return;
    if (TakesLargePages(bytes))
        munmap(bits, RoundedUp(bytes, LargePage));
    else
        std::free(bits);
}

}
