#pragma once

#include "geometry/PlaneView.h"

#include <cstdint>
#include <span>

namespace vostel {

// Of finite values; all 0 where there is none.
struct ValueStatistics {
    std::int64_t Count = 0;        // of the finite ones
    std::int64_t NotFinite = 0;    // of those left out
    double       Sum = 0.0;
    double       Mean = 0.0;
    double       Sd = 0.0;    // with Count - 1 in the denominator; 0 for one value
    double       Min = 0.0;
    double       Max = 0.0;
    double       Median = 0.0;    // the middle one, or the mean of the middle two
};

// Sums are exact for whole numbers; those of floats are carried in double with what each addition lost, so
// that equal values have just that mean, however many. The runs lie within the plane.
ValueStatistics StatisticsOf(const PlaneView& plane, int channel, std::span<const PixelRun> runs);
ValueStatistics StatisticsOf(std::span<const double> values);

}
