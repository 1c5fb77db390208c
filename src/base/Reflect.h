#pragma once

// Coordinates outside 0..extent-1, reflected at its ends. A reflection repeats the edge sample (-1 gives 0,
// extent gives extent - 1) or skips it (-1 gives 1, extent gives extent - 2).

#include <algorithm>
#include <cstdint>

namespace vostel {

// One fold of either kind, skipped being 0 or 1 edge samples. Both have the period 2 * extent, so that with a
// skipped edge the last place of a period comes to -1. Without samples the one end that is left reflects.
constexpr std::int64_t FoldAtEdges(std::int64_t c, std::int64_t extent, int skipped)
{
    std::int64_t at = c < 0 ? skipped - 1 - c : c;
    if (extent > 0)
        at %= 2 * extent;
    return at >= extent ? 2 * extent - 1 - skipped - at : at;
}

// Both for an extent above 0. Where the skipping one folds to -1 it takes sample 0.
constexpr int ReflectRepeatingEdge(std::int64_t c, int extent)
{
    return static_cast<int>(FoldAtEdges(c, extent, 0));
}
constexpr int ReflectSkippingEdge(std::int64_t c, int extent)
{
    return static_cast<int>(std::max<std::int64_t>(FoldAtEdges(c, extent, 1), 0));
}

}
