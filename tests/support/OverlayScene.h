#pragma once

// A canvas with objects on an image of the size of the client area, which lies exactly on it at scale 1, so
// that client and image px agree; zooms in steps of 1.2 are taken back at the end. Inner tests only.

#include "support/ObjectCanvas.h"

#include <functional>

namespace vostel {

class OverlayScene : public ObjectCanvas {
public:
    explicit OverlayScene(int width = 400, int height = 300) : ObjectCanvas(0, width, height)
    {
        REQUIRE(IsScaleOne());
        ShowFlat(100);
    }
    ~OverlayScene() { Zoom(-ZoomedIn); }

    void ShowFlat(int level)
    {
        ShowGray(
            Window.Width, Window.Height, [level](int, int) { return level; }, false);
        REQUIRE(Region() == CRect(0, 0, Window.Width, Window.Height));
    }

    // Steps of Control and the wheel at the upper left corner of the image, which stays where it is.
    void Zoom(int steps)
    {
        ZoomedIn += steps;
        Paint();
        for (; steps > 0; --steps) {
            Wheel(0, 0, 120);
            Paint();
        }
        for (; steps < 0; ++steps) {
            Wheel(0, 0, -120);
            Paint();
        }
    }
    double Scale() const { return Canvas().View.Scale; }

    // Pixels of the last frame inside a rectangle for which the test holds.
    int Count(const CRect& r, const std::function<bool(unsigned int)>& test) const
    {
        int count = 0;
        for (int y = r.top; y < r.bottom; ++y)
            for (int x = r.left; x < r.right; ++x)
                if (x >= 0 && y >= 0 && x < Window.Width && y < Window.Height)
                    count += test(Pixel(x, y)) ? 1 : 0;
        return count;
    }
    int Count(const CRect& r, unsigned int pixel) const
    {
        return Count(r, [pixel](unsigned int shown) { return shown == pixel; });
    }
    CRect Whole() const { return CRect(0, 0, Window.Width, Window.Height); }

    const std::vector<CString>& Messages() const { return Desktop.Messages; }

private:
    int ZoomedIn = 0;
};

inline const wchar_t* const NoView = L"显示信息未提供";

inline unsigned int RedOf(unsigned int pixel)
{
    return pixel >> 16 & 0xFF;
}
inline unsigned int GreenOf(unsigned int pixel)
{
    return pixel >> 8 & 0xFF;
}
inline unsigned int BlueOf(unsigned int pixel)
{
    return pixel & 0xFF;
}

}
