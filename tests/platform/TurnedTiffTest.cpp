// Orientation tags of TIFF: CImage shows what is stored; open images are turned.

#include "platform/SampleFiles.h"
#include "platform/ShownTiff.h"

using namespace vostel;
using namespace files;

namespace {

// Three pixels by two, 1 to 6 in each channel.
TiffPage ColorsOfSix(int orientation)
{
    Bytes colors;
    for (unsigned char value = 1; value <= 6; ++value)
        Append(colors, {value, value, value});
    return {.Width = 3,
            .Height = 2,
            .Samples = 3,
            .Photometric = 2,
            .Orientation = orientation,
            .Blocks = {colors}};
}

}

TEST_CASE("orientation tags of TIFF turn neither gray nor colors of CImage")
{
    for (int orientation = 1; orientation <= 8; ++orientation) {
        CAPTURE(orientation);
        const TiffPage gray = {
            .Width = 3, .Height = 2, .Orientation = orientation, .Blocks = {{1, 2, 3, 4, 5, 6}}};
        CHECK(Shows(gray, gray.Blocks[0]));
        TiffPage page = ColorsOfSix(orientation);
        CHECK(Shows(page, page.Blocks[0]));
        Bytes withAlpha;
        for (unsigned char value = 1; value <= 6; ++value)
            Append(withAlpha, {value, value, value, 99});
        page.Samples = 4;
        page.Extra = 2;
        page.Blocks = {withAlpha};
        CHECK(Shows(page, withAlpha));
    }
}

TEST_CASE("orientation tags of TIFF turn gray and colors of open images alike")
{
    for (const Turned& turned : AllTurned) {
        CAPTURE(turned.Orientation);
        const ReadSamples read = Read(TiffOf(ColorsOfSix(turned.Orientation)));
        CHECK(read.Outcome == PictureOutcome::Taken);
        CHECK(read.Samples.Width == turned.Width);
        Bytes colors;
        for (const std::uint8_t value : turned.Values)
            Append(colors, {value, value, value});
        CHECK(ValuesOf<std::uint8_t>(read.Samples) == colors);
    }
}
