#include "support/CommaLocale.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace {

std::string TableOf(int32_t canvas, const char* format)
{
    return TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return vostel_table(canvas, format, buffer, capacity, length);
    });
}

// By RFC 4180: the fields of each line.
std::vector<std::vector<std::string>> Parse(const std::string& text, char separator)
{
    std::vector<std::vector<std::string>> lines(1);
    std::string                           field;
    bool                                  quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted && c == '"' && text[i + 1] == '"') {
            field += c;
            ++i;
        } else if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && (c == separator || text.compare(i, 2, "\r\n") == 0)) {
            lines.back().push_back(field);
            field.clear();
            if (c != separator) {
                lines.emplace_back();
                ++i;
            }
        } else {
            field += c;
        }
    }
    CHECK(field.empty());
    CHECK(lines.back().empty());
    lines.pop_back();
    return lines;
}

constexpr const char* Header =
    "object,name,kind,label,unit,pixels,not_finite,area,perimeter,length,angle,centroid_x,"
    "centroid_y,left,top,right,bottom,mean,sd,min,max,sum,median,feret_max,feret_min,"
    "circularity\r\n";

}

TEST_CASE("a table without objects is its header")
{
    OpenCanvas canvas;
    CHECK(TableOf(canvas.Number, "csv") == Header);
    CHECK(TableOf(canvas.Number, "json") == "[\n]\n");
}

TEST_CASE("a row says what has a meaning and leaves the rest empty")
{
    OpenCanvas canvas;
    REQUIRE(vostel_set_scale(canvas.Number, 0.5, "mm") == VOSTEL_OK);
    const std::string line = std::to_string(Add(canvas.Number, VOSTEL_LENGTH, {{0.0, 0.0}, {3.0, 4.0}}));
    CHECK(TableOf(canvas.Number, "csv") ==
          Header + line + ",,length,,mm,,,,,2.5,,1.5,2,0,0,3,4,,,,,,,2.5,0,\r\n");
}

TEST_CASE("numbers read back the same, in the columns of their names")
{
    OpenCanvas canvas;
    ShowFloats(canvas.Number, 20, 20, [](int x, int y) { return 0.1 * x + 1e-7 * y; });
    const VostelObject   polygon = Add(canvas.Number, VOSTEL_POLYGON, {{1.1, 1.2}, {17.3, 3.4}, {5.5, 18.6}});
    const VostelMeasures m = MeasuresOf(canvas.Number, polygon);
    for (const char* const format : {"csv", "tsv"}) {
        const auto lines = Parse(TableOf(canvas.Number, format), format[0] == 'c' ? ',' : '\t');
        REQUIRE(lines.size() == 2);
        REQUIRE(lines[1].size() == lines[0].size());
        const auto cell = [&](const std::string& column) {
            for (std::size_t i = 0; i < lines[0].size(); ++i) {
                if (lines[0][i] == column)
                    return lines[1][i];
            }
            return std::string("no such column");
        };
        const auto number = [&](const std::string& column) {
            return std::strtod(cell(column).c_str(), nullptr);
        };
        CHECK(cell("object") == std::to_string(polygon));
        CHECK(cell("kind") == "polygon");
        CHECK(cell("label") == "1");
        CHECK(cell("unit") == "px");
        CHECK(cell("length") == "");
        CHECK(cell("angle") == "");
        CHECK(cell("pixels") == std::to_string(m.pixels));
        CHECK(number("area") == m.area);
        CHECK(number("perimeter") == m.perimeter);
        CHECK(number("centroid_x") == m.centroid_x);
        CHECK(number("centroid_y") == m.centroid_y);
        CHECK(number("left") == 1.1);
        CHECK(number("bottom") == 18.6);
        CHECK(number("mean") == m.mean);
        CHECK(number("sd") == m.sd);
        CHECK(number("min") == m.min);
        CHECK(number("max") == m.max);
        CHECK(number("sum") == m.sum);
        CHECK(number("median") == m.median);
        CHECK(number("feret_max") == m.feret_max);
        CHECK(number("feret_min") == m.feret_min);
        CHECK(number("circularity") == m.circularity);
        CHECK(cell("left") == "1.1");
    }
}

