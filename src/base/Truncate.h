#pragma once

// Conversions to integers. All truncate towards zero and none but TruncWithin saturates. Out of range, and
// for NaN, the others give what the x86-64 conversion gives, the lowest integer, on every processor: a bare
// cast is undefined there.

#include <climits>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace vostel {

inline int TruncToInt(double v)
{
    return v > -2147483649.0 && v < 2147483648.0 ? static_cast<int>(v) : INT_MIN;
}
inline int TruncToInt(float v)
{
    return v >= -2147483648.0f && v < 2147483648.0f ? static_cast<int>(v) : INT_MIN;
}
inline std::int64_t TruncToInt64(float v)
{
    return v >= -9223372036854775808.0f && v < 9223372036854775808.0f ? static_cast<std::int64_t>(v)
                                                                      : INT64_MIN;
}

// The low bits of the 32-bit result.
inline unsigned short TruncToUShort(float v)
{
    return static_cast<unsigned short>(TruncToInt(v));
}
inline unsigned char TruncToByte(float v)
{
    return static_cast<unsigned char>(TruncToInt(v));
}
inline unsigned char TruncToByte(double v)
{
    return static_cast<unsigned char>(TruncToInt(v));
}

// Held within the range of the type, of at most 16 bits and without a sign; 0 for what is not a number.
template <typename Sample>
Sample TruncWithin(float v)
{
    if constexpr (std::is_same_v<Sample, float>) {
        return v;
    } else {
        static_assert(std::is_unsigned_v<Sample> && sizeof(Sample) <= 2);
        constexpr float most = static_cast<float>(std::numeric_limits<Sample>::max());
        return v > 0.0f ? static_cast<Sample>(v < most ? v : most) : Sample(0);
    }
}

// 32-bit sums that wrap instead of overflowing: client coordinates of a far zoomed view come close to the
// limits and a captured mouse goes beyond them.
inline int WrapAdd(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}
inline int WrapSub(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

}
