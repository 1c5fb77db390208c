#include "interchange/ObjectJson.h"

#include "base/Failure.h"
#include "document/KindRules.h"
#include "document/ObjectLooks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace vostel {

namespace {

struct Word {
    const char*  Text;
    std::int64_t Value;
};

constexpr std::array<Word, 16> Kinds = {{
    {"rectangle", VOSTEL_RECTANGLE},
    {"custom_rectangle", VOSTEL_CUSTOM_RECTANGLE},
    {"polygon", VOSTEL_POLYGON},
    {"spline", VOSTEL_SPLINE},
    {"free_region", VOSTEL_FREE_REGION},
    {"text", VOSTEL_TEXT},
    {"free_strokes", VOSTEL_FREE_STROKES},
    {"length", VOSTEL_LENGTH},
    {"angle", VOSTEL_ANGLE},
    {"angle_lines", VOSTEL_ANGLE_LINES},
    {"panel", VOSTEL_PANEL},
    {"neighbours", VOSTEL_NEIGHBOURS},
    {"profile", VOSTEL_PROFILE},
    {"points", VOSTEL_POINTS},
    {"polyline", VOSTEL_POLYLINE},
    {"arrow", VOSTEL_ARROW},
}};

constexpr std::array<Word, 4> Flags = {{
    {"hidden", VOSTEL_HIDDEN},
    {"locked", VOSTEL_LOCKED},
    {"ellipse", VOSTEL_ELLIPSE},
    {"no_label", VOSTEL_NO_LABEL},
}};

Json JsonOfPoints(const std::vector<ImagePoint>& points)
{
    Json list = Json::array();
    for (const ImagePoint& point : points)
        list.push_back(Json::array({point.x, point.y}));
    return list;
}

Json JsonOfFlags(std::uint32_t flags)
{
    Json list = Json::array();
    for (const Word& word : Flags) {
        if ((flags & static_cast<std::uint32_t>(word.Value)) != 0)
            list.push_back(word.Text);
    }
    return list;
}

Json JsonOfStyle(const VostelStyle& style)
{
    Json object;
    object["line_color"] = ColorWord(style.line_color, 6);
    object["selected_color"] = ColorWord(style.selected_color, 6);
    object["handle_color"] = ColorWord(style.handle_color, 6);
    object["fill_color"] = ColorWord(style.fill_color, 8);
    object["line_width"] = style.line_width;
    object["text_height"] = style.text_height;
    return object;
}

const Json& NeedArray(const Json& value, const std::string& name)
{
    if (!value.is_array())
        Fail(VOSTEL_BAD_FORMAT, name + " is not a list");
    return value;
}

bool IsFinite(const Json& value)
{
    return value.is_number() && std::isfinite(value.get<double>());
}

std::vector<ImagePoint> PointsOfJson(const Json& list, const std::string& name)
{
    std::vector<ImagePoint> points;
    points.reserve(NeedArray(list, name).size());
    for (const Json& point : list) {
        if (!point.is_array() || point.size() != 2 || !IsFinite(point[0]) || !IsFinite(point[1]))
            Fail(VOSTEL_BAD_FORMAT,
                 name + "[" + std::to_string(points.size()) + "] is not a pair of finite numbers");
        points.emplace_back(point[0].get<double>(), point[1].get<double>());
    }
    return points;
}

std::vector<int> StrokesOfJson(const Json& list, const std::string& name)
{
    std::vector<int> starts;
    for (const Json& start : NeedArray(list, name))
        starts.push_back(static_cast<int>(WholeNumber(start, INT32_MIN, INT32_MAX, name)));
    return starts;
}

// 0 for a word that stands for none.
std::uint32_t FlagOfWord(const std::string& text)
{
    const auto found =
        std::find_if(Flags.begin(), Flags.end(), [&](const Word& word) { return text == word.Text; });
    return found == Flags.end() ? 0 : static_cast<std::uint32_t>(found->Value);
}

// Words that a newer version has are passed over.
std::uint32_t FlagsOfJson(const Json& list, const std::string& name)
{
    std::uint32_t flags = 0;
    for (const Json& flag : NeedArray(list, name))
        flags |= FlagOfWord(TextValue(flag, name));
    return flags;
}

Json UnknownFlags(const Json& list)
{
    Json unknown = Json::array();
    for (const Json& flag : list) {
        if (flag.is_string() && FlagOfWord(flag.get_ref<const std::string&>()) == 0)
            unknown.push_back(flag);
    }
    return unknown;
}

VostelStyle StyleOfJson(const Json& object, int kind, const std::string& name)
{
    VostelStyle style = StyleOf(*MakeObject(AddedClass(kind)));
    const auto  color = [&](const char* member, int digits, std::uint32_t& taken) {
        if (const Json* const value = Member(object, member))
            taken = ColorOfWord(*value, digits, name + "." + member);
    };
    const auto number = [&](const char* member, double& taken) {
        if (const Json* const value = Member(object, member))
            taken = FiniteNumber(*value, name + "." + member);
    };
    color("line_color", 6, style.line_color);
    color("selected_color", 6, style.selected_color);
    color("handle_color", 6, style.handle_color);
    color("fill_color", 8, style.fill_color);
    number("line_width", style.line_width);
    number("text_height", style.text_height);
    return style;
}

bool IsKnown(const std::string& name, std::initializer_list<const char*> known)
{
    return std::any_of(known.begin(), known.end(), [&](const char* one) { return name == one; });
}

}

const char* KindConstant(int kind)
{
    const auto found =
        std::find_if(Kinds.begin(), Kinds.end(), [&](const Word& word) { return word.Value == kind; });
    return found == Kinds.end() ? "" : found->Text;
}

