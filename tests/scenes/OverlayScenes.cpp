#include "CanvasFrame.h"
#include "support/RegionAnswer.h"

// Every shape that is drawn on an image, by gestures, selected and not, enlarged and not. None has text, so
// that every pixel has to agree.

namespace {

constexpr int CanvasNumber = 2;

// What the gestures of a scene do on a canvas that shows an image, once plain and once zoomed.
void Drawn(HDC dc, int width, int height, int steps, void (*gestures)(CanvasFrame&))
{
    CanvasFrame frame(CanvasNumber, dc, width, height);
    frame.ShowImage(320, 200);
    frame.Paint();
    frame.Turn(steps, CPoint(200, 180));
    frame.Paint();
    gestures(frame);
    frame.Paint();
}

// Nodes on a rough ring; the numbers are whole, so that no platform's sine comes in.
void PressRing(CanvasFrame& frame, int x, int y, int radius, int count)
{
    constexpr int Cosines[12] = {100, 87, 50, 0, -50, -87, -100, -87, -50, 0, 50, 87};
    for (int i = 0; i < count; ++i) {
        const int at = i * 12 / count;
        const int r = radius - (i * 7) % 11;
        frame.Press(CPoint(x + r * Cosines[at] / 100, y + r * Cosines[(at + 9) % 12] / 100), MK_SHIFT);
    }
}

// One of each count, the last one selected; then a node of the first is dragged and another shape moved.
void Polygons(CanvasFrame& frame)
{
    const int counts[] = {12, 3, 2, 1};
    for (int i = 0; i < 4; ++i) {
        gCVSAddPoly(CanvasNumber);
        PressRing(frame, 140 + 75 * i, 150 + 20 * i, 36, counts[i]);
    }
    frame.Drag({CPoint(176, 150), CPoint(190, 110), CPoint(196, 105)});
    frame.Drag({CPoint(205, 165), CPoint(200, 210)});
}

void Splines(CanvasFrame& frame)
{
    const int counts[] = {12, 5, 2, 1};
    for (int i = 0; i < 4; ++i) {
        gCVSAddSpline(CanvasNumber);
        PressRing(frame, 140 + 75 * i, 150 + 20 * i, 36, counts[i]);
    }
    frame.Drag({CPoint(140, 150), CPoint(150, 190)});
}

void Stroke(CanvasFrame& frame, int x, int y, int seed)
{
    SceneRandom random(static_cast<std::uint32_t>(seed));
    frame.Move(CPoint(x, y), MK_SHIFT);
    gCVSOnLButtonDown(CanvasNumber, MK_LBUTTON | MK_SHIFT, CPoint(x, y));
    for (int i = 0; i < 40; ++i) {
        x += random.Between(-4, 9);
        y += random.Between(-9, 9);
        frame.Move(CPoint(x, y), MK_LBUTTON | MK_SHIFT);
    }
    gCVSOnLButtonUp(CanvasNumber, MK_SHIFT, CPoint(x, y));
}

// Interiors of every kind of region, one over another and over the window's edge.
void Fills(CanvasFrame& frame)
{
    frame.SetStyle(frame.DrawNext(VOSTEL_POLYGON), 0x80FF8000, 1.0);
    for (int i = 0; i < 5; ++i)
        frame.Press(CPoint(120 + 60 * (i * 2 % 5), 120 + 100 * (i % 2) + 9 * i), MK_SHIFT);
    const VostelObject ellipse = frame.DrawNext(VOSTEL_RECTANGLE);
    frame.SetStyle(ellipse, 0x4000FF40, 1.0);
    frame.Drag({CPoint(200, 130), CPoint(330, 170), CPoint(395, 285)}, MK_SHIFT);
    vostel_object_set_flags(CanvasNumber, ellipse, VOSTEL_ELLIPSE);
    frame.SetStyle(frame.DrawNext(VOSTEL_SPLINE), 0x600060FF, 1.0);
    PressRing(frame, 160, 250, 60, 7);
    VostelObject      box = 0;
    const VostelPoint corners[2] = {{-400.5, 150.25}, {40.75, 900.0}};
    vostel_object_add(CanvasNumber, VOSTEL_RECTANGLE, corners, 2, &box);
    frame.SetStyle(box, 0xB0FF00FF, 1.0);
    const VostelPoint star[5] = {
        {250.0, 20.5}, {290.5, 120.0}, {200.25, 60.0}, {300.0, 60.0}, {210.0, 120.75}};
    vostel_object_add(CanvasNumber, VOSTEL_FREE_REGION, star, 5, &box);
    frame.SetStyle(box, 0xFF203040, 1.0);
}

// Lines and handles of a screen of twice as many pixels, and a wide line.
void Twice(CanvasFrame& frame)
{
    vostel_canvas_set_pixel_ratio(CanvasNumber, 2.0);
    frame.DrawNext(VOSTEL_POLYGON);
    PressRing(frame, 180, 200, 60, 5);
    frame.SetStyle(frame.DrawNext(VOSTEL_POLYGON), 0, 3.0);
    PressRing(frame, 320, 220, 60, 4);
}

// The first one runs over the image's edge and along it.
void FreeRegions(CanvasFrame& frame)
{
    gCVSAddFreeRegion(CanvasNumber);
    Stroke(frame, 110, 120, 5);
    gCVSAddFreeRegion(CanvasNumber);
    Stroke(frame, 180, 210, 6);
    Stroke(frame, 150, 260, 7);
}

// Strokes of one drawing each with a pen of its own, and one of several strokes.
void Strokes(CanvasFrame& frame)
{
    const int raised[] = {0, 1, 4, 11, 60};
    for (int i = 0; i < 5; ++i) {
        gCVSAddFreeStroke(CanvasNumber);
        Stroke(frame, 120 + 20 * i, 130 + 35 * i, 20 + i);
        frame.Key('A', raised[i]);
    }
    gCVSAddFreeStroke(CanvasNumber);
    Stroke(frame, 260, 150, 31);
    Stroke(frame, 270, 190, 32);
    frame.Key('A', 3);
    frame.Key('D', 1);
}

// The first box is dragged at a corner, the last one stays selected.
void Rectangles(CanvasFrame& frame)
{
    gCVSAddMRectangle(CanvasNumber);
    frame.Drag({CPoint(120, 120), CPoint(180, 160), CPoint(190, 170)}, MK_SHIFT);
    frame.Drag({CPoint(192, 172), CPoint(210, 180)});
    gCVSAddMRectangle(CanvasNumber);
    frame.Drag({CPoint(330, 270), CPoint(250, 200)}, MK_SHIFT);
}

void Ellipses(CanvasFrame& frame)
{
    Rectangles(frame);
    frame.Key('E');
}

// Two boxes from the dialog: one dragged off the image, the other selected by a press inside it.
void CustomRectangles(CanvasFrame& frame)
{
    for (const int left : {20, 180}) {
        gDlgSetDialogs(RegionAnswer(left, 30, left + 90, 110));
        gCVSAddCustomRectangle(CanvasNumber);
    }
    gDlgSetDialogs(TessikDialogs());
    frame.Move(CPoint(1, 1));
    frame.Paint();
    frame.Drag({CPoint(150, 170), CPoint(70, 110)});
    frame.Press(CPoint(320, 200));
}

template <void (*Gestures)(CanvasFrame&), int Steps>
void Of(HDC dc, int width, int height)
{
    Drawn(dc, width, height, Steps, Gestures);
}

}

