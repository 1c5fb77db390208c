#include "geometry/Outline.h"

#include "geometry/CurvePieces.h"
#include "vostel/RasterFills.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

using namespace vostel;

namespace {

std::vector<ImagePoint> RandomPoints(unsigned seed, int count, double least, double most)
{
    std::mt19937                           random(seed);
    std::uniform_real_distribution<double> coordinate(least, most);
    std::vector<ImagePoint>                points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(coordinate(random), coordinate(random));
    return points;
}

double Distance(ImagePoint a, ImagePoint b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

}

TEST_CASE("a spline runs where the classic curve samples it, but for the truncation to pixels")
{
    for (const int count : {3, 4, 7, 50, 198}) {
        std::vector<PointTemplateBase<int>> nodes;
        std::vector<ImagePoint>             imageNodes;
        for (const ImagePoint& p : RandomPoints(static_cast<unsigned>(count), count, 100.0, 900.0)) {
            nodes.emplace_back(static_cast<int>(p.x), static_cast<int>(p.y));
            imageNodes.emplace_back(nodes.back().x, nodes.back().y);
        }
        nodes.push_back(nodes.front());
        std::vector<PointTemplateBase<int>> samples;
        std::vector<PointTemplateBase<int>> controls;
        mB3Line(nodes, samples, controls);
        const Outline outline = Outline::OfSpline(imageNodes);
        REQUIRE(samples.size() == 11 * imageNodes.size());
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const ImagePoint p = SegmentOf(outline.Points, i / 11).At(static_cast<double>(i % 11) / 10.0);
            CAPTURE(count);
            CAPTURE(i);
            CHECK(std::fabs(p.x - (samples[i].x + (p.x < 0.0 ? -0.5 : 0.5))) <= 0.5 + 1e-9);
            CHECK(std::fabs(p.y - (samples[i].y + (p.y < 0.0 ? -0.5 : 0.5))) <= 0.5 + 1e-9);
        }
    }
}

TEST_CASE("a spline passes through its nodes and is smooth in all but the first")
{
    const std::vector<ImagePoint> nodes = RandomPoints(5, 12, -50.0, 50.0);
    const Outline                 outline = Outline::OfSpline(nodes);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const CubicSegment curve = SegmentOf(outline.Points, i);
        CHECK(SamePlace(curve.P[0], nodes[i]));
        if (i == 0)
            continue;
        const CubicSegment before = SegmentOf(outline.Points, i - 1);
        CHECK(Distance(curve.Derivative(0.0), before.Derivative(1.0)) < 1e-10);
    }
}

TEST_CASE("a spline drawn the other way round is the same curve to the bit")
{
    std::vector<ImagePoint> nodes = RandomPoints(6, 9, 0.0, 100.0);
    const Outline           forward = Outline::OfSpline(nodes);
    std::reverse(nodes.begin() + 1, nodes.end());
    const Outline backward = Outline::OfSpline(nodes);
    REQUIRE(forward.Points.size() == backward.Points.size());
    for (std::size_t i = 0; i < forward.Points.size(); ++i)
        CHECK(SamePlace(forward.Points[i],
                        backward.Points[(forward.Points.size() - i) % forward.Points.size()]));
}

TEST_CASE("flattened outlines stay within the tolerance and inside the bounds")
{
    const Outline                 ellipse = Outline::OfEllipse({10.0, 40.0}, {210.0, -60.0});
    const std::vector<ImagePoint> points = ellipse.Flattened(0.01);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const ImagePoint p = points[i];
        const ImagePoint q = points[(i + 1) % points.size()];
        const auto       level = [](double x, double y) {
            return std::hypot((x - 110.0) / 100.0, (y + 10.0) / 50.0);
        };
        CHECK(level(p.x, p.y) == doctest::Approx(1.0).epsilon(1e-14));
        CHECK(100.0 * (1.0 - level((p.x + q.x) / 2.0, (p.y + q.y) / 2.0)) <= 0.01);
    }

    const Outline                 spline = Outline::OfSpline(RandomPoints(8, 10, 0.0, 300.0));
    const std::vector<ImagePoint> fine = spline.Flattened(1e-4);
    const std::vector<ImagePoint> coarse = spline.Flattened(0.01);
    CHECK(coarse.size() < fine.size());
    const Bounds box = spline.BoundingBox();
    const Bounds around = BoundsOf(fine);
    CHECK(box.Left == doctest::Approx(around.Left).epsilon(1e-5));
    CHECK(box.Right == doctest::Approx(around.Right).epsilon(1e-5));
    for (const ImagePoint& p : fine) {
        double nearest = 1e9;
        for (std::size_t i = 0; i < coarse.size(); ++i) {
            const ImagePoint a = coarse[i];
            const ImagePoint b = coarse[(i + 1) % coarse.size()];
            const double     length = Distance(a, b);
            const double     t = std::clamp(
                    ((p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y)) / (length * length), 0.0, 1.0);
            nearest = std::min(nearest, Distance(p, {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}));
        }
        CHECK(nearest <= 0.01);
        CHECK(p.x >= box.Left - 1e-12);
        CHECK(p.y <= box.Bottom + 1e-12);
    }
}

TEST_CASE("huge, tiny and equal nodes give an outline without infinities")
{
    for (const double size : {1e308, 1e-300, 0.0}) {
        const std::vector<ImagePoint> nodes = {{-size, size}, {size, size}, {size, -size}, {0.0, -size}};
        const Outline                 outline = Outline::OfSpline(nodes);
        for (const ImagePoint& p : outline.Points)
            CHECK((std::isfinite(p.x) && std::isfinite(p.y)));
        CHECK(outline.Flattened(0.01).size() <= 4 * 4096);
        CHECK(Outline::OfEllipse(nodes[0], nodes[2]).Flattened(0.01).size() <= 65536);
    }
    CHECK(Outline::OfSpline({}).Flattened(0.01).empty());
}
