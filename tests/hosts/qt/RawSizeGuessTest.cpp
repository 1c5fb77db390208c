#include "dialogs/RawSizeGuess.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace vostel::widget;

namespace {

constexpr int Unsigned16 = 0, Float = 1, Signed16 = 2, Unsigned8 = 3;

bool Offers(qint64 bytes, int type, RawSize wanted)
{
    const std::vector<RawSize> sizes = GuessRawSizes(bytes, type);
    return std::find(sizes.begin(), sizes.end(), wanted) != sizes.end();
}

}

TEST_CASE("a file as long as a square is guessed to be that square first")
{
    CHECK(GuessRawSizes(512 * 512 * 2, Unsigned16).front() == RawSize{512, 512, 0});
    CHECK(GuessRawSizes(7 * 7 * 4, Float).front() == RawSize{7, 7, 0});
}

TEST_CASE("a file as long as a common screen or detector is guessed to be one")
{
    CHECK(GuessRawSizes(640 * 480, Unsigned8).front() == RawSize{640, 480, 0});
    CHECK(GuessRawSizes(1920LL * 1200 * 4, Float).front() == RawSize{1920, 1200, 0});
}

TEST_CASE("a header of 100 bytes before a common size is found, but not before bytes, which it cannot skip")
{
    CHECK(GuessRawSizes(1024 * 1024 * 2 + 100, Signed16).front() == RawSize{1024, 1024, 100});
    CHECK_FALSE(Offers(1024 * 1024 + 100, Unsigned8, {1024, 1024, 100}));
}

TEST_CASE("every size that is offered fits the file to the byte, and no more than asked for are offered")
{
    for (const int type : {Unsigned16, Float, Signed16, Unsigned8})
        for (const qint64 bytes : {720720LL, 4096LL * 3 * 4, 65536LL, 1000000LL, 99991LL * 4}) {
            CAPTURE(type);
            CAPTURE(bytes);
            const std::vector<RawSize> sizes = GuessRawSizes(bytes, type, 5);
            CHECK(sizes.size() <= 5);
            for (const RawSize& size : sizes)
                CHECK(size.HeaderBytes + qint64{size.Width} * size.Height * RawElementBytes(type) == bytes);
        }
    CHECK(GuessRawSizes(720720, Unsigned8, 5).size() == 5);
}

TEST_CASE("files without room for one element, unknown types and hostile lengths are offered nothing")
{
    CHECK(GuessRawSizes(0, Float).empty());
    CHECK(GuessRawSizes(-1, Float).empty());
    CHECK(GuessRawSizes(3, Float).empty());
    CHECK(GuessRawSizes(512 * 512, 4).empty());
    CHECK(GuessRawSizes(INT64_MAX, Unsigned8).empty());
    CHECK_FALSE(GuessRawSizes(4, Float).empty());
}
