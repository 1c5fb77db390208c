#include "geometry/Histogram.h"

#include "geometry/RandomPlane.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

using namespace vostel;

namespace {

using Counts = std::vector<std::uint64_t>;

Counts ReferenceCounts(const std::vector<double>& values, double low, double high, std::size_t bins)
{
    Counts       counts(bins);
    const double width = (high - low) / static_cast<double>(bins);
    for (const double v : values) {
        for (std::size_t k = 0; k < bins; ++k) {
            const double from = low + static_cast<double>(k) * width;
            const double to = low + static_cast<double>(k + 1) * width;
            if ((v >= from && (v < to || k + 1 == bins) && v <= high)) {
                ++counts[k];
                break;
            }
        }
    }
    return counts;
}

}

TEST_CASE("bins count what lies between their bounds, for every type")
{
    unsigned seed = 40;
    for (const SampleType type : AllSampleTypes) {
        const RandomPlane           plane(type, 90, 40, ++seed);
        const std::vector<PixelRun> runs = CoverageOf(Outline::OfEllipse({3.0, 2.0}, {80.0, 39.0}), 90, 40);
        for (const std::size_t bins : {1u, 3u, 10u, 256u, 1000u}) {
            for (const double low : {-50.0, 0.0, 0.1}) {
                Counts counts(bins, 99);
                HistogramOf(plane.View, 0, runs, low, low + 100.3, counts);
                CAPTURE(seed);
                CAPTURE(bins);
                CHECK(counts == ReferenceCounts(plane.Values(0, runs), low, low + 100.3, bins));
            }
        }
    }
}

TEST_CASE("values on bounds fall above them, the highest one into the last bin, and others nowhere")
{
    // Tenths in float and double do not meet, and 0.3 / 0.1 is below 3.
    std::vector<float> values;
    for (int i = -1; i <= 11; ++i)
        values.push_back(static_cast<float>(i) / 10.0f);
    values.push_back(NAN);
    values.push_back(INFINITY);
    const PlaneView plane = {SampleType::F32, static_cast<int>(values.size()), 1, 0, values.data()};
    const std::vector<PixelRun> runs = RunsOfPlane(plane.Width, 1);
    Counts                      counts(10);
    HistogramOf(plane, 0, runs, 0.0, 1.0, counts);
    CHECK(counts == ReferenceCounts(std::vector<double>(values.begin(), values.end()), 0.0, 1.0, 10));
    CHECK(std::accumulate(counts.begin(), counts.end(), std::uint64_t(0)) == 11);
    const std::vector<std::uint8_t> bytes = {0, 1, 2, 3, 4, 4, 5};
    const PlaneView                 gray = {SampleType::U8, 7, 1, 0, bytes.data()};
    Counts                          two(2);
    HistogramOf(gray, 0, RunsOfPlane(7, 1), 0.0, 4.0, two);
    CHECK(two == Counts{2, 4});
}

TEST_CASE("percentiles are linear between ranks of the finite values, for every type")
{
    const std::vector<double> percents = {0.0, 0.5, 25.0, 50.0, 33.3, 99.5, 100.0};
    unsigned                  seed = 60;
    for (const SampleType type : AllSampleTypes) {
        for (const int side : {1, 2, 5, 150}) {
            RandomPlane plane(type, side, side, ++seed);
            if (type == SampleType::F32 && side > 2) {
                plane.SetFloat(1, 1, NAN);
                plane.SetFloat(2, 1, INFINITY);
                plane.SetFloat(3, 1, -INFINITY);
            }
            const std::vector<PixelRun> runs = RunsOfPlane(side, side);
            std::vector<double>         sorted = plane.Values(0, runs);
            std::erase_if(sorted, [](double v) { return !std::isfinite(v); });
            std::sort(sorted.begin(), sorted.end());
            std::vector<double> results(percents.size());
            REQUIRE(PercentilesOf(plane.View, 0, runs, percents, results));
            for (std::size_t i = 0; i < percents.size(); ++i) {
                const double      rank = percents[i] / 100.0 * static_cast<double>(sorted.size() - 1);
                const std::size_t below = static_cast<std::size_t>(rank);
                const std::size_t above = std::min(below + 1, sorted.size() - 1);
                const double      part = rank - static_cast<double>(below);
                CAPTURE(seed);
                CHECK(results[i] ==
                      doctest::Approx(sorted[below] * (1.0 - part) + sorted[above] * part).epsilon(1e-13));
            }
            CHECK(results.front() == sorted.front());
            CHECK(results.back() == sorted.back());
        }
    }
    const std::vector<float> none = {NAN, INFINITY};
    std::vector<double>      results = {7.0};
    CHECK_FALSE(PercentilesOf({SampleType::F32, 2, 1, 0, none.data()}, 0, RunsOfPlane(2, 1),
                              std::vector<double>{50.0}, results));
    CHECK(results[0] == 7.0);
}
