#pragma once

#include "overlay/VostelRect.h"

namespace vostel {

// A box that is set by numbers and can only be moved, also off the image. No handle reacts, Shift has no
// meaning.
class VostelCustomRect : public VostelRect {
public:
    VostelCustomRect();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void SetPlacement(float x, float y, float w, float h) override;    // image px, truncated
    void OnDraw(HDC dc) override;
    void DerivePainted() override;
};

}
