#include "reconstruction/Tomography.h"

#include <cmath>
#include <vector>

namespace {

constexpr double HalfTurn = 3.14159265358979323846;

// The middle of a pixel; y counts downwards there and upwards in the field of view.
double FieldX(int column, int size)
{
    return (2.0 * column + 1.0) / size - 1.0;
}
double FieldY(int row, int size)
{
    return -FieldX(row, size);
}

}

void DrawPhantom(const std::vector<PhantomEllipse>& phantom, int size, ClassData2DIO<float>& image)
{
    image.Allocate(size, size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            image.Ptr2D[y][x] = static_cast<float>(DensityAt(phantom, FieldX(x, size), FieldY(y, size)));
}

void Project(const std::vector<PhantomEllipse>& phantom, const DetectorLayout& detector, int angles,
             ClassData2DIO<float>& sinogram)
{
    sinogram.Allocate(detector.Cells, angles);
    for (int row = 0; row < angles; ++row) {
        const double angle = HalfTurn * row / angles;
        for (int cell = 0; cell < detector.Cells; ++cell) {
            const double offset = (cell - 0.5 * (detector.Cells - 1)) * detector.Spacing;
            sinogram.Ptr2D[row][cell] = static_cast<float>(RayIntegral(phantom, angle, offset));
        }
    }
}

void FilterRows(const DetectorLayout& detector, ClassData2DIO<float>& sinogram)
{
    ZEKFilter1DForRec(&sinogram, static_cast<float>(detector.Spacing));
    const float scale = static_cast<float>(2.0 * detector.Spacing);
    for (int i = 0; i < sinogram.Width * sinogram.Height; ++i)
        sinogram.Ptr1D[i] *= scale;
}

void BackProject(const ClassData2DIO<float>& sinogram, const DetectorLayout& detector, int size,
                 ClassData2DIO<float>& image)
{
    image.Allocate(size, size);
    std::vector<double> sums(static_cast<std::size_t>(size) * static_cast<std::size_t>(size), 0.0);
    const double        middle = 0.5 * (detector.Cells - 1);
    for (int row = 0; row < sinogram.Height; ++row) {
        const double angle = HalfTurn * row / sinogram.Height;
        const double c = std::cos(angle) / detector.Spacing;
        const double s = std::sin(angle) / detector.Spacing;
        const float* values = sinogram.Ptr2D[row];
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const double place = FieldX(x, size) * c + FieldY(y, size) * s + middle;
                const double left = std::floor(place);
                if (left < 0.0 || left + 1.0 >= detector.Cells)
                    continue;
                const int    cell = static_cast<int>(left);
                const double fraction = place - left;
                sums[static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
                     static_cast<std::size_t>(x)] +=
                    (1.0 - fraction) * values[cell] + fraction * values[cell + 1];
            }
        }
    }
    for (std::size_t i = 0; i < sums.size(); ++i)
        image.Ptr1D[i] = static_cast<float>(sums[i] * HalfTurn / sinogram.Height);
}
