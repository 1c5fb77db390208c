#include "platform/portable/WebpReading.h"

#include "base/LittleEndian.h"

#include <webp/decode.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <string_view>
#include <vector>

namespace vostel::pictures {
namespace {

// The lowest bit of a byte comes first. Behind the end there are zeros, which are no longer sound.
class BitReader {
public:
    explicit BitReader(std::span<const unsigned char> bytes) : Data(bytes) {}

    bool     IsSound() const { return At <= 8 * Data.size(); }
    unsigned Bits(int count)
    {
        unsigned value = 0;
        for (int i = 0; i < count; ++i, ++At) {
            if (At < 8 * Data.size())
                value |= (Data[At / 8] >> At % 8 & 1u) << i;
        }
        return value;
    }
    bool Bit() { return Bits(1) != 0; }

private:
    std::span<const unsigned char> Data;
    std::size_t                    At = 0;
};

constexpr int LongestCode = 15;
constexpr int Literals = 256;
constexpr int LengthSymbols = 24;
constexpr int DistanceSymbols = 40;

// A canonical prefix code: symbols in the order of their lengths.
class PrefixCode {
public:
    // Whether the lengths make a code: complete, or of a single symbol, which then takes no bits.
    bool Make(std::span<const unsigned char> lengths)
    {
        Counts = {};
        Symbols.clear();
        for (int length = 1; length <= LongestCode; ++length) {
            for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
                if (lengths[symbol] == length) {
                    Symbols.push_back(static_cast<int>(symbol));
                    ++Counts[static_cast<std::size_t>(length)];
                }
            }
        }
        if (Symbols.size() <= 1)
            return Symbols.size() == 1;
        int open = 1;
        for (int length = 1; length <= LongestCode && open >= 0; ++length)
            open = 2 * open - Counts[static_cast<std::size_t>(length)];
        return open == 0;
    }

