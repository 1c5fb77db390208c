#include "interchange/JsonText.h"

#include "base/Failure.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace vostel {

namespace {

constexpr int         DeepestNesting = 64;
constexpr std::size_t MostMembers = 1000;    // of one object, which is searched from its first member on

[[noreturn]] void FailAt(const std::string& text, std::size_t place, const std::string& what)
{
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(place, text.size()));
    Fail(VOSTEL_BAD_FORMAT, "line " + std::to_string(1 + std::count(text.begin(), end, '\n')) + ": " + what);
}

// Counts members and levels while a text is read.
class Bounds {
public:
    void Check(int depth, Json::parse_event_t event, const Json& parsed)
    {
        if (event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start) {
            if (depth >= DeepestNesting)
                Fail(VOSTEL_BAD_FORMAT, "values are nested too deeply");
            Names.emplace_back();
        } else if (event == Json::parse_event_t::object_end || event == Json::parse_event_t::array_end) {
            Names.pop_back();
        } else if (event == Json::parse_event_t::key) {
            const std::string& name = parsed.get_ref<const std::string&>();
            if (!Names.back().insert(name).second)
                Fail(VOSTEL_BAD_FORMAT, "an object has two members \"" + name + "\"");
            if (Names.back().size() > MostMembers)
                Fail(VOSTEL_BAD_FORMAT, "an object has too many members");
        }
    }

private:
    std::vector<std::set<std::string>> Names;    // of the members of each value that is open
};

std::string OnOneLine(const Json& value)
{
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void AppendJson(std::string& text, const Json& value, std::size_t level);

// The members or elements, each on a line of its own.
void AppendLines(std::string& text, const Json& value, std::size_t level)
{
    const bool named = value.is_object();
    text += named ? '{' : '[';
    bool first = true;
    for (const auto& [name, element] : value.items()) {
        text += first ? "\n" : ",\n";
        text.append(level + 1, ' ');
        if (named)
            text += OnOneLine(Json(name)) + ": ";
        AppendJson(text, element, level + 1);
        first = false;
    }
    text += '\n';
    text.append(level, ' ');
    text += named ? '}' : ']';
}

void AppendJson(std::string& text, const Json& value, std::size_t level)
{
    const bool holds =
        std::any_of(value.begin(), value.end(), [](const Json& element) { return element.is_structured(); });
    if (value.empty() || !value.is_structured() || (value.is_array() && !holds))
        text += OnOneLine(value);
    else
        AppendLines(text, value, level);
}

}

Json ParseJson(const std::string& text)
{
    Bounds bounds;
    try {
        return Json::parse(text, [&](int depth, Json::parse_event_t event, Json& parsed) {
            bounds.Check(depth, event, parsed);
            return true;
        });
    } catch (const Json::parse_error& error) {
        FailAt(text, error.byte, "this is no JSON");
    } catch (const Json::out_of_range&) {
        Fail(VOSTEL_BAD_FORMAT, "a number is too large");
    }
}

std::string JsonTextOf(const Json& value)
{
    std::string text;
    AppendJson(text, value, 0);
    return text + "\n";
}

double FiniteNumber(const Json& value, const std::string& name)
{
    if (!value.is_number() || !std::isfinite(value.get<double>()))
        Fail(VOSTEL_BAD_FORMAT, name + " is not a finite number");
    return value.get<double>();
}

std::int64_t WholeNumber(const Json& value, std::int64_t low, std::int64_t high, const std::string& name)
{
    const bool fits = value.is_number_integer() &&
                      !(value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX) &&
                      value.get<std::int64_t>() >= low && value.get<std::int64_t>() <= high;
    if (!fits)
        Fail(VOSTEL_BAD_FORMAT,
             name + " is not a whole number from " + std::to_string(low) + " to " + std::to_string(high));
    return value.get<std::int64_t>();
}

std::string TextValue(const Json& value, const std::string& name)
{
    if (!value.is_string())
        Fail(VOSTEL_BAD_FORMAT, name + " is not a text");
    return value.get<std::string>();
}

const Json* Member(const Json& object, const char* name)
{
    if (!object.is_object())
        return nullptr;
    const auto found = object.find(name);
    return found == object.end() ? nullptr : &*found;
}

bool IsText(const Json& object, const char* name, const std::string& text)
{
    const Json* const value = Member(object, name);
    return value && value->is_string() && value->get_ref<const std::string&>() == text;
}

bool TruthOf(const Json& object, const char* name, const std::string& place)
{
    const Json* const value = Member(object, name);
    if (value && !value->is_boolean())
        Fail(VOSTEL_BAD_FORMAT, place + (place.empty() ? "" : ".") + name + " is neither true nor false");
    return value && value->get<bool>();
}

}
