// The six saves. The image fills the client area at scale 1, so that client and image pixels agree.

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <climits>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr int          Width = 200;
constexpr int          Height = 150;
constexpr unsigned int Red = 0xFF0000;

// A canvas whose user types a name into every dialog, and remembers what was asked.
struct SavingHost {
    HostCanvas                     Host{0, Width, Height};
    TempFolder                     Folder;
    std::vector<VostelFileRequest> Requests;
    CString                        Name;
    bool                           Accept = true;

    SavingHost()
    {
        Host.Desktop.ChooseFiles = [this](const VostelFileRequest& request, std::vector<CString>& paths) {
            Requests.push_back(request);
            paths.assign(1, Name);
            return Accept;
        };
    }

    // A picture in which every pixel tells its place.
    void ShowPicture()
    {
        Host.ShowGray(Width, Height, [](int x, int y) { return (x * 3 + y * 7) & 0xFF; });
        REQUIRE(Host.IsScaleOne());
        REQUIRE(Host.Region() == CRect(0, 0, Width, Height));
    }
    static unsigned int PictureWord(int x, int y)
    {
        return static_cast<unsigned int>((x * 3 + y * 7) & 0xFF) * 0x010101u;
    }
    static Frame Picture()
    {
        Frame frame(Width, Height);
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                frame.At(x, y) = PictureWord(x, y);
        return frame;
    }

    std::string Save(void (*operation)(int), const char* file)
    {
        Name = Folder.WidePath(file);
        operation(Host.Number);
        return Folder.Path(file);
    }
    bool Exists(const char* file) const { return std::filesystem::exists(Folder.Path(file)); }

    void DrawRect(CPoint from, CPoint to)
    {
        gCVSAddMRectangle(Host.Number);
        Host.Move(from.x, from.y);
        Host.Drag(from, to, MK_LBUTTON | MK_SHIFT);
        Host.Paint();    // the boxes are those of the last paint
    }
    void Deselect()
    {
        Host.Press(Width - 1, Height - 1);
        Host.Release(Width - 1, Height - 1);
    }
};

// Colours of a picture file; the depth goes to *depth. A picture with an alpha channel has to be opaque.
Frame Load(const std::string& path, int* depth = nullptr)
{
    CImage        picture;
    const HRESULT loaded = picture.Load(std::filesystem::path(path).wstring().c_str());
    CHECK(loaded >= 0);
    if (loaded < 0)
        return Frame();
    if (depth)
        *depth = picture.GetBPP();
    const int bytes = picture.GetBPP() / 8;
    CHECK(bytes >= 3);
    if (bytes < 3)
        return Frame();
    Frame frame(picture.GetWidth(), picture.GetHeight());
    for (int y = 0; y < frame.Height; ++y) {
        const unsigned char* pixel = static_cast<const unsigned char*>(picture.GetBits()) +
                                     static_cast<std::ptrdiff_t>(y) * picture.GetPitch();
        for (int x = 0; x < frame.Width; ++x, pixel += bytes)
            frame.At(x, y) = pixel[0] | pixel[1] << 8 | pixel[2] << 16;
    }
    return frame;
}

Frame Part(const Frame& whole, const CRect& box)
{
    Frame part(box.Width(), box.Height());
    for (int y = 0; y < part.Height; ++y)
        for (int x = 0; x < part.Width; ++x)
            part.At(x, y) = whole.At(box.left + x, box.top + y);
    return part;
}

int Count(const Frame& frame, unsigned int word)
{
    int count = 0;
    for (const unsigned int pixel : frame.Words)
        count += pixel == word ? 1 : 0;
    return count;
}

unsigned int Word32(const std::vector<unsigned char>& bytes, std::size_t at)
{
    unsigned int word = 0;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    return word;
}

void (*const PictureSaves[])(int) = {gCVSSaveClient, gCVSSaveImaWithOverlap, gCVSSaveNowShowIma,
                                     gCVSSave8bit};
void (*const RawSaves[])(int) = {gCVSSaveRaw, gCVSSaveLabel};

}

