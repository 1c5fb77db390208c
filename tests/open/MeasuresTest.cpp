#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr std::uint32_t RegionBits =
    VOSTEL_HAS_PIXELS | VOSTEL_HAS_AREA | VOSTEL_HAS_VALUES | VOSTEL_HAS_SHAPE;
constexpr double Pi = 3.14159265358979323846;
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

bool Near(double a, double b)
{
    return std::fabs(a - b) <= 1e-10 * std::fmax(1.0, std::fabs(b));
}

VostelObject AddEllipse(int32_t canvas, const Points& corners)
{
    const VostelObject ellipse = Add(canvas, VOSTEL_RECTANGLE, corners);
    REQUIRE(vostel_object_set_flags(canvas, ellipse, VOSTEL_ELLIPSE) == VOSTEL_OK);
    return ellipse;
}

}

TEST_CASE("a rectangle measures what its corners say, in either order of them")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 20, 10, [](int x, int y) { return x + 10 * y; });
    for (const Points& corners : {Points{{2.0, 1.0}, {6.0, 4.0}}, Points{{6.0, 4.0}, {2.0, 1.0}}}) {
        const VostelMeasures m = MeasuresOf(canvas.Number, Add(canvas.Number, VOSTEL_RECTANGLE, corners));
        CHECK(m.valid == RegionBits);
        CHECK(m.pixels == 12);
        CHECK(m.not_finite == 0);
        CHECK(m.area == 12.0);
        CHECK(m.perimeter == 14.0);
        CHECK(m.centroid_x == 4.0);
        CHECK(m.centroid_y == 2.5);
        CHECK(m.left == 2.0);
        CHECK(m.top == 1.0);
        CHECK(m.right == 6.0);
        CHECK(m.bottom == 4.0);
        CHECK(m.feret_max == 5.0);
        CHECK(m.feret_min == 3.0);
        CHECK(Near(m.circularity, 4.0 * Pi * 12.0 / 196.0));
        // 12..15, 22..25, 32..35
        CHECK(m.sum == 282.0);
        CHECK(m.mean == 23.5);
        CHECK(m.min == 12.0);
        CHECK(m.max == 35.0);
        CHECK(m.median == 23.5);
        CHECK(Near(m.sd, std::sqrt((12.0 * 1.25 + 8.0 * 100.0) / 11.0)));
    }
}

TEST_CASE("an ellipse measures by its formula")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 200, 200, [](int, int) { return 7; });
    const VostelMeasures circle =
        MeasuresOf(canvas.Number, AddEllipse(canvas.Number, {{20.0, 30.0}, {120.0, 130.0}}));
    CHECK(Near(circle.area, Pi * 2500.0));
    CHECK(Near(circle.perimeter, 100.0 * Pi));
    CHECK(Near(circle.circularity, 1.0));
    CHECK(Near(circle.feret_max, 100.0));
    CHECK(Near(circle.feret_min, 100.0));
    CHECK(std::fabs(static_cast<double>(circle.pixels) - circle.area) < 30.0);
    CHECK(circle.mean == 7.0);
    CHECK(circle.sd == 0.0);
    const VostelMeasures flat =
        MeasuresOf(canvas.Number, AddEllipse(canvas.Number, {{0.0, 0.0}, {60.0, 20.0}}));
    CHECK(Near(flat.area, Pi * 300.0));
    CHECK(std::fabs(flat.perimeter - 133.64893220554904) < 1e-9);    // 4 a E(1 - b^2 / a^2)
    CHECK(Near(flat.feret_max, 60.0));
    CHECK(Near(flat.feret_min, 20.0));
    CHECK(flat.centroid_x == 30.0);
}

TEST_CASE("a triangle and a figure of eight have the area of what they enclose")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 50, 50, [](int, int) { return 1; });
    const VostelMeasures triangle =
        MeasuresOf(canvas.Number, Add(canvas.Number, VOSTEL_POLYGON, {{1.0, 1.0}, {31.0, 1.0}, {1.0, 41.0}}));
    CHECK(triangle.area == 600.0);
    CHECK(triangle.perimeter == 120.0);
    CHECK(Near(triangle.centroid_x, 11.0));
    CHECK(Near(triangle.centroid_y, 43.0 / 3.0));
    CHECK(triangle.feret_max == 50.0);
    CHECK(Near(triangle.feret_min, 24.0));
    const VostelMeasures eight =
        MeasuresOf(canvas.Number, Add(canvas.Number, VOSTEL_FREE_REGION,
                                      {{0.0, 0.0}, {20.0, 20.0}, {20.0, 0.0}, {0.0, 20.0}}));
    CHECK(Near(eight.area, 200.0));
    CHECK(Near(eight.centroid_x, 10.0));
}

