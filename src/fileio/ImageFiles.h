#pragma once

// Images from files, of which every failure is told: VOSTEL_NOT_READ, VOSTEL_BAD_FORMAT, VOSTEL_TOO_LARGE
// beyond the limits in force, VOSTEL_NOT_SUPPORTED, VOSTEL_NOT_FOUND for a page. Paths are UTF-8.

#include "base/OwnedFile.h"
#include "platform/SamplePictures.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace vostel {

// Where the samples of a file without a header lie.
struct RawLayout {
    SampleType   Type = SampleType::U8;
    int          Width = 0;
    int          Height = 0;
    std::int64_t Offset = 0;
    bool         BigEndian = false;
};

// Pages count from 0.
ImageSamples ReadImagePage(const std::string& path, int page, PaletteUse palettes = PaletteUse::Colors);
int          CountImagePages(const std::string& path);
// Sides of 1 or more, an offset of 0 or more.
ImageSamples ReadRawImage(const std::string& path, const RawLayout& layout);

// The same in pieces: the file at its first sample, then samples one after the other in this machine's order.
OwnedFile OpenRawFile(const std::string& path, const RawLayout& layout);
void ReadRawBytes(std::FILE* file, const std::string& path, const RawLayout& layout, unsigned char* samples,
                  std::size_t bytes);

}
