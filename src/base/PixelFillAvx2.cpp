#include "base/PixelFillVariants.h"

#include <immintrin.h>

namespace vostel {

namespace {

// Words in front of the next cache line, at most count.
std::size_t WordsToLine(const void* target, std::size_t count)
{
    const std::size_t words = (0 - reinterpret_cast<std::uintptr_t>(target)) % 64 / 4;
    return words < count ? words : count;
}

}

void FillPixelsAvx2(std::uint32_t* target, std::size_t count, std::uint32_t value, bool streaming)
{
    const __m256i words = _mm256_set1_epi32(static_cast<int>(value));
    std::size_t   x = 0;
    if (streaming) {
        x = WordsToLine(target, count);
        FillPixelsPlain(target, x, value, false);
        for (; x + 16 <= count; x += 16) {
            _mm256_stream_si256(reinterpret_cast<__m256i*>(target + x), words);
            _mm256_stream_si256(reinterpret_cast<__m256i*>(target + x + 8), words);
        }
    } else {
        for (; x + 8 <= count; x += 8)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + x), words);
    }
    FillPixelsPlain(target + x, count - x, value, false);
}

void CopyPixelsAvx2(const std::uint32_t* source, std::uint32_t* target, std::size_t count, bool streaming)
{
    std::size_t x = 0;
    if (streaming) {
        x = WordsToLine(target, count);
        CopyPixelsPlain(source, target, x, false);
        for (; x + 16 <= count; x += 16) {
            const __m256i first = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(source + x));
            const __m256i second = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(source + x + 8));
            _mm256_stream_si256(reinterpret_cast<__m256i*>(target + x), first);
            _mm256_stream_si256(reinterpret_cast<__m256i*>(target + x + 8), second);
        }
    }
    CopyPixelsPlain(source + x, target + x, count - x, false);
}

void FenceStreamingStoresAvx2()
{
    _mm_sfence();
}

}
