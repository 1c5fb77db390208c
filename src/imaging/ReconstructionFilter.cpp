#include "vostel/ReconstructionFilter.h"

#include "imaging/FourierForms.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

const double TwoPiSquared = 19.73920812874952;    // 2 * 3.1415926^2

}

void KernelGenerate(ClassData2DIO<float>& kernel, float spacing, int)
{
    if (kernel.Width < 1 || !kernel.Ptr1D)
        return;
    const double d = static_cast<double>(spacing);
    for (int i = 0; i < kernel.Width; ++i) {
        const int n = i - kernel.Width / 2;
        float     value = 0.0f;
        if (n == 0) {
            value = static_cast<float>(1.0 / (d * 8.0 * d));
        } else if (n % 2 != 0) {
            const double distance = std::abs(n);
            // Rounded to float before the division.
            const float below = static_cast<float>(distance * TwoPiSquared * distance * d * d);
            value = static_cast<float>(-1.0 / static_cast<double>(below));
        }
        kernel.Ptr1D[i] = value;
    }
}

void GetKernerlFFT(ZEKPP1DFFT& fft, int fftLength, int kernelLength, float spacing)
{
    ClassData2DIO<float> kernel;
    if (kernelLength > 0)
        kernel.Allocate(kernelLength, 1);
    KernelGenerate(kernel, spacing);
    fft.Init(fftLength, true);
    fft.SetReImZero();
    fft.UpLoadRe(kernel.Ptr1D, kernelLength);
    fft.RunFFT();
}

void ZEKFilter1DForRec(ClassData2DIO<float>* image, float spacing)
{
    if (!image || image->Width < 1 || !image->Ptr2D)
        return;
    const int width = image->Width;
    long long length = 1;
    while (length < 3LL * width - 1)
        length *= 2;
    if (length > 0x40000000)
        throw std::bad_alloc();
    ZEKPP1DFFT kernel;
    GetKernerlFFT(kernel, static_cast<int>(length), 2 * width - 1, spacing);
    ZEKPP1DFFT rows;
    rows.Init(static_cast<int>(length), true);

    FourierRun forward;
    forward.Re = rows.Re;
    forward.Im = rows.Im;
    forward.OtherRe = rows.WorkRe;
    forward.OtherIm = rows.WorkIm;
    forward.Cos = rows.CosForward;
    forward.Sin = rows.SinForward;
    forward.Length = rows.Length;
    forward.Stages = rows.Stages;
    forward.RowLength = width;
    // Takes the spectrum from where the forward one leaves it.
    FourierRun inverse = forward;
    if (rows.EvenStages == 0) {
        inverse.Re = rows.WorkRe;
        inverse.Im = rows.WorkIm;
        inverse.OtherRe = rows.Re;
        inverse.OtherIm = rows.Im;
    }
    inverse.Cos = rows.CosInverse;
    inverse.Sin = rows.SinInverse;
    inverse.Scaled = true;
    inverse.Scale = rows.Scale;
    inverse.FactorRe = kernel.Re;
    inverse.FactorIm = kernel.Im;
    const float* const result = rows.Re;    // two runs: an even number of exchanges
    const FourierForm  transform = ActiveFourierForm();
    for (int y = 0; y < image->Height; ++y) {
        forward.Row = image->Ptr2D[y];
        transform(forward);
        transform(inverse);
        std::memcpy(image->Ptr2D[y], result + width - 1, static_cast<std::size_t>(width) * sizeof(float));
    }
}
