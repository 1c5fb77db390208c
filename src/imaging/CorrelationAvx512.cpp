#include "imaging/CorrelationBlocks.h"

#include "base/Compiler.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd16 {
    using V = __m512;
    static constexpr int Lanes = 16;

    VOSTEL_INLINE static V    Load(const float* from) { return _mm512_loadu_ps(from); }
    VOSTEL_INLINE static void Store(float* to, V v) { _mm512_storeu_ps(to, v); }
    VOSTEL_INLINE static void Stream(float* to, V v) { _mm512_stream_ps(to, v); }
    VOSTEL_INLINE static V    Set(float v) { return _mm512_set1_ps(v); }
    VOSTEL_INLINE static V    Add(V a, V b) { return _mm512_add_ps(a, b); }
    VOSTEL_INLINE static V    Mul(V a, V b) { return _mm512_mul_ps(a, b); }

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

const CorrelationVariant CorrelationAvx512 = {BlockRows, SumColumns<Simd16, BlockRows, 4>,
                                              SumColumns<Simd16, 1, 4>, Fence};

}
