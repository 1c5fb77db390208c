#pragma once

// A small section bitmap selected into a context of its own, and its pixels as text that a person can check:
// a full stop for black, a letter for each color of the legend, a question mark for anything else.

#include <VostelObj.h>

#include <cstddef>
#include <cstring>
#include <string>

inline constexpr COLORREF testRed = RGB(255, 0, 0);
inline constexpr COLORREF testGreen = RGB(0, 255, 0);
inline constexpr COLORREF testBlue = RGB(0, 0, 255);
inline constexpr COLORREF testWhite = RGB(255, 255, 255);

class TestBitmap {
public:
    TestBitmap(int width, int height, int bitsPerPixel = 32, bool topDown = false)
        : Width(width), Height(height), bytesPerPixel(bitsPerPixel / 8),
          rowBytes((width * bytesPerPixel + 3) & ~3), topDown(topDown)
    {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = topDown ? -height : height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
        void* bits = nullptr;
        Dc = CreateCompatibleDC(nullptr);
        Bitmap = CreateDIBSection(Dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        Bits = static_cast<unsigned char*>(bits);
        before = SelectObject(Dc, Bitmap);
    }
    ~TestBitmap()
    {
        SelectObject(Dc, before);
        DeleteObject(Bitmap);
        DeleteDC(Dc);
    }
    TestBitmap(const TestBitmap&) = delete;
    TestBitmap& operator=(const TestBitmap&) = delete;

    void Clear(unsigned char byte = 0)
    {
        GdiFlush();
        std::memset(Bits, byte, static_cast<std::size_t>(rowBytes) * static_cast<std::size_t>(Height));
    }

    // 0x00RRGGBB with the fourth byte of a 32-bit pixel on top; y from the top of the picture.
    unsigned Word(int x, int y) const
    {
        GdiFlush();
        std::ptrdiff_t row = topDown ? y : Height - 1 - y;
        unsigned       word = 0;
        std::memcpy(&word, Bits + row * rowBytes + static_cast<std::ptrdiff_t>(x) * bytesPerPixel,
                    static_cast<std::size_t>(bytesPerPixel));
        return word;
    }

    // Rows of letters, each row ended by a line feed.
    std::string Text() const
    {
        std::string text;
        for (int y = 0; y < Height; ++y) {
            for (int x = 0; x < Width; ++x)
                text += Letter(Word(x, y));
            text += '\n';
        }
        return text;
    }

    int Count(unsigned word) const
    {
        int count = 0;
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                count += Word(x, y) == word ? 1 : 0;
        return count;
    }

    HDC            Dc = nullptr;
    HBITMAP        Bitmap = nullptr;
    unsigned char* Bits = nullptr;
    int            Width, Height;

private:
    static char Letter(unsigned word)
    {
        switch (word) {
        case 0x000000:
            return '.';
        case 0xFF0000:
            return 'r';
        case 0x00FF00:
            return 'g';
        case 0x0000FF:
            return 'b';
        case 0xFFFFFF:
            return 'w';
        default:
            return '?';
        }
    }

    int     bytesPerPixel, rowBytes;
    bool    topDown;
    HGDIOBJ before = nullptr;
};

// Selects an object and deletes it at the end of the block.
class TestSelection {
public:
    TestSelection(HDC dc, HGDIOBJ object) : dc(dc), object(object), before(SelectObject(dc, object)) {}
    ~TestSelection()
    {
        SelectObject(dc, before);
        DeleteObject(object);
    }
    TestSelection(const TestSelection&) = delete;
    TestSelection& operator=(const TestSelection&) = delete;

private:
    HDC     dc;
    HGDIOBJ object, before;
};
