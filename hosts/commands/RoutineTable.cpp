#include "commands/RoutineRuns.h"
#include "commands/Routines.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iterator>
#include <limits>

namespace vostel::viewer {

namespace {

using enum ParameterKind;

constexpr double MaxSide = 32768.0;    // px

constexpr const char* KernelNames[] = {
    QT_TRANSLATE_NOOP("Commands", "Box mean"), QT_TRANSLATE_NOOP("Commands", "Sharpen"),
    QT_TRANSLATE_NOOP("Commands", "Sobel x"), QT_TRANSLATE_NOOP("Commands", "Sobel y"),
    QT_TRANSLATE_NOOP("Commands", "Laplace")};
constexpr const char* ConvolutionForms[] = {QT_TRANSLATE_NOOP("Commands", "All processors"),
                                            QT_TRANSLATE_NOOP("Commands", "One processor"),
                                            QT_TRANSLATE_NOOP("Commands", "One row without side borders"),
                                            QT_TRANSLATE_NOOP("Commands", "Inner pixels only")};
constexpr const char* ResizeForms[] = {
    QT_TRANSLATE_NOOP("Commands", "All processors"), QT_TRANSLATE_NOOP("Commands", "One processor"),
    QT_TRANSLATE_NOOP("Commands", "In place"), QT_TRANSLATE_NOOP("Commands", "16-bit whole numbers")};
constexpr const char* Directions[] = {QT_TRANSLATE_NOOP("Commands", "Rows and columns"),
                                      QT_TRANSLATE_NOOP("Commands", "Rows"),
                                      QT_TRANSLATE_NOOP("Commands", "Columns")};
constexpr const char* SpectrumParts[] = {
    QT_TRANSLATE_NOOP("Commands", "Logarithm of the magnitude"), QT_TRANSLATE_NOOP("Commands", "Magnitude"),
    QT_TRANSLATE_NOOP("Commands", "Real part"), QT_TRANSLATE_NOOP("Commands", "Imaginary part")};
constexpr const char* NoYes[] = {QT_TRANSLATE_NOOP("Commands", "No"), QT_TRANSLATE_NOOP("Commands", "Yes")};
constexpr const char* Shapes[] = {QT_TRANSLATE_NOOP("Commands", "Ellipse"),
                                  QT_TRANSLATE_NOOP("Commands", "Polygon"),
                                  QT_TRANSLATE_NOOP("Commands", "Spline")};
constexpr const char* RampShows[] = {QT_TRANSLATE_NOOP("Commands", "Taps"),
                                     QT_TRANSLATE_NOOP("Commands", "Magnitude of the spectrum")};

constexpr RoutineParameter ConvolveParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Kernel"), Choice, 0, 0, 4, KernelNames},
    {QT_TRANSLATE_NOOP("Commands", "Size of the kernel (odd, px)"), Whole, 3, 3, 63},
    {QT_TRANSLATE_NOOP("Commands", "Passes"), Whole, 1, 1, 50}};
constexpr RoutineParameter ConvolveByFormParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Form"), Choice, 0, 0, 3, ConvolutionForms},
    {QT_TRANSLATE_NOOP("Commands", "Kernel"), Choice, 0, 0, 4, KernelNames},
    {QT_TRANSLATE_NOOP("Commands", "Size of the kernel (odd, px)"), Whole, 3, 3, 63}};
constexpr RoutineParameter GaussParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Size of the kernel (odd, px)"), Whole, 9, 1, 63},
    {QT_TRANSLATE_NOOP("Commands", "Sigma (px)"), Real, 1.5, 0.05, 100},
    {QT_TRANSLATE_NOOP("Commands", "Passes"), Whole, 1, 1, 50}};
constexpr RoutineParameter ThresholdParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Side of the neighbourhood (px)"), Whole, 31, 1, 9999}};
constexpr RoutineParameter ResizeParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Width (px)"), Whole, 0.5, 1, MaxSide, {}, StartFrom::ImageWidth},
    {QT_TRANSLATE_NOOP("Commands", "Height (px)"), Whole, 0.5, 1, MaxSide, {}, StartFrom::ImageHeight},
    {QT_TRANSLATE_NOOP("Commands", "Form"), Choice, 0, 0, 3, ResizeForms}};
