#include "common/MemoryBitmap.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cwchar>
#include <string>
#include <vector>

namespace {

constexpr std::uint32_t Background = 0x112233;

// A bitmap of 32 bits, top row first, with a font of the engine's kind in its context.
class TextSheet : public MemoryBitmap {
public:
    TextSheet(int width, int height, int fontHeight = 20) : MemoryBitmap(width, height, 32, true)
    {
        BeforeFont = SelectObject(Dc, GetStockObject(DEFAULT_GUI_FONT));
        SelectFont(fontHeight);
        Clear();
    }
    ~TextSheet()
    {
        SelectObject(Dc, BeforeFont);
        DeleteObject(Font);
    }

    void SelectFont(int height)
    {
        HFONT font = CreateFontW(height, 0, 0, 0, 400, 0, 0, 0, 134, 8, 1, 0, 48, L"微软雅黑");
        SelectObject(Dc, font);
        if (Font)
            DeleteObject(Font);
        Font = font;
    }
    void Clear()
    {
        GdiFlush();
        std::fill_n(Pixels(), PixelCount(), Background);
    }
    std::uint32_t At(int x, int y) const { return Pixels()[y * Width + x]; }

    // The bounds of all pixels that are not background.
    RECT Touched() const
    {
        GdiFlush();
        RECT box = {Width, Height, 0, 0};
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                if (At(x, y) != Background) {
                    box.left = std::min<LONG>(box.left, x);
                    box.top = std::min<LONG>(box.top, y);
                    box.right = std::max<LONG>(box.right, x + 1);
                    box.bottom = std::max<LONG>(box.bottom, y + 1);
                }
        return box;
    }
    bool Untouched() const { return Touched().right == 0; }
    int  Count(std::uint32_t pixel) const
    {
        GdiFlush();
        return static_cast<int>(std::count(Pixels(), Pixels() + PixelCount(), pixel));
    }
    std::vector<std::uint32_t> Copy() const
    {
        GdiFlush();
        return std::vector<std::uint32_t>(Pixels(), Pixels() + PixelCount());
    }
    RECT Measure(const wchar_t* text, UINT format = 0) const
    {
        RECT rect = {0, 0, 0, 0};
        DrawTextW(Dc, text, -1, &rect, format | DT_CALCRECT);
        return rect;
    }

private:
    HFONT   Font = nullptr;
    HGDIOBJ BeforeFont = nullptr;
};

bool IsBox(const RECT& box, LONG left, LONG top, LONG right, LONG bottom)
{
    return box.left == left && box.top == top && box.right == right && box.bottom == bottom;
}

}

TEST_CASE("a measured text keeps left and top and is as high as its font")
{
    TextSheet sheet(8, 8, 20);
    RECT      rect = {10, 20, 11, 21};
    CHECK(DrawTextW(sheet.Dc, L"Hello", 5, &rect, DT_CALCRECT) == 20);
    CHECK(rect.left == 10);
    CHECK(rect.top == 20);
    CHECK(rect.right > 30);
    CHECK(rect.bottom == 40);
    CHECK(sheet.Untouched());
}

TEST_CASE("measures grow with the text and with the font")
{
    TextSheet  sheet(8, 8, 20);
    const RECT one = sheet.Measure(L"W"), two = sheet.Measure(L"WW"), three = sheet.Measure(L"WWW");
    CHECK(one.right > 0);
    CHECK(two.right == 2 * one.right);
    CHECK(three.right == 3 * one.right);
    sheet.SelectFont(40);
    const RECT tall = sheet.Measure(L"W");
    // Real faces come in whole em heights: the cell may be a little lower than asked for.
    CHECK(tall.bottom >= 36);
    CHECK(tall.bottom <= 40);
    CHECK(tall.right > one.right);
    CHECK(tall.right <= 3 * one.right);
}

TEST_CASE("a negative font height is the em and gives a cell at least as high")
{
    TextSheet sheet(8, 8, -20);
    CHECK(sheet.Measure(L"W").bottom > 20);
    CHECK(sheet.Measure(L"W").bottom < 40);
    sheet.SelectFont(0);
    CHECK(sheet.Measure(L"W").bottom == 16);
}

