#include "support/HostCanvas.h"
#include "support/RegionAnswer.h"

#include <algorithm>
#include <vector>

namespace {

constexpr unsigned int DrawFlags = MK_LBUTTON | MK_SHIFT;

// A canvas with an image of 100 x 80 at client point (50, 40).
class LabelCanvas : public HostCanvas {
public:
    explicit LabelCanvas(int number = 0) : HostCanvas(number, 200, 160)
    {
        ShowFlatGray(100, 80, 0x40);
        REQUIRE(IsScaleOne());
    }

    void Node(int x, int y)
    {
        Press(x + 50, y + 40, DrawFlags);
        Release(x + 50, y + 40, MK_SHIFT);
    }
    void AddPolygon(const std::vector<CPoint>& nodes)
    {
        gCVSAddPoly(Number);
        Move(0, 0);
        for (const CPoint& node : nodes)
            Node(node.x, node.y);
    }
    void AddBox(int left, int top, int right, int bottom)
    {
        gCVSAddMRectangle(Number);
        Move(0, 0);
        Drag(CPoint(left + 50, top + 40), CPoint(right + 50, bottom + 40), DrawFlags);
        Paint();
    }
    void AddCustomBox(int left, int top, int right, int bottom)
    {
        const TestDialogs installed(RegionAnswer(left, top, right, bottom));
        gCVSAddCustomRectangle(Number);
        Move(0, 0);
        Paint();
    }
    void Click(int x, int y)
    {
        Press(x + 50, y + 40);
        Release(x + 50, y + 40);
    }

    // Image coordinates, y from the top.
    int LabelAt(int x, int y)
    {
        return gCVSGetLabelImaPtr2D(Number)[gCVSGetLabelIma(Number).Height - 1 - y][x];
    }
    int Count(int label)
    {
        const ClassData2DIO<int>& plane = gCVSGetLabelIma(Number);
        return static_cast<int>(std::count(plane.Ptr1D, plane.Ptr1D + plane.Width * plane.Height, label));
    }
};

}

TEST_CASE("without objects every label is 1")
{
    LabelCanvas host;
    CHECK(gCVSGenerateLabel(host.Number, false) == 1);
    CHECK(host.Count(1) == 8000);
    CHECK(gCVSGenerateLabel(host.Number, true) == 1);
    CHECK(host.Count(1) == 8000);
}

TEST_CASE("each kind of region shows in the plane with its number plus one, row 0 at the bottom")
{
    LabelCanvas host;
    host.AddBox(5, 5, 14, 14);
    host.AddCustomBox(20, 5, 29, 14);
    host.AddPolygon({CPoint(40, 5), CPoint(49, 5), CPoint(49, 14), CPoint(40, 14)});
    gCVSAddFreeRegion(host.Number);
    host.Move(0, 0);
    host.Press(60 + 50, 5 + 40, DrawFlags);
    for (const CPoint p : {CPoint(69, 5), CPoint(69, 14), CPoint(60, 14)})
        host.Move(p.x + 50, p.y + 40, DrawFlags);
    host.Release(60 + 50, 14 + 40);
    gCVSAddSpline(host.Number);
    host.Move(0, 0);
    for (const CPoint p : {CPoint(20, 40), CPoint(60, 40), CPoint(60, 70), CPoint(20, 70)})
        host.Node(p.x, p.y);
    host.Paint();
    CHECK(gCVSGenerateLabel(host.Number, false) == 5);
    for (int label = 1; label <= 4; ++label)
        CHECK(host.Count(label) == 100);
    CHECK(host.Count(5) > 900);
    CHECK(host.LabelAt(5, 5) == 1);
    CHECK(host.LabelAt(29, 14) == 2);
    CHECK(host.LabelAt(45, 10) == 3);
    CHECK(host.LabelAt(65, 10) == 4);
    CHECK(host.LabelAt(40, 55) == 5);
    CHECK(gCVSGetLabelImaPtr2D(host.Number)[0] == gCVSGetLabelImaPtr1D(host.Number));
    CHECK(gCVSGetLabelImaPtr2D(host.Number)[79 - 5][5] == 1);
}

