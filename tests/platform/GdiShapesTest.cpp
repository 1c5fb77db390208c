#include "support/TestBitmap.h"

#include <doctest/doctest.h>

#include <climits>

TEST_CASE("a rectangle leaves out its right and bottom edge")
{
    TestBitmap     bitmap(6, 5);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    SelectedObject brush(bitmap.Dc, CreateSolidBrush(TestGreen));
    Rectangle(bitmap.Dc, 1, 1, 5, 4);
    CHECK(bitmap.Text() == "......\n"
                           ".rrrr.\n"
                           ".rggr.\n"
                           ".rrrr.\n"
                           "......\n");
}

TEST_CASE("the corners of a rectangle may come in any order")
{
    TestBitmap first(6, 5), second(6, 5);
    Rectangle(first.Dc, 1, 1, 5, 4);
    Rectangle(second.Dc, 5, 4, 1, 1);
    CHECK(first.Count(0xFFFFFF) == 2);    // white brush, black pen
    CHECK(first.Text() == second.Text());
}

TEST_CASE("without a pen a rectangle is one pixel smaller")
{
    TestBitmap bitmap(6, 5);
    SelectObject(bitmap.Dc, GetStockObject(NULL_PEN));
    SelectedObject brush(bitmap.Dc, CreateSolidBrush(TestGreen));
    Rectangle(bitmap.Dc, 1, 1, 5, 4);
    CHECK(bitmap.Text() == "......\n"
                           ".ggg..\n"
                           ".ggg..\n"
                           "......\n"
                           "......\n");
}

TEST_CASE("the null brush leaves the inside alone")
{
    TestBitmap bitmap(4, 4);
    SelectObject(bitmap.Dc, GetStockObject(NULL_BRUSH));
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Rectangle(bitmap.Dc, 0, 0, 4, 4);
    CHECK(bitmap.Text() == "rrrr\n"
                           "r..r\n"
                           "r..r\n"
                           "rrrr\n");
}

TEST_CASE("an empty box draws nothing and a box of one pixel neither, one of two does")
{
    TestBitmap     bitmap(6, 6);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    CHECK(Rectangle(bitmap.Dc, 2, 2, 2, 5));
    CHECK(Ellipse(bitmap.Dc, 2, 2, 5, 2));
    CHECK(Rectangle(bitmap.Dc, 2, 2, 3, 3));
    CHECK(bitmap.Count(0) == 36);
    Rectangle(bitmap.Dc, 2, 2, 4, 3);
    CHECK(bitmap.Count(0xFF0000) == 2);
}

TEST_CASE("an ellipse leaves out its right and bottom edge")
{
    TestBitmap     bitmap(8, 8);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    SelectedObject brush(bitmap.Dc, CreateSolidBrush(TestGreen));
    Ellipse(bitmap.Dc, 1, 1, 7, 7);
    CHECK(bitmap.Text() == "........\n"
                           "...rr...\n"
                           "..rggr..\n"
                           ".rggggr.\n"
                           ".rggggr.\n"
                           "..rggr..\n"
                           "...rr...\n"
                           "........\n");
}

TEST_CASE("a handle of 8 by 8 pixels is a round ring")
{
    TestBitmap bitmap(8, 8);
    SelectObject(bitmap.Dc, GetStockObject(NULL_BRUSH));
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Ellipse(bitmap.Dc, 0, 0, 8, 8);
    CHECK(bitmap.Text() == "..rrrr..\n"
                           ".r....r.\n"
                           "r......r\n"
                           "r......r\n"
                           "r......r\n"
                           "r......r\n"
                           ".r....r.\n"
                           "..rrrr..\n");
}

TEST_CASE("an ellipse of one or two columns is a bar")
{
    TestBitmap bitmap(5, 6);
    SelectObject(bitmap.Dc, GetStockObject(NULL_BRUSH));
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Ellipse(bitmap.Dc, 0, 1, 1, 5);
    Ellipse(bitmap.Dc, 2, 1, 4, 5);
    CHECK(bitmap.Text() == ".....\n"
                           "r.rr.\n"
                           "r.rr.\n"
                           "r.rr.\n"
                           "r.rr.\n"
                           ".....\n");
}

TEST_CASE("a wide pen draws a rectangle around the edge, half of it outside")
{
    TestBitmap bitmap(10, 9);
    SelectObject(bitmap.Dc, GetStockObject(NULL_BRUSH));
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 3, TestRed));
    Rectangle(bitmap.Dc, 2, 2, 8, 7);
    CHECK(bitmap.Text() == "..........\n"
                           "..rrrrrr..\n"
                           ".rrrrrrrr.\n"
                           ".rrrrrrrr.\n"
                           ".rrr..rrr.\n"
                           ".rrrrrrrr.\n"
                           ".rrrrrrrr.\n"
                           "..rrrrrr..\n"
                           "..........\n");
}

TEST_CASE("shapes of nearly the whole coordinate range end quickly")
{
    TestBitmap     bitmap(6, 6);
    SelectedObject brush(bitmap.Dc, CreateSolidBrush(TestGreen));
    SelectObject(bitmap.Dc, GetStockObject(NULL_PEN));
    CHECK(Rectangle(bitmap.Dc, INT_MIN / 2, INT_MIN / 2, INT_MAX / 2, INT_MAX / 2));
    CHECK(bitmap.Count(0x00FF00) == 36);
}

