#include "fileio/BmpTestFiles.h"

#include <doctest/doctest.h>
#include <vostel.h>

using namespace bmp_test;

TEST_CASE("a gray file's header holds the right value in every field")
{
    const TempFolder folder;
    std::mt19937     random(1);
    Plane            gray;
    FillRandom(gray, 5, 3, random);
    const Bytes bytes = SavedGray(folder, gray);
    REQUIRE(bytes.size() == 1078 + 3 * 8);
    CHECK(bytes[0] == 'B');
    CHECK(bytes[1] == 'M');
    CHECK(Get(bytes, 2, 4) == 3 * 8 + 1078);
    CHECK(Get(bytes, 6, 4) == 0);
    CHECK(Get(bytes, 10, 4) == 1078);
    CHECK(Get(bytes, 14, 4) == 40);
    CHECK(Get(bytes, 18, 4) == 5);
    CHECK(Get(bytes, 22, 4) == 3);
    CHECK(Get(bytes, 26, 2) == 1);
    CHECK(Get(bytes, 28, 2) == 8);
    CHECK(Get(bytes, 30, 4) == 0);
    CHECK(Get(bytes, 34, 4) == 3 * 8);
    CHECK(Get(bytes, 38, 4) == 47244);
    CHECK(Get(bytes, 42, 4) == 47244);
    CHECK(Get(bytes, 46, 4) == 0);
    CHECK(Get(bytes, 50, 4) == 0);
}

TEST_CASE("a color file's header holds the right value in every field")
{
    const TempFolder folder;
    std::mt19937     random(2);
    Plane            red, green, blue;
    FillRandom(red, 5, 3, random);
    FillRandom(green, 5, 3, random);
    FillRandom(blue, 5, 3, random);
    const Bytes bytes = SavedColor(folder, red, green, blue);
    REQUIRE(bytes.size() == 54 + 3 * 16);
    CHECK(bytes[0] == 'B');
    CHECK(bytes[1] == 'M');
    CHECK(Get(bytes, 2, 4) == 3 * 16 + 54);
    CHECK(Get(bytes, 6, 4) == 0);
    CHECK(Get(bytes, 10, 4) == 54);
    CHECK(Get(bytes, 14, 4) == 40);
    CHECK(Get(bytes, 18, 4) == 5);
    CHECK(Get(bytes, 22, 4) == 3);
    CHECK(Get(bytes, 26, 2) == 1);
    CHECK(Get(bytes, 28, 2) == 24);
    CHECK(Get(bytes, 30, 4) == 0);
    CHECK(Get(bytes, 34, 4) == 3 * 16);
    CHECK(Get(bytes, 38, 4) == 0);
    CHECK(Get(bytes, 42, 4) == 0);
    CHECK(Get(bytes, 46, 4) == 0);
    CHECK(Get(bytes, 50, 4) == 0);
}

TEST_CASE("a gray file's palette holds each level three times and a zero")
{
    const TempFolder folder;
    std::mt19937     random(3);
    Plane            gray;
    FillRandom(gray, 4, 1, random);
    const Bytes bytes = SavedGray(folder, gray);
    REQUIRE(bytes.size() == 1078 + 4);
    for (std::size_t i = 0; i < 256; ++i) {
        CAPTURE(i);
        CHECK(Get(bytes, 54 + 4 * i, 4) == i * 0x010101);
    }
}

TEST_CASE("gray rows take a multiple of four bytes and the padding is zero")
{
    const TempFolder folder;
    std::mt19937     random(4);
    const struct {
        int         Width;
        std::size_t RowBytes;
    } cases[] = {{1, 4}, {4, 4}, {5, 8}};
    for (const auto& one : cases) {
        CAPTURE(one.Width);
        Plane gray;
        FillRandom(gray, one.Width, 2, random);
        const Bytes bytes = SavedGray(folder, gray);
        REQUIRE(bytes.size() == 1078 + 2 * one.RowBytes);
        for (std::size_t y = 0; y < 2; ++y)
            for (std::size_t x = 0; x < one.RowBytes; ++x)
                CHECK(bytes[1078 + y * one.RowBytes + x] ==
                      (x < static_cast<std::size_t>(one.Width) ? gray.Ptr2D[y][x] : 0));
    }
}

