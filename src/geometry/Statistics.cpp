#include "geometry/Statistics.h"

#include "geometry/CodeCounts.h"
#include "geometry/CompensatedSum.h"
#include "geometry/FloatRanks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

namespace vostel {

namespace {

constexpr std::size_t  ChunkSize = 2048;    // stays in the first cache; its exact sums fit into double
constexpr std::size_t  Lanes = 8;
constexpr std::int64_t FewValues = 16384;    // below that a copy is cheaper than tables of bits

// The mean can lie outside by its last bit.
void SetMean(ValueStatistics& statistics)
{
    statistics.Mean =
        std::clamp(statistics.Sum / static_cast<double>(statistics.Count), statistics.Min, statistics.Max);
}

void SetSd(ValueStatistics& statistics, double squares)
{
    if (statistics.Count > 1)
        statistics.Sd = std::sqrt(squares / static_cast<double>(statistics.Count - 1));
}

// The ranks of the middle value, or of the middle two.
std::array<std::uint64_t, 2> MiddleRanks(std::int64_t count)
{
    const auto ranks = static_cast<std::uint64_t>(count);
    return {(ranks - 1) / 2, ranks / 2};
}

ValueStatistics OfCodes(const std::vector<CodeCount>& counts, double unit)
{
    ValueStatistics statistics;
    if (counts.empty())
        return statistics;
    std::int64_t sum = 0;
    for (const CodeCount& entry : counts) {
        statistics.Count += static_cast<std::int64_t>(entry.Count);
        sum += entry.Code * static_cast<std::int64_t>(entry.Count);
    }
    statistics.Sum = static_cast<double>(sum) / unit;
    statistics.Min = counts.front().Code / unit;
    statistics.Max = counts.back().Code / unit;
    SetMean(statistics);
    CompensatedSum squares;
    for (const CodeCount& entry : counts) {
        const double away = entry.Code / unit - statistics.Mean;
        squares.Add(static_cast<double>(entry.Count) * away * away);
    }
    SetSd(statistics, squares.Value());
    const auto ranks = MiddleRanks(statistics.Count);
    // Halved last: both codes are whole.
    statistics.Median = (CodeAtRank(counts, ranks[0]) + CodeAtRank(counts, ranks[1])) / unit / 2.0;
    return statistics;
}

// One pass over floats, in chunks. Count, mean m and sum of squares q of two sets join by
//   q = q1 + q2 + (m2 - m1)^2 n1 n2 / (n1 + n2).
class FloatTotals {
public:
    void Add(const float* values, std::size_t count)
    {
        for (; count > ChunkSize; values += ChunkSize, count -= ChunkSize)
            AddChunk(values, ChunkSize);
        AddChunk(values, count);
    }

    ValueStatistics Result() const
    {
        ValueStatistics statistics;
        statistics.Count = Finite;
        statistics.NotFinite = NotFinite;
        if (Finite == 0)
            return statistics;
        statistics.Sum = Sum.Value();
        statistics.Min = static_cast<double>(Least) + 0.0;
        statistics.Max = static_cast<double>(Most) + 0.0;
        SetMean(statistics);
        SetSd(statistics, Squares.Value());
        return statistics;
    }

    FloatRanks*         Ranks = nullptr;     // counts the finite values, unless
    std::vector<float>* Values = nullptr;    // gets them

private:
    std::int64_t   Finite = 0;
    std::int64_t   NotFinite = 0;
    CompensatedSum Sum;
    CompensatedSum Squares;
    double         Mean = 0.0;
    float          Least = 0.0f;
    float          Most = 0.0f;

    static std::size_t CountFinite(const float* values, std::size_t count)
    {
        std::uint32_t finite = 0;
        for (std::size_t i = 0; i < count; ++i)
            finite += IsFiniteFloat(values[i]) ? 1u : 0u;
        return finite;
    }

    void AddChunk(const float* values, std::size_t count)
    {
        const std::size_t finite = CountFinite(values, count);
        NotFinite += static_cast<std::int64_t>(count - finite);
        if (finite == 0)
            return;
        std::array<float, ChunkSize> kept;
        if (finite < count) {
            std::copy_if(values, values + count, kept.begin(), IsFiniteFloat);
            values = kept.data();
        }
        AddFinite(values, finite);
        if (Values)
            Values->insert(Values->end(), values, values + finite);
        else if (Ranks)
            Ranks->CountFinite(values, finite);
    }

