// The saves of the image itself: as shown, as gray, as float data and as labels.

#include "canvas/SavingHost.h"

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
    // The same letters as the same call puts at that very place.
    CImage expected;
    REQUIRE(expected.Create(saved.Width, saved.Height, 24));
    for (int y = 0; y < saved.Height; ++y)
        std::memset(static_cast<unsigned char*>(expected.GetBits()) +
                        static_cast<std::ptrdiff_t>(y) * expected.GetPitch(),
                    100, static_cast<std::size_t>(saved.Width) * 3);
    const HDC     dc = expected.GetDC();
    const HPEN    pen = CreatePen(PS_SOLID, 1, 255);
    const HFONT   font = CreateFontW(20, 0, 0, 0, 400, 0, 0, 0, 134, 8, 1, 0, 48, L"微软雅黑");
    const HGDIOBJ penBefore = SelectObject(dc, pen);
    const HGDIOBJ fontBefore = SelectObject(dc, font);
    const CString text = L"长度 = 50.000 mm";
    SetTextColor(dc, 255);
    SetBkMode(dc, TRANSPARENT);
    MoveToEx(dc, 10, 50, nullptr);
    LineTo(dc, 60, 50);
    TextOutW(dc, 80, 30, text, text.GetLength());
    SelectObject(dc, penBefore);
    SelectObject(dc, fontBefore);
    DeleteObject(pen);
    DeleteObject(font);
    expected.ReleaseDC();
    REQUIRE(expected.Save(std::filesystem::path(saving.Folder.Path("expected.bmp")).wstring().c_str()) >= 0);
    CHECK(FrameDifference(saved, Load(saving.Folder.Path("expected.bmp"))) == "");
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

TEST_CASE("the label image holds all regions as integers, the bottom row of the image first")
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
