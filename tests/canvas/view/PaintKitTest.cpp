#include "canvas/view/PaintKit.h"

#include "support/GdiObjectCount.h"
#include "support/HostCanvas.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <functional>

using namespace vostel;

namespace {

constexpr COLORREF     BlueColor = 0xFF0000;    // a GDI value
constexpr unsigned int BlueWord = 0x0000FF;
constexpr unsigned int Paper = 0x335577;

// A kit that draws into a window of one color.
struct Board {
    TestDesktop  Desktop;
    MemoryWindow Window;
    PaintKit     Kit;

    Board(int width, int height) : Window(width, height)
    {
        Window.Fill(Paper);
        Kit.Dc = Window.Dc;
    }
    Frame Blank() const { return Frame(Window.Width, Window.Height, Paper); }
};

// By plain GDI, into a window of the same kind.
Frame DrawnBy(int width, int height, const std::function<void(HDC)>& draw)
{
    MemoryWindow window(width, height);
    window.Fill(Paper);
    draw(window.Dc);
    return window.Capture();
}

// By plain GDI with a pen and no brush.
Frame PennedBy(int width, int height, int style, int penWidth, COLORREF color,
               const std::function<void(HDC)>& draw)
{
    return DrawnBy(width, height, [&](HDC dc) {
        const HPEN    pen = CreatePen(style, penWidth, color);
        const HGDIOBJ before = SelectObject(dc, pen);
        SelectObject(dc, GetStockObject(NULL_BRUSH));
        draw(dc);
        SelectObject(dc, before);
        DeleteObject(pen);
    });
}

int CountOf(const Frame& frame, unsigned int pixel)
{
    int count = 0;
    for (const unsigned int each : frame.Pixels)
        count += each == pixel ? 1 : 0;
    return count;
}

// Draws once to let the platform make what it keeps, then again: nothing may be left behind or selected.
void CheckLeavesNothing(Board& board, const std::function<void()>& draw)
{
    draw();
    const HGDIOBJ  pen = GetCurrentObject(board.Window.Dc, OBJ_PEN);
    const HGDIOBJ  brush = GetCurrentObject(board.Window.Dc, OBJ_BRUSH);
    const unsigned before = GdiObjectCount();
    for (int i = 0; i < 20; ++i)
        draw();
    CHECK(GdiObjectCount() == before);
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_PEN) == pen);
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_BRUSH) == brush);
}

}

TEST_CASE("a fresh kit has a white text box background, a dash period of 14 and nothing else")
{
    const PaintKit kit;
    CHECK(kit.BkMode == 0);
    CHECK(kit.TextColor == 0);
    CHECK(kit.FontHeight == 0);
    CHECK(kit.TextBoxBack);
    CHECK(kit.DashPeriod == 14);
    CHECK(kit.PixelPtr == nullptr);
    CHECK(kit.DashPhase == 0);
    CHECK(kit.Spare[0] == 0);
    CHECK(kit.Spare[1] == 0);
    CHECK(kit.BmpWidth == 0);
    CHECK(kit.BmpHeight == 0);
    CHECK(kit.Dc == nullptr);
    CHECK(kit.Pen == nullptr);
    CHECK(kit.Font == nullptr);
    CHECK(kit.Brush == nullptr);
}

TEST_CASE("a line leaves out its end point and keeps the pen that was there")
{
    Board         board(20, 10);
    const HGDIOBJ pen = GetCurrentObject(board.Window.Dc, OBJ_PEN);
    board.Kit.DrawLine(CPoint(2, 3), CPoint(7, 3), 12345, BlueColor, PS_SOLID);
    Frame expected = board.Blank();
    expected.FillRect(2, 3, 7, 4, BlueWord);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_PEN) == pen);
}

TEST_CASE("a line takes the pen style")
{
    for (const int style : {PS_SOLID, PS_DASH, PS_DOT}) {
        CAPTURE(style);
        Board board(60, 40);
        board.Kit.DrawLine(CPoint(1, 2), CPoint(55, 33), 0, BlueColor, style);
        CHECK(FrameDifference(board.Window.Capture(), PennedBy(60, 40, style, 1, BlueColor, [](HDC dc) {
                                  MoveToEx(dc, 1, 2, nullptr);
                                  LineTo(dc, 55, 33);
                              })) == "");
    }
    Board board(60, 40);
    board.Kit.DrawLine(CPoint(1, 2), CPoint(55, 33), 0, BlueColor, PS_NULL);
    CHECK(FrameDifference(board.Window.Capture(), board.Blank()) == "");
}

