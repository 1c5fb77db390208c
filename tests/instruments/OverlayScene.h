#pragma once

// A canvas with objects, as inner tests look at it. An image of the size of the client area lies exactly on
// it at scale 1, so that client and image px agree; zooms in steps of 1.2 are taken back at the end.

#include "canvas/exports/CanvasTable.h"
#include "support/HostCanvas.h"

#include <functional>

namespace vostel {

class OverlayScene {
public:
    static constexpr unsigned int Shift = MK_LBUTTON | MK_SHIFT;

    HostCanvas   Host;
    VostelImage& Canvas;

    explicit OverlayScene(int width = 400, int height = 300) : Host(0, width, height), Canvas(gCanvasTable[0])
    {
        REQUIRE(Host.IsScaleOne());
        ShowFlat(100);
    }
    ~OverlayScene() { Zoom(-ZoomedIn); }

    void ShowFlat(int level)
    {
        Host.ShowGray(
            Host.Window.Width, Host.Window.Height, [level](int, int) { return level; }, false);
        REQUIRE(Host.Region() == CRect(0, 0, Host.Window.Width, Host.Window.Height));
    }

    // Steps of Control and the wheel at the upper left corner of the image, which stays where it is.
    void Zoom(int steps)
    {
        ZoomedIn += steps;
        Host.Paint();
        for (; steps > 0; --steps) {
            Host.Wheel(0, 0, 120);
            Host.Paint();
        }
        for (; steps < 0; ++steps) {
            Host.Wheel(0, 0, -120);
            Host.Paint();
        }
    }
    double Scale() const { return Canvas.View.Scale; }

    template <typename Object>
    Object& Last() const
    {
        REQUIRE_FALSE(Canvas.Elements.empty());
        Object* const object = dynamic_cast<Object*>(Canvas.Elements.back());
        REQUIRE(object != nullptr);
        return *object;
    }

    // Pixels of the last frame inside a rectangle for which the test holds.
    int Count(const CRect& r, const std::function<bool(unsigned int)>& test) const
    {
        int count = 0;
        for (int y = r.top; y < r.bottom; ++y)
            for (int x = r.left; x < r.right; ++x)
                if (x >= 0 && y >= 0 && x < Host.Window.Width && y < Host.Window.Height)
                    count += test(Host.Pixel(x, y)) ? 1 : 0;
        return count;
    }
    int Count(const CRect& r, unsigned int word) const
    {
        return Count(r, [word](unsigned int pixel) { return pixel == word; });
    }
    CRect Whole() const { return CRect(0, 0, Host.Window.Width, Host.Window.Height); }

    const std::vector<CString>& Messages() const { return Host.Desktop.Messages; }

private:
    int ZoomedIn = 0;
};

inline const wchar_t* const NoView = L"显示信息未提供";

inline unsigned int RedOf(unsigned int word)
{
    return word >> 16 & 0xFF;
}
inline unsigned int GreenOf(unsigned int word)
{
    return word >> 8 & 0xFF;
}
inline unsigned int BlueOf(unsigned int word)
{
    return word & 0xFF;
}

}
