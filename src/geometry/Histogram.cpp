#include "geometry/Histogram.h"

#include "geometry/BinRows.h"
#include "geometry/CodeCounts.h"
#include "geometry/FloatRanks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace vostel {

namespace {

// Counts bins. Equal ones in a row would wait for each other: neighbours count in tables of their own.
class BinCounter {
public:
    static constexpr std::size_t Block = 1024;

    explicit BinCounter(std::span<std::uint64_t> counts)
        : Counts(counts), Tables(counts.size() <= MostTabled ? TableCount : 1),
          Held((counts.size() + 1) * Tables)
    {
    }

    void Add(const std::int32_t* bins, std::size_t count)
    {
        if (Tables == TableCount) {
            std::uint32_t* const first = Held.data();
            std::uint32_t* const second = first + Counts.size() + 1;
            std::uint32_t* const third = second + Counts.size() + 1;
            std::uint32_t* const fourth = third + Counts.size() + 1;
            for (; count >= 4; count -= 4, bins += 4) {
                ++first[bins[0]];
                ++second[bins[1]];
                ++third[bins[2]];
                ++fourth[bins[3]];
                Added += 4;
            }
        }
        for (std::size_t i = 0; i < count; ++i)
            ++Held[static_cast<std::size_t>(bins[i])];
        Added += count;
        if (Added > UINT32_MAX - Block)
            Flush();
    }

    void Flush()
    {
        for (std::size_t table = 0; table < Tables; ++table) {
            const std::uint32_t* const held = Held.data() + table * (Counts.size() + 1);
            for (std::size_t bin = 0; bin < Counts.size(); ++bin)
                Counts[bin] += held[bin];
        }
        std::fill(Held.begin(), Held.end(), 0);
        Added = 0;
    }

private:
    static constexpr std::size_t TableCount = 4;
    static constexpr std::size_t MostTabled = 4096;    // bins; more leave the first-level cache

    std::span<std::uint64_t>   Counts;
    std::size_t                Tables;
    std::vector<std::uint32_t> Held;    // each table ends with what lies outside
    std::uint64_t              Added = 0;
};

void CountFloatBins(const PlaneView& plane, std::span<const PixelRun> runs, const BinRule& rule,
                    std::span<std::uint64_t> counts)
{
    const BinRowVariant& variant = ActiveBinRowVariant();
    BinCounter           counter(counts);
    std::int32_t         bins[BinCounter::Block];
    for (const PixelRun& run : runs) {
        const float* const row = plane.Row<float>(run.Row);
        for (int x = run.Begin; x < run.End; x += static_cast<int>(BinCounter::Block)) {
            const std::size_t count = std::min(BinCounter::Block, static_cast<std::size_t>(run.End - x));
            variant.Row(rule, row + x, bins, count);
            counter.Add(bins, count);
        }
    }
    counter.Flush();
}

// Between two neighbours, from the nearer one.
double BetweenNeighbours(double a, double b, double t)
{
    return t < 0.5 ? a + (b - a) * t : b - (b - a) * (1.0 - t);
}

// The finite floats under the runs, counted by the upper half of their bits. Returns their number.
std::uint64_t CountFloats(const PlaneView& plane, std::span<const PixelRun> runs, FloatRanks& table)
{
    std::uint64_t count = 0;
    for (const PixelRun& run : runs) {
        const float* const row = plane.Row<float>(run.Row);
        for (int x = run.Begin; x < run.End; ++x) {
            if (IsFiniteFloat(row[x])) {
                table.CountFinite(row + x, 1);
                ++count;
            }
        }
    }
    return count;
}

}

void HistogramOf(const PlaneView& plane, int channel, std::span<const PixelRun> runs, double low, double high,
                 std::span<std::uint64_t> counts)
{
    const BinRule rule(low, high, counts.size());
    std::fill(counts.begin(), counts.end(), 0);
    if (plane.Type == SampleType::F32) {
        CountFloatBins(plane, runs, rule, counts);
        return;
    }
    const double unit = CodesPerUnit(plane.Type, channel);
    for (const CodeCount& entry : CountCodes(plane, channel, runs)) {
        const std::int32_t bin = rule.BinOf(entry.Code / unit);
        if (bin <= rule.Last)
            counts[static_cast<std::size_t>(bin)] += entry.Count;
    }
}

bool PercentilesOf(const PlaneView& plane, int channel, std::span<const PixelRun> runs,
                   std::span<const double> percents, std::span<double> results)
{
    FloatRanks             table;
    std::vector<CodeCount> codes;
    std::uint64_t          count = 0;
    const bool             floats = plane.Type == SampleType::F32;
    if (floats) {
        count = CountFloats(plane, runs, table);
    } else {
        codes = CountCodes(plane, channel, runs);
        for (const CodeCount& entry : codes)
            count += entry.Count;
    }
    if (count == 0)
        return false;

    std::vector<std::uint64_t> ranks;    // the one below and the one above for each
    std::vector<double>        parts;
    for (const double percent : percents) {
        const double place = percent / 100.0 * static_cast<double>(count - 1);
        const auto   below = std::min(static_cast<std::uint64_t>(place), count - 1);
        ranks.push_back(below);
        ranks.push_back(std::min(below + 1, count - 1));
        parts.push_back(place - static_cast<double>(below));
    }
    std::vector<double> values;
    if (floats) {
        values = table.ValuesAt(ranks, plane, runs);
    } else {
        const double unit = CodesPerUnit(plane.Type, channel);
        for (const std::uint64_t rank : ranks)
            values.push_back(CodeAtRank(codes, rank) / unit);
    }
    for (std::size_t i = 0; i < parts.size(); ++i)
        results[i] = BetweenNeighbours(values[2 * i], values[2 * i + 1], parts[i]);
    return true;
}

}
