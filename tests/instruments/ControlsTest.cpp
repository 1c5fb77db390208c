// The two controls on a canvas, through the exports.

#include "Controls.h"

#include <climits>

using namespace vostel;

namespace {

// The whole control as it looks at rest, but for the letters of its caption.
Frame SliderFrame(Frame frame, float low, float high)
{
    frame.FillRect(20, 249, 420, 279, Face);
    frame.OutlineRect(22, 251, 78, 277, Edge);
    frame.OutlineRect(82, 251, 418, 277, Edge);
    const int lowLeft = static_cast<int>(326.0f * low + 87.0f - 5.0f);
    const int highLeft = static_cast<int>(326.0f * high + 87.0f - 5.0f);
    frame.FillRect(lowLeft, 251, lowLeft + 10, 277, DarkThumb);
    frame.FillRect(highLeft, 251, highLeft + 10, 277, LightThumb);
    return frame;
}

// The letters inside the caption's outline are the platform's.
Frame WithoutCaption(Frame frame)
{
    frame.FillRect(23, 252, 77, 276, 0);
    return frame;
}

}

TEST_CASE("the shown slider is painted over the image, and nothing of it when hidden or off")
{
    HostCanvas host(0, 500, 300);
    host.ShowFlatGray(400, 280, 77);
    const Frame bare = host.PaintAndCapture();
    gCVSSetContrastCtrlRectPos(0, 20, 20, 400, 30);
    CHECK(FrameDifference(host.PaintAndCapture(), bare) == "");
    gCVSShowContrastCtrl(0, true);
    const Frame shown = host.PaintAndCapture();
    CHECK(FrameDifference(WithoutCaption(shown), WithoutCaption(SliderFrame(bare, 0.0f, 1.0f))) == "");
    int letters = 0;
    for (int y = 252; y < 276; ++y)
        for (int x = 23; x < 77; ++x)
            letters += shown.At(x, y) != Face ? 1 : 0;
    CHECK(letters > 10);
    host.Key(VK_TAB);
    CHECK(FrameDifference(host.PaintAndCapture(), bare) == "");
    host.Key(VK_TAB);
    CHECK(FrameDifference(host.PaintAndCapture(), shown) == "");
    gCVSShowContrastCtrl(0, false);
    host.Key(VK_TAB);    // a hidden slider gets no keys
    gCVSShowContrastCtrl(0, true);
    CHECK(FrameDifference(host.PaintAndCapture(), shown) == "");
}

TEST_CASE("X brings the shown slider to its recall place, off or on")
{
    HostCanvas  host(0, 500, 300);
    const Frame bare = host.PaintAndCapture();
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 1000, 1000, 50, 30);
    host.Key(VK_TAB);
    host.Key('X');
    host.Key(VK_TAB);
    CHECK(FrameDifference(WithoutCaption(host.PaintAndCapture()),
                          WithoutCaption(SliderFrame(bare, 0.0f, 1.0f))) == "");
}

TEST_CASE("releasing a dragged thumb changes the contrast of float data")
{
    HostCanvas host(0, 500, 300);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 20, 20, 400, 30);
    host.ShowFloat(4, 1, [](int x, int) { return x; });
    CHECK(host.Surface().Pixels == std::vector<unsigned int>{0x000000, 0x555555, 0xAAAAAA, 0xFFFFFF});
    host.Press(85, 260);
    host.Move(85 + 163, 260, MK_LBUTTON);
    CHECK(host.Surface().At(1, 0) == 0x555555);    // nothing before the release
    host.Release(85 + 163, 260);
    // The window is now 32767 to 65535: 43690 is a third of it.
    CHECK(host.Surface().Pixels == std::vector<unsigned int>{0x000000, 0x000000, 0x555555, 0xFFFFFF});
    const Frame drawn = host.PaintAndCapture();
    CHECK(drawn.At(82 + 163, 260) == DarkThumb);
    CHECK(drawn.At(82 + 162, 260) == Face);
    CHECK(drawn.At(408, 260) == LightThumb);
}

TEST_CASE("a press inside the slider on no thumb still applies the window on release")
{
    HostCanvas host(0, 500, 300);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 20, 20, 400, 30);
    host.ShowFloat(4, 1, [](int x, int) { return x; });
    gCVSSetLutPara(0, 0.5f, 1.0f);
    CHECK(host.Surface().At(1, 0) == 0x000000);
    host.Press(200, 260);
    host.Release(200, 260);
    CHECK(host.Surface().At(1, 0) == 0x555555);    // the slider's own window, 0 to 1
    gCVSSetLutPara(0, 0.5f, 1.0f);
    host.Press(200, 100);
    host.Release(200, 100);
    CHECK(host.Surface().At(1, 0) == 0x000000);    // outside: nothing is applied
}

