#pragma once

// What is taken from files of pictures, and what reading one may cost.

#include "vostel/host.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vostel {

struct PictureLimits {
    std::int64_t MaxSide = 1 << 20;    // px
    std::int64_t MaxPixels = std::int64_t{1} << 28;
    std::int64_t MaxFileBytes = std::int64_t{1} << 33;
    std::int64_t MaxMemory = INT64_MAX;    // bytes for reading one
};

// The memory that reading a picture of that size stays below: four times the larger of the file and the
// picture, and a constant for codecs and small pictures. A picture counts four bytes a pixel, or as many as
// its file stores where that is more.
std::int64_t MemoryBudget(std::size_t fileBytes, std::int64_t pixels, std::int64_t storedBytes = 0);

// Whether a picture of sides of 1 or more is taken.
bool IsWithin(const PictureLimits& limits, std::size_t fileBytes, std::int64_t width, std::int64_t height,
              std::int64_t storedBytes = 0);

// Those of CImage, by the host or by the environment.
PictureLimits LimitsOfCImage();
// For BMP planes, which have no limit but what the host or the environment sets.
bool IsWithinLimitsOfPlanes(std::int64_t fileBytes, std::int64_t pixels);

// Limits as the environment gives them: "pixels=N,file=N,memory=N", in any order. Entries that are something
// else have no effect and are listed in the second text, with commas between them.
VostelPictureLimits LimitsOfText(std::string_view text, std::string& wrong);

}
