#pragma once

#include "instruments/VostelTextRect.h"
#include "overlay/VostelSingleLine.h"

namespace vostel {

// A length with a live caption in a text box of its own, joined to the line by a dotted connector. The
// caption is placed at the first release after the line has its two points; from then on its place is the
// user's.
class VostelMeasureLine : public VostelSingleLine {
public:
    VostelTextRect Label;
    bool           LabelUnplaced = true;
    bool           LabelHit = false;    // the last HitTest fell on the caption

    VostelMeasureLine();

    void    OnLButtonDown(unsigned int flags, CPoint point) override;
    void    OnLButtonUp(unsigned int flags, CPoint point) override;
    void    OnMouseMove(unsigned int flags, CPoint point) override;
    void    SetCanvasView(CanvasView* view) override;
    bool    Covers(CPoint point) const override;
    bool    HitTest(CPoint point) override;
    void    OnDraw(HDC dc) override;
    CString GetResultText() override;
    void    DerivePainted() override;

    bool    TakePoints(std::span<const PointTemplateBase<double>> points) override;
    CString CaptionText() const override;
    void    Persist(StateArchive& archive) override;

private:
    void PlaceLabel();
    void RefreshLabel();
};

}