TEST_CASE("names with separators, quotes and line ends survive")
{
    OpenCanvas        canvas;
    const std::string name = "a,\"b\"\r\nc\td é";
    const std::string unit = "µ,m";
    REQUIRE(vostel_set_scale(canvas.Number, 1.0, unit.c_str()) == VOSTEL_OK);
    REQUIRE(vostel_object_set_name(canvas.Number, Add(canvas.Number, VOSTEL_TEXT, {{0.0, 0.0}}),
                                   name.c_str()) == VOSTEL_OK);
    for (const char* const format : {"csv", "tsv"}) {
        const auto lines = Parse(TableOf(canvas.Number, format), format[0] == 'c' ? ',' : '\t');
        REQUIRE(lines.size() == 2);
        CHECK(lines[1][1] == name);
        CHECK(lines[1][4] == unit);
        CHECK(lines[1].size() == 26);
    }
    const std::string json = TableOf(canvas.Number, "json");
    CHECK(json.find("\"name\":\"a,\\\"b\\\"\\u000d\\u000ac\\u0009d é\"") != std::string::npos);
    CHECK(json.find("\"unit\":\"µ,m\"") != std::string::npos);
    CHECK(json.find("\"label\":null") != std::string::npos);
    CHECK(json.find("\"circularity\":null}") != std::string::npos);
}

TEST_CASE("the table lists every object in drawing order, hidden ones too")
{
    OpenCanvas         canvas;
    const VostelObject a = Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {1.0, 1.0}});
    const VostelObject b = Add(canvas.Number, VOSTEL_ARROW, {{0.0, 0.0}, {1.0, 1.0}});
    REQUIRE(vostel_object_move_to(canvas.Number, a, 1) == VOSTEL_OK);
    REQUIRE(vostel_object_set_flags(canvas.Number, b, VOSTEL_HIDDEN) == VOSTEL_OK);
    const auto lines = Parse(TableOf(canvas.Number, "csv"), ',');
    REQUIRE(lines.size() == 3);
    CHECK(lines[1][0] == std::to_string(b));
    CHECK(lines[2][0] == std::to_string(a));
}

TEST_CASE("an unknown format is not supported, and a small buffer gets the beginning")
{
    OpenCanvas  canvas;
    std::size_t length = 0;
    CHECK(vostel_table(canvas.Number, "xml", nullptr, 0, &length) == VOSTEL_NOT_SUPPORTED);
    CHECK(vostel_table(canvas.Number, nullptr, nullptr, 0, &length) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_table(canvas.Number, "csv", nullptr, 5, &length) == VOSTEL_INVALID_ARGUMENT);
    char buffer[8];
    CHECK(vostel_table(canvas.Number, "csv", buffer, sizeof buffer, &length) == VOSTEL_BUFFER_TOO_SMALL);
    CHECK(std::string(buffer) == "object,");
    CHECK(length == std::string(Header).size());
}

TEST_CASE("numbers have a point and no groups in every locale")
{
    OpenCanvas canvas;
    ShowFloats(canvas.Number, 20, 20, [](int x, int y) { return 12345.5 + x + 0.25 * y; });
    Add(canvas.Number, VOSTEL_POLYGON, {{1.5, 1.25}, {17.75, 3.5}, {5.5, 18.625}});
    REQUIRE(vostel_set_scale(canvas.Number, 1234.5, "mm") == VOSTEL_OK);
    for (const char* const format : {"csv", "tsv", "json"}) {
        const std::string plain = TableOf(canvas.Number, format);
        const CommaLocale locale;
        CHECK(TableOf(canvas.Number, format) == plain);
    }
}
