#include "Scenes.h"

namespace {

constexpr int canvas = 1;

// Whole frames of the engine, as a host gets them.
class Frame {
public:
    Frame(HDC dc, int width, int height) : dc(dc)
    {
        CRect client(0, 0, width, height);
        gCVSSetClient(canvas, client, dc);
        gCVSSetCanvasFastDisplayMode(canvas, true);
        gCVSSetCanvasMoveMode(canvas, DisplayZoomCursor);
    }
    ~Frame()
    {
        gCVSShowContrastCtrl(canvas, false);
        gCVSShowProgress(canvas, false);
        gCVSDelAllElement(canvas);
    }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    void Paint() { gCVSOnDraw(canvas, dc); }

private:
    HDC dc;
};

void ShowImage(int width, int height)
{
    std::vector<unsigned char> gray(static_cast<std::size_t>(width) * height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            gray[static_cast<std::size_t>(y) * width + x] =
                static_cast<unsigned char>((x * 3) ^ (y * 5) ^ ((x / 16 + y / 16) & 1 ? 255 : 0));
    gCVSShowUCGray(canvas, gray.data(), width, height, true);
}

void Zoomed(HDC dc, int width, int height, int steps)
{
    Frame frame(dc, width, height);
    ShowImage(320, 200);
    frame.Paint();
    for (int i = 0; i < (steps < 0 ? -steps : steps); ++i)
        gCVSOnMouseWheel(canvas, MK_CONTROL, steps < 0 ? -120 : 120, CPoint(width / 3, height / 2));
    frame.Paint();
}

void Fitted(HDC dc, int width, int height)
{
    Zoomed(dc, width, height, 0);
}
void ZoomedIn(HDC dc, int width, int height)
{
    Zoomed(dc, width, height, 3);
}
void ZoomedFarIn(HDC dc, int width, int height)
{
    Zoomed(dc, width, height, 9);
}
void ZoomedOut(HDC dc, int width, int height)
{
    Zoomed(dc, width, height, -4);
}

void Panned(HDC dc, int width, int height)
{
    Frame frame(dc, width, height);
    ShowImage(320, 200);
    frame.Paint();
    gCVSOnLButtonDown(canvas, MK_LBUTTON | MK_CONTROL, CPoint(100, 100));
    gCVSOnMouseMove(canvas, MK_LBUTTON | MK_CONTROL, CPoint(171, 63));
    gCVSOnLButtonUp(canvas, MK_CONTROL, CPoint(171, 63));
    frame.Paint();
}

void Progress(HDC dc, int width, int height)
{
    Frame frame(dc, width, height);
    ShowImage(320, 200);
    gCVSShowProgress(canvas, true);
    gCVSSetProgressRectPos(canvas, 30, 20, 300, 24);
    gCVSSetRange(canvas, 0, 70);
    gCVSSetPos(canvas, 43);
    frame.Paint();
}

void Slider(HDC dc, int width, int height)
{
    Frame frame(dc, width, height);
    ShowImage(320, 200);
    gCVSShowContrastCtrl(canvas, true);
    gCVSSetContrastCtrlRectPos(canvas, 20, 30, 350, 30);
    frame.Paint();
}

}

std::vector<Scene> CanvasScenes()
{
    return {
        {"canvas-fitted", 500, 400, 32, false, Agreement::Exact, Fitted},
        {"canvas-zoomed-in", 500, 400, 32, false, Agreement::Exact, ZoomedIn},
        {"canvas-zoomed-far-in", 500, 400, 32, false, Agreement::Exact, ZoomedFarIn},
        {"canvas-zoomed-out", 500, 400, 24, false, Agreement::Exact, ZoomedOut},
        {"canvas-panned", 500, 400, 32, true, Agreement::Exact, Panned},
        {"canvas-progress", 500, 400, 32, false, Agreement::Exact, Progress},
        // The caption is text.
        {"canvas-slider", 500, 400, 32, false, Agreement::Glyphs, Slider},
    };
}
