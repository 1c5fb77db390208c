#include "base/Reflect.h"
#include "foundation/RowThreads.h"
#include "imaging/Correlation.h"
#include "imaging/RandomPlanes.h"

#include <cmath>
#include <doctest/doctest.h>
#include <limits>
#include <new>

using namespace vostel;

namespace {

// One coordinate of the mirrored read, step by step.
int MirroredByHand(int c, int extent)
{
    if (c < 0)
        c = -c;
    while (c >= 2 * extent)
        c -= 2 * extent;
    if (c >= extent)
        c = 2 * extent - c - 2;
    return std::clamp(c, 0, extent - 1);
}

float SumByHand(const FloatPlane& image, const FloatPlane& kernel, int x, int y)
{
    const int kw2 = kernel.Width / 2;
    const int kh2 = kernel.Height / 2;
    float     sum = 0.0f;
    for (int j = -kh2; j <= kh2; ++j) {
        for (int i = -kw2; i <= kw2; ++i) {
            const bool  inKernel = j + kh2 < kernel.Height && i + kw2 < kernel.Width;
            const float tap = inKernel ? kernel.Ptr2D[j + kh2][i + kw2] : 0.0f;
            sum += tap * image.Ptr2D[MirroredByHand(y + j, image.Height)][MirroredByHand(x + i, image.Width)];
        }
    }
    return sum;
}

FloatPlane FilteredByHand(const FloatPlane& image, const FloatPlane& kernel)
{
    FloatPlane result;
    result.Allocate(image.Width, image.Height);
    for (int y = 0; y < image.Height; ++y)
        for (int x = 0; x < image.Width; ++x)
            result.Ptr2D[y][x] = SumByHand(image, kernel, x, y);
    return result;
}

FloatPlane Filtered(FloatPlane image, FloatPlane kernel, void (*filter)(FloatPlane*, FloatPlane*) = gConv2)
{
    filter(&image, &kernel);
    return image;
}

FloatPlane RandomKernel(int width, int height, std::mt19937& random)
{
    return RandomFloats(width, height, random, -1.0f, 1.0f);
}

// Of random size: mostly small, odd sides.
FloatPlane AnyKernel(std::mt19937& random)
{
    const int width = 1 + 2 * static_cast<int>(random() % (random() % 4 == 0 ? 20 : 5));
    const int height = 1 + 2 * static_cast<int>(random() % (random() % 4 == 0 ? 12 : 4));
    return RandomKernel(width, height, random);
}

}

TEST_CASE("every variant of the correlation equals the sums by hand on images of any size")
{
    for (unsigned seed = 6100; seed < 6160; ++seed) {
        std::mt19937     random(seed);
        const int        width = 1 + static_cast<int>(random() % 70);
        const int        height = 1 + static_cast<int>(random() % 70) / 2;
        const bool       hard = seed % 5 == 0;
        const FloatPlane image = hard ? HardPlane(width, height, seed) : RandomFloats(width, height, random);
        const FloatPlane kernel = AnyKernel(random);
        const FloatPlane expected = FilteredByHand(image, kernel);
        InEveryVariant([&](const char* variant) {
            CHECK_MESSAGE(SamePlane(Filtered(image, kernel), expected),
                          variant << ", seed " << seed << ", " << width << "x" << height << " by "
                                  << kernel.Width << "x" << kernel.Height);
        });
    }
}

TEST_CASE("every variant equals the sums by hand on wide images, where blocks meet the mirrored edges")
{
    unsigned seed = 6200;
    for (const int width : {95, 96, 97, 127, 128, 129, 160, 191, 193, 257}) {
        std::mt19937     random(++seed);
        const FloatPlane image = RandomFloats(width, 11, random);
        for (const int side : {1, 3, 5, 7, 31, 33}) {
            const FloatPlane kernel = RandomKernel(side, std::min(side, 9), random);
            const FloatPlane expected = FilteredByHand(image, kernel);
            InEveryVariant([&](const char* variant) {
                CHECK_MESSAGE(SamePlane(Filtered(image, kernel), expected),
                              variant << ", seed " << seed << ", width " << width << ", kernel " << side);
            });
        }
    }
}

