#include "instruments/VostelTextML.h"

#include "support/OverlayScene.h"

#include <algorithm>

using namespace vostel;

namespace {

// What a line needs at the panel's font: 20 px, as the custom style of that height.
CRect LineSize(const wchar_t* line)
{
    return gCVSGetTextRectOL(0, line, 0, 0, FontCustom, 1, 255, 20);
}

bool IsInk(unsigned int pixel)
{
    return pixel != 0x646464;
}

}

TEST_CASE("a panel takes its place, copies the caller's lines and is selected")
{
    OverlayScene               scene;
    const std::vector<CString> before = {L"one", L"two"};
    std::vector<CString>       lines = before;
    gCVSAddTextOL(0, L"text", 300, 10, FontPlain18, 1, 0, 0);
    gCVSAddTextML(0, lines, 40, 50);
    VostelTextML& panel = scene.Last<VostelTextML>();
    CHECK(lines == before);
    CHECK(panel.Lines == before);
    CHECK(panel.TypeCode == 14);
    CHECK(panel.SerialNo == 1);
    CHECK(panel.TypeSerial == 0);
    CHECK(panel.Selected);
    CHECK(panel.Margin == 5);
    CHECK(panel.ClientBox == CRect(40, 50, 40, 50));
    lines[0] = L"changed by the caller";
    CHECK(panel.Lines == before);
}

TEST_CASE("a paint sizes the panel to its widest line and keeps its upper left corner")
{
    OverlayScene         scene;
    std::vector<CString> lines = {L"a", L"the widest line of all", L"bcd"};
    gCVSAddTextML(0, lines, 40, 50);
    const VostelTextML& panel = scene.Last<VostelTextML>();
    scene.Paint();
    const CRect widest = LineSize(L"the widest line of all");
    CHECK(panel.ClientBox.left == 40);
    CHECK(panel.ClientBox.top == 50);
    CHECK(panel.ClientBox.right == 40 + widest.Width() + 10);
    CHECK(panel.ClientBox.bottom == 50 + 5 + 3 * (5 + LineSize(L"bcd").Height()));
    scene.Paint();
    CHECK(panel.ClientBox.right == 40 + widest.Width() + 10);    // no growth from paint to paint
}

TEST_CASE("the lines are red, each centred on its own row, without frame or fill")
{
    OverlayScene         scene;
    std::vector<CString> lines = {L"III", L"a much wider line", L"III"};
    gCVSAddTextML(0, lines, 40, 50);
    const VostelTextML& panel = scene.Last<VostelTextML>();
    scene.Paint();
    const CRect& box = panel.ClientBox;
    const int    pitch = 5 + LineSize(L"III").Height();
    for (int k = 0; k < 3; ++k) {
        CAPTURE(k);
        const CRect row(box.left + 5, box.top + 5 + k * pitch, box.right - 5, box.top + 5 + (k + 1) * pitch);
        CHECK(scene.Count(row, IsInk) > 10);
        if (k == 1)
            continue;
        const int middle = (row.left + row.right) / 2;
        const int third = LineSize(L"III").Width() / 2 + 2;
        CHECK(scene.Count(CRect(middle - third, row.top, middle + third, row.bottom), IsInk) ==
              scene.Count(row, IsInk));
    }
    CHECK(scene.Count(scene.Whole(), IsInk) == scene.Count(box, IsInk));
    CHECK(scene.Count(box, 0xFFFFFF) == 0);
    CHECK(scene.Count(box, [](unsigned int pixel) {
        return IsInk(pixel) && (RedOf(pixel) < 0x64 || GreenOf(pixel) > 0x64 || BlueOf(pixel) > 0x64);
    }) == 0);
    // The margin to the left stays free.
    CHECK(scene.Count(CRect(box.left, box.top, box.left + 5, box.bottom), IsInk) == 0);
}

TEST_CASE("the lines stand to the pixel where the system centres them between the margins")
{
    OverlayScene         scene;
    std::vector<CString> lines = {L"III", L"a much wider line", L"I"};
    const CRect          widest = LineSize(L"a much wider line");
    scene.Paint();
    const HDC     dc = scene.Window.Dc;
    const HFONT   font = CreateFontW(20, 0, 0, 0, 400, 0, 0, 0, 134, 8, 1, 0, 48, L"微软雅黑");
    const HGDIOBJ before = SelectObject(dc, font);
    const int     modeBefore = SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, 255);
    for (int k = 0; k < 3; ++k) {
        const int top = 55 + k * (5 + widest.Height());
        CRect     row(45, top, 45 + widest.Width(), top + 5 + widest.Height());
        DrawTextW(dc, lines[static_cast<std::size_t>(k)], lines[static_cast<std::size_t>(k)].GetLength(),
                  &row, 33);
    }
    SelectObject(dc, before);
    DeleteObject(font);
    SetBkMode(dc, modeBefore);
    SetTextColor(dc, 0);
    const Frame expected = scene.Window.Capture();
    gCVSAddTextML(0, lines, 40, 50);
    CHECK(FrameDifference(scene.PaintAndCapture(), expected) == "");
}

