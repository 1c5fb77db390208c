#pragma once

#include "overlay/VostelMPoint.h"

namespace vostel {

// A region drawn freehand: while a stroke is open every mouse move adds a point. A second stroke goes on in
// the same outline; MaxPoints is not looked at.
class VostelCrayonOneStroke : public VostelMPoint {
public:
    bool StrokeDone = true;    // false while a stroke is being drawn

    VostelCrayonOneStroke();

    void        OnLButtonDown(unsigned int flags, CPoint point) override;
    void        OnLButtonUp(unsigned int flags, CPoint point) override;
    void        OnMouseMove(unsigned int flags, CPoint point) override;
    void        OnDraw(HDC dc) override;
    DerivedFrom PlacedBy() const override { return DerivedFrom::View; }

    bool                   TakePoints(std::span<const PointTemplateBase<double>> points) override;
    std::optional<Outline> RegionOutline() const override;
    void                   Persist(StateArchive& archive) override;

protected:
    PointCounts CountsTaken() const override;
};

}
