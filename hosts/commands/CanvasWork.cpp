#include "commands/CanvasWork.h"

#include "commands/FilePaths.h"
#include "commands/FileSave.h"
#include "commands/Texts.h"
#include "commands/Utf8Text.h"

#include <vostel.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <new>
#include <string_view>

namespace vostel::viewer {

namespace {

// The text that a call writes into a buffer of the size that it asks for; empty if it fails.
template <typename Call>
std::string TextOf(const Call& call)
{
    std::size_t length = 0;
    call(nullptr, 0, &length);
    std::string text(length + 1, '\0');
    if (call(text.data(), text.size(), &length) != VOSTEL_OK)
        return {};
    text.resize(length);
    return text;
}

// A sentence of the interface, with what the library says of the matter in a line of its own.
std::string Outcome(VostelStatus status)
{
    const char* sentence = nullptr;
    switch (status) {
    case VOSTEL_OK:
        return {};
    case VOSTEL_OUT_OF_MEMORY:
        throw std::bad_alloc();
    case VOSTEL_NOT_READ:
        sentence = Words("The session or its picture cannot be read.");
        break;
    case VOSTEL_BAD_FORMAT:
        sentence = Words("This is not a session that can be read.");
        break;
    case VOSTEL_NO_IMAGE:
        sentence = Words("The picture of this session is in no file, so it cannot be opened.");
        break;
    case VOSTEL_NOT_WRITTEN:
        sentence = Words("The session cannot be written.");
        break;
    default:
        sentence = Words("This cannot be done with the session.");
        break;
    }
    return std::string(sentence) + '\n' + vostel_last_message();
}

bool EndsWith(const std::wstring& text, std::wstring_view end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::wstring InLowerCase(std::wstring text)
{
    for (wchar_t& letter : text)
        if (letter >= L'A' && letter <= L'Z')
            letter = static_cast<wchar_t>(letter - L'A' + L'a');
    return text;
}

// Takes a cell from the beginning of a table, in quotes if it has tabs or ends of lines of its own.
std::string TakeCell(std::string_view& text)
{
    std::string cell;
    bool        quoted = !text.empty() && text.front() == '"';
    if (quoted)
        text.remove_prefix(1);
    while (!text.empty() && (quoted || (text.front() != '\t' && text.front() != '\r'))) {
        const char letter = text.front();
        text.remove_prefix(1);
        if (quoted && letter == '"') {
            quoted = !text.empty() && text.front() == '"';    // two stand for one
            if (!quoted)
                continue;
            text.remove_prefix(1);
        }
        cell += letter;
    }
    return cell;
}

// A row whose cells are parted by tabs, and its end.
std::vector<std::wstring> TakeRow(std::string_view& text)
{
    std::vector<std::wstring> cells = {WideOf(TakeCell(text))};
    while (!text.empty() && text.front() == '\t') {
        text.remove_prefix(1);
        cells.push_back(WideOf(TakeCell(text)));
    }
    text.remove_prefix(std::min<std::size_t>(text.size(), 2));
    return cells;
}

void DropEmptyColumns(MeasureTable& table)
{
    for (std::size_t column = table.Titles.size(); column-- > 0;) {
        const auto isEmpty = [column](const std::vector<std::wstring>& row) { return row[column].empty(); };
        if (!std::all_of(table.Rows.begin(), table.Rows.end(), isEmpty))
            continue;
        const auto at = static_cast<std::ptrdiff_t>(column);
        table.Titles.erase(table.Titles.begin() + at);
        for (std::vector<std::wstring>& row : table.Rows)
            row.erase(row.begin() + at);
    }
}

}

void BeginHistory(int canvas)
{
    constexpr std::size_t Room = std::size_t(64) << 20;    // bytes
    vostel_history_limit(canvas, 0);
    vostel_history_limit(canvas, Room);
}

std::string StepName(int canvas, Step step)
{
    return TextOf([&](char* buffer, std::size_t room, std::size_t* length) {
        return vostel_history_name(canvas, static_cast<int>(step), buffer, room, length);
    });
}

void Take(int canvas, Step step)
{
    if ((step == Step::Undo ? vostel_undo(canvas) : vostel_redo(canvas)) == VOSTEL_OUT_OF_MEMORY)
        throw std::bad_alloc();
}

std::string DrawnOn(int canvas)
{
    std::size_t count = 0;
    vostel_object_list(canvas, nullptr, 0, &count);
    std::vector<VostelObject> objects(count);
    vostel_object_list(canvas, objects.data(), objects.size(), &count);
    if (objects.empty())
        return {};
    return TextOf([&](char* buffer, std::size_t room, std::size_t* length) {
        return vostel_regions_text(canvas, objects.data(), objects.size(), buffer, room, length);
    });
}

bool IsSessionFile(const std::wstring& path)
{
    return EndsWith(InLowerCase(path), L".json");
}

std::string OpenSession(int canvas, const std::wstring& path)
{
    return Outcome(vostel_session_open(canvas, Utf8Of(path).c_str(), 0));
}

std::string SaveSession(int canvas, const std::wstring& path)
{
    return Outcome(vostel_session_save(canvas, Utf8Of(path).c_str(), 0));
}

MeasureTable MeasuresOf(int canvas)
{
    MeasureTable      table;
    const std::string text = MeasuresAs(canvas, "tsv");
    std::string_view  rest = text;
    table.Titles = TakeRow(rest);
    while (!rest.empty()) {
        table.Rows.push_back(TakeRow(rest));
        table.Rows.back().resize(table.Titles.size());
    }
    DropEmptyColumns(table);
    return table;
}

std::string MeasuresAs(int canvas, const char* format)
{
    return TextOf([&](char* buffer, std::size_t room, std::size_t* length) {
        return vostel_table(canvas, format, buffer, room, length);
    });
}

std::string SaveMeasures(int canvas, const std::wstring& path)
{
    const std::wstring name = InLowerCase(path);
    const char* const  format = EndsWith(name, L".json") ? "json" : EndsWith(name, L".tsv") ? "tsv" : "csv";
    const std::string  text = MeasuresAs(canvas, format);
    FileSave           save;
    const std::filesystem::path beside = PathOf(save.Begin(path).c_str());
    std::ofstream               stream(beside, std::ios::binary);
    stream.write(text.data(), static_cast<std::streamsize>(text.size()));
    stream.close();
    std::error_code ignored;
    if (!stream)
        std::filesystem::remove(beside, ignored);    // half a table is none
    const char* const problem = save.End();
    return problem ? problem : std::string();
}

}
