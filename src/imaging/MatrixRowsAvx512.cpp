#include "imaging/MatrixTiles.h"

#include "base/Compiler.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd16 {
    using V = __m512;
    static constexpr int Lanes = 16;

    VOSTEL_INLINE static V    Load(const float* from) { return _mm512_loadu_ps(from); }
    VOSTEL_INLINE static void Store(float* to, V v) { _mm512_storeu_ps(to, v); }
    VOSTEL_INLINE static V    Set(float v) { return _mm512_set1_ps(v); }
    VOSTEL_INLINE static V    Add(V a, V b) { return _mm512_add_ps(a, b); }
    VOSTEL_INLINE static V    Mul(V a, V b) { return _mm512_mul_ps(a, b); }
};

}

void MultiplyAvx512(const MatrixBlock& block)
{
    Multiply<Simd16, 4>(block);
}

}
