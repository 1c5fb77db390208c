#pragma once

#include "overlay/VostelObj.h"

namespace vostel {

// A rectangle anchored to the bottom of the client area with margins in client px; it neither pans nor zooms
// with the image. ClientBox of the base is the control's rectangle.
class VostelFixedRect : public VostelObj {
public:
    // At a pixel ratio of 1; the control grows with it.
    int LeftMargin = 0;      // client px from the left edge of the area to the control's left
    int BottomMargin = 0;    // client px from the bottom edge of the area to the control's bottom
    int FixedWidth = 0;      // client px
    int FixedHeight = 0;

    VostelFixedRect();

    void OnMouseMove(unsigned int flags, CPoint point) override;
    void OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags) override;
    void SetCanvasView(CanvasView* view) override;
    void RefreshClientGeometry() override;
    bool Covers(CPoint point) const override;
    void SetPlacement(float x, float y, float w, float h) override;
    void OnDraw(HDC dc) override;
    void Persist(StateArchive& archive) override;

    // Rebuilds ClientBox from the margins and the view's client rectangle; needs a view.
    virtual void UpdateAnchoredRect();
};

}
