#include "fileio/PlaneShuffles.h"

#include <immintrin.h>

namespace vostel {

namespace {

__m512i Load(const unsigned char* from)
{
    return _mm512_loadu_si512(from);
}
void Store(unsigned char* to, __m512i v)
{
    _mm512_storeu_si512(to, v);
}

const __mmask64 At0 = 0x9249924992499249ull;    // positions p of every lane with p % 3 == 0
const __mmask64 At1 = 0x2492249224922492ull;

__m512i InEveryLane(const signed char* order)
{
    return _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(order)));
}

// Lanes of a (0 to 3) and b (4 to 7).
__m512i Lanes(int l0, int l1, int l2, int l3)
{
    return _mm512_setr_epi64(2 * l0, 2 * l0 + 1, 2 * l1, 2 * l1 + 1, 2 * l2, 2 * l2 + 1, 2 * l3, 2 * l3 + 1);
}

void SplitTriples(const unsigned char* triples, unsigned char* red, unsigned char* green, unsigned char* blue,
                  std::size_t pixels)
{
    const __m512i sort0 = InEveryLane(OrdersOfTriples.Gathered[0]);
    const __m512i sort1 = InEveryLane(OrdersOfTriples.Gathered[1]);
    const __m512i sort2 = InEveryLane(OrdersOfTriples.Gathered[2]);
    // Of the twelve 16-byte pieces of 64 pixels, part k of lane l is piece 3 l + k.
    const __m512i pieces036 = Lanes(0, 3, 4 + 2, 0);
    const __m512i pieces147 = Lanes(1, 4 + 0, 4 + 3, 0);
    const __m512i pieces25 = Lanes(2, 4 + 1, 0, 0);
    std::size_t   x = 0;
    for (; x + 64 <= pixels; x += 64) {
        const __m512i y0 = Load(triples + 3 * x), y1 = Load(triples + 3 * x + 64),
                      y2 = Load(triples + 3 * x + 128);
        __m512i part0 = _mm512_permutex2var_epi64(y0, pieces036, y1);
        __m512i part1 = _mm512_permutex2var_epi64(y0, pieces147, y1);
        __m512i part2 = _mm512_permutex2var_epi64(y0, pieces25, y1);
        part0 = _mm512_mask_shuffle_i64x2(part0, 0xC0, y2, y2, 1 << 6);                 // piece 9
        part1 = _mm512_mask_shuffle_i64x2(part1, 0xC0, y2, y2, 2 << 6);                 // piece 10
        part2 = _mm512_mask_shuffle_i64x2(part2, 0xF0, y2, y2, (3 << 6) | (0 << 4));    // pieces 8, 11
        const __m512i b = _mm512_mask_mov_epi8(_mm512_mask_mov_epi8(part1, At0, part0), At1, part2);
        const __m512i g = _mm512_mask_mov_epi8(_mm512_mask_mov_epi8(part2, At0, part1), At1, part0);
        const __m512i r = _mm512_mask_mov_epi8(_mm512_mask_mov_epi8(part0, At0, part2), At1, part1);
        Store(blue + x, _mm512_shuffle_epi8(b, sort0));
        Store(green + x, _mm512_shuffle_epi8(g, sort1));
        Store(red + x, _mm512_shuffle_epi8(r, sort2));
    }
    PlaneShufflesPlain.SplitTriples(triples + 3 * x, red + x, green + x, blue + x, pixels - x);
}

void JoinTriples(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                 unsigned char* triples, std::size_t pixels)
{
    const __m512i spread0 = InEveryLane(OrdersOfTriples.Scattered[0]);
    const __m512i spread1 = InEveryLane(OrdersOfTriples.Scattered[1]);
    const __m512i spread2 = InEveryLane(OrdersOfTriples.Scattered[2]);
    const __m512i first = Lanes(0, 4 + 0, 0, 1);     // parts 0, 1; part 2 comes between
    const __m512i second = Lanes(1, 4 + 1, 0, 2);    // parts 1, 2; part 0 comes between
    const __m512i third = Lanes(2, 4 + 3, 0, 3);     // parts 2, 0; part 1 comes between
    std::size_t   x = 0;
    for (; x + 64 <= pixels; x += 64) {
        const __m512i b = _mm512_shuffle_epi8(Load(blue + x), spread0);
        const __m512i g = _mm512_shuffle_epi8(Load(green + x), spread1);
        const __m512i r = _mm512_shuffle_epi8(Load(red + x), spread2);
        const __m512i part0 = _mm512_mask_mov_epi8(_mm512_mask_mov_epi8(r, At0, b), At1, g);
        const __m512i part1 = _mm512_mask_mov_epi8(_mm512_mask_mov_epi8(b, At0, g), At1, r);
        const __m512i part2 = _mm512_mask_mov_epi8(_mm512_mask_mov_epi8(g, At0, r), At1, b);
        __m512i       y0 = _mm512_permutex2var_epi64(part0, first, part1);
        __m512i       y1 = _mm512_permutex2var_epi64(part1, second, part2);
        __m512i       y2 = _mm512_permutex2var_epi64(part2, third, part0);
        y0 = _mm512_mask_shuffle_i64x2(y0, 0x30, part2, part2, 0 << 4);
        y1 = _mm512_mask_shuffle_i64x2(y1, 0x30, part0, part0, 2 << 4);
        y2 = _mm512_mask_shuffle_i64x2(y2, 0x30, part1, part1, 3 << 4);
        Store(triples + 3 * x, y0);
        Store(triples + 3 * x + 64, y1);
        Store(triples + 3 * x + 128, y2);
    }
    PlaneShufflesPlain.JoinTriples(red + x, green + x, blue + x, triples + 3 * x, pixels - x);
}

