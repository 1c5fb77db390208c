#include "foundation/RowThreads.h"
#include "support/EveryVariant.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

using namespace vostel;

namespace {

using Plane = ClassData2DIO<float>;

float TapByHand(int n, float spacing)
{
    const double d = spacing;
    if (n == 0)
        return static_cast<float>(1.0 / (d * 8.0 * d));
    if (n % 2 == 0)
        return 0.0f;
    const double distance = n < 0 ? -n : n;
    return static_cast<float>(-1.0 / static_cast<float>(distance * 19.73920812874952 * distance * d * d));
}

void FillRandom(Plane& image, int width, int height, unsigned seed)
{
    std::mt19937                          random(seed);
    std::uniform_real_distribution<float> values(-50.0f, 50.0f);
    image.Allocate(width, height);
    for (int i = 0; i < width * height; ++i)
        image.Ptr1D[i] = values(random);
}

int LengthFor(int width)
{
    int n = 1;
    while (n < 3 * width - 1)
        n *= 2;
    return n;
}

// Row by row through the public transform, with a product written out.
std::vector<float> FilteredByHand(Plane& image, float spacing)
{
    const int          w = image.Width;
    const int          n = LengthFor(w);
    std::vector<float> taps, result;
    for (int k = -(w - 1); k < w; ++k)
        taps.push_back(TapByHand(k, spacing));
    ZEKPP1DFFT kernel, row;
    kernel.Init(n, true);
    kernel.UpLoadRe(taps.data(), 2 * w - 1);
    kernel.RunFFT();
    row.Init(n, true);
    for (int y = 0; y < image.Height; ++y) {
        row.SetReImZero();
        row.UpLoadRe(image.Ptr2D[y], w);
        row.RunFFT(true);
        for (int k = 0; k < n; ++k) {
            const float re = row.Re[k] * kernel.Re[k] - row.Im[k] * kernel.Im[k];
            const float im = row.Re[k] * kernel.Im[k] + row.Im[k] * kernel.Re[k];
            row.Re[k] = re;
            row.Im[k] = im;
        }
        row.RunFFT(false);
        result.insert(result.end(), row.Re + w - 1, row.Re + 2 * w - 1);
    }
    return result;
}

}

TEST_CASE("a kernel of width 4 holds the taps -2, -1, 0, 1 at half the textbook scale")
{
    Plane kernel;
    kernel.Allocate(4, 1);
    KernelGenerate(kernel, 0.5f);
    CHECK(kernel.Ptr1D[0] == 0.0f);
    CHECK(kernel.Ptr1D[1] == TapByHand(-1, 0.5f));
    CHECK(kernel.Ptr1D[2] == 0.5f);    // 1 / (8 d^2)
    CHECK(kernel.Ptr1D[3] == kernel.Ptr1D[1]);
    CHECK(kernel.Ptr1D[1] == doctest::Approx(-1.0 / (2.0 * 9.8696044 * 0.25)));
}

TEST_CASE("kernels of all widths hold the formula, whatever the third argument")
{
    for (int width = 1; width < 70; ++width)
        for (const float spacing : {0.1f, 0.7f, 3.0f}) {
            Plane kernel;
            kernel.Allocate(width, 2);
            kernel.Ptr1D[width] = 5.0f;
            KernelGenerate(kernel, spacing, 17);
            bool same = true;
            for (int i = 0; i < width; ++i)
                same = same && kernel.Ptr1D[i] == TapByHand(i - width / 2, spacing);
            CHECK(same);
            CHECK(kernel.Ptr1D[width] == 5.0f);
        }
}

TEST_CASE("a kernel without elements stays untouched")
{
    Plane kernel;
    KernelGenerate(kernel, 1.0f);
    CHECK(kernel.Ptr1D == nullptr);
    kernel.Allocate(0, 1);
    KernelGenerate(kernel, 1.0f);
    CHECK(kernel.Width == 0);
}