TEST_CASE("each save asks once, by the dialog for pictures or the one for raw planes")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.Host.Paint();
    saving.Accept = false;
    for (const auto operation : PictureSaves) {
        operation(0);
        REQUIRE(saving.Requests.size() == 1);
        const VostelFileRequest& request = saving.Requests.back();
        CHECK(request.Save);
        CHECK(request.DefaultName == L"未命名");
        CHECK(request.DefaultExtension == L"bmp");
        CHECK(request.Flags == 14);
        CHECK(request.Filter ==
              L"图像文件格式(*.bmp) |*.bmp|(*.jpg) |*.jpg|(*.gif) |*.gif|所有文件(*.*)|*.*||");
        saving.Requests.clear();
    }
    for (const auto operation : RawSaves) {
        operation(0);
        REQUIRE(saving.Requests.size() == 1);
        const VostelFileRequest& request = saving.Requests.back();
        CHECK(request.Save);
        CHECK(request.DefaultName == L"未命名");
        CHECK(request.DefaultExtension == L"raw");
        CHECK(request.Flags == 14);
        CHECK(request.Filter == L"图像文件格式(*.raw) |*.raw|(*.hraw) |*.hraw|所有文件(*.*)|*.*||");
        saving.Requests.clear();
    }
}

TEST_CASE("a cancelled dialog writes nothing, tells nothing and leaves the canvas as it was")
{
    SavingHost saving;
    saving.ShowPicture();
    const Frame before = saving.Host.PaintAndCapture();
    saving.Accept = false;
    for (const auto operation : PictureSaves)
        saving.Save(operation, "a.bmp");
    for (const auto operation : RawSaves)
        saving.Save(operation, "a.bmp");
    CHECK(saving.Requests.size() == 6);
    CHECK_FALSE(saving.Exists("a.bmp"));
    CHECK_FALSE(std::filesystem::exists("NULL"));
    CHECK(saving.Host.Desktop.Messages.empty());
    CHECK(FrameDifference(saving.Host.PaintAndCapture(), before) == "");
    // The dialog was what stopped them.
    saving.Accept = true;
    saving.Save(gCVSSaveClient, "a.bmp");
    CHECK(saving.Exists("a.bmp"));
}

TEST_CASE("a user who types NULL counts as one who cancelled")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.Name = L"NULL";
    for (const auto operation : PictureSaves)
        operation(0);
    for (const auto operation : RawSaves)
        operation(0);
    CHECK(saving.Requests.size() == 6);
    CHECK_FALSE(std::filesystem::exists("NULL"));
}

TEST_CASE("without an image the user is asked and then only the label plane is written")
{
    SavingHost saving;
    saving.Host.Paint();
    REQUIRE(gCVSGetFileType(0) == FileTypeNone);
    for (const auto operation : PictureSaves)
        saving.Save(operation, "a.bmp");
    saving.Save(gCVSSaveRaw, "a.bmp");
    CHECK(saving.Requests.size() == 5);
    CHECK_FALSE(saving.Exists("a.bmp"));
    CHECK(saving.Host.Desktop.Messages.empty());
    CHECK(ReadBytes(saving.Save(gCVSSaveLabel, "labels.raw")).empty());    // of a canvas of no size
    CHECK(saving.Exists("labels.raw"));
    CHECK(saving.Requests.size() == 6);
}

TEST_CASE("the label plane is rebuilt before its dialog is cancelled")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.Accept = false;
    REQUIRE(gCVSGetLabelIma(0).Width != Width);
    int widthAtDialog = 0;
    saving.Host.Desktop.ChooseFiles = [&](const VostelFileRequest&, std::vector<CString>&) {
        widthAtDialog = gCVSGetLabelIma(0).Width;
        return false;
    };
    saving.Save(gCVSSaveLabel, "labels.raw");
    CHECK(widthAtDialog == Width);
    CHECK(gCVSGetLabelIma(0).Ptr2D[5][5] == 1);
    CHECK_FALSE(saving.Exists("labels.raw"));
}

