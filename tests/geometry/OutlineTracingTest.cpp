#include "geometry/OutlineTracing.h"

#include "geometry/Coverage.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

struct Plane {
    int              Width = 0;
    int              Height = 0;
    std::vector<int> Labels;

    int At(int x, int y) const { return Labels[static_cast<std::size_t>(y * Width + x)]; }
};

// Digits of rows; a dot for 0.
Plane PlaneOf(const std::vector<std::string>& rows)
{
    Plane plane{static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), {}};
    for (const std::string& row : rows) {
        for (const char c : row)
            plane.Labels.push_back(c == '.' ? 0 : c - '0');
    }
    return plane;
}

LabelParts PartsOf(const Plane& plane)
{
    std::vector<LabelRun> runs;
    for (int y = 0; y < plane.Height; ++y)
        AppendRuns(plane.Labels.data() + y * plane.Width, plane.Width, y, runs);
    return LabelParts(runs);
}

// The connected parts by their words: neighbours by an edge, spread from the first pixel on.
std::vector<std::vector<int>> FloodedParts(const Plane& plane)
{
    std::vector<std::vector<int>> parts;
    std::vector<bool>             seen(plane.Labels.size());
    for (int first = 0; first < static_cast<int>(plane.Labels.size()); ++first) {
        if (plane.Labels[first] == 0 || seen[first])
            continue;
        std::vector<int> part{first};
        seen[first] = true;
        for (std::size_t i = 0; i < part.size(); ++i) {
            const int x = part[i] % plane.Width;
            const int y = part[i] / plane.Width;
            for (const auto& [dx, dy] :
                 {std::pair(1, 0), std::pair(-1, 0), std::pair(0, 1), std::pair(0, -1)}) {
                const int to = part[i] + dx + dy * plane.Width;
                if (x + dx < 0 || x + dx >= plane.Width || y + dy < 0 || y + dy >= plane.Height || seen[to] ||
                    plane.Labels[to] != plane.Labels[first])
                    continue;
                seen[to] = true;
                part.push_back(to);
            }
        }
        std::sort(part.begin(), part.end());
        parts.push_back(part);
    }
    std::stable_sort(parts.begin(), parts.end(),
                     [&](const auto& a, const auto& b) { return plane.Labels[a[0]] < plane.Labels[b[0]]; });
    return parts;
}

std::vector<int> PixelsOf(const std::vector<ImagePoint>& outline, const Plane& plane)
{
    std::vector<int> pixels;
    for (const PixelRun& run : CoverageOf(Outline::OfPolygon(outline), plane.Width, plane.Height)) {
        for (int x = run.Begin; x < run.End; ++x)
            pixels.push_back(run.Row * plane.Width + x);
    }
    return pixels;
}

void CheckParts(const Plane& plane)
{
    const LabelParts                    parts = PartsOf(plane);
    const std::vector<std::vector<int>> flooded = FloodedParts(plane);
    REQUIRE(parts.Count() == flooded.size());
    for (std::size_t i = 0; i < parts.Count(); ++i) {
        const std::vector<ImagePoint> outline = parts.OutlineOf(i);
        REQUIRE(parts.LabelOf(i) == plane.Labels[flooded[i][0]]);
        REQUIRE(PixelsOf(outline, plane) == flooded[i]);
        for (std::size_t k = 0; k < outline.size(); ++k) {
            const ImagePoint& a = outline[k];
            const ImagePoint& b = outline[(k + 1) % outline.size()];
            REQUIRE(!SamePlace(a, b));
            REQUIRE((a.x == b.x || a.y == b.y));    // along pixel edges
        }
    }
}

}

TEST_CASE("a rectangle of pixels has its four corners, clockwise from the upper left")
{
    const LabelParts parts = PartsOf(PlaneOf({"....", ".33.", ".33."}));
    REQUIRE(parts.Count() == 1);
    CHECK(parts.LabelOf(0) == 3);
    const std::vector<ImagePoint> outline = parts.OutlineOf(0);
    REQUIRE(outline.size() == 4);
    CHECK(SamePlace(outline[0], {1.0, 1.0}));
    CHECK(SamePlace(outline[1], {3.0, 1.0}));
    CHECK(SamePlace(outline[2], {3.0, 3.0}));
    CHECK(SamePlace(outline[3], {1.0, 3.0}));
}

