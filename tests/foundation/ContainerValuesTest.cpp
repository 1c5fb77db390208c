#include <VostelObj.h>

#include "support/HostCanvas.h"
#include "support/Planes.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <new>
#include <random>
#include <type_traits>

namespace {

using Bytes = std::vector<unsigned char>;

template <typename T>
Bytes BytesOf(const std::vector<T>& values)
{
    Bytes bytes(values.size() * sizeof(T));
    std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
}

// The reflection step by step.
int Mirrored(long long c, long long extent)
{
    if (c < 0)
        c = -c - 1;
    while (c >= 2 * extent)
        c -= 2 * extent;
    if (c >= extent)
        c = 2 * extent - 1 - c;
    return static_cast<int>(c);
}

float ConvertedOne(short value, float offset)
{
    ClassData2DIO<short> source;
    source.Allocate(1, 1);
    source.Ptr1D[0] = value;
    ClassData2DIO<unsigned short> target;
    target.ConvertFrom(source, offset);
    return target.Ptr1D[0];
}

unsigned short ConvertedFloat(float value, float offset = 0.0f)
{
    ClassData2DIO<float> source;
    source.Allocate(1, 1);
    source.Ptr1D[0] = value;
    ClassData2DIO<unsigned short> target;
    target.ConvertFrom(source, offset);
    return target.Ptr1D[0];
}

}

TEST_CASE("MirrorValue repeats the edge sample")
{
    ClassData2DIO<unsigned char> data;
    Number(data, 4, 3);
    const auto at = [&](int x, int y) { return data.MirrorValue(PointTemplateBase<int>(x, y)); };
    CHECK(at(2, 1) == data.Ptr2D[1][2]);
    CHECK(at(-1, -1) == data.Ptr2D[0][0]);
    CHECK(at(-2, 0) == data.Ptr2D[0][1]);
    CHECK(at(4, 3) == data.Ptr2D[2][3]);
    CHECK(at(5, 0) == data.Ptr2D[0][2]);
    CHECK(at(8, 0) == data.Ptr2D[0][0]);
    CHECK(at(-8, 0) == data.Ptr2D[0][0]);
    CHECK(at(-9, 0) == data.Ptr2D[0][0]);
}

TEST_CASE("MirrorValue equals the reflection done step by step")
{
    for (const int width : {1, 2, 3, 7}) {
        for (const int height : {1, 2, 5}) {
            ClassData2DIO<unsigned char> data;
            Number(data, width, height);
            for (int y = -3 * height; y <= 3 * height; ++y) {
                for (int x = -3 * width; x <= 3 * width; ++x) {
                    CAPTURE(x);
                    CAPTURE(y);
                    REQUIRE(data.MirrorValue(PointTemplateBase<int>(x, y)) ==
                            data.Ptr2D[Mirrored(y, height)][Mirrored(x, width)]);
                }
            }
        }
    }
}

TEST_CASE("MirrorValue finds the farthest coordinates without walking there")
{
    ClassData2DIO<unsigned char> data;
    Number(data, 1, 1);
    // Step by step a one-pixel image would take a thousand million steps for each of these.
    for (int i = 0; i < 100000; ++i) {
        REQUIRE(data.MirrorValue(PointTemplateBase<int>(INT_MAX - i, INT_MIN + i)) == 0);
        REQUIRE(data.MirrorValue(PointTemplateBase<int>(INT_MIN + i, INT_MAX - i)) == 0);
    }
    Number(data, 3, 2);
    CHECK(data.MirrorValue(PointTemplateBase<int>(INT_MAX, 0)) == data.Ptr2D[0][Mirrored(INT_MAX % 6, 3)]);
    CHECK(data.MirrorValue(PointTemplateBase<int>(INT_MIN, 0)) == data.Ptr2D[0][Mirrored(INT_MAX % 6, 3)]);
    CHECK(data.MirrorValue(PointTemplateBase<int>(0, INT_MIN)) == data.Ptr2D[Mirrored(INT_MAX % 4, 2)][0]);
}

