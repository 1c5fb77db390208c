#include "vostel/RasterFills.h"

#include "base/CpuVariants.h"
#include "imaging/MatrixRows.h"
#include "imaging/PlaneRows.h"

#include <algorithm>

namespace vostel {

void MultiplyPlain(const MatrixBlock& block)
{
    // The columns of a row of c side by side, which a compiler turns into vectors by itself.
    constexpr std::ptrdiff_t strip = 256;
    for (std::ptrdiff_t start = 0; start < block.Columns; start += strip) {
        const std::ptrdiff_t columns = std::min(strip, block.Columns - start);
        for (std::ptrdiff_t i = 0; i < block.Rows; ++i) {
            float              sums[strip] = {};
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

MatrixVariant ActiveMatrixVariant()
{
#if defined(__x86_64__) || defined(_M_X64)
    switch (ActiveCpuVariant()) {
    case CpuVariant::Avx512:
        return MultiplyAvx512;
    case CpuVariant::Avx2:
        return MultiplyAvx2;
    default:
        break;
    }
#endif
    return MultiplyPlain;
}

}

using namespace vostel;

void MatrixMul(ClassData2DIO<float>& a, ClassData2DIO<float>& b, ClassData2DIO<float>& c)
{
    if (a.Width != b.Height)
        return;
    ClassData2DIO<float> product;
    product.Allocate(b.Width, a.Height);
    if (CountOf(a) == 0 || CountOf(b) == 0)
        std::fill_n(product.Ptr1D, CountOf(product), 0.0f);
    else
        ActiveMatrixVariant()(
            {a.Ptr1D, a.Width, b.Ptr1D, b.Width, product.Ptr1D, product.Width, a.Height, b.Width});
    TakeBuffers(c, product);
}
