#pragma once

#include "vostel/Containers.h"
#include "vostel/platform.h"

#include <cstdint>
#include <vector>

namespace vostel {

class VectorDrawing;

// Shapes of DrawHandles; a handle of any other shape is not drawn.
enum HandleShapes : int { RoundHandles = 0, SquareHandles = 1 };

// The font of captions and measures, of that many px; the caller deletes it.
HFONT CreateCaptionFont(int height);

// The drawing toolkit that every drawn thing carries. It keeps a target context by reference and draws the
// few shapes of overlays. Each primitive makes its pen or brush, selects it, draws, restores and deletes,
// so that no drawing leaves a foreign object selected. With a recorder the shapes go there instead; curves
// and backgrounds, which have no place in pictures, are painted in any case.
//
// Colors are GDI values, 0x00BBGGRR; all coordinates are client px.
class PaintKit {
public:
    int           BkMode = 0;    // of text: TRANSPARENT, OPAQUE, or 0 for none set
    COLORREF      TextColor = 0;
    int           FontHeight = 0;        // px
    int           PenWidth = 1;          // px; of solid lines and of outlines
    int           HandlePenWidth = 1;    // px; of handles and curves
    bool          HandlesOn = true;      // DrawHandles draws
    int           TextMargin = 3;        // px; between a text and the edge of its box
    bool          TextBoxBack = true;    // DrawTextBox fills its rectangle white first
    int           DashPeriod = 14;       // period of DashPhase
    unsigned int* PixelPtr = nullptr;    // borrowed; pixels of the bound surface
    int           DashPhase = 0;         // stepped by timer ticks; no drawing reads it
    std::int64_t  Spare[2] = {0, 0};
    int           BmpWidth = 0;    // px; of the bitmap selected in Dc
    int           BmpHeight = 0;
    HDC           Dc = nullptr;       // borrowed; owners store it before each drawing
    HPEN          Pen = nullptr;      // owned; nothing creates it
    HFONT         Font = nullptr;     // owned; replaced by SelectTextStyle
    HBRUSH        Brush = nullptr;    // owned; nothing creates it
    // Borrowed; null to paint. Texts are measured with Dc in any case.
    VectorDrawing* Recorder = nullptr;

    PaintKit() = default;
    ~PaintKit();
    PaintKit(const PaintKit&) = delete;
    PaintKit& operator=(const PaintKit&) = delete;

    // penStyle is a CreatePen style. Only solid lines have the width of the pen, others one pixel.
    void DrawLine(const CPoint& a, const CPoint& b, int unused, COLORREF color, int penStyle);
    // Text centred on one line of r, which is first inflated by TextMargin, for the caller too.
    void DrawTextBox(const CString& text, CRect& r);
    void DrawLabel(const CString& text, int x, int y);    // blue on nothing
    // With the upper left corner of its cell at x, y, over a black one that lies so many px right and below.
    void DrawShadowedText(const CString& text, int x, int y, int shadow, COLORREF color);
    // Makes and selects the font of the given height in px, and sets text color and background mode.
    void SelectTextStyle(int height, int bkMode, COLORREF color);
    void DrawEllipseOutline(const CRect& r, COLORREF color);
    void DrawRectOutline(const CRect& r, COLORREF color);
    // The first row of data as a red curve growing upwards from x0, y0, one pixel per column.
    void DrawCurve(StructData2D<unsigned short>& data, int x0, int y0);
    // Background around the image. covered may be skipped; the image is blitted over it next.
    void DrawHatchBackground(const CRect& r, const CRect& covered = CRect());
    // Selects what drawing begins with; DrawHatchBackground leaves it so.
    void SelectStock();
    // Notes the surface that Dc draws on, and its size, or that of what is recorded; shows "No bmp" if there
    // is none.
    void BindSurface(unsigned int* pixels);
    // Of CPoint or PointTemplateBase<int>.
    template <typename Point>
    void DrawClosedPolyline(const std::vector<Point>& points, COLORREF color);
    void DrawOpenPolyline(const std::vector<CPoint>& points, COLORREF color);
    // Several strokes in one point list; starts holds the ascending indices where a stroke begins.
    void DrawSegments(const std::vector<CPoint>& points, const std::vector<int>& starts, int penWidth,
                      COLORREF color);
    // Upright crosses whose arms reach so many pixels from the middle.
    void DrawCrosses(const std::vector<CPoint>& points, int arm, COLORREF color);
    void DrawHandles(const std::vector<CRect>& rects, COLORREF color, int shape);
    // Fills without an outline, right and bottom edge left out.
    void FillSolid(const CRect& r, COLORREF color);

private:
    void ApplyBkMode(int mode);
    void ApplyTextColor(COLORREF color);
};

}
