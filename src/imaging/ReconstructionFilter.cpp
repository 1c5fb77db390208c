#include "vostel/ReconstructionFilter.h"

#include "base/Compiler.h"
#include "foundation/ArrayLength.h"
#include "foundation/Planes.h"
#include "imaging/Fourier.h"
#include "imaging/FourierArrays.h"

#include <cstdlib>
#include <cstring>

using namespace vostel;

namespace {

constexpr double TwoPiSquared = 19.73920812874952;    // 2 * 3.1415926^2

// A row is read in several places at a time, too short a while for the processor to see it coming.
void FetchAhead(const float* row, int width)
{
    const int line = 64 / sizeof(float);
    for (int x = 0; x < width; x += line)
        VOSTEL_PREFETCH_FOR_WRITE(row + x);
}

}

void KernelGenerate(ClassData2DIO<float>& kernel, float spacing, int)
{
    if (CountOf(kernel) == 0)
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
        FailArrayLength();
    ZEKPP1DFFT kernel;
    GetKernerlFFT(kernel, static_cast<int>(length), 2 * width - 1, spacing);
    // The rows go to and fro between this pair and the kernel's work arrays; the tables are the kernel's too.
    const FourierArray re(NewFourierArray(static_cast<std::size_t>(length), 0));
    const FourierArray im(NewFourierArray(static_cast<std::size_t>(length), 2));

    FourierRun forward;
    forward.Re = re.get();
    forward.Im = im.get();
    forward.OtherRe = kernel.WorkRe;
    forward.OtherIm = kernel.WorkIm;
    forward.Cos = kernel.CosForward;
    forward.Sin = kernel.SinForward;
    forward.Length = kernel.Length;
    forward.Stages = kernel.Stages;
    forward.RowLength = width;
    // Takes the spectrum from where the forward one leaves it.
    FourierRun inverse = forward;
    if (kernel.EvenStages == 0) {
        inverse.Re = forward.OtherRe;
        inverse.Im = forward.OtherIm;
        inverse.OtherRe = forward.Re;
        inverse.OtherIm = forward.Im;
    }
    inverse.Sin = kernel.SinInverse;
    inverse.Scaled = true;
    inverse.Scale = kernel.Scale;
    inverse.FactorRe = kernel.Re;
    inverse.FactorIm = kernel.Im;
    inverse.RealHalf = 2LL * width - 1 <= length / 2;
    const float* const result = re.get();    // two runs: an even number of exchanges
    const auto         filter = ActiveFourierVariant().Filter;
    for (int y = 0; y < image->Height; ++y) {
        forward.Row = image->Ptr2D[y];
        if (y + 1 < image->Height)
            FetchAhead(image->Ptr2D[y + 1], width);
        filter(forward, inverse);
        std::memcpy(image->Ptr2D[y], result + width - 1, static_cast<std::size_t>(width) * sizeof(float));
    }
}
