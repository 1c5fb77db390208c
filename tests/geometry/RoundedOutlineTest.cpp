#include "geometry/RoundedOutline.h"

#include "geometry/Coverage.h"

#include <doctest/doctest.h>

#include <random>
#include <vector>

using namespace vostel;

namespace {

double ToFloat(double value)
{
    return static_cast<float>(value);
}

// Multiples of a step in a square, or any numbers for the step 0.
std::vector<ImagePoint> RandomPoints(std::mt19937& random, std::size_t count, double origin, double extent,
                                     double step)
{
    std::uniform_real_distribution<double> place(0.0, extent);
    const auto                             one = [&] {
        const double value = origin + place(random);
        return step > 0.0 ? std::floor(value / step) * step : value;
    };
    std::vector<ImagePoint> points;
    for (std::size_t i = 0; i < count; ++i) {
        const double x = one();
        points.emplace_back(x, one());
    }
    return points;
}

bool IsEqual(const std::vector<PixelRun>& a, const std::vector<PixelRun>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const PixelRun& p, const PixelRun& q) {
        return p.Row == q.Row && p.Begin == q.Begin && p.End == q.End;
    });
}

Outline RandomOutline(std::mt19937& random, int round, double origin)
{
    constexpr double                       Steps[] = {0.0, 0.5, 0.125, 0.1, 1.0 / 3.0};
    std::uniform_real_distribution<double> size(2.0, 60.0);
    const double                           extent = size(random);
    const double                           step = Steps[round / 3 % 5];
    if (round % 3 == 0)
        return Outline::OfPolygon(RandomPoints(random, 3 + round % 9, origin, extent, step));
    if (round % 3 == 1)
        return Outline::OfSpline(RandomPoints(random, 3 + round % 7, origin, extent, step));
    const std::vector<ImagePoint> corners = RandomPoints(random, 2, origin, extent, step);
    return Outline::OfEllipse(corners[0], corners[1]);
}

}

TEST_CASE("a polygon that needs no rounding stays as it is")
{
    const std::vector<ImagePoint> corners = {{1.0, 2.5}, {30.25, 4.0}, {7.0, 20.125}};
    const RoundedOutline          rounded = RoundOutline(Outline::OfPolygon(corners), 0.01, ToFloat, 40, 40);
    CHECK(rounded.CoversTheSame);
    REQUIRE(rounded.Corners.size() == 3);
    for (std::size_t i = 0; i < 3; ++i)
        CHECK(SamePlace(rounded.Corners[i], corners[i]));
}

TEST_CASE("an edge that rounding moves over centres gets notches around them")
{
    // The left edge runs through the centres of column 10, which belong to the region. In quarters it runs to
    // the right of them.
    const std::vector<ImagePoint> corners = {{10.5, 0.0}, {30.0, 0.0}, {30.0, 9.0}, {10.5, 9.0}};
    const auto outwards = [](double value) { return value == 10.5 ? 10.5 + 0x1p-12 : ToFloat(value); };
    const RoundedOutline rounded = RoundOutline(Outline::OfPolygon(corners), 0.01, outwards, 40, 40);
    CHECK(rounded.CoversTheSame);
    CHECK(rounded.Corners.size() == 4 + 3 * 9);
}

TEST_CASE("rounded outlines cover the pixels of the exact ones, wherever they lie")
{
    constexpr unsigned Seed = 20;
    std::mt19937       random(Seed);
    for (const double origin : {-9.0, 3.0, 900.0, 15000.0}) {
        const int side = static_cast<int>(origin) + 80;
        for (int round = 0; round < 600; ++round) {
            CAPTURE(Seed);
            CAPTURE(origin);
            CAPTURE(round);
            const Outline        exact = RandomOutline(random, round, origin);
            const RoundedOutline rounded = RoundOutline(exact, 0.01, ToFloat, side, side);
            CHECK(rounded.CoversTheSame);
            CHECK(IsEqual(CoverageOf(exact, side, side),
                          CoverageOf(Outline::OfPolygon(rounded.Corners), side, side)));
            for (const ImagePoint& corner : rounded.Corners)
                REQUIRE((ToFloat(corner.x) == corner.x && ToFloat(corner.y) == corner.y));
        }
    }
}

TEST_CASE("coordinates too coarse for any notch are told")
{
    const std::vector<ImagePoint> corners = {{0.3, 0.3}, {20.4, 0.6}, {9.8, 17.7}};
    const auto                    tens = [](double value) { return 10.0 * std::floor(value / 10.0); };
    CHECK_FALSE(RoundOutline(Outline::OfPolygon(corners), 0.01, tens, 40, 40).CoversTheSame);
}
