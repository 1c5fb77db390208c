// Who gets which event, and what becomes of objects: seen through objects that write down their calls.

#include "canvas/exports/CanvasTable.h"
#include "support/HostCanvas.h"
#include "support/ProbeObject.h"

using namespace vostel;

namespace {

// Canvas 0 with probes; the log is empty when the constructor has run.
struct ProbeCanvas : HostCanvas {
    std::vector<std::string> Log;

    explicit ProbeCanvas(int width = 400, int height = 100) : HostCanvas(0, width, height) {}

    VostelImage& Canvas() { return gCanvasTable[0]; }

    // As the commands that add objects do it: at the end of the list, numbered and selected.
    Probe* Add(const char* name, CRect hit = CRect(), int kind = OverlayRect)
    {
        Probe* probe = new Probe(name, Log, hit, kind);
        probe->SerialNo = static_cast<int>(Canvas().Elements.size());
        Canvas().Elements.push_back(probe);
        Canvas().SelIndex = static_cast<int>(Canvas().Elements.size()) - 1;
        probe->Selected = true;
        return probe;
    }
    std::vector<std::string> Take()
    {
        std::vector<std::string> taken;
        taken.swap(Log);
        return taken;
    }
};

using Lines = std::vector<std::string>;

}

TEST_CASE("a canvas just made has no surfaces, no objects and the defaults that hosts rely on")
{
    const VostelImage fresh;
    CHECK(fresh.ClientDC == nullptr);
    CHECK(fresh.ClientMemDC == nullptr);
    CHECK(fresh.ClientBitmap == nullptr);
    CHECK(fresh.ClientPixels == nullptr);
    CHECK(fresh.ClientRows == nullptr);
    CHECK(fresh.CanvasSurface.MemDC == nullptr);
    CHECK(fresh.CanvasSurface.Bitmap == nullptr);
    CHECK(fresh.CanvasSurface.StretchMode == 3);
    CHECK(fresh.View.MoveMode == DisplayZoomCursor);
    CHECK(fresh.View.Scale == 1.0);
    CHECK(fresh.View.ZoomFactor == 1.2);
    CHECK(fresh.View.FirstClient);
    CHECK(fresh.View.ClientRect == CRect(0, 0, 0, 0));
    CHECK(fresh.OverlayAlpha == 255);
    CHECK(fresh.SelIndex == -1);
    CHECK_FALSE(fresh.UseDirect);
    CHECK_FALSE(fresh.ShowContrastCtrl);
    CHECK_FALSE(fresh.ShowProgress);
    CHECK(fresh.ProgressCtrl.RangeLow == 100);
    CHECK(fresh.ProgressCtrl.RangeHigh == 200);
    CHECK(fresh.ProgressCtrl.Pos == 150);
    CHECK(fresh.Kit.TextBoxBack);
    CHECK(fresh.Kit.DashPeriod == 14);
    CHECK(fresh.MeasureScale == 1.0);
    CHECK(fresh.CurrentFileType == FileTypeNone);
    CHECK(fresh.Elements.empty());
}

TEST_CASE("the table holds five canvases")
{
    CHECK(sizeof gCanvasTable / sizeof gCanvasTable[0] == 5);
    for (int i = 0; i < 5; ++i)
        CHECK(FindCanvas(i) == &gCanvasTable[i]);
    CHECK(FindCanvas(-1) == nullptr);
    CHECK(FindCanvas(5) == nullptr);
}

TEST_CASE("a press goes to the topmost object under it and no further")
{
    ProbeCanvas host;
    host.Add("low", CRect(0, 0, 50, 50));
    host.Add("top", CRect(20, 20, 70, 70));
    host.Add("elsewhere", CRect(300, 0, 310, 10));
    host.Press(30, 30);
    CHECK(host.Take() == Lines{"elsewhere hit? 30,30", "top hit? 30,30", "top down 1 30,30"});
    CHECK(host.Canvas().SelIndex == 1);
    host.Press(10, 10);
    CHECK(host.Take() ==
          Lines{"elsewhere hit? 10,10", "top hit? 10,10", "low hit? 10,10", "low down 1 10,10"});
    CHECK(host.Canvas().SelIndex == 0);
}

