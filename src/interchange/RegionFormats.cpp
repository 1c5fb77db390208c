#include "interchange/RegionFormats.h"

#include "base/Failure.h"
#include "interchange/LabelFiles.h"
#include "interchange/LabelLegend.h"
#include "interchange/RegionFiles.h"

#include <algorithm>
#include <span>

namespace vostel {

namespace {

std::span<const RegionFormat> AllFormats()
{
    static const std::vector<RegionFormat> formats = {
        {"geojson", {".geojson"}, ExportGeoJson, ImportGeoJson},
        {"coco", {}, ExportCoco, ImportCoco},
        {"labels", {".png", LegendEnding, RawEnding}, ExportLabels, ImportLabels},
        {"csv", {".csv"}, ExportPointTable, ImportPointTable},
    };
    return formats;
}

bool HasEnding(const std::string& path, const char* ending)
{
    std::string lower = path;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; });
    return lower.ends_with(ending);
}

bool IsMeant(const RegionFormat& one, const char* format, const std::string& path)
{
    if (format)
        return one.Name == std::string(format);
    return std::any_of(one.Endings.begin(), one.Endings.end(),
                       [&](const char* ending) { return HasEnding(path, ending); });
}

}

const RegionFormat& FindRegionFormat(const char* format, const std::string& path)
{
    for (const RegionFormat& one : AllFormats()) {
        if (IsMeant(one, format, path))
            return one;
    }
    Fail(VOSTEL_NOT_SUPPORTED, format ? "format is unknown" : "path has the ending of no known format");
}

}
