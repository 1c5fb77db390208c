#include "base/Truncate.h"
#include "foundation/Limits.h"
#include "imaging/ThresholdByShare.h"
#include "open/OpenCall.h"
#include "open/OpenPlanes.h"
#include "vostel/Convolution.h"
#include "vostel/FourierTransform.h"
#include "vostel/ImageConcatenation.h"
#include "vostel/ReconstructionFilter.h"
#include "vostel/Resize.h"

#include <algorithm>
#include <bit>
#include <cmath>

using namespace vostel;
using namespace vostel::open;

namespace {

using FloatPlane = ClassData2DIO<float>;

// Calls action with a sample of the type of the rows.
template <typename Action>
void WithSample(const CallerPlane& rows, Action action)
{
    if (rows.Type == SampleType::U8)
        action(std::uint8_t());
    else if (rows.Type == SampleType::U16)
        action(std::uint16_t());
    else
        action(float());
}

// The samples converted to those of another plane.
template <typename Target>
void Read(const CallerPlane& rows, ClassData2DIO<Target>& plane)
{
    plane.Allocate(rows.Width, rows.Height);
    WithSample(rows, [&](auto zero) {
        std::vector<decltype(zero)> line(static_cast<std::size_t>(rows.Width));
        for (int y = 0; y < rows.Height; ++y) {
            std::memcpy(line.data(), rows.Row(y), line.size() * sizeof zero);
            std::transform(line.begin(), line.end(), plane.Ptr2D[y],
                           [](auto sample) { return TruncWithin<Target>(static_cast<float>(sample)); });
        }
    });
}

template <typename Source>
void Write(const ClassData2DIO<Source>& plane, const CallerPlane& rows)
{
    WithSample(rows, [&](auto zero) {
        std::vector<decltype(zero)> line(static_cast<std::size_t>(rows.Width));
        for (int y = 0; y < rows.Height; ++y) {
            std::transform(plane.Ptr2D[y], plane.Ptr2D[y] + rows.Width, line.begin(),
                           [](Source v) { return TruncWithin<decltype(zero)>(static_cast<float>(v)); });
            std::memcpy(rows.Row(y), line.data(), line.size() * sizeof zero);
        }
    });
}

void NeedSize(const CallerPlane& result, std::int64_t width, std::int64_t height)
{
    if (result.Width != width || result.Height != height)
        Fail(VOSTEL_INVALID_ARGUMENT,
             "result is not of " + std::to_string(width) + " x " + std::to_string(height));
}

// As a float that is as far from 0 and from infinity as the routines can bear.
float PositiveFloat(double value, const char* name)
{
    NeedPositive(value, name);
    if (value < 1e-9 || value > 1e9)
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + " is not 1e-9 to 1e9");
    return static_cast<float>(value);
}

// A routine that works in place and keeps the size.
template <typename Routine>
VostelStatus RunInPlace(const VostelPlane* image, const char* name, const VostelPlane* result,
                        Routine routine)
{
    return Run([&] {
        const CallerPlane from = RoutinePlane(image, name);
        const CallerPlane to = RoutinePlane(result, "result");
        NeedSize(to, from.Width, from.Height);
        FloatPlane plane;
        routine(from, plane);
        Write(plane, to);
    });
}

// The taps of the ramp that fit into a shorter kernel, by transforms as ZEKFilter1DForRec does it.
void FilterByShortKernel(FloatPlane& rows, int taps, float spacing)
{
    const int  length = static_cast<int>(std::bit_ceil(static_cast<unsigned>(rows.Width + taps - 1)));
    ZEKPP1DFFT kernel, row;
    GetKernerlFFT(kernel, length, taps, spacing);
    row.Init(length, true);
    for (int y = 0; y < rows.Height; ++y) {
        row.SetReImZero();
        row.UpLoadRe(rows.Ptr2D[y], rows.Width);
        row.RunFFT(true);
        row.Multiply(kernel);
        row.RunFFT(false);
        row.DownLoadRe(rows.Ptr2D[y], rows.Width, taps / 2);
    }
}

void UpLoad(const double* from, float* to, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i) {
        double value = 0.0;
        std::memcpy(&value, reinterpret_cast<const char*>(from) + i * sizeof value, sizeof value);
        to[i] = static_cast<float>(value);
    }
}

void DownLoad(const float* from, double* to, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i) {
        const double value = static_cast<double>(from[i]);
        std::memcpy(reinterpret_cast<char*>(to) + i * sizeof value, &value, sizeof value);
    }
}

}

