// Pictures that need the codec libraries: press colors, rare depths of TIFF, WebP. Their files are made by
// the same libraries or byte by byte.

#include "platform/CodecFiles.h"
#include "platform/SampleFiles.h"
#include "platform/TiffFiles.h"

#include <cstdio>

#include <jpeglib.h>
#include <tiffio.h>

#include <cmath>
#include <cstdlib>

using namespace vostel;
using namespace files;

namespace {

using U8 = std::vector<std::uint8_t>;
using F32 = std::vector<float>;

// Rows of equal pixels over wide areas, so that the codec changes them by a level or two at most.
Bytes JpegOf(int width, J_COLOR_SPACE space, const std::vector<Bytes>& rows, const Bytes& marker = {})
{
    jpeg_compress_struct codec = {};
    jpeg_error_mgr       errors;
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char* memory = nullptr;
    unsigned long  bytes = 0;
    jpeg_mem_dest(&codec, &memory, &bytes);
    codec.image_width = static_cast<JDIMENSION>(width);
    codec.image_height = static_cast<JDIMENSION>(rows.size());
    codec.input_components = static_cast<int>(rows[0].size()) / width;
    codec.in_color_space = space;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, 100, TRUE);
    jpeg_start_compress(&codec, TRUE);
    if (!marker.empty())
        jpeg_write_marker(&codec, JPEG_APP0 + 1, marker.data(), static_cast<unsigned>(marker.size()));
    for (Bytes row : rows) {
        JSAMPROW line = row.data();
        jpeg_write_scanlines(&codec, &line, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    Bytes file(memory, memory + bytes);
    std::free(memory);
    return file;
}

// Two colors, side by side.
Bytes JpegOf(int width, int height, J_COLOR_SPACE space, const U8& leftHalf, const U8& rightHalf)
{
    Bytes row;
    for (int x = 0; x < width; ++x)
        Append(row, x < width / 2 ? leftHalf : rightHalf);
    return JpegOf(width, space, std::vector<Bytes>(static_cast<std::size_t>(height), row));
}

// A still picture in a container with tags.
Bytes TaggedWebp(const Bytes& plain, int width, int height, const Bytes& tags)
{
    Bytes header = {8, 0, 0, 0};    // there are tags
    Little(header, static_cast<std::uint32_t>(width - 1), 3);
    Little(header, static_cast<std::uint32_t>(height - 1), 3);
    Bytes chunks;
    WebpChunk(chunks, "VP8X", header);
    chunks.insert(chunks.end(), plain.begin() + 12, plain.end());
    WebpChunk(chunks, "EXIF", tags);
    return WebpOf(chunks);
}

bool Near(const unsigned char* pixel, const U8& expected)
{
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (std::abs(pixel[i] - expected[i]) > 3)
            return false;
    }
    return true;
}

}

TEST_CASE("JPEG keeps gray, and color comes as red, green, blue")
{
    const ReadSamples gray = Read(JpegOf(16, 8, JCS_GRAYSCALE, {40}, {200}));
    REQUIRE(gray.Outcome == PictureOutcome::Taken);
    CHECK(gray.Samples.Type == SampleType::U8);
    CHECK(Near(gray.Samples.Data(), {40}));
    const ReadSamples color = Read(JpegOf(16, 16, JCS_RGB, {200, 100, 50}, {200, 100, 50}));
    REQUIRE(color.Outcome == PictureOutcome::Taken);
    CHECK(color.Samples.Type == SampleType::Rgb8);
    CHECK(Near(color.Samples.Data(), {200, 100, 50}));
}

TEST_CASE("press colors of JPEG become red, green, blue")
{
    // Stored inverted, as Adobe's mark says: 255 is no ink.
    const ReadSamples read = Read(JpegOf(16, 8, JCS_CMYK, {255, 128, 0, 255}, {255, 128, 0, 128}));
    REQUIRE(read.Outcome == PictureOutcome::Taken);
    CHECK(read.Samples.Type == SampleType::Rgb8);
    CHECK(Near(read.Samples.Data(), {255, 128, 0}));
    CHECK(Near(read.Samples.Data() + 3 * 15, {128, 64, 0}));
}

