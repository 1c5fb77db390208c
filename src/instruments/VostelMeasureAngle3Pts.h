#pragma once

#include "instruments/VostelMeasureAngle.h"

namespace vostel {

// The angle at a vertex, the first point, between two arms. Measured on image points.
class VostelMeasureAngle3Pts : public VostelMeasureAngle {
public:
    VostelMeasureAngle3Pts();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    bool HitTest(CPoint point) override;
    void OnDraw(HDC dc) override;

private:
    CString Caption() const;
};

}
