#pragma once

/// @file
/// Values of the Gaussian density, and kernels made of them. The circle constant is the decimal 6.2831852.
/// The exponential, sine and cosine are the platform's, so that values may differ in the last place between
/// platforms.

#include "vostel/Containers.h"
#include "vostel/export.h"

/// Returns exp(-x^2 / (2 sigma^2)) / (sigma sqrt(6.2831852)); x and sigma in pixels. x^2 is a 32-bit product,
/// all else is 64 bits wide until the result.
VOSTEL_API float OneDGaussian(float x, float sigma);

/// Allocates width x height and fills it with the product of two densities along axes turned by the angle, in
/// radians, then normalises the sum to one (ClassData2DIO::NormalizeSum). Sigmas are in pixels. The peak
/// stands at column (width + 1) / 2 - 1 and row (height + 1) / 2 - 1, truncated: on the middle of an odd
/// side, one before the middle of an even one.
///
/// A sigma of zero leaves not-a-number, not normalised. A negative size fails by the allocator's exception
/// and leaves the kernel without elements. Nothing happens without a kernel.
VOSTEL_API void TwoDGaussian_LSE(ClassData2DIO<float>* kernel, int width, float sigmaX, int height,
                                 float sigmaY, float angle);
