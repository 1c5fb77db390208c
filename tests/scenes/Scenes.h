#pragma once

// Pictures drawn with the calls that the engine makes, the same source on both back ends. A scene is drawn
// into a section bitmap of its own; what it leaves there is written to a file and compared.

#include "common/MemoryBitmap.h"
#include "common/SelectedObject.h"

#include <VostelObj.h>

#include <cstdint>
#include <vector>

// How far the two back ends have to agree. The file name carries it, so that the comparison needs no list.
enum class Agreement {
    Exact,      // every pixel
    Glyphs,     // text: two rasterisers and two sets of fonts; ink in the same place and of like amount
    Quality,    // smoothed stretches: the mean difference is bounded
};

struct Scene {
    const char* Name;
    int         Width, Height;
    int         BitsPerPixel;    // 24 or 32
    bool        TopDown;
    Agreement   Agrees;
    void (*Draw)(HDC dc, int width, int height);
};

// A memory bitmap filled with one color at first.
class SceneBitmap : public MemoryBitmap {
public:
    SceneBitmap(int width, int height, int bitsPerPixel, bool topDown, COLORREF background)
        : MemoryBitmap(width, height, bitsPerPixel, topDown)
    {
        const RECT   all = {0, 0, width, height};
        const HBRUSH brush = CreateSolidBrush(background);
        FillRect(Dc, &all, brush);
        DeleteObject(brush);
    }
};

// The same numbers on every platform.
class SceneRandom {
public:
    explicit SceneRandom(std::uint32_t seed) : state(seed * 2654435761u + 1u) {}
    // low..high, both included.
    int Between(int low, int high)
    {
        state = state * 1664525u + 1013904223u;
        return low +
               static_cast<int>(
                   (static_cast<std::uint64_t>(state) * (static_cast<std::uint64_t>(high) - low + 1u)) >> 32);
    }
    // One after the other: the order in which a call's arguments are worked out is the compiler's own.
    POINT Point(int lowX, int highX, int lowY, int highY)
    {
        int x = Between(lowX, highX), y = Between(lowY, highY);
        return {x, y};
    }
    COLORREF Color()
    {
        int red = Between(0, 255), green = Between(0, 255), blue = Between(0, 255);
        return RGB(red, green, blue);
    }

private:
    std::uint32_t state;
};

inline void MoveTo(HDC dc, POINT point)
{
    MoveToEx(dc, point.x, point.y, nullptr);
}
inline void LineTo(HDC dc, POINT point)
{
    LineTo(dc, point.x, point.y);
}

inline void Segment(HDC dc, int x0, int y0, int x1, int y1)
{
    MoveToEx(dc, x0, y0, nullptr);
    LineTo(dc, x1, y1);
}

std::vector<Scene> LineScenes();
std::vector<Scene> WideLineScenes();
std::vector<Scene> ShapeScenes();
std::vector<Scene> FillScenes();
std::vector<Scene> StretchScenes();
std::vector<Scene> TextScenes();
std::vector<Scene> CanvasScenes();
std::vector<Scene> OverlayScenes();
std::vector<Scene> InstrumentScenes();
