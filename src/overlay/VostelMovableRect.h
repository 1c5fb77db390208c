#pragma once

#include "overlay/VostelObj.h"

namespace vostel {

// A panel that lives in client px: a frame that the user drags around, untouched by pan and zoom. ClientBox
// is its rectangle.
class VostelMovableRect : public VostelObj {
public:
    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    bool Covers(CPoint point) const override;
    bool HitTest(CPoint point) override;                               // writes Selected
    void SetPlacement(float x, float y, float w, float h) override;    // client px, truncated
    void OnDraw(HDC dc) override;

    std::vector<PointTemplateBase<double>> GivePoints() const override;    // the upper left corner
    bool TakePoints(std::span<const PointTemplateBase<double>> points) override;
    void Persist(StateArchive& archive) override;

private:
    void MoveCorner(CPoint corner);    // upper left; the size stays
};

}