constexpr RoutineParameter FourierParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Direction"), Choice, 0, 0, 2, Directions},
    {QT_TRANSLATE_NOOP("Commands", "Show"), Choice, 0, 0, 3, SpectrumParts},
    {QT_TRANSLATE_NOOP("Commands", "Frequency zero in the middle"), Choice, 1, 0, 1, NoYes}};
constexpr RoutineParameter RampFilterParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Sampling distance"), Real, 1, 0.001, 1000}};
constexpr RoutineParameter ConcatenateParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Overlap (px)"), Whole, 0, 0, MaxSide},
    {QT_TRANSLATE_NOOP("Commands", "Trim at each side of the overlap (px)"), Whole, 0, 0, MaxSide},
    {QT_TRANSLATE_NOOP("Commands", "Make rows equally bright"), Choice, 0, 0, 1, NoYes}};
constexpr RoutineParameter FilledShapeParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Shape"), Choice, 0, 0, 2, Shapes},
    {QT_TRANSLATE_NOOP("Commands", "Width of the plane (px)"), Whole, 512, 1, MaxSide},
    {QT_TRANSLATE_NOOP("Commands", "Height of the plane (px)"), Whole, 512, 1, MaxSide},
    {QT_TRANSLATE_NOOP("Commands", "Margin (px)"), Whole, 20, 0, MaxSide},
    {QT_TRANSLATE_NOOP("Commands", "Corners of a polygon, points of a spline"), Whole, 5, 3, 198},
    {QT_TRANSLATE_NOOP("Commands", "Value"), Whole, 255, 1, 65535}};
constexpr RoutineParameter GaussCurveParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Samples"), Whole, 256, 1, MaxSide},
    {QT_TRANSLATE_NOOP("Commands", "Sigma (px)"), Real, 32, 0.05, 10000},
    {QT_TRANSLATE_NOOP("Commands", "Rows"), Whole, 64, 1, MaxSide}};
constexpr RoutineParameter GaussKernelParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Width (px)"), Whole, 63, 1, MaxSide},
    {QT_TRANSLATE_NOOP("Commands", "Height (px)"), Whole, 63, 1, MaxSide},
    {QT_TRANSLATE_NOOP("Commands", "Sigma along the first axis (px)"), Real, 12, 0.05, 10000},
    {QT_TRANSLATE_NOOP("Commands", "Sigma along the second axis (px)"), Real, 6, 0.05, 10000},
    {QT_TRANSLATE_NOOP("Commands", "Angle (degrees)"), Real, 30, -360, 360}};
constexpr RoutineParameter RampKernelParameters[] = {
    {QT_TRANSLATE_NOOP("Commands", "Taps"), Whole, 63, 1, 16384},
    {QT_TRANSLATE_NOOP("Commands", "Sampling distance"), Real, 1, 0.001, 1000},
    {QT_TRANSLATE_NOOP("Commands", "Show"), Choice, 0, 0, 1, RampShows},
    {QT_TRANSLATE_NOOP("Commands", "Rows"), Whole, 64, 1, MaxSide}};

constexpr Routine Routines[] = {
    {Command::Convolve, QT_TRANSLATE_NOOP("Commands", "Convolution"), RoutineInput::Image, ConvolveParameters,
     RunConvolve},
    {Command::ConvolveByForm, QT_TRANSLATE_NOOP("Commands", "Convolution by form"), RoutineInput::Image,
     ConvolveByFormParameters, RunConvolveByForm},
    {Command::Gauss, QT_TRANSLATE_NOOP("Commands", "Gaussian smoothing"), RoutineInput::Image,
     GaussParameters, RunGauss},
    {Command::Threshold, QT_TRANSLATE_NOOP("Commands", "Threshold"), RoutineInput::Image, ThresholdParameters,
     RunThreshold},
    {Command::Resize, QT_TRANSLATE_NOOP("Commands", "Resize"), RoutineInput::Image, ResizeParameters,
     RunResize},
    {Command::FourierTransform, QT_TRANSLATE_NOOP("Commands", "Fourier transform"), RoutineInput::Image,
     FourierParameters, RunFourier},
    {Command::RampFilter, QT_TRANSLATE_NOOP("Commands", "Ramp filter"), RoutineInput::Image,
     RampFilterParameters, RunRampFilter},
    {Command::Concatenate, QT_TRANSLATE_NOOP("Commands", "Join two canvases"), RoutineInput::Two,
     ConcatenateParameters, RunConcatenate},
    {Command::MatrixProduct,
     QT_TRANSLATE_NOOP("Commands", "Matrix product"),
     RoutineInput::Two,
     {},
     RunMatrixProduct},
    {Command::LabelImage,
     QT_TRANSLATE_NOOP("Commands", "Label image"),
     RoutineInput::Labels,
     {},
     RunLabelImage},
    {Command::FilledShape, QT_TRANSLATE_NOOP("Commands", "Filled shape"), RoutineInput::None,
     FilledShapeParameters, RunFilledShape},
    {Command::GaussCurve, QT_TRANSLATE_NOOP("Commands", "Gaussian curve"), RoutineInput::None,
     GaussCurveParameters, RunGaussCurve},
    {Command::GaussKernel, QT_TRANSLATE_NOOP("Commands", "Gaussian kernel"), RoutineInput::None,
     GaussKernelParameters, RunGaussKernel},
    {Command::RampKernel, QT_TRANSLATE_NOOP("Commands", "Ramp kernel"), RoutineInput::None,
     RampKernelParameters, RunRampKernel}};

