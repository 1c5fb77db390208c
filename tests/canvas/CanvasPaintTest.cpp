// What gCVSOnDraw puts on the window. The expected frame is drawn by this file step by step, each layer in
// full and over the one before, with the platform's own drawing calls.

#include "support/HostCanvas.h"

#include <cmath>
#include <random>

namespace {

constexpr COLORREF BackgroundColor = 0x998877;
constexpr COLORREF DeskLine = 0x808080;

void SelectDrawDelete(HDC dc, HGDIOBJ pen, HGDIOBJ brush, const CRect& r)
{
    const HGDIOBJ penBefore = SelectObject(dc, pen);
    const HGDIOBJ brushBefore = SelectObject(dc, brush);
    Rectangle(dc, r.left, r.top, r.right, r.bottom);
    SelectObject(dc, penBefore);
    SelectObject(dc, brushBefore);
}

void DrawDesk(HDC dc, const CRect& client)
{
    const HPEN   pen = CreatePen(PS_SOLID, 1, DeskLine);
    const HBRUSH background = CreateSolidBrush(BackgroundColor);
    const HBRUSH hatch = CreateHatchBrush(HS_DIAGCROSS, DeskLine);
    SetBkMode(dc, TRANSPARENT);
    SelectDrawDelete(dc, pen, background, client);
    SelectDrawDelete(dc, pen, hatch, client);
    DeleteObject(pen);
    DeleteObject(background);
    DeleteObject(hatch);
}

void DrawImageOutline(HDC dc, const CRect& region)
{
    const HPEN pen = CreatePen(PS_SOLID, 1, 0xFF0000);
    SelectDrawDelete(dc, pen, GetStockObject(NULL_BRUSH), region);
    DeleteObject(pen);
}

struct Edge {
    int Source;
    int Target;
};

Edge LowEdge(int clientLow, int regionLow, int extent, int size)
{
    const float f = static_cast<float>(clientLow - regionLow) / static_cast<float>(extent);
    return f < 0.0f ? Edge{0, regionLow} : Edge{static_cast<int>(static_cast<float>(size) * f), 0};
}

Edge HighEdge(int clientHigh, int regionHigh, int extent, int size)
{
    const float f = static_cast<float>(clientHigh - regionHigh) / static_cast<float>(extent);
    if (f < 0.0f)
        return {static_cast<int>((1.0 - static_cast<double>(std::fabs(f))) * size), clientHigh};
    return {size, regionHigh};
}

void DrawImage(HDC dc, int canvas, bool fast, const CRect& client)
{
    const CRect region = gCVSGetCanvasRegion(canvas);
    const int   width = gCVSGetCanvasWidth(canvas);
    const int   height = gCVSGetCanvasHeight(canvas);
    const int   dw = region.right - region.left;
    const int   dh = region.bottom - region.top;
    SetStretchBltMode(dc, fast ? COLORONCOLOR : HALFTONE);
    if (dw <= 0 || dh <= 0)
        return;
    if (!fast) {
        StretchBlt(dc, region.left, region.top, dw, dh, gCVSGetCanvasHDC(canvas), 0, 0, width, height,
                   SRCCOPY);
        return;
    }
    const Edge left = LowEdge(client.left, region.left, dw, width);
    const Edge right = HighEdge(client.right, region.right, dw, width);
    const Edge top = LowEdge(client.top, region.top, dh, height);
    const Edge bottom = HighEdge(client.bottom, region.bottom, dh, height);
    StretchBlt(dc, left.Target, top.Target, right.Target - left.Target, bottom.Target - top.Target,
               gCVSGetCanvasHDC(canvas), left.Source, top.Source, right.Source - left.Source,
               bottom.Source - top.Source, SRCCOPY);
}

// Background, outline and image.
Frame ExpectedFrame(const HostCanvas& host, bool fast = true)
{
    const CRect  client(0, 0, gCVSGetClientWidth(host.Number), gCVSGetClientHeight(host.Number));
    MemoryWindow window(client.right, client.bottom);
    DrawDesk(window.Dc, client);
    DrawImageOutline(window.Dc, host.Region());
    DrawImage(window.Dc, host.Number, fast, client);
    return window.Capture();
}

}

TEST_CASE("a canvas without an image paints the hatched background with a gray rim")
{
    HostCanvas  host(0, 40, 24);
    const Frame frame = host.PaintAndCapture();
    CHECK(FrameDifference(frame, ExpectedFrame(host)) == "");
    for (int x = 0; x < 40; ++x) {
        CHECK(frame.At(x, 0) == 0x808080);
        CHECK(frame.At(x, 23) == 0x808080);
    }
    int background = 0;
    for (const unsigned int pixel : frame.Pixels) {
        if (pixel == 0x778899)
            ++background;
        else if (pixel != 0x808080)
            FAIL_CHECK("a pixel of " << pixel << " on the background");
    }
    CHECK(background > 40 * 24 / 2);
}

