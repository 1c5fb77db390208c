#pragma once

/// @file
/// A threshold that follows the brightness around each pixel.

#include "vostel/Containers.h"
#include "vostel/export.h"

/// Makes each pixel 255 where it is brighter than 0.85 of the mean around it, else 0, in place:
///
///     double(pixel * area) > double(sum) * 0.85        area = (2r + 1)^2, r = size / 2 truncated
///
/// with the sum over the square of side 2r + 1 centered on the pixel, so that an even size counts as the next
/// odd one. Strictly: equality gives 0. Border: the image is reflected with the edge sample repeated, -1
/// reads 0, as often as it takes. The cost of a pixel does not depend on the size.
///
/// The image keeps its buffers. Sums and products are exact for any size; a size above 2^27 counts as 2^27. A
/// size below -1 leaves the image alone, and so does an image without pixels.
VOSTEL_API void LAT_Constant(ClassData2DIO<unsigned char>& image, int size);
