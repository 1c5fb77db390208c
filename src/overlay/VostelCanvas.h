#pragma once

#include "overlay/VostelMovableRect.h"

namespace vostel {

// A small plot window: it takes a line of floats and draws it as a curve, with a caption that gives its
// range. Data holds the line.
class VostelCanvas : public VostelMovableRect {
public:
    ClassData2DIO<unsigned short> Plot;    // one row; height of each column above the frame's bottom, px
    int                           PlotWidth = 0;    // px; the frame's size at the last SetPlacement
    int                           PlotHeight = 0;
    float                         DataMin = 0.0f;
    float                         DataMax = 0.0f;
    CString                       Caption;          // in the place of the data's range, unless it is empty
    float                         XStep = 0.0f;     // data columns per plot column
    float                         YScale = 0.0f;    // plot px per data unit

    void SetPlacement(float x, float y, float w, float h) override;
    void OnDraw(HDC dc) override;
    // Fewer than 5 values leave the plot as it was and Data with a single element.
    void    SetData(ClassData2DIO<float>& source) override;
    CString CaptionText() const override;
    CString RangeText(double low, double high) const;    // what the caption says of a range
    // With the size of the plot; the curve is what its owner shows.
    void Persist(StateArchive& archive) override;
};

}
