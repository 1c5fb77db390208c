// Regions through the calls: formats by name and ending, and imports that are all or nothing.

#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int Side = 64;

using Mask = std::vector<std::uint8_t>;

Mask MaskOf(int32_t canvas, VostelObject region)
{
    Mask mask(Side * Side);
    REQUIRE(vostel_mask(canvas, region, mask.data(), 0) == VOSTEL_OK);
    return mask;
}

class ShownCanvas : public OpenCanvas {
public:
    ShownCanvas()
    {
        ShowBytes(Number, Side, Side, [](int, int) { return 0; });
    }
};

void DrawAllKinds(int32_t canvas, std::mt19937& random)
{
    std::uniform_real_distribution<double> place(-4.0, Side + 4.0);
    const auto                             add = [&](VostelKind kind, int count) {
        Points points;
        for (int i = 0; i < count; ++i)
            points.push_back({place(random), place(random)});
        const VostelObject object = Add(canvas, kind, points);
        REQUIRE(vostel_object_set_name(canvas, object, ("kind " + std::to_string(kind)).c_str()) ==
                                            VOSTEL_OK);
        return object;
    };
    add(VOSTEL_RECTANGLE, 2);
    REQUIRE(vostel_object_set_flags(canvas, add(VOSTEL_RECTANGLE, 2), VOSTEL_ELLIPSE | VOSTEL_LOCKED) ==
            VOSTEL_OK);
    for (const VostelKind kind : {VOSTEL_POLYGON, VOSTEL_SPLINE, VOSTEL_FREE_REGION})
        add(kind, 6);
    for (const VostelKind kind : {VOSTEL_LENGTH, VOSTEL_PROFILE, VOSTEL_ARROW})
        add(kind, 2);
    add(VOSTEL_ANGLE, 3);
    add(VOSTEL_ANGLE_LINES, 4);
    add(VOSTEL_POINTS, 5);
    add(VOSTEL_POLYLINE, 5);
    add(VOSTEL_FREE_STROKES, 5);
    const VostelObject text = add(VOSTEL_TEXT, 1);
    REQUIRE(vostel_object_set_text(canvas, text, "two\nlines") == VOSTEL_OK);
}

VostelObjectInfo InfoOf(int32_t canvas, VostelObject object)
{
    VostelObjectInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_object_get(canvas, object, &info) == VOSTEL_OK);
    return info;
}

std::vector<unsigned char> BytesOf(const std::string& text)
{
    return std::vector<unsigned char>(text.begin(), text.end());
}

}

TEST_CASE("a canvas of all kinds leaves as GeoJSON and returns, with the same masks, texts and styles")
{
    std::mt19937     random(9);
    const TempFolder folder;
    for (int round = 0; round < 10; ++round) {
        const ShownCanvas left;
        const ShownCanvas back;
        DrawAllKinds(left.Number, random);
        std::size_t count = 0;
        REQUIRE(vostel_regions_export(left.Number, folder.Path("a.geojson").c_str(), nullptr) == VOSTEL_OK);
        CHECK(std::string(vostel_last_message()).empty());
        REQUIRE(vostel_regions_import(back.Number, folder.Path("a.geojson").c_str(), nullptr, &count) ==
                VOSTEL_OK);
        CHECK(std::string(vostel_last_message()).empty());
        const std::vector<VostelObject> a = ObjectsOf(left.Number);
        const std::vector<VostelObject> b = ObjectsOf(back.Number);
        CHECK(count == a.size());
        REQUIRE(a.size() == b.size());
        for (std::size_t i = 0; i < a.size(); ++i) {
            const VostelObjectInfo before = InfoOf(left.Number, a[i]);
            const VostelObjectInfo after = InfoOf(back.Number, b[i]);
            CAPTURE(before.kind);
            CHECK(after.kind == before.kind);
            CHECK(after.flags == before.flags);
            CHECK(after.label == before.label);
            CHECK(NameOf(back.Number, b[i]) == NameOf(left.Number, a[i]));
            if (before.label > 0)
                CHECK(MaskOf(back.Number, b[i]) == MaskOf(left.Number, a[i]));
            VostelStyle styleBefore = {}, styleAfter = {};
            styleBefore.size = styleAfter.size = sizeof styleBefore;
            REQUIRE(vostel_object_style(left.Number, a[i], &styleBefore) == VOSTEL_OK);
            REQUIRE(vostel_object_style(back.Number, b[i], &styleAfter) == VOSTEL_OK);
            CHECK(styleAfter.line_color == styleBefore.line_color);
            CHECK(styleAfter.fill_color == styleBefore.fill_color);
            CHECK(styleAfter.line_width == styleBefore.line_width);
        }
        CHECK(HistoryOf(back.Number).undo_count == 1);
        REQUIRE(vostel_undo(back.Number) == VOSTEL_OK);
        CHECK(ObjectsOf(back.Number).empty());
    }
}

