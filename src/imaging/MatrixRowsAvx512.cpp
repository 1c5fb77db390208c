#include "imaging/MatrixRows.h"

#include <immintrin.h>

namespace {

constexpr std::ptrdiff_t Lanes = 16;

template <int Rows, int Vectors>
[[gnu::always_inline]] inline void MultiplyTile(const MatrixBlock& block, std::ptrdiff_t row,
                                                std::ptrdiff_t column)
{
    const float* const a = block.A + row * block.WidthA;
    const float*       b = block.B + column;
    __m512             sums[Rows][Vectors];
#pragma GCC unroll 8
    for (int r = 0; r < Rows; ++r)
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v)
            sums[r][v] = _mm512_setzero_ps();
    for (std::ptrdiff_t k = 0; k < block.WidthA; ++k, b += block.WidthB) {
        __m512 terms[Vectors];
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v)
            terms[v] = _mm512_loadu_ps(b + v * Lanes);
#pragma GCC unroll 8
        for (int r = 0; r < Rows; ++r) {
            const __m512 factor = _mm512_set1_ps(a[r * block.WidthA + k]);
#pragma GCC unroll 8
            for (int v = 0; v < Vectors; ++v)
                sums[r][v] = _mm512_add_ps(sums[r][v], _mm512_mul_ps(factor, terms[v]));
        }
    }
#pragma GCC unroll 8
    for (int r = 0; r < Rows; ++r)
#pragma GCC unroll 8
        for (int v = 0; v < Vectors; ++v)
            _mm512_storeu_ps(block.C + (row + r) * block.WidthC + column + v * Lanes, sums[r][v]);
}

template <int Vectors>
void MultiplyColumns(const MatrixBlock& block, std::ptrdiff_t column)
{
    std::ptrdiff_t row = 0;
    for (; row + 4 <= block.Rows; row += 4)
        MultiplyTile<4, Vectors>(block, row, column);
    for (; row < block.Rows; ++row)
        MultiplyTile<1, Vectors>(block, row, column);
}

}

void MultiplyAvx512(const MatrixBlock& block)
{
    constexpr int  wide = 4;
    std::ptrdiff_t column = 0;
    for (; column + wide * Lanes <= block.Columns; column += wide * Lanes)
        MultiplyColumns<wide>(block, column);
    for (; column + Lanes <= block.Columns; column += Lanes)
        MultiplyColumns<1>(block, column);
    MatrixBlock rest = block;
    rest.B += column;
    rest.C += column;
    rest.Columns -= column;
    MultiplyPlain(rest);
}
