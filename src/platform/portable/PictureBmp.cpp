// BMP with 1, 4, 8, 16, 24 and 32 bits a pixel, plain, with bit fields and run-length coded; headers from
// 12 to 124 bytes. 16 bits are brought to five bits a
// channel.

#include "platform/portable/PictureCodecs.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vostel::pictures {
namespace {

constexpr std::uint32_t Plain = 0, RunLength8 = 1, RunLength4 = 2, BitFields = 3, AlphaBitFields = 6;

std::uint32_t Number(const Bytes& file, std::size_t at, int bytes)
{
    std::uint32_t value = 0;
    for (int i = 0; i < bytes && at + static_cast<std::size_t>(i) < file.size(); ++i)
        value |= static_cast<std::uint32_t>(file[at + static_cast<std::size_t>(i)]) << 8 * i;
    return value;
}

// One channel of a bit field pixel, widened to eight bits.
struct Channel {
    std::uint32_t Mask = 0;
    int           Shift = 0;
    std::uint32_t Utmost = 0;

    explicit Channel(std::uint32_t mask) : Mask(mask)
    {
        while (mask != 0 && (mask >> Shift & 1) == 0)
            ++Shift;
        Utmost = mask >> Shift;
    }
    unsigned char Of(std::uint32_t pixel) const
    {
        if (Utmost == 0)
            return 0;
        return static_cast<unsigned char>(std::uint64_t{(pixel & Mask) >> Shift} * 255 / Utmost);
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

void Append(Bytes& file, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        file.push_back(static_cast<unsigned char>(value >> 8 * i));
}

}

bool DecodeBmp(const Bytes& file, PictureBuffer& picture)
{
    if (file.size() < 26 || file[0] != 'B' || file[1] != 'M')
        return false;
    const std::uint32_t header = Number(file, 14, 4);
    const bool          old = header == 12;
    if (!old && (header < 40 || header > 1024 || file.size() < 14 + std::size_t{header}))
        return false;
    const long long     width = static_cast<std::int32_t>(Number(file, 18, old ? 2 : 4));
    const long long     lines = static_cast<std::int32_t>(old ? Number(file, 20, 2) : Number(file, 22, 4));
    const long long     height = lines < 0 ? -lines : lines;
    const std::uint32_t depth = Number(file, old ? 24 : 28, 2);
    const std::uint32_t coding = old ? Plain : Number(file, 30, 4);
    std::uint32_t       colours = old ? 0 : Number(file, 46, 4);
    if (!IsSanePictureSize(width, height))
        return false;
    const bool runs = (coding == RunLength8 && depth == 8) || (coding == RunLength4 && depth == 4);
    const bool fields = (coding == BitFields || coding == AlphaBitFields) && (depth == 16 || depth == 32);
    if (coding != Plain && !runs && !fields)
        return false;
    if (depth != 1 && depth != 4 && depth != 8 && depth != 16 && depth != 24 && depth != 32)
        return false;

    std::size_t at = 14 + std::size_t{header};
    Channel     red(depth == 16 ? 0x7C00 : 0xFF0000), green(depth == 16 ? 0x3E0 : 0xFF00);
    Channel     blue(depth == 16 ? 0x1F : 0xFF), alpha(0);
    if (fields) {
        // The masks follow a short header and are part of a long one.
        red = Channel(Number(file, 54, 4));
        green = Channel(Number(file, 58, 4));
        blue = Channel(Number(file, 62, 4));
        if (header >= 56 || coding == AlphaBitFields)
            alpha = Channel(Number(file, 66, 4));
        if (header == 40)
            at += coding == AlphaBitFields ? 16 : 12;
    }

    const long long   rowBytes = (width * depth + 31) / 32 * 4;
    const std::size_t offset = Number(file, 10, 4);
    if (offset < 14 + std::size_t{header} || offset > file.size())
        return false;
    if (runs ? lines < 0 || !IsPlausible(rowBytes * height, file.size(), 1024)
             : rowBytes * height > static_cast<long long>(file.size() - offset))
        return false;

    if (!picture.Allocate(static_cast<int>(width), static_cast<int>(height), static_cast<int>(depth)))
        return false;
    if (depth <= 8) {
        const std::uint32_t most = 1u << depth;
        if (colours == 0 || colours > most)
            colours = most;
        const std::size_t entry = old ? 3 : 4;
        std::memset(picture.Palette, 0, sizeof picture.Palette);
        for (std::uint32_t i = 0; i < colours && at + entry <= std::min(offset, file.size());
             ++i, at += entry)
            picture.Palette[i] = {file[at], file[at + 1], file[at + 2], 0};
    }
    if (runs)
        return DecodeRuns(file, offset, picture);

    picture.HasAlpha = depth == 32 && fields && alpha.Mask != 0;
    const bool copy =
        depth != 16 && !(fields && (red.Mask != 0xFF0000 || green.Mask != 0xFF00 || blue.Mask != 0xFF ||
                                    (alpha.Mask | 0xFF000000) != 0xFF000000));
    for (int y = 0; y < picture.Height; ++y) {
        const std::size_t    line = static_cast<std::size_t>(lines < 0 ? y : height - 1 - y);
        const unsigned char* source = file.data() + offset + line * static_cast<std::size_t>(rowBytes);
        unsigned char*       row = picture.Row(y);
        if (copy) {
            std::memcpy(row, source, static_cast<std::size_t>(rowBytes));
            continue;
        }
        for (int x = 0; x < picture.Width; ++x, row += depth / 8) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, source + static_cast<std::size_t>(x) * (depth / 8), depth / 8);
            if (depth == 16) {
                row[0] = static_cast<unsigned char>((green.Of(pixel) & 0x38) << 2 | blue.Of(pixel) >> 3);
                row[1] = static_cast<unsigned char>((red.Of(pixel) & 0xF8) >> 1 | green.Of(pixel) >> 6);
                continue;
            }
            row[0] = blue.Of(pixel);
            row[1] = green.Of(pixel);
            row[2] = red.Of(pixel);
            row[3] = picture.HasAlpha ? alpha.Of(pixel) : 0;
        }
    }
    return true;
}

void EncodeBmpHead(const PictureBuffer& picture, Bytes& file)
{
    const std::uint32_t colours = picture.BitsPerPixel <= 8 ? 1u << picture.BitsPerPixel : 0;
    // Alpha needs the long header with its masks.
    const std::uint32_t header = picture.HasAlpha ? 108 : 40;
    const std::uint32_t offset = 14 + header + 4 * colours;
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
    Append(file, 3780, 4);    // 96 pixels an inch
    Append(file, 3780, 4);
    Append(file, 0, 4);
    Append(file, 0, 4);
    if (picture.HasAlpha) {
        for (const std::uint32_t mask :
             {0xFF0000u, 0xFF00u, 0xFFu, 0xFF000000u, 0x73524742u})    // and "sRGB"
            Append(file, mask, 4);
        file.resize(file.size() + 48, 0);
    }
    for (std::uint32_t i = 0; i < colours; ++i) {
        const RGBQUAD colour = picture.Palette[i];
        file.insert(file.end(), {colour.rgbBlue, colour.rgbGreen, colour.rgbRed, 0});
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
