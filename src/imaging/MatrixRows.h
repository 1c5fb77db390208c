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

struct MatrixVariant {
    void (*Multiply)(const MatrixBlock& block);
};
const MatrixVariant& ActiveMatrixVariant();

extern const MatrixVariant MatrixPlain;
extern const MatrixVariant MatrixAvx2;
extern const MatrixVariant MatrixAvx512;

}
