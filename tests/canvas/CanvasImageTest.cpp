// Byte images and float data on a canvas: what the surface shows, what reads back and what the contrast
// window does. ContrastTest holds float data of every kind against a plain reference.

#include "support/HostCanvas.h"

#include <cmath>
#include <vector>

namespace {

unsigned int Gray(int value)
{
    return 0x010101u * static_cast<unsigned int>(value & 0xFF);
}

// The surface pixel of a color image by planes of w x h: green is read one and blue two columns further on,
// into the next row at the end of a row and as 0 behind the last.
Frame SkewedFrame(const std::vector<unsigned char>& red, const std::vector<unsigned char>& green,
                  const std::vector<unsigned char>& blue, int w, int h)
{
    const auto at = [](const std::vector<unsigned char>& plane, int index) -> unsigned int {
        return index < static_cast<int>(plane.size()) ? plane[static_cast<std::size_t>(index)] : 0u;
    };
    Frame frame(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            frame.At(x, y) =
                at(red, y * w + x) << 16 | at(green, y * w + x + 1) << 8 | at(blue, y * w + x + 2);
    return frame;
}

std::vector<unsigned char> NoisePlane(int w, int h, int seed)
{
    std::vector<unsigned char> plane;
    for (int i = 0; i < w * h; ++i)
        plane.push_back(static_cast<unsigned char>(Noise(i, seed)));
    return plane;
}

void CopyTo(ClassData2DIO<unsigned char>& plane, const std::vector<unsigned char>& data, int w, int h)
{
    FillPlane(plane, w, h, [&](int x, int y) { return data[static_cast<std::size_t>(y * w + x)]; });
}

}

TEST_CASE("before any image a canvas has no size, no type and no value")
{
    HostCanvas host(0, 60, 40);
    CHECK(gCVSGetFileType(0) == FileTypeNone);
    CHECK(gCVSGetCanvasWidth(0) == 0);
    CHECK(gCVSGetCanvasHeight(0) == 0);
    CHECK(gCVSGetImaPixelValue(0, CPoint(30, 20)) == -1.0f);
    CHECK(gCVSGetRawPtr1D(0) == nullptr);
    CHECK(gCVSGetRawOriPtr1D(0) == nullptr);
}

TEST_CASE("a gray image lies on the surface with its row 0 at the bottom end of memory's last row")
{
    HostCanvas host(0, 60, 40);
    for (const int width : {1, 3, 16, 33, 70}) {
        host.ShowGray(width, 5, Noise);
        const unsigned int* pixels = gCVSGetCanvasPixelPtr(0);
        REQUIRE(pixels != nullptr);
        CHECK(gCVSGetFileType(0) == FileTypeByte);
        CHECK(gCVSGetCanvasWidth(0) == width);
        CHECK(gCVSGetCanvasHeight(0) == 5);
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < width; ++x)
                if (pixels[(4 - y) * width + x] != Gray(Noise(x, y)))
                    FAIL("width " << width << " at " << x << ", " << y);
    }
}

TEST_CASE("the pointer call shows the same gray image and leaves the buffer the host's")
{
    HostCanvas                 host(0, 60, 40);
    std::vector<unsigned char> data = NoisePlane(33, 7, 5);
    const auto                 before = data;
    gCVSShowUCGray(0, data.data(), 33, 7, true);
    Frame expected(33, 7);
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 33; ++x)
            expected.At(x, y) = Gray(data[static_cast<std::size_t>(33 * y + x)]);
    CHECK(FrameDifference(host.Surface(), expected) == "");
    CHECK(data == before);
    data.assign(data.size(), 0);    // shown data is a copy
    CHECK(FrameDifference(host.Surface(), expected) == "");
}

