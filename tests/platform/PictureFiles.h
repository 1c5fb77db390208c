#pragma once

// Writes small picture files byte by byte, so that a test states each depth itself and needs no codec.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace files {

using Bytes = std::vector<unsigned char>;

inline void Little(Bytes& bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<unsigned char>(value >> 8 * i));
}

inline void Big(Bytes& bytes, std::uint32_t value, int count)
{
    for (int i = count - 1; i >= 0; --i)
        bytes.push_back(static_cast<unsigned char>(value >> 8 * i));
}

inline void Append(Bytes& bytes, const Bytes& more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

// Blue, green, red of a palette entry: distinct, and gray nowhere.
inline std::array<unsigned char, 3> EntryColor(int index)
{
    return {static_cast<unsigned char>(255 - index), static_cast<unsigned char>(index * 7),
            static_cast<unsigned char>(index)};
}

inline std::size_t RowBytes(int width, int bits)
{
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 7) / 8;
}

// Rows top first, each of whole bytes. The file pads and turns them over.
inline Bytes Bmp(int width, int height, int bits, const Bytes& rows)
{
    const int         colors = bits <= 8 ? 1 << bits : 0;
    const std::size_t row = RowBytes(width, bits), padded = (row + 3) / 4 * 4;
    const std::size_t offset = 54 + 4 * static_cast<std::size_t>(colors);
    Bytes             file = {'B', 'M'};
    Little(file, static_cast<std::uint32_t>(offset + padded * static_cast<std::size_t>(height)), 4);
    Little(file, 0, 4);
    Little(file, static_cast<std::uint32_t>(offset), 4);
    Little(file, 40, 4);
    Little(file, static_cast<std::uint32_t>(width), 4);
    Little(file, static_cast<std::uint32_t>(height), 4);
    Little(file, 1, 2);
    Little(file, static_cast<std::uint32_t>(bits), 2);
    file.resize(54, 0);
    for (int i = 0; i < colors; ++i) {
        const auto color = EntryColor(i);
        Append(file, {color[0], color[1], color[2], 0});
    }
    for (int y = height - 1; y >= 0; --y) {
        for (std::size_t i = 0; i < padded; ++i)
            file.push_back(i < row ? rows[static_cast<std::size_t>(y) * row + i] : 0);
    }
    return file;
}

inline std::uint32_t Crc(const Bytes& bytes, std::size_t from)
{
    std::uint32_t crc = 0xFFFFFFFFu;
    for (std::size_t i = from; i < bytes.size(); ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320u : 0);
    }
    return ~crc;
}

inline void Chunk(Bytes& file, const char* name, const Bytes& content)
{
    Big(file, static_cast<std::uint32_t>(content.size()), 4);
    const std::size_t from = file.size();
    file.insert(file.end(), name, name + 4);
    Append(file, content);
    Big(file, Crc(file, from), 4);
}

// Deflate without compression, in one block of at most 65535 bytes.
inline Bytes Stored(const Bytes& content)
{
    Bytes         packed = {0x78, 0x01, 1};
    std::uint32_t a = 1, b = 0;
    Little(packed, static_cast<std::uint32_t>(content.size()), 2);
    Little(packed, static_cast<std::uint32_t>(~content.size()), 2);
    for (const unsigned char byte : content) {
        packed.push_back(byte);
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    Big(packed, b << 16 | a, 4);
    return packed;
}

enum PngKind { Gray = 0, Color = 2, Indexed = 3, GrayAlpha = 4, ColorAlpha = 6 };

// Rows top first, samples as the format stores them: red first, 16 bits with the high byte first.
inline Bytes Png(int width, int height, int bits, PngKind kind, const Bytes& rows,
                 bool transparentEntry = false)
{
    Bytes file = {0x89, 'P', 'N', 'G', 13, 10, 26, 10};
    Bytes header;
    Big(header, static_cast<std::uint32_t>(width), 4);
    Big(header, static_cast<std::uint32_t>(height), 4);
    Append(header, {static_cast<unsigned char>(bits), static_cast<unsigned char>(kind), 0, 0, 0});
    Chunk(file, "IHDR", header);
    if (kind == Indexed) {
        Bytes palette;
        for (int i = 0; i < 1 << bits; ++i) {
            const auto color = EntryColor(i);
            Append(palette, {color[2], color[1], color[0]});
        }
        Chunk(file, "PLTE", palette);
        if (transparentEntry)
            Chunk(file, "tRNS", {0});
    }
    Bytes             lines;
    const std::size_t row = rows.size() / static_cast<std::size_t>(height);
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (at % row == 0)
            lines.push_back(0);    // no filter
        lines.push_back(rows[at]);
    }
    Chunk(file, "IDAT", Stored(lines));
    Chunk(file, "IEND", {});
    return file;
}

