// VOSTEL_LIMITS, which is pixels=20,nonsense,memory=70000000,file=1000 here.

#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

namespace {

bool Loads(int width, int height)
{
    const TempFolder folder;
    const CString    path = folder.WidePath("a.bmp");
    CImage           image;
    REQUIRE(image.Create(width, height, 24));
    REQUIRE(image.Save(path) >= 0);
    return image.Load(path) >= 0;
}

}

TEST_CASE("the environment limits pictures until the host sets limits of its own")
{
    const VostelPictureLimits limits = gGetPictureLimits();
    CHECK(limits.MaxPixels == 20);
    CHECK(limits.MaxFileBytes == 1000);
    CHECK(limits.MaxMemory == 70000000);
    CHECK(Loads(5, 4));
    CHECK_FALSE(Loads(7, 3));
    REQUIRE(gSetPictureLimits({21, 0, 0}));
    CHECK(gGetPictureLimits().MaxFileBytes == 1000);
    CHECK(Loads(7, 3));
    CHECK_FALSE(Loads(11, 2));
    REQUIRE(gSetPictureLimits({21, 0, 60000000}));
    CHECK_FALSE(Loads(7, 3));
    REQUIRE(gSetPictureLimits(VostelPictureLimits()));
    CHECK_FALSE(Loads(7, 3));
    CHECK(Loads(5, 4));
}
