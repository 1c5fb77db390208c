#include "fileio/PlaneShuffles.h"

#include <immintrin.h>

namespace vostel {

namespace {

__m256i Load(const unsigned char* from)
{
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}
void Store(unsigned char* to, __m256i v)
{
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), v);
}
__m128i LoadHalf(const unsigned char* from)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

// The positions p of every lane with p % 3 == remainder.
__m256i ThirdPositions(int remainder)
{
    static const signed char positions[18] = {-1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0};
    return _mm256_broadcastsi128_si256(
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(positions + (3 - remainder) % 3)));
}

__m256i InEveryLane(const signed char* order)
{
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(order)));
}

void SplitTriples(const unsigned char* triples, unsigned char* red, unsigned char* green, unsigned char* blue,
                  std::size_t pixels)
{
    const __m256i at0 = ThirdPositions(0), at1 = ThirdPositions(1);
    const __m256i sort0 = InEveryLane(OrdersOfTriples.Gathered[0]);
    const __m256i sort1 = InEveryLane(OrdersOfTriples.Gathered[1]);
    const __m256i sort2 = InEveryLane(OrdersOfTriples.Gathered[2]);
    std::size_t   x = 0;
    for (; x + 32 <= pixels; x += 32) {
        const __m256i y0 = Load(triples + 3 * x), y1 = Load(triples + 3 * x + 32),
                      y2 = Load(triples + 3 * x + 64);
        // Pixels 0..15 in the low lanes, 16..31 in the high ones.
        const __m256i part0 = _mm256_blend_epi32(y0, y1, 0xF0);
        const __m256i part1 = _mm256_permute2x128_si256(y0, y2, 0x21);
        const __m256i part2 = _mm256_blend_epi32(y1, y2, 0xF0);
        const __m256i b = _mm256_blendv_epi8(_mm256_blendv_epi8(part1, part0, at0), part2, at1);
        const __m256i g = _mm256_blendv_epi8(_mm256_blendv_epi8(part2, part1, at0), part0, at1);
        const __m256i r = _mm256_blendv_epi8(_mm256_blendv_epi8(part0, part2, at0), part1, at1);
        Store(blue + x, _mm256_shuffle_epi8(b, sort0));
        Store(green + x, _mm256_shuffle_epi8(g, sort1));
        Store(red + x, _mm256_shuffle_epi8(r, sort2));
    }
    PlaneShufflesPlain.SplitTriples(triples + 3 * x, red + x, green + x, blue + x, pixels - x);
}

void JoinTriples(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                 unsigned char* triples, std::size_t pixels)
{
    const __m256i at0 = ThirdPositions(0), at1 = ThirdPositions(1);
    const __m256i spread0 = InEveryLane(OrdersOfTriples.Scattered[0]);
    const __m256i spread1 = InEveryLane(OrdersOfTriples.Scattered[1]);
    const __m256i spread2 = InEveryLane(OrdersOfTriples.Scattered[2]);
    std::size_t   x = 0;
    for (; x + 32 <= pixels; x += 32) {
        const __m256i b = _mm256_shuffle_epi8(Load(blue + x), spread0);
        const __m256i g = _mm256_shuffle_epi8(Load(green + x), spread1);
        const __m256i r = _mm256_shuffle_epi8(Load(red + x), spread2);
        const __m256i part0 = _mm256_blendv_epi8(_mm256_blendv_epi8(r, b, at0), g, at1);
        const __m256i part1 = _mm256_blendv_epi8(_mm256_blendv_epi8(b, g, at0), r, at1);
        const __m256i part2 = _mm256_blendv_epi8(_mm256_blendv_epi8(g, r, at0), b, at1);
        Store(triples + 3 * x, _mm256_permute2x128_si256(part0, part1, 0x20));
        Store(triples + 3 * x + 32, _mm256_blend_epi32(part2, part0, 0xF0));
        Store(triples + 3 * x + 64, _mm256_permute2x128_si256(part1, part2, 0x31));
    }
    PlaneShufflesPlain.JoinTriples(red + x, green + x, blue + x, triples + 3 * x, pixels - x);
}

// The low byte of each of 32 pixel words. The packs work lane by lane; the last step mends the order.
__m256i LowBytes(__m256i p0, __m256i p1, __m256i p2, __m256i p3)
{
    const __m256i low = _mm256_set1_epi32(255);
    const __m256i packed =
        _mm256_packus_epi16(_mm256_packs_epi32(_mm256_and_si256(p0, low), _mm256_and_si256(p1, low)),
                            _mm256_packs_epi32(_mm256_and_si256(p2, low), _mm256_and_si256(p3, low)));
    return _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7));
}

