#include "imaging/FourierPasses.h"

#include <immintrin.h>

namespace {

struct Simd16 {
    using V = __m512;
    static constexpr int Lanes = 16;

    [[gnu::always_inline]] static inline V    Load(const float* from) { return _mm512_loadu_ps(from); }
    [[gnu::always_inline]] static inline void Store(float* to, V v) { _mm512_storeu_ps(to, v); }
    [[gnu::always_inline]] static inline V    Set(float v) { return _mm512_set1_ps(v); }
    [[gnu::always_inline]] static inline V    Add(V a, V b) { return _mm512_add_ps(a, b); }
    [[gnu::always_inline]] static inline V    Sub(V a, V b) { return _mm512_sub_ps(a, b); }
    [[gnu::always_inline]] static inline V    Mul(V a, V b) { return _mm512_mul_ps(a, b); }

    // Sixteen elements, 2^t apart.
    [[gnu::always_inline]] static inline V LoadEvery(const float* from, int t)
    {
        if (t == 0)
            return Load(from);
        const __m512i lanes = _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
        if (t == 1)
            return _mm512_permutex2var_ps(Load(from), _mm512_slli_epi32(lanes, 1), Load(from + 16));
        return _mm512_i32gather_ps(_mm512_slli_epi32(lanes, static_cast<unsigned>(t)), from, 4);
    }

    [[gnu::always_inline]] static inline void Transpose(V (&v)[16])
    {
        V a[16], b[16];
#pragma GCC unroll 8
        for (int i = 0; i < 16; i += 2) {
            a[i] = _mm512_unpacklo_ps(v[i], v[i + 1]);
            a[i + 1] = _mm512_unpackhi_ps(v[i], v[i + 1]);
        }
#pragma GCC unroll 4
        for (int i = 0; i < 16; i += 4) {
            b[i] = _mm512_shuffle_ps(a[i], a[i + 2], 0x44);
            b[i + 1] = _mm512_shuffle_ps(a[i], a[i + 2], 0xEE);
            b[i + 2] = _mm512_shuffle_ps(a[i + 1], a[i + 3], 0x44);
            b[i + 3] = _mm512_shuffle_ps(a[i + 1], a[i + 3], 0xEE);
        }
#pragma GCC unroll 4
        for (int i = 0; i < 4; ++i) {
            a[i] = _mm512_shuffle_f32x4(b[i], b[i + 4], 0x88);
            a[i + 4] = _mm512_shuffle_f32x4(b[i], b[i + 4], 0xDD);
            a[i + 8] = _mm512_shuffle_f32x4(b[i + 8], b[i + 12], 0x88);
            a[i + 12] = _mm512_shuffle_f32x4(b[i + 8], b[i + 12], 0xDD);
        }
#pragma GCC unroll 4
        for (int i = 0; i < 4; ++i) {
            v[i] = _mm512_shuffle_f32x4(a[i], a[i + 8], 0x88);
            v[i + 4] = _mm512_shuffle_f32x4(a[i + 4], a[i + 12], 0x88);
            v[i + 8] = _mm512_shuffle_f32x4(a[i], a[i + 8], 0xDD);
            v[i + 12] = _mm512_shuffle_f32x4(a[i + 4], a[i + 12], 0xDD);
        }
    }
};

}

void TransformAvx512(const FourierRun& run)
{
    if (run.Length < Simd16::Lanes * Simd16::Lanes)
        TransformAvx2(run);
    else
        Transform<Simd16, 4>(run);
}
