#include "platform/portable/StretchLanes.h"

#include "base/simd/SimdAvx512.h"

namespace vostel::gdi {
namespace {

// A vector has four 128-bit lanes, by which unpacking and packing work.
struct StretchSimd : SimdAvx512 {
    VOSTEL_INLINE static Ints And(Ints a, Ints b) { return _mm512_and_si512(a, b); }
    VOSTEL_INLINE static Ints UnpackLow(Ints a, Ints b) { return _mm512_unpacklo_epi8(a, b); }
    VOSTEL_INLINE static Ints UnpackHigh(Ints a, Ints b) { return _mm512_unpackhi_epi8(a, b); }
    // a * b of 16-bit elements, two neighbouring products added.
    VOSTEL_INLINE static Ints AddProducts(Ints a, Ints b) { return _mm512_madd_epi16(a, b); }
    VOSTEL_INLINE static Ints NarrowRowSums(Ints a, Ints b)
    {
        return _mm512_packs_epi32(_mm512_srai_epi32(a, 7), _mm512_srai_epi32(b, 7));
    }
    VOSTEL_INLINE static Ints NarrowColumnSums(Ints a, Ints b)
    {
        return _mm512_packs_epi32(_mm512_srai_epi32(a, 21), _mm512_srai_epi32(b, 21));
    }
    VOSTEL_INLINE static Ints PackBytes(Ints a, Ints b) { return _mm512_packus_epi16(a, b); }
    VOSTEL_INLINE static Ints Pick(Ints pixels, Ints places)
    {
        return _mm512_permutexvar_epi32(places, pixels);
    }

    // The narrowed sums of the low and the high bytes of each lane.
    VOSTEL_INLINE static void StoreUnpacked(std::uint16_t* to, Ints low, Ints high)
    {
        const Ints firstHalf = _mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11);
        const Ints secondHalf = _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15);
        StoreInts(to, _mm512_permutex2var_epi64(low, firstHalf, high));
        StoreInts(to + 32, _mm512_permutex2var_epi64(low, secondHalf, high));
    }

    // The weights of target pixel k of each lane in all of the lane.
    VOSTEL_INLINE static void LoadWeights(const std::uint32_t* pair, std::ptrdiff_t nextBlock,
                                          Ints (&weights)[4])
    {
        const Ints all =
            _mm512_inserti64x4(_mm512_castsi256_si512(LoadHalf(pair)), LoadHalf(pair + nextBlock), 1);
        weights[0] = _mm512_shuffle_epi32(all, _MM_PERM_AAAA);
        weights[1] = _mm512_shuffle_epi32(all, _MM_PERM_BBBB);
        weights[2] = _mm512_shuffle_epi32(all, _MM_PERM_CCCC);
        weights[3] = _mm512_shuffle_epi32(all, _MM_PERM_DDDD);
    }

    // Two pixels in each lane, channels side by side: b0 b1 g0 g1 r0 r1 a0 a1.
    VOSTEL_INLINE static Ints LoadPairs(const std::uint16_t* row, const int* columns)
    {
        const Ints order =
            _mm512_broadcast_i32x4(_mm_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15));
        const __m256i low = LoadLanes(row, columns[0], columns[4]);
        const __m256i high = LoadLanes(row, columns[8], columns[12]);
        return _mm512_shuffle_epi8(_mm512_inserti64x4(_mm512_castsi256_si512(low), high, 1), order);
    }

private:
    VOSTEL_INLINE static __m256i LoadHalf(const std::uint32_t* from)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    }
    VOSTEL_INLINE static __m128i LoadLane(const std::uint16_t* row, int column)
    {
        return _mm_loadu_si128(
            reinterpret_cast<const __m128i*>(row + static_cast<std::ptrdiff_t>(column) * 4));
    }
    VOSTEL_INLINE static __m256i LoadLanes(const std::uint16_t* row, int first, int second)
    {
        return _mm256_inserti128_si256(_mm256_castsi128_si256(LoadLane(row, first)), LoadLane(row, second),
                                       1);
    }
};

void PickPixels(std::uint32_t* target, const std::uint32_t* source, const int* columns, int count,
                const std::uint32_t* rowAhead)
{
    StretchAvx2.PickPixels(target, source, columns, count, rowAhead);    // wider vectors do not pay
}

}

const StretchVariant StretchAvx512 = {.CopyPixels = CopyLanes<StretchSimd, 2, false>,
                                      .StreamPixels = CopyLanes<StretchSimd, 2, true>,
                                      .Fence = StretchSimd::Fence,
                                      .PickPixels = PickPixels,
                                      .RepeatPixels = RepeatLanes<StretchSimd>,
                                      .BlendRows = BlendRowLanes<StretchSimd, 1>,
                                      .BlendColumns = BlendColumnLanes<StretchSimd>};

}
