#include "geometry/Predicates.h"
#include "geometry/ExactNumber.h"

#include <doctest/doctest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <random>

using namespace vostel;

namespace {

__extension__ typedef __int128 Wide;

int SignOf(Wide v)
{
    return (v > 0) - (v < 0);
}

struct GridPoint {
    std::int64_t X;
    std::int64_t Y;

    ImagePoint Scaled(int exponent) const
    {
        return {std::ldexp(static_cast<double>(X), exponent), std::ldexp(static_cast<double>(Y), exponent)};
    }
};

int GridOrientation(GridPoint a, GridPoint b, GridPoint c)
{
    return SignOf(static_cast<Wide>(b.X - a.X) * (c.Y - a.Y) - static_cast<Wide>(b.Y - a.Y) * (c.X - a.X));
}

}

TEST_CASE("the orientation of nearly collinear points is the one of whole numbers, from 2^-1000 to 2^900")
{
    std::mt19937_64                             random(1);
    std::uniform_int_distribution<std::int64_t> coordinate(-(1LL << 51), 1LL << 51);
    std::uniform_int_distribution<int>          nudge(-1, 1);
    int                                         level = 0;
    for (int i = 0; i < 3000; ++i) {
        const GridPoint a{coordinate(random) / 4, coordinate(random) / 4};
        const GridPoint step{coordinate(random) / 4096, coordinate(random) / 4096};
        const int       distant = 1 + i % 500;
        const GridPoint b{a.X + step.X, a.Y + step.Y};
        const GridPoint c{a.X + distant * step.X + nudge(random), a.Y + distant * step.Y + nudge(random)};
        const int       expected = GridOrientation(a, b, c);
        level += expected == 0;
        for (const int exponent : {-1000, -300, -53, 0, 300, 900}) {
            CAPTURE(i);
            CAPTURE(exponent);
            CHECK(Orientation(a.Scaled(exponent), b.Scaled(exponent), c.Scaled(exponent)) == expected);
            CHECK(Orientation(b.Scaled(exponent), a.Scaled(exponent), c.Scaled(exponent)) == -expected);
        }
    }
    CHECK(level > 100);
}

TEST_CASE("differences that double cannot hold do not mislead the orientation")
{
    // c lies a hair off the diagonal through a and b, far less than the rounding of a - c.
    const ImagePoint a(-1e17, -1e17);
    const ImagePoint b(1e17, 1e17);
    CHECK(Orientation(a, b, {0.5, 0.5}) == 0);
    CHECK(Orientation(a, b, {0.5, std::nextafter(0.5, 1.0)}) == 1);
    CHECK(Orientation(a, b, {0.5, std::nextafter(0.5, 0.0)}) == -1);
    CHECK(Orientation({-DBL_MAX, -DBL_MAX}, {DBL_MAX, DBL_MAX}, {5e-324, 0.0}) == -1);
    CHECK(Orientation({-DBL_MAX, -DBL_MAX}, {DBL_MAX, DBL_MAX}, {0.0, 5e-324}) == 1);
    CHECK(Orientation({0.0, 0.0}, {5e-324, 5e-324}, {1e300, 1e300}) == 0);
}

TEST_CASE("the first centre not below a value")
{
    CHECK(FirstCentre(-1e300, 10) == 0);
    CHECK(FirstCentre(0.0, 10) == 0);
    CHECK(FirstCentre(0.5, 10) == 0);
    CHECK(FirstCentre(std::nextafter(0.5, 1.0), 10) == 1);
    CHECK(FirstCentre(3.5, 10) == 3);
    CHECK(FirstCentre(3.75, 10) == 4);
    CHECK(FirstCentre(9.5, 10) == 9);
    CHECK(FirstCentre(9.6, 10) == 10);
    CHECK(FirstCentre(1e300, 10) == 10);
    CHECK(FirstCentre(2147483646.5, INT_MAX) == INT_MAX - 1);
    CHECK(FirstCentre(2147483646.75, INT_MAX) == INT_MAX);
    CHECK(FirstCentre(std::nan(""), 10) == 0);
}

TEST_CASE("the first column right of an edge that reaches far out of the image")
{
    // Through (0.5, 0.5) at 45 degrees: every row's crossing falls on a centre.
    for (const double reach : {1e3, 1e17, 1e300})
        for (int row = 0; row < 5; ++row)
            CHECK(FirstColumnRightOf({-reach, -reach}, {reach, reach}, row + 0.5, 100) == row);
    CHECK(FirstColumnRightOf({-1e300, 0.0}, {-1e299, 10.0}, 5.5, 100) == 0);
    CHECK(FirstColumnRightOf({1e299, 0.0}, {1e300, 10.0}, 5.5, 100) == 100);
}

TEST_CASE("the side of a middle and of an ellipse are decided to the last bit")
{
    CHECK(SideOfMiddle(1.0, 4.0, 2.5) == 0);
    CHECK(SideOfMiddle(1.0, 4.0, std::nextafter(2.5, 3.0)) == 1);
    CHECK(SideOfMiddle(-DBL_MAX, DBL_MAX, 5e-324) == 1);
    CHECK(SideOfMiddle(1e-300, 1.0 + DBL_EPSILON, 0.5) == -1);

    const Bounds circle{-5.0, -5.0, 5.0, 5.0};
    CHECK(SideOfEllipse(circle, {3.0, 4.0}) == 0);
    CHECK(SideOfEllipse(circle, {3.0, std::nextafter(4.0, 5.0)}) == 1);
    CHECK(SideOfEllipse(circle, {3.0, std::nextafter(4.0, 3.0)}) == -1);
    for (const int exponent : {-1000, 900}) {
        const double unit = std::ldexp(1.0, exponent);
        const Bounds scaled{-5.0 * unit, -5.0 * unit, 5.0 * unit, 5.0 * unit};
        CHECK(SideOfEllipse(scaled, {3.0 * unit, -4.0 * unit}) == 0);
        CHECK(SideOfEllipse(scaled, {3.0 * unit, std::nextafter(-4.0 * unit, 0.0)}) == -1);
    }
    CHECK(SideOfEllipse({-1e300, -1e-300, 1e300, 1e-300}, {0.0, 1e-300}) == 0);
}

TEST_CASE("a quotient of exact numbers holds 50 bits")
{
    const ExactNumber third = ExactNumber(1e200) * ExactNumber(1e200) * ExactNumber(-1.0);
    const ExactNumber whole = third + third + third;
    CHECK(Quotient(whole, third) == doctest::Approx(3.0).epsilon(1e-15));
    CHECK(Quotient(ExactNumber(1.0), ExactNumber(-3.0)) == doctest::Approx(-1.0 / 3.0).epsilon(1e-15));
    CHECK(Quotient(whole, ExactNumber(1e-300)) == -INFINITY);
    CHECK((whole - whole).Sign() == 0);
}
