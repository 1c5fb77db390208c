#pragma once

// The passes of the adaptive threshold with lanes along the row, for files that name a processor feature.
// Simd brings the vector types and their operations; everything here is a template on it, so that each file
// has a copy of its own.

#include "base/Compiler.h"
#include "imaging/ThresholdRows.h"

namespace vostel {

namespace {

template <typename Simd>
void SlideLanes(int* columns, int factor, const unsigned char* entering, const unsigned char* leaving,
                int width)
{
    const typename Simd::Ints factors = Simd::Set(factor);
    int                       x = 0;
    for (; x + Simd::Lanes <= width; x += Simd::Lanes) {
        const typename Simd::Ints change =
            Simd::Sub(Simd::LoadBytes(entering + x), Simd::LoadBytes(leaving + x));
        Simd::StoreInts(columns + x, Simd::Add(Simd::LoadInts(columns + x), Simd::Mul(change, factors)));
    }
    ThresholdPlain.Slide(columns + x, factor, entering + x, leaving + x, width - x);
}

// Decides about whole blocks; returns how many pixels that are, and changes before to the sum of the last.
template <typename Simd, bool InDouble>
VOSTEL_INLINE int DecideBlocks(const int* columns, int side, int& before, int scale,
                               const unsigned char* pixels, unsigned char* target, int width)
{
    using Ints = typename Simd::Ints;
    constexpr int Lanes = Simd::Lanes;
    const Ints    scales = Simd::Set(scale);
    Ints          carried = Simd::Set(before);
    int           x = 0;
    for (; x + 4 * Lanes <= width; x += 4 * Lanes) {
        typename Simd::Mask above[4];
        VOSTEL_UNROLL
        for (int part = 0; part < 4; ++part) {
            const int  at = x + Lanes * part;
            const Ints scanned =
                Simd::Scan(Simd::Sub(Simd::LoadInts(columns + at + side), Simd::LoadInts(columns + at)));
            const Ints sums = Simd::Add(scanned, carried);
            carried = Simd::Add(carried, Simd::LastEverywhere(scanned));
            const Ints products = Simd::Mul(Simd::LoadBytes(pixels + at), scales);
            above[part] = InDouble ? Simd::AboveInDouble(products, sums) : Simd::Above(products, sums);
        }
        Simd::StoreMasks(target + x, above);
    }
    before = Simd::First(carried);
    return x;
}

template <typename Simd>
void DecideLanes(const int* columns, int side, int before, int scale, const unsigned char* pixels,
                 unsigned char* target, int width)
{
    const int x = DecideBlocks<Simd, false>(columns, side, before, scale, pixels, target, width);
    ThresholdPlain.Decide(columns + x, side, before, scale, pixels + x, target + x, width - x);
}

template <typename Simd>
void DecideLanesInDouble(const int* columns, int side, int before, int scale, const unsigned char* pixels,
                         unsigned char* target, int width)
{
    const int x = DecideBlocks<Simd, true>(columns, side, before, scale, pixels, target, width);
    ThresholdPlain.DecideInDouble(columns + x, side, before, scale, pixels + x, target + x, width - x);
}

}

}
