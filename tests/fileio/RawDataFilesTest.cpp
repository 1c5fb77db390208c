#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <cstring>
#include <doctest/doctest.h>
#include <random>

namespace {

using WordPlane = ClassData2DIO<unsigned short>;

template <typename T>
std::string WriteSamples(const TempFolder& folder, const std::vector<T>& samples)
{
    std::vector<unsigned char> bytes(samples.size() * sizeof(T));
    std::memcpy(bytes.data(), samples.data(), bytes.size());
    const std::string path = folder.Path("samples.raw");
    WriteBytes(path, bytes);
    return path;
}

std::vector<int> Values(const WordPlane& image)
{
    return std::vector<int>(image.Ptr1D, image.Ptr1D + image.Width * image.Height);
}

void Fill(WordPlane& image, int width, int height, unsigned short value)
{
    image.Allocate(width, height);
    std::fill(image.Ptr1D, image.Ptr1D + width * height, value);
}

}

TEST_CASE("floats between 0 and 65535 pass through truncated, others wrap round")
{
    TempFolder  folder;
    std::string path = WriteSamples<float>(folder, {0.0f, 1.9f, 65535.0f, -1.0f, 65536.0f, 300.5f});
    WordPlane   image;
    Fill(image, 3, 2, 9);
    const unsigned short* const buffer = image.Ptr1D;
    CHECK(ReadUsDataFloat(image, path.data(), 0.0f, 65535.0f));
    CHECK(image.Ptr1D == buffer);
    CHECK(Values(image) == std::vector<int>{0, 1, 65535, 65535, 0, 300});
}

TEST_CASE("a range below 0.0001 is refused and one turned round inverts")
{
    TempFolder  folder;
    std::string path = WriteSamples<float>(folder, {10.0f, 0.0f});
    WordPlane   image;
    Fill(image, 2, 1, 9);
    CHECK_FALSE(ReadUsDataFloat(image, path.data(), 5.0f, 5.0f));
    CHECK_FALSE(ReadUsDataFloat(image, path.data(), 0.0f, 0.00009f));
    CHECK(Values(image) == std::vector<int>{9, 9});
    CHECK(ReadUsDataFloat(image, path.data(), 10.0f, 0.0f));
    CHECK(Values(image) == std::vector<int>{0, 65535});
}

TEST_CASE("every float follows the formula, not-a-number and infinity included")
{
    TempFolder                            folder;
    std::mt19937                          random(31);
    std::uniform_real_distribution<float> values(-1e6f, 1e6f);
    std::vector<float>                    samples(40000);
    for (float& v : samples)
        v = values(random);
    samples[3] = std::numeric_limits<float>::quiet_NaN();
    samples[4] = std::numeric_limits<float>::infinity();
    samples[5] = 1e30f;
    std::string path = WriteSamples(folder, samples);
    WordPlane   image;
    Fill(image, 400, 100, 9);
    CHECK(ReadUsDataFloat(image, path.data(), -3.0f, 997.0f));
    const float k = static_cast<float>(65535.0 / 1000.0);
    int         wrong = 0;
    for (int i = 0; i < 40000; ++i) {
        const float    v = (samples[i] + 3.0f) * k;
        unsigned short expected = 0;    // the low bits of the lowest integer
        if (v > -9e18f && v < 9e18f)
            expected = static_cast<unsigned short>(static_cast<long long>(v));
        wrong += image.Ptr1D[i] != expected;
    }
    CHECK(wrong == 0);
}

TEST_CASE("shorts gain 32768 and bytes stay, in new buffers of the same size")
{
    TempFolder  folder;
    std::string path = WriteSamples<short>(folder, {-32768, 32767, 0, -1});
    WordPlane   image;
    Fill(image, 2, 2, 9);
    CHECK(ReadUsDataShort(image, path.data()));
    CHECK(Values(image) == std::vector<int>{0, 65535, 32768, 32767});
    CHECK(image.Ptr2D[1] == image.Ptr1D + 2);
    CHECK(image.Region.right == 1);
    path = WriteSamples<unsigned char>(folder, {200, 0, 255, 1});
    CHECK(ReadUsDataChar(image, path.data()));
    CHECK(Values(image) == std::vector<int>{200, 0, 255, 1});
}

