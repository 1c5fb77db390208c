// Each allocation of a save of what a canvas shows fails once.

#include "canvas/PixelSurface.h"
#include "support/FailingAllocator.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <new>

using namespace vostel;

TEST_CASE("a save of the shown image that finds no memory writes nothing, and the next one writes it whole")
{
    const TempFolder folder;
    PixelSurface     surface;
    surface.Rebuild(nullptr, 30, 20, false);
    REQUIRE(surface.Pixels);
    for (unsigned int i = 0; i < 30 * 20; ++i)
        surface.Pixels[i] = i * 77;
    for (const char* const name : {"picture.bmp", "picture.png"}) {
        CAPTURE(name);
        const CString     wide = folder.WidePath(name);
        const std::string path = folder.Path(name);
        REQUIRE(surface.WriteColorImage(wide) >= 0);
        const std::vector<unsigned char> whole = ReadBytes(path);
        int                              missing = 0;
        bool                             good = true, ended = false;
        for (long n = 1; n < 1000 && !ended; ++n) {
            std::filesystem::remove(path);
            bool written = false;
            FailAt(n);
            try {
                written = surface.WriteColorImage(wide) >= 0;
            } catch (const std::bad_alloc&) {
            }
            ended = !HasAllocationFailed();
            FailAt(0);
            const std::vector<unsigned char> bytes = ReadBytes(path);
            missing += !written;
            good = good && bytes == (written ? whole : std::vector<unsigned char>());
        }
        CHECK(ended);
        CHECK(missing > 0);
        CHECK(good);
    }
}

TEST_CASE("a table of rows that finds no memory is null, and its picture stays")
{
    CImage picture;
    REQUIRE(picture.Create(4, 3, 24));
    FailAt(1);
    CHECK(Create2DList(&picture) == nullptr);
    FailAt(0);
    unsigned char** const rows = Create2DList(&picture);
    REQUIRE(rows);
    CHECK(rows[0] == picture.GetBits());
    CHECK(rows[2] == picture.GetPixelAddress(0, 2));
    Release2DList(rows);
}