TEST_CASE("the client area is saved as last painted, and comes back opaque in both lossless formats")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.DrawRect(CPoint(20, 20), CPoint(60, 50));
    saving.Deselect();
    const Frame painted = saving.Host.PaintAndCapture();
    CHECK(painted.At(20, 30) == 0x0000FF);    // the outline of the rectangle, which is not selected
    for (const char* file : {"a.png", "a.bmp"}) {
        const std::string path = saving.Save(gCVSSaveClient, file);
        CHECK(FrameDifference(Load(path), painted) == "");
    }
    const std::vector<unsigned char> png = ReadBytes(saving.Folder.Path("a.png"));
    REQUIRE(png.size() > 29);
    CHECK((png[25] == 2 || png[25] == 6));    // colour type
    if (png[25] == 6) {                       // with alpha: every pixel of it has to be full
        CImage picture;
        REQUIRE(picture.Load(saving.Folder.WidePath("a.png")) >= 0);
        REQUIRE(picture.GetBPP() == 32);
        int clear = 0;
        for (int y = 0; y < Height; ++y)
            for (int x = 0; x < Width; ++x)
                clear += static_cast<const unsigned char*>(
                             picture.GetBits())[y * picture.GetPitch() + 4 * x + 3] != 255;
        CHECK(clear == 0);
    }
    const std::vector<unsigned char> bmp = ReadBytes(saving.Folder.Path("a.bmp"));
    REQUIRE(bmp.size() > 54);
    if (Word32(bmp, 28) == 32)
        CHECK(Word32(bmp, 30) == 0);    // no masks, so no alpha
    // As a host would look at them.
    for (const char* file : {"a.png", "a.bmp"}) {
        CString wide = saving.Folder.WidePath(file);
        gCVSReadFile(0, wide, false);
        CHECK(FrameDifference(saving.Host.Surface(), painted) == "");
    }
}

TEST_CASE("no repaint is forced by a save of the client area")
{
    SavingHost saving;
    saving.ShowPicture();
    const Frame before = saving.Host.PaintAndCapture();
    saving.Host.ShowFlatGray(Width, Height, 200);
    // Showing an image makes a new client surface, blank until the paint.
    CHECK(FrameDifference(Load(saving.Save(gCVSSaveClient, "a.bmp")), Frame(Width, Height)) == "");
    saving.ShowPicture();
    saving.Host.Paint();
    gCVSSetCanvasColor(0, 0x123456);
    CHECK(FrameDifference(Load(saving.Save(gCVSSaveClient, "b.bmp")), before) == "");
    saving.Host.Paint();
    CHECK(Load(saving.Save(gCVSSaveClient, "c.bmp")).At(50, 50) == 0x123456);
}

TEST_CASE("a selected rectangle crops the client area to its box of the last paint")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.DrawRect(CPoint(10, 20), CPoint(30, 40));
    const Frame painted = saving.Host.PaintAndCapture();
    const Frame saved = Load(saving.Save(gCVSSaveClient, "a.bmp"));
    CHECK(FrameDifference(saved, Part(painted, CRect(10, 20, 30, 40))) == "");
    saving.Deselect();
    CHECK(Load(saving.Save(gCVSSaveClient, "b.bmp")).Width == Width);
}

TEST_CASE("of several rectangles the first selected one of the list crops")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.DrawRect(CPoint(10, 20), CPoint(30, 40));
    saving.DrawRect(CPoint(100, 20), CPoint(110, 35));
    // A command selects the new object and leaves the ones before as they are; a press then leaves one.
    saving.Host.Press(105, 30);
    saving.Host.Release(105, 30);
    saving.Host.Paint();
    const Frame saved = Load(saving.Save(gCVSSaveClient, "a.bmp"));
    CHECK(saved.Width == 10);
    CHECK(saved.Height == 15);
    // The first one again, and with it selected a new one without a box.
    saving.Host.Press(20, 30);
    saving.Host.Release(20, 30);
    gCVSAddMRectangle(0);
    CHECK(Load(saving.Save(gCVSSaveClient, "b.bmp")).Width == 20);
}

TEST_CASE("other selected shapes crop nothing")
{
    SavingHost saving;
    saving.ShowPicture();
    TessikDialogs dialogs;
    dialogs.ImaROIRectPara = [](tagZEKImaROIRectPara& para) {
        para.RoiLeft = 10;
        para.RoiTop = 20;
        para.RoiRight = 30;
        para.RoiBottom = 40;
        return true;
    };
    const TestDialogs scope(dialogs);
    gCVSAddCustomRectangle(0);
    saving.Host.Move(0, 0);
    saving.Host.Paint();
    CHECK(Load(saving.Save(gCVSSaveClient, "a.bmp")).Width == Width);
    CHECK(Load(saving.Save(gCVSSaveNowShowIma, "b.bmp")).Width == Width);

    gCVSAddPoly(0);
    for (const CPoint& node : {CPoint(50, 50), CPoint(90, 50), CPoint(70, 90)})
        saving.Host.Drag(node, node, MK_LBUTTON | MK_SHIFT);
    saving.Host.Paint();
    CHECK(Load(saving.Save(gCVSSaveClient, "c.bmp")).Width == Width);
    CHECK(Load(saving.Save(gCVSSaveNowShowIma, "d.bmp")).Width == Width);
}