TEST_CASE("images larger than the caches, which are written past them, equal the sums by hand")
{
    const unsigned   seed = 6250;
    std::mt19937     random(seed);
    const FloatPlane kernel = RandomKernel(3, 3, random);
    for (const int width : {2048, 2053}) {
        FloatPlane image = Constant(width, 2049, 0.0f);
        for (int k = 0; k < width * 2049; ++k)
            image.Ptr1D[k] = static_cast<float>(random() % 10007) * 0.37f;
        InEveryVariant([&](const char* variant) {
            const FloatPlane result = Filtered(image, kernel);
            bool             same = true;
            // Columns and rows in steps that share no divisor with any block, and the last of each.
            for (int y = 0; y < 2049; y += y < 2035 ? 13 : 1)
                for (int x = 0; x < width; x += x < 100 || x > width - 100 ? 1 : 11)
                    same = same && result.Ptr2D[y][x] == SumByHand(image, kernel, x, y);
            CHECK_MESSAGE(same, variant << ", seed " << seed << ", width " << width);
        });
    }
}

TEST_CASE("no variant writes outside the columns of its block")
{
    InEveryVariant([&](const char* variant) {
        const CorrelationVariant& functions = ActiveCorrelationVariant();
        for (int columns = 1; columns <= 140; ++columns) {
            const int                      rows = functions.RowsAtOnce;
            const float                    taps[3] = {1.0f, 2.0f, 3.0f};
            std::vector<float>             source(static_cast<std::size_t>(columns) + 2, 1.0f);
            std::vector<const float*>      sources(static_cast<std::size_t>(rows), source.data());
            std::vector<GuardedRun<float>> targets;
            std::vector<float*>            starts;
            const std::size_t              length = static_cast<std::size_t>(columns);
            for (int r = 0; r < rows; ++r)
                targets.emplace_back(length, static_cast<std::size_t>(columns % 16), -7.0f);
            for (GuardedRun<float>& target : targets)
                starts.push_back(target.Data());
            functions.Rows({sources.data(), 0, taps, 3, 1, starts.data(), 0, columns, columns % 2 == 0});
            functions.Fence();
            for (GuardedRun<float>& target : targets) {
                CHECK_MESSAGE(target.GuardsStand(), variant << ", " << columns << " columns");
                CHECK_MESSAGE(std::count(target.Data(), target.Data() + length, 6.0f) == columns,
                              variant << ", " << columns << " columns");
            }
        }
    });
}

TEST_CASE("the pixels do not depend on the number of threads")
{
    const unsigned   seed = 6300;
    std::mt19937     random(seed);
    const FloatPlane image = RandomFloats(50, 23, random);
    const FloatPlane kernel = RandomKernel(5, 7, random);
    const FloatPlane expected = FilteredByHand(image, kernel);
    FloatPlane       smooth = image;
    gGauss(&smooth, 5, 1.3f, 0.4f);
    for (const int threads : {1, 2, 3, 5, 8, 22, 23, 24, 64}) {
        ForceRowThreads(threads);
        CHECK_MESSAGE(SamePlane(Filtered(image, kernel), expected), threads << " threads, seed " << seed);
        FloatPlane again = image;
        gGauss(&again, 5, 1.3f, 0.4f);
        CHECK_MESSAGE(SamePlane(again, smooth), threads << " threads, seed " << seed);
    }
    ForceRowThreads(0);
}

TEST_CASE("an image with fewer rows than processors is filtered whole")
{
    const unsigned seed = 6301;
    std::mt19937   random(seed);
    ForceRowThreads(7);
    for (int height = 1; height < 7; ++height) {
        const FloatPlane image = RandomFloats(20, height, random);
        const FloatPlane kernel = RandomKernel(3, 5, random);
        CHECK_MESSAGE(SamePlane(Filtered(image, kernel), FilteredByHand(image, kernel)),
                      height << " rows, seed " << seed);
    }
    ForceRowThreads(0);
}

TEST_CASE(
    "a 1x1 kernel of 1.0 gives the same image, in new buffers from ConFltMC and in the old ones otherwise")
{
    std::mt19937     random(6302);
    const FloatPlane original = RandomFloats(19, 8, random);
    FloatPlane       one = Constant(1, 1, 1.0f);
    FloatPlane       image = original;
    const ZEKRECT    region = image.Region;
    float* const     buffer = image.Ptr1D;
    ConFltMC(&image, &one);
    CHECK(SamePlane(image, original));
    CHECK(image.Ptr1D != buffer);
    for (int y = 0; y < 8; ++y)
        CHECK(image.Ptr2D[y] == image.Ptr1D + 19 * y);
    CHECK(image.Region.right == region.right);
    CHECK(image.Region.bottom == region.bottom);
    for (const auto filter : {ConvFltVer0, ConvFltVer1, ConvFltVer2}) {
        float* const  kept = image.Ptr1D;
        float** const rows = image.Ptr2D;
        filter(&image, &one);
        CHECK(SamePlane(image, original));
        CHECK(image.Ptr1D == kept);
        CHECK(image.Ptr2D == rows);
    }
}

