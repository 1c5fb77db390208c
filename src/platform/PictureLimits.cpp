#include "platform/PictureLimits.h"

#include "platform/System.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <mutex>

namespace vostel {

namespace {

constexpr std::int64_t MostPixels = std::int64_t{1} << 28;
constexpr std::int64_t MostFileBytes = std::int64_t{1} << 31;
constexpr const char*  VariableName = "VOSTEL_LIMITS";

// The field of a name; null for other names.
long long* FieldOf(VostelPictureLimits& limits, std::string_view name)
{
    if (name == "pixels")
        return &limits.MaxPixels;
    if (name == "file")
        return &limits.MaxFileBytes;
    return name == "memory" ? &limits.MaxMemory : nullptr;
}

bool TakeEntry(std::string_view entry, VostelPictureLimits& limits)
{
    const std::size_t equals = entry.find('=');
    if (equals == std::string_view::npos)
        return false;
    long long* const  field = FieldOf(limits, entry.substr(0, equals));
    const char* const end = entry.data() + entry.size();
    long long         value = 0;
    const auto [stopped, error] = std::from_chars(entry.data() + equals + 1, end, value);
    if (!field || error != std::errc() || stopped != end || value < 0)
        return false;
    *field = value;
    return true;
}

VostelPictureLimits LimitsOfEnvironment()
{
    std::string               wrong;
    const VostelPictureLimits limits = LimitsOfText(EnvironmentText(VariableName), wrong);
    if (!wrong.empty())
        std::fprintf(stderr, "%s: without effect is %s (pixels=N, file=N and memory=N have one)\n",
                     VariableName, wrong.c_str());
    return limits;
}

struct SharedLimits {
    std::mutex                Guard;
    const VostelPictureLimits Defaults = LimitsOfEnvironment();
    VostelPictureLimits       Set;
};

SharedLimits& Shared()
{
    static SharedLimits shared;
    return shared;
}

// 0 where neither the host nor the environment sets one.
VostelPictureLimits LimitsOfHost()
{
    SharedLimits&                     shared = Shared();
    const std::lock_guard<std::mutex> hold(shared.Guard);
    const auto either = [](long long set, long long otherwise) { return set > 0 ? set : otherwise; };
    return {.MaxPixels = either(shared.Set.MaxPixels, shared.Defaults.MaxPixels),
            .MaxFileBytes = either(shared.Set.MaxFileBytes, shared.Defaults.MaxFileBytes),
            .MaxMemory = either(shared.Set.MaxMemory, shared.Defaults.MaxMemory)};
}

std::int64_t LimitOr(long long limit, std::int64_t most)
{
    return limit > 0 ? std::min<std::int64_t>(limit, most) : most;
}

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
    const VostelPictureLimits limits = LimitsOfHost();
    return {.MaxSide = MostPixels,
            .MaxPixels = LimitOr(limits.MaxPixels, MostPixels),
            .MaxFileBytes = LimitOr(limits.MaxFileBytes, MostFileBytes),
            .MaxMemory = LimitOr(limits.MaxMemory, INT64_MAX)};
}

bool IsWithinLimitsOfPlanes(std::int64_t fileBytes, std::int64_t pixels)
{
    // A file of holes may be so long that four times its length is beyond 64 bits.
    const std::int64_t        counted = std::clamp<std::int64_t>(fileBytes, 0, std::int64_t{1} << 60);
    const VostelPictureLimits limits = LimitsOfHost();
    return pixels <= LimitOr(limits.MaxPixels, INT64_MAX) &&
           fileBytes <= LimitOr(limits.MaxFileBytes, INT64_MAX) &&
           MemoryBudget(static_cast<std::size_t>(counted), pixels) <= LimitOr(limits.MaxMemory, INT64_MAX);
}

VostelPictureLimits LimitsOfText(std::string_view text, std::string& wrong)
{
    VostelPictureLimits limits;
    while (!text.empty()) {
        const std::string_view entry = text.substr(0, text.find(','));
        if (!entry.empty() && !TakeEntry(entry, limits))
            (wrong += wrong.empty() ? "" : ",") += entry;
        text.remove_prefix(std::min(entry.size() + 1, text.size()));
    }
    return limits;
}

}

bool gSetPictureLimits(const VostelPictureLimits& limits)
{
    if (limits.MaxPixels < 0 || limits.MaxFileBytes < 0 || limits.MaxMemory < 0)
        return false;
    vostel::SharedLimits&             shared = vostel::Shared();
    const std::lock_guard<std::mutex> hold(shared.Guard);
    shared.Set = limits;
    return true;
}

VostelPictureLimits gGetPictureLimits()
{
    const vostel::PictureLimits limits = vostel::LimitsOfCImage();
    return {.MaxPixels = limits.MaxPixels,
            .MaxFileBytes = limits.MaxFileBytes,
            .MaxMemory = limits.MaxMemory == INT64_MAX ? 0 : limits.MaxMemory};
}
