#include "platform/portable/TiffPixels.h"

#include "platform/PictureBuffer.h"
#include "platform/portable/WebpReading.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace vostel::pictures {
namespace {

// Sample k of a row of packed ones, the first in the high bits; deep ones are in the machine's byte order.
std::uint64_t BitsAt(const unsigned char* row, std::size_t k, int bits)
{
    switch (bits) {
    case 8:
        return row[k];
    case 16: {
        std::uint16_t value;
        std::memcpy(&value, row + 2 * k, sizeof value);
        return value;
    }
    case 24: {
        const std::uint32_t first = row[3 * k], middle = row[3 * k + 1], last = row[3 * k + 2];
        return std::endian::native == std::endian::little ? first | middle << 8 | last << 16
                                                          : last | middle << 8 | first << 16;
    }
    case 32: {
        std::uint32_t value;
        std::memcpy(&value, row + 4 * k, sizeof value);
        return value;
    }
    case 64: {
        std::uint64_t value;
        std::memcpy(&value, row + 8 * k, sizeof value);
        return value;
    }
    default: {
        std::uint64_t value = 0;
        std::size_t   at = k * static_cast<std::size_t>(bits);
        for (int i = 0; i < bits; ++i, ++at)
            value = value << 1 | (row[at / 8] >> (7 - at % 8) & 1u);
        return value;
    }
    }
}

// Of 16 and 24 bits: one sign, so many bits of exponent, and the fraction.
float SmallFloat(std::uint64_t bits, int exponentBits, int fractionBits)
{
    const int           bias = (1 << (exponentBits - 1)) - 1;
    const int           exponent = static_cast<int>(bits >> fractionBits & ((1u << exponentBits) - 1));
    const std::uint64_t fraction = bits & ((std::uint64_t{1} << fractionBits) - 1);
    const bool          negative = (bits >> (exponentBits + fractionBits) & 1) != 0;
    double              value;
    if (exponent == (1 << exponentBits) - 1)
        value = fraction != 0 ? std::numeric_limits<double>::quiet_NaN()
                              : std::numeric_limits<double>::infinity();
    else if (exponent == 0)
        value = std::ldexp(static_cast<double>(fraction), 1 - bias - fractionBits);
    else
        value = std::ldexp(static_cast<double>(fraction | std::uint64_t{1} << fractionBits),
                           exponent - bias - fractionBits);
    return static_cast<float>(negative ? -value : value);
}

float FloatOf(std::uint64_t bits, int count)
{
    if (count == 32)
        return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    if (count == 64)
        return static_cast<float>(std::bit_cast<double>(bits));
    return count == 16 ? SmallFloat(bits, 5, 10) : SmallFloat(bits, 7, 16);
}

std::int64_t SignedOf(std::uint64_t bits, int count)
{
    return static_cast<std::int64_t>(bits << (64 - count)) >> (64 - count);
}

std::uint64_t TopOf(int bits)
{
    return bits == 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << bits) - 1;
}

// A channel of a color in 8 bits. Floats run from 0 to 1, signed ones count from 0 too.
unsigned char ByteOf(const TiffLayout& layout, std::uint64_t bits)
{
    if (layout.IsFloat()) {
        const float share = FloatOf(bits, layout.Bits);
        return static_cast<unsigned char>((share > 0.0f ? std::min(share, 1.0f) : 0.0f) * 255.0f + 0.5f);
    }
    if (layout.Bits > 16)
        return static_cast<unsigned char>(bits >> (layout.Bits - 8));
    return ScaledByte(static_cast<std::uint32_t>(bits), static_cast<std::uint32_t>(TopOf(layout.Bits)));
}

// Where unpacked samples of one pixel come together.
class PixelWriter {
public:
    PixelWriter(const TiffLayout& layout, ImageSamples& samples) : Format(layout), Target(samples) {}

    // Sample number c of pixels x .. x + count - 1 in row y, each so many packed samples from the last one.
    void Write(const unsigned char* row, std::size_t first, std::size_t step, int c, int y, int x, int count)
    {
        for (int i = 0; i < count; ++i)
            Store(BitsAt(row, first + step * static_cast<std::size_t>(i), Format.Bits), c, y, x + i);
    }

private:
    const TiffLayout& Format;
    ImageSamples&     Target;

