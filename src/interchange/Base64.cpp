#include "interchange/Base64.h"

#include <algorithm>
#include <cstdint>

namespace vostel {

namespace {

constexpr std::string_view Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}

std::string Base64Of(std::span<const unsigned char> bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t     bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < count ? bytes[i + k] : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? Alphabet[bits >> (18 - 6 * k) & 63] : '=';
    }
    return text;
}

std::optional<std::vector<unsigned char>> BytesOfBase64(std::string_view text)
{
    if (text.size() % 4 != 0)
        return std::nullopt;
    std::vector<unsigned char> bytes;
    bytes.reserve(text.size() / 4 * 3);
    const std::size_t end = std::min(text.find('='), text.size());
    if (text.size() - end > 2 || text.find_first_not_of('=', end) != std::string_view::npos)
        return std::nullopt;
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t digit = i < end ? Alphabet.find(text[i]) : 0;
        if (digit == std::string_view::npos)
            return std::nullopt;
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        if (i % 4 == 3) {
            for (const int shift : {16, 8, 0})
                bytes.push_back(static_cast<unsigned char>(bits >> shift & 0xFF));
        }
    }
    bytes.resize(bytes.size() - (text.size() - end));
    // The bits behind the last byte are zero.
    return Base64Of(bytes) == text ? std::optional(std::move(bytes)) : std::nullopt;
}

}
