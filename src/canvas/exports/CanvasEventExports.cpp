#include "vostel/CanvasEvents.h"

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

}

void gCVSOnDraw(int canvas, HDC)
{
    if (const CanvasCall image{canvas})
        image->PaintAll();
}

void gCVSOnLButtonDown(int canvas, unsigned int flags, CPoint point)
{
    if (const CanvasCall image{canvas})
        image->OnLButtonDown(flags, point);
}

void gCVSOnLButtonUp(int canvas, unsigned int flags, CPoint point)
{
    if (const CanvasCall image{canvas})
        image->OnLButtonUp(flags, point);
}

void gCVSOnMouseMove(int canvas, unsigned int flags, CPoint point)
{
    if (const CanvasCall image{canvas})
        image->OnMouseMove(flags, point);
}

void gCVSOnMouseWheel(int canvas, unsigned int flags, short delta, CPoint point)
{
    if (const CanvasCall image{canvas})
        image->OnMouseWheel(flags, delta, point);
}

void gCVSOnKeyDown(int canvas, unsigned int key, unsigned int repeat, unsigned int keyFlags)
{
    if (const CanvasCall image{canvas})
        image->OnKeyDown(key, repeat, keyFlags);
}

void gCVSOnTimer(int canvas, unsigned long long timerId)
{
    const CanvasCall image(canvas);
    if (image && image->ShowContrastCtrl)
        image->ContrastCtrl.OnTimer(timerId);
}

bool gCVSRespondToMessage(MSG* message, int canvas)
{
    const CanvasCall image(canvas);
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
