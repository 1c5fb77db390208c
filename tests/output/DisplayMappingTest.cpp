#include <VostelObj.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <doctest/doctest.h>
#include <random>

namespace {

int PlainEntry(int i, int low, int high)
{
    if (i <= low)
        return 0;
    if (i >= high)
        return 255;
    const float distance = static_cast<float>(static_cast<std::int64_t>(i) - low);
    const float span = static_cast<float>(static_cast<std::int64_t>(high) - low);
    return static_cast<int>(static_cast<double>(distance) * 255.0 / static_cast<double>(span));
}

// The first entry that differs from the plain formula, or the number of entries.
int FirstWrongEntry(const int* table, int entries, int low, int high)
{
    for (int i = 0; i < entries; ++i)
        if (table[i] != PlainEntry(i, low, high))
            return i;
    return entries;
}

bool Same(tagStructRGBA a, tagStructRGBA b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

}

TEST_CASE("a new mapping has three tables of fixed size")
{
    ZEKMAPIMA map;
    CHECK(map.UsMap->Width == 65536);
    CHECK(map.UsMap->Height == 1);
    CHECK(map.UcMap->Width == 256);
    CHECK(map.UcMap->Height == 1);
    CHECK(map.UsColorMap->Width == 65536);
    CHECK(map.UsColorMap->Height == 1);
    CHECK(std::count(map.UsMap->Ptr1D, map.UsMap->Ptr1D + 65536, 0) == 65536);
}

TEST_CASE("a range that is empty or reversed changes neither limits nor table")
{
    ZEKMAPIMA map;
    map.SetRange(1000, 2000);
    map.UsMap->Ptr1D[0] = 77;    // shows whether the table is rebuilt
    map.SetRange(100, 100);
    map.SetRange(200, 100);
    CHECK(map.RangeLow == 1000);
    CHECK(map.RangeHigh == 2000);
    CHECK(map.UsMap->Ptr1D[0] == 77);

    map.SetRange(100, 101);
    CHECK(map.RangeLow == 100);
    CHECK(map.RangeHigh == 101);
    CHECK(map.UsMap->Ptr1D[0] == 0);
}

TEST_CASE("a range is cut to 0 and 65535")
{
    ZEKMAPIMA map;
    map.SetRange(-5, 70000);
    CHECK(map.RangeLow == 0);
    CHECK(map.RangeHigh == 65535);
    CHECK(FirstWrongEntry(map.UsMap->Ptr1D, 65536, 0, 65535) == 65536);
}

TEST_CASE("the full range maps 0 to 0, 65534 to 254 and 65535 to 255")
{
    ZEKMAPIMA map;
    map.SetRange(0, 65535);
    CHECK(map.UsMap->Ptr1D[0] == 0);
    CHECK(map.UsMap->Ptr1D[257] == 1);
    CHECK(map.UsMap->Ptr1D[256] == 0);
    CHECK(map.UsMap->Ptr1D[65534] == 254);
    CHECK(map.UsMap->Ptr1D[65535] == 255);
}

TEST_CASE("all 65536 entries follow the formula for every kind of range")
{
    ZEKMAPIMA map;
    const int ends[] = {0,     1,     2,     100,   254,   255,   256,   257,
                        32767, 32768, 56722, 58804, 65280, 65533, 65534, 65535};
    for (int low : ends)
        for (int high : ends)
            if (high > low) {
                map.SetRange(low, high);
                CHECK_MESSAGE(FirstWrongEntry(map.UsMap->Ptr1D, 65536, low, high) == 65536,
                              low << ".." << high);
            }
    const unsigned seed = 31001;
    std::mt19937   random(seed);
    for (int n = 0; n < 300; ++n) {
        const int a = static_cast<int>(random() % 65536);
        const int b = static_cast<int>(random() % 65536);
        if (a == b)
            continue;
        map.SetRange(std::min(a, b), std::max(a, b));
        CHECK_MESSAGE(FirstWrongEntry(map.UsMap->Ptr1D, 65536, std::min(a, b), std::max(a, b)) == 65536,
                      "seed " << seed << ", range " << a << ", " << b);
    }
}

TEST_CASE("limits that a host sets beyond the table lose their low bits in float")
{
    ZEKMAPIMA                 map;
    const std::pair<int, int> limits[] = {{-16777217, 16777219},
                                          {-100, 70000},
                                          {INT_MIN, INT_MAX},
                                          {INT_MIN, 65535},
                                          {-33554435, 40000},
                                          {65535, 65536},
                                          {65536, 70000},
                                          {INT_MAX, INT_MAX},
                                          {INT_MIN, INT_MIN},
                                          {-5, -3},
                                          {500, 100},
                                          {0, 0},
                                          {0, 2000000000},
                                          {60000, 2000000000},
                                          {-1, 65535},
                                          {INT_MAX, INT_MIN},
                                          {0, 65536}};
    for (const auto& limit : limits) {
        const int low = limit.first;
        const int high = limit.second;
        map.RangeLow = low;
        map.RangeHigh = high;
        map.GetMapUs();
        CHECK_MESSAGE(FirstWrongEntry(map.UsMap->Ptr1D, 65536, low, high) == 65536, low << ".." << high);
        CHECK(map.RangeLow == low);
        CHECK(map.RangeHigh == high);
    }
}

TEST_CASE("ramps far longer than the table multiply and divide in double")
{
    ZEKMAPIMA      map;
    const unsigned seed = 31002;
    std::mt19937   random(seed);
    for (int n = 0; n < 200; ++n) {
        map.RangeLow = -static_cast<int>(random() % 4000000);
        map.RangeHigh = 65536 + static_cast<int>(random() % 4000000);
        map.GetMapUs();
        CHECK_MESSAGE(FirstWrongEntry(map.UsMap->Ptr1D, 65536, map.RangeLow, map.RangeHigh) == 65536,
                      "seed " << seed << ", range " << map.RangeLow << ", " << map.RangeHigh);
    }
}

TEST_CASE("the byte table of the full range is the identity")
{
    ZEKMAPIMA map;
    map.SetRange(10, 20);
    map.GetMapUc(0.0f, 1.0f);
    for (int i = 0; i < 256; ++i)
        CHECK(map.UcMap->Ptr1D[i] == i);
    CHECK(map.RangeLow == 10);
    CHECK(map.RangeHigh == 20);
}

TEST_CASE("the byte table takes its limits as truncated fractions of 255")
{
    ZEKMAPIMA                     map;
    const std::pair<float, float> limits[] = {{0.1f, 0.9f},  {0.5f, 0.5f},  {0.9f, 0.1f}, {-0.5f, 1.5f},
                                              {0.3f, 0.31f}, {-1e9f, 1e9f}, {0.0f, 0.0f}, {1.0f, 2.0f}};
    for (const auto& limit : limits) {
        const float low = limit.first;
        const float high = limit.second;
        map.GetMapUc(low, high);
        const double l = static_cast<double>(low) * 255.0;
        const double h = static_cast<double>(high) * 255.0;
        const int    lowLimit = l < -2147483648.0 || l > 2147483647.0 ? INT_MIN : static_cast<int>(l);
        const int    highLimit = h < -2147483648.0 || h > 2147483647.0 ? INT_MIN : static_cast<int>(h);
        CHECK_MESSAGE(FirstWrongEntry(map.UcMap->Ptr1D, 256, lowLimit, highLimit) == 256,
                      low << ".." << high);
    }
}

TEST_CASE("a color range with equal limits has no ramp")
{
    ZEKMAPIMA           map;
    const tagStructRGBA low = {1, 2, 3, 4};
    const tagStructRGBA high = {200, 210, 220, 230};
    map.SetUsColorRange(700, 700, low, high);
    CHECK(map.RangeLow == 700);
    CHECK(map.RangeHigh == 700);
    CHECK(Same(map.UsColorMap->Ptr1D[0], low));
    CHECK(Same(map.UsColorMap->Ptr1D[700], low));
    CHECK(Same(map.UsColorMap->Ptr1D[701], high));
    CHECK(Same(map.UsColorMap->Ptr1D[65535], high));
}

TEST_CASE("a color ramp truncates each channel in float and leaves alpha alone")
{
    ZEKMAPIMA           map;
    const tagStructRGBA low = {200, 0, 10, 40};
    const tagStructRGBA high = {100, 255, 13, 50};
    map.UsColorMap->Ptr1D[1500].a = 99;
    map.SetUsColorRange(1000, 2000, low, high);
    CHECK(Same(map.UsColorMap->Ptr1D[1000], low));
    CHECK(Same(map.UsColorMap->Ptr1D[2000], high));
    CHECK(map.UsColorMap->Ptr1D[1500].a == 99);
    CHECK(map.UsColorMap->Ptr1D[1501].a == 0);
    const float steps[] = {-100.0f / 1000.0f, 255.0f / 1000.0f, 3.0f / 1000.0f};
    int         wrong = 0;
    for (int i = 1001; i < 2000; ++i) {
        const float         distance = static_cast<float>(i - 1000);
        const tagStructRGBA entry = map.UsColorMap->Ptr1D[i];
        wrong += entry.b != static_cast<unsigned char>(static_cast<int>(distance * steps[0] + 200.0f));
        wrong += entry.g != static_cast<unsigned char>(static_cast<int>(distance * steps[1] + 0.0f));
        wrong += entry.r != static_cast<unsigned char>(static_cast<int>(distance * steps[2] + 10.0f));
    }
    CHECK(wrong == 0);
    CHECK(map.UsColorMap->Ptr1D[1500].b == 150);
    CHECK(map.UsColorMap->Ptr1D[1500].g == 127);
    CHECK(map.UsColorMap->Ptr1D[1500].r == 11);
}

TEST_CASE("a color range stores its limits unchecked, reversed ones too")
{
    ZEKMAPIMA           map;
    const tagStructRGBA low = {1, 2, 3, 4};
    const tagStructRGBA high = {200, 210, 220, 230};
    map.SetUsColorRange(70000, -5, low, high);
    CHECK(map.RangeLow == 70000);
    CHECK(map.RangeHigh == -5);
    CHECK(Same(map.UsColorMap->Ptr1D[65535], low));
    map.SetUsColorRange(100, 50, low, high);
    CHECK(Same(map.UsColorMap->Ptr1D[100], low));
    CHECK(Same(map.UsColorMap->Ptr1D[101], high));
}
