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

protected:
    // Bookkeeping that opens a press: the node under it becomes the active one.
    void BeginPress(CPoint point);
    // The caption's text for an angle between two directions, in degrees.
    static CString AngleText(double ax, double ay, double bx, double by);
    void           DrawConnector(CPoint from);
};

}
