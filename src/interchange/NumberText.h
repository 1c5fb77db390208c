#pragma once

#include <string>

namespace vostel {

// Appends a number of a drawing: at most so many decimals, a point in every locale, no exponent. What no
// viewer could place is held within a billion.
void AppendNumber(std::string& text, double value, int decimals = 3);

// Decimals of dashes, whose lengths add up along a line.
inline constexpr int DashDecimals = 6;

// Appends several with blanks between them.
template <typename... Values>
void AppendNumbers(std::string& text, double first, Values... others)
{
    AppendNumber(text, first);
    ((text += ' ', AppendNumber(text, others)), ...);
}

}