TEST_CASE("a rectangle outline leaves out right and bottom edge, its inside and its pen")
{
    Board board(20, 12);
    board.Kit.DrawRectOutline(CRect(2, 3, 12, 9), BlueColor);
    Frame expected = board.Blank();
    expected.OutlineRect(2, 3, 12, 9, BlueWord);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_PEN) == GetStockObject(BLACK_PEN));
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_BRUSH) == GetStockObject(WHITE_BRUSH));
}

TEST_CASE("an ellipse outline is that of a solid pen without a brush")
{
    Board board(30, 20);
    SelectObject(board.Window.Dc, GetStockObject(GRAY_BRUSH));
    board.Kit.DrawEllipseOutline(CRect(3, 2, 26, 17), BlueColor);
    const Frame drawn = board.Window.Capture();
    CHECK(FrameDifference(drawn, PennedBy(30, 20, PS_SOLID, 1, BlueColor,
                                          [](HDC dc) { Ellipse(dc, 3, 2, 26, 17); })) == "");
    CHECK(drawn.At(14, 9) == Paper);
    CHECK(drawn.At(14, 2) == BlueWord);
    CHECK(drawn.At(3, 9) == BlueWord);
    CHECK(drawn.At(26, 9) == Paper);
    CHECK(drawn.At(25, 9) == BlueWord);
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_BRUSH) == GetStockObject(WHITE_BRUSH));
}

TEST_CASE("a solid fill leaves out right and bottom edge and has no outline")
{
    Board board(10, 10);
    board.Kit.FillSolid(CRect(2, 3, 6, 8), BlueColor);
    Frame expected = board.Blank();
    expected.FillRect(2, 3, 6, 8, BlueWord);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
    board.Kit.FillSolid(CRect(5, 5, 5, 9), 0xFFFFFF);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
}

TEST_CASE("a text box grows its rectangle by 3 on every side, for the caller too, and fills it white")
{
    Board board(40, 30);
    CRect r(10, 10, 20, 20);
    board.Kit.DrawTextBox(L"", r);
    CHECK(r == CRect(7, 7, 23, 23));
    Frame expected = board.Blank();
    expected.FillRect(7, 7, 23, 23, 0xFFFFFF);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
    CHECK(SetBkMode(board.Window.Dc, TRANSPARENT) == TRANSPARENT);
}

TEST_CASE("a text box without a background leaves what lies under it")
{
    Board board(40, 30);
    board.Kit.TextBoxBack = false;
    CRect r(10, 10, 20, 20);
    board.Kit.DrawTextBox(L"", r);
    CHECK(r == CRect(7, 7, 23, 23));
    CHECK(FrameDifference(board.Window.Capture(), board.Blank()) == "");
}

TEST_CASE("the text of a box stays inside the box, in its middle")
{
    Board board(120, 60);
    board.Kit.SelectTextStyle(18, TRANSPARENT, BlueColor);
    CRect r(20, 15, 100, 45);
    board.Kit.DrawTextBox(L"Hxi", r);
    const Frame drawn = board.Window.Capture();
    Frame       around = drawn;
    around.FillRect(17, 12, 103, 48, Paper);
    CHECK(FrameDifference(around, board.Blank()) == "");
    int left = 120;
    int right = 0;
    int top = 60;
    int bottom = 0;
    for (int y = 12; y < 48; ++y) {
        for (int x = 17; x < 103; ++x) {
            if (drawn.At(x, y) != 0xFFFFFF) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        }
    }
    REQUIRE(left <= right);
    CHECK(std::abs((left - 17) - (102 - right)) <= 4);
    CHECK(std::abs((top - 12) - (47 - bottom)) <= 10);
}

TEST_CASE("a label is drawn transparent in blue and leaves these settings")
{
    Board board(80, 30);
    board.Kit.SelectTextStyle(16, OPAQUE, 0);
    board.Kit.DrawLabel(L"HHH", 5, 4);
    const Frame drawn = board.Window.Capture();
    CHECK(FrameDifference(drawn, board.Blank()) != "");
    CHECK(CountOf(drawn, 0xFFFFFF) == 0);
    CHECK(CountOf(drawn, Paper) > 80 * 30 / 2);
    CHECK(SetBkMode(board.Window.Dc, TRANSPARENT) == TRANSPARENT);
    CHECK(SetBkColor(board.Window.Dc, 0) == 0xFFFFFF);
    CHECK(SetTextColor(board.Window.Dc, 0) == 0xFF0000);
}