    int Next(BitReader& bits) const
    {
        if (Symbols.size() == 1)
            return Symbols[0];
        int code = 0, first = 0, index = 0;
        for (int length = 1; length <= LongestCode; ++length) {
            code = 2 * code + static_cast<int>(bits.Bits(1));
            const int count = Counts[static_cast<std::size_t>(length)];
            first *= 2;
            if (code - first < count)
                return Symbols[static_cast<std::size_t>(index + code - first)];
            index += count;
            first += count;
        }
        return 0;    // no complete code comes here
    }

private:
    std::array<int, LongestCode + 1> Counts = {};
    std::vector<int>                 Symbols;
};

bool ReadLengths(BitReader& bits, std::span<unsigned char> lengths)
{
    constexpr std::array<std::size_t, 19> order = {17, 18, 0, 1,  2,  3,  4,  5,  16, 6,
                                                   7,  8,  9, 10, 11, 12, 13, 14, 15};
    std::array<unsigned char, 19>         ofLengths = {};
    const std::size_t                     given = 4 + bits.Bits(4);
    for (std::size_t i = 0; i < given; ++i)
        ofLengths[order[i]] = static_cast<unsigned char>(bits.Bits(3));
    PrefixCode code;
    if (!code.Make(ofLengths))
        return false;
    std::size_t left = lengths.size();    // codes that are still to come
    if (bits.Bit()) {
        const int width = 2 + 2 * static_cast<int>(bits.Bits(3));
        left = 2 + bits.Bits(width);
        if (left > lengths.size())
            return false;
    }
    unsigned char before = 8;
    for (std::size_t at = 0; at < lengths.size() && left > 0 && bits.IsSound(); --left) {
        const int length = code.Next(bits);
        if (length < 16) {
            lengths[at++] = static_cast<unsigned char>(length);
            if (length != 0)
                before = static_cast<unsigned char>(length);
            continue;
        }
        const std::size_t repeats = length == 16   ? 3 + bits.Bits(2)
                                    : length == 17 ? 3 + bits.Bits(3)
                                                   : 11 + bits.Bits(7);
        if (repeats > lengths.size() - at)
            return false;
        std::fill_n(lengths.begin() + static_cast<std::ptrdiff_t>(at), repeats, length == 16 ? before : 0);
        at += repeats;
    }
    return true;
}

bool ReadCode(BitReader& bits, int symbols, PrefixCode& code)
{
    // A simple code names its one or two symbols, in up to 8 bits.
    std::vector<unsigned char> lengths(static_cast<std::size_t>(std::max(symbols, Literals)), 0);
    const std::span            used(lengths.data(), static_cast<std::size_t>(symbols));
    if (bits.Bit()) {
        const bool two = bits.Bit();
        lengths[bits.Bits(bits.Bit() ? 8 : 1)] = 1;
        if (two)
            lengths[bits.Bits(8)] = 1;
    } else if (!ReadLengths(bits, used)) {
        return false;
    }
    return bits.IsSound() && code.Make(used);
}

// Bits of the size of a color cache; 0 without one, -1 for a wrong size.
int ReadCacheBits(BitReader& bits)
{
    if (!bits.Bit())
        return 0;
    const int cacheBits = static_cast<int>(bits.Bits(4));
    return cacheBits >= 1 && cacheBits <= 11 ? cacheBits : -1;
}

// Of a length or distance.
std::int64_t ReadCount(BitReader& bits, int symbol)
{
    if (symbol < 4)
        return symbol + 1;
    const int extra = (symbol - 2) / 2;
    return (std::int64_t{2 + symbol % 2} << extra) + bits.Bits(extra) + 1;
}

// The red and green parts of pixels that stand in an image, as one number each.
using PixelNumbers = std::bitset<1 << 16>;

// Reads an image that has one group of codes. What a pixel copies or takes from the cache has stood there
// before, or is zero, so that only literal ones bring new numbers.
bool ReadPlainImage(BitReader& bits, std::int64_t pixels, PixelNumbers& numbers)
{
    const int cacheBits = ReadCacheBits(bits);
    if (cacheBits < 0)
        return false;
    const int  cached = cacheBits > 0 ? 1 << cacheBits : 0;
    PrefixCode green, red, blue, alpha, distance;
    if (!ReadCode(bits, Literals + LengthSymbols + cached, green) || !ReadCode(bits, Literals, red) ||
        !ReadCode(bits, Literals, blue) || !ReadCode(bits, Literals, alpha) ||
        !ReadCode(bits, DistanceSymbols, distance))
        return false;
    numbers.set(0);
    while (pixels > 0 && bits.IsSound()) {
        const int symbol = green.Next(bits);
        if (symbol < Literals) {
            numbers.set(static_cast<std::size_t>(red.Next(bits) << 8 | symbol));
            blue.Next(bits);
            alpha.Next(bits);
            --pixels;
        } else if (symbol < Literals + LengthSymbols) {
            pixels -= ReadCount(bits, symbol - Literals);
            ReadCount(bits, distance.Next(bits));
        } else {
            --pixels;
        }
    }
    return pixels == 0 && bits.IsSound();
}

std::int64_t BlockCount(std::int64_t width, std::int64_t height, int sizeBits)
{
    const std::int64_t side = std::int64_t{1} << sizeBits;
    return ((width + side - 1) >> sizeBits) * ((height + side - 1) >> sizeBits);
}

// Reads past the transforms; one that packs several indices in a pixel makes the picture narrower.
bool ReadTransforms(BitReader& bits, int& width, int height)
{
    enum Transform { Predictor, CrossColor, SubtractGreen, ColorIndexing };
    unsigned     seen = 0;
    PixelNumbers unused;
    while (bits.Bit()) {
        const unsigned transform = bits.Bits(2);
        if (seen >> transform & 1)
            return false;
        seen |= 1u << transform;
        if (transform == Predictor || transform == CrossColor) {
            const int sizeBits = 2 + static_cast<int>(bits.Bits(3));
            if (!ReadPlainImage(bits, BlockCount(width, height, sizeBits), unused))
                return false;
        } else if (transform == ColorIndexing) {
            const int colors = 1 + static_cast<int>(bits.Bits(8));
            const int packed = colors > 16 ? 0 : colors > 4 ? 1 : colors > 2 ? 2 : 3;
            if (!ReadPlainImage(bits, colors, unused))
                return false;
            width = static_cast<int>(BlockCount(width, 1, packed));
        }
    }
    return true;
}

// As libwebp takes it: tables of four bytes an entry for the five codes, and what stands for the group.
std::int64_t BytesOfGroups(std::int64_t groups, int cacheBits)
{
    constexpr std::int64_t entries = 3100;
    return groups * 4 * (entries + (cacheBits > 0 ? 1 << cacheBits : 0));
}

// What stands behind the head of a lossless picture.
WebpCodes CodesOf(std::span<const unsigned char> bytes, int width, int height)
{
    constexpr int          smallestBlock = 2, largestCache = 11;
    constexpr std::int64_t bitsPerGroup = 20;    // at least
    const std::int64_t     most = std::min({BlockCount(width, height, smallestBlock), std::int64_t{1} << 16,
                                            static_cast<std::int64_t>(8 * bytes.size()) / bitsPerGroup});
    if (BytesOfGroups(most, largestCache) <= MostBytesOfCodes(std::int64_t{width} * height))
        return {.Valid = true};
    BitReader bits(bytes);
    if (!ReadTransforms(bits, width, height))
        return {};
    const int cacheBits = ReadCacheBits(bits);
    if (cacheBits < 0)
        return {};
    if (!bits.Bit())
        return {.Valid = bits.IsSound(), .Bytes = BytesOfGroups(1, cacheBits)};
    PixelNumbers groups;
    const int    sizeBits = 2 + static_cast<int>(bits.Bits(3));
    if (!ReadPlainImage(bits, BlockCount(width, height, sizeBits), groups))
        return {};
    return {.Valid = true, .Bytes = BytesOfGroups(static_cast<std::int64_t>(groups.count()), cacheBits)};
}

WebpCodes CodesOfPicture(std::span<const unsigned char> chunk)
{
    constexpr std::size_t headBytes = 5;
    constexpr unsigned    mark = 0x2F;
    if (chunk.size() < headBytes || chunk[0] != mark)
        return {.Valid = true};    // nothing that the codec takes
    BitReader head(chunk.subspan(1));
    const int width = 1 + static_cast<int>(head.Bits(14));
    const int height = 1 + static_cast<int>(head.Bits(14));
    return CodesOf(chunk.subspan(headBytes), width, height);
}

WebpCodes CodesOfAlpha(std::span<const unsigned char> chunk, int width, int height)
{
    const bool isLossless = !chunk.empty() && (chunk[0] & 3) == 1;
    return isLossless ? CodesOf(chunk.subspan(1), width, height) : WebpCodes{.Valid = true};
}

}

