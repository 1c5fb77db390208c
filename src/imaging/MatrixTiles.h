#pragma once

// A matrix product in register tiles, for files that name a processor feature. Simd brings the vector type
// and its operations; everything here is a template on it, so that each file has a copy of its own.

#include "base/Compiler.h"
#include "imaging/MatrixRows.h"

#include <cstddef>

namespace vostel {

namespace {

template <typename Simd, int Rows, int Vectors>
VOSTEL_INLINE void MultiplyTile(const MatrixBlock& block, std::ptrdiff_t row, std::ptrdiff_t column)
{
    const float* const    a = block.A + row * block.WidthA;
    const float*          b = block.B + column;
    typename Simd::Floats sums[Rows][Vectors];
    VOSTEL_UNROLL
    for (int r = 0; r < Rows; ++r) {
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            sums[r][v] = Simd::Set(0.0f);
    }
    for (std::ptrdiff_t k = 0; k < block.WidthA; ++k, b += block.WidthB) {
        typename Simd::Floats terms[Vectors];
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            terms[v] = Simd::Load(b + v * Simd::Lanes);
        VOSTEL_UNROLL
        for (int r = 0; r < Rows; ++r) {
            const typename Simd::Floats factor = Simd::Set(a[r * block.WidthA + k]);
            VOSTEL_UNROLL
            for (int v = 0; v < Vectors; ++v)
                sums[r][v] = Simd::Add(sums[r][v], Simd::Mul(factor, terms[v]));
        }
    }
    VOSTEL_UNROLL
    for (int r = 0; r < Rows; ++r) {
        VOSTEL_UNROLL
        for (int v = 0; v < Vectors; ++v)
            Simd::Store(block.C + (row + r) * block.WidthC + column + v * Simd::Lanes, sums[r][v]);
    }
}

template <typename Simd, int Vectors>
void MultiplyColumns(const MatrixBlock& block, std::ptrdiff_t column)
{
    std::ptrdiff_t row = 0;
    for (; row + 4 <= block.Rows; row += 4)
        MultiplyTile<Simd, 4, Vectors>(block, row, column);
    for (; row < block.Rows; ++row)
        MultiplyTile<Simd, 1, Vectors>(block, row, column);
}

// Tiles are Wide vectors of columns; what is left takes single vectors, and the last columns the plain
// variant.
template <typename Simd, int Wide>
void MultiplyInTiles(const MatrixBlock& block)
{
    constexpr std::ptrdiff_t Lanes = Simd::Lanes;
    std::ptrdiff_t           column = 0;
    for (; column + Wide * Lanes <= block.Columns; column += Wide * Lanes)
        MultiplyColumns<Simd, Wide>(block, column);
    for (; column + Lanes <= block.Columns; column += Lanes)
        MultiplyColumns<Simd, 1>(block, column);
    MatrixBlock rest = block;
    rest.B += column;
    rest.C += column;
    rest.Columns -= column;
    MatrixPlain.Multiply(rest);
}

}

}
