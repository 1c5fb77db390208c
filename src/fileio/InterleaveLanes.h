#pragma once

// The loops of InterleaveRows.h over whole blocks of pixels, for files that name a processor feature. How a
// block is shuffled differs from one instruction set to the next: Simd brings it. Everything here is a
// template on it, so that each file has a copy of its own.

#include "base/Compiler.h"
#include "fileio/InterleaveRows.h"

namespace vostel {

namespace {

// Triples come in blocks of one vector per channel. The byte orders of a block stay in registers.
template <typename Simd>
void DeinterleaveTripleLanes(const unsigned char* triples, unsigned char* red, unsigned char* green,
                             unsigned char* blue, std::size_t pixels)
{
    constexpr std::size_t             Block = 4 * Simd::Lanes;
    const typename Simd::GatherOrders orders;
    std::size_t                       x = 0;
    for (; x + Block <= pixels; x += Block) {
        typename Simd::Ints r, g, b;
        orders.Deinterleave(triples + 3 * x, r, g, b);
        Simd::StoreInts(blue + x, b);
        Simd::StoreInts(green + x, g);
        Simd::StoreInts(red + x, r);
    }
    InterleavePlain.DeinterleaveTriples(triples + 3 * x, red + x, green + x, blue + x, pixels - x);
}

template <typename Simd>
void InterleaveTripleLanes(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                           unsigned char* triples, std::size_t pixels)
{
    constexpr std::size_t              Block = 4 * Simd::Lanes;
    const typename Simd::ScatterOrders orders;
    std::size_t                        x = 0;
    for (; x + Block <= pixels; x += Block)
        orders.Interleave(Simd::LoadInts(red + x), Simd::LoadInts(green + x), Simd::LoadInts(blue + x),
                          triples + 3 * x);
    InterleavePlain.InterleaveTriples(red + x, green + x, blue + x, triples + 3 * x, pixels - x);
}

// Vectors of quads make one run of bytes per channel.
template <typename Simd, int Vectors>
void DeinterleaveQuadLanes(const unsigned char* quads, unsigned char* red, unsigned char* green,
                           unsigned char* blue, std::size_t pixels)
{
    constexpr std::size_t Block = Vectors * Simd::Lanes;
    std::size_t           x = 0;
    for (; x + Block <= pixels; x += Block) {
        typename Simd::Ints first[Vectors], second[Vectors], third[Vectors];
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            first[v] = Simd::LoadInts(quads + 4 * (x + static_cast<std::size_t>(v * Simd::Lanes)));
        Simd::StoreLowBytes(blue + x, first);
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            second[v] = Simd::SecondByte(first[v]);
        Simd::StoreLowBytes(green + x, second);
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            third[v] = Simd::ThirdByte(first[v]);
        Simd::StoreLowBytes(red + x, third);
    }
    InterleavePlain.DeinterleaveQuads(quads + 4 * x, red + x, green + x, blue + x, pixels - x);
}

template <typename Simd>
void ColorToGrayLanes(const unsigned char* red, const unsigned char* green, const unsigned char* blue,
                      unsigned char* gray, std::size_t pixels)
{
    std::size_t x = 0;
    for (; x + 16 <= pixels; x += 16)
        Simd::StoreGrayOfSixteen(red + x, green + x, blue + x, gray + x);
    InterleavePlain.ColorToGray(red + x, green + x, blue + x, gray + x, pixels - x);
}

template <typename Simd>
[[maybe_unused]] void LevelToGrayLanes(const unsigned char* levels, unsigned char* gray, std::size_t pixels)
{
    constexpr std::size_t          Block = 4 * Simd::Lanes;
    const typename Simd::LevelBits lowered;
    std::size_t                    x = 0;
    for (; x + Block <= pixels; x += Block)
        Simd::StoreInts(gray + x, lowered.Gray(Simd::LoadInts(levels + x)));
    InterleavePlain.LevelToGray(levels + x, gray + x, pixels - x);
}

}

}
