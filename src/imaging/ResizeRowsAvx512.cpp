#include "imaging/ResizeLanes.h"

#include "base/simd/SimdAvx512.h"

namespace vostel {

namespace {

struct ResizeSimd : SimdAvx512 {
    VOSTEL_INLINE static void StoreNarrow(float* to, Doubles v) { _mm256_storeu_ps(to, _mm512_cvtpd_ps(v)); }
    VOSTEL_INLINE static Doubles Low(Floats v) { return _mm512_cvtps_pd(_mm512_castps512_ps256(v)); }
    VOSTEL_INLINE static Doubles High(Floats v) { return _mm512_cvtps_pd(_mm512_extractf32x8_ps(v, 1)); }
    VOSTEL_INLINE static Floats  Gather(const float* from, Ints index)
    {
        return _mm512_i32gather_ps(index, from, 4);
    }

    // The samples at the indices, out of sixteen or thirty-two.
    VOSTEL_INLINE static Floats Pick(Floats samples, Ints index)
    {
        return _mm512_permutexvar_ps(index, samples);
    }
    VOSTEL_INLINE static Floats Pick(Floats samples, Floats more, Ints index)
    {
        return _mm512_permutex2var_ps(samples, index, more);
    }

    // Thirty-two neighbouring samples, even and odd places.
    VOSTEL_INLINE static void Part(const float* from, Floats& even, Floats& odd)
    {
        const Ints   evens = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
        const Floats low = Load(from);
        const Floats high = Load(from + 16);
        even = Pick(low, high, evens);
        odd = Pick(low, high, Add(evens, Set(1)));
    }
    VOSTEL_INLINE static void StoreParted(float* to, Floats v) { _mm512_storeu_ps(to, v); }
};

}

const ResizeVariant ResizeAvx512 = {
    .Spread = Spread<ResizeSimd>, .Blend = Blend<ResizeSimd>, .SpreadAndBlend = SpreadAndBlend<ResizeSimd>};

}
