#pragma once

#include "instruments/VostelFixedRect.h"

namespace vostel {

// The progress bar on the canvas.
class VostelProgress : public VostelFixedRect {
public:
    CRect BarRect;    // client px; the filled part
    int   RangeLow = 100;
    int   RangeHigh = 200;
    int   Pos = 150;

    void RefreshClientGeometry() override;
    void OnDraw(HDC dc) override;
    void Persist(StateArchive& archive) override;
};

}
