#include "vostel/CanvasEvents.h"

#include "base/Truncate.h"
#include "canvas/exports/CanvasTable.h"
#include "platform/HostServices.h"

using namespace vostel;

namespace {

CPoint PointOf(LPARAM position)
{
    // Zero-extended on purpose: a captured mouse left of or above the client area arrives as a large positive
    // coordinate.
    return CPoint(static_cast<int>(position & 0xFFFF), static_cast<int>(position >> 16 & 0xFFFF));
}

POINT ScreenPointOf(LPARAM position)
{
    POINT point;
    point.x = static_cast<short>(position & 0xFFFF);
    point.y = static_cast<short>(position >> 16 & 0xFFFF);
    return point;
}

void Place(VostelFixedRect& control, int x, int y, int w, int h)
{
    control.SetPlacement(static_cast<float>(x), static_cast<float>(y), static_cast<float>(w),
                         static_cast<float>(h));
}

}

void gCVSSetClient(int canvas, CRect& clientRect, HDC dc)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->SetClient(clientRect, dc);
}

void gCVSOnDraw(int canvas, HDC)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->PaintAll();
}

void gCVSOnLButtonDown(int canvas, unsigned int flags, CPoint point)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->OnLButtonDown(flags, point);
}

void gCVSOnLButtonUp(int canvas, unsigned int flags, CPoint point)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->OnLButtonUp(flags, point);
}

void gCVSOnMouseMove(int canvas, unsigned int flags, CPoint point)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->OnMouseMove(flags, point);
}

void gCVSOnMouseWheel(int canvas, unsigned int flags, short delta, CPoint point)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->OnMouseWheel(flags, delta, point);
}

void gCVSOnKeyDown(int canvas, unsigned int key, unsigned int repeat, unsigned int keyFlags)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->OnKeyDown(key, repeat, keyFlags);
}

void gCVSOnTimer(int canvas, unsigned long long timerId)
{
    VostelImage* const image = FindCanvas(canvas);
    if (image && image->ShowContrastCtrl)
        image->ContrastCtrl.OnTimer(timerId);
}

bool gCVSRespondToMessage(MSG* message, int canvas)
{
    VostelImage* const image = FindCanvas(canvas);
    if (!message || !image)
        return true;
    const unsigned int flags = static_cast<unsigned int>(message->wParam & 0xFFFF);
    switch (message->message) {
    case WM_MOUSEMOVE:
        image->OnMouseMove(flags, PointOf(message->lParam));
        break;
    case WM_LBUTTONDOWN:
        image->OnLButtonDown(flags, PointOf(message->lParam));
        break;
    case WM_LBUTTONUP:
        image->OnLButtonUp(flags, PointOf(message->lParam));
        break;
    case WM_MOUSEWHEEL:
        image->OnMouseWheel(flags, static_cast<short>(message->wParam >> 16 & 0xFFFF),
                            ScreenToHostWindow(message->hwnd, ScreenPointOf(message->lParam)));
        break;
    case WM_KEYDOWN:
        image->OnKeyDown(static_cast<unsigned int>(message->wParam),
                         static_cast<unsigned int>(message->lParam & 0xFFFF), flags);
        return true;
    default:
        return true;
    }
    InvalidateHostWindow(message->hwnd);
    return true;
}

void gCVSSetCanvasMoveMode(int canvas, DisplayMode mode)
{
    if (VostelImage* const image = FindCanvas(canvas))
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

void gCVSDelAllElement(int canvas)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->DeleteAll();
}

void gCVSDelSelElement(int canvas)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->DeleteSelected();
}

bool gCVSPrepareCanvas(int canvas, int width, int height)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->PrepareImage(width, height, true);
    return true;
}

void gCVSSetCanvasColor(int canvas, unsigned int colour)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->CanvasSurface.Fill(colour);
}

HDC gCVSGetCanvasHDC(int canvas)
{
    return CanvasToRead(canvas).CanvasSurface.MemDC;
}

unsigned int* gCVSGetCanvasPixelPtr(int canvas)
{
    return CanvasToRead(canvas).CanvasSurface.Pixels;
}

unsigned int** gCVSCreateCanvasPixelPtr2D(int canvas)
{
    VostelImage* const image = FindCanvas(canvas);
    return image ? image->CanvasSurface.CreateRowTable() : nullptr;
}

bool gCVSReleaseCanvasPixelPtr2D(int canvas)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->CanvasSurface.FreeRowTable();
    return true;
}

void gCVSSetCanvasFastDisplayMode(int canvas, bool fast)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->CanvasSurface.StretchMode = fast ? COLORONCOLOR : HALFTONE;
}

HDC gCVSGetClientMemDC(int canvas)
{
    return CanvasToRead(canvas).ClientMemDC;
}

unsigned int* gCVSGetClientPixelPtr(int canvas)
{
    return CanvasToRead(canvas).ClientPixels;
}

unsigned int** gCVSCreateClientPixelPtr2D(int canvas)
{
    VostelImage* const image = FindCanvas(canvas);
    return image ? image->CreateClientRowTable() : nullptr;
}

bool gCVSReleaseClientPixelPtr2D(int canvas)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->FreeClientRowTable();
    return true;
}

void gCVSSetUseClientMemDCPixelDirect(int canvas, bool direct)
{
    if (VostelImage* const image = FindCanvas(canvas))
        image->UseDirect = direct;
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
