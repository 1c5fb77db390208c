#include "output/ContrastRows.h"

#include "support/EveryVariant.h"

#include <algorithm>
#include <climits>
#include <doctest/doctest.h>
#include <memory>

using namespace vostel;

namespace {

// The pixel of a value by the mapping's own table.
unsigned PlainPixel(const ZEKMAPIMA& map, float value)
{
    const int entry = value >= -2147483648.0f && value < 2147483648.0f ? static_cast<int>(value) : INT_MIN;
    const unsigned gray = static_cast<unsigned>(map.UsMap->Ptr1D[entry & 0xFFFF]) & 0xFFu;
    return gray | gray << 8 | gray << 16;
}

std::unique_ptr<ContrastTable> TableOf(const ZEKMAPIMA& map)
{
    auto table = std::make_unique<ContrastTable>();
    table->Build(map);
    return table;
}

// Every entry of the table, through a row of a variant.
bool RowGivesEveryEntry(const ZEKMAPIMA& map, const ContrastTable& table, bool streaming)
{
    static std::vector<float>    values(65536);
    static std::vector<unsigned> pixels(65536);
    for (int i = 0; i < 65536; ++i)
        values[static_cast<std::size_t>(i)] = static_cast<float>(i);
    ActiveContrastVariant().Row(table, values.data(), pixels.data(), values.size(), streaming);
    for (int i = 0; i < 65536; ++i)
        if (pixels[static_cast<std::size_t>(i)] != static_cast<unsigned>(map.UsMap->Ptr1D[i]) * 0x010101u)
            return false;
    return true;
}

constexpr unsigned Guard = 0xDEADBEEFu;

}

TEST_CASE("each of the 65536 entries is shown as the table says, for many ranges, in every variant")
{
    const int      ends[] = {0, 1, 2, 254, 255, 256, 257, 6553, 32768, 56722, 58804, 58981, 65534, 65535};
    const unsigned seed = 26021;
    InEveryVariant([&](const char* variant) {
        ZEKMAPIMA map;
        for (int low : ends)
            for (int high : ends)
                if (high > low) {
                    map.SetRange(low, high);
                    CHECK_MESSAGE(RowGivesEveryEntry(map, *TableOf(map), false),
                                  variant << ", " << low << ".." << high);
                }
        std::mt19937 random(seed);
        for (int n = 0; n < 60; ++n) {
            const int low = static_cast<int>(random() % 65535);
            map.SetRange(low, low + 1 + static_cast<int>(random() % static_cast<unsigned>(65535 - low)));
            CHECK_MESSAGE(RowGivesEveryEntry(map, *TableOf(map), n % 2 == 0),
                          variant << ", seed " << seed << ", " << map.RangeLow << ".." << map.RangeHigh);
        }
    });
}

TEST_CASE("most ranges are drawn as a ramp, and those where no factor gives the table by the table")
{
    ZEKMAPIMA map;
    map.SetRange(0, 65535);
    CHECK(TableOf(map)->IsRamp);
    map.SetRange(6553, 58981);
    CHECK(TableOf(map)->IsRamp);
    map.SetRange(0, 56722);    // the products of every factor near 255 / 56722 miss some entry
    CHECK_FALSE(TableOf(map)->IsRamp);
    CHECK(RowGivesEveryEntry(map, *TableOf(map), false));
    int ramps = 0;
    for (int high = 1; high <= 65535; high += 131) {
        map.SetRange(0, high);
        ramps += TableOf(map)->IsRamp;
    }
    CHECK(ramps >= 495);    // of 501
}

TEST_CASE("a table that is no ramp is drawn entry by entry")
{
    InEveryVariant([](const char* variant) {
        ZEKMAPIMA map;
        CHECK_MESSAGE(RowGivesEveryEntry(map, *TableOf(map), false), variant);    // never built: all zero
        map.GetMapUs();    // limits 0 and 0: no ramp at all
        CHECK_FALSE(TableOf(map)->IsRamp);
        CHECK_MESSAGE(RowGivesEveryEntry(map, *TableOf(map), false), variant);

        map.SetRange(100, 60000);
        map.UsMap->Ptr1D[30000] ^= 1;    // as a host could with a mapping of its own
        CHECK_FALSE(TableOf(map)->IsRamp);
        CHECK_MESSAGE(RowGivesEveryEntry(map, *TableOf(map), true), variant);
        for (int i = 0; i < 65536; ++i)
            map.UsMap->Ptr1D[i] = i * 7 & 0xFF;
        CHECK_MESSAGE(RowGivesEveryEntry(map, *TableOf(map), false), variant);
    });
}

