#include "output/FloatWindow.h"

#include "base/CacheLimits.h"
#include "output/ShowVectorsAvx2.h"

#include <cstdint>
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

// Pixels of eight entries, two entries a load: gathers take longer.
__m256i PixelsOf(const unsigned* table, const std::uint32_t* entries)
{
    std::uint64_t pairs[4];
    std::memcpy(pairs, entries, sizeof pairs);
    const auto first = [&](int i) { return static_cast<int>(table[static_cast<std::uint32_t>(pairs[i])]); };
    const auto second = [&](int i) { return static_cast<int>(table[pairs[i] >> 32]); };
    return _mm256_setr_epi32(first(0), second(0), first(1), second(1), first(2), second(2), first(3),
                             second(3));
}

// A block of entries first, and then their pixels: the processor reads far ahead in the first loop, which it
// cannot through the many loads of the second one.
template <bool Linear>
std::size_t ShowByTable(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count,
                        bool streaming)
{
    constexpr std::size_t       block = 1024;
    const unsigned* const       table = window.Pixels();
    const std::size_t           whole = count / 8 * 8;
    const WindowEntries<Linear> entries(window, static_cast<unsigned>(window.Below),
                                        static_cast<unsigned>(window.Above),
                                        static_cast<unsigned>(window.NotFinite));
    std::uint32_t               found[block];
    for (std::size_t begin = 0; begin < whole; begin += block) {
        const std::size_t here = whole - begin < block ? whole - begin : block;
        for (std::size_t x = 0; x < here; x += 8) {
            const __m256 v = Simd::Load(values + begin + x);
            Simd::Prefetch(values + begin + x, 4096);
            Simd::StoreInts(found + x, entries.Replaced(entries.PlacesOf(v), v));
        }
        for (std::size_t x = 0; x < here; x += 8) {
            const __m256i shown = PixelsOf(table, found + x);
            if (streaming)
                Simd::StreamInts(pixels + begin + x, shown);
            else
                Simd::StoreInts(pixels + begin + x, shown);
        }
    }
    return whole;
}

void Row(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count, bool streaming)
{
    const std::size_t head = streaming ? ElementsToCacheLine(pixels, count) : 0;
    FloatWindowPlain.Row(window, values, pixels, head, false);
    values += head;
    pixels += head;
    count -= head;
    std::size_t x = 0;
    if (window.IsFast) {
        x = !window.IsLinear ? ShowByTable<false>(window, values, pixels, count, streaming)
            : window.IsGray  ? ShowVectors(GrayPixels(window), values, pixels, count, streaming)
                             : ShowByTable<true>(window, values, pixels, count, streaming);
    }
    FloatWindowPlain.Row(window, values + x, pixels + x, count - x, false);
}

}

const FloatWindowVariant FloatWindowAvx2 = {.Row = Row};

}
