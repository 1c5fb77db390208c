// gCVSReadFile on headerless raw files. Pictures stand in PictureLoadingTest.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

enum Element : int { UShort = 0, Float = 1, Short = 2, Byte = 3 };

template <typename T>
std::vector<unsigned char> BytesOf(const std::vector<T>& values, std::size_t header = 0)
{
    std::vector<unsigned char> bytes(header, 0xEE);
    const std::size_t          size = values.size() * sizeof(T);
    bytes.resize(header + size);
    if (size > 0)
        std::memcpy(bytes.data() + header, values.data(), size);
    return bytes;
}

// A canvas whose load dialog returns Layout; Asked counts the dialogs.
struct LoadingCanvas : HostCanvas {
    TempFolder        Folder;
    tagZEKImaLoadPara Layout;
    bool              Confirmed = true;
    int               Asked = 0;
    TestDialogs       Dialogs;

    LoadingCanvas() : HostCanvas(0, 60, 40), Dialogs(Answers()) {}

    void Describe(int width, int height, int dataType, unsigned int header = 0)
    {
        Layout = tagZEKImaLoadPara();
        Layout.Width = width;
        Layout.Height = height;
        Layout.DataType = dataType;
        Layout.HeaderBytes = header;
    }
    void MapToByte(float inLow, float inHigh, float outLow, float outHigh)
    {
        Layout.MapToByte = 1;
        Layout.InLow = inLow;
        Layout.InHigh = inHigh;
        Layout.OutLow = outLow;
        Layout.OutHigh = outHigh;
    }
    template <typename T>
    void Write(const char* name, const std::vector<T>& values, std::size_t header = 0)
    {
        REQUIRE(WriteBytes(Folder.Path(name), BytesOf(values, header)));
    }
    bool Read(const char* name, bool keepOriginal = true)
    {
        CString path = Folder.WidePath(name);
        return gCVSReadFile(0, path, keepOriginal);
    }
    std::vector<float> Original() const
    {
        const ClassData2DIO<float>& ori = gCVSGetRawOri(0);
        return ori.Ptr1D ? std::vector<float>(ori.Ptr1D, ori.Ptr1D + ori.Width * ori.Height)
                         : std::vector<float>();
    }
    // Grays of the surface, top row first.
    std::vector<int> Grays() const
    {
        std::vector<int> grays;
        for (const unsigned int pixel : Surface().Pixels)
            grays.push_back(pixel == 0x010101u * (pixel & 0xFF) ? static_cast<int>(pixel & 0xFF) : -1);
        return grays;
    }

private:
    TessikDialogs Answers()
    {
        TessikDialogs dialogs;
        dialogs.ImaLoadPara = [this](tagZEKImaLoadPara& para) {
            ++Asked;
            if (Confirmed)
                para = Layout;
            return Confirmed;
        };
        return dialogs;
    }
};

}

TEST_CASE("the raw extensions in any case, nul and no extension ask for the layout; others do not")
{
    LoadingCanvas host;
    host.Describe(2, 1, Byte);
    for (const char* name : {"a.raw", "a.RAW", "a.rAw", "a.hraw", "a.HRaw", "a.his", "a.HIS", "a.nul",
                             "a.NUL", "a", "a.b.raw"}) {
        CAPTURE(name);
        host.Write(name, std::vector<unsigned char>{0, 255});
        host.Asked = 0;
        CHECK(host.Read(name));
        CHECK(host.Asked == 1);
        CHECK(gCVSGetFileType(0) == FileTypeRaw);
        CHECK(host.Original() == std::vector<float>{0.0f, 255.0f});
    }
    for (const char* name : {"a.dat", "a.raw2", "a.ra", "a.hi", "a.raw.txt", "a.xraw", "a."}) {
        CAPTURE(name);
        host.Write(name, std::vector<unsigned char>{0, 255});
        host.Asked = 0;
        CHECK(host.Read(name));
        CHECK(host.Asked == 0);
        CHECK(gCVSGetFileType(0) == FileTypeNone);
    }
}

