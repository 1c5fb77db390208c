#include "interchange/PointTable.h"

#include "base/AsciiCase.h"
#include "base/Failure.h"
#include "document/KindRules.h"
#include "interchange/CsvText.h"
#include "interchange/RegionKinds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <unordered_map>

namespace vostel {

namespace {

enum Column { ObjectColumn, NameColumn, KindColumn, LabelColumn, IndexColumn, XColumn, YColumn, ColumnCount };
constexpr std::array<const char*, ColumnCount> ColumnNames = {"object", "name", "kind", "label",
                                                              "index",  "x",    "y"};

bool IsSpace(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

// What stands in the header tells what the cells are separated by.
char SeparatorOf(const std::string& text)
{
    const std::string_view header = std::string_view(text).substr(0, text.find_first_of("\r\n"));
    for (const char separator : {',', ';', '\t'}) {
        if (header.find(separator) != std::string_view::npos)
            return separator;
    }
    return ',';
}

template <typename Number>
std::optional<Number> NumberOf(std::string_view cell)
{
    cell = Trimmed(cell);
    if (cell.starts_with('+'))
        cell.remove_prefix(1);
    Number     number = 0;
    const auto read = std::from_chars(cell.data(), cell.data() + cell.size(), number);
    const bool whole = read.ec == std::errc() && read.ptr == cell.data() + cell.size();
    return whole ? std::optional(number) : std::nullopt;
}

class Reader {
public:
    Reader(const std::string& text, Remarks& remarks) : Rows(text, SeparatorOf(text)), Told(remarks) {}

    std::vector<FileObject> Read()
    {
        ReadHeader();
        while (Rows.Next(Cells)) {
            DropEmptyEnd(HeaderSize);
            if (Cells.size() != HeaderSize)
                FailHere(std::to_string(Cells.size()) + " cells where the header has " +
                         std::to_string(HeaderSize));
            TakeRow();
        }
        std::vector<FileObject> objects;
        for (Reading& reading : Objects)
            objects.push_back(Finished(std::move(reading)));
        return objects;
    }

private:
    struct Reading {
        FileObject   Object;
        std::string  Kind;
        std::size_t  Line = 0;    // of its first row
        std::int64_t LastIndex = -1;
    };

    CsvReader                                           Rows;
    Remarks&                                            Told;
    std::vector<std::string>                            Cells;
    std::size_t                                         HeaderSize = 0;
    std::array<std::optional<std::size_t>, ColumnCount> Places;
    std::vector<Reading>                                Objects;
    std::unordered_map<std::string, std::size_t>        Numbers;    // of the objects, by what names them

    [[noreturn]] void FailHere(const std::string& what) const
    {
        Fail(VOSTEL_BAD_FORMAT, "line " + std::to_string(Rows.Line()) + ": " + what);
    }

    // Some programs end lines with a separator, some do so in the header alone.
    void DropEmptyEnd(std::size_t least)
    {
        while (Cells.size() > least && Trimmed(Cells.back()).empty())
            Cells.pop_back();
    }

    void ReadHeader()
    {
        if (!Rows.Next(Cells))
            Fail(VOSTEL_BAD_FORMAT, "the table is empty");
        DropEmptyEnd(1);
        HeaderSize = Cells.size();
        std::string ignored;
        for (std::size_t i = 0; i < Cells.size(); ++i) {
            const std::string name = LowerCase(Trimmed(Cells[i]));
            const auto        found = std::find(ColumnNames.begin(), ColumnNames.end(), name);
            const auto        column = static_cast<std::size_t>(found - ColumnNames.begin());
            if (column < ColumnCount && !Places[column])
                Places[column] = i;
            else
                ignored += (ignored.empty() ? "" : ", ") + Cells[i];
        }
        if (!Places[XColumn] || !Places[YColumn])
            FailHere("the header names no x and y");
        if (!ignored.empty())
            Told.Add("ignored: the columns " + ignored);
    }

    // Empty where there is no such column.
    std::string Cell(Column column) const { return Places[column] ? Cells[*Places[column]] : std::string(); }

    double Coordinate(Column column) const
    {
        const std::optional<double> number = NumberOf<double>(Cell(column));
        if (!number || !std::isfinite(*number))
            FailHere(std::string(ColumnNames[column]) + " is not a finite number");
        return *number;
    }

    void TakeRow()
    {
        const auto [found, isNew] = Numbers.try_emplace(Cell(ObjectColumn), Objects.size());
        if (isNew)
            Objects.push_back(Begun());
        Reading&           reading = Objects[found->second];
        const std::int64_t index = Index(reading);
        if (index <= reading.LastIndex) {
            if (reading.Kind != KindName(VOSTEL_FREE_STROKES))
                FailHere("index does not grow");
            reading.Object.StrokeStarts.push_back(static_cast<int>(reading.Object.Points.size()));
        }
        reading.LastIndex = index;
        reading.Object.Points.push_back({Coordinate(XColumn), Coordinate(YColumn)});
    }

    Reading Begun() const
    {
        Reading reading;
        reading.Line = Rows.Line();
        reading.Kind = LowerCase(Trimmed(Cell(KindColumn)));
        reading.Object.Name = Cell(NameColumn);
        const std::string label = Cell(LabelColumn);
        if (!Trimmed(label).empty()) {
            const std::optional<int> number = NumberOf<int>(label);
            if (!number || *number < 0)
                FailHere("label is not a whole number from 0");
            reading.Object.Label = *number;
        }
        return reading;
    }

    // Without the column the rows count themselves.
    std::int64_t Index(const Reading& reading) const
    {
        if (!Places[IndexColumn])
            return reading.LastIndex + 1;
        const std::optional<std::int64_t> index = NumberOf<std::int64_t>(Cell(IndexColumn));
        if (!index || *index < 0)
            FailHere("index is not a whole number from 0");
        return *index;
    }

    static FileObject Finished(Reading&& reading)
    {
        FileObject&       object = reading.Object;
        const std::string word = reading.Kind.empty() ? KindName(VOSTEL_POINTS) : reading.Kind;
        const auto        kind = KindOfWord(word, object.Points.size());
        if (!kind || word == KindName(VOSTEL_PANEL))
            Fail(VOSTEL_BAD_FORMAT, "line " + std::to_string(reading.Line) + ": there is no kind \"" + word +
                                        "\" of " + std::to_string(object.Points.size()) + " points");
        object.Kind = kind->Kind;
        object.Flags = kind->Flags;
        if (!IsRegion(object.Kind))
            object.Label = 0;
        if (object.Kind == VOSTEL_FREE_STROKES)
            object.StrokeStarts.insert(object.StrokeStarts.begin(), 0);
        return std::move(object);
    }
};

}

std::string PointTableOf(const std::vector<FileObject>& objects, Remarks& remarks)
{
    std::string table = "object,name,kind,label,index,x,y\r\n";
    int         number = 0;
    for (const FileObject& object : objects) {
        const bool panel = object.Kind == VOSTEL_PANEL || object.Kind == VOSTEL_NEIGHBOURS;
        if (panel || object.Kind == VOSTEL_TEXT) {
            remarks.LeftOut(KindName(object.Kind));
            continue;
        }
        if (!IsWhole(object)) {
            remarks.LeftOut("unfinished object");
            continue;
        }
        const std::string head = NumberText(++number) + "," + QuotedCell(object.Name, ',') + "," +
                                 KindWord(object) + "," +
                                 (object.Label > 0 ? NumberText(object.Label) : std::string()) + ",";
        std::size_t stroke = 1;
        std::size_t index = 0;
        for (std::size_t i = 0; i < object.Points.size(); ++i, ++index) {
            if (stroke < object.StrokeStarts.size() &&
                i == static_cast<std::size_t>(object.StrokeStarts[stroke])) {
                index = 0;
                ++stroke;
            }
            table += head + NumberText(index) + "," + NumberText(object.Points[i].x) + "," +
                     NumberText(object.Points[i].y) + "\r\n";
        }
    }
    return table;
}

std::vector<FileObject> ObjectsOfPointTable(const std::string& text, Remarks& remarks)
{
    return Reader(text, remarks).Read();
}

}
