#include "platform/BmpLayout.h"

#include "base/LittleEndian.h"
#include "platform/PictureBuffer.h"

namespace vostel::pictures {
namespace {

constexpr std::size_t FileHeaderBytes = 14;
constexpr std::size_t OldHeaderBytes = 12;    // of the information header, as the first version had it
constexpr std::size_t MinHeaderBytes = 40;
constexpr std::size_t MaxHeaderBytes = 1024;

// Bytes after the end of the file count as zero.
std::uint32_t NumberAt(std::span<const unsigned char> file, std::size_t at, std::size_t bytes)
{
    const std::size_t first = std::min(at, file.size());
    return ReadLittleEndian(file.subspan(first, std::min(bytes, file.size() - first)));
}

// The masks follow a short header and are part of a long one.
void ReadChannels(std::span<const unsigned char> file, std::uint32_t coding, std::size_t headerBytes,
                  BmpLayout& layout)
{
    layout.Red = BmpChannel(layout.Depth == 16 ? 0x7C00 : 0xFF0000);
    layout.Green = BmpChannel(layout.Depth == 16 ? 0x3E0 : 0xFF00);
    layout.Blue = BmpChannel(layout.Depth == 16 ? 0x1F : 0xFF);
    if (!layout.HasFields)
        return;
    layout.Red = BmpChannel(NumberAt(file, 54, 4));
    layout.Green = BmpChannel(NumberAt(file, 58, 4));
    layout.Blue = BmpChannel(NumberAt(file, 62, 4));
    if (headerBytes >= 56 || coding == BmpAlphaBitFields)
        layout.Alpha = BmpChannel(NumberAt(file, 66, 4));
}

}

bool ReadBmpHeader(std::span<const unsigned char> file, BmpLayout& layout)
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
    if (width < 1 || height < 1 || height > INT32_MAX)
        return false;
    const std::uint32_t depth = NumberAt(file, old ? 24 : 28, 2);
    const std::uint32_t coding = old ? BmpPlain : NumberAt(file, 30, 4);
    if (depth != 1 && depth != 4 && depth != 8 && depth != 16 && depth != 24 && depth != 32)
        return false;
    layout.Width = static_cast<int>(width);
    layout.Height = static_cast<int>(height);
    layout.Depth = static_cast<int>(depth);
    layout.TopDown = lines < 0;
    layout.RunLengths = (coding == BmpRunLength8 && depth == 8) || (coding == BmpRunLength4 && depth == 4);
    layout.HasFields =
        (coding == BmpBitFields || coding == BmpAlphaBitFields) && (depth == 16 || depth == 32);
    if (coding != BmpPlain && !layout.RunLengths && !layout.HasFields)
        return false;

    ReadChannels(file, coding, headerBytes, layout);
    layout.PaletteAt = FileHeaderBytes + headerBytes;
    layout.EntryBytes = old ? 3 : 4;
    layout.PaletteCount = old ? 0 : NumberAt(file, 46, 4);
    layout.PixelsAt = NumberAt(file, 10, 4);
    layout.RowBytes = static_cast<std::size_t>((width * depth + 31) / 32 * 4);
    return layout.PixelsAt >= layout.PaletteAt && layout.PixelsAt <= file.size();
}

bool HoldsBmpPixels(std::span<const unsigned char> file, const BmpLayout& layout)
{
    const long long bytes = static_cast<long long>(layout.RowBytes) * layout.Height;
    if (layout.RunLengths)
        return !layout.TopDown && IsPlausible(bytes, file.size(), 1024);
    return bytes <= static_cast<long long>(file.size() - layout.PixelsAt);
}

void ReadBmpPalette(std::span<const unsigned char> file, const BmpLayout& layout, RGBQUAD (&palette)[256])
{
    const std::uint32_t all = 1u << layout.Depth;
    const std::uint32_t count =
        layout.PaletteCount == 0 || layout.PaletteCount > all ? all : layout.PaletteCount;
    std::fill(std::begin(palette), std::end(palette), RGBQUAD{});
    std::size_t at = layout.PaletteAt;
    for (std::uint32_t i = 0; i < count && at + layout.EntryBytes <= layout.PixelsAt; ++i) {
        palette[i] = {file[at], file[at + 1], file[at + 2], 0};
        at += layout.EntryBytes;
    }
}

}
