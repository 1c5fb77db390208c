#include "support/GdiObjectCount.h"
#include "support/TestBitmap.h"

#include <doctest/doctest.h>

#include <climits>
#include <cstdint>
#include <vector>

namespace {

BITMAPINFO InfoOf(int width, int height, int bitsPerPixel)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
    return info;
}

HBITMAP Section(const BITMAPINFO& info, void** bits)
{
    return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, bits, nullptr, 0);
}

template <typename Handle>
Handle HandleOf(std::uintptr_t value)
{
    return reinterpret_cast<Handle>(value);
}

}

TEST_CASE("a section bitmap has zeroed bits, padded rows and the size it was asked for")
{
    struct {
        int Width, Height, BitsPerPixel, RowBytes;
    } const cases[] = {{5, 3, 24, 16}, {5, 3, 32, 20}, {1, 1, 24, 4}, {4, -7, 24, 12}, {640, -2, 32, 2560}};
    for (const auto& sample : cases) {
        CAPTURE(sample.Width);
        CAPTURE(sample.Height);
        CAPTURE(sample.BitsPerPixel);
        void*   bits = nullptr;
        HBITMAP bitmap = Section(InfoOf(sample.Width, sample.Height, sample.BitsPerPixel), &bits);
        REQUIRE(bitmap != nullptr);
        REQUIRE(bits != nullptr);
        int height = sample.Height < 0 ? -sample.Height : sample.Height;
        for (int i = 0; i < sample.RowBytes * height; ++i)
            REQUIRE(static_cast<unsigned char*>(bits)[i] == 0);
        BITMAP record = {};
        CHECK(GetObjectW(bitmap, sizeof(record), &record) == static_cast<int>(sizeof(record)));
        CHECK(record.bmType == 0);
        CHECK(record.bmWidth == sample.Width);
        CHECK(record.bmHeight == height);
        CHECK(record.bmWidthBytes == sample.RowBytes);
        CHECK(record.bmPlanes == 1);
        CHECK(record.bmBitsPixel == sample.BitsPerPixel);
        CHECK(record.bmBits == bits);
        CHECK(DeleteObject(bitmap));
        CHECK(GetObjectW(bitmap, sizeof(record), &record) == 0);
    }
}

TEST_CASE("a record too small for a bitmap gets nothing")
{
    TestBitmap    bitmap(3, 2);
    unsigned char record[64];
    for (unsigned char& byte : record)
        byte = 0xCC;
    CHECK(GetObjectW(bitmap.Bitmap, sizeof(BITMAP) - 1, record) == 0);
    for (unsigned char byte : record)
        REQUIRE(byte == 0xCC);
    CHECK(GetObjectW(bitmap.Bitmap, sizeof(BITMAP), record) == static_cast<int>(sizeof(BITMAP)));
    CHECK(record[4] == 3);
    CHECK(record[sizeof(BITMAP)] == 0xCC);
}

TEST_CASE("a section bitmap of no size, an absurd one or an unknown layout is refused with null bits")
{
    std::vector<BITMAPINFO> refused = {InfoOf(0, 5, 32),       InfoOf(5, 0, 32),
                                       InfoOf(-5, 5, 32),      InfoOf(100000, 100000, 32),
                                       InfoOf(INT_MAX, 1, 32), InfoOf(INT_MAX, INT_MAX, 32),
                                       InfoOf(1, INT_MIN, 32), InfoOf(INT_MAX, INT_MIN, 24),
                                       InfoOf(5, 5, 7),        InfoOf(5, 5, 0)};
    refused.push_back(InfoOf(5, 5, 32));
    refused.back().bmiHeader.biPlanes = 0;
    refused.push_back(InfoOf(5, 5, 32));
    refused.back().bmiHeader.biSize = 12;
    refused.push_back(InfoOf(5, 5, 32));
    refused.back().bmiHeader.biCompression = 1;
    for (std::size_t i = 0; i < refused.size(); ++i) {
        CAPTURE(i);
        void* bits = &refused;
        CHECK(Section(refused[i], &bits) == nullptr);
        CHECK(bits == nullptr);
    }
    void* bits = &refused;
    CHECK(CreateDIBSection(nullptr, nullptr, DIB_RGB_COLORS, &bits, nullptr, 0) == nullptr);
    CHECK(bits == nullptr);
    BITMAPINFO fine = InfoOf(5, 5, 32);
    CHECK(CreateDIBSection(nullptr, &fine, 7, &bits, nullptr, 0) == nullptr);
    HBITMAP bitmap = Section(fine, &bits);    // the same header is fine by itself
    CHECK(bitmap != nullptr);
    CHECK(bits != nullptr);
    DeleteObject(bitmap);
}

