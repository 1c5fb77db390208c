// gCVSReadFile on pictures: depths, extensions, files that are not pictures.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <random>

namespace {

void Put(std::vector<unsigned char>& bytes, unsigned int value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<unsigned char>(value >> 8 * i));
}

// A Windows bitmap of 1, 4, 8, 24 or 32 bits. valueAt(x, y), y from the top, gives an index or 0xAARRGGBB.
// The palette runs backwards, so that indices and their grays differ.
template <typename F>
std::vector<unsigned char> Bitmap(int width, int height, int depth, F&& valueAt, bool topDown = false)
{
    const int                  colors = depth <= 8 ? 1 << depth : 0;
    const int                  stride = (width * depth + 31) / 32 * 4;
    std::vector<unsigned char> bytes = {'B', 'M'};
    Put(bytes, static_cast<unsigned int>(54 + 4 * colors + stride * height), 4);
    Put(bytes, 0, 4);
    Put(bytes, static_cast<unsigned int>(54 + 4 * colors), 4);
    Put(bytes, 40, 4);
    Put(bytes, static_cast<unsigned int>(width), 4);
    Put(bytes, static_cast<unsigned int>(topDown ? -height : height), 4);
    Put(bytes, 1, 2);
    Put(bytes, static_cast<unsigned int>(depth), 2);
    for (int i = 0; i < 6; ++i)
        Put(bytes, 0, 4);
    for (int i = 0; i < colors; ++i)
        Put(bytes, 0x010101u * static_cast<unsigned int>(255 - i * 255 / (colors - 1)), 4);
    for (int row = 0; row < height; ++row) {
        const int                  y = topDown ? row : height - 1 - row;
        std::vector<unsigned char> line(static_cast<std::size_t>(stride), 0);
        for (int x = 0; x < width; ++x) {
            const unsigned int v = static_cast<unsigned int>(valueAt(x, y));
            if (depth >= 8) {
                for (int i = 0; i < depth / 8; ++i)
                    line[static_cast<std::size_t>(x * depth / 8 + i)] =
                        static_cast<unsigned char>(v >> 8 * i);
            } else {
                const int shift = 8 - depth - x * depth % 8;
                line[static_cast<std::size_t>(x * depth / 8)] |= static_cast<unsigned char>(v << shift);
            }
        }
        bytes.insert(bytes.end(), line.begin(), line.end());
    }
    return bytes;
}

unsigned int Color(int x, int y)
{
    return static_cast<unsigned int>(x * 40) << 16 | static_cast<unsigned int>(y * 50) << 8 |
           static_cast<unsigned int>(x * 7 + y * 3);
}

struct PictureCanvas : HostCanvas {
    TempFolder  Folder;
    int         Asked = 0;
    TestDialogs Dialogs;

    PictureCanvas() : HostCanvas(0, 60, 40), Dialogs(Answers()) {}

    bool Read(const std::string& name)
    {
        CString path = Folder.WidePath(name);
        return gCVSReadFile(0, path, true);
    }
    bool Read(const std::string& name, const std::vector<unsigned char>& bytes)
    {
        REQUIRE(WriteBytes(Folder.Path(name), bytes));
        return Read(name);
    }

private:
    TessikDialogs Answers()
    {
        TessikDialogs dialogs;
        dialogs.ImaLoadPara = [this](tagZEKImaLoadPara&) {
            ++Asked;
            return false;
        };
        return dialogs;
    }
};

Frame FrameOf(int width, int height, unsigned int (*wordAt)(int, int))
{
    Frame frame(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            frame.At(x, y) = wordAt(x, y);
    return frame;
}

}

TEST_CASE("a 24-bit picture shows its colors, top row first")
{
    PictureCanvas host;
    for (const int width : {1, 2, 3, 5, 6}) {
        CHECK(host.Read("a.bmp", Bitmap(width, 4, 24, Color)));
        CHECK(gCVSGetFileType(0) == FileTypeByte);
        CHECK(gCVSGetCanvasWidth(0) == width);
        CHECK(gCVSGetCanvasHeight(0) == 4);
        CHECK(FrameDifference(host.Surface(), FrameOf(width, 4, Color)) == "");
        for (int i = 0; i < width * 4; ++i)
            CHECK((gCVSGetCanvasPixelPtr(0)[i] & 0xFF000000) == 0);
    }
}