TEST_CASE("a slider drawn after a drag beyond its limit stands at the limit")
{
    HostCanvas  host(0, 500, 300);
    const Frame bare = host.PaintAndCapture();
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 20, 20, 400, 30);
    host.Press(410, 260);
    host.Move(10000, 260, MK_LBUTTON);
    host.Release(10000, 260);
    CHECK(FrameDifference(WithoutCaption(host.PaintAndCapture()),
                          WithoutCaption(SliderFrame(bare, 0.0f, 1.0f))) == "");
}

TEST_CASE("the shown progress bar follows range and position")
{
    HostCanvas  host(0, 500, 300);
    const Frame bare = host.PaintAndCapture();
    gCVSSetProgressRectPos(0, 30, 50, 106, 20);
    CHECK(FrameDifference(host.PaintAndCapture(), bare) == "");
    gCVSShowProgress(0, true);
    const auto expected = [&](int right) {
        Frame frame = bare;
        frame.FillRect(30, 229, 136, 249, Face);
        frame.FillRect(33, 232, right, 246, Bar);
        return frame;
    };
    CHECK(FrameDifference(host.PaintAndCapture(), expected(83)) == "");
    gCVSSetPos(0, 125);
    CHECK(FrameDifference(host.PaintAndCapture(), expected(58)) == "");
    gCVSSetRange(0, 0, 1000);    // drawing refreshes
    CHECK(FrameDifference(host.PaintAndCapture(), expected(45)) == "");
    gCVSSetPos(0, 1000);
    CHECK(FrameDifference(host.PaintAndCapture(), expected(133)) == "");
    gCVSSetPos(0, 1500);    // runs beyond the control
    CHECK(FrameDifference(host.PaintAndCapture(), expected(183)) == "");
    gCVSSetPos(0, 0);
    CHECK(FrameDifference(host.PaintAndCapture(), expected(33)) == "");
    host.Key(VK_TAB);    // the bar gets no keys
    host.Key('X');
    CHECK(FrameDifference(host.PaintAndCapture(), expected(33)) == "");
    gCVSShowProgress(0, false);
    CHECK(FrameDifference(host.PaintAndCapture(), bare) == "");
}

TEST_CASE("a bar before the start of its range runs to the left of the control")
{
    HostCanvas host(0, 500, 300);
    Frame      expected = host.PaintAndCapture();
    gCVSSetProgressRectPos(0, 30, 50, 106, 20);
    gCVSShowProgress(0, true);
    gCVSSetPos(0, 80);    // 20 px to the left of the bar's start: columns 33 down to 14
    expected.FillRect(30, 229, 136, 249, Face);
    expected.FillRect(14, 232, 34, 246, Bar);
    CHECK(FrameDifference(host.PaintAndCapture(), expected) == "");
}

TEST_CASE("a range without an extent is drawn without harm")
{
    HostCanvas host(0, 500, 300);
    gCVSSetProgressRectPos(0, 30, 50, 106, 20);
    gCVSShowProgress(0, true);
    gCVSSetRange(0, 7, 7);
    for (const int pos : {7, 8, 6, INT_MAX, INT_MIN}) {
        gCVSSetPos(0, pos);
        host.Paint();
    }
    CHECK(host.Pixel(31, 230) == Face);
}

TEST_CASE("controls placed at the limits of 32 bits are painted and pressed without harm")
{
    HostCanvas host(0, 100, 60);
    gCVSShowProgress(0, true);
    gCVSShowContrastCtrl(0, true);
    for (const int a : {INT_MIN, -1, INT_MAX}) {
        for (const int b : {INT_MIN, 0, INT_MAX}) {
            gCVSSetContrastCtrlRectPos(0, a, b, b, a);
            gCVSSetProgressRectPos(0, b, a, a, b);
            host.Paint();
            host.Press(50, 30);
            host.Move(INT_MIN, INT_MAX);
            host.Release(INT_MAX, INT_MIN);
        }
    }
    gCVSShowContrastCtrl(0, false);
    gCVSShowProgress(0, false);
    host.ShowFlatGray(100, 60, 9);
    host.Paint();
    CHECK(host.Pixel(50, 30) == 0x090909);
}
