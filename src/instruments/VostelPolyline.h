#pragma once

#include "instruments/VostelMarking.h"

namespace vostel {

// An open line through its nodes, whose caption gives its length.
class VostelPolyline : public VostelMarking {
public:
    VostelPolyline();

    CString CaptionText() const override;

protected:
    bool        HitsMark(CPoint point) const override;    // near the line
    void        DrawMark() override;
    PointCounts CountsTaken() const override;
};

}
