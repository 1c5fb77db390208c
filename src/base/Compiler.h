#pragma once

// What each compiler spells in its own way. All of these are hints: results are the same without them.
//
// VOSTEL_INLINE                   before a function that belongs into its callers, whatever its size
// VOSTEL_INLINE_LAMBDA            the same, behind the parameters of a lambda
// VOSTEL_NOINLINE                 before a function that is not to be merged with its callers
// VOSTEL_UNROLL                   before a loop with a constant number of rounds, at most 16: all in a row
// VOSTEL_KEEP_IN_REGISTER(value)  a vector that is used several times; compilers may reload it for each use
// VOSTEL_PREFETCH_FOR_WRITE(at)   the cache line at this address will be written soon

#if defined(_MSC_VER) && !defined(__clang__)

#    define VOSTEL_INLINE __forceinline
#    define VOSTEL_INLINE_LAMBDA
#    define VOSTEL_NOINLINE __declspec(noinline)
#    define VOSTEL_UNROLL
#    define VOSTEL_KEEP_IN_REGISTER(value) static_cast<void>(value)
#    define VOSTEL_PREFETCH_FOR_WRITE(at) static_cast<void>(at)

#else

#    define VOSTEL_INLINE [[gnu::always_inline]] inline
#    define VOSTEL_INLINE_LAMBDA __attribute__((always_inline))
#    define VOSTEL_NOINLINE [[gnu::noinline]]
#    if defined(__clang__)
#        define VOSTEL_UNROLL _Pragma("clang loop unroll(full)")
#    else
#        define VOSTEL_UNROLL _Pragma("GCC unroll 16")
#    endif
// Empty asm that reads and writes the value in a vector register.
#    define VOSTEL_KEEP_IN_REGISTER(value) __asm__ volatile("" : "+v"(value) : : "memory")
#    define VOSTEL_PREFETCH_FOR_WRITE(at) __builtin_prefetch(at, 1)

#endif
