// Pictures with their samples as they are, from files made here byte by byte.

#include "platform/SamplePictures.h"

#include "platform/SampleFiles.h"
#include "platform/TiffFiles.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>

using namespace vostel;
using namespace files;

namespace {

using U8 = std::vector<std::uint8_t>;
using U16 = std::vector<std::uint16_t>;
using F32 = std::vector<float>;

Bytes TextFile(const std::string& text, const Bytes& behind = {})
{
    Bytes file(text.begin(), text.end());
    Append(file, behind);
    return file;
}

// Red, green, blue of the palettes of the test files.
U8 EntryRgb(std::initializer_list<int> indices)
{
    U8 colors;
    for (const int index : indices) {
        const auto bgr = EntryColor(index);
        colors.insert(colors.end(), {bgr[2], bgr[1], bgr[0]});
    }
    return colors;
}

// A GIF of two frames over a screen of 3 x 2: the second covers one pixel and lets another through.
Bytes TwoFrames(int disposal)
{
    Bytes      file = {'G', 'I', 'F', '8', '9', 'a', 3,   0,   2,   0,  0x81, 0, 0,
                       0,   0,   0,   10,  10,  10,  200, 200, 200, 30, 30,   30};
    const auto frame = [&file](int left, int width, int height, const Bytes& indices, int flags,
                               int transparent) {
        Append(file, {0x21, 0xF9, 4, static_cast<unsigned char>(flags), 0, 0,
                      static_cast<unsigned char>(transparent), 0});
        Append(file, {',', static_cast<unsigned char>(left), 0, 0, 0, static_cast<unsigned char>(width), 0,
                      static_cast<unsigned char>(height), 0, 0, 2});
        // Codes of 3 bits; a clear code before every second index keeps them so.
        std::uint32_t held = 0;
        int           count = 0;
        Bytes         codes;
        const auto    put = [&](std::uint32_t code) {
            held |= code << count;
            for (count += 3; count >= 8; count -= 8, held >>= 8)
                codes.push_back(static_cast<unsigned char>(held));
        };
        for (std::size_t i = 0; i < indices.size(); ++i) {
            if (i % 2 == 0)
                put(4);
            put(indices[i]);
        }
        put(5);
        codes.push_back(static_cast<unsigned char>(held));
        file.push_back(static_cast<unsigned char>(codes.size()));
        Append(file, codes);
        file.push_back(0);
    };
    frame(0, 3, 2, {1, 1, 1, 1, 1, 1}, disposal << 2, 0);
    frame(1, 2, 1, {2, 3}, 1, 3);
    file.push_back(';');
    return file;
}

}

TEST_CASE("gray PNG keeps 8 and 16 bits, fewer are spread to bytes")
{
    CHECK(Holds<std::uint8_t>(Png(2, 2, 8, Gray, {1, 2, 200, 255}), SampleType::U8, {1, 2, 200, 255}));
    CHECK(Holds<std::uint16_t>(Png(2, 1, 16, Gray, {0x12, 0x34, 0xFF, 0xFE}), SampleType::U16,
                               {0x1234, 0xFFFE}));
    CHECK(Holds<std::uint8_t>(Png(4, 1, 2, Gray, {0b00011011}), SampleType::U8, {0, 85, 170, 255}));
    CHECK(Holds<std::uint8_t>(Png(3, 1, 1, Gray, {0b10100000}), SampleType::U8, {255, 0, 255}));
}

TEST_CASE("color PNG gives red, green, blue, and alpha beside them as it is stored")
{
    const ReadSamples read = Read(Png(2, 1, 8, Color, {1, 2, 3, 4, 5, 6}));
    REQUIRE(read.Outcome == PictureOutcome::Taken);
    const bool redFirst = read.Samples.Type == SampleType::Rgb8;
    CHECK((redFirst || read.Samples.Type == SampleType::Bgr8));
    CHECK(ValuesOf<std::uint8_t>(read.Samples) == (redFirst ? U8{1, 2, 3, 4, 5, 6} : U8{3, 2, 1, 6, 5, 4}));
    CHECK(
        Holds<std::uint8_t>(Png(1, 1, 8, ColorAlpha, {10, 20, 30, 40}), SampleType::Bgra8, {30, 20, 10, 40}));
}

