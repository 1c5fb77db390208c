#include "interchange/StyleProperties.h"

#include "base/Failure.h"
#include "document/KindRules.h"
#include "document/ObjectLooks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vostel {

namespace {

constexpr std::array StyleNames = {"stroke",         "stroke-width", "fill",       "fill-opacity",
                                   "selected-color", "handle-color", "text-height"};

constexpr double WebOpacity = 0.6;    // of a fill that says no other

std::string ColorText(std::uint32_t rgb)
{
    std::string text = "#000000";
    for (std::size_t digit = 0; digit < 6; ++digit)
        text[6 - digit] = "0123456789abcdef"[rgb >> 4 * digit & 0xF];
    return text;
}

// Of "#rrggbb" and "#rgb".
std::optional<std::uint32_t> ColorOfText(const Json* value)
{
    if (!value || !value->is_string())
        return std::nullopt;
    std::string digits = value->get<std::string>();
    if (digits.size() == 4)
        digits = {digits[0], digits[1], digits[1], digits[2], digits[2], digits[3], digits[3]};
    std::uint32_t     color = 0;
    const char* const end = digits.data() + digits.size();
    if (digits.size() != 7 || digits[0] != '#' || digits[1] == '-')
        return std::nullopt;
    const auto read = std::from_chars(digits.data() + 1, end, color, 16);
    return read.ec == std::errc() && read.ptr == end ? std::optional(color) : std::nullopt;
}

void TakeColor(const Json& properties, const char* name, std::uint32_t& color)
{
    color = ColorOfText(Member(properties, name)).value_or(color);
}

void TakeNumber(const Json& properties, const char* name, double& number)
{
    const Json* const value = Member(properties, name);
    if (value && value->is_number())
        number = value->get<double>();
}

bool IsValid(const VostelStyle& style)
{
    try {
        CheckStyle(style);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

}

void PutStyle(const VostelStyle& style, Json& properties)
{
    properties["stroke"] = ColorText(style.line_color);
    properties["stroke-width"] = style.line_width;
    properties["fill"] = ColorText(style.fill_color & 0xFFFFFF);
    properties["fill-opacity"] = (style.fill_color >> 24) / 255.0;
    properties["selected-color"] = ColorText(style.selected_color);
    properties["handle-color"] = ColorText(style.handle_color);
    properties["text-height"] = style.text_height;
}

std::optional<VostelStyle> StyleOfProperties(const Json& properties, int kind)
{
    if (std::none_of(StyleNames.begin(), StyleNames.end(),
                     [&](const char* name) { return Member(properties, name); }))
        return std::nullopt;
    const VostelStyle plain = StyleOf(*MakeObject(AddedClass(kind)));
    VostelStyle       style = plain;
    TakeColor(properties, "stroke", style.line_color);
    TakeColor(properties, "selected-color", style.selected_color);
    TakeColor(properties, "handle-color", style.handle_color);
    TakeNumber(properties, "stroke-width", style.line_width);
    TakeNumber(properties, "text-height", style.text_height);
    if (const auto fill = ColorOfText(Member(properties, "fill"))) {
        double opacity = WebOpacity;
        TakeNumber(properties, "fill-opacity", opacity);
        const double alpha = std::floor(255.0 * std::clamp(opacity, 0.0, 1.0) + 0.5);
        style.fill_color = static_cast<std::uint32_t>(alpha) << 24 | *fill;
    }
    return IsValid(style) ? style : plain;
}

bool IsStyleProperty(const std::string& name)
{
    return std::find(StyleNames.begin(), StyleNames.end(), name) != StyleNames.end();
}

}