const char* CheckValue(const RoutineParameter& parameter, double value)
{
    if (!std::isfinite(value))
        return QT_TRANSLATE_NOOP("Commands", "This is not a number.");
    if (parameter.Kind != Real && value != std::floor(value))
        return QT_TRANSLATE_NOOP("Commands", "A whole number is wanted.");
    if (value < parameter.Low)
        return QT_TRANSLATE_NOOP("Commands", "The value is below the least that is allowed.");
    if (value > parameter.High)
        return QT_TRANSLATE_NOOP("Commands", "The value is above the most that is allowed.");
    return nullptr;
}

}

std::span<const Routine> AllRoutines()
{
    return Routines;
}

const Routine* FindRoutine(Command id)
{
    const auto found = std::find_if(std::begin(Routines), std::end(Routines),
                                    [id](const Routine& routine) { return routine.Id == id; });
    return found == std::end(Routines) ? nullptr : found;
}

int InputCount(const Routine& routine)
{
    switch (routine.Input) {
    case RoutineInput::None:
        return 0;
    case RoutineInput::Two:
        return 2;
    default:
        return 1;
    }
}

std::vector<double> DefaultValues(const Routine& routine, int width, int height)
{
    std::vector<double> values;
    for (const RoutineParameter& parameter : routine.Parameters) {
        double value = parameter.Default;
        if (parameter.From == StartFrom::ImageWidth)
            value = std::floor(value * width);
        else if (parameter.From == StartFrom::ImageHeight)
            value = std::floor(value * height);
        values.push_back(std::clamp(value, parameter.Low, parameter.High));
    }
    return values;
}

const char* CheckValues(const Routine& routine, std::span<const double> values, std::size_t* wrong)
{
    if (values.size() != routine.Parameters.size()) {
        if (wrong)
            *wrong = 0;
        return QT_TRANSLATE_NOOP("Commands", "A value is missing.");
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        const char* const problem = CheckValue(routine.Parameters[i], values[i]);
        if (!problem)
            continue;
        if (wrong)
            *wrong = i;
        return problem;
    }
    return nullptr;
}

RoutineResult RunRoutine(const Routine& routine, std::span<const ImagePointer> inputs,
                         std::span<const double> values, const RoutineProgress& progress)
{
    if (inputs.size() != static_cast<std::size_t>(InputCount(routine)))
        return Problem(QT_TRANSLATE_NOOP("Commands", "An image is missing."));
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (!inputs[i] || inputs[i]->Width < 1 || inputs[i]->Height < 1)
            return Problem(i == 0 ? QT_TRANSLATE_NOOP("Commands", "The canvas shows no image.")
                                  : QT_TRANSLATE_NOOP("Commands", "The second canvas shows no image."));
    if (const char* const problem = CheckValues(routine, values))
        return Problem(problem);
    try {
        return routine.Run(inputs, values, progress);
    } catch (const std::exception&) {    // the allocator's, also for sizes that it refuses
        return Problem(QT_TRANSLATE_NOOP("Commands", "There is not enough memory for this image."));
    }
}

}
