#pragma once

#include "geometry/PlaneView.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vostel {

// How often a whole number occurs.
struct CodeCount {
    int           Code = 0;
    std::uint64_t Count = 0;
};

// The codes of an image of whole numbers: its values, or a thousand times the luma.
inline int CodesPerUnit(SampleType type, int channel)
{
    return IsColor(type) && channel == 0 ? LumaUnit : 1;
}

// The codes under the runs in ascending order, each with a count above 0. Not for floats.
std::vector<CodeCount> CountCodes(const PlaneView& plane, int channel, std::span<const PixelRun> runs);

// The code that has this many others before it in ascending order; rank is below the sum of all counts.
int CodeAtRank(std::span<const CodeCount> counts, std::uint64_t rank);

}
