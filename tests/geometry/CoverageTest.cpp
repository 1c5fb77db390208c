#include "geometry/Coverage.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

using namespace vostel;

namespace {

using Points = std::vector<ImagePoint>;
using Mask = std::vector<std::uint8_t>;

constexpr int Side = 24;

Mask MaskOf(const Outline& outline, int width = Side, int height = Side)
{
    Mask mask(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 7);
    WriteMask(CoverageOf(outline, width, height), width, height, mask.data(), width);
    return mask;
}

Mask MaskOfPolygon(const Points& points)
{
    return MaskOf(Outline::OfPolygon(points));
}

// Multiples of a quarter, so that many nodes and edges lie on centres.
Points GridPoints(std::mt19937& random, int count)
{
    std::uniform_int_distribution<int> coordinate(-8, 4 * Side + 8);
    Points                             points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(coordinate(random) / 4.0, coordinate(random) / 4.0);
    return points;
}

Points RealPoints(std::mt19937& random, int count)
{
    std::uniform_real_distribution<double> coordinate(-3.0, Side + 3.0);
    Points                                 points;
    for (int i = 0; i < count; ++i)
        points.emplace_back(coordinate(random), coordinate(random));
    return points;
}

// Every centre by itself in whole numbers: moved by 2^-12 to the right and 2^-24 down, in units of a quarter.
// Crossings of edges between grid points are at least 1/128 apart there, and none is as level as 2^-12.
Mask GridReference(const Points& points)
{
    constexpr std::int64_t Unit = 1LL << 24;
    Mask                   mask;
    for (int row = 0; row < Side; ++row) {
        for (int column = 0; column < Side; ++column) {
            const std::int64_t x = (4 * column + 2) * Unit + (1LL << 12);
            const std::int64_t y = (4 * row + 2) * Unit + 1;
            bool               inside = false;
            for (std::size_t i = 0; i < points.size(); ++i) {
                const ImagePoint&  p = points[i];
                const ImagePoint&  q = points[(i + 1) % points.size()];
                const std::int64_t px = static_cast<std::int64_t>(4.0 * p.x);
                const std::int64_t qx = static_cast<std::int64_t>(4.0 * q.x);
                const std::int64_t py = static_cast<std::int64_t>(4.0 * p.y) * Unit;
                const std::int64_t qy = static_cast<std::int64_t>(4.0 * q.y) * Unit;
                if ((py < y) == (qy < y))
                    continue;
                // x > px + (y - py) (qx - px) / (qy - py), all over Unit where that divides.
                const std::int64_t height = (qy - py) / Unit;
                const std::int64_t left = (x - px * Unit) * height;
                const std::int64_t right = (y - py) * (qx - px);
                if (height > 0 ? left > right : left < right)
                    inside = !inside;
            }
            mask.push_back(inside ? 255 : 0);
        }
    }
    return mask;
}

// The 8 orientations of the plane that keep the square image.
ImagePoint Oriented(ImagePoint p, int orientation, double size)
{
    if (orientation & 1)
        p.x = size - p.x;
    if (orientation & 2)
        p.y = size - p.y;
    if (orientation & 4)
        std::swap(p.x, p.y);
    return p;
}

Mask OrientedMask(const Mask& mask, int orientation)
{
    Mask result(mask.size());
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            const ImagePoint p = Oriented({x + 0.5, y + 0.5}, orientation, Side);
            result[static_cast<std::size_t>(static_cast<int>(p.y) * Side + static_cast<int>(p.x))] =
                mask[static_cast<std::size_t>(y * Side + x)];
        }
    }
    return result;
}

}

TEST_CASE("a polygon on a grid covers the centres that even-odd counting in whole numbers finds")
{
    std::mt19937 random(11);
    for (int i = 0; i < 2000; ++i) {
        const Points points = GridPoints(random, 3 + i % 9);
        CAPTURE(i);
        CHECK(MaskOfPolygon(points) == GridReference(points));
    }
}

