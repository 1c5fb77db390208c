#include "interchange/Remarks.h"

namespace vostel {

std::string Remarks::Text() const
{
    std::string text;
    for (const auto& [what, count] : Missing) {
        text += text.empty() ? "left out: " : ", ";
        text += std::to_string(count) + " " + what;
        if (count > 1 && !what.ends_with('s'))
            text += 's';
    }
    for (const std::string& remark : Others) {
        if (!text.empty())
            text += "; ";
        text += remark;
    }
    return text;
}

}
