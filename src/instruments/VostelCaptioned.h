#pragma once

#include "instruments/VostelTextRect.h"
#include "overlay/VostelMPoint.h"

namespace vostel {

// A shape with a caption in a text box of its own that takes every press, move and release too, so that it
// can be dragged as a box, and with a dotted connector to it.
class VostelCaptioned : public VostelMPoint {
public:
    VostelTextRect Label;
    bool           LabelHit = false;    // the last HitTest fell on the caption

    void OnLButtonUp(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void SetCanvasView(CanvasView* view) override;
    bool Covers(CPoint point) const override;    // handles and caption
    bool HitTest(CPoint point) override;
    void DerivePainted() override;

    // The caption is placed at first and goes along later.
    bool TakePoints(std::span<const PointTemplateBase<double>> points) override;
    void Persist(StateArchive& archive) override;

protected:
    bool IsLabelPlaced() const { return !Label.ImagePoints.empty(); }
    // Shows the caption in a new box at a client point.
    void         PlaceLabel(float x, float y, float width, float height);
    virtual void PlaceFirstLabel() = 0;
    // Draws connector and caption, of an open-made shape with what it says now.
    void DrawLabel(HDC dc, CPoint from);

    // The caption says the measure after a move.
    void UpdateLabel();

private:
    void RefreshLabel();
};

}
