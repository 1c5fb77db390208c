#include "vostel/CanvasView.h"

#include "base/Truncate.h"
#include "canvas/exports/CanvasTable.h"

using namespace vostel;

void gCVSSetClient(int canvas, CRect& clientRect, HDC dc)
{
    if (const CanvasCall image{canvas})
        image->SetClient(clientRect, dc);
}

void gCVSSetCanvasMoveMode(int canvas, DisplayMode mode)
{
    if (const CanvasCall image{canvas})
        image->View.MoveMode = mode;
}

CRect gCVSGetCanvasRegion(int canvas)
{
    return CanvasToRead(canvas).View.DisplayRect;
}

int gCVSGetClientWidth(int canvas)
{
    const CRect& client = CanvasToRead(canvas).View.ClientRect;
    return WrapSub(client.right, client.left);
}

int gCVSGetClientHeight(int canvas)
{
    const CRect& client = CanvasToRead(canvas).View.ClientRect;
    return WrapSub(client.bottom, client.top);
}

void gCVSGetOriPt(int canvas, CPoint point, PointTemplateBase<double>& imagePoint)
{
    imagePoint = CanvasToRead(canvas).View.ClientToImage(point);
}

void gCVSGetOriPt(int canvas, CPoint point, double& imageX, double& imageY)
{
    const PointTemplateBase<double> imagePoint = CanvasToRead(canvas).View.ClientToImage(point);
    imageX = imagePoint.x;
    imageY = imagePoint.y;
}

void gCVSGetDisplayPt(int canvas, PointTemplateBase<double> imagePoint, CPoint& point)
{
    point = CanvasToRead(canvas).View.ImageToClient(imagePoint);
}

void gCVSGetDisplayPt(int canvas, double imageX, double imageY, CPoint& point)
{
    point = CanvasToRead(canvas).View.ImageToClient(PointTemplateBase<double>(imageX, imageY));
}