TEST_CASE("a color image has its green one and its blue two columns further left than its red")
{
    HostCanvas host(0, 60, 40);
    for (const int width : {1, 2, 3, 17, 64, 71}) {
        CAPTURE(width);
        const int                    height = 6;
        const auto                   red = NoisePlane(width, height, 1);
        const auto                   green = NoisePlane(width, height, 2);
        const auto                   blue = NoisePlane(width, height, 3);
        ClassData2DIO<unsigned char> planes[3];
        CopyTo(planes[0], red, width, height);
        CopyTo(planes[1], green, width, height);
        CopyTo(planes[2], blue, width, height);
        const Frame expected = SkewedFrame(red, green, blue, width, height);
        gCVSShowUCColor(0, planes[0], planes[1], planes[2], true);
        CHECK(gCVSGetFileType(0) == FileTypeByte);
        CHECK(FrameDifference(host.Surface(), expected) == "");

        gCVSPrepareCanvas(0, 1, 1);
        auto redCopy = red;
        auto greenCopy = green;
        auto blueCopy = blue;
        gCVSShowUCColor(0, redCopy.data(), greenCopy.data(), blueCopy.data(), width, height, true);
        CHECK(gCVSGetFileType(0) == FileTypeByte);
        CHECK(FrameDifference(host.Surface(), expected) == "");
        CHECK(redCopy == red);
        CHECK(greenCopy == green);
        CHECK(blueCopy == blue);
    }
}

TEST_CASE("a color image takes its size from the first plane; what the others lack reads as zero")
{
    HostCanvas                   host(0, 60, 40);
    ClassData2DIO<unsigned char> red, green, blue;
    FillPlane(red, 4, 3, [](int, int) { return 9; });
    FillPlane(green, 4, 1, [](int x, int) { return x + 1; });
    gCVSShowUCColor(0, red, green, blue, true);
    Frame expected(4, 3, 0x090000);
    for (int x = 0; x < 3; ++x)
        expected.At(x, 0) |= static_cast<unsigned int>(x + 2) << 8;
    CHECK(FrameDifference(host.Surface(), expected) == "");
}

TEST_CASE("one container may serve as all three planes")
{
    HostCanvas                   host(0, 60, 40);
    const auto                   data = NoisePlane(9, 5, 4);
    ClassData2DIO<unsigned char> plane;
    CopyTo(plane, data, 9, 5);
    gCVSShowUCColor(0, plane, plane, plane, true);
    CHECK(FrameDifference(host.Surface(), SkewedFrame(data, data, data, 9, 5)) == "");
}

TEST_CASE("the read-back of a gray image is its gray or, by rounding of the sum, one less")
{
    HostCanvas host(0, 300, 40);
    host.ShowGray(256, 1, [](int x, int) { return x; });
    const int left = host.Region().left;
    int       lower = 0;
    for (int v = 0; v < 256; ++v) {
        const float  value = gCVSGetImaPixelValue(0, CPoint(left + v, 20));
        const double green = v * 0.587;
        const double sum = green + v * 0.299;
        CHECK(value == static_cast<float>(static_cast<int>(sum + v * 0.114)));
        if (value != static_cast<float>(v)) {
            CHECK(value == static_cast<float>(v - 1));
            ++lower;
        }
    }
    CHECK(lower == 65);
    CHECK(gCVSGetImaPixelValue(0, CPoint(left + 1, 20)) == 0.0f);
    CHECK(gCVSGetImaPixelValue(0, CPoint(left + 128, 20)) == 127.0f);
    CHECK(gCVSGetImaPixelValue(0, CPoint(left + 200, 20)) == 200.0f);
}

TEST_CASE("the read-back of a color image weighs green 0.587, red 0.299 and blue 0.114")
{
    HostCanvas host(0, 60, 40);
    gCVSPrepareCanvas(0, 2, 1);
    gCVSSetFileType(0, FileTypeByte);
    gCVSGetCanvasPixelPtr(0)[0] =
        0xFF0A141E;    // red 10, green 20, blue 30; the high byte counts for nothing
    CHECK(gCVSGetImaPixelValue(0, CPoint(29, 19)) == 18.0f);    // 11.74 + 2.99 + 3.42
    CHECK(gCVSGetImaPixelValue(0, CPoint(30, 19)) == 0.0f);
}

TEST_CASE("a point outside the image reads the nearest pixel of its edge")
{
    HostCanvas host(0, 60, 40);
    host.ShowGray(4, 3, [](int x, int y) { return 10 * y + x + 2; });    // none of these reads one lower
    const CRect region = host.Region();
    const auto  value = [&](int x, int y) {
        return gCVSGetImaPixelValue(0, CPoint(region.left + x, region.top + y));
    };
    const float first = value(0, 0);
    CHECK(value(-1, -1) == first);
    CHECK(value(-1000000, -5) == first);
    CHECK(value(4, 0) == value(3, 0));
    CHECK(value(1000000, 2) == value(3, 2));
    CHECK(value(1, 100000) == value(1, 2));
    CHECK(value(0, 1) != first);
    CHECK(value(1, 0) != first);
}

