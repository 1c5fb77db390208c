#include "canvas/PixelSurface.h"

#include "canvas/view/CanvasView.h"
#include "support/GdiObjectCount.h"
#include "support/HostCanvas.h"

#include <doctest/doctest.h>

#include <climits>
#include <random>

using namespace vostel;

namespace {

using Bytes = std::vector<unsigned char>;

// A surface as the canvas makes it, with a view.
struct Placed {
    CanvasView   View;
    PixelSurface Surface;

    Placed(int width, int height, int clientWidth, int clientHeight)
    {
        Surface.Rebuild(nullptr, width, height, true);
        Surface.ViewRef = &View;
        View.ImageWidth = width;
        View.ImageHeight = height;
        View.SetClientRect(CRect(0, 0, clientWidth, clientHeight));
        View.SourceRect = CRect(-1, -2, -3, -4);
    }

    // y counts from the top.
    unsigned int At(int x, int y) const { return Surface.PixelAt(x, Surface.Height - 1 - y); }

    // Every pixel its own value: 0x00yyxx7F from the top left on.
    void Number()
    {
        GdiFlush();
        for (int y = 0; y < Surface.Height; ++y)
            for (int x = 0; x < Surface.Width; ++x)
                Surface.Pixels[(Surface.Height - 1 - y) * Surface.Width + x] = PixelOf(x, y);
    }
    static unsigned int PixelOf(int x, int y)
    {
        return static_cast<unsigned int>(y) << 16 | static_cast<unsigned int>(x) << 8 | 0x7F;
    }
};

std::vector<const unsigned char*> RowsOf(const Bytes& bytes, std::size_t stride)
{
    std::vector<const unsigned char*> rows;
    for (std::size_t at = 0; at + stride <= bytes.size(); at += stride)
        rows.push_back(bytes.data() + at);
    return rows;
}

Bytes Noise(std::mt19937& random, std::size_t count)
{
    Bytes bytes(count);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random());
    return bytes;
}

BytePlaneView PlaneOf(const Bytes& bytes, int width)
{
    return {bytes.data(), bytes.size(), static_cast<std::size_t>(width)};
}

unsigned int ByteAt(const Bytes& bytes, std::size_t at)
{
    return at < bytes.size() ? bytes[at] : 0;
}

// One axis of the visible part by its formula.
struct Span {
    int SourceLow, SourceHigh;
};
Span SpanOf(int displayLow, int displayHigh, int clientLow, int clientHigh, int extent)
{
    const float shown = static_cast<float>(displayHigh - displayLow);
    float       f = static_cast<float>(clientLow - displayLow) / shown;
    Span        span;
    span.SourceLow = f < 0.0f ? 0 : static_cast<int>(static_cast<float>(extent) * f);
    f = static_cast<float>(clientHigh - displayHigh) / shown;
    span.SourceHigh =
        f < 0.0f ? static_cast<int>((1.0 - static_cast<double>(f < 0.0f ? -f : f)) * extent) : extent;
    return span;
}

}

TEST_CASE("a fresh surface has nothing and stretches fast")
{
    const PixelSurface surface;
    CHECK(surface.MemDC == nullptr);
    CHECK(surface.Bitmap == nullptr);
    CHECK(surface.OldBitmap == nullptr);
    CHECK(surface.Pixels == nullptr);
    CHECK(surface.Rows == nullptr);
    CHECK(surface.Width == 0);
    CHECK(surface.Height == 0);
    CHECK(surface.StretchMode == 3);
    CHECK(surface.ViewRef == nullptr);
}

