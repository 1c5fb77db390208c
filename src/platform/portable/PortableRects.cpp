// Rectangles as plain numbers. Sums wrap, as the processor's do.

#include "base/Truncate.h"
#include "platform/portable/PortableContext.h"

using namespace vostel;

BOOL PtInRect(const RECT* rect, POINT point)
{
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}

BOOL InflateRect(RECT* rect, int dx, int dy)
{
    if (!rect)
        return FALSE;
    rect->left = WrapSub(rect->left, dx);
    rect->top = WrapSub(rect->top, dy);
    rect->right = WrapAdd(rect->right, dx);
    rect->bottom = WrapAdd(rect->bottom, dy);
    return TRUE;
}

BOOL OffsetRect(RECT* rect, int dx, int dy)
{
    if (!rect)
        return FALSE;
    rect->left = WrapAdd(rect->left, dx);
    rect->top = WrapAdd(rect->top, dy);
    rect->right = WrapAdd(rect->right, dx);
    rect->bottom = WrapAdd(rect->bottom, dy);
    return TRUE;
}
