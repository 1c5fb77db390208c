#include "imaging/RandomPlanes.h"

#include <cmath>
#include <doctest/doctest.h>
#include <limits>
#include <new>

using namespace vostel;

namespace {

float DensityByHand(float x, float sigma)
{
    const float  square = x * x;
    const double q = static_cast<double>(-square);
    const double d = static_cast<double>(sigma) * 2.0 * static_cast<double>(sigma);
    const double e = std::exp(q / d);
    return static_cast<float>(e / (std::sqrt(6.2831852) * static_cast<double>(sigma)));
}

FloatPlane KernelByHand(int width, float sigmaX, int height, float sigmaY, float angle)
{
    FloatPlane kernel;
    kernel.Allocate(width, height);
    const float c = std::cos(angle);
    const float s = std::sin(angle);
    for (int j = 0; j < height; ++j) {
        for (int i = 0; i < width; ++i) {
            const float u = static_cast<float>(i + 1 - (width + 1) / 2);
            const float v = static_cast<float>(j + 1 - (height + 1) / 2);
            const float a = v * (-s) + u * c;
            const float b = u * s + v * c;
            kernel.Ptr2D[j][i] = DensityByHand(b, sigmaY) * DensityByHand(a, sigmaX);
        }
    }
    float sum = 0.0f;
    for (int k = 0; k < width * height; ++k)
        sum += kernel.Ptr1D[k];
    for (int k = 0; k < width * height; ++k)
        kernel.Ptr1D[k] /= sum;
    return kernel;
}

FloatPlane Kernel(int width, float sigmaX, int height, float sigmaY, float angle)
{
    FloatPlane kernel;
    TwoDGaussian_LSE(&kernel, width, sigmaX, height, sigmaY, angle);
    return kernel;
}

}

TEST_CASE("the density at 0 of sigma 1 is one by the root of 6.2831852")
{
    CHECK(OneDGaussian(0.0f, 1.0f) == static_cast<float>(1.0 / std::sqrt(6.2831852)));
    CHECK(OneDGaussian(0.0f, 1.0f) == doctest::Approx(0.39894));
    CHECK(OneDGaussian(1.5f, 0.7f) == OneDGaussian(-1.5f, 0.7f));
}

TEST_CASE("densities and kernels equal those by hand for any sizes, sigmas and angles")
{
    for (unsigned seed = 9100; seed < 9160; ++seed) {
        std::mt19937                          random(seed);
        std::uniform_real_distribution<float> sigmas(0.3f, 6.0f), angles(-4.0f, 4.0f);
        const int                             width = 1 + static_cast<int>(random() % 20);
        const int                             height = 1 + static_cast<int>(random() % 20);
        const float sigmaX = sigmas(random), sigmaY = sigmas(random), angle = angles(random);
        CHECK_MESSAGE(OneDGaussian(angle, sigmaX) == DensityByHand(angle, sigmaX), "seed " << seed);
        CHECK_MESSAGE(SamePlane(Kernel(width, sigmaX, height, sigmaY, angle),
                                KernelByHand(width, sigmaX, height, sigmaY, angle)),
                      "seed " << seed);
    }
}

TEST_CASE("a kernel of size 1 is exactly 1.0")
{
    CHECK(SamePlane(Kernel(1, 2.5f, 1, 0.3f, 1.0f), PlaneOf<float>(1, {1.0f})));
}

TEST_CASE("a kernel without rows has no elements and is left alone")
{
    FloatPlane kernel = Constant(2, 2, 5.0f);
    TwoDGaussian_LSE(&kernel, 3, 1.0f, 0, 1.0f, 0.0f);
    CHECK(kernel.Width == 3);
    CHECK(kernel.Height == 0);
    CHECK_THROWS_AS(TwoDGaussian_LSE(&kernel, 3, 1.0f, -1, 1.0f, 0.0f), std::bad_alloc);
    CHECK_THROWS_AS(TwoDGaussian_LSE(&kernel, -3, 1.0f, 3, 1.0f, 0.0f), std::bad_alloc);
    TwoDGaussian_LSE(nullptr, 3, 1.0f, 3, 1.0f, 0.0f);
    TwoDGaussian_LSE(&kernel, 3, 1.0f, 3, 1.0f, 0.0f);
    CHECK(kernel.Ptr2D[1][1] > kernel.Ptr2D[0][0]);
}

TEST_CASE("with equal sigmas the angle changes values by rounding only, else a quarter turn swaps the axes")
{
    const FloatPlane straight = Kernel(9, 1.5f, 9, 1.5f, 0.0f);
    const FloatPlane turned = Kernel(9, 1.5f, 9, 1.5f, 0.7f);
    const FloatPlane wide = Kernel(9, 2.5f, 9, 1.0f, 0.0f);
    const FloatPlane high = Kernel(9, 2.5f, 9, 1.0f, 1.5707963f);
    for (int j = 0; j < 9; ++j) {
        for (int i = 0; i < 9; ++i) {
            CHECK(std::fabs(straight.Ptr2D[j][i] - turned.Ptr2D[j][i]) < 1e-6f);
            CHECK(std::fabs(wide.Ptr2D[j][i] - high.Ptr2D[i][j]) < 1e-6f);
        }
    }
    CHECK(wide.Ptr2D[4][7] > 2.0f * wide.Ptr2D[7][4]);
}

TEST_CASE("an even width has its peak one before the middle")
{
    const FloatPlane kernel = Kernel(4, 1.0f, 1, 1.0f, 0.0f);
    CHECK(kernel.Ptr1D[1] > kernel.Ptr1D[0]);
    CHECK(kernel.Ptr1D[0] == kernel.Ptr1D[2]);
    CHECK(kernel.Ptr1D[3] < kernel.Ptr1D[2]);
    const FloatPlane odd = Kernel(5, 1.0f, 1, 1.0f, 0.0f);
    CHECK(odd.Ptr1D[2] > odd.Ptr1D[1]);
    CHECK(odd.Ptr1D[1] == odd.Ptr1D[3]);
}

TEST_CASE("a kernel sums to one and its products fall off on both sides of the peak")
{
    const FloatPlane kernel = Kernel(15, 2.0f, 11, 3.0f, 0.0f);
    float            sum = 0.0f;
    for (int k = 0; k < 15 * 11; ++k)
        sum += kernel.Ptr1D[k];
    CHECK(std::fabs(sum - 1.0f) < 1e-5f);
    CHECK(std::max_element(kernel.Ptr1D, kernel.Ptr1D + 15 * 11) == &kernel.Ptr2D[5][7]);
}

TEST_CASE("a sigma of zero leaves values that are not numbers, unnormalised")
{
    const FloatPlane kernel = Kernel(3, 0.0f, 3, 1.0f, 0.0f);
    CHECK(std::isnan(kernel.Ptr2D[1][1]));
    CHECK(!std::isnan(Kernel(3, 0.5f, 3, 1.0f, 0.0f).Ptr2D[1][1]));
    CHECK(std::isnan(OneDGaussian(0.0f, 0.0f)));
    CHECK(std::isnan(OneDGaussian(std::numeric_limits<float>::quiet_NaN(), 1.0f)));
    CHECK(OneDGaussian(std::numeric_limits<float>::infinity(), 1.0f) == 0.0f);
}
