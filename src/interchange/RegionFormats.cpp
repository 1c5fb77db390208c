#include "interchange/RegionFormats.h"

#include "base/AsciiCase.h"
#include "base/Failure.h"
#include "interchange/ImageJFiles.h"
#include "interchange/LabelFiles.h"
#include "interchange/LabelLegend.h"
#include "interchange/RegionFiles.h"
#include "interchange/RegionJson.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace vostel {

namespace {

std::span<const RegionFormat> AllFormats()
{
    static const std::vector<RegionFormat> formats = {
        {"geojson", {".geojson"}, ExportGeoJson, ImportGeoJson},
        {"coco", {}, ExportCoco, ImportCoco},
        {"imagej", {".roi", ".zip"}, ExportImageJ, ImportImageJ},
        {"labels", {".png", LegendEnding, RawEnding}, ExportLabels, ImportLabels},
        {"json", {".json"}, ExportRegionJson, ImportRegionJson},
        {"csv", {".csv"}, ExportPointTable, ImportPointTable},
        {"svg", {".svg"}, ExportSvg, nullptr},
    };
    return formats;
}

// How much of the path says that it is of the format; ".labels.json" says more than ".json".
std::size_t LengthOfEnding(const RegionFormat& format, const std::string& path)
{
    std::size_t length = 0;
    for (const std::string_view ending : format.Endings) {
        if (HasEnding(path, ending))
            length = std::max(length, ending.size());
    }
    return length;
}

const RegionFormat* FormatNamed(std::string_view name)
{
    for (const RegionFormat& one : AllFormats()) {
        if (one.Name == name)
            return &one;
    }
    return nullptr;
}

const RegionFormat* FormatOfPath(const std::string& path)
{
    const RegionFormat* found = nullptr;
    std::size_t         length = 0;
    for (const RegionFormat& one : AllFormats()) {
        if (LengthOfEnding(one, path) > length) {
            length = LengthOfEnding(one, path);
            found = &one;
        }
    }
    return found;
}

}

const RegionFormat& FindRegionFormat(const char* format, const std::string& path)
{
    const RegionFormat* const found = format ? FormatNamed(format) : FormatOfPath(path);
    if (!found)
        Fail(VOSTEL_NOT_SUPPORTED, format ? "format is unknown" : "path has the ending of no known format");
    return *found;
}

}
