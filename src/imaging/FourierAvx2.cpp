#include "imaging/FourierPasses.h"

#include <immintrin.h>

namespace {

struct Simd8 {
    using V = __m256;
    static constexpr int Lanes = 8;

    [[gnu::always_inline]] static inline V    Load(const float* from) { return _mm256_loadu_ps(from); }
    [[gnu::always_inline]] static inline void Store(float* to, V v) { _mm256_storeu_ps(to, v); }
    [[gnu::always_inline]] static inline V    Set(float v) { return _mm256_set1_ps(v); }
    [[gnu::always_inline]] static inline V    Add(V a, V b) { return _mm256_add_ps(a, b); }
    [[gnu::always_inline]] static inline V    Sub(V a, V b) { return _mm256_sub_ps(a, b); }
    [[gnu::always_inline]] static inline V    Mul(V a, V b) { return _mm256_mul_ps(a, b); }

    // Eight elements, 2^t apart.
    [[gnu::always_inline]] static inline V LoadEvery(const float* from, int t)
    {
        if (t == 0)
            return Load(from);
        const __m256i index = _mm256_slli_epi32(_mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7), t);
        return _mm256_i32gather_ps(from, index, 4);
    }

    [[gnu::always_inline]] static inline void Transpose(V (&v)[8])
    {
        V a[8], b[8];
#pragma GCC unroll 4
        for (int i = 0; i < 4; ++i) {
            a[2 * i] = _mm256_unpacklo_ps(v[2 * i], v[2 * i + 1]);
            a[2 * i + 1] = _mm256_unpackhi_ps(v[2 * i], v[2 * i + 1]);
        }
#pragma GCC unroll 2
        for (int i = 0; i < 8; i += 4) {
            b[i] = _mm256_shuffle_ps(a[i], a[i + 2], 0x44);
            b[i + 1] = _mm256_shuffle_ps(a[i], a[i + 2], 0xEE);
            b[i + 2] = _mm256_shuffle_ps(a[i + 1], a[i + 3], 0x44);
            b[i + 3] = _mm256_shuffle_ps(a[i + 1], a[i + 3], 0xEE);
        }
#pragma GCC unroll 4
        for (int i = 0; i < 4; ++i) {
            v[i] = _mm256_permute2f128_ps(b[i], b[i + 4], 0x20);
            v[i + 4] = _mm256_permute2f128_ps(b[i], b[i + 4], 0x31);
        }
    }
};

}

void TransformAvx2(const FourierRun& run)
{
    if (run.Length < Simd8::Lanes * Simd8::Lanes)
        TransformPlain(run);
    else
        Transform<Simd8, 3>(run);
}
