#include "commands/RoutineRuns.h"

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

constexpr double FullTurn = 6.283185307179586;

// Points on the ellipse in the plane's middle, clockwise on the screen, as the fills want them.
std::vector<PointTemplateBase<int>> Ring(int width, int height, int margin, int count)
{
    const double                        x = (width - 1) / 2.0, y = (height - 1) / 2.0;
    std::vector<PointTemplateBase<int>> points;
    for (int i = 0; i < count; ++i) {
        const double angle = FullTurn * i / count - FullTurn / 4.0;    // the first one is at the top
        points.emplace_back(static_cast<int>(x + (x - margin) * std::cos(angle)),
                            static_cast<int>(y + (y - margin) * std::sin(angle)));
    }
    return points;
}

void RepeatFirstRow(Image& image)
{
    for (int y = 1; y < image.Height; ++y)
        std::copy_n(image.Ptr2D[0], image.Width, image.Ptr2D[y]);
}

}

const char* TooLarge(int width, int height)
{
    if (static_cast<long long>(width) * height <= MaxPixels)
        return nullptr;
    return Words("The image would have more than 134 million pixels.");
}

RoutineResult RunLabelImage(RoutineImages inputs, RoutineValues, const RoutineProgress& progress)
{
    RoutineSteps steps(progress, 1);
    if (!steps.Next())
        return Cancelled();
    const ImagePointer result = std::make_shared<Image>(*inputs[0]);
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

RoutineResult RunFilledShape(RoutineImages, RoutineValues values, const RoutineProgress& progress)
{
    enum { Ellipse, Polygon, Spline };
    const int shape = WholeOf(values[0]), width = WholeOf(values[1]), height = WholeOf(values[2]);
    const int margin = WholeOf(values[3]), corners = WholeOf(values[4]), value = WholeOf(values[5]);
    if (const char* const problem = TooLarge(width, height))
        return Problem(problem);
    if (2 * margin >= std::min(width, height))
        return Problem(Words("The margin leaves no room for the shape."));
    RoutineSteps steps(progress, 2);
    if (!steps.Next())
        return Cancelled();
    ClassData2DIO<int> plane;
    plane.Allocate(width, height);
    std::fill_n(plane.Ptr1D, width * height, 0);
    if (shape == Ellipse) {
        DrawEcllipse(plane, margin, margin, width - 1 - margin, height - 1 - margin, true, value);
    } else {
        std::vector<PointTemplateBase<int>> points = Ring(width, height, margin, corners);
        if (shape == Spline) {
            points.push_back(points.front());    // the curve ends where it began
            FillSpline(plane, points, value);
        } else {
            FillPolygon(plane, points, value);
        }
    }
    if (!steps.Next())
        return Cancelled();
    const ImagePointer result = NewImage(width, height);
    std::transform(plane.Ptr1D, plane.Ptr1D + width * height, result->Ptr1D,
                   [](int label) { return static_cast<float>(label); });
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

RoutineResult RunGaussCurve(RoutineImages, RoutineValues values, const RoutineProgress& progress)
{
    const int samples = WholeOf(values[0]), rows = WholeOf(values[2]);
    if (const char* const problem = TooLarge(samples, rows))
        return Problem(problem);
    RoutineSteps steps(progress, 1);
    if (!steps.Next())
        return Cancelled();
    const ImagePointer result = NewImage(samples, rows);
    for (int x = 0; x < samples; ++x)
        result->Ptr2D[0][x] =
            OneDGaussian(static_cast<float>(x - samples / 2), static_cast<float>(values[1]));
    RepeatFirstRow(*result);
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

RoutineResult RunGaussKernel(RoutineImages, RoutineValues values, const RoutineProgress& progress)
{
    const int width = WholeOf(values[0]), height = WholeOf(values[1]);
    if (const char* const problem = TooLarge(width, height))
        return Problem(problem);
    RoutineSteps steps(progress, 1);
    if (!steps.Next())
        return Cancelled();
    const ImagePointer result = std::make_shared<Image>();
    TwoDGaussian_LSE(result.get(), width, static_cast<float>(values[2]), height,
                     static_cast<float>(values[3]), static_cast<float>(values[4] * FullTurn / 360.0));
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

RoutineResult RunRampKernel(RoutineImages, RoutineValues values, const RoutineProgress& progress)
{
    const int   taps = WholeOf(values[0]), rows = WholeOf(values[3]);
    const float spacing = static_cast<float>(values[1]);
    const bool  spectrum = values[2] != 0.0;
    const int   width = spectrum ? ComputeFFTN(taps) : taps;
    if (const char* const problem = TooLarge(width, rows))
        return Problem(problem);
    RoutineSteps steps(progress, 1);
    if (!steps.Next())
        return Cancelled();
    const ImagePointer result = NewImage(width, rows);
    if (spectrum) {
        ZEKPP1DFFT fft;
        GetKernerlFFT(fft, width, taps, spacing);
        for (int i = 0; i < width; ++i)
            result->Ptr2D[0][i] = std::sqrt(fft.Re[i] * fft.Re[i] + fft.Im[i] * fft.Im[i]);
    } else {
        KernelGenerate(*result, spacing);
    }
    RepeatFirstRow(*result);
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

}
