#include "fileio/BmpTestFiles.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <climits>

using namespace bmp_test;

TEST_CASE("a missing file is false for color, which keeps its planes, and a 0 x 0 image for gray")
{
    const TempFolder folder;
    std::string      path = folder.Path("missing.bmp");
    Color            color;
    for (Plane* plane : {&color.Red, &color.Green, &color.Blue, &color.Alpha})
        plane->Allocate(2, 1);
    color.Red.Ptr1D[1] = 77;
    CHECK_FALSE(color.Read(path));
    CHECK(color.HasSizes(2, 1));
    CHECK(color.Red.Ptr1D[1] == 77);
    Plane gray;
    gray.Allocate(2, 1);
    CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
    CHECK(HasSize(gray, 0, 0));
}

TEST_CASE("files that cannot be created are false")
{
    const TempFolder folder;
    std::string      path = folder.Path("no-such-folder") + "/a.bmp";
    std::string      goodPath = folder.Path("a.bmp");
    Plane            plane;
    plane.Allocate(1, 1);
    plane.Ptr1D[0] = 9;
    CHECK_FALSE(ZEKSaveGrayBmp(Narrow(path), plane));
    CHECK_FALSE(ZEKSaveColorBmp(path.c_str(), &plane, &plane, &plane));
    CHECK(ZEKSaveGrayBmp(Narrow(goodPath), plane));
    CHECK(ZEKSaveColorBmp(goodPath.c_str(), &plane, &plane, &plane));
}

TEST_CASE("null paths and null planes fail without a trace")
{
    const TempFolder folder;
    std::string      path = folder.Path("a.bmp");
    Plane            plane, gray;
    plane.Allocate(1, 1);
    plane.Ptr1D[0] = 3;
    CHECK_FALSE(ZEKSaveGrayBmp(nullptr, plane));
    CHECK_FALSE(ZEKSaveColorBmp(nullptr, &plane, &plane, &plane));
    CHECK_FALSE(ZEKSaveColorBmp(path.c_str(), nullptr, &plane, &plane));
    CHECK_FALSE(ZEKSaveColorBmp(path.c_str(), &plane, nullptr, &plane));
    CHECK_FALSE(ZEKSaveColorBmp(path.c_str(), &plane, &plane, nullptr));
    CHECK(ReadBytes(path).empty());
    REQUIRE(ZEKSaveGrayBmp(Narrow(path), plane));
    Color color;
    CHECK_FALSE(ZEKReadColorBmp(nullptr, &color.Red, &color.Green, &color.Blue, &color.Alpha));
    CHECK_FALSE(ZEKReadColorBmp(Narrow(path), nullptr, &color.Green, &color.Blue, &color.Alpha));
    CHECK_FALSE(ZEKReadColorBmp(Narrow(path), &color.Red, nullptr, &color.Blue, &color.Alpha));
    CHECK_FALSE(ZEKReadColorBmp(Narrow(path), &color.Red, &color.Green, nullptr, &color.Alpha));
    CHECK_FALSE(ZEKReadColorBmp(Narrow(path), &color.Red, &color.Green, &color.Blue, nullptr));
    CHECK(color.HasSizes(0, 0));
    CHECK(ZEKReadGrayBmp(Narrow(path), nullptr));
    CHECK(ZEKReadGrayBmp(nullptr, &gray));
    CHECK(HasSize(gray, 0, 0));
    CHECK(ZEKColorToGray(&plane, &plane, nullptr, &gray));
    CHECK(ZEKColorToGray(&plane, &plane, &plane, nullptr));
    CHECK(HasSize(gray, 0, 0));
    CHECK(ZEKColorToGray(&plane, &plane, &plane, &gray));
    CHECK(HasSize(gray, 1, 1));
}

