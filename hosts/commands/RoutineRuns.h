#pragma once

// What the routines do: one run for each entry of the table.

#include "commands/Routines.h"

namespace vostel::viewer {

using RoutineImages = std::span<const ImagePointer>;
using RoutineValues = std::span<const double>;

RoutineResult RunConvolve(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunConvolveByForm(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunGauss(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunThreshold(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunResize(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunFourier(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunRampFilter(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunConcatenate(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunMatrixProduct(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunLabelImage(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunFilledShape(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunGaussCurve(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunGaussKernel(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);
RoutineResult RunRampKernel(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress);

// What they share.

constexpr int MaxPixels = 1 << 27;    // of a result: half a gigabyte of floats

inline int WholeOf(double value)
{
    return static_cast<int>(value);    // checked to be whole and within limits
}

// Reports the progress of a routine step by step.
class RoutineSteps {
public:
    RoutineSteps(const RoutineProgress& progress, int total) : Progress(progress), Total(total) {}

    bool Next() { return !Progress || Progress(Done++, Total); }    // false: cancelled

private:
    const RoutineProgress& Progress;
    int                    Total;
    int                    Done = 0;
};

inline RoutineResult Cancelled()
{
    return {nullptr, nullptr, true};
}

inline RoutineResult Problem(const char* sentence)
{
    return {nullptr, sentence, false};
}

inline ImagePointer NewImage(int width, int height)
{
    auto image = std::make_shared<Image>();
    image->Allocate(width, height);
    return image;
}

// The sentence when an image of that size is too large, else null.
const char* TooLarge(int width, int height);

}
