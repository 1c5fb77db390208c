#include "imaging/CorrelationBlocks.h"

#include <immintrin.h>

namespace vostel {

namespace {

struct Simd8 {
    using V = __m256;
    static constexpr int Lanes = 8;

    [[gnu::always_inline]] static inline V    Load(const float* from) { return _mm256_loadu_ps(from); }
    [[gnu::always_inline]] static inline void Store(float* to, V v) { _mm256_storeu_ps(to, v); }
    [[gnu::always_inline]] static inline void Stream(float* to, V v) { _mm256_stream_ps(to, v); }
    [[gnu::always_inline]] static inline V    Set(float v) { return _mm256_set1_ps(v); }
    [[gnu::always_inline]] static inline V    Add(V a, V b) { return _mm256_add_ps(a, b); }
    [[gnu::always_inline]] static inline V    Mul(V a, V b) { return _mm256_mul_ps(a, b); }

    [[gnu::always_inline]] static inline void Prefetch(const float* from)
    {
        _mm_prefetch(reinterpret_cast<const char*>(from), _MM_HINT_T0);
    }

    // The value is in a register here, says an instruction that is none. Otherwise compilers read a sample
    // from memory again for each row that uses it, mostly across two lines.
    [[gnu::always_inline]] static inline void Settle([[maybe_unused]] V& value)
    {
#if defined(__GNUC__)
        __asm__ volatile("" : "+x"(value) : : "memory");
#endif
    }
};

void Fence()
{
    _mm_sfence();
}

}

const CorrelationVariant CorrelationAvx2 = {BlockRows, SumColumns<Simd8, BlockRows, 2>,
                                            SumColumns<Simd8, 1, 4>, Fence};

}
