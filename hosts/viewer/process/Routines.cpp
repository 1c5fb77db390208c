#include "process/Filters.h"
#include "process/Routine.h"
#include "process/Thresholds.h"
#include "process/Transforms.h"

#include <QtGlobal>

namespace vostel::viewer {

namespace {

constexpr const char* EdgeKinds[] = {
    QT_TRANSLATE_NOOP("Routines", "Strength (gradient)"), QT_TRANSLATE_NOOP("Routines", "Across columns"),
    QT_TRANSLATE_NOOP("Routines", "Across rows"), QT_TRANSLATE_NOOP("Routines", "Lines and dots (Laplace)")};
constexpr const char* SpectrumParts[] = {QT_TRANSLATE_NOOP("Routines", "Logarithm of the magnitude"),
                                         QT_TRANSLATE_NOOP("Routines", "Magnitude"),
                                         QT_TRANSLATE_NOOP("Routines", "Phase")};

constexpr Parameter GaussianParameters[] = {
    {"sigma", QT_TRANSLATE_NOOP("Routines", "Sigma (px)"), 1.5, 0.1, 30.0, 2}};
constexpr Parameter MeanParameters[] = {
    {"side", QT_TRANSLATE_NOOP("Routines", "Side of the neighborhood (odd, px)"), 3, 3, 63}};
constexpr Parameter SharpenParameters[] = {
    {"side", QT_TRANSLATE_NOOP("Routines", "Side of the neighborhood (odd, px)"), 5, 3, 63},
    {"amount", QT_TRANSLATE_NOOP("Routines", "Amount"), 1.0, 0.1, 10.0, 1}};
constexpr Parameter EdgeParameters[] = {
    {"kind", QT_TRANSLATE_NOOP("Routines", "Show"), 0, 0, 3, 0, EdgeKinds}};
constexpr Parameter RangeParameters[] = {{"low", QT_TRANSLATE_NOOP("Routines", "From"), 128, -1e9, 1e9, 3},
                                         {"high", QT_TRANSLATE_NOOP("Routines", "To"), 1e9, -1e9, 1e9, 3}};
constexpr Parameter LocalParameters[] = {
    {"side", QT_TRANSLATE_NOOP("Routines", "Side of the neighborhood (px)"), 31, 1, 999},
    {"factor", QT_TRANSLATE_NOOP("Routines", "Times the mean around"), 1.0, 0.1, 3.0, 2}};
constexpr Parameter ResizeParameters[] = {
    {"percentX", QT_TRANSLATE_NOOP("Routines", "Width (% of this one)"), 50, 0.1, 1000, 1},
    {"percentY", QT_TRANSLATE_NOOP("Routines", "Height (% of this one)"), 50, 0.1, 1000, 1}};
constexpr Parameter SpectrumParameters[] = {
    {"part", QT_TRANSLATE_NOOP("Routines", "Show"), 0, 0, 2, 0, SpectrumParts}};
constexpr Parameter RampParameters[] = {
    {"spacing", QT_TRANSLATE_NOOP("Routines", "Sampling distance"), 1.0, 0.001, 1000, 3}};

constexpr Routine Routines[] = {
    {"process.gaussian", QT_TRANSLATE_NOOP("Routines", "&Smooth (Gaussian)..."),
     QT_TRANSLATE_NOOP("Routines", "Takes noise away and keeps shapes"), GaussianParameters, true, false,
     true, SmoothGaussian},
    {"process.mean", QT_TRANSLATE_NOOP("Routines", "Smooth (&mean)..."),
     QT_TRANSLATE_NOOP("Routines", "Each pixel becomes the mean of its neighborhood"), MeanParameters, true,
     false, true, SmoothMean},
    {"process.sharpen", QT_TRANSLATE_NOOP("Routines", "S&harpen..."),
     QT_TRANSLATE_NOOP("Routines", "Adds what differs from the mean of the neighborhood"), SharpenParameters,
     true, false, true, Sharpen},
    {"process.edges", QT_TRANSLATE_NOOP("Routines", "&Edges..."),
     QT_TRANSLATE_NOOP("Routines", "Shows how steeply values change"), EdgeParameters, true, false, false,
     Edges},
    {"process.range", QT_TRANSLATE_NOOP("Routines", "Threshold by &value..."),
     QT_TRANSLATE_NOOP("Routines", "White where the value lies in a range"), RangeParameters, true, true,
     false, ThresholdRange},
    {"process.otsu",
     QT_TRANSLATE_NOOP("Routines", "Threshold (&Otsu)"),
     QT_TRANSLATE_NOOP("Routines",
                       "Finds the value that parts dark from bright best, and shows what is brighter"),
     {},
     false,
     true,
     false,
     ThresholdOtsu},
    {"process.local", QT_TRANSLATE_NOOP("Routines", "Threshold (&local mean)..."),
     QT_TRANSLATE_NOOP("Routines", "White where a pixel is brighter than its neighborhood"), LocalParameters,
     true, true, false, ThresholdLocal},
    {"process.invert",
     QT_TRANSLATE_NOOP("Routines", "&Invert"),
     QT_TRANSLATE_NOOP("Routines", "The least value becomes the greatest and the other way round"),
     {},
     false,
     false,
     true,
     Invert},
    {"process.resize", QT_TRANSLATE_NOOP("Routines", "&Resize..."),
     QT_TRANSLATE_NOOP("Routines", "An image with more or fewer pixels"), ResizeParameters, false, false,
     true, ResizeTo},
    {"process.spectrum", QT_TRANSLATE_NOOP("Routines", "S&pectrum (Fourier)..."),
     QT_TRANSLATE_NOOP("Routines", "The frequencies of the image, zero in the middle"), SpectrumParameters,
     false, false, false, Spectrum},
    {"process.ramp", QT_TRANSLATE_NOOP("Routines", "Ramp &filter of rows..."),
     QT_TRANSLATE_NOOP("Routines", "Filters projections for a reconstruction"), RampParameters, false, false,
     false, RampFilter},
};

}

std::span<const Routine> AllRoutines()
{
    return Routines;
}

}
