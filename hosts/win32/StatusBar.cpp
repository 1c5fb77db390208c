#include "StatusBar.h"

#include "commands/Commands.h"
#include "common/CanvasFacts.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <cwchar>

namespace vostel::viewer {

using namespace hosts;

namespace {

// Wide enough for these texts; the hint takes what is left.
const wchar_t* const Samples[] = {L"",
                                  L"x 99999  y 99999",
                                  L"value -0.0000000e+00",
                                  L"zoom 10000.0 %",
                                  L"99999 x 99999 float",
                                  L"a file of some length.png"};

std::wstring Format(const wchar_t* format, auto... values)
{
    wchar_t text[100];
    std::swprintf(text, 100, format, values...);
    return text;
}

}

void StatusBar::Create(HWND owner)
{
    Window = CreateWindowExW(0, STATUSCLASSNAMEW, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                             owner, nullptr, GetModuleHandleW(nullptr), nullptr);
}

void StatusBar::Layout()
{
    SendMessageW(Window, WM_SIZE, 0, 0);
    RECT client = {};
    GetClientRect(Window, &client);
    const HDC     dc = GetDC(Window);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(Window, WM_GETFONT, 0, 0)));
    int           right[PartCount] = {};
    int           edge = client.right - GetSystemMetrics(SM_CXVSCROLL);    // the size grip
    right[File] = -1;
    for (int part = File; part > Hint; --part) {
        SIZE size = {};
        GetTextExtentPoint32W(dc, Samples[part], static_cast<int>(std::wcslen(Samples[part])), &size);
        edge -= static_cast<int>(size.cx) + 12;
        right[part - 1] = std::max(edge, 0);
    }
    SelectObject(dc, before);
    ReleaseDC(Window, dc);
    SendMessageW(Window, SB_SETPARTS, PartCount, reinterpret_cast<LPARAM>(right));
}

int StatusBar::Height() const
{
    RECT rect = {};
    GetWindowRect(Window, &rect);
    return rect.bottom - rect.top;
}

void StatusBar::SetLanguage(Language language)
{
    Spoken = language;
    for (int part = 0; part < PartCount; ++part)    // of the other language
        SetPart(static_cast<Part>(part), L"");
}

std::wstring StatusBar::ZoomOf(int canvas) const
{
    return Filled(TextIn(Spoken, Words("zoom %1 %")), {Format(L"%.1f", ScaleOf(canvas) * 100.0)});
}

void StatusBar::ShowHint(const std::wstring& hint)
{
    SetPart(Hint, hint);
}

void StatusBar::ShowCursor(int canvas, CPoint client)
{
    double x = 0.0, y = 0.0;
    gCVSGetOriPt(canvas, client, x, y);
    const bool inside = gCVSGetFileType(canvas) != FileTypeNone && x >= 0.0 && y >= 0.0 &&
                        x < gCVSGetCanvasWidth(canvas) && y < gCVSGetCanvasHeight(canvas);
    SetPart(Position, inside ? Format(L"x %d  y %d", static_cast<int>(x), static_cast<int>(y)) : L"");
    SetPart(Value, inside ? Filled(TextIn(Spoken, Words("value %1")),
                                   {Format(L"%.6g", static_cast<double>(ValueUnder(canvas, client)))})
                          : std::wstring());
    SetPart(Zoom, ZoomOf(canvas));
}

void StatusBar::ShowCanvas(int canvas, const std::wstring& file)
{
    const FileType    type = gCVSGetFileType(canvas);
    const char* const text = type == FileTypeByte ? Words("%1 x %2 8 bit") : Words("%1 x %2 float");
    SetPart(Size, type == FileTypeNone
                      ? std::wstring()
                      : Filled(TextIn(Spoken, text), {std::to_wstring(gCVSGetCanvasWidth(canvas)),
                                                      std::to_wstring(gCVSGetCanvasHeight(canvas))}));
    SetPart(Zoom, ZoomOf(canvas));
    SetPart(File, file.substr(file.find_last_of(L"\\/") + 1));
}

void StatusBar::SetPart(Part part, const std::wstring& text)
{
    if (Shown[part] == text)    // repainting at each mouse move would flicker
        return;
    Shown[part] = text;
    SendMessageW(Window, SB_SETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text.c_str()));
}

}