TEST_CASE("a picture stored top-down shows the same")
{
    PictureCanvas host;
    host.Read("a.bmp", Bitmap(5, 4, 24, Color, true));
    CHECK(FrameDifference(host.Surface(), FrameOf(5, 4, Color)) == "");
}

TEST_CASE("of a 32-bit picture the fourth byte is dropped")
{
    PictureCanvas host;
    host.Read("a.bmp", Bitmap(5, 4, 32, [](int x, int y) { return Color(x, y) | 0xFF000000u; }));
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    CHECK(FrameDifference(host.Surface(), FrameOf(5, 4, Color)) == "");
    for (int i = 0; i < 20; ++i)
        CHECK((gCVSGetCanvasPixelPtr(0)[i] & 0xFF000000) == 0);
}

TEST_CASE("an 8-bit picture's indices are its grays, whatever its palette says")
{
    PictureCanvas host;
    host.Read("a.bmp", Bitmap(7, 5, 8, [](int x, int y) { return 30 * y + x; }));
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    const auto expected = [](int x, int y) { return 0x010101u * static_cast<unsigned int>(30 * y + x); };
    CHECK(FrameDifference(host.Surface(), FrameOf(7, 5, expected)) == "");
}

TEST_CASE("pictures of 1 and 4 bits give a black canvas of their size and no type")
{
    PictureCanvas host;
    for (const int depth : {1, 4}) {
        CAPTURE(depth);
        host.ShowFlatGray(9, 9, 77);
        CHECK(host.Read("a.bmp", Bitmap(7, 5, depth, [](int x, int y) { return (x + y) % 2; })));
        CHECK(gCVSGetFileType(0) == FileTypeNone);
        CHECK(gCVSGetCanvasWidth(0) == 7);
        CHECK(gCVSGetCanvasHeight(0) == 5);
        CHECK(FrameDifference(host.Surface(), Frame(7, 5, 0)) == "");
        CHECK(gCVSGetImaPixelValue(0, CPoint(30, 20)) == -1.0f);
    }
}

TEST_CASE("a picture releases float data and leaves the scale")
{
    PictureCanvas host;
    host.ShowFloat(4, 4, [](int x, int) { return x; });
    host.Read("a.bmp", Bitmap(6, 4, 24, Color));
    CHECK(gCVSGetRawPtr1D(0) == nullptr);
    CHECK(gCVSGetRawOriPtr1D(0) == nullptr);
    CHECK(host.Region() == CRect(27, 18, 33, 22));
    host.ShowFloat(4, 4, [](int x, int) { return x; });
    host.Read("a.bmp", Bitmap(6, 4, 1, [](int, int) { return 0; }));
    CHECK(gCVSGetRawPtr1D(0) == nullptr);
}

TEST_CASE("pictures saved by the platform's own class come back in 24 and 32 bits")
{
    PictureCanvas host;
    for (const int depth : {24, 32}) {
        for (const char* name : {"a.bmp", "a.png", "A.PNG"}) {
            CAPTURE(depth);
            CAPTURE(name);
            {
                ATL::CImage picture;
                REQUIRE(picture.Create(5, 4, depth));
                for (int y = 0; y < 4; ++y) {
                    unsigned char* row =
                        static_cast<unsigned char*>(picture.GetBits()) + y * picture.GetPitch();
                    for (int x = 0; x < 5; ++x) {
                        for (int i = 0; i < 3; ++i)
                            row[x * depth / 8 + i] = static_cast<unsigned char>(Color(x, y) >> 8 * i);
                        if (depth == 32)
                            row[4 * x + 3] = 0xFF;
                    }
                }
                REQUIRE(picture.Save(host.Folder.WidePath(name)) >= 0);
            }
            CHECK(host.Read(name));
            CHECK(gCVSGetFileType(0) == FileTypeByte);
            CHECK(FrameDifference(host.Surface(), FrameOf(5, 4, Color)) == "");
        }
    }
    CHECK(host.Asked == 0);
}

