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

// Null for what is no TIFF. The bytes have to outlive it; nothing is printed.
TiffHandle OpenTiff(TiffBytes& bytes);

}
