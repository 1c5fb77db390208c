// The frame of the canvas calls: five canvases, their view exports and numbers that name none.

#include "support/HostCanvas.h"

#include <climits>
#include <type_traits>

namespace {

static_assert(std::is_same_v<std::underlying_type_t<DisplayMode>, int>);
static_assert(DisplayFixed == 0 && DisplayZoomCentre == 1 && DisplayZoomCursor == 2);

// An image of 100 x 80 in the middle of 200 x 200, one step zoomed in: scale 1.2 at (40, 52).
struct ZoomedCanvas : HostCanvas {
    ZoomedCanvas() : HostCanvas(1, 200, 200)
    {
        REQUIRE(IsScaleOne());
        ShowFlatGray(100, 80, 90);
        Wheel(100, 100, 120);
    }
    ~ZoomedCanvas() { Wheel(100, 100, -120); }
};

}

TEST_CASE("an image lies centred at scale 1 until someone zooms or pans")
{
    HostCanvas host(0, 200, 100);
    REQUIRE(host.IsScaleOne());
    host.ShowFlatGray(50, 31, 0);
    CHECK(host.Region() == CRect(75, 34, 125, 65));    // 50 - 15.5, truncated
}

TEST_CASE("an image larger than the client area overhangs it on all sides")
{
    HostCanvas host(0, 200, 100);
    host.ShowFlatGray(300, 201, 0);
    CHECK(host.Region() == CRect(-50, -50, 250, 150));    // -50.5 truncates towards zero
}

TEST_CASE("the region of a zoomed image follows the scale")
{
    ZoomedCanvas host;
    CHECK(host.Region() == CRect(40, 52, 160, 148));
}

TEST_CASE("both overloads of gCVSGetOriPt divide the distance from the region by the scale")
{
    ZoomedCanvas              host;
    PointTemplateBase<double> point;
    gCVSGetOriPt(1, CPoint(41, 54), point);
    CHECK(point.x == 1.0 / 1.2);
    CHECK(point.y == 2.0 / 1.2);
    double x = 7.0;
    double y = 7.0;
    gCVSGetOriPt(1, CPoint(41, 54), x, y);
    CHECK(x == point.x);
    CHECK(y == point.y);
}

TEST_CASE("an image point outside the image is neither rounded nor clamped")
{
    ZoomedCanvas host;
    double       x = 0.0;
    double       y = 0.0;
    gCVSGetOriPt(1, CPoint(-1, 0), x, y);
    CHECK(x == -41.0 / 1.2);
    CHECK(y == -52.0 / 1.2);
    gCVSGetOriPt(1, CPoint(1000, 70000), x, y);
    CHECK(x == 960.0 / 1.2);
    CHECK(y == 69948.0 / 1.2);
}

TEST_CASE("both overloads of gCVSGetDisplayPt truncate towards zero, also left of the origin")
{
    ZoomedCanvas host;
    CPoint       point(5, 5);
    gCVSGetDisplayPt(1, 10.5, 3.3, point);
    CHECK(point == CPoint(52, 55));    // 52.6, 55.96
    gCVSGetDisplayPt(1, -34.0, -44.0, point);
    CHECK(point == CPoint(0, 0));    // -0.8
    gCVSGetDisplayPt(1, -41.0, -52.0, point);
    CHECK(point == CPoint(-9, -10));    // -9.2, -10.4
    gCVSGetDisplayPt(1, PointTemplateBase<double>(-41.0, -52.0), point);
    CHECK(point == CPoint(-9, -10));
}

TEST_CASE("a client point that goes to the image and back moves by one pixel at most, and some do move")
{
    ZoomedCanvas host;
    int          moved = 0;
    for (int y = -20; y < 220; ++y) {
        for (int x = -20; x < 220; ++x) {
            PointTemplateBase<double> image;
            CPoint                    back;
            gCVSGetOriPt(1, CPoint(x, y), image);
            gCVSGetDisplayPt(1, image, back);
            if (back.x != x || back.y != y)
                ++moved;
            if (back.x < x - 1 || back.x > x + 1 || back.y < y - 1 || back.y > y + 1)
                FAIL("(" << x << ", " << y << ") came back as (" << back.x << ", " << back.y << ")");
        }
    }
    CHECK(moved > 0);
}

TEST_CASE("a Control drag pans by the distance of the drag")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    const CRect before = host.Region();
    host.Drag(CPoint(50, 50), CPoint(57, 39), MK_LBUTTON | MK_CONTROL);
    CHECK(host.Region() == CRect(before.left + 7, before.top - 11, before.right + 7, before.bottom - 11));
}

