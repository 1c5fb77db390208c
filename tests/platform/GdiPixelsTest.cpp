// Single pixels, colors and the arguments of messages.

#include "support/TestBitmap.h"

#include <doctest/doctest.h>

TEST_CASE("a pixel that was set is read back, in any row order and depth")
{
    for (int bitsPerPixel : {24, 32}) {
        for (bool topDown : {false, true}) {
            CAPTURE(bitsPerPixel);
            CAPTURE(topDown);
            TestBitmap bitmap(5, 4, bitsPerPixel, topDown);
            CHECK(SetPixel(bitmap.Dc, 4, 3, RGB(1, 2, 3)) == RGB(1, 2, 3));
            CHECK(SetPixel(bitmap.Dc, 0, 0, TestRed) == TestRed);
            CHECK(GetPixel(bitmap.Dc, 4, 3) == RGB(1, 2, 3));
            CHECK(GetPixel(bitmap.Dc, 0, 0) == TestRed);
            CHECK(GetPixel(bitmap.Dc, 1, 0) == 0);
            CHECK(bitmap.PixelAt(4, 3) == 0x010203);
            CHECK(bitmap.PixelAt(0, 0) == 0xFF0000);
        }
    }
}

TEST_CASE("there is no pixel outside the bitmap or without a context")
{
    TestBitmap bitmap(5, 4);
    const int  outside[][2] = {{-1, 0}, {0, -1}, {5, 0}, {0, 4}, {-2147483647 - 1, 2147483647}};
    for (const auto& place : outside) {
        CHECK(GetPixel(bitmap.Dc, place[0], place[1]) == CLR_INVALID);
        SetPixel(bitmap.Dc, place[0], place[1], TestRed);
    }
    CHECK(GetPixel(nullptr, 0, 0) == CLR_INVALID);
    CHECK(SetPixel(nullptr, 0, 0, TestRed) == CLR_INVALID);
    CHECK(bitmap.Count(0) == 20);
}

TEST_CASE("a pixel's place counts from the viewport's origin")
{
    TestBitmap bitmap(5, 4);
    SetViewportOrgEx(bitmap.Dc, 2, 1, nullptr);
    CHECK(SetPixel(bitmap.Dc, 1, 2, TestGreen) == TestGreen);
    CHECK(GetPixel(bitmap.Dc, 1, 2) == TestGreen);
    CHECK(bitmap.PixelAt(3, 3) == 0x00FF00);
    CHECK(GetPixel(bitmap.Dc, -2, -1) == 0);
    CHECK(GetPixel(bitmap.Dc, 3, 0) == CLR_INVALID);
}

TEST_CASE("a color and a message's argument come apart as they were put together")
{
    const COLORREF color = RGB(10, 200, 255);
    CHECK(GetRValue(color) == 10);
    CHECK(GetGValue(color) == 200);
    CHECK(GetBValue(color) == 255);
    const LPARAM place = MAKELPARAM(-3, 700);
    CHECK(place == 0x02BCFFFD);
    CHECK(static_cast<short>(LOWORD(place)) == -3);
    CHECK(HIWORD(place) == 700);
    const WPARAM turn = MAKEWPARAM(MK_CONTROL | MK_SHIFT, -WHEEL_DELTA);
    CHECK(turn == 0xFF88000C);
    CHECK(LOWORD(turn) == (MK_CONTROL | MK_SHIFT));
    CHECK(GET_WHEEL_DELTA_WPARAM(turn) == -WHEEL_DELTA);
}
