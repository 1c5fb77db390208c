#pragma once

#include "overlay/VostelMPoint.h"

namespace vostel {

// A drawing of several separate strokes with an adjustable pen, a mark that never reaches the label image and
// may leave the image. It is hit by the box of its points.
class VostelCrayonMStroke : public VostelMPoint {
public:
    VostelCrayonMStroke();

    void OnLButtonDown(unsigned int flags, CPoint point) override;
    void OnLButtonUp(unsigned int flags, CPoint point) override;
    void OnMouseMove(unsigned int flags, CPoint point) override;
    void OnKeyDown(unsigned int key, unsigned int repeat, unsigned int keyFlags) override;
    bool Covers(CPoint point) const override;
    bool HitTest(CPoint point) override;
    void OnDraw(HDC dc) override;
    bool TakePoints(std::span<const PointTemplateBase<double>> points) override;    // as one stroke

    // The extremes of the client points, from starting values of 10000 and -10000; empty below two points.
    CRect StrokeBox() const;

protected:
    PointCounts CountsTaken() const override;
};

}