TEST_CASE("a zoomed image reads the pixel under the point, truncated")
{
    HostCanvas host(1, 100, 100);
    REQUIRE(host.IsScaleOne());
    host.ShowFloat(20, 20, [](int x, int y) { return 100 * y + x; });
    for (int step = 0; step < 5; ++step)
        host.Wheel(50, 50, 1);
    double x = 0.0;
    double y = 0.0;
    for (int py = 30; py < 70; py += 3) {
        for (int px = 30; px < 70; px += 3) {
            gCVSGetOriPt(1, CPoint(px, py), x, y);
            CHECK(gCVSGetImaPixelValue(1, CPoint(px, py)) ==
                  static_cast<float>(100 * static_cast<int>(y) + static_cast<int>(x)));
        }
    }
    for (int step = 0; step < 5; ++step)
        host.Wheel(50, 50, -1);
}

TEST_CASE("float data reads back as it came when it was kept")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(4, 3, [](int x, int y) { return -7.25 + x * 1000.5 + y * 1e-3; });
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
    const CRect region = host.Region();
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 4; ++x) {
            const float value = static_cast<float>(-7.25 + x * 1000.5 + y * 1e-3);
            CHECK(gCVSGetImaPixelValue(0, CPoint(region.left + x, region.top + y)) == value);
            CHECK(gCVSGetRawOri(0).Ptr2D[y][x] == value);
        }
    }
    CHECK(gCVSGetRawOriPtr1D(0) == gCVSGetRawOri(0).Ptr1D);
    CHECK(gCVSGetRawOriPtr2D(0) == gCVSGetRawOri(0).Ptr2D);
    CHECK(gCVSGetRawPtr1D(0) == gCVSGetRaw(0).Ptr1D);
    CHECK(gCVSGetRawPtr2D(0) == gCVSGetRaw(0).Ptr2D);
    CHECK(gCVSGetRaw(0).Ptr2D[2] == gCVSGetRaw(0).Ptr1D + 8);
}

TEST_CASE("float data that was not kept reads back as -1")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(
        4, 3, [](int x, int) { return x + 5; }, true);
    CHECK(gCVSGetImaPixelValue(0, CPoint(30, 20)) >= 5.0f);
    host.ShowFloat(
        4, 3, [](int x, int) { return x + 5; }, false);
    CHECK(gCVSGetImaPixelValue(0, CPoint(30, 20)) == -1.0f);
    CHECK(gCVSGetRawOriPtr1D(0) == nullptr);
    CHECK(gCVSGetRawOri(0).Width == -1);
    CHECK(gCVSGetRawPtr1D(0) != nullptr);
}

TEST_CASE("the pointer call shows float data in the same way and leaves the buffer the host's")
{
    HostCanvas         host(0, 60, 40);
    std::vector<float> data;
    for (int i = 0; i < 35; ++i)
        data.push_back(static_cast<float>(i * i));
    const auto before = data;
    host.ShowFloat(7, 5, [&](int x, int y) { return data[static_cast<std::size_t>(7 * y + x)]; });
    const Frame surface = host.Surface();
    const float raw = gCVSGetRaw(0).Ptr2D[3][3];
    host.ShowFlatGray(1, 1, 0);
    gCVSShowRawFloat(0, data.data(), 7, 5, true, true);
    CHECK(FrameDifference(host.Surface(), surface) == "");
    CHECK(gCVSGetRaw(0).Ptr2D[3][3] == raw);
    CHECK(gCVSGetRawOri(0).Ptr2D[4][6] == 34.0f * 34.0f);
    CHECK(data == before);
}