TEST_CASE("a header cut short is read, and zero from there")
{
    const TempFolder folder;
    std::string      path = folder.Path("short.bmp");
    std::mt19937     random(14);
    const Bytes      header = NoisyHeader(random, 3, 2, 24);
    for (std::size_t length = 0; length <= 54; ++length) {
        CAPTURE(length);
        REQUIRE(
            WriteBytes(path, Bytes(header.begin(), header.begin() + static_cast<std::ptrdiff_t>(length))));
        const int width = length > 18 ? 3 : 0, height = length > 22 ? 2 : 0;    // the low bytes hold it all
        Color     color;
        color.Red.Allocate(2, 2);
        CHECK(color.Read(path));
        CHECK(color.HasSizes(width, height));
        CHECK((IsClear(color.Red) && IsClear(color.Green) && IsClear(color.Blue)));
        Plane gray;
        CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
        CHECK((HasSize(gray, width, height) && IsClear(gray)));
    }
}

TEST_CASE("images without pixels are saved and read back in their size")
{
    const TempFolder folder;
    std::string      path = folder.Path("none.bmp");
    const struct {
        int Width, Height;
    } sizes[] = {{0, 0}, {0, 5}, {5, 0}, {0, 1000000}, {1000000, 0}};
    for (const auto& one : sizes) {
        CAPTURE(one.Width);
        CAPTURE(one.Height);
        Plane saved, gray;
        Color color;
        saved.Allocate(one.Width, one.Height);
        CHECK(ZEKSaveColorBmp(path.c_str(), &saved, &saved, &saved));
        CHECK(color.Read(path));
        CHECK(color.HasSizes(one.Width, one.Height));
        CHECK(ZEKSaveGrayBmp(Narrow(path), saved));
        CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
        CHECK(HasSize(gray, one.Width, one.Height));
    }
}

TEST_CASE("sizes that no bitmap has are a failed read")
{
    const TempFolder folder;
    std::string      path = folder.Path("absurd.bmp");
    std::mt19937     random(15);
    const struct {
        int Width, Height;
    } cases[] = {{0, -5},           {-5, 0},
                 {-1, 5},           {5, -1},
                 {5, INT_MIN},      {INT_MIN, 1},
                 {1, INT_MAX},      {INT_MAX, 1},
                 {0, INT_MAX},      {65536, 65536},
                 {46341, 46341},    {30000, 30000},
                 {-1, -1},          {INT_MAX, INT_MAX},
                 {INT_MIN, INT_MIN}};
    for (const int bits : {0, 1, 4, 8, 16, 24, 32, 65535}) {
        for (const auto& one : cases) {
            CAPTURE(bits);
            CAPTURE(one.Width);
            CAPTURE(one.Height);
            Bytes bytes = NoisyHeader(random, one.Width, one.Height, bits);
            bytes.resize(bytes.size() + 100, 1);
            REQUIRE(WriteBytes(path, bytes));
            Color color;
            color.Blue.Allocate(2, 2);
            CHECK_FALSE(color.Read(path));
            CHECK(color.AllEmpty());
            Plane gray;
            CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
            CHECK(HasSize(gray, 0, 0));
        }
    }
}

TEST_CASE("a file cut short reads as far as it goes and is zero from there")
{
    const TempFolder folder;
    std::string      path = folder.Path("cut.bmp");
    const unsigned   seed = 16;
    std::mt19937     random(seed);
    // With and without padding, and longer than one transfer.
    const struct {
        int Width, Height, Rounds;
    } sizes[] = {{37, 11, 60}, {36, 11, 60}, {1020, 140, 3}};
    for (const auto& size : sizes) {
        for (const int bits : {8, 24, 32}) {
            const Bytes whole = NoisyFile(random, size.Width, size.Height, bits);
            for (int round = 0; round < size.Rounds; ++round) {
                const std::size_t length = round == 0 ? 54 : 54 + random() % (whole.size() - 54);
                CAPTURE(seed);
                CAPTURE(size.Width);
                CAPTURE(bits);
                CAPTURE(length);
                const Bytes bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
                REQUIRE(WriteBytes(path, bytes));
                Color color;
                REQUIRE(color.Read(path));
                REQUIRE(color.HasSizes(size.Width, size.Height));
                CHECK(color.Holds(bytes));
                Plane gray, twoSteps;
                gray.Allocate(size.Width, size.Height);
                std::memset(gray.Ptr1D, 0x5A, static_cast<std::size_t>(size.Width) * size.Height);
                REQUIRE(ZEKReadGrayBmp(Narrow(path), &gray));
                REQUIRE(ZEKColorToGray(&color.Red, &color.Green, &color.Blue, &twoSteps));
                CHECK(SamePixels(gray, twoSteps));
            }
        }
    }
}

