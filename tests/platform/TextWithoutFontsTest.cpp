// ctest runs this file in a process of its own that finds no font at all. What text looks like is open then;
// what is said here holds with fonts, too.

#include "common/SelectedObject.h"
#include "support/TestBitmap.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <cstdlib>

namespace {

const wchar_t* const Words = L"Length = 12.5 mm\n长度 = 12.5 毫米";

RECT Measured(HDC dc, const wchar_t* text)
{
    RECT rect = {0, 0, 0, 0};
    DrawTextW(dc, text, -1, &rect, DT_CALCRECT);
    return rect;
}

}

TEST_CASE("a machine without fonts shows all letters alike")
{
    if (!std::getenv("FONTCONFIG_FILE"))
        return;    // not run by ctest
    TestBitmap bitmap(8, 8);
    CHECK(Measured(bitmap.Dc, L"iiii").right == Measured(bitmap.Dc, L"WWWW").right);
}

TEST_CASE("text has an extent that grows with it, whatever fonts there are")
{
    TestBitmap bitmap(8, 8);
    const RECT one = Measured(bitmap.Dc, L"W");
    const RECT lines = Measured(bitmap.Dc, Words);
    CHECK(one.right > 0);
    CHECK(one.bottom > 0);
    CHECK(lines.right > one.right);
    CHECK(lines.bottom == 2 * one.bottom);
}

TEST_CASE("text changes nothing outside its rectangle, whatever fonts there are")
{
    TestBitmap bitmap(60, 40);
    SetBkMode(bitmap.Dc, TRANSPARENT);
    SetTextColor(bitmap.Dc, TestRed);
    for (const int height : {0, 1, 12, -12, 400}) {
        CAPTURE(height);
        const SelectedObject font(bitmap.Dc,
                                  CreateFontW(height, 0, 0, 0, 400, 0, 0, 0, 134, 8, 1, 0, 48, L"微软雅黑"));
        bitmap.Clear();
        RECT rect = {10, 10, 50, 30};
        CHECK(DrawTextW(bitmap.Dc, Words, -1, &rect, 0) != 0);
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 60; ++x)
                if (x < 10 || x >= 50 || y < 10 || y >= 30)
                    REQUIRE(bitmap.PixelAt(x, y) == 0);
    }
}