TEST_CASE("a box is the same region whichever way it was dragged across its sides")
{
    LabelCanvas host;
    host.AddBox(5, 5, 14, 12);
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 80);
    // Dragged to the upper left the corners run clockwise again; to the other two they do not.
    gCVSDelAllElement(host.Number);
    host.AddBox(14, 12, 5, 5);
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 80);
    gCVSDelAllElement(host.Number);
    host.AddBox(14, 5, 5, 12);
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 60);
    CHECK(host.LabelAt(10, 5) == 0);
}

TEST_CASE("later regions overwrite earlier ones")
{
    LabelCanvas host;
    host.AddBox(5, 5, 24, 24);
    host.AddBox(30, 5, 40, 10);
    host.AddPolygon({CPoint(15, 2), CPoint(50, 2), CPoint(50, 40), CPoint(15, 40)});
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.LabelAt(10, 10) == 1);
    CHECK(host.LabelAt(20, 20) == 3);
    CHECK(host.Count(2) == 0);
    CHECK(host.Count(1) == 10 * 20);
}

TEST_CASE("after the first of three regions is deleted the others take the values 1 and 2")
{
    LabelCanvas host;
    host.AddBox(5, 5, 14, 14);
    host.AddBox(30, 5, 39, 14);
    host.AddBox(60, 5, 69, 14);
    CHECK(gCVSGenerateLabel(host.Number, false) == 3);
    host.Click(10, 10);
    gCVSDelSelElement(host.Number);
    CHECK(gCVSGenerateLabel(host.Number, false) == 2);
    CHECK(host.Count(1) == 100);
    CHECK(host.Count(2) == 100);
    CHECK(host.Count(3) == 0);
    CHECK(host.LabelAt(10, 10) == 0);
    CHECK(host.LabelAt(35, 10) == 1);
    CHECK(host.LabelAt(65, 10) == 2);
    host.AddBox(5, 40, 14, 49);
    CHECK(gCVSGenerateLabel(host.Number, false) == 3);
    CHECK(host.LabelAt(10, 45) == 3);
}

TEST_CASE("a polygon of two points writes their line, of one point nothing; both keep their number")
{
    LabelCanvas host;
    host.AddPolygon({CPoint(5, 5), CPoint(24, 5)});
    host.AddPolygon({CPoint(5, 30)});
    host.AddPolygon({});
    CHECK(gCVSGenerateLabel(host.Number, false) == 3);
    CHECK(host.Count(1) == 20);
    CHECK(host.Count(0) == 7980);
    host.AddBox(40, 40, 49, 49);
    CHECK(gCVSGenerateLabel(host.Number, false) == 4);
    CHECK(host.LabelAt(45, 45) == 4);
}

TEST_CASE("a rectangle that was added and not drawn has no region but gives the result")
{
    LabelCanvas host;
    gCVSAddMRectangle(host.Number);
    gCVSAddMRectangle(host.Number);
    CHECK(gCVSGenerateLabel(host.Number, false) == 2);
    CHECK(host.Count(0) == 8000);
}

TEST_CASE("only text leaves the label image at 0 with the result 1, selected or not")
{
    LabelCanvas host;
    gCVSAddTextOL(host.Number, L"text", 60, 60, FontRed22Framed, 1, 0, 20);
    CHECK(gCVSGenerateLabel(host.Number, false) == 1);
    CHECK(host.Count(0) == 8000);
    CHECK(gCVSGenerateLabel(host.Number, true) == 1);
    CHECK(host.Count(0) == 8000);
    host.Press(1, 1);
    host.Release(1, 1);
    CHECK(gCVSGenerateLabel(host.Number, true) == 1);
    CHECK(host.Count(1) == 8000);
}

