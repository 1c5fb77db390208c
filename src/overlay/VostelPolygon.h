#pragma once

#include "overlay/VostelMPoint.h"

namespace vostel {

// A region bounded by straight lines through its nodes, always closed from last to first. Adding, dragging
// and clamping nodes is VostelMPoint's; this class knows the outline only.
class VostelPolygon : public VostelMPoint {
public:
    VostelPolygon();

    void        OnDraw(HDC dc) override;
    DerivedFrom PlacedBy() const override { return DerivedFrom::View; }

    std::optional<Outline> RegionOutline() const override;

protected:
    PointCounts CountsTaken() const override;
};

}
