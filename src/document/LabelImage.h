#pragma once

#include "geometry/Coverage.h"

#include <cstdint>
#include <vector>

namespace vostel {

class Document;
class VostelImage;
class VostelObj;

// A region's pixels in the label image. Of regions that overlap, the later one covers the earlier.
struct LabelledRegion {
    const VostelObj*      Object = nullptr;
    std::vector<PixelRun> Runs;
    std::int32_t          Label = 0;
};

// In drawing order, for an image of the size; hidden regions and those without a label are left out.
std::vector<LabelledRegion> LabelledRegions(const VostelImage& canvas, const Document& notes, int width,
                                            int height);

}
