#pragma once

#include "geometry/PlaneView.h"
#include "overlay/VostelObj.h"
#include "vostel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

namespace vostel {

// The plane without Data stands for no image: then there are no pixels and no values. The channel is one of
// the plane.
VostelMeasures MeasureObject(const VostelObj& object, const PlaneView& plane, int channel,
                             double unitsPerPixel);

// The pixels of a region on an image of the size; none of a region that still lacks points.
std::vector<PixelRun> RunsOfRegion(const VostelObj& region, int width, int height);

// Kinds that run from a first to a last point, along which a profile can be taken.
bool IsLine(int kind);

// A profile has at most so many samples.
inline constexpr std::int64_t MostSamples = std::int64_t(1) << 24;

// The measures in the order of their fields, each with the bit that says whether it has a meaning.
struct MeasureField {
    const char*                                                            Name;
    std::uint32_t                                                          Bit;
    std::variant<std::int64_t VostelMeasures::*, double VostelMeasures::*> Field;
};
extern const std::array<MeasureField, 21> MeasureFields;

}