TEST_CASE("asking for a header fills it with the layout of the bitmap and touches no pixel")
{
    TestBitmap bitmap(9, 4, 24, true);
    bitmap.Clear(0x5A);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    CHECK(GetDIBits(bitmap.Dc, bitmap.Bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS) == 4);
    CHECK(info.bmiHeader.biWidth == 9);
    CHECK(info.bmiHeader.biHeight == 4);
    CHECK(info.bmiHeader.biPlanes == 1);
    CHECK(info.bmiHeader.biBitCount == 24);
    CHECK(info.bmiHeader.biSizeImage == 4 * 28);
    CHECK(bitmap.PixelAt(0, 0) == 0x5A5A5A);
    CHECK(bitmap.PixelAt(8, 3) == 0x5A5A5A);
    // A header that is already filled in keeps its fields.
    CHECK(GetDIBits(bitmap.Dc, bitmap.Bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS) != 0);
    CHECK(info.bmiHeader.biWidth == 9);
    CHECK(info.bmiHeader.biHeight == 4);
}

TEST_CASE("no header comes without a context, a bitmap, a record or its size")
{
    TestBitmap bitmap(9, 4);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    CHECK(GetDIBits(nullptr, bitmap.Bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS) == 0);
    CHECK(GetDIBits(bitmap.Dc, nullptr, 0, 0, nullptr, &info, DIB_RGB_COLORS) == 0);
    CHECK(GetDIBits(bitmap.Dc, bitmap.Bitmap, 0, 0, nullptr, nullptr, DIB_RGB_COLORS) == 0);
    info.bmiHeader.biSize = 0;
    CHECK(GetDIBits(bitmap.Dc, bitmap.Bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS) == 0);
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    CHECK(GetDIBits(bitmap.Dc, bitmap.Bitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS) != 0);
}

TEST_CASE("a new context holds the stock objects and returns them when others displace them")
{
    HDC dc = CreateCompatibleDC(nullptr);
    REQUIRE(dc != nullptr);
    CHECK(GetCurrentObject(dc, OBJ_PEN) == GetStockObject(BLACK_PEN));
    CHECK(GetCurrentObject(dc, OBJ_BRUSH) == GetStockObject(WHITE_BRUSH));
    CHECK(GetCurrentObject(dc, OBJ_FONT) == GetStockObject(SYSTEM_FONT));
    HGDIOBJ standard = GetCurrentObject(dc, OBJ_BITMAP);
    BITMAP  record = {};
    CHECK(GetObjectW(standard, sizeof(record), &record) == static_cast<int>(sizeof(record)));
    CHECK(record.bmWidth == 1);
    CHECK(record.bmHeight == 1);
    CHECK(record.bmBitsPixel == 1);
    HPEN pen = CreatePen(PS_SOLID, 1, TestRed);
    CHECK(SelectObject(dc, pen) == GetStockObject(BLACK_PEN));
    CHECK(GetCurrentObject(dc, OBJ_PEN) == pen);
    CHECK(SelectObject(dc, GetStockObject(BLACK_PEN)) == pen);
    CHECK(DeleteObject(pen));
    CHECK(SetBkMode(dc, TRANSPARENT) == OPAQUE);
    CHECK(SetBkMode(dc, OPAQUE) == TRANSPARENT);
    CHECK(SetBkColor(dc, TestRed) == TestWhite);
    CHECK(SetBkColor(dc, TestRed) == TestRed);
    CHECK(SetTextColor(dc, TestBlue) == 0);
    CHECK(SetTextColor(dc, 0) == TestBlue);
    CHECK(DeleteDC(dc));
}