TEST_CASE("lines are measured by their widest and their number, whichever way they break")
{
    TextSheet  sheet(8, 8);
    const RECT wide = sheet.Measure(L"Hello");
    for (const wchar_t* text : {L"Hello\nHi", L"Hello\r\nHi", L"Hi\rHello", L"Hi\n\rHello"}) {
        const RECT both = sheet.Measure(text);
        CHECK(both.right == wide.right);
        CHECK(both.bottom == 40);
    }
    CHECK(sheet.Measure(L"Hello\n").bottom == 20);
    CHECK(sheet.Measure(L"\n\n").bottom == 40);
    CHECK(sheet.Measure(L"\n\n").right == 0);
}

TEST_CASE("a single line does not break")
{
    TextSheet sheet(8, 8);
    CHECK(sheet.Measure(L"Hello\nHi", DT_SINGLELINE).bottom == 20);
    CHECK(sheet.Measure(L"Hello\nHi", DT_SINGLELINE).right > sheet.Measure(L"HelloHi").right);
}

TEST_CASE("word breaking changes nothing on a single line")
{
    TextSheet  sheet(8, 8);
    const RECT plain = sheet.Measure(L"Hello world", DT_SINGLELINE);
    const RECT caption =
        sheet.Measure(L"Hello world", DT_WORDBREAK | DT_SINGLELINE | DT_EDITCONTROL | DT_EXTERNALLEADING);
    CHECK(caption.right == plain.right);
    CHECK(caption.bottom == plain.bottom);
}

TEST_CASE("an empty text has no extent and draws nothing")
{
    TextSheet sheet(40, 40);
    RECT      rect = {0, 0, 0, 0};
    CHECK(DrawTextW(sheet.Dc, L"", -1, &rect, DT_CALCRECT) == 20);
    CHECK(IsBox(rect, 0, 0, 0, 0));
#if !defined(_WIN32)    // desktops do not agree about the height of no characters at all
    CHECK(DrawTextW(sheet.Dc, L"", 0, &rect, DT_CALCRECT) == 20);
    CHECK(IsBox(rect, 0, 0, 0, 0));
#endif
    rect = {5, 5, 30, 30};
    DrawTextW(sheet.Dc, L"", -1, &rect, 37);
    CHECK(TextOutW(sheet.Dc, 5, 5, L"", 0) != 0);
    CHECK(sheet.Untouched());
    DrawTextW(sheet.Dc, L"W", -1, &rect, 37);
    CHECK_FALSE(sheet.Untouched());
}

TEST_CASE("an opaque text fills its extent with the background color and touches nothing else")
{
    TextSheet sheet(200, 60);
    SetBkMode(sheet.Dc, OPAQUE);
    SetBkColor(sheet.Dc, RGB(1, 2, 3));
    SetTextColor(sheet.Dc, RGB(255, 0, 0));
    const RECT extent = sheet.Measure(L"Hello");
    CHECK(TextOutW(sheet.Dc, 11, 7, L"Hello", 5) != 0);
    CHECK(IsBox(sheet.Touched(), 11, 7, 11 + extent.right, 7 + 20));
    CHECK(sheet.Count(0x010203) > extent.right * 20 / 2);
    CHECK(sheet.Count(Background) == 200 * 60 - extent.right * 20);
    CHECK(sheet.At(11, 7) == 0x010203);
}

TEST_CASE("a transparent text leaves its background and draws in the text color")
{
    TextSheet sheet(200, 60);
    SetBkMode(sheet.Dc, TRANSPARENT);
    SetTextColor(sheet.Dc, RGB(0, 255, 0));
    CHECK(TextOutW(sheet.Dc, 10, 10, L"HH", 2) != 0);
    CHECK(sheet.Count(0x00FF00) > 0);
    CHECK(sheet.Count(0xFFFFFF) == 0);
    CHECK(sheet.Count(Background) > 200 * 60 - 60 * 20);
    // Strokes are mixed of text and background: green never falls below the background's, red never rises
    // above it.
    for (const std::uint32_t pixel : sheet.Copy()) {
        CHECK((pixel >> 8 & 0xFF) >= 0x22);
        CHECK((pixel >> 16 & 0xFF) <= 0x11);
        CHECK((pixel >> 24) == 0);
    }
}

