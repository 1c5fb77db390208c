#pragma once

#include <VostelObj.h>

// Resize of a 16-bit image that owns its buffers: it leaves the previous ones to their owner, which frees
// them here.
inline void ResizeOwned(ClassData2DIO<unsigned short>& image, int width, int height)
{
    const StructData2D<unsigned short> before = image;    // the pointers alone
    Resize(image, width, height);
    ClassData2DIO<unsigned short> previous;
    previous.Ptr1D = before.Ptr1D;
    previous.Ptr2D = before.Ptr2D;
}
