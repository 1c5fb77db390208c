#include "dialogs/win32/NumberText.h"

#include <charconv>
#include <cmath>

namespace vostel {

namespace {

template <typename Number>
bool Parse(const std::wstring& text, Number& number)
{
    const wchar_t*    blanks = L" \t";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::wstring::npos)
        return false;
    const std::size_t last = text.find_last_not_of(blanks);
    std::string       ascii;
    for (std::size_t at = first; at <= last; ++at) {
        if (text[at] > 0x7F)
            return false;
        ascii += static_cast<char>(text[at]);
    }
    // The conversion below knows no plus sign; "+-1" must stay wrong.
    if (ascii[0] == '+' && ascii.size() > 1 && ascii[1] != '-')
        ascii.erase(0, 1);
    Number                       parsed{};
    const std::from_chars_result end = std::from_chars(ascii.data(), ascii.data() + ascii.size(), parsed);
    if (end.ec != std::errc() || end.ptr != ascii.data() + ascii.size())
        return false;
    number = parsed;
    return true;
}

template <typename Number>
std::wstring Format(Number number)
{
    char                       text[64];
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, number);
    return std::wstring(text, end.ptr);
}

}

bool ParseNumber(const std::wstring& text, std::int32_t& number)
{
    return Parse(text, number);
}

bool ParseNumber(const std::wstring& text, std::uint32_t& number)
{
    return Parse(text, number);
}

bool ParseNumber(const std::wstring& text, float& number)
{
    float parsed = 0.0f;
    if (!Parse(text, parsed) || !std::isfinite(parsed))
        return false;
    number = parsed;
    return true;
}

std::wstring NumberText(std::int32_t number)
{
    return Format(number);
}

std::wstring NumberText(std::uint32_t number)
{
    return Format(number);
}

std::wstring NumberText(float number)
{
    return Format(number);
}

}
