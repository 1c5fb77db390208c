#include "base/Utf8.h"

namespace vostel {

namespace {

constexpr std::uint32_t Replacement = 0xFFFD;

bool IsCharacter(std::uint32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

void AppendWide(std::wstring& text, std::uint32_t character)
{
    if (sizeof(wchar_t) > 2 || character < 0x10000) {
        text += static_cast<wchar_t>(character);
        return;
    }
    text += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
}

}

void AppendUtf8(std::string& text, std::uint32_t character)
{
    if (!IsCharacter(character))
        character = Replacement;
    const auto trail = [&](int shift) { text += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        trail(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | character >> 12);
        trail(6);
        trail(0);
    } else {
        text += static_cast<char>(0xF0 | character >> 18);
        trail(12);
        trail(6);
        trail(0);
    }
}

std::u32string CharactersOf(std::wstring_view text)
{
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::uint32_t character = static_cast<std::uint32_t>(text[i]);
        if constexpr (sizeof(wchar_t) == 2) {
            const bool pair = character >= 0xD800 && character < 0xDC00 && i + 1 < text.size() &&
                              text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
            if (pair)
                character =
                    0x10000 + ((character - 0xD800) << 10) + (static_cast<std::uint32_t>(text[++i]) - 0xDC00);
        }
        characters += IsCharacter(character) ? character : Replacement;
    }
    return characters;
}

std::string Utf8Of(std::wstring_view text)
{
    std::string utf8;
    utf8.reserve(text.size());
    for (const char32_t character : CharactersOf(text))
        AppendUtf8(utf8, character);
    return utf8;
}

std::optional<std::wstring> WideOf(std::string_view utf8)
{
    std::wstring wide;
    for (std::size_t i = 0; i < utf8.size();) {
        const std::uint32_t first = static_cast<unsigned char>(utf8[i++]);
        const int           trails = first < 0x80                    ? 0
                                     : first >= 0xC2 && first < 0xE0 ? 1
                                     : first >= 0xE0 && first < 0xF0 ? 2
                                     : first >= 0xF0 && first < 0xF5 ? 3
                                                                     : -1;
        if (trails < 0)
            return std::nullopt;
        std::uint32_t character = trails == 0 ? first : first & (0x3F >> trails);
        for (int trail = 0; trail < trails; ++trail) {
            if (i == utf8.size() || (static_cast<unsigned char>(utf8[i]) & 0xC0) != 0x80)
                return std::nullopt;
            character = character << 6 | (static_cast<unsigned char>(utf8[i++]) & 0x3F);
        }
        const bool shortest = trails < 2 || character >= (trails == 2 ? 0x800u : 0x10000u);
        if (!shortest || !IsCharacter(character))
            return std::nullopt;
        AppendWide(wide, character);
    }
    return wide;
}

}
