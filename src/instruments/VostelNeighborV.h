#pragma once

#include "instruments/VostelTextML.h"

namespace vostel {

// A read-out box with a grid of five by five pixel values round the cursor. The grid steps by client px: it
// shows what lies under the cursor on the screen, so that at a high scale neighbouring cells show one image
// pixel and at a low one cells skip image pixels.
class VostelNeighborV : public VostelObj {
public:
    VostelTextML Box;    // does the drawing and dragging

    VostelNeighborV();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnLButtonUp(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void SetCanvasView(CanvasView* view) override;
    bool Covers(CPoint point) const override;
    bool HitTest(CPoint point) override;
    void SetPlacement(float x, float y, float w, float h) override;
    void OnDraw(HDC dc) override;
    void DerivePainted() override;

    std::vector<PointTemplateBase<double>> GivePoints() const override;
    bool    TakePoints(std::span<const PointTemplateBase<double>> points) override;
    CString CaptionText() const override;
    void    Persist(StateArchive& archive) override;    // without the lines, which the mouse makes
};

}