TEST_CASE("BMP of every depth and packing")
{
    CHECK(Holds<std::uint8_t>(Bmp(2, 2, 24, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}), SampleType::Bgr8,
                              {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
    CHECK(Holds<std::uint8_t>(Bmp(1, 1, 32, {1, 2, 3, 4}), SampleType::Bgr8, {1, 2, 3}));
    CHECK(Holds(Bmp(3, 1, 8, {0, 7, 255}), SampleType::Rgb8, EntryRgb({0, 7, 255})));
    CHECK(Holds(Bmp(3, 1, 4, {0x1F, 0x30}), SampleType::Rgb8, EntryRgb({1, 15, 3})));
    CHECK(Holds(Bmp(3, 1, 1, {0b10100000}), SampleType::Rgb8, EntryRgb({1, 0, 1})));
    CHECK(Holds<std::uint8_t>(Bmp(2, 1, 16, {0xFF, 0x7F, 0x10, 0x00}), SampleType::Bgr8,
                              {255, 255, 255, 132, 0, 0}));
    // Green of six bits, by masks behind the header.
    Bytes fields = Bmp(1, 1, 16, {0, 0});
    fields[30] = 3;
    fields[10] = 66;
    fields.resize(54);
    for (const std::uint32_t mask : {0xF800u, 0x07E0u, 0x001Fu})
        Little(fields, mask, 4);
    Append(fields, {0x20, 0x84, 0, 0});    // 16 of 31, 33 of 63, 0
    CHECK(Holds<std::uint8_t>(fields, SampleType::Bgr8, {0, 134, 132}));
    // Runs: two pixels of 9, then the end of the row, then three that are spelled out.
    Bytes runs = Bmp(3, 2, 8, {0, 0, 0, 0, 0, 0});
    runs[30] = 1;
    runs.resize(54 + 1024);
    Append(runs, {2, 9, 0, 0, 0, 3, 1, 2, 3, 0, 0, 1});
    CHECK(Holds(runs, SampleType::Rgb8, EntryRgb({1, 2, 3, 9, 9, 0})));
    // Gray entries make a gray picture.
    Bytes gray = Bmp(3, 1, 1, {0b10100000});
    for (int i = 0; i < 8; ++i)
        gray[54 + static_cast<std::size_t>(i)] = i < 4 ? 20 : 90;
    CHECK(Holds<std::uint8_t>(gray, SampleType::U8, {90, 20, 90}));
}

TEST_CASE("PNM of every kind")
{
    CHECK(Holds<std::uint8_t>(TextFile("P1\n# a comment\n3 2\n101\n0 1 0\n"), SampleType::U8,
                              {0, 255, 0, 255, 0, 255}));
    CHECK(Holds<std::uint8_t>(TextFile("P4 3 2\n", {0b10100000, 0b01000000}), SampleType::U8,
                              {0, 255, 0, 255, 0, 255}));
    CHECK(Holds<std::uint8_t>(TextFile("P2 2 1 255 7 255"), SampleType::U8, {7, 255}));
    CHECK(Holds<std::uint8_t>(TextFile("P5 2 1 100\n", {50, 100}), SampleType::U8, {128, 255}));
    CHECK(Holds<std::uint16_t>(TextFile("P5 2 1 65535\n", {0x12, 0x34, 0xFF, 0xFF}), SampleType::U16,
                               {0x1234, 0xFFFF}));
    CHECK(Holds<std::uint16_t>(TextFile("P2 2 1 1000 7 1000"), SampleType::U16, {7, 1000}));
    CHECK(Holds<std::uint8_t>(TextFile("P3 1 1 255 1 2 3"), SampleType::Rgb8, {1, 2, 3}));
    CHECK(Holds<std::uint8_t>(TextFile("P6 1 1 255\n", {1, 2, 3}), SampleType::Rgb8, {1, 2, 3}));
    CHECK(Holds<std::uint8_t>(TextFile("P6 1 1 65535\n", {0x80, 0x80, 0xFF, 0xFF, 0, 0}), SampleType::Rgb8,
                              {128, 255, 0}));
    CHECK(Holds<float>(TextFile("Pf 1 2 -1.0\n", BytesOf(F32{1.5f, -2.0f})), SampleType::F32, {-2.0f, 1.5f}));
    CHECK(Read(TextFile("P2 2 1 255 7 256")).Outcome == PictureOutcome::BadFormat);
    CHECK(Read(TextFile("P2 2 1 255 7")).Outcome == PictureOutcome::BadFormat);
    CHECK(Read(TextFile("P5 2 1 70000\n", {1, 2, 3, 4})).Outcome == PictureOutcome::BadFormat);
}

TEST_CASE("GIF frames are what a viewer shows after each")
{
    const Bytes kept = TwoFrames(1);
    CHECK(Holds<std::uint8_t>(kept, SampleType::U8, {10, 10, 10, 10, 10, 10}, 0));
    CHECK(Holds<std::uint8_t>(kept, SampleType::U8, {10, 200, 10, 10, 10, 10}, 1));
    CHECK(Holds<std::uint8_t>(TwoFrames(2), SampleType::U8, {0, 200, 0, 0, 0, 0}, 1));
    CHECK(Holds<std::uint8_t>(TwoFrames(3), SampleType::U8, {0, 200, 0, 0, 0, 0}, 1));
    CHECK(Read(kept, 2).Outcome == PictureOutcome::NoSuchPage);
    CHECK(Holds(Gif(3, 1, {0, 9, 255}), SampleType::Rgb8, EntryRgb({0, 9, 255})));
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("two"), kept));
    int pages = 0;
    CHECK(CountPages(folder.Path("two").c_str(), {}, pages) == PictureOutcome::Taken);
    CHECK(pages == 2);
}

