#include "fileio/InterleaveLanes.h"

#include "base/simd/SimdAvx2.h"

namespace vostel {

namespace {

struct InterleaveSimd : SimdAvx2 {
    VOSTEL_INLINE static __m128i LoadHalf(const void* from)
    {
        return _mm_loadu_si128(static_cast<const __m128i*>(from));
    }
    VOSTEL_INLINE static Ints InEveryLane(const void* order)
    {
        return _mm256_broadcastsi128_si256(LoadHalf(order));
    }

    // The positions p of every lane with p % 3 == remainder.
    VOSTEL_INLINE static Ints ThirdPositions(int remainder)
    {
        static const signed char positions[18] = {-1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0};
        return InEveryLane(positions + (3 - remainder) % 3);
    }
    // a, but at the given positions b.
    VOSTEL_INLINE static Ints Blend(Ints a, Ints b, Ints positions)
    {
        return _mm256_blendv_epi8(a, b, positions);
    }

    struct GatherOrders {
        Ints At0 = ThirdPositions(0);
        Ints At1 = ThirdPositions(1);
        Ints Sort0 = InEveryLane(OrdersOfTriples.Gathered[0]);
        Ints Sort1 = InEveryLane(OrdersOfTriples.Gathered[1]);
        Ints Sort2 = InEveryLane(OrdersOfTriples.Gathered[2]);

        VOSTEL_INLINE void Deinterleave(const unsigned char* triples, Ints& r, Ints& g, Ints& b) const
        {
            const Ints y0 = LoadInts(triples), y1 = LoadInts(triples + 32), y2 = LoadInts(triples + 64);
            // Pixels 0..15 in the low lanes, 16..31 in the high ones.
            const Ints part0 = _mm256_blend_epi32(y0, y1, 0xF0);
            const Ints part1 = _mm256_permute2x128_si256(y0, y2, 0x21);
            const Ints part2 = _mm256_blend_epi32(y1, y2, 0xF0);
            b = _mm256_shuffle_epi8(Blend(Blend(part1, part0, At0), part2, At1), Sort0);
            g = _mm256_shuffle_epi8(Blend(Blend(part2, part1, At0), part0, At1), Sort1);
            r = _mm256_shuffle_epi8(Blend(Blend(part0, part2, At0), part1, At1), Sort2);
        }
    };
    struct ScatterOrders {
        Ints At0 = ThirdPositions(0);
        Ints At1 = ThirdPositions(1);
        Ints Spread0 = InEveryLane(OrdersOfTriples.Scattered[0]);
        Ints Spread1 = InEveryLane(OrdersOfTriples.Scattered[1]);
        Ints Spread2 = InEveryLane(OrdersOfTriples.Scattered[2]);

        VOSTEL_INLINE void Interleave(Ints red, Ints green, Ints blue, unsigned char* triples) const
        {
            const Ints b = _mm256_shuffle_epi8(blue, Spread0);
            const Ints g = _mm256_shuffle_epi8(green, Spread1);
            const Ints r = _mm256_shuffle_epi8(red, Spread2);
            const Ints part0 = Blend(Blend(r, b, At0), g, At1);
            const Ints part1 = Blend(Blend(b, g, At0), r, At1);
            const Ints part2 = Blend(Blend(g, r, At0), b, At1);
            StoreInts(triples, _mm256_permute2x128_si256(part0, part1, 0x20));
            StoreInts(triples + 32, _mm256_blend_epi32(part2, part0, 0xF0));
            StoreInts(triples + 64, _mm256_permute2x128_si256(part1, part2, 0x31));
        }
    };

    VOSTEL_INLINE static Ints SecondByte(Ints pixels) { return _mm256_srli_epi32(pixels, 8); }
    VOSTEL_INLINE static Ints ThirdByte(Ints pixels) { return _mm256_srli_epi32(pixels, 16); }
    // The packs work lane by lane; the last step restores the order.
    VOSTEL_INLINE static void StoreLowBytes(unsigned char* to, const Ints (&pixels)[4])
    {
        const Ints low = Set(255);
        const Ints packed = _mm256_packus_epi16(
            _mm256_packs_epi32(_mm256_and_si256(pixels[0], low), _mm256_and_si256(pixels[1], low)),
            _mm256_packs_epi32(_mm256_and_si256(pixels[2], low), _mm256_and_si256(pixels[3], low)));
        StoreInts(to, _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7)));
    }

    VOSTEL_INLINE static void StoreGrayOfSixteen(const unsigned char* red, const unsigned char* green,
                                                 const unsigned char* blue, unsigned char* gray)
    {
        const __m128i r = LoadHalf(red), g = LoadHalf(green), b = LoadHalf(blue);
        const __m128i first = GrayOfFour(r, g, b);
        const __m128i second = GrayOfFour(_mm_srli_si128(r, 4), _mm_srli_si128(g, 4), _mm_srli_si128(b, 4));
        const __m128i third = GrayOfFour(_mm_srli_si128(r, 8), _mm_srli_si128(g, 8), _mm_srli_si128(b, 8));
        const __m128i fourth =
            GrayOfFour(_mm_srli_si128(r, 12), _mm_srli_si128(g, 12), _mm_srli_si128(b, 12));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(gray),
                         _mm_packus_epi16(_mm_packs_epi32(first, second), _mm_packs_epi32(third, fourth)));
    }

    struct LevelBits {
        Ints Below128 = InEveryLane(LoweredLevels.Bits);
        Ints From128 = InEveryLane(LoweredLevels.Bits + 16);
        Ints BitOf = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201ull));

        VOSTEL_INLINE Ints Gray(Ints v) const
        {
            const Ints byteAt = _mm256_and_si256(_mm256_srli_epi16(v, 3), _mm256_set1_epi8(15));
            const Ints bits =
                Blend(_mm256_shuffle_epi8(Below128, byteAt), _mm256_shuffle_epi8(From128, byteAt), v);
            const Ints bit = _mm256_shuffle_epi8(BitOf, _mm256_and_si256(v, _mm256_set1_epi8(7)));
            const Ints lowered = _mm256_cmpeq_epi8(_mm256_and_si256(bits, bit), bit);
            return _mm256_add_epi8(v, lowered);
        }
    };

private:
    // The gray of the first four pixels of vectors of bytes.
    VOSTEL_INLINE static __m128i GrayOfFour(__m128i red, __m128i green, __m128i blue)
    {
        const Doubles g = Mul(_mm256_cvtepi32_pd(_mm_cvtepu8_epi32(green)), Set(0.587));
        const Doubles r = Mul(_mm256_cvtepi32_pd(_mm_cvtepu8_epi32(red)), Set(0.299));
        const Doubles b = Mul(_mm256_cvtepi32_pd(_mm_cvtepu8_epi32(blue)), Set(0.114));
        return _mm256_cvttpd_epi32(Add(Add(g, r), b));
    }
};

}

const InterleaveVariant InterleaveAvx2 = {.DeinterleaveTriples = DeinterleaveTripleLanes<InterleaveSimd>,
                                          .InterleaveTriples = InterleaveTripleLanes<InterleaveSimd>,
                                          .DeinterleaveQuads = DeinterleaveQuadLanes<InterleaveSimd, 4>,
                                          .ColorToGray = ColorToGrayLanes<InterleaveSimd>,
                                          .LevelToGray = LevelToGrayLanes<InterleaveSimd>};

}
