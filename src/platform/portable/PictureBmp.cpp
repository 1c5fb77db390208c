// BMP with 1, 4, 8, 16, 24 and 32 bits per pixel, plain, with bit fields and run-length coded; headers from
// 12 to 124 bytes. 16 bits are brought to five bits per channel.

#include "base/LittleEndian.h"
#include "platform/BmpLayout.h"
#include "platform/portable/PictureCodecs.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vostel::pictures {
namespace {

void SetIndex(PictureBuffer& picture, int x, int y, unsigned index)
{
    unsigned char* row = picture.Row(y);
    if (picture.BitsPerPixel == 8)
        row[x] = static_cast<unsigned char>(index);
    else
        row[x / 2] = static_cast<unsigned char>(x % 2 ? (row[x / 2] & 0xF0) | (index & 15) : index << 4);
}

void Append(Bytes& file, std::uint32_t value, std::size_t bytes)
{
    file.resize(file.size() + bytes);
    WriteLittleEndian(std::span(file).last(bytes), value);
}

// Whether rows lie in the file as they do in the picture.
bool CopiesRows(const BmpLayout& layout)
{
    return layout.Depth != 16 &&
           (!layout.HasFields || (layout.Red.Mask == 0xFF0000 && layout.Green.Mask == 0xFF00 &&
                                  layout.Blue.Mask == 0xFF && (layout.Alpha.Mask & 0xFFFFFF) == 0));
}

// A row of 16 or 32 bits per pixel, channel by channel.
void ReadFieldRow(const unsigned char* source, const BmpLayout& layout, unsigned char* row)
{
    const std::size_t pixelBytes = static_cast<std::size_t>(layout.Depth) / 8;
    for (int x = 0; x < layout.Width; ++x, source += pixelBytes, row += pixelBytes) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, source, pixelBytes);
        const unsigned char red = layout.Red.Of(pixel);
        const unsigned char green = layout.Green.Of(pixel);
        const unsigned char blue = layout.Blue.Of(pixel);
        if (layout.Depth == 16) {
            row[0] = static_cast<unsigned char>((green & 0x38) << 2 | blue >> 3);
            row[1] = static_cast<unsigned char>((red & 0xF8) >> 1 | green >> 6);
            continue;
        }
        row[0] = blue;
        row[1] = green;
        row[2] = red;
        row[3] = layout.Alpha.Of(pixel);    // 0 without a mask
    }
}

void ReadRows(const Bytes& file, const BmpLayout& layout, PictureBuffer& picture)
{
    const bool copy = CopiesRows(layout);
    for (int y = 0; y < layout.Height; ++y) {
        const std::size_t    line = static_cast<std::size_t>(layout.TopDown ? y : layout.Height - 1 - y);
        const unsigned char* source = file.data() + layout.PixelsAt + line * layout.RowBytes;
        if (copy)
            std::memcpy(picture.Row(y), source, layout.RowBytes);
        else
            ReadFieldRow(source, layout, picture.Row(y));
    }
}

}

bool DecodeBmp(const Bytes& file, PictureBuffer& picture)
{
    BmpLayout layout;
    if (!ReadBmpHeader(file, layout) || !IsTaken(file, layout.Width, layout.Height) ||
        !HoldsBmpPixels(file, layout) || !picture.Allocate(layout.Width, layout.Height, layout.Depth))
        return false;
    if (layout.Depth <= 8)
        ReadBmpPalette(file, layout, picture.Palette);
    if (layout.RunLengths)
        return DecodeBmpRuns(file, layout,
                             [&](int x, int y, unsigned index) { SetIndex(picture, x, y, index); });
    picture.HasAlpha = layout.Depth == 32 && layout.Alpha.Mask != 0;
    ReadRows(file, layout, picture);
    return true;
}

void EncodeBmpHead(const PictureBuffer& picture, Bytes& file)
{
    const std::uint32_t colors = picture.BitsPerPixel <= 8 ? 1u << picture.BitsPerPixel : 0;
    // Alpha needs the long header with its masks.
    const std::uint32_t header = picture.HasAlpha ? 108 : 40;
    const std::uint32_t offset = 14 + header + 4 * colors;
    const std::uint64_t bits = std::uint64_t(picture.RowBytes) * std::uint64_t(picture.Height);
    Append(file, 0x4D42, 2);
    Append(file, static_cast<std::uint32_t>(offset + bits), 4);
    Append(file, 0, 4);
    Append(file, offset, 4);
    Append(file, header, 4);
    Append(file, static_cast<std::uint32_t>(picture.Width), 4);
    Append(file, static_cast<std::uint32_t>(picture.Height), 4);
    Append(file, 1, 2);
    Append(file, static_cast<std::uint32_t>(picture.BitsPerPixel), 2);
    Append(file, picture.HasAlpha ? BmpBitFields : BmpPlain, 4);
    Append(file, static_cast<std::uint32_t>(bits), 4);
    Append(file, 3780, 4);    // 96 pixels per inch
    Append(file, 3780, 4);
    Append(file, 0, 4);
    Append(file, 0, 4);
    if (picture.HasAlpha) {
        for (const std::uint32_t mask :
             {0xFF0000u, 0xFF00u, 0xFFu, 0xFF000000u, 0x73524742u})    // and "sRGB"
            Append(file, mask, 4);
        file.resize(file.size() + 48, 0);
    }
    for (std::uint32_t i = 0; i < colors; ++i) {
        const RGBQUAD color = picture.Palette[i];
        file.insert(file.end(), {color.rgbBlue, color.rgbGreen, color.rgbRed, 0});
    }
}

bool EncodeBmp(const PictureBuffer& picture, Bytes& file)
{
    EncodeBmpHead(picture, file);
    file.reserve(file.size() +
                 static_cast<std::size_t>(picture.RowBytes) * static_cast<std::size_t>(picture.Height));
    for (int y = picture.Height - 1; y >= 0; --y)
        file.insert(file.end(), picture.Row(y), picture.Row(y) + picture.RowBytes);
    return true;
}

}
