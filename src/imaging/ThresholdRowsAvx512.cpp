#include "imaging/ThresholdRows.h"

#include "base/Compiler.h"

#include <immintrin.h>

namespace vostel {

namespace {

__m512i LoadBytes(const unsigned char* from)
{
    return _mm512_cvtepu8_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
}

void Slide(int* columns, int factor, const unsigned char* entering, const unsigned char* leaving, int width)
{
    const __m512i factors = _mm512_set1_epi32(factor);
    int           x = 0;
    for (; x + 16 <= width; x += 16) {
        const __m512i change = _mm512_sub_epi32(LoadBytes(entering + x), LoadBytes(leaving + x));
        const __m512i scaled = _mm512_mullo_epi32(change, factors);
        _mm512_storeu_si512(columns + x, _mm512_add_epi32(_mm512_loadu_si512(columns + x), scaled));
    }
    ThresholdPlain.Slide(columns + x, factor, entering + x, leaving + x, width - x);
}

// Sums of each element with all before it.
__m512i Scan(__m512i v)
{
    const __m512i zero = _mm512_setzero_si512();
    v = _mm512_add_epi32(v, _mm512_alignr_epi32(v, zero, 15));
    v = _mm512_add_epi32(v, _mm512_alignr_epi32(v, zero, 14));
    v = _mm512_add_epi32(v, _mm512_alignr_epi32(v, zero, 12));
    return _mm512_add_epi32(v, _mm512_alignr_epi32(v, zero, 8));
}

// Where the product is above the sum, or above 0.85 of it.
__mmask16 Above(__m512i products, __m512i sums)
{
    return _mm512_cmpgt_epi32_mask(products, sums);
}
__mmask16 AboveInDouble(__m512i products, __m512i sums)
{
    const __m512d  part = _mm512_set1_pd(0.85);
    const __mmask8 low =
        _mm512_cmp_pd_mask(_mm512_cvtepi32_pd(_mm512_castsi512_si256(products)),
                           _mm512_mul_pd(_mm512_cvtepi32_pd(_mm512_castsi512_si256(sums)), part), _CMP_GT_OQ);
    const __mmask8 high = _mm512_cmp_pd_mask(
        _mm512_cvtepi32_pd(_mm512_extracti32x8_epi32(products, 1)),
        _mm512_mul_pd(_mm512_cvtepi32_pd(_mm512_extracti32x8_epi32(sums, 1)), part), _CMP_GT_OQ);
    return static_cast<__mmask16>(low | high << 8);
}

template <__mmask16 (*IsAbove)(__m512i, __m512i)>
int DecideBlocks(const int* columns, int side, int& before, int scale, const unsigned char* pixels,
                 unsigned char* target, int width)
{
    const __m512i scales = _mm512_set1_epi32(scale);
    const __m512i last = _mm512_set1_epi32(15);
    __m512i       carried = _mm512_set1_epi32(before);
    int           x = 0;
    for (; x + 64 <= width; x += 64) {
        __mmask64 above = 0;
        VOSTEL_UNROLL
        for (int part = 0; part < 4; ++part) {
            const int     at = x + 16 * part;
            const __m512i scanned = Scan(
                _mm512_sub_epi32(_mm512_loadu_si512(columns + at + side), _mm512_loadu_si512(columns + at)));
            const __m512i sums = _mm512_add_epi32(scanned, carried);
            carried = _mm512_add_epi32(carried, _mm512_permutexvar_epi32(last, scanned));
            const __mmask16 bits = IsAbove(_mm512_mullo_epi32(LoadBytes(pixels + at), scales), sums);
            above |= static_cast<__mmask64>(bits) << (16 * part);
        }
        _mm512_storeu_si512(target + x, _mm512_movm_epi8(above));
    }
    before = _mm512_cvtsi512_si32(carried);
    return x;
}

void Decide(const int* columns, int side, int before, int scale, const unsigned char* pixels,
            unsigned char* target, int width)
{
    const int x = DecideBlocks<Above>(columns, side, before, scale, pixels, target, width);
    ThresholdPlain.Decide(columns + x, side, before, scale, pixels + x, target + x, width - x);
}

void DecideInDouble(const int* columns, int side, int before, int scale, const unsigned char* pixels,
                    unsigned char* target, int width)
{
    const int x = DecideBlocks<AboveInDouble>(columns, side, before, scale, pixels, target, width);
    ThresholdPlain.DecideInDouble(columns + x, side, before, scale, pixels + x, target + x, width - x);
}

}

const ThresholdVariant ThresholdAvx512 = {Slide, Decide, DecideInDouble};

}
