#include "CanvasFrame.h"

// Measures, texts, read-outs and controls. Glyphs and the widths of texts are the platform's own: where the
// rest of a scene is to agree in every pixel, its captions are drawn with their upper left corner towards the
// shape and are covered afterwards.

namespace {

constexpr int CanvasNumber = 3;

void Cover(HDC dc, int left, int top, int width, int height)
{
    RECT   box = {left, top, left + width, top + height};
    HBRUSH brush = CreateSolidBrush(RGB(30, 60, 90));
    FillRect(dc, &box, brush);
    DeleteObject(brush);
}

// A canvas whose image a scene's gestures are made on.
class Session : public CanvasFrame {
public:
    Session(HDC dc, int width, int height, int steps = 0) : CanvasFrame(CanvasNumber, dc, width, height)
    {
        ShowImage(320, 200);
        Paint();
        Turn(steps, CPoint(200, 180));
        Paint();
    }
};

// A scene as it is, and one with its caption covered.
template <void (*Draw)(Session&), int Steps = 0>
void Whole(HDC dc, int width, int height)
{
    Session session(dc, width, height, Steps);
    Draw(session);
}
template <void (*Draw)(Session&), int Left, int Top, int Width, int Height>
void Covered(HDC dc, int width, int height)
{
    Session session(dc, width, height);
    Draw(session);
    Cover(dc, Left, Top, Width, Height);
    session.Keep();
}

// The caption of the first line, placed up and to the right of it, is dragged under it.
void Lengths(Session& session)
{
    gCVSAddMeasureLine(CanvasNumber, 0.0);
    session.Drag({CPoint(120, 240), CPoint(150, 250), CPoint(220, 270)}, MK_SHIFT);
    session.Drag({CPoint(275, 162), CPoint(260, 200), CPoint(245, 302)});
    gCVSAddMeasureLine(CanvasNumber, 0.0);
    session.Drag({CPoint(310, 120), CPoint(280, 180)}, MK_SHIFT);
}
void OneLength(Session& session)
{
    gCVSAddMeasureLine(CanvasNumber, 0.0);
    session.Drag({CPoint(120, 140), CPoint(150, 150), CPoint(220, 170)}, MK_SHIFT);
    session.Drag({CPoint(276, 61), CPoint(230, 235)});
}

void Angle3(Session& session)
{
    gCVSAddMeasureAngle3Pts(CanvasNumber);
    session.Paint();    // a caption can measure its text from its first paint on
    session.Press(CPoint(180, 230), MK_SHIFT);
    session.Drag({CPoint(330, 230), CPoint(320, 200)});    // an arm
    session.Drag({CPoint(86, 136), CPoint(226, 286)});     // the caption
}

void Angle4(Session& session)
{
    gCVSAddMeasureAngle4Pts(CanvasNumber);
    session.Paint();
    session.Press(CPoint(220, 260), MK_SHIFT);
    session.Drag({CPoint(420, 260), CPoint(400, 240)});    // the far end of the second line
    session.Drag({CPoint(26, 166), CPoint(286, 306)});     // the caption
}

// The plot after a drag of its frame, beside its line.
void Profile(Session& session)
{
    gCVSAddLineProfile(CanvasNumber);
    session.Drag({CPoint(100, 260), CPoint(200, 250), CPoint(390, 290)}, MK_SHIFT);
    session.Drag({CPoint(200, 100), CPoint(182, 90), CPoint(172, 81)});
}

// Marks of the C interface. Their captions lie up and to the right of them.
void Marks(Session& session)
{
    session.DrawNext(VOSTEL_POINTS);
    session.PressEach({CPoint(110, 250), CPoint(150, 260), CPoint(130, 290)}, MK_SHIFT);
    session.DrawNext(VOSTEL_POLYLINE);
    session.PressEach({CPoint(100, 130), CPoint(140, 200), CPoint(180, 150), CPoint(220, 170)}, MK_SHIFT);
    session.DrawNext(VOSTEL_ARROW);
    session.Drag({CPoint(260, 280), CPoint(280, 270), CPoint(330, 230)}, MK_SHIFT);
}
// Ending at the upper right, next to their captions; all right of there is covered.
void OpenLines(Session& session)
{
    session.DrawNext(VOSTEL_POLYLINE);
    session.PressEach({CPoint(100, 130), CPoint(140, 200), CPoint(180, 150), CPoint(200, 125)}, MK_SHIFT);
    session.DrawNext(VOSTEL_ARROW);
    session.Drag({CPoint(120, 290), CPoint(180, 270), CPoint(200, 240)}, MK_SHIFT);
}

// Measures and a read-out in English.
void English(Session& session)
{
    vostel_canvas_set_language(CanvasNumber, "en");
    session.DrawNext(VOSTEL_LENGTH);
    session.Drag({CPoint(120, 240), CPoint(150, 250), CPoint(220, 270)}, MK_SHIFT);
    session.DrawNext(VOSTEL_ANGLE);
    session.Press(CPoint(240, 250), MK_SHIFT);
    session.DrawNext(VOSTEL_POINTS);
    session.Press(CPoint(330, 280), MK_SHIFT);
    gCVSAddInfoWin(CanvasNumber);
    session.Move(CPoint(260, 190));
    session.Paint();
}

// One text of each style, one of them selected and dragged.
void TextStyles(Session& session)
{
    for (int style = FontPlain18; style <= FontCustom; ++style)
        gCVSAddTextOL(CanvasNumber, L"Sphinx 12.5", 60 + 30 * style, 60 + 60 * style,
                      static_cast<FontType>(style), style % 2 == 0 ? 2 : 1, RGB(0, 130, 40), 30);
    gCVSAddTextOLV2(CanvasNumber, L"in the image", 170, 20, FontRed22Framed, 1, 0, 0);
    session.Move(CPoint(1, 1));
    session.Paint();
    session.Drag({CPoint(70, 68), CPoint(120, 40)});
}

void Lines(Session& session)
{
    std::vector<CString> lines = {L"first line", L"2", L"a third, longer line"};
    gCVSAddTextML(CanvasNumber, lines, 60, 50);
    session.Move(CPoint(1, 1));
    session.Paint();
    session.Drag({CPoint(80, 70), CPoint(130, 150)});
}

void InfoWindow(Session& session)
{
    gCVSAddInfoWin(CanvasNumber);
    session.Move(CPoint(260, 190));
    session.Paint();
}

void Neighbours(Session& session)
{
    gCVSAddNeighborPV(CanvasNumber);
    session.Move(CPoint(260, 190));
    session.Paint();
}

// Both thumbs dragged in, the light one as far as the dark one lets it.
void SliderCovered(HDC dc, int width, int height)
{
    Session session(dc, width, height);
    gCVSShowContrastCtrl(CanvasNumber, true);
    gCVSSetContrastCtrlRectPos(CanvasNumber, 20, 30, 350, 30);
    gCVSShowProgress(CanvasNumber, true);
    gCVSSetProgressRectPos(CanvasNumber, 20, 70, 350, 20);
    gCVSSetRange(CanvasNumber, 10, 60);
    gCVSSetPos(CanvasNumber, 33);
    session.Paint();
    session.Drag({CPoint(86, 355), CPoint(150, 350), CPoint(200, 340)});
    session.Drag({CPoint(362, 355), CPoint(300, 355)});
    Cover(dc, 23, 342, 54, 24);
    session.Keep();
    session.Drag({CPoint(302, 355), CPoint(366, 355)});    // the window outlives the control
    session.Drag({CPoint(202, 355), CPoint(80, 355)});
}

}

