#include "FormDialog.h"

#include <algorithm>

namespace vostel::viewer {

namespace {

constexpr COLORREF ProblemColor = RGB(176, 0, 0);

// A dialog without controls; they are made when the font is known.
struct EmptyTemplate {
    DLGTEMPLATE Header = {};
    WORD        MenuClassTitle[3] = {};    // none, the standard one, set later
};

}

bool FormDialog::Ask(HWND owner)
{
    EmptyTemplate empty;
    empty.Header.style = DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;
    const INT_PTR result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &empty.Header, owner, Procedure,
                                                   reinterpret_cast<LPARAM>(this));
    DeleteObject(Font);
    DeleteObject(BoldFont);
    return result == IDOK;
}

int FormDialog::AddText(const std::wstring& caption, const std::wstring& value)
{
    return AddRow(RowKind::Text, caption, value);
}

int FormDialog::AddLines(const std::wstring& caption, const std::wstring& value)
{
    return AddRow(RowKind::Lines, caption, value);
}

int FormDialog::AddChoice(const std::wstring& caption, const std::vector<std::wstring>& choices, int chosen)
{
    const int row = AddRow(RowKind::Choice, caption, L"");
    Rows.back().Choices = choices;
    Rows.back().Chosen = chosen;
    return row;
}

int FormDialog::AddPair(const std::wstring& left, const std::wstring& right)
{
    return AddRow(RowKind::Pair, left, right);
}

int FormDialog::AddHeading(const std::wstring& text)
{
    return AddRow(RowKind::Heading, text, L"");
}

int FormDialog::AddRow(RowKind kind, const std::wstring& caption, const std::wstring& value)
{
    Row row = {};
    row.Kind = kind;
    row.Caption = caption;
    row.Value = value;
    Rows.push_back(row);
    return static_cast<int>(Rows.size()) - 1;
}

std::wstring FormDialog::TextOf(int row) const
{
    const HWND   field = Rows[static_cast<std::size_t>(row)].Field;
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(field)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(field, text.data(), static_cast<int>(text.size()))));
    return text;
}

int FormDialog::ChoiceOf(int row) const
{
    return static_cast<int>(SendMessageW(Rows[static_cast<std::size_t>(row)].Field, CB_GETCURSEL, 0, 0));
}

void FormDialog::ShowProblem(int row, const std::wstring& sentence)
{
    const HWND field = Rows[static_cast<std::size_t>(row)].Field;
    SetWindowTextW(Problem, sentence.c_str());
    MessageBeep(MB_ICONWARNING);
    SetFocus(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
}

void FormDialog::MakeFonts()
{
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    Font = CreateFontIndirectW(&metrics.lfMessageFont);
    metrics.lfMessageFont.lfWeight = FW_BOLD;
    BoldFont = CreateFontIndirectW(&metrics.lfMessageFont);

    const HDC     dc = GetDC(Window);
    const HGDIOBJ before = SelectObject(dc, Font);
    TEXTMETRICW   text = {};
    GetTextMetricsW(dc, &text);
    SelectObject(dc, before);
    ReleaseDC(Window, dc);
    LineHeight = text.tmHeight;
    CharWidth = text.tmAveCharWidth;
}

SIZE FormDialog::Measure(const std::wstring& text, HFONT font) const
{
    const HDC     dc = GetDC(Window);
    const HGDIOBJ before = SelectObject(dc, font);
    SIZE          size = {};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(Window, dc);
    return size;
}

int FormDialog::WidthOfField(const Row& row) const
{
    int width = 0;
    switch (row.Kind) {
    case RowKind::Text:
        return 20 * CharWidth;
    case RowKind::Lines:
        return 44 * CharWidth;
    case RowKind::Pair:
        return Measure(row.Value, Font).cx + 2;
    case RowKind::Choice:
        for (const std::wstring& choice : row.Choices)
            width = std::max(width, static_cast<int>(Measure(choice, Font).cx));
        return std::max(width + GetSystemMetrics(SM_CXVSCROLL) + 2 * CharWidth, 20 * CharWidth);
    case RowKind::Heading:
        break;
    }
    return 0;
}

int FormDialog::HeightOfRow(const Row& row) const
{
    switch (row.Kind) {
    case RowKind::Lines:
        return 6 * LineHeight + 10;
    case RowKind::Pair:
        return LineHeight + 4;
    case RowKind::Heading:
        return LineHeight + 12;
    default:
        return LineHeight + 7;
    }
}

void FormDialog::MakeControls()
{
    const int margin = LineHeight, gap = LineHeight / 2;
    int       captionWidth = 0, fieldWidth = 0, headingWidth = 0;
    for (const Row& row : Rows) {
        if (row.Kind == RowKind::Heading) {
            headingWidth = std::max(headingWidth, static_cast<int>(Measure(row.Caption, BoldFont).cx) + 2);
            continue;
        }
        captionWidth = std::max(captionWidth, static_cast<int>(Measure(row.Caption, Font).cx) + 2);
        fieldWidth = std::max(fieldWidth, WidthOfField(row));
    }
    fieldWidth = std::max(fieldWidth, headingWidth - captionWidth - margin);
    const int width = margin + captionWidth + margin + fieldWidth + margin;
    int       y = margin;
    for (Row& row : Rows) {
        MakeRow(row, margin, captionWidth, fieldWidth, y);
        y += HeightOfRow(row) + (row.Kind == RowKind::Pair || row.Kind == RowKind::Heading ? 0 : gap);
    }
    if (!JustToRead) {
        Problem = MakeControl(L"STATIC", L"", SS_LEFT, {margin, y, width - margin, y + 2 * LineHeight + 2});
        y += 2 * LineHeight + 2;
    }
    y += gap;
    MakeButtons(width - margin, y);
    FitAndCentre(width, y + LineHeight + 10 + margin);
}

void FormDialog::MakeRow(Row& row, int captionX, int captionWidth, int fieldWidth, int y)
{
    const int height = HeightOfRow(row), fieldX = captionX + captionWidth + LineHeight;
    if (row.Kind == RowKind::Heading) {
        const int  top = y + height - LineHeight - 2;
        const HWND heading = MakeControl(L"STATIC", row.Caption.c_str(), SS_LEFT | SS_NOPREFIX,
                                         {captionX, top, fieldX + fieldWidth, top + LineHeight + 2});
        SendMessageW(heading, WM_SETFONT, reinterpret_cast<WPARAM>(BoldFont), FALSE);
        return;
    }
    // A caption stands on the line of the text in its field.
    const int top = row.Kind == RowKind::Pair ? y : y + 3;
    MakeControl(L"STATIC", row.Caption.c_str(), SS_LEFT | SS_NOPREFIX,
                {captionX, top, captionX + captionWidth, top + LineHeight + 2});
    row.Field = MakeField(row, fieldX, y, fieldWidth, height);
}

HWND FormDialog::MakeField(Row& row, int x, int y, int width, int height)
{
    const RECT place = {x, y, x + width, y + height};
    switch (row.Kind) {
    case RowKind::Text:
        return MakeControl(L"EDIT", row.Value.c_str(), WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, place);
    case RowKind::Lines:
        return MakeControl(
            L"EDIT", row.Value.c_str(),
            WS_BORDER | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL, place);
    case RowKind::Pair:
        return MakeControl(L"STATIC", row.Value.c_str(), SS_LEFT | SS_NOPREFIX, place);
    case RowKind::Choice: {
        // The height counts the list that opens.
        const HWND combo = MakeControl(L"COMBOBOX", L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST,
                                       {x, y, x + width, y + 12 * LineHeight});
        for (const std::wstring& choice : row.Choices)
            SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
        SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(row.Chosen), 0);
        return combo;
    }
    case RowKind::Heading:
        break;
    }
    return nullptr;
}

