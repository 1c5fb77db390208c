#include "imaging/CorrelationBlocks.h"

#include "base/Compiler.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd8 {
    using V = __m256;
    static constexpr int Lanes = 8;

    VOSTEL_INLINE static V    Load(const float* from) { return _mm256_loadu_ps(from); }
    VOSTEL_INLINE static void Store(float* to, V v) { _mm256_storeu_ps(to, v); }
    VOSTEL_INLINE static void Stream(float* to, V v) { _mm256_stream_ps(to, v); }
    VOSTEL_INLINE static V    Set(float v) { return _mm256_set1_ps(v); }
    VOSTEL_INLINE static V    Add(V a, V b) { return _mm256_add_ps(a, b); }
    VOSTEL_INLINE static V    Mul(V a, V b) { return _mm256_mul_ps(a, b); }

    VOSTEL_INLINE static void Prefetch(const float* from)
    {
        _mm_prefetch(reinterpret_cast<const char*>(from), _MM_HINT_T0);
    }

    VOSTEL_INLINE static void Settle(V& value) { VOSTEL_KEEP_IN_REGISTER(value); }
};

void Fence()
{
    _mm_sfence();
}

}

const CorrelationVariant CorrelationAvx2 = {BlockRows, SumColumns<Simd8, BlockRows, 2>,
                                            SumColumns<Simd8, 1, 4>, Fence};

}
