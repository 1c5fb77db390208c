#include "interchange/JsonText.h"

#include "base/Failure.h"

#include <algorithm>
#include <cmath>
#include <iterator>
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

// Goes through a text and notes how many of its bytes have been read.
class CountingIterator {
public:
    // NOLINTBEGIN(readability-identifier-naming): the names are the standard library's
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;
    // NOLINTEND(readability-identifier-naming)

    CountingIterator(const std::string& text, std::size_t place, std::size_t& read)
        : Text(&text), Place(place), Read(&read)
    {
    }
    reference         operator*() const { return (*Text)[Place]; }
    CountingIterator& operator++()
    {
        *Read = ++Place;
        return *this;
    }
    CountingIterator operator++(int)
    {
        const CountingIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const CountingIterator& other) const { return Place == other.Place; }

private:
    const std::string* Text;
    std::size_t        Place;
    std::size_t*       Read;
};

// Counts members and levels while a text is read.
class ParseLimits {
public:
    explicit ParseLimits(const std::string& text) : Text(text) {}

    std::size_t Read = 0;    // bytes of the text

    void Check(int depth, Json::parse_event_t event, const Json& parsed)
    {
        if (event == Json::parse_event_t::object_start || event == Json::parse_event_t::array_start) {
            if (depth >= DeepestNesting)
                FailAt(Text, Read, "values are nested too deeply");
            Names.emplace_back();
        } else if (event == Json::parse_event_t::object_end || event == Json::parse_event_t::array_end) {
            Names.pop_back();
        } else if (event == Json::parse_event_t::key) {
            const std::string& name = parsed.get_ref<const std::string&>();
            if (!Names.back().insert(name).second)
                FailAt(Text, Read, "an object has two members \"" + name + "\"");
            if (Names.back().size() > MostMembers)
                FailAt(Text, Read, "an object has too many members");
        }
    }

private:
    const std::string&                 Text;
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
    ParseLimits            limits(text);
    const CountingIterator first(text, 0, limits.Read);
    const CountingIterator last(text, text.size(), limits.Read);
    try {
        return Json::parse(first, last, [&](int depth, Json::parse_event_t event, Json& parsed) {
            limits.Check(depth, event, parsed);
            return true;
        });
    } catch (const Json::parse_error& error) {
        FailAt(text, error.byte, "this is no JSON");
    } catch (const Json::out_of_range&) {
        FailAt(text, limits.Read, "a number is too large");
    }
}

Json JsonObject(std::initializer_list<std::pair<const char*, Json>> members)
{
    Json object = Json::object();
    for (const auto& [name, value] : members)
        object[name] = value;
    return object;
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
