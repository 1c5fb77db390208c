#include "fileio/InterleaveLanes.h"

#include "base/simd/SimdSse2.h"

namespace vostel {

namespace {

struct InterleaveSimd : SimdSse2 {
    // Numbers below are positions among the 48 bytes of 16 triples. Interleaving the first 24 bytes with the
    // last 24 moves position p to 2p modulo 47, so that four such steps move 3x + c to 48x + 16c = 16c + x:
    // byte c of triple x to place x of plane c. The reverse steps, even positions first, lead back.
    struct GatherOrders {
        VOSTEL_INLINE void Deinterleave(const unsigned char* triples, Ints& r, Ints& g, Ints& b) const
        {
            b = LoadInts(triples);
            g = LoadInts(triples + 16);
            r = LoadInts(triples + 32);
            for (int step = 0; step < 4; ++step)
                Riffle(b, g, r);
        }
    };
    struct ScatterOrders {
        VOSTEL_INLINE void Interleave(Ints r, Ints g, Ints b, unsigned char* triples) const
        {
            for (int step = 0; step < 4; ++step)
                Unriffle(b, g, r);
            StoreInts(triples, b);
            StoreInts(triples + 16, g);
            StoreInts(triples + 32, r);
        }
    };

    VOSTEL_INLINE static Ints SecondByte(Ints pixels) { return _mm_srli_epi32(pixels, 8); }
    VOSTEL_INLINE static Ints ThirdByte(Ints pixels) { return _mm_srli_epi32(pixels, 16); }
    // Bytes never reach the saturation of the packs.
    VOSTEL_INLINE static void StoreLowBytes(unsigned char* to, const Ints (&pixels)[4])
    {
        const Ints low = Set(255);
        StoreInts(to, _mm_packus_epi16(
                          _mm_packs_epi32(_mm_and_si128(pixels[0], low), _mm_and_si128(pixels[1], low)),
                          _mm_packs_epi32(_mm_and_si128(pixels[2], low), _mm_and_si128(pixels[3], low))));
    }

    VOSTEL_INLINE static void StoreGrayOfSixteen(const unsigned char* red, const unsigned char* green,
                                                 const unsigned char* blue, unsigned char* gray)
    {
        const Ints zero = _mm_setzero_si128();
        const Ints r = LoadInts(red), g = LoadInts(green), b = LoadInts(blue);
        const Ints low =
            GrayOfEight(_mm_unpacklo_epi8(r, zero), _mm_unpacklo_epi8(g, zero), _mm_unpacklo_epi8(b, zero));
        const Ints high =
            GrayOfEight(_mm_unpackhi_epi8(r, zero), _mm_unpackhi_epi8(g, zero), _mm_unpackhi_epi8(b, zero));
        StoreInts(gray, _mm_packus_epi16(low, high));
    }

private:
    VOSTEL_INLINE static void Riffle(Ints& a, Ints& b, Ints& c)
    {
        const Ints first = _mm_unpacklo_epi8(a, _mm_unpackhi_epi64(b, b));
        const Ints second = _mm_unpacklo_epi8(_mm_unpackhi_epi64(a, a), c);
        const Ints third = _mm_unpacklo_epi8(b, _mm_unpackhi_epi64(c, c));
        a = first;
        b = second;
        c = third;
    }

    VOSTEL_INLINE static void Unriffle(Ints& a, Ints& b, Ints& c)
    {
        const Ints low = _mm_set1_epi16(255);
        const Ints evenC = _mm_and_si128(c, low);
        const Ints oddA = _mm_srli_epi16(a, 8);
        const Ints first = _mm_packus_epi16(_mm_and_si128(a, low), _mm_and_si128(b, low));
        const Ints third = _mm_packus_epi16(_mm_srli_epi16(b, 8), _mm_srli_epi16(c, 8));
        a = first;
        b = _mm_packus_epi16(evenC, oddA);
        c = third;
    }

    // The gray of four pixels whose channels come as 32-bit integers.
    VOSTEL_INLINE static Ints GrayOfFour(Ints red, Ints green, Ints blue)
    {
        const __m128d weightG = _mm_set1_pd(0.587), weightR = _mm_set1_pd(0.299),
                      weightB = _mm_set1_pd(0.114);
        const __m128d sumLow = _mm_add_pd(_mm_add_pd(_mm_mul_pd(_mm_cvtepi32_pd(green), weightG),
                                                     _mm_mul_pd(_mm_cvtepi32_pd(red), weightR)),
                                          _mm_mul_pd(_mm_cvtepi32_pd(blue), weightB));
        const __m128d sumHigh =
            _mm_add_pd(_mm_add_pd(_mm_mul_pd(_mm_cvtepi32_pd(_mm_unpackhi_epi64(green, green)), weightG),
                                  _mm_mul_pd(_mm_cvtepi32_pd(_mm_unpackhi_epi64(red, red)), weightR)),
                       _mm_mul_pd(_mm_cvtepi32_pd(_mm_unpackhi_epi64(blue, blue)), weightB));
        return _mm_unpacklo_epi64(_mm_cvttpd_epi32(sumLow), _mm_cvttpd_epi32(sumHigh));
    }

    // The same for eight pixels in 16-bit integers.
    VOSTEL_INLINE static Ints GrayOfEight(Ints red, Ints green, Ints blue)
    {
        const Ints zero = _mm_setzero_si128();
        return _mm_packs_epi32(GrayOfFour(_mm_unpacklo_epi16(red, zero), _mm_unpacklo_epi16(green, zero),
                                          _mm_unpacklo_epi16(blue, zero)),
                               GrayOfFour(_mm_unpackhi_epi16(red, zero), _mm_unpackhi_epi16(green, zero),
                                          _mm_unpackhi_epi16(blue, zero)));
    }
};

void LevelToGray(const unsigned char* levels, unsigned char* gray, std::size_t pixels)
{
    InterleavePlain.LevelToGray(levels, gray, pixels);    // a look-up, which this feature does not have
}

}

const InterleaveVariant InterleaveSse2 = {.DeinterleaveTriples = DeinterleaveTripleLanes<InterleaveSimd>,
                                          .InterleaveTriples = InterleaveTripleLanes<InterleaveSimd>,
                                          .DeinterleaveQuads = DeinterleaveQuadLanes<InterleaveSimd, 4>,
                                          .ColorToGray = ColorToGrayLanes<InterleaveSimd>,
                                          .LevelToGray = LevelToGray};

}