TEST_CASE("MirrorValue of a container without elements is 0")
{
    ClassData2DIO<unsigned char> data;
    CHECK(data.MirrorValue(PointTemplateBase<int>(0, 0)) == 0);
    data.Allocate(0, 0);
    CHECK(data.MirrorValue(PointTemplateBase<int>(3, -3)) == 0);
    data.Release();
    CHECK(data.MirrorValue(PointTemplateBase<int>(0, 0)) == 0);
    CHECK_THROWS_AS(data.Allocate(65536, 65536), std::bad_alloc);    // a size without arrays
    CHECK(data.MirrorValue(PointTemplateBase<int>(0, 0)) == 0);
    Number(data, 1, 1);
    data.Ptr1D[0] = 9;
    CHECK(data.MirrorValue(PointTemplateBase<int>(0, 0)) == 9);
}

TEST_CASE("NormalizeSum divides by the sum of all elements")
{
    ClassData2DIO<float> kernel;
    kernel.Allocate(2, 2);
    const float values[] = {1.0f, 2.0f, 3.0f, 2.0f};
    std::memcpy(kernel.Ptr1D, values, sizeof values);
    kernel.NormalizeSum();
    CHECK(kernel.Ptr1D[0] == 0.125f);
    CHECK(kernel.Ptr1D[1] == 0.25f);
    CHECK(kernel.Ptr1D[2] == 0.375f);
    CHECK(kernel.Ptr1D[3] == 0.25f);
}

TEST_CASE("NormalizeSum adds in float, row by row, and divides")
{
    const unsigned seed = 4711;
    CAPTURE(seed);
    std::mt19937                          random(seed);
    std::uniform_real_distribution<float> values(-1.0f, 3.0f);
    ClassData2DIO<float>                  kernel, reference;
    kernel.Allocate(31, 17);
    for (int i = 0; i < 31 * 17; ++i)
        kernel.Ptr1D[i] = values(random);
    reference = kernel;
    volatile float sum = 0.0f;
    for (int y = 0; y < 17; ++y) {
        for (int x = 0; x < 31; ++x)
            sum = sum + reference.Ptr2D[y][x];
    }
    kernel.NormalizeSum();
    for (int i = 0; i < 31 * 17; ++i) {
        CAPTURE(i);
        REQUIRE(kernel.Ptr1D[i] == reference.Ptr1D[i] / sum);
    }
}

TEST_CASE("NormalizeSum leaves a kernel alone whose sum is not above 1e-10 in magnitude")
{
    ClassData2DIO<float> kernel;
    kernel.Allocate(2, 1);
    const auto first = [&](float a, float b) {
        kernel.Ptr1D[0] = a;
        kernel.Ptr1D[1] = b;
        kernel.NormalizeSum();
        return kernel.Ptr1D[0];
    };
    CHECK(first(0.0f, 0.0f) == 0.0f);
    CHECK(first(1.0f, -1.0f) == 1.0f);
    CHECK(first(9e-11f, 0.0f) == 9e-11f);
    CHECK(first(-9e-11f, 0.0f) == -9e-11f);
    CHECK(first(1e-10f, 0.0f) == 1.0f);    // as a float a little above the limit
    CHECK(first(2e-10f, 0.0f) == 1.0f);
    CHECK(first(-2.0f, 0.0f) == 1.0f);
    CHECK(first(3.0f, std::nanf("")) == 3.0f);
    CHECK(std::isnan(first(std::numeric_limits<float>::infinity(), 0.0f)));
}

TEST_CASE("NormalizeSum of a container without elements does nothing")
{
    ClassData2DIO<float> kernel;
    kernel.NormalizeSum();
    CheckEmpty(kernel, 0);
    kernel.Release();
    kernel.NormalizeSum();
    CheckEmpty(kernel, -1);
}

