#include "commands/Commands.h"
#include "commands/Routines.h"

#include "support/HostCanvas.h"
#include "support/TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <string>

using namespace vostel::viewer;

namespace {

// Selected by the last add, so that deleting it shows whether an object came.
bool HasLabel(int canvas, int label)
{
    gCVSGenerateLabel(canvas, false);
    const ClassData2DIO<int>& plane = gCVSGetLabelIma(canvas);
    for (int i = 0; i < plane.Width * plane.Height; ++i)
        if (plane.Ptr1D[i] == label)
            return true;
    return false;
}

std::string Text(const char* text)
{
    return text ? text : "";
}

}

TEST_CASE("what needs an image is offered with one only, saving float data with float data only")
{
    HostCanvas host(0, 60, 40);
    CHECK_FALSE(IsAvailable(Command::DrawPolygon, 0));
    CHECK_FALSE(IsAvailable(Command::DeleteAll, 0));
    CHECK_FALSE(IsAvailable(Command::Gauss, 0));
    CHECK(IsAvailable(Command::GaussKernel, 0));
    CHECK(IsAvailable(Command::Open, 0));
    host.ShowFlatGray(8, 6, 10);
    CHECK(IsAvailable(Command::DrawPolygon, 0));
    CHECK_FALSE(IsAvailable(Command::SaveFloat, 0));
    host.ShowFloat(8, 6, [](int x, int) { return x; });
    CHECK(IsAvailable(Command::SaveFloat, 0));
    CHECK_FALSE(IsAvailable(Command::Open, 5));
    CHECK_FALSE(IsAvailable(Command::Open, -1));
}

TEST_CASE("every command that is not the viewer's is carried out on a canvas with and without an image")
{
    HostCanvas        host(4, 200, 150);    // its scale changes
    const TestDialogs dialogs(CancelledDialogs());
    for (const bool withImage : {false, true})
        for (const CommandEntry& entry : AllCommands()) {
            if (withImage)
                host.ShowFloat(64, 48, [](int x, int y) { return x + y; });
            CAPTURE(std::string(entry.Text));
            const bool byViewer = entry.ByViewer || entry.Kind == CommandKind::Routine;
            CHECK(RunCommand(entry.Id, 4) == !byViewer);
            CHECK_FALSE(RunCommand(entry.Id, 5));
            host.Paint();
        }
    CHECK(host.Desktop.Messages.empty());
}

TEST_CASE("a drawn rectangle reaches the label image and goes with delete selected")
{
    HostCanvas host(0, 60, 40);
    host.ShowFlatGray(60, 40, 10);
    REQUIRE(RunCommand(Command::DrawRectangle, 0));
    // No mouse move came between: the object has its view all the same.
    host.Drag(CPoint(10, 10), CPoint(30, 30), MK_LBUTTON | MK_SHIFT);
    CHECK(host.Desktop.Messages.empty());
    REQUIRE(HasLabel(0, 1));
    CHECK(HasLabel(0, 0));
    REQUIRE(RunCommand(Command::DeleteSelected, 0));
    CHECK_FALSE(HasLabel(0, 0));    // without regions every pixel counts as inside
}

TEST_CASE("drawing on a canvas without an image does nothing")
{
    HostCanvas host(0, 60, 40);
    REQUIRE(RunCommand(Command::DrawRectangle, 0));
    host.Drag(CPoint(10, 10), CPoint(30, 30), MK_LBUTTON | MK_SHIFT);
    host.ShowGray(
        60, 40, [](int, int) { return 0; }, false);
    CHECK_FALSE(HasLabel(0, 0));
}