TEST_CASE("long GIF codes are unpacked as they were packed")
{
    // One clear code only: the table grows to its full size and stays there.
    std::mt19937 random(71);
    Bytes        indices(60 * 200);
    for (unsigned char& index : indices)
        index = static_cast<unsigned char>(random() % 3 * 5);
    Bytes file = Gif(60, 200, Bytes(60 * 200));
    file.resize(13 + 768 + 10);
    Bytes                codes;
    std::uint32_t        held = 0;
    int                  count = 0, length = 9, next = 258;
    std::map<Bytes, int> table;
    for (int i = 0; i < 256; ++i)
        table[{static_cast<unsigned char>(i)}] = i;
    const auto put = [&](int code) {
        held |= static_cast<std::uint32_t>(code) << count;
        for (count += length; count >= 8; count -= 8, held >>= 8)
            codes.push_back(static_cast<unsigned char>(held));
    };
    put(256);
    Bytes run;
    for (const unsigned char index : indices) {
        Bytes longer = run;
        longer.push_back(index);
        if (table.count(longer) != 0) {
            run = longer;
            continue;
        }
        put(table[run]);
        if (next < 4096) {
            if (next == 1 << length)
                ++length;
            table[longer] = next++;
        }
        run = {index};
    }
    put(table[run]);
    if (next == 1 << length && length < 12)
        ++length;
    put(257);
    codes.push_back(static_cast<unsigned char>(held));
    file.push_back(8);
    for (std::size_t at = 0; at < codes.size(); at += 255) {
        const std::size_t block = std::min<std::size_t>(255, codes.size() - at);
        file.push_back(static_cast<unsigned char>(block));
        file.insert(file.end(), codes.begin() + static_cast<std::ptrdiff_t>(at),
                    codes.begin() + static_cast<std::ptrdiff_t>(at + block));
    }
    Append(file, {0, ';'});
    const ReadSamples read = Read(file);
    REQUIRE(read.Outcome == PictureOutcome::Taken);
    REQUIRE(read.Samples.Bytes() == 3 * indices.size());
    for (std::size_t i = 0; i < indices.size(); ++i)
        CHECK(read.Samples.Data()[3 * i] == EntryColor(indices[i])[2]);
}

TEST_CASE("gray TIFF keeps 8 bits, 16 bits and float")
{
    CHECK(
        Holds<std::uint8_t>(TiffOf({.Width = 2, .Height = 2, .RowsPerStrip = 1, .Blocks = {{1, 2}, {3, 4}}}),
                            SampleType::U8, {1, 2, 3, 4}));
    CHECK(Holds<std::uint16_t>(
        TiffOf({.Width = 2, .Height = 1, .Bits = 16, .Blocks = {BytesOf(U16{7, 65535})}}), SampleType::U16,
        {7, 65535}));
    const F32   floats = {-1.5f, 3e38f, 0.25f};
    const Bytes file =
        TiffOf({.Width = 3, .Height = 1, .Bits = 32, .Format = 3, .Blocks = {BytesOf(floats)}});
    CHECK(Holds(file, SampleType::F32, floats));
}

