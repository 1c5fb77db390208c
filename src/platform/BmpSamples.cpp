// BMP of every depth and packing that BmpLayout.h knows. Channels of bit fields are scaled to bytes, to the
// nearest; an alpha mask makes four bytes per pixel.

#include "platform/BmpLayout.h"
#include "platform/PictureBuffer.h"
#include "platform/SampleCodecs.h"

#include <cstring>
#include <utility>

namespace vostel::pictures {
namespace {

unsigned IndexAt(const unsigned char* row, int x, int depth)
{
    const int perByte = 8 / depth;
    return row[x / perByte] >> (8 - depth - x % perByte * depth) & ((1u << depth) - 1);
}

const unsigned char* StoredRow(const SampleFile& file, const BmpLayout& layout, int y)
{
    const std::size_t line = static_cast<std::size_t>(layout.TopDown ? y : layout.Height - 1 - y);
    return file.Bytes.data() + layout.PixelsAt + line * layout.RowBytes;
}

PictureOutcome DecodeIndices(const SampleFile& file, const BmpLayout& layout, ImageSamples& samples)
{
    if (layout.RunLengths) {
        std::memset(samples.Data(), 0, samples.Bytes());    // runs may leave pixels out
        const auto set = [&](int x, int y, unsigned index) {
            samples.Row<unsigned char>(y)[x] = static_cast<unsigned char>(index);
        };
        if (!DecodeBmpRuns(file.Bytes, layout, set))
            return PictureOutcome::BadFormat;
    } else {
        for (int y = 0; y < layout.Height; ++y) {
            const unsigned char* const stored = StoredRow(file, layout, y);
            unsigned char* const       row = samples.Row<unsigned char>(y);
            for (int x = 0; x < layout.Width; ++x)
                row[x] = static_cast<unsigned char>(IndexAt(stored, x, layout.Depth));
        }
    }
    RGBQUAD entries[256];
    ReadBmpPalette(file.Bytes, layout, entries);
    unsigned          palette[256];
    const std::size_t count = std::size_t{1} << layout.Depth;
    for (std::size_t i = 0; i < count; ++i)
        palette[i] =
            static_cast<unsigned>(entries[i].rgbRed << 16 | entries[i].rgbGreen << 8 | entries[i].rgbBlue);
    samples = ColorsOfIndices(std::move(samples), std::span(palette, count));
    return PictureOutcome::Taken;
}

unsigned char ByteOf(const BmpChannel& channel, std::uint32_t pixel)
{
    return channel.Max == 0 ? 0 : ScaledByte(channel.Count(pixel), channel.Max);
}

void DecodeColors(const SampleFile& file, const BmpLayout& layout, ImageSamples& samples)
{
    const std::size_t stored = static_cast<std::size_t>(layout.Depth) / 8;
    const bool        alpha = samples.Type == SampleType::Bgra8;
    for (int y = 0; y < layout.Height; ++y) {
        const unsigned char* source = StoredRow(file, layout, y);
        unsigned char*       target = samples.Row<unsigned char>(y);
        for (int x = 0; x < layout.Width; ++x, source += stored, target += alpha ? 4 : 3) {
            std::uint32_t pixel = 0;
            for (std::size_t i = stored; i-- > 0;)
                pixel = pixel << 8 | source[i];
            target[0] = ByteOf(layout.Blue, pixel);
            target[1] = ByteOf(layout.Green, pixel);
            target[2] = ByteOf(layout.Red, pixel);
            if (alpha)
                target[3] = ByteOf(layout.Alpha, pixel);
        }
    }
}

}

PictureOutcome DecodeBmpSamples(const SampleFile& file, ImageSamples& samples)
{
    BmpLayout layout;
    if (!ReadBmpHeader(file.Bytes, layout))
        return PictureOutcome::BadFormat;
    if (!IsWithin(file, layout.Width, layout.Height))
        return PictureOutcome::TooLarge;
    if (!HoldsBmpPixels(file.Bytes, layout))
        return PictureOutcome::BadFormat;
    const SampleType     type = layout.Depth <= 8        ? SampleType::U8
                                : layout.Alpha.Mask != 0 ? SampleType::Bgra8
                                                         : SampleType::Bgr8;
    const PictureOutcome made = MakeSamples(file, type, layout.Width, layout.Height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    file.CountWork(static_cast<std::int64_t>(file.Bytes.size() + samples.Bytes()));
    if (type == SampleType::U8)
        return DecodeIndices(file, layout, samples);
    DecodeColors(file, layout, samples);
    return PictureOutcome::Taken;
}

}
