#pragma once

// A TIFF file in memory, opened for reading by libtiff.

#include <tiffio.h>

#include <cstddef>
#include <memory>
#include <span>

namespace vostel::pictures {

struct CloseTiff {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffHandle = std::unique_ptr<TIFF, CloseTiff>;

struct TiffBytes {
    std::span<const unsigned char> File;
    std::size_t                    At = 0;
};

// Whether the tags of a page, which the library copies into memory of its own one by one, are no more
// together than the file holds. To be asked before the library goes to that page; OpenTiff has asked for the
// first.
bool AreTagsWithin(std::span<const unsigned char> file, int page);

// Null for what is no TIFF. The bytes have to outlive it; nothing is printed.
TiffHandle OpenTiff(TiffBytes& bytes);

}