TEST_CASE("a press on nothing leaves none selected")
{
    ProbeCanvas host;
    Probe*      probe = host.Add("a", CRect(0, 0, 5, 5));
    REQUIRE(probe->Selected);
    host.Press(30, 30);
    CHECK(host.Take() == Lines{"a hit? 30,30"});
    CHECK(host.Canvas().SelIndex == -1);
    CHECK_FALSE(probe->Selected);
    host.Move(31, 31);
    host.Release(31, 31);
    CHECK(host.Take() == Lines{"a view"});    // of the move only
}

TEST_CASE("every press first clears Selected on all objects, also one that sticks")
{
    ProbeCanvas host;
    Probe*      a = host.Add("a", CRect(0, 0, 5, 5));
    Probe*      b = host.Add("b");
    a->Selected = true;
    host.Press(90, 90, MK_LBUTTON | MK_SHIFT);
    CHECK_FALSE(a->Selected);
    CHECK_FALSE(b->Selected);
    CHECK(host.Take() == Lines{"b down 5 90,90"});
}

TEST_CASE("with Shift the selected object keeps the press, over whatever it falls")
{
    ProbeCanvas host;
    host.Add("under", CRect(0, 0, 100, 100));
    host.Add("selected");
    host.Press(30, 30, MK_LBUTTON | MK_SHIFT);
    CHECK(host.Take() == Lines{"selected down 5 30,30"});
    CHECK(host.Canvas().SelIndex == 1);
    host.Press(350, 90, MK_LBUTTON | MK_SHIFT);    // on nothing
    CHECK(host.Take() == Lines{"selected down 5 350,90"});
    host.Press(30, 30);
    CHECK(host.Take() == Lines{"selected hit? 30,30", "under hit? 30,30", "under down 1 30,30"});
}

TEST_CASE("with Shift and nothing selected a press is a plain press")
{
    ProbeCanvas host;
    host.Add("a", CRect(0, 0, 100, 100));
    host.Canvas().SelIndex = -1;
    host.Press(30, 30, MK_LBUTTON | MK_SHIFT);
    CHECK(host.Take() == Lines{"a hit? 30,30", "a down 5 30,30"});
    CHECK(host.Canvas().SelIndex == 0);
}

TEST_CASE("panels get every press, release and move, a selected panel twice")
{
    ProbeCanvas host;
    host.Add("panel", CRect(0, 0, 10, 10), 14);
    host.Add("shape", CRect(50, 50, 60, 60));
    host.Add("last", CRect(), 14);
    host.Press(55, 55);
    CHECK(host.Take() == Lines{"last hit? 55,55", "shape hit? 55,55", "shape down 1 55,55",
                               "panel down 1 55,55", "last down 1 55,55"});
    host.Move(56, 56, 1);
    CHECK(host.Take() == Lines{"panel view", "shape view", "last view", "shape move 1 56,56",
                               "panel move 1 56,56", "last move 1 56,56"});
    host.Release(56, 56);
    CHECK(host.Take() == Lines{"shape up 0 56,56", "panel up 0 56,56", "last up 0 56,56"});

    host.Press(5, 5);
    CHECK(host.Take() == Lines{"last hit? 5,5", "shape hit? 5,5", "panel hit? 5,5", "panel down 1 5,5",
                               "panel down 1 5,5", "last down 1 5,5"});
    host.Move(6, 6);
    CHECK(host.Take() == Lines{"panel view", "shape view", "last view", "panel move 0 6,6",
                               "panel move 0 6,6", "last move 0 6,6"});
    host.Release(6, 6);
    CHECK(host.Take() == Lines{"panel up 0 6,6", "panel up 0 6,6", "last up 0 6,6"});
}

