#include "interchange/Remarks.h"

#include <utility>

namespace vostel {

namespace {

void AppendCounts(std::string& text, const char* title, const std::map<std::string, int>& counts)
{
    const char* before = title;
    for (const auto& [what, count] : counts) {
        text += text.empty() || before != title ? "" : "; ";
        text += before + std::to_string(count) + " " + what;
        if (count > 1 && !what.ends_with('s'))
            text += 's';
        before = ", ";
    }
}

void AppendNames(std::string& text, const char* title, const std::set<std::string>& names)
{
    const char* before = title;
    for (const std::string& name : names) {
        text += text.empty() || before != title ? "" : "; ";
        text += before + name;
        before = ", ";
    }
}

}

void Remarks::Add(std::string remark)
{
    Others.push_back(std::move(remark));
}

std::string Remarks::Text() const
{
    std::string text;
    AppendCounts(text, "left out: ", Missing);
    AppendCounts(text, "kept but not shown: ", Unshown);
    AppendNames(text, "kept but not understood: ", Unread);
    AppendNames(text, "ignored: ", PassedOver);
    for (const std::string& remark : Others) {
        if (!text.empty())
            text += "; ";
        text += remark;
    }
    return text;
}

}
