// The settings of a context. A setter returns the previous value, or its failure value for a bad handle or a
// mode that GDI does not know.

#include "platform/portable/PortableContext.h"

#include <utility>

using namespace vostel::gdi;

int SetBkMode(HDC dc, int mode)
{
    Context* context = FindContext(dc);
    return !context || (mode != TRANSPARENT && mode != OPAQUE) ? 0 : std::exchange(context->BkMode, mode);
}

COLORREF SetBkColor(HDC dc, COLORREF color)
{
    Context* context = FindContext(dc);
    return context ? std::exchange(context->BkColor, color) : CLR_INVALID;
}

COLORREF SetTextColor(HDC dc, COLORREF color)
{
    Context* context = FindContext(dc);
    return context ? std::exchange(context->TextColor, color) : CLR_INVALID;
}

BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* before)
{
    Context* context = FindContext(dc);
    if (!context)
        return FALSE;
    if (before)
        *before = context->Origin;
    context->Origin = {x, y};
    return TRUE;
}

BOOL GdiFlush()
{
    return TRUE;
}

// The customary stand-in for the own process.
HANDLE GetCurrentProcess()
{
    return reinterpret_cast<HANDLE>(~static_cast<std::uintptr_t>(0));
}