TEST_CASE("a text style makes a font in place of the one before, and sets color and mode")
{
    Board board(20, 10);
    board.Kit.SelectTextStyle(18, OPAQUE, 0x123456);
    REQUIRE(board.Kit.Font != nullptr);
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_FONT) == board.Kit.Font);
    CHECK(SetBkMode(board.Window.Dc, TRANSPARENT) == OPAQUE);
    CHECK(SetTextColor(board.Window.Dc, 0) == 0x123456);
    const unsigned one = GdiObjectCount();
    for (int i = 0; i < 20; ++i)
        board.Kit.SelectTextStyle(10 + i, TRANSPARENT, 0x654321);
    CHECK(GdiObjectCount() == one);
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_FONT) == board.Kit.Font);
    CHECK(SetTextColor(board.Window.Dc, 0) == 0x654321);
}

TEST_CASE("a kit at its end selects stock objects and frees its font")
{
    MemoryWindow window(20, 10);
    {
        PaintKit().SelectTextStyle(10, TRANSPARENT, 0);
    }    // without a target
    const unsigned before = GdiObjectCount();
    {
        PaintKit kit;
        kit.Dc = window.Dc;
        SelectObject(window.Dc, GetStockObject(WHITE_PEN));
        SelectObject(window.Dc, GetStockObject(GRAY_BRUSH));
        kit.SelectTextStyle(18, TRANSPARENT, 0);
        kit.Pen = CreatePen(PS_SOLID, 1, 0);
        kit.Brush = CreateSolidBrush(0);
    }
    CHECK(GdiObjectCount() == before);
    CHECK(GetCurrentObject(window.Dc, OBJ_PEN) == GetStockObject(BLACK_PEN));
    CHECK(GetCurrentObject(window.Dc, OBJ_BRUSH) == GetStockObject(WHITE_BRUSH));
    CHECK(GetCurrentObject(window.Dc, OBJ_FONT) == GetStockObject(DEFAULT_GUI_FONT));
}

TEST_CASE("a curve grows upwards from its base point in red and leaves the origin at 0, 0")
{
    Board                         board(20, 20);
    ClassData2DIO<unsigned short> data;
    data.Allocate(5, 2);
    for (int i = 0; i < 10; ++i)
        data.Ptr1D[i] = static_cast<unsigned short>(i < 5 ? 4 : 19);    // the second row is not drawn
    board.Kit.DrawCurve(data, 3, 15);
    Frame expected = board.Blank();
    expected.FillRect(3, 11, 7, 12, 0xFF0000);    // the last point is left out
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
    POINT origin = {7, 7};
    SetViewportOrgEx(board.Window.Dc, 0, 0, &origin);
    CHECK(origin.x == 0);
    CHECK(origin.y == 0);
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_PEN) == GetStockObject(BLACK_PEN));
}

TEST_CASE("a curve joins its values by lines")
{
    Board                         board(30, 30);
    ClassData2DIO<unsigned short> data;
    data.Allocate(6, 1);
    const unsigned short values[] = {0, 10, 3, 65535, 5, 7};
    std::copy(values, values + 6, data.Ptr1D);
    board.Kit.DrawCurve(data, 2, 25);
    CHECK(FrameDifference(board.Window.Capture(), PennedBy(30, 30, PS_SOLID, 1, 255, [&](HDC dc) {
                              MoveToEx(dc, 2, 25, nullptr);
                              for (int i = 1; i < 6; ++i)
                                  LineTo(dc, 2 + i, 25 - values[i]);
                          })) == "");
}

TEST_CASE("a curve of no data draws nothing")
{
    Board                         board(20, 20);
    ClassData2DIO<unsigned short> data;
    board.Kit.DrawCurve(data, 3, 15);
    data.Allocate(0, 0);
    board.Kit.DrawCurve(data, 3, 15);
    data.Release();
    board.Kit.DrawCurve(data, 3, 15);
    CHECK(FrameDifference(board.Window.Capture(), board.Blank()) == "");
}

