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

TEST_CASE("colors of TIFF come as they are stored, whichever kind of alpha is beside them")
{
    const Bytes shown = {50, 100, 200, 128, 30, 20, 10, 0};
    for (const int kind : {1, 2}) {
        CAPTURE(kind);
        TiffPage page = {
            .Width = 2, .Height = 1, .Samples = 4, .Photometric = 2, .Extra = kind, .Blocks = {}};
        page.Blocks = {{200, 100, 50, 128, 10, 20, 30, 0}};
        CHECK(Shows(page, shown));
        page.Planar = 2;
        page.Blocks = {{200, 10}, {100, 20}, {50, 30}, {128, 0}};
        CHECK(Shows(page, shown));
        page.Planar = 1;
        page.Bits = 16;
        page.Blocks = {{200, 200, 100, 100, 50, 50, 128, 128, 10, 10, 20, 20, 30, 30, 0, 0}};
        CHECK(Shows(page, shown));
    }
}

TEST_CASE("a TIFF with alpha is the same after any number of saves")
{
    const TempFolder folder;
    const CString    path = folder.WidePath("a.tif");
    CImage           image;
    REQUIRE(Load(image, TiffOf({.Width = 2,
                                .Height = 1,
                                .Samples = 4,
                                .Photometric = 2,
                                .Extra = 2,
                                .Blocks = {{200, 100, 50, 128, 10, 20, 30, 0}}})));
    for (int i = 0; i < 3; ++i) {
        CHECK(PixelsOf(image) == Bytes{50, 100, 200, 128, 30, 20, 10, 0});
        REQUIRE(image.Save(path) >= 0);
        REQUIRE(image.Load(path) >= 0);
    }
}

TEST_CASE("orientation tags of TIFF turn neither gray nor colors")
{
    Bytes gray = {1, 2, 3, 4, 5, 6}, colors, withAlpha;
    for (const unsigned char value : gray) {
        Append(colors, {value, value, value});
        Append(withAlpha, {value, value, value, 99});
    }
    for (int orientation = 1; orientation <= 8; ++orientation) {
        CAPTURE(orientation);
        TiffPage page = {.Width = 3, .Height = 2, .Orientation = orientation, .Blocks = {gray}};
        CHECK(Shows(page, gray));
        page.Samples = 3;
        page.Photometric = 2;
        page.Blocks = {colors};
        CHECK(Shows(page, colors));
        page.Samples = 4;
        page.Extra = 2;
        page.Blocks = {withAlpha};
        CHECK(Shows(page, withAlpha));
    }
}
