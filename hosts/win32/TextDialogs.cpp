#include "TextDialogs.h"

#include "commands/Commands.h"

namespace vostel::viewer {

namespace {

bool IsBlank(const std::wstring& text)
{
    return text.find_first_not_of(L" \t\r\n") == std::wstring::npos;
}

}

TextLineDialog::TextLineDialog(const std::wstring& start, Language language)
    : FormDialog(Words("Text"), language), Entered(start)
{
    AddText(Text(Words("Text")), start);
}

bool TextLineDialog::Read()
{
    Entered = TextOf(0);
    if (!IsBlank(Entered))
        return true;
    ShowProblem(0, Text(Words("There is no text yet.")));
    return false;
}

TextLinesDialog::TextLinesDialog(const std::wstring& start, Language language)
    : FormDialog(Words("Text lines"), language), Entered(start)
{
    AddLines(Text(Words("Lines")), start);
}

bool TextLinesDialog::Read()
{
    Entered = TextOf(0);
    if (!IsBlank(Entered))
        return true;
    ShowProblem(0, Text(Words("There is no text yet.")));
    return false;
}

GesturesDialog::GesturesDialog(Language language) : FormDialog(Words("Gestures and keys"), language)
{
    JustToRead = true;
    for (const char* line : GestureHelp()) {
        const std::wstring text = Text(line);
        const std::size_t  tab = text.find(L'\t');
        if (tab == std::wstring::npos)
            AddHeading(text);
        else
            AddPair(text.substr(0, tab), text.substr(tab + 1));
    }
}

}