TEST_CASE("the mouse modes exclude each other and reach the canvas")
{
    HostCanvas host(0, 60, 40);
    host.ShowFlatGray(20, 20, 10);
    REQUIRE(RunCommand(Command::MouseFixed, 0));
    CHECK(IsOn(Command::MouseFixed, 0));
    CHECK_FALSE(IsOn(Command::MouseZoomCursor, 0));
    const CRect before = host.Region();
    host.Pan(5, 5);
    CHECK(host.Region().left == before.left);
    REQUIRE(RunCommand(Command::MouseZoomCursor, 0));
    CHECK(IsOn(Command::MouseZoomCursor, 0));
    CHECK_FALSE(IsOn(Command::MouseFixed, 0));
    host.Pan(5, 5);
    CHECK(host.Region().left == before.left + 5);
}

TEST_CASE("the contrast slider appears at the lower left and goes again")
{
    HostCanvas host(0, 500, 200);
    host.ShowFloat(20, 20, [](int x, int) { return x; });
    const Frame without = host.PaintAndCapture();
    if (IsOn(Command::ContrastSlider, 0))    // another test's
        RunCommand(Command::ContrastSlider, 0);
    REQUIRE(RunCommand(Command::ContrastSlider, 0));
    CHECK(IsOn(Command::ContrastSlider, 0));
    host.Paint();
    CHECK(host.Pixel(21, 170) == 0xB4B4B4);
    REQUIRE(RunCommand(Command::ContrastSlider, 0));
    CHECK_FALSE(IsOn(Command::ContrastSlider, 0));
    CHECK(FrameDifference(host.PaintAndCapture(), without) == "");
}

TEST_CASE("a byte image is taken as its grays, equal channels without the loss of the formula")
{
    HostCanvas host(0, 60, 40);
    host.ShowGray(16, 16, [](int x, int y) { return x + 16 * y; });
    const ImagePointer image = TakeImage(0);
    REQUIRE(image);
    REQUIRE(image->Width == 16);
    bool same = true;
    for (int i = 0; i < 256; ++i)
        same = same && image->Ptr1D[i] == static_cast<float>(i);
    CHECK(same);
}

TEST_CASE("float data is taken as it came")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(7, 5,
                   [](int x, int y) { return 0.5f * static_cast<float>(x) - 3.0f * static_cast<float>(y); });
    const ImagePointer image = TakeImage(0);
    REQUIRE(image);
    CHECK(image->Ptr2D[4][6] == -9.0f);
    CHECK(image->Ptr2D[0][0] == 0.0f);
    host.Reset();
    CHECK_FALSE(TakeImage(0));
    CHECK_FALSE(TakeLabels(0));
    CHECK_FALSE(TakeImage(17));
}

TEST_CASE("labels are taken top row first")
{
    HostCanvas host(0, 60, 40);
    host.ShowFlatGray(60, 40, 10);
    RunCommand(Command::DrawRectangle, 0);
    host.Drag(CPoint(5, 2), CPoint(30, 12), MK_LBUTTON | MK_SHIFT);
    const ImagePointer labels = TakeLabels(0);
    REQUIRE(labels);
    CHECK(labels->Ptr2D[6][15] == 1.0f);
    CHECK(labels->Ptr2D[30][15] == 0.0f);
}