TEST_CASE("orientation tags of TIFF are followed, for every type of gray")
{
    for (const Turned& turned : AllTurned) {
        CAPTURE(turned.Orientation);
        const Bytes bytes = TiffOf(
            {.Width = 3, .Height = 2, .Orientation = turned.Orientation, .Blocks = {{1, 2, 3, 4, 5, 6}}});
        const ReadSamples read = Read(bytes);
        CHECK(read.Samples.Width == turned.Width);
        CHECK(ValuesOf<std::uint8_t>(read.Samples) == turned.Values);
        const Bytes words = TiffOf({.Width = 3,
                                    .Height = 2,
                                    .Bits = 16,
                                    .Orientation = turned.Orientation,
                                    .Blocks = {BytesOf(U16{1, 2, 3, 4, 5, 6})}});
        CHECK(Holds(words, SampleType::U16, U16(turned.Values.begin(), turned.Values.end())));
        const Bytes floats = TiffOf({.Width = 3,
                                     .Height = 2,
                                     .Bits = 32,
                                     .Format = 3,
                                     .Orientation = turned.Orientation,
                                     .Blocks = {BytesOf(F32{1, 2, 3, 4, 5, 6})}});
        CHECK(Holds(floats, SampleType::F32, F32(turned.Values.begin(), turned.Values.end())));
    }
}

TEST_CASE("orientation tags of PNG are followed, before the pixels and behind them")
{
    const auto with = [](const Bytes& picture, const Bytes& tags, std::size_t at) {
        Bytes chunk;
        Chunk(chunk, "eXIf", tags);
        Bytes file = picture;
        file.insert(file.begin() + static_cast<std::ptrdiff_t>(at), chunk.begin(), chunk.end());
        return file;
    };
    constexpr std::size_t behindHeader = 33;
    for (const Turned& turned : AllTurned) {
        CAPTURE(turned.Orientation);
        const Bytes bytes = Png(3, 2, 8, Gray, {1, 2, 3, 4, 5, 6});
        const Bytes words = Png(3, 2, 16, Gray, {0, 1, 0, 2, 0, 3, 0, 4, 0, 5, 0, 6});
        for (const bool big : {false, true}) {
            const Bytes tags = OrientationTags(turned.Orientation, big);
            CHECK(Holds(with(bytes, tags, behindHeader), SampleType::U8, turned.Values));
            CHECK(Holds(with(words, tags, words.size() - 12), SampleType::U16,
                        U16(turned.Values.begin(), turned.Values.end())));
            CHECK(Read(with(bytes, tags, behindHeader)).Samples.Width == turned.Width);
        }
    }
    const Bytes cut = {'I', 'I', 42, 0, 200, 0, 0, 0};    // its directory lies beyond the end
    CHECK(Holds<std::uint8_t>(with(Png(2, 1, 8, Gray, {7, 9}), cut, behindHeader), SampleType::U8, {7, 9}));
}

TEST_CASE("pages of a TIFF are counted and read by their number")
{
    const Bytes      file = TiffOf({{.Width = 2, .Height = 1, .Blocks = {{1, 2}}},
                                    {.Width = 1, .Height = 1, .Bits = 16, .Blocks = {{5, 1}}}});
    const TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("two"), file));
    int pages = 0;
    CHECK(CountPages(folder.Path("two").c_str(), {}, pages) == PictureOutcome::Taken);
    CHECK(pages == 2);
    CHECK(Holds<std::uint8_t>(file, SampleType::U8, {1, 2}, 0));
    CHECK(Holds<std::uint16_t>(file, SampleType::U16, {261}, 1));
    CHECK(Read(file, 2).Outcome == PictureOutcome::NoSuchPage);
    CHECK(Read(Png(1, 1, 8, Gray, {1}), 1).Outcome == PictureOutcome::NoSuchPage);
}

