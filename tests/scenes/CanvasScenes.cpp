#include "Scenes.h"

namespace {

constexpr int canvas = 1;

// Whole frames of the engine, as a host gets them.
class Frame {
public:
    Frame(HDC dc, int width, int height) : dc(dc)
    {
        VostelHostServices services;
        services.ShowMessage = [](const CString&) {};    // a box would wait for a person
        gSetHostServices(services);
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

void Turn(int steps, CPoint point)
{
    short delta = steps < 0 ? -120 : 120;
    for (int i = 0; i < (steps < 0 ? -steps : steps); ++i)
        gCVSOnMouseWheel(canvas, MK_CONTROL, delta, point);
}

void Zoomed(HDC dc, int width, int height, int steps)
{
    Frame frame(dc, width, height);
    ShowImage(320, 200);
    frame.Paint();
    Turn(steps, CPoint(width / 3, height / 2));
    frame.Paint();
    Turn(-steps, CPoint(width / 3, height / 2));    // the scale outlives the image
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

void Pan(CPoint from, CPoint to)
{
    gCVSOnLButtonDown(canvas, MK_LBUTTON | MK_CONTROL, from);
    gCVSOnMouseMove(canvas, MK_LBUTTON | MK_CONTROL, to);
    gCVSOnLButtonUp(canvas, MK_CONTROL, to);
}

void Panned(HDC dc, int width, int height)
{
    Frame frame(dc, width, height);
    ShowImage(320, 200);
    frame.Paint();
    Pan(CPoint(100, 100), CPoint(171, 63));
    frame.Paint();
    Pan(CPoint(171, 63), CPoint(100, 100));    // the place outlives the image too
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

void Press(CPoint point)
{
    gCVSOnMouseMove(canvas, MK_SHIFT, point);
    gCVSOnLButtonDown(canvas, MK_LBUTTON | MK_SHIFT, point);
    gCVSOnLButtonUp(canvas, MK_SHIFT, point);
}

// Regions, strokes and measures drawn as a person draws them.
void Shapes(HDC dc, int width, int height)
{
    Frame frame(dc, width, height);
    ShowImage(320, 200);
    frame.Paint();
    gCVSAddPoly(canvas);
    for (CPoint point : {CPoint(120, 110), CPoint(220, 130), CPoint(200, 190), CPoint(140, 180)})
        Press(point);
    gCVSAddSpline(canvas);
    for (CPoint point : {CPoint(260, 120), CPoint(340, 150), CPoint(330, 230), CPoint(270, 210)})
        Press(point);
    gCVSAddFreeStroke(canvas);
    gCVSOnMouseMove(canvas, MK_SHIFT, CPoint(130, 220));
    gCVSOnLButtonDown(canvas, MK_LBUTTON | MK_SHIFT, CPoint(130, 220));
    for (int i = 1; i <= 30; ++i)
        gCVSOnMouseMove(canvas, MK_LBUTTON | MK_SHIFT, CPoint(130 + i * 4, 220 + i * i % 37));
    gCVSOnLButtonUp(canvas, MK_SHIFT, CPoint(250, 230));
    gCVSAddMRectangle(canvas);
    Press(CPoint(240, 250));
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
        {"canvas-shapes", 500, 400, 32, false, Agreement::Exact, Shapes},
        // The caption is text.
        {"canvas-slider", 500, 400, 32, false, Agreement::Glyphs, Slider},
    };
}
