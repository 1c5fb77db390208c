#include "instruments/VostelImaInfo.h"

#include "support/OverlayScene.h"

using namespace vostel;

namespace {

using Lines = std::vector<CString>;

const Lines& LinesOf(const OverlayScene& scene)
{
    return scene.Last<VostelImaInfo>().Lines;
}

}

TEST_CASE("a read-out is a panel of kind 14 with the canvas as its source")
{
    OverlayScene scene;
    gCVSAddPoly(0);
    gCVSAddInfoWin(0);
    const VostelImaInfo& readOut = scene.Last<VostelImaInfo>();
    CHECK(readOut.TypeCode == 14);
    CHECK(readOut.SerialNo == 1);
    CHECK(readOut.TypeSerial == 0);
    CHECK(readOut.Margin == 5);
    CHECK(readOut.Selected);
    CHECK(readOut.OwnerImage == &scene.Canvas());
    CHECK(readOut.View == &scene.Canvas().View);
    CHECK(readOut.ClientBox == CRect(30, 30, 542, 180));
    CHECK(readOut.Lines.empty());
    gCVSAddInfoWin(5);
    CHECK(scene.Canvas().Elements.size() == 2);
}

TEST_CASE("the read-out of a byte image gives position and the three colors")
{
    OverlayScene scene;
    gCVSAddInfoWin(0);
    unsigned int* const pixels = gCVSGetCanvasPixelPtr(0);
    pixels[(299 - 20) * 400 + 10] = 0x010203;
    pixels[0] = 0x0A0B0C;      // bottom left
    pixels[399] = 0x0D0E0F;    // bottom right
    scene.Move(10, 20);
    CHECK(LinesOf(scene) == Lines{L"10 20", L"R = 1 G=2 B=3"});
    scene.Move(11, 20);
    CHECK(LinesOf(scene) == Lines{L"11 20", L"R = 100 G=100 B=100"});
    scene.Move(0, 299);
    CHECK(LinesOf(scene) == Lines{L"0 299", L"R = 10 G=11 B=12"});
    scene.Move(399, 299);
    CHECK(LinesOf(scene) == Lines{L"399 299", L"R = 13 G=14 B=15"});
}

TEST_CASE("outside the image the position stands and the value is that of the edge")
{
    OverlayScene scene;
    gCVSAddInfoWin(0);
    gCVSGetCanvasPixelPtr(0)[(299 - 20) * 400] = 0x0000FF;
    scene.Move(-7, 20);
    CHECK(LinesOf(scene) == Lines{L"-7 20", L"R = 0 G=0 B=255"});
    gCVSGetCanvasPixelPtr(0)[399] = 0x00FF00;
    scene.Move(1000, 5000);
    CHECK(LinesOf(scene) == Lines{L"1000 5000", L"R = 0 G=255 B=0"});
}

TEST_CASE("positions are truncated, and the row is truncated after it has been counted from the bottom")
{
    OverlayScene scene;
    gCVSAddInfoWin(0);
    scene.Zoom(4);    // 2.0736
    const CRect image = scene.Region();
    for (int y = 0; y < 300; ++y)
        gCVSGetCanvasPixelPtr(0)[(299 - y) * 400] = static_cast<unsigned int>(y);
    scene.Move(image.left + 1,
               image.top + 21);    // row 10.127 of the image: 288.87 from the bottom, which is cut to 288
    CHECK(LinesOf(scene) == Lines{L"0 10", L"R = 0 G=0 B=11"});
}

TEST_CASE("the read-out of float data gives the value as it came and the stretched one")
{
    OverlayScene scene;
    scene.ShowFloat(400, 300, [](int x, int y) { return x == 0 && y == 0 ? -1.0f : x == 10 ? 2.5f : 3.0f; });
    gCVSAddInfoWin(0);
    scene.Move(10, 20);
    CHECK(LinesOf(scene) == Lines{L"10 20", L"ori raw value = 2.500", L"raw value = 57343.125"});
    scene.Move(-3, -4);
    CHECK(LinesOf(scene) == Lines{L"-3 -4", L"ori raw value = -1.000", L"raw value = 0.000"});
}