TEST_CASE("a picture of the client area that cannot be written is told, whatever stands in the way")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.Host.Paint();
    for (const auto operation : {gCVSSaveClient, gCVSSaveImaWithOverlap}) {
        for (const char* file : {"missing/a.bmp", "a.unknown", "noextension"}) {
            CAPTURE(file);
            saving.Host.Desktop.Messages.clear();
            saving.Save(operation, file);
            CHECK(saving.Host.Desktop.Messages == std::vector<CString>{L"保存图像文件失败！"});
            CHECK_FALSE(saving.Exists(file));
        }
        saving.Host.Desktop.Messages.clear();
        saving.Save(operation, "a.bmp");
        CHECK(saving.Host.Desktop.Messages.empty());
    }
}

TEST_CASE("a rectangle without a box cannot be saved from the client area, and that is told")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.Host.Paint();
    gCVSAddMRectangle(0);    // selected, but not drawn yet
    saving.Save(gCVSSaveClient, "a.bmp");
    CHECK(saving.Host.Desktop.Messages == std::vector<CString>{L"保存图像文件失败！"});
    CHECK_FALSE(saving.Exists("a.bmp"));
}

TEST_CASE("the other saves are silent about paths that cannot be written")
{
    SavingHost saving;
    saving.Host.ShowFloat(Width, Height, [](int x, int y) { return x + y; });
    saving.Host.Paint();
    for (const auto operation : {gCVSSaveNowShowIma, gCVSSave8bit, gCVSSaveRaw, gCVSSaveLabel}) {
        saving.Save(operation, "missing/a.bmp");
        saving.Save(operation, "a.bmp");
        CHECK(saving.Exists("a.bmp"));
        std::filesystem::remove(saving.Folder.Path("a.bmp"));
    }
    saving.DrawRect(CPoint(10, 20), CPoint(30, 40));
    saving.Save(gCVSSaveNowShowIma, "missing/a.bmp");
    CHECK(saving.Host.Desktop.Messages.empty());
}

TEST_CASE("the image with its overlays is the display rectangle of the client area, whatever is selected")
{
    SavingHost saving;
    saving.Host.ShowGray(100, 80, [](int x, int y) { return x + y; });
    REQUIRE(saving.Host.Region() == CRect(50, 35, 150, 115));
    saving.DrawRect(CPoint(60, 45), CPoint(90, 70));
    const Frame painted = saving.Host.PaintAndCapture();
    CHECK(FrameDifference(Load(saving.Save(gCVSSaveImaWithOverlap, "a.bmp")),
                          Part(painted, saving.Host.Region())) == "");
}

TEST_CASE("what of the image lies outside the client area comes out black")
{
    SavingHost saving;
    saving.Host.ShowFlatGray(Width, Height, 77);
    saving.Host.Pan(-50, 20);
    REQUIRE(saving.Host.Region() == CRect(-50, 20, Width - 50, Height + 20));
    saving.Host.Paint();
    Frame expected(Width, Height);
    expected.FillRect(50, 0, Width, Height - 20, 0x4D4D4D);
    CHECK(FrameDifference(Load(saving.Save(gCVSSaveImaWithOverlap, "a.bmp")), expected) == "");
}

TEST_CASE("the image as shown goes out whole at its own resolution in 24 bits, without overlays")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.DrawRect(CPoint(10, 20), CPoint(30, 40));
    saving.Deselect();
    for (const char* file : {"a.bmp", "a.png"}) {
        int depth = 0;
        CHECK(FrameDifference(Load(saving.Save(gCVSSaveNowShowIma, file), &depth), SavingHost::Picture()) ==
              "");
        CHECK(depth == 24);
    }
}