TEST_CASE("a region without an interior has the area 0 and no values")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 50, 50, [](int, int) { return 1; });
    const VostelMeasures m =
        MeasuresOf(canvas.Number, Add(canvas.Number, VOSTEL_POLYGON, {{3.0, 3.0}, {13.0, 3.0}, {8.0, 3.0}}));
    CHECK(m.valid == (VOSTEL_HAS_PIXELS | VOSTEL_HAS_AREA | VOSTEL_HAS_SHAPE));
    CHECK(m.pixels == 0);
    CHECK(m.area == 0.0);
    CHECK(m.perimeter == 20.0);
    CHECK(m.circularity == 0.0);
}

TEST_CASE("values that are not finite are counted and left out")
{
    OpenCanvas   canvas;
    const double infinite = std::numeric_limits<double>::infinity();
    ShowFloats(canvas.Number, 4, 2, [&](int x, int y) {
        return y == 0 ? 1.5 * x : x == 0 ? NaN : x == 1 ? infinite : -8.0;
    });
    const VostelObject   all = Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {4.0, 2.0}});
    const VostelMeasures m = MeasuresOf(canvas.Number, all);
    CHECK(m.pixels == 8);
    CHECK(m.not_finite == 2);
    CHECK(m.sum == 9.0 - 16.0);
    CHECK(m.min == -8.0);
    CHECK(m.max == 4.5);
    CHECK(m.median == 0.75);
    const VostelMeasures spoilt =
        MeasuresOf(canvas.Number, Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 1.0}, {2.0, 2.0}}));
    CHECK(spoilt.pixels == 2);
    CHECK(spoilt.not_finite == 2);
    CHECK((spoilt.valid & VOSTEL_HAS_VALUES) == 0);
}

TEST_CASE("statistics of random polygons equal a plain sum over their mask")
{
    OpenCanvas                             canvas;
    constexpr int                          Width = 90, Height = 70;
    std::mt19937                           random(11);
    std::uniform_real_distribution<double> value(-100.0, 100.0), place(-20.0, 110.0);
    std::vector<float>                     image;
    ShowFloats(canvas.Number, Width, Height, [&](int, int) {
        image.push_back(static_cast<float>(value(random)));
        return image.back();
    });
    for (int round = 0; round < 60; ++round) {
        Points corners;
        for (int i = 0; i < 3 + round % 9; ++i)
            corners.push_back({place(random), place(random)});
        const VostelObject        object = Add(canvas.Number, VOSTEL_POLYGON, corners);
        std::vector<std::uint8_t> mask(Width * Height);
        REQUIRE(vostel_mask(canvas.Number, object, mask.data(), 0) == VOSTEL_OK);
        std::vector<double> inside;
        for (std::size_t i = 0; i < mask.size(); ++i) {
            if (mask[i] == 255)
                inside.push_back(static_cast<double>(image[i]));
        }
        const VostelMeasures m = MeasuresOf(canvas.Number, object);
        CAPTURE(round);
        REQUIRE(m.pixels == static_cast<std::int64_t>(inside.size()));
        if (inside.empty())
            continue;
        double sum = 0.0, squares = 0.0;
        for (const double v : inside)
            sum += v;
        const double mean = sum / static_cast<double>(inside.size());
        for (const double v : inside)
            squares += (v - mean) * (v - mean);
        std::sort(inside.begin(), inside.end());
        CHECK(Near(m.sum, sum));
        CHECK(Near(m.mean, mean));
        CHECK(Near(m.sd,
                   inside.size() < 2 ? 0.0 : std::sqrt(squares / static_cast<double>(inside.size() - 1))));
        CHECK(m.min == inside.front());
        CHECK(m.max == inside.back());
        CHECK(m.median == 0.5 * (inside[(inside.size() - 1) / 2] + inside[inside.size() / 2]));
    }
}

