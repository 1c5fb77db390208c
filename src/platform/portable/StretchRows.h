#pragma once

// The inner loops of the stretches on 32-bit pixels. Every variant gives the same bits.

#include "base/CacheLimits.h"

#include <cstddef>
#include <cstdint>

namespace vostel::gdi {

// BlendColumns reads the weights of eight pixels at a time: see its table layout.
inline constexpr int StretchBlock = 8;

struct StretchVariant {
    // Copies count pixels of a row and hints that as many from rowAhead will be read next; it may be null.
    // Target and source do not overlap.
    void (*CopyPixels)(std::uint32_t* target, const std::uint32_t* source, int count,
                       const std::uint32_t* rowAhead);

    // The same by non-temporal stores: the target's cache lines are not read before they are overwritten.
    // Fence makes what has been streamed visible to other threads.
    void (*StreamPixels)(std::uint32_t* target, const std::uint32_t* source, int count,
                         const std::uint32_t* rowAhead);
    void (*Fence)();

    // target[i] = source[columns[i]]. Hints that rowAhead, as long as source, will be read next; it may be
    // null.
    void (*PickPixels)(std::uint32_t* target, const std::uint32_t* source, const int* columns, int count,
                       const std::uint32_t* rowAhead);

    // The same for columns that go up or down by at most one from pixel to pixel. width: pixels of source.
    void (*RepeatPixels)(std::uint32_t* target, const std::uint32_t* source, int width, const int* columns,
                         int count);

    // target[i] = (sum over k of rows[k][i] * weights[k] + 64) >> 7. rowCount is even, the weights add up to
    // AxisTaps::One, so that the result is at most 255 * 128. Hints that the rows ahead bytes from these
    // will be read next; 0 for none.
    void (*BlendRows)(std::uint16_t* target, const std::uint8_t* const* rows, const std::int16_t* weights,
                      int rowCount, int count, std::ptrdiff_t ahead);

    // Pixel i from four channels of 16 bits: sum over its taps of row pixel columns[i] + tap times weight,
    // + 2^20, >> 21; the high byte becomes 0. An element of pairs holds two weights, the first in its low
    // half: that of tap pair p of pixel i is pairs[(i / 8 * pairsEach + p) * 8 + i % 8]. Row pixels up to
    // columns[i] + 2 * pairsEach - 1 are read, whatever their weight.
    void (*BlendColumns)(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                         const std::uint32_t* pairs, int pairsEach, int count);
};

// Targets of this many pixels and more are streamed: the caches of a processor core do not keep such a frame.
inline constexpr std::int64_t StreamedPixels = CoreCacheBytes / 4;

const StretchVariant& ActiveStretchVariant();

extern const StretchVariant StretchPlain;
extern const StretchVariant StretchSse2;
extern const StretchVariant StretchAvx2;
extern const StretchVariant StretchAvx512;

// The reference from a pixel or byte on, to which the other variants give their tails.
void PickPixelsPlain(std::uint32_t* target, const std::uint32_t* source, const int* columns, int from,
                     int count);
void BlendRowsPlain(std::uint16_t* target, const std::uint8_t* const* rows, const std::int16_t* weights,
                    int rowCount, int from, int count);
void BlendColumnsPlain(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                       const std::uint32_t* pairs, int pairsEach, int from, int count);

}