TEST_CASE("a section bitmap of the helper has 32 bits, no padding and rows from the bottom up")
{
    void*         bits = nullptr;
    const HBITMAP bitmap = CreateDibPixels(nullptr, 3, 2, &bits);
    REQUIRE(bitmap != nullptr);
    REQUIRE(bits != nullptr);
    BITMAP facts = {};
    CHECK(GetObjectW(bitmap, sizeof facts, &facts) != 0);
    CHECK(facts.bmWidth == 3);
    CHECK(facts.bmHeight == 2);
    CHECK(facts.bmWidthBytes == 12);
    CHECK(facts.bmBitsPixel == 32);
    unsigned int* const pixels = static_cast<unsigned int*>(bits);
    for (int i = 0; i < 6; ++i)
        CHECK(pixels[i] == 0);
    // The first pixel is the lower left pixel: copy it into a window and look.
    pixels[0] = 0x112233;
    pixels[5] = 0x445566;
    const HDC     dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    MemoryWindow  window(3, 2);
    BitBlt(window.Dc, 0, 0, 3, 2, dc, 0, 0, SRCCOPY);
    Frame expected(3, 2);
    expected.At(0, 1) = 0x112233;
    expected.At(2, 0) = 0x445566;
    CHECK(FrameDifference(window.Capture(), expected) == "");
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

TEST_CASE("a bitmap without a size is refused and its bits are null")
{
    int dummy = 0;
    for (const CPoint size :
         {CPoint(0, 5), CPoint(5, 0), CPoint(-1, 5), CPoint(5, -1), CPoint(INT_MIN, INT_MIN)}) {
        void* bits = &dummy;
        CHECK(CreateDibPixels(nullptr, size.x, size.y, &bits) == nullptr);
        CHECK(bits == nullptr);
    }
}

TEST_CASE("a surface that is too large is refused without harm")
{
    Placed placed(4, 4, 10, 10);
    CHECK(placed.Surface.Pixels != nullptr);
    placed.Surface.Rebuild(nullptr, INT_MAX, INT_MAX, true);
    CHECK(placed.Surface.Bitmap == nullptr);
    CHECK(placed.Surface.Pixels == nullptr);
    CHECK(placed.Surface.CreateRowTable() != nullptr);
    placed.Surface.Fill(5);
    placed.Surface.UploadRows(nullptr, 4, 4, GrayRows);
    MemoryWindow window(10, 10);
    window.Fill(0x123456);
    placed.Surface.BlitTo(window.Dc);
    CHECK(FrameDifference(window.Capture(), Frame(10, 10, 0x123456)) == "");
    placed.Surface.Rebuild(nullptr, 4, 4, true);
    CHECK(placed.Surface.Pixels != nullptr);
}

TEST_CASE("a rebuilt surface is black, also at the same size, and owns its objects")
{
    const unsigned before = GdiObjectCount();
    {
        Placed placed(5, 3, 10, 10);
        CHECK(placed.Surface.Width == 5);
        CHECK(placed.Surface.Height == 3);
        CHECK(placed.Surface.OldBitmap != nullptr);
        CHECK(GetCurrentObject(placed.Surface.MemDC, OBJ_BITMAP) == placed.Surface.Bitmap);
        for (const CPoint size : {CPoint(5, 3), CPoint(6, 4), CPoint(0, 0), CPoint(2, 2)}) {
            placed.Surface.Fill(0xFFFFFF);
            placed.Surface.Rebuild(nullptr, size.x, size.y, true);
            CHECK(FrameDifference(FrameOfSurface(placed.Surface.Pixels, size.x, size.y),
                                  placed.Surface.Pixels ? Frame(size.x, size.y) : Frame()) == "");
            CHECK((placed.Surface.Pixels != nullptr) == (size.x > 0));
        }
    }
    CHECK(GdiObjectCount() == before);
}

TEST_CASE("a bitmap made afresh replaces the one before")
{
    const unsigned before = GdiObjectCount();
    {
        PixelSurface surface;
        surface.MemDC = CreateCompatibleDC(nullptr);
        surface.Width = 4;
        surface.Height = 2;
        CHECK(surface.CreateCanvasBitmap());
        CHECK(surface.Bitmap != nullptr);
        CHECK(surface.Pixels != nullptr);
        const unsigned one = GdiObjectCount();
        CHECK(surface.CreateCanvasBitmap());
        CHECK(GdiObjectCount() == one);
        surface.Height = 0;
        CHECK_FALSE(surface.CreateCanvasBitmap());
        CHECK(surface.Bitmap == nullptr);
        CHECK(surface.Pixels == nullptr);
    }
    CHECK(GdiObjectCount() == before);
}

TEST_CASE("row 0 of the row table is the bottom row on the screen")
{
    Placed               placed(3, 4, 10, 10);
    unsigned int** const rows = placed.Surface.CreateRowTable();
    CHECK(rows == placed.Surface.Rows);
    for (int i = 0; i < 4; ++i)
        CHECK(rows[i] == placed.Surface.Pixels + i * 3);
    rows[0][2] = 0xABCDEF;
    CHECK(placed.At(2, 3) == 0xABCDEF);
}

TEST_CASE("a second row table replaces the first, and freeing it leaves none")
{
    Placed placed(3, 4, 10, 10);    // the leak check watches the first
    placed.Surface.CreateRowTable();
    CHECK(placed.Surface.CreateRowTable()[3] == placed.Surface.Pixels + 9);
    placed.Surface.FreeRowTable();
    CHECK(placed.Surface.Rows == nullptr);
    placed.Surface.FreeRowTable();
    CHECK(placed.Surface.Rows == nullptr);
}

TEST_CASE("a surface without rows has an empty table")
{
    PixelSurface surface;
    CHECK(surface.CreateRowTable() != nullptr);
    surface.Height = -5;
    CHECK(surface.CreateRowTable() != nullptr);
}

TEST_CASE("rows of one, three and four bytes per pixel become pixels, turned over")
{
    const Bytes bytes = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,    //
                         21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32};
    const auto  rows = RowsOf(bytes, 12);
    Placed      placed(3, 2, 10, 10);

    placed.Surface.UploadRows(rows.data(), 3, 2, GrayRows);
    CHECK(placed.At(0, 0) == 0x010101);
    CHECK(placed.At(2, 0) == 0x030303);
    CHECK(placed.At(1, 1) == 0x161616);
    CHECK(placed.Surface.Pixels[0] == 0x151515);    // memory starts with the bottom row

    placed.Surface.UploadRows(rows.data(), 3, 2, TripleRows);
    CHECK(placed.At(0, 0) == 0x030201);
    CHECK(placed.At(2, 0) == 0x090807);
    CHECK(placed.At(2, 1) == 0x1D1C1B);

    placed.Surface.UploadRows(rows.data(), 3, 2, QuadRows);
    CHECK(placed.At(0, 0) == 0x030201);
    CHECK(placed.At(1, 0) == 0x070605);
    CHECK(placed.At(2, 1) == 0x1F1E1D);    // the fourth byte is dropped
}

