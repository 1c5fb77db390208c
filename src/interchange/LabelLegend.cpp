#include "interchange/LabelLegend.h"

#include "base/AsciiCase.h"
#include "base/Failure.h"
#include "interchange/JsonText.h"

#include <string_view>

namespace vostel {

namespace {

const Json& Needed(const Json& value, const char* name)
{
    const Json* const found = Member(value, name);
    if (!found)
        Fail(VOSTEL_BAD_FORMAT, "the legend has no " + std::string(name));
    return *found;
}

}

std::string LegendTextOf(const LabelLegend& legend)
{
    Json labels = Json::array();
    for (const auto& [label, name] : legend.Names)
        labels.push_back(JsonObject({{"label", label}, {"name", name}}));
    return JsonTextOf(JsonObject({{"format", "vostel labels"},
                                  {"version", 1},
                                  {"width", legend.Size.Width},
                                  {"height", legend.Size.Height},
                                  {"bits", legend.Bits},
                                  {"byte-order", legend.Bits == 32 ? "little-endian" : "of the PNG"},
                                  {"hash", legend.Hash},
                                  {"labels", labels}}));
}

LabelLegend LegendOfText(const std::string& text)
{
    const Json  top = ParseJson(text);
    LabelLegend legend;
    legend.Size.Width = static_cast<int>(WholeNumber(Needed(top, "width"), 1, INT32_MAX, "width"));
    legend.Size.Height = static_cast<int>(WholeNumber(Needed(top, "height"), 1, INT32_MAX, "height"));
    legend.Bits = static_cast<int>(WholeNumber(Needed(top, "bits"), 16, 32, "bits"));
    if (legend.Bits != 16 && legend.Bits != 32)
        Fail(VOSTEL_BAD_FORMAT, "bits is neither 16 nor 32");
    if (const Json* const hash = Member(top, "hash"))
        legend.Hash = TextValue(*hash, "hash");
    const Json& labels = Needed(top, "labels");
    if (!labels.is_array())
        Fail(VOSTEL_BAD_FORMAT, "labels is not an array");
    int number = 0;
    for (const Json& entry : labels) {
        const std::string where = "entry " + std::to_string(++number) + " of the legend: ";
        const auto        label = WholeNumber(Needed(entry, "label"), 1, INT32_MAX, where + "label");
        legend.Names[static_cast<std::int32_t>(label)] = TextValue(Needed(entry, "name"), where + "name");
    }
    return legend;
}

std::string LabelNameOf(const std::string& utf8Path)
{
    for (const std::string_view ending : {".labels.png", LegendEnding, RawEnding, ".png"}) {
        if (HasEnding(utf8Path, ending))
            return utf8Path.substr(0, utf8Path.size() - ending.size());
    }
    const std::size_t dot = utf8Path.rfind('.');
    const std::size_t folder = utf8Path.find_last_of("/\\");
    const bool        hasEnding = dot != std::string::npos && (folder == std::string::npos || dot > folder);
    return hasEnding ? utf8Path.substr(0, dot) : utf8Path;
}

}
