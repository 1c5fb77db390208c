// TIFF by libtiff. Gray and palette pictures of 1, 4 and 8 bits keep them, 2 bits become 8; everything
// with alpha or 16 bits per channel becomes 32, every other color 24. The first page counts. Pixels come as
// they are stored: orientation tags are not followed, and alpha changes no color. Floats run from 0 to 1.

#include "platform/portable/PictureCodecs.h"
#include "platform/portable/TiffPixels.h"
#include "platform/portable/TiffReading.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vostel::pictures {
namespace {

// A file in memory that is written behind the library's file calls.
struct Stream {
    Bytes*      Written = nullptr;
    std::size_t Base = 0;    // where the file begins in what is written
    std::size_t At = 0;

    std::size_t Size() const { return Written->size() - Base; }
};

tmsize_t ReadBytes(thandle_t handle, void* target, tmsize_t count)
{
    Stream*           stream = static_cast<Stream*>(handle);
    const std::size_t size = stream->Size();
    if (count <= 0 || stream->At >= size)
        return 0;
    const std::size_t taken = std::min(size - stream->At, static_cast<std::size_t>(count));
    std::memcpy(target, stream->Written->data() + stream->Base + stream->At, taken);
    stream->At += taken;
    return static_cast<tmsize_t>(taken);
}

tmsize_t WriteBytes(thandle_t handle, void* source, tmsize_t count)
{
    Stream* stream = static_cast<Stream*>(handle);
    if (count < 0)
        return -1;
    const std::size_t end = stream->Base + stream->At + static_cast<std::size_t>(count);
    try {
        if (stream->Written->size() < end)
            stream->Written->resize(end, 0);
    } catch (...) {
        return -1;
    }
    std::memcpy(stream->Written->data() + stream->Base + stream->At, source, static_cast<std::size_t>(count));
    stream->At += static_cast<std::size_t>(count);
    return count;
}

toff_t Seek(thandle_t handle, toff_t offset, int whence)
{
    Stream*     stream = static_cast<Stream*>(handle);
    std::size_t from = whence == SEEK_CUR ? stream->At : whence == SEEK_END ? stream->Size() : 0;
    // Far beyond the end reads nothing and is never written to.
    stream->At = std::min<std::size_t>(from + offset, std::size_t{1} << 40);
    return stream->At;
}

int Close(thandle_t)
{
    return 0;
}
toff_t Size(thandle_t handle)
{
    return static_cast<Stream*>(handle)->Size();
}

// Handlers of this one file; what the host has set for others stays untouched.
int Silent(TIFF*, void*, const char*, const char*, va_list)
{
    return 1;
}

TiffHandle OpenForWriting(Stream& stream)
{
    TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
    if (!options)
        return nullptr;
    TIFFOpenOptionsSetMaxSingleMemAlloc(options, tmsize_t{1} << 30);
    TIFFOpenOptionsSetErrorHandlerExtR(options, Silent, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options, Silent, nullptr);
    TiffHandle tiff(TIFFClientOpenExt("picture", "wlm", &stream, ReadBytes, WriteBytes, Seek, Close, Size,
                                      nullptr, nullptr, options));
    TIFFOpenOptionsFree(options);
    return tiff;
}

// Values of up to 8 bits that stay numbers.
bool IsIndexed(const TiffLayout& layout)
{
    return layout.Samples == 1 &&
           (layout.Bits == 1 || layout.Bits == 2 || layout.Bits == 4 || layout.Bits == 8) &&
           (layout.IsGray() || layout.Photometric == PHOTOMETRIC_PALETTE);
}

// Copies decoded bytes of a row, left pixel in the high bits, to the pixels from x on.
void TakeRow(const TiffLayout& layout, const unsigned char* source, unsigned char* row, std::uint32_t x,
             std::uint32_t count)
{
    const unsigned char flip = layout.Photometric == PHOTOMETRIC_MINISWHITE ? 0xFF : 0;
    if (layout.Bits == 2) {
        const unsigned step = layout.Photometric == PHOTOMETRIC_PALETTE ? 1 : 85;
        for (std::uint32_t i = 0; i < count; ++i)
            row[x + i] = static_cast<unsigned char>(((source[i / 4] ^ flip) >> (6 - i % 4 * 2) & 3u) * step);
        return;
    }
    // Tiles are a multiple of 16 pixels wide, so that they begin at whole bytes.
    const std::size_t first = std::size_t{x} * layout.Bits / 8;
    const std::size_t bytes = (std::size_t{count} * layout.Bits + 7) / 8;
    for (std::size_t i = 0; i < bytes; ++i)
        row[first + i] = source[i] ^ flip;
}

bool ReadIndices(TIFF* tiff, const TiffLayout& layout, PictureBuffer& picture)
{
    std::uint16_t *red = nullptr, *green = nullptr, *blue = nullptr;
    if (layout.Photometric == PHOTOMETRIC_PALETTE) {
        if (!TIFFGetField(tiff, TIFFTAG_COLORMAP, &red, &green, &blue))
            return false;
        std::memset(picture.Palette, 0, sizeof picture.Palette);
        for (int i = 0; i < 1 << layout.Bits; ++i)
            picture.Palette[i] = {static_cast<BYTE>(blue[i] >> 8), static_cast<BYTE>(green[i] >> 8),
                                  static_cast<BYTE>(red[i] >> 8), 0};
    }
    if (!TIFFIsTiled(tiff)) {
        const tmsize_t size = TIFFScanlineSize(tiff);
        if (size < static_cast<tmsize_t>((std::uint64_t{layout.Width} * layout.Bits + 7) / 8))
            return false;
        Bytes line(static_cast<std::size_t>(size));
        for (std::uint32_t y = 0; y < layout.Height; ++y) {
            if (TIFFReadScanline(tiff, line.data(), y, 0) < 0)
                return false;
            TakeRow(layout, line.data(), picture.Row(static_cast<int>(y)), 0, layout.Width);
        }
        return true;
    }
    std::uint32_t tileWidth = 0, tileHeight = 0;
    TIFFGetField(tiff, TIFFTAG_TILEWIDTH, &tileWidth);
    TIFFGetField(tiff, TIFFTAG_TILELENGTH, &tileHeight);
    const tmsize_t size = TIFFTileSize(tiff), rowSize = TIFFTileRowSize(tiff);
    if (tileWidth == 0 || tileWidth % 16 != 0 || tileHeight == 0 || size <= 0 ||
        rowSize < static_cast<tmsize_t>(std::uint64_t{tileWidth} * layout.Bits / 8) ||
        rowSize > size / static_cast<tmsize_t>(tileHeight))
        return false;
    Bytes tile(static_cast<std::size_t>(size));
    for (std::uint64_t top = 0; top < layout.Height; top += tileHeight)
        for (std::uint64_t left = 0; left < layout.Width; left += tileWidth) {
            const std::uint32_t x = static_cast<std::uint32_t>(left), y = static_cast<std::uint32_t>(top);
            if (TIFFReadTile(tiff, tile.data(), x, y, 0, 0) < 0)
                return false;
            for (std::uint32_t i = 0; i < tileHeight && y + i < layout.Height; ++i)
                TakeRow(layout, tile.data() + static_cast<std::size_t>(rowSize) * i,
                        picture.Row(static_cast<int>(y + i)), x, std::min(tileWidth, layout.Width - x));
        }
    return true;
}

// Blue, green, red, alpha.
void StorePixels(const unsigned char* quads, PictureBuffer& picture)
{
    const std::size_t bytes = static_cast<std::size_t>(picture.BitsPerPixel / 8);
    for (int y = 0; y < picture.Height; ++y) {
        unsigned char* row = picture.Row(y);
        for (int x = 0; x < picture.Width; ++x, row += bytes, quads += 4)
            std::memcpy(row, quads, bytes);
    }
}

bool ReadConverted(TIFF* tiff, const TiffLayout& layout, PictureBuffer& picture)
{
    std::vector<std::uint32_t> pixels;
    if (ConvertPixels(tiff, layout, pixels) != PictureOutcome::Taken)
        return false;
    for (std::uint32_t& pixel : pixels) {
        const unsigned char quad[] = {
            static_cast<unsigned char>(TIFFGetB(pixel)), static_cast<unsigned char>(TIFFGetG(pixel)),
            static_cast<unsigned char>(TIFFGetR(pixel)), static_cast<unsigned char>(TIFFGetA(pixel))};
        std::memcpy(&pixel, quad, sizeof quad);
    }
    StorePixels(reinterpret_cast<const unsigned char*>(pixels.data()), picture);
    return true;
}

// Depths that the library does not convert: floats, press colors of 16 bits, gray of few bits with alpha.
bool ReadUnpacked(TIFF* tiff, const TiffLayout& layout, PictureBuffer& picture)
{
    if (!layout.IsDirect() || layout.IsPalette())
        return false;
    ImageSamples samples(SampleType::Bgra8, picture.Width, picture.Height);
    std::memset(samples.Data(), 0xFF, samples.Bytes());
    if (!UnpackPixels(tiff, layout, samples))
        return false;
    StorePixels(samples.Data(), picture);
    return true;
}

bool Describe(TIFF* tiff, const PictureBuffer& picture)
{
    const bool indexed = picture.BitsPerPixel <= 8, gray = picture.IsGray();
    const int  samples = indexed ? 1 : picture.HasAlpha ? 4 : 3;
    bool       good = TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(picture.Width)) &&
                TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(picture.Height)) &&
                TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, indexed ? picture.BitsPerPixel : 8) &&
                TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples) &&
                TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG) &&
                TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW) &&
                TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC,
                             !indexed ? PHOTOMETRIC_RGB
                             : gray   ? PHOTOMETRIC_MINISBLACK
                                      : PHOTOMETRIC_PALETTE);
    if (samples == 4) {
        std::uint16_t kind = EXTRASAMPLE_UNASSALPHA;
        good = good && TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &kind);
    }
    if (indexed && !gray) {
        std::uint16_t colors[3][256];
        for (int i = 0; i < 256; ++i) {
            colors[0][i] = static_cast<std::uint16_t>(picture.Palette[i].rgbRed * 257);
            colors[1][i] = static_cast<std::uint16_t>(picture.Palette[i].rgbGreen * 257);
            colors[2][i] = static_cast<std::uint16_t>(picture.Palette[i].rgbBlue * 257);
        }
        good = good && TIFFSetField(tiff, TIFFTAG_COLORMAP, colors[0], colors[1], colors[2]);
    }
    return good && TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tiff, 0));
}

}

