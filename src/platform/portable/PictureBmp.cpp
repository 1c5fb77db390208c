// BMP with 1, 4, 8, 16, 24 and 32 bits per pixel, plain, with bit fields and run-length coded; headers from
// 12 to 124 bytes. 16 bits are brought to five bits per channel.

#include "base/LittleEndian.h"
#include "platform/portable/PictureCodecs.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vostel::pictures {
namespace {

enum Coding : std::uint32_t { Plain = 0, RunLength8 = 1, RunLength4 = 2, BitFields = 3, AlphaBitFields = 6 };

constexpr std::size_t FileHeaderBytes = 14;
constexpr std::size_t OldHeaderBytes = 12;    // of the information header, as the first version had it
constexpr std::size_t MinHeaderBytes = 40;
constexpr std::size_t MaxHeaderBytes = 1024;

// Bytes after the end of the file count as zero.
std::uint32_t NumberAt(const Bytes& file, std::size_t at, std::size_t bytes)
{
    const std::size_t first = std::min(at, file.size());
    return ReadLittleEndian({file.data() + first, std::min(bytes, file.size() - first)});
}

// One channel of a bit field pixel, widened to eight bits.
struct Channel {
    std::uint32_t Mask = 0;
    int           Shift = 0;
    std::uint32_t Max = 0;

