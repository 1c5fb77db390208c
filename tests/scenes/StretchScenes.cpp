#include "Scenes.h"

namespace {

// A picture in which every pixel differs from its neighbours.
class Source {
public:
    Source(int width, int height, int bitsPerPixel, bool topDown)
        : Bitmap(width, height, bitsPerPixel, topDown, RGB(0, 0, 0))
    {
        SceneRandom random(51);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                unsigned char* pixel = Bitmap.Row(y) + x * bitsPerPixel / 8;
                pixel[0] = static_cast<unsigned char>(x * 5 + (y & 1) * 40);
                pixel[1] = static_cast<unsigned char>(y * 6 + (x & 1) * 40);
                pixel[2] = static_cast<unsigned char>(random.Between(0, 255));
            }
    }
    SceneBitmap Bitmap;
};

// Target extents from 0 to 25 of a 17 x 13 source, each way and mirrored.
void SmallSizes(HDC dc, int mode, bool mirrored)
{
    Source source(17, 13, 32, false);
    SetStretchBltMode(dc, mode);
    for (int h = 0; h <= 25; ++h)
        for (int w = 0; w <= 25; ++w) {
            int x = w * 27 + 1, y = h * 27 + 1;
            if (mirrored)
                StretchBlt(dc, x + w, y, -w, h, source.Bitmap.Dc, 0, 0, 17, 13, SRCCOPY);
            else
                StretchBlt(dc, x, y, w, h, source.Bitmap.Dc, 0, 0, 17, 13, SRCCOPY);
        }
}
void FastSizes(HDC dc, int, int)
{
    SmallSizes(dc, COLORONCOLOR, false);
}
void FastMirroredSizes(HDC dc, int, int)
{
    SmallSizes(dc, COLORONCOLOR, true);
}

// Parts of a larger source at zooms from far out to far in, onto targets that reach beyond the edge.
void Zooms(HDC dc, int mode, int sourceBits, bool inside)
{
    Source      source(240, 160, sourceBits, sourceBits == 24);
    SceneRandom random(52);
    SetStretchBltMode(dc, mode);
    for (int i = 0; i < 40; ++i) {
        POINT at = random.Point(-60, 380, -60, 280), size = random.Point(1, 300, 1, 240);
        POINT from = inside ? random.Point(0, 200, 0, 120) : random.Point(-80, 230, -80, 150);
        POINT extent = inside ? random.Point(1, 40, 1, 40) : random.Point(1, 200, 1, 200);
        StretchBlt(dc, at.x, at.y, size.x, size.y, source.Bitmap.Dc, from.x, from.y, extent.x, extent.y,
                   SRCCOPY);
    }
}
void FastZooms(HDC dc, int, int)
{
    Zooms(dc, COLORONCOLOR, 32, true);
}
void FastZooms24(HDC dc, int, int)
{
    Zooms(dc, COLORONCOLOR, 24, true);
}
void FastSourcesOutside(HDC dc, int, int)
{
    Zooms(dc, COLORONCOLOR, 32, false);
}

void Mirrors(HDC dc, int, int)
{
    Source source(60, 40, 32, false);
    SetStretchBltMode(dc, COLORONCOLOR);
    for (int i = 0; i < 16; ++i) {
        int x = i % 4 * 100 + 10, y = i / 4 * 75 + 5, w = 80, h = 60;
        StretchBlt(dc, i & 1 ? x + w : x, i & 2 ? y + h : y, i & 1 ? -w : w, i & 2 ? -h : h, source.Bitmap.Dc,
                   i & 4 ? 50 : 5, i & 8 ? 35 : 3, i & 4 ? -37 : 37, i & 8 ? -29 : 29, SRCCOPY);
    }
}

void Copies(HDC dc, int, int)
{
    Source      source(120, 90, 32, true);
    SceneRandom random(53);
    for (int i = 0; i < 30; ++i) {
        POINT at = random.Point(-50, 380, -50, 280), size = random.Point(1, 140, 1, 110);
        POINT from = random.Point(-30, 110, -30, 80);
        BitBlt(dc, at.x, at.y, size.x, size.y, source.Bitmap.Dc, from.x, from.y, SRCCOPY);
    }
    // Within one bitmap, onto itself.
    BitBlt(dc, 20, 10, 200, 150, dc, 5, 3, SRCCOPY);
    BitBlt(dc, 190, 140, 200, 150, dc, 197, 149, SRCCOPY);
}

void ShiftedOrigins(HDC dc, int, int)
{
    Source source(120, 90, 24, false);
    SetViewportOrgEx(dc, 40, 25, nullptr);
    SetViewportOrgEx(source.Bitmap.Dc, 11, 7, nullptr);
    SetStretchBltMode(dc, COLORONCOLOR);
    BitBlt(dc, 0, 0, 80, 60, source.Bitmap.Dc, 0, 0, SRCCOPY);
    StretchBlt(dc, 100, 10, 190, 170, source.Bitmap.Dc, 3, 2, 40, 30, SRCCOPY);
    SetViewportOrgEx(dc, 0, 0, nullptr);
}

// Smoothed copies of a smooth picture: the platform's filter is its own, the picture is not.
void Smoothed(HDC dc, int, int)
{
    SceneBitmap source(200, 150, 32, false, RGB(30, 60, 90));
    for (int y = 0; y < 150; ++y)
        for (int x = 0; x < 200; ++x) {
            unsigned char* pixel = source.Row(y) + 4 * x;
            pixel[0] = static_cast<unsigned char>(x);
            pixel[1] = static_cast<unsigned char>(y);
            pixel[2] = static_cast<unsigned char>((x + y) / 2);
        }
    SetStretchBltMode(dc, HALFTONE);
    StretchBlt(dc, 0, 0, 57, 41, source.Dc, 0, 0, 200, 150, SRCCOPY);
    StretchBlt(dc, 70, 5, 150, 110, source.Dc, 0, 0, 200, 150, SRCCOPY);
    StretchBlt(dc, 10, 130, 380, 260, source.Dc, 0, 0, 200, 150, SRCCOPY);
    StretchBlt(dc, 240, 10, 150, 100, source.Dc, 40, 30, 20, 15, SRCCOPY);
}

}

std::vector<Scene> StretchScenes()
{
    return {
        {"stretch-fast-sizes", 703, 703, 32, false, Agreement::Exact, FastSizes},
        {"stretch-fast-mirrored-sizes", 703, 703, 24, false, Agreement::Exact, FastMirroredSizes},
        {"stretch-fast-zooms", 401, 301, 32, false, Agreement::Exact, FastZooms},
        {"stretch-fast-zooms-24-bits", 401, 301, 24, true, Agreement::Exact, FastZooms24},
        {"stretch-fast-sources-outside", 401, 301, 32, true, Agreement::Exact, FastSourcesOutside},
        {"stretch-mirrors", 401, 301, 32, false, Agreement::Exact, Mirrors},
        {"stretch-copies", 401, 301, 24, false, Agreement::Exact, Copies},
        {"stretch-shifted-origins", 401, 301, 32, false, Agreement::Exact, ShiftedOrigins},
        // Both sides weigh the pixels under a target pixel; their weights are rounded differently.
        {"stretch-smoothed", 401, 401, 32, false, Agreement::Quality, Smoothed},
    };
}
