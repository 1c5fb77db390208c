#include "platform/PictureBuffer.h"

#include <new>

namespace vostel {

PictureBuffer::~PictureBuffer()
{
    Release();
}

void PictureBuffer::Release()
{
    if (Section)
        DeleteObject(Section);
    Section = nullptr;
    Memory.clear();
    Memory.shrink_to_fit();
    Lowest = nullptr;
    Width = Height = BitsPerPixel = RowBytes = 0;
    BottomUp = true;
    HasAlpha = false;
}

bool PictureBuffer::Allocate(int width, int height, int bitsPerPixel, bool bottomUp)
{
    Release();
    if (!IsSanePictureSize(width, height))
        return false;
    const long long rowBytes = (static_cast<long long>(width) * bitsPerPixel + 31) / 32 * 4;
    if (bitsPerPixel >= 24) {
        BITMAPINFO info = {};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = bottomUp ? height : -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
        info.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        Section = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (!Section)
            return false;
        Lowest = static_cast<unsigned char*>(bits);
    } else {
        try {
            Memory.assign(static_cast<std::size_t>(rowBytes) * static_cast<std::size_t>(height), 0);
        } catch (const std::bad_alloc&) {
            return false;
        }
        Lowest = Memory.data();
        const int last = (1 << bitsPerPixel) - 1;
        for (int i = 0; i <= 255; ++i) {
            const BYTE level = static_cast<BYTE>(i <= last ? i * 255 / last : 0);
            Palette[i] = {level, level, level, 0};
        }
    }
    Width = width;
    Height = height;
    BitsPerPixel = bitsPerPixel;
    RowBytes = static_cast<int>(rowBytes);
    BottomUp = bottomUp;
    return true;
}

unsigned char* PictureBuffer::Row(int y)
{
    return Lowest + static_cast<std::ptrdiff_t>(BottomUp ? Height - 1 - y : y) * RowBytes;
}

bool PictureBuffer::IsGray() const
{
    if (BitsPerPixel > 8)
        return false;
    const int last = (1 << BitsPerPixel) - 1;
    for (int i = 0; i <= last; ++i) {
        const int level = i * 255 / last;
        if (Palette[i].rgbBlue != level || Palette[i].rgbGreen != level || Palette[i].rgbRed != level)
            return false;
    }
    return true;
}

bool IsSanePictureSize(long long width, long long height)
{
    constexpr long long MaxPixels = 1LL << 28;
    return width > 0 && height > 0 && width <= MaxPixels && height <= MaxPixels &&
           width * height <= MaxPixels;
}

bool IsPlausible(long long decodedBytes, std::size_t fileBytes, long long maxFactor)
{
    // Small pictures pass: headers and tables make the factor meaningless there.
    return decodedBytes <= 1 << 20 || decodedBytes / maxFactor <= static_cast<long long>(fileBytes);
}

}
