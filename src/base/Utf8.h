#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vostel {

// Appends a character; what is none becomes U+FFFD.
void AppendUtf8(std::string& text, std::uint32_t character);

// Lone surrogates and numbers beyond Unicode become U+FFFD.
std::string    Utf8Of(std::wstring_view text);
std::u32string CharactersOf(std::wstring_view text);

// Nothing for bytes that are not UTF-8.
std::optional<std::wstring> WideOf(std::string_view utf8);

}
