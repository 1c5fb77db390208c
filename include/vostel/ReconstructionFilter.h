#pragma once

/// @file
/// The row filter of filtered back-projection: the ramp kernel after Ramachandran and Lakshminarayanan in its
/// spatial form, without a further window.
///
/// **Half scale:** all values are half of what textbooks state. With sampling distance d, tap 0 is 1/(8 d^2)
/// (textbooks: 1/(4 d^2)), odd taps are -1/(2 pi^2 n^2 d^2) (textbooks: -1/(pi^2 n^2 d^2)), even ones are 0.
/// Multiply by 2 for the textbook kernel; by 2 d for its convolution taken as an integral.

#include "vostel/Containers.h"
#include "vostel/FourierTransform.h"
#include "vostel/export.h"

/// Fills the first row, whatever the height: element i is tap n = i - Width / 2. spacing is the sampling
/// distance of a projection in the host's unit; values are in one over its square. A spacing of 0 gives
/// infinite taps. The last argument has no effect. Nothing happens for a kernel without elements.
VOSTEL_API void KernelGenerate(ClassData2DIO<float>& kernel, float spacing, int = 0);

/// Initialises fft with fftLength (a power of two), forward, and leaves in Re and Im the unscaled spectrum of
/// kernelLength taps that start at index 0 (tap 0 at kernelLength / 2, not wrapped round). A kernel longer
/// than the transform, or of no taps, gives a spectrum of zeros.
VOSTEL_API void GetKernerlFFT(ZEKPP1DFFT& fft, int fftLength, int kernelLength, float spacing);

/// Convolves each row with the taps -(Width - 1) to Width - 1, in place, by transforms of the smallest power
/// of two not below 3 Width - 1: out[x] = sum over j of in[j] * tap[x - j]. At half scale, see above; rows
/// are taken as zero outside. The image keeps buffers and size. One thread; scratch is allocated once per
/// call, before a pixel changes. A sample that is not finite spoils its row only.
VOSTEL_API void ZEKFilter1DForRec(ClassData2DIO<float>* image, float spacing);