TEST_CASE("neighbour read-outs get every move, but presses and releases only when selected")
{
    ProbeCanvas host;
    host.Add("values", CRect(0, 0, 10, 10), 15);
    host.Add("profile", CRect(), 16);
    host.Press(50, 50);
    CHECK(host.Take() == Lines{"profile hit? 50,50", "values hit? 50,50"});
    host.Move(51, 51);
    CHECK(host.Take() == Lines{"values view", "profile view", "values move 0 51,51"});
    host.Release(51, 51);
    CHECK(host.Take().empty());
    host.Press(5, 5);
    host.Take();
    host.Move(6, 6);
    CHECK(host.Take() == Lines{"values view", "profile view", "values move 0 6,6", "values move 0 6,6"});
    host.Release(6, 6);
    CHECK(host.Take() == Lines{"values up 0 6,6"});
}

TEST_CASE("an object that is not selected sees no move")
{
    ProbeCanvas host;
    host.Add("a", CRect(0, 0, 100, 100));
    host.Add("b");
    host.Move(30, 30);
    CHECK(host.Take() == Lines{"a view", "b view", "b move 0 30,30"});
}

TEST_CASE("objects get the view, panned already, before they see a move")
{
    ProbeCanvas host;
    host.ShowGray(
        20, 20, [](int, int) { return 0; }, false);
    Probe* a = host.Add("a");
    host.Press(10, 10, MK_LBUTTON | MK_SHIFT);
    const LONG left = host.Region().left;
    a->OnEvent = [&](const std::string& event) {
        if (event.find("move") == 0) {
            CHECK(a->View == &host.Canvas().View);
            CHECK(a->View->DisplayRect.left == left + 7);
        }
    };
    host.Take();
    host.Move(17, 10, MK_CONTROL | MK_LBUTTON);
    CHECK(host.Take() == Lines{"a view", "a move 9 17,10"});
    host.Release(17, 10);
}

TEST_CASE("a wheel step hands every object the view and is offered to none")
{
    ProbeCanvas host;
    host.Add("a", CRect(0, 0, 100, 100));
    host.Add("panel", CRect(), 14);
    host.Wheel(30, 30, 1, 0);
    CHECK(host.Take() == Lines{"a view", "panel view"});
}

TEST_CASE("keys go to every object, selected or not, with repeat and flags")
{
    ProbeCanvas host;
    host.Add("a");
    host.Add("b", CRect(), 14);
    gCVSOnKeyDown(0, 'Q', 3, 77);
    CHECK(host.Take() == Lines{"a key 81 3 77", "b key 81 3 77"});
    MSG message = {};
    message.message = WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(0x1200345678ull);
    message.lParam = static_cast<LPARAM>(0x9ABCDEF0);
    CHECK(gCVSRespondToMessage(&message, 0));
    const std::string key =
        " key " + std::to_string(0x345678) + " " + std::to_string(0xDEF0) + " " + std::to_string(0x5678);
    CHECK(host.Take() == Lines{"a" + key, "b" + key});
}

TEST_CASE("message points reach objects zero-extended")
{
    ProbeCanvas host;
    host.Add("a");
    MSG message = {};
    message.message = WM_LBUTTONDOWN;
    message.wParam = 0xFFFF0005u;
    message.lParam = static_cast<LPARAM>(0xFFFE8000u);
    gCVSRespondToMessage(&message, 0);
    CHECK(host.Take() == Lines{"a down 5 32768,65534"});
    message.message = WM_LBUTTONUP;
    gCVSRespondToMessage(&message, 0);
    CHECK(host.Take() == Lines{"a up 5 32768,65534"});
    message.message = WM_MOUSEMOVE;
    gCVSRespondToMessage(&message, 0);
    CHECK(host.Take() == Lines{"a view", "a move 5 32768,65534"});
}

