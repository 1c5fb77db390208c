#pragma once

#include "overlay/VostelMPoint.h"

namespace vostel {

// A line with a handle at each end and a third at its middle that moves it; the base of all two-point shapes.
// Only descendants are placed on a canvas.
class VostelSingleLine : public VostelMPoint {
public:
    CPoint MidPoint;    // client px, of the last paint
    CRect  MidRect;     // client px; the middle handle

    VostelSingleLine();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void RefreshClientGeometry() override;
    void OnDraw(HDC dc) override;
    void DerivePainted() override;    // middle handle and boxes

protected:
    PointCounts CountsTaken() const override;
    // The outline of ClientBox, as a rectangle or an ellipse.
    void DrawBox(COLORREF color);
};

}
