// Parameter files: the map is what the rule makes of each line.

#include "fuzz/Fuzzing.h"

#include <VostelObj.h>

#include <algorithm>
#include <map>
#include <string>

namespace {

constexpr std::size_t LineBytes = 99;    // of a line that count

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsLeftOut(char c)
{
    return c == '=' || c == ' ' || (c >= '\t' && c <= '\r');
}

std::string Without(std::string_view line, bool (*isGone)(char))
{
    std::string left;
    for (const char c : line)
        if (!IsLeftOut(c) && !isGone(c))
            left += c;
    return left;
}

}

void FuzzOne(std::string_view input)
{
    std::string path = WriteInput("parameters.txt", input);
    ZEKIODisk   disk;
    disk.OpenRead(path.data());
    disk.ReadMap();
    std::map<std::string, std::string> expected;
    for (std::string_view rest = input; !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view  line = rest.substr(0, std::min(end, LineBytes));
        line = line.substr(0, line.find('\0'));    // the reader takes lines for texts with a terminator
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (!line.empty())
            expected.emplace(Without(line, IsDigit), Without(line, IsLetter));
    }
    CHECK(disk.ParaMap == expected);
}
