#pragma once

#include "instruments/VostelPolyline.h"

namespace vostel {

// A straight arrow from its first point, the tail, to its second, the head. A Shift drag lays it.
class VostelArrow : public VostelPolyline {
public:
    VostelArrow();

protected:
    void        DrawMark() override;
    PointCounts CountsTaken() const override;
};

}
