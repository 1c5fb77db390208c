#include "commands/RoutineRuns.h"

#include <algorithm>
#include <cmath>

namespace vostel::viewer {

namespace {

constexpr int RowsAStep = 64;

int StepsFor(int rows)
{
    return (rows + RowsAStep - 1) / RowsAStep;
}

struct Spectrum {
    ImagePointer Re;
    ImagePointer Im;
};

// Transforms line after line; take fills Re and Im of a line, keep stores them. False: cancelled.
template <typename Take, typename Keep>
bool TransformLines(int length, int lines, RoutineSteps& steps, Take take, Keep keep)
{
    ZEKPP1DFFT fft;
    fft.Init(length, true);
    for (int line = 0; line < lines; ++line) {
        if (line % RowsAStep == 0 && !steps.Next())
            return false;
        take(fft, line);
        fft.RunFFT(true);
        keep(fft, line);
    }
    return true;
}

// Rows of the image, padded with zeros on the right to the length of the transform.
bool TransformRows(Image& source, Spectrum& spectrum, RoutineSteps& steps)
{
    return TransformLines(
        spectrum.Re->Width, source.Height, steps,
        [&](ZEKPP1DFFT& fft, int y) {
            fft.SetReImZero();
            fft.UpLoadRe(source.Ptr2D[y], source.Width);
        },
        [&](ZEKPP1DFFT& fft, int y) {
            fft.DownLoadRe(spectrum.Re->Ptr2D[y], spectrum.Re->Width, 0);
            fft.DownLoadIm(spectrum.Im->Ptr2D[y], spectrum.Im->Width, 0);
        });
}

// Columns of the spectrum, in place.
bool TransformColumns(Spectrum& spectrum, RoutineSteps& steps)
{
    const int height = spectrum.Re->Height;
    return TransformLines(
        height, spectrum.Re->Width, steps,
        [&](ZEKPP1DFFT& fft, int x) {
            for (int y = 0; y < height; ++y) {
                fft.Re[y] = spectrum.Re->Ptr2D[y][x];
                fft.Im[y] = spectrum.Im->Ptr2D[y][x];
            }
        },
        [&](ZEKPP1DFFT& fft, int x) {
            for (int y = 0; y < height; ++y) {
                spectrum.Re->Ptr2D[y][x] = fft.Re[y];
                spectrum.Im->Ptr2D[y][x] = fft.Im[y];
            }
        });
}

float PartOf(int part, float re, float im)
{
    switch (part) {
    case 0:
        return std::log1p(std::sqrt(re * re + im * im));
    case 1:
        return std::sqrt(re * re + im * im);
    case 2:
        return re;
    default:
        return im;
    }
}

}

RoutineResult RunFourier(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress)
{
    Image&     source = *inputs[0];
    const bool rows = values[0] != 2.0, columns = values[0] != 1.0;
    const int  width = rows ? ComputeFFTN(source.Width) : source.Width;
    const int  height = columns ? ComputeFFTN(source.Height) : source.Height;
    if (const char* const problem = TooLarge(width, height))
        return Problem(problem);
    RoutineSteps steps(progress, (rows ? StepsFor(source.Height) : 0) + (columns ? StepsFor(width) : 0) + 1);
    Spectrum     spectrum = {NewImage(width, height), NewImage(width, height)};
    std::fill_n(spectrum.Re->Ptr1D, width * height, 0.0f);
    std::fill_n(spectrum.Im->Ptr1D, width * height, 0.0f);
    if (rows) {
        if (!TransformRows(source, spectrum, steps))
            return Cancelled();
    } else {
        for (int y = 0; y < source.Height; ++y)
            std::copy_n(source.Ptr2D[y], width, spectrum.Re->Ptr2D[y]);
    }
    if ((columns && !TransformColumns(spectrum, steps)) || !steps.Next())
        return Cancelled();
    const bool         middle = values[2] != 0.0;
    const int          shiftX = middle && rows ? width / 2 : 0, shiftY = middle && columns ? height / 2 : 0;
    const ImagePointer result = NewImage(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            result->Ptr2D[(y + shiftY) % height][(x + shiftX) % width] =
                PartOf(WholeOf(values[1]), spectrum.Re->Ptr2D[y][x], spectrum.Im->Ptr2D[y][x]);
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

RoutineResult RunRampFilter(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress)
{
    // Rows do not depend on each other, so that a part of them can be filtered at a time.
    Image&             source = *inputs[0];
    RoutineSteps       steps(progress, StepsFor(source.Height));
    const ImagePointer result = NewImage(source.Width, source.Height);
    for (int y = 0; y < source.Height; y += RowsAStep) {
        if (!steps.Next())
            return Cancelled();
        const int rows = std::min(RowsAStep, source.Height - y);
        Image     part;
        part.Allocate(source.Width, rows);
        std::copy_n(source.Ptr2D[y], rows * source.Width, part.Ptr1D);
        ZEKFilter1DForRec(&part, static_cast<float>(values[0]));
        std::copy_n(part.Ptr1D, rows * source.Width, result->Ptr2D[y]);
    }
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

RoutineResult RunMatrixProduct(RoutineImages inputs, RoutineValues, const RoutineProgress& progress)
{
    Image &a = *inputs[0], &b = *inputs[1];
    if (a.Width != b.Height)
        return Problem(Words("The first image must be as wide as the second is high to multiply them."));
    if (const char* const problem = TooLarge(b.Width, a.Height))
        return Problem(problem);
    RoutineSteps       steps(progress, StepsFor(a.Height));
    const ImagePointer result = NewImage(b.Width, a.Height);
    for (int y = 0; y < a.Height; y += RowsAStep) {
        if (!steps.Next())
            return Cancelled();
        const int rows = std::min(RowsAStep, a.Height - y);
        Image     part, product;
        part.Allocate(a.Width, rows);
        std::copy_n(a.Ptr2D[y], rows * a.Width, part.Ptr1D);
        MatrixMul(part, b, product);
        std::copy_n(product.Ptr1D, rows * b.Width, result->Ptr2D[y]);
    }
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

RoutineResult RunConcatenate(RoutineImages inputs, RoutineValues values, const RoutineProgress& progress)
{
    const Image &a = *inputs[0], &b = *inputs[1];
    const int    overlap = WholeOf(values[0]), trim = WholeOf(values[1]);
    if (overlap > std::min(a.Width, b.Width))
        return Problem(Words("The overlap is wider than one of the images."));
    if (overlap != 0 && overlap <= 2 * trim + 1)
        return Problem(Words("The overlap must be wider than twice the trim plus one."));
    if (b.Height < a.Height)
        return Problem(Words("The second image is lower than the first."));
    if (const char* const problem = TooLarge(a.Width + b.Width - overlap, a.Height))
        return Problem(problem);
    RoutineSteps steps(progress, 2);
    if (!steps.Next())
        return Cancelled();
    const ImagePointer result = std::make_shared<Image>(a);
    if (!steps.Next())
        return Cancelled();
    gImaConcate(result.get(), inputs[1].get(), overlap, trim, values[2] != 0.0);
    return steps.Next() ? RoutineResult{result} : Cancelled();
}

}
