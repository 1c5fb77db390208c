// Files that other programs wrote show here what they show there; foreign/README.md says which programs.

#include "interchange/JsonText.h"
#include "interchange/LabelFiles.h"
#include "interchange/RegionFiles.h"
#include "interchange/RegionSamples.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using namespace vostel;

namespace {

std::string PathOf(const std::string& name)
{
    return VOSTEL_FOREIGN_FOLDER "/regions/" + name;
}

Json Expected()
{
    std::ifstream      file(PathOf("expected.json"));
    std::ostringstream text;
    text << file.rdbuf();
    return ParseJson(text.str());
}

std::vector<FileObject> ReadForeign(const std::string& name, ImageSize size)
{
    Remarks           remarks;
    const std::string path = PathOf(name);
    if (name.ends_with(".geojson"))
        return ImportGeoJson(path.c_str(), size, remarks);
    if (name.ends_with(".csv"))
        return ImportPointTable(path.c_str(), size, remarks);
    if (name.ends_with("coco.json"))
        return ImportCoco(path.c_str(), size, remarks);
    return ImportLabels(path.c_str(), size, remarks);
}

Json PixelsOf(const FileObject& region, ImageSize size)
{
    std::int64_t count = 0, columns = 0, rows = 0;
    for (const PixelRun& run : CoverageOf(ExactOutline(region), size.Width, size.Height)) {
        for (int x = run.Begin; x < run.End; ++x) {
            ++count;
            columns += x;
            rows += run.Row;
        }
    }
    return Json::array({count, columns, rows});
}

}

TEST_CASE("regions of other programs cover the pixels that they cover there")
{
    const Json      expected = Expected();
    const ImageSize size = {expected["width"].get<int>(), expected["height"].get<int>()};
    CHECK(expected["files"].size() >= 10);
    for (const auto& file : expected["files"].items()) {
        const std::string& name = file.key();
        const Json&        objects = file.value();
        CAPTURE(name);
        std::vector<FileObject> read;
        REQUIRE(MessageOf([&] { read = ReadForeign(name, size); }) == "");
        REQUIRE(read.size() == objects.size());
        for (std::size_t i = 0; i < read.size(); ++i) {
            CAPTURE(i);
            CHECK(KindWord(read[i]) == objects[i]["kind"].get<std::string>());
            if (Member(objects[i], "pixels"))
                CHECK(PixelsOf(read[i], size) == objects[i]["pixels"]);
            if (Member(objects[i], "points"))
                CHECK(read[i].Points.size() == objects[i]["points"].get<std::size_t>());
            if (Member(objects[i], "label"))
                CHECK(read[i].Label == objects[i]["label"].get<int>());
        }
    }
}

TEST_CASE("names and attributes of other programs arrive, and what is not understood is told")
{
    Remarks                       remarks;
    const std::vector<FileObject> plate =
        ImportGeoJson(PathOf("gdal-rfc7946.geojson").c_str(), {60, 50}, remarks);
    REQUIRE(plate.size() == 1);
    CHECK(plate[0].Name == "plate");
    CHECK(remarks.Text() == "ignored: the properties area");
    Remarks none;
    CHECK(ImportLabels(PathOf("numpy.labels.raw").c_str(), {60, 50}, none)[0].Name == "ring");
    CHECK(ImportGeoJson(PathOf("shapely-multi.geojson").c_str(), {60, 50}, none)[1].Label == 4);
    CHECK(ImportCoco(PathOf("skimage-coco.json").c_str(), {60, 50}, none)[0].Name == "cell");
}
