#include "platform/PictureLimits.h"

#include <algorithm>

namespace vostel {

namespace {

constexpr std::int64_t MostPixels = std::int64_t{1} << 28;
constexpr std::int64_t MostFileBytes = std::int64_t{1} << 31;

}

std::int64_t MemoryBudget(std::size_t fileBytes, std::int64_t pixels, std::int64_t storedBytes)
{
    constexpr std::int64_t bytesPerPixel = 4;
    constexpr std::int64_t times = 4;
    constexpr std::int64_t constant = 64 << 20;
    return times * std::max({static_cast<std::int64_t>(fileBytes), bytesPerPixel * pixels, storedBytes}) +
           constant;
}

bool IsWithin(const PictureLimits& limits, std::size_t fileBytes, std::int64_t width, std::int64_t height,
              std::int64_t storedBytes)
{
    return width <= limits.MaxSide && height <= limits.MaxSide && width <= limits.MaxPixels / height &&
           width <= INT32_MAX / 16 && height <= INT32_MAX &&
           MemoryBudget(fileBytes, width * height, storedBytes) <= limits.MaxMemory;
}

PictureLimits LimitsOfCImage()
{
    return {.MaxSide = MostPixels, .MaxPixels = MostPixels, .MaxFileBytes = MostFileBytes};
}

}
