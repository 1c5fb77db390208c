#include "interchange/CsvText.h"

#include "base/Failure.h"

namespace vostel {

std::string QuotedCell(const std::string& text, char separator)
{
    if (text.find_first_of(std::string("\"\r\n") + separator) == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + "\"";
}

CsvReader::CsvReader(std::string_view text, char separator) : Text(text), Separator(separator)
{
    if (Text.starts_with("\xEF\xBB\xBF"))
        At = 3;
}

bool CsvReader::Next(std::vector<std::string>& cells)
{
    while (At < Text.size() && AtLineEnd())
        PassLineEnd();
    cells.clear();
    if (At == Text.size())
        return false;
    RowLine = ReadLine;
    for (;;) {
        cells.push_back(At < Text.size() && Text[At] == '"' ? ReadQuotedCell() : ReadCell());
        if (AtLineEnd())
            break;
        ++At;    // the separator
    }
    PassLineEnd();
    return true;
}

void CsvReader::PassLineEnd()
{
    if (At == Text.size())
        return;
    At += Text.substr(At).starts_with("\r\n") ? 2 : 1;
    ++ReadLine;
}

std::string CsvReader::ReadCell()
{
    const std::size_t begin = At;
    while (!AtLineEnd() && Text[At] != Separator)
        ++At;
    return std::string(Text.substr(begin, At - begin));
}

std::string CsvReader::ReadQuotedCell()
{
    std::string cell;
    for (++At;; ++At) {
        if (At == Text.size())
            Fail(VOSTEL_BAD_FORMAT, "line " + std::to_string(RowLine) + ": a quote does not end");
        if (Text[At] == '"') {
            if (At + 1 == Text.size() || Text[At + 1] != '"')
                break;
            ++At;
        } else if (Text[At] == '\n') {
            ++ReadLine;
        }
        cell += Text[At];
    }
    ++At;
    if (!AtLineEnd() && Text[At] != Separator)
        Fail(VOSTEL_BAD_FORMAT, "line " + std::to_string(RowLine) + ": text follows the end of a quote");
    return cell;
}

}