TEST_CASE("drawing direction and first node change nothing")
{
    std::mt19937 random(12);
    for (int i = 0; i < 200; ++i) {
        Points     points = i % 2 ? GridPoints(random, 7) : RealPoints(random, 7);
        const Mask mask = MaskOfPolygon(points);
        const Mask spline = MaskOf(Outline::OfSpline(points));
        std::reverse(points.begin() + 1, points.end());
        CHECK(MaskOfPolygon(points) == mask);
        CHECK(MaskOf(Outline::OfSpline(points)) == spline);
        std::rotate(points.begin(), points.begin() + 3, points.end());
        CHECK(MaskOfPolygon(points) == mask);
    }
}

TEST_CASE("the 8 orientations of the plane give the 8 orientations of the mask")
{
    std::mt19937 random(13);
    for (int i = 0; i < 100; ++i) {
        const Points  points = RealPoints(random, 3 + i % 9);
        const Outline ellipse = Outline::OfEllipse(points[0], points[1]);
        for (int orientation = 1; orientation < 8; ++orientation) {
            Points turned;
            for (const ImagePoint& p : points)
                turned.push_back(Oriented(p, orientation, Side));
            CAPTURE(i);
            CHECK(MaskOfPolygon(turned) == OrientedMask(MaskOfPolygon(points), orientation));
            CHECK(MaskOf(Outline::OfEllipse(turned[0], turned[1])) ==
                  OrientedMask(MaskOf(ellipse), orientation));
            CHECK(MaskOf(Outline::OfSpline(turned)) ==
                  OrientedMask(MaskOf(Outline::OfSpline(points)), orientation));
        }
    }
}

TEST_CASE("regions that share edges share no pixel and leave none out")
{
    std::mt19937 random(14);
    for (const bool grid : {true, false}) {
        for (int i = 0; i < 100; ++i) {
            // The image split into triangles around inner points, which any displacement keeps a partition of
            // in the sense of even-odd counting.
            const Points inner = grid ? GridPoints(random, 4) : RealPoints(random, 4);
            const Points corners = {
                {-1.0, -1.0}, {Side + 1.0, -1.0}, {Side + 1.0, Side + 1.0}, {-1.0, Side + 1.0}};
            std::vector<Points> regions;
            for (std::size_t k = 0; k < 4; ++k) {
                const std::size_t next = (k + 1) % 4;
                regions.push_back({corners[k], corners[next], inner[k]});
                regions.push_back({corners[next], inner[next], inner[k]});
            }
            regions.push_back({inner[0], inner[1], inner[2]});
            regions.push_back({inner[0], inner[2], inner[3]});
            Mask parity(static_cast<std::size_t>(Side) * Side, 0);
            for (const Points& region : regions) {
                const Mask mask = MaskOfPolygon(region);
                for (std::size_t p = 0; p < parity.size(); ++p)
                    parity[p] ^= mask[p];
            }
            CHECK(std::count(parity.begin(), parity.end(), 255) == Side * Side);
        }
    }
    // A mesh that stays one: each pixel is counted once.
    Points                                 nodes;
    constexpr int                          Cells = 8;
    std::uniform_real_distribution<double> jitter(-0.9, 0.9);
    for (int r = 0; r <= Cells; ++r)
        for (int c = 0; c <= Cells; ++c)
            nodes.emplace_back(3.0 * c + ((c % Cells) && r % 3 ? jitter(random)
                                          : c % Cells          ? 0.5
                                                               : 0.0),
                               3.0 * r + ((r % Cells) && c % 3 ? jitter(random)
                                          : r % Cells          ? 0.5
                                                               : 0.0));
    Mask count(static_cast<std::size_t>(Side) * Side, 0);
    for (std::size_t r = 0; r < Cells; ++r) {
        for (std::size_t c = 0; c < Cells; ++c) {
            const std::size_t at = r * (Cells + 1) + c;
            const Points      cell = {nodes[at], nodes[at + 1], nodes[at + Cells + 2], nodes[at + Cells + 1]};
            const Mask        mask = MaskOfPolygon(cell);
            for (std::size_t p = 0; p < count.size(); ++p)
                count[p] = static_cast<std::uint8_t>(count[p] + mask[p] / 255);
        }
    }
    CHECK(count == Mask(static_cast<std::size_t>(Side) * Side, 1));
}

