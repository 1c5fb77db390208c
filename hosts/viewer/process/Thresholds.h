#pragma once

#include "process/Routine.h"

namespace vostel::viewer {

// 255 where something holds, else 0; where the value is no number, 0.
Samples ThresholdRange(const Samples& image, std::span<const double> values, RunState& state);
// By the value that makes the variance between dark and bright the largest (Otsu, 1979), of 256 classes over
// the range.
Samples ThresholdOtsu(const Samples& image, std::span<const double> values, RunState& state);
// By the mean around. Works on bytes: values beyond 0..255 are stretched to them first.
Samples ThresholdLocal(const Samples& image, std::span<const double> values, RunState& state);

// What ThresholdOtsu() parts by.
double OtsuValue(const Samples& image);

}
