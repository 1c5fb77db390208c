#include "output/ContrastRows.h"

#include "base/CacheLimits.h"
#include "output/ShowVectorsAvx2.h"

namespace vostel {

namespace {

using Simd = SimdAvx2;

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
            _mm256_and_si256(_mm256_cvttps_epi32(Simd::Load(raw)), _mm256_set1_epi32(0xFFFF));
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
            _mm256_and_si256(_mm256_cvttps_epi32(Simd::Load(raw)), _mm256_set1_epi32(0xFFFF));
        return Spread(_mm256_i32gather_epi32(Gray, entry, 1));
    }
};

template <typename Pixels>
std::size_t ShowLabelled(const Pixels& show, const float* raw, unsigned* pixels, const int* label,
                         std::size_t count)
{
    std::size_t x = 0;
    for (; x + 8 <= count; x += 8) {
        const __m256i marked = _mm256_cmpgt_epi32(Simd::LoadInts(label + x), _mm256_setzero_si256());
        const int     lanes = _mm256_movemask_ps(_mm256_castsi256_ps(marked));
        if (lanes == 0)
            continue;
        // Data rows are taken downwards where labels are read upwards.
        Simd::Prefetch(raw + x, -static_cast<std::ptrdiff_t>(count * sizeof(float)));
        if (lanes == 0xFF)
            Simd::StoreInts(pixels + x, show(raw + x));
        else
            _mm256_maskstore_epi32(reinterpret_cast<int*>(pixels + x), marked, show(raw + x));
    }
    return x;
}

void Row(const ContrastTable& table, const float* raw, unsigned* pixels, std::size_t count, bool streaming)
{
    const std::size_t head = streaming ? ElementsToCacheLine(pixels, count) : 0;
    ContrastPlain.Row(table, raw, pixels, head, false);
    raw += head;
    pixels += head;
    count -= head;
    const std::size_t x = table.IsRamp ? ShowVectors(RampPixels(table), raw, pixels, count, streaming)
                                       : ShowVectors(TablePixels(table), raw, pixels, count, streaming);
    ContrastPlain.Row(table, raw + x, pixels + x, count - x, false);
}

void RowLabelled(const ContrastTable& table, const float* raw, unsigned* pixels, const int* label,
                 std::size_t count)
{
    const std::size_t x = table.IsRamp ? ShowLabelled(RampPixels(table), raw, pixels, label, count)
                                       : ShowLabelled(TablePixels(table), raw, pixels, label, count);
    ContrastPlain.RowLabelled(table, raw + x, pixels + x, label + x, count - x);
}

}

const ContrastVariant ContrastAvx2 = {.Row = Row, .RowLabelled = RowLabelled};

}