TEST_CASE("a rectangle has its left and upper edges and not its right and lower ones")
{
    const std::vector<PixelRun> runs = CoverageOf(Outline::OfRectangle({6.5, 4.5}, {2.5, 1.5}), 20, 20);
    REQUIRE(runs.size() == 3);
    for (int i = 0; i < 3; ++i) {
        CHECK(runs[static_cast<std::size_t>(i)].Row == 1 + i);
        CHECK(runs[static_cast<std::size_t>(i)].Begin == 2);
        CHECK(runs[static_cast<std::size_t>(i)].End == 6);
    }
    CHECK(CountPixels(runs) == 12);
}

TEST_CASE("an ellipse covers the centres that its equation in whole numbers finds")
{
    std::mt19937                       random(15);
    std::uniform_int_distribution<int> coordinate(-8, 4 * Side + 8);
    for (int i = 0; i < 1000; ++i) {
        int left = coordinate(random);
        int right = coordinate(random);
        int top = coordinate(random);
        int bottom = coordinate(random);
        if (right < left)
            std::swap(left, right);
        if (bottom < top)
            std::swap(top, bottom);
        Mask expected;
        for (int row = 0; row < Side; ++row) {
            for (int column = 0; column < Side; ++column) {
                const std::int64_t x = 2 * (4 * column + 2) - left - right;
                const std::int64_t y = 2 * (4 * row + 2) - top - bottom;
                const std::int64_t w = right - left;
                const std::int64_t h = bottom - top;
                const std::int64_t side = x * x * h * h + y * y * w * w - w * w * h * h;
                const bool         onIt = side == 0 && (x < 0 || (x == 0 && y < 0));
                expected.push_back(w > 0 && h > 0 && (side < 0 || onIt) ? 255 : 0);
            }
        }
        CAPTURE(left);
        CAPTURE(right);
        CAPTURE(top);
        CAPTURE(bottom);
        CHECK(MaskOf(Outline::OfEllipse({left / 4.0, top / 4.0}, {right / 4.0, bottom / 4.0})) == expected);
    }
}

TEST_CASE("a circle about a centre has its topmost and leftmost pixel and not their opposites")
{
    const Mask mask = MaskOf(Outline::OfEllipse({5.5, 5.5}, {15.5, 15.5}));
    const auto at = [&](int x, int y) { return mask[static_cast<std::size_t>(y * Side + x)]; };
    CHECK(at(10, 5) == 255);
    CHECK(at(5, 10) == 255);
    CHECK(at(10, 15) == 0);
    CHECK(at(15, 10) == 0);
}

TEST_CASE("a spline covers what a fine polygon along it covers, but for centres that are nearer than that")
{
    std::mt19937 random(16);
    for (int i = 0; i < 100; ++i) {
        const Outline spline = Outline::OfSpline(RealPoints(random, 3 + i % 12));
        const Mask    mask = MaskOf(spline);
        const Points  polygon = spline.Flattened(1e-6);
        const Mask    expected = MaskOfPolygon(polygon);
        for (std::size_t p = 0; p < mask.size(); ++p) {
            if (mask[p] == expected[p])
                continue;
            const ImagePoint centre(static_cast<double>(p % Side) + 0.5, static_cast<double>(p / Side) + 0.5);
            double           nearest = 1e9;
            for (const ImagePoint& q : polygon)
                nearest = std::min(nearest, std::hypot(q.x - centre.x, q.y - centre.y));
            CHECK(nearest < 1e-3);
        }
    }
    CHECK(CoverageOf(Outline::OfSpline(Points{{3.5, 1.0}, {3.5, 9.0}, {3.5, 4.5}}), Side, Side).empty());
}