TEST_CASE("unsigned 16-bit data is read behind its header")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned short>{0, 1, 40000, 65535, 7, 9}, 5);
    host.Describe(3, 2, UShort, 5);
    CHECK(host.Read("a.raw"));
    CHECK(host.Original() == std::vector<float>{0.0f, 1.0f, 40000.0f, 65535.0f, 7.0f, 9.0f});
    CHECK(gCVSGetCanvasWidth(0) == 3);
    CHECK(gCVSGetCanvasHeight(0) == 2);
    CHECK(host.Surface().At(0, 1) == 0xFFFFFF);
    CHECK(host.Desktop.Messages.empty());
}

TEST_CASE("float data is read behind its header")
{
    LoadingCanvas host;
    host.Write("a.his", std::vector<float>{-1.5f, 2.25f, 1e6f, 0.0f}, 100);
    host.Describe(2, 2, Float, 100);
    CHECK(host.Read("a.his"));
    CHECK(host.Original() == std::vector<float>{-1.5f, 2.25f, 1e6f, 0.0f});
}

TEST_CASE("signed 16-bit data is read behind its header")
{
    LoadingCanvas host;
    host.Write("a.hraw", std::vector<short>{-32768, 32767, -1, 0}, 2);
    host.Describe(2, 2, Short, 2);
    CHECK(host.Read("a.hraw"));
    CHECK(host.Original() == std::vector<float>{-32768.0f, 32767.0f, -1.0f, 0.0f});
}

TEST_CASE("8-bit data is read from the file's first byte whatever its header is said to be")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{1, 2, 3, 255});
    host.Describe(2, 2, Byte, 100);
    CHECK(host.Read("a.raw"));
    CHECK(host.Original() == std::vector<float>{1.0f, 2.0f, 3.0f, 255.0f});
}

TEST_CASE("an unknown element type shows nothing")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{1, 2, 3, 4});
    host.ShowFlatGray(3, 3, 100);
    for (const int type : {4, -1, INT_MAX, INT_MIN}) {
        host.Describe(2, 2, type);
        CHECK(host.Read("a.raw"));
        CHECK(gCVSGetFileType(0) == FileTypeNone);
        CHECK(gCVSGetCanvasWidth(0) == 3);    // of the surface that is still there
        CHECK(gCVSGetCanvasHeight(0) == 3);
    }
    host.Paint();
    CHECK(host.Pixel(30, 20) == 0x646464);    // the old picture
    CHECK(gCVSGetImaPixelValue(0, CPoint(30, 20)) == -1.0f);
    host.Describe(2, 2, Byte);
    CHECK(host.Read("a.raw"));
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
}

TEST_CASE("rows that a host writes by the sizes of the canvas lie on it, also after a load without elements")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{1, 2, 3, 4});
    host.ShowFlatGray(3, 3, 100);
    host.Describe(4000, 3000, 4);
    CHECK(host.Read("a.raw"));
    unsigned int** const rows = gCVSCreateCanvasPixelPtr2D(0);
    for (int y = 0; y < gCVSGetCanvasHeight(0); ++y)
        std::fill_n(rows[y], gCVSGetCanvasWidth(0), 0x123456u);
    gCVSReleaseCanvasPixelPtr2D(0);
    CHECK(FrameDifference(host.Surface(), Frame(3, 3, 0x123456)) == "");
}

TEST_CASE("a canvas has the sizes of its surface while a missing file is reported, and the file's afterwards")
{
    LoadingCanvas host;
    for (const int type : {UShort, Float, Short, Byte}) {
        CAPTURE(type);
        host.ShowFlatGray(3, 3, 100);
        int width = 0, height = 0;
        host.Desktop.OnMessage = [&] {
            width = gCVSGetCanvasWidth(0);
            height = gCVSGetCanvasHeight(0);
            CHECK(FrameDifference(host.Surface(), Frame(3, 3, 0x646464)) == "");
        };
        host.Describe(400, 300, type);
        CHECK(host.Read("missing.raw"));
        CHECK(width == 3);
        CHECK(height == 3);
        CHECK(gCVSGetCanvasWidth(0) == 400);
        CHECK(gCVSGetCanvasHeight(0) == 300);
        CHECK(FrameDifference(host.Surface(), Frame(400, 300, 0)) == "");
    }
}