int KindOfConstant(const std::string& word)
{
    const auto found =
        std::find_if(Kinds.begin(), Kinds.end(), [&](const Word& one) { return word == one.Text; });
    return found == Kinds.end() ? -1 : static_cast<int>(found->Value);
}

std::string ColorWord(std::uint32_t color, int digits)
{
    char text[16];
    std::snprintf(text, sizeof text, "#%0*X", digits, color);
    return text;
}

std::uint32_t ColorOfWord(const Json& value, int digits, const std::string& name)
{
    const std::string text = TextValue(value, name);
    if (text.size() != static_cast<std::size_t>(digits) + 1 || text[0] != '#' ||
        text.find_first_not_of("0123456789ABCDEFabcdef", 1) != std::string::npos)
        Fail(VOSTEL_BAD_FORMAT, name + " is not # and " + std::to_string(digits) + " hexadecimal digits");
    return static_cast<std::uint32_t>(std::stoul(text.substr(1), nullptr, 16));
}

Json JsonOfObject(const FileObject& object)
{
    Json json;
    json["kind"] = KindConstant(object.Kind);
    json["points"] = JsonOfPoints(object.Points);
    if (object.Kind == VOSTEL_FREE_STROKES)
        json["strokes"] = object.StrokeStarts;
    if (!object.Name.empty())
        json["name"] = object.Name;
    if (object.Label > 0)
        json["label"] = object.Label;
    if (object.Flags != 0)
        json["flags"] = JsonOfFlags(object.Flags);
    if (object.Style)
        json["style"] = JsonOfStyle(*object.Style);
    if (!object.Text.empty())
        json["text"] = object.Text;
    return json;
}

SaidObject ObjectOfJson(const Json& object, int kind, const std::string& place)
{
    SaidObject said;
    said.Object.Kind = kind;
    if (const Json* const points = Member(object, "points")) {
        said.Object.Points = PointsOfJson(*points, place + ".points");
        said.SaysPoints = true;
    }
    if (const Json* const strokes = Member(object, "strokes"))
        said.Object.StrokeStarts = StrokesOfJson(*strokes, place + ".strokes");
    if (const Json* const name = Member(object, "name"))
        said.Object.Name = TextValue(*name, place + ".name");
    if (const Json* const label = Member(object, "label"))
        said.Object.Label = static_cast<int>(WholeNumber(*label, 1, INT32_MAX, place + ".label"));
    if (const Json* const flags = Member(object, "flags"))
        said.Object.Flags = FlagsOfJson(*flags, place + ".flags");
    if (const Json* const style = ObjectMember(object, "style", place))
        said.Object.Style = StyleOfJson(*style, kind, place + ".style");
    if (const Json* const text = Member(object, "text")) {
        said.Object.Text = TextValue(*text, place + ".text");
        said.SaysText = true;
    }
    return said;
}

std::string KindOfJson(const Json& object, const std::string& place)
{
    const Json* const kind = Member(object, "kind");
    if (!kind)
        Fail(VOSTEL_BAD_FORMAT, place + " is not an object with a kind");
    return TextValue(*kind, place + ".kind");
}

Json UnknownMembers(const Json& object, std::initializer_list<const char*> known)
{
    Json unknown = Json::object();
    for (const auto& [name, value] : object.items()) {
        if (!IsKnown(name, known))
            unknown[name] = value;
    }
    return unknown;
}

Json UnknownOfObject(const Json& object)
{
    Json unknown = UnknownMembers(object, {"kind", "points", "strokes", "name", "label", "flags", "style",
                                           "text", "window", "selected", "handles", "numbers", "state"});
    if (const Json* const style = Member(object, "style")) {
        Json rest = UnknownMembers(*style, {"line_color", "selected_color", "handle_color", "fill_color",
                                            "line_width", "text_height"});
        if (!rest.empty())
            unknown["style"] = std::move(rest);
    }
    if (const Json* const flags = Member(object, "flags")) {
        Json rest = UnknownFlags(*flags);
        if (!rest.empty())
            unknown["flags"] = std::move(rest);
    }
    return unknown;
}

std::vector<std::string> NamesOfUnknown(const Json& unknown, const std::string& place)
{
    const std::string        before = place.empty() ? "" : place + ".";
    std::vector<std::string> names;
    for (const auto& [name, value] : unknown.items()) {
        if (!IsKnown(name, {"view", "contrast", "scale", "counts", "raw", "style", "flags"})) {
            names.push_back(before + name);    // the others have known members as well
        } else if (value.is_object()) {
            for (std::string& inner : NamesOfUnknown(value, before + name))
                names.push_back(std::move(inner));
        } else if (value.is_array()) {
            for (const Json& word : value)
                names.push_back(before + name + "." + (word.is_string() ? word.get<std::string>() : ""));
        }
    }
    return names;
}

void PutBack(Json& object, const Json& unknown)
{
    for (const auto& [name, value] : unknown.items()) {
        const auto own = object.find(name);
        if (own == object.end())
            object[name] = value;
        else if (own->is_object() && value.is_object())
            PutBack(*own, value);
        else if (own->is_array() && value.is_array())
            own->insert(own->end(), value.begin(), value.end());
    }
}

const Json* ObjectMember(const Json& parent, const char* name, const std::string& place)
{
    const Json* const member = Member(parent, name);
    if (member && !member->is_object())
        Fail(VOSTEL_BAD_FORMAT, (place.empty() ? "" : place + ".") + name + " is not an object");
    return member;
}

}
