#pragma once

#include "process/Routine.h"

namespace vostel::viewer {

// Kernels are summed in the order of the library, so that results are its to the bit. A kernel that is larger
// than the image fails by Error.
Samples SmoothGaussian(const Samples& image, std::span<const double> values, RunState& state);
Samples SmoothMean(const Samples& image, std::span<const double> values, RunState& state);
Samples Sharpen(const Samples& image, std::span<const double> values, RunState& state);
Samples Edges(const Samples& image, std::span<const double> values, RunState& state);
Samples Invert(const Samples& image, std::span<const double> values, RunState& state);

}