TEST_CASE("of a table entry the low byte counts")
{
    ZEKMAPIMA map;
    map.SetRange(0, 65535);
    map.UsMap->Ptr1D[5] = 0x1234;
    const float value = 5.5f;
    unsigned    pixel = Guard;
    InEveryVariant([&](const char* variant) {
        ContrastShowAll(*TableOf(map), &value, 1, 1, &pixel, nullptr);
        CHECK_MESSAGE(pixel == 0x343434u, variant);
    });
}

TEST_CASE("values are truncated towards zero, wrap in 16 bits and take entry 0 beyond 32 bits")
{
    ZEKMAPIMA map;
    map.SetRange(0, 255);
    map.UsMap->Ptr1D[0] = 9;    // differs from black
    const auto                       table = TableOf(map);
    const std::pair<float, unsigned> expected[] = {{-0.5f, 9},
                                                   {0.99f, 9},
                                                   {1.0f, 1},
                                                   {200.9f, 200},
                                                   {65536.0f, 9},
                                                   {65537.0f, 1},
                                                   {65791.0f, 255},
                                                   {-65535.0f, 1},
                                                   {-1.0f, 255},
                                                   {-65536.0f, 9},
                                                   {3e9f, 9},
                                                   {-3e9f, 9},
                                                   {2147483648.0f, 9},
                                                   {-2147483648.0f, 9},
                                                   {2147483520.0f, 255},
                                                   {1e-40f, 9},
                                                   {std::numeric_limits<float>::quiet_NaN(), 9},
                                                   {std::numeric_limits<float>::infinity(), 9},
                                                   {-std::numeric_limits<float>::infinity(), 9}};
    InEveryVariant([&](const char* variant) {
        for (const auto& pair : expected) {
            const std::vector<float> row(20, pair.first);
            std::vector<unsigned>    pixels(20, Guard);
            ContrastShowAll(*table, row.data(), 20, 1, pixels.data(), nullptr);
            CHECK_MESSAGE(pixels == std::vector<unsigned>(20, pair.second * 0x010101u),
                          variant << ", " << pair.first);
        }
    });
}

TEST_CASE("rows of lengths 0 to 140 at odd starts equal the table and touch nothing else")
{
    const unsigned seed = 26022;
    ZEKMAPIMA      ramp;
    ramp.SetRange(1234, 60001);
    ZEKMAPIMA steps;
    steps.SetRange(0, 56722);
    const auto rampTable = TableOf(ramp);
    const auto stepsTable = TableOf(steps);
    REQUIRE(rampTable->IsRamp);
    REQUIRE_FALSE(stepsTable->IsRamp);
    InEveryVariant([&](const char* variant) {
        for (std::size_t count = 0; count <= 140; ++count) {
            const std::size_t        start = count * 5 % 17;
            const std::vector<float> values = MixedFloats(count + start, seed + static_cast<unsigned>(count));
            const float*             raw = values.data() + start;
            for (const bool isRamp : {true, false}) {
                const ZEKMAPIMA&     map = isRamp ? ramp : steps;
                const ContrastTable& table = isRamp ? *rampTable : *stepsTable;
                for (const bool streaming : {false, true}) {
                    GuardedRun<unsigned> pixels(count, (start + 3) % 17, Guard);
                    ActiveContrastVariant().Row(table, raw, pixels.Data(), count, streaming);
                    bool same = true;
                    for (std::size_t x = 0; x < count; ++x)
                        same = same && pixels.Data()[x] == PlainPixel(map, raw[x]);
                    CHECK_MESSAGE(same, variant << ", seed " << seed << ", length " << count << ", ramp "
                                                << isRamp);
                    CHECK_MESSAGE(pixels.GuardsStand(), variant << ", length " << count);
                }
            }
        }
    });
}

