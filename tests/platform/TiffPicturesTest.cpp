// What CImage makes of TIFF off Windows: the pixels as the file stores them.

#include "platform/TiffFiles.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <vector>

using namespace files;

namespace {

bool Load(CImage& image, const Bytes& file)
{
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("a.tif"), file));
    return image.Load(folder.WidePath("a.tif")) >= 0;
}

// The rows without their padding, the top one first.
Bytes PixelsOf(const CImage& image)
{
    Bytes             pixels;
    const std::size_t rowBytes = files::RowBytes(image.GetWidth(), image.GetBPP());
    for (int y = 0; y < image.GetHeight(); ++y) {
        const auto* const row = static_cast<const unsigned char*>(image.GetBits()) +
                                static_cast<std::ptrdiff_t>(y) * image.GetPitch();
        pixels.insert(pixels.end(), row, row + rowBytes);
    }
    return pixels;
}

// Whether a file loads with these bytes; the depth follows from their count.
bool Shows(const TiffPage& page, const Bytes& pixels)
{
    CImage image;
    return Load(image, TiffOf(page)) && image.GetWidth() == page.Width && image.GetHeight() == page.Height &&
           PixelsOf(image) == pixels;
}

}

TEST_CASE("orientation tags of TIFF turn neither gray nor colors")
{
    Bytes gray = {1, 2, 3, 4, 5, 6}, colors;
    for (const unsigned char value : gray)
        Append(colors, {value, value, value});
    for (int orientation = 1; orientation <= 8; ++orientation) {
        CAPTURE(orientation);
        TiffPage page = {.Width = 3, .Height = 2, .Orientation = orientation, .Blocks = {gray}};
        CHECK(Shows(page, gray));
        page.Samples = 3;
        page.Photometric = 2;
        page.Blocks = {colors};
        CHECK(Shows(page, colors));
    }
}
