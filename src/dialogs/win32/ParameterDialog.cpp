#include "dialogs/win32/ParameterDialog.h"

#include "dialogs/win32/NumberText.h"

namespace vostel {

namespace {
// Dialog units.
constexpr short Width = 190;
constexpr short Margin = 8;
constexpr short FieldX = 80;
constexpr short FieldWidth = Width - FieldX - Margin;
constexpr short RowHeight = 17;
constexpr short ButtonWidth = 50;
}

ParameterDialog::ParameterDialog(const wchar_t* caption) : Template(caption, Width) {}

bool ParameterDialog::Ask()
{
    const short buttonY = static_cast<short>(NextY + 4);
    const short cancelX = Width - Margin - ButtonWidth;
    const short okX = cancelX - 4 - ButtonWidth;
    Template.AddButton(L"确定", IDOK, true, okX, buttonY, ButtonWidth);
    Template.AddButton(L"取消", IDCANCEL, false, cancelX, buttonY, ButtonWidth);
    Template.SetHeight(static_cast<short>(buttonY + 14 + Margin));
    const INT_PTR answer =
        DialogBoxIndirectParamW(GetModuleHandleW(nullptr), Template.Get(), GetActiveWindow(), Procedure,
                                reinterpret_cast<LPARAM>(this));
    if (Font)
        DeleteObject(Font);
    Font = nullptr;
    return answer == IDOK;
}

void ParameterDialog::AddEditRow(const wchar_t* caption, WORD id)
{
    AddRowCaption(caption);
    Template.AddEdit(id, FieldX, NextY, FieldWidth);
    NextY = static_cast<short>(NextY + RowHeight);
}

void ParameterDialog::AddComboRow(const wchar_t* caption, WORD id)
{
    AddRowCaption(caption);
    Template.AddCombo(id, FieldX, NextY, FieldWidth);
    NextY = static_cast<short>(NextY + RowHeight);
}

void ParameterDialog::AddCheckRow(const wchar_t* caption, WORD id)
{
    Template.AddCheckBox(caption, id, FieldX, NextY, FieldWidth);
    NextY = static_cast<short>(NextY + RowHeight);
}

void ParameterDialog::AddRowCaption(const wchar_t* caption)
{
    Template.AddStatic(caption, Margin, static_cast<short>(NextY + 2), FieldX - Margin - 4);
}

void ParameterDialog::SetText(WORD id, const std::wstring& text)
{
    SetDlgItemTextW(Window, id, text.c_str());
}

std::wstring ParameterDialog::GetText(WORD id) const
{
    const HWND   field = GetDlgItem(Window, id);
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(field)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(field, text.data(), static_cast<int>(text.size()))));
    return text;
}

void ParameterDialog::SetChoices(WORD id, std::initializer_list<const wchar_t*> texts, int chosen)
{
    for (const wchar_t* text : texts)
        SendDlgItemMessageW(Window, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    const bool known = chosen >= 0 && chosen < static_cast<int>(texts.size());
    SendDlgItemMessageW(Window, id, CB_SETCURSEL, known ? static_cast<WPARAM>(chosen) : 0, 0);
}

int ParameterDialog::GetChoice(WORD id) const
{
    return static_cast<int>(SendDlgItemMessageW(Window, id, CB_GETCURSEL, 0, 0));
}

void ParameterDialog::SetCheck(WORD id, bool checked)
{
    CheckDlgButton(Window, id, checked ? BST_CHECKED : BST_UNCHECKED);
}

bool ParameterDialog::GetCheck(WORD id) const
{
    return IsDlgButtonChecked(Window, id) == BST_CHECKED;
}

template <typename Number>
bool ParameterDialog::GetNumber(WORD id, Number& number) const
{
    if (ParseNumber(GetText(id), number))
        return true;
    FocusField(id);
    return false;
}

template bool ParameterDialog::GetNumber(WORD, std::int32_t&) const;
template bool ParameterDialog::GetNumber(WORD, std::uint32_t&) const;
template bool ParameterDialog::GetNumber(WORD, float&) const;

void ParameterDialog::FocusField(WORD id) const
{
    MessageBeep(MB_ICONWARNING);
    const HWND field = GetDlgItem(Window, id);
    SetFocus(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
}

void ParameterDialog::SetChineseFont()
{
    // A template cannot name the script, and where its font is missing another may come without the glyphs.
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(Window, WM_GETFONT, 0, 0)), sizeof font, &font);
    font.lfCharSet = GB2312_CHARSET;
    Font = CreateFontIndirectW(&font);
    for (HWND child = GetWindow(Window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(Font), FALSE);
}

void ParameterDialog::CentreOverOwner() const
{
    RECT place = {}, around = {};
    GetWindowRect(Window, &place);
    const HWND owner = GetWindow(Window, GW_OWNER);
    if (!owner || IsIconic(owner) || !GetWindowRect(owner, &around))
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
    const LONG x = (around.left + around.right - (place.right - place.left)) / 2;
    const LONG y = (around.top + around.bottom - (place.bottom - place.top)) / 2;
    SetWindowPos(Window, nullptr, x, y > 0 ? y : 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK ParameterDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        ParameterDialog& dialog = *reinterpret_cast<ParameterDialog*>(lParam);
        dialog.Window = window;
        dialog.SetChineseFont();
        dialog.CentreOverOwner();
        dialog.Fill();
        return TRUE;
    }
    ParameterDialog* dialog = reinterpret_cast<ParameterDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    // The first result counts: a command may still arrive between it and the window's end.
    if (message != WM_COMMAND || !dialog || !dialog->Window)
        return FALSE;
    if (LOWORD(wParam) == IDCANCEL || (LOWORD(wParam) == IDOK && dialog->Read())) {
        dialog->Window = nullptr;
        EndDialog(window, LOWORD(wParam));
    }
    return TRUE;
}

}