TEST_CASE("GetMinMax finds the extremes wherever they stand")
{
    float low = 0.0f;
    float high = 0.0f;
    for (int at = 0; at < 6; ++at) {
        StructData2D<float>  plain;
        ClassData2DIO<float> data;
        data.Allocate(3, 2);
        for (int i = 0; i < 6; ++i)
            data.Ptr1D[i] = 0.0f;
        data.Ptr1D[at] = -5.0f;
        data.Ptr1D[(at + 1) % 6] = 8.0f;
        data.GetMinMax(low, high);
        CHECK(low == -5.0f);
        CHECK(high == 8.0f);
        plain.Ptr1D = data.Ptr1D;
        plain.Ptr2D = data.Ptr2D;
        plain.Width = 3;
        plain.Height = 2;
        low = high = 0.0f;
        plain.GetMinMax(low, high);    // plain data has it too
        CHECK(low == -5.0f);
        CHECK(high == 8.0f);
    }
}

TEST_CASE("GetMinMax starts at the first element, so that a NaN there stays and one elsewhere is passed over")
{
    float                low = 0.0f;
    float                high = 0.0f;
    ClassData2DIO<float> data;
    data.Allocate(3, 1);
    const float nan = std::nanf("");
    const float inside[] = {1.0f, nan, 2.0f};
    std::memcpy(data.Ptr1D, inside, sizeof inside);
    data.GetMinMax(low, high);
    CHECK(low == 1.0f);
    CHECK(high == 2.0f);
    data.Ptr1D[0] = nan;
    data.GetMinMax(low, high);
    CHECK(std::isnan(low));
    CHECK(std::isnan(high));
}

TEST_CASE("GetMinMax of a container without elements is 0, 0")
{
    float                low = 7.0f;
    float                high = 7.0f;
    ClassData2DIO<float> data;
    data.GetMinMax(low, high);
    CHECK(low == 0.0f);
    CHECK(high == 0.0f);
}

TEST_CASE("ConvertFrom to float adds the offset to every element")
{
    ClassData2DIO<unsigned short> words;
    ClassData2DIO<short>          shorts;
    ClassData2DIO<unsigned char>  bytes;
    Number(words, 3, 2);
    Number(shorts, 3, 2);
    Number(bytes, 3, 2);
    words.Ptr1D[5] = 65535;
    shorts.Ptr1D[5] = -32768;
    bytes.Ptr1D[5] = 255;
    ClassData2DIO<float> a, b, c;
    a.ConvertFrom(words, 0.5f);
    b.ConvertFrom(shorts, -1.25f);
    c.ConvertFrom(bytes, 1000.0f);
    CHECK(a.Width == 3);
    CHECK(a.Height == 2);
    CHECK(a.Ptr2D[1][1] == 4.5f);
    CHECK(a.Ptr2D[1][2] == 65535.5f);
    CHECK(b.Ptr2D[1][1] == 2.75f);
    CHECK(b.Ptr2D[1][2] == -32769.25f);
    CHECK(c.Ptr2D[1][1] == 1004.0f);
    CHECK(c.Ptr2D[1][2] == 1255.0f);
}

TEST_CASE("ConvertFrom forms its sum in 32-bit float")
{
    ClassData2DIO<unsigned short> words;
    words.Allocate(1, 1);
    words.Ptr1D[0] = 1;
    ClassData2DIO<float> sum;
    sum.ConvertFrom(words, 16777216.0f);
    CHECK(sum.Ptr1D[0] == 16777216.0f);    // in double it would be 16777217, and then round
    CHECK(ConvertedFloat(0.99999997f, 1.0f) == 2);
}

TEST_CASE("ConvertFrom to 16 bits moves the range of a short by 32768")
{
    CHECK(ConvertedOne(-32768, 32768.0f) == 0.0f);
    CHECK(ConvertedOne(0, 32768.0f) == 32768.0f);
    CHECK(ConvertedOne(32767, 32768.0f) == 65535.0f);
    CHECK(ConvertedOne(-1, 0.0f) == 65535.0f);
    CHECK(ConvertedOne(7, -0.5f) == 6.0f);
}

