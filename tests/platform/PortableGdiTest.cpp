// Where the portable back end is stricter than the desktop, or reaches further.

#include "support/GdiObjectCount.h"
#include "support/TestBitmap.h"

#include <doctest/doctest.h>

#include <climits>
#include <vector>

TEST_CASE("FillRect fails without a context, a rectangle or a brush")
{
    TestBitmap bitmap(4, 4);
    RECT       rect = {0, 0, 4, 4};
    HBRUSH     white = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    CHECK(FillRect(nullptr, &rect, white) == 0);
    CHECK(FillRect(bitmap.Dc, nullptr, white) == 0);
    CHECK(FillRect(bitmap.Dc, &rect, nullptr) == 0);
    CHECK(FillRect(bitmap.Dc, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_PEN))) == 0);
    CHECK(bitmap.Count(0) == 16);
    CHECK(FillRect(bitmap.Dc, &rect, white) == 1);
    CHECK(bitmap.Count(0xFFFFFF) == 16);
}

TEST_CASE("an object that is selected cannot be deleted until no context holds it")
{
    HDC  first = CreateCompatibleDC(nullptr), second = CreateCompatibleDC(nullptr);
    HPEN pen = CreatePen(PS_SOLID, 1, TestRed);
    SelectObject(first, pen);
    SelectObject(second, pen);
    CHECK_FALSE(DeleteObject(pen));
    SelectObject(first, GetStockObject(BLACK_PEN));
    CHECK_FALSE(DeleteObject(pen));
    CHECK(DeleteDC(second));
    CHECK(DeleteObject(pen));
    DeleteDC(first);
}

TEST_CASE("section bitmaps of other depths than 24 and 32 bits are refused")
{
    for (int bitsPerPixel : {1, 4, 8, 16, 24, 32, 48}) {
        CAPTURE(bitsPerPixel);
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = info.bmiHeader.biHeight = 5;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
        void*   bits = nullptr;
        HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        bool    fine = bitsPerPixel == 24 || bitsPerPixel == 32;
        CHECK((bitmap != nullptr) == fine);
        CHECK((bits != nullptr) == fine);
        DeleteObject(bitmap);
    }
}

TEST_CASE("a full table of objects fails with null and works again after a deletion")
{
    unsigned          before = GdiObjectCount();
    std::vector<HPEN> pens;
    for (HPEN pen = CreatePen(PS_SOLID, 1, 0); pen; pen = CreatePen(PS_SOLID, 1, 0)) {
        pens.push_back(pen);
        REQUIRE(pens.size() < 1000000);
    }
    CHECK(CreateCompatibleDC(nullptr) == nullptr);
    CHECK(CreateSolidBrush(0) == nullptr);
    REQUIRE(!pens.empty());
    CHECK(DeleteObject(pens.back()));
    pens.pop_back();
    HBRUSH brush = CreateSolidBrush(0);
    CHECK(brush != nullptr);
    CHECK(DeleteObject(brush));
    for (HPEN pen : pens)
        DeleteObject(pen);
    CHECK(GdiObjectCount() == before);
}

TEST_CASE("lines, shapes and fills over the whole range of coordinates end quickly and stay on the bitmap")
{
    TestBitmap     bitmap(6, 6);
    SelectedObject brush(bitmap.Dc, CreateSolidBrush(TestGreen));
    for (int width : {1, 2, 7, INT_MAX})
        for (int style : {PS_SOLID, PS_DASH, PS_NULL}) {
            SelectedObject pen(bitmap.Dc, CreatePen(style, width, TestRed));
            for (int origin : {0, INT_MIN, INT_MAX}) {
                SetViewportOrgEx(bitmap.Dc, origin, origin, nullptr);
                for (int from : {INT_MIN, -1, 0, 5, INT_MAX})
                    for (int to : {INT_MIN, -1, 0, 5, INT_MAX}) {
                        MoveToEx(bitmap.Dc, from, to, nullptr);
                        CHECK(LineTo(bitmap.Dc, to, from));
                        CHECK(LineTo(bitmap.Dc, to, 3));
                        CHECK(Rectangle(bitmap.Dc, from, from, to, to));
                        CHECK(Ellipse(bitmap.Dc, from, from, to, to));
                        CHECK(Ellipse(bitmap.Dc, from, 0, to, 5));
                        RECT rect = {from, to, to, from};
                        CHECK(FillRect(bitmap.Dc, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH))) ==
                              1);
                    }
            }
        }
    SetViewportOrgEx(bitmap.Dc, 0, 0, nullptr);
    bitmap.Clear();
    SelectObject(bitmap.Dc, GetStockObject(NULL_PEN));
    Ellipse(bitmap.Dc, INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    CHECK(bitmap.Count(0x00FF00) == 36);
}

TEST_CASE("an ellipse too large to be walked lies within a pixel of one that is walked")
{
    constexpr int Bound = 1 << 17;
    TestBitmap    walked(300, 40), measured(300, 40);
    for (TestBitmap* bitmap : {&walked, &measured}) {
        SelectObject(bitmap->Dc, GetStockObject(NULL_PEN));
        SelectObject(bitmap->Dc, GetStockObject(WHITE_BRUSH));
    }
    Ellipse(walked.Dc, -3, -Bound / 2, -3 + Bound, Bound / 2);
    Ellipse(measured.Dc, -3, -Bound / 2 - 1, -3 + Bound + 2, Bound / 2 + 1);
    for (int y = 0; y < 40; ++y) {
        int left = 0, right = 0;
        while (left < 300 && walked.PixelAt(left, y) == 0)
            ++left;
        while (right < 300 && measured.PixelAt(right, y) == 0)
            ++right;
        CAPTURE(y);
        CHECK(left - right <= 1);
        CHECK(right - left <= 1);
        CHECK(walked.PixelAt(299, y) == 0xFFFFFF);
        CHECK(measured.PixelAt(299, y) == 0xFFFFFF);
    }
}
