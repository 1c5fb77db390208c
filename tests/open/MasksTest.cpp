#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace {

using Mask = std::vector<std::uint8_t>;

Mask MaskOf(int32_t canvas, VostelObject region, int width, int height)
{
    Mask mask(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 1);
    REQUIRE(vostel_mask(canvas, region, mask.data(), 0) == VOSTEL_OK);
    return mask;
}

// The even-odd rule by its words; no centre lies on an edge.
bool IsInside(const Points& corners, double x, double y)
{
    bool inside = false;
    for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
        const VostelPoint& a = corners[i];
        const VostelPoint& b = corners[j];
        if ((a.y > y) != (b.y > y) && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

Points RandomPolygon(std::mt19937& random, int corners, double extent)
{
    std::uniform_real_distribution<double> place(-0.2 * extent, 1.2 * extent);
    Points                                 points;
    for (int i = 0; i < corners; ++i)
        points.push_back({place(random), place(random)});
    return points;
}

int CountOf(const Mask& mask)
{
    return static_cast<int>(std::count(mask.begin(), mask.end(), 255));
}

}

TEST_CASE("the mask of a random polygon follows the even-odd rule")
{
    constexpr int Side = 48;
    OpenCanvas    canvas;
    ShowBytes(canvas.Number, Side, Side, [](int, int) { return 0; });
    std::mt19937 random(5);
    for (int round = 0; round < 40; ++round) {
        const Points corners = RandomPolygon(random, 3 + round % 12, Side);
        const Mask   mask = MaskOf(canvas.Number, Add(canvas.Number, VOSTEL_POLYGON, corners), Side, Side);
        for (int y = 0; y < Side; ++y) {
            for (int x = 0; x < Side; ++x)
                REQUIRE(mask[static_cast<std::size_t>(y * Side + x)] ==
                        (IsInside(corners, x + 0.5, y + 0.5) ? 255 : 0));
        }
    }
}

TEST_CASE("a region covers the same in all 8 orientations of the plane and in both drawing directions")
{
    constexpr int Side = 40;
    OpenCanvas    canvas;
    ShowBytes(canvas.Number, Side, Side, [](int, int) { return 0; });
    std::mt19937 random(6);
    for (const VostelKind kind : {VOSTEL_POLYGON, VOSTEL_SPLINE, VOSTEL_FREE_REGION}) {
        const Points corners = RandomPolygon(random, 7, Side);
        const Mask   upright = MaskOf(canvas.Number, Add(canvas.Number, kind, corners), Side, Side);
        CHECK(CountOf(upright) > 0);
        for (int orientation = 0; orientation < 8; ++orientation) {
            const auto turn = [&](auto& x, auto& y, auto extent) {
                if (orientation & 1)
                    x = extent - x;
                if (orientation & 2)
                    y = extent - y;
                if (orientation & 4)
                    std::swap(x, y);
            };
            Points turned = corners;
            for (VostelPoint& point : turned)
                turn(point.x, point.y, double(Side));
            for (const bool reversed : {false, true}) {
                if (reversed)
                    std::reverse(turned.begin() + (kind == VOSTEL_SPLINE ? 1 : 0), turned.end());
                const Mask mask = MaskOf(canvas.Number, Add(canvas.Number, kind, turned), Side, Side);
                int        different = 0;
                for (int y = 0; y < Side; ++y) {
                    for (int x = 0; x < Side; ++x) {
                        int toX = x, toY = y;
                        turn(toX, toY, Side - 1);
                        different += mask[static_cast<std::size_t>(toY * Side + toX)] !=
                                     upright[static_cast<std::size_t>(y * Side + x)];
                    }
                }
                CAPTURE(kind);
                CAPTURE(orientation);
                CAPTURE(reversed);
                CHECK(different == 0);
            }
        }
    }
}

TEST_CASE("regions that share their edges share no pixel and leave none out")
{
    constexpr int Side = 30;
    OpenCanvas    canvas;
    ShowBytes(canvas.Number, Side, Side, [](int, int) { return 0; });
    std::vector<Points> parts;
    SUBCASE("a fan around a centre of a pixel")
    {
        const Points rim = {{0.0, 0.0},   {14.5, 0.0}, {30.0, 0.0}, {30.0, 14.5},
                            {30.0, 30.0}, {0.0, 30.0}, {0.0, 14.5}};
        for (std::size_t i = 0; i < rim.size(); ++i)
            parts.push_back({{14.5, 14.5}, rim[i], rim[(i + 1) % rim.size()]});
    }
    SUBCASE("strips whose edges run through centres")
    {
        for (int i = 0; i < 10; ++i)
            parts.push_back({{3.0 * i + (i ? 0.5 : 0.0), 0.0},
                             {3.0 * (i + 1) + (i < 9 ? 0.5 : 0.0), 0.0},
                             {3.0 * (i + 1) + (i < 9 ? 0.5 : 0.0), 30.0},
                             {3.0 * i + (i ? 0.5 : 0.0), 30.0}});
    }
    SUBCASE("random triangles of a square")
    {
        std::mt19937                           random(8);
        std::uniform_real_distribution<double> place(1.0, 29.0);
        const VostelPoint                      inner = {place(random), place(random)};
        const Points rim = {{0.0, 0.0},   {30.0, 0.0},           {30.0, place(random)},
                            {30.0, 30.0}, {place(random), 30.0}, {0.0, 30.0}};
        for (std::size_t i = 0; i < rim.size(); ++i)
            parts.push_back({inner, rim[(i + 1) % rim.size()], rim[i]});
    }
    std::vector<int> times(Side * Side);
    for (const Points& part : parts) {
        const Mask mask = MaskOf(canvas.Number, Add(canvas.Number, VOSTEL_POLYGON, part), Side, Side);
        for (std::size_t i = 0; i < mask.size(); ++i)
            times[i] += mask[i] == 255;
    }
    CHECK(std::count(times.begin(), times.end(), 1) == Side * Side);
}

TEST_CASE("left and upper edges through centres belong to a rectangle, right and lower ones do not")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 6, 5, [](int, int) { return 0; });
    const Mask mask =
        MaskOf(canvas.Number, Add(canvas.Number, VOSTEL_RECTANGLE, {{1.5, 1.5}, {4.5, 3.5}}), 6, 5);
    const Mask expected = {0, 0,   0,   0,   0, 0,    //
                           0, 255, 255, 255, 0, 0,    //
                           0, 255, 255, 255, 0, 0,    //
                           0, 0,   0,   0,   0, 0,    //
                           0, 0,   0,   0,   0, 0};
    CHECK(mask == expected);
}

