#pragma once

// Questions about containers that hosts may have changed since they were last seen.

#include "vostel/Containers.h"

#include <cstddef>

namespace vostel {

// Elements that may be touched; 0 for a container without a buffer.
template <typename T>
std::size_t CountOf(const StructData2D<T>& data)
{
    return data.Ptr1D && data.Width > 0 && data.Height > 0
               ? static_cast<std::size_t>(data.Width) * static_cast<std::size_t>(data.Height)
               : 0;
}

// Whether the container holds a plane of just this size.
template <typename T>
bool IsPlaneOf(const StructData2D<T>& data, int width, int height)
{
    return CountOf(data) > 0 && data.Width == width && data.Height == height;
}

// A plane of the size with any contents: the one that is there if it fits, since touching fresh memory costs
// more than the pass that fills it.
template <typename T>
void SizeForOverwriting(ClassData2DIO<T>& data, int width, int height)
{
    if (!IsPlaneOf(data, width, height))
        data.Allocate(width, height);
}

}
