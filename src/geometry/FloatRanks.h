#pragma once

#include "geometry/PlaneView.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vostel {

inline bool IsFiniteFloat(float v)
{
    return (std::bit_cast<std::uint32_t>(v) & 0x7f800000u) != 0x7f800000u;
}

// Finds the values at some ranks of the finite floats under runs, without a copy of them: a first pass counts
// them by the upper half of their bits, a second one those with the right upper half by the lower one.
class FloatRanks {
public:
    // Upper halves of the bits in the order of the values, negative ones reversed.
    static constexpr std::size_t Halves = 65536;
    // Bits that sort like the values.
    static std::uint32_t KeyOf(float v)
    {
        const std::uint32_t bits = std::bit_cast<std::uint32_t>(v);
        return bits ^ (static_cast<std::uint32_t>(-static_cast<std::int32_t>(bits >> 31)) | 0x80000000u);
    }

    FloatRanks() : Upper(Halves) {}

    void CountFinite(const float* values, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            ++Upper[KeyOf(values[i]) >> 16];
    }
    // The values that have so many others before them in ascending order. All finite values under the runs
    // have been counted; the ranks are below their number. Minus zero comes as zero.
    std::vector<double> ValuesAt(std::span<const std::uint64_t> ranks, const PlaneView& plane,
                                 std::span<const PixelRun> runs) const;

private:
    std::vector<std::uint64_t> Upper;
};

// The same for a few values, which change their order.
std::vector<double> ValuesAtRanks(std::span<const std::uint64_t> ranks, std::vector<float>& finiteValues);

}
