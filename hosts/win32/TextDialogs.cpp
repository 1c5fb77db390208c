#include "TextDialogs.h"

#include "CommandMenu.h"

namespace vostel::viewer {

TextLinesDialog::TextLinesDialog(const std::wstring& start) : FormDialog(L"Text lines"), Text(start)
{
    AddLines(L"Lines", start);
}

bool TextLinesDialog::Read()
{
    Text = TextOf(0);
    if (Text.find_first_not_of(L" \t\r\n") != std::wstring::npos)
        return true;
    ShowProblem(0, L"There is no text yet.");
    return false;
}

GesturesDialog::GesturesDialog() : FormDialog(L"Gestures and keys")
{
    JustToRead = true;
    for (const char* line : GestureHelp()) {
        const std::wstring text = Wide(line);
        const std::size_t  tab = text.find(L'\t');
        if (tab == std::wstring::npos)
            AddHeading(text);
        else
            AddPair(text.substr(0, tab), text.substr(tab + 1));
    }
}

}
