#include "commands/Routines.h"
#include "support/ResizeOwned.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <utility>

using namespace vostel::viewer;

namespace {

constexpr unsigned Seed = 20260514;

ImagePointer RandomImage(int width, int height, unsigned seed = Seed)
{
    auto         image = std::make_shared<Image>();
    std::mt19937 random(seed);
    image->Allocate(width, height);
    for (int i = 0; i < width * height; ++i)
        image->Ptr1D[i] = static_cast<float>(random() % 4000) * 0.25f - 100.0f;
    return image;
}

std::vector<ImagePointer> InputsOf(const Routine& routine, int width = 64, int height = 48)
{
    std::vector<ImagePointer> inputs;
    for (int i = 0; i < InputCount(routine); ++i)
        inputs.push_back(RandomImage(width, height, Seed + static_cast<unsigned>(i)));
    if (routine.Id == Command::MatrixProduct)    // its second image is as high as the first is wide
        inputs[1] = RandomImage(40, width, Seed + 1);
    return inputs;
}

RoutineResult RunOn(Command id, std::vector<ImagePointer> inputs, std::vector<double> values)
{
    const Routine* const routine = FindRoutine(id);
    REQUIRE(routine);
    return RunRoutine(*routine, inputs, values, {});
}

bool SameBits(const Image& a, const Image& b)
{
    return a.Width == b.Width && a.Height == b.Height &&
           std::memcmp(a.Ptr1D, b.Ptr1D,
                       sizeof(float) * static_cast<std::size_t>(a.Width) *
                           static_cast<std::size_t>(a.Height)) == 0;
}

Image BoxKernel(int size)
{
    Image kernel;
    kernel.Allocate(size, size);
    std::fill_n(kernel.Ptr1D, size * size, 1.0f / static_cast<float>(size * size));
    return kernel;
}

// A kernel as the routine applies it: what it makes of one bright pixel, turned back.
Image KernelSeen(int kind, int size)
{
    auto point = std::make_shared<Image>();
    point->Allocate(2 * size + 1, 2 * size + 1);
    std::fill_n(point->Ptr1D, point->Width * point->Height, 0.0f);
    point->Ptr2D[size][size] = 1.0f;
    const RoutineResult run =
        RunOn(Command::Convolve, {point}, {static_cast<double>(kind), static_cast<double>(size), 1.0});
    REQUIRE(run.Result);
    Image kernel;
    kernel.Allocate(size, size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            kernel.Ptr2D[y][x] = run.Result->Ptr2D[size + size / 2 - y][size + size / 2 - x];
    return kernel;
}

}

TEST_CASE("every routine runs with its default values on a 64 x 48 image and reports its progress to the end")
{
    for (const Routine& routine : AllRoutines()) {
        CAPTURE(std::string(routine.Title));
        const std::vector<ImagePointer> inputs = InputsOf(routine);
        const std::vector<double>       values = DefaultValues(routine, 64, 48);
        CHECK(CheckValues(routine, values) == nullptr);
        std::vector<std::pair<int, int>> steps;
        const RoutineResult              run = RunRoutine(routine, inputs, values, [&](int done, int total) {
            steps.emplace_back(done, total);
            return true;
        });
        CHECK(run.Problem == nullptr);
        CHECK_FALSE(run.Cancelled);
        REQUIRE(run.Result);
        CHECK(run.Result->Width > 0);
        CHECK(run.Result->Height > 0);
        REQUIRE(steps.size() >= 2);
        for (std::size_t i = 0; i < steps.size(); ++i) {
            CHECK(steps[i].first == static_cast<int>(i));
            CHECK(steps[i].second == static_cast<int>(steps.size()) - 1);
        }
    }
}

TEST_CASE("a routine leaves its inputs as they are")
{
    for (const Routine& routine : AllRoutines()) {
        CAPTURE(std::string(routine.Title));
        const std::vector<ImagePointer> inputs = InputsOf(routine), before = InputsOf(routine);
        REQUIRE(RunRoutine(routine, inputs, DefaultValues(routine, 64, 48), {}).Result);
        for (std::size_t i = 0; i < inputs.size(); ++i)
            CHECK(SameBits(*inputs[i], *before[i]));
    }
}

TEST_CASE("a routine that is cancelled at any step gives no image")
{
    for (const Routine& routine : AllRoutines()) {
        CAPTURE(std::string(routine.Title));
        int total = 0;
        RunRoutine(routine, InputsOf(routine), DefaultValues(routine, 64, 48), [&](int, int steps) {
            total = steps;
            return true;
        });
        for (int stop = 0; stop <= total; ++stop) {
            int                 calls = 0;
            const RoutineResult run =
                RunRoutine(routine, InputsOf(routine), DefaultValues(routine, 64, 48), [&](int done, int) {
                    ++calls;
                    return done < stop;
                });
            CHECK(run.Cancelled);
            CHECK_FALSE(run.Result);
            CHECK(run.Problem == nullptr);
            CHECK(calls == stop + 1);
        }
    }
}

TEST_CASE("missing images and wrong values are reported by a sentence that ends in a full stop")
{
    const auto isSentence = [](const char* text) {
        return text && std::strlen(text) > 10 && text[std::strlen(text) - 1] == '.';
    };
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    for (const Routine& routine : AllRoutines()) {
        CAPTURE(std::string(routine.Title));
        const std::vector<double> good = DefaultValues(routine, 64, 48);
        if (InputCount(routine) > 0) {
            CHECK(isSentence(RunRoutine(routine, {}, good, {}).Problem));
            std::vector<ImagePointer> missing(static_cast<std::size_t>(InputCount(routine)));
            CHECK(isSentence(RunRoutine(routine, missing, good, {}).Problem));
            for (ImagePointer& empty : missing)
                empty = std::make_shared<Image>();
            CHECK(isSentence(RunRoutine(routine, missing, good, {}).Problem));
        }
        std::vector<double> tooMany = good;
        tooMany.push_back(1.0);
        CHECK(isSentence(RunRoutine(routine, InputsOf(routine), tooMany, {}).Problem));
        for (std::size_t i = 0; i < good.size(); ++i) {
            const RoutineParameter& parameter = routine.Parameters[i];
            std::vector<double> bad = {parameter.Low - 1.0, parameter.High + 1.0, 1e300, -1e300, NotANumber};
            if (parameter.Kind != ParameterKind::Real)
                bad.push_back(parameter.Low + 0.5);
            for (double value : bad) {
                std::vector<double> values = good;
                values[i] = value;
                std::size_t wrong = 99;
                CHECK(isSentence(CheckValues(routine, values, &wrong)));
                CHECK(wrong == i);
                const RoutineResult run = RunRoutine(routine, InputsOf(routine), values, {});
                CHECK(isSentence(run.Problem));
                CHECK_FALSE(run.Result);
            }
        }
    }
}

TEST_CASE("every value at its least and at its most, one at a time, gives an image or a sentence")
{
    for (const Routine& routine : AllRoutines()) {
        const std::vector<double> good = DefaultValues(routine, 5, 3);
        for (std::size_t i = 0; i < good.size(); ++i) {
            const RoutineParameter& parameter = routine.Parameters[i];
            for (double value : {parameter.Low, parameter.High}) {
                if (parameter.Kind == ParameterKind::Choice || value < 5000.0) {
                    CAPTURE(std::string(routine.Title));
                    CAPTURE(std::string(parameter.Name));
                    CAPTURE(value);
                    std::vector<double> values = good;
                    values[i] = value;
                    const RoutineResult run = RunRoutine(routine, InputsOf(routine, 5, 3), values, {});
                    CHECK((run.Result != nullptr) != (run.Problem != nullptr));
                }
            }
        }
    }
}

TEST_CASE("convolution with a box is gConv2 with that kernel, as often as there are passes")
{
    const ImagePointer image = RandomImage(64, 48);
    Image              expected = *image, kernel = BoxKernel(5);
    const auto         once = RunOn(Command::Convolve, {image}, {0, 5, 1});
    gConv2(&expected, &kernel);
    REQUIRE(once.Result);
    CHECK(SameBits(*once.Result, expected));
    const auto thrice = RunOn(Command::Convolve, {image}, {0, 5, 3});
    gConv2(&expected, &kernel);
    gConv2(&expected, &kernel);
    REQUIRE(thrice.Result);
    CHECK(SameBits(*thrice.Result, expected));
}

TEST_CASE("the kernels of size 3 are the well-known ones")
{
    const auto is = [](const Image& kernel, std::initializer_list<float> taps) {
        return std::equal(taps.begin(), taps.end(), kernel.Ptr1D);
    };
    CHECK(is(KernelSeen(2, 3), {-1, 0, 1, -2, 0, 2, -1, 0, 1}));
    CHECK(is(KernelSeen(3, 3), {-1, -2, -1, 0, 0, 0, 1, 2, 1}));
    CHECK(is(KernelSeen(4, 3), {-1, -1, -1, -1, 8, -1, -1, -1, -1}));
    const float ninth = 1.0f / 9.0f;
    CHECK(
        is(KernelSeen(1, 3), {-ninth, -ninth, -ninth, -ninth, 2.0f - ninth, -ninth, -ninth, -ninth, -ninth}));
}

TEST_CASE("kernels of every odd size are finite, and all but box and sharpen add up to nothing")
{
    for (int size = 3; size <= 63; size += 6)
        for (int kind = 0; kind < 5; ++kind) {
            CAPTURE(size);
            CAPTURE(kind);
            const Image kernel = KernelSeen(kind, size);
            double      sum = 0.0;
            for (int i = 0; i < size * size; ++i) {
                CHECK(std::isfinite(kernel.Ptr1D[i]));
                sum += static_cast<double>(kernel.Ptr1D[i]);
            }
            CHECK(std::abs(sum - (kind < 2 ? 1.0 : 0.0)) < 1e-4);
        }
}

TEST_CASE("the forms of the convolution are the library's")
{
    constexpr void (*forms[])(Image*, Image*) = {ConFltMC, ConvFltVer0, ConvFltVer1, ConvFltVer2};
    for (int form = 0; form < 4; ++form) {
        CAPTURE(form);
        const ImagePointer image = RandomImage(64, 48);
        Image              expected = *image, kernel = BoxKernel(7);
        forms[form](&expected, &kernel);
        const auto run = RunOn(Command::ConvolveByForm, {image}, {static_cast<double>(form), 0, 7});
        REQUIRE(run.Result);
        CHECK(SameBits(*run.Result, expected));
    }
}

TEST_CASE("an even kernel and one larger than the image are refused, one as large as the image is not")
{
    const ImagePointer image = RandomImage(9, 7);
    CHECK(std::string(RunOn(Command::Convolve, {image}, {0, 4, 1}).Problem) ==
          "The size of a kernel is an odd number.");
    CHECK(std::string(RunOn(Command::Convolve, {image}, {0, 9, 1}).Problem) ==
          "The kernel is larger than the image.");
    CHECK(RunOn(Command::Convolve, {image}, {0, 7, 1}).Result);
    CHECK(std::string(RunOn(Command::Gauss, {image}, {9, 1.0, 1}).Problem) ==
          "The kernel is larger than the image.");
    CHECK(RunOn(Command::Gauss, {image}, {7, 1.0, 1}).Result);
}

TEST_CASE(
    "smoothing is gGauss, the ramp filter ZEKFilter1DForRec over all rows, also beyond one step of rows")
{
    const ImagePointer image = RandomImage(50, 150);
    Image              smooth = *image, filtered = *image;
    gGauss(&smooth, 9, 1.5f, 0.0f);
    const auto gauss = RunOn(Command::Gauss, {image}, {9, 1.5, 1});
    REQUIRE(gauss.Result);
    CHECK(SameBits(*gauss.Result, smooth));
    ZEKFilter1DForRec(&filtered, 0.5f);
    const auto ramp = RunOn(Command::RampFilter, {image}, {0.5});
    REQUIRE(ramp.Result);
    CHECK(SameBits(*ramp.Result, filtered));
}

TEST_CASE("resizing is the library's in each of its four forms")
{
    const ImagePointer image = RandomImage(64, 48);
    Image              target;
    target.Allocate(30, 90);
    ResizeSC(image.get(), &target);
    for (double form : {0.0, 1.0, 2.0}) {
        const auto run = RunOn(Command::Resize, {image}, {30, 90, form});
        REQUIRE(run.Result);
        CHECK(SameBits(*run.Result, target));
    }
    ClassData2DIO<unsigned short> whole;
    whole.ConvertFrom(*image, 0.0f);
    ResizeOwned(whole, 30, 90);
    const auto run = RunOn(Command::Resize, {image}, {30, 90, 3});
    REQUIRE(run.Result);
    bool same = true;
    for (int i = 0; i < 30 * 90; ++i)
        same = same && run.Result->Ptr1D[i] == static_cast<float>(whole.Ptr1D[i]);
    CHECK(same);
    CHECK(std::string(RunOn(Command::Resize, {image}, {32768, 32768, 0}).Problem) ==
          "The image would have more than 134 million pixels.");
}

TEST_CASE("the threshold takes bytes as they are and stretches other values over the bytes")
{
    const ImagePointer bytes = RandomImage(64, 48);
    for (int i = 0; i < 64 * 48; ++i)
        bytes->Ptr1D[i] = static_cast<float>((i * 37) % 256);
    ClassData2DIO<unsigned char> gray;
    gray.Allocate(64, 48);
    for (int i = 0; i < 64 * 48; ++i)
        gray.Ptr1D[i] = static_cast<unsigned char>((i * 37) % 256);
    LAT_Constant(gray, 9);
    const ImagePointer doubled = std::make_shared<Image>(*bytes);
    for (int i = 0; i < 64 * 48; ++i)
        doubled->Ptr1D[i] = doubled->Ptr1D[i] * 4.0f + 1000.0f;
    for (const ImagePointer& input : {bytes, doubled}) {
        const auto run = RunOn(Command::Threshold, {input}, {9});
        REQUIRE(run.Result);
        bool same = true;
        for (int i = 0; i < 64 * 48; ++i)
            same = same && run.Result->Ptr1D[i] == static_cast<float>(gray.Ptr1D[i]);
        CHECK(same);
    }
}

TEST_CASE("the spectrum of the rows is that of ZEKPP1DFFT, with its zero first or in the middle")
{
    const ImagePointer image = RandomImage(50, 70);
    ZEKPP1DFFT         fft;
    fft.Init(64, true);
    const auto first = RunOn(Command::FourierTransform, {image}, {1, 2, 0});
    const auto middle = RunOn(Command::FourierTransform, {image}, {1, 2, 1});
    REQUIRE(first.Result);
    REQUIRE(middle.Result);
    REQUIRE(first.Result->Width == 64);
    REQUIRE(first.Result->Height == 70);
    bool same = true, shifted = true;
    for (int y = 0; y < 70; ++y) {
        fft.SetReImZero();
        fft.UpLoadRe(image->Ptr2D[y], 50);
        fft.RunFFT(true);
        for (int x = 0; x < 64; ++x) {
            same = same && first.Result->Ptr2D[y][x] == fft.Re[x];
            shifted = shifted && middle.Result->Ptr2D[y][(x + 32) % 64] == fft.Re[x];
        }
    }
    CHECK(same);
    CHECK(shifted);
}

TEST_CASE("the spectrum of a flat image is one peak, in the middle of rows and columns")
{
    auto flat = std::make_shared<Image>();
    flat->Allocate(32, 16);
    std::fill_n(flat->Ptr1D, 32 * 16, 2.0f);
    const auto run = RunOn(Command::FourierTransform, {flat}, {0, 1, 1});
    REQUIRE(run.Result);
    CHECK(run.Result->Ptr2D[8][16] == 1024.0f);
    run.Result->Ptr2D[8][16] = 0.0f;
    float low = 0.0f, high = 0.0f;
    run.Result->GetMinMax(low, high);
    CHECK(high < 0.01f);
}

TEST_CASE("columns are transformed as the rows of the turned image are")
{
    const ImagePointer image = RandomImage(20, 32), turned = RandomImage(32, 20);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 20; ++x)
            turned->Ptr2D[x][y] = image->Ptr2D[y][x];
    const auto columns = RunOn(Command::FourierTransform, {image}, {2, 0, 0});
    const auto rows = RunOn(Command::FourierTransform, {turned}, {1, 0, 0});
    REQUIRE(columns.Result);
    REQUIRE(rows.Result);
    REQUIRE(columns.Result->Width == 20);
    REQUIRE(columns.Result->Height == 32);
    bool same = true;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 20; ++x)
            same = same && columns.Result->Ptr2D[y][x] == rows.Result->Ptr2D[x][y];
    CHECK(same);
}