TEST_CASE("color rows take a multiple of four bytes, hold blue, green, red and the padding is zero")
{
    const TempFolder folder;
    std::mt19937     random(5);
    const struct {
        int         Width;
        std::size_t RowBytes;
    } cases[] = {{1, 4}, {3, 12}, {5, 16}};
    for (const auto& one : cases) {
        CAPTURE(one.Width);
        Plane red, green, blue;
        FillRandom(red, one.Width, 2, random);
        FillRandom(green, one.Width, 2, random);
        FillRandom(blue, one.Width, 2, random);
        const Bytes bytes = SavedColor(folder, red, green, blue);
        REQUIRE(bytes.size() == 54 + 2 * one.RowBytes);
        for (std::size_t y = 0; y < 2; ++y) {
            const std::size_t row = 54 + y * one.RowBytes;
            for (std::size_t x = 0; x < static_cast<std::size_t>(one.Width); ++x) {
                CHECK(bytes[row + 3 * x] == blue.Ptr2D[y][x]);
                CHECK(bytes[row + 3 * x + 1] == green.Ptr2D[y][x]);
                CHECK(bytes[row + 3 * x + 2] == red.Ptr2D[y][x]);
            }
            for (std::size_t at = 3 * static_cast<std::size_t>(one.Width); at < one.RowBytes; ++at)
                CHECK(bytes[row + at] == 0);
        }
    }
}

TEST_CASE("files of 8, 24 and 32 bits read as their bytes, first row first, whatever else their header says")
{
    const TempFolder  folder;
    const std::string path = folder.Path("a.bmp");
    const unsigned    seed = 6;
    std::mt19937      random(seed);
    for (const int bits : {8, 24, 32}) {
        for (const int width : {1, 2, 3, 4, 5, 31, 64, 97, 200}) {
            CAPTURE(seed);
            CAPTURE(bits);
            CAPTURE(width);
            const Bytes bytes = NoisyFile(random, width, 7, bits);
            REQUIRE(WriteBytes(path, bytes));
            Color color;
            REQUIRE(color.Read(path));
            REQUIRE(color.HasSizes(width, 7));
            CHECK(color.Holds(bytes));
        }
    }
}

TEST_CASE("images larger than one transfer read and write every row")
{
    const TempFolder  folder;
    const std::string path = folder.Path("large.bmp");
    std::mt19937      random(7);
    for (const int bits : {8, 24, 32}) {
        for (const int width : {1021, 1024}) {
            CAPTURE(bits);
            CAPTURE(width);
            const Bytes bytes = NoisyFile(random, width, 300, bits);
            REQUIRE(WriteBytes(path, bytes));
            Color color;
            REQUIRE(color.Read(path));
            REQUIRE(color.HasSizes(width, 300));
            CHECK(color.Holds(bytes));
            const Bytes saved = SavedColor(folder, color.Red, color.Green, color.Blue);
            REQUIRE(saved.size() == static_cast<std::size_t>(54 + 300 * RowBytesOf(24, width)));
            CHECK(color.Holds(saved));
            const Bytes savedGray = SavedGray(folder, color.Green);
            REQUIRE(savedGray.size() == static_cast<std::size_t>(1078 + 300 * RowBytesOf(8, width)));
            CHECK(HoldsChannel(color.Green, savedGray, 0));
        }
    }
}

