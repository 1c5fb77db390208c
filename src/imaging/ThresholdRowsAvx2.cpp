#include "imaging/ThresholdLanes.h"

#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

struct ThresholdSimd : SimdAvx2 {
    using Mask = Ints;    // all ones where the product is above

    // Sums of each element with all before it.
    VOSTEL_INLINE static Ints Scan(Ints v)
    {
        v = Add(v, _mm256_slli_si256(v, 4));
        v = Add(v, _mm256_slli_si256(v, 8));
        // The total of the low half goes to every element of the high one.
        const Ints low = _mm256_permutevar8x32_epi32(v, Set(3));
        return Add(v, _mm256_blend_epi32(_mm256_setzero_si256(), low, 0xF0));
    }
    VOSTEL_INLINE static Ints LastEverywhere(Ints v) { return _mm256_permutevar8x32_epi32(v, Set(7)); }
    VOSTEL_INLINE static int  First(Ints v) { return _mm256_cvtsi256_si32(v); }

    VOSTEL_INLINE static Mask Above(Ints products, Ints sums) { return _mm256_cmpgt_epi32(products, sums); }
    // Above 0.85 of the sum.
    VOSTEL_INLINE static Mask AboveInDouble(Ints products, Ints sums)
    {
        const Doubles part = Set(0.85);
        const Doubles low =
            _mm256_cmp_pd(_mm256_cvtepi32_pd(_mm256_castsi256_si128(products)),
                          Mul(_mm256_cvtepi32_pd(_mm256_castsi256_si128(sums)), part), _CMP_GT_OQ);
        const Doubles high =
            _mm256_cmp_pd(_mm256_cvtepi32_pd(_mm256_extracti128_si256(products, 1)),
                          Mul(_mm256_cvtepi32_pd(_mm256_extracti128_si256(sums, 1)), part), _CMP_GT_OQ);
        // One half of each comparison, 0 1 4 5 2 3 6 7, then in order.
        const Floats halves = _mm256_shuffle_ps(_mm256_castpd_ps(low), _mm256_castpd_ps(high), 0x88);
        return _mm256_permute4x64_epi64(_mm256_castps_si256(halves), 0xD8);
    }

    // 255 or 0 per lane of the four masks.
    VOSTEL_INLINE static void StoreMasks(unsigned char* to, const Mask (&masks)[4])
    {
        // The packs work lane by lane; the last step restores the order.
        const Ints bytes = _mm256_packs_epi16(_mm256_packs_epi32(masks[0], masks[1]),
                                              _mm256_packs_epi32(masks[2], masks[3]));
        StoreInts(to, _mm256_permutevar8x32_epi32(bytes, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7)));
    }
};

}

const ThresholdVariant ThresholdAvx2 = {.Slide = SlideLanes<ThresholdSimd>,
                                        .Decide = DecideLanes<ThresholdSimd>,
                                        .DecideInDouble = DecideLanesInDouble<ThresholdSimd>};

}
