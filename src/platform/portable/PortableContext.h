#pragma once

// The objects behind the portable handles, shared by the files of this folder. Handles are checked
// numbers, never addresses: a stale or foreign one finds nothing.

#include "vostel/platform.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vostel::gdi {

// A bitmap of 1 (the default bitmap of a context), 24 or 32 bits per pixel.
struct Bitmap {
    int            Width = 0;     // pixels
    int            Height = 0;    // pixels, always positive
    int            BitsPerPixel = 32;
    int            RowBytes = 0;       // padded to four bytes
    bool           TopDown = false;    // memory order of the rows
    unsigned char* Bits = nullptr;     // lowest address; owned, zeroed at creation
    HDC            SelectedIn = nullptr;

    // y counts from the top of the picture, whatever the memory order.
    unsigned char* Row(int y) const
    {
        return Bits + static_cast<std::ptrdiff_t>(TopDown ? y : Height - 1 - y) * RowBytes;
    }
};

struct Pen {
    int      Style = PS_SOLID;
    int      Width = 1;    // pixels
    COLORREF Color = 0;
};

struct Brush {
    enum class Kind { Null, Solid, Hatch };
    Kind     Fill = Kind::Solid;
    int      Hatch = 0;    // HS_ value
    COLORREF Color = 0;
};

struct Font {
    int          Height = 0;    // as CreateFontW takes it: negative em height, positive cell height
    int          Weight = 400;
    bool         Italic = false;
    bool         Underline = false;
    bool         StrikeOut = false;
    std::wstring Face;
};

struct Context {
    // What is selected; the pointers belong to the handles beside them and live as long.
    HBITMAP BitmapHandle = nullptr;
    HPEN    PenHandle = nullptr;
    HBRUSH  BrushHandle = nullptr;
    HFONT   FontHandle = nullptr;
    Bitmap* Surface = nullptr;
    Pen*    SelectedPen = nullptr;
    Brush*  SelectedBrush = nullptr;
    Font*   SelectedFont = nullptr;

    POINT    Position = {0, 0};    // of MoveToEx and LineTo, logical
    POINT    Origin = {0, 0};      // viewport origin: added to logical coordinates
    int      BkMode = OPAQUE;
    COLORREF BkColor = 0xFFFFFF;
    COLORREF TextColor = 0;
    int      StretchMode = BLACKONWHITE;

    // What a context draws on that has no bitmap of its own selected: the default bitmap is one handle for
    // all contexts, but each has its own memory.
    unsigned char BlankBits[4] = {};
    Bitmap        Blank;

    Context();
};

// Null for a handle that is not a live object of the kind.
Context* FindContext(HDC dc);
Bitmap*  FindBitmap(HBITMAP bitmap);
Pen*     FindPen(HPEN pen);
Brush*   FindBrush(HBRUSH brush);
Font*    FindFont(HFONT font);

// Makes the handle of a new bitmap, which owns its bits from then on; null when there is no room.
HBITMAP InsertBitmap(std::unique_ptr<Bitmap> bitmap);

// The pixel 0x00RRGGBB of a GDI color.
inline std::uint32_t PixelOf(COLORREF color)
{
    return (color & 0xFFu) << 16 | (color & 0xFF00u) | (color >> 16 & 0xFFu);
}

}
