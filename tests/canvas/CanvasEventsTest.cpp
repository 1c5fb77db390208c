// Events, messages, surfaces and controls as a host reaches them. What needs overlay objects stands in
// ElementRoutingTest, what a frame looks like in CanvasPaintTest.

#include "support/HostCanvas.h"

namespace {

constexpr UINT MouseMessage = 0x200;
constexpr UINT DownMessage = 0x201;
constexpr UINT UpMessage = 0x202;
constexpr UINT WheelMessage = 0x20A;
constexpr UINT KeyMessage = 0x100;

HWND SomeWindow()
{
    static int window = 0;
    return reinterpret_cast<HWND>(&window);
}

MSG Message(UINT message, unsigned long long wParam, unsigned long long lParam)
{
    MSG m = {};
    m.hwnd = SomeWindow();
    m.message = message;
    m.wParam = static_cast<WPARAM>(wParam);
    m.lParam = static_cast<LPARAM>(lParam);
    return m;
}

bool Send(int canvas, UINT message, unsigned long long wParam, unsigned long long lParam)
{
    MSG m = Message(message, wParam, lParam);
    return gCVSRespondToMessage(&m, canvas);
}

unsigned long long Words(int low, int high)
{
    return (static_cast<unsigned long long>(low) & 0xFFFF) | (static_cast<unsigned long long>(high) & 0xFFFF)
                                                                 << 16;
}

}

TEST_CASE("a left press, a move and a release taken from messages pan as the calls do")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    CHECK(Send(0, DownMessage, MK_LBUTTON | MK_CONTROL, Words(10, 20)));
    CHECK(Send(0, MouseMessage, MK_LBUTTON | MK_CONTROL, Words(13, 25)));
    CHECK(host.Region() == CRect(43, 45, 63, 65));
    CHECK(Send(0, UpMessage, MK_CONTROL, Words(13, 25)));
    CHECK(Send(0, MouseMessage, MK_CONTROL, Words(50, 50)));
    CHECK(host.Region() == CRect(43, 45, 63, 65));
}

TEST_CASE("each mouse and wheel message invalidates its own window once, a key message none")
{
    HostCanvas host(0, 100, 100);
    for (const UINT message : {DownMessage, MouseMessage, UpMessage, WheelMessage}) {
        host.Desktop.Invalidated.clear();
        Send(0, message, 0, Words(5, 5));
        CAPTURE(message);
        REQUIRE(host.Desktop.Invalidated.size() == 1);
        CHECK(host.Desktop.Invalidated[0] == SomeWindow());
    }
    host.Desktop.Invalidated.clear();
    CHECK(Send(0, KeyMessage, 'Z', 1));
    CHECK(host.Desktop.Invalidated.empty());
}

TEST_CASE("the event calls invalidate nothing")
{
    HostCanvas host(0, 100, 100);
    host.Press(1, 1);
    host.Move(2, 2);
    host.Release(2, 2);
    host.Wheel(2, 2, 1);
    host.Wheel(2, 2, -1);
    host.Paint();
    CHECK(host.Desktop.Invalidated.empty());
}

TEST_CASE("a captured mouse left of or above the client area arrives as a large positive point")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    Send(0, DownMessage, MK_LBUTTON | MK_CONTROL, Words(10, 10));
    Send(0, MouseMessage, MK_LBUTTON | MK_CONTROL, Words(-1, -3));
    CHECK(host.Region() == CRect(40 + 65525, 40 + 65523, 60 + 65525, 60 + 65523));
    Send(0, UpMessage, 0, Words(10, 10));
    // The press is taken in the same way.
    Send(0, DownMessage, MK_LBUTTON | MK_CONTROL, Words(-1, -3));
    Send(0, MouseMessage, MK_LBUTTON | MK_CONTROL, Words(10, 10));
    CHECK(host.Region() == CRect(40, 40, 60, 60));
}

TEST_CASE("bits of a message above its low 32 count for nothing in a point")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    Send(0, DownMessage, MK_LBUTTON | MK_CONTROL, Words(10, 10) | 0xFFFFFFFF00000000ull);
    Send(0, MouseMessage, MK_LBUTTON | MK_CONTROL, Words(11, 12) | 0x1234567800000000ull);
    CHECK(host.Region() == CRect(41, 42, 61, 62));
}

