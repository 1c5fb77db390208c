#include "vostel.h"

#include <doctest/doctest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace {

// A plane of floats, with what the calls and the library's own routines take.
struct Floats {
    int                Width;
    int                Height;
    std::vector<float> Values;

    Floats(int width, int height, unsigned seed = 0) : Width(width), Height(height)
    {
        std::mt19937                          random(seed);
        std::uniform_real_distribution<float> value(-100.0f, 300.0f);
        for (int i = 0; i < width * height; ++i)
            Values.push_back(seed == 0 ? -7.0f : value(random));
    }
    VostelPlane Plane() { return {sizeof(VostelPlane), VOSTEL_F32, Width, Height, 0, Values.data()}; }
    ClassData2DIO<float> Container() const
    {
        ClassData2DIO<float> container;
        container.Allocate(Width, Height);
        std::copy(Values.begin(), Values.end(), container.Ptr1D);
        return container;
    }
};

bool Equals(const Floats& result, const ClassData2DIO<float>& expected)
{
    return result.Width == expected.Width && result.Height == expected.Height &&
           std::memcmp(result.Values.data(), expected.Ptr1D, result.Values.size() * sizeof(float)) == 0;
}

}

TEST_CASE("each routine gives the pixels of the library's own")
{
    Floats      image(37, 23, 1);
    Floats      result(37, 23);
    VostelPlane from = image.Plane(), to = result.Plane();
    auto        expected = image.Container();
    SUBCASE("correlate")
    {
        Floats            kernel(5, 3, 2);
        const VostelPlane taps = kernel.Plane();
        REQUIRE(vostel_correlate(&from, &taps, &to) == VOSTEL_OK);
        auto own = kernel.Container();
        gConv2(&expected, &own);
    }
    SUBCASE("gaussian")
    {
        REQUIRE(vostel_gaussian(&from, 7, 1.3, &to) == VOSTEL_OK);
        gGauss(&expected, 7, 1.3f, 0.0f);
    }
    SUBCASE("resize")
    {
        result = Floats(50, 11);
        to = result.Plane();
        REQUIRE(vostel_resize(&from, &to) == VOSTEL_OK);
        Resize(expected, 50, 11);
    }
    SUBCASE("stitch")
    {
        Floats            right(20, 23, 3);
        const VostelPlane other = right.Plane();
        result = Floats(37 + 20 - 6, 23);
        to = result.Plane();
        REQUIRE(vostel_stitch(&from, &other, 6, &to) == VOSTEL_OK);
        auto own = right.Container();
        gImaConcate(&expected, &own, 6, 0, true);
    }
    SUBCASE("stitch without an overlap")
    {
        Floats            right(20, 23, 3);
        const VostelPlane other = right.Plane();
        result = Floats(57, 23);
        to = result.Plane();
        REQUIRE(vostel_stitch(&from, &other, 0, &to) == VOSTEL_OK);
        auto own = right.Container();
        gImaConcate(&expected, &own, 0, 0, true);
    }
    SUBCASE("ramp filter")
    {
        REQUIRE(vostel_ramp_filter(&from, 2 * 37 - 1, 0.7, &to) == VOSTEL_OK);
        ZEKFilter1DForRec(&expected, 0.7f);
    }
    SUBCASE("in place")
    {
        REQUIRE(vostel_gaussian(&from, 3, 1.0, &from) == VOSTEL_OK);
        gGauss(&expected, 3, 1.0f, 0.0f);
        result = image;
    }
    CHECK(Equals(result, expected));
}

TEST_CASE("a ramp of fewer taps is the convolution with them")
{
    Floats            rows(31, 2, 4);
    Floats            result(31, 2);
    const VostelPlane from = rows.Plane();
    for (const int taps : {1, 2, 9, 30, 60}) {
        VostelPlane to = result.Plane();
        REQUIRE(vostel_ramp_filter(&from, taps, 0.5, &to) == VOSTEL_OK);
        ClassData2DIO<float> kernel;
        kernel.Allocate(taps, 1);
        KernelGenerate(kernel, 0.5f);
        CAPTURE(taps);
        for (int y = 0; y < 2; ++y) {
            for (int x = 0; x < 31; ++x) {
                double sum = 0.0;
                for (int j = 0; j < 31; ++j) {
                    const int tap = x - j + taps / 2;
                    if (tap >= 0 && tap < taps)
                        sum += static_cast<double>(rows.Values[static_cast<std::size_t>(31 * y + j)]) *
                               static_cast<double>(kernel.Ptr1D[tap]);
                }
                CHECK(std::fabs(static_cast<double>(result.Values[static_cast<std::size_t>(31 * y + x)]) -
                                sum) < 1e-3);
            }
        }
    }
}

