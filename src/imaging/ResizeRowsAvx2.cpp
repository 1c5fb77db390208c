#include "imaging/ResizeLanes.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd8 {
    using V = __m256;
    using D = __m256d;
    using I = __m256i;
    static constexpr int Lanes = 8;

    [[gnu::always_inline]] static inline V Load(const float* from) { return _mm256_loadu_ps(from); }
    [[gnu::always_inline]] static inline D Load(const double* from) { return _mm256_loadu_pd(from); }
    [[gnu::always_inline]] static inline I LoadIndex(const int* from)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    }
    [[gnu::always_inline]] static inline void Store(double* to, D v) { _mm256_storeu_pd(to, v); }
    [[gnu::always_inline]] static inline void StoreNarrow(float* to, D v)
    {
        _mm_storeu_ps(to, _mm256_cvtpd_ps(v));
    }
    [[gnu::always_inline]] static inline V Set(float v) { return _mm256_set1_ps(v); }
    [[gnu::always_inline]] static inline D Set(double v) { return _mm256_set1_pd(v); }
    [[gnu::always_inline]] static inline V Add(V a, V b) { return _mm256_add_ps(a, b); }
    [[gnu::always_inline]] static inline D Add(D a, D b) { return _mm256_add_pd(a, b); }
    [[gnu::always_inline]] static inline D Sub(D a, D b) { return _mm256_sub_pd(a, b); }
    [[gnu::always_inline]] static inline V Mul(V a, V b) { return _mm256_mul_ps(a, b); }
    [[gnu::always_inline]] static inline D Mul(D a, D b) { return _mm256_mul_pd(a, b); }
    [[gnu::always_inline]] static inline I Shift(I index, int by)
    {
        return _mm256_add_epi32(index, _mm256_set1_epi32(by));
    }
    [[gnu::always_inline]] static inline D Low(V v) { return _mm256_cvtps_pd(_mm256_castps256_ps128(v)); }
    [[gnu::always_inline]] static inline D High(V v) { return _mm256_cvtps_pd(_mm256_extractf128_ps(v, 1)); }
    [[gnu::always_inline]] static inline V Gather(const float* from, I index)
    {
        return _mm256_i32gather_ps(from, index, 4);
    }

    // The samples at the indices, out of eight.
    [[gnu::always_inline]] static inline V Pick(V samples, I index)
    {
        return _mm256_permutevar8x32_ps(samples, index);
    }
    // Out of sixteen. The permutation looks at the low three bits of an index only, the choice at its sign:
    // bit 3 moved there.
    [[gnu::always_inline]] static inline V Pick(V samples, V more, I index)
    {
        return _mm256_blendv_ps(Pick(samples, index), Pick(more, index),
                                _mm256_castsi256_ps(_mm256_slli_epi32(index, 28)));
    }

    // Sixteen neighbouring samples, even and odd places, each in the order 0 1 4 5 2 3 6 7.
    [[gnu::always_inline]] static inline void Part(const float* from, V& even, V& odd)
    {
        const V low = Load(from);
        const V high = Load(from + 8);
        even = _mm256_shuffle_ps(low, high, 0x88);
        odd = _mm256_shuffle_ps(low, high, 0xDD);
    }
    [[gnu::always_inline]] static inline void StoreParted(float* to, V v)
    {
        _mm256_storeu_ps(to, _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(v), 0xD8)));
    }
};

}

const ResizeVariant ResizeAvx2 = {Spread<Simd8>, Blend<Simd8>, SpreadAndBlend<Simd8>};

}
