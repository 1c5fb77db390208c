#include "platform/portable/StretchLanes.h"

#include "base/simd/SimdAvx2.h"

namespace vostel::gdi {
namespace {

// A vector has two 128-bit lanes, by which unpacking and packing work.
struct StretchSimd : SimdAvx2 {
    VOSTEL_INLINE static Ints And(Ints a, Ints b) { return _mm256_and_si256(a, b); }
    VOSTEL_INLINE static Ints UnpackLow(Ints a, Ints b) { return _mm256_unpacklo_epi8(a, b); }
    VOSTEL_INLINE static Ints UnpackHigh(Ints a, Ints b) { return _mm256_unpackhi_epi8(a, b); }
    // a * b of 16-bit elements, two neighbouring products added.
    VOSTEL_INLINE static Ints AddProducts(Ints a, Ints b) { return _mm256_madd_epi16(a, b); }
    VOSTEL_INLINE static Ints NarrowRowSums(Ints a, Ints b)
    {
        return _mm256_packs_epi32(_mm256_srai_epi32(a, 7), _mm256_srai_epi32(b, 7));
    }
    VOSTEL_INLINE static Ints NarrowColumnSums(Ints a, Ints b)
    {
        return _mm256_packs_epi32(_mm256_srai_epi32(a, 21), _mm256_srai_epi32(b, 21));
    }
    VOSTEL_INLINE static Ints PackBytes(Ints a, Ints b) { return _mm256_packus_epi16(a, b); }
    VOSTEL_INLINE static Ints Pick(Ints pixels, Ints places)
    {
        return _mm256_permutevar8x32_epi32(pixels, places);
    }

    // The narrowed sums of the low and the high bytes of each lane.
    VOSTEL_INLINE static void StoreUnpacked(std::uint16_t* to, Ints low, Ints high)
    {
        StoreInts(to, _mm256_permute2x128_si256(low, high, 0x20));
        StoreInts(to + 16, _mm256_permute2x128_si256(low, high, 0x31));
    }

    // The weights of target pixel k of each lane in all of the lane.
    VOSTEL_INLINE static void LoadWeights(const std::uint32_t* pair, std::ptrdiff_t, Ints (&weights)[4])
    {
        const Ints all = LoadInts(pair);
        weights[0] = _mm256_shuffle_epi32(all, 0x00);
        weights[1] = _mm256_shuffle_epi32(all, 0x55);
        weights[2] = _mm256_shuffle_epi32(all, 0xAA);
        weights[3] = _mm256_shuffle_epi32(all, 0xFF);
    }

    // Two pixels in each lane, channels side by side: b0 b1 g0 g1 r0 r1 a0 a1.
    VOSTEL_INLINE static Ints LoadPairs(const std::uint16_t* row, const int* columns)
    {
        const Ints order = _mm256_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15,    //
                                            0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15);
        const Ints both = _mm256_inserti128_si256(_mm256_castsi128_si256(LoadLane(row, columns[0])),
                                                  LoadLane(row, columns[4]), 1);
        return _mm256_shuffle_epi8(both, order);
    }

private:
    VOSTEL_INLINE static __m128i LoadLane(const std::uint16_t* row, int column)
    {
        return _mm_loadu_si128(
            reinterpret_cast<const __m128i*>(row + static_cast<std::ptrdiff_t>(column) * 4));
    }
};

void PickPixels(std::uint32_t* target, const std::uint32_t* source, const int* columns, int count,
                const std::uint32_t* rowAhead)
{
    // The rows of a shrunk picture lie too far apart for the processor to see the next one coming.
    const std::uint32_t* ahead = rowAhead ? rowAhead : source;
    int                  i = 0;
    for (; i + 8 <= count; i += 8) {
        const auto    pick = [&](int k) { return static_cast<int>(source[columns[i + k]]); };
        const __m128i low = _mm_set_epi32(pick(3), pick(2), pick(1), pick(0));
        const __m128i high = _mm_set_epi32(pick(7), pick(6), pick(5), pick(4));
        StretchSimd::Prefetch(ahead + columns[i], 0);
        StretchSimd::Prefetch(ahead + columns[i + 4], 0);
        StretchSimd::StoreInts(target + i, _mm256_set_m128i(high, low));
    }
    PickPixelsPlain(target, source, columns, i, count);
}

}

const StretchVariant StretchAvx2 = {.CopyPixels = CopyLanes<StretchSimd, 4, false>,
                                    .StreamPixels = CopyLanes<StretchSimd, 4, true>,
                                    .Fence = StretchSimd::Fence,
                                    .PickPixels = PickPixels,
                                    .RepeatPixels = RepeatLanes<StretchSimd>,
                                    .BlendRows = BlendRowLanes<StretchSimd, 2>,
                                    .BlendColumns = BlendColumnLanes<StretchSimd>};

}
