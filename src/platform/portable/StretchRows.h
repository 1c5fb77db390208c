#pragma once

// The inner loops of the stretches. Every form gives the same bits. Pixels are 32-bit words.

#include <cstddef>
#include <cstdint>

namespace vostel::gdi {

// BlendColumns reads the weights of eight pixels at a time: see its table layout.
inline constexpr int StretchBlock = 8;

struct StretchKernels {
    // Copies count pixels of a row and hints that as many from rowAhead will be read next; it may be null.
    // Target and source do not overlap.
    void (*CopyPixels)(std::uint32_t* target, const std::uint32_t* source, int count,
                       const std::uint32_t* rowAhead);

    // The same past the caches: the target's lines are not read before they are overwritten. EndStream makes
    // what has been streamed visible to other threads.
    void (*StreamPixels)(std::uint32_t* target, const std::uint32_t* source, int count,
                         const std::uint32_t* rowAhead);
    void (*EndStream)();

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
    // + 2^20, >> 21; the high byte becomes 0. pairs holds two weights in a word, the first in the low half:
    // the word of tap pair p of pixel i is pairs[(i / 8 * pairsEach + p) * 8 + i % 8]. Row pixels up to
    // columns[i] + 2 * pairsEach - 1 are read, whatever their weight.
    void (*BlendColumns)(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                         const std::uint32_t* pairs, int pairsEach, int count);
};

// Targets of this many pixels and more are streamed: a frame of that size does not stay in the caches of one
// processor core anyway.
inline constexpr std::int64_t StreamedPixels = std::int64_t{1} << 20;

// Those of the form in use.
const StretchKernels& ActiveStretchKernels();

// The reference; the fast forms give it their tails, from a pixel or byte on.
void PickPixelsPlain(std::uint32_t* target, const std::uint32_t* source, const int* columns, int from,
                     int count);
void BlendRowsPlain(std::uint16_t* target, const std::uint8_t* const* rows, const std::int16_t* weights,
                    int rowCount, int from, int count);
void BlendColumnsPlain(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                       const std::uint32_t* pairs, int pairsEach, int from, int count);

const StretchKernels& StretchKernelsPlain();
const StretchKernels& StretchKernelsSse2();
const StretchKernels& StretchKernelsAvx2();
const StretchKernels& StretchKernelsAvx512();

}
