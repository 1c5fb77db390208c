#pragma once

// The blocks of a correlation in registers, for files that name a processor feature. Simd brings the vector
// type and its operations; everything here is a template on it, so that each file has a copy of its own.

#include "base/CacheLimits.h"
#include "base/Compiler.h"
#include "imaging/Correlation.h"

#include <cstddef>
#include <cstdint>

namespace vostel {

namespace {

constexpr int            BlockRows = 4;
constexpr std::ptrdiff_t FloatBytes = sizeof(float);
constexpr int            FloatsOfLine = static_cast<int>(CacheLineBytes) / sizeof(float);
constexpr int            FloatsAhead = 256;    // the best of 128, 256, 512 and 1024

// The taps of one source row for the output rows Low..High, each of Vectors vectors of columns; tapRow is
// where the kernel row of output row 0 starts or would start. Every sum takes its taps one by one, multiplied
// and then added. Unrolling over the taps as well was slower.
template <typename Simd, int Rows, int Vectors, int Low, int High>
VOSTEL_INLINE void AddTaps(typename Simd::Floats (&sums)[Rows][Vectors], const float* source,
                           const float* kernel, std::ptrdiff_t tapRow, std::ptrdiff_t width)
{
    using Floats = typename Simd::Floats;
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        Floats samples[Vectors];
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v) {
            samples[v] = Simd::Load(source + i + v * Simd::Lanes);
            Simd::KeepInRegister(
                samples[v]);    // not loaded anew for each row, mostly across two cache lines
        }
        VOSTEL_UNROLL
        for (int r = Low; r <= High; ++r) {
            const Floats tap = Simd::Set(kernel[tapRow - r * width + i]);
            VOSTEL_UNROLL
            for (int v = 0; v < Vectors; ++v)
                sums[r][v] = Simd::Add(sums[r][v], Simd::Mul(tap, samples[v]));
        }
    }
}

// Only aligned vectors are streamed: each is a whole line or half of one.
template <typename Simd>
VOSTEL_INLINE void Store(float* target, typename Simd::Floats value, bool streaming)
{
    if (streaming && reinterpret_cast<std::uintptr_t>(target) % (Simd::Lanes * sizeof(float)) == 0)
        Simd::Stream(target, value);
    else
        Simd::Store(target, value);
}

template <typename Simd, int Rows, int Vectors>
VOSTEL_INLINE void SumBlock(const CorrelationBlock& block, std::ptrdiff_t column)
{
    const std::ptrdiff_t  width = block.KernelWidth;
    const float* const*   sources = block.Sources;
    const std::ptrdiff_t  at = block.Offset + column;
    const int             height = block.KernelHeight;
    const float* const    kernel = block.Kernel;
    typename Simd::Floats sums[Rows][Vectors];
    VOSTEL_UNROLL
    for (int r = 0; r < Rows; ++r) {
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            sums[r][v] = Simd::Set(0.0f);
    }
    if (block.Streaming) {
        // Of the rows that no block above has read.
        VOSTEL_UNROLL
        for (int r = 0; r < Rows; ++r) {
            VOSTEL_UNROLL
            for (int line = 0; line < Vectors * Simd::Lanes; line += FloatsOfLine)
                Simd::Prefetch(sources[height - 1 + r] + at, (FloatsAhead + line) * FloatBytes);
        }
    }
    if constexpr (Rows == 1) {
        for (std::ptrdiff_t q = 0; q < height; ++q)
            AddTaps<Simd, 1, Vectors, 0, 0>(sums, sources[q] + at, kernel, q * width, width);
    } else if (height == 1) {
        AddTaps<Simd, Rows, Vectors, 0, 0>(sums, sources[0] + at, kernel, 0, width);
        AddTaps<Simd, Rows, Vectors, 1, 1>(sums, sources[1] + at, kernel, width, width);
        AddTaps<Simd, Rows, Vectors, 2, 2>(sums, sources[2] + at, kernel, 2 * width, width);
        AddTaps<Simd, Rows, Vectors, 3, 3>(sums, sources[3] + at, kernel, 3 * width, width);
    } else {
        AddTaps<Simd, Rows, Vectors, 0, 0>(sums, sources[0] + at, kernel, 0, width);
        AddTaps<Simd, Rows, Vectors, 0, 1>(sums, sources[1] + at, kernel, width, width);
        AddTaps<Simd, Rows, Vectors, 0, 2>(sums, sources[2] + at, kernel, 2 * width, width);
        for (std::ptrdiff_t q = 3; q < height; ++q)
            AddTaps<Simd, Rows, Vectors, 0, 3>(sums, sources[q] + at, kernel, q * width, width);
        const std::ptrdiff_t q = height;
        AddTaps<Simd, Rows, Vectors, 1, 3>(sums, sources[q] + at, kernel, q * width, width);
        AddTaps<Simd, Rows, Vectors, 2, 3>(sums, sources[q + 1] + at, kernel, (q + 1) * width, width);
        AddTaps<Simd, Rows, Vectors, 3, 3>(sums, sources[q + 2] + at, kernel, (q + 2) * width, width);
    }
    VOSTEL_UNROLL
    for (int r = 0; r < Rows; ++r) {
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            Store<Simd>(block.Targets[r] + block.First + column + v * Simd::Lanes, sums[r][v],
                        block.Streaming);
    }
}

// What does not fill a block is done by one that reaches back over columns already done: the same sums again.
template <typename Simd, int Rows, int Vectors>
void SumColumns(const CorrelationBlock& block)
{
    constexpr std::ptrdiff_t Lanes = Simd::Lanes;
    constexpr std::ptrdiff_t Wide = Vectors * Lanes;
    std::ptrdiff_t           x = 0;
    for (; x + Wide <= block.Columns; x += Wide)
        SumBlock<Simd, Rows, Vectors>(block, x);
    if (x < block.Columns && block.Columns >= Wide && block.Columns - x > Lanes) {
        SumBlock<Simd, Rows, Vectors>(block, block.Columns - Wide);
        return;
    }
    for (; x + Lanes <= block.Columns; x += Lanes)
        SumBlock<Simd, Rows, 1>(block, x);
    if (x == block.Columns)
        return;
    if (block.Columns >= Lanes) {
        SumBlock<Simd, Rows, 1>(block, block.Columns - Lanes);
        return;
    }
    for (int r = 0; r < Rows; ++r) {
        CorrelationBlock row = block;
        row.Sources += r;
        row.Targets += r;
        CorrelationPlain.Row(row);
    }
}

}

}
