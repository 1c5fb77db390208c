#pragma once

// Divisions of the line and stretch rules, and integers wide enough for their products.

#include <cstdint>

namespace vostel::gdi {

__extension__ typedef __int128 Int128;    // holds products of two 34-bit lengths

// b is positive.
template <typename Int>
constexpr Int FloorDivide(Int a, Int b)
{
    return a >= 0 ? a / b : -((b - 1 - a) / b);
}
template <typename Int>
constexpr Int CeilDivide(Int a, Int b)
{
    return -FloorDivide<Int>(-a, b);
}

}
