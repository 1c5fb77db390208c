#include "output/LabelPlane.h"

#include "support/EveryVariant.h"

#include <algorithm>
#include <climits>
#include <doctest/doctest.h>
#include <numeric>

using namespace vostel;

TEST_CASE("a filled plane holds the value everywhere and nowhere else")
{
    InEveryVariant([](const char* variant) {
        for (int width = 0; width <= 70; ++width) {
            for (int value : {0, 1, -1, INT_MIN}) {
                const std::size_t all = static_cast<std::size_t>(width) * 3;
                GuardedRun<int>   plane(all, all % 17, 1234);
                FillLabelPlane(plane.Data(), width, 3, value);
                CHECK_MESSAGE(std::count(plane.Data(), plane.Data() + all, value) == static_cast<long>(all),
                              variant << ", width " << width);
                CHECK_MESSAGE(plane.GuardsStand(), variant << ", width " << width);
            }
        }
    });
}

TEST_CASE("a flip puts row Height - 1 - y into row y")
{
    for (int height = 0; height <= 7; ++height) {
        for (int width : {0, 1, 2, 17, 2047, 2048, 2049, 5000}) {
            const std::size_t w = static_cast<std::size_t>(width);
            const std::size_t h = static_cast<std::size_t>(height);
            GuardedRun<int>   plane(w * h, 3, -1);
            std::iota(plane.Data(), plane.Data() + w * h, 0);
            FlipLabelPlane(plane.Data(), width, height);
            std::size_t wrong = 0;
            for (std::size_t y = 0; y < h; ++y)
                for (std::size_t x = 0; x < w; ++x)
                    wrong += plane.Data()[y * w + x] != static_cast<int>((h - 1 - y) * w + x);
            CHECK_MESSAGE(wrong == 0, width << "x" << height);
            CHECK_MESSAGE(plane.GuardsStand(), width << "x" << height);
            FlipLabelPlane(plane.Data(), width, height);
            CHECK_MESSAGE(std::is_sorted(plane.Data(), plane.Data() + w * h), width << "x" << height);
        }
    }
}

TEST_CASE("an empty or missing plane is left alone")
{
    int element = 5;
    FillLabelPlane(&element, 0, 1, 9);
    FillLabelPlane(&element, 1, -1, 9);
    FillLabelPlane(nullptr, 2, 2, 9);
    FlipLabelPlane(&element, -1, 2);
    FlipLabelPlane(nullptr, 2, 2);
    CHECK(element == 5);
    FillLabelPlane(&element, 1, 1, 9);
    CHECK(element == 9);
}

TEST_CASE("a plane larger than the caches is filled like a small one")
{
    const std::size_t all = std::size_t{2049} * 2061;
    InEveryVariant([&](const char* variant) {
        GuardedRun<int> plane(all, 5, 1234);
        FillLabelPlane(plane.Data(), 2049, 2061, 42);
        CHECK_MESSAGE(std::count(plane.Data(), plane.Data() + all, 42) == static_cast<long>(all), variant);
        CHECK_MESSAGE(plane.GuardsStand(), variant);
    });
}
