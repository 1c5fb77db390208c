#include "output/FloatWindow.h"

#include "base/CacheLimits.h"
#include "output/ShowVectorsAvx2.h"

#include <cstdint>

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
struct GrayPixels {
    WindowEntries<true> Entries;

    explicit GrayPixels(const FloatWindow& window)
        : Entries(window, window.Curve.BelowPixel, window.Curve.AbovePixel, window.Curve.NotFinitePixel)
    {
    }

    __m256i operator()(const float* values) const
    {
        const __m256i order = _mm256_setr_epi8(0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1,    //
                                               0, 0, 0, -1, 4, 4, 4, -1, 8, 8, 8, -1, 12, 12, 12, -1);
        const __m256  v = Simd::Load(values);
        return Entries.Replaced(_mm256_shuffle_epi8(Entries.PlacesOf(v), order), v);
    }
};

// The entries first, and then their pixels one by one from two entries a load: gathers take twice as long.
template <bool Linear>
struct TablePixels {
    WindowEntries<Linear> Entries;
    const unsigned*       Table;

    explicit TablePixels(const FloatWindow& window)
        : Entries(window, static_cast<unsigned>(window.Below), static_cast<unsigned>(window.Above),
                  static_cast<unsigned>(window.NotFinite)),
          Table(window.Pixels())
    {
    }

    __m256i operator()(const float* values) const
    {
        const __m256              v = Simd::Load(values);
        alignas(32) std::uint64_t pairs[4];
        Simd::StoreInts(pairs, Entries.Replaced(Entries.PlacesOf(v), v));
        return _mm256_setr_epi32(First(pairs[0]), Second(pairs[0]), First(pairs[1]), Second(pairs[1]),
                                 First(pairs[2]), Second(pairs[2]), First(pairs[3]), Second(pairs[3]));
    }

private:
    int First(std::uint64_t pair) const { return static_cast<int>(Table[static_cast<std::uint32_t>(pair)]); }
    int Second(std::uint64_t pair) const { return static_cast<int>(Table[pair >> 32]); }
};

void Row(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count, bool streaming)
{
    const std::size_t head = streaming ? ElementsToCacheLine(pixels, count) : 0;
    FloatWindowPlain.Row(window, values, pixels, head, false);
    values += head;
    pixels += head;
    count -= head;
    std::size_t x = 0;
    if (window.IsFast) {
        x = !window.IsLinear ? ShowVectors(TablePixels<false>(window), values, pixels, count, streaming)
            : window.IsGray  ? ShowVectors(GrayPixels(window), values, pixels, count, streaming)
                             : ShowVectors(TablePixels<true>(window), values, pixels, count, streaming);
    }
    FloatWindowPlain.Row(window, values + x, pixels + x, count - x, false);
}

}

const FloatWindowVariant FloatWindowAvx2 = {.Row = Row};

}
