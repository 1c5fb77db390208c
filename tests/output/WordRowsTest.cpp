#include "output/WordRows.h"

#include "output/EveryForm.h"

#include <algorithm>
#include <doctest/doctest.h>

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
