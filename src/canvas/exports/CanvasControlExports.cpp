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
    if (const CanvasCall image{canvas}) {
        image->ShowContrastCtrl = show;
        image->TellPictureChanged();
    }
}

void gCVSSetContrastCtrlRectPos(int canvas, int x, int y, int w, int h)
{
    if (const CanvasCall image{canvas}) {
        Place(image->ContrastCtrl, x, y, w, h);
        image->TellPictureChanged();
    }
}

void gCVSShowProgress(int canvas, bool show)
{
    if (const CanvasCall image{canvas}) {
        image->ShowProgress = show;
        image->TellPictureChanged();
    }
}

void gCVSSetProgressRectPos(int canvas, int x, int y, int w, int h)
{
    if (const CanvasCall image{canvas}) {
        Place(image->ProgressCtrl, x, y, w, h);
        image->TellPictureChanged();
    }
}

void gCVSSetRange(int canvas, int low, int high)
{
    if (const CanvasCall image{canvas}) {
        image->ProgressCtrl.RangeLow = low;
        image->ProgressCtrl.RangeHigh = high;
        image->TellPictureChanged();
    }
}

void gCVSSetPos(int canvas, int pos)
{
    if (const CanvasCall image{canvas}) {
        image->ProgressCtrl.Pos = pos;
        image->ProgressCtrl.RefreshClientGeometry();
        image->TellPictureChanged();
    }
}