TEST_CASE("a large file gives its pixels whatever number of threads reads it, cut short too")
{
    const TempFolder   folder;
    std::string        path = folder.Path("large.bmp");
    std::mt19937       random(8);
    const VostelLimits defaults = {sizeof defaults, 0, 0, 0, 0, 0};
    VostelLimits       limits = defaults;
    for (const int bits : {8, 24, 32}) {
        Bytes bytes = NoisyFile(random, 1021, 1500, bits);
        for (const std::size_t lost : {0, 1234567}) {
            bytes.resize(bytes.size() - lost);
            REQUIRE(WriteBytes(path, bytes));
            Plane first;
            for (const int threads : {1, 0}) {    // 0: as many as there are processors
                CAPTURE(bits);
                CAPTURE(lost);
                CAPTURE(threads);
                limits.max_threads = threads;
                REQUIRE(vostel_set_limits(&limits) == VOSTEL_OK);
                Color color;
                Plane gray;
                REQUIRE(color.Read(path));
                CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
                REQUIRE(color.HasSizes(1021, 1500));
                CHECK(color.Holds(bytes));
                REQUIRE(gray.Width == 1021);
                REQUIRE(gray.Height == 1500);
                if (threads == 1)
                    first = gray;
                CHECK(std::memcmp(gray.Ptr1D, first.Ptr1D, 1021 * 1500) == 0);
            }
        }
    }
    REQUIRE(vostel_set_limits(&defaults) == VOSTEL_OK);
}

TEST_CASE("a row longer than one transfer reads and writes whole")
{
    const TempFolder  folder;
    const std::string path = folder.Path("long.bmp");
    std::mt19937      random(8);
    const Bytes       bytes = NoisyFile(random, 200001, 2, 24);
    REQUIRE(WriteBytes(path, bytes));
    Color color;
    REQUIRE(color.Read(path));
    REQUIRE(color.HasSizes(200001, 2));
    CHECK(color.Holds(bytes));
    CHECK(color.Holds(SavedColor(folder, color.Red, color.Green, color.Blue)));
}

TEST_CASE("a 24-bit file read and saved keeps its pixel bytes and gets the writer's header")
{
    const TempFolder  folder;
    const std::string path = folder.Path("a.bmp");
    std::mt19937      random(9);
    const Bytes       bytes = NoisyFile(random, 8, 5, 24);    // rows without padding
    REQUIRE(WriteBytes(path, bytes));
    Color color;
    REQUIRE(color.Read(path));
    const Bytes saved = SavedColor(folder, color.Red, color.Green, color.Blue);
    REQUIRE(saved.size() == bytes.size());
    CHECK(Bytes(saved.begin() + 54, saved.end()) == Bytes(bytes.begin() + 54, bytes.end()));
    CHECK(Get(saved, 2, 4) == saved.size());
    CHECK(Get(saved, 10, 4) == 54);
    CHECK(Get(saved, 38, 4) == 0);
}

TEST_CASE("random images survive a save and a read")
{
    const TempFolder folder;
    const unsigned   seed = 10;
    std::mt19937     random(seed);
    for (int round = 0; round < 100; ++round) {
        CAPTURE(seed);
        CAPTURE(round);
        const int width = 1 + static_cast<int>(random() % 70), height = 1 + static_cast<int>(random() % 20);
        Plane     red, green, blue;
        FillRandom(red, width, height, random);
        FillRandom(green, width, height, random);
        FillRandom(blue, width, height, random);
        REQUIRE_FALSE(SavedColor(folder, red, green, blue).empty());
        Color color;
        REQUIRE(color.Read(folder.Path("saved-color.bmp")));
        CHECK(SamePixels(color.Red, red));
        CHECK(SamePixels(color.Green, green));
        CHECK(SamePixels(color.Blue, blue));
        REQUIRE_FALSE(SavedGray(folder, red).empty());
        REQUIRE(color.Read(folder.Path("saved-gray.bmp")));
        CHECK(SamePixels(color.Red, red));
        CHECK(SamePixels(color.Green, red));
        CHECK(SamePixels(color.Blue, red));
    }
}

TEST_CASE("an 8-bit file with a palette of colors reads as its index values")
{
    const TempFolder  folder;
    const std::string path = folder.Path("palette.bmp");
    std::mt19937      random(11);
    Bytes             bytes = NoisyHeader(random, 4, 1, 8);
    bytes.insert(bytes.end(), {0, 7, 128, 255});
    REQUIRE(WriteBytes(path, bytes));
    Color color;
    REQUIRE(color.Read(path));
    for (Plane* plane : {&color.Red, &color.Green, &color.Blue}) {
        CHECK(plane->Ptr1D[0] == 0);
        CHECK(plane->Ptr1D[1] == 7);
        CHECK(plane->Ptr1D[2] == 128);
        CHECK(plane->Ptr1D[3] == 255);
    }
}

