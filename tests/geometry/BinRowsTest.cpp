#include "geometry/BinRows.h"

#include "support/EveryVariant.h"

#include <doctest/doctest.h>

#include <cmath>
#include <limits>

using namespace vostel;

namespace {

constexpr float Inf = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

// On and beside the bounds, and between them.
std::vector<float> ValuesFor(const BinRule& rule, unsigned seed)
{
    std::mt19937                           random(seed);
    std::uniform_real_distribution<double> share(-0.1, 1.1);
    std::vector<float>                     values = {NaN, Inf, -Inf, 0.0f, -0.0f, 3.4e38f, -3.4e38f};
    for (int i = 0; i < 4000; ++i) {
        const float v = static_cast<float>(
            i % 3 == 0
                ? rule.Bound(static_cast<std::int32_t>(random() % (static_cast<unsigned>(rule.Last) + 2)))
                : rule.Low + (rule.High - rule.Low) * share(random));
        values.insert(values.end(), {v, std::nextafter(v, Inf), std::nextafter(v, -Inf)});
    }
    return values;
}

}

TEST_CASE("the bin of a value is the one whose bounds hold it")
{
    const BinRule rule(0.0, 1.0, 10);
    CHECK(rule.BinOf(0.0) == 0);
    CHECK(rule.BinOf(0.3) == 2);    // 3 times 0.1 is more than 0.3
    CHECK(rule.BinOf(1.0) == 9);
    CHECK(rule.BinOf(1.1) == 10);
    CHECK(rule.BinOf(-1e-9) == 10);
    CHECK(rule.BinOf(static_cast<double>(NaN)) == 10);
}

TEST_CASE("every variant finds the bins of the plain one, near bounds and far from them")
{
    const struct {
        double      Low, High;
        std::size_t Bins;
    } cases[] = {{0.0, 1.0, 10},       {-300.0, 4000.0, 1024}, {0.0, 1024.0, 1024},
                 {1e6, 1e6 + 3.0, 77}, {-1e-20, 1e-20, 5},     {-1e38, 1e38, 256},
                 {0.0, 1.0, 1},        {-5.0, 1e300, 9},       {0.0, 65535.0, 1 << 20}};
    unsigned seed = 1100;
    for (const auto& c : cases) {
        const BinRule                   rule(c.Low, c.High, c.Bins);
        const std::vector<float>        values = ValuesFor(rule, ++seed);
        const std::vector<std::int32_t> guard(values.size() + 1, -7);
        std::vector<std::int32_t>       plain = guard;
        BinRowPlain.Row(rule, values.data(), plain.data(), values.size());
        InEveryVariant([&](const char* variant) {
            CAPTURE(seed);
            for (std::size_t count : {std::size_t(0), std::size_t(3), std::size_t(13), values.size()}) {
                std::vector<std::int32_t> bins = guard;
                ActiveBinRowVariant().Row(rule, values.data(), bins.data(), count);
                CHECK_MESSAGE(std::equal(bins.begin(), bins.begin() + static_cast<std::ptrdiff_t>(count),
                                         plain.begin()),
                              variant << ", " << c.Bins);
                CHECK(bins[count] == -7);
            }
        });
    }
}