TEST_CASE("a drag without Control pans nothing")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    const CRect before = host.Region();
    host.Drag(CPoint(50, 50), CPoint(57, 39), MK_LBUTTON | MK_SHIFT);
    CHECK(host.Region() == before);
}

TEST_CASE("moves with Control pan nothing before a press and after the release")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    const CRect before = host.Region();
    host.Move(80, 80, MK_CONTROL);
    CHECK(host.Region() == before);
    host.Press(10, 10);
    host.Release(10, 10);
    host.Move(80, 80, MK_LBUTTON | MK_CONTROL);
    CHECK(host.Region() == before);
}

TEST_CASE("with DisplayFixed a Control drag and a Control wheel step leave the region alone")
{
    HostCanvas host(1, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    const CRect before = host.Region();
    gCVSSetCanvasMoveMode(1, DisplayFixed);
    host.Drag(CPoint(50, 50), CPoint(57, 39), MK_LBUTTON | MK_CONTROL);
    host.Wheel(10, 10, 120);
    CHECK(host.Region() == before);
    gCVSSetCanvasMoveMode(1, DisplayZoomCentre);
    host.Wheel(10, 10, 120);
    CHECK(host.Region() == CRect(38, 38, 62, 62));
    host.Wheel(10, 10, -120);
    CHECK(host.Region() == before);
}

TEST_CASE("in DisplayZoomCursor the image point under the cursor stays under it")
{
    HostCanvas host(1, 100, 100);
    REQUIRE(host.IsScaleOne());
    host.ShowFlatGray(20, 20, 0);
    host.Wheel(40, 60, 120);    // a corner of the image
    CHECK(host.Region() == CRect(40, 36, 64, 60));
    host.Wheel(40, 60, -120);
    CHECK(host.Region() == CRect(40, 40, 60, 60));
}

TEST_CASE("a wheel step without Control changes nothing")
{
    HostCanvas host(1, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    const CRect before = host.Region();
    host.Wheel(40, 60, 120, 0);
    host.Wheel(40, 60, -120, MK_SHIFT);
    CHECK(host.Region() == before);
    CHECK(host.IsScaleOne());
}

TEST_CASE("of a wheel step only the sign counts")
{
    HostCanvas host(1, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    host.Wheel(50, 50, 1);
    CHECK(host.Region() == CRect(38, 38, 62, 62));
    host.Wheel(50, 50, 0);
    CHECK(host.Region() == CRect(38, 38, 62, 62));
    host.Wheel(50, 50, -32768);
    CHECK(host.Region() == CRect(40, 40, 60, 60));
}

TEST_CASE("the client size is what gCVSSetClient last gave, by value")
{
    HostCanvas host(0, 60, 40);
    CRect      client(0, 0, 33, 22);
    gCVSSetClient(0, client, host.Window.Dc);
    CHECK(client == CRect(0, 0, 33, 22));
    client = CRect(0, 0, 1, 1);
    CHECK(gCVSGetClientWidth(0) == 33);
    CHECK(gCVSGetClientHeight(0) == 22);
}

TEST_CASE("the client size is right less left and bottom less top, also where that is nothing or negative")
{
    HostCanvas host(0, 60, 40);
    CRect      client(5, 7, 30, 20);
    gCVSSetClient(0, client, host.Window.Dc);
    CHECK(gCVSGetClientWidth(0) == 25);
    CHECK(gCVSGetClientHeight(0) == 13);
    client = CRect(0, 0, 0, 0);
    gCVSSetClient(0, client, host.Window.Dc);
    CHECK(gCVSGetClientWidth(0) == 0);
    CHECK(gCVSGetClientHeight(0) == 0);
    client = CRect(10, 10, 4, 3);
    gCVSSetClient(0, client, host.Window.Dc);
    CHECK(gCVSGetClientWidth(0) == -6);
    CHECK(gCVSGetClientHeight(0) == -7);
}

TEST_CASE("an image panned to a quarter of the width stays there when the window is resized")
{
    HostCanvas host(0, 200, 100);
    host.ShowFlatGray(20, 10, 0);
    host.Pan(50, -25);
    REQUIRE(host.Region() == CRect(140, 20, 160, 30));    // centre 100 + 50, 50 - 25
    host.Resize(400, 300);
    CHECK(host.Region() == CRect(290, 70, 310, 80));    // centre 200 + 100, 150 - 75
    host.Resize(200, 100);
    CHECK(host.Region() == CRect(140, 20, 160, 30));
}

TEST_CASE("a client area of no size keeps the place that the image had")
{
    HostCanvas host(0, 200, 100);
    host.ShowFlatGray(20, 10, 0);
    host.Pan(50, 0);
    host.SetClient(0, 0);
    host.Move(3, 3);    // would refresh the fractions
    host.SetClient(200, 100);
    CHECK(host.Region() == CRect(140, 45, 160, 55));
}

TEST_CASE("a new image of another size keeps centre and scale")
{
    ZoomedCanvas host;
    host.ShowFlatGray(10, 20, 0);
    CHECK(host.Region() == CRect(94, 88, 106, 112));
}

TEST_CASE("five canvases are apart from each other")
{
    HostCanvas first(0, 100, 100);
    HostCanvas second(2, 60, 40);
    first.ShowFlatGray(20, 20, 10);
    second.ShowFlatGray(6, 4, 200);
    second.Pan(3, 2);
    CHECK(first.Region() == CRect(40, 40, 60, 60));
    CHECK(gCVSGetCanvasWidth(0) == 20);
    CHECK(gCVSGetCanvasWidth(2) == 6);
    CHECK(gCVSGetClientWidth(0) == 100);
    CHECK(gCVSGetClientWidth(2) == 60);
    first.Paint();
    second.Paint();
    CHECK(first.Pixel(50, 50) == 0x0A0A0A);
}

TEST_CASE("a number that names no canvas reads as one without anything")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(4, 4, [](int x, int) { return x; });
    gCVSGenerateLabel(0, false);
    for (const int number : {-1, 5, INT_MIN, INT_MAX}) {
        CAPTURE(number);
        CHECK(gCVSGetCanvasRegion(number) == CRect(0, 0, 0, 0));
        CHECK(gCVSGetClientWidth(number) == 0);
        CHECK(gCVSGetClientHeight(number) == 0);
        CHECK(gCVSGetCanvasWidth(number) == 0);
        CHECK(gCVSGetCanvasHeight(number) == 0);
        CHECK(gCVSGetCanvasHDC(number) == nullptr);
        CHECK(gCVSGetClientMemDC(number) == nullptr);
        CHECK(gCVSGetCanvasPixelPtr(number) == nullptr);
        CHECK(gCVSGetClientPixelPtr(number) == nullptr);
        CHECK(gCVSCreateCanvasPixelPtr2D(number) == nullptr);
        CHECK(gCVSCreateClientPixelPtr2D(number) == nullptr);
        CHECK(gCVSReleaseCanvasPixelPtr2D(number));
        CHECK(gCVSReleaseClientPixelPtr2D(number));
        CHECK(gCVSGetFileType(number) == FileTypeNone);
        CHECK(gCVSGetImaPixelValue(number, CPoint(0, 0)) == -1.0f);
        CHECK(gCVSGetRawPtr1D(number) == nullptr);
        CHECK(gCVSGetRawPtr2D(number) == nullptr);
        CHECK(gCVSGetRawOriPtr1D(number) == nullptr);
        CHECK(gCVSGetRawOriPtr2D(number) == nullptr);
        CHECK(gCVSGetRaw(number).Ptr1D == nullptr);
        CHECK(gCVSGetRawOri(number).Ptr1D == nullptr);
        CHECK(gCVSGetLabelIma(number).Ptr1D == nullptr);
        CHECK(gCVSGetLabelImaPtr1D(number) == nullptr);
        CHECK(gCVSGetLabelImaPtr2D(number) == nullptr);
        CHECK(gCVSPrepareCanvas(number, 10, 10));
        CHECK(gCVSGetCanvasWidth(number) == 0);
    }
    CHECK(gCVSGetCanvasRegion(0) != CRect(0, 0, 0, 0));
    CHECK(gCVSGetRawPtr1D(0) != nullptr);
    CHECK(gCVSGetLabelImaPtr1D(0) != nullptr);
    CHECK(gCVSGetCanvasHDC(0) != nullptr);
    CHECK(gCVSGetClientMemDC(0) != nullptr);
}

TEST_CASE("what a host writes through the reference for no canvas is gone at the next call")
{
    gCVSGetRaw(9).Allocate(3, 3);
    CHECK(gCVSGetRawPtr1D(9) == nullptr);
    HostCanvas host(0, 10, 10);
    gCVSGetRaw(0).Allocate(3, 3);
    CHECK(gCVSGetRawPtr1D(0) != nullptr);
}
