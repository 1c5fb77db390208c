#pragma once

#include "overlay/VostelPolygon.h"

namespace vostel {

// A region bounded by a smooth closed curve through its nodes, solved at the first paint after they have
// moved. Hits are tested on the polygon of the nodes, not on the curve.
class VostelSpline : public VostelPolygon {
public:
    std::vector<PointTemplateBase<int>> ClosedNodes;      // client px; the nodes with the first one repeated
    std::vector<PointTemplateBase<int>> ControlPoints;    // client px; kept, not drawn
    std::vector<PointTemplateBase<int>> CurvePoints;      // client px; the curve of the last paint

    VostelSpline();

    void                  OnDraw(HDC dc) override;
    DerivedFrom           PlacedBy() const override { return DerivedFrom::Paint; }
    std::optional<Bounds> PlaceOnImage() const override;    // the curve's, which passes through all nodes
    void                  DerivePainted() override;         // the curve
    Bounds                DrawnBox() const override;
    // The curve of the last paint, thinned to steps of at least 4 client px, in image px. False for fewer
    // than 3 curve points: a spline that was never painted has no outline.
    bool GetLabelOutline(std::vector<PointTemplateBase<int>>& out) override;
    void ClearPoints() override;

    std::optional<Outline> RegionOutline() const override;

protected:
    PointCounts CountsTaken() const override;

private:
    bool                                   IsSolved = false;    // the curve is that of ClosedNodes
    std::vector<PointTemplateBase<double>> ExactNodes;          // image px; those of ExactCurve
    Outline                                ExactCurve;          // of an open-made spline at its last paint

    bool HasSolved() const;    // for the client points as they are
};

}
