#pragma once

// Reads TIFF files through CImage, for the tests of its pixels.

#include "platform/TiffFiles.h"
#include "support/TempFolder.h"

#include <vostel/platform.h>

#include <doctest/doctest.h>

namespace files {

inline bool Load(CImage& image, const Bytes& file)
{
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("a.tif"), file));
    return image.Load(folder.WidePath("a.tif")) >= 0;
}

// The rows without their padding, the top one first.
inline Bytes PixelsOf(const CImage& image)
{
    Bytes             pixels;
    const std::size_t rowBytes = RowBytes(image.GetWidth(), image.GetBPP());
    for (int y = 0; y < image.GetHeight(); ++y) {
        const auto* const row = static_cast<const unsigned char*>(image.GetBits()) +
                                static_cast<std::ptrdiff_t>(y) * image.GetPitch();
        pixels.insert(pixels.end(), row, row + rowBytes);
    }
    return pixels;
}

// Whether a file loads with these bytes; the depth follows from their count.
inline bool Shows(const TiffPage& page, const Bytes& pixels)
{
    CImage image;
    return Load(image, TiffOf(page)) && image.GetWidth() == page.Width && image.GetHeight() == page.Height &&
           PixelsOf(image) == pixels;
}

}
