#include "imaging/MatrixTiles.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd8 {
    using V = __m256;
    static constexpr int Lanes = 8;

    [[gnu::always_inline]] static inline V    Load(const float* from) { return _mm256_loadu_ps(from); }
    [[gnu::always_inline]] static inline void Store(float* to, V v) { _mm256_storeu_ps(to, v); }
    [[gnu::always_inline]] static inline V    Set(float v) { return _mm256_set1_ps(v); }
    [[gnu::always_inline]] static inline V    Add(V a, V b) { return _mm256_add_ps(a, b); }
    [[gnu::always_inline]] static inline V    Mul(V a, V b) { return _mm256_mul_ps(a, b); }
};

}

void MultiplyAvx2(const MatrixBlock& block)
{
    Multiply<Simd8, 2>(block);
}

}
