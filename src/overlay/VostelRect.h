#pragma once

#include "overlay/VostelSingleLine.h"

namespace vostel {

// A box that is rubber-banded on the image; saves look for it.
//
// ClientBox is only rebuilt at a paint, and a press inside it moves the box: a corner drags only on the part
// of its handle outside the box, and a new box has to be started from outside the old one. Both are intended,
// and neither holds for open-made boxes, whose handles come first.
class VostelRect : public VostelSingleLine {
public:
    VostelRect();

    void                  OnLButtonDown(unsigned int flags, CPoint point) override;
    void                  OnMouseMove(unsigned int flags, CPoint point) override;
    bool                  Covers(CPoint point) const override;
    void                  OnDraw(HDC dc) override;
    DerivedFrom           PlacedBy() const override { return DerivedFrom::Paint; }
    std::optional<Bounds> PlaceOnImage() const override;
    Bounds                DrawnBox() const override;

    std::optional<Outline> RegionOutline() const override;
};

}