    explicit Channel(std::uint32_t mask) : Mask(mask)
    {
        while (mask != 0 && (mask >> Shift & 1) == 0)
            ++Shift;
        Max = mask >> Shift;
    }
    unsigned char Of(std::uint32_t pixel) const
    {
        if (Max == 0)
            return 0;
        return static_cast<unsigned char>(std::uint64_t{(pixel & Mask) >> Shift} * 255 / Max);
    }
};

void SetIndex(PictureBuffer& picture, int x, int y, unsigned index)
{
    unsigned char* row = picture.Row(y);
    if (picture.BitsPerPixel == 8)
        row[x] = static_cast<unsigned char>(index);
    else
        row[x / 2] = static_cast<unsigned char>(x % 2 ? (row[x / 2] & 0xF0) | (index & 15) : index << 4);
}

// Two bytes at a time: a count with the value of its pixels, or a zero with an escape.
bool DecodeRuns(const Bytes& file, std::size_t at, PictureBuffer& picture)
{
    const bool nibbles = picture.BitsPerPixel == 4;
    int        x = 0;
    int        line = 0;    // from the bottom
    const auto put = [&](unsigned index) {
        if (x < picture.Width && line < picture.Height)
            SetIndex(picture, x, picture.Height - 1 - line, index);
        if (x < picture.Width)
            ++x;
    };
    while (at + 1 < file.size()) {
        const unsigned count = file[at], value = file[at + 1];
        at += 2;
        if (count > 0) {
            for (unsigned i = 0; i < count; ++i)
                put(nibbles ? (i % 2 ? value & 15u : value >> 4) : value);
        } else if (value == 0) {
            x = 0;
            ++line;
        } else if (value == 1) {
            return true;
        } else if (value == 2) {
            if (at + 1 >= file.size())
                return false;
            x = std::min(picture.Width, x + file[at]);
            line += file[at + 1];
            at += 2;
        } else {
            const std::size_t bytes = nibbles ? (value + 1) / 2 : value;
            if (file.size() - at < bytes)
                return false;
            for (unsigned i = 0; i < value; ++i)
                put(nibbles ? (i % 2 ? file[at + i / 2] & 15u : file[at + i / 2] >> 4u) : file[at + i]);
            at += bytes + bytes % 2;
        }
        if (line > picture.Height)
            return true;
    }
    return line >= picture.Height || (line == picture.Height - 1 && x >= picture.Width);    // no end mark
}

void Append(Bytes& file, std::uint32_t value, std::size_t bytes)
{
    file.resize(file.size() + bytes);
    WriteLittleEndian(std::span(file).last(bytes), value);
}

// What a header says, once it has been checked against the file.
struct BmpLayout {
    int           Width = 0;
    int           Height = 0;
    int           Depth = 0;    // bits per pixel
    bool          TopDown = false;
    bool          RunLengths = false;
    bool          HasFields = false;    // the channels' masks come from the file
    Channel       Red{0}, Green{0}, Blue{0}, Alpha{0};
    std::size_t   PaletteAt = 0;       // bytes from the beginning of the file
    std::size_t   EntryBytes = 0;      // of a palette entry
    std::uint32_t PaletteCount = 0;    // entries that the header announces, 0 for all of the depth
    std::size_t   PixelsAt = 0;        // not before the headers' end nor behind the file's
    std::size_t   RowBytes = 0;        // with padding
};

// The masks follow a short header and are part of a long one.
void ReadChannels(const Bytes& file, std::uint32_t coding, std::size_t headerBytes, BmpLayout& layout)
{
    layout.Red = Channel(layout.Depth == 16 ? 0x7C00 : 0xFF0000);
    layout.Green = Channel(layout.Depth == 16 ? 0x3E0 : 0xFF00);
    layout.Blue = Channel(layout.Depth == 16 ? 0x1F : 0xFF);
    if (!layout.HasFields)
        return;
    layout.Red = Channel(NumberAt(file, 54, 4));
    layout.Green = Channel(NumberAt(file, 58, 4));
    layout.Blue = Channel(NumberAt(file, 62, 4));
    if (headerBytes >= 56 || coding == AlphaBitFields)
        layout.Alpha = Channel(NumberAt(file, 66, 4));
}

// Whether the pixels can be in the file: all rows have to be there, runs only in part.
bool HoldsPixels(const Bytes& file, const BmpLayout& layout)
{
    const long long bytes = static_cast<long long>(layout.RowBytes) * layout.Height;
    if (layout.RunLengths)
        return !layout.TopDown && IsPlausible(bytes, file.size(), 1024);
    return bytes <= static_cast<long long>(file.size() - layout.PixelsAt);
}

bool ReadBmpHeader(const Bytes& file, BmpLayout& layout)
{
    if (file.size() < FileHeaderBytes + OldHeaderBytes || file[0] != 'B' || file[1] != 'M')
        return false;
    const std::size_t headerBytes = NumberAt(file, 14, 4);
    const bool        old = headerBytes == OldHeaderBytes;
    if (!old && (headerBytes < MinHeaderBytes || headerBytes > MaxHeaderBytes ||
                 file.size() < FileHeaderBytes + headerBytes))
        return false;

    const long long width = static_cast<std::int32_t>(NumberAt(file, 18, old ? 2 : 4));
    const long long lines = static_cast<std::int32_t>(old ? NumberAt(file, 20, 2) : NumberAt(file, 22, 4));
    const long long height = lines < 0 ? -lines : lines;    // a negative count lies top row first
    if (!IsSanePictureSize(width, height))
        return false;
    const std::uint32_t depth = NumberAt(file, old ? 24 : 28, 2);
    const std::uint32_t coding = old ? Plain : NumberAt(file, 30, 4);
    if (depth != 1 && depth != 4 && depth != 8 && depth != 16 && depth != 24 && depth != 32)
        return false;
    layout.Width = static_cast<int>(width);
    layout.Height = static_cast<int>(height);
    layout.Depth = static_cast<int>(depth);
    layout.TopDown = lines < 0;
    layout.RunLengths = (coding == RunLength8 && depth == 8) || (coding == RunLength4 && depth == 4);
    layout.HasFields = (coding == BitFields || coding == AlphaBitFields) && (depth == 16 || depth == 32);
    if (coding != Plain && !layout.RunLengths && !layout.HasFields)
        return false;

    ReadChannels(file, coding, headerBytes, layout);
    layout.PaletteAt = FileHeaderBytes + headerBytes;
    layout.EntryBytes = old ? 3 : 4;
    layout.PaletteCount = old ? 0 : NumberAt(file, 46, 4);
    layout.PixelsAt = NumberAt(file, 10, 4);
    layout.RowBytes = static_cast<std::size_t>((width * depth + 31) / 32 * 4);
    return layout.PixelsAt >= layout.PaletteAt && layout.PixelsAt <= file.size() && HoldsPixels(file, layout);
}

// Entries that the file has no room for before its pixels stay black.
void ReadPalette(const Bytes& file, const BmpLayout& layout, PictureBuffer& picture)
{
    const std::uint32_t all = 1u << layout.Depth;
    const std::uint32_t count =
        layout.PaletteCount == 0 || layout.PaletteCount > all ? all : layout.PaletteCount;
    std::memset(picture.Palette, 0, sizeof picture.Palette);
    std::size_t at = layout.PaletteAt;
    for (std::uint32_t i = 0; i < count && at + layout.EntryBytes <= layout.PixelsAt; ++i) {
        picture.Palette[i] = {file[at], file[at + 1], file[at + 2], 0};
        at += layout.EntryBytes;
    }
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
    if (!ReadBmpHeader(file, layout) || !picture.Allocate(layout.Width, layout.Height, layout.Depth))
        return false;
    if (layout.Depth <= 8)
        ReadPalette(file, layout, picture);
    if (layout.RunLengths)
        return DecodeRuns(file, layout.PixelsAt, picture);
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
    Append(file, picture.HasAlpha ? BitFields : Plain, 4);
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
