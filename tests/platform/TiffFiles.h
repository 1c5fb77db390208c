#pragma once

// Writes TIFF files of any layout byte by byte, little-endian.

#include "platform/PictureFiles.h"

#include <cstdint>
#include <map>
#include <vector>

namespace files {

// A page as its tags and its blocks say: strips, or tiles where TileWidth is not 0.
struct TiffPage {
    int                Width = 0, Height = 0;
    int                Bits = 8, Samples = 1;
    int                Photometric = 1;    // 0 white is zero, 1 black is zero, 2 RGB, 3 palette, 5 press
    int                Format = 1;         // 1 whole, 2 signed, 3 float
    int                Orientation = 1;
    int                Compression = 1;     // none; blocks are written as they are given
    int                Planar = 1;          // 2: each sample in blocks of its own
    int                RowsPerStrip = 0;    // 0: all
    int                TileWidth = 0, TileHeight = 0;
    int                Extra = 0;    // kind of the last sample; 0: no such tag
    std::vector<Bytes> Blocks;
};

inline Bytes TiffOf(const std::vector<TiffPage>& pages)
{
    Bytes       file = {'I', 'I', 42, 0};
    std::size_t link = file.size();
    Little(file, 0, 4);
    const auto patch = [&file](std::size_t at, std::size_t value) {
        for (std::size_t i = 0; i < 4; ++i)
            file[at + i] = static_cast<unsigned char>(value >> 8 * i);
    };
    for (const TiffPage& page : pages) {
        std::map<int, std::vector<std::uint32_t>> tags;
        const auto number = [](int v) { return static_cast<std::uint32_t>(v); };
        tags[256] = {number(page.Width)};
        tags[257] = {number(page.Height)};
        tags[258] = std::vector<std::uint32_t>(static_cast<std::size_t>(page.Samples), number(page.Bits));
        tags[259] = {number(page.Compression)};
        tags[262] = {number(page.Photometric)};
        tags[274] = {number(page.Orientation)};
        tags[277] = {number(page.Samples)};
        tags[284] = {number(page.Planar)};
        tags[339] = std::vector<std::uint32_t>(static_cast<std::size_t>(page.Samples), number(page.Format));
        if (page.Extra != 0)
            tags[338] = {number(page.Extra)};
        std::vector<std::uint32_t> places, lengths;
        for (const Bytes& block : page.Blocks) {
            places.push_back(static_cast<std::uint32_t>(file.size()));
            lengths.push_back(static_cast<std::uint32_t>(block.size()));
            Append(file, block);
        }
        if (page.TileWidth != 0) {
            tags[322] = {number(page.TileWidth)};
            tags[323] = {number(page.TileHeight)};
            tags[324] = places;
            tags[325] = lengths;
        } else {
            tags[273] = places;
            tags[278] = {number(page.RowsPerStrip != 0 ? page.RowsPerStrip : page.Height)};
            tags[279] = lengths;
        }
        if (page.Photometric == 3) {
            for (int channel = 2; channel >= 0; --channel)
                for (int i = 0; i < 1 << page.Bits; ++i)
                    tags[320].push_back(EntryColor(i)[static_cast<std::size_t>(channel)] * 257u);
        }
        // Places and lengths of blocks take four bytes, all other numbers two.
        const auto bytesOf = [](int tag) {
            return tag == 273 || tag == 279 || tag == 324 || tag == 325 ? 4 : 2;
        };
        std::map<int, std::size_t> values;
        for (const auto& [tag, list] : tags) {
            values[tag] = file.size();
            for (const std::uint32_t v : list)
                Little(file, v, bytesOf(tag));
        }
        file.resize((file.size() + 1) / 2 * 2, 0);
        patch(link, file.size());
        Little(file, static_cast<std::uint32_t>(tags.size()), 2);
        for (const auto& [tag, list] : tags) {
            Little(file, static_cast<std::uint32_t>(tag), 2);
            Little(file, bytesOf(tag) == 4 ? 4 : 3, 2);
            Little(file, static_cast<std::uint32_t>(list.size()), 4);
            const std::size_t at = file.size();
            if (list.size() * static_cast<std::size_t>(bytesOf(tag)) > 4) {
                Little(file, static_cast<std::uint32_t>(values[tag]), 4);
            } else {
                for (const std::uint32_t v : list)
                    Little(file, v, bytesOf(tag));
                file.resize(at + 4, 0);
            }
        }
        link = file.size();
        Little(file, 0, 4);
    }
    return file;
}

inline Bytes TiffOf(const TiffPage& page)
{
    return TiffOf(std::vector<TiffPage>{page});
}

}
