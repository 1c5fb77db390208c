#pragma once

// The decoder refuses a chunk whose sum is wrong, which a changed input always has.

#include "platform/PictureFiles.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The input with the right sum behind each chunk, as far as they go; the same if it is no PNG.
inline std::string WithPngSums(std::string_view input)
{
    std::string png(input);
    if (input.substr(0, 4) != "\x89PNG")
        return png;
    for (std::size_t at = 8; at + 12 <= png.size();) {
        std::uint32_t length = 0;
        for (std::size_t i = 0; i < 4; ++i)
            length = length << 8 | static_cast<unsigned char>(png[at + i]);
        if (length > png.size() - at - 12)
            break;
        const std::size_t   end = at + 8 + length;
        const files::Bytes  summed(png.begin() + static_cast<std::ptrdiff_t>(at + 4),
                                   png.begin() + static_cast<std::ptrdiff_t>(end));
        const std::uint32_t sum = files::Crc(summed, 0);
        for (std::size_t i = 0; i < 4; ++i)
            png[end + i] = static_cast<char>(sum >> (24 - 8 * i));
        at = end + 4;
    }
    return png;
}