TEST_CASE("only pixels with a label of at least 1 are redrawn")
{
    const unsigned seed = 26023;
    ZEKMAPIMA      ramp;
    ramp.SetRange(1234, 60001);
    ZEKMAPIMA steps;
    steps.SetRange(0, 56722);
    const auto rampTable = TableOf(ramp);
    const auto stepsTable = TableOf(steps);
    InEveryVariant([&](const char* variant) {
        for (std::size_t count = 0; count <= 70; ++count) {
            std::mt19937             random(seed + static_cast<unsigned>(count));
            const std::size_t        start = count * 3 % 17;
            const std::vector<float> values = MixedFloats(count + start, seed + static_cast<unsigned>(count));
            const float*             raw = values.data() + start;
            // Runs of one label and single ones, negative and very large too.
            std::vector<int> label(count);
            const int        kinds[] = {0, 1, -1, 7, INT_MAX, INT_MIN};
            for (std::size_t x = 0; x < count;) {
                const int         kind = kinds[random() % 6];
                const std::size_t run = 1 + random() % 24;
                for (std::size_t end = std::min(count, x + run); x < end; ++x)
                    label[x] = kind;
            }
            for (const bool isRamp : {true, false}) {
                GuardedRun<unsigned>  pixels(count, (start + 5) % 17, Guard);
                std::vector<unsigned> expected(count);
                for (std::size_t x = 0; x < count; ++x) {
                    pixels.Data()[x] = 0xAB000000u + static_cast<unsigned>(x);
                    expected[x] =
                        label[x] >= 1 ? PlainPixel(isRamp ? ramp : steps, raw[x]) : pixels.Data()[x];
                }
                ActiveContrastVariant().RowLabelled(isRamp ? *rampTable : *stepsTable, raw, pixels.Data(),
                                                    label.data(), count);
                CHECK_MESSAGE(std::equal(expected.begin(), expected.end(), pixels.Data()),
                              variant << ", seed " << seed << ", length " << count << ", ramp " << isRamp);
                CHECK_MESSAGE(pixels.GuardsStand(), variant << ", length " << count);
            }
        }
    });
}

TEST_CASE("data rows go to the surface bottom-up, for every small size, with and without labels")
{
    ZEKMAPIMA map;
    map.SetRange(300, 50000);
    const auto table = TableOf(map);
    InEveryVariant([&](const char* variant) {
        for (int height = 0; height <= 5; ++height) {
            for (int width : {0, 1, 2, 7, 15, 16, 17, 33, 64, 65, 1023, 1024, 1025, 2100}) {
                const std::size_t     w = static_cast<std::size_t>(width);
                const std::size_t     h = static_cast<std::size_t>(height);
                const auto            raw = MixedFloats(w * h, 26024u + static_cast<unsigned>(width));
                std::vector<unsigned> expected(w * h);
                for (std::size_t y = 0; y < h; ++y)
                    for (std::size_t x = 0; x < w; ++x)
                        expected[y * w + x] = PlainPixel(map, raw[(h - 1 - y) * w + x]);

                GuardedRun<unsigned> pixels(w * h, w % 16, Guard);
                GuardedRun<int>      label(w * h, w % 13, -7);
                ContrastShowAll(*table, raw.data(), width, height, pixels.Data(), label.Data());
                CHECK_MESSAGE(std::equal(expected.begin(), expected.end(), pixels.Data()),
                              variant << ", " << width << "x" << height);
                CHECK_MESSAGE(std::count(label.Data(), label.Data() + w * h, 1) == static_cast<long>(w * h),
                              variant << ", " << width << "x" << height);
                CHECK_MESSAGE(pixels.GuardsStand(), variant << ", " << width << "x" << height);
                CHECK_MESSAGE(label.GuardsStand(), variant << ", " << width << "x" << height);

                std::vector<unsigned> unmarked(w * h, Guard);
                std::fill_n(label.Data(), w * h, 0);
                if (w * h > 0)
                    label.Data()[w * h - 1] = 3;
                ContrastShowLabelled(*table, raw.data(), width, height, unmarked.data(), label.Data());
                CHECK_MESSAGE(std::count(unmarked.begin(), unmarked.end(), Guard) ==
                                  static_cast<long>(w * h) - (w * h > 0),
                              variant << ", " << width << "x" << height);
                if (w * h > 0)
                    CHECK_MESSAGE(unmarked.back() == expected.back(),
                                  variant << ", " << width << "x" << height);
            }
        }
    });
}

