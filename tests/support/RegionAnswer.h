#pragma once

#include <VostelObj.h>

// Dialogs of which the one for regions returns these edges, in image px.
inline TessikDialogs RegionAnswer(int left, int top, int right, int bottom)
{
    TessikDialogs dialogs;
    dialogs.ImaROIRectPara = [=](tagZEKImaROIRectPara& para) {
        para.RoiLeft = left;
        para.RoiTop = top;
        para.RoiRight = right;
        para.RoiBottom = bottom;
        return true;
    };
    return dialogs;
}
