#pragma once

#include "geometry/PlaneView.h"

#include <cstdint>
#include <span>

namespace vostel {

// With w = (high - low) / bins, bin k counts the values low + k w <= v < low + (k + 1) w under the runs, as
// these bounds come out in double; v == high falls into the last one. Other values are not counted. Where
// high - low overflows, w is high / bins - low / bins.
// Low < high, both finite. Overwrites all counts; there is at least one.
void HistogramOf(const PlaneView& plane, int channel, std::span<const PixelRun> runs, double low, double high,
                 std::span<std::uint64_t> counts);

// Percentiles of the finite values under the runs, with q / 100 (n - 1) for the rank of q and linear between
// ranks. The percents lie within 0..100, and are at most 100 of them. False without a finite value, when the
// results stay as they are.
bool PercentilesOf(const PlaneView& plane, int channel, std::span<const PixelRun> runs,
                   std::span<const double> percents, std::span<double> results);

}
