#include "imaging/ThresholdLanes.h"

#include "base/simd/SimdAvx512.h"

namespace vostel {

namespace {

struct ThresholdSimd : SimdAvx512 {
    using Mask = __mmask16;    // set where the product is above

    // Sums of each element with all before it.
    VOSTEL_INLINE static Ints Scan(Ints v)
    {
        const Ints zero = _mm512_setzero_si512();
        v = Add(v, _mm512_alignr_epi32(v, zero, 15));
        v = Add(v, _mm512_alignr_epi32(v, zero, 14));
        v = Add(v, _mm512_alignr_epi32(v, zero, 12));
        return Add(v, _mm512_alignr_epi32(v, zero, 8));
    }
    VOSTEL_INLINE static Ints LastEverywhere(Ints v) { return _mm512_permutexvar_epi32(Set(15), v); }
    VOSTEL_INLINE static int  First(Ints v) { return _mm512_cvtsi512_si32(v); }

    VOSTEL_INLINE static Mask Above(Ints products, Ints sums)
    {
        return _mm512_cmpgt_epi32_mask(products, sums);
    }
    // Above 0.85 of the sum.
    VOSTEL_INLINE static Mask AboveInDouble(Ints products, Ints sums)
    {
        const Doubles  part = Set(0.85);
        const __mmask8 low =
            _mm512_cmp_pd_mask(_mm512_cvtepi32_pd(_mm512_castsi512_si256(products)),
                               Mul(_mm512_cvtepi32_pd(_mm512_castsi512_si256(sums)), part), _CMP_GT_OQ);
        const __mmask8 high =
            _mm512_cmp_pd_mask(_mm512_cvtepi32_pd(_mm512_extracti32x8_epi32(products, 1)),
                               Mul(_mm512_cvtepi32_pd(_mm512_extracti32x8_epi32(sums, 1)), part), _CMP_GT_OQ);
        return static_cast<Mask>(low | high << 8);
    }

    // 255 or 0 per lane of the four masks.
    VOSTEL_INLINE static void StoreMasks(unsigned char* to, const Mask (&masks)[4])
    {
        __mmask64 all = masks[0];
        VOSTEL_UNROLL
        for (int part = 1; part < 4; ++part)
            all |= static_cast<__mmask64>(masks[part]) << (16 * part);
        StoreInts(to, _mm512_movm_epi8(all));
    }
};

}

const ThresholdVariant ThresholdAvx512 = {.Slide = SlideLanes<ThresholdSimd>,
                                          .Decide = DecideLanes<ThresholdSimd>,
                                          .DecideInDouble = DecideLanesInDouble<ThresholdSimd>};

}
