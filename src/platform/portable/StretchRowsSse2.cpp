#include "platform/portable/StretchLanes.h"

#include "base/simd/SimdSse2.h"

namespace vostel::gdi {
namespace {

struct StretchSimd : SimdSse2 {
    VOSTEL_INLINE static Ints And(Ints a, Ints b) { return _mm_and_si128(a, b); }
    VOSTEL_INLINE static Ints UnpackLow(Ints a, Ints b) { return _mm_unpacklo_epi8(a, b); }
    VOSTEL_INLINE static Ints UnpackHigh(Ints a, Ints b) { return _mm_unpackhi_epi8(a, b); }
    // a * b of 16-bit elements, two neighbouring products added.
    VOSTEL_INLINE static Ints AddProducts(Ints a, Ints b) { return _mm_madd_epi16(a, b); }
    VOSTEL_INLINE static Ints NarrowRowSums(Ints a, Ints b)
    {
        return _mm_packs_epi32(_mm_srai_epi32(a, 7), _mm_srai_epi32(b, 7));
    }
    VOSTEL_INLINE static Ints NarrowColumnSums(Ints a, Ints b)
    {
        return _mm_packs_epi32(_mm_srai_epi32(a, 21), _mm_srai_epi32(b, 21));
    }
    VOSTEL_INLINE static Ints PackBytes(Ints a, Ints b) { return _mm_packus_epi16(a, b); }

    // The narrowed sums of the low and the high bytes of each lane.
    VOSTEL_INLINE static void StoreUnpacked(std::uint16_t* to, Ints low, Ints high)
    {
        StoreInts(to, low);
        StoreInts(to + 8, high);
    }

    // The weights of target pixel k of each lane in all of the lane.
    VOSTEL_INLINE static void LoadWeights(const std::uint32_t* pair, std::ptrdiff_t, Ints (&weights)[4])
    {
        const Ints all = LoadInts(pair);
        weights[0] = _mm_shuffle_epi32(all, 0x00);
        weights[1] = _mm_shuffle_epi32(all, 0x55);
        weights[2] = _mm_shuffle_epi32(all, 0xAA);
        weights[3] = _mm_shuffle_epi32(all, 0xFF);
    }

    // Two pixels of a row with their channels side by side: b0 b1 g0 g1 r0 r1 a0 a1.
    VOSTEL_INLINE static Ints LoadPairs(const std::uint16_t* row, const int* columns)
    {
        const Ints both = LoadInts(row + static_cast<std::ptrdiff_t>(columns[0]) * 4);
        return _mm_unpacklo_epi16(both, _mm_srli_si128(both, 8));
    }
};

void PickPixels(std::uint32_t* target, const std::uint32_t* source, const int* columns, int count,
                const std::uint32_t*)
{
    PickPixelsPlain(target, source, columns, 0, count);
}

void RepeatPixels(std::uint32_t* target, const std::uint32_t* source, int, const int* columns, int count)
{
    PickPixelsPlain(target, source, columns, 0, count);
}

}

const StretchVariant StretchSse2 = {.CopyPixels = CopyLanes<StretchSimd, 4, false>,
                                    .StreamPixels = CopyLanes<StretchSimd, 4, true>,
                                    .Fence = StretchSimd::Fence,
                                    .PickPixels = PickPixels,
                                    .RepeatPixels = RepeatPixels,
                                    .BlendRows = BlendRowLanes<StretchSimd, 1>,
                                    .BlendColumns = BlendColumnLanes<StretchSimd>};

}
