// VOSTEL_LIMITS, as a text.

#include "platform/PictureLimits.h"

#include <doctest/doctest.h>

using namespace vostel;

namespace {

struct Understood {
    VostelPictureLimits Limits;
    std::string         Wrong;
};

Understood Of(const char* text)
{
    Understood understood;
    understood.Limits = LimitsOfText(text, understood.Wrong);
    return understood;
}

}

TEST_CASE("limits stand in any order, and the last of a name holds")
{
    const Understood all = Of("memory=3,pixels=1,file=2,pixels=9223372036854775807");
    CHECK(all.Limits.MaxPixels == INT64_MAX);
    CHECK(all.Limits.MaxFileBytes == 2);
    CHECK(all.Limits.MaxMemory == 3);
    CHECK(all.Wrong == "");
    for (const char* const text : {"", ",", "pixels=0", ",,file=0,"}) {
        CAPTURE(text);
        const Understood none = Of(text);
        CHECK(none.Limits.MaxPixels == 0);
        CHECK(none.Limits.MaxFileBytes == 0);
        CHECK(none.Wrong == "");
    }
}

TEST_CASE("what is no limit has no effect and is named")
{
    for (const char* const entry :
         {"nonsense", "pixels", "pixels=", "=5", "pixels=-1", "pixels=+1", "pixels=1e6", "pixels=1M",
          "pixels= 1", " pixels=1", "Pixels=1", "pixels=0x10", "pixels=9223372036854775808", "pixels=1=1",
          "side=5", " "}) {
        CAPTURE(entry);
        const Understood understood = Of((std::string("file=7,") + entry + ",memory=8").c_str());
        CHECK(understood.Limits.MaxPixels == 0);
        CHECK(understood.Limits.MaxFileBytes == 7);
        CHECK(understood.Limits.MaxMemory == 8);
        CHECK(understood.Wrong == entry);
    }
    CHECK(Of("a,pixels=1,b=2").Wrong == "a,b=2");
}