TEST_CASE("lost rows are allowed up to 32 MiB of a plane and its row table, or as many as are there")
{
    const TempFolder folder;
    std::string      path = folder.Path("lost.bmp");
    std::mt19937     random(17);
    Plane            gray;
    // A row of 8184 pixels and its pointer take 8192 bytes here, so that 4096 rows may be lost.
    const int width = 8192 - static_cast<int>(sizeof(unsigned char*));
    REQUIRE(WriteBytes(path, NoisyHeader(random, width, 4096, 8)));
    CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
    CHECK(HasSize(gray, width, 4096));
    REQUIRE(WriteBytes(path, NoisyHeader(random, width, 4097, 8)));
    CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
    CHECK(HasSize(gray, 0, 0));
    // One row that is there makes up for it.
    Bytes bytes = NoisyHeader(random, width, 4097, 8);
    bytes.resize(bytes.size() + static_cast<std::size_t>(width), 3);
    REQUIRE(WriteBytes(path, bytes));
    CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
    CHECK(HasSize(gray, width, 4097));
    CHECK(gray.Ptr2D[0][0] == 3);
    CHECK(gray.Ptr2D[1][0] == 0);
    // Rows of one pixel cost their pointers.
    REQUIRE(WriteBytes(path, NoisyHeader(random, 1, 16 * 1024 * 1024, 24)));
    CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
    CHECK(HasSize(gray, 0, 0));
}

TEST_CASE("a large image that has half of its rows is read, with fewer it is not")
{
    const TempFolder folder;
    std::string      path = folder.Path("half.bmp");
    std::mt19937     random(18);
    Plane            gray;
    Bytes            bytes = NoisyHeader(random, 40000, 2000, 8);
    bytes.resize(bytes.size() + 40000u * 1000u, 3);
    REQUIRE(WriteBytes(path, bytes));
    CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
    REQUIRE(HasSize(gray, 40000, 2000));
    CHECK(gray.Ptr2D[999][39999] == 3);
    CHECK(gray.Ptr2D[1000][0] == 0);
    CHECK(gray.Ptr2D[1999][39999] == 0);
    bytes.pop_back();
    REQUIRE(WriteBytes(path, bytes));
    CHECK(ZEKReadGrayBmp(Narrow(path), &gray));
    CHECK(HasSize(gray, 0, 0));
}

