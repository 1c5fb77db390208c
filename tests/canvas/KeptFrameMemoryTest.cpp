// Each allocation of paints that keep a frame fails once.

#include "overlay/VostelPolygon.h"
#include "support/FailingAllocator.h"
#include "support/ObjectCanvas.h"

#include <new>

using namespace vostel;

TEST_CASE("after a paint that found no memory to keep the frame the next ones show all of it")
{
    ObjectCanvas host(0, 160, 120);
    host.ShowFlatGray(150, 110, 0x40);
    for (int i = 0; i < 300; ++i) {
        auto         polygon = std::make_unique<VostelPolygon>();
        const double x = 5.0 + i % 20 * 7, y = 5.0 + i / 20 * 7;
        polygon->ImagePoints = {{x, y}, {x + 9, y}, {x + 4, y + 9}};
        host.Canvas().Append(std::move(polygon));
    }
    host.Press(40, 40);    // one stays in hand
    host.Move(41, 41, MK_LBUTTON);
    host.Move(42, 42, MK_LBUTTON);
    KeptFrame& kept = host.Canvas().Kept;
    kept.Fewest = SIZE_MAX;
    const Frame expected = host.PaintAndCapture();
    kept.Fewest = KeptFrame::FewResting;
    bool hasEnded = false;
    int  unkept = 0;
    for (long n = 1; n < 2000 && !hasEnded; ++n) {
        CAPTURE(n);
        kept.Free();
        host.Paint();    // keeps nothing yet
        FailAt(n);
        try {
            host.Paint();
        } catch (const std::bad_alloc&) {
        }
        hasEnded = !HasAllocationFailed();
        FailAt(0);
        unkept += !kept.IsTaken();
        for (int i = 0; i < 2; ++i)
            REQUIRE(FrameDifference(host.PaintAndCapture(), expected) == "");
    }
    CHECK(hasEnded);
    CHECK(unkept > 0);
    CHECK(kept.IsTaken());
    host.Release(42, 42);
}
