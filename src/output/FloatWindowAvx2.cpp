#include "output/FloatWindow.h"

#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

using Simd = SimdAvx2;

__m256i Spread(__m256i gray)
{
    const __m256i order = _mm256_setr_epi8(0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1,    //
                                           0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1);
    return _mm256_shuffle_epi8(gray, order);
}

template <bool Linear, bool Gray>
struct WindowPixels {
    __m256     Base, Factor, Offset, Top, Lowest, Highest;
    __m256i    Below, Above, NotFinite;
    const int* Levels;
    const int* Colors;

    explicit WindowPixels(const FloatWindow& window)
        : Base(Simd::Set(window.Base)), Factor(Simd::Set(window.Factor)), Offset(Simd::Set(window.Offset)),
          Top(Simd::Set(window.Top)), Lowest(Simd::Set(window.Lowest)), Highest(Simd::Set(window.Highest)),
          Below(Simd::Set(static_cast<int>(window.Curve.BelowPixel))),
          Above(Simd::Set(static_cast<int>(window.Curve.AbovePixel))),
          NotFinite(Simd::Set(static_cast<int>(window.Curve.NotFinitePixel))),
          Levels(reinterpret_cast<const int*>(window.LevelOfBits.data())),
          Colors(reinterpret_cast<const int*>(&window.Curve.Colors[0]))
    {
    }

    __m256i LevelsOf(__m256 place) const
    {
        if (Linear)
            return _mm256_cvttps_epi32(place);
        const __m256i entry = _mm256_srli_epi32(_mm256_castps_si256(place), FloatWindow::DroppedBits);
        return _mm256_and_si256(_mm256_i32gather_epi32(Levels, entry, 1), _mm256_set1_epi32(0xFF));
    }

    __m256i operator()(const float* values) const
    {
        const __m256 v = Simd::Load(values);
        __m256       place = Simd::Add(Simd::Mul(Simd::Sub(v, Base), Factor), Offset);
        place = _mm256_min_ps(_mm256_max_ps(place, _mm256_setzero_ps()), Top);
        const __m256i level = LevelsOf(place);
        __m256i       pixels = Gray ? Spread(level) : _mm256_i32gather_epi32(Colors, level, 4);
        const __m256i below = _mm256_castps_si256(_mm256_cmp_ps(v, Lowest, _CMP_LT_OQ));
        const __m256i above = _mm256_castps_si256(_mm256_cmp_ps(v, Highest, _CMP_GT_OQ));
        const __m256i exponent = _mm256_set1_epi32(0x7F800000);
        const __m256i notFinite =
            _mm256_cmpeq_epi32(_mm256_and_si256(_mm256_castps_si256(v), exponent), exponent);
        pixels = _mm256_blendv_epi8(pixels, Below, below);
        pixels = _mm256_blendv_epi8(pixels, Above, above);
        return _mm256_blendv_epi8(pixels, NotFinite, notFinite);
    }
};

template <bool Linear, bool Gray>
std::size_t ShowVectors(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count)
{
    const WindowPixels<Linear, Gray> show(window);
    std::size_t                      x = 0;
    for (; x + 8 <= count; x += 8)
        Simd::StoreInts(pixels + x, show(values + x));
    return x;
}

void Row(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count)
{
    std::size_t x = 0;
    if (window.IsFast) {
        const auto show = window.IsLinear ? window.IsGray ? ShowVectors<true, true> : ShowVectors<true, false>
                          : window.IsGray ? ShowVectors<false, true>
                                          : ShowVectors<false, false>;
        x = show(window, values, pixels, count);
    }
    FloatWindowPlain.Row(window, values + x, pixels + x, count - x);
}

}

const FloatWindowVariant FloatWindowAvx2 = {.Row = Row};

}