TEST_CASE("the background is one color, a hatching over it and a gray outline")
{
    const CRect r(3, 2, 61, 45);
    Board       board(64, 48);
    board.Kit.DrawHatchBackground(r);
    const Frame drawn = board.Window.Capture();
    CHECK(FrameDifference(drawn, DrawnBy(64, 48, [&](HDC dc) {
                              const HPEN    pen = CreatePen(PS_SOLID, 1, 0x808080);
                              const HBRUSH  background = CreateSolidBrush(10061943);
                              const HBRUSH  hatch = CreateHatchBrush(HS_DIAGCROSS, 0x808080);
                              const HGDIOBJ penBefore = SelectObject(dc, pen);
                              const HGDIOBJ brushBefore = SelectObject(dc, background);
                              SetBkMode(dc, TRANSPARENT);
                              Rectangle(dc, r.left, r.top, r.right, r.bottom);
                              SelectObject(dc, hatch);
                              Rectangle(dc, r.left, r.top, r.right, r.bottom);
                              SelectObject(dc, penBefore);
                              SelectObject(dc, brushBefore);
                              DeleteObject(pen);
                              DeleteObject(background);
                              DeleteObject(hatch);
                          })) == "");
    CHECK(CountOf(drawn, 0x778899) > 1000);    // 0x998877 as a pixel
    CHECK(CountOf(drawn, 0x808080) > 400);
    CHECK(drawn.At(3, 2) == 0x808080);
    CHECK(drawn.At(60, 44) == 0x808080);
    CHECK(drawn.At(61, 44) == Paper);
    CHECK(drawn.At(2, 2) == Paper);
}

TEST_CASE("the background leaves transparent text, the stock pen, brush and font, and nothing else")
{
    Board board(64, 48);
    SelectObject(board.Window.Dc, GetStockObject(WHITE_PEN));
    SelectObject(board.Window.Dc, GetStockObject(GRAY_BRUSH));
    SetBkColor(board.Window.Dc, 0x123456);
    board.Kit.DrawHatchBackground(CRect(0, 0, 64, 48));
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_PEN) == GetStockObject(BLACK_PEN));
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_BRUSH) == GetStockObject(WHITE_BRUSH));
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_FONT) == GetStockObject(DEFAULT_GUI_FONT));
    CHECK(SetBkMode(board.Window.Dc, OPAQUE) == TRANSPARENT);
    CHECK(SetBkColor(board.Window.Dc, 0) == 0x123456);
}

TEST_CASE("the background around a covered part equals the whole background outside that part")
{
    const CRect r(0, 0, 64, 48);
    Board       whole(64, 48);
    whole.Kit.DrawHatchBackground(r);
    const Frame expected = whole.Window.Capture();
    for (const CRect covered : {CRect(10, 10, 50, 30), CRect(-5, -5, 20, 60), CRect(0, 0, 64, 48),
                                CRect(63, 47, 90, 90), CRect(20, 20, 20, 30), CRect(70, 70, 80, 80),
                                CRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX), CRect(30, 40, 10, 20)}) {
        CAPTURE(covered.left);
        CAPTURE(covered.top);
        Board board(64, 48);
        board.Kit.DrawHatchBackground(r, covered);
        Frame drawn = board.Window.Capture();
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 64; ++x)
                if (covered.PtInRect(CPoint(x, y)))
                    drawn.At(x, y) = expected.At(x, y);
        CHECK(FrameDifference(drawn, expected) == "");
    }
}

TEST_CASE("binding notes the pixels and the size of the bitmap in the context")
{
    Board        board(37, 21);
    unsigned int pixel = 0;
    board.Kit.BindSurface(&pixel);
    CHECK(board.Kit.PixelPtr == &pixel);
    CHECK(board.Kit.BmpWidth == 37);
    CHECK(board.Kit.BmpHeight == 21);
    CHECK(board.Desktop.Messages.empty());
}

TEST_CASE("binding without a bitmap says so and keeps the size")
{
    Board board(37, 21);
    board.Kit.BindSurface(nullptr);
    board.Kit.Dc = nullptr;
    unsigned int pixel = 0;
    board.Kit.BindSurface(&pixel);
    CHECK(board.Desktop.Messages == std::vector<CString>{L"No bmp"});
    CHECK(board.Kit.PixelPtr == &pixel);
    CHECK(board.Kit.BmpWidth == 37);
    CHECK(board.Kit.BmpHeight == 21);
}

