#pragma once

// The vector type of SSE2, under the names that SimdAvx2.h and SimdAvx512.h give to theirs, for templates on
// such a type. Only files with the suffix Sse2 include this one. Everything is in an anonymous namespace, as
// there.

#include "base/Compiler.h"

#include <cstddef>
#include <cstdint>
#include <emmintrin.h>

namespace vostel {

namespace {

struct SimdSse2 {
    using Ints = __m128i;
    static constexpr int Lanes = 4;    // of 32 bits

    VOSTEL_INLINE static Ints LoadInts(const void* from)
    {
        return _mm_loadu_si128(static_cast<const __m128i*>(from));
    }
    VOSTEL_INLINE static void StoreInts(void* to, Ints v) { _mm_storeu_si128(static_cast<__m128i*>(to), v); }
    // Non-temporal stores, to addresses aligned to a vector. Fence makes them visible to other threads.
    VOSTEL_INLINE static void StreamInts(void* to, Ints v) { _mm_stream_si128(static_cast<__m128i*>(to), v); }
    static void               Fence() { _mm_sfence(); }

    VOSTEL_INLINE static Ints Set(int v) { return _mm_set1_epi32(v); }
    VOSTEL_INLINE static Ints Add(Ints a, Ints b) { return _mm_add_epi32(a, b); }

    // The cache line so many bytes from an address will be read soon. It need not be readable.
    VOSTEL_INLINE static void Prefetch(const void* from, std::ptrdiff_t bytes)
    {
        _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(from) +
                                                   static_cast<std::uintptr_t>(bytes)),
                     _MM_HINT_T0);
    }
};

}

}
