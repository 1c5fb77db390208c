#pragma once

// The inner block of the matrix product.

#include <cstddef>

namespace vostel {

// Rows of the product: each sum is a 32-bit float from 0.0 that takes its terms with k ascending. The columns
// are those that the pointers start at.
struct MatrixBlock {
    const float*   A;         // the first row
    std::ptrdiff_t WidthA;    // terms of a sum
    const float*   B;
    std::ptrdiff_t WidthB;
    float*         C;
    std::ptrdiff_t WidthC;
    std::ptrdiff_t Rows;
    std::ptrdiff_t Columns;
};

using MatrixVariant = void (*)(const MatrixBlock& block);

// The form that ActiveCpuVariant names at the time of the call.
MatrixVariant ActiveMatrixVariant();

void MultiplyPlain(const MatrixBlock& block);
void MultiplyAvx2(const MatrixBlock& block);
void MultiplyAvx512(const MatrixBlock& block);

}
