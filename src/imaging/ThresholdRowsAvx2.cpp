#include "imaging/ThresholdRows.h"

#include "base/Compiler.h"

#include <immintrin.h>

namespace vostel {

namespace {

__m256i Load(const int* from)
{
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}
__m256i LoadBytes(const unsigned char* from)
{
    return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(from)));
}

void Slide(int* columns, int factor, const unsigned char* entering, const unsigned char* leaving, int width)
{
    const __m256i factors = _mm256_set1_epi32(factor);
    int           x = 0;
    for (; x + 8 <= width; x += 8) {
        const __m256i change = _mm256_sub_epi32(LoadBytes(entering + x), LoadBytes(leaving + x));
        const __m256i scaled = _mm256_mullo_epi32(change, factors);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(columns + x),
                            _mm256_add_epi32(Load(columns + x), scaled));
    }
    ThresholdPlain.Slide(columns + x, factor, entering + x, leaving + x, width - x);
}

// Sums of each element with all before it.
__m256i Scan(__m256i v)
{
    v = _mm256_add_epi32(v, _mm256_slli_si256(v, 4));
    v = _mm256_add_epi32(v, _mm256_slli_si256(v, 8));
    // The total of the low half goes to every element of the high one.
    const __m256i low = _mm256_permutevar8x32_epi32(v, _mm256_set1_epi32(3));
    return _mm256_add_epi32(v, _mm256_blend_epi32(_mm256_setzero_si256(), low, 0xF0));
}

// All ones where the product is above the sum, or above 0.85 of it.
__m256i Above(__m256i products, __m256i sums)
{
    return _mm256_cmpgt_epi32(products, sums);
}
__m256i AboveInDouble(__m256i products, __m256i sums)
{
    const __m256d part = _mm256_set1_pd(0.85);
    const __m256d low =
        _mm256_cmp_pd(_mm256_cvtepi32_pd(_mm256_castsi256_si128(products)),
                      _mm256_mul_pd(_mm256_cvtepi32_pd(_mm256_castsi256_si128(sums)), part), _CMP_GT_OQ);
    const __m256d high =
        _mm256_cmp_pd(_mm256_cvtepi32_pd(_mm256_extracti128_si256(products, 1)),
                      _mm256_mul_pd(_mm256_cvtepi32_pd(_mm256_extracti128_si256(sums, 1)), part), _CMP_GT_OQ);
    // One half of each comparison, 0 1 4 5 2 3 6 7, then in order.
    const __m256 halves = _mm256_shuffle_ps(_mm256_castpd_ps(low), _mm256_castpd_ps(high), 0x88);
    return _mm256_permute4x64_epi64(_mm256_castps_si256(halves), 0xD8);
}

template <__m256i (*IsAbove)(__m256i, __m256i)>
int DecideBlocks(const int* columns, int side, int& before, int scale, const unsigned char* pixels,
                 unsigned char* target, int width)
{
    const __m256i scales = _mm256_set1_epi32(scale);
    const __m256i last = _mm256_set1_epi32(7);
    __m256i       carried = _mm256_set1_epi32(before);
    int           x = 0;
    for (; x + 32 <= width; x += 32) {
        __m256i above[4];
        VOSTEL_UNROLL
        for (int part = 0; part < 4; ++part) {
            const int     at = x + 8 * part;
            const __m256i scanned = Scan(_mm256_sub_epi32(Load(columns + at + side), Load(columns + at)));
            const __m256i sums = _mm256_add_epi32(scanned, carried);
            carried = _mm256_add_epi32(carried, _mm256_permutevar8x32_epi32(scanned, last));
            above[part] = IsAbove(_mm256_mullo_epi32(LoadBytes(pixels + at), scales), sums);
        }
        // The packs work lane by lane; the last step mends the order.
        const __m256i bytes = _mm256_packs_epi16(_mm256_packs_epi32(above[0], above[1]),
                                                 _mm256_packs_epi32(above[2], above[3]));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + x),
                            _mm256_permutevar8x32_epi32(bytes, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7)));
    }
    before = _mm256_cvtsi256_si32(carried);
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

const ThresholdVariant ThresholdAvx2 = {Slide, Decide, DecideInDouble};

}