bool DecodeTiff(const Bytes& file, PictureBuffer& picture)
{
    if (file.size() < 8 || !((file[0] == 'I' && file[1] == 'I') || (file[0] == 'M' && file[1] == 'M')))
        return false;
    TiffBytes        bytes{file};
    const TiffHandle tiff = OpenTiff(bytes);
    if (!tiff)
        return false;
    const TiffLayout layout = LayoutOf(tiff.get());
    if (!IsTaken(file, layout.Width, layout.Height, BytesOfPage(layout)) ||
        !CanHold(tiff.get(), layout, file))
        return false;
    const int width = static_cast<int>(layout.Width), height = static_cast<int>(layout.Height);
    if (IsIndexed(layout))
        return picture.Allocate(width, height, layout.Bits == 2 ? 8 : layout.Bits) &&
               ReadIndices(tiff.get(), layout, picture);
    const bool alpha = layout.Extra > 0;
    if (!picture.Allocate(width, height, alpha || layout.Bits == 16 ? 32 : 24))
        return false;
    picture.HasAlpha = alpha;
    return ReadConverted(tiff.get(), layout, picture) || ReadUnpacked(tiff.get(), layout, picture);
}

bool EncodeTiff(const PictureBuffer& picture, Bytes& file)
{
    Stream           stream{&file, file.size(), 0};
    const TiffHandle tiff = OpenForWriting(stream);
    if (!tiff || !Describe(tiff.get(), picture))
        return false;
    const int samples = picture.BitsPerPixel <= 8 ? 1 : picture.HasAlpha ? 4 : 3;
    Bytes     line(std::size_t(picture.RowBytes) + 8);
    for (int y = 0; y < picture.Height; ++y) {
        // The library changes the line that it is handed.
        const unsigned char* row = picture.Row(y);
        if (samples == 1) {
            std::memcpy(line.data(), row, static_cast<std::size_t>(picture.RowBytes));
        } else {
            const int bytes = picture.BitsPerPixel / 8;
            for (int x = 0; x < picture.Width; ++x, row += bytes) {
                unsigned char* target =
                    line.data() + static_cast<std::size_t>(x) * static_cast<std::size_t>(samples);
                target[0] = row[2];
                target[1] = row[1];
                target[2] = row[0];
                if (samples == 4)
                    target[3] = row[3];
            }
        }
        if (TIFFWriteScanline(tiff.get(), line.data(), static_cast<std::uint32_t>(y), 0) < 0)
            return false;
    }
    return TIFFFlush(tiff.get()) != 0;
}

}
