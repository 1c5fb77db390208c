#include "output/FloatWindow.h"

#include "base/PixelFill.h"
#include "support/EveryVariant.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

using namespace vostel;

namespace {

constexpr float Inf = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

ContrastState WindowOf(double low, double high, double gamma = 1.0, const char* map = "gray")
{
    ContrastState state;
    state.Low = low;
    state.High = high;
    state.Gamma = gamma;
    state.Map = map;
    return state;
}

const double Gammas[] = {1.0, 0.5, 2.2, 0.125, 0.05, 7.0, 100.0};

std::vector<ContrastState> SomeStates()
{
    std::vector<ContrastState> states;
    const double ends[][2] = {{0.0, 1.0},    {-300.0, 4000.0}, {0.1, 0.3},     {1e6 + 0.1, 1e6 + 9.7},
                              {-1e-7, 3e-7}, {-3e38, 3e38},    {1e-40, 3e-40}, {5.0, 5.0},
                              {-2e9, 1e-3},  {0.0, 65535.0},   {-1e300, 1e300}};
    for (const auto& window : ends) {
        for (const double gamma : Gammas)
            states.push_back(WindowOf(window[0], window[1], gamma));
    }
    return states;
}

// Inside, at and around the ends of a window, and what is never inside.
std::vector<float> ValuesFor(const ContrastState& state, unsigned seed)
{
    std::mt19937                           random(seed);
    std::uniform_real_distribution<double> share(-0.2, 1.2);
    std::vector<float>                     values = {0.0f, -0.0f, NaN, Inf, -Inf, 3.4e38f, -3.4e38f, 1e-45f};
    for (const double end : {state.Low, state.High}) {
        const float edge = static_cast<float>(std::clamp(end, -3.4e38, 3.4e38));
        values.insert(values.end(), {edge, std::nextafter(edge, Inf), std::nextafter(edge, -Inf)});
    }
    for (int i = 0; i < 3000; ++i) {
        double at = share(random);
        if (i % 3 == 0)
            at = std::pow(at, 6.0);    // many close to the lower end
        const double v = state.Low * (1.0 - at) + state.High * at;
        values.push_back(static_cast<float>(std::clamp(v, -3.4e38, 3.4e38)));
    }
    return values;
}

std::vector<unsigned> Shown(const FloatWindow& window, const std::vector<float>& values)
{
    std::vector<unsigned> pixels(values.size());
    ShowFloats(window, values.data(), pixels.data(), values.size(), false);
    return pixels;
}

}

TEST_CASE("floats are at most one level from the formula, for many windows and gammas")
{
    unsigned seed = 800;
    for (const ContrastState& state : SomeStates()) {
        const FloatWindow           window(state);
        const std::vector<float>    values = ValuesFor(state, ++seed);
        const std::vector<unsigned> pixels = Shown(window, values);
        int                         worst = 0;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const int level = static_cast<int>(pixels[i] & 0xFF);
            const int expected =
                static_cast<int>(window.Curve.PixelOf(static_cast<double>(values[i])) & 0xFF);
            worst = std::max(worst, std::abs(level - expected));
        }
        CAPTURE(seed);
        CAPTURE(state.Low);
        CAPTURE(state.High);
        CAPTURE(state.Gamma);
        CHECK(worst <= 1);
    }
}

TEST_CASE("the ends of a window show as the first and the last level, exactly")
{
    for (const double gamma : Gammas) {
        const FloatWindow           window(WindowOf(-300.25, 4000.5, gamma));
        const std::vector<unsigned> pixels = Shown(window, {-300.25f, 4000.5f, -301.0f, 4001.0f});
        CHECK(pixels == std::vector<unsigned>{0, 0xFFFFFF, 0, 0xFFFFFF});
    }
}

TEST_CASE("marks lie on values outside the window and on those that are not finite, and nowhere else")
{
    ContrastState state = WindowOf(0.1, 0.9, 1.0, "viridis");
    const float   inside[] = {std::nextafter(0.1f, 1.0f), 0.5f, std::nextafter(0.9f, 0.0f)};
    state.Below = 0xFF0000FFu;
    state.Above = 0xFFFF0000u;
    state.NotFinite = 0xFF00FF00u;
    const FloatWindow window(state);
    for (const float v : inside)
        CHECK(Shown(window, {v})[0] == window.Curve.PixelOf(static_cast<double>(v)));
    CHECK(Shown(window, {0.0999f, 0.9001f, NaN, Inf, -Inf}) ==
          std::vector<unsigned>{0x0000FF, 0xFF0000, 0x00FF00, 0x00FF00, 0x00FF00});
    // The float nearest to 0.1 lies above it, the one nearest to 0.9 below it.
    CHECK(Shown(window, {0.1f, 0.9f}) ==
          std::vector<unsigned>{FindColorMap("viridis")[0], FindColorMap("viridis")[255]});
}

TEST_CASE("a mark of half alpha is mixed with what would be shown, and alpha 0 marks nothing")
{
    ContrastState state = WindowOf(0.0, 1.0);
    state.Above = 0x80FF0000u;
    state.NotFinite = 0x00FFFFFFu;
    const FloatWindow window(state);
    CHECK(Shown(window, {2.0f, NaN}) == std::vector<unsigned>{0xFF7F7F, 0x000000});
}

TEST_CASE("every variant gives the bits of the plain one, for every length from 0 to 40")
{
    for (const char* map : {"gray", "inferno"}) {
        for (const double gamma : {1.0, 0.4, 3.0, 0.1}) {
            ContrastState state = WindowOf(-20.0, 1000.0, gamma, map);
            state.Below = 0x40FF0000u;
            const FloatWindow        window(state);
            const std::vector<float> values = ValuesFor(state, 901);
            for (std::size_t count = 0; count <= 40; ++count) {
                std::vector<unsigned> plain(count + 1, 0xDEADBEEFu);
                FloatWindowPlain.Row(window, values.data() + 3, plain.data(), count, false);
                InEveryVariant([&](const char* variant) {
                    std::vector<unsigned> pixels(count + 1, 0xDEADBEEFu);
                    ShowFloats(window, values.data() + 3, pixels.data(), count, false);
                    CHECK_MESSAGE(pixels == plain, variant << ", " << count);
                });
            }
            std::vector<unsigned> plain(values.size());
            FloatWindowPlain.Row(window, values.data(), plain.data(), values.size(), false);
            InEveryVariant([&](const char* variant) {
                CHECK_MESSAGE(Shown(window, values) == plain, variant);
                // Past the caches, from the middle of a cache line on.
                std::vector<unsigned> streamed(values.size() + 2, 0xDEADBEEFu);
                ShowFloats(window, values.data(), streamed.data() + 1, values.size(), true);
                FenceStreamingStores();
                CHECK(streamed.front() == 0xDEADBEEFu);
                CHECK(streamed.back() == 0xDEADBEEFu);
                CHECK_MESSAGE(std::equal(plain.begin(), plain.end(), streamed.begin() + 1), variant);
            });
        }
    }
}
