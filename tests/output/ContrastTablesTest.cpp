#include "output/ContrastTables.h"

#include <doctest/doctest.h>

#include <cmath>
#include <vector>

using namespace vostel;

namespace {

int RoundedLevel(double v, const ContrastState& state)
{
    const double share = (v - state.Low) / (state.High - state.Low);
    const double shown = std::pow(std::fmin(std::fmax(share, 0.0), 1.0), 1.0 / state.Gamma);
    return static_cast<int>(std::lround(255.0 * shown));
}

}

TEST_CASE("each 16-bit value shows as the formula says")
{
    for (const double gamma : {1.0, 2.2, 0.5}) {
        ContrastState state;
        state.Low = 100.0;
        state.High = 40000.5;
        state.Gamma = gamma;
        std::vector<unsigned> table;
        FillTable<std::uint16_t>(ContrastCurve(state), table);
        REQUIRE(table.size() == 65536);
        for (int v = 0; v < 65536; ++v)
            CHECK(table[static_cast<std::size_t>(v)] ==
                  static_cast<unsigned>(RoundedLevel(v, state)) * 0x010101u);
        const std::uint16_t values[] = {0, 100, 65535, 20050};
        unsigned            pixels[5] = {7, 7, 7, 7, 7};
        ShowByTable(table, values, pixels, 4);
        CHECK(pixels[0] == 0);
        CHECK(pixels[2] == 0xFFFFFF);
        CHECK(pixels[3] == table[20050]);
        CHECK(pixels[4] == 7);
    }
}

TEST_CASE("signed values find their place in a table that starts with the lowest one")
{
    ContrastState state;
    state.Low = -32768.0;
    state.High = 32767.0;
    std::vector<unsigned> table;
    FillTable<std::int16_t>(ContrastCurve(state), table);
    const std::int16_t values[] = {-32768, 32767, 0, -1};
    unsigned           pixels[4];
    ShowByTable(table, values, pixels, 4);
    CHECK(pixels[0] == 0);
    CHECK(pixels[1] == 0xFFFFFF);
    CHECK(pixels[2] == static_cast<unsigned>(RoundedLevel(0, state)) * 0x010101u);
    CHECK(pixels[3] == static_cast<unsigned>(RoundedLevel(-1, state)) * 0x010101u);
}

TEST_CASE("bytes in their own window show as they are")
{
    CHECK(ContrastCurve(ContrastState()).IsIdentity());
    ContrastState marked;
    marked.NotFinite = 0xFF00FF00u;
    CHECK(ContrastCurve(marked).IsIdentity());
    ContrastState narrow;
    narrow.High = 254.0;
    CHECK_FALSE(ContrastCurve(narrow).IsIdentity());
}

TEST_CASE("a color pixel of equal channels shows as the gray value does, in every map and byte order")
{
    for (const char* map : {"gray", "inverted", "viridis"}) {
        ContrastState state;
        state.Low = 10.0;
        state.High = 200.0;
        state.Map = map;
        const ContrastCurve curve(state);
        const ColorTables   tables(state);
        for (int v = 0; v < 256; ++v) {
            const std::uint8_t byte = static_cast<std::uint8_t>(v);
            const std::uint8_t samples[] = {byte, byte, byte, 99};
            unsigned           pixel = 0;
            ShowColors(tables, {3, 0, 2}, samples, &pixel, 1);
            CHECK(pixel == curve.PixelOf(v));
        }
    }
}

TEST_CASE("channels of a color go through the window alike, and the luma decides its marks")
{
    ContrastState state;
    state.Low = 100.0;
    state.High = 200.0;
    state.Below = 0xFF0000FFu;
    const ColorTables  tables(state);
    const std::uint8_t rgb[] = {150, 250, 50, 50, 50, 200};
    unsigned           pixels[2];
    ShowColors(tables, {3, 0, 2}, rgb, pixels, 2);
    CHECK(pixels[0] == 0x80FF00u);    // 0.5, above and below the window
    CHECK(pixels[1] == 0x0000FFu);    // luma 67.1
    const std::uint8_t bgra[] = {50, 250, 150, 7};
    ShowColors(tables, {4, 2, 0}, bgra, pixels, 1);
    CHECK(pixels[0] == 0x80FF00u);
}
