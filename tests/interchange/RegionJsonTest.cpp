// The library's own format of regions: all kinds, by their points, names and styles.

#include "interchange/RegionJson.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include <fstream>

namespace {

void AddAllKinds(int32_t canvas)
{
    const VostelObject box = Add(canvas, VOSTEL_RECTANGLE, {{1, 2}, {30.5, 20.25}});
    REQUIRE(vostel_object_set_flags(canvas, box, VOSTEL_ELLIPSE | VOSTEL_NO_LABEL) == VOSTEL_OK);
    REQUIRE(vostel_object_set_label(canvas, box, 7) == VOSTEL_OK);
    const VostelObject polygon = Add(canvas, VOSTEL_POLYGON, {{1, 2}, {30.5, 20.25}, {0.1, 1e-5}});
    REQUIRE(vostel_object_set_name(canvas, polygon, "\xe6\x96\x87 \"name\"") == VOSTEL_OK);
    Add(canvas, VOSTEL_SPLINE, {{1, 2}, {30.5, 20.25}, {0.1, 1e-5}});
    Add(canvas, VOSTEL_FREE_REGION, {{1, 2}, {30.5, 20.25}, {0.1, 1e-5}});
    const VostelObject text = Add(canvas, VOSTEL_TEXT, {{4, 5}});
    REQUIRE(vostel_object_set_text(canvas, text, "a text") == VOSTEL_OK);
    Add(canvas, VOSTEL_FREE_STROKES, {{1, 2}, {30.5, 20.25}, {0.1, 1e-5}});
    const VostelObject length = Add(canvas, VOSTEL_LENGTH, {{1, 2}, {30.5, 20.25}});
    const VostelStyle  style = {sizeof style, 0x102030, 0x405060, 0x708090, 0x80ABCDEF, 2.5, 24};
    REQUIRE(vostel_object_set_style(canvas, length, &style) == VOSTEL_OK);
    Add(canvas, VOSTEL_ANGLE, {{1, 2}, {3, 4}, {9, 1}});
    Add(canvas, VOSTEL_ANGLE_LINES, {{1, 2}, {3, 4}, {9, 1}, {8, 8}});
    Add(canvas, VOSTEL_PANEL, {{10, 10}});
    Add(canvas, VOSTEL_NEIGHBOURS, {{20, 10}});
    Add(canvas, VOSTEL_PROFILE, {{1, 2}, {30, 20}});
    Add(canvas, VOSTEL_POINTS, {{1, 2}, {30.5, 20.25}});
    Add(canvas, VOSTEL_POLYLINE, {{1, 2}, {30.5, 20.25}, {7, 7}});
    Add(canvas, VOSTEL_ARROW, {{1, 2}, {30.5, 20.25}});
}

// Without the numbers of objects, which are never the same.
std::string Comparable(int32_t canvas)
{
    std::string kept;
    bool        number = true;
    for (const char c : StateOf(canvas)) {
        number = number && c != ' ';
        if (!number)
            kept += c;
        number = number || c == '\n';
    }
    return kept;
}

std::string TextOf(const std::string& path)
{
    const std::vector<unsigned char> bytes = ReadBytes(path);
    return {bytes.begin(), bytes.end()};
}

}

TEST_CASE("objects of all kinds leave and return, as one step")
{
    const TempFolder folder;
    const OpenCanvas canvas;
    const OpenCanvas other;
    AddAllKinds(canvas.Number);
    const std::string path = folder.Path("a.json");
    REQUIRE(vostel_regions_export(canvas.Number, path.c_str(), nullptr) == VOSTEL_OK);
    CHECK(std::string(vostel_last_message()) == "");
    std::size_t count = 0;
    REQUIRE(vostel_regions_import(other.Number, path.c_str(), nullptr, &count) == VOSTEL_OK);
    CHECK(count == 15);
    CHECK(FirstDifference(Comparable(canvas.Number), Comparable(other.Number)) == "");
    CHECK(HistoryOf(other.Number).undo_count == 1);
    REQUIRE(vostel_regions_export(other.Number, folder.Path("b").c_str(), "json") == VOSTEL_OK);
    CHECK(TextOf(path) == TextOf(folder.Path("b")));
    REQUIRE(vostel_undo(other.Number) == VOSTEL_OK);
    CHECK(ObjectsOf(other.Number).empty());
    REQUIRE(vostel_redo(other.Number) == VOSTEL_OK);
    CHECK(FirstDifference(Comparable(canvas.Number), Comparable(other.Number)) == "");
}

