#include "base/PixelFill.h"

#include "support/EveryVariant.h"

#include <algorithm>
#include <doctest/doctest.h>

using namespace vostel;

TEST_CASE("runs of pixels are filled and copied exactly, with streaming stores and without")
{
    const unsigned seed = 34001;
    InEveryVariant([&](const char* variant) {
        for (std::size_t count = 0; count <= 100; ++count) {
            std::mt19937               random(seed + static_cast<unsigned>(count));
            std::vector<std::uint32_t> source(count);
            std::generate(source.begin(), source.end(), [&] { return static_cast<std::uint32_t>(random()); });
            for (const bool streaming : {false, true}) {
                GuardedRun<std::uint32_t> target(count, count % 17, 0xABCDEF01u);
                CopyPixels(source.data(), target.Data(), count, streaming);
                CHECK_MESSAGE(std::equal(source.begin(), source.end(), target.Data()),
                              variant << ", seed " << seed << ", length " << count);
                CHECK_MESSAGE(target.GuardsStand(), variant << ", length " << count);
                FillPixels(target.Data(), count, 0x12345678u, streaming);
                FenceStreamingStores();
                CHECK_MESSAGE(std::count(target.Data(), target.Data() + count, 0x12345678u) ==
                                  static_cast<long>(count),
                              variant << ", length " << count);
                CHECK_MESSAGE(target.GuardsStand(), variant << ", length " << count);
            }
        }
    });
}
