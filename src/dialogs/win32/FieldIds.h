#pragma once

// Control numbers of the dialogs, for whoever drives them from outside.

namespace vostel::field {
inline constexpr unsigned short Width = 101;
inline constexpr unsigned short Height = 102;
inline constexpr unsigned short DataType = 103;
inline constexpr unsigned short HeaderBytes = 104;
inline constexpr unsigned short MapToByte = 105;
inline constexpr unsigned short InLow = 106;
inline constexpr unsigned short InHigh = 107;
inline constexpr unsigned short OutLow = 108;
inline constexpr unsigned short OutHigh = 109;

inline constexpr unsigned short RoiLeft = 201;
inline constexpr unsigned short RoiRight = 202;
inline constexpr unsigned short RoiTop = 203;
inline constexpr unsigned short RoiBottom = 204;

inline constexpr unsigned short Value = 301;
}
