#include "vostel/ReconstructionFilter.h"

#include "base/Compiler.h"
#include "foundation/ArrayLength.h"
#include "foundation/Planes.h"
#include "foundation/RowThreads.h"
#include "imaging/Fourier.h"
#include "imaging/FourierArrays.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

using namespace vostel;

namespace {

constexpr double TwoPiSquared = 19.73920812874952;    // 2 * 3.1415926^2

// What one thread works in. The spectrum goes to and fro between two pairs of arrays and a spare one.
class RowFilter {
public:
    RowFilter(const ZEKPP1DFFT& kernel, int width)
    {
        constexpr int places[ArrayCount] = {0, 2, 4, 6, 1, 3};    // pairs that one pass walks are far apart
        for (int i = 0; i < ArrayCount; ++i)
            Arrays[i].reset(NewFourierArray(static_cast<std::size_t>(kernel.Length), places[i]));
        Forward.Re = Arrays[0].get();
        Forward.Im = Arrays[1].get();
        Forward.OtherRe = Arrays[2].get();
        Forward.OtherIm = Arrays[3].get();
        Forward.SpareRe = Arrays[4].get();
        Forward.SpareIm = Arrays[5].get();
        Forward.Cos = kernel.CosForward;
        Forward.Sin = kernel.SinForward;
        Forward.Length = kernel.Length;
        Forward.Stages = kernel.Stages;
        Forward.RowLength = width;
        // Takes the spectrum from where the forward one leaves it.
        Inverse = Forward;
        if (kernel.EvenStages == 0) {
            std::swap(Inverse.Re, Inverse.OtherRe);
            std::swap(Inverse.Im, Inverse.OtherIm);
        }
        Inverse.Sin = kernel.SinInverse;
        Inverse.Scaled = true;
        Inverse.Scale = kernel.Scale;
        Inverse.FactorRe = kernel.Re;
        Inverse.FactorIm = kernel.Im;
        Inverse.RealHalf = 2LL * width - 1 <= kernel.Length / 2;
    }

    void Run(float* row)
    {
        Forward.Row = row;
        const float* const result = ActiveFourierVariant().Filter(Forward, Inverse);
        const int          width = Forward.RowLength;
        std::memcpy(row, result + width - 1, static_cast<std::size_t>(width) * sizeof(float));
    }

private:
    static constexpr int ArrayCount = 6;
    FourierArray         Arrays[ArrayCount];
    FourierRun           Forward;
    FourierRun           Inverse;
};

// A row is read in several places at a time, too short a while for the processor to see it coming.
void FetchAhead(const float* row, int width)
{
    const int line = 64 / sizeof(float);
    for (int x = 0; x < width; x += line)
        VOSTEL_PREFETCH_FOR_WRITE(row + x);
}

// Whether no row of a host's table is another one or reaches into it: those come one after the other.
bool RowsLieApart(const ClassData2DIO<float>& image)
{
    const auto place = [&](int y) { return reinterpret_cast<std::intptr_t>(image.Ptr2D[y]); };
    const auto bytes = static_cast<std::intptr_t>(image.Width) * static_cast<std::intptr_t>(sizeof(float));
    const bool down = image.Height > 1 && place(1) < place(0);
    for (int y = 1; y < image.Height; ++y)
        if ((down ? place(y - 1) - place(y) : place(y) - place(y - 1)) < bytes)
            return false;
    return true;
}

// Where the rows of a thread begin.
int RowsBefore(int thread, int threads, int rows)
{
    return static_cast<int>(static_cast<long long>(rows) * thread / threads);
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
    // All memory is there before the first row changes.
    const bool             single = image->Height < RowThreadsInForce() || !RowsLieApart(*image);
    const int              threads = single ? 1 : RowThreadsInForce();
    std::vector<RowFilter> filters;
    filters.reserve(static_cast<std::size_t>(threads));
    for (int i = 0; i < threads; ++i)
        filters.emplace_back(kernel, width);
    ForEachRowRun(threads, [&](RowRun run) {
        for (int i = run.First; i < run.End; ++i) {
            const int end = RowsBefore(i + 1, threads, image->Height);
            for (int y = RowsBefore(i, threads, image->Height); y < end; ++y) {
                if (y + 1 < end)
                    FetchAhead(image->Ptr2D[y + 1], width);
                filters[static_cast<std::size_t>(i)].Run(image->Ptr2D[y]);
            }
        }
    });
}
