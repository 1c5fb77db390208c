#pragma once

#include "instruments/VostelTextRect.h"
#include "overlay/VostelMPoint.h"

namespace vostel {

// What the two angle measures share: a caption in a text box of its own that takes every press, move and
// release too, so that it can be dragged as a box, and a dotted connector to it.
class VostelMeasureAngle : public VostelMPoint {
public:
    VostelTextRect Label;
    bool           LabelHit = false;    // the last HitTest fell on the caption

    VostelMeasureAngle();

    void OnLButtonUp(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void SetCanvasView(CanvasView* view) override;
    bool Hits(CPoint point) const override;
    bool HitTest(CPoint point) override;
    void DerivePainted() override;

    bool TakePoints(std::span<const PointTemplateBase<double>> points) override;
    void Persist(StateArchive& archive) override;

protected:
    // Bookkeeping that opens a press: the node under it becomes the active one.
    void BeginPress(CPoint point);
    // The caption's text for an angle between two directions, in degrees.
    static CString AngleText(double ax, double ay, double bx, double by);
    void           DrawConnector(CPoint from);
    // Shows the caption in a new box at a client point.
    void         PlaceLabel(float x, float y, float width, float height);
    virtual void PlaceFirstLabel() = 0;
};

}