TEST_CASE("the kernel is not turned over: it is drawn turned round an impulse")
{
    FloatPlane impulse = Constant(7, 7, 0.0f);
    impulse.Ptr2D[3][3] = 1.0f;
    const FloatPlane kernel = PlaneOf<float>(3, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    const FloatPlane result = Filtered(impulse, kernel);
    for (int j = -1; j <= 1; ++j)
        for (int i = -1; i <= 1; ++i)
            CHECK(result.Ptr2D[3 + j][3 + i] == kernel.Ptr2D[1 - j][1 - i]);
    CHECK(result.Ptr2D[1][3] == 0.0f);
    CHECK(result.Ptr2D[3][5] == 0.0f);
}

TEST_CASE("the border mirrors without repeating the edge sample")
{
    const FloatPlane row = PlaneOf<float>(4, {1, 2, 3, 4});
    CHECK(SamePlane(Filtered(row, PlaneOf<float>(3, {1, 0, 0})), PlaneOf<float>(4, {2, 1, 2, 3})));
    CHECK(SamePlane(Filtered(row, PlaneOf<float>(3, {0, 0, 1})), PlaneOf<float>(4, {2, 3, 4, 3})));
    const FloatPlane column = PlaneOf<float>(1, {1, 2, 3, 4});
    CHECK(SamePlane(Filtered(column, PlaneOf<float>(1, {1, 0, 0})), PlaneOf<float>(1, {2, 1, 2, 3})));
}

TEST_CASE("the mirrored coordinate folds as often as it takes")
{
    for (int extent = 1; extent <= 9; ++extent)
        for (int c = -60; c <= 60; ++c)
            CHECK(ReflectSkippingEdge(c, extent) == MirroredByHand(c, extent));
}

TEST_CASE("in an image one pixel wide all taps read the single column")
{
    const FloatPlane image = PlaneOf<float>(1, {1, 10, 100});
    CHECK(SamePlane(Filtered(image, PlaneOf<float>(3, {1, 2, 4})), PlaneOf<float>(1, {7, 70, 700})));
    CHECK(SamePlane(Filtered(PlaneOf<float>(1, {5}), Constant(9, 11, 1.0f)), PlaneOf<float>(1, {495})));
}

TEST_CASE("a kernel larger than the image folds its reads in every variant")
{
    unsigned seed = 6400;
    for (int width = 1; width <= 5; ++width) {
        for (int height = 1; height <= 4; ++height) {
            std::mt19937     random(++seed);
            const FloatPlane image = RandomFloats(width, height, random);
            const FloatPlane kernel = RandomKernel(23, 17, random);
            const FloatPlane expected = FilteredByHand(image, kernel);
            InEveryVariant([&](const char* variant) {
                CHECK_MESSAGE(SamePlane(Filtered(image, kernel), expected), variant << ", seed " << seed);
                CHECK_MESSAGE(SamePlane(Filtered(image, kernel, ConvFltVer0), expected),
                              variant << ", seed " << seed);
            });
        }
    }
}

TEST_CASE("an even kernel reads zero for the taps that it lacks")
{
    for (unsigned seed = 6500; seed < 6510; ++seed) {
        std::mt19937     random(seed);
        const FloatPlane image = RandomFloats(40, 9, random);
        const FloatPlane kernel =
            RandomKernel(2 + 2 * static_cast<int>(seed % 3), 1 + static_cast<int>(seed % 4), random);
        CHECK_MESSAGE(SamePlane(Filtered(image, kernel), FilteredByHand(image, kernel)), "seed " << seed);
    }
    // Two taps, the right one on the pixel itself.
    CHECK(SamePlane(Filtered(PlaneOf<float>(3, {1, 10, 100}), PlaneOf<float>(2, {2, 1})),
                    PlaneOf<float>(3, {21, 12, 120})));
}

TEST_CASE("ConvFltVer0 gives the pixels of ConFltMC")
{
    for (unsigned seed = 6600; seed < 6620; ++seed) {
        std::mt19937     random(seed);
        const FloatPlane image =
            RandomFloats(1 + static_cast<int>(random() % 60), 1 + static_cast<int>(random() % 20), random);
        const FloatPlane kernel = AnyKernel(random);
        CHECK_MESSAGE(SamePlane(Filtered(image, kernel, ConvFltVer0), Filtered(image, kernel)),
                      "seed " << seed);
    }
}

TEST_CASE("ConvFltVer0 replaces no sample that a row to come reads")
{
    std::mt19937 random(6620);
    for (int height = 1; height <= 20; ++height) {
        const FloatPlane image = RandomFloats(70, height, random);
        for (int kernelHeight = 1; kernelHeight <= 13; ++kernelHeight) {
            const FloatPlane kernel = RandomKernel(3, kernelHeight, random);
            const FloatPlane expected = FilteredByHand(image, kernel);
            InEveryVariant([&](const char* variant) {
                CHECK_MESSAGE(SamePlane(Filtered(image, kernel, ConvFltVer0), expected),
                              variant << ", " << height << " rows, kernel of " << kernelHeight);
            });
        }
    }
}

TEST_CASE("ConvFltVer1 leaves zero at both sides of the last row above the lower band and nowhere else")
{
    for (unsigned seed = 6700; seed < 6740; ++seed) {
        std::mt19937     random(seed);
        const int        width = 1 + static_cast<int>(random() % 40);
        const int        height = 1 + static_cast<int>(random() % 12);
        const FloatPlane image = RandomFloats(width, height, random, 1.0f, 2.0f);
        FloatPlane       kernel = AnyKernel(random);
        FloatPlane       expected = FilteredByHand(image, kernel);
        const int        kw2 = kernel.Width / 2;
        const int        kh2 = kernel.Height / 2;
        for (int y = kh2; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (y == height - kh2 - 1 && (x < kw2 || x >= width - kw2))
                    expected.Ptr2D[y][x] = 0.0f;
        CHECK_MESSAGE(SamePlane(Filtered(image, kernel, ConvFltVer1), expected), "seed " << seed);
    }
    // Without a lower band that row is the last one.
    CHECK(SamePlane(Filtered(Constant(4, 3, 1.0f), PlaneOf<float>(3, {1, 1, 1}), ConvFltVer1),
                    PlaneOf<float>(4, {3, 3, 3, 3, 3, 3, 3, 3, 0, 3, 3, 0})));
}

TEST_CASE("ConvFltVer1 with a kernel taller than twice the image stays inside it")
{
    std::mt19937     random(6701);
    const FloatPlane image = RandomFloats(20, 2, random);
    const FloatPlane kernel = RandomKernel(3, 11, random);
    CHECK(SamePlane(Filtered(image, kernel, ConvFltVer1), FilteredByHand(image, kernel)));
}

TEST_CASE("ConvFltVer2 computes the interior and zeroes the frame")
{
    for (unsigned seed = 6800; seed < 6840; ++seed) {
        std::mt19937     random(seed);
        const int        width = 1 + static_cast<int>(random() % 50);
        const int        height = 1 + static_cast<int>(random() % 12);
        const FloatPlane image = RandomFloats(width, height, random, 1.0f, 2.0f);
        const FloatPlane kernel = AnyKernel(random);
        FloatPlane       expected = FilteredByHand(image, kernel);
        const int        kw2 = kernel.Width / 2;
        const int        kh2 = kernel.Height / 2;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (y < kh2 || y >= height - kh2 || x < kw2 || x >= width - kw2)
                    expected.Ptr2D[y][x] = 0.0f;
        CHECK_MESSAGE(SamePlane(Filtered(image, kernel, ConvFltVer2), expected), "seed " << seed);
    }
    CHECK(SamePlane(Filtered(Constant(4, 4, 9.0f), Constant(5, 5, 1.0f), ConvFltVer2), Constant(4, 4, 0.0f)));
}

TEST_CASE("the correlation is linear where no step rounds")
{
    const unsigned seed = 6900;
    std::mt19937   random(seed);
    FloatPlane     a = Constant(45, 13, 0.0f), b = a, mixed = a;
    for (int k = 0; k < 45 * 13; ++k) {
        a.Ptr1D[k] = static_cast<float>(random() % 100);
        b.Ptr1D[k] = static_cast<float>(random() % 100);
        mixed.Ptr1D[k] = 2.0f * a.Ptr1D[k] + 3.0f * b.Ptr1D[k];
    }
    FloatPlane kernel = Constant(5, 3, 0.0f);
    for (int k = 0; k < 15; ++k)
        kernel.Ptr1D[k] = static_cast<float>(random() % 9) - 4.0f;
    const FloatPlane ofA = Filtered(a, kernel), ofB = Filtered(b, kernel), ofMixed = Filtered(mixed, kernel);
    bool             linear = true;
    for (int k = 0; k < 45 * 13; ++k)
        linear = linear && ofMixed.Ptr1D[k] == 2.0f * ofA.Ptr1D[k] + 3.0f * ofB.Ptr1D[k];
    CHECK_MESSAGE(linear, "seed " << seed);
}

TEST_CASE("a constant image stays constant under a kernel of sum one, at the border too")
{
    const FloatPlane kernel = Constant(4 * 2 + 1, 1, 0.125f);
    FloatPlane       sumOne = kernel;
    sumOne.Ptr1D[4] = 0.0f;
    CHECK(SamePlane(Filtered(Constant(33, 5, 8.0f), sumOne), Constant(33, 5, 8.0f)));
}

TEST_CASE("infinite samples and not-a-numbers reach the pixels under their taps and no others")
{
    FloatPlane image = Constant(90, 9, 1.0f);
    image.Ptr2D[4][45] = std::numeric_limits<float>::quiet_NaN();
    image.Ptr2D[4][80] = std::numeric_limits<float>::infinity();
    const FloatPlane kernel = Constant(3, 3, 1.0f);
    InEveryVariant([&](const char* variant) {
        const FloatPlane result = Filtered(image, kernel);
        for (int y = 0; y < 9; ++y) {
            for (int x = 0; x < 90; ++x) {
                const bool close = y >= 3 && y <= 5;
                if (close && x >= 44 && x <= 46)
                    CHECK_MESSAGE(std::isnan(result.Ptr2D[y][x]), variant);
                else if (close && x >= 79 && x <= 81)
                    CHECK_MESSAGE(std::isinf(result.Ptr2D[y][x]), variant);
                else
                    CHECK_MESSAGE(result.Ptr2D[y][x] == 9.0f, variant);
            }
        }
    });
}

TEST_CASE("a missing or empty image or kernel changes nothing")
{
    FloatPlane one = Constant(1, 1, 2.0f), empty, released, none;
    released.Release();
    none.Allocate(0, 0);
    FloatPlane   image = Constant(3, 2, 5.0f);
    float* const buffer = image.Ptr1D;
    for (const auto filter : {gConv2, ConFltMC, ConvFltVer0, ConvFltVer1, ConvFltVer2}) {
        filter(nullptr, &one);
        filter(&image, nullptr);
        filter(nullptr, nullptr);
        for (FloatPlane* const nothing : {&empty, &released, &none}) {
            filter(&image, nothing);
            filter(nothing, &one);
        }
        CHECK(image.Ptr1D == buffer);
        CHECK(SamePlane(image, Constant(3, 2, 5.0f)));
    }
    CHECK(empty.Width == 0);
    CHECK(released.Width == -1);
    gGauss(nullptr, 3, 1.0f, 0.0f);
    gGauss(&image, 0, 1.0f, 0.0f);
    CHECK(image.Ptr1D == buffer);
    gConv2(&image, &one);
    CHECK(SamePlane(image, Constant(3, 2, 10.0f)));
}

TEST_CASE("gGauss filters with the kernel of TwoDGaussian_LSE, the same sigma on both axes")
{
    const unsigned   seed = 6950;
    std::mt19937     random(seed);
    const FloatPlane original = RandomFloats(61, 17, random);
    FloatPlane       kernel;
    TwoDGaussian_LSE(&kernel, 7, 1.5f, 7, 1.5f, 0.3f);
    FloatPlane image = original;
    gGauss(&image, 7, 1.5f, 0.3f);
    CHECK_MESSAGE(SamePlane(image, FilteredByHand(original, kernel)), "seed " << seed);
}

TEST_CASE("gGauss of a negative size fails by the allocator's exception and leaves the image")
{
    FloatPlane   image = Constant(3, 2, 5.0f);
    float* const buffer = image.Ptr1D;
    CHECK_THROWS_AS(gGauss(&image, -3, 1.0f, 0.0f), std::bad_alloc);
    CHECK(image.Ptr1D == buffer);
    gGauss(&image, 1, 1.0f, 0.0f);
    CHECK(image.Ptr1D != buffer);
    CHECK(SamePlane(image, Constant(3, 2, 5.0f)));
}

TEST_CASE("an image filtered with itself takes the taps from before")
{
    const FloatPlane original = PlaneOf<float>(3, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    FloatPlane       image = original;
    gConv2(&image, &image);
    CHECK(SamePlane(image, FilteredByHand(original, original)));
}