TEST_CASE("orientation tags of JPEG are followed, in both byte orders")
{
    constexpr int      block = 16;    // px of a side, for each pixel of the small picture
    std::vector<Bytes> rows;
    for (int y = 0; y < 2 * block; ++y) {
        rows.emplace_back();
        for (int x = 0; x < 3 * block; ++x)
            rows.back().push_back(static_cast<unsigned char>(40 * (1 + x / block + 3 * (y / block))));
    }
    for (const Turned& turned : AllTurned) {
        CAPTURE(turned.Orientation);
        for (const bool big : {false, true}) {
            Bytes marker = {'E', 'x', 'i', 'f', 0, 0};
            Append(marker, OrientationTags(turned.Orientation, big));
            const ReadSamples read = Read(JpegOf(3 * block, JCS_GRAYSCALE, rows, marker));
            REQUIRE(read.Outcome == PictureOutcome::Taken);
            REQUIRE(read.Samples.Width == turned.Width * block);
            REQUIRE(read.Samples.Height == 6 / turned.Width * block);
            for (int i = 0; i < 6; ++i) {
                const int                  x = i % turned.Width * block + block / 2;
                const unsigned char* const row =
                    read.Samples.Data() +
                    read.Samples.RowBytes() * static_cast<std::size_t>(i / turned.Width * block + block / 2);
                CHECK(Near(row + x,
                           {static_cast<std::uint8_t>(40 * turned.Values[static_cast<std::size_t>(i)])}));
            }
        }
    }
}

TEST_CASE("a JPEG cut short is no picture")
{
    const Bytes whole = JpegOf(64, 64, JCS_RGB, {200, 100, 50}, {1, 2, 3});
    for (std::size_t length = 0; length + 2 < whole.size(); length += 37)
        CHECK(Read(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))).Outcome ==
              PictureOutcome::BadFormat);
}

TEST_CASE("TIFF of 1 to 64 bits a sample, whole, signed and float")
{
    CHECK(Holds<std::uint8_t>(
        TiffOf({.Width = 3, .Height = 1, .Bits = 1, .Photometric = 0, .Blocks = {{0b10100000}}}),
        SampleType::U8, {0, 255, 0}));
    CHECK(Holds<std::uint8_t>(TiffOf({.Width = 3, .Height = 1, .Bits = 4, .Blocks = {{0x0F, 0x80}}}),
                              SampleType::U8, {0, 255, 136}));
    CHECK(Holds<std::uint16_t>(TiffOf({.Width = 2, .Height = 1, .Bits = 12, .Blocks = {{0xAB, 0xC1, 0x23}}}),
                               SampleType::U16, {0xABC, 0x123}));
    CHECK(Holds<std::int16_t>(TiffOf({.Width = 2,
                                      .Height = 1,
                                      .Bits = 16,
                                      .Format = 2,
                                      .Blocks = {BytesOf(std::vector<std::int16_t>{-7, 300})}}),
                              SampleType::I16, {-7, 300}));
    CHECK(
        Holds<std::int16_t>(TiffOf({.Width = 2, .Height = 1, .Bits = 8, .Format = 2, .Blocks = {{0xFF, 5}}}),
                            SampleType::I16, {-1, 5}));
    CHECK(Holds<float>(TiffOf({.Width = 1, .Height = 1, .Bits = 24, .Blocks = {{1, 2, 3}}}), SampleType::F32,
                       {197121.0f}));
    CHECK(Holds<float>(
        TiffOf({.Width = 1, .Height = 1, .Bits = 32, .Format = 2, .Blocks = {{0xFE, 0xFF, 0xFF, 0xFF}}}),
        SampleType::F32, {-2.0f}));
    CHECK(Holds<float>(TiffOf({.Width = 1, .Height = 1, .Bits = 32, .Blocks = {{0, 0, 0, 0x80}}}),
                       SampleType::F32, {2147483648.0f}));
    CHECK(Holds<float>(
        TiffOf({.Width = 3, .Height = 1, .Bits = 16, .Format = 3, .Blocks = {{0, 0x3C, 0, 0xC1, 1, 0}}}),
        SampleType::F32, {1.0f, -2.5f, std::ldexp(1.0f, -24)}));
    CHECK(Holds<float>(TiffOf({.Width = 2,
                               .Height = 1,
                               .Bits = 64,
                               .Format = 3,
                               .Blocks = {BytesOf(std::vector<double>{1.5, -3.0})}}),
                       SampleType::F32, {1.5f, -3.0f}));
}

