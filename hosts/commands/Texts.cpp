#include "commands/Texts.h"

#include "commands/Utf8Text.h"

namespace vostel::viewer {

std::wstring TextIn(Language language, const char* english)
{
    if (const wchar_t* const chinese = language == Language::Chinese ? ChineseOf(english) : nullptr)
        return chinese;
    return WideOf(english);
}

std::wstring Filled(const std::wstring& text, std::initializer_list<std::wstring> parts)
{
    std::wstring filled;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isMark = text[i] == L'%' && i + 1 < text.size() && text[i + 1] >= L'1';
        const auto part = isMark ? static_cast<std::size_t>(text[i + 1] - L'1') : parts.size();
        if (part < parts.size()) {
            filled += parts.begin()[part];
            ++i;
        } else {
            filled += text[i];
        }
    }
    return filled;
}

}
