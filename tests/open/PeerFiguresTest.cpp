// Regions, profiles and histograms beside the figures that OpenCV and scikit-image give for them.

#include "open/PeerFigures.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr int Width = 120, Height = 90;

// A canvas with the image of make-peer-figures.py.
class PeerCanvas {
public:
    OpenCanvas Canvas;

    PeerCanvas()
    {
        ShowFloats(Canvas.Number, Width, Height,
                   [](int x, int y) { return (37 * x + 91 * y + 13 * x * y) % 1009 / 4.0; });
    }
};

bool IsNear(double a, double b)
{
    return std::fabs(a - b) <= 1e-6 * std::max(1.0, std::fabs(b));
}

void CheckValues(const VostelMeasures& measures, const peers::RegionFigures& figures)
{
    CHECK(measures.pixels == figures.Pixels);
    CHECK(IsNear(measures.mean, figures.Mean));
    CHECK(IsNear(measures.sd, figures.Sd));
    CHECK(measures.min == figures.Min);
    CHECK(measures.max == figures.Max);
    CHECK(measures.sum == figures.Sum);
    CHECK(measures.median == figures.Median);
}

template <typename Figures>
int DifferentSamples(int32_t canvas, VostelObject line, double width, const Figures& figures)
{
    std::vector<double> values(std::size(figures) + 10);
    std::size_t         count = 0;
    REQUIRE(vostel_profile(canvas, line, 0, width, nullptr, values.data(), values.size(), &count) ==
            VOSTEL_OK);
    REQUIRE(count == std::size(figures));
    int different = 0;
    for (std::size_t i = 0; i < count; ++i)
        different += IsNear(values[i], figures[i]) ? 0 : 1;
    return different;
}

}

TEST_CASE("a polygon measures what OpenCV and scikit-image find in it")
{
    const PeerCanvas peer;
    const Points     corners = {{10.375, 12.125}, {70.625, 5.875},  {110.125, 40.875},
                                {60.875, 35.625}, {85.375, 80.125}, {20.125, 70.875}};
    for (const VostelKind kind : {VOSTEL_POLYGON, VOSTEL_FREE_REGION}) {
        const VostelMeasures measures =
            MeasuresOf(peer.Canvas.Number, Add(peer.Canvas.Number, kind, corners));
        CheckValues(measures, peers::Polygon);
        CHECK(IsNear(measures.area, peers::Polygon.Area));
        CHECK(IsNear(measures.perimeter, peers::Polygon.Perimeter));
        CHECK(IsNear(measures.centroid_x, peers::Polygon.CentroidX));
        CHECK(IsNear(measures.centroid_y, peers::Polygon.CentroidY));
    }
}

TEST_CASE("an ellipse takes in the pixels that scikit-image finds in it")
{
    const PeerCanvas   peer;
    const VostelObject ellipse = Add(peer.Canvas.Number, VOSTEL_RECTANGLE,
                                     {{60.25 - 41.5, 44.75 - 30.25}, {60.25 + 41.5, 44.75 + 30.25}});
    REQUIRE(vostel_object_set_flags(peer.Canvas.Number, ellipse, VOSTEL_ELLIPSE) == VOSTEL_OK);
    CheckValues(MeasuresOf(peer.Canvas.Number, ellipse), peers::Ellipse);
}

TEST_CASE("a profile of a whole length has the samples of scikit-image")
{
    const PeerCanvas   peer;
    const VostelObject line = Add(peer.Canvas.Number, VOSTEL_PROFILE, {{14.25, 11.75}, {62.25, 75.75}});
    CHECK(DifferentSamples(peer.Canvas.Number, line, 1.0, peers::Profile) == 0);
    CHECK(DifferentSamples(peer.Canvas.Number, line, 3.0, peers::WideProfile) == 0);
}

TEST_CASE("a histogram counts what OpenCV counts, and percentiles are those of NumPy")
{
    const PeerCanvas  peer;
    constexpr int32_t bins = static_cast<int32_t>(std::size(peers::Histogram));
    std::uint64_t     counts[bins];
    constexpr double  low = 0.0, high = 252.25;
    REQUIRE(vostel_histogram(peer.Canvas.Number, 0, 0, low, high, bins, counts) == VOSTEL_OK);
    CHECK(std::equal(std::begin(counts), std::end(counts), std::begin(peers::Histogram)));
    const double percents[] = {0.5, 37.5, 99.5};
    for (std::size_t i = 0; i + 1 < std::size(percents); ++i) {
        REQUIRE(vostel_contrast_percentiles(peer.Canvas.Number, percents[i], percents[i + 1]) == VOSTEL_OK);
        double ends[2];
        REQUIRE(vostel_contrast_get(peer.Canvas.Number, &ends[0], &ends[1]) == VOSTEL_OK);
        CHECK(IsNear(ends[0], peers::Percentiles[i]));
        CHECK(IsNear(ends[1], peers::Percentiles[i + 1]));
    }
}
