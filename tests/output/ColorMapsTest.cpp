#include "output/ColorMaps.h"

#include <doctest/doctest.h>

#include <string>

using namespace vostel;

TEST_CASE("every listed color map has a table, and no two are alike")
{
    for (const std::string_view name : ColorMapNames()) {
        CHECK(IsColorMap(name));
        for (const std::string_view other : ColorMapNames())
            CHECK((FindColorMap(name) == FindColorMap(other)) == (name == other));
    }
    CHECK_FALSE(IsColorMap("Gray"));
    CHECK_FALSE(IsColorMap(""));
    CHECK(FindColorMap("no such map") == FindColorMap("gray"));
}

TEST_CASE("gray and inverted hold each gray once")
{
    for (unsigned level = 0; level < 256; ++level) {
        CHECK(FindColorMap("gray")[level] == level * 0x010101u);
        CHECK(FindColorMap("inverted")[level] == (255 - level) * 0x010101u);
    }
}

TEST_CASE("published maps begin and end in their published colors")
{
    CHECK(FindColorMap("viridis")[0] == 0x440154u);
    CHECK(FindColorMap("viridis")[255] == 0xFDE725u);
    CHECK(FindColorMap("magma")[0] == 0x000004u);
    CHECK(FindColorMap("inferno")[255] == 0xFCFFA4u);
    CHECK(FindColorMap("plasma")[0] == 0x0D0887u);
    CHECK(FindColorMap("jet")[0] == 0x000080u);
    CHECK(FindColorMap("jet")[255] == 0x800000u);
}

TEST_CASE("fire and ice never get darker from one level to the next")
{
    const auto luma = [](unsigned pixel) {
        return 299 * (pixel >> 16) + 587 * (pixel >> 8 & 0xFF) + 114 * (pixel & 0xFF);
    };
    for (const char* name : {"fire", "ice"}) {
        const ColorMap& map = FindColorMap(name);
        for (std::size_t level = 1; level < map.size(); ++level)
            CHECK(luma(map[level]) >= luma(map[level - 1]));
        CHECK(map[0] == 0);
        CHECK(map[255] == 0xFFFFFFu);
    }
}
