#pragma once

// Sizes of the caches, by which routines choose how to store.

#include "base/Compiler.h"

#include <cstddef>
#include <cstdint>

namespace vostel {

inline constexpr std::size_t CacheLineBytes = 64;

// From these sizes on a buffer does not stay in the caches until it is read again: those of one core, for
// what one thread writes, and those of the whole processor.
inline constexpr std::size_t CoreCacheBytes = std::size_t{4} << 20;
inline constexpr std::size_t ProcessorCacheBytes = std::size_t{16} << 20;

// Elements of 32 bits in front of the next cache line, at most count. Their address is a multiple of four.
VOSTEL_INLINE std::size_t ElementsToCacheLine(const void* target, std::size_t count)
{
    const std::size_t elements = (0 - reinterpret_cast<std::uintptr_t>(target)) % CacheLineBytes / 4;
    return elements < count ? elements : count;
}

}
