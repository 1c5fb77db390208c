#pragma once

// The pixels of a region. A pixel belongs to it when its centre lies inside the outline by the even-odd rule;
// a centre on the outline is looked at from a hair to the right and a much smaller hair below, so that left
// and upper edges belong to the region and right and lower ones don't. The topmost point of an ellipse counts
// as a level edge. Regions that share an edge share no pixel and leave none out.
//
// Straight outlines and ellipses are decided without rounding errors. A curve's crossing with a row of
// centres is computed in double and decided from there.

#include "geometry/Outline.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vostel {

// Pixels Begin..End-1 of a row.
struct PixelRun {
    int Row = 0;
    int Begin = 0;
    int End = 0;
};

// The runs within an image of the size, from top to bottom and from left to right; none is empty and no two
// touch.
std::vector<PixelRun> CoverageOf(const Outline& outline, int width, int height);

std::int64_t CountPixels(std::span<const PixelRun> runs);

// 255 for the pixels of the runs and 0 for all others of the width x height plane.
void WriteMask(std::span<const PixelRun> runs, int width, int height, std::uint8_t* mask,
               std::ptrdiff_t rowBytes);

// Sets the pixels of the runs and leaves all others.
void WriteLabel(std::span<const PixelRun> runs, std::int32_t label, std::int32_t* labels,
                std::ptrdiff_t rowBytes);

}