TEST_CASE("joining is gImaConcate, and what it would refuse with a message is a sentence")
{
    const ImagePointer a = RandomImage(40, 30), b = RandomImage(50, 30, Seed + 1);
    Image              expected = *a;
    gImaConcate(&expected, b.get(), 20, 3, true);
    const auto run = RunOn(Command::Concatenate, {a, b}, {20, 3, 1});
    REQUIRE(run.Result);
    CHECK(SameBits(*run.Result, expected));
    CHECK(run.Result->Width == 70);
    CHECK(std::string(RunOn(Command::Concatenate, {a, b}, {7, 3, 0}).Problem) ==
          "The overlap must be wider than twice the trim plus one.");
    CHECK(RunOn(Command::Concatenate, {a, b}, {8, 3, 0}).Result);
    CHECK(std::string(RunOn(Command::Concatenate, {a, b}, {41, 3, 0}).Problem) ==
          "The overlap is wider than one of the images.");
    CHECK(std::string(RunOn(Command::Concatenate, {a, RandomImage(50, 29)}, {0, 0, 0}).Problem) ==
          "The second image is lower than the first.");
}

TEST_CASE("the matrix product is MatrixMul, and refuses sizes that do not fit")
{
    const ImagePointer a = RandomImage(40, 100), b = RandomImage(30, 40, Seed + 1);
    Image              expected;
    MatrixMul(*a, *b, expected);
    const auto run = RunOn(Command::MatrixProduct, {a, b}, {});
    REQUIRE(run.Result);
    CHECK(SameBits(*run.Result, expected));
    CHECK(RunOn(Command::MatrixProduct, {a, RandomImage(30, 41)}, {}).Problem != nullptr);
}

