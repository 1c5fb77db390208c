#include "vostel/CanvasSaves.h"

#include "canvas/exports/CanvasTable.h"

using namespace vostel;

namespace {

void Save(int number, void (VostelImage::*operation)())
{
    if (const CanvasCall canvas{number})
        ((*canvas).*operation)();
}

}

void gCVSSaveClient(int canvas)
{
    Save(canvas, &VostelImage::SaveClient);
}

void gCVSSaveImaWithOverlap(int canvas)
{
    Save(canvas, &VostelImage::SaveImaWithOverlap);
}

void gCVSSaveNowShowIma(int canvas)
{
    Save(canvas, &VostelImage::SaveNowShowIma);
}

void gCVSSave8bit(int canvas)
{
    Save(canvas, &VostelImage::Save8bit);
}

void gCVSSaveRaw(int canvas)
{
    Save(canvas, &VostelImage::SaveRaw);
}

void gCVSSaveLabel(int canvas)
{
    Save(canvas, &VostelImage::SaveLabel);
}