TEST_CASE("every kind says what has a meaning for it")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 100, [](int x, int) { return x; });
    const auto bits = [&](VostelKind kind, const Points& points) {
        return MeasuresOf(canvas.Number, Add(canvas.Number, kind, points)).valid;
    };
    const Points two = {{10.0, 10.0}, {40.0, 50.0}};
    const Points three = {{10.0, 10.0}, {40.0, 50.0}, {20.0, 60.0}};
    const Points four = {{10.0, 10.0}, {40.0, 50.0}, {20.0, 60.0}, {70.0, 60.0}};
    CHECK(bits(VOSTEL_RECTANGLE, two) == RegionBits);
    CHECK(bits(VOSTEL_CUSTOM_RECTANGLE, two) == RegionBits);
    CHECK(bits(VOSTEL_POLYGON, three) == RegionBits);
    CHECK(bits(VOSTEL_SPLINE, three) == RegionBits);
    CHECK(bits(VOSTEL_FREE_REGION, three) == RegionBits);
    CHECK(bits(VOSTEL_TEXT, {{1.0, 1.0}}) == 0);
    CHECK(bits(VOSTEL_FREE_STROKES, three) == VOSTEL_HAS_SHAPE);
    CHECK(bits(VOSTEL_LENGTH, two) == (VOSTEL_HAS_LENGTH | VOSTEL_HAS_SHAPE));
    CHECK(bits(VOSTEL_ANGLE, three) == (VOSTEL_HAS_ANGLE | VOSTEL_HAS_SHAPE));
    CHECK(bits(VOSTEL_ANGLE_LINES, four) == (VOSTEL_HAS_ANGLE | VOSTEL_HAS_SHAPE));
    CHECK(bits(VOSTEL_PANEL, {{1.0, 1.0}}) == 0);
    CHECK(bits(VOSTEL_NEIGHBOURS, {{1.0, 1.0}}) == 0);
    CHECK(bits(VOSTEL_PROFILE, two) == (VOSTEL_HAS_LENGTH | VOSTEL_HAS_VALUES | VOSTEL_HAS_SHAPE));
    CHECK(bits(VOSTEL_POINTS, three) == (VOSTEL_HAS_PIXELS | VOSTEL_HAS_VALUES | VOSTEL_HAS_SHAPE));
    CHECK(bits(VOSTEL_POLYLINE, four) == (VOSTEL_HAS_LENGTH | VOSTEL_HAS_SHAPE));
    CHECK(bits(VOSTEL_ARROW, two) == (VOSTEL_HAS_LENGTH | VOSTEL_HAS_SHAPE));
    for (const VostelKind kind :
         {VOSTEL_POLYGON, VOSTEL_LENGTH, VOSTEL_ANGLE, VOSTEL_POINTS, VOSTEL_PROFILE}) {
        VostelObject unfinished = 0;
        REQUIRE(vostel_draw_next(canvas.Number, kind, &unfinished) == VOSTEL_OK);
        CHECK(MeasuresOf(canvas.Number, unfinished).valid == 0);
    }
}

TEST_CASE("without an image a region has its shape and no pixels")
{
    OpenCanvas           canvas;
    const VostelMeasures m =
        MeasuresOf(canvas.Number, Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {3.0, 4.0}}));
    CHECK(m.valid == (VOSTEL_HAS_AREA | VOSTEL_HAS_SHAPE));
    CHECK(m.area == 12.0);
}

TEST_CASE("lines have the length of all their parts, and their middle is that of the line")
{
    OpenCanvas           canvas;
    const VostelMeasures line = MeasuresOf(
        canvas.Number, Add(canvas.Number, VOSTEL_POLYLINE, {{0.0, 0.0}, {30.0, 40.0}, {30.0, 140.0}}));
    CHECK(line.length == 150.0);
    CHECK(Near(line.centroid_x, (50.0 * 15.0 + 100.0 * 30.0) / 150.0));
    CHECK(Near(line.centroid_y, (50.0 * 20.0 + 100.0 * 90.0) / 150.0));
    CHECK(line.bottom == 140.0);
    CHECK(Near(line.feret_max, std::hypot(30.0, 140.0)));
    CHECK(MeasuresOf(canvas.Number, Add(canvas.Number, VOSTEL_ARROW, {{3.0, 0.0}, {0.0, 4.0}})).length ==
          5.0);
}

TEST_CASE("an angle is told from its vertex, and of two lines by their directions")
{
    OpenCanvas canvas;
    const auto angle = [&](VostelKind kind, const Points& points) {
        return MeasuresOf(canvas.Number, Add(canvas.Number, kind, points)).angle;
    };
    CHECK(Near(angle(VOSTEL_ANGLE, {{10.0, 0.0}, {0.0, 0.0}, {0.0, 10.0}}), 90.0));
    CHECK(Near(angle(VOSTEL_ANGLE, {{10.0, 0.0}, {0.0, 0.0}, {-10.0, 10.0}}), 135.0));
    CHECK(Near(angle(VOSTEL_ANGLE_LINES, {{0.0, 0.0}, {10.0, 0.0}, {50.0, 50.0}, {60.0, 60.0}}), 45.0));
    CHECK(Near(angle(VOSTEL_ANGLE_LINES, {{10.0, 0.0}, {0.0, 0.0}, {50.0, 50.0}, {60.0, 60.0}}), 135.0));
}

TEST_CASE("counted marks have the values of the pixels under them")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 10, 10, [](int x, int y) { return x + 10 * y; });
    const VostelMeasures m =
        MeasuresOf(canvas.Number, Add(canvas.Number, VOSTEL_POINTS,
                                      {{0.0, 0.0}, {9.99, 9.99}, {2.5, 1.5}, {-0.1, 3.0}, {10.0, 3.0}}));
    CHECK(m.pixels == 5);
    CHECK(m.sum == 0.0 + 99.0 + 12.0);
    CHECK(m.median == 12.0);
}

