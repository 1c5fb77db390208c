#include "vostel/CanvasControls.h"

#include "canvas/exports/CanvasTable.h"

using namespace vostel;

namespace {

void Place(VostelFixedRect& control, int x, int y, int w, int h)
{
    control.SetPlacement(static_cast<float>(x), static_cast<float>(y), static_cast<float>(w),
                         static_cast<float>(h));
}

}

void gCVSShowContrastCtrl(int canvas, bool show)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->ShowContrastCtrl = show;
}

void gCVSSetContrastCtrlRectPos(int canvas, int x, int y, int w, int h)
{
    if (VostelImage* const image = FindCanvas(canvas))
        Place(image->ContrastCtrl, x, y, w, h);
}

void gCVSShowProgress(int canvas, bool show)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->ShowProgress = show;
}

void gCVSSetProgressRectPos(int canvas, int x, int y, int w, int h)
{
    if (VostelImage* const image = FindCanvas(canvas))
        Place(image->ProgressCtrl, x, y, w, h);
}

void gCVSSetRange(int canvas, int low, int high)
{
    if (VostelImage* const image = FindCanvas(canvas)) {
        image->ProgressCtrl.RangeLow = low;
        image->ProgressCtrl.RangeHigh = high;
    }
}

void gCVSSetPos(int canvas, int pos)
{
    if (VostelImage* const image = FindCanvas(canvas)) {
        image->ProgressCtrl.Pos = pos;
        image->ProgressCtrl.RefreshClientGeometry();
    }
}
