#include "interchange/SampleHash.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>

namespace vostel {

namespace {

constexpr std::uint64_t Prime1 = 0x9E3779B185EBCA87;
constexpr std::uint64_t Prime2 = 0xC2B2AE3D27D4EB4F;
constexpr std::uint64_t Prime3 = 0x165667B19E3779F9;
constexpr std::uint64_t Prime4 = 0x85EBCA77C2B2AE63;
constexpr std::uint64_t Prime5 = 0x27D4EB2F165667C5;

std::uint64_t Mixed(std::uint64_t lane, std::uint64_t input)
{
    return std::rotl(lane + input * Prime2, 31) * Prime1;
}

template <typename Number>
Number Load(const unsigned char* bytes)
{
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

}

Hash64::Hash64() : Lanes{Prime1 + Prime2, Prime2, 0, 0 - Prime1} {}

void Hash64::TakeStripe(const unsigned char* bytes)
{
    for (std::size_t lane = 0; lane < 4; ++lane)
        Lanes[lane] = Mixed(Lanes[lane], Load<std::uint64_t>(bytes + 8 * lane));
}

void Hash64::Take(std::span<const unsigned char> bytes)
{
    const std::size_t held = static_cast<std::size_t>(Count % StripeBytes);
    Count += bytes.size();
    if (held > 0) {
        const std::size_t taken = std::min(StripeBytes - held, bytes.size());
        std::copy_n(bytes.begin(), taken, Rest + held);
        if (held + taken < StripeBytes)
            return;
        TakeStripe(Rest);
        bytes = bytes.subspan(taken);
    }
    for (; bytes.size() >= StripeBytes; bytes = bytes.subspan(StripeBytes))
        TakeStripe(bytes.data());
    std::copy(bytes.begin(), bytes.end(), Rest);
}

std::uint64_t Hash64::Value() const
{
    std::uint64_t hash = Prime5;
    if (Count >= StripeBytes) {
        hash = std::rotl(Lanes[0], 1) + std::rotl(Lanes[1], 7) + std::rotl(Lanes[2], 12) +
               std::rotl(Lanes[3], 18);
        for (const std::uint64_t lane : Lanes)
            hash = (hash ^ Mixed(0, lane)) * Prime1 + Prime4;
    }
    hash += Count;
    const unsigned char* at = Rest;
    std::size_t          left = static_cast<std::size_t>(Count % StripeBytes);
    for (; left >= 8; at += 8, left -= 8)
        hash = std::rotl(hash ^ Mixed(0, Load<std::uint64_t>(at)), 27) * Prime1 + Prime4;
    for (; left >= 4; at += 4, left -= 4)
        hash = std::rotl(hash ^ Load<std::uint32_t>(at) * Prime1, 23) * Prime2 + Prime3;
    for (; left > 0; ++at, --left)
        hash = std::rotl(hash ^ *at * Prime5, 11) * Prime1;
    hash = (hash ^ hash >> 33) * Prime2;
    hash = (hash ^ hash >> 29) * Prime3;
    return hash ^ hash >> 32;
}

std::string HashText(const Hash64& hash)
{
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash.Value()));
    return std::string("xxh64:") + digits;
}

std::string HashOfSamples(const PlaneView& plane)
{
    Hash64            hash;
    const std::size_t rowBytes = PixelBytes(plane.Type) * static_cast<std::size_t>(plane.Width);
    for (int y = 0; y < plane.Height; ++y)
        hash.Take({plane.Row<unsigned char>(y), rowBytes});
    return HashText(hash);
}

}
