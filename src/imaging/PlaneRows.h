#pragma once

// Rows of containers as hosts hand them in, and the exchange of a container's buffers for a result.

#include "foundation/Planes.h"
#include "vostel/Containers.h"

#include <cstddef>

namespace vostel {

// The row as the row table has it; a host's view may come without a table.
template <typename T>
T* RowOf(const StructData2D<T>& data, int y)
{
    return data.Ptr2D ? data.Ptr2D[y] : data.Ptr1D + static_cast<std::ptrdiff_t>(y) * data.Width;
}

// The target gets the buffers of a freshly allocated container, as if it had been allocated and the result
// copied over. The fresh one is left empty.
template <typename T>
void TakeBuffers(ClassData2DIO<T>& target, ClassData2DIO<T>& fresh)
{
    target.Release();
    target.Ptr1D = fresh.Ptr1D;
    target.Ptr2D = fresh.Ptr2D;
    target.Width = fresh.Width;
    target.Height = fresh.Height;
    target.Region.left = fresh.Region.left;
    target.Region.top = fresh.Region.top;
    target.Region.right = fresh.Region.right;
    target.Region.bottom = fresh.Region.bottom;
    fresh.Ptr1D = nullptr;
    fresh.Ptr2D = nullptr;
    fresh.Release();
}

}