TEST_CASE("any extension but the raw ones is tried as a picture")
{
    PictureCanvas host;
    for (const char* name : {"a.dat", "a.txt", "a.BMP", "a.anything"}) {
        CAPTURE(name);
        host.Read(name, Bitmap(5, 4, 24, Color));
        CHECK(gCVSGetFileType(0) == FileTypeByte);
        host.Read(name, {1, 2, 3, 4, 5});
        CHECK(gCVSGetFileType(0) == FileTypeNone);
    }
    CHECK(host.Asked == 0);
    host.Read("a.raw", Bitmap(5, 4, 24, Color));
    CHECK(host.Asked == 1);
}

TEST_CASE("a picture that cannot be read leaves the canvas and clears the type")
{
    PictureCanvas                                 host;
    const std::vector<unsigned char>              good = Bitmap(5, 4, 24, Color);
    const std::vector<std::vector<unsigned char>> bad = {
        {},
        {'B'},
        {'B', 'M'},
        std::vector<unsigned char>(good.begin(), good.begin() + 30),
        std::vector<unsigned char>(1000, 0),
        std::vector<unsigned char>(1000, 0xFF)};
    for (const auto& bytes : bad) {
        host.ShowFloat(9, 9, [](int x, int) { return x; });
        const Frame surface = host.Surface();
        CHECK(host.Read("bad.bmp", bytes));
        CHECK(gCVSGetFileType(0) == FileTypeNone);
        CHECK(gCVSGetCanvasWidth(0) == 9);
        CHECK(FrameDifference(host.Surface(), surface) == "");
    }
    CHECK(host.Read("missing.png"));
    CHECK(gCVSGetFileType(0) == FileTypeNone);
    CHECK(gCVSGetCanvasWidth(0) == 9);
    CHECK(host.Read("good.bmp", good));
    CHECK(gCVSGetFileType(0) == FileTypeByte);
}

TEST_CASE("damaged pictures of random bytes load or not, and harm nothing")
{
    PictureCanvas host;
    int           loaded = 0;
    int           refused = 0;
    for (unsigned int seed = 1; seed <= 150; ++seed) {
        CAPTURE(seed);
        std::mt19937               random(seed);
        const int                  depths[] = {1, 4, 8, 24, 32};
        std::vector<unsigned char> bytes =
            Bitmap(6, 5, depths[seed % 5], [&](int, int) { return static_cast<int>(random() & 1); });
        for (unsigned int i = 0; i < 1 + seed % 4; ++i)
            bytes[random() % (seed % 3 == 0 ? bytes.size() : 54)] = static_cast<unsigned char>(random());
        if (seed % 7 == 0)
            bytes.resize(random() % bytes.size());
        // A size that is claimed and not held may not cost memory; the depth bytes stay small sizes.
        CHECK(host.Read(std::to_string(seed) + ".bmp", bytes));
        ++(gCVSGetFileType(0) == FileTypeByte ? loaded : refused);
        host.Paint();
        gCVSGetImaPixelValue(0, CPoint(30, 20));
    }
    CHECK(loaded > 0);
    CHECK(refused > 0);
}

TEST_CASE("a canvas that was never given a window still reads a picture")
{
    TempFolder folder;
    HostCanvas host(0, 60, 40);
    CRect      none(0, 0, 0, 0);
    gCVSSetClient(0, none, nullptr);
    REQUIRE(WriteBytes(folder.Path("a.bmp"), Bitmap(5, 4, 24, Color)));
    CString path = folder.WidePath("a.bmp");
    CHECK(gCVSReadFile(0, path, true));
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    CHECK(FrameDifference(host.Surface(), FrameOf(5, 4, Color)) == "");
}
