#pragma once

#include "instruments/VostelMeasureAngle.h"

namespace vostel {

// The angle between two lines given by two points each, at the point where they meet. Measured on client
// points: at high zoom the third decimal differs from that of the angle of three points.
class VostelMeasureAngle4Pts : public VostelMeasureAngle {
public:
    CPoint Cross = CPoint(100, 100);    // client px; where the lines meet
    CRect  CrossBox;                    // client px; the grip of the whole shape

    VostelMeasureAngle4Pts();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void SetCanvasView(CanvasView* view) override;
    bool Covers(CPoint point) const override;
    void OnDraw(HDC dc) override;
    void DerivePainted() override;

    CString CaptionText() const override;

protected:
    PointCounts CountsTaken() const override;
    void        PlaceFirstLabel() override;

private:
    void PlaceCross(int x, int y);
    void RefreshCross();
    bool IsCrossNear() const;
};

}
