#include "imaging/Correlation.h"

#include <cstdint>
#include <immintrin.h>

namespace {

constexpr int Lanes = 8;
constexpr int BlockRows = 4;
constexpr int BlockVectors = 2;

// The value is in a register here, says an instruction that is none. Otherwise compilers read a sample from
// memory again for each row that uses it, mostly across two lines.
[[gnu::always_inline]] inline void Settle([[maybe_unused]] __m256& value)
{
#if defined(__GNUC__)
    __asm__ volatile("" : "+x"(value) : : "memory");
#endif
}

// The taps of one source row for the output rows Low..High, each of Vectors vectors of columns; tapRow is
// where the kernel row of output row 0 starts or would start. Every sum takes its taps one by one, multiplied
// and then added. Unrolling over the taps as well was slower.
template <int Rows, int Vectors, int Low, int High>
[[gnu::always_inline]] inline void AddTaps(__m256 (&sums)[Rows][Vectors], const float* source,
                                           const float* kernel, std::ptrdiff_t tapRow, std::ptrdiff_t width)
{
    for (std::ptrdiff_t i = 0; i < width; ++i) {
        __m256 samples[Vectors];
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v) {
            samples[v] = _mm256_loadu_ps(source + i + v * Lanes);
            Settle(samples[v]);
        }
#pragma GCC unroll 8
        for (int r = Low; r <= High; ++r) {
            const __m256 tap = _mm256_set1_ps(kernel[tapRow - r * width + i]);
#pragma GCC unroll 8
            for (int v = 0; v < Vectors; ++v)
                sums[r][v] = _mm256_add_ps(sums[r][v], _mm256_mul_ps(tap, samples[v]));
        }
    }
}

// Past the caches only whole lines go: what a vector shares with a line goes through them.
[[gnu::always_inline]] inline void Store(float* target, __m256 value, bool pastCaches)
{
    if (pastCaches && reinterpret_cast<std::uintptr_t>(target) % (Lanes * sizeof(float)) == 0)
        _mm256_stream_ps(target, value);
    else
        _mm256_storeu_ps(target, value);
}

template <int Rows, int Vectors>
[[gnu::always_inline]] inline void SumBlock(const CorrelationBlock& block, std::ptrdiff_t column)
{
    const std::ptrdiff_t width = block.KernelWidth;
    const float* const*  sources = block.Sources;
    const std::ptrdiff_t at = block.Offset + column;
    const int            height = block.KernelHeight;
    const float* const   kernel = block.Kernel;
    __m256               sums[Rows][Vectors];
#pragma GCC unroll 8
    for (int r = 0; r < Rows; ++r)
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v)
            sums[r][v] = _mm256_setzero_ps();
    if constexpr (Rows == 1) {
        for (std::ptrdiff_t q = 0; q < height; ++q)
            AddTaps<1, Vectors, 0, 0>(sums, sources[q] + at, kernel, q * width, width);
    } else if (height == 1) {
        AddTaps<Rows, Vectors, 0, 0>(sums, sources[0] + at, kernel, 0, width);
        AddTaps<Rows, Vectors, 1, 1>(sums, sources[1] + at, kernel, width, width);
        AddTaps<Rows, Vectors, 2, 2>(sums, sources[2] + at, kernel, 2 * width, width);
        AddTaps<Rows, Vectors, 3, 3>(sums, sources[3] + at, kernel, 3 * width, width);
    } else {
        AddTaps<Rows, Vectors, 0, 0>(sums, sources[0] + at, kernel, 0, width);
        AddTaps<Rows, Vectors, 0, 1>(sums, sources[1] + at, kernel, width, width);
        AddTaps<Rows, Vectors, 0, 2>(sums, sources[2] + at, kernel, 2 * width, width);
        for (std::ptrdiff_t q = 3; q < height; ++q)
            AddTaps<Rows, Vectors, 0, 3>(sums, sources[q] + at, kernel, q * width, width);
        const std::ptrdiff_t q = height;
        AddTaps<Rows, Vectors, 1, 3>(sums, sources[q] + at, kernel, q * width, width);
        AddTaps<Rows, Vectors, 2, 3>(sums, sources[q + 1] + at, kernel, (q + 1) * width, width);
        AddTaps<Rows, Vectors, 3, 3>(sums, sources[q + 2] + at, kernel, (q + 2) * width, width);
    }
#pragma GCC unroll 8
    for (int r = 0; r < Rows; ++r)
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v)
            Store(block.Targets[r] + block.First + column + v * Lanes, sums[r][v], block.PastCaches);
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

void Fence()
{
    _mm_sfence();
}

}

const CorrelationForm CorrelationAvx2 = {BlockRows, SumColumns<BlockRows, BlockVectors>, SumColumns<1, 4>,
                                         Fence};
