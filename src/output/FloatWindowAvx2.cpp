#include "output/FloatWindow.h"

#include "base/simd/SimdAvx2.h"

#include <cstring>

namespace vostel {

namespace {

using Simd = SimdAvx2;

// Entries of the table for eight values.
template <bool Linear>
struct WindowEntries {
    __m256  Base, Factor, Offset, Top, Lowest, Highest;
    __m256i Below, Above, NotFinite;

    WindowEntries(const FloatWindow& window, unsigned below, unsigned above, unsigned notFinite)
        : Base(Simd::Set(window.Base)), Factor(Simd::Set(window.Factor)), Offset(Simd::Set(window.Offset)),
          Top(Simd::Set(window.Top)), Lowest(Simd::Set(window.Lowest)), Highest(Simd::Set(window.Highest)),
          Below(Simd::Set(static_cast<int>(below))), Above(Simd::Set(static_cast<int>(above))),
          NotFinite(Simd::Set(static_cast<int>(notFinite)))
    {
    }

    __m256i PlacesOf(__m256 v) const
    {
        __m256 place = Simd::Add(Simd::Mul(Simd::Sub(v, Base), Factor), Offset);
        place = _mm256_min_ps(_mm256_max_ps(place, _mm256_setzero_ps()), Top);
        return Linear ? _mm256_cvttps_epi32(place)
                      : _mm256_srli_epi32(_mm256_castps_si256(place), FloatWindow::DroppedBits);
    }

    // The inside of the window, replaced where the values lie elsewhere.
    __m256i Replaced(__m256i inside, __m256 v) const
    {
        const __m256i below = _mm256_castps_si256(_mm256_cmp_ps(v, Lowest, _CMP_LT_OQ));
        const __m256i above = _mm256_castps_si256(_mm256_cmp_ps(v, Highest, _CMP_GT_OQ));
        const __m256i exponent = _mm256_set1_epi32(0x7F800000);
        const __m256i notFinite =
            _mm256_cmpeq_epi32(_mm256_and_si256(_mm256_castps_si256(v), exponent), exponent);
        inside = _mm256_blendv_epi8(inside, Below, below);
        inside = _mm256_blendv_epi8(inside, Above, above);
        return _mm256_blendv_epi8(inside, NotFinite, notFinite);
    }
};

// Grays need no table.
std::size_t ShowGrays(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count)
{
    const WindowEntries<true> entries(window, window.Curve.BelowPixel, window.Curve.AbovePixel,
                                      window.Curve.NotFinitePixel);
    const __m256i order = _mm256_setr_epi8(0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1,    //
                                           0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1);
    std::size_t   x = 0;
    for (; x + 8 <= count; x += 8) {
        const __m256 v = Simd::Load(values + x);
        Simd::Prefetch(values + x, 4096);
        Simd::StoreInts(pixels + x, entries.Replaced(_mm256_shuffle_epi8(entries.PlacesOf(v), order), v));
    }
    return x;
}

// The entries first, and then their pixels one by one from two entries a load: gathers take twice as long.
template <bool Linear>
std::size_t ShowByTable(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count)
{
    const WindowEntries<Linear> entries(window, static_cast<unsigned>(window.Below),
                                        static_cast<unsigned>(window.Above),
                                        static_cast<unsigned>(window.NotFinite));
    std::size_t                 end = 0;
    for (; end + 8 <= count; end += 8) {
        const __m256 v = Simd::Load(values + end);
        Simd::Prefetch(values + end, 4096);
        Simd::StoreInts(pixels + end, entries.Replaced(entries.PlacesOf(v), v));
    }
    const unsigned* const table = window.Pixels();
    for (std::size_t x = 0; x < end; x += 8) {
        std::uint64_t pairs[4];
        std::memcpy(pairs, pixels + x, sizeof pairs);
        for (std::size_t i = 0; i < 4; ++i) {
            pixels[x + 2 * i] = table[static_cast<std::uint32_t>(pairs[i])];
            pixels[x + 2 * i + 1] = table[pairs[i] >> 32];
        }
    }
    return end;
}

void Row(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count)
{
    std::size_t x = 0;
    if (window.IsFast) {
        const auto show = !window.IsLinear ? ShowByTable<false>
                          : window.IsGray  ? ShowGrays
                                           : ShowByTable<true>;
        x = show(window, values, pixels, count);
    }
    FloatWindowPlain.Row(window, values + x, pixels + x, count - x);
}

}

const FloatWindowVariant FloatWindowAvx2 = {.Row = Row};

}