TEST_CASE("made images hold the library's values")
{
    const auto curve = RunOn(Command::GaussCurve, {}, {5, 2.0, 3});
    REQUIRE(curve.Result);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            CHECK(curve.Result->Ptr2D[y][x] == OneDGaussian(static_cast<float>(x - 2), 2.0f));

    Image kernel;
    TwoDGaussian_LSE(&kernel, 9, 3.0f, 7, 2.0f, 0.0f);
    const auto gauss = RunOn(Command::GaussKernel, {}, {9, 7, 3.0, 2.0, 0.0});
    REQUIRE(gauss.Result);
    CHECK(SameBits(*gauss.Result, kernel));

    Image taps;
    taps.Allocate(9, 2);
    KernelGenerate(taps, 0.5f);
    const auto ramp = RunOn(Command::RampKernel, {}, {9, 0.5, 0, 2});
    REQUIRE(ramp.Result);
    for (int x = 0; x < 9; ++x) {
        CHECK(ramp.Result->Ptr2D[0][x] == taps.Ptr1D[x]);
        CHECK(ramp.Result->Ptr2D[1][x] == taps.Ptr1D[x]);
    }
    const auto spectrum = RunOn(Command::RampKernel, {}, {9, 0.5, 1, 2});
    REQUIRE(spectrum.Result);
    ZEKPP1DFFT fft;
    GetKernerlFFT(fft, 16, 9, 0.5f);
    REQUIRE(spectrum.Result->Width == 16);
    CHECK(spectrum.Result->Ptr2D[1][3] == std::sqrt(fft.Re[3] * fft.Re[3] + fft.Im[3] * fft.Im[3]));
}

TEST_CASE("each filled shape covers the middle, spares the corners and has one value")
{
    for (double shape : {0.0, 1.0, 2.0}) {
        CAPTURE(shape);
        const auto run = RunOn(Command::FilledShape, {}, {shape, 101, 81, 10, 8, 77});
        REQUIRE(run.Result);
        CHECK(run.Result->Ptr2D[40][50] == 77.0f);
        CHECK(run.Result->Ptr2D[20][50] == 77.0f);
        CHECK(run.Result->Ptr2D[60][50] == 77.0f);
        CHECK(run.Result->Ptr2D[5][5] == 0.0f);
        CHECK(run.Result->Ptr2D[75][95] == 0.0f);
        bool two = true;
        int  covered = 0;
        for (int i = 0; i < 101 * 81; ++i) {
            two = two && (run.Result->Ptr1D[i] == 0.0f || run.Result->Ptr1D[i] == 77.0f);
            covered += run.Result->Ptr1D[i] != 0.0f;
        }
        CHECK(two);
        CHECK(covered > 3000);
        CHECK(covered < 5000);
    }
    CHECK(std::string(RunOn(Command::FilledShape, {}, {0, 101, 81, 41, 8, 77}).Problem) ==
          "The margin leaves no room for the shape.");
}