TEST_CASE("a result keeps the objects when the size stays, and undo brings gray, colors and floats back")
{
    HostCanvas                   host(0, 60, 40);
    ClassData2DIO<unsigned char> red, green, blue;
    FillPlane(red, 60, 40, [](int x, int) { return 4 * x; });
    FillPlane(green, 60, 40, [](int, int y) { return 5 * y; });
    FillPlane(blue, 60, 40, [](int x, int y) { return x + y; });
    gCVSShowUCColor(0, red, green, blue, true);
    const Frame colors = host.Surface();
    RunCommand(Command::DrawRectangle, 0);
    host.Drag(CPoint(10, 10), CPoint(30, 30), MK_LBUTTON | MK_SHIFT);
    REQUIRE(HasLabel(0, 0));
    CHECK_FALSE(IsAvailable(Command::UndoRoutine, 0));

    auto result = std::make_shared<Image>();
    FillPlane(*result, 60, 40,
              [](int x, int y) { return 100.0f * static_cast<float>(x) + static_cast<float>(y); });
    ShowResult(0, result);
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
    CHECK(HasLabel(0, 0));
    REQUIRE(IsAvailable(Command::UndoRoutine, 0));
    RunCommand(Command::UndoRoutine, 0);
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    CHECK(FrameDifference(host.Surface(), colors) == "");
    CHECK(HasLabel(0, 0));
    CHECK_FALSE(IsAvailable(Command::UndoRoutine, 0));

    ShowResult(0, result);
    auto smaller = std::make_shared<Image>();
    FillPlane(*smaller, 30, 20, [](int x, int) { return x; });
    ShowResult(0, smaller);
    CHECK(gCVSGetCanvasWidth(0) == 30);
    RunCommand(Command::UndoRoutine, 0);
    const ImagePointer back = TakeImage(0);
    REQUIRE(back);
    CHECK(back->Width == 60);
    CHECK(back->Ptr2D[7][9] == 907.0f);
}

TEST_CASE("the progress bar shows while a routine runs and fills from left to right")
{
    HostCanvas host(0, 500, 200);
    host.ShowFlatGray(20, 20, 10);
    const Frame without = host.PaintAndCapture();
    ShowRoutineProgress(0, true);
    SetRoutineProgress(0, 1, 2);
    host.Paint();
    CHECK(host.Pixel(60, 130) == 0x646464);
    CHECK(host.Pixel(380, 130) == 0xB4B4B4);
    SetRoutineProgress(0, 7, 0);    // beyond its range
    host.Paint();
    CHECK(host.Pixel(380, 130) == 0x646464);
    CHECK(host.Pixel(425, 130) == (without.At(425, 130) & 0xFFFFFF));
    ShowRoutineProgress(0, false);
    CHECK(FrameDifference(host.PaintAndCapture(), without) == "");
}

TEST_CASE("a file that is missing, a folder and a file that is not a picture are distinguished")
{
    HostCanvas host(0, 60, 40);
    TempFolder folder;
    CHECK(Text(OpenFile(0, folder.WidePath("none.png"))) == "The file does not exist.");
    CHECK(Text(OpenFile(0, folder.WidePath())) == "This is a folder, not a file.");
    std::ofstream(folder.Path("text.png")) << "no picture";
    CHECK(Text(OpenFile(0, folder.WidePath("text.png"))) == "This file is not a picture that can be read.");
    CHECK(Text(OpenFile(9, folder.WidePath("text.png"))) == "There is no such canvas.");

    ClassData2DIO<unsigned char> gray;
    FillPlane(gray, 9, 5, [](int x, int y) { return x + y; });
    std::string path = folder.Path("good.bmp");
    REQUIRE(ZEKSaveGrayBmp(path.data(), gray));
    CHECK(OpenFile(0, folder.WidePath("good.bmp")) == nullptr);
    CHECK(gCVSGetCanvasWidth(0) == 9);
}

TEST_CASE("a file that cannot be read leaves the image and its objects")
{
    HostCanvas host(0, 60, 40);
    TempFolder folder;
    host.ShowFlatGray(30, 20, 10);
    REQUIRE(RunCommand(Command::DrawRectangle, 0));
    host.Drag(CPoint(20, 15), CPoint(40, 25), MK_LBUTTON | MK_SHIFT);
    const Frame before = host.PaintAndCapture();
    std::ofstream(folder.Path("text.png")) << "no picture";
    CHECK(Text(OpenFile(0, folder.WidePath("text.png"))) == "This file is not a picture that can be read.");
    // 4 x 1 pixels of 4 bits, a depth that no canvas shows.
    unsigned char bitmap[122] = {'B', 'M', 122, 0, 0, 0, 0, 0, 0, 0, 118, 0, 0, 0, 40,
                                 0,   0,   0,   4, 0, 0, 0, 1, 0, 0, 0,   1, 0, 4, 0};
    std::ofstream(folder.Path("shallow.bmp"), std::ios::binary)
        .write(reinterpret_cast<const char*>(bitmap), sizeof bitmap);
    ATL::CImage shallow;
    REQUIRE(shallow.Load(folder.WidePath("shallow.bmp")) >= 0);
    CHECK(shallow.GetBPP() == 4);
    CHECK(Text(OpenFile(0, folder.WidePath("shallow.bmp"))) ==
          "This file is not a picture that can be read.");
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    CHECK(FrameDifference(host.PaintAndCapture(), before) == "");
}