TEST_CASE("a mask goes into rows of any distance and direction, and writes nothing beside them")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 9, 7, [](int, int) { return 0; });
    const VostelObject region = Add(canvas.Number, VOSTEL_POLYGON, {{0.2, 0.1}, {8.7, 2.0}, {3.0, 6.8}});
    const Mask         plain = MaskOf(canvas.Number, region, 9, 7);
    constexpr int      Distance = 13;
    for (const bool upwards : {false, true}) {
        Mask                padded(7 * Distance, 77);
        std::uint8_t* const top = padded.data() + (upwards ? 6 * Distance : 0);
        REQUIRE(vostel_mask(canvas.Number, region, top, upwards ? -Distance : Distance) == VOSTEL_OK);
        for (int y = 0; y < 7; ++y) {
            const std::uint8_t* row = padded.data() + (upwards ? 6 - y : y) * Distance;
            CHECK(std::equal(row, row + 9, plain.begin() + 9 * y));
            CHECK(std::count(row + 9, row + Distance, 77) == Distance - 9);
        }
    }
    Mask untouched(63, 77);
    CHECK(vostel_mask(canvas.Number, region, untouched.data(), 8) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_mask(canvas.Number, region, untouched.data(), -8) == VOSTEL_INVALID_ARGUMENT);
    CHECK(untouched == Mask(63, 77));
}

