#include "open/MeasureTable.h"

#include "document/ObjectMeasures.h"
#include "interchange/CsvText.h"

#include <cmath>
#include <cstdio>

namespace vostel::open {

namespace {

// Empty where the field has no meaning.
std::string FieldText(const VostelMeasures& measures, const MeasureField& field)
{
    if ((measures.valid & field.Bit) == 0)
        return std::string();
    return std::visit([&](auto member) { return NumberText(measures.*member); }, field.Field);
}

std::string JsonString(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
            quoted += escape;
        } else {
            quoted += c;
        }
    }
    return quoted + "\"";
}

// JSON has no number for what is not finite.
std::string JsonField(const VostelMeasures& measures, const MeasureField& field)
{
    const std::string text = FieldText(measures, field);
    const auto* const real = std::get_if<double VostelMeasures::*>(&field.Field);
    return text.empty() || (real && !std::isfinite(measures.**real)) ? "null" : text;
}

}

std::string CsvOf(const std::vector<MeasureRow>& rows, const std::string& unit, char separator)
{
    std::string table;
    for (const char* const column : {"object", "name", "kind", "label", "unit"}) {
        if (!table.empty())
            table += separator;
        table += column;
    }
    for (const MeasureField& field : MeasureFields)
        table += separator + std::string(field.Name);
    table += "\r\n";
    for (const MeasureRow& row : rows) {
        table += NumberText(row.Object) + separator + QuotedCell(row.Name, separator) + separator + row.Kind +
                 separator + (row.Label > 0 ? NumberText(row.Label) : std::string()) + separator +
                 QuotedCell(unit, separator);
        for (const MeasureField& field : MeasureFields)
            table += separator + FieldText(row.Measures, field);
        table += "\r\n";
    }
    return table;
}

std::string JsonOf(const std::vector<MeasureRow>& rows, const std::string& unit)
{
    std::string table = "[";
    const char* between = "\n";
    for (const MeasureRow& row : rows) {
        table += between;
        table += "{\"object\":" + NumberText(row.Object) + ",\"name\":" + JsonString(row.Name) +
                 ",\"kind\":\"" + row.Kind +
                 "\",\"label\":" + (row.Label > 0 ? NumberText(row.Label) : "null") +
                 ",\"unit\":" + JsonString(unit);
        for (const MeasureField& field : MeasureFields)
            table += ",\"" + std::string(field.Name) + "\":" + JsonField(row.Measures, field);
        table += "}";
        between = ",\n";
    }
    return table + "\n]\n";
}

}
