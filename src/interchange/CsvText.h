#pragma once

// Tables as text by RFC 4180.

#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vostel {

// A number in the shortest form that reads back the same, with a point in every locale.
template <typename Number>
std::string NumberText(Number value)
{
    char       text[32];    // the longest double takes 24 characters
    const auto end = std::to_chars(text, text + sizeof text, value);
    return std::string(text, end.ptr);
}

// In quotes, with its own quotes doubled, if it holds the separator, a quote or the end of a line.
std::string QuotedCell(const std::string& text, char separator);

// The rows of a table one by one. Lines end with CR LF, LF or CR; a byte order mark before the first is no
// part of it.
class CsvReader {
public:
    CsvReader(std::string_view text, char separator);

    // False at the end. Empty lines are left out. Fails with VOSTEL_BAD_FORMAT and the line for a quote that
    // does not end or does not end its cell.
    bool        Next(std::vector<std::string>& cells);
    std::size_t Line() const { return RowLine; }    // where the row began, from 1

private:
    std::string_view Text;
    std::size_t      At = 0;
    char             Separator;
    std::size_t      ReadLine = 1;
    std::size_t      RowLine = 1;

    bool        AtLineEnd() const { return At == Text.size() || Text[At] == '\r' || Text[At] == '\n'; }
    void        PassLineEnd();
    std::string ReadCell();
    std::string ReadQuotedCell();
};

}
