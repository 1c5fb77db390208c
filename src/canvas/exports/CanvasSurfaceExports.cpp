#include "vostel/CanvasSurfaces.h"

#include "canvas/exports/CanvasTable.h"

using namespace vostel;

bool gCVSPrepareCanvas(int canvas, int width, int height)
{
    if (const CanvasCall image{canvas})
        image->PrepareImage(width, height, true);
    return true;
}

void gCVSSetCanvasColor(int canvas, unsigned int color)
{
    if (const CanvasCall image{canvas}) {
        image->HandOutSurface().Fill(color);
        image->TellPictureChanged();
    }
}

HDC gCVSGetCanvasHDC(int canvas)
{
    return CanvasToRead(canvas).HandOutSurface().MemDC;
}

unsigned int* gCVSGetCanvasPixelPtr(int canvas)
{
    return CanvasToRead(canvas).HandOutSurface().Pixels;
}

unsigned int** gCVSCreateCanvasPixelPtr2D(int canvas)
{
    const CanvasCall image(canvas);
    return image ? image->HandOutSurface().CreateRowTable() : nullptr;
}

bool gCVSReleaseCanvasPixelPtr2D(int canvas)
{
    if (const CanvasCall image{canvas})
        image->CanvasSurface.FreeRowTable();
    return true;
}

void gCVSSetCanvasFastDisplayMode(int canvas, bool fast)
{
    if (const CanvasCall image{canvas}) {
        image->CanvasSurface.StretchMode = fast ? COLORONCOLOR : HALFTONE;
        image->TellPictureChanged();
    }
}

HDC gCVSGetClientMemDC(int canvas)
{
    return CanvasToRead(canvas).HandOutClient();
}

unsigned int* gCVSGetClientPixelPtr(int canvas)
{
    return CanvasToRead(canvas).HandOutClientPixels();
}

unsigned int** gCVSCreateClientPixelPtr2D(int canvas)
{
    const CanvasCall image(canvas);
    return image ? image->CreateClientRowTable() : nullptr;
}

bool gCVSReleaseClientPixelPtr2D(int canvas)
{
    if (const CanvasCall image{canvas})
        image->FreeClientRowTable();
    return true;
}

void gCVSSetUseClientMemDCPixelDirect(int canvas, bool direct)
{
    if (const CanvasCall image{canvas})
        image->UseDirect = direct;
}
