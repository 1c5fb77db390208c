#include "output/FloatRange.h"

#include "base/CacheLimits.h"
#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

using Simd = SimdAvx2;

enum class Copy { None, Store, Stream };

// Minps and maxps return their second operand unless the comparison holds: a not-a-number element leaves the
// running value, as the plain comparison does. Whole runs of 32; returns how many elements were folded.
template <Copy copying>
std::size_t Fold(const float* source, float* copy, std::size_t count, float& lo, float& hi,
                 bool& negativeZero)
{
    __m256 low[4];
    __m256 high[4];
    for (int i = 0; i < 4; ++i) {
        low[i] = Simd::Set(lo);
        high[i] = Simd::Set(hi);
    }
    const __m256i minusZero = _mm256_set1_epi32(INT32_MIN);
    __m256i       seen = _mm256_setzero_si256();
    std::size_t   x = 0;
    for (; x + 32 <= count; x += 32) {
        Simd::PrefetchTwoPagesOn(source + x, 2);
        for (int i = 0; i < 4; ++i) {
            const __m256 v = Simd::Load(source + x + 8 * i);
            if constexpr (copying == Copy::Stream)
                Simd::Stream(copy + x + 8 * i, v);
            else if constexpr (copying == Copy::Store)
                Simd::Store(copy + x + 8 * i, v);
            low[i] = _mm256_min_ps(v, low[i]);
            high[i] = _mm256_max_ps(v, high[i]);
            seen = _mm256_or_si256(seen, _mm256_cmpeq_epi32(_mm256_castps_si256(v), minusZero));
        }
    }
    float lanes[16];
    Simd::Store(lanes, _mm256_min_ps(_mm256_min_ps(low[0], low[1]), _mm256_min_ps(low[2], low[3])));
    Simd::Store(lanes + 8, _mm256_max_ps(_mm256_max_ps(high[0], high[1]), _mm256_max_ps(high[2], high[3])));
    for (int i = 0; i < 8; ++i) {
        lo = lanes[i] < lo ? lanes[i] : lo;
        hi = lanes[8 + i] > hi ? lanes[8 + i] : hi;
    }
    negativeZero = negativeZero || _mm256_testz_si256(seen, seen) == 0;
    return x;
}

__m256 Remapped(__m256 v, const __m256* limits)
{
    const __m256 ramp = _mm256_add_ps(_mm256_mul_ps(_mm256_sub_ps(v, limits[2]), limits[3]), limits[4]);
    const __m256 high = _mm256_blendv_ps(ramp, limits[5], _mm256_cmp_ps(v, limits[1], _CMP_GE_OQ));
    return _mm256_blendv_ps(high, limits[4], _mm256_cmp_ps(v, limits[0], _CMP_LE_OQ));
}

void MinMax(const float* source, float* copy, std::size_t count, bool streaming, float& lo, float& hi,
            bool& negativeZero)
{
    std::size_t x = 0;
    if (!copy) {
        x = Fold<Copy::None>(source, nullptr, count, lo, hi, negativeZero);
    } else if (!streaming) {
        x = Fold<Copy::Store>(source, copy, count, lo, hi, negativeZero);
    } else {
        const std::size_t head = ElementsToCacheLine(copy, count);
        FloatRangePlain.MinMax(source, copy, head, false, lo, hi, negativeZero);
        x = head + Fold<Copy::Stream>(source + head, copy + head, count - head, lo, hi, negativeZero);
    }
    FloatRangePlain.MinMax(source + x, copy ? copy + x : nullptr, count - x, false, lo, hi, negativeZero);
}

void Remap(const RemapRule& rule, const float* source, float* target, std::size_t count, bool streaming)
{
    const __m256 limits[6] = {Simd::Set(rule.LowLimit), Simd::Set(rule.HighLimit), Simd::Set(rule.Base),
                              Simd::Set(rule.Slope),    Simd::Set(rule.OutLow),    Simd::Set(rule.OutHigh)};
    std::size_t  x = 0;
    if (streaming) {
        x = ElementsToCacheLine(target, count);
        FloatRangePlain.Remap(rule, source, target, x, false);
        for (; x + 16 <= count; x += 16) {
            const __m256 first = Remapped(Simd::Load(source + x), limits);
            const __m256 second = Remapped(Simd::Load(source + x + 8), limits);
            Simd::Stream(target + x, first);
            Simd::Stream(target + x + 8, second);
        }
    } else {
        for (; x + 8 <= count; x += 8)
            Simd::Store(target + x, Remapped(Simd::Load(source + x), limits));
    }
    FloatRangePlain.Remap(rule, source + x, target + x, count - x, false);
}

}

const FloatRangeVariant FloatRangeAvx2 = {.MinMax = MinMax, .Remap = Remap};

}
