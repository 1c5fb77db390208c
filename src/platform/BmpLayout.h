#pragma once

// The layout of BMP files with 1, 4, 8, 16, 24 and 32 bits per pixel, plain, with bit fields and run-length
// coded; headers from 12 to 124 bytes.

#include "vostel/platform.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vostel::pictures {

enum BmpCoding : std::uint32_t {
    BmpPlain = 0,
    BmpRunLength8 = 1,
    BmpRunLength4 = 2,
    BmpBitFields = 3,
    BmpAlphaBitFields = 6
};

// One channel of a bit field pixel; Of widens it to eight bits.
struct BmpChannel {
    std::uint32_t Mask = 0;
    int           Shift = 0;
    std::uint32_t Max = 0;

    explicit BmpChannel(std::uint32_t mask) : Mask(mask)
    {
        while (mask != 0 && (mask >> Shift & 1) == 0)
            ++Shift;
        Max = mask >> Shift;
    }
    std::uint32_t Count(std::uint32_t pixel) const { return (pixel & Mask) >> Shift; }    // 0..Max
    unsigned char Of(std::uint32_t pixel) const
    {
        if (Max == 0)
            return 0;
        return static_cast<unsigned char>(std::uint64_t{Count(pixel)} * 255 / Max);
    }
};

// What a header says, once it has been checked against the file.
struct BmpLayout {
    int           Width = 0;
    int           Height = 0;
    int           Depth = 0;    // bits per pixel
    bool          TopDown = false;
    bool          RunLengths = false;
    bool          HasFields = false;    // the channels' masks come from the file
    BmpChannel    Red{0}, Green{0}, Blue{0}, Alpha{0};
    std::size_t   PaletteAt = 0;       // bytes from the beginning of the file
    std::size_t   EntryBytes = 0;      // of a palette entry
    std::uint32_t PaletteCount = 0;    // entries that the header announces, 0 for all of the depth
    std::size_t   PixelsAt = 0;        // not before the headers' end nor behind the file's
    std::size_t   RowBytes = 0;        // with padding
};

// False for what is no header that the layout can say. The file may still be too short for the pixels.
bool ReadBmpHeader(std::span<const unsigned char> file, BmpLayout& layout);
// Whether the pixels can be in the file: all rows have to be there, runs only in part.
bool HoldsBmpPixels(std::span<const unsigned char> file, const BmpLayout& layout);
// Entries that the file has no room for before its pixels are black.
void ReadBmpPalette(std::span<const unsigned char> file, const BmpLayout& layout, RGBQUAD (&palette)[256]);

// Two bytes at a time: a count with the value of its pixels, or a zero with an escape. Calls put(x, y, index)
// for pixels of the picture, y counted from the top. False for a file that ends early.
template <typename Put>
bool DecodeBmpRuns(std::span<const unsigned char> file, const BmpLayout& layout, Put setIndex)
{
    const bool  nibbles = layout.Depth == 4;
    std::size_t at = layout.PixelsAt;
    int         x = 0;
    int         line = 0;    // from the bottom
    const auto  put = [&](unsigned index) {
        if (x < layout.Width && line < layout.Height)
            setIndex(x, layout.Height - 1 - line, index);
        if (x < layout.Width)
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
            x = std::min(layout.Width, x + file[at]);
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
        if (line > layout.Height)
            return true;
    }
    return line >= layout.Height || (line == layout.Height - 1 && x >= layout.Width);    // no end mark
}

}
