#pragma once

#include "vostel/platform.h"

#include <cmath>
#include <cwchar>

namespace vostel {

inline int Printable(int value)
{
    return value;
}

// Not-a-number without its sign, which some C libraries print and others do not.
inline double Printable(double value)
{
    return std::isnan(value) ? std::fabs(value) : value;
}

// Text by a printf format. Formats here hold numbers only, of bounded length: the longest double takes 310
// characters.
template <typename... Values>
CString FormatText(const wchar_t* format, Values... values)
{
    wchar_t text[2048];
    if (std::swprintf(text, sizeof text / sizeof text[0], format, Printable(values)...) < 0)
        return CString();
    return CString(text);
}

}
