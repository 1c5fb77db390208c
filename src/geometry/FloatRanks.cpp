#include "geometry/FloatRanks.h"

#include <algorithm>

namespace vostel {

namespace {

double ValueOf(std::uint32_t key)
{
    const std::uint32_t bits = key & 0x80000000u ? key ^ 0x80000000u : ~key;
    return static_cast<double>(std::bit_cast<float>(bits)) + 0.0;
}

// The entry that holds a rank, which becomes the rank within it.
std::size_t EntryOf(const std::vector<std::uint64_t>& counts, std::uint64_t& rank)
{
    std::size_t entry = 0;
    while (entry + 1 < counts.size() && rank >= counts[entry])
        rank -= counts[entry++];
    return entry;
}

}

std::vector<double> FloatRanks::ValuesAt(std::span<const std::uint64_t> ranks, const PlaneView& plane,
                                         std::span<const PixelRun> runs) const
{
    std::vector<std::uint8_t>               slots(Halves);    // 0 for those that no rank lies in
    std::vector<std::vector<std::uint64_t>> lower(1);
    std::vector<std::uint64_t>              within(ranks.begin(), ranks.end());
    std::vector<std::size_t>                upper;
    for (std::uint64_t& rank : within) {
        upper.push_back(EntryOf(Upper, rank));
        if (slots[upper.back()] == 0) {
            slots[upper.back()] = static_cast<std::uint8_t>(lower.size());
            lower.emplace_back(Halves);
        }
    }
    for (const PixelRun& run : runs) {
        const float* const row = plane.Row<float>(run.Row);
        for (int x = run.Begin; x < run.End; ++x) {
            const std::uint32_t key = KeyOf(row[x]);
            const std::uint8_t  slot = slots[key >> 16];
            if (slot != 0)    // and so finite: the whole exponent is in the upper half
                ++lower[slot][key & 0xffffu];
        }
    }
    std::vector<double> values;
    for (std::size_t i = 0; i < within.size(); ++i) {
        const std::size_t half = EntryOf(lower[slots[upper[i]]], within[i]);
        values.push_back(ValueOf(static_cast<std::uint32_t>(upper[i] << 16 | half)));
    }
    return values;
}

std::vector<double> ValuesAtRanks(std::span<const std::uint64_t> ranks, std::vector<float>& finiteValues)
{
    std::vector<double> values;
    for (const std::uint64_t rank : ranks) {
        const auto place = finiteValues.begin() + static_cast<std::ptrdiff_t>(rank);
        std::nth_element(finiteValues.begin(), place, finiteValues.end());
        values.push_back(static_cast<double>(*place) + 0.0);
    }
    return values;
}

}
