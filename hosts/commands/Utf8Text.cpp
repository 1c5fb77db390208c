#include "commands/Utf8Text.h"

#include <cstddef>
#include <cstdint>

namespace vostel::viewer {

namespace {

constexpr std::uint32_t NoCharacter = 0xFFFD, LastCharacter = 0x10FFFF;

bool IsSurrogate(std::uint32_t code)
{
    return code >= 0xD800 && code <= 0xDFFF;
}

void Append(std::string& text, std::uint32_t code)
{
    const auto byte = [&text](std::uint32_t value) { text += static_cast<char>(value); };
    if (code < 0x80) {
        byte(code);
        return;
    }
    if (code < 0x800) {
        byte(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            byte(0xE0 | code >> 12);
        } else {
            byte(0xF0 | code >> 18);
            byte(0x80 | (code >> 12 & 63));
        }
        byte(0x80 | (code >> 6 & 63));
    }
    byte(0x80 | (code & 63));
}

void Append(std::wstring& text, std::uint32_t code)
{
    if (sizeof(wchar_t) > 2 || code < 0x10000) {
        text += static_cast<wchar_t>(code);
        return;
    }
    text += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

// The character at a place, and the place behind it.
std::uint32_t Next(std::wstring_view text, std::size_t& at)
{
    const std::uint32_t code = static_cast<std::uint32_t>(text[at++]);
    if (!IsSurrogate(code))
        return code <= LastCharacter ? code : NoCharacter;
    const std::uint32_t low = at < text.size() ? static_cast<std::uint32_t>(text[at]) : 0;
    if (code > 0xDBFF || low < 0xDC00 || low > 0xDFFF)
        return NoCharacter;
    ++at;
    return 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
}

std::uint32_t Next(std::string_view text, std::size_t& at)
{
    const std::uint32_t first = static_cast<unsigned char>(text[at++]);
    if (first < 0x80)
        return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4)
        return NoCharacter;
    constexpr std::uint32_t Lowest[] = {0, 0x80, 0x800, 0x10000};    // else it would be shorter
    std::uint32_t           code = first & (0x3FU >> more);
    for (int i = 0; i < more; ++i, ++at) {
        if (at >= text.size() || (text[at] & 0xC0) != 0x80)
            return NoCharacter;
        code = code << 6 | (static_cast<unsigned char>(text[at]) & 63);
    }
    return code < Lowest[more] || code > LastCharacter || IsSurrogate(code) ? NoCharacter : code;
}

template <typename Target, typename Source>
Target Converted(Source text)
{
    Target converted;
    for (std::size_t at = 0; at < text.size();)
        Append(converted, Next(text, at));
    return converted;
}

}

std::string Utf8Of(std::wstring_view text)
{
    return Converted<std::string>(text);
}

std::wstring WideOf(std::string_view utf8)
{
    return Converted<std::wstring>(utf8);
}

}
