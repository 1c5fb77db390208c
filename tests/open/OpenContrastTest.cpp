// Contrast and histograms by the open interface.

#include "support/OpenCanvas.h"

#include <VostelObj.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <sstream>
#include <vector>

namespace {

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

struct Ends {
    double Low = 0.0;
    double High = 0.0;
    bool   operator==(const Ends&) const = default;
};

Ends WindowOf(int32_t canvas)
{
    Ends ends;
    REQUIRE(vostel_contrast_get(canvas, &ends.Low, &ends.High) == VOSTEL_OK);
    return ends;
}

// 0x00RRGGBB of the canvas surface.
unsigned PixelOf(int32_t canvas, int x, int y)
{
    const int width = gCVSGetCanvasWidth(canvas), height = gCVSGetCanvasHeight(canvas);
    return gCVSGetCanvasPixelPtr(canvas)[(height - 1 - y) * width + x];
}

void ShowRamp(int32_t canvas, uint32_t flags = 0)
{
    std::vector<float> values;
    for (int i = 0; i < 101; ++i)
        values.push_back(static_cast<float>(i));
    REQUIRE(vostel_image_show(canvas, VOSTEL_F32, values.data(), 101, 1, 0, flags) == VOSTEL_OK);
}

}

TEST_CASE("the window starts as the finite range and goes where it is set")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number);
    CHECK(WindowOf(canvas.Number) == Ends{0.0, 100.0});
    CHECK(PixelOf(canvas.Number, 100, 0) == 0xFFFFFFu);
    REQUIRE(vostel_contrast_set(canvas.Number, 50.0, 60.0) == VOSTEL_OK);
    CHECK(WindowOf(canvas.Number) == Ends{50.0, 60.0});
    CHECK(PixelOf(canvas.Number, 50, 0) == 0u);
    CHECK(PixelOf(canvas.Number, 55, 0) == 0x808080u);
    CHECK(vostel_contrast_set(canvas.Number, 5.0, 5.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_set(canvas.Number, static_cast<double>(NaN), 5.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_set(canvas.Number, 0.0, HUGE_VAL) == VOSTEL_INVALID_ARGUMENT);
    CHECK(WindowOf(canvas.Number) == Ends{50.0, 60.0});
    ShowRamp(canvas.Number, VOSTEL_KEEP_CONTRAST);
    CHECK(WindowOf(canvas.Number) == Ends{50.0, 60.0});
    ShowRamp(canvas.Number);
    CHECK(WindowOf(canvas.Number) == Ends{0.0, 100.0});
}

TEST_CASE("percentiles are linear between ranks of the finite values")
{
    const OpenCanvas   canvas;
    std::vector<float> values = {NaN, 4.0f, 1.0f, 2.0f, 3.0f, 5.0f};
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_F32, values.data(), 3, 2, 0, 0) == VOSTEL_OK);
    REQUIRE(vostel_contrast_percentiles(canvas.Number, 10.0, 75.0) == VOSTEL_OK);
    CHECK(WindowOf(canvas.Number).Low == doctest::Approx(1.4).epsilon(1e-12));
    CHECK(WindowOf(canvas.Number).High == 4.0);
    CHECK(vostel_contrast_percentiles(canvas.Number, 50.0, 50.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_percentiles(canvas.Number, -1.0, 50.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_percentiles(canvas.Number, 0.0, 100.5) == VOSTEL_INVALID_ARGUMENT);
    values.assign(6, NaN);
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_F32, values.data(), 3, 2, 0, 0) == VOSTEL_OK);
    CHECK(vostel_contrast_percentiles(canvas.Number, 10.0, 75.0) == VOSTEL_NOT_FOUND);
}