TEST_CASE("a closed polyline joins its points in order and its last to its first")
{
    const std::vector<CPoint> points = {CPoint(2, 2), CPoint(17, 4), CPoint(15, 18), CPoint(3, 11)};
    Board                     board(24, 24);
    board.Kit.DrawClosedPolyline(points, BlueColor);
    CHECK(FrameDifference(board.Window.Capture(), PennedBy(24, 24, PS_SOLID, 1, BlueColor, [&](HDC dc) {
                              for (std::size_t i = 0; i < points.size(); ++i) {
                                  const CPoint& to = points[(i + 1) % points.size()];
                                  MoveToEx(dc, points[i].x, points[i].y, nullptr);
                                  LineTo(dc, to.x, to.y);
                              }
                          })) == "");
    CHECK(GetCurrentObject(board.Window.Dc, OBJ_PEN) == GetStockObject(BLACK_PEN));
}

TEST_CASE("a closed polyline of two points runs there and back, so that both ends are drawn")
{
    Board board(20, 10);
    board.Kit.DrawClosedPolyline(std::vector<CPoint>{CPoint(3, 4), CPoint(9, 4)}, BlueColor);
    Frame expected = board.Blank();
    expected.FillRect(3, 4, 10, 5, BlueWord);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
}

TEST_CASE("a closed polyline of fewer points draws nothing")
{
    Board board(20, 10);
    board.Kit.DrawClosedPolyline(std::vector<CPoint>{}, BlueColor);
    board.Kit.DrawClosedPolyline(std::vector<CPoint>{CPoint(3, 4)}, BlueColor);
    CHECK(FrameDifference(board.Window.Capture(), board.Blank()) == "");
}

TEST_CASE("segments that start at point 0 alone are one polyline")
{
    Board board(20, 20);
    board.Kit.DrawSegments({CPoint(2, 3), CPoint(9, 3), CPoint(9, 12)}, {0}, 1, BlueColor);
    Frame expected = board.Blank();
    expected.FillRect(2, 3, 9, 4, BlueWord);
    expected.FillRect(9, 3, 10, 12, BlueWord);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
}

TEST_CASE("each start begins a stroke")
{
    Board board(30, 20);
    board.Kit.DrawSegments(
        {CPoint(2, 3), CPoint(9, 3), CPoint(2, 6), CPoint(9, 6), CPoint(12, 6), CPoint(5, 9)}, {0, 2, 5}, 1,
        BlueColor);
    Frame expected = board.Blank();
    expected.FillRect(2, 3, 9, 4, BlueWord);
    expected.FillRect(2, 6, 12, 7, BlueWord);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
}

TEST_CASE("segments without a start, or with fewer than two points, draw nothing")
{
    Board board(20, 20);
    board.Kit.DrawSegments({CPoint(2, 3), CPoint(9, 3), CPoint(9, 12)}, {}, 1, BlueColor);
    board.Kit.DrawSegments({CPoint(2, 3)}, {0}, 1, BlueColor);
    board.Kit.DrawSegments({}, {0}, 1, BlueColor);
    CHECK(FrameDifference(board.Window.Capture(), board.Blank()) == "");
}

TEST_CASE("a start that is never reached holds back those after it, and one past the points does no harm")
{
    Board board(20, 20);
    board.Kit.DrawSegments({CPoint(2, 3), CPoint(9, 3), CPoint(9, 12)}, {0, 0, 1}, 1, BlueColor);
    Frame expected = board.Blank();
    expected.FillRect(2, 3, 9, 4, BlueWord);
    expected.FillRect(9, 3, 10, 12, BlueWord);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
    board.Kit.DrawSegments({CPoint(2, 3), CPoint(9, 3)}, {0, 99, INT_MAX, INT_MIN}, 1, BlueColor);
    CHECK(FrameDifference(board.Window.Capture(), expected) == "");
}

TEST_CASE("segments take the pen width")
{
    Board board(40, 20);
    board.Kit.DrawSegments({CPoint(5, 10), CPoint(30, 10)}, {0}, 5, BlueColor);
    const Frame drawn = board.Window.Capture();
    for (int y = 8; y <= 12; ++y)
        CHECK(drawn.At(17, y) == BlueWord);
    CHECK(drawn.At(17, 7) == Paper);
    CHECK(drawn.At(17, 13) == Paper);
}

