#include "fileio/PlaneShuffles.h"

#include <emmintrin.h>

namespace vostel {

namespace {

__m128i Load(const unsigned char* from)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}
void Store(unsigned char* to, __m128i v)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), v);
}

// Numbers below are positions among the 48 bytes of 16 triples. Interleaving the first 24 bytes with the
// last 24 moves position p to 2p modulo 47, so that four such steps move 3x + c to 48x + 16c = 16c + x:
// byte c of triple x to place x of plane c. The reverse steps, even positions first, lead back.
void Riffle(__m128i& a, __m128i& b, __m128i& c)
{
    const __m128i first = _mm_unpacklo_epi8(a, _mm_unpackhi_epi64(b, b));
    const __m128i second = _mm_unpacklo_epi8(_mm_unpackhi_epi64(a, a), c);
    const __m128i third = _mm_unpacklo_epi8(b, _mm_unpackhi_epi64(c, c));
    a = first;
    b = second;
    c = third;
}

void Unriffle(__m128i& a, __m128i& b, __m128i& c)
{
    const __m128i low = _mm_set1_epi16(255);
    const __m128i evenC = _mm_and_si128(c, low);
    const __m128i oddA = _mm_srli_epi16(a, 8);
    const __m128i first = _mm_packus_epi16(_mm_and_si128(a, low), _mm_and_si128(b, low));
    const __m128i third = _mm_packus_epi16(_mm_srli_epi16(b, 8), _mm_srli_epi16(c, 8));
    a = first;
    b = _mm_packus_epi16(evenC, oddA);
    c = third;
}

void SplitTriples(const unsigned char* triples, unsigned char* red, unsigned char* green, unsigned char* blue,
                  std::size_t pixels)
{
    std::size_t x = 0;
    for (; x + 16 <= pixels; x += 16) {
        __m128i a = Load(triples + 3 * x), b = Load(triples + 3 * x + 16), c = Load(triples + 3 * x + 32);
        for (int step = 0; step < 4; ++step)
            Riffle(a, b, c);
        Store(blue + x, a);
        Store(green + x, b);
        Store(red + x, c);
    }
    PlaneShufflesPlain.SplitTriples(triples + 3 * x, red + x, green + x, blue + x, pixels - x);
}

void JoinTriples(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                 unsigned char* triples, std::size_t pixels)
{
    std::size_t x = 0;
    for (; x + 16 <= pixels; x += 16) {
        __m128i a = Load(blue + x), b = Load(green + x), c = Load(red + x);
        for (int step = 0; step < 4; ++step)
            Unriffle(a, b, c);
        Store(triples + 3 * x, a);
        Store(triples + 3 * x + 16, b);
        Store(triples + 3 * x + 32, c);
    }
    PlaneShufflesPlain.JoinTriples(red + x, green + x, blue + x, triples + 3 * x, pixels - x);
}

// The low byte of each of 16 pixel words. Bytes never reach the saturation of the packs.
__m128i LowBytes(__m128i p0, __m128i p1, __m128i p2, __m128i p3)
{
    const __m128i low = _mm_set1_epi32(255);
    return _mm_packus_epi16(_mm_packs_epi32(_mm_and_si128(p0, low), _mm_and_si128(p1, low)),
                            _mm_packs_epi32(_mm_and_si128(p2, low), _mm_and_si128(p3, low)));
}

void SplitQuads(const unsigned char* quads, unsigned char* red, unsigned char* green, unsigned char* blue,
                std::size_t pixels)
{
    std::size_t x = 0;
    for (; x + 16 <= pixels; x += 16) {
        const __m128i p0 = Load(quads + 4 * x), p1 = Load(quads + 4 * x + 16);
        const __m128i p2 = Load(quads + 4 * x + 32), p3 = Load(quads + 4 * x + 48);
        Store(blue + x, LowBytes(p0, p1, p2, p3));
        Store(green + x, LowBytes(_mm_srli_epi32(p0, 8), _mm_srli_epi32(p1, 8), _mm_srli_epi32(p2, 8),
                                  _mm_srli_epi32(p3, 8)));
        Store(red + x, LowBytes(_mm_srli_epi32(p0, 16), _mm_srli_epi32(p1, 16), _mm_srli_epi32(p2, 16),
                                _mm_srli_epi32(p3, 16)));
    }
    PlaneShufflesPlain.SplitQuads(quads + 4 * x, red + x, green + x, blue + x, pixels - x);
}

// The gray of four pixels whose channels come as 32-bit integers.
__m128i GrayOfFour(__m128i red, __m128i green, __m128i blue)
{
    const __m128d weightG = _mm_set1_pd(0.587), weightR = _mm_set1_pd(0.299), weightB = _mm_set1_pd(0.114);
    const __m128d sumLow = _mm_add_pd(
        _mm_add_pd(_mm_mul_pd(_mm_cvtepi32_pd(green), weightG), _mm_mul_pd(_mm_cvtepi32_pd(red), weightR)),
        _mm_mul_pd(_mm_cvtepi32_pd(blue), weightB));
    const __m128d sumHigh =
        _mm_add_pd(_mm_add_pd(_mm_mul_pd(_mm_cvtepi32_pd(_mm_unpackhi_epi64(green, green)), weightG),
                              _mm_mul_pd(_mm_cvtepi32_pd(_mm_unpackhi_epi64(red, red)), weightR)),
                   _mm_mul_pd(_mm_cvtepi32_pd(_mm_unpackhi_epi64(blue, blue)), weightB));
    return _mm_unpacklo_epi64(_mm_cvttpd_epi32(sumLow), _mm_cvttpd_epi32(sumHigh));
}

// The same for eight pixels in 16-bit integers.
__m128i GrayOfEight(__m128i red, __m128i green, __m128i blue)
{
    const __m128i zero = _mm_setzero_si128();
    return _mm_packs_epi32(GrayOfFour(_mm_unpacklo_epi16(red, zero), _mm_unpacklo_epi16(green, zero),
                                      _mm_unpacklo_epi16(blue, zero)),
                           GrayOfFour(_mm_unpackhi_epi16(red, zero), _mm_unpackhi_epi16(green, zero),
                                      _mm_unpackhi_epi16(blue, zero)));
}

void ColorToGray(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                 unsigned char* gray, std::size_t pixels)
{
    const __m128i zero = _mm_setzero_si128();
    std::size_t   x = 0;
    for (; x + 16 <= pixels; x += 16) {
        const __m128i r = Load(red + x), g = Load(green + x), b = Load(blue + x);
        const __m128i low =
            GrayOfEight(_mm_unpacklo_epi8(r, zero), _mm_unpacklo_epi8(g, zero), _mm_unpacklo_epi8(b, zero));
        const __m128i high =
            GrayOfEight(_mm_unpackhi_epi8(r, zero), _mm_unpackhi_epi8(g, zero), _mm_unpackhi_epi8(b, zero));
        Store(gray + x, _mm_packus_epi16(low, high));
    }
    PlaneShufflesPlain.ColorToGray(red + x, green + x, blue + x, gray + x, pixels - x);
}

void LevelToGray(const unsigned char* levels, unsigned char* gray, std::size_t pixels)
{
    PlaneShufflesPlain.LevelToGray(levels, gray, pixels);    // a look-up, which this feature does not have
}

}

const PlaneShuffles PlaneShufflesSse2 = {SplitTriples, JoinTriples, SplitQuads, ColorToGray, LevelToGray};

}