TEST_CASE("the viewport origin moves text and rectangles")
{
    TextSheet here(120, 60), there(120, 60);
    RECT      rect = {5, 5, 90, 40};
    TextOutW(here.Dc, 17, 13, L"Ab", 2);
    SetViewportOrgEx(there.Dc, 7, 9, nullptr);
    TextOutW(there.Dc, 10, 4, L"Ab", 2);
    CHECK(here.Copy() == there.Copy());
    CHECK_FALSE(here.Untouched());
    here.Clear();
    there.Clear();
    DrawTextW(there.Dc, L"Ab", 2, &rect, 37);
    OffsetRect(&rect, 7, 9);
    DrawTextW(here.Dc, L"Ab", 2, &rect, 37);
    CHECK(here.Copy() == there.Copy());
    CHECK_FALSE(here.Untouched());
}

TEST_CASE("flags place the text at the left, the centre, the right, the middle and the bottom")
{
    TextSheet  sheet(200, 100);
    const LONG width = sheet.Measure(L"Hello").right;
    const auto placed = [&](RECT rect, UINT format, LONG left, LONG top, int result) {
        sheet.Clear();
        const RECT before = rect;
        CHECK(DrawTextW(sheet.Dc, L"Hello", 5, &rect, format) == result);
        CHECK(CRect(rect) == before);
        CHECK(IsBox(sheet.Touched(), left, top, left + width, top + 20));
    };
    for (const RECT& rect : {RECT{10, 20, 110, 70}, RECT{10, 20, 111, 71}}) {
        const LONG centre = (rect.left + rect.right - width) / 2;
        placed(rect, DT_LEFT, 10, 20, 20);
        placed(rect, DT_CENTER, centre, 20, 20);
        placed(rect, DT_RIGHT, rect.right - width, 20, 20);
        placed(rect, DT_CENTER | DT_SINGLELINE, centre, 20, 20);
        placed(rect, 37, centre, 35, 35);
        placed(rect, 8757, centre, 35, 35);
        placed(rect, DT_SINGLELINE | DT_BOTTOM, 10, rect.bottom - 20, rect.bottom - 20);
        placed(rect, DT_VCENTER, 10, 20, 20);    // counts on a single line only
        placed(rect, DT_BOTTOM, 10, 20, 20);
    }
}

TEST_CASE("text is clipped to its rectangle by default")
{
    TextSheet  sheet(200, 100);
    const LONG width = sheet.Measure(L"Hello").right;
    RECT       rect = {50, 20, 70, 30};
    DrawTextW(sheet.Dc, L"Hello", 5, &rect, 37);
    CHECK(IsBox(sheet.Touched(), 50, 20, 70, 30));
    sheet.Clear();
    DrawTextW(sheet.Dc, L"Hello", 5, &rect, 37 | DT_NOCLIP);
    CHECK(IsBox(sheet.Touched(), (120 - width) / 2, 15, (120 - width) / 2 + width, 35));
    sheet.Clear();
    rect = {50, 50, 50, 50};
    DrawTextW(sheet.Dc, L"Hello", 5, &rect, 37);
    CHECK(sheet.Untouched());
}

TEST_CASE("text is clipped to the bitmap on every side")
{
    TextSheet sheet(40, 30);
    for (const POINT at : {POINT{-12, 5}, POINT{20, 5}, POINT{5, -9}, POINT{5, 20}, POINT{-12, -9}}) {
        sheet.Clear();
        CHECK(TextOutW(sheet.Dc, at.x, at.y, L"Hello", 5) != 0);
        CHECK_FALSE(sheet.Untouched());
    }
    sheet.Clear();
    for (const POINT at :
         {POINT{-5000, 5}, POINT{5000, 5}, POINT{5, -5000}, POINT{5, 5000}, POINT{INT32_MAX, INT32_MIN}})
        TextOutW(sheet.Dc, at.x, at.y, L"Hello", 5);
    CHECK(sheet.Untouched());
}

