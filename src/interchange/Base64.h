#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vostel {

// Bytes as text, in the alphabet of RFC 4648 with padding.
std::string Base64Of(std::span<const unsigned char> bytes);
// Nothing for a text that no bytes give.
std::optional<std::vector<unsigned char>> BytesOfBase64(std::string_view text);

}
