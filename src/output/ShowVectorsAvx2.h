#pragma once

// Pixels of whole vectors of values, stored as the place wants them. Only files with the suffix Avx2 include
// this one; each of them has its own copy.

#include "base/simd/SimdAvx2.h"

#include <cstddef>

namespace vostel {

namespace {

template <typename Pixels>
void StreamLine(const Pixels& show, const float* raw, unsigned* pixels)
{
    const __m256i first = show(raw);
    const __m256i second = show(raw + 8);
    SimdAvx2::StreamInts(pixels, first);
    SimdAvx2::StreamInts(pixels + 8, second);
}

// show(raw) makes the eight pixels of eight values. With streaming, pixels begin a cache line. Returns how
// many pixels were written.
template <typename Pixels>
std::size_t ShowVectors(const Pixels& show, const float* raw, unsigned* pixels, std::size_t count,
                        bool streaming)
{
    std::size_t x = 0;
    if (streaming) {
        for (; x + 64 <= count; x += 64) {
            SimdAvx2::PrefetchTwoPagesOn(raw + x, 4);
            for (std::size_t part = x; part < x + 64; part += 16)
                StreamLine(show, raw + part, pixels + part);
        }
        for (; x + 16 <= count; x += 16)
            StreamLine(show, raw + x, pixels + x);
    } else {
        for (; x + 8 <= count; x += 8)
            SimdAvx2::StoreInts(pixels + x, show(raw + x));
    }
    return x;
}

}

}
