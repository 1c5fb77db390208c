#include "fileio/InterleaveRows.h"

#include "support/EveryVariant.h"

#include <doctest/doctest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::size_t MaxLength = 140;    // past two of the widest vectors
constexpr std::size_t Margin = 8;         // guards on both sides of a target
constexpr unsigned    Seed = 20240611;

struct NamedRecord {
    const char*              Name;
    const InterleaveVariant* Functions;
};

// Those of this machine, plain first.
std::vector<NamedRecord> Variants()
{
    std::vector<NamedRecord> variants;
    InEveryVariant([&](const char* name) { variants.push_back({name, &ActiveInterleaveVariant()}); });
    return variants;
}

unsigned char GrayByFormula(int r, int g, int b)
{
    double sum = 0.587 * g;
    sum += 0.299 * r;
    sum += 0.114 * b;
    return static_cast<unsigned char>(static_cast<int>(sum));
}

Bytes RandomBytes(std::mt19937& random, std::size_t count)
{
    Bytes bytes(count);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random());
    return bytes;
}

// A target that starts at an odd address and stands between guards.
struct Guarded {
    Bytes Held;
    explicit Guarded(std::size_t length) : Held(length + 2 * Margin + 1, 0xC5) {}
    unsigned char* Start() { return Held.data() + Margin + 1; }
    bool           Is(const Bytes& expected) const
    {
        for (std::size_t i = 0; i < Held.size(); ++i) {
            const bool inside = i > Margin && i - Margin - 1 < expected.size();
            if (Held[i] != (inside ? expected[i - Margin - 1] : 0xC5))
                return false;
        }
        return true;
    }
};

// Calls look(functions, length, random) for every variant and each length from 0 on.
template <typename Look>
void ForEachVariantAndLength(Look look)
{
    std::mt19937 random(Seed);
    for (const NamedRecord& named : Variants()) {
        for (std::size_t length = 0; length <= MaxLength; ++length) {
            CAPTURE(Seed);
            CAPTURE(length);
            CAPTURE(std::string(named.Name));
            look(*named.Functions, length, random);
        }
    }
}

// Deinterleaves random pixels of so many bytes, blue, green and red first.
template <typename Deinterleave>
void CheckDeinterleaved(Deinterleave deinterleave, std::size_t bytes, std::size_t length,
                        std::mt19937& random)
{
    const Bytes source = RandomBytes(random, bytes * length + 1);
    Guarded     red(length), green(length), blue(length);
    deinterleave(source.data() + 1, red.Start(), green.Start(), blue.Start(), length);
    Bytes r(length), g(length), b(length);
    for (std::size_t x = 0; x < length; ++x) {
        b[x] = source[1 + bytes * x];
        g[x] = source[2 + bytes * x];
        r[x] = source[3 + bytes * x];
    }
    REQUIRE(red.Is(r));
    REQUIRE(green.Is(g));
    REQUIRE(blue.Is(b));
}

}

TEST_CASE("the variant in use follows a forced one")
{
    const VariantScope plain(CpuVariant::Plain);
    CHECK(&ActiveInterleaveVariant() == &InterleavePlain);
}

TEST_CASE(
    "every variant deinterleaves triples of every length from 0 to 140 and writes nothing beside the planes")
{
    ForEachVariantAndLength([](const InterleaveVariant& functions, std::size_t length, std::mt19937& random) {
        CheckDeinterleaved(functions.DeinterleaveTriples, 3, length, random);
    });
}

TEST_CASE(
    "every variant interleaves planes of every length from 0 to 140 and writes nothing beside the triples")
{
    ForEachVariantAndLength([](const InterleaveVariant& functions, std::size_t length, std::mt19937& random) {
        const Bytes r = RandomBytes(random, length), g = RandomBytes(random, length),
                    b = RandomBytes(random, length);
        Guarded triples(3 * length);
        functions.InterleaveTriples(r.data(), g.data(), b.data(), triples.Start(), length);
        Bytes expected;
        for (std::size_t x = 0; x < length; ++x)
            expected.insert(expected.end(), {b[x], g[x], r[x]});
        REQUIRE(triples.Is(expected));
    });
}

