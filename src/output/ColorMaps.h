#pragma once

#include <array>
#include <span>
#include <string_view>

namespace vostel {

inline constexpr int Levels = 256;
using ColorMap = std::array<unsigned, Levels>;    // 0x00RRGGBB of each level

// In the order in which they are listed to hosts.
std::span<const std::string_view> ColorMapNames();

bool IsColorMap(std::string_view name);

// Gray for a name that is none.
const ColorMap& FindColorMap(std::string_view name);

}
