// Fourier transforms and the ramp filter of reconstructions: there and back gives what was there.

#include "fuzz/Fuzzing.h"
#include "fuzz/RoutineRuns.h"

#include <cmath>
#include <limits>

using namespace vostel;

namespace {

Left<float> DataOf(const ZEKPP1DFFT& fft)
{
    Left<float> left = {fft.Length, 2, {}};
    if (fft.Re && fft.Length > 0) {
        left.Values.assign(fft.Re, fft.Re + fft.Length);
        left.Values.insert(left.Values.end(), fft.Im, fft.Im + fft.Length);
    }
    return left;
}

void CheckTransform(InputBytes& input)
{
    static const int lengths[] = {-1, 0, 1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 3, 12, 100, 1024};
    const int        length = input.Of(lengths);
    const bool       backToo = input.Coin();
    FloatPlane       data = FloatsOf(input, std::max(length, 0), 2);
    const auto       run = [&] {
        ZEKPP1DFFT fft;
        fft.Init(length, true);
        fft.UpLoadRe(data.Ptr1D, length);
        fft.UpLoadIm(data.Ptr1D + std::max(length, 0), length);
        fft.RunFFT();
        if (backToo)
            fft.RunFFT(false);
        return DataOf(fft);
    };
    const auto result = CheckRuns(run);
    if (!result || !backToo)
        return;
    float largest = 0.0f;
    for (int i = 0; i < 2 * std::max(length, 0); ++i)
        largest = std::max(largest, std::abs(data.Ptr1D[i]));
    if (!(largest < 1e6f) || std::isnan(data.Ptr1D && length > 0 ? data.Ptr1D[0] : 0.0f))
        return;
    // Denormal numbers keep no relative precision.
    const float allowed = std::max(1e-4f * largest, std::numeric_limits<float>::min());
    for (std::size_t i = 0; i < result->Values.size(); ++i) {
        if (std::isfinite(data.Ptr1D[i]))
            CHECK(!(std::abs(result->Values[i] - data.Ptr1D[i]) > allowed));
    }
}

void CheckRamp(InputBytes& input)
{
    const int        width = SizeOf(input), height = SizeOf(input);
    const float      spacing = input.Take<float>();
    const FloatPlane rows = FloatsOf(input, width, height);
    CheckRuns([&] {
        FloatPlane filtered = rows;
        ZEKFilter1DForRec(&filtered, spacing);
        return LeftOf(filtered);
    });
    CheckRuns([&] {
        FloatPlane kernel = rows;
        KernelGenerate(kernel, spacing);
        return LeftOf(kernel);
    });
    CheckRuns([&] {
        ZEKPP1DFFT fft;
        GetKernerlFFT(fft, ComputeFFTN(std::min(std::max(width, 0), 64)), height % 100, spacing);
        return DataOf(fft);
    });
}

}

void FuzzOne(std::string_view bytes)
{
    InputBytes input(bytes);
    if (input.Coin())
        CheckTransform(input);
    else
        CheckRamp(input);
}
