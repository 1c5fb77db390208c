#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

std::vector<double> ProfileOf(int32_t canvas, VostelObject line, double width = 1.0,
                              VostelProfile* profile = nullptr)
{
    std::size_t count = 0;
    REQUIRE(vostel_profile(canvas, line, 0, width, profile, nullptr, 0, &count) == VOSTEL_OK);
    std::vector<double> values(count);
    REQUIRE(vostel_profile(canvas, line, 0, width, nullptr, values.data(), count, &count) == VOSTEL_OK);
    return values;
}

}

TEST_CASE("a profile over a ramp is the ramp, with both ends and a sample a pixel")
{
    OpenCanvas canvas;
    ShowFloats(canvas.Number, 40, 30, [](int x, int y) { return 2.0 * (x + 0.5) + 100.0 * (y + 0.5); });
    VostelProfile profile = {};
    profile.size = sizeof profile;
    const auto values = ProfileOf(
        canvas.Number, Add(canvas.Number, VOSTEL_PROFILE, {{5.0, 5.0}, {35.0, 15.0}}), 1.0, &profile);
    const double length = std::hypot(30.0, 10.0);
    REQUIRE(values.size() == 32);
    CHECK(profile.length == doctest::Approx(length).epsilon(1e-14));
    CHECK(profile.spacing == doctest::Approx(length / 31.0).epsilon(1e-14));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double t = static_cast<double>(i) / 31.0;
        CHECK(values[i] == doctest::Approx(2.0 * (5.0 + 30.0 * t) + 100.0 * (5.0 + 10.0 * t)).epsilon(1e-12));
    }
    CHECK(profile.min == values.front());
    CHECK(profile.max == values.back());
    CHECK(profile.mean == doctest::Approx(0.5 * (values.front() + values.back())).epsilon(1e-12));
}

TEST_CASE("a profile is the mean over lines across it, and even widths straddle it")
{
    OpenCanvas canvas;
    ShowFloats(canvas.Number, 20, 20, [](int, int y) { return y * y; });
    const VostelObject line = Add(canvas.Number, VOSTEL_LENGTH, {{4.5, 8.5}, {9.5, 8.5}});
    CHECK(ProfileOf(canvas.Number, line) == std::vector<double>(6, 64.0));
    CHECK(ProfileOf(canvas.Number, line, 3.0) == std::vector<double>(6, (49.0 + 64.0 + 81.0) / 3.0));
    CHECK(ProfileOf(canvas.Number, line, 2.0) == std::vector<double>(6, (56.5 + 72.5) / 2.0));
}

TEST_CASE("samples outside the image are not a number, and so are those beside one")
{
    OpenCanvas   canvas;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    ShowFloats(canvas.Number, 5, 5, [&](int x, int y) { return x == 3 && y == 2 ? nan : 1.0; });
    VostelProfile profile = {};
    profile.size = sizeof profile;
    const auto values =
        ProfileOf(canvas.Number, Add(canvas.Number, VOSTEL_ARROW, {{-1.5, 2.5}, {5.5, 2.5}}), 1.0, &profile);
    REQUIRE(values.size() == 8);
    const bool finite[] = {false, false, true, true, true, false, true, false};
    for (std::size_t i = 0; i < 8; ++i)
        CHECK(std::isfinite(values[i]) == finite[i]);
    CHECK(profile.mean == 1.0);
    const auto outside =
        ProfileOf(canvas.Number, Add(canvas.Number, VOSTEL_POLYLINE, {{9.0, 9.0}, {20.0, 9.0}, {11.0, 9.0}}),
                  1.0, &profile);
    CHECK(outside.size() == 3);
    CHECK(std::isnan(profile.min));
    CHECK(std::isnan(profile.mean));
}

TEST_CASE("a line of no length has one sample")
{
    OpenCanvas canvas;
    ShowFloats(canvas.Number, 5, 5, [](int x, int) { return x; });
    VostelProfile profile = {};
    profile.size = sizeof profile;
    const auto values =
        ProfileOf(canvas.Number, Add(canvas.Number, VOSTEL_LENGTH, {{2.5, 2.5}, {2.5, 2.5}}), 1.0, &profile);
    CHECK(values == std::vector<double>{2.0});
    CHECK(profile.spacing == 0.0);
}

TEST_CASE("too small a buffer gets the first samples")
{
    OpenCanvas canvas;
    ShowFloats(canvas.Number, 50, 5, [](int x, int) { return x; });
    const VostelObject line = Add(canvas.Number, VOSTEL_LENGTH, {{2.5, 2.5}, {12.5, 2.5}});
    double             values[4] = {-1.0, -1.0, -1.0, -1.0};
    std::size_t        count = 0;
    CHECK(vostel_profile(canvas.Number, line, 0, 1.0, nullptr, values, 3, &count) == VOSTEL_BUFFER_TOO_SMALL);
    CHECK(count == 11);
    CHECK(values[2] == 4.0);
    CHECK(values[3] == -1.0);
    CHECK(vostel_profile(canvas.Number, line, 0, 1.0, nullptr, nullptr, 3, &count) ==
          VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("what is no line and what is no width is refused")
{
    OpenCanvas canvas;
    ShowFloats(canvas.Number, 5, 5, [](int x, int) { return x; });
    std::size_t count = 0;
    const auto  profile = [&](VostelObject object, double width) {
        return vostel_profile(canvas.Number, object, 0, width, nullptr, nullptr, 0, &count);
    };
    const VostelObject line = Add(canvas.Number, VOSTEL_LENGTH, {{0.0, 0.0}, {3.0, 0.0}});
    for (const double width : {0.0, -1.0, 1.5, 1e9, std::numeric_limits<double>::quiet_NaN()})
        CHECK(profile(line, width) == VOSTEL_INVALID_ARGUMENT);
    CHECK(profile(Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {3.0, 3.0}}), 1.0) ==
          VOSTEL_INVALID_ARGUMENT);
    CHECK(profile(Add(canvas.Number, VOSTEL_LENGTH, {{0.0, 0.0}, {1e15, 0.0}}), 1.0) == VOSTEL_TOO_LARGE);
    OpenCanvas         empty;
    const VostelObject alone = Add(empty.Number, VOSTEL_LENGTH, {{0.0, 0.0}, {3.0, 0.0}});
    CHECK(vostel_profile(empty.Number, alone, 0, 1.0, nullptr, nullptr, 0, &count) == VOSTEL_NO_IMAGE);
}