TEST_CASE("data that was not kept reads as -1, beside the stretched value")
{
    OverlayScene scene;
    scene.ShowFloat(
        400, 300, [](int x, int) { return x; }, false);
    gCVSAddInfoWin(0);
    scene.Move(399, 20);
    CHECK(LinesOf(scene) == Lines{L"399 20", L"ori raw value = -1.000", L"raw value = 65535.000"});
}

TEST_CASE("without image data the read-out says so")
{
    OverlayScene scene;
    gCVSAddInfoWin(0);
    for (const FileType type : {FileTypeNone, FileTypeRawPlain, static_cast<FileType>(77)}) {
        gCVSSetFileType(0, type);
        scene.Move(10, 20);
        CHECK(LinesOf(scene) == Lines{L"10 20", L"没有图像数据"});
    }
    gCVSSetFileType(0, FileTypeByte);
    scene.Move(10, 20);
    CHECK(LinesOf(scene)[1] == L"R = 100 G=100 B=100");
}

TEST_CASE("a read-out on a canvas that never had an image reads nothing and harms nothing")
{
    HostCanvas host(1, 100, 80);
    gCVSAddInfoWin(1);
    host.Move(50, 40);
    host.Paint();
    const VostelTextML* const readOut = dynamic_cast<VostelTextML*>(gCanvasTable[1].Elements.back());
    REQUIRE(readOut != nullptr);
    CHECK(readOut->Lines.back() == L"没有图像数据");
    gCVSSetFileType(1, FileTypeByte);    // a host may claim what is not there
    host.Move(60, 40);
    CHECK(readOut->Lines.back() == L"R = 0 G=0 B=0");
    gCVSSetFileType(1, FileTypeRaw);
    host.Move(61, 40);
    CHECK(readOut->Lines.back() == L"raw value = -1.000");
}

TEST_CASE("between moves the lines stay, also when the image changes")
{
    OverlayScene scene;
    gCVSAddInfoWin(0);
    scene.Move(10, 20);
    const Lines before = LinesOf(scene);
    scene.ShowFlat(7);
    scene.Paint();
    CHECK(LinesOf(scene) == before);
    scene.Move(10, 20);
    CHECK(LinesOf(scene)[1] == L"R = 7 G=7 B=7");
}

TEST_CASE("a read-out follows the mouse while another object is selected, and is dragged by a press")
{
    OverlayScene scene;
    gCVSAddInfoWin(0);
    VostelImaInfo& readOut = scene.Last<VostelImaInfo>();
    gCVSAddPoly(0);
    scene.Move(200, 250);
    CHECK(readOut.Lines[0] == L"200 250");
    scene.Paint();
    const CRect box = readOut.ClientBox;
    CHECK(box.left == 30);
    CHECK(box.right < 400);    // sized by its lines at the paint
    scene.Drag(CPoint(35, 35), CPoint(55, 65));
    CHECK(readOut.ClientBox.left == 50);
    CHECK(readOut.ClientBox.top == 60);
    CHECK(readOut.Lines[0] == L"55 65");
    CHECK(readOut.HoverPoint == CPoint(55, 65));
}

TEST_CASE("a read-out without a canvas only follows its drag")
{
    TestDesktop   desktop;
    VostelImaInfo readOut;
    readOut.ClientBox = CRect(0, 0, 10, 10);
    readOut.AddTextLine(L"kept");
    readOut.OnLButtonDown(MK_LBUTTON, CPoint(5, 5));
    readOut.OnMouseMove(MK_LBUTTON, CPoint(8, 9));
    CHECK(readOut.ClientBox == CRect(3, 4, 13, 14));
    CHECK(readOut.Lines == Lines{L"kept"});
    CHECK(desktop.Messages.empty());
}

TEST_CASE("a read-out without a view reports that and reads at the first pixel")
{
    OverlayScene  scene;
    VostelImaInfo readOut;
    readOut.SetOwnerImage(&scene.Canvas());
    readOut.OnMouseMove(0, CPoint(50, 50));
    CHECK(scene.Messages() == Lines{NoView});
    CHECK(readOut.Lines == Lines{L"0 0", L"R = 100 G=100 B=100"});
}
