#include "foundation/RowThreads.h"
#include "imaging/RandomPlanes.h"
#include "support/ResizeOwned.h"

#include <cmath>
#include <doctest/doctest.h>
#include <limits>
#include <new>

using namespace vostel;

namespace {

FloatPlane ScaledByHand(const FloatPlane& source, int width, int height)
{
    FloatPlane target;
    target.Allocate(width, height);
    const float scaleX = static_cast<float>(source.Width) / static_cast<float>(width);
    const float scaleY = static_cast<float>(source.Height) / static_cast<float>(height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const float fx = static_cast<float>(x) * scaleX;
            const float fy = static_cast<float>(y) * scaleY;
            const int   ix = static_cast<int>(std::floor(fx));
            const int   iy = static_cast<int>(std::floor(fy));
            if (ix < 0 || ix > source.Width - 2 || iy < 0 || iy > source.Height - 2) {
                target.Ptr2D[y][x] = 0.0f;
                continue;
            }
            const float  tx = fx - static_cast<float>(ix);
            const float  ty = fy - static_cast<float>(iy);
            const float* s = source.Ptr2D[iy];
            const float  topRight = tx * s[ix + 1];
            const double top = static_cast<double>(s[ix]) * (1.0 - static_cast<double>(tx)) + topRight;
            s = source.Ptr2D[iy + 1];
            const float  bottomRight = tx * s[ix + 1];
            const double bottom = static_cast<double>(s[ix]) * (1.0 - static_cast<double>(tx)) + bottomRight;
            target.Ptr2D[y][x] =
                static_cast<float>(top * (1.0 - static_cast<double>(ty)) + bottom * static_cast<double>(ty));
        }
    }
    return target;
}

FloatPlane Scaled(FloatPlane source, int width, int height,
                  void (*scale)(FloatPlane*, FloatPlane*) = ResizeMC)
{
    FloatPlane target = Constant(width, height, -77.0f);
    scale(&source, &target);
    return target;
}

}

TEST_CASE("every variant of the scaling equals the samples by hand for any pair of sizes")
{
    for (unsigned seed = 7100; seed < 7220; ++seed) {
        std::mt19937     random(seed);
        const auto       side = [&] { return 1 + static_cast<int>(random() % 70); };
        const int        width = side(), height = side();
        const FloatPlane source =
            seed % 5 == 0 ? HardPlane(width, height, seed) : RandomFloats(width, height, random);
        const int        newWidth = side(), newHeight = side();
        const FloatPlane expected = ScaledByHand(source, newWidth, newHeight);
        InEveryVariant([&](const char* variant) {
            CHECK_MESSAGE(SamePlane(Scaled(source, newWidth, newHeight), expected),
                          variant << ", seed " << seed << ", " << width << "x" << height << " to " << newWidth
                                  << "x" << newHeight);
        });
    }
}

TEST_CASE("every variant equals the samples by hand on wide images at every spacing of the samples")
{
    const unsigned   seed = 7300;
    std::mt19937     random(seed);
    const FloatPlane source = RandomFloats(400, 9, random);
    for (const int width : {7, 20, 33, 57, 100, 150, 199, 200, 201, 300, 399, 400, 401, 800, 1203}) {
        for (const int height : {3, 9, 20}) {
            const FloatPlane expected = ScaledByHand(source, width, height);
            InEveryVariant([&](const char* variant) {
                CHECK_MESSAGE(SamePlane(Scaled(source, width, height), expected),
                              variant << ", seed " << seed << ", to " << width << "x" << height);
            });
        }
    }
}

TEST_CASE("every variant equals the samples by hand where all of them are met, whatever stands beside")
{
    unsigned seed = 7350;
    for (const int step : {1, 2, 3, 4}) {
        for (const int columns : {1, 7, 8, 15, 16, 17, 33, 50}) {
            ++seed;
            const FloatPlane source = HardPlane(columns * step, 6 * step, seed);
            const FloatPlane expected = ScaledByHand(source, columns, 6);
            InEveryVariant([&](const char* variant) {
                CHECK_MESSAGE(SamePlane(Scaled(source, columns, 6), expected),
                              variant << ", seed " << seed << ", step " << step << ", " << columns
                                      << " columns");
            });
        }
    }
}

