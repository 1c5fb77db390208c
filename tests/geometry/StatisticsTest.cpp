#include "geometry/Statistics.h"

#include "geometry/RandomPlane.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

using namespace vostel;

namespace {

// Straight from the formulas, in long double.
ValueStatistics Reference(std::vector<double> values)
{
    ValueStatistics   result;
    const std::size_t all = values.size();
    std::erase_if(values, [](double v) { return !std::isfinite(v); });
    result.Count = static_cast<std::int64_t>(values.size());
    result.NotFinite = static_cast<std::int64_t>(all - values.size());
    if (values.empty())
        return result;
    std::sort(values.begin(), values.end());
    long double sum = 0;
    for (const double v : values)
        sum += v;
    const long double mean = sum / static_cast<long double>(values.size());
    long double       squares = 0;
    for (const double v : values)
        squares += (v - mean) * (v - mean);
    result.Sum = static_cast<double>(sum);
    result.Mean = static_cast<double>(mean);
    result.Sd = values.size() > 1
                    ? static_cast<double>(std::sqrt(squares / static_cast<long double>(values.size() - 1)))
                    : 0.0;
    result.Min = values.front();
    result.Max = values.back();
    const std::size_t half = values.size() / 2;
    result.Median = values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2.0;
    return result;
}

void CheckSame(const ValueStatistics& found, const ValueStatistics& expected)
{
    CHECK(found.Count == expected.Count);
    CHECK(found.NotFinite == expected.NotFinite);
    CHECK(found.Sum == doctest::Approx(expected.Sum).epsilon(1e-12));
    CHECK(found.Mean == doctest::Approx(expected.Mean).epsilon(1e-12));
    CHECK(found.Sd == doctest::Approx(expected.Sd).epsilon(1e-12));
    CHECK(found.Min == expected.Min);
    CHECK(found.Max == expected.Max);
    CHECK(found.Median == doctest::Approx(expected.Median).epsilon(1e-15));
}

PlaneView FloatPlane(const std::vector<float>& values)
{
    return {SampleType::F32, static_cast<int>(values.size()), 1, 0, values.data()};
}

}

TEST_CASE("statistics of every type and channel are those of the formulas, for few pixels and many")
{
    unsigned seed = 1;
    for (const SampleType type : AllSampleTypes) {
        for (const int side : {1, 2, 3, 17, 300}) {
            const RandomPlane plane(type, side, side + 1, ++seed);
            const double      middle = side / 2.0;
            for (int channel = 0; channel <= (IsColor(type) ? 3 : 0); ++channel) {
                for (const std::vector<PixelRun>& runs :
                     {RunsOfPlane(side, side + 1),
                      CoverageOf(Outline::OfEllipse({0.1, 0.3}, {side - 0.2, middle + 1.4}), side,
                                 side + 1)}) {
                    CAPTURE(seed);
                    CAPTURE(channel);
                    CheckSame(StatisticsOf(plane.View, channel, runs),
                              Reference(plane.Values(channel, runs)));
                }
            }
        }
    }
}

TEST_CASE("a plane with rows from bottom to top is read as it lies")
{
    RandomPlane                 plane(SampleType::U16, 9, 7, 77);
    const std::vector<PixelRun> runs = {{1, 2, 8}, {5, 0, 3}};
    const std::vector<double>   expected = plane.Values(0, {{5, 2, 8}, {1, 0, 3}});
    plane.View.Data = plane.Memory.data() + 6 * plane.View.RowBytes;
    plane.View.RowBytes = -plane.View.RowBytes;
    CheckSame(StatisticsOf(plane.View, 0, runs), Reference(expected));
}

TEST_CASE("values that are not finite are counted and left out")
{
    for (const int side : {4, 200}) {
        RandomPlane                 plane(SampleType::F32, side, side, 5);
        const std::vector<PixelRun> runs = RunsOfPlane(side, side);
        for (int i = 0; i < side; ++i) {
            plane.SetFloat(i, i, std::numeric_limits<float>::quiet_NaN());
            plane.SetFloat(side - 1, i, i % 2 ? -INFINITY : INFINITY);
            plane.SetFloat(0, i, i % 2 ? 3.4e38f : -1e-45f);
        }
        CheckSame(StatisticsOf(plane.View, 0, runs), Reference(plane.Values(0, runs)));
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                plane.SetFloat(x, y, -std::numeric_limits<float>::quiet_NaN());
        const ValueStatistics none = StatisticsOf(plane.View, 0, runs);
        CHECK(none.Count == 0);
        CHECK(none.NotFinite == side * side);
        CHECK(none.Median == 0.0);
    }
    CHECK(StatisticsOf(PlaneView(), 0, {}).Count == 0);
    CHECK(StatisticsOf(FloatPlane({}), 0, {}).Count == 0);
}

TEST_CASE("the mean of 10^8 equal values is that value, and their deviation is 0")
{
    for (const float v : {0.1f, -1e-30f, 3.3e38f}) {
        const std::size_t           passes = v == 0.1f ? 100 : 1;    // the time is that of the many
        const std::vector<float>    values(1000000, v);
        const std::vector<PixelRun> runs(passes, PixelRun{0, 0, 1000000});
        const ValueStatistics       statistics = StatisticsOf(FloatPlane(values), 0, runs);
        CHECK(statistics.Count == 1000000 * static_cast<std::int64_t>(passes));
        CHECK(statistics.Mean == static_cast<double>(v));
        CHECK(statistics.Sd == 0.0);
        CHECK(statistics.Median == static_cast<double>(v));
        CHECK(statistics.Sum == 1e6 * static_cast<double>(passes) * static_cast<double>(v));
    }
    const std::vector<std::uint16_t> words(1000000, 65535);
    const PlaneView                  plane = {SampleType::U16, 1000000, 1, 0, words.data()};
    const std::vector<PixelRun>      runs(100, PixelRun{0, 0, 1000000});
    CHECK(StatisticsOf(plane, 0, runs).Mean == 65535.0);
    CHECK(StatisticsOf(plane, 0, runs).Sd == 0.0);
    const std::vector<double> doubles(1000000, 0.1);
    CHECK(StatisticsOf(doubles).Mean == 0.1);
}

TEST_CASE("a small spread around a large value keeps its digits")
{
    std::vector<float> values;
    for (int i = 0; i < 100000; ++i)
        values.push_back(16000000.0f + static_cast<float>(i % 2));
    const std::vector<PixelRun> runs = {{0, 0, 100000}};
    const ValueStatistics       statistics = StatisticsOf(FloatPlane(values), 0, runs);
    CHECK(statistics.Mean == 16000000.5);
    CHECK(statistics.Sd == doctest::Approx(0.5 * std::sqrt(100000.0 / 99999.0)).epsilon(1e-13));
    CHECK(statistics.Median == 16000000.5);
}

TEST_CASE("doubles have statistics too, as the samples of a profile")
{
    const std::vector<double> values = {3.0, std::nan(""), -1.0, 7.5, INFINITY, 0.25};
    CheckSame(StatisticsOf(values), Reference(values));
    const std::vector<double> huge = {1.5e308, 1.7e308};
    CHECK(StatisticsOf(huge).Median == 1.6e308);
    CHECK(StatisticsOf(std::vector<double>{4.0}).Sd == 0.0);
}
