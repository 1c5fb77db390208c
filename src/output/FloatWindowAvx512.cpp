#include "output/FloatWindow.h"

#include "base/CacheLimits.h"
#include "base/simd/SimdAvx512.h"

#include <cstdint>

namespace vostel {

namespace {

using Simd = SimdAvx512;

// Every other word of two registers, from the first or the second on, and two registers of words in turn.
struct WordOrders {
    __m512i Even, Odd, FirstHalf, SecondHalf;

    WordOrders()
    {
        alignas(64) static constexpr std::uint16_t Places[32] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10,
                                                                 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21,
                                                                 22, 23, 24, 25, 26, 27, 28, 29, 30, 31};
        const __m512i                              places = Simd::LoadInts(Places);
        const __m512i                              one = _mm512_set1_epi16(1);
        Even = _mm512_slli_epi16(places, 1);
        Odd = _mm512_or_si512(Even, one);
        FirstHalf = _mm512_or_si512(_mm512_srli_epi16(places, 1),
                                    _mm512_slli_epi16(_mm512_and_si512(places, one), 5));
        SecondHalf = _mm512_or_si512(FirstHalf, _mm512_set1_epi16(16));
    }
};

// Half of each of 256 pixels, in registers.
struct HalfPixels {
    __m512i Words[8];

    HalfPixels(const unsigned* pixels, __m512i order)
    {
        for (int i = 0; i < 8; ++i)
            Words[i] = _mm512_permutex2var_epi16(Simd::LoadInts(pixels + 32 * i), order,
                                                 Simd::LoadInts(pixels + 32 * i + 16));
    }

    // Of 32 levels: the upper bits of a level choose among four pairs of registers.
    __m512i Of(__m512i levels, __mmask32 bit6, __mmask32 bit7) const
    {
        const __m512i a = _mm512_permutex2var_epi16(Words[0], levels, Words[1]);
        const __m512i b = _mm512_permutex2var_epi16(Words[2], levels, Words[3]);
        const __m512i c = _mm512_permutex2var_epi16(Words[4], levels, Words[5]);
        const __m512i d = _mm512_permutex2var_epi16(Words[6], levels, Words[7]);
        return _mm512_mask_blend_epi16(bit7, _mm512_mask_blend_epi16(bit6, a, b),
                                       _mm512_mask_blend_epi16(bit6, c, d));
    }
};

// Windows with gamma 1: the color map is looked up in registers.
class MappedPixels {
public:
    explicit MappedPixels(const FloatWindow& window)
        : Low(window.Pixels(), Orders.Even), High(window.Pixels(), Orders.Odd), Base(Simd::Set(window.Base)),
          Factor(Simd::Set(window.Factor)), Offset(Simd::Set(window.Offset)), Top(Simd::Set(window.Top)),
          Lowest(Simd::Set(window.Lowest)), Highest(Simd::Set(window.Highest)),
          Below(Simd::Set(static_cast<int>(window.Curve.BelowPixel))),
          Above(Simd::Set(static_cast<int>(window.Curve.AbovePixel))),
          NotFinite(Simd::Set(static_cast<int>(window.Curve.NotFinitePixel)))
    {
    }

    // Pixels of 32 values.
    VOSTEL_INLINE void Show(const float* values, __m512i& first, __m512i& second) const
    {
        const __m512    a = Simd::Load(values);
        const __m512    b = Simd::Load(values + 16);
        const __m512i   levels = _mm512_permutex2var_epi16(LevelsOf(a), Orders.Even, LevelsOf(b));
        const __mmask32 bit6 = _mm512_test_epi16_mask(levels, _mm512_set1_epi16(64));
        const __mmask32 bit7 = _mm512_test_epi16_mask(levels, _mm512_set1_epi16(128));
        const __m512i   low = Low.Of(levels, bit6, bit7);
        const __m512i   high = High.Of(levels, bit6, bit7);
        first = Replaced(_mm512_permutex2var_epi16(low, Orders.FirstHalf, high), a);
        second = Replaced(_mm512_permutex2var_epi16(low, Orders.SecondHalf, high), b);
    }

private:
    WordOrders Orders;
    HalfPixels Low, High;
    __m512     Base, Factor, Offset, Top, Lowest, Highest;
    __m512i    Below, Above, NotFinite;

    __m512i LevelsOf(__m512 v) const
    {
        const __m512 place = Simd::Add(Simd::Mul(Simd::Sub(v, Base), Factor), Offset);
        return _mm512_cvttps_epi32(_mm512_min_ps(_mm512_max_ps(place, _mm512_setzero_ps()), Top));
    }

    // The inside of the window, replaced where the values lie elsewhere.
    __m512i Replaced(__m512i inside, __m512 v) const
    {
        constexpr int   notFinite = 0x01 | 0x08 | 0x10 | 0x80;    // not a number, of both kinds, and infinite
        const __mmask16 below = _mm512_cmp_ps_mask(v, Lowest, _CMP_LT_OQ);
        const __mmask16 above = _mm512_cmp_ps_mask(v, Highest, _CMP_GT_OQ);
        inside = _mm512_mask_mov_epi32(inside, below, Below);
        inside = _mm512_mask_mov_epi32(inside, above, Above);
        return _mm512_mask_mov_epi32(inside, _mm512_fpclass_ps_mask(v, notFinite), NotFinite);
    }
};

std::size_t ShowMapped(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count,
                       bool streaming)
{
    const MappedPixels mapped(window);
    std::size_t        x = 0;
    for (; x + 32 <= count; x += 32) {
        __m512i first, second;
        Simd::PrefetchTwoPagesOn(values + x, 2);
        mapped.Show(values + x, first, second);
        if (streaming) {
            Simd::StreamInts(pixels + x, first);
            Simd::StreamInts(pixels + x + 16, second);
        } else {
            Simd::StoreInts(pixels + x, first);
            Simd::StoreInts(pixels + x + 16, second);
        }
    }
    return x;
}

// Grays are limited by memory and other gammas by their long table: there wider registers do not pay.
void Row(const FloatWindow& window, const float* values, unsigned* pixels, std::size_t count, bool streaming)
{
    if (!window.IsFast || !window.IsLinear || window.IsGray) {
        FloatWindowAvx2.Row(window, values, pixels, count, streaming);
        return;
    }
    const std::size_t head = streaming ? ElementsToCacheLine(pixels, count) : 0;
    FloatWindowPlain.Row(window, values, pixels, head, false);
    const std::size_t x = head + ShowMapped(window, values + head, pixels + head, count - head, streaming);
    FloatWindowPlain.Row(window, values + x, pixels + x, count - x, false);
}

}

const FloatWindowVariant FloatWindowAvx512 = {.Row = Row};

}
