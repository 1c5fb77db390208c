#include "fileio/InterleaveLanes.h"

#include "base/simd/SimdAvx512.h"

namespace vostel {

namespace {

struct InterleaveSimd : SimdAvx512 {
    static constexpr __mmask64 At0 = 0x9249924992499249ull;    // positions p of every lane with p % 3 == 0
    static constexpr __mmask64 At1 = 0x2492249224922492ull;

    VOSTEL_INLINE static __m128i LoadQuarter(const void* from)
    {
        return _mm_loadu_si128(static_cast<const __m128i*>(from));
    }
    VOSTEL_INLINE static Ints InEveryLane(const void* order)
    {
        return _mm512_broadcast_i32x4(LoadQuarter(order));
    }
    // The order that takes lanes of a (0 to 3) and b (4 to 7).
    VOSTEL_INLINE static Ints OrderOfLanes(int l0, int l1, int l2, int l3)
    {
        return _mm512_setr_epi64(2 * l0, 2 * l0 + 1, 2 * l1, 2 * l1 + 1, 2 * l2, 2 * l2 + 1, 2 * l3,
                                 2 * l3 + 1);
    }
    // a, but at the given positions b.
    VOSTEL_INLINE static Ints Blend(Ints a, Ints b, __mmask64 positions)
    {
        return _mm512_mask_mov_epi8(a, positions, b);
    }

    struct GatherOrders {
        Ints Sort0 = InEveryLane(OrdersOfTriples.Gathered[0]);
        Ints Sort1 = InEveryLane(OrdersOfTriples.Gathered[1]);
        Ints Sort2 = InEveryLane(OrdersOfTriples.Gathered[2]);
        // Of the twelve 16-byte pieces of 64 pixels, part k of lane l is piece 3 l + k.
        Ints Pieces036 = OrderOfLanes(0, 3, 4 + 2, 0);
        Ints Pieces147 = OrderOfLanes(1, 4 + 0, 4 + 3, 0);
        Ints Pieces25 = OrderOfLanes(2, 4 + 1, 0, 0);

        VOSTEL_INLINE void Deinterleave(const unsigned char* triples, Ints& r, Ints& g, Ints& b) const
        {
            const Ints y0 = LoadInts(triples), y1 = LoadInts(triples + 64), y2 = LoadInts(triples + 128);
            Ints       part0 = _mm512_permutex2var_epi64(y0, Pieces036, y1);
            Ints       part1 = _mm512_permutex2var_epi64(y0, Pieces147, y1);
            Ints       part2 = _mm512_permutex2var_epi64(y0, Pieces25, y1);
            part0 = _mm512_mask_shuffle_i64x2(part0, 0xC0, y2, y2, 1 << 6);                 // piece 9
            part1 = _mm512_mask_shuffle_i64x2(part1, 0xC0, y2, y2, 2 << 6);                 // piece 10
            part2 = _mm512_mask_shuffle_i64x2(part2, 0xF0, y2, y2, (3 << 6) | (0 << 4));    // pieces 8, 11
            b = _mm512_shuffle_epi8(Blend(Blend(part1, part0, At0), part2, At1), Sort0);
            g = _mm512_shuffle_epi8(Blend(Blend(part2, part1, At0), part0, At1), Sort1);
            r = _mm512_shuffle_epi8(Blend(Blend(part0, part2, At0), part1, At1), Sort2);
        }
    };
    struct ScatterOrders {
        Ints Spread0 = InEveryLane(OrdersOfTriples.Scattered[0]);
        Ints Spread1 = InEveryLane(OrdersOfTriples.Scattered[1]);
        Ints Spread2 = InEveryLane(OrdersOfTriples.Scattered[2]);
        Ints First = OrderOfLanes(0, 4 + 0, 0, 1);     // parts 0, 1; part 2 comes between
        Ints Second = OrderOfLanes(1, 4 + 1, 0, 2);    // parts 1, 2; part 0 comes between
        Ints Third = OrderOfLanes(2, 4 + 3, 0, 3);     // parts 2, 0; part 1 comes between

