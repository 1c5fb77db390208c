#include "commands/Texts.h"

#include "commands/Utf8Text.h"

namespace vostel::viewer {

std::wstring TextIn(Language language, const char* english)
{
    if (const wchar_t* const chinese = language == Language::Chinese ? ChineseOf(english) : nullptr)
        return chinese;
    return WideOf(english);
}

std::wstring Filled(std::wstring text, std::initializer_list<std::wstring> parts)
{
    int number = 0;
    for (const std::wstring& part : parts) {
        const std::wstring mark = L'%' + std::to_wstring(++number);
        if (const std::size_t at = text.find(mark); at != std::wstring::npos)
            text.replace(at, mark.size(), part);
    }
    return text;
}

}
