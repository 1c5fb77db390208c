#include "interchange/DeflatedPixels.h"

#include "canvas/PixelSurface.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <span>
#include <utility>
#include <vector>
#include <zlib.h>

namespace vostel {

namespace {

using Row = std::vector<unsigned char>;

// Deflates what comes in pieces. Deflating fails for want of memory alone.
class Deflater {
public:
    Deflater()
    {
        if (deflateInit(&Stream, Z_DEFAULT_COMPRESSION) != Z_OK)
            throw std::bad_alloc();
    }
    ~Deflater() { deflateEnd(&Stream); }
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    void Add(std::span<const unsigned char> bytes)
    {
        constexpr std::size_t Most = 1u << 30;    // that zlib takes at once
        for (; bytes.size() > Most; bytes = bytes.subspan(Most))
            Run(bytes.first(Most), Z_NO_FLUSH);
        Run(bytes, Z_NO_FLUSH);
    }

    std::string Finish()
    {
        Run({}, Z_FINISH);
        return std::move(Made);
    }

private:
    z_stream                         Stream = {};
    std::string                      Made;
    std::array<unsigned char, 65536> Block = {};

    void Run(std::span<const unsigned char> bytes, int flush)
    {
        Stream.next_in = const_cast<unsigned char*>(bytes.data());    // zlib only reads it
        Stream.avail_in = static_cast<uInt>(bytes.size());
        do {
            Stream.next_out = Block.data();
            Stream.avail_out = static_cast<uInt>(Block.size());
            deflate(&Stream, flush);
            Made.append(reinterpret_cast<const char*>(Block.data()), Block.size() - Stream.avail_out);
        } while (Stream.avail_out == 0);
    }
};

// The filters of PNG, by their numbers.
enum Filter : unsigned char { NoFilter = 0, LeftFilter = 1, AboveFilter = 2, PaethFilter = 4 };

// The neighbour that comes nearest to left + above - corner.
int PaethOf(int left, int above, int corner)
{
    const int toLeft = std::abs(above - corner);
    const int toAbove = std::abs(left - corner);
    const int toCorner = std::abs(left + above - 2 * corner);
    return toLeft <= toAbove && toLeft <= toCorner ? left : toAbove <= toCorner ? above : corner;
}

void ApplyFilter(Filter filter, const Row& row, const Row& above, std::size_t channels, Row& filtered)
{
    filtered[0] = filter;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const int left = i < channels ? 0 : row[i - channels];
        const int corner = i < channels ? 0 : above[i - channels];
        const int expected = filter == LeftFilter    ? left
                             : filter == AboveFilter ? above[i]
                             : filter == PaethFilter ? PaethOf(left, above[i], corner)
                                                     : 0;
        filtered[i + 1] = static_cast<unsigned char>(row[i] - expected);
    }
}

// The usual guess at what deflates best: bytes near 0 on both sides.
std::uint64_t WeightOf(const Row& filtered)
{
    std::uint64_t weight = 0;
    for (std::size_t i = 1; i < filtered.size(); ++i)
        weight += std::min<unsigned>(filtered[i], 256u - filtered[i]);
    return weight;
}

bool IsGray(std::span<const unsigned int> pixels)
{
    return std::all_of(pixels.begin(), pixels.end(),
                       [](unsigned int pixel) { return (pixel & 0xFFFFFF) == (pixel & 0xFF) * 0x010101u; });
}

void TakeRow(std::span<const unsigned int> pixels, int channels, Row& row)
{
    unsigned char* target = row.data();
    for (const unsigned int pixel : pixels) {
        if (channels == 3) {
            *target++ = static_cast<unsigned char>(pixel >> 16);
            *target++ = static_cast<unsigned char>(pixel >> 8);
        }
        *target++ = static_cast<unsigned char>(pixel);
    }
}

void AppendBigEndian(std::string& bytes, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
}

void AppendChunk(std::string& file, std::string_view type, std::string_view data)
{
    AppendBigEndian(file, static_cast<std::uint32_t>(data.size()));
    const std::size_t begin = file.size();
    file += type;
    file += data;
    const auto* const checked = reinterpret_cast<const unsigned char*>(file.data()) + begin;
    AppendBigEndian(file,
                    static_cast<std::uint32_t>(crc32(0, checked, static_cast<uInt>(file.size() - begin))));
}

}

DeflatedPixels DeflatePixels(const PixelSurface& surface)
{
    const auto width = static_cast<std::size_t>(surface.Width);
    const auto height = static_cast<std::size_t>(surface.Height);
    const auto rowAt = [&](std::size_t y) {
        return std::span<const unsigned int>(surface.Pixels + (height - 1 - y) * width, width);
    };
    DeflatedPixels made;
    made.Width = surface.Width;
    made.Height = surface.Height;
    made.Channels = IsGray({surface.Pixels, width * height}) ? 1 : 3;
    const auto channels = static_cast<std::size_t>(made.Channels);
    Row        row(width * channels);
    Row        above(row.size());
    Row        best(row.size() + 1);
    Row        tried(row.size() + 1);
    Deflater   deflater;
    for (std::size_t y = 0; y < height; ++y) {
        TakeRow(rowAt(y), made.Channels, row);
        ApplyFilter(NoFilter, row, above, channels, best);
        std::uint64_t least = WeightOf(best);
        for (const Filter filter : {LeftFilter, AboveFilter, PaethFilter}) {
            ApplyFilter(filter, row, above, channels, tried);
            const std::uint64_t weight = WeightOf(tried);
            if (weight < least) {
                least = weight;
                best.swap(tried);
            }
        }
        deflater.Add(best);
        above.swap(row);
    }
    made.Bytes = deflater.Finish();
    return made;
}

// Labels repeat what stands above them, so one filter will do. PNG has the high byte first.
DeflatedPixels DeflateGray16(const std::uint16_t* samples, int width, int height)
{
    DeflatedPixels made;
    made.Width = width;
    made.Height = height;
    made.Channels = 1;
    made.Bits = 16;
    Row      row(2 * static_cast<std::size_t>(width));
    Row      above(row.size());
    Row      filtered(row.size() + 1);
    Deflater deflater;
    for (int y = 0; y < height; ++y, samples += width) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
            row[2 * x] = static_cast<unsigned char>(samples[x] >> 8);
            row[2 * x + 1] = static_cast<unsigned char>(samples[x]);
        }
        ApplyFilter(AboveFilter, row, above, 2, filtered);
        deflater.Add(filtered);
        above.swap(row);
    }
    made.Bytes = deflater.Finish();
    return made;
}

std::string PngOf(const DeflatedPixels& pixels)
{
    constexpr std::size_t MostOfChunk = 1u << 30;
    std::string           header;
    AppendBigEndian(header, static_cast<std::uint32_t>(pixels.Width));
    AppendBigEndian(header, static_cast<std::uint32_t>(pixels.Height));
    header += static_cast<char>(pixels.Bits);
    header += pixels.Channels == 1 ? '\x00' : '\x02';    // gray or RGB
    header.append(3, '\0');                              // deflated, the filters above, not interlaced
    std::string file = "\x89PNG\r\n\x1A\n";
    AppendChunk(file, "IHDR", header);
    for (std::string_view rest = pixels.Bytes; !rest.empty();) {
        const std::string_view part = rest.substr(0, MostOfChunk);
        AppendChunk(file, "IDAT", part);
        rest.remove_prefix(part.size());
    }
    AppendChunk(file, "IEND", {});
    return file;
}

std::string Deflated(std::string_view bytes)
{
    Deflater deflater;
    deflater.Add({reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()});
    return deflater.Finish();
}

}
