#include "commands/RoutineRuns.h"

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

enum class KernelKind : int { Box, Sharpen, SobelX, SobelY, Laplace };

// The row of Pascal's triangle with that many numbers: 1 2 1 for three.
std::vector<double> Binomial(int count)
{
    std::vector<double> row(1, 1.0);
    while (static_cast<int>(row.size()) < count) {
        row.push_back(0.0);
        for (std::size_t i = row.size() - 1; i > 0; --i)
            row[i] += row[i - 1];
    }
    return row;
}

// The row of that many numbers that takes the slope: -1 0 1 for three, smoothed for more.
std::vector<double> Slope(int count)
{
    const std::vector<double> smooth = Binomial(count - 2);
    std::vector<double>       row(static_cast<std::size_t>(count), 0.0);
    for (std::size_t i = 0; i < smooth.size(); ++i) {
        row[i] -= smooth[i];
        row[i + 2] += smooth[i];
    }
    return row;
}

// Scaled so that the positive taps add up to 4, as they do for three.
void FillSobel(Image& kernel, bool alongX)
{
    const std::vector<double> slope = Slope(kernel.Width), smooth = Binomial(kernel.Width);
    double                    positive = 0.0;
    for (double s : slope)
        for (double t : smooth)
            positive += std::max(s * t, 0.0);
    for (int y = 0; y < kernel.Height; ++y)
        for (int x = 0; x < kernel.Width; ++x) {
            const auto across = static_cast<std::size_t>(alongX ? x : y);
            const auto along = static_cast<std::size_t>(alongX ? y : x);
            kernel.Ptr2D[y][x] = static_cast<float>(slope[across] * smooth[along] * 4.0 / positive);
        }
}

void FillConstant(Image& kernel, float around, float middle)
{
    std::fill_n(kernel.Ptr1D, kernel.Width * kernel.Height, around);
    kernel.Ptr2D[kernel.Height / 2][kernel.Width / 2] = middle;
}

Image KernelOf(KernelKind kind, int size)
{
    Image kernel;
    kernel.Allocate(size, size);
    const float area = static_cast<float>(size * size);
    switch (kind) {
    case KernelKind::Box:
        FillConstant(kernel, 1.0f / area, 1.0f / area);
        break;
    case KernelKind::Sharpen:    // twice the image less its mean
        FillConstant(kernel, -1.0f / area, 2.0f - 1.0f / area);
        break;
    case KernelKind::SobelX:
    case KernelKind::SobelY:
        FillSobel(kernel, kind == KernelKind::SobelX);
        break;
    case KernelKind::Laplace:
        FillConstant(kernel, -1.0f, area - 1.0f);
        break;
    }
    return kernel;
}

const char* CheckKernelSize(int size, const Image& image)
{
    if (size % 2 == 0)
        return Words("The size of a kernel is an odd number.");
    if (size > image.Width || size > image.Height)
        return Words("The kernel is larger than the image.");
    return nullptr;
}

}

RoutineResult RunConvolve(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress)
{
    const int size = WholeOf(values[1]), passes = WholeOf(values[2]);
    if (const char* const problem = CheckKernelSize(size, *inputs[0]))
        return Problem(problem);
    RoutineSteps       steps(progress, passes);
    const ImagePointer image = std::make_shared<Image>(*inputs[0]);
    Image              kernel = KernelOf(static_cast<KernelKind>(WholeOf(values[0])), size);
    for (int pass = 0; pass < passes; ++pass) {
        if (!steps.Next())
            return Cancelled();
        gConv2(image.get(), &kernel);
    }
    return steps.Next() ? RoutineResult{image} : Cancelled();
}