TEST_CASE("a zoomed view changes nothing of the image as shown")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.Host.Paint();
    for (int i = 0; i < 4; ++i) {
        saving.Host.Wheel(100, 75, 1);
        saving.Host.Paint();
    }
    CHECK(saving.Host.Region().Width() > Width);
    CHECK(FrameDifference(Load(saving.Save(gCVSSaveNowShowIma, "a.bmp")), SavingHost::Picture()) == "");
    const Frame overlapped = Load(saving.Save(gCVSSaveImaWithOverlap, "b.bmp"));
    CHECK(overlapped.Width == saving.Host.Region().Width());
    CHECK(overlapped.Height == saving.Host.Region().Height());
    for (int i = 0; i < 4; ++i) {
        saving.Host.Wheel(100, 75, -1);
        saving.Host.Paint();
    }
    CHECK(saving.Host.IsScaleOne());
}

TEST_CASE("a rectangle from 10,20 to 30,40 crops the image as shown to 21 by 21 pixels")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.DrawRect(CPoint(10, 20), CPoint(30, 40));
    int         depth = 0;
    const Frame saved = Load(saving.Save(gCVSSaveNowShowIma, "a.bmp"), &depth);
    CHECK(FrameDifference(saved, Part(SavingHost::Picture(), CRect(10, 20, 31, 41))) == "");
    CHECK(depth == 24);
}

TEST_CASE("a crop up to the last pixels holds them")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.DrawRect(CPoint(180, 140), CPoint(Width + 50, Height + 50));    // held at the image's edge
    CHECK(FrameDifference(Load(saving.Save(gCVSSaveNowShowIma, "a.bmp")),
                          Part(SavingHost::Picture(), CRect(180, 140, Width, Height))) == "");
}

TEST_CASE("a rectangle that is not drawn yet crops to the one pixel at 0,0")
{
    SavingHost saving;
    saving.ShowPicture();
    gCVSAddMRectangle(0);
    CHECK(FrameDifference(Load(saving.Save(gCVSSaveNowShowIma, "a.bmp")),
                          Part(SavingHost::Picture(), CRect(0, 0, 1, 1))) == "");
}

TEST_CASE("what a smaller image has left of a rectangle's box outside it is black")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.DrawRect(CPoint(100, 80), CPoint(120, 100));
    saving.Host.ShowGray(
        110, 90, [](int, int) { return 50; }, false);
    Frame expected(21, 21);
    expected.FillRect(0, 0, 10, 10, 0x323232);
    CHECK(FrameDifference(Load(saving.Save(gCVSSaveNowShowIma, "a.bmp")), expected) == "");
}

TEST_CASE("length measures are burned into a crop as a red line with their text, and only there")
{
    SavingHost saving;
    saving.Host.ShowFlatGray(Width, Height, 100);
    gCVSSetMeasureScale(0, 1.0);
    gCVSAddMeasureLine(0, 0.0);
    saving.Host.Move(20, 60);
    saving.Host.Press(20, 60, MK_LBUTTON | MK_SHIFT);
    saving.Host.Move(70, 60, MK_LBUTTON | MK_SHIFT);
    saving.Host.Paint();
    saving.Host.Release(70, 60);
    saving.Host.Paint();
    saving.Deselect();
    CHECK(Count(Load(saving.Save(gCVSSaveNowShowIma, "whole.bmp")), 0x646464) == Width * Height);

    saving.DrawRect(CPoint(10, 10), CPoint(198, 148));
    const Frame saved = Load(saving.Save(gCVSSaveNowShowIma, "crop.bmp"));
    REQUIRE(saved.Width == 189);
    for (int x = 10; x < 60; ++x)
        CHECK(saved.At(x, 50) == Red);
    CHECK(saved.At(9, 50) == 0x646464);
    CHECK(saved.At(60, 50) == 0x646464);    // a line leaves out its last pixel
    CHECK(saved.At(30, 49) == 0x646464);
    CHECK(saved.At(30, 51) == 0x646464);
    // The text starts 20 right of the second end and 20 above it, about 20 px high, on nothing.
    int inside = 0;
    for (int y = 0; y < saved.Height; ++y) {
        for (int x = 0; x < saved.Width; ++x) {
            const bool ofText = x >= 79 && y >= 28 && y < 56;
            const bool ofLine = y == 50 && x >= 10 && x < 60;
            if (saved.At(x, y) == 0x646464 || ofLine)
                continue;
            inside += ofText ? 1 : 0;
            if (!ofText)
                FAIL("a stray pixel at ", x, ", ", y);
        }
    }
    CHECK(inside > 40);
    // Whatever else is on the canvas is not burned in, and the shown image stays clean.
    CHECK(Count(saving.Host.Surface(), 0x646464) == Width * Height);
}

