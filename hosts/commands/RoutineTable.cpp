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

constexpr const char* KernelNames[] = {Words("Box mean"), Words("Sharpen"), Words("Sobel x"),
                                       Words("Sobel y"), Words("Laplace")};
constexpr const char* ConvolutionForms[] = {Words("All processors"), Words("One processor"),
                                            Words("One row without side borders"),
                                            Words("Inner pixels only")};
constexpr const char* ResizeForms[] = {Words("All processors"), Words("One processor"), Words("In place"),
                                       Words("16-bit whole numbers")};
constexpr const char* Directions[] = {Words("Rows and columns"), Words("Rows"), Words("Columns")};
constexpr const char* SpectrumParts[] = {Words("Logarithm of the magnitude"), Words("Magnitude"),
                                         Words("Real part"), Words("Imaginary part")};
constexpr const char* NoYes[] = {Words("No"), Words("Yes")};
constexpr const char* Shapes[] = {Words("Ellipse"), Words("Polygon"), Words("Spline")};
constexpr const char* RampShows[] = {Words("Taps"), Words("Magnitude of the spectrum")};

constexpr RoutineParameter ConvolveParameters[] = {{Words("Kernel"), Choice, 0, 0, 4, KernelNames},
                                                   {Words("Size of the kernel (odd, px)"), Whole, 3, 3, 63},
                                                   {Words("Passes"), Whole, 1, 1, 50}};
constexpr RoutineParameter ConvolveByFormParameters[] = {
    {Words("Form"), Choice, 0, 0, 3, ConvolutionForms},
    {Words("Kernel"), Choice, 0, 0, 4, KernelNames},
    {Words("Size of the kernel (odd, px)"), Whole, 3, 3, 63}};
constexpr RoutineParameter GaussParameters[] = {{Words("Size of the kernel (odd, px)"), Whole, 9, 1, 63},
                                                {Words("Sigma (px)"), Real, 1.5, 0.05, 100},
                                                {Words("Passes"), Whole, 1, 1, 50}};
constexpr RoutineParameter ThresholdParameters[] = {
    {Words("Side of the neighbourhood (px)"), Whole, 31, 1, 9999}};
constexpr RoutineParameter ResizeParameters[] = {
    {Words("Width (px)"), Whole, 0.5, 1, MaxSide, {}, StartFrom::ImageWidth},
    {Words("Height (px)"), Whole, 0.5, 1, MaxSide, {}, StartFrom::ImageHeight},
    {Words("Form"), Choice, 0, 0, 3, ResizeForms}};
constexpr RoutineParameter FourierParameters[] = {
    {Words("Direction"), Choice, 0, 0, 2, Directions},
    {Words("Show"), Choice, 0, 0, 3, SpectrumParts},
    {Words("Frequency zero in the middle"), Choice, 1, 0, 1, NoYes}};
constexpr RoutineParameter RampFilterParameters[] = {{Words("Sampling distance"), Real, 1, 0.001, 1000}};
constexpr RoutineParameter ConcatenateParameters[] = {
    {Words("Overlap (px)"), Whole, 0, 0, MaxSide},
    {Words("Trim at each side of the overlap (px)"), Whole, 0, 0, MaxSide},
    {Words("Make rows equally bright"), Choice, 0, 0, 1, NoYes}};
constexpr RoutineParameter FilledShapeParameters[] = {
    {Words("Shape"), Choice, 0, 0, 2, Shapes},
    {Words("Width of the plane (px)"), Whole, 512, 1, MaxSide},
    {Words("Height of the plane (px)"), Whole, 512, 1, MaxSide},
    {Words("Margin (px)"), Whole, 20, 0, MaxSide},
    {Words("Corners of a polygon, points of a spline"), Whole, 5, 3, 198},
    {Words("Value"), Whole, 255, 1, 65535}};
constexpr RoutineParameter GaussCurveParameters[] = {{Words("Samples"), Whole, 256, 1, MaxSide},
                                                     {Words("Sigma (px)"), Real, 32, 0.05, 10000},
                                                     {Words("Rows"), Whole, 64, 1, MaxSide}};
constexpr RoutineParameter GaussKernelParameters[] = {
    {Words("Width (px)"), Whole, 63, 1, MaxSide},
    {Words("Height (px)"), Whole, 63, 1, MaxSide},
    {Words("Sigma along the first axis (px)"), Real, 12, 0.05, 10000},
    {Words("Sigma along the second axis (px)"), Real, 6, 0.05, 10000},
    {Words("Angle (degrees)"), Real, 30, -360, 360}};
constexpr RoutineParameter RampKernelParameters[] = {{Words("Taps"), Whole, 63, 1, 16384},
                                                     {Words("Sampling distance"), Real, 1, 0.001, 1000},
                                                     {Words("Show"), Choice, 0, 0, 1, RampShows},
                                                     {Words("Rows"), Whole, 64, 1, MaxSide}};

constexpr Routine Routines[] = {
    {Command::Convolve, Words("Convolution"), RoutineInput::Image, ConvolveParameters, RunConvolve},
    {Command::ConvolveByForm, Words("Convolution by form"), RoutineInput::Image, ConvolveByFormParameters,
     RunConvolveByForm},
    {Command::Gauss, Words("Gaussian smoothing"), RoutineInput::Image, GaussParameters, RunGauss},
    {Command::Threshold, Words("Threshold"), RoutineInput::Image, ThresholdParameters, RunThreshold},
    {Command::Resize, Words("Resize"), RoutineInput::Image, ResizeParameters, RunResize},
    {Command::FourierTransform, Words("Fourier transform"), RoutineInput::Image, FourierParameters,
     RunFourier},
    {Command::RampFilter, Words("Ramp filter"), RoutineInput::Image, RampFilterParameters, RunRampFilter},
    {Command::Concatenate, Words("Join two canvases"), RoutineInput::Two, ConcatenateParameters,
     RunConcatenate},
    {Command::MatrixProduct, Words("Matrix product"), RoutineInput::Two, {}, RunMatrixProduct},
    {Command::LabelImage, Words("Label image"), RoutineInput::Labels, {}, RunLabelImage},
    {Command::FilledShape, Words("Filled shape"), RoutineInput::None, FilledShapeParameters, RunFilledShape},
    {Command::GaussCurve, Words("Gaussian curve"), RoutineInput::None, GaussCurveParameters, RunGaussCurve},
    {Command::GaussKernel, Words("Gaussian kernel"), RoutineInput::None, GaussKernelParameters,
     RunGaussKernel},
    {Command::RampKernel, Words("Ramp kernel"), RoutineInput::None, RampKernelParameters, RunRampKernel}};

const char* CheckValue(const RoutineParameter& parameter, double value)
{
    if (!std::isfinite(value))
        return Words("This is not a number.");
    if (parameter.Kind != Real && value != std::floor(value))
        return Words("A whole number is wanted.");
    if (value < parameter.Low)
        return Words("The value is below the least that is allowed.");
    if (value > parameter.High)
        return Words("The value is above the most that is allowed.");
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
        return Words("A value is missing.");
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
        return Problem(Words("An image is missing."));
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (!inputs[i] || inputs[i]->Width < 1 || inputs[i]->Height < 1)
            return Problem(i == 0 ? Words("The canvas shows no image.")
                                  : Words("The second canvas shows no image."));
    if (const char* const problem = CheckValues(routine, values))
        return Problem(problem);
    try {
        return routine.Run(inputs, values, progress);
    } catch (const std::exception&) {    // the allocator's, also for sizes that it refuses
        return Problem(Words("There is not enough memory for this image."));
    }
}

}