TEST_CASE("lines stand one below the other, each centred by itself")
{
    TextSheet  sheet(200, 100);
    const LONG wide = sheet.Measure(L"Hello").right, narrow = sheet.Measure(L"Hi").right;
    RECT       rect = {10, 20, 110, 90};
    CHECK(DrawTextW(sheet.Dc, L"Hello\nHi", -1, &rect, DT_CENTER) == 40);
    CHECK(IsBox(sheet.Touched(), (120 - wide) / 2, 20, (120 - wide) / 2 + wide, 60));
    CHECK(sheet.At((120 - wide) / 2, 20) != Background);
    CHECK(sheet.At((120 - wide) / 2, 40) == Background);
    CHECK(sheet.At((120 - narrow) / 2, 40) != Background);
}

TEST_CASE("a prefix mark takes no room, underlines the next character, and a double one is one mark")
{
    TextSheet sheet(200, 60);
    CHECK(sheet.Measure(L"&Hello").right == sheet.Measure(L"Hello").right);
    CHECK(sheet.Measure(L"He&llo").right == sheet.Measure(L"Hello").right);
    CHECK(sheet.Measure(L"&&Hello").right == sheet.Measure(L"&Hello", DT_NOPREFIX).right);
    CHECK(sheet.Measure(L"&Hello", DT_NOPREFIX).right > sheet.Measure(L"Hello").right);

    SetBkMode(sheet.Dc, TRANSPARENT);
    RECT rect = {10, 10, 190, 50};
    DrawTextW(sheet.Dc, L"AB", -1, &rect, 0);
    const std::vector<std::uint32_t> plain = sheet.Copy();
    sheet.Clear();
    DrawTextW(sheet.Dc, L"A&B", -1, &rect, 0);
    const std::vector<std::uint32_t> marked = sheet.Copy();
    RECT                             line = {200, 60, 0, 0};
    for (int i = 0; i < 200 * 60; ++i)
        if (plain[static_cast<std::size_t>(i)] != marked[static_cast<std::size_t>(i)]) {
            line.left = std::min<LONG>(line.left, i % 200);
            line.right = std::max<LONG>(line.right, i % 200 + 1);
            line.top = std::min<LONG>(line.top, i / 200);
            line.bottom = std::max<LONG>(line.bottom, i / 200 + 1);
        }
    CHECK(line.bottom - line.top == 1);
    CHECK(line.left == 10 + sheet.Measure(L"A").right);
    CHECK(line.right == 10 + sheet.Measure(L"AB").right - 1);
}

TEST_CASE("Chinese text has glyphs of its own")
{
    TextSheet  sheet(100, 60, 40);
    const auto drawn = [&](const wchar_t* text) {
        sheet.Clear();
        TextOutW(sheet.Dc, 5, 5, text, static_cast<int>(std::wcslen(text)));
        return sheet.Copy();
    };
    const auto missing = drawn(L"\uFDD0\uFDD0"), first = drawn(L"阈值"), second = drawn(L"图像");
    sheet.Clear();
    const auto blank = sheet.Copy();
    CHECK(first != missing);
    CHECK(second != missing);
    CHECK(first != second);
    CHECK(first != blank);
}

TEST_CASE("the same text is drawn the same whenever it is drawn")
{
    TextSheet  sheet(300, 40);
    const auto draw = [&] {
        sheet.Clear();
        TextOutW(sheet.Dc, 3, 4, L"W = 12.5, 阈值", 12);
        return sheet.Copy();
    };
    const auto first = draw();
    for (int i = 0; i < 3000; ++i) {
        const std::wstring other = L"other " + std::to_wstring(i);
        TextOutW(sheet.Dc, 3, 4, other.c_str(), static_cast<int>(other.size()));
    }
    CHECK(draw() == first);
}

