#include "output/ContrastRowsVariants.h"

#include <cstdint>
#include <immintrin.h>

namespace vostel {

namespace {

// Pixels in front of the next cache line, at most count.
std::size_t PixelsToLine(const void* pixels, std::size_t count)
{
    const std::size_t words = (0 - reinterpret_cast<std::uintptr_t>(pixels)) % 64 / 4;
    return words < count ? words : count;
}

// The four cache lines that are due two pages on: the processor's own guesses end with each page. What lies
// there need not be readable.
void Prefetch(const float* raw)
{
    const std::uintptr_t ahead = reinterpret_cast<std::uintptr_t>(raw) + 8192;
    _mm_prefetch(reinterpret_cast<const char*>(ahead), _MM_HINT_NTA);
    _mm_prefetch(reinterpret_cast<const char*>(ahead + 64), _MM_HINT_NTA);
    _mm_prefetch(reinterpret_cast<const char*>(ahead + 128), _MM_HINT_NTA);
    _mm_prefetch(reinterpret_cast<const char*>(ahead + 192), _MM_HINT_NTA);
}

// Data rows are taken downwards where labels are read upwards; what lies before the first need not be
// readable.
void PrefetchRowBefore(const float* raw, std::size_t row)
{
    _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(raw) - row * sizeof(float)),
                 _MM_HINT_T0);
}

// Each of the two makes eight pixels. The conversion gives the lowest integer where a value does not fit, and
// that has no low bits.
__m256i Spread(__m256i gray)
{
    const __m256i order = _mm256_setr_epi8(0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1,    //
                                           0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1);
    return _mm256_shuffle_epi8(gray, order);
}

struct RampPixels {
    __m256 Low;
    __m256 Span;
    __m256 Factor;
    __m256 Bias;

    explicit RampPixels(const ContrastTable& table)
        : Low(_mm256_set1_ps(table.Low)), Span(_mm256_set1_ps(table.Span)),
          Factor(_mm256_set1_ps(table.Factor)), Bias(_mm256_set1_ps(table.Bias))
    {
    }

    __m256i operator()(const float* raw) const
    {
        const __m256i entry =
            _mm256_and_si256(_mm256_cvttps_epi32(_mm256_loadu_ps(raw)), _mm256_set1_epi32(0xFFFF));
        __m256 distance = _mm256_sub_ps(_mm256_cvtepi32_ps(entry), Low);
        distance = _mm256_min_ps(_mm256_max_ps(distance, _mm256_setzero_ps()), Span);
        return Spread(_mm256_cvttps_epi32(_mm256_add_ps(_mm256_mul_ps(distance, Factor), Bias)));
    }
};

struct TablePixels {
    const int* Gray;

    explicit TablePixels(const ContrastTable& table) : Gray(reinterpret_cast<const int*>(table.Gray)) {}

    __m256i operator()(const float* raw) const
    {
        const __m256i entry =
            _mm256_and_si256(_mm256_cvttps_epi32(_mm256_loadu_ps(raw)), _mm256_set1_epi32(0xFFFF));
        return Spread(_mm256_i32gather_epi32(Gray, entry, 1));
    }
};

template <typename Pixels>
void StreamLine(const Pixels& show, const float* raw, unsigned* pixels)
{
    const __m256i first = show(raw);
    const __m256i second = show(raw + 8);
    _mm256_stream_si256(reinterpret_cast<__m256i*>(pixels), first);
    _mm256_stream_si256(reinterpret_cast<__m256i*>(pixels + 8), second);
}

// Whole runs; answers how many pixels were written.
template <typename Pixels>
std::size_t Row(const Pixels& show, const float* raw, unsigned* pixels, std::size_t count, bool streaming)
{
    std::size_t x = 0;
    if (streaming) {
        for (; x + 64 <= count; x += 64) {
            Prefetch(raw + x);
            for (std::size_t part = x; part < x + 64; part += 16)
                StreamLine(show, raw + part, pixels + part);
        }
        for (; x + 16 <= count; x += 16)
            StreamLine(show, raw + x, pixels + x);
    } else {
        for (; x + 8 <= count; x += 8)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels + x), show(raw + x));
    }
    return x;
}

template <typename Pixels>
std::size_t RowLabelled(const Pixels& show, const float* raw, unsigned* pixels, const int* label,
                        std::size_t count)
{
    std::size_t x = 0;
    for (; x + 8 <= count; x += 8) {
        const __m256i labels = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(label + x));
        const __m256i marked = _mm256_cmpgt_epi32(labels, _mm256_setzero_si256());
        const int     lanes = _mm256_movemask_ps(_mm256_castsi256_ps(marked));
        if (lanes == 0)
            continue;
        PrefetchRowBefore(raw + x, count);
        if (lanes == 0xFF)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels + x), show(raw + x));
        else
            _mm256_maskstore_epi32(reinterpret_cast<int*>(pixels + x), marked, show(raw + x));
    }
    return x;
}

}

void ContrastRowAvx2(const ContrastTable& table, const float* raw, unsigned* pixels, std::size_t count,
                     bool streaming)
{
    const std::size_t head = streaming ? PixelsToLine(pixels, count) : 0;
    ContrastRowPlain(table, raw, pixels, head, false);
    raw += head;
    pixels += head;
    count -= head;
    const std::size_t x = table.IsRamp ? Row(RampPixels(table), raw, pixels, count, streaming)
                                       : Row(TablePixels(table), raw, pixels, count, streaming);
    ContrastRowPlain(table, raw + x, pixels + x, count - x, false);
}

void ContrastRowLabelledAvx2(const ContrastTable& table, const float* raw, unsigned* pixels, const int* label,
                             std::size_t count)
{
    const std::size_t x = table.IsRamp ? RowLabelled(RampPixels(table), raw, pixels, label, count)
                                       : RowLabelled(TablePixels(table), raw, pixels, label, count);
    ContrastRowLabelledPlain(table, raw + x, pixels + x, label + x, count - x);
}

}