TEST_CASE("ConvertFrom to 16 bits truncates towards zero and keeps the low bits")
{
    CHECK(ConvertedFloat(0.999f) == 0);
    CHECK(ConvertedFloat(-0.5f) == 0);
    CHECK(ConvertedFloat(-1.0f) == 65535);
    CHECK(ConvertedFloat(-1.9f) == 65535);
    CHECK(ConvertedFloat(65535.9f) == 65535);
    CHECK(ConvertedFloat(65536.0f) == 0);
    CHECK(ConvertedFloat(65537.5f) == 1);
    CHECK(ConvertedFloat(-65537.0f) == 65535);
    CHECK(ConvertedFloat(2147483520.0f) == 65408);    // the largest float below 2^31
    CHECK(ConvertedFloat(3e9f) == 0);    // beyond 32 bits: the lowest integer, whose low bits are 0
    CHECK(ConvertedFloat(-3e9f) == 0);
    CHECK(ConvertedFloat(std::nanf("")) == 0);
    CHECK(ConvertedFloat(std::numeric_limits<float>::infinity()) == 0);
    CHECK(ConvertedFloat(5.0f, 0.75f) == 5);
}

TEST_CASE("ConvertFrom takes bytes to 16 bits")
{
    ClassData2DIO<unsigned char> bytes;
    bytes.Allocate(256, 1);
    for (int i = 0; i < 256; ++i)
        bytes.Ptr1D[i] = static_cast<unsigned char>(i);
    ClassData2DIO<unsigned short> words;
    words.ConvertFrom(bytes, 0.0f);
    for (int i = 0; i < 256; ++i)
        CHECK(words.Ptr1D[i] == i);
}

TEST_CASE("ConvertFrom leaves region and source as they were")
{
    ClassData2DIO<short> source;
    Number(source, 2, 2);
    ClassData2DIO<float> target;
    target.ConvertFrom(source, 1.0f);
    CHECK(RegionIs(target, 0, 0, 0, 0));
    CHECK(source.Ptr1D[3] == 3);
    ClassData2DIO<float> empty;
    ClassData2DIO<short> nothing;
    empty.ConvertFrom(nothing, 1.0f);
    CHECK(empty.Ptr1D != nullptr);
    CHECK(empty.Width == 0);
}

TEST_CASE("ReadFile fills the buffer from an offset on")
{
    const TempFolder folder;
    const auto       shortPath = folder.Path("shorts.raw");
    const auto       floatPath = folder.Path("floats.raw");
    const auto       bytePath = folder.Path("bytes.raw");
    REQUIRE(WriteBytes(shortPath, BytesOf<short>({1, -2, 3, -4, 5, 6, 7})));
    REQUIRE(WriteBytes(floatPath, BytesOf<float>({1.5f, -2.5f, 3.5f, 4.5f, 5.5f})));
    REQUIRE(WriteBytes(bytePath, {9, 8, 7, 6, 5, 4, 3}));
    TestDesktop desktop;

    ClassData2DIO<short> shorts;
    shorts.Allocate(2, 2);
    shorts.ReadFile(shortPath.c_str(), 2);
    CHECK(shorts.Ptr2D[0][0] == -2);
    CHECK(shorts.Ptr2D[1][1] == 5);

    ClassData2DIO<float> floats;
    floats.Allocate(2, 2);
    floats.ReadFile(floatPath.c_str(), 4);
    CHECK(floats.Ptr2D[0][0] == -2.5f);
    CHECK(floats.Ptr2D[1][1] == 5.5f);

    ClassData2DIO<unsigned char> bytes;
    bytes.Allocate(3, 2);
    bytes.ReadFile(bytePath.c_str());
    CHECK(bytes.Ptr2D[0][0] == 9);
    CHECK(bytes.Ptr2D[1][2] == 4);
    CHECK(desktop.Messages.empty());
}

TEST_CASE("ReadFile at an odd offset takes the bytes as they stand there")
{
    const TempFolder folder;
    const auto       path = folder.Path("odd.raw");
    REQUIRE(WriteBytes(path, {0xFF, 0x34, 0x12, 0x78, 0x56}));
    ClassData2DIO<short> data;
    data.Allocate(2, 1);
    data.ReadFile(path.c_str(), 1);
    CHECK(data.Ptr1D[0] == 0x1234);
    CHECK(data.Ptr1D[1] == 0x5678);
}

