#include "imaging/ResizeLanes.h"

#include "base/Compiler.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd8 {
    using V = __m256;
    using D = __m256d;
    using I = __m256i;
    static constexpr int Lanes = 8;

    VOSTEL_INLINE static V Load(const float* from) { return _mm256_loadu_ps(from); }
    VOSTEL_INLINE static D Load(const double* from) { return _mm256_loadu_pd(from); }
    VOSTEL_INLINE static I LoadIndex(const int* from)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    }
    VOSTEL_INLINE static void Store(double* to, D v) { _mm256_storeu_pd(to, v); }
    VOSTEL_INLINE static void StoreNarrow(float* to, D v) { _mm_storeu_ps(to, _mm256_cvtpd_ps(v)); }
    VOSTEL_INLINE static V    Set(float v) { return _mm256_set1_ps(v); }
    VOSTEL_INLINE static D    Set(double v) { return _mm256_set1_pd(v); }
    VOSTEL_INLINE static V    Add(V a, V b) { return _mm256_add_ps(a, b); }
    VOSTEL_INLINE static D    Add(D a, D b) { return _mm256_add_pd(a, b); }
    VOSTEL_INLINE static D    Sub(D a, D b) { return _mm256_sub_pd(a, b); }
    VOSTEL_INLINE static V    Mul(V a, V b) { return _mm256_mul_ps(a, b); }
    VOSTEL_INLINE static D    Mul(D a, D b) { return _mm256_mul_pd(a, b); }
    VOSTEL_INLINE static I Shift(I index, int by) { return _mm256_add_epi32(index, _mm256_set1_epi32(by)); }
    VOSTEL_INLINE static D Low(V v) { return _mm256_cvtps_pd(_mm256_castps256_ps128(v)); }
    VOSTEL_INLINE static D High(V v) { return _mm256_cvtps_pd(_mm256_extractf128_ps(v, 1)); }
    VOSTEL_INLINE static V Gather(const float* from, I index) { return _mm256_i32gather_ps(from, index, 4); }

    // The samples at the indices, out of eight.
    VOSTEL_INLINE static V Pick(V samples, I index) { return _mm256_permutevar8x32_ps(samples, index); }
    // Out of sixteen. The permutation looks at the low three bits of an index only, the choice at its sign:
    // bit 3 moved there.
    VOSTEL_INLINE static V Pick(V samples, V more, I index)
    {
        return _mm256_blendv_ps(Pick(samples, index), Pick(more, index),
                                _mm256_castsi256_ps(_mm256_slli_epi32(index, 28)));
    }

    // Sixteen neighbouring samples, even and odd places, each in the order 0 1 4 5 2 3 6 7.
    VOSTEL_INLINE static void Part(const float* from, V& even, V& odd)
    {
        const V low = Load(from);
        const V high = Load(from + 8);
        even = _mm256_shuffle_ps(low, high, 0x88);
        odd = _mm256_shuffle_ps(low, high, 0xDD);
    }
    VOSTEL_INLINE static void StoreParted(float* to, V v)
    {
        _mm256_storeu_ps(to, _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(v), 0xD8)));
    }
};

}

const ResizeVariant ResizeAvx2 = {Spread<Simd8>, Blend<Simd8>, SpreadAndBlend<Simd8>};

}
