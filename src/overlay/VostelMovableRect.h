#pragma once

#include "overlay/VostelObj.h"

namespace vostel {

// A panel that lives in client px: a frame that the user drags around, untouched by pan and zoom. ClientBox
// is its rectangle.
class VostelMovableRect : public VostelObj {
public:
    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    bool HitTest(CPoint point) override;
    void SetPlacement(float x, float y, float w, float h) override;    // client px, truncated
    void OnDraw(HDC dc) override;
};

}