    void Store(std::uint64_t bits, int c, int y, int x)
    {
        if (Target.Type == SampleType::Bgra8)
            StoreQuad(ByteOf(Format, bits), c,
                      Target.Row<unsigned char>(y) + 4 * static_cast<std::size_t>(x));
        else if (Format.IsGray())
            StoreGray(bits, y, x);
        else if (Format.IsPalette())
            Target.Row<unsigned char>(y)[x] = static_cast<unsigned char>(bits);
        else if (Format.IsPress())
            StorePress(ByteOf(Format, bits), c,
                       Target.Row<unsigned char>(y) + 3 * static_cast<std::size_t>(x));
        else
            Target.Row<unsigned char>(y)[3 * x + c] = ByteOf(Format, bits);
    }

    bool IsInverted() const { return Format.Photometric == PHOTOMETRIC_MINISWHITE; }

    // Blue first. Alpha is behind the samples that show.
    void StoreQuad(unsigned char byte, int c, unsigned char* pixel)
    {
        if (c == Format.Channels())
            pixel[3] = byte;
        else if (Format.IsGray())
            std::fill_n(pixel, 3, static_cast<unsigned char>(IsInverted() ? 255 - byte : byte));
        else if (Format.IsPress())
            StorePress(byte, c < 3 ? 2 - c : c, pixel);
        else
            pixel[2 - c] = byte;
    }

    // Ink by ink, black last.
    static void StorePress(unsigned char ink, int c, unsigned char* pixel)
    {
        if (c < 3) {
            pixel[c] = static_cast<unsigned char>(255 - ink);
            return;
        }
        for (int channel = 0; channel < 3; ++channel)
            pixel[channel] = static_cast<unsigned char>((pixel[channel] * (255 - ink) + 127) / 255);
    }

    void StoreGray(std::uint64_t bits, int y, int x)
    {
        if (IsInverted() && !Format.IsFloat() && !Format.IsSigned())
            bits = TopOf(Format.Bits) - bits;
        switch (Target.Type) {
        case SampleType::F32:
            Target.Row<float>(y)[x] = Format.IsFloat()    ? FloatOf(bits, Format.Bits)
                                      : Format.IsSigned() ? static_cast<float>(SignedOf(bits, Format.Bits))
                                                          : static_cast<float>(bits);
            break;
        case SampleType::I16:
            Target.Row<std::int16_t>(y)[x] = static_cast<std::int16_t>(SignedOf(bits, Format.Bits));
            break;
        case SampleType::U16:
            Target.Row<std::uint16_t>(y)[x] = static_cast<std::uint16_t>(bits);
            break;
        default:
            Target.Row<unsigned char>(y)[x] = ByteOf(Format, bits);
        }
    }
};

// Strips and tiles alike: blocks of so many pixels and rows.
struct Blocks {
    bool          Tiled = false;
    std::uint32_t Width = 0, Height = 0;
    std::size_t   Bytes = 0, RowBytes = 0;
};

bool BlocksOf(TIFF* tiff, const TiffLayout& layout, Blocks& blocks)
{
    blocks.Tiled = TIFFIsTiled(tiff) != 0;
    if (blocks.Tiled) {
        TIFFGetField(tiff, TIFFTAG_TILEWIDTH, &blocks.Width);
        TIFFGetField(tiff, TIFFTAG_TILELENGTH, &blocks.Height);
    } else {
        std::uint32_t rows = 0;
        TIFFGetFieldDefaulted(tiff, TIFFTAG_ROWSPERSTRIP, &rows);
        blocks.Width = layout.Width;
        blocks.Height = std::min(rows, layout.Height);
    }
    const tmsize_t bytes = blocks.Tiled ? TIFFTileSize(tiff) : TIFFStripSize(tiff);
    const tmsize_t rowBytes = blocks.Tiled ? TIFFTileRowSize(tiff) : TIFFScanlineSize(tiff);
    if (blocks.Width == 0 || blocks.Height == 0 || bytes <= 0 || rowBytes <= 0)
        return false;
    blocks.Bytes = static_cast<std::size_t>(bytes);
    blocks.RowBytes = static_cast<std::size_t>(rowBytes);
    // What is unpacked from a block has to lie in it.
    const std::uint64_t samples = layout.IsSeparate() ? 1 : layout.Samples;
    return (std::uint64_t{blocks.Width} * samples * layout.Bits + 7) / 8 <= blocks.RowBytes &&
           blocks.RowBytes <= blocks.Bytes / std::min<std::size_t>(blocks.Height, layout.Height);
}

