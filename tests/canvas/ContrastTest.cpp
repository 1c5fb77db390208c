// Float data of every kind shown through the contrast window, against a reference that follows the rules
// value by value.

#include "support/HostCanvas.h"

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace {

struct Window {
    float Low = 0.0f;
    float High = 1.0f;
};

int Trunc(float v)
{
    return v >= -2147483648.0f && v < 2147483648.0f ? static_cast<int>(v) : INT_MIN;
}

// Limits of the stretch: the scan starts from these values.
void RangeOf(const std::vector<float>& data, float& low, float& high)
{
    low = 10000000.0f;
    high = -10000000.0f;
    for (const float v : data) {
        if (v < low)
            low = v;
        if (v > high)
            high = v;
    }
}

std::vector<float> Stretched(const std::vector<float>& data)
{
    float a = 0.0f;
    float b = 0.0f;
    RangeOf(data, a, b);
    std::vector<float> raw = data;
    if (std::fabs(b - a) < 1e-10)
        return raw;
    const float k = (65535.0f - 0.0f) / (b - a);
    const float lowEnd = b > a ? a : b;
    const float highEnd = b > a ? b : a;
    for (float& v : raw) {
        if (v <= lowEnd)
            v = 0.0f;
        else if (v >= highEnd)
            v = 65535.0f;
        else
            v = (v - a) * k + 0.0f;
    }
    return raw;
}

struct Limits {
    int Low = 0;
    int High = 65535;

    void Take(const Window& window)
    {
        const int l = Trunc(window.Low * 65535.0f);
        const int h = Trunc(window.High * 65535.0f);
        if (h > l) {
            High = h < 65535 ? h : 65535;
            Low = l > 0 ? l : 0;
        }
    }
};

unsigned int PixelOf(float raw, const Limits& limits)
{
    const int i = Trunc(raw) & 0xFFFF;
    int       g = 0;
    if (i > limits.Low) {
        if (i < limits.High) {
            const double distance = static_cast<float>(i - limits.Low);
            const double span = static_cast<float>(limits.High - limits.Low);
            g = static_cast<int>(distance * 255.0 / span);
        } else {
            g = 255;
        }
    }
    return 0x010101u * static_cast<unsigned int>(g & 0xFF);
}

bool SameBits(float a, float b)
{
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

// Shows the data and compares stretched data, original data and surface, then surfaces of further windows.
// Empty if all agree.
std::string Compare(HostCanvas& host, const std::vector<float>& data, int width, int height, bool keep,
                    const std::vector<Window>& windows)
{
    std::vector<float> shown = data;
    gCVSShowRawFloat(host.Number, shown.data(), width, height, keep, true);
    const std::vector<float> raw = Stretched(data);
    for (std::size_t i = 0; i < data.size(); ++i) {
        const float actual = gCVSGetRawPtr1D(host.Number)[i];
        if (!SameBits(actual, raw[i]))
            return "Raw[" + std::to_string(i) + "] of " + std::to_string(data[i]) + " is " +
                   std::to_string(actual) + ", expected " + std::to_string(raw[i]);
        if (keep && !SameBits(gCVSGetRawOriPtr1D(host.Number)[i], data[i]))
            return "RawOri[" + std::to_string(i) + "] changed";
        if (!SameBits(shown[i], data[i]))
            return "the host's data changed";
    }
    Limits limits;
    for (std::size_t w = 0; w <= windows.size(); ++w) {
        if (w > 0) {
            limits.Take(windows[w - 1]);
            gCVSSetLutPara(host.Number, windows[w - 1].Low, windows[w - 1].High);
        }
        Frame expected(width, height);
        for (int i = 0; i < width * height; ++i)
            expected.Pixels[static_cast<std::size_t>(i)] = PixelOf(raw[static_cast<std::size_t>(i)], limits);
        const std::string difference = FrameDifference(host.Surface(), expected);
        if (!difference.empty())
            return "window " + std::to_string(w) + ": " + difference;
    }
    return std::string();
}

const std::vector<Window> SomeWindows = {{0.2f, 0.8f},   {0.5f, 0.500016f}, {0.7f, 0.3f},   {-2.0f, 0.1f},
                                         {0.9f, 5.0f},   {0.0f, 1.0f},      {1e-5f, 2e-5f}, {0.33f, 0.34f},
                                         {-1.0f, -0.5f}, {1.5f, 1.6f}};

constexpr float Inf = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

std::vector<float> Spread(const std::vector<float>& values, int count)
{
    std::vector<float> data;
    for (int i = 0; i < count; ++i)
        data.push_back(values[static_cast<std::size_t>(i) % values.size()]);
    return data;
}

}

TEST_CASE("a ramp of floats shows as the expected grays through every window")
{
    HostCanvas         host(0, 60, 40);
    std::vector<float> data;
    for (int i = 0; i < 71 * 13; ++i)
        data.push_back(static_cast<float>(i) * 1.75f - 300.0f);
    CHECK(Compare(host, data, 71, 13, true, SomeWindows) == "");
}

TEST_CASE("a flat image is not stretched: its own integer parts go through the table")
{
    HostCanvas host(0, 60, 40);
    for (const float value :
         {0.0f, -0.0f, 1.0f, 12345.9f, 65535.0f, 65536.0f, 131071.5f, -1.0f, -65535.5f, 9e6f}) {
        CAPTURE(value);
        CHECK(Compare(host, Spread({value}, 40), 8, 5, true, SomeWindows) == "");
        CHECK(gCVSGetRawPtr1D(0)[7] == value);
    }
}

TEST_CASE("data that differs by less than 1e-10 counts as flat")
{
    HostCanvas host(0, 60, 40);
    CHECK(Compare(host, Spread({0.0f, 5e-11f}, 40), 8, 5, true, SomeWindows) == "");
    CHECK(gCVSGetRawPtr1D(0)[1] == 5e-11f);
    CHECK(Compare(host, Spread({0.0f, 2e-10f}, 40), 8, 5, true, SomeWindows) == "");
    CHECK(gCVSGetRawPtr1D(0)[1] == 65535.0f);
}

TEST_CASE("data wholly above ten million stretches from there")
{
    HostCanvas host(0, 60, 40);
    CHECK(Compare(host, Spread({1.5e7f, 2e7f, 3e7f}, 40), 8, 5, true, SomeWindows) == "");
    CHECK(gCVSGetRawPtr1D(0)[0] > 0.0f);    // the smallest value is not at 0
    CHECK(Compare(host, Spread({1e7f}, 40), 8, 5, true, SomeWindows) == "");
}

TEST_CASE("data wholly below minus ten million stretches up to there")
{
    HostCanvas host(0, 60, 40);
    CHECK(Compare(host, Spread({-1.5e7f, -2e7f, -3e7f}, 40), 8, 5, true, SomeWindows) == "");
    CHECK(gCVSGetRawPtr1D(0)[0] < 65535.0f);    // the largest value is not at the top
}

TEST_CASE("not-a-number, infinities and huge values go through as the formulas give them")
{
    HostCanvas                            host(0, 60, 40);
    const std::vector<std::vector<float>> sets = {
        {NaN},
        {NaN, 1.0f, 2.0f, 3.0f},
        {1.0f, 2.0f, 3.0f, NaN},
        {Inf, 1.0f, 2.0f},
        {-Inf, 1.0f, 2.0f},
        {-Inf, Inf, 0.0f, 100.0f},
        {Inf},
        {-Inf},
        {3e38f, -3e38f, 0.0f, 1e30f, -1e30f},
        {3.4e38f, 3.3e38f},
        {1e-45f, 0.0f, 1e-38f},
        {-0.0f, 0.0f, 65535.0f},
        {NaN, Inf, -Inf},
    };
    for (const auto& set : sets) {
        for (const int width : {1, 7, 16, 67}) {
            const std::string difference = Compare(host, Spread(set, width * 3), width, 3, true, SomeWindows);
            if (!difference.empty())
                FAIL_CHECK("set that starts with " << set[0] << ", width " << width << ": " << difference);
        }
    }
}

TEST_CASE("random float data of every width equals the reference, kept or not")
{
    HostCanvas host(0, 60, 40);
    for (unsigned int seed = 1; seed <= 60; ++seed) {
        std::mt19937                          random(seed);
        const int                             width = static_cast<int>(seed);
        const int                             height = 1 + static_cast<int>(random() % 7);
        std::uniform_real_distribution<float> values(-1000.0f, 100000.0f);
        std::vector<float>                    data;
        for (int i = 0; i < width * height; ++i) {
            const unsigned int kind = random() % 40;
            data.push_back(kind == 0 ? 0.0f : kind == 1 ? std::floor(values(random)) : values(random));
        }
        if (seed % 9 == 0)
            data[random() % data.size()] = NaN;
        std::vector<Window> windows;
        for (int w = 0; w < 4; ++w)
            windows.push_back({static_cast<float>(random() % 1000) / 900.0f - 0.05f,
                               static_cast<float>(random() % 1000) / 900.0f});
        const std::string difference = Compare(host, data, width, height, seed % 2 == 0, windows);
        if (!difference.empty())
            FAIL("seed " << seed << ": " << difference);
    }
}

TEST_CASE("data already in 0..65535 keeps every value apart")
{
    HostCanvas         host(0, 60, 40);
    std::vector<float> data;
    for (int i = 0; i < 65536; ++i)
        data.push_back(static_cast<float>(i));
    CHECK(Compare(host, data, 256, 256, true, {{0.1f, 0.9f}, {0.0f, 0.004f}}) == "");
}

TEST_CASE("the slider's window is applied to a new image after the whole range")
{
    HostCanvas host(0, 400, 100);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 334, 30);
    host.Drag(CPoint(65, 84), CPoint(65 + 65, 84));    // low 0.25 of a travel of 260
    host.ShowFloat(64, 8, [](int x, int y) { return 1000 * y + x; });
    Limits limits;
    limits.Take({0.25f, 1.0f});
    Frame expected(64, 8);
    for (int i = 0; i < 64 * 8; ++i)
        expected.Pixels[static_cast<std::size_t>(i)] = PixelOf(gCVSGetRawPtr1D(0)[i], limits);
    CHECK(FrameDifference(host.Surface(), expected) == "");
}