TEST_CASE("a kernel without rows has no room for taps, one row has")
{
    float values[5] = {5.0f, 5.0f, 5.0f, 5.0f, 5.0f};
    Plane kernel;
    kernel.Ptr1D = values;
    kernel.OwnPtr1D = false;
    kernel.OwnPtr2D = false;
    kernel.Width = 4;
    for (const int height : {0, -1}) {
        kernel.Height = height;
        KernelGenerate(kernel, 0.5f);
        CHECK(std::count(values, values + 5, 5.0f) == 5);
    }
    kernel.Height = 1;
    KernelGenerate(kernel, 0.5f);
    CHECK(values[1] == TapByHand(-1, 0.5f));
    CHECK(values[2] == 0.5f);
    CHECK(values[4] == 5.0f);
}

TEST_CASE("the kernel's spectrum is that of its taps from index 0, unscaled")
{
    ZEKPP1DFFT fft, byHand;
    GetKernerlFFT(fft, 16, 5, 0.7f);
    float taps[5];
    for (int i = 0; i < 5; ++i)
        taps[i] = TapByHand(i - 2, 0.7f);
    byHand.Init(16, true);
    byHand.UpLoadRe(taps, 5);
    byHand.RunFFT();
    CHECK(SameFloats(fft.Re, byHand.Re, 16));
    CHECK(SameFloats(fft.Im, byHand.Im, 16));
    CHECK(fft.Re[0] != 0.0f);
    for (const int length : {17, 0, -3}) {
        GetKernerlFFT(fft, 16, length, 0.7f);
        CHECK(std::all_of(fft.Re, fft.Re + 16, [](float v) { return v == 0.0f; }));
    }
}

TEST_CASE("every variant filters rows of any width to the bits of the plain walk and keeps the buffers")
{
    InEveryVariant([](const char* variant) {
        for (const int width : {1,   2,   3,   5,   10,  21,  22,  43,  44,  64,   65,   70,   85,  86,
                                128, 129, 200, 256, 257, 300, 400, 683, 684, 1024, 1025, 1500, 2048}) {
            CAPTURE(variant);
            CAPTURE(width);
            Plane image;
            FillRandom(image, width, 3, 12);
            const std::vector<float> expected = FilteredByHand(image, 0.7f);
            const float* const       buffer = image.Ptr1D;
            ZEKFilter1DForRec(&image, 0.7f);
            CHECK(image.Ptr1D == buffer);
            CHECK(image.Width == width);
            CHECK(SameFloats(image.Ptr1D, expected.data(), expected.size()));
        }
    });
}

TEST_CASE(
    "every variant spreads samples that are not finite, and signs of zero, over a row as the plain walk does")
{
    InEveryVariant([](const char* variant) {
        for (const int width : {21, 60, 86, 120, 300, 1024})
            for (int kind = 0; kind < 4; ++kind) {
                CAPTURE(variant);
                CAPTURE(width);
                CAPTURE(kind);
                Plane image;
                FillRandom(image, width, 2, 13);
                for (int x = 0; x < width; ++x)
                    if (kind < 3)
                        image.Ptr1D[x] = kind == 0 ? -0.0f : kind == 1 ? 0.0f : x % 3 ? -0.0f : 0.0f;
                if (kind == 3)
                    image.Ptr1D[width / 2] = std::numeric_limits<float>::infinity();
                const std::vector<float> expected = FilteredByHand(image, 0.7f);
                ZEKFilter1DForRec(&image, 0.7f);
                CHECK(SameFloats(image.Ptr1D, expected.data(), expected.size()));
            }
    });
}

TEST_CASE("rows are filtered to the same bits by any number of threads")
{
    for (const int height : {1, 2, 7, 40}) {
        CAPTURE(height);
        Plane image;
        FillRandom(image, 300, height, 13);
        const std::vector<float> expected = FilteredByHand(image, 0.7f);
        for (const int threads : {1, 2, 3, 8}) {
            CAPTURE(threads);
            Plane filtered = image;
            ForceRowThreads(threads);
            ZEKFilter1DForRec(&filtered, 0.7f);
            ForceRowThreads(0);
            CHECK(SameFloats(filtered.Ptr1D, expected.data(), expected.size()));
        }
    }
}