TEST_CASE("the threshold follows the share of the mean around each pixel")
{
    constexpr int             Width = 19, Height = 13;
    std::mt19937              random(9);
    std::vector<std::uint8_t> image(Width * Height), result(Width * Height);
    for (std::uint8_t& pixel : image)
        pixel = static_cast<std::uint8_t>(random());
    VostelPlane from = {sizeof from, VOSTEL_U8, Width, Height, 0, image.data()};
    VostelPlane to = {sizeof to, VOSTEL_U8, Width, Height, 0, result.data()};
    const auto  reflect = [](int c, int extent) {
        while (c < 0 || c >= extent)
            c = c < 0 ? -1 - c : 2 * extent - 1 - c;
        return c;
    };
    for (const double share : {0.85, 1.0, 0.3, -1.0}) {
        for (const int size : {1, 3, 4, 25}) {
            REQUIRE(vostel_adaptive_threshold(&from, size, share, &to) == VOSTEL_OK);
            const int r = size / 2;
            for (int y = 0; y < Height; ++y) {
                for (int x = 0; x < Width; ++x) {
                    int sum = 0;
                    for (int j = -r; j <= r; ++j) {
                        for (int i = -r; i <= r; ++i)
                            sum += image[static_cast<std::size_t>(reflect(y + j, Height) * Width +
                                                                  reflect(x + i, Width))];
                    }
                    const int at = y * Width + x;
                    REQUIRE(result[static_cast<std::size_t>(at)] ==
                            (double(image[static_cast<std::size_t>(at)] * (2 * r + 1) * (2 * r + 1)) >
                                     double(sum) * share
                                 ? 255
                                 : 0));
                }
            }
        }
    }
    ClassData2DIO<unsigned char> own;
    own.Allocate(Width, Height);
    std::memcpy(own.Ptr1D, image.data(), image.size());
    LAT_Constant(own, 7);
    REQUIRE(vostel_adaptive_threshold(&from, 7, 0.85, &to) == VOSTEL_OK);
    CHECK(std::memcmp(own.Ptr1D, result.data(), result.size()) == 0);
}

TEST_CASE("what comes back is truncated and held within the type of the result")
{
    const float        nan = std::numeric_limits<float>::quiet_NaN();
    std::vector<float> values = {-3.0f, -0.5f, 0.99f, 254.7f, 255.9f, 300.0f, 65535.5f, 1e30f, nan, 7.0f};
    const float        one = 1.0f;
    VostelPlane        from = {sizeof from, VOSTEL_F32, 10, 1, 0, values.data()};
    float              kernel = one;
    const VostelPlane  taps = {sizeof taps, VOSTEL_F32, 1, 1, 0, &kernel};
    std::uint8_t       bytes[10];
    std::uint16_t      words[10];
    VostelPlane        toBytes = {sizeof toBytes, VOSTEL_U8, 10, 1, 0, bytes};
    VostelPlane        toWords = {sizeof toWords, VOSTEL_U16, 10, 1, 0, words};
    REQUIRE(vostel_correlate(&from, &taps, &toBytes) == VOSTEL_OK);
    REQUIRE(vostel_correlate(&from, &taps, &toWords) == VOSTEL_OK);
    const std::uint8_t  expectedBytes[] = {0, 0, 0, 254, 255, 255, 255, 255, 0, 7};
    const std::uint16_t expectedWords[] = {0, 0, 0, 254, 255, 300, 65535, 65535, 0, 7};
    CHECK(std::memcmp(bytes, expectedBytes, sizeof bytes) == 0);
    CHECK(std::memcmp(words, expectedWords, sizeof words) == 0);
}

TEST_CASE("planes may lie unaligned and upside down")
{
    Floats                    image(6, 4, 5);
    std::vector<std::uint8_t> memory(4 * 29 + 2, 0xEE);
    for (int y = 0; y < 4; ++y)
        std::memcpy(memory.data() + 1 + (3 - y) * 29, image.Values.data() + 6 * y, 24);
    Floats            plain(6, 4), turned(6, 4);
    VostelPlane       to = plain.Plane(), toTurned = turned.Plane();
    const VostelPlane from = image.Plane();
    const VostelPlane fromMemory = {sizeof fromMemory, VOSTEL_F32, 6, 4, -29, memory.data() + 1 + 3 * 29};
    REQUIRE(vostel_gaussian(&from, 3, 1.0, &to) == VOSTEL_OK);
    REQUIRE(vostel_gaussian(&fromMemory, 3, 1.0, &toTurned) == VOSTEL_OK);
    CHECK(plain.Values == turned.Values);
    VostelPlane toMemory = fromMemory;
    REQUIRE(vostel_gaussian(&from, 3, 1.0, &toMemory) == VOSTEL_OK);
    for (int y = 0; y < 4; ++y)
        CHECK(std::memcmp(memory.data() + 1 + (3 - y) * 29, plain.Values.data() + 6 * y, 24) == 0);
    CHECK(memory.front() == 0xEE);
    CHECK(memory[1 + 24] == 0xEE);
}