TEST_CASE("what was exported twice has the same bytes, in every format")
{
    std::mt19937      random(10);
    const TempFolder  folder;
    const ShownCanvas canvas;
    DrawAllKinds(canvas.Number, random);
    for (const char* const format : {"geojson", "coco", "labels", "csv"}) {
        REQUIRE(vostel_regions_export(canvas.Number, folder.Path("a.1").c_str(), format) == VOSTEL_OK);
        REQUIRE(vostel_regions_export(canvas.Number, folder.Path("b.1").c_str(), format) == VOSTEL_OK);
        CHECK(ReadBytes(folder.Path("a.1")) == ReadBytes(folder.Path("b.1")));
        CHECK(!ReadBytes(folder.Path("a.1")).empty());
    }
}

TEST_CASE("the longest ending decides, whatever the case, and unknown ones are not supported")
{
    const TempFolder  folder;
    const ShownCanvas canvas;
    std::size_t       count = 0;
    Add(canvas.Number, VOSTEL_RECTANGLE, {{1.0, 1.0}, {5.0, 5.0}});
    for (const char* const name : {"a.geojson", "B.GeoJSON", "c.csv", "d.PNG", "e.labels.json"}) {
        REQUIRE(vostel_regions_export(canvas.Number, folder.Path(name).c_str(), nullptr) == VOSTEL_OK);
        CHECK(vostel_regions_import(canvas.Number, folder.Path(name).c_str(), nullptr, &count) == VOSTEL_OK);
        CHECK(count == 1);
        REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    }
    CHECK(std::filesystem::exists(folder.Path("d.labels.json")));
    CHECK(std::filesystem::exists(folder.Path("e.png")));
    CHECK(vostel_regions_export(canvas.Number, folder.Path("a.xyz").c_str(), nullptr) ==
          VOSTEL_NOT_SUPPORTED);
    CHECK(vostel_regions_export(canvas.Number, folder.Path("a").c_str(), nullptr) == VOSTEL_NOT_SUPPORTED);
    CHECK(vostel_regions_import(canvas.Number, folder.Path("a.csv").c_str(), "xyz", nullptr) ==
          VOSTEL_NOT_SUPPORTED);
    CHECK(vostel_regions_import(canvas.Number, folder.Path("none.csv").c_str(), nullptr, nullptr) ==
          VOSTEL_NOT_READ);
    CHECK(vostel_regions_export(canvas.Number, folder.Path("none/a.csv").c_str(), nullptr) ==
          VOSTEL_NOT_WRITTEN);
}

TEST_CASE("an SVG of regions is the picture at scale 1 with objects and captions, and is not read")
{
    std::mt19937      random(11);
    const TempFolder  folder;
    const ShownCanvas canvas;
    DrawAllKinds(canvas.Number, random);
    REQUIRE(vostel_regions_export(canvas.Number, folder.Path("a.svg").c_str(), nullptr) == VOSTEL_OK);
    REQUIRE(vostel_picture_save(canvas.Number, folder.Path("b.svg").c_str(), 1.0,
                                VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS) == VOSTEL_OK);
    CHECK(!ReadBytes(folder.Path("a.svg")).empty());
    CHECK(ReadBytes(folder.Path("a.svg")) == ReadBytes(folder.Path("b.svg")));
    CHECK(vostel_regions_import(canvas.Number, folder.Path("a.svg").c_str(), nullptr, nullptr) ==
          VOSTEL_NOT_SUPPORTED);
    const OpenCanvas empty;
    CHECK(vostel_regions_export(empty.Number, folder.Path("c.svg").c_str(), nullptr) == VOSTEL_NO_IMAGE);
}