TEST_CASE("a byte image releases float data")
{
    HostCanvas host(0, 60, 40);
    const auto showFloat = [&] {
        host.ShowFloat(4, 3, [](int x, int) { return x; });
        REQUIRE(gCVSGetRawPtr1D(0) != nullptr);
        REQUIRE(gCVSGetRawOriPtr1D(0) != nullptr);
    };
    const auto isReleased = [] {
        return !gCVSGetRawPtr1D(0) && !gCVSGetRawOriPtr1D(0) && gCVSGetRaw(0).Width == -1;
    };
    showFloat();
    host.ShowFlatGray(4, 3, 1);
    CHECK(isReleased());
    showFloat();
    ClassData2DIO<unsigned char> plane;
    FillPlane(plane, 4, 3, Noise);
    gCVSShowUCColor(0, plane, plane, plane, true);
    CHECK(isReleased());
    showFloat();
    gCVSShowUCGray(0, plane.Ptr1D, 4, 3, true);
    CHECK(isReleased());
    showFloat();
    gCVSShowUCColor(0, plane.Ptr1D, plane.Ptr1D, plane.Ptr1D, 4, 3, true);
    CHECK(isReleased());
}

TEST_CASE("gCVSSetFileType writes the type and nothing else")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(4, 3, [](int x, int) { return x + 5; });
    const Frame surface = host.Surface();
    const int   left = host.Region().left;
    for (const FileType type : {FileTypeNone, FileTypeByte, FileTypeRawPlain, FileTypeRaw}) {
        gCVSSetFileType(0, type);
        CHECK(gCVSGetFileType(0) == type);
        CHECK(FrameDifference(host.Surface(), surface) == "");
        CHECK(gCVSGetRawPtr1D(0) != nullptr);
    }
    gCVSSetFileType(0, FileTypeRawPlain);
    CHECK(gCVSGetImaPixelValue(0, CPoint(left + 3, 20)) == 8.0f);    // as it came
    gCVSSetFileType(0, FileTypeByte);
    CHECK(gCVSGetImaPixelValue(0, CPoint(left + 3, 20)) == 255.0f);    // as it shows
    gCVSSetFileType(0, FileTypeNone);
    CHECK(gCVSGetImaPixelValue(0, CPoint(left + 3, 20)) == -1.0f);
}

TEST_CASE("gCVSSetLutPara moves the contrast window of float data")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(256, 2, [](int x, int y) { return x + 0.5 * y; });
    CHECK(host.Surface().At(100, 0) == Gray(99));    // 100 of 255.5
    gCVSSetLutPara(0, 0.0f, 0.5f);
    CHECK(host.Surface().At(100, 0) == Gray(199));
    CHECK(host.Surface().At(200, 0) == 0xFFFFFF);
}

TEST_CASE("gCVSSetLutPara on other than contrast data does nothing")
{
    HostCanvas host(0, 60, 40);
    host.ShowFlatGray(4, 3, 100);
    const Frame surface = host.Surface();
    gCVSSetLutPara(0, 0.0f, 0.1f);
    CHECK(FrameDifference(host.Surface(), surface) == "");
    host.ShowFloat(4, 3, [](int x, int) { return x; });
    const Frame raw = host.Surface();
    gCVSSetFileType(0, FileTypeRawPlain);
    gCVSSetLutPara(0, 0.0f, 0.1f);
    CHECK(FrameDifference(host.Surface(), raw) == "");
    gCVSSetFileType(0, FileTypeRaw);
    gCVSSetLutPara(0, 0.0f, 0.1f);
    CHECK(FrameDifference(host.Surface(), raw) != "");
}

TEST_CASE("a window whose high is not above its low leaves the limits and still redraws")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    gCVSSetLutPara(0, 0.25f, 0.5f);
    const Frame surface = host.Surface();
    for (const float high : {0.3f, 0.7f, 0.0f, -1.0f}) {
        gCVSSetCanvasColor(0, 0x123456);
        gCVSSetLutPara(0, 0.7f, high);
        CHECK(FrameDifference(host.Surface(), surface) == "");
    }
    gCVSSetLutPara(0, 0.7f, 0.8f);
    CHECK(FrameDifference(host.Surface(), surface) != "");
}

TEST_CASE("a window beyond 0 and 1 is cut to it")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    const Frame whole = host.Surface();
    gCVSSetLutPara(0, 0.5f, 0.6f);
    gCVSSetLutPara(0, -3.0f, 17.0f);
    CHECK(FrameDifference(host.Surface(), whole) == "");
}

