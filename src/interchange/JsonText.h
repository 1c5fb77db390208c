#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>

namespace vostel {

// Members keep their order, so that the same content gives the same bytes.
using Json = nlohmann::ordered_json;

// Fails with VOSTEL_BAD_FORMAT and the line: for what is no JSON, for values nested deeper than any file of
// ours or of those that are read, and for objects of more members than anything has.
Json ParseJson(const std::string& text);

std::string JsonTextOf(const Json& value);

// Numbers that read back the same, not finite ones left out; the name says what is wrong: VOSTEL_BAD_FORMAT.
double       FiniteNumber(const Json& value, const std::string& name);
std::int64_t WholeNumber(const Json& value, std::int64_t low, std::int64_t high, const std::string& name);
std::string  TextValue(const Json& value, const std::string& name);
// The member of an object, null where there is none.
const Json* Member(const Json& object, const char* name);

}
