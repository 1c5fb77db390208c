#include "interchange/SampleHash.h"

#include <doctest/doctest.h>

#include <cstring>
#include <numeric>

using namespace vostel;

namespace {

std::uint64_t HashOf(const char* text)
{
    Hash64 hash;
    hash.Take({reinterpret_cast<const unsigned char*>(text), std::strlen(text)});
    return hash.Value();
}

}

TEST_CASE("hashes are those that XXH64 is known to give")
{
    CHECK(HashOf("") == 0xef46db3751d8e999);
    CHECK(HashOf("a") == 0xd24ec4f1a98c6e5b);
    CHECK(HashOf("abc") == 0x44bc2cf5ad770999);
    CHECK(HashOf("Nobody inspects the spammish repetition") == 0xfbcea83c8a378bf1);
}

TEST_CASE("the pieces in which bytes come make no difference")
{
    std::vector<unsigned char> bytes(200);
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(3));
    Hash64 whole;
    whole.Take(bytes);
    for (std::size_t step = 1; step < 100; ++step) {
        Hash64 pieces;
        for (std::size_t at = 0; at < bytes.size(); at += step)
            pieces.Take(std::span(bytes).subspan(at, std::min(step, bytes.size() - at)));
        CHECK(pieces.Value() == whole.Value());
    }
}

TEST_CASE("rows count without what lies between them, in the order from the top")
{
    const std::uint16_t values[] = {1, 2, 9, 3, 4, 9};
    const std::uint16_t tight[] = {1, 2, 3, 4};
    const std::uint16_t turned[] = {3, 4, 1, 2};
    const std::string   hash = HashOfSamples({SampleType::U16, 2, 2, 4, tight});
    CHECK(hash.size() == 22);
    CHECK(HashOfSamples({SampleType::U16, 2, 2, 6, values}) == hash);
    CHECK(HashOfSamples({SampleType::U16, 2, 2, -4, turned + 2}) == hash);
    CHECK(HashOfSamples({SampleType::U16, 2, 2, 4, turned}) != hash);
}