bool ReadBlock(TIFF* tiff, const Blocks& blocks, std::uint32_t x, std::uint32_t y, std::uint16_t plane,
               std::vector<unsigned char>& bytes)
{
    const tmsize_t size = static_cast<tmsize_t>(bytes.size());
    if (blocks.Tiled)
        return TIFFReadTile(tiff, bytes.data(), x, y, 0, plane) >= 0;
    return TIFFReadEncodedStrip(tiff, TIFFComputeStrip(tiff, y, plane), bytes.data(), size) >= 0;
}

std::int64_t Product(std::uint64_t a, std::uint64_t b)
{
    constexpr std::uint64_t most = INT64_MAX / 8;
    return static_cast<std::int64_t>(b == 0 || a <= most / b ? a * b : most);
}

// Whether blocks do not share the same bytes over and over. Blank ones may.
bool ReadsFileOnce(TIFF* tiff, std::size_t fileBytes)
{
    constexpr std::uint64_t spared = 1 << 24;
    const std::uint64_t     most = 4 * std::uint64_t{fileBytes} + spared;
    const std::uint32_t     count = TIFFIsTiled(tiff) ? TIFFNumberOfTiles(tiff) : TIFFNumberOfStrips(tiff);
    std::uint64_t           sum = 0;
    for (std::uint32_t i = 0; i < count && sum <= most; ++i)
        sum += std::min<std::uint64_t>(TIFFGetStrileByteCount(tiff, i), fileBytes);
    return sum <= most;
}

// Whether blocks that are WebP are pictures of a block's size, and their codec has memory for them.
bool AreWebpBlocksWithin(TIFF* tiff, const TiffLayout& layout, std::span<const unsigned char> file)
{
    std::uint16_t fillOrder = FILLORDER_MSB2LSB;
    Blocks        blocks;
    if (layout.Compression != COMPRESSION_WEBP)
        return true;
    // No writer turns the bits of the bytes over.
    TIFFGetFieldDefaulted(tiff, TIFFTAG_FILLORDER, &fillOrder);
    if (fillOrder != FILLORDER_MSB2LSB || !BlocksOf(tiff, layout, blocks))
        return false;
    const std::uint32_t count = blocks.Tiled ? TIFFNumberOfTiles(tiff) : TIFFNumberOfStrips(tiff);
    const std::int64_t  most = MostBytesOfCodes(std::int64_t{layout.Width} * layout.Height);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint64_t at = TIFFGetStrileOffset(tiff, i), bytes = TIFFGetStrileByteCount(tiff, i);
        if (at > file.size() || bytes > file.size() - at)
            return false;
        const std::span<const unsigned char> block = file.subspan(at, bytes);
        const WebpSize                       size = SizeOfWebp(block);
        if (bytes == 0)
            continue;    // blank
        if (size.Width == 0 || size.Width > blocks.Width || size.Height > blocks.Height)
            return false;
        const WebpCodes codes =
            CodesOfWebp(block, static_cast<int>(size.Width), static_cast<int>(size.Height));
        if (!codes.Valid || codes.Bytes > most)
            return false;
    }
    return true;
}

// Alpha is beside the colors, whatever it was meant for.
void MarkAlphaAsApplied(TIFF* tiff)
{
    std::uint16_t  count = 0;
    std::uint16_t* kinds = nullptr;
    if (!TIFFGetFieldDefaulted(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds) || count == 0 ||
        kinds[0] != EXTRASAMPLE_UNASSALPHA)
        return;
    std::vector<std::uint16_t> marked(kinds, kinds + count);
    marked[0] = EXTRASAMPLE_ASSOCALPHA;
    TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, count, marked.data());
}

}

TiffLayout LayoutOf(TIFF* tiff)
{
    TiffLayout     layout;
    std::uint16_t* kinds = nullptr;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &layout.Width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &layout.Height);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &layout.Bits);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &layout.Samples);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &layout.Planes);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLEFORMAT, &layout.Format);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_COMPRESSION, &layout.Compression);
    TIFFGetFieldDefaulted(tiff, TIFFTAG_ORIENTATION, &layout.Orientation);
    TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &layout.Photometric);
    if (!TIFFGetFieldDefaulted(tiff, TIFFTAG_EXTRASAMPLES, &layout.Extra, &kinds))
        layout.Extra = 0;
    if (layout.Extra > 0 && (kinds[0] == EXTRASAMPLE_ASSOCALPHA || kinds[0] == EXTRASAMPLE_UNASSALPHA))
        layout.Alpha = layout.Samples - layout.Extra;
    return layout;
}