TEST_CASE("a cancelled dialog leaves the old pixels and no type")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{1, 2, 3, 4});
    host.Describe(2, 2, Byte);
    host.ShowFlatGray(3, 3, 100);
    host.Confirmed = false;
    CHECK(host.Read("a.raw"));
    CHECK(host.Asked == 1);
    CHECK(gCVSGetFileType(0) == FileTypeNone);
    CHECK(gCVSGetCanvasWidth(0) == 3);
    CHECK(FrameDifference(host.Surface(), Frame(3, 3, 0x646464)) == "");
    host.Paint();
    CHECK(host.Pixel(30, 20) == 0x646464);
    host.Confirmed = true;
    CHECK(host.Read("a.raw"));
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
}

TEST_CASE("float data is kept as it came only on request")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{1, 2, 3, 4});
    host.Describe(2, 2, Byte);
    host.Read("a.raw", true);
    CHECK(host.Original().size() == 4);
    host.Read("a.raw", false);
    CHECK(host.Original().empty());
    CHECK(gCVSGetRawPtr1D(0) != nullptr);
}

TEST_CASE("a missing file is reported and shown as zeros, whatever the element type")
{
    LoadingCanvas host;
    for (const int type : {UShort, Float, Short, Byte}) {
        CAPTURE(type);
        host.Desktop.Messages.clear();
        host.Describe(4, 3, type);
        CHECK(host.Read("missing.raw"));
        REQUIRE(host.Desktop.Messages.size() == 1);
        CHECK(host.Desktop.Messages[0] == L"文件不存在");
        CHECK(gCVSGetFileType(0) == FileTypeRaw);
        CHECK(host.Original() == std::vector<float>(12, 0.0f));
        CHECK(FrameDifference(host.Surface(), Frame(4, 3, 0)) == "");
    }
}

TEST_CASE("a file that exists and cannot be opened is passed over silently")
{
    LoadingCanvas host;
    host.Folder.MakeFolder("folder.raw");    // a folder can be found, not read
    for (const int type : {UShort, Float, Short, Byte}) {
        CAPTURE(type);
        host.Describe(4, 3, type);
        CHECK(host.Read("folder.raw"));
        CHECK(host.Asked > 0);
        CHECK(host.Desktop.Messages.empty());
        CHECK(gCVSGetFileType(0) == FileTypeRaw);
        CHECK(host.Original() == std::vector<float>(12, 0.0f));
    }
}

TEST_CASE("a short file leaves zeros behind what it holds")
{
    LoadingCanvas host;
    host.Write("u.raw", std::vector<unsigned short>{5, 6, 7});
    host.Describe(3, 2, UShort);
    host.Read("u.raw");
    CHECK(host.Original() == std::vector<float>{5.0f, 6.0f, 7.0f, 0.0f, 0.0f, 0.0f});
    host.Write("f.raw", std::vector<float>{5.5f});
    host.Describe(3, 1, Float);
    host.Read("f.raw");
    CHECK(host.Original() == std::vector<float>{5.5f, 0.0f, 0.0f});
    host.Write("s.raw", std::vector<short>{-5});
    host.Describe(3, 1, Short);
    host.Read("s.raw");
    CHECK(host.Original() == std::vector<float>{-5.0f, 0.0f, 0.0f});
    host.Write("b.raw", std::vector<unsigned char>{9});
    host.Describe(3, 1, Byte);
    host.Read("b.raw");
    CHECK(host.Original() == std::vector<float>{9.0f, 0.0f, 0.0f});
}

TEST_CASE("a header longer than the file leaves zeros")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned short>{5, 6, 7, 8});
    for (const unsigned int header : {8u, 9u, 1000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        CAPTURE(header);
        host.Describe(2, 2, UShort, header);
        host.Read("a.raw");
        CHECK(host.Original() == std::vector<float>(4, 0.0f));
    }
    host.Describe(2, 2, UShort, 6);
    host.Read("a.raw");
    CHECK(host.Original() == std::vector<float>{8.0f, 0.0f, 0.0f, 0.0f});
}

