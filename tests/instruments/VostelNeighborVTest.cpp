#include "instruments/VostelNeighborV.h"

#include "support/OverlayScene.h"

#include <limits>

using namespace vostel;

namespace {

using Lines = std::vector<CString>;

}

TEST_CASE("a value grid has its kind, its place in its box, and the canvas as its source")
{
    OverlayScene scene;
    gCVSAddNeighborPV(0);
    const VostelNeighborV& grid = scene.Last<VostelNeighborV>();
    CHECK(grid.TypeCode == 15);
    CHECK(grid.SerialNo == 0);
    CHECK(grid.Box.TypeCode == 14);
    CHECK(grid.Box.Margin == 5);
    CHECK(grid.Box.ClientBox == CRect(30, 30, 542, 180));
    CHECK(grid.OwnerImage == &scene.Canvas());
    CHECK(grid.View == &scene.Canvas().View);
    CHECK(grid.Box.View == &scene.Canvas().View);
    CHECK(grid.Selected);
    CHECK(scene.Canvas().ElementSerial == 1);
}

TEST_CASE("the grid holds five rows of five values round the cursor, the row above it first")
{
    OverlayScene scene;
    scene.ShowFloat(400, 300,
                    [](int x, int y) { return 0.25f * static_cast<float>(x) + static_cast<float>(y); });
    gCVSAddNeighborPV(0);
    scene.Move(100, 50);
    CHECK(scene.Last<VostelNeighborV>().Box.Lines ==
          Lines{L"72.50 72.75 73.00 73.25 73.50", L"73.50 73.75 74.00 74.25 74.50",
                L"74.50 74.75 75.00 75.25 75.50", L"75.50 75.75 76.00 76.25 76.50",
                L"76.50 76.75 77.00 77.25 77.50"});
    scene.Move(101, 50);
    CHECK(scene.Last<VostelNeighborV>().Box.Lines.size() == 5);    // filled anew, not appended
}

TEST_CASE("the centre of the grid is the third value of the third line, and reads as the export does")
{
    OverlayScene scene;
    gCVSAddNeighborPV(0);
    gCVSGetCanvasPixelPtr(0)[(299 - 50) * 400 + 100] = 0x0000FF00;    // green: gray 149
    scene.Move(100, 50);
    const Lines& lines = scene.Last<VostelNeighborV>().Box.Lines;
    CHECK(lines[2].Mid(0, 24) == CString(L"100.00 100.00 149.00 100.00 100.00").Mid(0, 24));
    CHECK(gCVSGetImaPixelValue(0, CPoint(100, 50)) == 149.0f);
    CHECK(lines[1].Find(L"149") == -1);
    CHECK(lines[3].Find(L"149") == -1);
}

TEST_CASE("at the image's edge the grid repeats the edge")
{
    OverlayScene scene;
    scene.ShowFloat(400, 300, [](int x, int y) { return 10 * x + y; });
    gCVSAddNeighborPV(0);
    scene.Move(0, 0);
    CHECK(scene.Last<VostelNeighborV>().Box.Lines ==
          Lines{L" 0.00  0.00  0.00 10.00 20.00", L" 0.00  0.00  0.00 10.00 20.00",
                L" 0.00  0.00  0.00 10.00 20.00", L" 1.00  1.00  1.00 11.00 21.00",
                L" 2.00  2.00  2.00 12.00 22.00"});
}

TEST_CASE("the grid steps by pixels of the screen: enlarged, neighbours show one image pixel")
{
    OverlayScene scene;
    scene.ShowFloat(400, 300, [](int x, int y) { return 10 * x + y; });
    gCVSAddNeighborPV(0);
    scene.Zoom(9);    // 5.16
    const CRect image = scene.Region();
    // 6 to 10 client pixels from the corner are image columns 1.16 to 1.94.
    scene.Move(image.left + 8, image.top + 8);
    for (const CString& line : scene.Last<VostelNeighborV>().Box.Lines)
        CHECK(line == L"11.00 11.00 11.00 11.00 11.00");
}