TEST_CASE("a file whose name is not ASCII is opened in the locale C")
{
    HostCanvas                   host(0, 60, 40);
    TempFolder                   folder;
    ClassData2DIO<unsigned char> gray;
    FillPlane(gray, 9, 5, [](int x, int y) { return x + y; });
    std::string path = folder.Path("plane.bmp");
    REQUIRE(ZEKSaveGrayBmp(path.data(), gray));
    const std::filesystem::path at(path);
    std::filesystem::rename(at, at.parent_path() / u8"\u56fe \u00e9.bmp");
    CHECK(OpenFile(0, folder.WidePath() + L"/\u56fe \u00e9.bmp") == nullptr);
    CHECK(gCVSGetCanvasWidth(0) == 9);
    CHECK(Text(OpenFile(0, folder.WidePath() + L"/\u6ca1\u6709.bmp")) == "The file does not exist.");
    CHECK(Text(OpenFile(0, folder.WidePath() + L"/\xDC80.bmp")) == "The file does not exist.");
}

TEST_CASE("a raw file whose dialog is cancelled is not reported as a problem")
{
    HostCanvas    host(0, 60, 40);
    TempFolder    folder;
    int           asked = 0;
    bool          confirm = false;
    TessikDialogs dialogs;
    dialogs.ImaLoadPara = [&](tagZEKImaLoadPara& para) {
        ++asked;
        para.Width = 4;
        para.Height = 2;
        para.DataType = 3;
        return confirm;
    };
    const TestDialogs installed(dialogs);
    std::ofstream(folder.Path("plane.raw")) << "12345678";
    CHECK(OpenFile(0, folder.WidePath("plane.raw")) == nullptr);
    CHECK(gCVSGetFileType(0) == FileTypeNone);
    confirm = true;
    CHECK(OpenFile(0, folder.WidePath("plane.raw")) == nullptr);
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
    CHECK(asked == 2);
}

TEST_CASE("a box of text lines appears on the canvas, an empty text adds none")
{
    HostCanvas host(0, 300, 200);
    host.ShowFlatGray(300, 200, 10);
    const Frame without = host.PaintAndCapture();
    AddTextLines(0, L"\r\n\n");
    CHECK(FrameDifference(host.PaintAndCapture(), without) == "");
    AddTextLines(0, L"first line\r\nsecond line\n");
    CHECK(FrameDifference(host.PaintAndCapture(), without) != "");
}

TEST_CASE("fitting shows the whole image in the middle, as large as a wheel step allows, in every mouse mode")
{
    HostCanvas host(3, 400, 300);    // zooms
    host.ShowFlatGray(100, 60, 10);
    for (Command mouse : {Command::MouseFixed, Command::MouseZoomCentre, Command::MouseZoomCursor}) {
        RunCommand(Command::MouseZoomCursor, 3);
        for (int step = 0; step < 12; ++step)
            host.Wheel(37, 11, mouse == Command::MouseFixed ? -1 : 1);
        RunCommand(mouse, 3);
        RunCommand(Command::FitImage, 3);
        CHECK(IsOn(mouse, 3));
        const CRect region = host.Region();
        CAPTURE(region.left);
        CAPTURE(region.right);
        CHECK(region.left >= 0);
        CHECK(region.top >= 0);
        CHECK(region.right <= 400);
        CHECK(region.bottom <= 300);
        CHECK((region.right - region.left) * 1.2 > 396);
        CHECK(std::abs((region.left + region.right) / 2 - 200) <= 2);
        CHECK(std::abs((region.top + region.bottom) / 2 - 150) <= 2);
        const CRect before = host.Region();
        host.Pan(3, 0);
        CHECK(host.Region().left == before.left + (mouse == Command::MouseFixed ? 0 : 3));
    }
    RunCommand(Command::MouseZoomCursor, 3);
}

