#include "support/TestBitmap.h"

#include <doctest/doctest.h>

#include <climits>
#include <cstdlib>
#include <random>
#include <vector>

namespace {

void Line(HDC dc, int x0, int y0, int x1, int y1)
{
    MoveToEx(dc, x0, y0, nullptr);
    LineTo(dc, x1, y1);
}

// The pixels of a thin line by their formula: pixel i lies i steps along the longer axis, and on the nearest
// grid point of the shorter one, the upper or left of two that are as near.
std::vector<POINT> PixelsOfLine(int x0, int y0, int x1, int y1)
{
    const int  dx = x1 - x0, dy = y1 - y0;
    const bool alongX = std::abs(dx) >= std::abs(dy);
    const int  m = alongX ? std::abs(dx) : std::abs(dy), n = alongX ? std::abs(dy) : std::abs(dx);
    const int  majorSign = (alongX ? dx : dy) < 0 ? -1 : 1, minorSign = (alongX ? dy : dx) < 0 ? -1 : 1;
    std::vector<POINT> pixels;
    for (int i = 0; i < m; ++i) {
        const int major = majorSign * i;
        const int minor = minorSign * ((2 * i * n + m - (minorSign > 0 ? 1 : 0)) / (2 * m));
        pixels.push_back({x0 + (alongX ? major : minor), y0 + (alongX ? minor : major)});
    }
    return pixels;
}

}

TEST_CASE("a line leaves out its end point, whichever way it runs")
{
    TestBitmap     bitmap(7, 3);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Line(bitmap.Dc, 1, 0, 5, 0);
    Line(bitmap.Dc, 5, 2, 1, 2);
    CHECK(bitmap.Text() == ".rrrr..\n"
                           ".......\n"
                           "..rrrr.\n");
    bitmap.Clear();
    Line(bitmap.Dc, 0, 0, 0, 2);
    Line(bitmap.Dc, 6, 2, 6, 0);
    CHECK(bitmap.Text() == "r......\n"
                           "r.....r\n"
                           "......r\n");
}

TEST_CASE("a line of no length draws nothing")
{
    TestBitmap     bitmap(5, 5);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Line(bitmap.Dc, 2, 2, 2, 2);
    CHECK(bitmap.Count(0) == 25);
    Line(bitmap.Dc, 2, 2, 3, 2);
    CHECK(bitmap.Count(0) == 24);
}

TEST_CASE("a line halfway between two rows takes the upper one, to the right and to the left")
{
    TestBitmap     bitmap(5, 3);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Line(bitmap.Dc, 0, 0, 4, 2);    // at x = 1 it is at y = 0.5, at x = 3 at 1.5
    CHECK(bitmap.Text() == "rr...\n"
                           "..rr.\n"
                           ".....\n");
    bitmap.Clear();
    Line(bitmap.Dc, 4, 2, 0, 0);
    CHECK(bitmap.Text() == ".r...\n"
                           "..rr.\n"
                           "....r\n");
}

TEST_CASE("a line halfway between two columns takes the left one")
{
    TestBitmap     bitmap(3, 5);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Line(bitmap.Dc, 0, 0, 2, 4);
    CHECK(bitmap.Text() == "r..\n"
                           "r..\n"
                           ".r.\n"
                           ".r.\n"
                           "...\n");
    bitmap.Clear();
    Line(bitmap.Dc, 2, 0, 0, 4);
    CHECK(bitmap.Text() == "..r\n"
                           ".r.\n"
                           ".r.\n"
                           "r..\n"
                           "...\n");
}

TEST_CASE("the current point is where the last line ended and MoveToEx returns it")
{
    TestBitmap     bitmap(6, 3);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    POINT          before = {-1, -1};
    CHECK(MoveToEx(bitmap.Dc, 1, 1, &before));
    CHECK(before.x == 0);
    CHECK(before.y == 0);
    LineTo(bitmap.Dc, 4, 1);
    LineTo(bitmap.Dc, 4, 0);
    MoveToEx(bitmap.Dc, 0, 0, &before);
    CHECK(before.x == 4);
    CHECK(before.y == 0);
    CHECK(bitmap.Text() == "......\n"
                           ".rrrr.\n"
                           "......\n");
}