void SplitQuads(const unsigned char* quads, unsigned char* red, unsigned char* green, unsigned char* blue,
                std::size_t pixels)
{
    std::size_t x = 0;
    for (; x + 32 <= pixels; x += 32) {
        const __m256i p0 = Load(quads + 4 * x), p1 = Load(quads + 4 * x + 32);
        const __m256i p2 = Load(quads + 4 * x + 64), p3 = Load(quads + 4 * x + 96);
        Store(blue + x, LowBytes(p0, p1, p2, p3));
        Store(green + x, LowBytes(_mm256_srli_epi32(p0, 8), _mm256_srli_epi32(p1, 8),
                                  _mm256_srli_epi32(p2, 8), _mm256_srli_epi32(p3, 8)));
        Store(red + x, LowBytes(_mm256_srli_epi32(p0, 16), _mm256_srli_epi32(p1, 16),
                                _mm256_srli_epi32(p2, 16), _mm256_srli_epi32(p3, 16)));
    }
    PlaneShufflesPlain.SplitQuads(quads + 4 * x, red + x, green + x, blue + x, pixels - x);
}

// The gray of four pixels whose channels come as 32-bit integers.
__m128i GrayOfFour(__m128i red, __m128i green, __m128i blue)
{
    const __m256d g = _mm256_mul_pd(_mm256_cvtepi32_pd(green), _mm256_set1_pd(0.587));
    const __m256d r = _mm256_mul_pd(_mm256_cvtepi32_pd(red), _mm256_set1_pd(0.299));
    const __m256d b = _mm256_mul_pd(_mm256_cvtepi32_pd(blue), _mm256_set1_pd(0.114));
    return _mm256_cvttpd_epi32(_mm256_add_pd(_mm256_add_pd(g, r), b));
}

__m128i GrayOfSixteen(__m128i red, __m128i green, __m128i blue)
{
    const __m128i first =
        GrayOfFour(_mm_cvtepu8_epi32(red), _mm_cvtepu8_epi32(green), _mm_cvtepu8_epi32(blue));
    const __m128i second =
        GrayOfFour(_mm_cvtepu8_epi32(_mm_srli_si128(red, 4)), _mm_cvtepu8_epi32(_mm_srli_si128(green, 4)),
                   _mm_cvtepu8_epi32(_mm_srli_si128(blue, 4)));
    const __m128i third =
        GrayOfFour(_mm_cvtepu8_epi32(_mm_srli_si128(red, 8)), _mm_cvtepu8_epi32(_mm_srli_si128(green, 8)),
                   _mm_cvtepu8_epi32(_mm_srli_si128(blue, 8)));
    const __m128i fourth =
        GrayOfFour(_mm_cvtepu8_epi32(_mm_srli_si128(red, 12)), _mm_cvtepu8_epi32(_mm_srli_si128(green, 12)),
                   _mm_cvtepu8_epi32(_mm_srli_si128(blue, 12)));
    return _mm_packus_epi16(_mm_packs_epi32(first, second), _mm_packs_epi32(third, fourth));
}

void ColorToGray(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                 unsigned char* gray, std::size_t pixels)
{
    std::size_t x = 0;
    for (; x + 16 <= pixels; x += 16)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(gray + x),
                         GrayOfSixteen(LoadHalf(red + x), LoadHalf(green + x), LoadHalf(blue + x)));
    PlaneShufflesPlain.ColorToGray(red + x, green + x, blue + x, gray + x, pixels - x);
}

void LevelToGray(const unsigned char* levels, unsigned char* gray, std::size_t pixels)
{
    const __m256i below128 = _mm256_broadcastsi128_si256(LoadHalf(LoweredLevels.Bits));
    const __m256i from128 = _mm256_broadcastsi128_si256(LoadHalf(LoweredLevels.Bits + 16));
    const __m256i bitOf = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201ull));
    std::size_t   x = 0;
    for (; x + 32 <= pixels; x += 32) {
        const __m256i v = Load(levels + x);
        const __m256i byteAt = _mm256_and_si256(_mm256_srli_epi16(v, 3), _mm256_set1_epi8(15));
        const __m256i bits = _mm256_blendv_epi8(_mm256_shuffle_epi8(below128, byteAt),
                                                _mm256_shuffle_epi8(from128, byteAt), v);
        const __m256i bit = _mm256_shuffle_epi8(bitOf, _mm256_and_si256(v, _mm256_set1_epi8(7)));
        const __m256i lowered = _mm256_cmpeq_epi8(_mm256_and_si256(bits, bit), bit);
        Store(gray + x, _mm256_add_epi8(v, lowered));
    }
    PlaneShufflesPlain.LevelToGray(levels + x, gray + x, pixels - x);
}

}

const PlaneShuffles PlaneShufflesAvx2 = {SplitTriples, JoinTriples, SplitQuads, ColorToGray, LevelToGray};

}