TEST_CASE("every variant deinterleaves quads of every length from 0 to 140 and drops the fourth byte")
{
    ForEachVariantAndLength([](const InterleaveVariant& functions, std::size_t length, std::mt19937& random) {
        CheckDeinterleaved(functions.DeinterleaveQuads, 4, length, random);
    });
}

TEST_CASE("every variant turns planes of every length from 0 to 140 into gray and writes nothing beside it")
{
    ForEachVariantAndLength([](const InterleaveVariant& functions, std::size_t length, std::mt19937& random) {
        const Bytes r = RandomBytes(random, length + 1), g = RandomBytes(random, length + 1),
                    b = RandomBytes(random, length + 1);
        Guarded gray(length);
        functions.ColorToGray(r.data() + 1, g.data() + 1, b.data() + 1, gray.Start(), length);
        Bytes expected(length);
        for (std::size_t x = 0; x < length; ++x)
            expected[x] = GrayByFormula(r[x + 1], g[x + 1], b[x + 1]);
        REQUIRE(gray.Is(expected));
    });
}

TEST_CASE("every variant turns levels of every length from 0 to 140 into gray, also in place")
{
    ForEachVariantAndLength([](const InterleaveVariant& functions, std::size_t length, std::mt19937& random) {
        const Bytes levels = RandomBytes(random, length);
        Bytes       expected(length);
        for (std::size_t x = 0; x < length; ++x)
            expected[x] = GrayByFormula(levels[x], levels[x], levels[x]);
        Guarded gray(length), inPlace(length);
        functions.LevelToGray(levels.data(), gray.Start(), length);
        REQUIRE(gray.Is(expected));
        if (length > 0)
            std::memcpy(inPlace.Start(), levels.data(), length);
        functions.LevelToGray(inPlace.Start(), inPlace.Start(), length);
        REQUIRE(inPlace.Is(expected));
    });
}

TEST_CASE("every variant gives the formula's gray for each of the 256 levels and lowers 65 of them by one")
{
    Bytes levels(256), expected(256);
    for (int v = 0; v < 256; ++v) {
        levels[static_cast<std::size_t>(v)] = static_cast<unsigned char>(v);
        expected[static_cast<std::size_t>(v)] = GrayByFormula(v, v, v);
    }
    for (const NamedRecord& named : Variants()) {
        CAPTURE(std::string(named.Name));
        Bytes gray(256);
        named.Functions->LevelToGray(levels.data(), gray.data(), 256);
        CHECK(gray == expected);
        int lowered = 0;
        for (std::size_t v = 0; v < 256; ++v)
            lowered += gray[v] + 1 == levels[v] ? 1 : 0;
        CHECK(lowered == 65);
    }
}

TEST_CASE("every variant gives the formula's gray for each of the 2^24 colors")
{
    Bytes red(256), green(256), blue(256), expected(256), gray(256);
    for (int b = 0; b < 256; ++b)
        blue[static_cast<std::size_t>(b)] = static_cast<unsigned char>(b);
    const std::vector<NamedRecord> variants = Variants();
    for (int r = 0; r < 256; ++r) {
        for (int g = 0; g < 256; ++g) {
            std::memset(red.data(), r, 256);
            std::memset(green.data(), g, 256);
            for (int b = 0; b < 256; ++b)
                expected[static_cast<std::size_t>(b)] = GrayByFormula(r, g, b);
            for (const NamedRecord& named : variants) {
                named.Functions->ColorToGray(red.data(), green.data(), blue.data(), gray.data(), 256);
                if (gray != expected) {
                    CAPTURE(r);
                    CAPTURE(g);
                    FAIL(named.Name);
                }
            }
        }
    }
}