TEST_CASE("unknown formats of an upload change nothing, nor does an upload without rows")
{
    const Bytes bytes(64, 9);
    const auto  rows = RowsOf(bytes, 16);
    Placed      placed(4, 4, 10, 10);
    placed.Surface.Fill(0x445566);
    for (const int unknown : {3, -1, 4, INT_MAX, INT_MIN})
        placed.Surface.UploadRows(rows.data(), 4, 4, static_cast<RowFormat>(unknown));
    for (const RowFormat format : {GrayRows, TripleRows, QuadRows}) {
        placed.Surface.UploadRows(rows.data(), 4, 0, format);
        placed.Surface.UploadRows(rows.data(), 4, -1, format);
    }
    CHECK(FrameDifference(FrameOfSurface(placed.Surface.Pixels, 4, 4), Frame(4, 4, 0x445566)) == "");
    placed.Surface.UploadRows(rows.data(), 4, 4, GrayRows);
    CHECK(FrameDifference(FrameOfSurface(placed.Surface.Pixels, 4, 4), Frame(4, 4, 0x090909)) == "");
}

TEST_CASE("uploads of every width give the pixels of the formula and touch nothing after them")
{
    const unsigned seed = 5150;
    CAPTURE(seed);
    std::mt19937 random(seed);
    for (int width = 1; width <= 70; ++width) {
        CAPTURE(width);
        const int   height = 3;
        const auto  w = static_cast<std::size_t>(width);
        const Bytes source = Noise(random, w * 4 * 3);
        const auto  rows = RowsOf(source, w * 4);
        for (const RowFormat format : {GrayRows, TripleRows, QuadRows}) {
            CAPTURE(format);
            // Two columns and a row more than the upload: what lies beyond keeps its pixels.
            Placed placed(width + 2, height + 1, 10, 10);
            placed.Surface.Fill(0xEEEEEE);
            placed.Surface.UploadRows(rows.data(), width, height, format);
            for (int y = 0; y < height + 1; ++y) {
                for (int x = 0; x < width + 2; ++x) {
                    unsigned int expected = 0xEEEEEE;
                    if (x < width && y < height) {
                        const unsigned char* s = rows[static_cast<std::size_t>(height - 1 - y)];
                        const auto           at = static_cast<std::size_t>(x);
                        expected = format == GrayRows ? s[at] * 0x010101u
                                   : format == TripleRows
                                       ? s[3 * at] | s[3 * at + 1] << 8u | s[3 * at + 2] << 16u
                                       : s[4 * at] | s[4 * at + 1] << 8u | s[4 * at + 2] << 16u;
                    }
                    REQUIRE(placed.Surface.Pixels[y * (width + 2) + x] == expected);
                }
            }
        }
        Placed gray(width, height, 10, 10);
        gray.Surface.UploadGray(source.data(), width, height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                REQUIRE(gray.At(x, y) == source[static_cast<std::size_t>(y * width + x)] * 0x010101u);
    }
}

TEST_CASE("an upload larger than the surface writes the part that fits")
{
    const Bytes bytes = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const auto  rows = RowsOf(bytes, 4);
    Placed      placed(2, 2, 10, 10);
    placed.Surface.UploadRows(rows.data(), 4, 3, GrayRows);
    CHECK(placed.Surface.Pixels[0] == 0x090909);    // memory row 0 is source row height - 1
    CHECK(placed.Surface.Pixels[1] == 0x0A0A0A);
    CHECK(placed.Surface.Pixels[2] == 0x050505);
    CHECK(placed.Surface.Pixels[3] == 0x060606);
}

TEST_CASE("of three planes the second is read one and the third two columns further to the right")
{
    const Bytes red = {1, 2, 3, 4, 5, 6};
    const Bytes green = {11, 12, 13, 14, 15, 16};
    const Bytes blue = {21, 22, 23, 24, 25, 26};
    Placed      placed(3, 2, 10, 10);
    placed.Surface.UploadPlanes(PlaneOf(red, 3), PlaneOf(green, 3), PlaneOf(blue, 3), 3, 2);
    CHECK(placed.At(0, 0) == (1u << 16 | 12u << 8 | 23u));
    CHECK(placed.At(1, 0) == (2u << 16 | 13u << 8 | 24u));    // on into the next row
    CHECK(placed.At(2, 0) == (3u << 16 | 14u << 8 | 25u));
    CHECK(placed.At(0, 1) == (4u << 16 | 15u << 8 | 26u));
    CHECK(placed.At(1, 1) == (5u << 16 | 16u << 8));    // past the last byte: 0
    CHECK(placed.At(2, 1) == (6u << 16));
}

TEST_CASE("plane uploads of every width equal the formula, with zero past the last byte")
{
    const unsigned seed = 777;
    CAPTURE(seed);
    std::mt19937 random(seed);
    for (int width = 1; width <= 70; ++width) {
        CAPTURE(width);
        const int   height = 3;
        const auto  count = static_cast<std::size_t>(width) * height;
        const Bytes a = Noise(random, count);
        const Bytes b = Noise(random, count);
        const Bytes c = Noise(random, count);
        Placed      placed(width, height, 10, 10);
        placed.Surface.UploadPlanes(PlaneOf(a, width), PlaneOf(b, width), PlaneOf(c, width), width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const auto at = static_cast<std::size_t>(y * width + x);
                REQUIRE(placed.At(x, y) ==
                        (ByteAt(a, at) << 16 | ByteAt(b, at + 1) << 8 | ByteAt(c, at + 2)));
            }
        }
    }
}