TEST_CASE("a mapped load shows bytes and keeps no float data")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned short>{0, 100, 150, 200, 65535, 199});
    host.Describe(3, 2, UShort);
    host.MapToByte(100.0f, 200.0f, 50.0f, 150.0f);
    host.Read("a.raw");
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    CHECK(host.Grays() == std::vector<int>{50, 50, 100, 150, 150, 149});
    CHECK(gCVSGetRawPtr1D(0) == nullptr);
    CHECK(gCVSGetRawOriPtr1D(0) == nullptr);
    CHECK(gCVSGetImaPixelValue(0, CPoint(host.Region().left + 2, host.Region().top)) == 100.0f);
}

TEST_CASE("any value of MapToByte but 0 maps with the given limits")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{10, 20, 30});
    for (const int mapped : {1, 2, -1, INT_MIN}) {
        host.Describe(3, 1, Byte);
        host.MapToByte(10.0f, 30.0f, 0.0f, 100.0f);
        host.Layout.MapToByte = mapped;
        host.Read("a.raw");
        CHECK(host.Grays() == std::vector<int>{0, 50, 100});
    }
}

TEST_CASE("the mapping's ends are cut to 0 and 255")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{0, 100, 200});
    host.Describe(3, 1, Byte);
    host.MapToByte(0.0f, 200.0f, -5.0f, 300.0f);
    host.Read("a.raw");
    CHECK(host.Grays() == std::vector<int>{0, 127, 255});
    host.MapToByte(0.0f, 200.0f, -5.0f, 254.0f);
    host.Read("a.raw");
    CHECK(host.Grays() == std::vector<int>{0, 127, 254});
    host.MapToByte(0.0f, 200.0f, 3.0f, 300.0f);
    host.Read("a.raw");
    CHECK(host.Grays() == std::vector<int>{3, 129, 255});
}

TEST_CASE("only the low end is kept from below 0 and only the high end from above 255")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{0, 100, 200});
    host.Describe(3, 1, Byte);
    host.MapToByte(0.0f, 200.0f, 300.0f, 255.0f);    // 300 stays
    host.Read("a.raw");
    CHECK(host.Grays() == std::vector<int>{300 & 0xFF, 277 & 0xFF, 255});
    host.MapToByte(0.0f, 200.0f, 0.0f, -100.0f);    // and so does -100
    host.Read("a.raw");
    CHECK(host.Grays() == std::vector<int>{0, -50 & 0xFF, -100 & 0xFF});
}

TEST_CASE("equal input limits leave the values, whose integer parts keep their low 8 bits")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<float>{-1.5f, 255.9f, 256.0f, 1000.7f, 3e9f, std::nanf("")});
    host.Describe(6, 1, Float);
    host.MapToByte(100.0f, 100.0f, 0.0f, 255.0f);
    host.Read("a.raw");
    CHECK(host.Grays() == std::vector<int>{255, 255, 0, 1000 & 0xFF, 0, 0});
}

TEST_CASE("equal output limits leave the values too")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{7, 100, 200});
    host.Describe(3, 1, Byte);
    host.MapToByte(0.0f, 200.0f, 40.0f, 40.0f);
    host.Read("a.raw");
    CHECK(host.Grays() == std::vector<int>{7, 100, 200});
}

TEST_CASE("input limits in the wrong order clamp at their own ends, off the ramp")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{0, 50, 75, 100, 200});
    host.Describe(5, 1, Byte);
    host.MapToByte(100.0f, 50.0f, 0.0f, 200.0f);
    host.Read("a.raw");
    CHECK(host.Grays() == std::vector<int>{0, 0, 100, 200, 200});
}

TEST_CASE("limits that are not numbers are taken without a crash")
{
    LoadingCanvas host;
    const float   nan = std::nanf("");
    const float   inf = std::numeric_limits<float>::infinity();
    host.Write("a.raw", std::vector<unsigned char>{0, 100, 200});
    for (const float value : {nan, inf, -inf, 3e38f}) {
        host.Describe(3, 1, Byte);
        host.MapToByte(value, 200.0f, 0.0f, 255.0f);
        host.Read("a.raw");
        host.MapToByte(0.0f, value, 0.0f, 255.0f);
        host.Read("a.raw");
        host.MapToByte(0.0f, 200.0f, value, value);
        host.Read("a.raw");
        CHECK(gCVSGetFileType(0) == FileTypeByte);
        CHECK(host.Grays().size() == 3);
    }
}

