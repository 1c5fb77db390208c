#include "vostel/RasterFills.h"

#include "foundation/Planes.h"

#include <algorithm>

void MatrixMul(ClassData2DIO<float>& a, ClassData2DIO<float>& b, ClassData2DIO<float>& c)
{
    if (a.Width != b.Height)
        return;
    c.Allocate(b.Width, a.Height);
    std::fill_n(c.Ptr1D, CountOf(c), 0.0f);
    if (CountOf(a) == 0 || CountOf(b) == 0)
        return;
    // The columns of a row of c side by side: each sum still takes its terms with k ascending.
    for (int i = 0; i < a.Height; ++i) {
        float* const sums = c.Ptr1D + static_cast<std::ptrdiff_t>(i) * c.Width;
        for (int k = 0; k < a.Width; ++k) {
            const float        factor = a.Ptr1D[static_cast<std::ptrdiff_t>(i) * a.Width + k];
            const float* const row = b.Ptr1D + static_cast<std::ptrdiff_t>(k) * b.Width;
            for (int j = 0; j < c.Width; ++j)
                sums[j] += factor * row[j];
        }
    }
}