TEST_CASE("ResizeSC gives the pixels of ResizeMC with any number of threads")
{
    const unsigned   seed = 7400;
    std::mt19937     random(seed);
    const FloatPlane source = RandomFloats(37, 29, random);
    for (const int height : {1, 2, 3, 17, 60}) {
        const FloatPlane single = Scaled(source, 50, height, ResizeSC);
        CHECK(SamePlane(single, ScaledByHand(source, 50, height)));
        for (const int threads : {1, 2, 3, 7, 16, 59, 64}) {
            ForceRowThreads(threads);
            CHECK_MESSAGE(SamePlane(Scaled(source, 50, height), single),
                          threads << " threads, height " << height << ", seed " << seed);
        }
        ForceRowThreads(0);
    }
}

TEST_CASE("scaling to the same size zeroes the last column and the last row and keeps the rest")
{
    std::mt19937     random(7401);
    const FloatPlane original = RandomFloats(33, 12, random, 1.0f, 2.0f);
    FloatPlane       image = original;
    float* const     buffer = image.Ptr1D;
    Resize(image, 33, 12);
    CHECK(image.Ptr1D != buffer);
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 33; ++x)
            CHECK(image.Ptr2D[y][x] == (x == 32 || y == 11 ? 0.0f : original.Ptr2D[y][x]));
}