TEST_CASE("the flags of a message are its low 16 bits")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    Send(0, DownMessage, MK_LBUTTON, Words(10, 10));
    Send(0, MouseMessage, 0x80000ull | MK_LBUTTON, Words(60, 60));    // 8 is Control in the low half only
    CHECK(host.Region() == CRect(40, 40, 60, 60));
    Send(0, MouseMessage, 0xFFFF0000ull | MK_CONTROL, Words(11, 10));
    CHECK(host.Region() == CRect(41, 40, 61, 60));
}

TEST_CASE("a wheel message zooms about the signed screen point, taken into the message's window")
{
    HostCanvas host(1, 100, 100);
    REQUIRE(host.IsScaleOne());
    host.ShowFlatGray(20, 20, 0);
    host.Desktop.WindowOrigin = CPoint(-70, -1060);
    // Screen (-30, -1000) is client (40, 60), the image's lower left corner.
    CHECK(Send(1, WheelMessage, Words(MK_CONTROL, 120), Words(-30, -1000)));
    CHECK(host.Region() == CRect(40, 36, 64, 60));
    REQUIRE(host.Desktop.Asked.size() == 1);
    CHECK(host.Desktop.Asked[0] == SomeWindow());
    CHECK(Send(1, WheelMessage, Words(MK_CONTROL, -120), Words(-30, -1000)));
    CHECK(host.Region() == CRect(40, 40, 60, 60));
}

TEST_CASE("the wheel's step is the signed upper half of the low 32 bits")
{
    HostCanvas host(1, 100, 100);
    host.ShowFlatGray(20, 20, 0);
    Send(1, WheelMessage, Words(MK_CONTROL, 0x7FFF) | 0xFFFF00000000ull, Words(50, 50));
    CHECK(host.Region() == CRect(38, 38, 62, 62));
    Send(1, WheelMessage, Words(MK_CONTROL, 0x8000), Words(50, 50));
    CHECK(host.Region() == CRect(40, 40, 60, 60));
    Send(1, WheelMessage, Words(0, 120), Words(50, 50));    // no Control
    CHECK(host.Region() == CRect(40, 40, 60, 60));
}

TEST_CASE("only a wheel message asks where the window lies")
{
    HostCanvas host(0, 100, 100);
    Send(0, DownMessage, 0, Words(1, 1));
    Send(0, MouseMessage, 0, Words(1, 1));
    Send(0, UpMessage, 0, Words(1, 1));
    Send(0, KeyMessage, 'Z', 0);
    CHECK(host.Desktop.Asked.empty());
    Send(0, WheelMessage, 0, Words(1, 1));
    CHECK(host.Desktop.Asked.size() == 1);
}

TEST_CASE("the key of a message is the low 32 bits")
{
    HostCanvas host(0, 100, 100);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 10, 10);
    const Frame before = host.PaintAndCapture();
    Send(0, KeyMessage, 0x10058, 1);    // X in the low 16 bits only
    CHECK(FrameDifference(host.PaintAndCapture(), before) == "");
    Send(0, KeyMessage, 0x100000058, 1);    // X recalls the slider to 20, 20
    host.Paint();
    CHECK(host.Pixel(20, 100 - 20 - 1 - 1) == 0xB4B4B4);
    CHECK(host.Pixel(19, 100 - 20 - 1 - 1) != 0xB4B4B4);
}

TEST_CASE("every other message returns true and does nothing")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 7);
    const CRect before = host.Region();
    const Frame frame = host.PaintAndCapture();
    for (UINT message = 0; message < 0x500; ++message) {
        if (message == KeyMessage || message == MouseMessage || message == DownMessage ||
            message == UpMessage || message == WheelMessage)
            continue;
        if (!Send(0, message, Words(MK_LBUTTON | MK_CONTROL, 120), Words(30, 30)))
            FAIL("message " << message << " returns false");
    }
    host.Move(50, 50, MK_CONTROL);    // would pan after a press
    CHECK(host.Region() == before);
    CHECK(host.Desktop.Invalidated.empty());
    CHECK(FrameDifference(host.PaintAndCapture(), frame) == "");
}

