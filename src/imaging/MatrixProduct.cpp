#include "vostel/RasterFills.h"

#include "imaging/MatrixRows.h"
#include "imaging/PlaneRows.h"

#include <algorithm>

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
        ActiveMatrixVariant().Multiply({.A = a.Ptr1D,
                                        .WidthA = a.Width,
                                        .B = b.Ptr1D,
                                        .WidthB = b.Width,
                                        .C = product.Ptr1D,
                                        .WidthC = product.Width,
                                        .Rows = a.Height,
                                        .Columns = b.Width});
    TakeBuffers(c, product);
}
