#pragma once

#include "vostel/platform.h"

#include <cwchar>

// Text by a printf format. Formats here hold numbers only, of bounded length: the longest double takes 310
// characters.
template<typename... Values>
CString FormatText(const wchar_t* format, Values... values)
{
    wchar_t text[2048];
    if (std::swprintf(text, sizeof text / sizeof text[0], format, values...) < 0)
        return CString();
    return CString(text);
}
