// Every call of a canvas with hostile values and in any order: no crash, no hang, no memory touched that is
// not there. What may come out is the allocator's exception, for sizes that cannot be.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <climits>
#include <cmath>
#include <limits>
#include <new>
#include <random>

namespace {

constexpr int Numbers[] = {-1, 5, INT_MIN, INT_MAX};
constexpr int Sizes[] = {0, 1, 2, 7, 33, -1, -7, 100000, INT_MAX, INT_MIN, 46341, 65536};
constexpr int Coordinates[] = {0, 1, -1, 15, 30, 100, -100, 32767, -32768, 65535, 1 << 20, INT_MAX, INT_MIN};

// True if the call ran to its end, false if the allocator refused.
template <typename F>
bool Runs(F&& call)
{
    try {
        call();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}

TEST_CASE("no call on a number that names no canvas does anything")
{
    TestDesktop desktop;
    TempFolder  folder;
    for (const int n : Numbers) {
        CAPTURE(n);
        MemoryWindow                 window(20, 20);
        CRect                        client(0, 0, 20, 20);
        CPoint                       point(3, 3);
        PointTemplateBase<double>    imagePoint;
        double                       x = 0.0;
        double                       y = 0.0;
        ClassData2DIO<float>         raw;
        ClassData2DIO<unsigned char> gray;
        MSG                          message = {};
        FillPlane(raw, 3, 3, [](int, int) { return 1; });
        FillPlane(gray, 3, 3, [](int, int) { return 1; });
        window.Fill(0xABCDEF);
        gCVSSetClient(n, client, window.Dc);
        gCVSShowUCGray(n, gray, true);
        gCVSShowUCGray(n, gray.Ptr1D, 3, 3, true);
        gCVSShowUCGray(n, gray.Ptr1D, -3, -3, true);    // not even looked at
        gCVSShowUCColor(n, gray, gray, gray, true);
        gCVSShowUCColor(n, gray.Ptr1D, gray.Ptr1D, gray.Ptr1D, 3, 3, true);
        gCVSShowRawFloat(n, raw, true, true);
        gCVSShowRawFloat(n, raw.Ptr1D, 3, 3, true, true);
        gCVSOnDraw(n, window.Dc);
        gCVSOnLButtonDown(n, 9, point);
        gCVSOnMouseMove(n, 9, CPoint(9, 9));
        gCVSOnLButtonUp(n, 9, point);
        gCVSOnMouseWheel(n, 8, 1, point);
        gCVSOnKeyDown(n, 'C', 1, 1);
        gCVSOnTimer(n, 1);
        message.message = WM_MOUSEMOVE;
        CHECK(gCVSRespondToMessage(&message, n));
        gCVSSetCanvasMoveMode(n, DisplayFixed);
        gCVSSetCanvasColor(n, 1);
        gCVSSetCanvasFastDisplayMode(n, false);
        gCVSSetUseClientMemDCPixelDirect(n, true);
        gCVSShowContrastCtrl(n, true);
        gCVSSetContrastCtrlRectPos(n, 1, 1, 9, 9);
        gCVSShowProgress(n, true);
        gCVSSetProgressRectPos(n, 1, 1, 9, 9);
        gCVSSetRange(n, 1, 2);
        gCVSSetPos(n, 3);
        gCVSDelAllElement(n);
        gCVSDelSelElement(n);
        gCVSSetLutPara(n, 0.0f, 0.5f);
        gCVSSetFileType(n, FileTypeRaw);
        gCVSGetOriPt(n, point, imagePoint);
        gCVSGetOriPt(n, point, x, y);
        gCVSGetDisplayPt(n, imagePoint, point);
        gCVSGetDisplayPt(n, x, y, point);
        CString path = folder.WidePath("none.png");
        CHECK(gCVSReadFile(n, path, true));
        CHECK(gCVSGetFileType(n) == FileTypeNone);
        CHECK(gCVSGetClientWidth(n) == 0);
        CHECK(gCVSGetCanvasWidth(n) == 0);
        CHECK(FrameDifference(window.Capture(), Frame(20, 20, 0xABCDEF)) == "");
    }
    CHECK(desktop.Messages.empty());
    CHECK(desktop.Invalidated.empty());
    HostCanvas host(0, 20, 20);
    host.ShowFlatGray(3, 3, 1);
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    CHECK(gCVSGetClientWidth(0) == 20);
}

TEST_CASE("a canvas without a context takes images, events and paints")
{
    HostCanvas host(0, 20, 20);
    CRect      client(0, 0, 20, 20);
    gCVSSetClient(0, client, nullptr);
    host.ShowFlatGray(30, 30, 0x42);
    host.Paint();
    CHECK(FrameDifference(host.ClientSurface(), Frame(20, 20, 0x424242)) == "");
    host.Press(1, 1, 9);
    host.Move(2, 2, 9);
    host.Release(2, 2, 9);
    CHECK(host.Region() == CRect(-4, -4, 26, 26));
    host.SetClient(20, 20);
    host.Paint();
    CHECK(host.Pixel(5, 5) == 0x424242);
}

TEST_CASE("client areas of any shape are taken, and the next good one works")
{
    HostCanvas host(0, 20, 20);
    host.ShowFlatGray(30, 30, 0x42);
    for (const int w : Sizes) {
        for (const int h : Sizes) {
            if ((w == 46341 || w == 65536 || w == 100000) && h > 1000)
                continue;    // could be made, at gigabytes
            if ((h == 46341 || h == 65536 || h == 100000) && w > 1000)
                continue;
            CAPTURE(w);
            CAPTURE(h);
            CRect client(0, 0, w, h);
            CHECK(Runs([&] { gCVSSetClient(0, client, host.Window.Dc); }));
            CHECK(Runs([&] { host.Paint(); }));
            CHECK(Runs([&] { gCVSCreateClientPixelPtr2D(0); }));
            host.Move(5, 5, 8);
            CHECK(gCVSReleaseClientPixelPtr2D(0));
        }
    }
    for (const CRect& shape :
         {CRect(10, 10, 0, 0), CRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX),
          CRect(INT_MAX, INT_MAX, INT_MIN, INT_MIN), CRect(-50, -50, -10, -10),
          CRect(INT_MAX - 10, INT_MAX - 10, INT_MAX, INT_MAX), CRect(INT_MIN, 0, INT_MIN + 9, 9)}) {
        CRect client = shape;
        CHECK(Runs([&] { gCVSSetClient(0, client, host.Window.Dc); }));
        CHECK(Runs([&] { host.Paint(); }));
        CHECK(Runs([&] { gCVSCreateClientPixelPtr2D(0); }));
        host.Move(5, 5, 8);
        host.Wheel(5, 5, 0);
        gCVSReleaseClientPixelPtr2D(0);
    }
    host.SetClient(20, 20);
    host.Paint();
    CHECK(FrameDifference(host.ClientSurface(), FrameOfSurface(gCVSGetClientPixelPtr(0), 20, 20)) == "");
    CHECK(gCVSGetClientWidth(0) == 20);
}

TEST_CASE("canvases of any size are prepared or stay without pixels")
{
    HostCanvas host(0, 20, 20);
    for (const int w : Sizes) {
        for (const int h : Sizes) {
            const long long pixels = static_cast<long long>(w) * h;
            if (w > 0 && h > 0 && pixels > (1 << 22) && pixels <= INT_MAX)
                continue;    // could be made, at gigabytes
            CAPTURE(w);
            CAPTURE(h);
            CHECK(gCVSPrepareCanvas(0, w, h));
            CHECK(gCVSGetCanvasWidth(0) == w);
            CHECK(gCVSGetCanvasHeight(0) == h);
            CHECK((gCVSGetCanvasPixelPtr(0) != nullptr) == (w > 0 && h > 0 && pixels <= (1 << 22)));
            host.Paint();
            gCVSSetCanvasColor(0, 0x112233);
            gCVSCreateCanvasPixelPtr2D(0);
            gCVSReleaseCanvasPixelPtr2D(0);
            gCVSGetImaPixelValue(0, CPoint(5, 5));
            gCVSGetImaPixelValue(0, CPoint(INT_MAX, INT_MIN));
            for (const FileType type : {FileTypeByte, FileTypeRawPlain, FileTypeRaw}) {
                gCVSSetFileType(0, type);
                gCVSGetImaPixelValue(0, CPoint(5, 5));
                Runs([&] { gCVSSetLutPara(0, 0.0f, 0.5f); });
            }
        }
    }
    Runs([&] { gCVSGenerateLabel(0, false); });
    CHECK(gCVSPrepareCanvas(0, 4, 4));
    CHECK(gCVSGenerateLabel(0, false) == 1);
    CHECK(gCVSGetLabelIma(0).Width == 4);
}

TEST_CASE("labels of a size that cannot be are the allocator's affair")
{
    HostCanvas host(0, 20, 20);
    gCVSPrepareCanvas(0, -3, -3);
    CHECK_FALSE(Runs([&] { gCVSGenerateLabel(0, false); }));
    gCVSPrepareCanvas(0, 100000, 100000);
    CHECK_FALSE(Runs([&] { gCVSGenerateLabel(0, false); }));
    gCVSPrepareCanvas(0, 0, INT_MAX);    // no pixels, but a row table of 16 gigabytes
    CHECK_FALSE(Runs([&] { gCVSGenerateLabel(0, false); }));
    gCVSPrepareCanvas(0, 3, 3);
    CHECK(Runs([&] { gCVSGenerateLabel(0, false); }));
    CHECK(gCVSGetLabelIma(0).Height == 3);
}

TEST_CASE("buffers that are not there and heights below 0 show nothing")
{
    HostCanvas    host(0, 20, 20);
    unsigned char byte = 7;
    float         value = 7.0f;
    for (const int w : Sizes) {
        for (const int h : Sizes) {
            const long long pixels = static_cast<long long>(w) * h;
            if (w > 0 && h > 0 && pixels > (1 << 22) && pixels <= INT_MAX)
                continue;
            CAPTURE(w);
            CAPTURE(h);
            if (h < 0) {
                CHECK_FALSE(Runs([&] { gCVSShowUCGray(0, &byte, w, h, true); }));
                CHECK_FALSE(Runs([&] { gCVSShowUCColor(0, &byte, &byte, &byte, w, h, true); }));
                CHECK_FALSE(Runs([&] { gCVSShowRawFloat(0, &value, w, h, true, true); }));
                continue;
            }
            CHECK(Runs([&] { gCVSShowUCGray(0, nullptr, w, h, true); }));
            host.Paint();
            CHECK(Runs([&] { gCVSShowUCColor(0, nullptr, nullptr, nullptr, w, h, true); }));
            host.Paint();
            Runs([&] { gCVSShowRawFloat(0, nullptr, w, h, true, true); });
            host.Paint();
        }
    }
    gCVSShowUCColor(0, &byte, nullptr, nullptr, 1, 1, true);
    CHECK(FrameDifference(host.Surface(), Frame(1, 1, 0x070000)) == "");
    gCVSShowUCGray(0, nullptr, 2, 2, true);
    CHECK(FrameDifference(host.Surface(), Frame(2, 2, 0)) == "");
    gCVSShowRawFloat(0, nullptr, 2, 2, true, true);
    CHECK(gCVSGetRaw(0).Ptr2D[1][1] == 0.0f);
    gCVSShowUCGray(0, &byte, 1, 1, true);
    CHECK(FrameDifference(host.Surface(), Frame(1, 1, 0x070707)) == "");
}

TEST_CASE("containers that were never allocated, or released, show no pixels")
{
    HostCanvas                   host(0, 20, 20);
    ClassData2DIO<unsigned char> gray;
    ClassData2DIO<float>         raw;
    gCVSShowUCGray(0, gray, true);
    CHECK(gCVSGetCanvasWidth(0) == 0);
    gCVSShowRawFloat(0, raw, true, true);
    CHECK(gCVSGetCanvasWidth(0) == 0);
    gray.Release();
    raw.Release();
    gCVSShowUCGray(0, gray, true);
    CHECK(gCVSGetCanvasWidth(0) == -1);
    gCVSShowUCColor(0, gray, gray, gray, true);
    CHECK_FALSE(Runs([&] { gCVSShowRawFloat(0, raw, true, true); }));    // an array of -1 x -1
    host.Paint();
    CHECK(gCVSGetImaPixelValue(0, CPoint(1, 1)) == -1.0f);
    host.ShowFloat(2, 2, [](int x, int) { return x; });
    CHECK(gCVSGetImaPixelValue(0, CPoint(0, 0)) == 0.0f);
}

TEST_CASE("events at the ends of the integers are taken")
{
    HostCanvas host(4, 400, 100);
    host.ShowFloat(30, 30, [](int x, int y) { return x * y; });
    gCVSShowContrastCtrl(4, true);
    gCVSShowProgress(4, true);
    for (const int x : Coordinates) {
        for (const int y : Coordinates) {
            gCVSSetContrastCtrlRectPos(4, x, y, y, x);
            gCVSSetProgressRectPos(4, y, x, x, y);
            gCVSSetRange(4, x, y);
            gCVSSetPos(4, y);
            for (const unsigned int flags : {0u, 1u, 4u, 8u, 9u, 0xFFFFFFFFu}) {
                host.Press(x, y, flags);
                host.Move(y, x, flags);
                host.Release(x, x, flags);
            }
            double image = 0.0;
            gCVSGetOriPt(4, CPoint(x, y), image, image);
            gCVSGetImaPixelValue(4, CPoint(x, y));
            CPoint point;
            gCVSGetDisplayPt(4, x * 1e300, y * 1e300, point);
            gCVSGetDisplayPt(4, std::nan(""), std::numeric_limits<double>::infinity(), point);
            CHECK(point == CPoint(INT_MIN, INT_MIN));
            host.Paint();
        }
    }
    gCVSOnTimer(4, ~0ull);
    gCVSOnKeyDown(4, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF);
    gCVSSetCanvasMoveMode(4, static_cast<DisplayMode>(77));
    host.Wheel(3, 3, -32768);
    gCVSSetFileType(4, static_cast<FileType>(-5));
    CHECK(gCVSGetFileType(4) == static_cast<FileType>(-5));
    CHECK(gCVSGetImaPixelValue(4, CPoint(3, 3)) == -1.0f);
}

TEST_CASE("zooming out as far as it goes and painting ends and harms nothing")
{
    HostCanvas host(4, 50, 40);
    host.ShowFlatGray(20, 20, 0x42);
    for (int step = 0; step < 300; ++step) {
        host.Wheel(10, 10, -1);
        host.Paint();
    }
    CHECK(host.Region().right - host.Region().left <= 5);
}

TEST_CASE("zooming in without a paint goes beyond every number and harms nothing")
{
    // The scale of canvas 4 cannot be brought back from here.
    HostCanvas host(4, 50, 40);
    host.ShowGray(20, 20, [](int x, int y) { return x * y; });
    for (const bool fast : {true, false}) {
        gCVSSetCanvasFastDisplayMode(4, fast);
        for (int step = 0; step < 2200; ++step) {
            host.Wheel(step % 60, step % 47, 1);
            if (step % 40 == 0) {
                host.SetClient(50, 40);    // forgets what the last paint showed
                host.Paint();
                host.SetClient(50, 40);
            }
            double x = 0.0;
            double y = 0.0;
            CPoint point;
            gCVSGetOriPt(4, CPoint(step, -step), x, y);
            gCVSGetDisplayPt(4, 1e9, -1e9, point);
            gCVSGetImaPixelValue(4, CPoint(step, step));
        }
        for (int step = 0; step < 100; ++step) {
            host.Wheel(5, 5, -1);
            host.Paint();
        }
        host.Pan(INT_MAX, INT_MIN);
        host.Paint();
    }
    HostCanvas other(0, 50, 40);
    CHECK(other.IsScaleOne());    // the others are apart
}
