#include "output/LabelPlane.h"

#include "output/EveryForm.h"
#include "output/WordRows.h"

#include <algorithm>
#include <climits>
#include <doctest/doctest.h>
#include <numeric>

TEST_CASE("a filled plane holds the value everywhere and nowhere else")
{
    InEveryForm([](const char* form) {
        for (int width = 0; width <= 70; ++width) {
            for (int value : {0, 1, -1, INT_MIN}) {
                const std::size_t all = static_cast<std::size_t>(width) * 3;
                GuardedRun<int>   plane(all, all % 17, 1234);
                FillLabelPlane(plane.Data(), width, 3, value);
                CHECK_MESSAGE(std::count(plane.Data(), plane.Data() + all, value) == static_cast<long>(all),
                              form << ", width " << width);
                CHECK_MESSAGE(plane.GuardsStand(), form << ", width " << width);
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
    InEveryForm([&](const char* form) {
        GuardedRun<int> plane(all, 5, 1234);
        FillLabelPlane(plane.Data(), 2049, 2061, 42);
        CHECK_MESSAGE(std::count(plane.Data(), plane.Data() + all, 42) == static_cast<long>(all), form);
        CHECK_MESSAGE(plane.GuardsStand(), form);
    });
}

TEST_CASE("runs of words are filled and copied exactly, past the caches or not")
{
    const unsigned seed = 34001;
    InEveryForm([&](const char* form) {
        for (std::size_t count = 0; count <= 100; ++count) {
            std::mt19937               random(seed + static_cast<unsigned>(count));
            std::vector<std::uint32_t> source(count);
            std::generate(source.begin(), source.end(), [&] { return static_cast<std::uint32_t>(random()); });
            for (const bool pastCaches : {false, true}) {
                GuardedRun<std::uint32_t> target(count, count % 17, 0xABCDEF01u);
                CopyWords(source.data(), target.Data(), count, pastCaches);
                CHECK_MESSAGE(std::equal(source.begin(), source.end(), target.Data()),
                              form << ", seed " << seed << ", length " << count);
                CHECK_MESSAGE(target.GuardsStand(), form << ", length " << count);
                FillWords(target.Data(), count, 0x12345678u, pastCaches);
                WordFence();
                CHECK_MESSAGE(std::count(target.Data(), target.Data() + count, 0x12345678u) ==
                                  static_cast<long>(count),
                              form << ", length " << count);
                CHECK_MESSAGE(target.GuardsStand(), form << ", length " << count);
            }
        }
    });
}
