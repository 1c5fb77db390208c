// What CImage makes of TIFF off Windows: the pixels as the file stores them.

#include "platform/ShownTiff.h"

#include <cstring>
#include <vector>

using namespace files;

namespace {

Bytes BytesOf(const std::vector<float>& values)
{
    Bytes bytes(values.size() * sizeof(float));
    std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
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

TEST_CASE("plain tiles of any length load")
{
    for (const int samples : {3, 4}) {
        for (const int side : {16, 32}) {
            CAPTURE(samples);
            CAPTURE(side);
            TiffPage   page = {.Width = 20,
                               .Height = 18,
                               .Samples = samples,
                               .Photometric = 2,
                               .TileWidth = side,
                               .TileHeight = side,
                               .Extra = samples == 4 ? 2 : 0,
                               .Blocks = {}};
            const auto level = [](int x, int y, int c) {
                return static_cast<unsigned char>(x * 7 + y * 13 + c * 50);
            };
            for (int top = 0; top < page.Height; top += side) {
                for (int left = 0; left < page.Width; left += side) {
                    page.Blocks.emplace_back();
                    for (int i = 0; i < side * side * samples; ++i)
                        page.Blocks.back().push_back(
                            level(left + i / samples % side, top + i / samples / side, i % samples));
                }
            }
            Bytes shown;
            for (int i = 0; i < page.Width * page.Height; ++i) {
                const int x = i % page.Width, y = i / page.Width;
                Append(shown, {level(x, y, 2), level(x, y, 1), level(x, y, 0)});
                if (samples == 4)
                    shown.push_back(level(x, y, 3));
            }
            CHECK(Shows(page, shown));
        }
    }
}

TEST_CASE("floats of TIFF are shown from 0 to 1")
{
    const Bytes values = BytesOf({-1.0f, 0.0f, 0.5f, 1.0f, 2.0f, 0.2f});
    CHECK(Shows({.Width = 2,
                 .Height = 1,
                 .Bits = 32,
                 .Samples = 3,
                 .Photometric = 2,
                 .Format = 3,
                 .Blocks = {values}},
                {128, 0, 0, 51, 255, 255}));
    CHECK(Shows({.Width = 6, .Height = 1, .Bits = 32, .Format = 3, .Blocks = {values}},
                {0, 0, 0, 0, 0, 0, 128, 128, 128, 255, 255, 255, 255, 255, 255, 51, 51, 51}));
}

TEST_CASE("press colors of 16 bits, and gray of 4 and 8 bits with alpha, load")
{
    CHECK(Shows({.Width = 1,
                 .Height = 1,
                 .Bits = 16,
                 .Samples = 4,
                 .Photometric = 5,
                 .Blocks = {{0, 0, 127, 127, 255, 255, 0, 0}}},
                {0, 128, 255, 255}));
    TiffPage gray = {.Width = 2, .Height = 1, .Samples = 2, .Extra = 2, .Blocks = {{10, 99, 200, 98}}};
    CHECK(Shows(gray, {10, 10, 10, 99, 200, 200, 200, 98}));
    gray.Planar = 2;
    gray.Blocks = {{10, 200}, {99, 98}};
    CHECK(Shows(gray, {10, 10, 10, 99, 200, 200, 200, 98}));
    gray.Planar = 1;
    gray.Bits = 4;
    gray.Blocks = {{0x1F, 0x80}};
    CHECK(Shows(gray, {17, 17, 17, 255, 136, 136, 136, 0}));
    gray.Photometric = 0;
    CHECK(Shows(gray, {238, 238, 238, 255, 119, 119, 119, 0}));
}