        VOSTEL_INLINE void Interleave(Ints red, Ints green, Ints blue, unsigned char* triples) const
        {
            const Ints b = _mm512_shuffle_epi8(blue, Spread0);
            const Ints g = _mm512_shuffle_epi8(green, Spread1);
            const Ints r = _mm512_shuffle_epi8(red, Spread2);
            const Ints part0 = Blend(Blend(r, b, At0), g, At1);
            const Ints part1 = Blend(Blend(b, g, At0), r, At1);
            const Ints part2 = Blend(Blend(g, r, At0), b, At1);
            const Ints y0 = _mm512_permutex2var_epi64(part0, First, part1);
            const Ints y1 = _mm512_permutex2var_epi64(part1, Second, part2);
            const Ints y2 = _mm512_permutex2var_epi64(part2, Third, part0);
            StoreInts(triples, _mm512_mask_shuffle_i64x2(y0, 0x30, part2, part2, 0 << 4));
            StoreInts(triples + 64, _mm512_mask_shuffle_i64x2(y1, 0x30, part0, part0, 2 << 4));
            StoreInts(triples + 128, _mm512_mask_shuffle_i64x2(y2, 0x30, part1, part1, 3 << 4));
        }
    };

    VOSTEL_INLINE static Ints SecondByte(Ints pixels) { return _mm512_srli_epi32(pixels, 8); }
    VOSTEL_INLINE static Ints ThirdByte(Ints pixels) { return _mm512_srli_epi32(pixels, 16); }
    VOSTEL_INLINE static void StoreLowBytes(unsigned char* to, const Ints (&pixels)[1])
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm512_cvtepi32_epi8(pixels[0]));
    }

    VOSTEL_INLINE static void StoreGrayOfSixteen(const unsigned char* red, const unsigned char* green,
                                                 const unsigned char* blue, unsigned char* gray)
    {
        const Ints    r = LoadBytes(red), g = LoadBytes(green), b = LoadBytes(blue);
        const __m256i low =
            GrayOfEight(_mm512_castsi512_si256(r), _mm512_castsi512_si256(g), _mm512_castsi512_si256(b));
        const __m256i high = GrayOfEight(_mm512_extracti64x4_epi64(r, 1), _mm512_extracti64x4_epi64(g, 1),
                                         _mm512_extracti64x4_epi64(b, 1));
        StoreLowBytes(gray, {_mm512_inserti64x4(_mm512_castsi256_si512(low), high, 1)});
    }

    struct LevelBits {
        Ints Below128 = InEveryLane(LoweredLevels.Bits);
        Ints From128 = InEveryLane(LoweredLevels.Bits + 16);
        Ints BitOf = _mm512_set1_epi64(static_cast<long long>(0x8040201008040201ull));

        VOSTEL_INLINE Ints Gray(Ints v) const
        {
            const Ints      byteAt = _mm512_and_si512(_mm512_srli_epi16(v, 3), _mm512_set1_epi8(15));
            const Ints      bits = _mm512_mask_shuffle_epi8(_mm512_shuffle_epi8(Below128, byteAt),
                                                            _mm512_movepi8_mask(v), From128, byteAt);
            const Ints      bit = _mm512_shuffle_epi8(BitOf, _mm512_and_si512(v, _mm512_set1_epi8(7)));
            const __mmask64 lowered = _mm512_test_epi8_mask(bits, bit);
            return _mm512_mask_sub_epi8(v, lowered, v, _mm512_set1_epi8(1));
        }
    };

private:
    // The gray of eight pixels whose channels come as 32-bit integers.
    VOSTEL_INLINE static __m256i GrayOfEight(__m256i red, __m256i green, __m256i blue)
    {
        const Doubles g = Mul(_mm512_cvtepi32_pd(green), Set(0.587));
        const Doubles r = Mul(_mm512_cvtepi32_pd(red), Set(0.299));
        const Doubles b = Mul(_mm512_cvtepi32_pd(blue), Set(0.114));
        return _mm512_cvttpd_epi32(Add(Add(g, r), b));
    }
};

}

const InterleaveVariant InterleaveAvx512 = {.DeinterleaveTriples = DeinterleaveTripleLanes<InterleaveSimd>,
                                            .InterleaveTriples = InterleaveTripleLanes<InterleaveSimd>,
                                            .DeinterleaveQuads = DeinterleaveQuadLanes<InterleaveSimd, 1>,
                                            .ColorToGray = ColorToGrayLanes<InterleaveSimd>,
                                            .LevelToGray = LevelToGrayLanes<InterleaveSimd>};

}
