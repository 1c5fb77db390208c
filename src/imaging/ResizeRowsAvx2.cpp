#include "imaging/ResizeRows.h"

#include <immintrin.h>

namespace {

constexpr int Lanes = 8;

// How the samples of eight neighbouring columns are fetched, left ones and right ones.
struct Fetch {
    __m256i Index;
    int     First;
    int     Span;    // loads of 8: one, two, or 0 for gathers
};

[[gnu::always_inline]] inline Fetch FetchOf(const ResizeColumns& columns, int x)
{
    const int first = columns.Index[x];
    const int span = columns.Index[x + Lanes - 1] - first;
    Fetch     fetch{_mm256_loadu_si256(reinterpret_cast<const __m256i*>(columns.Index + x)), first, 0};
    // The right samples come out of the same loads. None may leave the row.
    if (span < 7 && first <= columns.SourceWidth - 8)
        fetch.Span = 1;
    else if (span < 15 && first <= columns.SourceWidth - 16)
        fetch.Span = 2;
    if (fetch.Span > 0)
        fetch.Index = _mm256_sub_epi32(fetch.Index, _mm256_set1_epi32(first));
    return fetch;
}

// Out of sixteen samples. The permutation looks at the low three bits of an index only, the choice at its
// sign: bit 3 moved there.
[[gnu::always_inline]] inline __m256 OfTwo(__m256 samples, __m256 more, __m256i index)
{
    return _mm256_blendv_ps(_mm256_permutevar8x32_ps(samples, index), _mm256_permutevar8x32_ps(more, index),
                            _mm256_castsi256_ps(_mm256_slli_epi32(index, 28)));
}

[[gnu::always_inline]] inline void FetchSamples(const float* source, const Fetch& fetch, __m256& left,
                                                __m256& right)
{
    const __m256i next = _mm256_add_epi32(fetch.Index, _mm256_set1_epi32(1));
    if (fetch.Span == 1) {
        const __m256 samples = _mm256_loadu_ps(source + fetch.First);
        left = _mm256_permutevar8x32_ps(samples, fetch.Index);
        right = _mm256_permutevar8x32_ps(samples, next);
    } else if (fetch.Span == 2) {
        const __m256 samples = _mm256_loadu_ps(source + fetch.First);
        const __m256 more = _mm256_loadu_ps(source + fetch.First + 8);
        left = OfTwo(samples, more, fetch.Index);
        right = OfTwo(samples, more, next);
    } else {
        left = _mm256_i32gather_ps(source, fetch.Index, 4);
        right = _mm256_i32gather_ps(source, next, 4);
    }
}

[[gnu::always_inline]] inline __m256d LowHalf(__m256 v)
{
    return _mm256_cvtps_pd(_mm256_castps256_ps128(v));
}
[[gnu::always_inline]] inline __m256d HighHalf(__m256 v)
{
    return _mm256_cvtps_pd(_mm256_extractf128_ps(v, 1));
}

[[gnu::always_inline]] inline void Between(const float* source, const Fetch& fetch, __m256 fraction,
                                           __m256d& low, __m256d& high)
{
    const __m256d one = _mm256_set1_pd(1.0);
    __m256        left, right;
    FetchSamples(source, fetch, left, right);
    right = _mm256_mul_ps(fraction, right);
    low = _mm256_add_pd(_mm256_mul_pd(LowHalf(left), _mm256_sub_pd(one, LowHalf(fraction))), LowHalf(right));
    high =
        _mm256_add_pd(_mm256_mul_pd(HighHalf(left), _mm256_sub_pd(one, HighHalf(fraction))), HighHalf(right));
}

ResizeColumns From(const ResizeColumns& columns, int x)
{
    return {columns.Index + x, columns.Fraction + x, columns.Count - x, columns.SourceWidth, 0};
}

void Spread(const float* source, const ResizeColumns& columns, double* spread)
{
    int x = 0;
    for (; x + Lanes <= columns.Count; x += Lanes) {
        __m256d low, high;
        Between(source, FetchOf(columns, x), _mm256_loadu_ps(columns.Fraction + x), low, high);
        _mm256_storeu_pd(spread + x, low);
        _mm256_storeu_pd(spread + x + 4, high);
    }
    ResizePlain.Spread(source, From(columns, x), spread + x);
}

[[gnu::always_inline]] inline __m128 BlendFour(__m256d top, __m256d bottom, __m256d upper, __m256d lower)
{
    return _mm256_cvtpd_ps(_mm256_add_pd(_mm256_mul_pd(top, upper), _mm256_mul_pd(bottom, lower)));
}

void Blend(const double* top, const double* bottom, float fraction, float* target, int count)
{
    const __m256d lower = _mm256_set1_pd(static_cast<double>(fraction));
    const __m256d upper = _mm256_sub_pd(_mm256_set1_pd(1.0), lower);
    int           x = 0;
    for (; x + Lanes <= count; x += Lanes) {
        const __m128 low = BlendFour(_mm256_loadu_pd(top + x), _mm256_loadu_pd(bottom + x), upper, lower);
        const __m128 high =
            BlendFour(_mm256_loadu_pd(top + x + 4), _mm256_loadu_pd(bottom + x + 4), upper, lower);
        _mm_storeu_ps(target + x, low);
        _mm_storeu_ps(target + x + 4, high);
    }
    ResizePlain.Blend(top + x, bottom + x, fraction, target + x, count - x);
}

// Sixteen neighbouring samples: (even + 0 odd), in the order 0 2 8 10 4 6 12 14.
__m256 EverySecond(const float* source)
{
    const __m256 low = _mm256_loadu_ps(source);
    const __m256 high = _mm256_loadu_ps(source + 8);
    return _mm256_add_ps(_mm256_shuffle_ps(low, high, 0x88),
                         _mm256_mul_ps(_mm256_setzero_ps(), _mm256_shuffle_ps(low, high, 0xDD)));
}

// Every second sample, with no fractions either way. The last loads end on the right sample of the last
// column.
int PickEverySecond(const float* topSource, const float* bottomSource, float* target, int count)
{
    int x = 0;
    for (; x + Lanes <= count; x += Lanes) {
        const __m256 value =
            _mm256_add_ps(EverySecond(topSource + 2 * x),
                          _mm256_mul_ps(_mm256_setzero_ps(), EverySecond(bottomSource + 2 * x)));
        _mm256_storeu_ps(target + x, _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(value), 0xD8)));
    }
    return x;
}