TEST_CASE("the ends of a burned-in measure are cut towards zero and count from the box")
{
    SavingHost saving;
    saving.Host.ShowFlatGray(Width, Height, 100);
    saving.DrawRect(CPoint(50, 50), CPoint(90, 90));
    gCVSAddMeasureLine(0, 0.0);    // without points: both ends at 0,0, which is -50,-50 of the crop
    saving.Host.Press(70, 70);
    saving.Host.Release(70, 70);
    saving.Host.Paint();
    CHECK(Count(Load(saving.Save(gCVSSaveNowShowIma, "a.bmp")), 0x646464) == 41 * 41);

    gCVSAddMeasureLine(0, 0.0);
    saving.Host.Move(10, 60);
    saving.Host.Drag(CPoint(10, 60), CPoint(199, 60), MK_LBUTTON | MK_SHIFT);    // through the crop
    saving.Host.Press(70, 75);
    saving.Host.Release(70, 75);
    saving.Host.Paint();
    const Frame saved = Load(saving.Save(gCVSSaveNowShowIma, "b.bmp"));
    REQUIRE(saved.Width == 41);
    for (int x = 0; x < 41; ++x)
        CHECK(saved.At(x, 10) == Red);
    CHECK(Count(saved, Red) == 41);
}

TEST_CASE("a measure without points has its ends at the first pixel of the image")
{
    // So its line has no length, and it has no text yet.
    SavingHost saving;
    saving.Host.ShowFlatGray(Width, Height, 100);
    saving.DrawRect(CPoint(0, 10), CPoint(100, 100));
    gCVSAddMeasureLine(0, 0.0);
    saving.Host.Press(50, 50);
    saving.Host.Release(50, 50);
    saving.Host.Paint();
    CHECK(Count(Load(saving.Save(gCVSSaveNowShowIma, "a.bmp")), 0x646464) == 101 * 91);
}

TEST_CASE("a pure green image is saved as gray 149, in rows bottom first")
{
    SavingHost saving;
    saving.Host.ShowFlatGray(6, 3, 0);
    gCVSSetCanvasColor(0, 0x00FF00);
    unsigned int* const pixels = gCVSGetCanvasPixelPtr(0);
    pixels[0] = 0xFF0000;    // bottom left: red gives 76.245
    pixels[1] = 0x0000FF;    // blue 29.07
    pixels[2] = 0xFFFFFF;
    const std::vector<unsigned char> bmp = ReadBytes(saving.Save(gCVSSave8bit, "a.bmp"));
    REQUIRE(bmp.size() == 54 + 1024 + 8 * 3);
    CHECK(bmp[28] == 8);
    const unsigned char* const rows = bmp.data() + Word32(bmp, 10);
    CHECK(rows[0] == 76);
    CHECK(rows[1] == 29);
    CHECK(rows[2] == static_cast<unsigned char>(255 * 0.587 + 255 * 0.114 + 255 * 0.299));
    CHECK(rows[3] == 149);
    CHECK(rows[8] == 149);
    CHECK(rows[16 + 5] == 149);
}

TEST_CASE("every gray level is saved by the sum green, blue, red in double precision")
{
    SavingHost saving;
    saving.Host.ShowGray(256, 1, [](int x, int) { return x; });
    const std::vector<unsigned char> bmp = ReadBytes(saving.Save(gCVSSave8bit, "a.bmp"));
    REQUIRE(bmp.size() == 54 + 1024 + 256);
    for (int level = 0; level < 256; ++level) {
        CAPTURE(level);
        CHECK(bmp[54 + 1024 + static_cast<std::size_t>(level)] ==
              static_cast<unsigned char>(level * 0.587 + level * 0.114 + level * 0.299));
    }
}

TEST_CASE("the 8-bit save is a bitmap whatever extension is typed")
{
    SavingHost saving;
    saving.ShowPicture();
    const std::vector<unsigned char> bytes = ReadBytes(saving.Save(gCVSSave8bit, "a.png"));
    REQUIRE(bytes.size() > 2);
    CHECK(bytes[0] == 'B');
    CHECK(bytes[1] == 'M');
}