RoutineResult RunConvolveByForm(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress)
{
    constexpr void (*forms[])(Image*, Image*) = {ConFltMC, ConvFltVer0, ConvFltVer1, ConvFltVer2};
    const int size = WholeOf(values[2]);
    if (const char* const problem = CheckKernelSize(size, *inputs[0]))
        return Problem(problem);
    RoutineSteps       steps(progress, 2);
    const ImagePointer image = std::make_shared<Image>(*inputs[0]);
    Image              kernel = KernelOf(static_cast<KernelKind>(WholeOf(values[1])), size);
    if (!steps.Next())
        return Cancelled();
    forms[WholeOf(values[0])](image.get(), &kernel);
    return steps.Next() && steps.Next() ? RoutineResult{image} : Cancelled();
}

RoutineResult RunGauss(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress)
{
    const int size = WholeOf(values[0]), passes = WholeOf(values[2]);
    if (const char* const problem = CheckKernelSize(size, *inputs[0]))
        return Problem(problem);
    RoutineSteps       steps(progress, passes);
    const ImagePointer image = std::make_shared<Image>(*inputs[0]);
    for (int pass = 0; pass < passes; ++pass) {
        if (!steps.Next())
            return Cancelled();
        gGauss(image.get(), size, static_cast<float>(values[1]), 0.0f);
    }
    return steps.Next() ? RoutineResult{image} : Cancelled();
}

RoutineResult RunThreshold(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress)
{
    // Values that a byte holds are taken as they are, all others stretched over 0..255.
    RoutineSteps steps(progress, 3);
    Image&       source = *inputs[0];
    float        low = 0.0f, high = 0.0f;
    source.GetMinMax(low, high);
    const bool  bytes = low >= 0.0f && high <= 255.0f && high > 1.0f;
    const float offset = bytes ? 0.0f : low;
    const float factor = bytes ? 1.0f : high > low ? 255.0f / (high - low) : 0.0f;
    if (!steps.Next())
        return Cancelled();
    ClassData2DIO<unsigned char> gray;
    gray.Allocate(source.Width, source.Height);
    for (int i = 0; i < source.Width * source.Height; ++i) {
        const float value = (source.Ptr1D[i] - offset) * factor;
        gray.Ptr1D[i] = static_cast<unsigned char>(value > 0.0f ? std::min(value, 255.0f) : 0.0f);
    }
    if (!steps.Next())
        return Cancelled();
    LAT_Constant(gray, WholeOf(values[0]));
    if (!steps.Next())
        return Cancelled();
    auto result = std::make_shared<Image>();
    result->ConvertFrom(gray, 0.0f);
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

RoutineResult RunResize(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress)
{
    enum { AllProcessors, OneProcessor, InPlace, SixteenBit };
    const int width = WholeOf(values[0]), height = WholeOf(values[1]);
    if (const char* const problem = TooLarge(width, height))
        return Problem(problem);
    RoutineSteps steps(progress, 2);
    if (!steps.Next())
        return Cancelled();
    ImagePointer result;
    switch (WholeOf(values[2])) {
    case AllProcessors:
        result = NewImage(width, height);
        ResizeMC(inputs[0].get(), result.get());
        break;
    case OneProcessor:
        result = NewImage(width, height);
        ResizeSC(inputs[0].get(), result.get());
        break;
    case InPlace:
        result = std::make_shared<Image>(*inputs[0]);
        ::Resize(*result, width, height);
        break;
    case SixteenBit: {
        ClassData2DIO<unsigned short> whole;
        whole.ConvertFrom(*inputs[0], 0.0f);
        const StructData2D<unsigned short> before = whole;    // the pointers alone
        ::Resize(whole, width, height);
        ClassData2DIO<unsigned short> previous;    // frees the buffers that Resize leaves to their owner
        previous.Ptr1D = before.Ptr1D;
        previous.Ptr2D = before.Ptr2D;
        result = std::make_shared<Image>();
        result->ConvertFrom(whole, 0.0f);
        break;
    }
    default:
        break;
    }
    return steps.Next() && steps.Next() ? RoutineResult{result} : Cancelled();
}

}