void SpreadAndBlend(const float* topSource, const float* bottomSource, const ResizeColumns& columns,
                    float fraction, float* target)
{
    const __m256d lower = _mm256_set1_pd(static_cast<double>(fraction));
    const __m256d upper = _mm256_sub_pd(_mm256_set1_pd(1.0), lower);
    int           x = 0;
    if (columns.WholeStep == 2 && fraction == 0.0f)
        x = PickEverySecond(topSource, bottomSource, target, columns.Count);
    for (; x + Lanes <= columns.Count; x += Lanes) {
        const Fetch  fetch = FetchOf(columns, x);
        const __m256 across = _mm256_loadu_ps(columns.Fraction + x);
        __m256d      topLow, topHigh, bottomLow, bottomHigh;
        Between(topSource, fetch, across, topLow, topHigh);
        Between(bottomSource, fetch, across, bottomLow, bottomHigh);
        _mm_storeu_ps(target + x, BlendFour(topLow, bottomLow, upper, lower));
        _mm_storeu_ps(target + x + 4, BlendFour(topHigh, bottomHigh, upper, lower));
    }
    ResizePlain.SpreadAndBlend(topSource, bottomSource, From(columns, x), fraction, target + x);
}

}

const ResizeForm ResizeAvx2 = {Spread, Blend, SpreadAndBlend};