TEST_CASE("sizes that a file cannot have show nothing and take no memory")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{1, 2, 3, 4});
    host.ShowFlatGray(3, 3, 100);
    const int sizes[][2] = {{-1, 4},          {4, -1},      {-2, -2},     {INT_MAX, INT_MAX},
                            {100000, 100000}, {INT_MIN, 1}, {0, INT_MAX}, {40000, 40000}};
    for (const auto& size : sizes) {
        for (const int type : {UShort, Float, Short, Byte}) {
            CAPTURE(size[0]);
            CAPTURE(type);
            host.Describe(size[0], size[1], type);
            CHECK(host.Read("a.raw"));
            CHECK(gCVSGetFileType(0) == FileTypeNone);
            CHECK(gCVSGetCanvasWidth(0) == 3);
        }
    }
    CHECK(FrameDifference(host.Surface(), Frame(3, 3, 0x646464)) == "");
    host.Describe(2, 2, Byte);
    host.Read("a.raw");
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
}

TEST_CASE("a missing file is reported also at a size that is not shown as zeros")
{
    LoadingCanvas host;
    host.ShowFlatGray(3, 3, 100);
    for (const int type : {int(UShort), int(Float), int(Short), int(Byte), 4}) {
        CAPTURE(type);
        host.Desktop.Messages.clear();
        host.Describe(5000, 5000, type);
        CHECK(host.Read("missing.raw"));
        CHECK(host.Desktop.Messages.size() == (type == 4 ? 0u : 1u));    // without elements no file is missed
        for (const auto& message : host.Desktop.Messages)
            CHECK(message == L"文件不存在");
        CHECK(gCVSGetFileType(0) == FileTypeNone);
        CHECK(gCVSGetCanvasWidth(0) == 3);
    }
    CHECK(FrameDifference(host.Surface(), Frame(3, 3, 0x646464)) == "");
}

TEST_CASE("a layout without pixels is an image without pixels")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{1, 2, 3, 4});
    host.Describe(0, 0, Byte);
    host.Read("a.raw");
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
    CHECK(gCVSGetCanvasWidth(0) == 0);
    host.Describe(5, 0, Float);
    host.MapToByte(0.0f, 1.0f, 0.0f, 255.0f);
    host.Read("a.raw");
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    host.Paint();
    CHECK(gCVSGetImaPixelValue(0, CPoint(1, 1)) == -1.0f);
}

TEST_CASE("a file whose name is not of this alphabet is found")
{
    LoadingCanvas host;
    host.Describe(2, 1, Byte);
    host.Write("plain.raw", std::vector<unsigned char>{4, 5});
    // Narrow names go through the system's code page; what it cannot hold is another name.
    CString path = host.Folder.WidePath() + CString(L"/nowhere/图像.raw");
    CHECK(gCVSReadFile(0, path, true));
    CHECK(host.Asked == 1);
    REQUIRE(host.Desktop.Messages.size() == 1);
    CHECK(host.Desktop.Messages[0] == L"文件不存在");
    host.Read("plain.raw");
    CHECK(host.Original() == std::vector<float>{4.0f, 5.0f});
}

TEST_CASE("empty and odd paths do not crash")
{
    LoadingCanvas host;
    host.Describe(2, 1, Byte);
    for (const wchar_t* text :
         {L"", L".", L"..", L"/", L"\\", L"no such folder/x.raw", L"x", L".raw", L"a:b:c.raw"}) {
        CString path(text);
        CHECK(gCVSReadFile(0, path, true));
    }
    CString path = host.Folder.WidePath();    // a folder without extension is not a raw file
    host.Asked = 0;
    CHECK(gCVSReadFile(0, path, true));
    CHECK(host.Asked == 0);
    CHECK(gCVSGetFileType(0) == FileTypeNone);
}

TEST_CASE("a number that names no canvas asks nobody and returns true")
{
    LoadingCanvas host;
    host.Write("a.raw", std::vector<unsigned char>{1, 2});
    host.Describe(2, 1, Byte);
    CString path = host.Folder.WidePath("a.raw");
    CHECK(gCVSReadFile(5, path, true));
    CHECK(gCVSReadFile(-1, path, true));
    CHECK(host.Asked == 0);
    CHECK(gCVSReadFile(0, path, true));
    CHECK(host.Asked == 1);
}