TEST_CASE("COCO names the image's file, and an image it must have")
{
    const TempFolder folder;
    const OpenCanvas canvas;
    CHECK(vostel_regions_export(canvas.Number, folder.Path("a").c_str(), "coco") == VOSTEL_NO_IMAGE);
    std::vector<unsigned char> pgm = BytesOf("P5 2 1 255\n");
    pgm.insert(pgm.end(), {1, 2});
    REQUIRE(WriteBytes(folder.Path("part.pgm"), pgm));
    REQUIRE(vostel_image_open(canvas.Number, folder.Path("part.pgm").c_str(), 0) == VOSTEL_OK);
    REQUIRE(vostel_regions_export(canvas.Number, folder.Path("a").c_str(), "coco") == VOSTEL_OK);
    const std::vector<unsigned char> file = ReadBytes(folder.Path("a"));
    CHECK(std::string(file.begin(), file.end()).find("\"file_name\": \"part.pgm\"") != std::string::npos);
}

TEST_CASE("an import that fails at its last object changes nothing")
{
    const TempFolder  folder;
    const ShownCanvas canvas;
    Add(canvas.Number, VOSTEL_POLYGON, {{1.0, 1.0}, {9.0, 1.0}, {5.0, 7.0}});
    const std::string       state = StateOf(canvas.Number);
    const VostelHistoryInfo history = HistoryOf(canvas.Number);
    const auto              refused = [&](const char* name, const std::string& text, VostelStatus status) {
        REQUIRE(WriteBytes(folder.Path(name), BytesOf(text)));
        CHECK(vostel_regions_import(canvas.Number, folder.Path(name).c_str(),
                                    std::string(name) == "coco" ? "coco" : nullptr, nullptr) == status);
        CHECK(!std::string(vostel_last_message()).empty());
        CHECK(StateOf(canvas.Number) == state);
        CHECK(HistoryOf(canvas.Number).undo_count == history.undo_count);
    };
    refused("a.geojson",
            R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]},
            {"type":"LineString","coordinates":[[1,2]]}]})",
            VOSTEL_BAD_FORMAT);
    refused("a.csv", "x,y\n1,2\n3,four\n", VOSTEL_BAD_FORMAT);
    refused("b.csv", "name,x,y\n\"\xFF\",1,2\n", VOSTEL_BAD_FORMAT);
    refused("coco", R"({"annotations":[{"bbox":[1,2,3,4]},{"segmentation":{"counts":[1],"size":[1,1]}}]})",
            VOSTEL_NOT_SUPPORTED);
}

TEST_CASE("labels stay where they are free, and parts of one thing stay together")
{
    const TempFolder  folder;
    const ShownCanvas canvas;
    Add(canvas.Number, VOSTEL_RECTANGLE, {{1.0, 1.0}, {5.0, 5.0}});    // label 1
    REQUIRE(WriteBytes(folder.Path("a.geojson"), BytesOf(R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{"label":1},"geometry":{"type":"MultiPolygon","coordinates":
            [[[[0,0],[1,0],[1,1],[0,0]]],[[[5,5],[6,5],[6,6],[5,5]]]]}},
        {"type":"Feature","properties":{"label":9},"geometry":{"type":"Polygon","coordinates":
            [[[0,0],[1,0],[1,1],[0,0]]]}}]})")));
    REQUIRE(vostel_regions_import(canvas.Number, folder.Path("a.geojson").c_str(), nullptr, nullptr) ==
            VOSTEL_OK);
    const std::vector<VostelObject> objects = ObjectsOf(canvas.Number);
    REQUIRE(objects.size() == 4);
    CHECK(InfoOf(canvas.Number, objects[1]).label == 2);
    CHECK(InfoOf(canvas.Number, objects[2]).label == 2);
    CHECK(InfoOf(canvas.Number, objects[3]).label == 9);
}
