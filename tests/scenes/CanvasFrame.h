#pragma once

// A canvas of the engine that shows whole frames in a scene, driven as a host drives it.

#include "Scenes.h"

#include <vostel.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>

class CanvasFrame {
public:
    CanvasFrame(int number, HDC dc, int width, int height) : number(number), dc(dc)
    {
        VostelHostServices services;
        services.ShowMessage = [](const CString&) {};    // a box would wait for a person
        gSetHostServices(services);
        CRect client(0, 0, width, height);
        gCVSSetClient(number, client, dc);
        gCVSSetCanvasFastDisplayMode(number, true);
        gCVSSetCanvasMoveMode(number, DisplayZoomCursor);
    }
    ~CanvasFrame()
    {
        gCVSShowContrastCtrl(number, false);
        gCVSShowProgress(number, false);
        vostel_canvas_set_language(number, "zh");
        vostel_canvas_set_pixel_ratio(number, 1.0);
        gCVSDelAllElement(number);
        Turn(-turned, at);    // the scale outlives the image
    }
    CanvasFrame(const CanvasFrame&) = delete;
    CanvasFrame& operator=(const CanvasFrame&) = delete;

    void ShowImage(int width, int height)
    {
        std::vector<unsigned char> gray(static_cast<std::size_t>(width) * height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                gray[static_cast<std::size_t>(y) * width + x] =
                    static_cast<unsigned char>((x * 3) ^ (y * 5) ^ ((x / 16 + y / 16) & 1 ? 255 : 0));
        gCVSShowUCGray(number, gray.data(), width, height, true);
    }

    // Wheel steps with Control held, forwards zooming in.
    void Turn(int steps, CPoint point)
    {
        for (int i = 0; i < (steps < 0 ? -steps : steps); ++i)
            gCVSOnMouseWheel(number, MK_CONTROL, steps < 0 ? -120 : 120, point);
        turned += steps;
        at = point;
    }

    void Move(CPoint point, unsigned flags = 0) { gCVSOnMouseMove(number, flags, point); }

    // From press to release through a row of points, with MK_SHIFT or MK_CONTROL held or nothing. The window
    // is painted after each event, as an idle host does: boxes and middles of lines are those of the last
    // paint.
    void Drag(std::initializer_list<CPoint> points, unsigned held = 0)
    {
        bool down = false;
        for (CPoint point : points) {
            Move(point, down ? MK_LBUTTON | held : held);
            if (!down)
                gCVSOnLButtonDown(number, MK_LBUTTON | held, point);
            down = true;
            Paint();
        }
        gCVSOnLButtonUp(number, held, points.end()[-1]);
        Paint();
    }
    void Press(CPoint point, unsigned held = 0) { Drag({point}, held); }
    void PressEach(std::initializer_list<CPoint> points, unsigned held = 0)
    {
        for (CPoint point : points)
            Press(point, held);
    }

    void Key(unsigned key, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            gCVSOnKeyDown(number, key, 1, 0);
    }

    // A new object of the C interface, which the next gestures draw.
    VostelObject DrawNext(VostelKind kind)
    {
        VostelObject object = 0;
        vostel_draw_next(number, kind, &object);
        return object;
    }
    void SetStyle(VostelObject object, std::uint32_t fill, double width)
    {
        VostelStyle style = {};
        style.size = sizeof style;
        vostel_object_style(number, object, &style);
        style.fill_color = fill;
        style.line_width = width;
        vostel_object_set_style(number, object, &style);
    }

    // The last frame is the picture: what follows only puts the canvas back for the next scene.
    void Keep() { kept = true; }

    void Paint()
    {
        if (!kept)
            gCVSOnDraw(number, dc);
    }

private:
    int    number;
    HDC    dc;
    int    turned = 0;
    bool   kept = false;
    CPoint at;
};
