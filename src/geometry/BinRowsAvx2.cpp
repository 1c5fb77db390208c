#include "geometry/BinRows.h"

#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

using Simd = SimdAvx2;

// Four values by the steps of BinOf.
struct DoubleBins {
    __m256d Low, High, Width, PerUnit, Last, Outside;

    explicit DoubleBins(const BinRule& rule)
        : Low(Simd::Set(rule.Low)), High(Simd::Set(rule.High)), Width(Simd::Set(rule.Width)),
          PerUnit(Simd::Set(rule.PerUnit)), Last(Simd::Set(static_cast<double>(rule.Last))),
          Outside(Simd::Set(static_cast<double>(rule.Last) + 1.0))
    {
    }

    __m128i operator()(__m128 values) const
    {
        const __m256d one = Simd::Set(1.0);
        const __m256d v = _mm256_cvtps_pd(values);
        const __m256d inside =
            _mm256_and_pd(_mm256_cmp_pd(v, Low, _CMP_GE_OQ), _mm256_cmp_pd(v, High, _CMP_LE_OQ));
        __m256d bin = _mm256_min_pd(Simd::Mul(Simd::Sub(v, Low), PerUnit), Last);
        bin = _mm256_round_pd(bin, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
        const __m256d bound = Simd::Add(Low, Simd::Mul(bin, Width));
        const __m256d next = Simd::Add(Low, Simd::Mul(Simd::Add(bin, one), Width));
        const __m256d under = _mm256_and_pd(_mm256_cmp_pd(v, bound, _CMP_LT_OQ),
                                            _mm256_cmp_pd(bin, _mm256_setzero_pd(), _CMP_GT_OQ));
        const __m256d over =
            _mm256_and_pd(_mm256_cmp_pd(v, next, _CMP_GE_OQ), _mm256_cmp_pd(bin, Last, _CMP_LT_OQ));
        bin = Simd::Sub(bin, _mm256_and_pd(under, one));
        bin = Simd::Add(bin, _mm256_and_pd(over, one));
        return _mm256_cvttpd_epi32(_mm256_blendv_pd(Outside, bin, inside));
    }
};

std::size_t ByDoubles(const BinRule& rule, const float* values, std::int32_t* bins, std::size_t count)
{
    const DoubleBins binsOf(rule);
    std::size_t      x = 0;
    for (; x + 4 <= count; x += 4)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bins + x), binsOf(_mm_loadu_ps(values + x)));
    return x;
}

// Eight values in float; where one of them lies outside or near a bound, all of them in double.
std::size_t ByFloats(const BinRule& rule, const float* values, std::int32_t* bins, std::size_t count)
{
    const DoubleBins exact(rule);
    const __m256     low = Simd::Set(rule.LowFloat);
    const __m256     perUnit = Simd::Set(rule.PerUnitFloat);
    const __m256     sure = Simd::Set(0.5f - rule.Doubt);
    const __m256     half = Simd::Set(0.5f);
    const __m256     top = Simd::Set(static_cast<float>(rule.Last) + 1.0f);
    const __m256     positive = _mm256_castsi256_ps(Simd::Set(0x7FFFFFFF));
    std::size_t      x = 0;
    for (; x + 8 <= count; x += 8) {
        const __m256 v = Simd::Load(values + x);
        const __m256 place = Simd::Mul(Simd::Sub(v, low), perUnit);
        const __m256 whole = _mm256_floor_ps(place);
        const __m256 fromMiddle = _mm256_and_ps(Simd::Sub(Simd::Sub(place, whole), half), positive);
        const __m256 within = _mm256_and_ps(_mm256_cmp_ps(place, _mm256_setzero_ps(), _CMP_GE_OQ),
                                            _mm256_cmp_ps(place, top, _CMP_LT_OQ));
        const __m256 certain = _mm256_and_ps(within, _mm256_cmp_ps(fromMiddle, sure, _CMP_LT_OQ));
        if (_mm256_movemask_ps(certain) == 0xFF) {
            Simd::StoreInts(bins + x, _mm256_cvttps_epi32(whole));
            continue;
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bins + x), exact(_mm256_castps256_ps128(v)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bins + x + 4), exact(_mm256_extractf128_ps(v, 1)));
    }
    return x;
}

void Row(const BinRule& rule, const float* values, std::int32_t* bins, std::size_t count)
{
    const std::size_t x =
        rule.IsFloatUsable() ? ByFloats(rule, values, bins, count) : ByDoubles(rule, values, bins, count);
    BinRowPlain.Row(rule, values + x, bins + x, count - x);
}

}

const BinRowVariant BinRowAvx2 = {.Row = Row};

}