TEST_CASE("the scale goes into lengths and areas, of objects that stand too, and not into places")
{
    OpenCanvas         canvas;
    const VostelObject rectangle = Add(canvas.Number, VOSTEL_RECTANGLE, {{2.0, 1.0}, {6.0, 4.0}});
    const VostelObject line = Add(canvas.Number, VOSTEL_LENGTH, {{0.0, 0.0}, {3.0, 4.0}});
    REQUIRE(vostel_set_scale(canvas.Number, 0.5, "mm") == VOSTEL_OK);
    const VostelMeasures m = MeasuresOf(canvas.Number, rectangle);
    CHECK(m.area == 3.0);
    CHECK(m.perimeter == 7.0);
    CHECK(m.feret_max == 2.5);
    CHECK(m.left == 2.0);
    CHECK(Near(m.circularity, 4.0 * Pi * 12.0 / 196.0));
    CHECK(MeasuresOf(canvas.Number, line).length == 2.5);
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(MeasuresOf(canvas.Number, line).length == 5.0);
    for (const double units : {0.0, -1.0, NaN, std::numeric_limits<double>::infinity()})
        CHECK(vostel_set_scale(canvas.Number, units, "mm") == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_set_scale(canvas.Number, 1.0, nullptr) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_set_scale(canvas.Number, 1.0, "\xff") == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("an English caption says what is measured, whatever the zoom")
{
    OpenCanvas canvas;
    REQUIRE(vostel_canvas_set_language(canvas.Number, "en") == VOSTEL_OK);
    REQUIRE(vostel_set_scale(canvas.Number, 0.5, "mm") == VOSTEL_OK);
    const VostelObject line = Add(canvas.Number, VOSTEL_LENGTH, {{0.25, 0.0}, {3.25, 4.0}});
    for (const double scale : {1.0, 7.3, 0.1}) {
        const VostelView view = {sizeof view, scale, 3.0, 4.0};
        REQUIRE(vostel_view_set(canvas.Number, &view) == VOSTEL_OK);
        CHECK(TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
                  return vostel_object_text(canvas.Number, line, buffer, capacity, length);
              }) == "Length = 2.500 mm");
    }
}

TEST_CASE("a shorter record of measures is filled as far as it goes")
{
    OpenCanvas         canvas;
    const VostelObject rectangle = Add(canvas.Number, VOSTEL_RECTANGLE, {{2.0, 1.0}, {6.0, 4.0}});
    VostelMeasures     measures;
    std::memset(&measures, 0x55, sizeof measures);
    const VostelMeasures before = measures;
    measures.size = offsetof(VostelMeasures, perimeter);
    REQUIRE(vostel_measure(canvas.Number, rectangle, 0, &measures) == VOSTEL_OK);
    CHECK(measures.area == 12.0);
    CHECK(std::memcmp(&measures.perimeter, &before.perimeter,
                      sizeof measures - offsetof(VostelMeasures, perimeter)) == 0);
}

TEST_CASE("of a record that ends within a field, that field is not there")
{
    OpenCanvas         canvas;
    const VostelObject rectangle = Add(canvas.Number, VOSTEL_RECTANGLE, {{2.0, 1.0}, {6.0, 4.0}});
    for (std::uint32_t size = 0; size < offsetof(VostelMeasures, length); ++size) {
        CAPTURE(size);
        const std::size_t whole = size < 8 ? sizeof size : size / 8 * 8;
        VostelMeasures    measures;
        std::memset(&measures, 0x55, sizeof measures);
        const VostelMeasures before = measures;
        measures.size = size;
        const VostelStatus status = vostel_measure(canvas.Number, rectangle, 0, &measures);
        CHECK(status == (size < 8 ? VOSTEL_INVALID_ARGUMENT : VOSTEL_OK));
        CHECK(std::memcmp(reinterpret_cast<const char*>(&measures) + whole,
                          reinterpret_cast<const char*>(&before) + whole, sizeof measures - whole) == 0);
    }
}

TEST_CASE("a gray image has channel 0 alone")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 10, 10, [](int, int) { return 1; });
    const VostelObject rectangle = Add(canvas.Number, VOSTEL_RECTANGLE, {{2.0, 1.0}, {6.0, 4.0}});
    VostelMeasures     measures = {};
    measures.size = sizeof measures;
    for (const int32_t channel : {-1, 1, 3, 4})
        CHECK(vostel_measure(canvas.Number, rectangle, channel, &measures) == VOSTEL_INVALID_ARGUMENT);
    CHECK(measures.valid == 0);
}