TEST_CASE("a transform forwards is the sum of its formula, and backwards the samples again")
{
    constexpr std::size_t                  Length = 16;
    std::mt19937                           random(3);
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    std::vector<double>                    re(Length), im(Length);
    for (std::size_t i = 0; i < Length; ++i) {
        re[i] = value(random);
        im[i] = value(random);
    }
    auto real = re, imaginary = im;
    REQUIRE(vostel_fft(real.data(), imaginary.data(), Length, 0) == VOSTEL_OK);
    for (std::size_t k = 0; k < Length; ++k) {
        double sumRe = 0.0, sumIm = 0.0;
        for (std::size_t j = 0; j < Length; ++j) {
            const double angle = -2.0 * 3.14159265358979 * static_cast<double>(j * k) / Length;
            sumRe += re[j] * std::cos(angle) - im[j] * std::sin(angle);
            sumIm += re[j] * std::sin(angle) + im[j] * std::cos(angle);
        }
        CHECK(std::fabs(real[k] - sumRe) < 1e-5);
        CHECK(std::fabs(imaginary[k] - sumIm) < 1e-5);
    }
    REQUIRE(vostel_fft(real.data(), imaginary.data(), Length, 1) == VOSTEL_OK);
    for (std::size_t i = 0; i < Length; ++i) {
        CHECK(std::fabs(real[i] - re[i]) < 1e-6);
        CHECK(std::fabs(imaginary[i] - im[i]) < 1e-6);
    }
    double alone[2] = {3.0, -2.0};
    REQUIRE(vostel_fft(alone, alone + 1, 1, 1) == VOSTEL_OK);
    CHECK(alone[0] == 3.0);
    for (const std::size_t length : {std::size_t(0), std::size_t(3), std::size_t(12)})
        CHECK(vostel_fft(real.data(), imaginary.data(), length, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_fft(real.data(), imaginary.data(), std::size_t(1) << 40, 0) == VOSTEL_TOO_LARGE);
    CHECK(vostel_fft(nullptr, imaginary.data(), 2, 0) == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("sizes and numbers that a routine cannot take are refused and the result stays")
{
    Floats            image(10, 8, 6), other(10, 8, 7), result(10, 8);
    const auto        before = result.Values;
    const VostelPlane from = image.Plane(), right = other.Plane();
    VostelPlane       to = result.Plane();
    const double      nan = std::numeric_limits<double>::quiet_NaN();
    for (const double sigma : {0.0, -1.0, nan, 1e300, 1e-300})
        CHECK(vostel_gaussian(&from, 3, sigma, &to) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_gaussian(&from, 0, 1.0, &to) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_gaussian(&from, INT32_MAX, 1.0, &to) == VOSTEL_TOO_LARGE);
    CHECK(vostel_adaptive_threshold(&from, 0, 0.85, &to) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_adaptive_threshold(&from, 3, nan, &to) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_ramp_filter(&from, 0, 1.0, &to) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_ramp_filter(&from, 3, 0.0, &to) == VOSTEL_INVALID_ARGUMENT);
    for (const int overlap : {-1, 1, 11, 5})    // 5 would want a result of 15 columns
        CHECK(vostel_stitch(&from, &right, overlap, &to) == VOSTEL_INVALID_ARGUMENT);
    VostelPlane narrow = to;
    narrow.width = 9;
    CHECK(vostel_gaussian(&from, 3, 1.0, &narrow) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_correlate(&from, &right, &narrow) == VOSTEL_INVALID_ARGUMENT);
    for (const VostelPixel type :
         {VostelPixel(VOSTEL_I16), VostelPixel(VOSTEL_RGB8), VostelPixel(0), VostelPixel(99)}) {
        VostelPlane strange = from;
        strange.type = type;
        CHECK(vostel_resize(&strange, &to) == VOSTEL_INVALID_ARGUMENT);
    }
    CHECK(result.Values == before);
}