std::int64_t BytesOfPage(const TiffLayout& layout)
{
    const std::uint64_t rowBytes = (std::uint64_t{layout.Width} * layout.Samples * layout.Bits + 7) / 8;
    return Product(rowBytes, layout.Height);
}

std::int64_t BytesOfBlocks(TIFF* tiff)
{
    return TIFFIsTiled(tiff) ? Product(TIFFTileSize64(tiff), TIFFNumberOfTiles(tiff))
                             : Product(TIFFStripSize64(tiff), TIFFNumberOfStrips(tiff));
}

bool CanHold(TIFF* tiff, const TiffLayout& layout, std::span<const unsigned char> file)
{
    if (!layout.IsSafe())
        return false;
    // Plain data has to be there. Codes for blank pages compress without limit; at 1 bit per pixel that is
    // cheap.
    const long long    factor = layout.Compression == COMPRESSION_NONE ? 1 : 65536;
    const std::int64_t pageBytes = BytesOfPage(layout);
    if (!(layout.Bits == 1 && layout.Samples == 1 && factor > 1) &&
        !IsPlausible(pageBytes, file.size(), factor))
        return false;
    // Small pictures are put into tiles of the usual sizes, too.
    constexpr std::int64_t sparedBytes = 1 << 24;
    const std::int64_t     blockBytes =
        Product(TIFFIsTiled(tiff) ? TIFFTileSize64(tiff) : TIFFStripSize64(tiff), 1);
    return (blockBytes <= sparedBytes || blockBytes / 2 <= pageBytes) &&
           BytesOfBlocks(tiff) / 4 <= std::max(pageBytes, 4 * sparedBytes) &&
           ReadsFileOnce(tiff, file.size()) && AreWebpBlocksWithin(tiff, layout, file);
}

bool UnpackPixels(TIFF* tiff, const TiffLayout& layout, ImageSamples& samples)
{
    Blocks blocks;
    if (!BlocksOf(tiff, layout, blocks))
        return false;
    std::vector<unsigned char> bytes(blocks.Bytes);
    PixelWriter                writer(layout, samples);
    const bool                 hasAlpha = layout.Alpha == layout.Channels();
    const int used = layout.Channels() + (samples.Type == SampleType::Bgra8 && hasAlpha ? 1 : 0);
    const int planes = layout.IsSeparate() ? used : 1;
    for (int plane = 0; plane < planes; ++plane) {
        for (std::uint64_t top = 0; top < layout.Height; top += blocks.Height) {
            for (std::uint64_t left = 0; left < layout.Width; left += blocks.Width) {
                const std::uint32_t x = static_cast<std::uint32_t>(left), y = static_cast<std::uint32_t>(top);
                if (!ReadBlock(tiff, blocks, x, y, static_cast<std::uint16_t>(plane), bytes))
                    return false;
                const int columns = static_cast<int>(std::min(blocks.Width, layout.Width - x));
                const int rows = static_cast<int>(std::min(blocks.Height, layout.Height - y));
                for (int row = 0; row < rows; ++row) {
                    const unsigned char* const line =
                        bytes.data() + blocks.RowBytes * static_cast<std::size_t>(row);
                    const int place = static_cast<int>(y) + row;
                    if (layout.IsSeparate()) {
                        writer.Write(line, 0, 1, plane, place, static_cast<int>(x), columns);
                        continue;
                    }
                    for (int c = 0; c < used; ++c)
                        writer.Write(line, static_cast<std::size_t>(c), layout.Samples, c, place,
                                     static_cast<int>(x), columns);
                }
            }
        }
    }
    return true;
}

PictureOutcome ConvertPixels(TIFF* tiff, const TiffLayout& layout, std::vector<std::uint32_t>& pixels)
{
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    MarkAlphaAsApplied(tiff);
    char why[1024];
    if (!TIFFRGBAImageOK(tiff, why))
        return PictureOutcome::NotSupported;
    pixels.resize(std::size_t{layout.Width} * layout.Height);
    return TIFFReadRGBAImageOriented(tiff, layout.Width, layout.Height, pixels.data(), ORIENTATION_TOPLEFT, 1)
               ? PictureOutcome::Taken
               : PictureOutcome::BadFormat;
}

}
