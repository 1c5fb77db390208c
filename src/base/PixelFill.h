#pragma once

// Runs of 32-bit words that go to memory. A plane larger than the caches is written past them: storing
// through the caches would first read every line that is about to be overwritten.

#include <cstddef>
#include <cstdint>

namespace vostel {

// True for a write of so many bytes that the caches would not hold it until it is read again.
bool UsesStreamingStores(std::size_t bytes);

// With streaming, FenceStreamingStores has to follow before another thread may read what was written.
void FillPixels(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming);
void CopyPixels(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming);
void FenceStreamingStores();

}
