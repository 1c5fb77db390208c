#pragma once

#include <cstddef>

namespace vostel::gdi {

// Zeroed memory for the bits of a bitmap, aligned to a cache line; null when there is none. Untouched pages
// of large bitmaps cost nothing.
unsigned char* AllocateBits(std::size_t bytes);

// bytes: as allocated. Null is ignored.
void FreeBits(unsigned char* bits, std::size_t bytes);

}
