#pragma once

/// @file
/// Filtering of a float image with a float kernel, in place: a correlation, for the kernel is not turned
/// over.
///
///     out(x, y) = sum over j of sum over i of kernel[j + kh2][i + kw2] * image[y + j][x + i]
///
/// with kw2 = kernel width / 2 and kh2 = kernel height / 2, truncated; i from -kw2 to kw2, j from -kh2 to
/// kh2. Each sum is one 32-bit float from 0.0, every tap multiplied and then added in 32-bit float, j
/// ascending and i ascending within j. A full kernel is summed as it is, also where it could be taken apart.
///
/// Border: the image is mirrored without repeating the edge sample, so -1 reads 1 and width reads width - 2.
/// Half a kernel that is as wide as the image or wider reads on with a period of 2 width, whose last place
/// reads 0; one row or column alone is read for all.
///
/// Kernels have odd sides. What an even side lacks at its end reads as zero. Nothing happens without an image
/// or a kernel that has samples. Neither may be used by another thread during a call. The pixels do not
/// depend on the number of processors.

#include "vostel/Containers.h"
#include "vostel/export.h"

/// Filters the image, its rows split over one thread per processor. The image gets new buffers: row pointers
/// from before are dead. When memory runs out, the allocator's exception passes and the image is as it was.
VOSTEL_API void ConFltMC(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel);

/// ConFltMC.
VOSTEL_API void gConv2(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel);

/// Filters the image by ConFltMC with the size x size kernel of TwoDGaussian_LSE. sigma is in pixels, the
/// same on both axes, so that the angle, in radians, changes the kernel by rounding only. A size of zero
/// leaves the image alone, a negative one fails by the allocator's exception.
VOSTEL_API void gGauss(ClassData2DIO<float>* image, int size, float sigma, float angle);

/// Filters the image on the calling thread, to the same pixels. The image keeps its buffers.
VOSTEL_API void ConvFltVer0(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel);

/// Filters the image as ConvFltVer0 but for row height - kh2 - 1, if it has kh2 rows above it: its first and
/// last kw2 columns are not computed and become zero. The image keeps its buffers.
VOSTEL_API void ConvFltVer1(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel);

/// Filters only the pixels that need no mirroring; the frame of kw2 columns and kh2 rows around them becomes
/// zero. The image keeps its buffers.
VOSTEL_API void ConvFltVer2(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel);
