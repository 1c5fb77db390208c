#include "imaging/FourierPasses.h"

#include "base/Compiler.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd8 {
    using V = __m256;
    static constexpr int Lanes = 8;
    static constexpr int PassStages = 2;    // as many as the registers hold the values of

    VOSTEL_INLINE static V    Load(const float* from) { return _mm256_loadu_ps(from); }
    VOSTEL_INLINE static void Store(float* to, V v) { _mm256_storeu_ps(to, v); }
    VOSTEL_INLINE static V    Set(float v) { return _mm256_set1_ps(v); }
    VOSTEL_INLINE static V    Add(V a, V b) { return _mm256_add_ps(a, b); }
    VOSTEL_INLINE static V    Sub(V a, V b) { return _mm256_sub_ps(a, b); }
    VOSTEL_INLINE static V    Mul(V a, V b) { return _mm256_mul_ps(a, b); }

    // Column i of the eight vectors goes to to + i * step.
    VOSTEL_INLINE static void StoreTransposed(float* to, std::ptrdiff_t step, const V* v)
    {
        V low[4], high[4];
        VOSTEL_UNROLL
        for (int i = 0; i < 4; ++i) {
            low[i] = _mm256_permute2f128_ps(v[i], v[i + 4], 0x20);
            high[i] = _mm256_permute2f128_ps(v[i], v[i + 4], 0x31);
        }
        StoreHalfTransposed(to, step, low);
        StoreHalfTransposed(to + 4 * step, step, high);
    }

    VOSTEL_INLINE static void StoreHalfTransposed(float* to, std::ptrdiff_t step, const V* v)
    {
        const V a = _mm256_unpacklo_ps(v[0], v[1]);
        const V b = _mm256_unpackhi_ps(v[0], v[1]);
        const V c = _mm256_unpacklo_ps(v[2], v[3]);
        const V d = _mm256_unpackhi_ps(v[2], v[3]);
        Store(to, _mm256_shuffle_ps(a, c, 0x44));
        Store(to + step, _mm256_shuffle_ps(a, c, 0xEE));
        Store(to + 2 * step, _mm256_shuffle_ps(b, d, 0x44));
        Store(to + 3 * step, _mm256_shuffle_ps(b, d, 0xEE));
    }
};

}

void TransformAvx2(const FourierRun& run)
{
    if (run.Length < Simd8::Lanes << 3)
        TransformPlain(run);
    else if (run.Length < Simd8::Lanes << 4)
        Transform<Simd8, 3>(run);
    else
        Transform<Simd8, 4>(run);
}

void FilterAvx2(const FourierRun& forward, const FourierRun& inverse)
{
    if (forward.Length < 256) {
        TransformAvx2(forward);
        TransformAvx2(inverse);
    } else {
        Filter<Simd8, 4>(forward, inverse);
    }
}

}
