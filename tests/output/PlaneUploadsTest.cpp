#include "output/PlaneUploads.h"

#include "support/EveryVariant.h"

#include <doctest/doctest.h>

using namespace vostel;

namespace {

constexpr unsigned Untouched = 0xDEADBEEFu;

// Exactly so many bytes: a read beyond them is a read beyond the block.
std::vector<unsigned char> RandomBytes(std::size_t count, unsigned seed)
{
    std::mt19937               random(seed);
    std::vector<unsigned char> bytes(count);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random());
    return bytes;
}

unsigned At(const std::vector<unsigned char>& bytes, std::size_t position)
{
    return position < bytes.size() ? bytes[position] : 0u;
}

}

TEST_CASE("a gray byte becomes three equal bytes under a zero")
{
    const unsigned char gray[] = {0, 1, 128, 255};
    unsigned            pixels[4] = {};
    UploadGrayRow(gray, pixels, 4);
    CHECK(pixels[0] == 0);
    CHECK(pixels[1] == 0x010101u);
    CHECK(pixels[2] == 0x808080u);
    CHECK(pixels[3] == 0xFFFFFFu);
}

TEST_CASE("the first byte of a pixel goes lowest and a fourth is dropped")
{
    const unsigned char bytes[] = {1, 2, 3, 0xFF, 4, 5, 6, 0xFE};
    unsigned            pixels[2] = {};
    UploadTripleRow(bytes, pixels, 2);
    CHECK(pixels[0] == 0x030201u);
    CHECK(pixels[1] == 0x0504FFu);
    UploadQuadRow(bytes, pixels, 2);
    CHECK(pixels[0] == 0x030201u);
    CHECK(pixels[1] == 0x060504u);
}

TEST_CASE("of three planes the second is read one and the third two columns further right")
{
    const unsigned char red[] = {1, 2, 3};
    const unsigned char green[] = {11, 12, 13};
    const unsigned char blue[] = {21, 22, 23};
    unsigned            pixels[3] = {};
    UploadPlanesRow(red, 3, green, 3, blue, 3, pixels, 3);
    CHECK(pixels[0] == (1u << 16 | 12u << 8 | 23u));
    CHECK(pixels[1] == (2u << 16 | 13u << 8));    // what lies past a plane's last byte reads as zero
    CHECK(pixels[2] == 3u << 16);
}

TEST_CASE("at the right edge the planes are read on into their next row")
{
    const unsigned char planes[] = {1, 2, 3, 4};    // two rows of two
    unsigned            pixels[2] = {};
    UploadPlanesRow(planes, 4, planes, 4, planes, 4, pixels, 2);
    CHECK(pixels[0] == (1u << 16 | 2u << 8 | 3u));
    CHECK(pixels[1] == (2u << 16 | 3u << 8 | 4u));
}

TEST_CASE("planes that are missing or short read as zero")
{
    const unsigned char plane[] = {9, 8, 7, 6};
    unsigned            pixels[4] = {};
    InEveryVariant([&](const char* variant) {
        UploadPlanesRow(nullptr, 0, nullptr, 4, plane, 4, pixels, 4);
        CHECK_MESSAGE(pixels[0] == 7, variant);
        CHECK_MESSAGE(pixels[1] == 6, variant);
        CHECK_MESSAGE(pixels[2] == 0, variant);
        UploadPlanesRow(plane, 1, plane, 2, plane, 0, pixels, 4);
        CHECK_MESSAGE(pixels[0] == (9u << 16 | 8u << 8), variant);
        CHECK_MESSAGE(pixels[1] == 0, variant);
        CHECK_MESSAGE(pixels[3] == 0, variant);
    });
}

TEST_CASE("a count below 1 uploads nothing")
{
    const unsigned char bytes[4] = {1, 2, 3, 4};
    unsigned            pixel = Untouched;
    InEveryVariant([&](const char* variant) {
        for (int count : {0, -1, -4096}) {
            UploadGrayRow(bytes, &pixel, count);
            UploadTripleRow(bytes, &pixel, count);
            UploadQuadRow(bytes, &pixel, count);
            UploadPlanesRow(bytes, 4, bytes, 4, bytes, 4, &pixel, count);
        }
        CHECK_MESSAGE(pixel == Untouched, variant);
    });
}

TEST_CASE("rows of lengths 0 to 140 at odd starts equal the formulas, read and touch nothing else")
{
    const unsigned seed = 24001;
    InEveryVariant([&](const char* variant) {
        for (std::size_t count = 0; count <= 140; ++count) {
            const unsigned    mine = seed + static_cast<unsigned>(count);
            const int         columns = static_cast<int>(count);
            const std::size_t start = count * 5 % 17;
            for (const bool streaming : {false, true}) {
                GuardedRun<unsigned> pixels(count, start, Untouched);
                const auto           check = [&](const char* what, auto&& expected) {
                    bool same = true;
                    for (std::size_t x = 0; x < count; ++x)
                        same = same && pixels.Data()[x] == expected(x);
                    CHECK_MESSAGE(same, what << ", " << variant << ", seed " << seed << ", length " << count);
                    CHECK_MESSAGE(pixels.GuardsStand(), what << ", " << variant << ", length " << count);
                    std::fill_n(pixels.Data(), count, Untouched);
                };
                const auto gray = RandomBytes(count, mine);
                UploadGrayRow(gray.data(), pixels.Data(), columns, streaming);
                check("gray", [&](std::size_t x) { return At(gray, x) * 0x010101u; });

                const auto triples = RandomBytes(3 * count, mine);
                UploadTripleRow(triples.data(), pixels.Data(), columns, streaming);
                check("triples", [&](std::size_t x) {
                    return At(triples, 3 * x) | At(triples, 3 * x + 1) << 8 | At(triples, 3 * x + 2) << 16;
                });

                const auto quads = RandomBytes(4 * count, mine);
                UploadQuadRow(quads.data(), pixels.Data(), columns, streaming);
                check("quads", [&](std::size_t x) {
                    return At(quads, 4 * x) | At(quads, 4 * x + 1) << 8 | At(quads, 4 * x + 2) << 16;
                });

                // From planes that end with the row to ones that go on.
                for (std::size_t more : {0, 1, 2, 3}) {
                    const auto red = RandomBytes(count, mine + 1);
                    const auto green = RandomBytes(count + more, mine + 2);
                    const auto blue = RandomBytes(count + more, mine + 3);
                    UploadPlanesRow(red.data(), red.size(), green.data(), green.size(), blue.data(),
                                    blue.size(), pixels.Data(), columns, streaming);
                    check("planes", [&](std::size_t x) {
                        return At(red, x) << 16 | At(green, x + 1) << 8 | At(blue, x + 2);
                    });
                }
            }
        }
    });
}
