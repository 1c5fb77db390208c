#pragma once

// Letters a to z of UTF-8 text whatever the locale; all other characters stay.

#include <algorithm>
#include <string>
#include <string_view>

namespace vostel {

inline std::string LowerCase(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
    return lower;
}

// The ending is in lower case.
inline bool HasEnding(std::string_view path, std::string_view ending)
{
    return path.size() >= ending.size() && LowerCase(path.substr(path.size() - ending.size())) == ending;
}

}
