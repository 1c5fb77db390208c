#pragma once

// The texts of the interface: written in English where they are used, and in Chinese by one table.

#include "commands/ChineseTexts.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace vostel::viewer {

enum class Language : int { English, Chinese };

// Null for a text that the table does not know.
constexpr const wchar_t* ChineseOf(std::string_view english)
{
    for (const ChineseText& text : ChineseTexts)
        if (english == text.English)
            return text.Chinese;
    return nullptr;
}

// The call of it ends a compilation.
void ThisTextHasNoChineseOne();

// Marks a text of the interface. One without Chinese does not compile.
consteval const char* Words(const char* english)
{
    if (!ChineseOf(english))
        ThisTextHasNoChineseOne();
    return english;
}

// A marked text in a language. What the table does not know stays as it is.
std::wstring TextIn(Language language, const char* english);

// The text with its marks %1, %2, ... replaced by the parts.
std::wstring Filled(const std::wstring& text, std::initializer_list<std::wstring> parts);

}
