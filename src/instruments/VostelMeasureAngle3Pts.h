#pragma once

#include "instruments/VostelMeasureAngle.h"

namespace vostel {

// The angle at a vertex, the first point, between two arms. Measured on image points.
class VostelMeasureAngle3Pts : public VostelMeasureAngle {
public:
    VostelMeasureAngle3Pts();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void OnDraw(HDC dc) override;

    std::vector<PointTemplateBase<double>> GivePoints() const override;    // end, vertex, end
    bool    TakePoints(std::span<const PointTemplateBase<double>> points) override;
    CString CaptionText() const override;

protected:
    PointCounts CountsTaken() const override;
    void        PlaceFirstLabel() override;
};

}
