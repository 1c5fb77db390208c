// Correlations and Gaussian kernels. The sums are those of the formula.

#include "base/Reflect.h"
#include "fuzz/Fuzzing.h"
#include "fuzz/RoutineRuns.h"

using namespace vostel;

namespace {

using Correlate = void (*)(FloatPlane*, FloatPlane*);

float SumAt(const FloatPlane& image, const FloatPlane& kernel, int x, int y)
{
    const int halfWidth = kernel.Width / 2;
    const int halfHeight = kernel.Height / 2;
    float     sum = 0.0f;
    for (int j = -halfHeight; j <= halfHeight; ++j) {
        for (int i = -halfWidth; i <= halfWidth; ++i) {
            const bool  has = i + halfWidth < kernel.Width && j + halfHeight < kernel.Height;
            const float tap = has ? kernel.Ptr2D[j + halfHeight][i + halfWidth] : 0.0f;
            sum += tap * image.Ptr2D[ReflectSkippingEdge(y + j, image.Height)]
                                    [ReflectSkippingEdge(x + i, image.Width)];
        }
    }
    return sum;
}

void CheckFormula(const FloatPlane& image, const FloatPlane& kernel, const Left<float>& result)
{
    const bool nothing = image.Width <= 0 || image.Height <= 0 || kernel.Width <= 0 || kernel.Height <= 0;
    for (int y = 0; y < image.Height; ++y) {
        for (int x = 0; x < image.Width; ++x) {
            const float expected = nothing ? image.Ptr2D[y][x] : SumAt(image, kernel, x, y);
            const float value = result.Values[static_cast<std::size_t>(y * image.Width + x)];
            CHECK(SameFloats(&value, &expected, 1));
        }
    }
}

std::optional<Left<float>> CheckCorrelation(Correlate correlate, const FloatPlane& image,
                                            const FloatPlane& kernel)
{
    return CheckRuns([&] {
        FloatPlane result = image;
        FloatPlane taps = kernel;
        correlate(&result, &taps);
        return LeftOf(result);
    });
}

}

void FuzzOne(std::string_view bytes)
{
    InputBytes       input(bytes);
    const int        width = SizeOf(input), height = SizeOf(input) % 16;
    const int        kernelWidth = SizeOf(input) % 10, kernelHeight = SizeOf(input) % 10;
    const FloatPlane image = FloatsOf(input, width, height);
    const FloatPlane kernel = FloatsOf(input, kernelWidth, kernelHeight);
    if (input.Coin()) {
        const int   size = SizeOf(input);
        const float sigma = input.Take<float>(), angle = input.Take<float>();
        if (IsLong(static_cast<long long>(size) * 8, size))
            return;
        CheckRuns([&] {
            FloatPlane result = image;
            gGauss(&result, size, sigma, angle);
            return LeftOf(result);
        });
        return;
    }
    const auto result = CheckCorrelation(ConFltMC, image, kernel);
    CHECK(result.has_value());
    CHECK(SameLeft(CheckCorrelation(gConv2, image, kernel), result));
    CHECK(SameLeft(CheckCorrelation(ConvFltVer0, image, kernel), result));
    CheckCorrelation(ConvFltVer1, image, kernel);
    CheckCorrelation(ConvFltVer2, image, kernel);
    CheckFormula(image, kernel, *result);
}
