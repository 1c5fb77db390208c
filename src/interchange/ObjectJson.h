#pragma once

#include "interchange/FileObject.h"
#include "interchange/JsonText.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace vostel {

// Objects as members of the library's own JSON files. What is not as it should be fails with
// VOSTEL_BAD_FORMAT and the place in the file.

// The word of a kind: its constant in lower case.
const char* KindConstant(int kind);
// -1 for a word that stands for none.
int KindOfConstant(const std::string& word);

// "#RRGGBB" and "#AARRGGBB".
std::string   ColorWord(std::uint32_t color, int digits);
std::uint32_t ColorOfWord(const Json& value, int digits, const std::string& name);

// Kind, points, strokes, name, label, flags, style and text, as far as the object has them.
Json JsonOfObject(const FileObject& object);

// What is not said is as with a new object of the kind.
struct SaidObject {
    FileObject Object;
    bool       SaysPoints = false;
    bool       SaysText = false;
};
SaidObject ObjectOfJson(const Json& object, int kind, const std::string& place);

// The word in the member "kind" of what must be an object.
std::string KindOfJson(const Json& object, const std::string& place);

// The members of an object that are not known, in their order.
Json UnknownMembers(const Json& object, std::initializer_list<const char*> known);
// The same of an object in a file of ours, whose style and flags may have such members too.
Json UnknownOfObject(const Json& object);
// The names of unknown members, such as "polygon.style.dash" where the place is "polygon".
std::vector<std::string> NamesOfUnknown(const Json& unknown, const std::string& place);
// Puts unknown members behind the known ones; where both have an object or a list, within it.
void PutBack(Json& object, const Json& unknown);

// A member, null if there is none; it must be an object.
const Json* ObjectMember(const Json& parent, const char* name, const std::string& place);

}
