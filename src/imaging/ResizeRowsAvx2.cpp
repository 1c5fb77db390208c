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
    // No load may leave the row: the right samples start one later.
    if (span < 8 && first <= columns.SourceWidth - 9)
        fetch.Span = 1;
    else if (span < 16 && first <= columns.SourceWidth - 17)
        fetch.Span = 2;
    if (fetch.Span > 0)
        fetch.Index = _mm256_sub_epi32(fetch.Index, _mm256_set1_epi32(first));
    return fetch;
}

[[gnu::always_inline]] inline __m256 Samples(const float* source, const Fetch& fetch)
{
    if (fetch.Span == 1)
        return _mm256_permutevar8x32_ps(_mm256_loadu_ps(source + fetch.First), fetch.Index);
    if (fetch.Span == 2) {
        const __m256 nearer = _mm256_permutevar8x32_ps(_mm256_loadu_ps(source + fetch.First), fetch.Index);
        const __m256 farther =
            _mm256_permutevar8x32_ps(_mm256_loadu_ps(source + fetch.First + 8), fetch.Index);
        // The permutation looks at the low three bits only, the choice at the sign: bit 3 moved there.
        return _mm256_blendv_ps(nearer, farther, _mm256_castsi256_ps(_mm256_slli_epi32(fetch.Index, 28)));
    }
    return _mm256_i32gather_ps(source, fetch.Index, 4);
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
    const __m256  left = Samples(source, fetch);
    const __m256  right = _mm256_mul_ps(fraction, Samples(source + 1, fetch));
    low = _mm256_add_pd(_mm256_mul_pd(LowHalf(left), _mm256_sub_pd(one, LowHalf(fraction))), LowHalf(right));
    high =
        _mm256_add_pd(_mm256_mul_pd(HighHalf(left), _mm256_sub_pd(one, HighHalf(fraction))), HighHalf(right));
}

ResizeColumns From(const ResizeColumns& columns, int x)
{
    return {columns.Index + x, columns.Fraction + x, columns.Count - x, columns.SourceWidth};
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

void SpreadAndBlend(const float* topSource, const float* bottomSource, const ResizeColumns& columns,
                    float fraction, float* target)
{
    const __m256d lower = _mm256_set1_pd(static_cast<double>(fraction));
    const __m256d upper = _mm256_sub_pd(_mm256_set1_pd(1.0), lower);
    int           x = 0;
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
