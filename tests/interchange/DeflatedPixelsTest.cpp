#include "interchange/DeflatedPixels.h"

#include "platform/SampleFiles.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace vostel;

TEST_CASE("a gray picture of 16 bits returns from the PNG file that is made of it")
{
    std::mt19937 random(16);
    for (const auto& [width, height] : {std::pair(1, 1), std::pair(3, 2), std::pair(257, 31)}) {
        std::vector<std::uint16_t> samples(static_cast<std::size_t>(width * height));
        for (std::uint16_t& sample : samples)
            sample = static_cast<std::uint16_t>(random());
        const std::string        file = PngOf(DeflateGray16(samples.data(), width, height));
        const files::ReadSamples read = files::Read(files::Bytes(file.begin(), file.end()));
        REQUIRE(read.Outcome == PictureOutcome::Taken);
        REQUIRE(read.Samples.HasShape(SampleType::U16, width, height));
        CHECK(std::memcmp(read.Samples.Data(), samples.data(), read.Samples.Bytes()) == 0);
    }
}