TEST_CASE("gamma, color maps and marks")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number);
    REQUIRE(vostel_contrast_gamma(canvas.Number, 2.0) == VOSTEL_OK);
    CHECK(PixelOf(canvas.Number, 25, 0) == 0x808080u);    // the root of a quarter
    CHECK(vostel_contrast_gamma(canvas.Number, 0.0) == VOSTEL_INVALID_ARGUMENT);
    REQUIRE(vostel_contrast_gamma(canvas.Number, 1.0) == VOSTEL_OK);
    REQUIRE(vostel_contrast_map(canvas.Number, "viridis") == VOSTEL_OK);
    CHECK(PixelOf(canvas.Number, 0, 0) == 0x440154u);
    CHECK(vostel_contrast_map(canvas.Number, "no such map") == VOSTEL_NOT_FOUND);
    CHECK(vostel_contrast_map(canvas.Number, nullptr) == VOSTEL_INVALID_ARGUMENT);
    REQUIRE(vostel_contrast_map(canvas.Number, "inverted") == VOSTEL_OK);
    REQUIRE(vostel_contrast_set(canvas.Number, 10.0, 90.0) == VOSTEL_OK);
    REQUIRE(vostel_contrast_marks(canvas.Number, 0xFF0000FFu, 0xFFFF0000u, 0xFF00FF00u) == VOSTEL_OK);
    CHECK(PixelOf(canvas.Number, 9, 0) == 0x0000FFu);
    CHECK(PixelOf(canvas.Number, 10, 0) == 0xFFFFFFu);
    CHECK(PixelOf(canvas.Number, 91, 0) == 0xFF0000u);
    std::istringstream       names(TextOf(vostel_contrast_map_names));
    std::vector<std::string> listed;
    for (std::string name; std::getline(names, name);) {
        CHECK(vostel_contrast_map(canvas.Number, name.c_str()) == VOSTEL_OK);
        listed.push_back(name);
    }
    for (const char* name : {"gray", "inverted", "fire", "ice", "viridis"})
        CHECK(std::find(listed.begin(), listed.end(), name) != listed.end());
}

TEST_CASE("contrast is a step of history and told to listeners")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number);
    REQUIRE(vostel_contrast_set(canvas.Number, 20.0, 30.0) == VOSTEL_OK);
    REQUIRE(vostel_contrast_map(canvas.Number, "fire") == VOSTEL_OK);
    CHECK(HistoryOf(canvas.Number).undo_count == 2);
    const unsigned fire = PixelOf(canvas.Number, 25, 0);
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(PixelOf(canvas.Number, 25, 0) == 0x808080u);
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(WindowOf(canvas.Number) == Ends{0.0, 100.0});
    REQUIRE(vostel_redo(canvas.Number) == VOSTEL_OK);
    REQUIRE(vostel_redo(canvas.Number) == VOSTEL_OK);
    CHECK(PixelOf(canvas.Number, 25, 0) == fire);
}

TEST_CASE("a region may have a window of its own, and undo takes it back")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number);
    const VostelPoint corners[] = {{10.0, 0.0}, {20.0, 1.0}};
    VostelObject      region = 0;
    REQUIRE(vostel_object_add(canvas.Number, VOSTEL_RECTANGLE, corners, 2, &region) == VOSTEL_OK);
    const unsigned before = PixelOf(canvas.Number, 15, 0);
    REQUIRE(vostel_contrast_of_object(canvas.Number, region, 10.0, 15.0) == VOSTEL_OK);
    CHECK(PixelOf(canvas.Number, 15, 0) == 0xFFFFFFu);
    CHECK(PixelOf(canvas.Number, 10, 0) == 0u);
    CHECK(PixelOf(canvas.Number, 20, 0) == 0x333333u);
    CHECK(vostel_contrast_of_object(canvas.Number, region, 3.0, 2.0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_contrast_of_object(canvas.Number, region + 1, 2.0, 3.0) == VOSTEL_NOT_FOUND);
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);

    CHECK(PixelOf(canvas.Number, 15, 0) == before);
    REQUIRE(vostel_redo(canvas.Number) == VOSTEL_OK);
    CHECK(PixelOf(canvas.Number, 15, 0) == 0xFFFFFFu);
    REQUIRE(vostel_contrast_of_object(canvas.Number, region, 7.0, 7.0) == VOSTEL_OK);
    CHECK(PixelOf(canvas.Number, 15, 0) == before);
    const VostelPoint ends[] = {{1.0, 1.0}, {5.0, 1.0}};
    VostelObject      line = 0;
    REQUIRE(vostel_object_add(canvas.Number, VOSTEL_LENGTH, ends, 2, &line) == VOSTEL_OK);
    CHECK(vostel_contrast_of_object(canvas.Number, line, 1.0, 2.0) == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("a histogram counts the image or a region, the highest value in the last bin")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number);
    std::uint64_t counts[4] = {7, 7, 7, 7};
    REQUIRE(vostel_histogram(canvas.Number, 0, 0, 0.0, 100.0, 4, counts) == VOSTEL_OK);
    CHECK(std::vector<std::uint64_t>(counts, counts + 4) == std::vector<std::uint64_t>{25, 25, 25, 26});
    const VostelPoint corners[] = {{10.0, 0.0}, {30.0, 1.0}};
    VostelObject      region = 0;
    REQUIRE(vostel_object_add(canvas.Number, VOSTEL_RECTANGLE, corners, 2, &region) == VOSTEL_OK);
    REQUIRE(vostel_histogram(canvas.Number, region, 0, 0.0, 100.0, 4, counts) == VOSTEL_OK);
    CHECK(std::vector<std::uint64_t>(counts, counts + 4) == std::vector<std::uint64_t>{15, 5, 0, 0});
    CHECK(vostel_histogram(canvas.Number, 0, 0, 0.0, 0.0, 4, counts) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_histogram(canvas.Number, 0, 0, 0.0, 1.0, 0, counts) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_histogram(canvas.Number, 0, 0, 0.0, 1.0, INT32_MAX, counts) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_histogram(canvas.Number, 0, 1, 0.0, 1.0, 4, counts) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_histogram(canvas.Number, 0, 0, 0.0, 1.0, 4, nullptr) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_histogram(canvas.Number, region + 9, 0, 0.0, 1.0, 4, counts) == VOSTEL_NOT_FOUND);
}

