#pragma once

// Values whose making fails for want of memory have no content on their way out.
#define JSON_ASSERT(condition) static_cast<void>(0)
#include <nlohmann/json.hpp>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

// Values are destroyed without a list of what is still to be destroyed: the library's own form allocates one,
// which ends the process where there is no memory left. Nesting is bounded when a text is read. A value whose
// making failed half way has no content.
template <>
// NOLINTNEXTLINE(readability-identifier-naming): the name is that library's
inline void nlohmann::basic_json<nlohmann::ordered_map>::json_value::destroy(value_t kind)
{
    const auto release = [](auto* content) {
        if (content)
            std::default_delete<std::remove_pointer_t<decltype(content)>>()(content);
    };
    if (kind == value_t::object)
        release(object);
    else if (kind == value_t::array)
        release(array);
    else if (kind == value_t::string)
        release(string);
    else if (kind == value_t::binary)
        release(binary);
}

namespace vostel {

// Members keep their order, so that the same content gives the same bytes.
using Json = nlohmann::ordered_json;

// Fails with VOSTEL_BAD_FORMAT and the line: for what is no JSON, for values nested deeper than any file of
// ours or of those that are read, and for objects of more members than anything has.
Json ParseJson(const std::string& text);

std::string JsonTextOf(const Json& value);

// An object of these members, in their order. The library's own lists of members are lost where memory runs
// out in the middle of one.
Json JsonObject(std::initializer_list<std::pair<const char*, Json>> members);

// Numbers that read back the same, not finite ones left out; the name says what is wrong: VOSTEL_BAD_FORMAT.
double       FiniteNumber(const Json& value, const std::string& name);
std::int64_t WholeNumber(const Json& value, std::int64_t low, std::int64_t high, const std::string& name);
std::string  TextValue(const Json& value, const std::string& name);
// The member of an object, null where there is none.
const Json* Member(const Json& object, const char* name);
// Whether the member is that text. The library's own comparison with a text ends the process without memory.
bool IsText(const Json& object, const char* name, const std::string& text);
// False where there is none.
bool TruthOf(const Json& object, const char* name, const std::string& place);

}