TEST_CASE("the image lies over the background and its outline, row 0 at the top")
{
    HostCanvas host(0, 60, 40);
    host.ShowGray(20, 10, Noise);
    Frame expected = ExpectedFrame(host);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x)
            expected.At(20 + x, 15 + y) = 0x010101u * static_cast<unsigned int>(Noise(x, y));
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
}

TEST_CASE("a frame equals its layers drawn one over the other at every place of the image")
{
    HostCanvas host(0, 61, 43);
    host.ShowGray(31, 17, Noise);
    for (const bool fast : {true, false}) {
        gCVSSetCanvasFastDisplayMode(0, fast);
        for (int dx = -50; dx <= 50; dx += 10) {
            for (int dy = -40; dy <= 40; dy += 8) {
                host.Pan(dx, dy);
                const std::string difference =
                    FrameDifference(host.PaintAndCapture(), ExpectedFrame(host, fast));
                if (!difference.empty())
                    FAIL_CHECK("fast " << fast << " pan " << dx << ", " << dy << ": " << difference);
                host.Pan(-dx, -dy);
            }
        }
    }
}

TEST_CASE("a frame equals its layers at random zooms and pans in both modes")
{
    HostCanvas host(4, 90, 70);
    for (unsigned int seed = 1; seed <= 4; ++seed) {
        std::mt19937 random(seed);
        const bool   fast = seed % 2 == 0;
        gCVSSetCanvasFastDisplayMode(4, fast);
        for (int step = 0; step < 120; ++step) {
            if (step % 30 == 0) {
                host.ShowGray(1 + static_cast<int>(random() % 120), 1 + static_cast<int>(random() % 90),
                              Noise);
            } else if (step % 2 == 0) {
                host.Wheel(static_cast<int>(random() % 120) - 15, static_cast<int>(random() % 100) - 15,
                           random() % 2 == 0 ? 1 : -1);
            } else {
                host.Pan(static_cast<int>(random() % 81) - 40, static_cast<int>(random() % 61) - 30);
            }
            const std::string difference = FrameDifference(host.PaintAndCapture(), ExpectedFrame(host, fast));
            if (!difference.empty()) {
                FAIL("seed " << seed << " step " << step << " region " << host.Region().left << ", "
                             << host.Region().top << ", " << host.Region().right << ", "
                             << host.Region().bottom << ": " << difference);
            }
        }
    }
    host.ZoomBack();
}

TEST_CASE("fast display shows pixels of the image only, quality display mixes them when zoomed out")
{
    HostCanvas host(1, 100, 100);
    REQUIRE(host.IsScaleOne());
    host.ShowGray(90, 90, [](int x, int y) { return (x + y) % 2 != 0 ? 255 : 0; });
    for (int step = 0; step < 4; ++step)
        host.Wheel(50, 50, -1);
    int mixed[2] = {0, 0};
    for (const bool fast : {false, true}) {
        gCVSSetCanvasFastDisplayMode(1, fast);
        host.Paint();
        const CRect region = host.Region();
        for (int y = region.top; y < region.bottom; ++y)
            for (int x = region.left; x < region.right; ++x)
                mixed[fast ? 1 : 0] += host.Pixel(x, y) != 0 && host.Pixel(x, y) != 0xFFFFFF ? 1 : 0;
    }
    CHECK(mixed[1] == 0);
    CHECK(mixed[0] > 500);
    for (int step = 0; step < 4; ++step)
        host.Wheel(50, 50, 1);
}

TEST_CASE("a surface that cannot be made leaves the image's blue outline on the background")
{
    HostCanvas host(0, 60, 40);
    gCVSPrepareCanvas(0, 20, 10);
    const Frame without = host.PaintAndCapture();
    REQUIRE(without.At(20, 15) == 0x000000);
    gCVSPrepareCanvas(0, 0, 0);
    Frame expected = ExpectedFrame(host);
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
    // An image of no rows has a region of no rows, and an outline only has pixels where it has both.
    gCVSPrepareCanvas(0, 20, 0);
    CHECK(FrameDifference(host.PaintAndCapture(), ExpectedFrame(host)) == "");
}

TEST_CASE("gCVSOnDraw paints into the context of gCVSSetClient, whatever context it gets")
{
    HostCanvas   host(0, 20, 20);
    MemoryWindow other(20, 20);
    host.ShowFlatGray(20, 20, 0x42);
    host.Window.Fill(0xABCDEF);
    other.Fill(0xABCDEF);
    gCVSOnDraw(0, other.Dc);
    CHECK(FrameDifference(host.Window.Capture(), Frame(20, 20, 0x424242)) == "");
    CHECK(FrameDifference(other.Capture(), Frame(20, 20, 0xABCDEF)) == "");
}

TEST_CASE("a paint covers the client area and nothing beside it")
{
    HostCanvas host(0, 30, 20);
    host.SetClient(20, 12);
    host.ShowFlatGray(100, 100, 0x42);
    host.Window.Fill(0xABCDEF);
    Frame expected(30, 20, 0xABCDEF);
    expected.FillRect(0, 0, 20, 12, 0x424242);
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
}

