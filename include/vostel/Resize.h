#pragma once

/// @file
/// Bilinear scaling, anchored pixel origin to pixel origin: target (0, 0) is source (0, 0), there is no shift
/// by half a pixel.
///
///     fx = x * (source width / target width), ix = floor(fx), tx = fx - ix; the same down: fy, iy, ty
///     top    = s[iy][ix] * (1 - tx) + tx * s[iy][ix + 1]
///     bottom = s[iy + 1][ix] * (1 - tx) + tx * s[iy + 1][ix + 1]
///     value  = top * (1 - ty) + bottom * ty
///
/// Positions and fractions are 32-bit float. The product of tx with a sample is rounded to 32 bits, all other
/// steps are 64 bits wide, the value is rounded to 32. A pixel whose four samples do not all lie in the
/// source is 0.0, there is no clamping: the same size gives the source with its last column and row zero, and
/// enlarging leaves a zero margin of about one source pixel at the right and at the bottom. A source of one
/// row or column gives zeros only.
///
/// The pixels do not depend on the number of processors. No container may be used by another thread during a
/// call.

#include "vostel/Containers.h"
#include "vostel/export.h"

/// Fills the target, whose size the caller has set by Allocate, from the source; rows are split over one
/// thread per processor. Source and target are different containers. Nothing happens without a source or a
/// target with samples; a source without samples gives zeros.
VOSTEL_API void ResizeMC(ClassData2DIO<float>* source, ClassData2DIO<float>* target);

/// Fills the target as ResizeMC, to the same pixels, on the calling thread.
VOSTEL_API void ResizeSC(ClassData2DIO<float>* source, ClassData2DIO<float>* target);

/// Scales in place by ResizeMC. The image gets new buffers, the previous ones are freed. A negative size
/// fails by the allocator's exception. Then, and when memory runs out, the image is as it was.
VOSTEL_API void Resize(ClassData2DIO<float>& image, int width, int height);

/// Scales in place by ResizeMC through float: truncated towards zero, low 16 bits stored. The image ends with
/// new buffers; the previous ones are **not freed** here, since an image may look at memory that its host
/// owns. A host whose image owns its buffers frees them itself:
///
///     const StructData2D<unsigned short> before = image;    // the pointers alone
///     Resize(image, width, height);
///     ClassData2DIO<unsigned short> previous;               // frees them at the end of its life
///     previous.Ptr1D = before.Ptr1D;
///     previous.Ptr2D = before.Ptr2D;
///
/// Region, OwnPtr1D and OwnPtr2D stay as they were. A negative size fails by the allocator's exception. Then,
/// and when memory runs out, the image is as it was.
VOSTEL_API void Resize(ClassData2DIO<unsigned short>& image, int width, int height);
