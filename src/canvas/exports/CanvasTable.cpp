#include "canvas/exports/CanvasTable.h"

namespace vostel {

VostelImage gCanvasTable[CanvasCount];

VostelImage* FindCanvas(int number)
{
    return number >= 0 && number < CanvasCount ? &gCanvasTable[number] : nullptr;
}

VostelImage& CanvasToRead(int number)
{
    if (VostelImage* const canvas = FindCanvas(number))
        return *canvas;
    // A host may have written through a reference that it got from here; the next one starts afresh.
    static VostelImage nothing;
    nothing.Raw.Release();
    nothing.RawOri.Release();
    nothing.LabelIma.Release();
    return nothing;
}

}