TEST_CASE("no message and no canvas return true and do nothing")
{
    HostCanvas host(0, 100, 100);
    CHECK(gCVSRespondToMessage(nullptr, 0));
    CHECK(Send(-1, DownMessage, MK_LBUTTON, Words(1, 1)));
    CHECK(Send(5, WheelMessage, MK_CONTROL, Words(1, 1)));
    CHECK(host.Desktop.Invalidated.empty());
    CHECK(host.Desktop.Asked.empty());
    CHECK(Send(0, DownMessage, MK_LBUTTON, Words(1, 1)));
    CHECK(host.Desktop.Invalidated.size() == 1);
}

TEST_CASE("gCVSPrepareCanvas gives a black surface of the size and leaves centre and file type")
{
    HostCanvas host(0, 100, 100);
    host.ShowFlatGray(20, 20, 7);
    host.Pan(10, 0);
    CHECK(gCVSPrepareCanvas(0, 20, 20));    // the same size: nothing of the old picture shows through
    CHECK(FrameDifference(host.Surface(), Frame(20, 20, 0)) == "");
    CHECK(gCVSPrepareCanvas(0, 6, 8));
    CHECK(gCVSGetCanvasWidth(0) == 6);
    CHECK(gCVSGetCanvasHeight(0) == 8);
    CHECK(FrameDifference(host.Surface(), Frame(6, 8, 0)) == "");
    CHECK(host.Region() == CRect(57, 46, 63, 54));
    CHECK(gCVSGetFileType(0) == FileTypeByte);
}

TEST_CASE("gCVSSetCanvasColor stores its value as it is in every pixel")
{
    HostCanvas host(0, 100, 100);
    gCVSPrepareCanvas(0, 5, 3);
    gCVSSetCanvasColor(0, 0xAB123456);
    const unsigned int* pixels = gCVSGetCanvasPixelPtr(0);
    REQUIRE(pixels != nullptr);
    for (int i = 0; i < 15; ++i)
        CHECK(pixels[i] == 0xAB123456);
    host.Paint();
    CHECK(host.Pixel(50, 50) == 0x123456);    // red 12, blue 56
}

TEST_CASE("gCVSSetCanvasColor leaves a surface without rows alone")
{
    HostCanvas host(0, 100, 100);
    gCVSPrepareCanvas(0, 5, 0);
    gCVSSetCanvasColor(0, 0x123456);
    gCVSPrepareCanvas(0, 5, 1);
    CHECK(FrameDifference(host.Surface(), Frame(5, 1, 0)) == "");
}

TEST_CASE("row 0 of the canvas row table is the bottom row of the image")
{
    HostCanvas host(0, 100, 100);
    host.ShowGray(4, 3, [](int x, int y) { return 10 * y + x; });
    unsigned int** rows = gCVSCreateCanvasPixelPtr2D(0);
    REQUIRE(rows != nullptr);
    for (int y = 0; y < 3; ++y)
        CHECK(rows[y] == gCVSGetCanvasPixelPtr(0) + 4 * y);
    CHECK(rows[0][1] == 0x151515);
    CHECK(rows[2][3] == 0x030303);
    rows[2][0] = 0xFF0000;
    host.Paint();
    CHECK(host.Pixel(48, 48) == 0xFF0000);
    CHECK(gCVSReleaseCanvasPixelPtr2D(0));
    CHECK(gCVSReleaseCanvasPixelPtr2D(0));    // none left
}

TEST_CASE("row 0 of the client row table is the bottom row of the window")
{
    HostCanvas     host(0, 7, 5);
    unsigned int** rows = gCVSCreateClientPixelPtr2D(0);
    REQUIRE(rows != nullptr);
    for (int y = 0; y < 5; ++y)
        CHECK(rows[y] == gCVSGetClientPixelPtr(0) + 7 * y);
    gCVSSetUseClientMemDCPixelDirect(0, true);
    rows[0][2] = 0x112233;
    host.Paint();
    CHECK(host.Pixel(2, 4) == 0x112233);
    CHECK(gCVSReleaseClientPixelPtr2D(0));
    CHECK(gCVSReleaseClientPixelPtr2D(0));
}

TEST_CASE("a second row table takes the first one's place")
{
    HostCanvas host(0, 7, 5);
    host.ShowFlatGray(3, 3, 1);
    gCVSCreateCanvasPixelPtr2D(0);
    CHECK(gCVSCreateCanvasPixelPtr2D(0)[1] == gCVSGetCanvasPixelPtr(0) + 3);
    gCVSCreateClientPixelPtr2D(0);
    CHECK(gCVSCreateClientPixelPtr2D(0)[1] == gCVSGetClientPixelPtr(0) + 7);
}

