#pragma once

#include <string>
#include <string_view>

namespace vostel::viewer {

// Texts between the open interface, which takes UTF-8, and windows. What is no character becomes U+FFFD.
std::string  Utf8Of(std::wstring_view text);
std::wstring WideOf(std::string_view utf8);

}