TEST_CASE("drawing into the bitmap that a new context brings does no harm")
{
    HDC  dc = CreateCompatibleDC(nullptr);
    RECT rect = {-5, -5, 50, 50};
    CHECK(FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))) != 0);
    CHECK(Rectangle(dc, 0, 0, 10, 10));
    CHECK(Ellipse(dc, 0, 0, 10, 10));
    CHECK(MoveToEx(dc, 0, 0, nullptr));
    CHECK(LineTo(dc, 10, 10));
    CHECK(DeleteDC(dc));
}

TEST_CASE("a bitmap is selected into one context at a time")
{
    HDC        first = CreateCompatibleDC(nullptr), second = CreateCompatibleDC(nullptr);
    void*      bits = nullptr;
    BITMAPINFO info = InfoOf(4, 4, 32);
    HBITMAP    bitmap = Section(info, &bits);
    HGDIOBJ    standard = SelectObject(first, bitmap);
    CHECK(standard != nullptr);
    CHECK(SelectObject(second, bitmap) == nullptr);
    CHECK(SelectObject(first, bitmap) == bitmap);
    CHECK(SelectObject(first, standard) == bitmap);
    CHECK(SelectObject(second, bitmap) == standard);
    CHECK(DeleteDC(second));
    CHECK(DeleteDC(first));
    CHECK(DeleteObject(bitmap));    // it outlives the context it was selected in
}

TEST_CASE("an object that is selected stays usable when it is deleted")
{
    TestBitmap bitmap(4, 1);
    HPEN       pen = CreatePen(PS_SOLID, 1, TestRed);
    HGDIOBJ    before = SelectObject(bitmap.Dc, pen);
    DeleteObject(pen);
    CHECK(GetCurrentObject(bitmap.Dc, OBJ_PEN) == pen);
    MoveToEx(bitmap.Dc, 0, 0, nullptr);
    LineTo(bitmap.Dc, 4, 0);
    CHECK(bitmap.Count(0xFF0000) == 4);
    CHECK(SelectObject(bitmap.Dc, before) == pen);
    DeleteObject(pen);
    CHECK_FALSE(DeleteObject(pen));
}

TEST_CASE("stock objects cannot be deleted and no others are made of their numbers")
{
    for (int index = WHITE_BRUSH; index <= NULL_PEN; ++index) {
        CAPTURE(index);
        HGDIOBJ object = GetStockObject(index);
        REQUIRE(object != nullptr);
        DeleteObject(object);
        TestBitmap bitmap(2, 2);
        CHECK(SelectObject(bitmap.Dc, object) != nullptr);
    }
    CHECK(GetStockObject(-1) == nullptr);
    CHECK(GetStockObject(1000) == nullptr);
    CHECK(CreatePen(PS_NULL, 3, TestRed) == GetStockObject(NULL_PEN));
}