TEST_CASE("moving an outline by whole pixels moves its runs")
{
    std::mt19937 random(17);
    for (int i = 0; i < 50; ++i) {
        const Points points = GridPoints(random, 6);
        Points       moved;
        for (const ImagePoint& p : points)
            moved.emplace_back(p.x + 4000.0, p.y + 70000.0);
        const std::vector<PixelRun> distant = CoverageOf(Outline::OfPolygon(moved), INT_MAX, INT_MAX);
        std::vector<PixelRun>       clipped;
        for (PixelRun run : distant) {
            run = {run.Row - 70000, std::max(run.Begin - 4000, 0), std::min(run.End - 4000, Side)};
            if (run.Row >= 0 && run.Row < Side && run.Begin < run.End)
                clipped.push_back(run);
        }
        Mask mask(static_cast<std::size_t>(Side) * Side);
        WriteMask(clipped, Side, Side, mask.data(), Side);
        CHECK(mask == MaskOfPolygon(points));
    }
}

TEST_CASE("runs reach to the last pixel of the largest image")
{
    const std::vector<PixelRun> runs =
        CoverageOf(Outline::OfRectangle({-1e300, 2147483640.0}, {1e300, 1e300}), INT_MAX, INT_MAX);
    REQUIRE(runs.size() == 7);
    CHECK(runs.back().Row == INT_MAX - 1);
    CHECK(runs.back().Begin == 0);
    CHECK(runs.back().End == INT_MAX);
    CHECK(CountPixels(runs) == 7LL * INT_MAX);
}

TEST_CASE("hard coordinates neither crash nor take long")
{
    const double                               hard[] = {0.0,   -0.0,  0.5,    1e-300,  -5e-324,  1e15,
                                                         -1e17, 1e300, -1e300, 1.7e308, -1.7e308, 12.5};
    std::mt19937                               random(18);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(hard) - 1);
    for (int i = 0; i < 300; ++i) {
        Points points;
        for (int k = 0; k < 3 + i % 6; ++k)
            points.emplace_back(hard[pick(random)], hard[pick(random)]);
        CAPTURE(i);
        Points reversed(points.rbegin(), points.rend());
        CHECK(MaskOfPolygon(points) == MaskOfPolygon(reversed));
        MaskOf(Outline::OfEllipse(points[0], points[1]));
        MaskOf(Outline::OfSpline(points));
        MaskOf(Outline::OfRectangle(points[0], points[1]));
    }
    for (const double bad : {std::nan(""), static_cast<double>(INFINITY)}) {
        const Points points = {{0.0, 0.0}, {bad, 5.0}, {3.0, bad}, {9.0, 9.0}};
        MaskOfPolygon(points);
        MaskOf(Outline::OfEllipse(points[1], points[2]));
        MaskOf(Outline::OfSpline(points));
    }
    CHECK(CoverageOf(Outline::OfPolygon({}), 5, 5).empty());
    CHECK(CoverageOf(Outline::OfRectangle({0.0, 0.0}, {5.0, 5.0}), 0, 5).empty());
    CHECK(CoverageOf(Outline::OfRectangle({0.0, 0.0}, {5.0, 5.0}), 5, -1).empty());
}

TEST_CASE("masks and labels write pixels of their runs in rows of any pitch")
{
    const std::vector<PixelRun> runs = CoverageOf(Outline::OfRectangle({1.0, 1.0}, {3.0, 2.0}), 4, 3);
    std::vector<std::uint8_t>   mask(15, 7);
    WriteMask(runs, 4, 3, mask.data() + 10, -5);
    CHECK(mask == std::vector<std::uint8_t>{0, 0, 0, 0, 7, 0, 255, 255, 0, 7, 0, 0, 0, 0, 7});
    std::vector<std::int32_t> labels(12, -1);
    WriteLabel(runs, 42, labels.data(), 4 * sizeof(std::int32_t));
    CHECK(labels == std::vector<std::int32_t>{-1, -1, -1, -1, -1, 42, 42, -1, -1, -1, -1, -1});
}
