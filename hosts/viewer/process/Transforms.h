#pragma once

#include "process/Routine.h"

namespace vostel::viewer {

Samples ResizeTo(const Samples& image, std::span<const double> values, RunState& state);
// Of the image less its mean, continued by zeros to powers of two.
Samples Spectrum(const Samples& image, std::span<const double> values, RunState& state);
Samples RampFilter(const Samples& image, std::span<const double> values, RunState& state);

}
