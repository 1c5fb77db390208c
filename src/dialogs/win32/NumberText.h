#pragma once

// Numbers in edit fields and parameter files. The decimal point is a dot whatever the user's locale, so that
// a file written on one desktop reads the same on another. Blanks around a number are allowed, nothing else.

#include <cstdint>
#include <string>

namespace vostel {

bool ParseNumber(const std::wstring& text, std::int32_t& number);
bool ParseNumber(const std::wstring& text, std::uint32_t& number);
bool ParseNumber(const std::wstring& text, float& number);    // finite numbers only

// The shortest text that parses to the same number.
std::wstring NumberText(std::int32_t number);
std::wstring NumberText(std::uint32_t number);
std::wstring NumberText(float number);

}
