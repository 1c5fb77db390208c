#pragma once

// The inner loops of the stretches with lanes along the row, for files that name a processor feature. Simd
// brings the vector type and its operations; everything here is a template on it, so that each file has a
// copy of its own.

#include "base/CacheLimits.h"
#include "base/Compiler.h"
#include "platform/portable/StretchRows.h"

namespace vostel::gdi {
namespace {

// Vectors of pixels at a time. The processor guesses what follows within a row; where the next row starts it
// cannot.
template <typename Simd, int Vectors, bool Streams>
void CopyLanes(std::uint32_t* target, const std::uint32_t* source, int count, const std::uint32_t* rowAhead)
{
    constexpr int        Lanes = Simd::Lanes;
    constexpr int        LinePixels = static_cast<int>(CacheLineBytes) / 4;
    const std::uint32_t* ahead = rowAhead ? rowAhead : source;
    int                  i = 0;
    // Streaming takes aligned addresses only, and no other store shall straddle two cache lines.
    for (; i < count && reinterpret_cast<std::uintptr_t>(target + i) % (4 * Lanes) != 0; ++i)
        target[i] = source[i];
    for (; i + Vectors * Lanes <= count; i += Vectors * Lanes) {
        VOSTEL_UNROLL
        for (int line = 0; line < Vectors * Lanes; line += LinePixels)
            Simd::Prefetch(ahead + i, 4 * line);
        typename Simd::Ints pixels[Vectors];
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            pixels[v] = Simd::LoadInts(source + i + v * Lanes);
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v) {
            if constexpr (Streams)
                Simd::StreamInts(target + i + v * Lanes, pixels[v]);
            else
                Simd::StoreInts(target + i + v * Lanes, pixels[v]);
        }
    }
    for (; i < count; ++i)
        target[i] = source[i];
}

template <typename Simd>
[[maybe_unused]] void RepeatLanes(std::uint32_t* target, const std::uint32_t* source, int width,
                                  const int* columns, int count)
{
    constexpr int Lanes = Simd::Lanes;
    int           i = 0;
    for (; i + Lanes <= count; i += Lanes) {
        // The columns of so many neighbours lie within one vector from the lower end's on.
        int first = columns[i] < columns[i + Lanes - 1] ? columns[i] : columns[i + Lanes - 1];
        if (first > width - Lanes) {
            first = width - Lanes;
            if (first < 0)
                break;
        }
        const typename Simd::Ints places = Simd::Sub(Simd::LoadInts(columns + i), Simd::Set(first));
        Simd::StoreInts(target + i, Simd::Pick(Simd::LoadInts(source + first), places));
    }
    PickPixelsPlain(target, source, columns, i, count);
}

template <typename Simd, int Vectors>
void BlendRowLanes(std::uint16_t* target, const std::uint8_t* const* rows, const std::int16_t* weights,
                   int rowCount, int count, std::ptrdiff_t ahead)
{
    using Ints = typename Simd::Ints;
    constexpr int Bytes = 4 * Simd::Lanes;
    const Ints    zero = Simd::Set(0);
    int           i = 0;
    for (; i + Vectors * Bytes <= count; i += Vectors * Bytes) {
        Ints sums[Vectors][4];
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            sums[v][0] = sums[v][1] = sums[v][2] = sums[v][3] = Simd::Set(64);
        for (int k = 0; k < rowCount; k += 2) {
            const Ints pair = Simd::Set(static_cast<int>(static_cast<std::uint16_t>(weights[k]) |
                                                         static_cast<unsigned>(weights[k + 1]) << 16));
            Simd::Prefetch(rows[k] + i, ahead);
            Simd::Prefetch(rows[k + 1] + i, ahead);
            VOSTEL_UNROLL
            for (int v = 0; v < Vectors; ++v) {
                const Ints upper = Simd::LoadInts(rows[k] + i + v * Bytes);
                const Ints lower = Simd::LoadInts(rows[k + 1] + i + v * Bytes);
                const Ints low = Simd::UnpackLow(upper, lower);
                const Ints high = Simd::UnpackHigh(upper, lower);
                sums[v][0] = Simd::Add(sums[v][0], Simd::AddProducts(Simd::UnpackLow(low, zero), pair));
                sums[v][1] = Simd::Add(sums[v][1], Simd::AddProducts(Simd::UnpackHigh(low, zero), pair));
                sums[v][2] = Simd::Add(sums[v][2], Simd::AddProducts(Simd::UnpackLow(high, zero), pair));
                sums[v][3] = Simd::Add(sums[v][3], Simd::AddProducts(Simd::UnpackHigh(high, zero), pair));
            }
        }
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            Simd::StoreUnpacked(target + i + v * Bytes, Simd::NarrowRowSums(sums[v][0], sums[v][1]),
                                Simd::NarrowRowSums(sums[v][2], sums[v][3]));
    }
    BlendRowsPlain(target, rows, weights, rowCount, i, count);
}

// Sum k takes the target pixels i + k, i + k + 4 and so on, the four channels of each side by side.
template <typename Simd>
void BlendColumnLanes(std::uint32_t* target, const std::uint16_t* row, const int* columns,
                      const std::uint32_t* pairs, int pairsEach, int count)
{
    using Ints = typename Simd::Ints;
    constexpr int        Lanes = Simd::Lanes;
    const std::ptrdiff_t blockPairs = static_cast<std::ptrdiff_t>(pairsEach) * StretchBlock;
    const Ints           colours = Simd::Set(0x00FFFFFF);
    int                  i = 0;
    for (; i + Lanes <= count; i += Lanes) {
        const std::uint32_t* pair = pairs + i / StretchBlock * blockPairs + i % StretchBlock;
        Ints                 sums[4];
        sums[0] = sums[1] = sums[2] = sums[3] = Simd::Set(1 << 20);
        for (int p = 0; p < pairsEach; ++p, pair += StretchBlock) {
            const std::uint16_t* const pixels = row + static_cast<std::ptrdiff_t>(p) * 8;
            Ints                       weights[4];
            Simd::LoadWeights(pair, blockPairs, weights);
            VOSTEL_UNROLL
            for (int k = 0; k < 4; ++k)
                sums[k] = Simd::Add(sums[k],
                                    Simd::AddProducts(Simd::LoadPairs(pixels, columns + i + k), weights[k]));
        }
        const Ints low = Simd::NarrowColumnSums(sums[0], sums[1]);
        const Ints high = Simd::NarrowColumnSums(sums[2], sums[3]);
        Simd::StoreInts(target + i, Simd::And(Simd::PackBytes(low, high), colours));
    }
    BlendColumnsPlain(target, row, columns, pairs, pairsEach, i, count);
}

}
}
