#include "MeasuresDialog.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace vostel::viewer {

namespace {

constexpr int Width = 720, Height = 400, Margin = 10, ButtonWidth = 90, ButtonHeight = 26;    // px
constexpr int CopyId = 100, SaveId = 101;

// A dialog without controls of its own, of a size that the person changes.
struct SizableTemplate {
    DLGTEMPLATE Header = {};
    WORD        MenuClassTitle[3] = {};    // none, the standard one, set later
};

void PutOnClipboard(HWND owner, const std::wstring& text)
{
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL     memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (!memory)
        return;
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    const bool isOpen = OpenClipboard(owner) && EmptyClipboard();
    if (!isOpen || !SetClipboardData(CF_UNICODETEXT, memory))
        GlobalFree(memory);    // else it is the system's
    CloseClipboard();
}

}

MeasuresDialog::MeasuresDialog(const MeasureTable& table, Language language, const std::wstring& tabbed,
                               std::function<void()> save)
    : Table(table), Spoken(language), Tabbed(tabbed), Save(std::move(save))
{
}

void MeasuresDialog::Show(HWND owner)
{
    SizableTemplate sizable;
    sizable.Header.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &sizable.Header, owner, Procedure,
                            reinterpret_cast<LPARAM>(this));
}

void MeasuresDialog::MakeControls()
{
    SetWindowTextW(Window, TextIn(Spoken, Words("Measures")).c_str());
    const auto make = [this](const wchar_t* kind, const std::wstring& text, DWORD style, int id) {
        const HWND control = CreateWindowExW(
            0, kind, text.c_str(), style | WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, Window,
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        return control;
    };
    List = make(WC_LISTVIEWW, L"", LVS_REPORT | LVS_SHOWSELALWAYS | WS_BORDER, 0);
    Buttons[2] = make(L"BUTTON", TextIn(Spoken, Words("&Copy")), BS_PUSHBUTTON, CopyId);
    Buttons[1] = make(L"BUTTON", TextIn(Spoken, Words("&Save...")), BS_PUSHBUTTON, SaveId);
    Buttons[0] = make(L"BUTTON", TextIn(Spoken, Words("Close")), BS_DEFPUSHBUTTON, IDOK);
    SendMessageW(List, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
    FillList();
    RECT around = {};
    GetWindowRect(GetParent(Window), &around);
    SetWindowPos(Window, nullptr, (around.left + around.right - Width) / 2,
                 std::max((around.top + around.bottom - Height) / 2, 0L), Width, Height, SWP_NOZORDER);
    SetFocus(List);
}

void MeasuresDialog::FillList()
{
    for (std::size_t i = 0; i < Table.Titles.size(); ++i) {
        std::wstring title = Table.Titles[i];
        LVCOLUMNW    column = {};
        column.mask = LVCF_TEXT;
        column.pszText = title.data();
        SendMessageW(List, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    for (std::size_t row = 0; row < Table.Rows.size(); ++row)
        for (std::size_t i = 0; i < Table.Titles.size(); ++i) {
            std::wstring cell = Table.Rows[row][i];
            LVITEMW      item = {};
            item.mask = LVIF_TEXT;
            item.iItem = static_cast<int>(row);
            item.iSubItem = static_cast<int>(i);
            item.pszText = cell.data();
            SendMessageW(List, i == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
    constexpr int Beside = 16;    // px of a title that some systems do not count
    for (std::size_t i = 0; i < Table.Titles.size(); ++i) {
        SendMessageW(List, LVM_SETCOLUMNWIDTH, i, LVSCW_AUTOSIZE_USEHEADER);
        const LRESULT width = SendMessageW(List, LVM_GETCOLUMNWIDTH, i, 0);
        SendMessageW(List, LVM_SETCOLUMNWIDTH, i, width + Beside);
    }
}

void MeasuresDialog::Layout()
{
    RECT client = {};
    GetClientRect(Window, &client);
    const int top = client.bottom - Margin - ButtonHeight;
    MoveWindow(List, Margin, Margin, client.right - 2 * Margin, top - 2 * Margin, TRUE);
    int left = client.right;
    for (const HWND button : Buttons) {
        left -= Margin + ButtonWidth;
        MoveWindow(button, left, top, ButtonWidth, ButtonHeight, TRUE);
    }
}

void MeasuresDialog::Copy()
{
    PutOnClipboard(Window, Tabbed);
}

INT_PTR CALLBACK MeasuresDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<MeasuresDialog*>(lParam)->Window = window;
    }
    auto* const dialog = reinterpret_cast<MeasuresDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    return dialog ? dialog->Handle(message, wParam, lParam) : FALSE;
}

INT_PTR MeasuresDialog::Handle(UINT message, WPARAM wParam, LPARAM)
{
    switch (message) {
    case WM_INITDIALOG:
        MakeControls();
        return FALSE;    // the focus is where it belongs
    case WM_SIZE:
        Layout();
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == CopyId)
            Copy();
        else if (LOWORD(wParam) == SaveId)
            Save();
        else if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)
            EndDialog(Window, LOWORD(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

}
