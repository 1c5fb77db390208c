#include "geometry/ProfileSampling.h"

#include "geometry/RandomPlane.h"

#include <doctest/doctest.h>

#include <cmath>
#include <vector>

using namespace vostel;

namespace {

std::vector<double> Samples(const PlaneView& plane, ImagePoint from, ImagePoint to, int width = 1)
{
    const ProfileLine   line(from, to);
    std::vector<double> samples(static_cast<std::size_t>(line.Count));
    SampleProfile(plane, 0, line, width, samples);
    return samples;
}

// 10 x + 100 y at the centres: bilinear interpolation is exact on it.
RandomPlane Ramp(int width, int height)
{
    RandomPlane plane(SampleType::F32, width, height, 1);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            plane.SetFloat(x, y, static_cast<float>(10 * x + 100 * y));
    return plane;
}

}

TEST_CASE("a profile has a sample for each whole pixel of its length and one more")
{
    CHECK(ProfileLine({0.0, 0.0}, {0.0, 0.0}).Count == 1);
    CHECK(ProfileLine({0.0, 0.0}, {0.9, 0.0}).Count == 1);
    CHECK(ProfileLine({0.0, 0.0}, {0.9, 0.0}).Spacing == 0.0);
    CHECK(ProfileLine({0.0, 0.0}, {3.0, 4.0}).Count == 6);
    CHECK(ProfileLine({0.0, 0.0}, {3.0, 4.0}).Spacing == 1.0);
    CHECK(ProfileLine({0.0, 0.0}, {7.5, 0.0}).Count == 8);
    CHECK(ProfileLine({0.0, 0.0}, {7.5, 0.0}).Spacing == 7.5 / 7.0);
    CHECK(ProfileLine({-1e300, 0.0}, {1e300, 0.0}).Count == 1LL << 53);
}

TEST_CASE("along centres a profile gives the values of the pixels, for every type and channel")
{
    unsigned seed = 80;
    for (const SampleType type : AllSampleTypes) {
        const RandomPlane plane(type, 20, 15, ++seed);
        for (int channel = 0; channel <= (IsColor(type) ? 3 : 0); ++channel) {
            std::vector<double> samples(15);
            SampleProfile(plane.View, channel, ProfileLine({7.5, 0.5}, {7.5, 14.5}), 1, samples);
            for (int y = 0; y < 15; ++y)
                CHECK(samples[static_cast<std::size_t>(y)] == plane.Value(channel, 7, y));
            for (int x = 0; x < 20; ++x)
                CHECK(InterpolatedAt(plane.View, channel, {x + 0.5, 3.5}) == plane.Value(channel, x, 3));
        }
    }
}

TEST_CASE("between centres a profile is bilinear and beyond the outermost ones level")
{
    const RandomPlane         plane = Ramp(8, 6);
    const std::vector<double> samples = Samples(plane.View, {1.0, 1.0}, {5.0, 4.0});
    REQUIRE(samples.size() == 6);
    for (std::size_t i = 0; i < 6; ++i) {
        const double t = static_cast<double>(i) / 5.0;
        CHECK(samples[i] == doctest::Approx(10.0 * (0.5 + 4.0 * t) + 100.0 * (0.5 + 3.0 * t)).epsilon(1e-14));
    }
    CHECK(InterpolatedAt(plane.View, 0, {0.0, 0.0}) == 0.0);
    CHECK(InterpolatedAt(plane.View, 0, {0.25, 2.5}) == 200.0);
    CHECK(InterpolatedAt(plane.View, 0, {8.0, 6.0}) == 570.0);
    CHECK(InterpolatedAt(plane.View, 0, {7.75, 5.5}) == 570.0);
}

TEST_CASE("outside the image and beside a value that is not a number there is none")
{
    RandomPlane plane = Ramp(8, 6);
    CHECK(std::isnan(InterpolatedAt(plane.View, 0, {-1e-9, 3.0})));
    CHECK(std::isnan(InterpolatedAt(plane.View, 0, {3.0, 6.0000001})));
    CHECK(std::isnan(InterpolatedAt(plane.View, 0, {1e300, -1e300})));
    CHECK(std::isnan(InterpolatedAt(plane.View, 0, {NAN, 3.0})));
    CHECK(std::isnan(InterpolatedAt(PlaneView(), 0, {0.0, 0.0})));
    plane.SetFloat(3, 2, NAN);
    CHECK(std::isnan(InterpolatedAt(plane.View, 0, {3.25, 2.5})));
    CHECK(std::isnan(InterpolatedAt(plane.View, 0, {2.75, 1.75})));
    CHECK(InterpolatedAt(plane.View, 0, {2.5, 2.5}) == 220.0);
    CHECK(InterpolatedAt(plane.View, 0, {4.5, 2.75}) == 265.0);
    const std::vector<double> across = Samples(plane.View, {-2.5, 0.5}, {9.5, 0.5});
    REQUIRE(across.size() == 13);
    CHECK(std::isnan(across[2]));
    CHECK(across[3] == 0.0);
    CHECK(across[10] == 70.0);
    CHECK(std::isnan(across[11]));
}

TEST_CASE("a wide profile is the mean of lines one pixel apart, even widths on both sides of the line")
{
    const RandomPlane   plane(SampleType::U16, 30, 20, 9);
    std::vector<double> samples = Samples(plane.View, {4.5, 10.5}, {20.5, 10.5}, 3);
    for (int i = 0; i < 17; ++i)
        CHECK(samples[static_cast<std::size_t>(i)] ==
              (plane.Value(0, 4 + i, 9) + plane.Value(0, 4 + i, 10) + plane.Value(0, 4 + i, 11)) / 3.0);
    samples = Samples(plane.View, {4.5, 10.0}, {20.5, 10.0}, 2);
    for (int i = 0; i < 17; ++i)
        CHECK(samples[static_cast<std::size_t>(i)] ==
              (plane.Value(0, 4 + i, 9) + plane.Value(0, 4 + i, 10)) / 2.0);
    CHECK(std::isnan(Samples(plane.View, {4.5, 0.5}, {20.5, 0.5}, 4)[0]));
}

TEST_CASE("a short buffer gets the first samples")
{
    const RandomPlane   plane = Ramp(8, 6);
    std::vector<double> samples(4, -1.0);
    SampleProfile(plane.View, 0, ProfileLine({0.5, 0.5}, {7.5, 0.5}), 1, std::span(samples).first(3));
    CHECK(samples == std::vector<double>{0.0, 10.0, 20.0, -1.0});
}