// Uncompressed, one strip. Samples: 1 gray or palette, 3 red green blue, 4 with alpha.
inline Bytes Tiff(int width, int height, int bits, int samples, bool indexed, const Bytes& rows)
{
    struct Entry {
        std::uint32_t Tag, Type, Count, Value;
    };
    const std::uint32_t data = 8, colors = static_cast<std::uint32_t>(data + (rows.size() + 1) / 2 * 2);
    const std::uint32_t each = colors + (indexed ? 6u << bits : 0), directory = each + 8;
    std::vector<Entry>  entries = {
         {256, 3, 1, static_cast<std::uint32_t>(width)},
         {257, 3, 1, static_cast<std::uint32_t>(height)},
         {258, 3, static_cast<std::uint32_t>(samples), samples == 1 ? static_cast<std::uint32_t>(bits) : each},
         {259, 3, 1, 1},
         {262, 3, 1,
         indexed        ? 3u
          : samples == 1 ? 1u
                         : 2u},
         {273, 4, 1, data},
         {277, 3, 1, static_cast<std::uint32_t>(samples)},
         {278, 3, 1, static_cast<std::uint32_t>(height)},
         {279, 4, 1, static_cast<std::uint32_t>(rows.size())},
         {284, 3, 1, 1}};
    if (indexed)
        entries.push_back({320, 3, 3u << bits, colors});
    if (samples == 4)
        entries.push_back({338, 3, 1, 2});
    Bytes file = {'I', 'I', 42, 0};
    Little(file, directory, 4);
    Append(file, rows);
    file.resize(colors, 0);
    for (int channel = 2; indexed && channel >= 0; --channel)
        for (int i = 0; i < 1 << bits; ++i)
            Little(file, EntryColor(i)[static_cast<std::size_t>(channel)] * 257u, 2);
    for (int i = 0; i < 4; ++i)
        Little(file, static_cast<std::uint32_t>(bits), 2);
    Little(file, static_cast<std::uint32_t>(entries.size()), 2);
    for (const Entry& entry : entries) {
        Little(file, entry.Tag, 2);
        Little(file, entry.Type, 2);
        Little(file, entry.Count, 4);
        Little(file, entry.Value, 4);
    }
    Little(file, 0, 4);
    return file;
}

// One index a byte. A clear code before every 100 pixels keeps all codes at one width.
inline Bytes Gif(int width, int height, const Bytes& indices)
{
    Bytes file = {'G', 'I', 'F', '8', '7', 'a'};
    Little(file, static_cast<std::uint32_t>(width), 2);
    Little(file, static_cast<std::uint32_t>(height), 2);
    Append(file, {0xF7, 0, 0});
    for (int i = 0; i < 256; ++i) {
        const auto color = EntryColor(i);
        Append(file, {color[2], color[1], color[0]});
    }
    Append(file, {',', 0, 0, 0, 0});
    Little(file, static_cast<std::uint32_t>(width), 2);
    Little(file, static_cast<std::uint32_t>(height), 2);
    Append(file, {0, 8});
    Bytes         codes;
    std::uint32_t held = 0;
    int           count = 0;
    const auto    put = [&](std::uint32_t code) {
        held |= code << count;
        for (count += 9; count >= 8; count -= 8, held >>= 8)
            codes.push_back(static_cast<unsigned char>(held));
    };
    for (std::size_t i = 0; i < indices.size(); ++i) {
        if (i % 100 == 0)
            put(256);
        put(indices[i]);
    }
    put(257);
    codes.push_back(static_cast<unsigned char>(held));
    for (std::size_t at = 0; at < codes.size(); at += 255) {
        const std::size_t block = std::min<std::size_t>(255, codes.size() - at);
        file.push_back(static_cast<unsigned char>(block));
        file.insert(file.end(), codes.begin() + static_cast<std::ptrdiff_t>(at),
                    codes.begin() + static_cast<std::ptrdiff_t>(at + block));
    }
    Append(file, {0, ';'});
    return file;
}

}