TEST_CASE("depths of 1, 4 and 16 bits give clear planes of the file's size and count as read")
{
    const TempFolder folder;
    std::string      path = folder.Path("depth.bmp");
    std::mt19937     random(12);
    for (const int bits : {0, 1, 4, 16}) {
        CAPTURE(bits);
        REQUIRE(WriteBytes(path, NoisyFile(random, 9, 3, bits)));
        Color color;
        CHECK(color.Read(path));
        CHECK(color.HasSizes(9, 3));
        CHECK(IsClear(color.Red));
        CHECK(IsClear(color.Green));
        CHECK(IsClear(color.Blue));
        CHECK(IsClear(color.Alpha));
        Plane gray;
        CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
        CHECK(HasSize(gray, 9, 3));
        CHECK(IsClear(gray));
    }
}

TEST_CASE("reading gray equals reading color and turning it into gray")
{
    const TempFolder folder;
    std::string      path = folder.Path("a.bmp");
    const unsigned   seed = 13;
    std::mt19937     random(seed);
    for (const int bits : {8, 24, 32}) {
        for (const int width : {1, 5, 64, 131, 2500}) {
            CAPTURE(seed);
            CAPTURE(bits);
            CAPTURE(width);
            const Bytes bytes = NoisyFile(random, width, 60, bits);
            REQUIRE(WriteBytes(path, bytes));
            Color color;
            REQUIRE(color.Read(path));
            Plane twoSteps, gray;
            REQUIRE(ZEKColorToGray(&color.Red, &color.Green, &color.Blue, &twoSteps));
            REQUIRE(ZEKReadGrayBmp(Narrow(path), &gray));
            REQUIRE(HasSize(gray, width, 60));
            CHECK(SamePixels(gray, twoSteps));
            CHECK(gray.Ptr2D[59][width - 1] == GrayOf(PixelOf(bytes, width - 1, 59, bits == 8 ? 0 : 2),
                                                      PixelOf(bytes, width - 1, 59, bits == 8 ? 0 : 1),
                                                      PixelOf(bytes, width - 1, 59, 0)));
        }
    }
}

TEST_CASE("a gray file read as gray loses one level at 65 of the 256 levels")
{
    const TempFolder folder;
    Plane            levels, gray;
    levels.Allocate(256, 1);
    for (int v = 0; v < 256; ++v)
        levels.Ptr1D[v] = static_cast<unsigned char>(v);
    REQUIRE_FALSE(SavedGray(folder, levels).empty());
    std::string path = folder.Path("saved-gray.bmp");
    REQUIRE(ZEKReadGrayBmp(Narrow(path), &gray));
    REQUIRE(HasSize(gray, 256, 1));
    int lowered = 0;
    for (int v = 0; v < 256; ++v) {
        CHECK(gray.Ptr1D[v] == GrayOf(v, v, v));
        lowered += gray.Ptr1D[v] == v - 1 ? 1 : 0;
    }
    CHECK(lowered == 65);
    CHECK(gray.Ptr1D[1] == 0);
    CHECK(gray.Ptr1D[2] == 1);
    CHECK(gray.Ptr1D[3] == 3);
    CHECK(gray.Ptr1D[255] == 255);
}

TEST_CASE("the gray of a color is truncated")
{
    Plane               red, green, blue, gray;
    const unsigned char colors[][3] = {{1, 1, 1}, {2, 2, 2},   {3, 3, 3},   {255, 255, 255},
                                       {0, 0, 1}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}};
    const unsigned char expected[] = {0, 1, 3, 255, 0, 76, 149, 29};
    const int           count = 8;
    for (Plane* plane : {&red, &green, &blue})
        plane->Allocate(count, 1);
    for (int i = 0; i < count; ++i) {
        red.Ptr1D[i] = colors[i][0];
        green.Ptr1D[i] = colors[i][1];
        blue.Ptr1D[i] = colors[i][2];
    }
    CHECK(ZEKColorToGray(&red, &green, &blue, &gray));
    REQUIRE(HasSize(gray, count, 1));
    for (int i = 0; i < count; ++i) {
        CAPTURE(i);
        CHECK(gray.Ptr1D[i] == expected[i]);
        CHECK(GrayOf(colors[i][0], colors[i][1], colors[i][2]) == expected[i]);
    }
}