TEST_CASE("a dashed pen draws 18 pixels and leaves 6, a dotted one 3 and 3")
{
    TestBitmap bitmap(50, 2);
    SetBkMode(bitmap.Dc, TRANSPARENT);
    {
        SelectedObject pen(bitmap.Dc, CreatePen(PS_DASH, 1, TestRed));
        Line(bitmap.Dc, 0, 0, 50, 0);
    }
    {
        SelectedObject pen(bitmap.Dc, CreatePen(PS_DOT, 1, TestRed));
        Line(bitmap.Dc, 49, 1, -1, 1);
    }
    CHECK(bitmap.Text() == "rrrrrrrrrrrrrrrrrr......rrrrrrrrrrrrrrrrrr......rr\n"
                           "rr...rrr...rrr...rrr...rrr...rrr...rrr...rrr...rrr\n");
}

TEST_CASE("the gaps of a broken line show the background color when the mode is opaque")
{
    TestBitmap     bitmap(14, 2);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_DOT, 1, TestRed));
    SetBkColor(bitmap.Dc, TestGreen);
    SetBkMode(bitmap.Dc, OPAQUE);
    Line(bitmap.Dc, 0, 0, 14, 0);
    SetBkMode(bitmap.Dc, TRANSPARENT);
    Line(bitmap.Dc, 0, 1, 14, 1);
    CHECK(bitmap.Text() == "rrrgggrrrgggrr\n"
                           "rrr...rrr...rr\n");
}

TEST_CASE("a line that enters from far outside keeps the dashes of its whole length")
{
    TestBitmap     bitmap(14, 1);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_DOT, 1, TestRed));
    SetBkMode(bitmap.Dc, TRANSPARENT);
    Line(bitmap.Dc, -6000002, 0, 100, 0);    // 6000002 is 2 more than a multiple of 6
    CHECK(bitmap.Text() == "r...rrr...rrr.\n");
}

TEST_CASE("lines of nearly the whole coordinate range draw their visible pixels")
{
    TestBitmap     bitmap(8, 8);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Line(bitmap.Dc, INT_MIN, 3, INT_MAX, 3);
    CHECK(bitmap.Count(0xFF0000) == 8);
    bitmap.Clear();
    Line(bitmap.Dc, 5, INT_MIN, 5, INT_MAX);
    CHECK(bitmap.Count(0xFF0000) == 8);
    bitmap.Clear();
    Line(bitmap.Dc, -1000000000, -1000000000, 1000000000, 1000000000);
    for (int i = 0; i < 8; ++i)
        CHECK(bitmap.PixelAt(i, i) == 0xFF0000);
    CHECK(bitmap.Count(0xFF0000) == 8);
}

TEST_CASE("the viewport origin is added to every coordinate and returned by the next call")
{
    TestBitmap     bitmap(6, 4);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    POINT          before = {7, 7};
    CHECK(SetViewportOrgEx(bitmap.Dc, 2, 3, &before));
    CHECK(before.x == 0);
    CHECK(before.y == 0);
    Line(bitmap.Dc, -1, -2, 2, -2);
    SetViewportOrgEx(bitmap.Dc, 0, 0, &before);
    CHECK(before.x == 2);
    CHECK(before.y == 3);
    CHECK(bitmap.Text() == "......\n"
                           ".rrr..\n"
                           "......\n"
                           "......\n");
}

TEST_CASE("a line of width 3 has round ends and its end point inside")
{
    TestBitmap     bitmap(9, 5);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 3, TestRed));
    Line(bitmap.Dc, 2, 2, 6, 2);
    CHECK(bitmap.Text() == ".........\n"
                           "..rrrrr..\n"
                           ".rrrrrrr.\n"
                           "..rrrrr..\n"
                           ".........\n");
}

TEST_CASE("a wide line of no length is a round dot")
{
    TestBitmap     bitmap(7, 7);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 4, TestRed));
    Line(bitmap.Dc, 3, 3, 3, 3);
    CHECK(bitmap.Text() == ".......\n"
                           "..rr...\n"
                           ".rrrr..\n"
                           ".rrrr..\n"
                           "..rr...\n"
                           ".......\n"
                           ".......\n");
}

