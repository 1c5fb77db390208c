#include "imaging/MatrixRows.h"

#include "base/CpuVariants.h"

#include <algorithm>

namespace vostel {

namespace {

void Multiply(const MatrixBlock& block)
{
    // The columns of a row of c side by side, which a compiler turns into vectors by itself.
    constexpr std::ptrdiff_t Strip = 256;
    for (std::ptrdiff_t start = 0; start < block.Columns; start += Strip) {
        const std::ptrdiff_t columns = std::min(Strip, block.Columns - start);
        for (std::ptrdiff_t i = 0; i < block.Rows; ++i) {
            float              sums[Strip] = {};
            const float* const rowA = block.A + i * block.WidthA;
            for (std::ptrdiff_t k = 0; k < block.WidthA; ++k) {
                const float        factor = rowA[k];
                const float* const rowB = block.B + k * block.WidthB + start;
                for (std::ptrdiff_t j = 0; j < columns; ++j)
                    sums[j] += factor * rowB[j];
            }
            std::copy(sums, sums + columns, block.C + i * block.WidthC + start);
        }
    }
}

}

const MatrixVariant MatrixPlain = {.Multiply = Multiply};

const MatrixVariant& ActiveMatrixVariant()
{
    return Choose<MatrixVariant>(
        {.Plain = &MatrixPlain, .Avx2 = VOSTEL_X86(&MatrixAvx2), .Avx512 = VOSTEL_X86(&MatrixAvx512)});
}

}
