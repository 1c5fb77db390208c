#include "instruments/TextExtent.h"

namespace vostel {

CRect TextExtent(HDC dc, const CString& text)
{
    CRect extent;
    if (!text.IsEmpty() && GetCurrentObject(dc, OBJ_BITMAP))
        DrawTextW(dc, text, text.GetLength(), &extent, DT_CALCRECT);
    return extent;
}

MeasuringContext::~MeasuringContext()
{
    SelectObject(Kit.Dc, GetStockObject(DEFAULT_GUI_FONT));
    DeleteDC(Kit.Dc);
    if (Kit.Font)
        DeleteObject(Kit.Font);
    Kit.Font = FontBefore;
    Kit.Dc = Before;
    Kit.Recorder = RecorderBefore;
}

}