void StoreLowBytes(unsigned char* to, __m512i words)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm512_cvtepi32_epi8(words));
}

void SplitQuads(const unsigned char* quads, unsigned char* red, unsigned char* green, unsigned char* blue,
                std::size_t pixels)
{
    std::size_t x = 0;
    for (; x + 16 <= pixels; x += 16) {
        const __m512i words = Load(quads + 4 * x);
        StoreLowBytes(blue + x, words);
        StoreLowBytes(green + x, _mm512_srli_epi32(words, 8));
        StoreLowBytes(red + x, _mm512_srli_epi32(words, 16));
    }
    PlaneShufflesPlain.SplitQuads(quads + 4 * x, red + x, green + x, blue + x, pixels - x);
}

// The gray of eight pixels whose channels come as 32-bit integers.
__m256i GrayOfEight(__m256i red, __m256i green, __m256i blue)
{
    const __m512d g = _mm512_mul_pd(_mm512_cvtepi32_pd(green), _mm512_set1_pd(0.587));
    const __m512d r = _mm512_mul_pd(_mm512_cvtepi32_pd(red), _mm512_set1_pd(0.299));
    const __m512d b = _mm512_mul_pd(_mm512_cvtepi32_pd(blue), _mm512_set1_pd(0.114));
    return _mm512_cvttpd_epi32(_mm512_add_pd(_mm512_add_pd(g, r), b));
}

__m512i Widened(const unsigned char* from)
{
    return _mm512_cvtepu8_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
}

void ColorToGray(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                 unsigned char* gray, std::size_t pixels)
{
    std::size_t x = 0;
    for (; x + 16 <= pixels; x += 16) {
        const __m512i r = Widened(red + x), g = Widened(green + x), b = Widened(blue + x);
        const __m256i low =
            GrayOfEight(_mm512_castsi512_si256(r), _mm512_castsi512_si256(g), _mm512_castsi512_si256(b));
        const __m256i high = GrayOfEight(_mm512_extracti64x4_epi64(r, 1), _mm512_extracti64x4_epi64(g, 1),
                                         _mm512_extracti64x4_epi64(b, 1));
        StoreLowBytes(gray + x, _mm512_inserti64x4(_mm512_castsi256_si512(low), high, 1));
    }
    PlaneShufflesPlain.ColorToGray(red + x, green + x, blue + x, gray + x, pixels - x);
}

void LevelToGray(const unsigned char* levels, unsigned char* gray, std::size_t pixels)
{
    const __m512i below128 =
        _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(LoweredLevels.Bits)));
    const __m512i from128 =
        _mm512_broadcast_i32x4(_mm_loadu_si128(reinterpret_cast<const __m128i*>(LoweredLevels.Bits + 16)));
    const __m512i bitOf = _mm512_set1_epi64(static_cast<long long>(0x8040201008040201ull));
    std::size_t   x = 0;
    for (; x + 64 <= pixels; x += 64) {
        const __m512i   v = Load(levels + x);
        const __m512i   byteAt = _mm512_and_si512(_mm512_srli_epi16(v, 3), _mm512_set1_epi8(15));
        const __m512i   bits = _mm512_mask_shuffle_epi8(_mm512_shuffle_epi8(below128, byteAt),
                                                        _mm512_movepi8_mask(v), from128, byteAt);
        const __m512i   bit = _mm512_shuffle_epi8(bitOf, _mm512_and_si512(v, _mm512_set1_epi8(7)));
        const __mmask64 lowered = _mm512_test_epi8_mask(bits, bit);
        Store(gray + x, _mm512_mask_sub_epi8(v, lowered, v, _mm512_set1_epi8(1)));
    }
    PlaneShufflesPlain.LevelToGray(levels + x, gray + x, pixels - x);
}

}

const PlaneShuffles PlaneShufflesAvx512 = {SplitTriples, JoinTriples, SplitQuads, ColorToGray, LevelToGray};

}