TEST_CASE("files with bytes changed at random are read as their header says or not at all")
{
    const TempFolder folder;
    std::string      path = folder.Path("mutated.bmp");
    const unsigned   seed = 19;
    std::mt19937     random(seed);
    const unsigned hardValues[] = {0,     1,           2,           255,         256,         4096,     30000,
                                   65535, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0x40000000u, 0x10000u, 3};
    int            readCount = 0, refusedCount = 0;
    for (int round = 0; round < 2000; ++round) {
        CAPTURE(seed);
        CAPTURE(round);
        const int depths[] = {1, 4, 8, 16, 24, 32};
        Bytes     bytes = NoisyFile(random, 1 + static_cast<int>(random() % 12),
                                    1 + static_cast<int>(random() % 9), depths[random() % 6]);
        for (int change = static_cast<int>(random() % 3); change >= 0; --change) {
            switch (random() % 4) {
            case 0:    // a size or the depth
                Put(bytes, 18 + 4 * (random() % 3), 4, hardValues[random() % 14]);
                break;
            case 1:
                bytes[14 + random() % 40] ^= static_cast<unsigned char>(1u << random() % 8);
                break;
            case 2:
                Put(bytes, 28, 2, random() % 40);
                break;
            default:
                bytes.resize(54 + random() % bytes.size());
                break;
            }
        }
        if (random() % 16 == 0)
            bytes.resize(random() % 60);
        REQUIRE(WriteBytes(path, bytes));
        Color color;
        Plane gray;
        if (color.Read(path)) {
            ++readCount;
            bytes.resize(std::max<std::size_t>(bytes.size(), 54));    // a header cut short goes on with zeros
            const int width = static_cast<int>(Get(bytes, 18, 4)),
                      height = static_cast<int>(Get(bytes, 22, 4));
            REQUIRE(color.HasSizes(width, height));
            REQUIRE(ZEKReadGrayBmp(Narrow(path), &gray));
            REQUIRE(HasSize(gray, width, height));
            if (width * height > 10000)    // zero but for their first bytes, and slow to walk through
                continue;
            REQUIRE(color.Holds(bytes));
            Plane twoSteps;
            REQUIRE(ZEKColorToGray(&color.Red, &color.Green, &color.Blue, &twoSteps));
            REQUIRE(SamePixels(gray, twoSteps));
        } else {
            ++refusedCount;
            REQUIRE(color.AllEmpty());
            REQUIRE(ZEKReadGrayBmp(Narrow(path), &gray));
            REQUIRE(HasSize(gray, 0, 0));
        }
    }
    CHECK(readCount > 500);
    CHECK(refusedCount > 200);
}

TEST_CASE("planes smaller than red count as zero where they end")
{
    const TempFolder folder;
    Plane            red, green, blue, gray;
    red.Allocate(3, 2);
    green.Allocate(2, 2);
    blue.Allocate(3, 1);
    for (Plane* plane : {&red, &green, &blue})
        std::memset(plane->Ptr1D, 200, static_cast<std::size_t>(plane->Width * plane->Height));
    const Bytes bytes = SavedColor(folder, red, green, blue);
    REQUIRE(bytes.size() == 54 + 24);
    CHECK(Bytes(bytes.begin() + 54, bytes.end()) ==
          Bytes({200, 200, 200, 200, 200, 200, 200, 0, 200, 0, 0, 0,
                 0,   200, 200, 0,   200, 200, 0,   0, 200, 0, 0, 0}));
    CHECK(ZEKColorToGray(&red, &green, &blue, &gray));
    REQUIRE(HasSize(gray, 3, 2));
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x)
            CHECK(gray.Ptr2D[y][x] == GrayOf(200, x < 2 ? 200 : 0, y < 1 ? 200 : 0));
}

TEST_CASE("empty planes are saved as files without pixels and turned into a 0 x 0 gray")
{
    const TempFolder folder;
    Plane            fresh, released, gray;
    CHECK(SavedGray(folder, fresh).size() == 1078);
    CHECK(SavedColor(folder, fresh, fresh, fresh).size() == 54);
    released.Release();
    CHECK(SavedGray(folder, released).size() == 1078);
    CHECK(SavedColor(folder, released, released, released).size() == 54);
    for (Plane* plane : {&fresh, &released}) {
        gray.Allocate(2, 2);
        CHECK(ZEKColorToGray(plane, plane, plane, &gray));
        CHECK(HasSize(gray, 0, 0));
    }
}

TEST_CASE("a gray target that is also a channel is read as zero, since allocating took its values")
{
    Plane red, green, blue;
    for (Plane* plane : {&red, &green, &blue}) {
        plane->Allocate(1, 1);
        plane->Ptr1D[0] = 100;
    }
    CHECK(ZEKColorToGray(&red, &green, &blue, &red));
    REQUIRE(HasSize(red, 1, 1));
    CHECK(red.Ptr1D[0] == GrayOf(0, 100, 100));
}