TEST_CASE("pictures go out in the format of their extension, in either case")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.Host.Paint();
    const struct {
        const char* File;
        const char* Start;
    } formats[] = {{"a.bmp", "BM"},   {"a.png", "\x89PNG"}, {"a.jpg", "\xFF\xD8\xFF"},
                   {"a.gif", "GIF8"}, {"A.PNG", "\x89PNG"}, {"a.b.JPG", "\xFF\xD8\xFF"}};
    for (const auto operation : {gCVSSaveClient, gCVSSaveImaWithOverlap, gCVSSaveNowShowIma}) {
        for (const auto& format : formats) {
            CAPTURE(format.File);
            const std::vector<unsigned char> bytes = ReadBytes(saving.Save(operation, format.File));
            REQUIRE(bytes.size() > 8);
            CHECK(std::memcmp(bytes.data(), format.Start, std::strlen(format.Start)) == 0);
            std::filesystem::remove(saving.Folder.Path(format.File));
        }
    }
    // A photograph comes back near its colours.
    saving.Host.ShowFlatGray(Width, Height, 120);
    saving.Host.Paint();
    CImage picture;
    saving.Save(gCVSSaveClient, "flat.jpg");
    REQUIRE(picture.Load(saving.Folder.WidePath("flat.jpg")) >= 0);
    CHECK(picture.GetWidth() == Width);
    const unsigned char level = static_cast<const unsigned char*>(picture.GetBits())[0];
    CHECK(level > 117);
    CHECK(level < 123);
}

TEST_CASE("the float plane is saved as it is mapped, element for element, not as it came")
{
    SavingHost saving;
    saving.Host.ShowFloat(5, 3,
                          [](int x, int y) { return 10.0f * static_cast<float>(y) - static_cast<float>(x); });
    const std::vector<unsigned char> bytes = ReadBytes(saving.Save(gCVSSaveRaw, "a.raw"));
    const ClassData2DIO<float>&      raw = gCVSGetRaw(0);
    REQUIRE(bytes.size() == 15 * sizeof(float));
    CHECK(std::memcmp(bytes.data(), raw.Ptr1D, bytes.size()) == 0);
    CHECK(raw.Ptr2D[0][4] == 0.0f);
    CHECK(raw.Ptr2D[2][0] == 65535.0f);
    CHECK(gCVSGetRawOri(0).Ptr2D[2][0] == 20.0f);
}

TEST_CASE("a byte image has no float plane, and its file is empty")
{
    SavingHost saving;
    saving.ShowPicture();
    CHECK(ReadBytes(saving.Save(gCVSSaveRaw, "a.raw")).empty());
    CHECK(saving.Exists("a.raw"));
}

TEST_CASE("the label plane holds all regions as integers, the bottom row of the image first")
{
    SavingHost saving;
    saving.Host.ShowFlatGray(Width, Height, 9);
    saving.DrawRect(CPoint(10, 20), CPoint(30, 40));
    saving.DrawRect(CPoint(100, 20), CPoint(120, 40));
    saving.Deselect();    // regions that are not selected count as well
    const std::vector<unsigned char> bytes = ReadBytes(saving.Save(gCVSSaveLabel, "a.raw"));
    REQUIRE(bytes.size() == Width * Height * sizeof(int));
    CHECK(std::memcmp(bytes.data(), gCVSGetLabelImaPtr1D(0), bytes.size()) == 0);
    const auto label = [&](int x, int y) {
        return Word32(bytes,
                      (static_cast<std::size_t>(Height - 1 - y) * Width + static_cast<std::size_t>(x)) *
                          sizeof(int));
    };
    CHECK(label(20, 30) == 1);
    CHECK(label(110, 30) == 2);
    CHECK(label(60, 30) == 0);
    CHECK(label(20, Height - 1 - 30) == 0);
}

TEST_CASE("saves of canvases that do not exist ask nobody")
{
    SavingHost saving;
    for (const int number : {-1, 5, INT_MAX, INT_MIN}) {
        for (const auto operation : PictureSaves)
            operation(number);
        for (const auto operation : RawSaves)
            operation(number);
    }
    CHECK(saving.Requests.empty());
}

TEST_CASE("names in the user's script work for pictures")
{
    SavingHost saving;
    saving.ShowPicture();
    saving.Host.Paint();
    saving.Name = saving.Folder.WidePath() + CString(L"/图像.png");
    gCVSSaveClient(0);
    CImage picture;
    CHECK(picture.Load(saving.Name) >= 0);
    CHECK(picture.GetWidth() == Width);
}