TEST_CASE(
    "labels are those of the regions, later ones over earlier ones, hidden and unlabelled ones left out")
{
    constexpr int Width = 12, Height = 8;
    OpenCanvas    canvas;
    ShowBytes(canvas.Number, Width, Height, [](int, int) { return 0; });
    const VostelObject first = Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {6.0, 6.0}});
    const VostelObject second = Add(canvas.Number, VOSTEL_RECTANGLE, {{3.0, 3.0}, {12.0, 8.0}});
    const VostelObject third = Add(canvas.Number, VOSTEL_RECTANGLE, {{8.0, 0.0}, {12.0, 4.0}});
    Add(canvas.Number, VOSTEL_LENGTH, {{0.0, 0.0}, {9.0, 9.0}});
    REQUIRE(vostel_object_set_label(canvas.Number, second, 70000) == VOSTEL_OK);
    const auto labels = [&] {
        std::vector<std::int32_t> plane(Width * Height, -5);
        REQUIRE(vostel_labels(canvas.Number, plane.data(), 0) == VOSTEL_OK);
        return plane;
    };
    const auto at = [&](int x, int y) { return labels()[static_cast<std::size_t>(y * Width + x)]; };
    CHECK(at(0, 0) == 1);
    CHECK(at(4, 4) == 70000);
    CHECK(at(9, 3) == 3);
    CHECK(at(9, 1) == 3);
    CHECK(at(7, 1) == 0);
    REQUIRE(vostel_object_move_to(canvas.Number, first, 3) == VOSTEL_OK);
    CHECK(at(4, 4) == 1);
    REQUIRE(vostel_object_set_flags(canvas.Number, first, VOSTEL_HIDDEN) == VOSTEL_OK);
    CHECK(at(4, 4) == 70000);
    CHECK(at(0, 0) == 0);
    REQUIRE(vostel_object_set_flags(canvas.Number, third, VOSTEL_NO_LABEL) == VOSTEL_OK);
    CHECK(at(9, 3) == 70000);
    CHECK(at(9, 1) == 0);
    CHECK(CountOf(MaskOf(canvas.Number, first, Width, Height)) == 36);

    // Not aligned for their type, from the bottom upwards.
    const std::vector<std::int32_t> plain = labels();
    constexpr int                   Distance = Width * 4 + 3;
    Mask                            bytes(Height * Distance + 1, 9);
    REQUIRE(vostel_labels(canvas.Number,
                          reinterpret_cast<std::int32_t*>(bytes.data() + 1 + (Height - 1) * Distance),
                          -Distance) == VOSTEL_OK);
    for (int y = 0; y < Height; ++y)
        CHECK(std::memcmp(bytes.data() + 1 + (Height - 1 - y) * Distance, plain.data() + y * Width,
                          Width * 4) == 0);
    CHECK(bytes.front() == 9);
    CHECK(bytes.back() == 9);
}

TEST_CASE("masks and labels want an image, and a mask wants a region")
{
    OpenCanvas         canvas;
    const VostelObject region = Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {6.0, 6.0}});
    std::uint8_t       mask[16];
    std::int32_t       labels[16];
    CHECK(vostel_mask(canvas.Number, region, mask, 0) == VOSTEL_NO_IMAGE);
    CHECK(vostel_labels(canvas.Number, labels, 0) == VOSTEL_NO_IMAGE);
    ShowBytes(canvas.Number, 4, 4, [](int, int) { return 0; });
    const VostelObject whole = Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {6.0, 6.0}});
    CHECK(vostel_mask(canvas.Number, Add(canvas.Number, VOSTEL_LENGTH, {{0.0, 0.0}, {6.0, 6.0}}), mask, 0) ==
          VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_mask(canvas.Number, 123456789, mask, 0) == VOSTEL_NOT_FOUND);
    CHECK(vostel_mask(canvas.Number, whole, nullptr, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_mask(canvas.Number, region, mask, 0) ==
          VOSTEL_NOT_FOUND);    // it went with the canvas's image
    CHECK(vostel_mask(canvas.Number, whole, mask, 0) == VOSTEL_OK);
    CHECK(std::count(mask, mask + 16, 255) == 16);
}