TEST_CASE("a small image opened after a large one that was zoomed out is shown at its own size")
{
    HostCanvas host(3, 400, 300);
    TempFolder folder;
    for (int width : {1500, 50}) {
        ClassData2DIO<unsigned char> gray;
        FillPlane(gray, width, width / 2, [](int x, int y) { return x ^ y; });
        std::string path = folder.Path("plane.bmp");
        REQUIRE(ZEKSaveGrayBmp(path.data(), gray));
        REQUIRE(OpenFile(3, folder.WidePath("plane.bmp")) == nullptr);
    }
    CHECK(std::abs(host.Region().right - host.Region().left - 50) <= 1);
}

TEST_CASE("an opened image larger than its window is zoomed out, a smaller one keeps the scale")
{
    HostCanvas host(3, 400, 300);
    TempFolder folder;
    const auto scale = [&] {
        return (host.Region().right - host.Region().left) / static_cast<double>(gCVSGetCanvasWidth(3));
    };
    host.ShowFlatGray(100, 60, 10);
    RunCommand(Command::FitImage, 3);
    const double before = scale();
    for (int width : {50, 1500}) {
        ClassData2DIO<unsigned char> gray;
        FillPlane(gray, width, width / 2, [](int x, int y) { return x ^ y; });
        std::string path = folder.Path("plane.bmp");
        REQUIRE(ZEKSaveGrayBmp(path.data(), gray));
        REQUIRE(OpenFile(3, folder.WidePath("plane.bmp")) == nullptr);
        CHECK(host.Region().right - host.Region().left <= 400);
        CHECK((std::abs(scale() - before) < 0.1) == (width == 50));
    }
}

TEST_CASE("the value of a gray pixel is its gray, that of a color or of float data the library's")
{
    HostCanvas host(0, 60, 40);
    REQUIRE(host.IsScaleOne());
    host.ShowGray(16, 16, [](int x, int y) { return x + 16 * y; });
    const CPoint origin(host.Region().left, host.Region().top);
    int          lowered = 0;
    for (int value = 0; value < 256; ++value) {
        const CPoint at(origin.x + value % 16, origin.y + value / 16);
        CHECK(ValueUnder(0, at) == static_cast<float>(value));
        lowered += gCVSGetImaPixelValue(0, at) != static_cast<float>(value);
    }
    CHECK(lowered == 65);
    CHECK(ValueUnder(0, CPoint(-9, -9)) == gCVSGetImaPixelValue(0, CPoint(-9, -9)));
    gCVSGetCanvasPixelPtr(0)[0] = 0x102030;    // the bottom left pixel
    const CPoint corner(origin.x, origin.y + 15);
    CHECK(ValueUnder(0, corner) == gCVSGetImaPixelValue(0, corner));
    CHECK(ValueUnder(0, corner) == 29.0f);
    host.ShowFloat(16, 16, [](int x, int y) { return 0.25f * static_cast<float>(x + y); });
    CHECK(ValueUnder(0, CPoint(origin.x + 3, origin.y + 2)) == 1.25f);
    CHECK(ValueUnder(7, corner) == -1.0f);
    host.ShowGray(16, 16, [](int x, int y) { return x + 16 * y; });
    CHECK(GrayOr(-5.0f, 0, 3.9, 2.0) == 35.0f);
    CHECK(GrayOr(-5.0f, 0, 16.0, 2.0) == -5.0f);
}