std::vector<Scene> InstrumentScenes()
{
    return {
        {"length", 500, 400, 32, false, Agreement::Glyphs, Whole<Lengths>},
        {"length-covered", 500, 400, 32, false, Agreement::Exact, Covered<OneLength, 221, 226, 260, 40>},
        {"angle-of-three-points", 500, 400, 32, false, Agreement::Glyphs, Whole<Angle3>},
        {"angle-of-three-points-covered", 500, 400, 32, false, Agreement::Exact,
         Covered<Angle3, 217, 277, 260, 40>},
        {"angle-of-four-points", 500, 400, 32, false, Agreement::Glyphs, Whole<Angle4>},
        {"angle-of-four-points-covered", 500, 400, 32, false, Agreement::Exact,
         Covered<Angle4, 277, 297, 220, 40>},
        {"marks", 500, 400, 32, false, Agreement::Glyphs, Whole<Marks>},
        {"marks-covered", 500, 400, 32, false, Agreement::Exact, Covered<OpenLines, 200, 60, 300, 240>},
        {"english", 500, 400, 32, false, Agreement::Glyphs, Whole<English>},
        {"profile", 600, 400, 32, false, Agreement::Glyphs, Whole<Profile>},
        {"profile-covered", 600, 400, 32, false, Agreement::Exact, Covered<Profile, 6, 15, 420, 24>},
        {"text-styles", 500, 400, 32, false, Agreement::Glyphs, Whole<TextStyles>},
        {"text-lines", 500, 400, 32, false, Agreement::Glyphs, Whole<Lines>},
        {"info-window", 500, 400, 32, false, Agreement::Glyphs, Whole<InfoWindow, 2>},
        {"neighbour-grid", 500, 400, 32, false, Agreement::Glyphs, Whole<Neighbours, 2>},
        {"slider-and-progress-covered", 500, 400, 32, false, Agreement::Exact, SliderCovered},
    };
}