TEST_CASE("with selectedOnly the plane holds the selected region alone, with its number of all regions")
{
    LabelCanvas host;
    host.AddBox(5, 5, 14, 14);
    host.AddBox(30, 5, 39, 14);
    host.Click(35, 10);
    CHECK(gCVSGenerateLabel(host.Number, true) == 2);
    CHECK(host.Count(2) == 100);
    CHECK(host.Count(0) == 7900);
    host.Click(10, 10);
    CHECK(gCVSGenerateLabel(host.Number, true) == 1);
    CHECK(host.Count(1) == 100);
    CHECK(host.Count(0) == 7900);
    host.Press(1, 1);
    host.Release(1, 1);
    CHECK(gCVSGenerateLabel(host.Number, true) == 1);
    CHECK(host.Count(1) == 8000);
}

TEST_CASE("ellipse mode counts in the plane for a custom rectangle and not for a rubber-banded one")
{
    LabelCanvas host;
    host.AddBox(5, 5, 25, 25);
    host.AddCustomBox(40, 5, 60, 25);
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 441);
    CHECK(host.Count(2) == 441);
    host.Key('E');
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 441);
    CHECK(host.Count(2) > 280);
    CHECK(host.Count(2) < 340);
    CHECK(host.LabelAt(40, 5) == 0);
    CHECK(host.LabelAt(40, 15) == 2);
    CHECK(host.LabelAt(59, 15) == 2);
    CHECK(host.LabelAt(60, 15) == 0);
    host.Key('E');
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(2) == 441);
}

TEST_CASE("a custom rectangle beyond the image fills the box of its clamped corners, its ellipse is cut off")
{
    LabelCanvas host;
    host.AddCustomBox(-20, -30, 10, 10);
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 121);
    host.Key('E');
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) < 121);
    CHECK(host.LabelAt(0, 0) == 1);
    gCVSDelAllElement(host.Number);
    host.AddCustomBox(-2000000, -2000000, 2000000, 2000000);
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 8000);
    host.Key('E');
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 8000);
}

TEST_CASE(
    "the region stays with its image points when the image is panned, zoomed or replaced by a smaller one")
{
    LabelCanvas host(3);
    host.AddBox(5, 5, 24, 24);
    host.Pan(13, -9);
    host.Wheel(40, 40, 120);
    gCVSGenerateLabel(host.Number, false);
    CHECK(host.Count(1) == 400);
    CHECK(host.LabelAt(5, 5) == 1);
    host.ShowGray(
        20, 10, [](int, int) { return 9; }, false);
    CHECK(gCVSGenerateLabel(host.Number, false) == 1);
    CHECK(gCVSGetLabelIma(host.Number).Width == 20);
    CHECK(gCVSGetLabelIma(host.Number).Height == 10);
    CHECK(host.Count(1) == 15 * 5);
    CHECK(host.ZoomBack());
}

TEST_CASE("a contrast change redraws the selected region alone, and everything when nothing is selected")
{
    LabelCanvas host;
    host.ShowFloat(100, 80,
                   [](int x, int y) { return (x + y) % 2 == 0 ? 0.0f : 100.0f + static_cast<float>(x); });
    host.AddBox(10, 10, 29, 29);
    host.AddBox(50, 10, 69, 29);
    host.Click(20, 20);
    const Frame before = host.Surface();
    gCVSSetLutPara(host.Number, 0.25f, 0.5f);
    const Frame after = host.Surface();
    int         inside = 0;
    int         outside = 0;
    for (int y = 0; y < 80; ++y) {
        for (int x = 0; x < 100; ++x) {
            const bool changed = before.Pixels[static_cast<std::size_t>(y * 100 + x)] !=
                                 after.Pixels[static_cast<std::size_t>(y * 100 + x)];
            (x >= 10 && x <= 29 && y >= 10 && y <= 29 ? inside : outside) += changed;
        }
    }
    CHECK(inside == 200);    // the brighter half
    CHECK(outside == 0);
    host.Press(1, 1);
    host.Release(1, 1);
    gCVSSetLutPara(host.Number, 0.25f, 0.5f);
    const Frame whole = host.Surface();
    outside = 0;
    for (std::size_t i = 0; i < whole.Pixels.size(); ++i)
        outside += whole.Pixels[i] != before.Pixels[i];
    CHECK(outside > 3500);
}