void FormDialog::MakeButtons(int right, int y)
{
    const int width = 13 * CharWidth, height = LineHeight + 10, gap = LineHeight / 2;
    const int okX = JustToRead ? right - width : right - 2 * width - gap;
    MakeControl(L"BUTTON", Text(JustToRead ? Words("Close") : Words("OK")).c_str(),
                WS_TABSTOP | BS_DEFPUSHBUTTON, {okX, y, okX + width, y + height}, IDOK);
    if (!JustToRead)
        MakeControl(L"BUTTON", Text(Words("Cancel")).c_str(), WS_TABSTOP | BS_PUSHBUTTON,
                    {right - width, y, right, y + height}, IDCANCEL);
}

HWND FormDialog::MakeControl(const wchar_t* kind, const wchar_t* text, DWORD style, const RECT& place, int id)
{
    const HWND control = CreateWindowExW(0, kind, text, style | WS_CHILD | WS_VISIBLE, place.left, place.top,
                                         place.right - place.left, place.bottom - place.top, Window,
                                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                         GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(Font), FALSE);
    return control;
}

void FormDialog::FitAndCentre(int width, int height)
{
    RECT rect = {0, 0, width, height};
    AdjustWindowRect(&rect, static_cast<DWORD>(GetWindowLongPtrW(Window, GWL_STYLE)), FALSE);
    const int wholeWidth = rect.right - rect.left, wholeHeight = rect.bottom - rect.top;
    RECT      around = {};
    GetWindowRect(GetParent(Window) ? GetParent(Window) : GetDesktopWindow(), &around);
    SetWindowPos(Window, nullptr, (around.left + around.right - wholeWidth) / 2,
                 std::max((around.top + around.bottom - wholeHeight) / 2, 0L), wholeWidth, wholeHeight,
                 SWP_NOZORDER);
}

INT_PTR CALLBACK FormDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<FormDialog*>(lParam)->Window = window;
    }
    auto* const dialog = reinterpret_cast<FormDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    return dialog ? dialog->Handle(message, wParam, lParam) : FALSE;
}

INT_PTR FormDialog::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG: {
        SetWindowTextW(Window, Title.c_str());
        MakeFonts();
        MakeControls();
        const HWND first = GetNextDlgTabItem(Window, nullptr, FALSE);
        SetFocus(first);
        SendMessageW(first, EM_SETSEL, 0, -1);
        return FALSE;    // the focus is where it belongs
    }
    case WM_CTLCOLORSTATIC:
        if (reinterpret_cast<HWND>(lParam) != Problem)
            return FALSE;
        SetTextColor(reinterpret_cast<HDC>(wParam), ProblemColor);
        SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_3DFACE));
    case WM_COMMAND:
        if (LOWORD(wParam) == IDCANCEL || (LOWORD(wParam) == IDOK && Read()))
            EndDialog(Window, LOWORD(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

}