TEST_CASE("without an image every cell fills with -1, and nothing is drawn")
{
    OverlayScene scene;
    scene.ShowFlat(9);
    gCVSSetFileType(0, FileTypeNone);
    gCVSAddNeighborPV(0);
    scene.Move(100, 50);
    for (const CString& line : scene.Last<VostelNeighborV>().Box.Lines)
        CHECK(line == L"-1.00 -1.00 -1.00 -1.00 -1.00");
    scene.Paint();
    CHECK(scene.Count(scene.Whole(), 0x090909) == 400 * 300);
    CHECK(scene.Last<VostelNeighborV>().Box.ClientBox == CRect(30, 30, 542, 180));
    gCVSSetFileType(0, FileTypeByte);
    scene.Paint();
    CHECK(scene.Count(scene.Whole(), 0x090909) < 400 * 300);
}

TEST_CASE("data that was not kept fills the cells with -1")
{
    OverlayScene scene;
    scene.ShowFloat(
        400, 300, [](int x, int) { return x; }, false);
    gCVSAddNeighborPV(0);
    scene.Move(100, 50);
    CHECK(scene.Last<VostelNeighborV>().Box.Lines[2] == L"-1.00 -1.00 -1.00 -1.00 -1.00");
}

TEST_CASE("the box grows with the values that need more room")
{
    OverlayScene scene;
    scene.ShowFloat(400, 300, [](int x, int) { return x < 200 ? 1.0f : 1234567.0f; });
    gCVSAddNeighborPV(0);
    scene.Move(100, 50);
    scene.Paint();
    const int narrow = scene.Last<VostelNeighborV>().Box.ClientBox.Width();
    scene.Move(300, 50);
    scene.Paint();
    CHECK(scene.Last<VostelNeighborV>().Box.ClientBox.Width() > narrow);
}

TEST_CASE("the largest and the undefined floats are written out")
{
    OverlayScene scene;
    scene.ShowFloat(400, 300, [](int x, int) {
        return x == 100   ? std::numeric_limits<float>::max()
               : x == 101 ? -std::numeric_limits<float>::quiet_NaN()
                          : 0.0f;
    });
    gCVSAddNeighborPV(0);
    scene.Move(100, 50);
    CHECK(scene.Last<VostelNeighborV>().Box.Lines[2] ==
          L" 0.00  0.00 340282346638528859811704183484516925440.00   nan  0.00");
}

TEST_CASE("the grid follows the mouse while another object is selected, and is dragged while it is")
{
    OverlayScene scene;
    gCVSAddNeighborPV(0);
    VostelNeighborV& grid = scene.Last<VostelNeighborV>();
    gCVSAddPoly(0);
    scene.Move(200, 250);
    CHECK(grid.Box.Lines.size() == 5);
    scene.Paint();
    const CRect box = grid.Box.ClientBox;
    scene.Drag(CPoint(box.left + 5, box.top + 5), CPoint(box.left + 25, box.top + 45));
    CHECK(scene.Canvas().SelIndex == 0);
    CHECK(grid.Box.ClientBox.left == box.left + 20);
    CHECK(grid.Box.ClientBox.top == box.top + 40);
    scene.Move(0, 0);
    CHECK(grid.Box.ClientBox.left == box.left + 20);
    scene.Zoom(2);
    CHECK(grid.Box.ClientBox.left == box.left + 20);
}

TEST_CASE("a grid without a canvas drags and draws nothing")
{
    VostelNeighborV grid;
    grid.SetPlacement(10.0f, 10.0f, 20.0f, 20.0f);
    CHECK(grid.HitTest(CPoint(10, 10)));
    CHECK_FALSE(grid.HitTest(CPoint(30, 10)));
    grid.OnLButtonDown(MK_LBUTTON, CPoint(15, 15));
    grid.OnMouseMove(MK_LBUTTON, CPoint(16, 17));
    CHECK(grid.Box.ClientBox == CRect(11, 12, 31, 32));
    grid.OnLButtonUp(0, CPoint(16, 17));
    grid.OnMouseMove(0, CPoint(0, 0));
    CHECK(grid.Box.ClientBox == CRect(11, 12, 31, 32));
}