TEST_CASE("TIFF in tiles, in planes, with palettes, alpha and press colors")
{
    Bytes tiles[4];
    U8    expected;
    for (int y = 0; y < 18; ++y)
        for (int x = 0; x < 20; ++x)
            expected.push_back(static_cast<std::uint8_t>(x * 7 + y * 13));
    for (int t = 0; t < 4; ++t)
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x)
                tiles[t].push_back(static_cast<unsigned char>((x + t % 2 * 16) * 7 + (y + t / 2 * 16) * 13));
    CHECK(Holds(TiffOf({.Width = 20,
                        .Height = 18,
                        .TileWidth = 16,
                        .TileHeight = 16,
                        .Blocks = {tiles[0], tiles[1], tiles[2], tiles[3]}}),
                SampleType::U8, expected));
    CHECK(Holds<std::uint8_t>(TiffOf({.Width = 2,
                                      .Height = 1,
                                      .Samples = 3,
                                      .Photometric = 2,
                                      .Planar = 2,
                                      .Blocks = {{1, 2}, {3, 4}, {5, 6}}}),
                              SampleType::Rgb8, {1, 3, 5, 2, 4, 6}));
    CHECK(Holds<std::uint8_t>(TiffOf({.Width = 1,
                                      .Height = 1,
                                      .Samples = 4,
                                      .Photometric = 2,
                                      .Extra = 2,
                                      .Blocks = {{10, 20, 30, 40}}}),
                              SampleType::Bgra8, {30, 20, 10, 40}));
    CHECK(Holds<std::uint8_t>(TiffOf({.Width = 1,
                                      .Height = 1,
                                      .Bits = 16,
                                      .Samples = 3,
                                      .Photometric = 2,
                                      .Blocks = {{0x80, 0x80, 0xFF, 0xFF, 0x7F, 0}}}),
                              SampleType::Rgb8, {128, 255, 0}));
    CHECK(Holds<std::uint8_t>(
        TiffOf({.Width = 2, .Height = 1, .Samples = 2, .Extra = 1, .Blocks = {{10, 99, 20, 98}}}),
        SampleType::U8, {10, 20}));
    CHECK(Holds<std::uint8_t>(
        TiffOf({.Width = 1, .Height = 1, .Samples = 4, .Photometric = 5, .Blocks = {{0, 127, 255, 0}}}),
        SampleType::Rgb8, {255, 128, 0}));
    const auto entry = EntryColor(9);
    CHECK(Holds<std::uint8_t>(TiffOf({.Width = 1, .Height = 1, .Photometric = 3, .Blocks = {{9}}}),
                              SampleType::Rgb8, {entry[2], entry[1], entry[0]}));
}

TEST_CASE("faxed TIFF shows black on white")
{
    const TempFolder folder;
    TIFF* const      tiff = TIFFOpen(folder.Path("fax").c_str(), "w");
    REQUIRE(tiff != nullptr);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, 32);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, 4);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    for (std::uint32_t y = 0; y < 4; ++y) {
        unsigned char row[] = {0xF0, 0, 0, static_cast<unsigned char>(y)};
        TIFFWriteScanline(tiff, row, y, 0);
    }
    TIFFClose(tiff);
    ImageSamples samples;
    REQUIRE(ReadPicture(folder.Path("fax").c_str(), 0, {}, samples) == PictureOutcome::Taken);
    CHECK(samples.Type == SampleType::U8);
    CHECK(samples.Row<unsigned char>(0)[3] == 0);
    CHECK(samples.Row<unsigned char>(0)[4] == 255);
    CHECK(samples.Row<unsigned char>(3)[31] == 0);
    CHECK(samples.Row<unsigned char>(2)[31] == 255);
}

TEST_CASE("WebP comes as it was packed, with its alpha")
{
    const U8      bgra = {30, 20, 10, 255, 60, 50, 40, 128};
    std::uint8_t* packed = nullptr;
    std::size_t   bytes = WebPEncodeLosslessBGRA(bgra.data(), 2, 1, 8, &packed);
    const Bytes   file(packed, packed + bytes);
    WebPFree(packed);
    CHECK(Holds(file, SampleType::Bgra8, bgra));
    const U8 rgb = {1, 2, 3, 4, 5, 6};
    bytes = WebPEncodeLosslessRGB(rgb.data(), 2, 1, 6, &packed);
    const Bytes opaque(packed, packed + bytes);
    WebPFree(packed);
    CHECK(Holds(opaque, SampleType::Rgb8, rgb));
    for (std::size_t length = 12; length + 2 < opaque.size(); ++length)
        CHECK(Read(Bytes(opaque.begin(), opaque.begin() + static_cast<std::ptrdiff_t>(length))).Outcome !=
              PictureOutcome::Taken);
}

TEST_CASE("orientation tags of WebP are followed, with the mark of JPEG before them and without")
{
    U8 rgb;
    for (std::uint8_t i = 1; i <= 6; ++i)
        rgb.insert(rgb.end(), {i, i, i});
    std::uint8_t*     packed = nullptr;
    const std::size_t bytes = WebPEncodeLosslessRGB(rgb.data(), 3, 2, 9, &packed);
    const Bytes       plain(packed, packed + bytes);
    WebPFree(packed);
    for (const Turned& turned : AllTurned) {
        CAPTURE(turned.Orientation);
        U8 expected;
        for (const std::uint8_t value : turned.Values)
            expected.insert(expected.end(), {value, value, value});
        for (const bool marked : {false, true}) {
            Bytes tags = marked ? Bytes{'E', 'x', 'i', 'f', 0, 0} : Bytes{};
            Append(tags, OrientationTags(turned.Orientation, marked));
            const Bytes file = TaggedWebp(plain, 3, 2, tags);
            CHECK(Holds(file, SampleType::Rgb8, expected));
            CHECK(Read(file).Samples.Width == turned.Width);
        }
    }
}