    // In lanes, which the compiler takes together.
    void AddFinite(const float* values, std::size_t count)
    {
        const std::size_t         whole = count - count % Lanes;
        std::array<double, Lanes> sums{};
        std::array<float, Lanes>  lows;
        std::array<float, Lanes>  highs;
        lows.fill(values[0]);
        highs.fill(values[0]);
        for (std::size_t i = 0; i < whole; i += Lanes) {
            for (std::size_t lane = 0; lane < Lanes; ++lane) {
                const float v = values[i + lane];
                sums[lane] += static_cast<double>(v);
                lows[lane] = v < lows[lane] ? v : lows[lane];
                highs[lane] = v > highs[lane] ? v : highs[lane];
            }
        }
        for (std::size_t i = whole; i < count; ++i) {
            sums[0] += static_cast<double>(values[i]);
            lows[0] = std::min(lows[0], values[i]);
            highs[0] = std::max(highs[0], values[i]);
        }
        const double              size = static_cast<double>(count);
        const double              sum = Joined(sums);
        const double              mean = sum / size;
        std::array<double, Lanes> squares{};
        for (std::size_t i = 0; i < whole; i += Lanes) {
            for (std::size_t lane = 0; lane < Lanes; ++lane) {
                const double away = static_cast<double>(values[i + lane]) - mean;
                squares[lane] += away * away;
            }
        }
        for (std::size_t i = whole; i < count; ++i) {
            const double away = static_cast<double>(values[i]) - mean;
            squares[0] += away * away;
        }
        const float low = *std::min_element(lows.begin(), lows.end());
        const float high = *std::max_element(highs.begin(), highs.end());
        Join(count, sum, mean, Joined(squares), low, high);
    }

    static double Joined(const std::array<double, Lanes>& lanes)
    {
        return ((lanes[0] + lanes[1]) + (lanes[2] + lanes[3])) +
               ((lanes[4] + lanes[5]) + (lanes[6] + lanes[7]));
    }

    void Join(std::size_t count, double sum, double mean, double squares, float low, float high)
    {
        const double before = static_cast<double>(Finite);
        const double added = static_cast<double>(count);
        Least = Finite == 0 ? low : std::min(Least, low);
        Most = Finite == 0 ? high : std::max(Most, high);
        Finite += static_cast<std::int64_t>(count);
        Sum.Add(sum);
        Squares.Add(squares);
        const double away = mean - Mean;
        if (before > 0.0)
            Squares.Add(away * away * (before * added / (before + added)));
        Mean = Sum.Value() / static_cast<double>(Finite);
    }
};

ValueStatistics OfFloats(const PlaneView& plane, std::span<const PixelRun> runs)
{
    std::vector<float>        values;
    std::optional<FloatRanks> ranks;
    FloatTotals               totals;
    if (CountPixels(runs) < FewValues)
        totals.Values = &values;
    else
        totals.Ranks = &ranks.emplace();
    for (const PixelRun& run : runs)
        totals.Add(plane.Row<float>(run.Row) + run.Begin, static_cast<std::size_t>(run.End - run.Begin));
    ValueStatistics statistics = totals.Result();
    if (statistics.Count == 0)
        return statistics;
    const auto                middle = MiddleRanks(statistics.Count);
    const std::vector<double> ends =
        ranks ? ranks->ValuesAt(middle, plane, runs) : ValuesAtRanks(middle, values);
    statistics.Median = 0.5 * (ends[0] + ends[1]);
    return statistics;
}

}

ValueStatistics StatisticsOf(const PlaneView& plane, int channel, std::span<const PixelRun> runs)
{
    if (plane.Type == SampleType::F32)
        return OfFloats(plane, runs);
    return OfCodes(CountCodes(plane, channel, runs), CodesPerUnit(plane.Type, channel));
}

ValueStatistics StatisticsOf(std::span<const double> values)
{
    std::vector<double> sorted;
    for (const double v : values) {
        if (std::isfinite(v))
            sorted.push_back(v);
    }
    ValueStatistics statistics;
    statistics.Count = static_cast<std::int64_t>(sorted.size());
    statistics.NotFinite = static_cast<std::int64_t>(values.size()) - statistics.Count;
    if (sorted.empty())
        return statistics;
    std::sort(sorted.begin(), sorted.end());
    CompensatedSum sum;
    for (const double v : sorted)
        sum.Add(v);
    statistics.Sum = sum.Value();
    statistics.Min = sorted.front();
    statistics.Max = sorted.back();
    SetMean(statistics);
    CompensatedSum squares;
    for (const double v : sorted)
        squares.Add((v - statistics.Mean) * (v - statistics.Mean));
    SetSd(statistics, squares.Value());
    const auto middle = MiddleRanks(statistics.Count);
    statistics.Median = 0.5 * sorted[middle[0]] + 0.5 * sorted[middle[1]];
    return statistics;
}

}
