#include "common/Sheet.h"

#include "common/SelectedObject.h"

Sheet::Sheet(int width, int height)
{
    if (!Page.Create(width, height, 24))
        return;
    Context = Page.GetDC();
    const HBRUSH white = CreateSolidBrush(RGB(255, 255, 255));
    const CRect  whole(0, 0, width, height);
    FillRect(Context, &whole, white);
    DeleteObject(white);
}

Sheet::~Sheet()
{
    if (Context)
        Page.ReleaseDC();
}

void Sheet::Place(const Host& host, int x, int y, int width, int height, const wchar_t* name)
{
    GdiFlush();
    BitBlt(Context, x, y, width, height, host.Context(), 0, 0, SRCCOPY);
    const SelectedObject font(
        Context, CreateFontW(20, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"DejaVu Sans"));
    SetBkMode(Context, TRANSPARENT);
    SetTextColor(Context, RGB(40, 40, 40));
    const CString text(name);
    TextOutW(Context, x, y + height + 4, text, text.GetLength());
}

bool Sheet::Save(const std::string& path)
{
    if (!Context)
        return false;
    Page.ReleaseDC();
    Context = nullptr;
    return Page.Save(NameOf(path)) >= 0;
}
