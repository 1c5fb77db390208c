#pragma once

#include "geometry/Outline.h"
#include "platform/TextShapes.h"
#include "vostel/Containers.h"
#include "vostel/platform.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vostel {

enum class VectorForm {
    Lines,        // joined straight lines
    Rectangle,    // by its upper left and lower right corner
    Ellipse,      // in the box of those corners
    Curve,        // closed cubic Bézier segments, as those of an Outline
    Text          // a line of it; its point is where the base line begins
};

// A shape with its place in px of the picture: pixel (i, j) covers [i, i + 1) x [j, j + 1). Colors are
// 0xAARRGGBB, alpha 0 for nothing.
struct VectorShape {
    VectorForm              Form = VectorForm::Lines;
    std::vector<ImagePoint> Points;
    bool                    Closed = false;    // Lines: from the last to the first
    unsigned int            Stroke = 0;
    double                  StrokeWidth = 1.0;
    bool                    RoundEnds = false;
    double                  Dash = 0.0;    // of dashes and of the gaps between them; 0 for an unbroken line
    unsigned int            Fill = 0;      // of the interior by the even-odd rule, of a text its color

    std::wstring          Line;    // what a text says
    double                TextWidth = 0.0;
    FontSizes             Sizes;
    std::vector<PathStep> Glyphs;              // from the point on; only where the drawing asks for them
    bool                  IsShadow = false;    // of the text that follows
    std::optional<CRect>  Clip;                // what of a text that leaves its box is shown
};

// The shapes of an object, or of what belongs to none.
struct VectorGroup {
    std::string              Name;    // UTF-8
    std::vector<VectorShape> Shapes;
};

// Objects as shapes instead of pixels. A view that holds one has the kits of its objects record here what
// they would paint: what covers the same pixels as GDI's drawing does, but for edges.
class VectorDrawing {
public:
    const int                Width;    // px of the picture
    const int                Height;
    const bool               WithGlyphs;    // whether texts bring their glyphs
    std::vector<VectorGroup> Groups;        // from the lowest to the topmost

    VectorDrawing(int width, int height, bool withGlyphs)
        : Width(width), Height(height), WithGlyphs(withGlyphs)
    {
    }

    // What is recorded from now on belongs to an object of that name.
    void BeginGroup(std::string name);

    // As PaintKit draws them; points are client px.
    void AddLine(CPoint a, CPoint b, int width, COLORREF color);
    void AddDottedLine(CPoint a, CPoint b, COLORREF color);
    void AddPolyline(std::vector<ImagePoint> points, bool closed, int width, COLORREF color);
    void AddRectangle(const CRect& r, int width, COLORREF color);
    void AddEllipse(const CRect& r, int width, COLORREF color);
    // The outline of a region, as it is.
    void AddOutline(const Outline& clientOutline, int width, COLORREF color);
    void AddFilledBox(const CRect& r, COLORREF color);
    // 0xAARRGGBB over what is inside.
    void AddInterior(const Outline& clientOutline, unsigned int color);
    // In the font of the context and the color that is set.
    void AddText(HDC dc, const CString& text, int left, int top);
    void AddShadowedText(HDC dc, const CString& text, int left, int top, int shadow, COLORREF color);
    // On one line in the middle of a box, & marks taken out as they are when text is drawn in boxes.
    void AddTextInBox(HDC dc, const CString& text, const CRect& box);

    // What of a context's state the shapes depend on. The gaps of a dotted line are white in OPAQUE.
    void SetBackgroundMode(int mode);
    void SetTextColor(COLORREF color) { TextColor = color; }

private:
    int      BackgroundMode = OPAQUE;
    COLORREF TextColor = RGB(0, 0, 0);

    VectorShape& Add(VectorForm form, std::vector<ImagePoint> points);
    VectorShape& AddStroke(VectorForm form, std::vector<ImagePoint> points, int width, COLORREF color);
    VectorShape& AddTextLine(HDC dc, std::wstring line, double left, double top);
};

}