TEST_CASE("the pitch of all lines comes from the one measured last")
{
    OverlayScene         scene;
    std::vector<CString> lines = {L"one", L""};
    gCVSAddTextML(0, lines, 40, 50);
    const VostelTextML& panel = scene.Last<VostelTextML>();
    scene.Paint();
    // The empty line has no height, so the box holds one height and the rows are a margin apart.
    CHECK(panel.ClientBox.Height() == 5 + 5 + LineSize(L"one").Height() + 5);
}

TEST_CASE("a panel without lines keeps its last box and draws nothing")
{
    OverlayScene         scene;
    std::vector<CString> lines = {L"one"};
    gCVSAddTextML(0, lines, 40, 50);
    VostelTextML& panel = scene.Last<VostelTextML>();
    scene.Paint();
    const CRect box = panel.ClientBox;
    CHECK(scene.Count(box, IsInk) > 0);
    panel.ClearLines();
    CHECK(panel.Lines.empty());
    scene.Paint();
    CHECK(panel.ClientBox == box);
    CHECK(scene.Count(scene.Whole(), IsInk) == 0);

    std::vector<CString> none;
    gCVSAddTextML(0, none, 90, 90);
    scene.Paint();
    CHECK(scene.Last<VostelTextML>().ClientBox == CRect(90, 90, 90, 90));
}

TEST_CASE("lines are appended one by one, and a new list replaces all of them")
{
    VostelTextML panel;
    panel.AddTextLine(L"one");
    panel.AddTextLine(L"two");
    CHECK(panel.Lines == std::vector<CString>{L"one", L"two"});
    std::vector<CString> lines = {L"three"};
    panel.SetTextLines(lines);
    CHECK(panel.Lines == lines);
    panel.SetTextLines(panel.Lines);    // its own
    CHECK(panel.Lines == lines);
}

TEST_CASE("a panel is dragged in client pixels, with or without DrawFlags, and neither pans nor zooms")
{
    OverlayScene         scene;
    std::vector<CString> lines = {L"a line to take hold of"};
    gCVSAddTextML(0, lines, 40, 50);
    const VostelTextML& panel = scene.Last<VostelTextML>();
    scene.Paint();
    scene.Drag(CPoint(45, 55), CPoint(65, 45));
    CHECK(panel.ClientBox.left == 60);
    CHECK(panel.ClientBox.top == 40);
    scene.Drag(CPoint(65, 45), CPoint(60, 50), DrawFlags);
    CHECK(panel.ClientBox.left == 55);
    CHECK(panel.ClientBox.top == 45);
    scene.Move(300, 200);
    CHECK(panel.ClientBox.left == 55);
    const CRect box = panel.ClientBox;
    scene.Zoom(3);
    CHECK(panel.ClientBox == box);
    scene.Press(399, 299);    // outside
    scene.Move(200, 200, MK_LBUTTON);
    CHECK(panel.ClientBox == box);
    scene.Release(200, 200);
}

TEST_CASE("a panel takes presses and moves while another object is the selected one")
{
    OverlayScene         scene;
    std::vector<CString> lines = {L"a line to take hold of"};
    gCVSAddTextML(0, lines, 40, 50);
    const VostelTextML& panel = scene.Last<VostelTextML>();
    scene.Paint();
    gCVSAddPoly(0);
    scene.Move(45, 55);
    scene.Drag(CPoint(45, 55), CPoint(65, 65),
               DrawFlags);    // a node, and a drag of the panel
    CHECK(scene.Canvas().Elements.back()->ImagePoints.size() == 1);
    CHECK(panel.ClientBox.left == 60);
    CHECK(panel.ClientBox.top == 60);
}

TEST_CASE("lines of thousands of letters and thousands of lines are painted")
{
    OverlayScene         scene;
    std::vector<CString> lines(300, CString(L'W', 3000));
    gCVSAddTextML(0, lines, 5, 5);
    const VostelTextML& panel = scene.Last<VostelTextML>();
    scene.Paint();
    CHECK(panel.ClientBox.Width() > 1000 * 5);    // some systems take the first thousand letters of a line
    CHECK(panel.ClientBox.Height() == 5 + 300 * (5 + LineSize(L"W").Height()));
    CHECK(scene.Count(scene.Whole(), IsInk) > 1000);
}

TEST_CASE("a text panel of a canvas that does not exist is not made")
{
    OverlayScene         scene;
    std::vector<CString> lines = {L"one"};
    gCVSAddTextML(-1, lines, 0, 0);
    gCVSAddTextML(5, lines, 0, 0);
    CHECK(scene.Canvas().Elements.empty());
}
