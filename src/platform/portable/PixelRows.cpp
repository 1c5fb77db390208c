#include "platform/portable/PixelRows.h"

#include <cstring>

namespace vostel::gdi {

void LoadWords(std::uint32_t* words, const PixelCopy& copy, int y, int x, int count)
{
    const Bitmap&        source = *copy.Source;
    const unsigned char* row = source.Row(y);
    if (source.BitsPerPixel == 32) {
        std::memcpy(words, row + static_cast<std::ptrdiff_t>(x) * 4, static_cast<std::size_t>(count) * 4);
    } else if (source.BitsPerPixel == 24) {
        const unsigned char* bytes = row + static_cast<std::ptrdiff_t>(x) * 3;
        for (int i = 0; i < count; ++i, bytes += 3)
            words[i] = bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8 |
                       static_cast<std::uint32_t>(bytes[2]) << 16;
    } else {
        const std::uint32_t ink = PixelOf(copy.Ink);
        const std::uint32_t paper = PixelOf(copy.Paper);
        for (int i = 0; i < count; ++i)
            words[i] = (row[(x + i) / 8] >> (7 - (x + i) % 8) & 1) != 0 ? paper : ink;
    }
}

void StoreWords(const PixelCopy& copy, int y, int x, const std::uint32_t* words, int count)
{
    const Bitmap&  target = *copy.Target;
    unsigned char* row = target.Row(y);
    if (target.BitsPerPixel == 32) {
        std::memcpy(row + static_cast<std::ptrdiff_t>(x) * 4, words, static_cast<std::size_t>(count) * 4);
    } else if (target.BitsPerPixel == 24) {
        unsigned char* bytes = row + static_cast<std::ptrdiff_t>(x) * 3;
        for (int i = 0; i < count; ++i, bytes += 3) {
            bytes[0] = static_cast<unsigned char>(words[i] & 0xFFu);
            bytes[1] = static_cast<unsigned char>(words[i] >> 8 & 0xFFu);
            bytes[2] = static_cast<unsigned char>(words[i] >> 16 & 0xFFu);
        }
    } else {
        const std::uint32_t key = PixelOf(copy.Key);
        for (int i = 0; i < count; ++i) {
            const unsigned bit = 0x80u >> ((x + i) % 8);
            unsigned char& byte = row[(x + i) / 8];
            byte = static_cast<unsigned char>(words[i] == key ? byte | bit : byte & ~bit);
        }
    }
}

}
