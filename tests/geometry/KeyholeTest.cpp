#include "geometry/Keyhole.h"

#include "geometry/Coverage.h"
#include "geometry/Outline.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>
#include <vector>

using namespace vostel;

namespace {

Ring Square(double left, double top, double side)
{
    return {{left, top}, {left + side, top}, {left + side, top + side}, {left, top + side}};
}

Ring Reversed(Ring ring)
{
    std::reverse(ring.begin(), ring.end());
    return ring;
}

std::vector<bool> MaskOf(const Ring& ring)
{
    std::vector<bool> mask(60 * 60);
    for (const PixelRun& run : CoverageOf(Outline::OfPolygon(ring), 60, 60)) {
        for (int x = run.Begin; x < run.End; ++x)
            mask[static_cast<std::size_t>(run.Row * 60 + x)] = true;
    }
    return mask;
}

// By the words: what an odd number of rings covers.
std::vector<bool> OddMaskOf(const std::vector<Ring>& rings)
{
    std::vector<bool> odd(60 * 60);
    for (const Ring& ring : rings) {
        const std::vector<bool> mask = MaskOf(ring);
        for (std::size_t i = 0; i < odd.size(); ++i)
            odd[i] = odd[i] != mask[i];
    }
    return odd;
}

}

TEST_CASE("a ring joined with its hole walks the bridge there and back")
{
    const std::vector<Ring> rings = {Square(0.0, 0.0, 10.0), Reversed(Square(2.0, 2.0, 3.0))};
    const Ring              joined = JoinRings(rings);
    CHECK(joined.size() == 10);
    CHECK(MaskOf(joined) == OddMaskOf(rings));
    CHECK(SignedArea(joined) == 91.0);
}

TEST_CASE("joined rings come apart again into the same rings")
{
    const std::vector<Ring> rings = {Square(0.5, 0.5, 50.0), Reversed(Square(3.0, 4.0, 5.0)),
                                     Reversed(Square(20.0, 20.0, 9.5)), Reversed(Square(40.0, 2.0, 3.25))};
    const std::vector<Ring> split = SplitRings(JoinRings(rings));
    REQUIRE(split.size() == rings.size());
    CHECK(AreSameRing(split[0], rings[0], 0.0));
    for (const Ring& hole : rings)
        CHECK(std::count_if(split.begin(), split.end(),
                            [&](const Ring& ring) { return AreSameRing(ring, hole, 0.0); }) == 1);
}

TEST_CASE("it does not matter where a keyhole polygon begins")
{
    const std::vector<Ring> rings = {Square(0.0, 0.0, 30.0), Reversed(Square(5.0, 5.0, 5.0))};
    Ring                    joined = JoinRings(rings);
    for (std::size_t i = 0; i < joined.size(); ++i) {
        std::rotate(joined.begin(), joined.begin() + 1, joined.end());
        const std::vector<Ring> split = SplitRings(joined);
        REQUIRE(split.size() == 2);
        CHECK(AreSameRing(split[0], rings[0], 0.0));
        CHECK(AreSameRing(split[1], rings[1], 0.0));
    }
}

TEST_CASE("a polygon without bridges stays one ring, as it is")
{
    const Ring square = Square(1.0, 1.0, 5.0);
    const Ring spike = {{0.0, 0.0}, {9.0, 0.0}, {9.0, 9.0}, {20.0, 20.0}, {9.0, 9.0}, {0.0, 9.0}};
    const Ring dumbbell = {{0.0, 0.0},  {5.0, 0.0},  {5.0, 5.0}, {20.0, 5.0}, {25.0, 5.0},
                           {25.0, 9.0}, {20.0, 5.0}, {5.0, 5.0}, {0.0, 5.0}};
    for (const Ring& polygon : {square, spike, dumbbell}) {
        const std::vector<Ring> split = SplitRings(polygon);
        REQUIRE(split.size() == 1);
        CHECK(split[0].size() == polygon.size());
    }
}

TEST_CASE("splitting random walks with bridges keeps what they cover")
{
    std::mt19937                           random(3);
    std::uniform_real_distribution<double> place(0.0, 60.0);
    for (int round = 0; round < 300; ++round) {
        // Few places, so that edges are walked back by chance as well.
        std::vector<ImagePoint> places;
        for (int i = 0; i < 4; ++i)
            places.push_back({place(random), place(random)});
        Ring polygon;
        for (int i = 0; i < 14; ++i)
            polygon.push_back(places[random() % places.size()]);
        CAPTURE(round);
        CHECK(OddMaskOf(SplitRings(polygon)) == MaskOf(polygon));
    }
}

TEST_CASE("rings are the same from any start and in both directions, to the tolerance")
{
    Ring moved = Reversed(Square(1.0, 1.0, 4.0));
    std::rotate(moved.begin(), moved.begin() + 2, moved.end());
    CHECK(AreSameRing(Square(1.0, 1.0, 4.0), moved, 0.0));
    moved[1].x += 0.01;
    CHECK(!AreSameRing(Square(1.0, 1.0, 4.0), moved, 0.001));
    CHECK(AreSameRing(Square(1.0, 1.0, 4.0), moved, 0.02));
    CHECK(!AreSameRing(Square(1.0, 1.0, 4.0), Ring(moved.begin(), moved.end() - 1), 10.0));
}
