#pragma once

#include "reconstruction/Phantom.h"

#include <VostelObj.h>

// Parallel-beam tomography of a field of view from -1 to 1. A sinogram has a row per angle, from 0 up to
// but without half a turn in equal steps, and a column per detector cell; the cells lie symmetrically
// about the centre, Spacing apart.
struct DetectorLayout {
    int    Cells;
    double Spacing;    // in the unit of the field of view
};

// The density on size x size pixels, row 0 at the top.
void DrawPhantom(const std::vector<PhantomEllipse>& phantom, int size, ClassData2DIO<float>& image);

// Line integrals through the middle of each cell.
void Project(const std::vector<PhantomEllipse>& phantom, const DetectorLayout& detector, int angles,
             ClassData2DIO<float>& sinogram);

// Filters each row with the ramp, in place, to the scale of the convolution integral of textbooks: the
// library's filter is at half scale and a sum, so that its rows are multiplied by 2 Spacing.
void FilterRows(const DetectorLayout& detector, ClassData2DIO<float>& sinogram);

// Each pixel is pi / angles times the sum over all rows of the value under it, taken linearly between two
// cells. Of filtered rows this is the density.
void BackProject(const ClassData2DIO<float>& sinogram, const DetectorLayout& detector, int size,
                 ClassData2DIO<float>& image);
