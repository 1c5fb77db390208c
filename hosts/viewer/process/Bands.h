#pragma once

#include "process/Routine.h"

#include <vostel.hpp>

#include <algorithm>
#include <functional>

namespace vostel::viewer {

// Work on rows of an image, with as many rows around as a neighborhood reaches, into rows of a result. A band
// takes a few hundredths of a second, so that a run can be watched and stopped.
using BandWork = std::function<void(const Plane<const float>& rows, const Plane<float>& result)>;

// The same values as one call for the whole image: rows at the border of a band see their true neighbors.
// @param cost products or the like for a pixel
Samples ByBands(const Samples& image, int reach, double cost, RunState& state, const BandWork& work);

}