TEST_CASE("planes that are missing or too small read as zero beyond their end")
{
    const Bytes red = {1, 2, 3, 4};
    const Bytes green = {11, 12};
    Placed      placed(2, 2, 10, 10);
    placed.Surface.UploadPlanes(PlaneOf(red, 2), PlaneOf(green, 2), BytePlaneView(), 2, 2);
    CHECK(placed.At(0, 0) == (1u << 16 | 12u << 8));
    CHECK(placed.At(1, 0) == (2u << 16));
    CHECK(placed.At(1, 1) == (4u << 16));
}

TEST_CASE(
    "an image inside the client area is copied in place and its source is the whole of it, in either mode")
{
    for (const int mode : {COLORONCOLOR, HALFTONE}) {
        CAPTURE(mode);
        Placed placed(6, 4, 20, 10);
        placed.Number();
        placed.Surface.StretchMode = mode;
        MemoryWindow window(20, 10);
        window.Fill(0x010203);
        placed.Surface.BlitTo(window.Dc);
        Frame expected(20, 10, 0x010203);
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 6; ++x)
                expected.At(7 + x, 3 + y) = Placed::PixelOf(x, y);
        CHECK(placed.View.DisplayRect == CRect(7, 3, 13, 7));
        CHECK(FrameDifference(window.Capture(), expected) == "");
        CHECK(placed.View.SourceRect == CRect(0, 0, 6, 4));
        CHECK(placed.Surface.CoveredClient() == CRect(7, 3, 13, 7));
    }
}

