#include "process/Bands.h"
#include "process/Routine.h"
#include "process/Thresholds.h"

#include <doctest/doctest.h>

#include <cmath>
#include <random>
#include <set>
#include <string>

using namespace vostel;
using namespace vostel::viewer;

namespace {

Samples Noise(int width, int height, float low = 0.0f, float high = 1000.0f)
{
    Samples                               image(width, height);
    std::minstd_rand                      random(5);
    std::uniform_real_distribution<float> values(low, high);
    for (float& value : image.Values)
        value = values(random);
    return image;
}

const Routine& Of(const char* id)
{
    for (const Routine& routine : AllRoutines())
        if (routine.Id == std::string("process.") + id)
            return routine;
    throw std::runtime_error(id);
}

Samples Run(const char* id, const Samples& image, const std::vector<double>& values = {})
{
    RunState state;
    return Of(id).Run(image, values, state);
}

Plane<const float> PlaneOf(const Samples& image)
{
    return {image.Values.data(), image.Width, image.Height};
}

}

TEST_CASE("each routine has a name of its own and first values within its limits")
{
    std::set<std::string> ids, titles;
    for (const Routine& routine : AllRoutines()) {
        CAPTURE(routine.Id);
        CHECK(ids.insert(routine.Id).second);
        CHECK(titles.insert(routine.Title).second);
        for (const Parameter& parameter : routine.Parameters) {
            CHECK(parameter.First >= parameter.Low);
            CHECK(parameter.First <= parameter.High);
            CHECK((parameter.Choices.empty() ||
                   static_cast<std::size_t>(parameter.High) + 1 == parameter.Choices.size()));
        }
    }
}

TEST_CASE("smoothing in bands has the values of one call, to the bit")
{
    // So wide that bands are lower than the image, at its borders too.
    const Samples image = Noise(40000, 90);
    Samples       whole(image.Width, image.Height);
    gaussian(PlaneOf(image), 19, 3.0, Plane<float>(whole.Values.data(), image.Width, image.Height));
    CHECK(Run("gaussian", image, {3.0}).Values == whole.Values);
    const std::vector<float> mean(13 * 13, 1.0f / 169.0f);
    correlate(PlaneOf(image), Plane<const float>(mean.data(), 13, 13),
              Plane<float>(whole.Values.data(), image.Width, image.Height));
    CHECK(Run("mean", image, {13}).Values == whole.Values);
}

TEST_CASE("a local threshold in bands is that of one call, and stretches what no byte holds")
{
    const Samples bytes = Noise(700000, 30, 0.0f, 255.0f);
    Samples       whole(bytes.Width, bytes.Height);
    adaptive_threshold(PlaneOf(bytes), 5, 1.0, Plane<float>(whole.Values.data(), bytes.Width, bytes.Height));
    CHECK(Run("local", bytes, {5, 1.0}).Values == whole.Values);
    Samples deep(64, 64);
    for (std::size_t i = 0; i < deep.Values.size(); ++i)
        deep.Values[i] = i % 64 < 32 ? 20000.0f : 30000.0f;
    const Samples parted = Run("local", deep, {15, 1.0});
    CHECK(parted.Values[32 * 64 + 33] == 255.0f);
    CHECK(parted.Values[32 * 64 + 31] == 0.0f);
}

TEST_CASE("thresholds part where they say")
{
    Samples image(100, 10);
    for (std::size_t i = 0; i < image.Values.size(); ++i)
        image.Values[i] =
            i % 100 < 70 ? 100.0f + static_cast<float>(i % 7) : 5000.0f + static_cast<float>(i % 9);
    image.Values[0] = NAN;
    const double value = OtsuValue(image);
    CHECK(value > 106.0);
    CHECK(value < 5000.0);
    const Samples bright = Run("otsu", image);
    CHECK(bright.Values[0] == 0.0f);
    CHECK(bright.Values[69] == 0.0f);
    CHECK(bright.Values[70] == 255.0f);
    const Samples range = Run("range", image, {102.0, 104.0});
    CHECK(range.Values[101] == (image.Values[101] >= 102.0f && image.Values[101] <= 104.0f ? 255.0f : 0.0f));
    CHECK(range.Values[70] == 0.0f);
    CHECK(Run("otsu", Samples(4, 4)).Values == std::vector<float>(16, 255.0f));
}

TEST_CASE("sharpening, edges and inverting do what a hand reckons")
{
    Samples step(20, 20);
    for (int y = 0; y < 20; ++y)
        for (int x = 10; x < 20; ++x)
            step.Values[static_cast<std::size_t>(y * 20 + x)] = 10.0f;
    const std::size_t middle = 10 * 20;
    CHECK(Run("edges", step, {0}).Values[middle + 9] == doctest::Approx(40.0));
    CHECK(Run("edges", step, {1}).Values[middle + 10] == doctest::Approx(40.0));
    CHECK(Run("edges", step, {2}).Values[middle + 10] == doctest::Approx(0.0));
    CHECK(Run("edges", step, {3}).Values[middle + 10] == doctest::Approx(30.0));
    CHECK(Run("sharpen", step, {3, 1.0}).Values[middle + 10] == doctest::Approx(10.0 + 10.0 / 3.0));
    CHECK(Run("sharpen", step, {3, 1.0}).Values[middle + 5] == doctest::Approx(0.0));
    CHECK(Run("invert", step).Values[middle + 10] == 0.0f);
    CHECK(Run("invert", step).Values[middle] == 10.0f);
}

TEST_CASE("the spectrum of a wave has its two frequencies beside the middle")
{
    Samples wave(64, 32);
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 64; ++x)
            wave.Values[static_cast<std::size_t>(y * 64 + x)] =
                100.0f + 10.0f * std::cos(2.0f * 3.14159265f * 4.0f * static_cast<float>(x) / 64.0f);
    const Samples spectrum = Run("spectrum", wave, {1});
    REQUIRE(spectrum.Width == 64);
    CHECK(spectrum.Values[16 * 64 + 36] == doctest::Approx(10.0 * 64 * 32 / 2).epsilon(1e-4));
    CHECK(spectrum.Values[16 * 64 + 28] == doctest::Approx(10.0 * 64 * 32 / 2).epsilon(1e-4));
    CHECK(spectrum.Values[16 * 64 + 32] < 1e-2f);
    CHECK(Run("spectrum", Noise(100, 70), {0}).Width == 128);
}

TEST_CASE("resizing, the ramp filter and neighborhoods that do not fit")
{
    const Samples image = Noise(60, 40);
    const Samples half = Run("resize", image, {50, 25});
    CHECK(half.Width == 30);
    CHECK(half.Height == 10);
    CHECK(Run("resize", Noise(3, 3), {0.1, 0.1}).Values.size() == 1);
    Samples filtered(60, 40);
    ramp_filter(PlaneOf(image), 119, 0.5, Plane<float>(filtered.Values.data(), 60, 40));
    CHECK(Run("ramp", image, {0.5}).Values == filtered.Values);
    CHECK_THROWS_AS(Run("mean", Noise(5, 5), {7}), Error);
}

TEST_CASE("a routine that is to stop ends at its next rows")
{
    RunState state;
    state.StopWanted = true;
    const std::vector<double> sigma = {5.0};
    CHECK_THROWS_AS(Of("gaussian").Run(Noise(200, 200), sigma, state), Stopped);
}