TEST_CASE("halving a 4x4 image leaves no zero margin")
{
    FloatPlane image = PlaneOf<float>(4, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    Resize(image, 2, 2);
    CHECK(SamePlane(image, PlaneOf<float>(2, {1, 3, 9, 11})));
}

TEST_CASE("doubling leaves a zero margin of two pixels and meets the samples half-way")
{
    FloatPlane image = PlaneOf<float>(3, {0, 2, 4, 4, 6, 8, 8, 10, 12});
    Resize(image, 6, 6);
    CHECK(SamePlane(image, PlaneOf<float>(6, {0, 1, 2, 3, 0, 0, 2, 3, 4, 5, 0, 0, 4, 5, 6, 7, 0, 0,
                                              6, 7, 8, 9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0})));
}

TEST_CASE("a source one pixel wide or high gives zeros only")
{
    CHECK(SamePlane(Scaled(Constant(1, 9, 5.0f), 4, 4), Constant(4, 4, 0.0f)));
    CHECK(SamePlane(Scaled(Constant(9, 1, 5.0f), 4, 4), Constant(4, 4, 0.0f)));
    CHECK(Scaled(Constant(2, 2, 5.0f), 4, 4).Ptr2D[0][0] == 5.0f);
}

TEST_CASE("a constant image stays constant up to the zero margin")
{
    const FloatPlane result = Scaled(Constant(20, 20, 64.0f), 45, 31);
    for (int y = 0; y < 31; ++y)
        for (int x = 0; x < 45; ++x) {
            const bool inside = static_cast<float>(x) * (20.0f / 45.0f) < 19.0f &&
                                static_cast<float>(y) * (20.0f / 31.0f) < 19.0f;
            CHECK(std::fabs(result.Ptr2D[y][x] - (inside ? 64.0f : 0.0f)) < 1e-4f);
        }
}

TEST_CASE("a 16-bit image goes through float and is truncated")
{
    ClassData2DIO<unsigned short> image = PlaneOf<unsigned short>(3, {1000, 7, 7, 7, 7, 7, 7, 7, 65535});
    const ZEKRECT                 region = image.Region;
    ResizeOwned(image, 3, 3);
    CHECK(image.Ptr2D[0][0] == 1000);
    CHECK(image.Ptr2D[1][1] == 7);
    CHECK(image.Ptr2D[2][2] == 0);
    CHECK(image.Region.right == region.right);
    // Three quarters from 4000 to 4001, one quarter from 0 to 4001: both are cut off.
    image = PlaneOf<unsigned short>(2, {4000, 4001, 4000, 4001});
    ResizeOwned(image, 8, 8);
    CHECK(image.Width == 8);
    CHECK(image.Height == 8);
    CHECK(image.Ptr2D[0][3] == 4000);
    CHECK(image.Ptr2D[3][3] == 4000);
    CHECK(image.Ptr2D[0][4] == 0);
    for (unsigned seed = 7500; seed < 7510; ++seed) {
        std::mt19937                  random(seed);
        ClassData2DIO<unsigned short> original;
        original.Allocate(23, 9);
        std::generate_n(original.Ptr1D, 23 * 9, [&] { return static_cast<unsigned short>(random()); });
        FloatPlane copy;
        copy.ConvertFrom(original, 0.0f);
        const FloatPlane                    expected = ScaledByHand(copy, 31, 14);
        const ClassData2DIO<unsigned short> result = [&] {
            ClassData2DIO<unsigned short> scaled = original;
            ResizeOwned(scaled, 31, 14);
            return scaled;
        }();
        bool same = true;
        for (int k = 0; k < 31 * 14; ++k)
            same = same && result.Ptr1D[k] == static_cast<unsigned short>(expected.Ptr1D[k]);
        CHECK_MESSAGE(same, "seed " << seed);
    }
}

TEST_CASE("a 16-bit image that looks at memory of its host leaves that memory to the host")
{
    std::vector<unsigned short>  pixels = {10, 20, 30, 40, 50, 60, 70, 80, 90};
    std::vector<unsigned short*> rows = {pixels.data(), pixels.data() + 3, pixels.data() + 6};
    const auto                   untouched = pixels;
    {
        ClassData2DIO<unsigned short> image;
        image.Ptr1D = pixels.data();
        image.Ptr2D = rows.data();
        image.Width = image.Height = 3;
        Resize(image, 6, 2);
        CHECK(image.Ptr1D != pixels.data());
        CHECK(image.Ptr2D != rows.data());
        CHECK(image.Width == 6);
        CHECK(image.Height == 2);
        CHECK(image.Ptr2D[0][1] == 15);
        CHECK(image.Ptr2D[1] == image.Ptr1D + 6);
    }
    CHECK(pixels == untouched);
    CHECK(rows[2] == &pixels[6]);
}

TEST_CASE("a negative size fails by the allocator's exception and leaves the image")
{
    FloatPlane                    image = Constant(3, 2, 5.0f);
    ClassData2DIO<unsigned short> words = Constant<unsigned short>(3, 2, 5);
    CHECK_THROWS_AS(Resize(image, -4, 4), std::bad_alloc);
    CHECK_THROWS_AS(Resize(image, 4, -4), std::bad_alloc);
    CHECK_THROWS_AS(Resize(image, 100000, 100000), std::bad_alloc);
    CHECK_THROWS_AS(Resize(words, -4, 4), std::bad_alloc);
    CHECK(SamePlane(image, Constant(3, 2, 5.0f)));
    CHECK(SamePlane(words, Constant<unsigned short>(3, 2, 5)));
    Resize(image, 4, 4);
    CHECK(image.Width == 4);
}

TEST_CASE("sizes of zero and images without samples have a defined outcome")
{
    FloatPlane image = Constant(3, 2, 5.0f);
    Resize(image, 0, 0);
    CHECK(image.Width == 0);
    CHECK(image.Height == 0);
    CHECK(image.Ptr1D != nullptr);
    Resize(image, 3, 2);
    CHECK(SamePlane(image, Constant(3, 2, 0.0f)));
    FloatPlane released;
    released.Release();
    Resize(released, 2, 2);
    CHECK(SamePlane(released, Constant(2, 2, 0.0f)));
    ClassData2DIO<unsigned short> words;
    ResizeOwned(words, 2, 2);
    CHECK(SamePlane(words, Constant<unsigned short>(2, 2, 0)));
    FloatPlane target = Constant(2, 2, 3.0f), empty;
    ResizeMC(nullptr, &target);
    ResizeMC(&target, nullptr);
    ResizeSC(nullptr, nullptr);
    ResizeMC(&target, &empty);
    CHECK(SamePlane(target, Constant(2, 2, 3.0f)));
    ResizeMC(&empty, &target);
    CHECK(SamePlane(target, Constant(2, 2, 0.0f)));
}

TEST_CASE("an image scaled onto itself reads no pixel that it has written")
{
    std::mt19937     random(7600);
    const FloatPlane original = RandomFloats(20, 30, random);
    FloatPlane       image = original;
    ResizeMC(&image, &image);
    CHECK(SamePlane(image, ScaledByHand(original, 20, 30)));
}