TEST_CASE("handles are squares, ellipses or nothing, by their shape")
{
    const std::vector<CRect> rects = {CRect(2, 2, 10, 10), CRect(15, 5, 23, 13)};
    Board                    squares(30, 20);
    squares.Kit.DrawHandles(rects, BlueColor, 1);
    Frame expected = squares.Blank();
    expected.OutlineRect(2, 2, 10, 10, BlueWord);
    expected.OutlineRect(15, 5, 23, 13, BlueWord);
    CHECK(FrameDifference(squares.Window.Capture(), expected) == "");
    CHECK(GetCurrentObject(squares.Window.Dc, OBJ_BRUSH) == GetStockObject(WHITE_BRUSH));

    Board ellipses(30, 20);
    ellipses.Kit.DrawHandles(rects, BlueColor, 0);
    CHECK(FrameDifference(ellipses.Window.Capture(), PennedBy(30, 20, PS_SOLID, 1, BlueColor, [&](HDC dc) {
                              for (const CRect& r : rects)
                                  Ellipse(dc, r.left, r.top, r.right, r.bottom);
                          })) == "");

    for (const int shape : {2, -1, 3, INT_MAX, INT_MIN}) {
        Board none(30, 20);
        none.Kit.DrawHandles(rects, BlueColor, shape);
        CHECK(FrameDifference(none.Window.Capture(), none.Blank()) == "");
    }
}

TEST_CASE("an empty list of handles draws nothing")
{
    Board board(30, 20);
    board.Kit.DrawHandles({}, BlueColor, 0);
    board.Kit.DrawHandles({}, BlueColor, 1);
    CHECK(FrameDifference(board.Window.Capture(), board.Blank()) == "");
}

TEST_CASE("no drawing leaves an object behind or another one selected")
{
    Board                         board(64, 48);
    ClassData2DIO<unsigned short> data;
    data.Allocate(4, 1);
    std::fill(data.Ptr1D, data.Ptr1D + 4, static_cast<unsigned short>(3));
    const std::vector<CPoint> points = {CPoint(2, 2), CPoint(17, 4), CPoint(15, 18)};
    CheckLeavesNothing(board, [&] { board.Kit.DrawLine(CPoint(1, 1), CPoint(9, 9), 0, BlueColor, PS_DOT); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawRectOutline(CRect(1, 1, 9, 9), BlueColor); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawEllipseOutline(CRect(1, 1, 9, 9), BlueColor); });
    CheckLeavesNothing(board, [&] { board.Kit.FillSolid(CRect(1, 1, 9, 9), BlueColor); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawCurve(data, 5, 5); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawHatchBackground(CRect(0, 0, 64, 48), CRect(5, 5, 9, 9)); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawClosedPolyline(points, BlueColor); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawSegments(points, {0, 2}, 3, BlueColor); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawSegments({}, {}, 3, BlueColor); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawHandles({CRect(1, 1, 9, 9)}, BlueColor, 0); });
    CheckLeavesNothing(board, [&] { board.Kit.DrawHandles({CRect(1, 1, 9, 9)}, BlueColor, 1); });
    CheckLeavesNothing(board, [&] {
        CRect r(1, 1, 30, 20);
        board.Kit.DrawTextBox(L"a", r);
    });
    CheckLeavesNothing(board, [&] { board.Kit.DrawLabel(L"a", 3, 3); });
}

TEST_CASE("drawing without a target, or far outside it, does no harm")
{
    TestDesktop                   desktop;
    PaintKit                      kit;
    Board                         board(30, 20);
    ClassData2DIO<unsigned short> data;
    data.Allocate(2, 1);
    data.Ptr1D[0] = data.Ptr1D[1] = 65535;
    const CRect wide(-100000, -100000, 100000, 100000);
    for (PaintKit* each : {&kit, &board.Kit}) {
        each->DrawLine(CPoint(-1000000, -1000000), CPoint(1000000, 999999), 0, BlueColor, PS_SOLID);
        each->DrawCurve(data, -100000, 100000);
        each->DrawRectOutline(wide, BlueColor);
        each->DrawEllipseOutline(wide, BlueColor);
        each->DrawHandles({wide}, BlueColor, 0);
        each->DrawClosedPolyline(std::vector<CPoint>{CPoint(-1000000, 5), CPoint(1000000, 5)}, BlueColor);
        each->DrawSegments({CPoint(-1000000, 5), CPoint(1000000, 5)}, {0}, 3, BlueColor);
        each->DrawLabel(L"far", 1000000, -1000000);
        CRect box(-100, -100, -90, -90);
        each->DrawTextBox(L"far", box);
        CHECK(box == CRect(-103, -103, -87, -87));
    }
    CHECK(board.Window.Capture().At(10, 5) == BlueWord);
    board.Kit.DrawHatchBackground(CRect(0, 0, 30, 20));
    CHECK(board.Window.Capture().At(0, 0) == 0x808080);
}
