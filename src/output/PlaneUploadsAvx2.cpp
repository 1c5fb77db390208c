#include "output/PlaneUploadsVariants.h"

#include <cstdint>
#include <immintrin.h>

namespace vostel {

namespace {

// Pixels in front of the next cache line, at most count.
std::size_t PixelsToLine(const void* pixels, std::size_t count)
{
    const std::size_t words = (0 - reinterpret_cast<std::uintptr_t>(pixels)) % 64 / 4;
    return words < count ? words : count;
}

__m128i Load16(const unsigned char* source)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
}

__m256i EightBytes(const unsigned char* source)
{
    return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(source)));
}

void Store16(unsigned* pixels, __m256i first, __m256i second, bool streaming)
{
    if (streaming) {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(pixels), first);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(pixels + 8), second);
    } else {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels), first);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels + 8), second);
    }
}

// Eight pixels of 24 bytes; the second load starts at the fifth pixel, so 28 bytes are read.
__m256i EightTriples(const unsigned char* source)
{
    const __m256i order = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1,    //
                                           0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    return _mm256_shuffle_epi8(
        _mm256_inserti128_si256(_mm256_castsi128_si256(Load16(source)), Load16(source + 12), 1), order);
}

__m256i EightQuads(const unsigned char* source)
{
    return _mm256_and_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(source)),
                            _mm256_set1_epi32(0xFFFFFF));
}

__m256i EightOfPlanes(const unsigned char* high, const unsigned char* middle, const unsigned char* low)
{
    return _mm256_or_si256(
        _mm256_or_si256(_mm256_slli_epi32(EightBytes(high), 16), _mm256_slli_epi32(EightBytes(middle), 8)),
        EightBytes(low));
}

}

void GrayRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming)
{
    const __m256i firstEight = _mm256_setr_epi8(0, 0, 0, -1, 1, 1, 1, -1, 2, 2, 2, -1, 3, 3, 3, -1,    //
                                                4, 4, 4, -1, 5, 5, 5, -1, 6, 6, 6, -1, 7, 7, 7, -1);
    const __m256i lastEight =
        _mm256_setr_epi8(8, 8, 8, -1, 9, 9, 9, -1, 10, 10, 10, -1, 11, 11, 11, -1,    //
                         12, 12, 12, -1, 13, 13, 13, -1, 14, 14, 14, -1, 15, 15, 15, -1);
    std::size_t x = streaming ? PixelsToLine(pixels, count) : 0;
    GrayRowPlain(source, pixels, x, false);
    for (; x + 16 <= count; x += 16) {
        const __m256i bytes = _mm256_broadcastsi128_si256(Load16(source + x));
        Store16(pixels + x, _mm256_shuffle_epi8(bytes, firstEight), _mm256_shuffle_epi8(bytes, lastEight),
                streaming);
    }
    GrayRowPlain(source + x, pixels + x, count - x, false);
}

void TripleRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming)
{
    std::size_t x = streaming ? PixelsToLine(pixels, count) : 0;
    TripleRowPlain(source, pixels, x, false);
    for (; x + 18 <= count; x += 16)    // 52 bytes are read for 16 pixels
        Store16(pixels + x, EightTriples(source + 3 * x), EightTriples(source + 3 * x + 24), streaming);
    TripleRowPlain(source + 3 * x, pixels + x, count - x, false);
}

void QuadRowAvx2(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming)
{
    std::size_t x = streaming ? PixelsToLine(pixels, count) : 0;
    QuadRowPlain(source, pixels, x, false);
    for (; x + 16 <= count; x += 16)
        Store16(pixels + x, EightQuads(source + 4 * x), EightQuads(source + 4 * x + 32), streaming);
    QuadRowPlain(source + 4 * x, pixels + x, count - x, false);
}

void PlanesRowAvx2(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
                   unsigned* pixels, std::size_t count, bool streaming)
{
    std::size_t x = streaming ? PixelsToLine(pixels, count) : 0;
    PlanesRowPlain(high, middle, low, pixels, x, false);
    for (; x + 16 <= count; x += 16)
        Store16(pixels + x, EightOfPlanes(high + x, middle + x, low + x),
                EightOfPlanes(high + x + 8, middle + x + 8, low + x + 8), streaming);
    PlanesRowPlain(high + x, middle + x, low + x, pixels + x, count - x, false);
}

}