TEST_CASE("a save over an older file of any length leaves the bytes of a new file")
{
    const TempFolder folder;
    std::mt19937     random(20);
    Plane            gray;
    FillRandom(gray, 5, 4, random);
    const Bytes expected = SavedGray(folder, gray);
    const Bytes expectedColor = SavedColor(folder, gray, gray, gray);
    REQUIRE(expected.size() == 1078 + 32);
    REQUIRE(expectedColor.size() == 54 + 64);
    for (const std::size_t difference : {0, 1, 1000}) {
        CAPTURE(difference);
        REQUIRE(WriteBytes(folder.Path("saved-gray.bmp"), Bytes(expected.size() + difference, 0xEE)));
        CHECK(SavedGray(folder, gray) == expected);
        REQUIRE(WriteBytes(folder.Path("saved-gray.bmp"), Bytes(expected.size() - difference, 0xEE)));
        CHECK(SavedGray(folder, gray) == expected);
        REQUIRE(WriteBytes(folder.Path("saved-color.bmp"), Bytes(expectedColor.size() + difference, 0xEE)));
        CHECK(SavedColor(folder, gray, gray, gray) == expectedColor);
    }
}

TEST_CASE("the layout of a picture follows from its size and depth")
{
    const struct {
        int Bits, LineBytes, PixelBytes, Entries;
    } cases[] = {{8, 8, 1, 256}, {24, 16, 3, 0}, {32, 20, 4, 0}};
    for (const auto& one : cases) {
        CAPTURE(one.Bits);
        ATL::CImage image;
        REQUIRE(image.Create(5, 3, one.Bits));
        IMAGEPARAMENT params;
        GetImageParament(&image, &params);
        CHECK(params.Width == 5);
        CHECK(params.Height == 3);
        CHECK(params.BitCount == one.Bits);
        CHECK(params.BytesPerLine == one.LineBytes);
        CHECK(params.BytesPerPixel == one.PixelBytes);
        CHECK(params.PaletteEntries == one.Entries);
        CHECK(params.ImageBytes == 3 * one.LineBytes);
    }
}

TEST_CASE("an empty picture leaves the record untouched and has no row table")
{
    ATL::CImage   image;
    IMAGEPARAMENT params;
    params.Width = 77;
    params.ImageBytes = 78;
    GetImageParament(&image, &params);
    GetImageParament(nullptr, &params);
    CHECK(params.Width == 77);
    CHECK(params.ImageBytes == 78);
    CHECK(Create2DList(&image) == nullptr);
    CHECK(Create2DList(nullptr) == nullptr);
    Release2DList(nullptr);
    REQUIRE(image.Create(1, 1, 24));
    GetImageParament(&image, nullptr);
    GetImageParament(&image, &params);
    CHECK(params.Width == 1);
}

TEST_CASE(
    "the row table of a picture starts with its top row in either storage order and leaves the picture alone")
{
    for (const int height : {3, -3}) {
        CAPTURE(height);
        ATL::CImage image;
        REQUIRE(image.Create(4, height, 24));
        unsigned char** const rows = Create2DList(&image);
        REQUIRE(rows != nullptr);
        CHECK(rows[0] == image.GetBits());
        CHECK(rows[1] == rows[0] + image.GetPitch());
        CHECK(rows[2] == rows[1] + image.GetPitch());
        CHECK((image.GetPitch() < 0) == (height > 0));
        for (int y = 0; y < 3; ++y)
            std::memset(rows[y], 10 + y, 12);
        Release2DList(rows);
        CHECK_FALSE(image.IsNull());
        CHECK(static_cast<unsigned char*>(image.GetBits())[0] == 10);
    }
}
