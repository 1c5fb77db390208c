#pragma once

// The vector types of AVX-512, under the names that SimdSse2.h and SimdAvx2.h give to theirs, for templates
// on such a type. Only files with the suffix Avx512 include this one. Everything is in an anonymous
// namespace: each of them has its own copy, and the linker cannot keep one for processors that do not have
// the feature.

#include "base/Compiler.h"

#include <cstddef>
#include <cstdint>
#include <immintrin.h>

namespace vostel {

namespace {

struct SimdAvx512 {
    using Floats = __m512;
    using Doubles = __m512d;
    using Ints = __m512i;
    static constexpr int Lanes = 16;    // of 32 bits; half as many of doubles

    VOSTEL_INLINE static Floats  Load(const float* from) { return _mm512_loadu_ps(from); }
    VOSTEL_INLINE static Doubles Load(const double* from) { return _mm512_loadu_pd(from); }
    VOSTEL_INLINE static Ints    LoadInts(const void* from) { return _mm512_loadu_si512(from); }
    // One byte per lane.
    VOSTEL_INLINE static Ints LoadBytes(const unsigned char* from)
    {
        return _mm512_cvtepu8_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
    }
    VOSTEL_INLINE static void Store(float* to, Floats v) { _mm512_storeu_ps(to, v); }
    VOSTEL_INLINE static void Store(double* to, Doubles v) { _mm512_storeu_pd(to, v); }
    VOSTEL_INLINE static void StoreInts(void* to, Ints v) { _mm512_storeu_si512(to, v); }
    // Non-temporal stores, to addresses aligned to a vector. Fence makes them visible to other threads.
    VOSTEL_INLINE static void Stream(float* to, Floats v) { _mm512_stream_ps(to, v); }
    VOSTEL_INLINE static void StreamInts(void* to, Ints v)
    {
        _mm512_stream_si512(static_cast<__m512i*>(to), v);
    }
    static void Fence() { _mm_sfence(); }

    VOSTEL_INLINE static Floats  Set(float v) { return _mm512_set1_ps(v); }
    VOSTEL_INLINE static Doubles Set(double v) { return _mm512_set1_pd(v); }
    VOSTEL_INLINE static Ints    Set(int v) { return _mm512_set1_epi32(v); }
    VOSTEL_INLINE static Floats  Add(Floats a, Floats b) { return _mm512_add_ps(a, b); }
    VOSTEL_INLINE static Doubles Add(Doubles a, Doubles b) { return _mm512_add_pd(a, b); }
    VOSTEL_INLINE static Ints    Add(Ints a, Ints b) { return _mm512_add_epi32(a, b); }
    VOSTEL_INLINE static Floats  Sub(Floats a, Floats b) { return _mm512_sub_ps(a, b); }
    VOSTEL_INLINE static Doubles Sub(Doubles a, Doubles b) { return _mm512_sub_pd(a, b); }
    VOSTEL_INLINE static Ints    Sub(Ints a, Ints b) { return _mm512_sub_epi32(a, b); }
    VOSTEL_INLINE static Floats  Mul(Floats a, Floats b) { return _mm512_mul_ps(a, b); }
    VOSTEL_INLINE static Doubles Mul(Doubles a, Doubles b) { return _mm512_mul_pd(a, b); }
    VOSTEL_INLINE static Ints    Mul(Ints a, Ints b) { return _mm512_mullo_epi32(a, b); }

    VOSTEL_INLINE static void KeepInRegister(Floats& v) { VOSTEL_KEEP_IN_REGISTER(v); }

    // The cache line so many bytes from an address will be read soon. It need not be readable.
    VOSTEL_INLINE static void Prefetch(const void* from, std::ptrdiff_t bytes)
    {
        _mm_prefetch(AddressOf(from, bytes), _MM_HINT_T0);
    }
    // Cache lines two pages on will be read once: the processor's own guesses end with each page.
    VOSTEL_INLINE static void PrefetchTwoPagesOn(const void* from, int lines)
    {
        for (int i = 0; i < lines; ++i)
            _mm_prefetch(AddressOf(from, 8192 + 64 * i), _MM_HINT_NTA);
    }

private:
    VOSTEL_INLINE static const char* AddressOf(const void* from, std::ptrdiff_t bytes)
    {
        return reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(from) +
                                             static_cast<std::uintptr_t>(bytes));
    }
};

}

}