TEST_CASE("an image twice the size takes its visible part alone")
{
    Placed placed(40, 20, 40, 20);
    placed.Number();
    placed.View.Scale = 2.0;
    placed.View.SetClientRect(CRect(0, 0, 40, 20));
    CHECK(placed.View.DisplayRect == CRect(-20, -10, 60, 30));
    MemoryWindow window(40, 20);
    placed.Surface.BlitTo(window.Dc);
    CHECK(placed.View.SourceRect == CRect(10, 5, 30, 15));
    CHECK(placed.Surface.CoveredClient() == CRect(0, 0, 40, 20));
    Frame expected(40, 20);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 40; ++x)
            expected.At(x, y) = Placed::PixelOf(10 + x / 2, 5 + y / 2);
    CHECK(FrameDifference(window.Capture(), expected) == "");
    CHECK(placed.View.SourceRect.left > 0);
    CHECK(placed.View.SourceRect.right < 40);
}

TEST_CASE("an image that overhangs one corner is cut there")
{
    Placed placed(8, 8, 20, 20);
    placed.Number();
    placed.View.DisplayRect = CRect(-2, 14, 6, 22);
    MemoryWindow window(20, 20);
    window.Fill(0x010203);
    placed.Surface.BlitTo(window.Dc);
    CHECK(placed.View.SourceRect == CRect(2, 0, 8, 6));
    Frame expected(20, 20, 0x010203);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x)
            expected.At(x, 14 + y) = Placed::PixelOf(2 + x, y);
    CHECK(FrameDifference(window.Capture(), expected) == "");
}

TEST_CASE("single precision can leave a row out: three tenths of ten rows truncate to six that are left")
{
    Placed placed(10, 10, 20, 20);
    placed.View.DisplayRect = CRect(13, 13, 23, 23);
    MemoryWindow window(20, 20);
    placed.Surface.BlitTo(window.Dc);
    CHECK(placed.View.SourceRect == CRect(0, 0, 6, 6));    // of 7 that are visible
}

TEST_CASE("the source rectangle follows its formula, fractions in single precision, for any placement")
{
    const unsigned seed = 31337;
    CAPTURE(seed);
    std::mt19937 random(seed);
    MemoryWindow window(64, 48);
    for (int round = 0; round < 500; ++round) {
        CAPTURE(round);
        const int width = 1 + static_cast<int>(random() % 50);
        const int height = 1 + static_cast<int>(random() % 50);
        Placed    placed(width, height, 64, 48);
        CRect     shown;
        shown.left = static_cast<int>(random() % 200) - 100;
        shown.top = static_cast<int>(random() % 200) - 100;
        shown.right = shown.left + 1 + static_cast<int>(random() % 300);
        shown.bottom = shown.top + 1 + static_cast<int>(random() % 300);
        placed.View.DisplayRect = shown;
        placed.Surface.BlitTo(window.Dc);
        const Span x = SpanOf(shown.left, shown.right, 0, 64, width);
        const Span y = SpanOf(shown.top, shown.bottom, 0, 48, height);
        REQUIRE(placed.View.SourceRect.left == x.SourceLow);
        REQUIRE(placed.View.SourceRect.right == x.SourceHigh);
        REQUIRE(placed.View.SourceRect.top == y.SourceLow);
        REQUIRE(placed.View.SourceRect.bottom == y.SourceHigh);
    }
}

TEST_CASE("an image panned out of the client area leaves the client's pixels")
{
    for (const CRect shown : {CRect(40, 5, 50, 15), CRect(-30, 5, -20, 15), CRect(5, 40, 15, 50),
                              CRect(5, -30, 15, -20), CRect(20, 5, 30, 15), CRect(-10, 5, 0, 15)}) {
        for (const int mode : {COLORONCOLOR, HALFTONE}) {
            CAPTURE(mode);
            CAPTURE(shown.left);
            CAPTURE(shown.top);
            Placed placed(10, 10, 20, 20);
            placed.Surface.Fill(0xFFFFFF);
            placed.Surface.StretchMode = mode;
            placed.View.DisplayRect = shown;
            MemoryWindow window(20, 20);
            window.Fill(0x010203);
            placed.Surface.BlitTo(window.Dc);
            CHECK(FrameDifference(window.Capture(), Frame(20, 20, 0x010203)) == "");
        }
    }
}