TEST_CASE("a client area that does not start at the origin still paints from the window's origin on")
{
    HostCanvas host(0, 30, 20);
    CRect      client(4, 3, 24, 15);
    gCVSSetClient(0, client, host.Window.Dc);
    host.Window.Fill(0xABCDEF);
    host.Paint();
    CHECK(host.Pixel(20, 12) == 0xABCDEF);
    CHECK(host.Pixel(29, 19) == 0xABCDEF);
    CHECK(host.Pixel(19, 11) != 0xABCDEF);
}

TEST_CASE("painting with UseDirect shows the client surface as the host wrote it")
{
    HostCanvas host(0, 20, 10);
    host.ShowFlatGray(20, 10, 0x42);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 20, 10);
    host.Paint();
    gCVSSetUseClientMemDCPixelDirect(0, true);
    unsigned int* pixels = gCVSGetClientPixelPtr(0);
    REQUIRE(pixels != nullptr);
    Frame expected(20, 10);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 20; ++x) {
            pixels[20 * (9 - y) + x] = static_cast<unsigned int>(x << 8 | y);
            expected.At(x, y) = static_cast<unsigned int>(x << 8 | y);
        }
    }
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
    CHECK(FrameDifference(host.ClientSurface(), expected) == "");
    gCVSSetUseClientMemDCPixelDirect(0, false);
    CHECK(FrameDifference(host.PaintAndCapture(), expected) != "");
}

TEST_CASE("a host draws into the client surface through its context")
{
    HostCanvas host(0, 20, 10);
    host.ShowFlatGray(20, 10, 0x42);
    host.Paint();
    gCVSSetUseClientMemDCPixelDirect(0, true);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    const CRect  corner(0, 0, 3, 2);
    FillRect(gCVSGetClientMemDC(0), &corner, brush);
    DeleteObject(brush);
    Frame expected(20, 10, 0x424242);
    expected.FillRect(0, 0, 3, 2, 0x010203);
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
}

TEST_CASE("a new client surface is black until it is painted")
{
    HostCanvas host(0, 20, 10);
    host.ShowFlatGray(20, 10, 0x42);
    host.Paint();
    host.SetClient(20, 10);
    CHECK(FrameDifference(host.ClientSurface(), Frame(20, 10, 0)) == "");
    host.Paint();
    CHECK(FrameDifference(host.ClientSurface(), Frame(20, 10, 0x424242)) == "");
}

TEST_CASE("the slider lies over the image and the progress bar over the slider")
{
    HostCanvas host(0, 100, 60);
    host.ShowFlatGray(200, 200, 0x42);
    gCVSSetContrastCtrlRectPos(0, 10, 5, 80, 20);
    gCVSSetProgressRectPos(0, 30, 10, 40, 30);
    gCVSSetRange(0, 0, 10);
    gCVSSetPos(0, 5);

    CHECK(FrameDifference(host.PaintAndCapture(), Frame(100, 60, 0x424242)) == "");    // both hidden

    gCVSShowContrastCtrl(0, true);
    const Frame slider = host.PaintAndCapture();
    CHECK(slider.At(10, 53) == 0xB4B4B4);    // left 10; rows 34 to 53
    CHECK(slider.At(89, 34) == 0xB4B4B4);
    CHECK(slider.At(9, 53) == 0x424242);
    CHECK(slider.At(90, 53) == 0x424242);
    CHECK(slider.At(10, 54) == 0x424242);
    CHECK(slider.At(10, 33) == 0x424242);

    gCVSShowProgress(0, true);
    Frame expected = slider;
    expected.FillRect(30, 19, 70, 49, 0xB4B4B4);
    expected.FillRect(33, 22, 50, 46, 0x646464);    // half of 34 px
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
    gCVSShowContrastCtrl(0, false);
    expected = Frame(100, 60, 0x424242);
    expected.FillRect(30, 19, 70, 49, 0xB4B4B4);
    expected.FillRect(33, 22, 50, 46, 0x646464);
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
}

TEST_CASE("the controls keep their distance from the bottom when the window grows")
{
    HostCanvas host(0, 100, 60);
    gCVSShowProgress(0, true);
    gCVSSetProgressRectPos(0, 10, 5, 20, 10);
    host.ShowFlatGray(500, 500, 0x42);
    host.Paint();
    REQUIRE(host.Pixel(10, 44) == 0xB4B4B4);
    REQUIRE(host.Pixel(10, 43) == 0x424242);
    host.Resize(100, 90);
    host.Paint();
    CHECK(host.Pixel(10, 44) == 0x424242);
    CHECK(host.Pixel(10, 74) == 0xB4B4B4);
    CHECK(host.Pixel(10, 83) == 0xB4B4B4);
    CHECK(host.Pixel(10, 84) == 0x424242);
}

TEST_CASE("painting twice gives the same frame")
{
    HostCanvas host(0, 70, 50);
    host.ShowGray(40, 30, Noise);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 2, 2, 60, 20);
    const Frame first = host.PaintAndCapture();
    host.Window.Fill(0xABCDEF);
    CHECK(FrameDifference(host.PaintAndCapture(), first) == "");
}
