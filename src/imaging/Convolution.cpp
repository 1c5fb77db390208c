#include "vostel/Convolution.h"

#include "foundation/RowThreads.h"
#include "imaging/Correlation.h"
#include "imaging/PlaneRows.h"
#include "vostel/GaussianKernels.h"

#include <algorithm>

using namespace vostel;

namespace {

bool HaveSamples(const ClassData2DIO<float>* image, const ClassData2DIO<float>* kernel)
{
    return image && kernel && CountOf(*image) > 0 && CountOf(*kernel) > 0;
}

void Zero(float* row, std::ptrdiff_t first, std::ptrdiff_t end)
{
    if (first < end)
        std::fill(row + first, row + end, 0.0f);
}

}

void ConFltMC(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel)
{
    if (!HaveSamples(image, kernel))
        return;
    const Correlation    correlation(*image, *kernel);
    ClassData2DIO<float> result;
    result.Allocate(image->Width, image->Height);
    ForEachRowRun(image->Height, [&](RowRun run) { correlation.DoRows(result.Ptr2D, run.First, run.End); });
    TakeBuffers(*image, result);
}

void gConv2(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel)
{
    ConFltMC(image, kernel);
}

void gGauss(ClassData2DIO<float>* image, int size, float sigma, float angle)
{
    ClassData2DIO<float> kernel;
    TwoDGaussian_LSE(&kernel, size, sigma, size, sigma, angle);
    ConFltMC(image, &kernel);
}

void ConvFltVer0(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel)
{
    if (HaveSamples(image, kernel))
        Correlation(*image, *kernel).DoRowsInPlace(*image, 0, image->Height);
}

void ConvFltVer1(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel)
{
    if (!HaveSamples(image, kernel))
        return;
    const Correlation correlation(*image, *kernel);
    correlation.DoRowsInPlace(*image, 0, image->Height);
    // The side bands end one row before the interior does. That is intended.
    const int gap = image->Height - correlation.HalfHeight - 1;
    if (gap >= correlation.HalfHeight) {
        const int left = std::min(correlation.HalfWidth, image->Width);
        Zero(RowOf(*image, gap), 0, left);
        Zero(RowOf(*image, gap), image->Width - left, image->Width);
    }
}

void ConvFltVer2(ClassData2DIO<float>* image, ClassData2DIO<float>* kernel)
{
    if (!HaveSamples(image, kernel))
        return;
    const Correlation correlation(*image, *kernel);
    const int         top = std::min(correlation.HalfHeight, image->Height);
    const int         bottom = std::max(image->Height - correlation.HalfHeight, top);
    const int         left = std::min(correlation.HalfWidth, image->Width);
    correlation.DoRowsInPlace(*image, top, bottom);
    for (int y = 0; y < image->Height; ++y) {
        const bool inside = y >= top && y < bottom;
        Zero(RowOf(*image, y), 0, inside ? left : image->Width);
        Zero(RowOf(*image, y), image->Width - left, image->Width);
    }
}
