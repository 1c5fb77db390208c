#include "imaging/ResizeRows.h"

#include <immintrin.h>

namespace {

constexpr int Lanes = 16;

// How the samples of sixteen neighbouring columns are fetched, left ones and right ones.
struct Fetch {
    __m512i Index;
    int     First;
    int     Span;    // loads of 16: one, two, or 0 for gathers
};

[[gnu::always_inline]] inline Fetch FetchOf(const ResizeColumns& columns, int x)
{
    const int first = columns.Index[x];
    const int span = columns.Index[x + Lanes - 1] - first;
    Fetch     fetch{_mm512_loadu_si512(columns.Index + x), first, 0};
    // The right samples come out of the same loads. None may leave the row.
    if (span < 15 && first <= columns.SourceWidth - 16)
        fetch.Span = 1;
    else if (span < 31 && first <= columns.SourceWidth - 32)
        fetch.Span = 2;
    if (fetch.Span > 0)
        fetch.Index = _mm512_sub_epi32(fetch.Index, _mm512_set1_epi32(first));
    return fetch;
}

[[gnu::always_inline]] inline void FetchSamples(const float* source, const Fetch& fetch, __m512& left,
                                                __m512& right)
{
    const __m512i next = _mm512_add_epi32(fetch.Index, _mm512_set1_epi32(1));
    if (fetch.Span == 1) {
        const __m512 samples = _mm512_loadu_ps(source + fetch.First);
        left = _mm512_permutexvar_ps(fetch.Index, samples);
        right = _mm512_permutexvar_ps(next, samples);
    } else if (fetch.Span == 2) {
        const __m512 samples = _mm512_loadu_ps(source + fetch.First);
        const __m512 more = _mm512_loadu_ps(source + fetch.First + 16);
        left = _mm512_permutex2var_ps(samples, fetch.Index, more);
        right = _mm512_permutex2var_ps(samples, next, more);
    } else {
        left = _mm512_i32gather_ps(fetch.Index, source, 4);
        right = _mm512_i32gather_ps(next, source, 4);
    }
}

[[gnu::always_inline]] inline __m512d LowHalf(__m512 v)
{
    return _mm512_cvtps_pd(_mm512_castps512_ps256(v));
}
[[gnu::always_inline]] inline __m512d HighHalf(__m512 v)
{
    return _mm512_cvtps_pd(_mm512_extractf32x8_ps(v, 1));
}

[[gnu::always_inline]] inline void Between(const float* source, const Fetch& fetch, __m512 fraction,
                                           __m512d& low, __m512d& high)
{
    const __m512d one = _mm512_set1_pd(1.0);
    __m512        left, right;
    FetchSamples(source, fetch, left, right);
    right = _mm512_mul_ps(fraction, right);
    low = _mm512_add_pd(_mm512_mul_pd(LowHalf(left), _mm512_sub_pd(one, LowHalf(fraction))), LowHalf(right));
    high =
        _mm512_add_pd(_mm512_mul_pd(HighHalf(left), _mm512_sub_pd(one, HighHalf(fraction))), HighHalf(right));
}

ResizeColumns From(const ResizeColumns& columns, int x)
{
    return {columns.Index + x, columns.Fraction + x, columns.Count - x, columns.SourceWidth, 0};
}

void Spread(const float* source, const ResizeColumns& columns, double* spread)
{
    int x = 0;
    for (; x + Lanes <= columns.Count; x += Lanes) {
        __m512d low, high;
        Between(source, FetchOf(columns, x), _mm512_loadu_ps(columns.Fraction + x), low, high);
        _mm512_storeu_pd(spread + x, low);
        _mm512_storeu_pd(spread + x + 8, high);
    }
    ResizePlain.Spread(source, From(columns, x), spread + x);
}

[[gnu::always_inline]] inline __m256 BlendEight(__m512d top, __m512d bottom, __m512d upper, __m512d lower)
{
    return _mm512_cvtpd_ps(_mm512_add_pd(_mm512_mul_pd(top, upper), _mm512_mul_pd(bottom, lower)));
}

void Blend(const double* top, const double* bottom, float fraction, float* target, int count)
{
    const __m512d lower = _mm512_set1_pd(static_cast<double>(fraction));
    const __m512d upper = _mm512_sub_pd(_mm512_set1_pd(1.0), lower);
    int           x = 0;
    for (; x + Lanes <= count; x += Lanes) {
        const __m256 low = BlendEight(_mm512_loadu_pd(top + x), _mm512_loadu_pd(bottom + x), upper, lower);
        const __m256 high =
            BlendEight(_mm512_loadu_pd(top + x + 8), _mm512_loadu_pd(bottom + x + 8), upper, lower);
        _mm256_storeu_ps(target + x, low);
        _mm256_storeu_ps(target + x + 8, high);
    }
    ResizePlain.Blend(top + x, bottom + x, fraction, target + x, count - x);
}

// Every second sample, with no fractions either way. The last loads end on the right sample of the last
// column.
int PickEverySecond(const float* topSource, const float* bottomSource, float* target, int count)
{
    const __m512i even = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    const __m512i odd = _mm512_add_epi32(even, _mm512_set1_epi32(1));
    const __m512  zero = _mm512_setzero_ps();
    int           x = 0;
    for (; x + Lanes <= count; x += Lanes) {
        const __m512 topLow = _mm512_loadu_ps(topSource + 2 * x);
        const __m512 topHigh = _mm512_loadu_ps(topSource + 2 * x + 16);
        const __m512 bottomLow = _mm512_loadu_ps(bottomSource + 2 * x);
        const __m512 bottomHigh = _mm512_loadu_ps(bottomSource + 2 * x + 16);
        const __m512 top = _mm512_add_ps(_mm512_permutex2var_ps(topLow, even, topHigh),
                                         _mm512_mul_ps(zero, _mm512_permutex2var_ps(topLow, odd, topHigh)));
        const __m512 bottom =
            _mm512_add_ps(_mm512_permutex2var_ps(bottomLow, even, bottomHigh),
                          _mm512_mul_ps(zero, _mm512_permutex2var_ps(bottomLow, odd, bottomHigh)));
        _mm512_storeu_ps(target + x, _mm512_add_ps(top, _mm512_mul_ps(zero, bottom)));
    }
    return x;
}

void SpreadAndBlend(const float* topSource, const float* bottomSource, const ResizeColumns& columns,
                    float fraction, float* target)
{
    const __m512d lower = _mm512_set1_pd(static_cast<double>(fraction));
    const __m512d upper = _mm512_sub_pd(_mm512_set1_pd(1.0), lower);
    int           x = 0;
    if (columns.WholeStep == 2 && fraction == 0.0f)
        x = PickEverySecond(topSource, bottomSource, target, columns.Count);
    for (; x + Lanes <= columns.Count; x += Lanes) {
        const Fetch  fetch = FetchOf(columns, x);
        const __m512 across = _mm512_loadu_ps(columns.Fraction + x);
        __m512d      topLow, topHigh, bottomLow, bottomHigh;
        Between(topSource, fetch, across, topLow, topHigh);
        Between(bottomSource, fetch, across, bottomLow, bottomHigh);
        _mm256_storeu_ps(target + x, BlendEight(topLow, bottomLow, upper, lower));
        _mm256_storeu_ps(target + x + 8, BlendEight(topHigh, bottomHigh, upper, lower));
    }
    ResizePlain.SpreadAndBlend(topSource, bottomSource, From(columns, x), fraction, target + x);
}

}

const ResizeForm ResizeAvx512 = {Spread, Blend, SpreadAndBlend};
