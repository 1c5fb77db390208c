#include "interchange/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vostel {

void AppendNumber(std::string& text, double value, int decimals)
{
    constexpr double Largest = 1e9;
    const double     held = std::isnan(value) ? 0.0 : std::clamp(value, -Largest, Largest);
    char             digits[32];
    const char*      end =
        std::to_chars(digits, digits + sizeof digits, held, std::chars_format::fixed, decimals).ptr;
    while (end[-1] == '0')
        --end;
    if (end[-1] == '.')
        --end;
    const bool        isMinusZero = end - digits == 2 && digits[0] == '-' && digits[1] == '0';
    const char* const begin = isMinusZero ? digits + 1 : digits;
    text.append(begin, end);
}

}