WebpSize SizeOfWebp(std::span<const unsigned char> file)
{
    constexpr std::string_view mark = "RIFF";
    WebPBitstreamFeatures      features;
    if (file.size() < mark.size() ||
        std::string_view(reinterpret_cast<const char*>(file.data()), mark.size()) != mark ||
        WebPGetFeatures(file.data(), file.size(), &features) != VP8_STATUS_OK)
        return {};
    return {static_cast<std::uint32_t>(features.width), static_cast<std::uint32_t>(features.height)};
}

WebpCodes CodesOfWebp(std::span<const unsigned char> file, int width, int height)
{
    constexpr std::size_t          fileHead = 12, chunkHead = 8;
    std::span<const unsigned char> alpha;
    // A picture may stand there without a chunk around it. Those in chunks are read on behind their end, and
    // of several alphas the last one counts.
    std::size_t picture = std::min(fileHead, file.size());
    for (std::size_t at = fileHead; at + chunkHead <= file.size();) {
        const std::string_view name(reinterpret_cast<const char*>(file.data()) + at, 4);
        const std::size_t      left = file.size() - at - chunkHead;
        const std::size_t      bytes =
            std::min<std::size_t>(ReadLittleEndian(file.subspan(at + name.size(), 4)), left);
        if (name == "VP8L")
            picture = at + chunkHead;
        if (name == "VP8L" || name == "VP8 ")
            break;
        if (name == "ALPH")
            alpha = file.subspan(at + chunkHead, bytes);
        at += chunkHead + bytes + bytes % 2;
    }
    const WebpCodes colors = CodesOfPicture(file.subspan(picture));
    const WebpCodes alphas = CodesOfAlpha(alpha, width, height);
    return {.Valid = colors.Valid && alphas.Valid, .Bytes = colors.Bytes + alphas.Bytes};
}

std::int64_t MostBytesOfCodes(std::int64_t pixels)
{
    // Of sixteen bytes a pixel, samples, colors and alpha take nine; of the constant the codec takes little.
    return 4 * pixels + (56 << 20);
}

}
