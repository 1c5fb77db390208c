// Each allocation of gCVSReadFile on a picture fails once.

#include "support/FailingAllocator.h"
#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <new>

TEST_CASE("a load that finds no memory leaves the old picture, the new one or no pixels")
{
    const TempFolder folder;
    HostCanvas       host(0, 60, 40);
    CImage           picture;
    REQUIRE(picture.Create(5, 4, 24));
    for (int y = 0; y < 4; ++y)
        std::memset(picture.GetPixelAddress(0, y), 0x33, 15);
    const Frame before(3, 3, 0x646464), after(5, 4, 0x333333);
    for (const char* const name : {"a.bmp", "a.png", "a.tif", "a.jpg"}) {
        CAPTURE(name);
        REQUIRE(picture.Save(folder.WidePath(name)) >= 0);
        bool ended = false, good = true;
        int  missing = 0;
        for (long n = 1; n < 1000 && !ended; ++n) {
            CString path = folder.WidePath(name);
            host.ShowFlatGray(3, 3, 100);
            FailAt(n);
            try {
                gCVSReadFile(0, path, true);
            } catch (const std::bad_alloc&) {
            }
            ended = !HasAllocationFailed();
            FailAt(0);
            const std::string toOld = FrameDifference(host.Surface(), before);
            missing += toOld.empty();
            // Without memory for a surface there are no pixels, and rows that say so.
            good = good && (toOld.empty() || !gCVSGetCanvasPixelPtr(0) ||
                            FrameDifference(host.Surface(), after).empty());
        }
        CHECK(ended);
        CHECK(missing > 0);
        CHECK(good);
        CHECK(FrameDifference(host.Surface(), after) == "");
    }
}
