#include "base/Reflect.h"

#include <climits>
#include <doctest/doctest.h>

using namespace vostel;

TEST_CASE("a repeated edge sample stands twice, a skipped one once")
{
    const int repeating[] = {2, 2, 1, 0, 0, 1, 2, 2, 1, 0, 0, 1};    // from -4 on, three samples
    const int skipping[] = {0, 1, 2, 1, 0, 1, 2, 1, 0, 0, 0, 1};
    for (int c = -4; c < 8; ++c) {
        CAPTURE(c);
        CHECK(ReflectRepeatingEdge(c, 3) == repeating[c + 4]);
        CHECK(ReflectSkippingEdge(c, 3) == skipping[c + 4]);
    }
}

TEST_CASE("samples of the extent reflect to themselves")
{
    for (int extent = 1; extent <= 9; ++extent) {
        for (int c = 0; c < extent; ++c) {
            CHECK(ReflectRepeatingEdge(c, extent) == c);
            CHECK(ReflectSkippingEdge(c, extent) == c);
        }
    }
}

TEST_CASE("every reflection lies in the extent and has the period of twice the extent")
{
    for (int extent = 1; extent <= 9; ++extent) {
        for (int c = 0; c <= 60; ++c) {
            CAPTURE(extent);
            CAPTURE(c);
            const int repeating = ReflectRepeatingEdge(c, extent);
            const int skipping = ReflectSkippingEdge(c, extent);
            CHECK(repeating >= 0);
            CHECK(repeating < extent);
            CHECK(skipping >= 0);
            CHECK(skipping < extent);
            CHECK(ReflectRepeatingEdge(c + 2 * extent, extent) == repeating);
            CHECK(ReflectSkippingEdge(c + 2 * extent, extent) == skipping);
            CHECK(ReflectRepeatingEdge(-c - 1, extent) == repeating);
            CHECK(ReflectSkippingEdge(-c, extent) == skipping);
        }
    }
}

TEST_CASE("the farthest coordinates reflect without walking there")
{
    CHECK(ReflectRepeatingEdge(INT_MAX, INT_MAX) == INT_MAX - 1);
    CHECK(ReflectRepeatingEdge(INT_MIN, INT_MAX) == INT_MAX - 1);
    CHECK(ReflectSkippingEdge(INT_MAX, INT_MAX) == INT_MAX - 2);
    CHECK(ReflectSkippingEdge(INT_MIN, INT_MAX) == INT_MAX - 3);
    CHECK(ReflectRepeatingEdge(std::int64_t{1} << 62, 1) == 0);
    CHECK(ReflectSkippingEdge(-(std::int64_t{1} << 62), 1) == 0);
}

TEST_CASE("one fold with a skipped edge comes to -1 in the last place of a period")
{
    CHECK(FoldAtEdges(5, 3, 1) == -1);
    CHECK(FoldAtEdges(-5, 3, 1) == -1);
    CHECK(FoldAtEdges(5, 3, 0) == 0);
}
