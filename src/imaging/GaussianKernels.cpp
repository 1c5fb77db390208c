#include "vostel/GaussianKernels.h"

#include "foundation/Planes.h"
#include "imaging/PlaneRows.h"

#include <cmath>
#include <cstdint>

using namespace vostel;

namespace {

// The library's circle constant, as it stands; a closer value would change kernels.
constexpr double TwoPi = 6.2831852;

}

float OneDGaussian(float x, float sigma)
{
    const double exponent = static_cast<double>(-(x * x));
    const double twiceSquare = static_cast<double>(sigma) * 2.0 * static_cast<double>(sigma);
    const double value = std::exp(exponent / twiceSquare);
    return static_cast<float>(value / (std::sqrt(TwoPi) * static_cast<double>(sigma)));
}

void TwoDGaussian_LSE(ClassData2DIO<float>* kernel, int width, float sigmaX, int height, float sigmaY,
                      float angle)
{
    if (!kernel)
        return;
    kernel->Allocate(width, height);
    const float        c = std::cos(angle);
    const float        s = std::sin(angle);
    const std::int64_t centreX = (static_cast<std::int64_t>(width) + 1) / 2;
    const std::int64_t centreY = (static_cast<std::int64_t>(height) + 1) / 2;
    for (int j = 0; j < height; ++j) {
        float* const row = RowOf(*kernel, j);
        const float  v = static_cast<float>(j + 1 - centreY);
        for (int i = 0; i < width; ++i) {
            const float u = static_cast<float>(i + 1 - centreX);
            const float a = v * (-s) + u * c;
            const float b = u * s + v * c;
            const float alongA = OneDGaussian(a, sigmaX);
            const float alongB = OneDGaussian(b, sigmaY);
            row[i] = alongB * alongA;
        }
    }
    kernel->NormalizeSum();
}
