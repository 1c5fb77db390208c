#pragma once

// Numbers of up to four bytes in files, lowest byte first.

#include <cstddef>
#include <cstdint>
#include <span>

namespace vostel {

inline std::uint32_t ReadLittleEndian(std::span<const unsigned char> bytes)
{
    std::uint32_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        value = value << 8 | bytes[i];
    return value;
}

inline void WriteLittleEndian(std::span<unsigned char> bytes, std::uint32_t value)
{
    for (unsigned char& byte : bytes) {
        byte = static_cast<unsigned char>(value);
        value >>= 8;
    }
}

}
