#include "imaging/ResizeLanes.h"

#include "base/Compiler.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd16 {
    using V = __m512;
    using D = __m512d;
    using I = __m512i;
    static constexpr int Lanes = 16;

    VOSTEL_INLINE static V    Load(const float* from) { return _mm512_loadu_ps(from); }
    VOSTEL_INLINE static D    Load(const double* from) { return _mm512_loadu_pd(from); }
    VOSTEL_INLINE static I    LoadIndex(const int* from) { return _mm512_loadu_si512(from); }
    VOSTEL_INLINE static void Store(double* to, D v) { _mm512_storeu_pd(to, v); }
    VOSTEL_INLINE static void StoreNarrow(float* to, D v) { _mm256_storeu_ps(to, _mm512_cvtpd_ps(v)); }
    VOSTEL_INLINE static V    Set(float v) { return _mm512_set1_ps(v); }
    VOSTEL_INLINE static D    Set(double v) { return _mm512_set1_pd(v); }
    VOSTEL_INLINE static V    Add(V a, V b) { return _mm512_add_ps(a, b); }
    VOSTEL_INLINE static D    Add(D a, D b) { return _mm512_add_pd(a, b); }
    VOSTEL_INLINE static D    Sub(D a, D b) { return _mm512_sub_pd(a, b); }
    VOSTEL_INLINE static V    Mul(V a, V b) { return _mm512_mul_ps(a, b); }
    VOSTEL_INLINE static D    Mul(D a, D b) { return _mm512_mul_pd(a, b); }
    VOSTEL_INLINE static I Shift(I index, int by) { return _mm512_add_epi32(index, _mm512_set1_epi32(by)); }
    VOSTEL_INLINE static D Low(V v) { return _mm512_cvtps_pd(_mm512_castps512_ps256(v)); }
    VOSTEL_INLINE static D High(V v) { return _mm512_cvtps_pd(_mm512_extractf32x8_ps(v, 1)); }
    VOSTEL_INLINE static V Gather(const float* from, I index) { return _mm512_i32gather_ps(index, from, 4); }

    // The samples at the indices, out of sixteen or thirty-two.
    VOSTEL_INLINE static V Pick(V samples, I index) { return _mm512_permutexvar_ps(index, samples); }
    VOSTEL_INLINE static V Pick(V samples, V more, I index)
    {
        return _mm512_permutex2var_ps(samples, index, more);
    }

    // Thirty-two neighbouring samples, even and odd places.
    VOSTEL_INLINE static void Part(const float* from, V& even, V& odd)
    {
        const I evens = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
        const V low = Load(from);
        const V high = Load(from + 16);
        even = Pick(low, high, evens);
        odd = Pick(low, high, Shift(evens, 1));
    }
    VOSTEL_INLINE static void StoreParted(float* to, V v) { _mm512_storeu_ps(to, v); }
};

}

const ResizeVariant ResizeAvx512 = {Spread<Simd16>, Blend<Simd16>, SpreadAndBlend<Simd16>};

}