TEST_CASE("contrast in their own values reaches images of the classic calls")
{
    const OpenCanvas           canvas;
    std::vector<unsigned char> gray = {0, 50, 100, 200};
    gCVSShowUCGray(canvas.Number, gray.data(), 2, 2, true);
    CHECK(WindowOf(canvas.Number) == Ends{0.0, 255.0});
    REQUIRE(vostel_contrast_set(canvas.Number, 50.0, 100.0) == VOSTEL_OK);
    double value = 0.0;
    REQUIRE(vostel_image_value(canvas.Number, 0, 1.5, 1.5, &value) == VOSTEL_OK);
    CHECK(value == 200.0);
    std::vector<float> floats = {0.0f, 10.0f, 20.0f, 40.0f};
    gCVSShowRawFloat(canvas.Number, floats.data(), 2, 2, true, true);
    CHECK(WindowOf(canvas.Number) == Ends{0.0, 40.0});
    REQUIRE(vostel_contrast_percentiles(canvas.Number, 0.0, 50.0) == VOSTEL_OK);
    CHECK(WindowOf(canvas.Number) == Ends{0.0, 15.0});
    CHECK(PixelOf(canvas.Number, 0, 1) == 0xFFFFFFu);
}

TEST_CASE("bins of a range whose width no number holds are as wide as its ends tell")
{
    const OpenCanvas         canvas;
    const std::vector<float> values = {-3e38f, -1.0f, 0.0f, 1.0f, 3e38f, NaN};
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_F32, values.data(), 6, 1, 0, 0) == VOSTEL_OK);
    const auto countsOf = [&](double low, double high, int32_t bins) {
        std::vector<std::uint64_t> counts(static_cast<std::size_t>(bins));
        REQUIRE(vostel_histogram(canvas.Number, 0, 0, low, high, bins, counts.data()) == VOSTEL_OK);
        return counts;
    };
    using Counts = std::vector<std::uint64_t>;
    CHECK(countsOf(-1e308, 1e308, 1) == Counts{5});
    CHECK(countsOf(-1e308, 1e308, 2) == Counts{2, 3});
    CHECK(countsOf(-1e308, 1e308, 4) == Counts{0, 2, 3, 0});
    CHECK(countsOf(-1e308, 1e308, 5) == Counts{0, 0, 5, 0, 0});
    CHECK(countsOf(-1.5e308, 0.5e308, 2) == Counts{0, 5});
    const Counts many = countsOf(-1e308, 1e308, 1024);
    CHECK(many[511] == 2);
    CHECK(many[512] == 3);
}

TEST_CASE("a first image has no contrast to keep")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number, VOSTEL_KEEP_CONTRAST);
    CHECK(WindowOf(canvas.Number) == Ends{0.0, 100.0});
    CHECK(PixelOf(canvas.Number, 100, 0) == 0xFFFFFFu);
    REQUIRE(vostel_contrast_set(canvas.Number, 20.0, 40.0) == VOSTEL_OK);
    const float other[] = {1.0f, 30.0f};
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_F32, other, 2, 1, 0, VOSTEL_KEEP_CONTRAST) == VOSTEL_OK);
    CHECK(WindowOf(canvas.Number) == Ends{20.0, 40.0});
}