TEST_CASE("calls with null, foreign or stale handles fail and change nothing")
{
    TestBitmap bitmap(4, 4);
    HDC        stale = CreateCompatibleDC(nullptr);
    REQUIRE(DeleteDC(stale));
    HPEN stalePen = CreatePen(PS_SOLID, 1, TestRed);
    REQUIRE(DeleteObject(stalePen));
    const HDC contexts[] = {nullptr, stale, HandleOf<HDC>(0x1234), HandleOf<HDC>(UINTPTR_MAX),
                            static_cast<HDC>(GetStockObject(WHITE_BRUSH))};
    RECT      rect = {0, 0, 4, 4};
    for (std::size_t i = 0; i < std::size(contexts); ++i) {
        CAPTURE(i);
        HDC   dc = contexts[i];
        POINT point = {77, 78};
        CHECK_FALSE(DeleteDC(dc));
        CHECK(SelectObject(dc, GetStockObject(BLACK_PEN)) == nullptr);
        CHECK(GetCurrentObject(dc, OBJ_PEN) == nullptr);
        CHECK(SetBkMode(dc, OPAQUE) == 0);
        CHECK(SetBkColor(dc, 0) == CLR_INVALID);
        CHECK(SetTextColor(dc, 0) == CLR_INVALID);
        CHECK(SetStretchBltMode(dc, COLORONCOLOR) == 0);
        CHECK_FALSE(SetViewportOrgEx(dc, 1, 1, &point));
        CHECK_FALSE(MoveToEx(dc, 1, 1, &point));
        CHECK(point.x == 77);
        CHECK_FALSE(LineTo(dc, 1, 1));
        CHECK_FALSE(Rectangle(dc, 0, 0, 4, 4));
        CHECK_FALSE(Ellipse(dc, 0, 0, 4, 4));
    }
    const HGDIOBJ objects[] = {nullptr, stalePen, HandleOf<HGDIOBJ>(0x1234), HandleOf<HGDIOBJ>(UINTPTR_MAX),
                               stale};
    for (std::size_t i = 0; i < std::size(objects); ++i) {
        CAPTURE(i);
        CHECK(SelectObject(bitmap.Dc, objects[i]) == nullptr);
        CHECK_FALSE(DeleteObject(objects[i]));
        BITMAP record;
        CHECK(GetObjectW(objects[i], sizeof(record), &record) == 0);
    }
    CHECK(SelectObject(bitmap.Dc, bitmap.Dc) == nullptr);
    CHECK(CreateCompatibleDC(stale) == nullptr);
    CHECK(bitmap.Count(0) == 16);
    // The same calls reach the bitmap with good handles.
    CHECK(FillRect(bitmap.Dc, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH))) != 0);
    CHECK(bitmap.Count(0xFFFFFF) == 16);
}

TEST_CASE("a handle is not given out again while it may still be held by someone")
{
    HPEN first = CreatePen(PS_SOLID, 1, TestRed);
    CHECK(DeleteObject(first));
    HPEN second = CreatePen(PS_SOLID, 1, TestRed);
    CHECK(first != second);
    CHECK_FALSE(DeleteObject(first));
    CHECK(DeleteObject(second));
}

TEST_CASE("modes and hatches that do not exist are refused")
{
    TestBitmap bitmap(2, 2);
    CHECK(SetBkMode(bitmap.Dc, 0) == 0);
    CHECK(SetBkMode(bitmap.Dc, 3) == 0);
    CHECK(SetBkMode(bitmap.Dc, TRANSPARENT) == OPAQUE);
    CHECK(CreateHatchBrush(-1, TestRed) == nullptr);
    CHECK(CreateHatchBrush(100, TestRed) == nullptr);
    HBRUSH brush = CreateHatchBrush(HS_CROSS, TestRed);
    CHECK(brush != nullptr);
    DeleteObject(brush);
}

TEST_CASE("10,000 rounds of making, selecting and deleting leave the count of objects where it was")
{
    TestBitmap bitmap(8, 8);    // the first context of a process makes objects that stay
    unsigned   before = GdiObjectCount();
    for (int i = 0; i < 10000; ++i) {
        SelectedObject pen(bitmap.Dc, CreatePen(i % 3, 1 + i % 2, TestRed));
        SelectedObject brush(bitmap.Dc,
                             i & 1 ? CreateSolidBrush(TestGreen) : CreateHatchBrush(i % 6, TestGreen));
        Rectangle(bitmap.Dc, 0, 0, 8, 8);
        if (i % 100 == 0) {
            TestBitmap other(5, 5);
            REQUIRE(GdiObjectCount() >= before + 4);    // a pen, a brush, a context and a bitmap
        }
    }
    CHECK(GdiObjectCount() == before);
}

TEST_CASE("every object made counts once until it is deleted")
{
    TestBitmap        bitmap(2, 2);
    unsigned          before = GdiObjectCount();
    std::vector<HPEN> pens;
    for (int i = 0; i < 50; ++i)
        pens.push_back(CreatePen(PS_SOLID, 1, static_cast<COLORREF>(i)));
    CHECK(GdiObjectCount() == before + 50);
    for (HPEN pen : pens)
        CHECK(DeleteObject(pen));
    CHECK(GdiObjectCount() == before);
}