TEST_CASE("the objects of a session are taken, on top of those that are there")
{
    const TempFolder folder;
    const OpenCanvas canvas;
    AddAllKinds(canvas.Number);
    VostelObject empty = 0;
    REQUIRE(vostel_draw_next(canvas.Number, VOSTEL_POLYGON, &empty) == VOSTEL_OK);
    REQUIRE(vostel_session_save(canvas.Number, folder.Path("s.vostel.json").c_str(), 0) == VOSTEL_OK);
    const OpenCanvas   other;
    const VostelObject first = Add(other.Number, VOSTEL_RECTANGLE, {{0, 0}, {4, 4}});
    std::size_t        count = 0;
    REQUIRE(vostel_regions_import(other.Number, folder.Path("s.vostel.json").c_str(), nullptr, &count) ==
            VOSTEL_OK);
    CHECK(count == 15);
    CHECK(std::string(vostel_last_message()) == "left out: 1 unfinished polygon");
    CHECK(ObjectsOf(other.Number).front() == first);
    // Label 1 is taken.
    VostelObjectInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_object_get(other.Number, ObjectsOf(other.Number)[1], &info) == VOSTEL_OK);
    CHECK(info.label == 7);
    REQUIRE(vostel_regions_export(canvas.Number, folder.Path("r.json").c_str(), nullptr) == VOSTEL_OK);
    CHECK(std::string(vostel_last_message()) == "left out: 1 unfinished polygon");
}

TEST_CASE("what is wrong is told with its place, and nothing is added")
{
    const TempFolder folder;
    const OpenCanvas canvas;
    const auto       import = [&](const std::string& text) {
        std::ofstream(folder.Path("a.json"), std::ios::binary) << text;
        return vostel_regions_import(canvas.Number, folder.Path("a.json").c_str(), nullptr, nullptr);
    };
    const std::string head = "{\"format\": \"vostel-regions\", \"version\": 1, \"objects\": [";
    const std::string good = "{\"kind\": \"arrow\", \"points\": [[1, 2], [3, 4]]}, ";
    for (const char* const bad :
         {"{\"kind\": \"arrow\", \"points\": [[1, 2]]}]}", "{\"points\": [[1, 2], [3, 4]]}]}",
          "{\"kind\": \"arrow\", \"points\": [[1, 2], [3, 4]], \"style\": {\"line_width\": -1}}]}",
          "{\"kind\": \"arrow\", \"points\": [[1, 2], [3, 4]], \"flags\": [\"ellipse\"]}]}", "7]}"}) {
        CAPTURE(bad);
        CHECK(import(head + good + bad) == VOSTEL_BAD_FORMAT);
        CHECK(std::string(vostel_last_message()).find("object") != std::string::npos);
        CHECK(ObjectsOf(canvas.Number).empty());
    }
    CHECK(import("{}") == VOSTEL_BAD_FORMAT);
    CHECK(import(head + good + "{\"kind\": \"hologram\"}]}") == VOSTEL_OK);
    CHECK(std::string(vostel_last_message()) == "left out: 1 hologram");
    CHECK(ObjectsOf(canvas.Number).size() == 1);
    CHECK(import(head + "{\"kind\": \"arrow\", \"points\": [[1, 2], [3, 4]], \"spin\": 1, "
                        "\"flags\": [\"hidden\", \"glowing\"], \"style\": {\"dash\": 2}}]}") == VOSTEL_OK);
    CHECK(std::string(vostel_last_message()) == "ignored: arrow.flags.glowing, arrow.spin, arrow.style.dash");
    CHECK(vostel_regions_import(canvas.Number, folder.Path("none.json").c_str(), nullptr, nullptr) ==
          VOSTEL_NOT_READ);
    CHECK(vostel_regions_import(canvas.Number, folder.Path("a.json").c_str(), "telepathy", nullptr) ==
          VOSTEL_NOT_SUPPORTED);
    CHECK(vostel_regions_export(canvas.Number, folder.Path("a.unknown").c_str(), nullptr) ==
          VOSTEL_NOT_SUPPORTED);
}
