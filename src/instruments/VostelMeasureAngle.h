#pragma once

#include "instruments/VostelCaptioned.h"

namespace vostel {

// What the two angle measures share.
class VostelMeasureAngle : public VostelCaptioned {
public:
    VostelMeasureAngle();

protected:
    // Bookkeeping that opens a press: the node under it becomes the active one.
    void BeginPress(CPoint point);
    // The caption's text for an angle between two directions, in degrees.
    CString AngleText(double ax, double ay, double bx, double by) const;
};

}