TEST_CASE("ReadFile of a short file keeps the old contents of the tail")
{
    const TempFolder folder;
    const auto       path = folder.Path("short.raw");
    REQUIRE(WriteBytes(path, BytesOf<short>({70, 71, 72})));
    TestDesktop          desktop;
    ClassData2DIO<short> data;
    Number(data, 3, 2);
    data.ReadFile(path.c_str(), 0);
    const short expected[] = {70, 71, 72, 3, 4, 5};
    CHECK(std::memcmp(data.Ptr1D, expected, sizeof expected) == 0);

    ClassData2DIO<unsigned char> bytes;
    Number(bytes, 4, 2);
    bytes.ReadFile(path.c_str());
    const unsigned char expectedBytes[] = {70, 0, 71, 0, 72, 0, 6, 7};
    CHECK(std::memcmp(bytes.Ptr1D, expectedBytes, sizeof expectedBytes) == 0);
    CHECK(desktop.Messages.empty());
}

TEST_CASE("ReadFile from the end of a file on, or beyond it, leaves the data alone without a word")
{
    const TempFolder folder;
    const auto       path = folder.Path("end.raw");
    REQUIRE(WriteBytes(path, BytesOf<float>({9.0f, 9.0f})));
    TestDesktop          desktop;
    ClassData2DIO<float> data;
    for (const unsigned offset : {8u, 9u, 1000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        CAPTURE(offset);
        Number(data, 2, 2);
        data.ReadFile(path.c_str(), offset);
        CHECK(data.Ptr1D[0] == 0.0f);
        CHECK(data.Ptr1D[3] == 3.0f);
    }
    data.ReadFile(path.c_str(), 4);
    CHECK(data.Ptr1D[0] == 9.0f);
    CHECK(desktop.Messages.empty());
}

TEST_CASE("ReadFile of a missing path says so and leaves the data alone")
{
    const TempFolder     folder;
    TestDesktop          desktop;
    ClassData2DIO<short> shorts;
    Number(shorts, 2, 2);
    shorts.ReadFile(folder.Path("missing.raw").c_str(), 0);
    CHECK(desktop.Messages == std::vector<CString>{L"文件不存在"});
    CHECK(shorts.Ptr1D[3] == 3);
    CHECK(shorts.Width == 2);

    ClassData2DIO<float> floats;
    Number(floats, 2, 2);
    floats.ReadFile(folder.Path("missing.raw").c_str(), 4);
    CHECK(desktop.Messages.size() == 2);
    CHECK(floats.Ptr1D[3] == 3.0f);

    ClassData2DIO<unsigned char> bytes;
    Number(bytes, 2, 2);
    bytes.ReadFile("");
    bytes.ReadFile(nullptr);
    CHECK(desktop.Messages == std::vector<CString>(4, L"文件不存在"));
    CHECK(bytes.Ptr1D[3] == 3);
}

TEST_CASE("ReadFile of a folder reads nothing and says nothing, since the path exists")
{
    const TempFolder             folder;
    TestDesktop                  desktop;
    ClassData2DIO<unsigned char> data;
    Number(data, 2, 2);
    data.ReadFile(folder.Path().c_str());
    CHECK(desktop.Messages.empty());
    CHECK(data.Ptr1D[0] == 0);
    CHECK(data.Ptr1D[3] == 3);
}

TEST_CASE("ReadFile into a container without elements does nothing")
{
    const TempFolder folder;
    const auto       path = folder.Path("bytes.raw");
    REQUIRE(WriteBytes(path, {1, 2, 3}));
    ClassData2DIO<unsigned char> data;
    data.ReadFile(path.c_str());
    CheckEmpty(data, 0);
    data.Release();
    data.ReadFile(path.c_str());
    CheckEmpty(data, -1);
    CHECK_THROWS_AS(data.Allocate(65536, 65536), std::bad_alloc);
    data.ReadFile(path.c_str());
    CHECK(data.Ptr1D == nullptr);
}