TEST_CASE("row tables made anew after a resize and a new image point into the surfaces of then")
{
    HostCanvas host(0, 7, 5);
    host.ShowFlatGray(3, 3, 1);
    gCVSCreateCanvasPixelPtr2D(0);
    gCVSCreateClientPixelPtr2D(0);
    host.Resize(20, 30);
    host.ShowFlatGray(40, 50, 2);
    CHECK(gCVSCreateCanvasPixelPtr2D(0)[49][39] == 0x020202);
    CHECK(gCVSCreateClientPixelPtr2D(0)[29] == gCVSGetClientPixelPtr(0) + 20 * 29);
}

TEST_CASE("a host draws on the canvas surface through its context")
{
    HostCanvas host(0, 50, 50);
    gCVSPrepareCanvas(0, 10, 10);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    const CRect  corner(0, 0, 2, 1);
    FillRect(gCVSGetCanvasHDC(0), &corner, brush);
    DeleteObject(brush);
    Frame expected(10, 10, 0);
    expected.FillRect(0, 0, 2, 1, 0x010203);
    CHECK(FrameDifference(host.Surface(), expected) == "");
}

TEST_CASE("a press inside the visible slider still lets Control pan, since the view has seen it")
{
    HostCanvas host(0, 400, 100);
    host.ShowFlatGray(20, 20, 0);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 10, 10, 300, 30);
    const CRect before = host.Region();
    host.Press(100, 75);    // on the track between the thumbs
    host.Move(103, 80, MK_LBUTTON | MK_CONTROL);
    CHECK(host.Region() == CRect(before.left + 3, before.top + 5, before.right + 3, before.bottom + 5));
    host.Release(103, 80);
}

TEST_CASE("the release after a press in the slider redraws float data with its window")
{
    HostCanvas host(0, 400, 100);
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 334, 30);    // travel 260, dark thumb at 62
    const Frame whole = host.Surface();
    host.Press(65, 84);
    host.Move(65 + 130, 84);
    CHECK(FrameDifference(host.Surface(), whole) == "");    // not while it is dragged
    host.Release(65 + 130, 84);
    const Frame upper = host.Surface();
    CHECK(upper.At(127, 0) == 0);
    CHECK(upper.At(255, 0) == 0xFFFFFF);
    CHECK(upper.At(100, 0) == 0);
    CHECK(whole.At(100, 0) == 0x646464);
    // A hit lasts until the next press: a release elsewhere, without one, applies the window again.
    gCVSSetLutPara(0, 0.0f, 1.0f);
    REQUIRE(FrameDifference(host.Surface(), whole) == "");
    host.Release(0, 0);
    CHECK(FrameDifference(host.Surface(), upper) == "");
}

TEST_CASE("a press beside the slider applies no window on release")
{
    HostCanvas host(0, 400, 100);
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 334, 30);
    gCVSSetLutPara(0, 0.5f, 1.0f);
    const Frame before = host.Surface();
    host.Press(65, 20);
    host.Release(65, 20);
    CHECK(FrameDifference(host.Surface(), before) == "");
    host.Press(65, 84);
    host.Release(65, 84);
    CHECK(FrameDifference(host.Surface(), before) != "");
}

TEST_CASE("the hidden slider gets no press")
{
    HostCanvas host(0, 400, 100);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 334, 30);
    host.Drag(CPoint(65, 84), CPoint(165, 84));
    gCVSShowContrastCtrl(0, true);
    host.Paint();
    CHECK(host.Pixel(65, 84) == 0x505050);    // the dark thumb at its left end
    host.Drag(CPoint(65, 84), CPoint(165, 84));
    host.Paint();
    CHECK(host.Pixel(65, 84) == 0xB4B4B4);
    CHECK(host.Pixel(165, 84) == 0x505050);
}

TEST_CASE("the slider's window survives a new float image")
{
    HostCanvas host(0, 400, 100);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 334, 30);
    host.Drag(CPoint(65, 84), CPoint(65 + 130, 84));
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    CHECK(host.Surface().At(127, 0) == 0);
    CHECK(host.Surface().At(255, 0) == 0xFFFFFF);
    gCVSShowContrastCtrl(0, false);
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    CHECK(host.Surface().At(127, 0) == 0x7F7F7F);
}
