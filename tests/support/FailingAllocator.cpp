#include "support/FailingAllocator.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> LiveBlocks{0};
std::atomic<long> UntilFailure{0};    // counts down to the allocation that fails; 0: none does
std::atomic<bool> HasFailed{false};

bool IsTurnOfFailure()
{
    long left = UntilFailure.load();
    while (left > 0 && !UntilFailure.compare_exchange_weak(left, left - 1)) {
    }
    if (left != 1)
        return false;
    HasFailed = true;
    return true;
}

void* Take(std::size_t size)
{
    void* const block = IsTurnOfFailure() ? nullptr : std::malloc(size > 0 ? size : 1);
    if (!block)
        throw std::bad_alloc();
    ++LiveBlocks;
    return block;
}

void* TakeOrNull(std::size_t size) noexcept
{
    try {
        return Take(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void Give(void* block)
{
    if (!block)
        return;
    --LiveBlocks;
    std::free(block);
}

// The block's own address stands before the aligned one.
void* TakeAligned(std::size_t size, std::align_val_t alignment)
{
    const std::size_t    step = static_cast<std::size_t>(alignment);
    unsigned char* const block = static_cast<unsigned char*>(Take(size + step + sizeof(void*)));
    unsigned char* const begin = block + sizeof(void*);
    void* const          aligned = begin + (step - reinterpret_cast<std::uintptr_t>(begin) % step) % step;
    static_cast<void**>(aligned)[-1] = block;
    return aligned;
}

void GiveAligned(void* aligned)
{
    if (aligned)
        Give(static_cast<void**>(aligned)[-1]);
}

}

void* operator new(std::size_t size)
{
    return Take(size);
}
void* operator new[](std::size_t size)
{
    return Take(size);
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return TakeAligned(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return TakeAligned(size, alignment);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return TakeOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return TakeOrNull(size);
}
void operator delete(void* block, const std::nothrow_t&) noexcept
{
    Give(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    Give(block);
}
void operator delete(void* block) noexcept
{
    Give(block);
}
void operator delete[](void* block) noexcept
{
    Give(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    Give(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    Give(block);
}
void operator delete(void* block, std::align_val_t) noexcept
{
    GiveAligned(block);
}
void operator delete[](void* block, std::align_val_t) noexcept
{
    GiveAligned(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    GiveAligned(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept
{
    GiveAligned(block);
}

long LiveBlockCount()
{
    return LiveBlocks;
}

void FailAt(long n)
{
    HasFailed = false;
    UntilFailure = n;
}

bool HasAllocationFailed()
{
    return HasFailed;
}
