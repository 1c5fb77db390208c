#pragma once

#include "overlay/VostelSizeFixedRect.h"

namespace vostel {

// One line of text in a box that is tied to an image position and can be dragged. The box keeps its size on
// the screen; only its first point is tied to the image.
//
// Measuring and drawing work on the context kept in Kit: before the first paint, or before a command has set
// it, a text measures zero.
class VostelTextRect : public VostelSizeFixedRect {
public:
    CPoint  Anchor;           // client px; top left, as last given
    int     TextWidth = 0;    // px, measured
    int     TextHeight = 0;
    int     PlainHeight = 18;    // px; of FontPlain18
    int     FittedHeight = 0;    // px; the font's when the size was measured
    CString Text;

    VostelTextRect();

    void SetPlacement(float x, float y, float w,
                      float h) override;    // x, y in client px; w, h as for the base
    // A Shift press places an open-made text that has no place yet.
    void    OnLButtonDown(unsigned int flags, CPoint point) override;
    void    RefreshClientGeometry() override;
    void    OnDraw(HDC dc) override;
    void    SetTextAndFit(CString& text) override;
    void    SetText(CString& text) override;    // the box keeps its size
    CRect   MeasureText(CString& text) override;
    void    SetTextAt(CString& text, CPoint at) override;
    CString GetResultText() override;
    void    DerivePainted() override;

    std::vector<PointTemplateBase<double>> GivePoints() const override;    // the upper left corner
    bool TakePoints(std::span<const PointTemplateBase<double>> points) override;
    // None, and no interior to hit by: a text is no region.
    std::optional<Outline> RegionOutline() const override;
    CString                CaptionText() const override;
    bool                   TakeText(const CString& text) override;
    void                   Persist(StateArchive& archive) override;

    // The text as a caption that others keep up: at a client point, moved into the client area; and in the
    // place that it has. Height in px; 0 for that of the plain style.
    void PlaceCaption(const CString& text, CPoint at, int height);
    void ShowCaption(const CString& text, int height);
    // The place alone of one that follows from the object that it belongs to.
    void PersistCaption(StateArchive& archive, bool follows);

    // Turns the style fields into font, color and flags of Kit.
    void ApplyTextStyle();

    // Of the style, in device px.
    int FontHeight() const;

    // Moves the box by a step in image px.
    void MoveBy(double dx, double dy);

    // The corner of ClientBox closest to p; bottom right if several are closest.
    CPoint NearestCorner(CPoint p) const;

private:
    // The extent of the text in its style.
    CRect Fit();
    void  PlaceMeasured(const CRect& extent);
    // The corner in image px, the size in client px.
    void PlaceCorner(PointTemplateBase<double> corner, int width, int height);
};

}
