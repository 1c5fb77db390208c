#include "imaging/CorrelationBlocks.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd16 {
    using V = __m512;
    static constexpr int Lanes = 16;

    [[gnu::always_inline]] static inline V    Load(const float* from) { return _mm512_loadu_ps(from); }
    [[gnu::always_inline]] static inline void Store(float* to, V v) { _mm512_storeu_ps(to, v); }
    [[gnu::always_inline]] static inline void Stream(float* to, V v) { _mm512_stream_ps(to, v); }
    [[gnu::always_inline]] static inline V    Set(float v) { return _mm512_set1_ps(v); }
    [[gnu::always_inline]] static inline V    Add(V a, V b) { return _mm512_add_ps(a, b); }
    [[gnu::always_inline]] static inline V    Mul(V a, V b) { return _mm512_mul_ps(a, b); }

    [[gnu::always_inline]] static inline void Prefetch(const float* from)
    {
        _mm_prefetch(reinterpret_cast<const char*>(from), _MM_HINT_T0);
    }

    // The value is in a register here, says an instruction that is none. Otherwise compilers read a sample
    // from memory again for each row that uses it, mostly across two lines.
    [[gnu::always_inline]] static inline void Settle([[maybe_unused]] V& value)
    {
#if defined(__GNUC__)
        __asm__ volatile("" : "+v"(value) : : "memory");
#endif
    }
};

void Fence()
{
    _mm_sfence();
}

}

const CorrelationVariant CorrelationAvx512 = {BlockRows, SumColumns<Simd16, BlockRows, 4>,
                                              SumColumns<Simd16, 1, 4>, Fence};

}
