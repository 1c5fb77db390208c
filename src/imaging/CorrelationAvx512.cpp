#include "imaging/Correlation.h"

#include <immintrin.h>

namespace {

constexpr int Lanes = 16;
constexpr int BlockRows = 4;

// The taps of source row q for the output rows Low..High, each of Vectors vectors of columns; kernel is the
// kernel row of output row 0. Every sum takes its taps one by one, multiplied and then added.
template <int Rows, int Vectors, int Low, int High>
__attribute__((always_inline)) inline void AddTaps(__m512 (&sums)[Rows][Vectors], const float* source,
                                                   const float* kernel, std::ptrdiff_t kernelWidth)
{
    for (std::ptrdiff_t i = 0; i < kernelWidth; ++i) {
        __m512 samples[Vectors];
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v)
            samples[v] = _mm512_loadu_ps(source + i + v * Lanes);
#pragma GCC unroll 8
        for (int r = Low; r <= High; ++r) {
            const __m512 tap = _mm512_set1_ps(kernel[i - r * kernelWidth]);
#pragma GCC unroll 8
            for (int v = 0; v < Vectors; ++v)
                sums[r][v] = _mm512_add_ps(sums[r][v], _mm512_mul_ps(tap, samples[v]));
        }
    }
}

template <int Rows, int Vectors>
__attribute__((always_inline)) inline void SumBlock(const CorrelationBlock& block, std::ptrdiff_t column)
{
    const std::ptrdiff_t width = block.KernelWidth;
    const float* const*  sources = block.Sources;
    const std::ptrdiff_t at = block.Offset + column;
    const int            height = block.KernelHeight;
    const float* const   kernel = block.Kernel;
    __m512               sums[Rows][Vectors];
#pragma GCC unroll 8
    for (int r = 0; r < Rows; ++r)
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v)
            sums[r][v] = _mm512_setzero_ps();
    if constexpr (Rows == 1) {
        for (std::ptrdiff_t q = 0; q < height; ++q)
            AddTaps<1, Vectors, 0, 0>(sums, sources[q] + at, kernel + q * width, width);
    } else if (height == 1) {
        AddTaps<Rows, Vectors, 0, 0>(sums, sources[0] + at, kernel, width);
        AddTaps<Rows, Vectors, 1, 1>(sums, sources[1] + at, kernel + width, width);
        AddTaps<Rows, Vectors, 2, 2>(sums, sources[2] + at, kernel + 2 * width, width);
        AddTaps<Rows, Vectors, 3, 3>(sums, sources[3] + at, kernel + 3 * width, width);
    } else {
        AddTaps<Rows, Vectors, 0, 0>(sums, sources[0] + at, kernel, width);
        AddTaps<Rows, Vectors, 0, 1>(sums, sources[1] + at, kernel + width, width);
        AddTaps<Rows, Vectors, 0, 2>(sums, sources[2] + at, kernel + 2 * width, width);
        for (std::ptrdiff_t q = 3; q < height; ++q)
            AddTaps<Rows, Vectors, 0, 3>(sums, sources[q] + at, kernel + q * width, width);
        const std::ptrdiff_t q = height;
        AddTaps<Rows, Vectors, 1, 3>(sums, sources[q] + at, kernel + q * width, width);
        AddTaps<Rows, Vectors, 2, 3>(sums, sources[q + 1] + at, kernel + (q + 1) * width, width);
        AddTaps<Rows, Vectors, 3, 3>(sums, sources[q + 2] + at, kernel + (q + 2) * width, width);
    }
#pragma GCC unroll 8
    for (int r = 0; r < Rows; ++r)
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v)
            _mm512_storeu_ps(block.Targets[r] + block.First + column + v * Lanes, sums[r][v]);
}

// What does not fill a block is done by one that reaches back over columns already done: the same sums again.
template <int Rows, int Vectors>
void SumColumns(const CorrelationBlock& block)
{
    constexpr std::ptrdiff_t wide = Vectors * Lanes;
    std::ptrdiff_t           x = 0;
    for (; x + wide <= block.Columns; x += wide)
        SumBlock<Rows, Vectors>(block, x);
    if (x < block.Columns && block.Columns >= wide && block.Columns - x > Lanes) {
        SumBlock<Rows, Vectors>(block, block.Columns - wide);
        return;
    }
    for (; x + Lanes <= block.Columns; x += Lanes)
        SumBlock<Rows, 1>(block, x);
    if (x == block.Columns)
        return;
    if (block.Columns >= Lanes) {
        SumBlock<Rows, 1>(block, block.Columns - Lanes);
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

const CorrelationForm CorrelationAvx512 = {BlockRows, SumColumns<BlockRows, 4>, SumColumns<1, 4>};