std::vector<Scene> OverlayScenes()
{
    return {
        {"overlay-polygons", 500, 400, 32, false, Agreement::Exact, Of<Polygons, 0>},
        {"overlay-polygons-zoomed", 500, 400, 32, false, Agreement::Exact, Of<Polygons, 4>},
        {"overlay-splines", 500, 400, 32, false, Agreement::Exact, Of<Splines, 0>},
        {"overlay-splines-zoomed", 500, 400, 24, true, Agreement::Exact, Of<Splines, -2>},
        {"overlay-free-regions", 500, 400, 32, false, Agreement::Exact, Of<FreeRegions, 0>},
        {"overlay-free-regions-zoomed", 500, 400, 32, false, Agreement::Exact, Of<FreeRegions, 2>},
        {"overlay-strokes", 500, 400, 32, false, Agreement::Exact, Of<Strokes, 0>},
        {"overlay-rectangles", 500, 400, 32, false, Agreement::Exact, Of<Rectangles, 0>},
        {"overlay-rectangles-zoomed", 500, 400, 32, false, Agreement::Exact, Of<Rectangles, 3>},
        {"overlay-ellipses", 500, 400, 32, false, Agreement::Exact, Of<Ellipses, 0>},
        {"overlay-custom-rectangles", 500, 400, 32, false, Agreement::Exact, Of<CustomRectangles, 0>},
        {"overlay-fills", 500, 400, 32, false, Agreement::Exact, Of<Fills, 0>},
        {"overlay-fills-zoomed", 500, 400, 32, false, Agreement::Exact, Of<Fills, 3>},
        {"overlay-twice-as-many-pixels", 500, 400, 32, false, Agreement::Exact, Of<Twice, 1>},
    };
}