TEST_CASE("a broken style of a wide pen draws solid")
{
    TestBitmap bitmap(60, 2);
    SetBkMode(bitmap.Dc, TRANSPARENT);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_DASH, 2, TestRed));
    Line(bitmap.Dc, -5, 1, 70, 1);
    CHECK(bitmap.Count(0xFF0000) == 120);
}

TEST_CASE("the null pen draws nothing and moves the current point")
{
    TestBitmap     bitmap(6, 2);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_NULL, 1, TestRed));
    Line(bitmap.Dc, 0, 0, 3, 0);
    CHECK(bitmap.Count(0) == 12);
    SelectedObject red(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    LineTo(bitmap.Dc, 5, 0);
    CHECK(bitmap.Text() == "...rr.\n"
                           "......\n");
}

TEST_CASE("drawing clears the fourth byte of a 32-bit pixel and leaves the others alone")
{
    TestBitmap bitmap(4, 1);
    bitmap.Clear(0xAB);
    SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestRed));
    Line(bitmap.Dc, 1, 0, 3, 0);
    CHECK(bitmap.PixelAt(0, 0) == 0xABABABABu);
    CHECK(bitmap.PixelAt(1, 0) == 0x00FF0000u);
    CHECK(bitmap.PixelAt(2, 0) == 0x00FF0000u);
    CHECK(bitmap.PixelAt(3, 0) == 0xABABABABu);
}

TEST_CASE("24-bit and top-down bitmaps get the same picture")
{
    for (int bits : {24, 32})
        for (bool topDown : {false, true}) {
            CAPTURE(bits);
            CAPTURE(topDown);
            TestBitmap     bitmap(5, 3, bits, topDown);
            SelectedObject pen(bitmap.Dc, CreatePen(PS_SOLID, 1, TestBlue));
            Line(bitmap.Dc, 0, 2, 5, 0);
            CHECK(bitmap.Text() == "....b\n"
                                   "..bb.\n"
                                   "bb...\n");
        }
}

TEST_CASE(
    "random thin lines, on the bitmap, across its edges and beside it, have the pixels of their formula")
{
    for (unsigned seed = 1; seed <= 400; ++seed) {
        CAPTURE(seed);
        std::mt19937 random(seed);
        const int  width = 1 + static_cast<int>(random() % 60), height = 1 + static_cast<int>(random() % 60);
        TestBitmap bitmap(width, height, random() % 2 == 0 ? 32 : 24, random() % 2 == 0);
        const bool dotted = random() % 4 == 0;
        SelectedObject    pen(bitmap.Dc, CreatePen(dotted ? PS_DOT : PS_SOLID, 1, TestRed));
        std::vector<bool> expected(static_cast<std::size_t>(width * height));
        const auto        place = [&](int extent) {
            const int reach = random() % 3 == 0 ? 2 * extent : 0;
            return static_cast<int>(random() % static_cast<unsigned>(extent + 2 * reach)) - reach;
        };
        SetBkMode(bitmap.Dc, TRANSPARENT);
        int x = place(width), y = place(height);
        MoveToEx(bitmap.Dc, x, y, nullptr);
        for (int i = 0; i < 12; ++i) {
            const int nextX = place(width), nextY = random() % 6 == 0 ? y : place(height);
            LineTo(bitmap.Dc, nextX, nextY);
            int step = 0;
            for (const POINT& at : PixelsOfLine(x, y, nextX, nextY)) {
                const bool gap = dotted && step++ / 3 % 2 == 1;
                if (!gap && at.x >= 0 && at.x < width && at.y >= 0 && at.y < height)
                    expected[static_cast<std::size_t>(at.y * width + at.x)] = true;
            }
            x = nextX;
            y = nextY;
        }
        int wrong = 0;
        for (int row = 0; row < height; ++row)
            for (int column = 0; column < width; ++column)
                wrong += bitmap.PixelAt(column, row) !=
                         (expected[static_cast<std::size_t>(row * width + column)] ? 0xFF0000u : 0u);
        CHECK(wrong == 0);
    }
}