TEST_CASE("an empty display rectangle copies nothing and keeps the source rectangle")
{
    for (const CRect shown : {CRect(), CRect(5, 5, 5, 10), CRect(5, 5, 10, 5), CRect(10, 10, 5, 15)}) {
        Placed placed(10, 10, 20, 20);
        placed.Surface.Fill(0xFFFFFF);
        placed.View.DisplayRect = shown;
        MemoryWindow window(20, 20);
        window.Fill(0x010203);
        placed.Surface.BlitTo(window.Dc);
        CHECK(placed.View.SourceRect == CRect(-1, -2, -3, -4));
        CHECK(placed.Surface.CoveredClient().IsRectEmpty());
        CHECK(FrameDifference(window.Capture(), Frame(20, 20, 0x010203)) == "");
    }
}

TEST_CASE("a stretch mode that is neither copies nothing but notes what is visible")
{
    for (const int mode : {1, 2, 0, 5, -1}) {
        Placed placed(6, 4, 20, 10);
        placed.Surface.Fill(0xFFFFFF);
        placed.Surface.StretchMode = mode;
        MemoryWindow window(20, 10);
        window.Fill(0x010203);
        placed.Surface.BlitTo(window.Dc);
        CHECK(placed.View.SourceRect == CRect(0, 0, 6, 4));
        CHECK(placed.Surface.CoveredClient().IsRectEmpty());
        CHECK(FrameDifference(window.Capture(), Frame(20, 10, 0x010203)) == "");
    }
}

TEST_CASE("a surface without a view or a target copies nothing")
{
    PixelSurface surface;
    surface.Rebuild(nullptr, 4, 4, true);
    MemoryWindow window(10, 10);
    window.Fill(0x010203);
    surface.BlitTo(window.Dc);
    CHECK(surface.CoveredClient().IsRectEmpty());
    CHECK(FrameDifference(window.Capture(), Frame(10, 10, 0x010203)) == "");
    Placed placed(4, 4, 10, 10);
    placed.Surface.BlitTo(nullptr);
    CHECK(placed.View.SourceRect == CRect(0, 0, 4, 4));
}

TEST_CASE("a display rectangle at the limits of 32 bits does no harm")
{
    MemoryWindow window(20, 20);
    for (const CRect shown : {CRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX), CRect(INT_MIN, 0, INT_MIN + 1, 5),
                              CRect(INT_MAX - 1, 0, INT_MAX, 5), CRect(0, INT_MIN, 1, INT_MAX)}) {
        for (const int mode : {COLORONCOLOR, HALFTONE}) {
            Placed placed(10, 10, 20, 20);
            placed.Surface.StretchMode = mode;
            placed.View.DisplayRect = shown;
            placed.View.SourceRect = CRect(7, 7, 7, 7);
            placed.Surface.BlitTo(window.Dc);
            placed.Surface.CoveredClient();
            CHECK(placed.View.SourceRect != CRect(7, 7, 7, 7));
        }
    }
}

TEST_CASE("zooming in at the centre shrinks the source until four rows are left, and then stops")
{
    Placed       placed(100, 80, 60, 40);
    MemoryWindow window(60, 40);
    placed.Surface.BlitTo(window.Dc);
    int    lastRows = placed.View.SourceRect.Height();
    double lastScale = 0.0;
    for (int step = 0; step < 60; ++step) {
        placed.View.OnViewMouseWheel(MK_CONTROL, 1, CPoint(30, 20));
        placed.Surface.BlitTo(window.Dc);
        if (placed.View.Scale == lastScale)
            break;
        CHECK(placed.View.SourceRect.Height() <= lastRows);
        lastRows = placed.View.SourceRect.Height();
        lastScale = placed.View.Scale;
    }
    CHECK(placed.View.Scale == lastScale);
    CHECK(lastRows <= 4);
    CHECK(lastRows >= 1);
}

TEST_CASE("a pixel is read by its memory row, and outside the surface it is 0")
{
    Placed placed(3, 2, 10, 10);
    placed.Number();
    CHECK(placed.Surface.PixelAt(2, 0) == Placed::PixelOf(2, 1));
    CHECK(placed.Surface.PixelAt(0, 1) == Placed::PixelOf(0, 0));
    for (const CPoint out :
         {CPoint(-1, 0), CPoint(3, 0), CPoint(0, -1), CPoint(0, 2), CPoint(INT_MIN, INT_MAX)})
        CHECK(placed.Surface.PixelAt(out.x, out.y) == 0);
    CHECK(PixelSurface().PixelAt(0, 0) == 0);
}