TEST_CASE("remapping and showing at once equals the two steps, in place too")
{
    ZEKMAPIMA map;
    map.SetRange(0, 65535);
    const auto      table = TableOf(map);
    const RemapRule rules[] = {MakeRemapRule(-1000.0f, 66500.0f, 0.0f, 65535.0f),
                               MakeRemapRule(5.0f, 5.0f, 0.0f, 1.0f),
                               MakeRemapRule(60000.0f, 100.0f, 0.0f, 65535.0f)};
    InEveryVariant([&](const char* variant) {
        for (const RemapRule& rule : rules) {
            for (int height = 0; height <= 4; ++height) {
                for (int width : {0, 1, 9, 16, 40, 1024, 1030, 2049}) {
                    const std::size_t  w = static_cast<std::size_t>(width);
                    const std::size_t  h = static_cast<std::size_t>(height);
                    const auto         source = MixedFloats(w * h, 26025u + static_cast<unsigned>(width));
                    std::vector<float> expectedRaw(source);
                    if (rule.Active)
                        RemapFloats(rule, source.data(), expectedRaw.data(), w * h);
                    std::vector<unsigned> expected(w * h);
                    ContrastShowAll(*table, expectedRaw.data(), width, height, expected.data(), nullptr);

                    GuardedRun<float>    raw(w * h, w % 11, 77.0f);
                    GuardedRun<unsigned> pixels(w * h, w % 16, Guard);
                    GuardedRun<int>      label(w * h, w % 13, -7);
                    ContrastShowRemapped(*table, rule, source.data(), raw.Data(), width, height,
                                         pixels.Data(), label.Data());
                    CHECK_MESSAGE(SameFloats(expectedRaw.data(), raw.Data(), w * h),
                                  variant << ", " << width);
                    CHECK_MESSAGE(std::equal(expected.begin(), expected.end(), pixels.Data()),
                                  variant << ", " << width);
                    CHECK_MESSAGE(std::count(label.Data(), label.Data() + w * h, 1) ==
                                      static_cast<long>(w * h),
                                  variant << ", " << width);
                    CHECK_MESSAGE((raw.GuardsStand() && pixels.GuardsStand() && label.GuardsStand()),
                                  variant << ", " << width);

                    std::copy(source.begin(), source.end(), raw.Data());
                    std::fill_n(pixels.Data(), w * h, Guard);
                    ContrastShowRemapped(*table, rule, raw.Data(), raw.Data(), width, height, pixels.Data(),
                                         nullptr);
                    CHECK_MESSAGE(SameFloats(expectedRaw.data(), raw.Data(), w * h),
                                  variant << ", in place, " << width);
                    CHECK_MESSAGE(std::equal(expected.begin(), expected.end(), pixels.Data()),
                                  variant << ", in place, " << width);
                }
            }
        }
    });
}

TEST_CASE("a surface larger than the caches is drawn like a small one")
{
    const int                width = 2061;
    const int                height = 2049;
    const std::size_t        all = std::size_t{2061} * 2049;
    const std::vector<float> source = MixedFloats(all, 26026);
    ZEKMAPIMA                map;
    map.SetRange(1000, 64000);
    const auto         table = TableOf(map);
    const RemapRule    rule = MakeRemapRule(-1000.0f, 66500.0f, 0.0f, 65535.0f);
    std::vector<float> expectedRaw(all);
    {
        const VariantScope plain(CpuVariant::Plain);
        RemapFloats(rule, source.data(), expectedRaw.data(), all);
    }
    GuardedRun<unsigned> pixels(all, 5, Guard);
    GuardedRun<int>      label(all, 3, -7);
    GuardedRun<float>    raw(all, 7, 77.0f);
    const auto           wrongPixels = [&](const std::vector<float>& data) {
        std::size_t wrong = 0;
        for (std::size_t y = 0; y < std::size_t{2049}; ++y)
            for (std::size_t x = 0; x < std::size_t{2061}; ++x)
                wrong += pixels.Data()[y * 2061 + x] != PlainPixel(map, data[(2048 - y) * 2061 + x]);
        return wrong;
    };
    InEveryVariant([&](const char* variant) {
        ContrastShowAll(*table, source.data(), width, height, pixels.Data(), label.Data());
        CHECK_MESSAGE(wrongPixels(source) == 0, variant);
        CHECK_MESSAGE(std::count(label.Data(), label.Data() + all, 1) == static_cast<long>(all), variant);
        CHECK_MESSAGE((pixels.GuardsStand() && label.GuardsStand()), variant);

        std::fill_n(label.Data(), all, 0);
        ContrastShowRemapped(*table, rule, source.data(), raw.Data(), width, height, pixels.Data(),
                             label.Data());
        CHECK_MESSAGE(wrongPixels(expectedRaw) == 0, variant);
        CHECK_MESSAGE(SameFloats(expectedRaw.data(), raw.Data(), all), variant);
        CHECK_MESSAGE(std::count(label.Data(), label.Data() + all, 1) == static_cast<long>(all), variant);
        CHECK_MESSAGE((pixels.GuardsStand() && label.GuardsStand() && raw.GuardsStand()), variant);

        std::copy(source.begin(), source.end(), raw.Data());
        std::fill_n(pixels.Data(), all, Guard);
        ContrastShowRemapped(*table, rule, raw.Data(), raw.Data(), width, height, pixels.Data(), nullptr);
        CHECK_MESSAGE(wrongPixels(expectedRaw) == 0, variant << ", in place");
        CHECK_MESSAGE(SameFloats(expectedRaw.data(), raw.Data(), all), variant << ", in place");
    });
}
