#pragma once

// Runs of 32-bit words that go to memory. A plane larger than the caches is written past them: storing
// through the caches would first read every line that is about to be overwritten.

#include <cstddef>
#include <cstdint>

// True for a write of so many bytes that the caches would not hold it until it is read again.
bool WritesPastCaches(std::size_t bytes);

// With pastCaches, WordFence has to follow before another thread may read what was written.
void FillWords(std::uint32_t* target, std::size_t count, std::uint32_t value, bool pastCaches);
void CopyWords(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool pastCaches);
void WordFence();
