// Painting, resizing and showing images leave no GDI object behind.

#include "support/GdiObjectCount.h"
#include "support/HostCanvas.h"

TEST_CASE("ten thousand paints leave as many GDI objects as there were")
{
    HostCanvas host(0, 24, 16);
    host.ShowFlatGray(10, 10, 0x42);
    gCVSShowContrastCtrl(0, true);
    gCVSSetContrastCtrlRectPos(0, 0, 0, 20, 8);
    gCVSShowProgress(0, true);
    gCVSSetProgressRectPos(0, 0, 0, 10, 8);
    host.Paint();
    const unsigned before = GdiObjectCount();
    for (int i = 0; i < 10000; ++i)
        gCVSOnDraw(0, nullptr);
    CHECK(GdiObjectCount() == before);
}

TEST_CASE("ten thousand resizes leave as many GDI objects as there were")
{
    HostCanvas host(0, 24, 16);
    host.ShowFlatGray(10, 10, 0x42);
    const unsigned before = GdiObjectCount();
    for (int i = 0; i < 10000; ++i)
        host.SetClient(i % 7, i % 5);    // some have no surface
    host.SetClient(24, 16);
    CHECK(GdiObjectCount() == before);
}

TEST_CASE("ten thousand images leave as many GDI objects as there were")
{
    HostCanvas host(0, 24, 16);
    host.ShowFlatGray(3, 3, 0x42);
    std::vector<unsigned char> data(64, 9);
    std::vector<float>         floats(64, 9.0f);
    const unsigned             before = GdiObjectCount();
    for (int i = 0; i < 10000; ++i) {
        const int w = i % 9;
        const int h = i % 8;
        switch (i % 4) {
        case 0:
            gCVSShowUCGray(0, data.data(), w, h, true);
            break;
        case 1:
            gCVSShowUCColor(0, data.data(), data.data(), data.data(), w, h, true);
            break;
        case 2:
            gCVSShowRawFloat(0, floats.data(), w, h, true, true);
            break;
        default:
            gCVSPrepareCanvas(0, w, h);
            break;
        }
    }
    host.ShowFlatGray(3, 3, 0x42);
    CHECK(GdiObjectCount() == before);
}

TEST_CASE("a canvas's surfaces are two contexts and two bitmaps, counted while they are there")
{
    HostCanvas host(0, 24, 16);
    host.ShowFlatGray(3, 3, 0x42);
    const unsigned with = GdiObjectCount();
    host.SetClient(0, 0);
    gCVSPrepareCanvas(0, 0, 0);
    CHECK(GdiObjectCount() < with);
    host.SetClient(24, 16);
    host.ShowFlatGray(3, 3, 0x42);
    CHECK(GdiObjectCount() == with);
}
