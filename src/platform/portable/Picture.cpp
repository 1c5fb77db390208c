#include "platform/portable/PictureCodecs.h"

#include <new>

namespace vostel::pictures {

Picture::~Picture()
{
    Release();
}

void Picture::Release()
{
    if (Section != nullptr)
        DeleteObject(Section);
    Section = nullptr;
    Memory.clear();
    Memory.shrink_to_fit();
    Lowest = nullptr;
    Width = Height = BitsPerPixel = RowBytes = 0;
    BottomUp = true;
    HasAlpha = false;
}

bool Picture::Allocate(int width, int height, int bitsPerPixel, bool bottomUp)
{
    Release();
    if (!IsSaneSize(width, height))
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
        if (Section == nullptr)
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

unsigned char* Picture::Row(int y)
{
    return Lowest + static_cast<std::ptrdiff_t>(BottomUp ? Height - 1 - y : y) * RowBytes;
}

bool Picture::IsGray() const
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

bool IsSaneSize(long long width, long long height)
{
    const long long utmost = 1LL << 28;
    return width > 0 && height > 0 && width <= utmost && height <= utmost && width * height <= utmost;
}

bool IsPlausible(long long decodedBytes, std::size_t fileBytes, long long utmostFactor)
{
    // Small pictures pass: headers and tables make the factor meaningless there.
    return decodedBytes <= 1 << 20 || decodedBytes / utmostFactor <= static_cast<long long>(fileBytes);
}

void IndexRow(const Picture& picture, int y, unsigned char* indices)
{
    const unsigned char* row = picture.Row(y);
    for (int x = 0; x < picture.Width; ++x) {
        if (picture.BitsPerPixel == 8)
            indices[x] = row[x];
        else if (picture.BitsPerPixel == 4)
            indices[x] = static_cast<unsigned char>(row[x / 2] >> (x % 2 ? 0 : 4) & 15);
        else
            indices[x] = static_cast<unsigned char>(row[x / 8] >> (7 - x % 8) & 1);
    }
}

void ColourRow(const Picture& picture, int y, unsigned char* triples)
{
    const unsigned char* row = picture.Row(y);
    if (picture.BitsPerPixel >= 24) {
        const int bytes = picture.BitsPerPixel / 8;
        for (int x = 0; x < picture.Width; ++x, triples += 3, row += bytes) {
            triples[0] = row[0];
            triples[1] = row[1];
            triples[2] = row[2];
        }
        return;
    }
    if (picture.BitsPerPixel == 16) {
        for (int x = 0; x < picture.Width; ++x, triples += 3, row += 2) {
            const int word = row[0] | row[1] << 8;
            triples[0] = static_cast<unsigned char>((word & 31) * 255 / 31);
            triples[1] = static_cast<unsigned char>((word >> 5 & 31) * 255 / 31);
            triples[2] = static_cast<unsigned char>((word >> 10 & 31) * 255 / 31);
        }
        return;
    }
    // The indices go to the end of the row of triples and are overtaken by none of them.
    unsigned char* indices = triples + static_cast<std::size_t>(picture.Width) * 2;
    IndexRow(picture, y, indices);
    for (int x = 0; x < picture.Width; ++x, triples += 3) {
        const RGBQUAD colour = picture.Palette[indices[x]];
        triples[0] = colour.rgbBlue;
        triples[1] = colour.rgbGreen;
        triples[2] = colour.rgbRed;
    }
}

}