VostelStatus vostel_correlate(const VostelPlane* image, const VostelPlane* kernel, VostelPlane* result)
{
    return RunInPlace(image, "image", result, [&](const CallerPlane& from, FloatPlane& plane) {
        FloatPlane taps;
        Read(RoutinePlane(kernel, "kernel"), taps);
        Read(from, plane);
        gConv2(&plane, &taps);
    });
}

VostelStatus vostel_gaussian(const VostelPlane* image, int32_t size, double sigma, VostelPlane* result)
{
    return RunInPlace(image, "image", result, [&](const CallerPlane& from, FloatPlane& plane) {
        const float width = PositiveFloat(sigma, "sigma");
        NeedRange(size, 1, INT32_MAX, "size");
        if (static_cast<std::int64_t>(size) * size > LimitsInForce().MaxPixels)
            Fail(VOSTEL_TOO_LARGE, "size is that of a kernel beyond the limits");
        Read(from, plane);
        gGauss(&plane, size, width, 0.0f);
    });
}

VostelStatus vostel_resize(const VostelPlane* image, VostelPlane* result)
{
    return Run([&] {
        const CallerPlane from = RoutinePlane(image, "image");
        const CallerPlane to = RoutinePlane(result, "result");
        FloatPlane        source, target;
        Read(from, source);
        target.Allocate(to.Width, to.Height);
        ResizeMC(&source, &target);
        Write(target, to);
    });
}

VostelStatus vostel_adaptive_threshold(const VostelPlane* image, int32_t size, double constant,
                                       VostelPlane* result)
{
    return Run([&] {
        const CallerPlane from = RoutinePlane(image, "image");
        const CallerPlane to = RoutinePlane(result, "result");
        NeedSize(to, from.Width, from.Height);
        NeedRange(size, 1, INT32_MAX, "size");
        NeedFinite(constant, "constant");
        ClassData2DIO<unsigned char> plane;
        Read(from, plane);
        ThresholdByShare(plane, size, constant);
        Write(plane, to);
    });
}

VostelStatus vostel_stitch(const VostelPlane* left, const VostelPlane* right, int32_t overlap,
                           VostelPlane* result)
{
    return Run([&] {
        const CallerPlane a = RoutinePlane(left, "left");
        const CallerPlane b = RoutinePlane(right, "right");
        const CallerPlane to = RoutinePlane(result, "result");
        NeedRange(overlap, 0, std::min(a.Width, b.Width), "overlap");
        if (overlap == 1)
            Fail(VOSTEL_INVALID_ARGUMENT, "overlap is 1, which leaves nothing to fade over");
        NeedSize(to, static_cast<std::int64_t>(a.Width) + b.Width - overlap, a.Height);
        FloatPlane joined, added;
        Read(a, joined);
        Read(b, added);
        gImaConcate(&joined, &added, overlap, 0, true);
        Write(joined, to);
    });
}

VostelStatus vostel_ramp_filter(const VostelPlane* rows, int32_t kernel_length, double spacing,
                                VostelPlane* result)
{
    return RunInPlace(rows, "rows", result, [&](const CallerPlane& from, FloatPlane& plane) {
        NeedRange(kernel_length, 1, INT32_MAX, "kernel_length");
        const float distance = PositiveFloat(spacing, "spacing");
        Read(from, plane);
        if (kernel_length >= 2 * from.Width - 1)
            ZEKFilter1DForRec(&plane, distance);
        else
            FilterByShortKernel(plane, kernel_length, distance);
    });
}

VostelStatus vostel_fft(double* real, double* imaginary, size_t length, int32_t inverse)
{
    return Run([&] {
        constexpr std::size_t Longest = std::size_t(1) << 28;
        NeedPointer(real, "real");
        NeedPointer(imaginary, "imaginary");
        if (!std::has_single_bit(length))
            Fail(VOSTEL_INVALID_ARGUMENT, "length is not a power of two");
        if (length > Longest)
            Fail(VOSTEL_TOO_LARGE, "length is more than " + std::to_string(Longest));
        ZEKPP1DFFT transform;
        transform.Init(static_cast<int>(length), inverse == 0);
        UpLoad(real, transform.Re, length);
        UpLoad(imaginary, transform.Im, length);
        transform.RunFFT();
        DownLoad(transform.Re, real, length);
        DownLoad(transform.Im, imaginary, length);
    });
}
