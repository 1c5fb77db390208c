#include "geometry/CodeCounts.h"

#include <algorithm>
#include <cstddef>

namespace vostel {

namespace {

// Below one pixel for this many codes, sorting is faster than clearing and reading a table.
constexpr int CodesPerPixel = 16;

struct CodeRange {
    int First = 0;
    int Count = 256;
};

CodeRange RangeOf(SampleType type, int channel)
{
    switch (type) {
    case SampleType::U16:
        return {0, 65536};
    case SampleType::I16:
        return {-32768, 65536};
    default:
        return {0, 255 * CodesPerUnit(type, channel) + 1};
    }
}

template <typename Sample, typename Take>
void ForEachSample(const PlaneView& plane, std::span<const PixelRun> runs, const Take& take)
{
    for (const PixelRun& run : runs) {
        const Sample* const row = plane.Row<Sample>(run.Row);
        for (int x = run.Begin; x < run.End; ++x)
            take(row[x]);
    }
}

template <typename Take>
void ForEachColorCode(const PlaneView& plane, int channel, std::span<const PixelRun> runs, const Take& take)
{
    const ColorLayout layout(plane.Type);
    for (const PixelRun& run : runs) {
        const std::uint8_t* pixel =
            plane.Row<std::uint8_t>(run.Row) + static_cast<std::ptrdiff_t>(run.Begin) * layout.PixelBytes;
        if (channel == 0) {
            for (int x = run.Begin; x < run.End; ++x, pixel += layout.PixelBytes)
                take(layout.LumaCode(pixel));
        } else {
            pixel += layout.Offset(channel);
            for (int x = run.Begin; x < run.End; ++x, pixel += layout.PixelBytes)
                take(*pixel);
        }
    }
}

template <typename Take>
void ForEachCode(const PlaneView& plane, int channel, std::span<const PixelRun> runs, const Take& take)
{
    if (plane.Type == SampleType::U8)
        ForEachSample<std::uint8_t>(plane, runs, take);
    else if (plane.Type == SampleType::U16)
        ForEachSample<std::uint16_t>(plane, runs, take);
    else if (plane.Type == SampleType::I16)
        ForEachSample<std::int16_t>(plane, runs, take);
    else if (IsColor(plane.Type))
        ForEachColorCode(plane, channel, runs, take);
}

std::vector<CodeCount> CountBySorting(const PlaneView& plane, int channel, std::span<const PixelRun> runs)
{
    std::vector<int> codes;
    ForEachCode(plane, channel, runs, [&codes](int code) { codes.push_back(code); });
    std::sort(codes.begin(), codes.end());
    std::vector<CodeCount> counts;
    for (const int code : codes) {
        if (counts.empty() || counts.back().Code != code)
            counts.push_back({code, 0});
        ++counts.back().Count;
    }
    return counts;
}

}

std::vector<CodeCount> CountCodes(const PlaneView& plane, int channel, std::span<const PixelRun> runs)
{
    const CodeRange range = RangeOf(plane.Type, channel);
    if (CountPixels(runs) < range.Count / CodesPerPixel)
        return CountBySorting(plane, channel, runs);
    std::vector<std::uint64_t> table(static_cast<std::size_t>(range.Count));
    std::uint64_t* const       counters = table.data();
    const int                  first = range.First;
    ForEachCode(plane, channel, runs, [counters, first](int code) { ++counters[code - first]; });
    std::vector<CodeCount> counts;
    for (int i = 0; i < range.Count; ++i) {
        if (counters[i] > 0)
            counts.push_back({first + i, counters[i]});
    }
    return counts;
}

int CodeAtRank(std::span<const CodeCount> counts, std::uint64_t rank)
{
    for (const CodeCount& entry : counts) {
        if (rank < entry.Count)
            return entry.Code;
        rank -= entry.Count;
    }
    return 0;
}

}
