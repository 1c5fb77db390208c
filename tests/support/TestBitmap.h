#pragma once

// A small memory bitmap whose pixels are text that a person can check: a full stop for black, a letter for
// each color of the legend, a question mark for anything else.

#include "common/MemoryBitmap.h"
#include "common/SelectedObject.h"

#include <VostelObj.h>

#include <cstddef>
#include <cstring>
#include <string>

inline constexpr COLORREF TestRed = RGB(255, 0, 0);
inline constexpr COLORREF TestGreen = RGB(0, 255, 0);
inline constexpr COLORREF TestBlue = RGB(0, 0, 255);
inline constexpr COLORREF TestWhite = RGB(255, 255, 255);

class TestBitmap : public MemoryBitmap {
public:
    using MemoryBitmap::MemoryBitmap;

    void Clear(unsigned char byte = 0)
    {
        GdiFlush();
        std::memset(Bits, byte, static_cast<std::size_t>(RowBytes) * static_cast<std::size_t>(Height));
    }

    // Rows of letters, each row ended by a line feed.
    std::string Text() const
    {
        std::string text;
        for (int y = 0; y < Height; ++y) {
            for (int x = 0; x < Width; ++x)
                text += Letter(PixelAt(x, y));
            text += '\n';
        }
        return text;
    }

    int Count(unsigned pixel) const
    {
        int count = 0;
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                count += PixelAt(x, y) == pixel ? 1 : 0;
        return count;
    }

private:
    static char Letter(unsigned pixel)
    {
        switch (pixel) {
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
};