TEST_CASE("FillRect fills its rectangle without right and bottom, whatever the pen")
{
    TestBitmap bitmap(6, 4);
    HBRUSH     brush = CreateSolidBrush(TestGreen);
    RECT       rect = {1, 1, 4, 3};
    CHECK(FillRect(bitmap.Dc, &rect, brush) != 0);
    CHECK(bitmap.Text() == "......\n"
                           ".ggg..\n"
                           ".ggg..\n"
                           "......\n");
    RECT all = {-1000, -1000, 1000, 1000};
    FillRect(bitmap.Dc, &all, brush);
    CHECK(bitmap.Count(0x00FF00) == 24);
    DeleteObject(brush);
}

TEST_CASE("FillRect with its sides exchanged fills from the first side down to the one after the last")
{
    TestBitmap bitmap(7, 1);
    HBRUSH     brush = CreateSolidBrush(TestGreen);
    RECT       rect = {5, 0, 2, 1};
    FillRect(bitmap.Dc, &rect, brush);
    CHECK(bitmap.Text() == "...ggg.\n");
    DeleteObject(brush);
}

TEST_CASE("the hatches repeat every 8 pixels from the corner of the bitmap")
{
    struct {
        int         Style;
        const char* Rows;
    } const hatches[] = {
        {HS_HORIZONTAL, "........\n........\n........\nrrrrrrrr\n........\n........\n........\n........\n"},
        {HS_VERTICAL, "....r...\n....r...\n....r...\n....r...\n....r...\n....r...\n....r...\n....r...\n"},
        {HS_FDIAGONAL, "r.......\n.r......\n..r.....\n...r....\n....r...\n.....r..\n......r.\n.......r\n"},
        {HS_BDIAGONAL, ".......r\n......r.\n.....r..\n....r...\n...r....\n..r.....\n.r......\nr.......\n"},
        {HS_CROSS, "....r...\n....r...\n....r...\nrrrrrrrr\n....r...\n....r...\n....r...\n....r...\n"},
        {HS_DIAGCROSS, "r......r\n.r....r.\n..r..r..\n...rr...\n...rr...\n..r..r..\n.r....r.\nr......r\n"},
    };
    for (const auto& hatch : hatches) {
        CAPTURE(hatch.Style);
        TestBitmap bitmap(8, 8);
        SetBkMode(bitmap.Dc, TRANSPARENT);
        HBRUSH brush = CreateHatchBrush(hatch.Style, TestRed);
        RECT   rect = {0, 0, 8, 8};
        FillRect(bitmap.Dc, &rect, brush);
        CHECK(bitmap.Text() == hatch.Rows);
        DeleteObject(brush);
    }
}

TEST_CASE("a hatch keeps its place whatever the rectangle and the viewport origin")
{
    TestBitmap whole(40, 30), parts(40, 30);
    HBRUSH     brush = CreateHatchBrush(HS_DIAGCROSS, TestRed);
    SetBkMode(whole.Dc, TRANSPARENT);
    SetBkMode(parts.Dc, TRANSPARENT);
    RECT all = {0, 0, 40, 30};
    FillRect(whole.Dc, &all, brush);
    SetViewportOrgEx(parts.Dc, 3, 5, nullptr);
    RECT left = {-3, -5, 10, 25}, right = {10, -5, 37, 25};
    FillRect(parts.Dc, &left, brush);
    FillRect(parts.Dc, &right, brush);
    CHECK(whole.Text() == parts.Text());
    CHECK(whole.Count(0xFF0000) == 300);    // 2 of every 8 pixels of a row
    DeleteObject(brush);
}

TEST_CASE("an opaque hatch fills its gaps with the background color")
{
    for (int bits : {24, 32}) {
        CAPTURE(bits);
        TestBitmap bitmap(21, 35, bits);
        SetBkMode(bitmap.Dc, OPAQUE);
        SetBkColor(bitmap.Dc, TestGreen);
        HBRUSH brush = CreateHatchBrush(HS_VERTICAL, TestRed);
        RECT   rect = {1, 0, 21, 34};
        FillRect(bitmap.Dc, &rect, brush);
        DeleteObject(brush);
        for (int y = 0; y < 34; ++y)
            for (int x = 0; x < 21; ++x)
                REQUIRE(bitmap.PixelAt(x, y) == (x == 0 ? 0u : x % 8 == 4 ? 0xFF0000u : 0x00FF00u));
        for (int x = 0; x < 21; ++x)
            CHECK(bitmap.PixelAt(x, 34) == 0u);
    }
}

TEST_CASE("PtInRect counts left and top in, right and bottom out")
{
    RECT rect = {2, 3, 5, 7};
    CHECK(PtInRect(&rect, POINT{2, 3}));
    CHECK(PtInRect(&rect, POINT{4, 6}));
    CHECK_FALSE(PtInRect(&rect, POINT{5, 6}));
    CHECK_FALSE(PtInRect(&rect, POINT{4, 7}));
    CHECK_FALSE(PtInRect(&rect, POINT{1, 3}));
    CHECK_FALSE(PtInRect(nullptr, POINT{2, 3}));
    RECT backwards = {5, 7, 2, 3};
    CHECK_FALSE(PtInRect(&backwards, POINT{3, 4}));
}

TEST_CASE("InflateRect grows on every side and shrinks past itself, OffsetRect moves")
{
    RECT rect = {10, 20, 30, 40};
    CHECK(InflateRect(&rect, 3, -15));
    CHECK(rect.left == 7);
    CHECK(rect.top == 35);
    CHECK(rect.right == 33);
    CHECK(rect.bottom == 25);
    CHECK(OffsetRect(&rect, -7, 5));
    CHECK(rect.left == 0);
    CHECK(rect.top == 40);
    CHECK(rect.right == 26);
    CHECK(rect.bottom == 30);
    CHECK_FALSE(InflateRect(nullptr, 1, 1));
    CHECK_FALSE(OffsetRect(nullptr, 1, 1));
}