TEST_CASE("a long text draws its visible part quickly")
{
    TextSheet          sheet(200, 40);
    const std::wstring text(100000, L'x');
    RECT               rect = {0, 0, 0, 0};
    const auto         start = std::chrono::steady_clock::now();
    CHECK(DrawTextW(sheet.Dc, text.c_str(), 100000, &rect, DT_CALCRECT) == 20);
#if defined(_WIN32)
    CHECK(rect.right > 3000);    // some desktops measure the first thousand characters only
#else
    CHECK(rect.right > 300000);
#endif
    rect = {10, 10, 190, 30};
    DrawTextW(sheet.Dc, text.c_str(), 100000, &rect, 37);
    CHECK(IsBox(sheet.Touched(), 10, 10, 190, 30));
    sheet.Clear();
    CHECK(TextOutW(sheet.Dc, 100, 10, text.c_str(), 100000) != 0);
    CHECK(IsBox(sheet.Touched(), 100, 10, 200, 30));
    // Seconds where it takes milliseconds: what is meant is that nothing grows with the square.
    CHECK(std::chrono::steady_clock::now() - start < std::chrono::seconds(10));
}

TEST_CASE("a huge font neither crashes nor draws outside the bitmap")
{
    TextSheet sheet(50, 50, 1500);
    CHECK(sheet.Measure(L"W").right > 300);
    TextOutW(sheet.Dc, -400, -600, L"WWW", 3);
    CHECK_FALSE(sheet.Untouched());
}

TEST_CASE("bad handles and missing rectangles fail and draw nothing")
{
    TextSheet sheet(50, 50);
    RECT      rect = {0, 0, 50, 50};
    CHECK(TextOutW(nullptr, 1, 1, L"Hello", 5) == 0);
    CHECK(DrawTextW(nullptr, L"Hello", 5, &rect, 0) == 0);
    CHECK(sheet.Untouched());
    CHECK(TextOutW(sheet.Dc, 1, 1, L"Hello", 5) != 0);
    CHECK_FALSE(sheet.Untouched());
}

#if !defined(_WIN32)
TEST_CASE("no text, no rectangle and lengths below -1 are refused without harm")
{
    TextSheet sheet(50, 50);
    RECT      rect = {0, 0, 50, 50};
    CHECK(TextOutW(sheet.Dc, 1, 1, nullptr, 5) == 0);
    CHECK(TextOutW(sheet.Dc, 1, 1, L"Hello", -7) == 0);
    CHECK(DrawTextW(sheet.Dc, nullptr, 5, &rect, 0) == 0);
    CHECK(DrawTextW(sheet.Dc, L"Hello", -7, &rect, 0) == 0);
    CHECK(DrawTextW(sheet.Dc, L"Hello", 5, nullptr, 0) == 0);
    const wchar_t strange[] = {L'a',  0,   static_cast<wchar_t>(0x7FFFFFFF), static_cast<wchar_t>(-1), 0xD800,
                               L'\t', L'b'};
    CHECK(sheet.Untouched());
    CHECK(TextOutW(sheet.Dc, 1, 1, strange, 7) != 0);
    CHECK_FALSE(sheet.Untouched());
}
#endif

TEST_CASE("24 bits per pixel take text as 32 do")
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = 61;
    info.bmiHeader.biHeight = 30;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void*     bits = nullptr;
    HDC       dc = CreateCompatibleDC(nullptr);
    HBITMAP   bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ   before = SelectObject(dc, bitmap);
    HFONT     font = CreateFontW(20, 0, 0, 0, 400, 0, 0, 0, 134, 8, 1, 0, 48, L"微软雅黑");
    HGDIOBJ   beforeFont = SelectObject(dc, font);
    TextSheet sheet(61, 30);
    std::fill_n(sheet.Pixels(), 61 * 30, 0u);
    for (HDC target : {dc, sheet.Dc}) {
        SetBkColor(target, RGB(10, 20, 30));
        SetTextColor(target, RGB(200, 100, 50));
        TextOutW(target, 4, 3, L"Hello", 5);
    }
    GdiFlush();
    int different = 0;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 61; ++x) {
            const unsigned char* triple = static_cast<unsigned char*>(bits) + (29 - y) * 184 + x * 3;
            const std::uint32_t  pixel = triple[0] | triple[1] << 8 | triple[2] << 16;
            different += pixel != sheet.At(x, y);
        }
    CHECK(different == 0);
    SelectObject(dc, beforeFont);
    SelectObject(dc, before);
    DeleteDC(dc);
    DeleteObject(font);
    DeleteObject(bitmap);
}
