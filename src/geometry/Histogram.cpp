#include "geometry/Histogram.h"

#include "geometry/CodeCounts.h"
#include "geometry/FloatRanks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace vostel {

namespace {

class Bins {
public:
    Bins(double low, double high, std::span<std::uint64_t> counts)
        : Low(low), High(high), Width((high - low) / static_cast<double>(counts.size())),
          PerUnit(static_cast<double>(counts.size()) / (high - low)),
          Last(static_cast<std::int64_t>(counts.size()) - 1), Counts(counts.data())
    {
        std::fill(counts.begin(), counts.end(), 0);
    }

    // Not a number fails the comparison.
    void Add(double v, std::uint64_t count) const
    {
        if (!(v >= Low && v <= High))
            return;
        // The product can miss by one where v lies near a bound.
        const double place = (v - Low) * PerUnit;
        std::int64_t bin = place < static_cast<double>(Last) ? static_cast<std::int64_t>(place) : Last;
        if (bin > 0 && v < Bound(bin))
            --bin;
        else if (bin < Last && v >= Bound(bin + 1))
            ++bin;
        Counts[bin] += count;
    }

private:
    double         Low;
    double         High;
    double         Width;
    double         PerUnit;
    std::int64_t   Last;
    std::uint64_t* Counts;

    double Bound(std::int64_t bin) const { return Low + static_cast<double>(bin) * Width; }
};

// Between two neighbours, from the nearer one.
double Between(double a, double b, double t)
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
    const Bins bins(low, high, counts);
    if (plane.Type == SampleType::F32) {
        for (const PixelRun& run : runs) {
            const float* const row = plane.Row<float>(run.Row);
            for (int x = run.Begin; x < run.End; ++x)
                bins.Add(static_cast<double>(row[x]), 1);
        }
        return;
    }
    const double unit = CodesPerUnit(plane.Type, channel);
    for (const CodeCount& entry : CountCodes(plane, channel, runs))
        bins.Add(entry.Code / unit, entry.Count);
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
        results[i] = Between(values[2 * i], values[2 * i + 1], parts[i]);
    return true;
}

}