TEST_CASE("rows of 683 use 2048 points and rows of 684 use 4096")
{
    CHECK(LengthFor(683) == 2048);
    CHECK(LengthFor(684) == 4096);
    CHECK(LengthFor(1) == 2);
    CHECK(LengthFor(3) == 8);
}

TEST_CASE("the result is the linear convolution with the taps")
{
    Plane image;
    FillRandom(image, 37, 1, 8);
    const std::vector<float> row(image.Ptr1D, image.Ptr1D + 37);
    ZEKFilter1DForRec(&image, 1.0f);
    double worst = 0.0;
    for (int x = 0; x < 37; ++x) {
        double sum = 0.0;
        for (int j = 0; j < 37; ++j)
            sum += static_cast<double>(row[j]) * TapByHand(x - j, 1.0f);
        worst = std::max(worst, std::fabs(sum - image.Ptr1D[x]));
    }
    CHECK(worst < 1e-4);
}

TEST_CASE("a single column is multiplied by tap 0")
{
    Plane image;
    image.Allocate(1, 2);
    image.Ptr1D[0] = 8.0f;
    image.Ptr1D[1] = -16.0f;
    ZEKFilter1DForRec(&image, 1.0f);
    CHECK(image.Ptr1D[0] == doctest::Approx(1.0));
    CHECK(image.Ptr1D[1] == doctest::Approx(-2.0));
}

TEST_CASE("a row of zeros stays zero, a constant one does not and differs at its edges")
{
    Plane image;
    image.Allocate(32, 2);
    for (int x = 0; x < 32; ++x) {
        image.Ptr2D[0][x] = 0.0f;
        image.Ptr2D[1][x] = 100.0f;
    }
    ZEKFilter1DForRec(&image, 1.0f);
    CHECK(std::all_of(image.Ptr2D[0], image.Ptr2D[0] + 32, [](float v) { return v == 0.0f; }));
    CHECK(image.Ptr2D[1][16] > 0.01f);
    CHECK(image.Ptr2D[1][0] > 2.0f * image.Ptr2D[1][16]);
}

TEST_CASE("a row that the table names twice is filtered twice, by however many threads")
{
    constexpr int Width = 300, Height = 64;
    Plane         image;
    FillRandom(image, Width, Height, 3);
    Plane twice = image;
    for (int y = Height / 2; y < Height; ++y)
        image.Ptr2D[y] = image.Ptr2D[y - Height / 2];
    ZEKFilter1DForRec(&image, 1.0f);
    ZEKFilter1DForRec(&twice, 1.0f);
    ZEKFilter1DForRec(&twice, 1.0f);
    for (int y = 0; y < Height / 2; ++y)
        CHECK(SameFloats(image.Ptr2D[y], twice.Ptr2D[y], Width));
}

TEST_CASE("a sample that is not a number spoils its row only")
{
    Plane image;
    FillRandom(image, 100, 3, 2);
    Plane clean = image;
    image.Ptr2D[1][40] = std::numeric_limits<float>::quiet_NaN();
    ZEKFilter1DForRec(&image, 1.0f);
    ZEKFilter1DForRec(&clean, 1.0f);
    CHECK(SameFloats(image.Ptr2D[0], clean.Ptr2D[0], 100));
    CHECK(SameFloats(image.Ptr2D[2], clean.Ptr2D[2], 100));
    CHECK(std::isnan(image.Ptr2D[1][0]));
}

TEST_CASE("nothing happens without an image, and a spacing of zero ends")
{
    ZEKFilter1DForRec(nullptr, 1.0f);
    Plane image;
    ZEKFilter1DForRec(&image, 1.0f);
    CHECK(image.Ptr1D == nullptr);
    image.Allocate(5, 0);
    ZEKFilter1DForRec(&image, 1.0f);
    CHECK(image.Width == 5);
    FillRandom(image, 5, 1, 1);
    ZEKFilter1DForRec(&image, 0.0f);
    CHECK_FALSE(std::isfinite(image.Ptr1D[0]));
}