TEST_CASE("a short file reads as zeros from its end on, a longer one as far as needed")
{
    TempFolder  folder;
    std::string path = WriteSamples<unsigned char>(folder, {1, 2, 3});
    WordPlane   image;
    Fill(image, 2, 2, 9);
    CHECK(ReadUsDataChar(image, path.data()));
    CHECK(Values(image) == std::vector<int>{1, 2, 3, 0});
    Fill(image, 2, 1, 9);
    CHECK(ReadUsDataChar(image, path.data()));
    CHECK(Values(image) == std::vector<int>{1, 2});
    CHECK(ReadUsDataShort(image, path.data()));    // 3 bytes: one sample and half of the next
    CHECK(image.Ptr1D[0] == 0x0201 + 32768);
    CHECK(image.Ptr1D[1] == 32768);
}

TEST_CASE("a missing file speaks once and reads as zeros, a directory reads as zeros in silence")
{
    TestDesktop desktop;
    TempFolder  folder;
    std::string missing = folder.Path("missing.raw"), directory = folder.Path();
    WordPlane   image;
    Fill(image, 2, 1, 9);
    CHECK(ReadUsDataShort(image, missing.data()));
    CHECK(desktop.Messages == std::vector<CString>{L"文件不存在"});
    CHECK(Values(image) == std::vector<int>{32768, 32768});
    CHECK(ReadUsDataChar(image, nullptr));
    CHECK(desktop.Messages.size() == 2);
    CHECK(ReadUsDataFloat(image, missing.data(), -65535.0f, 0.0f));
    CHECK(desktop.Messages.size() == 3);
    CHECK(Values(image) == std::vector<int>{65535, 65535});
    CHECK(ReadUsDataChar(image, directory.data()));
    CHECK(desktop.Messages.size() == 3);
    CHECK(Values(image) == std::vector<int>{0, 0});
}

TEST_CASE("an image without elements stays as it is")
{
    TempFolder  folder;
    std::string path = WriteSamples<unsigned char>(folder, {1, 2, 3, 4});
    WordPlane   image;
    CHECK(ReadUsDataChar(image, path.data()));
    CHECK(ReadUsDataShort(image, path.data()));
    CHECK(ReadUsDataFloat(image, path.data(), 0.0f, 1.0f));
    CHECK(image.Ptr1D == nullptr);
    image.Allocate(1, 1);
    image.Release();
    CHECK(ReadUsDataChar(image, path.data()));
    CHECK(image.Width == -1);
}

TEST_CASE("gSaveUcData writes a picture of 24 bits with row 0 at its top")
{
    TempFolder                   folder;
    ClassData2DIO<unsigned char> image;
    image.Allocate(3, 2);
    for (int i = 0; i < 6; ++i)
        image.Ptr1D[i] = static_cast<unsigned char>(40 * i);
    CString path = folder.WidePath("gray.bmp");
    CHECK(gSaveUcData(&image, path));
    const std::vector<unsigned char> file = ReadBytes(folder.Path("gray.bmp"));
    REQUIRE(file.size() == 54 + 2 * 12);
    CHECK(file[28] == 24);
    // The file begins with the bottom row.
    CHECK(file[54] == 120);
    for (int y = 0; y < 2; ++y)
        for (int i = 0; i < 9; ++i)
            CHECK(file[54 + 12 * (1 - y) + i] == image.Ptr2D[y][i / 3]);
}

TEST_CASE("gSaveUcData is silent about what it cannot write")
{
    TestDesktop                  desktop;
    TempFolder                   folder;
    ClassData2DIO<unsigned char> image;
    CString                      path = folder.WidePath("none.bmp");
    CHECK(gSaveUcData(nullptr, path));
    CHECK(gSaveUcData(&image, path));
    CHECK(ReadBytes(folder.Path("none.bmp")).empty());
    image.Allocate(1, 1);
    image.Ptr1D[0] = 1;
    CHECK(gSaveUcData(&image, path));
    CHECK_FALSE(ReadBytes(folder.Path("none.bmp")).empty());
    CString directory = folder.WidePath();
    CHECK(gSaveUcData(&image, directory));
    CString strange = folder.WidePath("x.nothing");
    CHECK(gSaveUcData(&image, strange));
    CHECK(desktop.Messages.empty());
}
