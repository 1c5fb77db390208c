#include "CanvasFrame.h"

namespace {

constexpr int CanvasNumber = 1;

void Zoomed(HDC dc, int width, int height, int steps)
{
    CanvasFrame frame(CanvasNumber, dc, width, height);
    frame.ShowImage(320, 200);
    frame.Paint();
    frame.Turn(steps, CPoint(width / 3, height / 2));
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
    CanvasFrame frame(CanvasNumber, dc, width, height);
    frame.ShowImage(320, 200);
    frame.Paint();
    frame.Drag({CPoint(100, 100), CPoint(171, 63)}, MK_CONTROL);
    frame.Keep();
    frame.Drag({CPoint(171, 63), CPoint(100, 100)}, MK_CONTROL);    // the place outlives the image too
}

void Progress(HDC dc, int width, int height)
{
    CanvasFrame frame(CanvasNumber, dc, width, height);
    frame.ShowImage(320, 200);
    gCVSShowProgress(CanvasNumber, true);
    gCVSSetProgressRectPos(CanvasNumber, 30, 20, 300, 24);
    gCVSSetRange(CanvasNumber, 0, 70);
    gCVSSetPos(CanvasNumber, 43);
    frame.Paint();
}

void Slider(HDC dc, int width, int height)
{
    CanvasFrame frame(CanvasNumber, dc, width, height);
    frame.ShowImage(320, 200);
    gCVSShowContrastCtrl(CanvasNumber, true);
    gCVSSetContrastCtrlRectPos(CanvasNumber, 20, 30, 350, 30);
    frame.Paint();
}

// Regions, strokes and measures drawn as a person draws them.
void Shapes(HDC dc, int width, int height)
{
    CanvasFrame frame(CanvasNumber, dc, width, height);
    frame.ShowImage(320, 200);
    frame.Paint();
    gCVSAddPoly(CanvasNumber);
    frame.PressEach({CPoint(120, 110), CPoint(220, 130), CPoint(200, 190), CPoint(140, 180)}, MK_SHIFT);
    gCVSAddSpline(CanvasNumber);
    frame.PressEach({CPoint(260, 120), CPoint(340, 150), CPoint(330, 230), CPoint(270, 210)}, MK_SHIFT);
    gCVSAddFreeStroke(CanvasNumber);
    frame.Move(CPoint(130, 220), MK_SHIFT);
    gCVSOnLButtonDown(CanvasNumber, MK_LBUTTON | MK_SHIFT, CPoint(130, 220));
    for (int i = 1; i <= 30; ++i)
        frame.Move(CPoint(130 + i * 4, 220 + i * i % 37), MK_LBUTTON | MK_SHIFT);
    gCVSOnLButtonUp(CanvasNumber, MK_SHIFT, CPoint(250, 230));
    gCVSAddMRectangle(CanvasNumber);
    frame.Press(CPoint(240, 250), MK_SHIFT);
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
