#include "dialogs/win32/DialogTemplate.h"

#include <cstring>

namespace vostel {

namespace {
// The system's own control classes have numbers instead of names.
constexpr WORD ButtonClass = 0x0080;
constexpr WORD EditClass = 0x0081;
constexpr WORD StaticClass = 0x0082;
constexpr WORD ComboClass = 0x0085;
}

DialogTemplate::DialogTemplate(const wchar_t* caption, short width)
{
    DLGTEMPLATE header = {};
    header.style = DS_MODALFRAME | DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU;
    header.cx = width;
    Append(&header, sizeof header);
    Words.push_back(0);    // no menu
    Words.push_back(0);    // the standard dialog class
    AppendText(caption);
    Words.push_back(9);    // points; the font's name follows
    AppendText(L"微软雅黑");
}

void DialogTemplate::AddStatic(const wchar_t* text, short x, short y, short width)
{
    AddControl(SS_LEFT, StaticClass, text, 0xFFFF, x, y, width, 10);
}

void DialogTemplate::AddEdit(WORD id, short x, short y, short width)
{
    AddControl(WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, EditClass, L"", id, x, y, width, 13);
}

void DialogTemplate::AddCombo(WORD id, short x, short y, short width)
{
    // The height is that of the opened list.
    AddControl(WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, ComboClass, L"", id, x, y, width, 80);
}

void DialogTemplate::AddCheckBox(const wchar_t* text, WORD id, short x, short y, short width)
{
    AddControl(WS_TABSTOP | BS_AUTOCHECKBOX, ButtonClass, text, id, x, y, width, 12);
}

void DialogTemplate::AddButton(const wchar_t* text, WORD id, bool isDefault, short x, short y, short width)
{
    AddControl(WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON), ButtonClass, text, id, x, y,
               width, 14);
}

void DialogTemplate::SetHeight(short height)
{
    Header().cy = height;
}

void DialogTemplate::AddControl(DWORD style, WORD classAtom, const wchar_t* text, WORD id, short x, short y,
                                short width, short height)
{
    if (Words.size() % 2 != 0)    // entries start on four bytes
        Words.push_back(0);
    DLGITEMTEMPLATE item = {};
    item.style = style | WS_CHILD | WS_VISIBLE;
    item.x = x;
    item.y = y;
    item.cx = width;
    item.cy = height;
    item.id = id;
    Append(&item, sizeof item);
    Words.push_back(0xFFFF);    // a class number follows
    Words.push_back(classAtom);
    AppendText(text);
    Words.push_back(0);    // no creation data
    ++Header().cdit;
}

void DialogTemplate::Append(const void* bytes, std::size_t count)
{
    const std::size_t start = Words.size();
    Words.resize(start + count / sizeof(WORD));
    std::memcpy(Words.data() + start, bytes, count);
}

void DialogTemplate::AppendText(const wchar_t* text)
{
    Append(text, (std::wcslen(text) + 1) * sizeof(wchar_t));
}

}