TEST_CASE("pixels of a label that touch at a corner only are two parts")
{
    CheckParts(PlaneOf({"1.", ".1"}));
    CheckParts(PlaneOf({".1", "1."}));
    CHECK(PartsOf(PlaneOf({"12", "21"})).Count() == 4);
}

TEST_CASE("parts come by label, then from the top")
{
    const LabelParts parts = PartsOf(PlaneOf({"2.1", "...", "1.2"}));
    REQUIRE(parts.Count() == 4);
    CHECK(parts.LabelOf(1) == 1);
    CHECK(parts.LabelOf(2) == 2);
    CHECK(SamePlace(parts.OutlineOf(0)[0], {2.0, 0.0}));
    CHECK(SamePlace(parts.OutlineOf(1)[0], {0.0, 2.0}));
}

TEST_CASE("a hole is joined by one level bridge to its left")
{
    const std::vector<ImagePoint> outline = PartsOf(PlaneOf({"111", "1.1", "111"})).OutlineOf(0);
    const std::vector<ImagePoint> expected = {{0.0, 0.0}, {3.0, 0.0}, {3.0, 3.0}, {0.0, 3.0},
                                              {0.0, 1.0}, {1.0, 1.0}, {1.0, 2.0}, {2.0, 2.0},
                                              {2.0, 1.0}, {1.0, 1.0}, {0.0, 1.0}};
    REQUIRE(outline.size() == expected.size());
    for (std::size_t i = 0; i < outline.size(); ++i)
        CHECK(SamePlace(outline[i], expected[i]));
}

TEST_CASE("holes come back exactly: side by side, in steps, touching at corners, with other labels inside")
{
    CheckParts(PlaneOf({"1111111", "1.1.1.1", "1111111", "1..1..1", "1111111"}));
    CheckParts(PlaneOf({"11111", "1.111", "11.11", "111.1", "11111"}));
    CheckParts(PlaneOf({"11111", "111.1", "11.11", "1.111", "11111"}));
    CheckParts(PlaneOf({"1.111", ".1.11", "1.1.1", "11.11", "11111"}));
    CheckParts(PlaneOf({"1111111", "1222221", "1233321", "123.321", "1233321", "1222221", "1111111"}));
    CheckParts(PlaneOf({"111111", "1....1", "1.11.1", "1.11.1", "1....1", "111111"}));
    CheckParts(PlaneOf({"1111111", "1.....1", "1.111.1", "1.1.1.1", "1.1.1.1", "1...1.1", "11111.1"}));
}

TEST_CASE("an empty plane has no parts, a full one has one")
{
    CHECK(PartsOf(PlaneOf({"...", "..."})).Count() == 0);
    CHECK(LabelParts({}).Count() == 0);
    CheckParts(PlaneOf({"77", "77"}));
}

TEST_CASE("the outlines of random labels cover their parts to the pixel")
{
    std::mt19937 random(12);
    for (int round = 0; round < 600; ++round) {
        Plane          plane{1 + static_cast<int>(random() % 24), 1 + static_cast<int>(random() % 24), {}};
        const unsigned labels = 1 + random() % 4;
        const unsigned gaps = random() % 4;
        for (int i = 0; i < plane.Width * plane.Height; ++i) {
            const unsigned value = random() % (labels + gaps);
            plane.Labels.push_back(value < labels ? static_cast<int>(value) + 1 : 0);
        }
        CAPTURE(round);
        CheckParts(plane);
    }
}

TEST_CASE("a comb of ten thousand holes in one row is walked without deep calls")
{
    constexpr int Holes = 10000;
    Plane         plane{2 * Holes + 1, 3, std::vector<int>(3 * (2 * Holes + 1), 1)};
    for (int i = 0; i < Holes; ++i)
        plane.Labels[static_cast<std::size_t>(plane.Width + 2 * i + 1)] = 0;
    const LabelParts parts = PartsOf(plane);
    REQUIRE(parts.Count() == 1);
    CHECK(PixelsOf(parts.OutlineOf(0), plane).size() == plane.Labels.size() - Holes);
}