TEST_CASE("a press in the visible slider reaches no object, a press beside it does")
{
    ProbeCanvas host;
    host.Add("a", CRect(0, 0, 400, 100));
    host.Add("panel", CRect(), 14);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 300, 30);
    host.Press(150, 85);
    CHECK(host.Take().empty());
    CHECK(host.Canvas().View.LeftDown);
    CHECK(host.Canvas().SelIndex == 1);    // as before
    // The rest of the gesture is not kept from objects.
    host.Release(150, 85);
    CHECK(host.Take() == Lines{"panel up 0 150,85", "panel up 0 150,85"});
    host.Press(150, 20);
    CHECK(host.Take() ==
          Lines{"panel hit? 150,20", "a hit? 150,20", "a down 1 150,20", "panel down 1 150,20"});
    gCVSShowContrastCtrl(0, false);
    host.Press(150, 85);
    CHECK(host.Take().size() == 4);
}

TEST_CASE("the timer moves the slider's dashes only, and only while it is shown")
{
    ProbeCanvas host;
    host.Add("a");
    int& phase = host.Canvas().ContrastCtrl.Kit.DashPhase;
    phase = 0;
    gCVSOnTimer(0, 1);
    CHECK(phase == 0);
    gCVSShowContrastCtrl(0, true);
    gCVSOnTimer(0, 2);
    gCVSOnTimer(0, 0x100000001ull);
    CHECK(phase == 0);
    gCVSOnTimer(0, 1);
    CHECK(phase == 2);
    gCVSOnTimer(0, 1);
    CHECK(phase == 4);
    CHECK(host.Take().empty());
    CHECK(host.Canvas().ProgressCtrl.Kit.DashPhase == 0);
}

TEST_CASE("a wheel step with S held changes the overlay's alpha by 5 within 0..255")
{
    ProbeCanvas host;
    int&        alpha = host.Canvas().OverlayAlpha;
    alpha = 100;
    host.Wheel(0, 0, 1, 0);
    CHECK(alpha == 100);
    host.Desktop.KeysDown = {'S'};
    host.Wheel(0, 0, 1, 0);
    CHECK(alpha == 105);
    host.Wheel(0, 0, 0, 0);
    CHECK(alpha == 100);
    host.Wheel(0, 0, -120, 0);
    CHECK(alpha == 95);
    for (int i = 0; i < 60; ++i)
        host.Wheel(0, 0, 120, 0);
    CHECK(alpha == 255);
    for (int i = 0; i < 60; ++i)
        host.Wheel(0, 0, 0, 0);
    CHECK(alpha == 0);
    alpha = 255;
}

TEST_CASE("a new window hands every object the view and refreshes it; so does a new image")
{
    ProbeCanvas host;
    host.Add("a");
    host.Add("b");
    host.Resize(100, 100);
    CHECK(host.Take() == Lines{"a view", "a refresh", "b view", "b refresh", "a view", "a refresh", "b view",
                               "b refresh"});    // Resize sets the client twice
    host.ShowGray(
        4, 4, [](int, int) { return 0; }, false);
    CHECK(host.Take() == Lines{"a view", "a refresh", "b view", "b refresh"});
}

TEST_CASE("objects are drawn from the lowest up, into the client surface, over the controls")
{
    ProbeCanvas host;
    host.ShowGray(
        500, 500, [](int, int) { return 0; }, false);
    Probe* low = host.Add("low");
    Probe* high = host.Add("high");
    low->Fill = CRect(0, 60, 60, 100);
    low->Color = 0x0000FF;
    high->Fill = CRect(30, 80, 90, 100);
    high->Color = 0x00FF00;
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 300, 30);
    gCVSShowProgress(0, true);
    gCVSSetProgressRectPos(0, 10, 0, 100, 30);
    host.Take();
    host.Paint();
    CHECK(host.Take() == Lines{"low draw", "high draw"});
    CHECK(low->Target == gCVSGetClientMemDC(0));
    CHECK(host.Pixel(5, 90) == 0xFF0000);     // over the slider
    CHECK(host.Pixel(15, 75) == 0xFF0000);    // over the progress bar
    CHECK(host.Pixel(45, 90) == 0x00FF00);
    CHECK(host.Pixel(105, 75) == 0xB4B4B4);    // the progress bar, over the slider
    gCVSSetUseClientMemDCPixelDirect(0, true);
    host.Paint();
    CHECK(host.Take().empty());
}