TEST_CASE("windows that are not numbers leave the limits")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    gCVSSetLutPara(0, 0.25f, 0.5f);
    const Frame surface = host.Surface();
    gCVSSetLutPara(0, NAN, NAN);
    gCVSSetLutPara(0, 0.25f, INFINITY);    // out of range truncates to the lowest integer
    CHECK(FrameDifference(host.Surface(), surface) == "");
    gCVSSetLutPara(0, NAN, 0.5f);    // as from the lowest integer on: cut to 0
    CHECK(FrameDifference(host.Surface(), surface) != "");
}

TEST_CASE("the limits survive a byte image, not a new float image")
{
    HostCanvas host(0, 60, 40);
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    const Frame whole = host.Surface();
    gCVSSetLutPara(0, 0.25f, 0.5f);
    host.ShowFloat(256, 1, [](int x, int) { return x; });
    CHECK(FrameDifference(host.Surface(), whole) == "");
}

TEST_CASE("a canvas shows its own stretched or original data anew")
{
    HostCanvas host(0, 60, 40);
    for (const bool keep : {true, false}) {
        CAPTURE(keep);
        host.ShowFloat(5, 4, [](int x, int y) { return x * x + 7 * y; });
        const Frame surface = host.Surface();
        gCVSShowRawFloat(0, gCVSGetRawOri(0), keep, true);
        CHECK(FrameDifference(host.Surface(), surface) == "");
        if (keep)
            CHECK(gCVSGetRawOri(0).Ptr2D[3][4] == 37.0f);

        host.ShowFloat(5, 4, [](int x, int y) { return x * x + 7 * y; });
        gCVSShowRawFloat(0, gCVSGetRaw(0), keep, true);
        CHECK(FrameDifference(host.Surface(), surface) == "");
        if (keep)
            CHECK(gCVSGetRawOri(0).Ptr2D[3][4] == 65535.0f);

        host.ShowFloat(5, 4, [](int x, int y) { return x * x + 7 * y; });
        gCVSShowRawFloat(0, gCVSGetRawOriPtr1D(0) + 5, 5, 2, keep, true);    // two rows of itself
        CHECK(gCVSGetCanvasHeight(0) == 2);
        CHECK(gCVSGetRaw(0).Ptr2D[0][0] == 0.0f);
        CHECK(gCVSGetRaw(0).Ptr2D[1][4] == 65535.0f);
    }
}

TEST_CASE("one canvas shows the data of another")
{
    HostCanvas host(0, 60, 40);
    HostCanvas other(2, 30, 30);
    host.ShowFloat(5, 4, [](int x, int y) { return x * x + 7 * y; });
    gCVSShowRawFloat(2, gCVSGetRawOri(0), true, true);
    CHECK(FrameDifference(other.Surface(), host.Surface()) == "");
    CHECK(gCVSGetRawOri(0).Ptr2D[3][4] == 37.0f);
    CHECK(gCVSGetRawOri(2).Ptr2D[3][4] == 37.0f);
}

TEST_CASE("an image of no pixels is shown as one")
{
    HostCanvas                   host(0, 60, 40);
    ClassData2DIO<unsigned char> none;
    host.ShowFlatGray(4, 4, 9);
    none.Allocate(0, 0);
    gCVSShowUCGray(0, none, true);
    CHECK(gCVSGetCanvasWidth(0) == 0);
    CHECK(gCVSGetFileType(0) == FileTypeByte);
    CHECK(gCVSGetCanvasPixelPtr(0) == nullptr);
    CHECK(gCVSGetImaPixelValue(0, CPoint(1, 1)) == -1.0f);
    ClassData2DIO<float> noFloats;
    noFloats.Allocate(0, 0);
    gCVSShowRawFloat(0, noFloats, true, true);
    CHECK(gCVSGetFileType(0) == FileTypeRaw);
    CHECK(gCVSGetImaPixelValue(0, CPoint(1, 1)) == -1.0f);
    gCVSSetLutPara(0, 0.1f, 0.9f);
    host.Paint();
    host.ShowFlatGray(4, 4, 9);
    CHECK(gCVSGetImaPixelValue(0, CPoint(1, 1)) == 9.0f);
}
