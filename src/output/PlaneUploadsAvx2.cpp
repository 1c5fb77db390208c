#include "output/PlaneUploads.h"

#include "base/CacheLimits.h"
#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

using Simd = SimdAvx2;

__m128i Load16(const unsigned char* source)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
}

void Store16(unsigned* pixels, __m256i first, __m256i second, bool streaming)
{
    if (streaming) {
        Simd::StreamInts(pixels, first);
        Simd::StreamInts(pixels + 8, second);
    } else {
        Simd::StoreInts(pixels, first);
        Simd::StoreInts(pixels + 8, second);
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
    return _mm256_and_si256(Simd::LoadInts(source), Simd::Set(0xFFFFFF));
}

__m256i EightOfPlanes(const unsigned char* high, const unsigned char* middle, const unsigned char* low)
{
    return _mm256_or_si256(_mm256_or_si256(_mm256_slli_epi32(Simd::LoadBytes(high), 16),
                                           _mm256_slli_epi32(Simd::LoadBytes(middle), 8)),
                           Simd::LoadBytes(low));
}

void GrayRow(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming)
{
    const __m256i firstEight = _mm256_setr_epi8(0, 0, 0, -1, 1, 1, 1, -1, 2, 2, 2, -1, 3, 3, 3, -1,    //
                                                4, 4, 4, -1, 5, 5, 5, -1, 6, 6, 6, -1, 7, 7, 7, -1);
    const __m256i lastEight =
        _mm256_setr_epi8(8, 8, 8, -1, 9, 9, 9, -1, 10, 10, 10, -1, 11, 11, 11, -1,    //
                         12, 12, 12, -1, 13, 13, 13, -1, 14, 14, 14, -1, 15, 15, 15, -1);
    std::size_t x = streaming ? ElementsToCacheLine(pixels, count) : 0;
    PlaneUploadPlain.Gray(source, pixels, x, false);
    for (; x + 16 <= count; x += 16) {
        const __m256i bytes = _mm256_broadcastsi128_si256(Load16(source + x));
        Store16(pixels + x, _mm256_shuffle_epi8(bytes, firstEight), _mm256_shuffle_epi8(bytes, lastEight),
                streaming);
    }
    PlaneUploadPlain.Gray(source + x, pixels + x, count - x, false);
}

void TripleRow(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming)
{
    std::size_t x = streaming ? ElementsToCacheLine(pixels, count) : 0;
    PlaneUploadPlain.Triple(source, pixels, x, false);
    for (; x + 18 <= count; x += 16)    // 52 bytes are read for 16 pixels
        Store16(pixels + x, EightTriples(source + 3 * x), EightTriples(source + 3 * x + 24), streaming);
    PlaneUploadPlain.Triple(source + 3 * x, pixels + x, count - x, false);
}

void QuadRow(const unsigned char* source, unsigned* pixels, std::size_t count, bool streaming)
{
    std::size_t x = streaming ? ElementsToCacheLine(pixels, count) : 0;
    PlaneUploadPlain.Quad(source, pixels, x, false);
    for (; x + 16 <= count; x += 16)
        Store16(pixels + x, EightQuads(source + 4 * x), EightQuads(source + 4 * x + 32), streaming);
    PlaneUploadPlain.Quad(source + 4 * x, pixels + x, count - x, false);
}

void PlanesRow(const unsigned char* high, const unsigned char* middle, const unsigned char* low,
               unsigned* pixels, std::size_t count, bool streaming)
{
    std::size_t x = streaming ? ElementsToCacheLine(pixels, count) : 0;
    PlaneUploadPlain.Planes(high, middle, low, pixels, x, false);
    for (; x + 16 <= count; x += 16)
        Store16(pixels + x, EightOfPlanes(high + x, middle + x, low + x),
                EightOfPlanes(high + x + 8, middle + x + 8, low + x + 8), streaming);
    PlaneUploadPlain.Planes(high + x, middle + x, low + x, pixels + x, count - x, false);
}

}

const PlaneUploadVariant PlaneUploadAvx2 = {
    .Gray = GrayRow, .Triple = TripleRow, .Quad = QuadRow, .Planes = PlanesRow};

}