TEST_CASE("what is beyond the limits is not read, and what is missing or no picture is told apart")
{
    const Bytes   picture = Png(3, 2, 8, Gray, {1, 2, 3, 4, 5, 6});
    PictureLimits limits;
    limits.MaxSide = 2;
    CHECK(Read(picture, 0, limits).Outcome == PictureOutcome::TooLarge);
    limits = PictureLimits();
    limits.MaxPixels = 5;
    CHECK(Read(picture, 0, limits).Outcome == PictureOutcome::TooLarge);
    limits = PictureLimits();
    limits.MaxFileBytes = static_cast<std::int64_t>(picture.size()) - 1;
    CHECK(Read(picture, 0, limits).Outcome == PictureOutcome::TooLarge);
    for (const Bytes& file : {TextFile("P5 100000 100000 255\n"), Bmp(1, 1, 24, {1, 2, 3})}) {
        Bytes         large = file;
        PictureLimits small;
        small.MaxPixels = 0;
        CHECK(Read(large, 0, small).Outcome == PictureOutcome::TooLarge);
    }
    ImageSamples     samples;
    const TempFolder folder;
    CHECK(ReadPicture(folder.Path("missing").c_str(), 0, {}, samples) == PictureOutcome::NotRead);
    CHECK(Read({}).Outcome == PictureOutcome::BadFormat);
    CHECK(Read(TextFile("no picture at all")).Outcome == PictureOutcome::BadFormat);
}

TEST_CASE("files cut short are no pictures, and damaged ones do no harm")
{
    const std::vector<Bytes> whole = {
        Png(9, 7, 8, Gray, Bytes(63, 5)),
        Png(9, 7, 16, Color, Bytes(378, 5)),
        Bmp(9, 7, 24, Bytes(189, 5)),
        Bmp(9, 7, 4, Bytes(35, 5)),
        Gif(9, 7, Bytes(63, 5)),
        TwoFrames(3),
        TextFile("P5 9 7 255\n", Bytes(63, 5)),
        TextFile("P2 3 2 255 1 2 3 4 5 6"),
        TiffOf({.Width = 9, .Height = 7, .Bits = 16, .Orientation = 6, .Blocks = {Bytes(126, 5)}}),
        TiffOf({.Width = 20,
                .Height = 18,
                .TileWidth = 16,
                .TileHeight = 16,
                .Blocks = {Bytes(256, 1), Bytes(256, 2), Bytes(256, 3), Bytes(256, 4)}})};
    PictureLimits limits;
    limits.MaxPixels = 1 << 20;
    for (std::size_t which = 0; which < whole.size(); ++which) {
        const Bytes& file = whole[which];
        CAPTURE(which);
        REQUIRE(Read(file).Outcome == PictureOutcome::Taken);
        for (std::size_t length = 0; length + 12 < file.size(); length += 1 + length / 16) {
            const Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
            // The end marks of some formats may be missing; their pixels may not.
            if (length + 40 < file.size() || which > 5)
                CHECK(Read(cut, 0, limits).Outcome != PictureOutcome::Taken);
        }
        std::mt19937 random(static_cast<unsigned>(600 + which));
        for (int i = 0; i < 50; ++i) {
            Bytes damaged = file;
            for (int hit = 0; hit < 3; ++hit)
                damaged[random() % std::min<std::size_t>(damaged.size(), i % 2 ? damaged.size() : 64)] =
                    static_cast<unsigned char>(random());
            const ReadSamples read = Read(damaged, i % 3, limits);
            if (read.Outcome == PictureOutcome::Taken)
                CHECK(static_cast<long long>(read.Samples.Width) * read.Samples.Height <= limits.MaxPixels);
        }
    }
}

TEST_CASE("a PNG with a palette gives its indices to who asks for them")
{
    const TempFolder folder;
    for (const auto& [bits, rows] : {std::pair(8, Bytes{0, 5, 255, 7}), std::pair(4, Bytes{0x05, 0xF7}),
                                     std::pair(1, Bytes{0x40, 0xC0})}) {
        REQUIRE(WriteBytes(folder.Path("a.png"), Png(2, 2, bits, Indexed, rows)));
        ImageSamples samples;
        REQUIRE(ReadPicture(folder.Path("a.png").c_str(), 0, {}, samples, PaletteUse::Indices) ==
                PictureOutcome::Taken);
        REQUIRE(samples.HasShape(SampleType::U8, 2, 2));
        const int   top = (1 << bits) - 1;
        const Bytes expected = {0, static_cast<unsigned char>(5 & top), static_cast<unsigned char>(255 & top),
                                static_cast<unsigned char>(7 & top)};
        CHECK(Bytes(samples.Data(), samples.Data() + 4) == (bits == 1 ? Bytes{0, 1, 1, 1} : expected));
    }
}
