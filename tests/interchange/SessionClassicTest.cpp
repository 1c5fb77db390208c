// Sessions of canvases that a host with a window has: their images come by the canvas calls, and they take
// objects of both interfaces.

#include "interchange/CanvasContent.h"
#include "interchange/RandomCanvas.h"
#include "support/HostCanvas.h"
#include "support/OpenCanvas.h"
#include "support/TempFolder.h"

namespace {

constexpr int Width = 90;
constexpr int Height = 70;

// The layout that a person chooses for a file without a header.
TessikDialogs Answering(int dataType, std::uint32_t header)
{
    TessikDialogs dialogs = CancelledDialogs();
    dialogs.ImaLoadPara = [=](tagZEKImaLoadPara& layout) {
        layout = tagZEKImaLoadPara();
        layout.Width = Width;
        layout.Height = Height;
        layout.DataType = dataType;
        layout.HeaderBytes = header;
        return true;
    };
    return dialogs;
}

void WriteFiles(const TempFolder& folder)
{
    const OpenCanvas painter(Width, Height);
    ShowFloats(painter.Number, Width, Height, [](int x, int y) { return x * 1.5 - y; });
    REQUIRE(vostel_picture_save(painter.Number, folder.Path("gray.bmp").c_str(), 1.0, 0) == VOSTEL_OK);
    REQUIRE(vostel_contrast_map(painter.Number, "fire") == VOSTEL_OK);
    REQUIRE(vostel_picture_save(painter.Number, folder.Path("colors.png").c_str(), 1.0, 0) == VOSTEL_OK);
    std::vector<unsigned char> bytes(6 + 4 * Width * Height);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(i * 37 >> 3 & 0x7F);
    REQUIRE(WriteBytes(folder.Path("deep.raw"), bytes));
}

void Read(int canvas, const TempFolder& folder, const char* name)
{
    CString path = folder.WidePath(name);
    gCVSReadFile(canvas, path, true);
    REQUIRE(gCVSGetCanvasWidth(canvas) == Width);
}

bool IsFromMemory(unsigned which)
{
    return which < 2;
}

// Each paint lets the box of an angle's caption grow that has no place yet.
bool HasAngle(int canvas)
{
    const vostel::CanvasCall call(canvas);
    return std::any_of(call->Elements.begin(), call->Elements.end(), [](const vostel::VostelObj* object) {
        return !object->OpenMade &&
               (object->TypeCode == VOSTEL_ANGLE || object->TypeCode == VOSTEL_ANGLE_LINES);
    });
}

// The largest difference of a component. Floats that the canvas calls show change by one level of gray when a
// contrast of the other interface has come and gone.
int MostBetween(const Frame& a, const Frame& b)
{
    int most = 0;
    for (std::size_t i = 0; i < a.Pixels.size(); ++i) {
        for (const int shift : {0, 8, 16})
            most = std::max(most, std::abs(static_cast<int>(a.Pixels[i] >> shift & 0xFF) -
                                           static_cast<int>(b.Pixels[i] >> shift & 0xFF)));
    }
    return most;
}

void ShowImage(int canvas, unsigned which, const TempFolder& folder)
{
    ClassData2DIO<unsigned char> gray;
    ClassData2DIO<float>         floats;
    FillPlane(gray, Width, Height, [](int x, int y) { return x + y; });
    FillPlane(floats, Width, Height, [](int x, int y) { return 3.5f * static_cast<float>(x - y); });
    if (which == 0)
        gCVSShowUCGray(canvas, gray, true);
    else if (which == 1)
        gCVSShowRawFloat(canvas, floats, true, true);
    else if (which == 2)
        Read(canvas, folder, "colors.png");
    else if (which == 3)
        Read(canvas, folder, "gray.bmp");
    else
        Read(canvas, folder, "deep.raw");
}

}

TEST_CASE("canvases of a host at random come back to the bit, and show the same")
{
    const TempFolder  folder;
    const std::string path = folder.Path("s.vostel.json");
    WriteFiles(folder);
    HostCanvas        first(3, 120, 90);
    HostCanvas        second(4, 120, 90);
    const TestDialogs dialogs(Answering(0, 6));
    for (unsigned seed = 0; seed < VOSTEL_SESSION_ROUNDS / 20; ++seed) {
        CAPTURE(seed);
        const unsigned which = seed % 4;
        ShowImage(3, which, folder);
        RandomCanvas(3, seed).Change();
        ShowImage(4, IsFromMemory(which) ? which : 0, folder);
        REQUIRE(WriteText(path, SessionOf(3, path)));
        const VostelStatus opened =
            vostel_session_open(4, path.c_str(), IsFromMemory(which) ? VOSTEL_SESSION_ON_IMAGE : 0);
        REQUIRE_MESSAGE(opened == VOSTEL_OK, vostel_last_message());
        CHECK(std::string(vostel_last_message()) == "");
        CHECK(FirstDifference(ContentOf(3), ContentOf(4)) == "");
        first.Move(10, 10);
        second.Move(10, 10);
        if (!HasAngle(3))
            CHECK(MostBetween(first.PaintAndCapture(), second.PaintAndCapture()) <= (which == 1 ? 1 : 0));
    }
    for (const int canvas : {3, 4}) {
        vostel_canvas_set_language(canvas, "zh");
        vostel_set_scale(canvas, 1.0, "px");
        vostel_view_set_smooth(canvas, 1);
    }
}

TEST_CASE("files without a header come back with the values that the canvas calls made of them")
{
    const TempFolder  folder;
    const std::string path = folder.Path("s.vostel.json");
    WriteFiles(folder);
    const HostCanvas first(1, 120, 90);
    const HostCanvas second(2, 120, 90);
    for (const int type : {0, 1, 2, 3}) {    // 16 bits, float, signed, 8 bits
        CAPTURE(type);
        const TestDialogs dialogs(Answering(type, 6));
        Read(1, folder, "deep.raw");
        REQUIRE(vostel_session_save(1, path.c_str(), 0) == VOSTEL_OK);
        REQUIRE(vostel_session_open(2, path.c_str(), 0) == VOSTEL_OK);
        CHECK(std::string(vostel_last_message()) == "");
        for (const CPoint at : {CPoint(20, 15), CPoint(60, 45), CPoint(99, 70)})
            CHECK(gCVSGetImaPixelValue(1, at) == gCVSGetImaPixelValue(2, at));
    }
}

TEST_CASE("a file that is shorter than its layout, and values that were not kept, come from memory")
{
    const TempFolder  folder;
    const std::string path = folder.Path("s.vostel.json");
    WriteFiles(folder);
    const HostCanvas  host(1, 120, 90);
    const TestDialogs dialogs(Answering(1, 60));
    const auto        opens = [&](bool keepOriginal) {
        CString raw = folder.WidePath("deep.raw");
        gCVSReadFile(1, raw, keepOriginal);
        REQUIRE(vostel_session_save(1, path.c_str(), 0) == VOSTEL_OK);
        return vostel_session_open(1, path.c_str(), 0);
    };
    CHECK(opens(true) == VOSTEL_NO_IMAGE);
    const TestDialogs fitting(Answering(1, 6));
    CHECK(opens(false) == VOSTEL_NO_IMAGE);
    CHECK(opens(true) == VOSTEL_OK);
}
