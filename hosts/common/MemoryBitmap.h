#pragma once

#include <VostelObj.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

// A memory context with a section bitmap of 24 or 32 bits per pixel selected: what a host without a window
// draws into. It starts black, and both are freed at the end.
class MemoryBitmap {
public:
    HDC            Dc = nullptr;
    HBITMAP        Bitmap = nullptr;
    unsigned char* Bits = nullptr;    // null if there was no memory
    int            Width = 0;         // px
    int            Height = 0;
    int            BitsPerPixel = 0;
    int            RowBytes = 0;    // with padding
    bool           TopDown = false;

    MemoryBitmap(int width, int height, int bitsPerPixel = 32, bool topDown = false)
        : BitsPerPixel(bitsPerPixel), TopDown(topDown)
    {
        Make(width, height);
    }
    ~MemoryBitmap() { Drop(); }
    MemoryBitmap(const MemoryBitmap&) = delete;
    MemoryBitmap& operator=(const MemoryBitmap&) = delete;

    // Another context with another bitmap, black.
    void Resize(int width, int height)
    {
        Drop();
        Make(width, height);
    }

    // y counts from the top, whatever the order in memory.
    unsigned char* Row(int y) const
    {
        return Bits + static_cast<std::ptrdiff_t>(TopDown ? y : Height - 1 - y) * RowBytes;
    }
    // The pixels of 32 bits in the order of memory.
    std::uint32_t* Pixels() const { return reinterpret_cast<std::uint32_t*>(Bits); }
    std::size_t    PixelCount() const
    {
        return static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height);
    }

    // 0x00RRGGBB, with the fourth byte of a 32-bit pixel on top.
    std::uint32_t PixelAt(int x, int y) const
    {
        GdiFlush();
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, Place(x, y), PixelBytes());
        return pixel;
    }
    void SetPixelAt(int x, int y, std::uint32_t pixel) { std::memcpy(Place(x, y), &pixel, PixelBytes()); }
    void Fill(std::uint32_t pixel)
    {
        GdiFlush();
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                SetPixelAt(x, y, pixel);
    }

private:
    HGDIOBJ Before = nullptr;    // what Bitmap displaced

    std::size_t    PixelBytes() const { return static_cast<std::size_t>(BitsPerPixel) / 8; }
    unsigned char* Place(int x, int y) const { return Row(y) + static_cast<std::size_t>(x) * PixelBytes(); }

    void Make(int width, int height)
    {
        Width = width;
        Height = height;
        RowBytes = (width * BitsPerPixel + 31) / 32 * 4;
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = TopDown ? -height : height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = static_cast<WORD>(BitsPerPixel);
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        Dc = CreateCompatibleDC(nullptr);
        Bitmap = CreateDIBSection(Dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        Bits = static_cast<unsigned char*>(bits);
        Before = SelectObject(Dc, Bitmap);
    }
    void Drop()
    {
        SelectObject(Dc, Before);
        DeleteObject(Bitmap);
        DeleteDC(Dc);
    }
};
