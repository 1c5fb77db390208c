#pragma once

// What stands beside a label image, in NAME.labels.json: its size, how its values are held, and names.

#include "interchange/FileObject.h"

#include <cstdint>
#include <map>
#include <string>

namespace vostel {

struct LabelLegend {
    ImageSize                           Size;
    int                                 Bits = 16;    // 16: a PNG; 32: NAME.labels.raw
    std::string                         Hash;         // of the labels that it was written for; may be empty
    std::map<std::int32_t, std::string> Names;        // of the labels that occur, empty for none
};

std::string LegendTextOf(const LabelLegend& legend);
LabelLegend LegendOfText(const std::string& text);

// NAME of a path: without .png, .labels.png, .labels.json or .labels.raw, and else without its ending.
std::string LabelNameOf(const std::string& utf8Path);

constexpr const char* LegendEnding = ".labels.json";
constexpr const char* RawEnding = ".labels.raw";

}
