// The dialogs of the six saves, and the saves of what a window shows.

#include "canvas/SavingHost.h"
#include "support/RegionAnswer.h"

#include <climits>

namespace {

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

TEST_CASE("a cancelled dialog writes nothing, shows no message and leaves the canvas as it was")
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

TEST_CASE("without an image the user is asked and then only the label image is written")
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

TEST_CASE("the label image is rebuilt before its dialog is cancelled")
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
    CHECK((png[25] == 2 || png[25] == 6));    // color type
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
    const TestDialogs dialogs(RegionAnswer(10, 20, 30, 40));
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

TEST_CASE("a picture of the client area that cannot be written is reported, whatever stands in the way")
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

TEST_CASE("a rectangle without a box cannot be saved from the client area, and that is reported")
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
    // A photograph comes back near its colors.
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
