#include "imaging/ResizeLanes.h"

#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

struct ResizeSimd : SimdAvx2 {
    VOSTEL_INLINE static void    StoreNarrow(float* to, Doubles v) { _mm_storeu_ps(to, _mm256_cvtpd_ps(v)); }
    VOSTEL_INLINE static Doubles Low(Floats v) { return _mm256_cvtps_pd(_mm256_castps256_ps128(v)); }
    VOSTEL_INLINE static Doubles High(Floats v) { return _mm256_cvtps_pd(_mm256_extractf128_ps(v, 1)); }
    VOSTEL_INLINE static Floats  Gather(const float* from, Ints index)
    {
        return _mm256_i32gather_ps(from, index, 4);
    }

    // The samples at the indices, out of eight.
    VOSTEL_INLINE static Floats Pick(Floats samples, Ints index)
    {
        return _mm256_permutevar8x32_ps(samples, index);
    }
    // Out of sixteen. The permutation looks at the low three bits of an index only, the choice at its sign:
    // bit 3 moved there.
    VOSTEL_INLINE static Floats Pick(Floats samples, Floats more, Ints index)
    {
        return _mm256_blendv_ps(Pick(samples, index), Pick(more, index),
                                _mm256_castsi256_ps(_mm256_slli_epi32(index, 28)));
    }

    // Sixteen neighbouring samples, even and odd places, each in the order 0 1 4 5 2 3 6 7.
    VOSTEL_INLINE static void Part(const float* from, Floats& even, Floats& odd)
    {
        const Floats low = Load(from);
        const Floats high = Load(from + 8);
        even = _mm256_shuffle_ps(low, high, 0x88);
        odd = _mm256_shuffle_ps(low, high, 0xDD);
    }
    VOSTEL_INLINE static void StoreParted(float* to, Floats v)
    {
        _mm256_storeu_ps(to, _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(v), 0xD8)));
    }
};

}

const ResizeVariant ResizeAvx2 = {
    .Spread = Spread<ResizeSimd>, .Blend = Blend<ResizeSimd>, .SpreadAndBlend = SpreadAndBlend<ResizeSimd>};

}
