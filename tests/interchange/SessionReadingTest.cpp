// Session files that others wrote: by a later version, by hand, or damaged. What is not understood survives,
// what is wrong changes nothing.

#include "interchange/CanvasContent.h"
#include "interchange/JsonText.h"
#include "support/CommaLocale.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include "VostelObj.h"

using vostel::Json;

namespace {

constexpr int Width = 40;
constexpr int Height = 30;

// A canvas, and a folder for its sessions; the image is from memory.
class SessionBench {
public:
    TempFolder Folder;
    OpenCanvas Canvas;

    SessionBench()
    {
        const int32_t number = Canvas.Number;
        ShowBytes(number, Width, Height, [](int x, int y) { return x + y; });
        Polygon = Add(number, VOSTEL_POLYGON, {{5, 5}, {25, 6}, {14.5, 22}});
        const VostelObject text = Add(number, VOSTEL_TEXT, {{3, 4}});
        REQUIRE(vostel_object_set_text(number, text, "text") == VOSTEL_OK);
        Add(number, VOSTEL_FREE_STROKES, {{3, 4}, {5, 6}, {7, 8}});
        gCVSAddMeasureLine(number, 0.0);
        for (const CPoint point : {CPoint(150, 100), CPoint(160, 110)}) {
            gCVSOnLButtonDown(number, MK_LBUTTON | MK_SHIFT, point);
            gCVSOnMouseMove(number, MK_LBUTTON | MK_SHIFT, point + CPoint(20, 10));
            gCVSOnLButtonUp(number, MK_SHIFT, point + CPoint(20, 10));
        }
        REQUIRE(vostel_object_set_name(number, Polygon, "first") == VOSTEL_OK);
        REQUIRE(vostel_contrast_of_object(number, Polygon, 10, 20) == VOSTEL_OK);
        REQUIRE(vostel_object_set_flags(number, Polygon, VOSTEL_LOCKED) == VOSTEL_OK);
        REQUIRE(vostel_object_remove(number, Add(number, VOSTEL_RECTANGLE, {{3, 4}, {5, 6}})) == VOSTEL_OK);
        REQUIRE(vostel_set_scale(number, 0.5, "mm") == VOSTEL_OK);
        REQUIRE(vostel_select(number, &Polygon, 1) == VOSTEL_OK);
        Saved = Save();
        REQUIRE(vostel_session_save(number, Path().c_str(), 0) == VOSTEL_OK);
        const std::vector<unsigned char> bytes = ReadBytes(Path());
        REQUIRE(Saved == std::string(bytes.begin(), bytes.end()));
    }

    std::string  Save() const { return SessionOf(Canvas.Number, Path()); }
    VostelStatus Open(const std::string& text) const
    {
        REQUIRE(WriteText(Path(), text));
        return vostel_session_open(Canvas.Number, Path().c_str(), VOSTEL_SESSION_ON_IMAGE);
    }
    VostelStatus Open(const char* text) const { return Open(std::string(text)); }
    VostelStatus Open(const Json& json) const { return Open(vostel::JsonTextOf(json)); }
    Json         File() const { return vostel::ParseJson(Saved); }

    std::string  Saved;
    VostelObject Polygon = 0;

private:
    std::string Path() const { return Folder.Path("s.vostel.json"); }
};

bool IsAsBefore(const SessionBench& bench, const std::string& before)
{
    const std::string difference = FirstDifference(ContentOf(bench.Canvas.Number), before);
    CHECK(difference == "");
    return difference.empty();
}

std::string LastMessage()
{
    return vostel_last_message();
}

// The paths of all members and elements of a value.
void ListPlaces(const Json& value, const Json::json_pointer& at, std::vector<Json::json_pointer>& places)
{
    if (value.is_object()) {
        for (const auto& [name, member] : value.items()) {
            const Json::json_pointer place = at / name;
            places.push_back(place);
            ListPlaces(member, place, places);
        }
    } else if (value.is_array()) {
        for (std::size_t i = 0; i < value.size(); ++i) {
            const Json::json_pointer place = at / i;
            places.push_back(place);
            ListPlaces(value[i], place, places);
        }
    }
}

}

TEST_CASE("what opens is saved as the same bytes")
{
    const SessionBench bench;
    REQUIRE(bench.Open(bench.Saved) == VOSTEL_OK);
    CHECK(LastMessage() == "");
    CHECK(FirstDifference(bench.Save(), bench.Saved) == "");
}

TEST_CASE("numbers have a point in every locale, written and read")
{
    const SessionBench bench;
    const CommaLocale  locale;
    CHECK(FirstDifference(bench.Save(), bench.Saved) == "");
    REQUIRE(bench.Open(bench.Saved) == VOSTEL_OK);
    CHECK(FirstDifference(bench.Save(), bench.Saved) == "");
}

TEST_CASE("members that are not known survive, and so does a higher version")
{
    const SessionBench bench;
    Json               file = bench.File();
    file["version"] = 2;
    file["later"] = {{"list", {1, 2.5, "three", nullptr}}, {"huge", 18446744073709551615u}};
    for (const char* const part : {"image", "view", "contrast", "scale", "counts"})
        file[part]["later"] = part;
    file["objects"][0]["later"] = {{"a", 1}};
    file["objects"][0]["style"]["dash"] = "4 2";
    file["objects"][0]["flags"].push_back("glowing");
    file["objects"][0]["flags"].push_back("ghost");
    file["objects"][2]["later"] = "\xe6\x96\x87";
    const std::string text = vostel::JsonTextOf(file);
    REQUIRE(bench.Open(text) == VOSTEL_OK);
    CHECK(LastMessage() ==
          "kept but not understood: contrast.later, counts.later, free_strokes.later, image.later, later, "
          "polygon.flags.ghost, polygon.flags.glowing, polygon.later, polygon.style.dash, scale.later, "
          "view.later");
    CHECK(FirstDifference(bench.Save(), text) == "");
    // With their objects they come back from the history too.
    const auto objects = ObjectsOf(bench.Canvas.Number);
    REQUIRE(vostel_object_remove(bench.Canvas.Number, objects[0]) == VOSTEL_OK);
    CHECK(bench.Save().find("dash") == std::string::npos);
    REQUIRE(vostel_undo(bench.Canvas.Number) == VOSTEL_OK);
    CHECK(bench.Save().find("dash") != std::string::npos);
    // Another image leaves nothing of them.
    ShowBytes(bench.Canvas.Number, Width, Height, [](int x, int y) { return x + y; });
    CHECK(bench.Save().find("later") == std::string::npos);
}

TEST_CASE("flags that are not known survive the known ones")
{
    const SessionBench bench;
    Json               file = bench.File();
    file["objects"][0]["flags"] = {"glowing", "locked"};
    REQUIRE(bench.Open(file) == VOSTEL_OK);
    CHECK(vostel::ParseJson(bench.Save())["objects"][0]["flags"] == Json({"locked", "glowing"}));
    const VostelObject object = ObjectsOf(bench.Canvas.Number)[0];
    REQUIRE(vostel_object_set_flags(bench.Canvas.Number, object, 0) == VOSTEL_OK);
    const std::string saved = bench.Save();
    CHECK(vostel::ParseJson(saved)["objects"][0]["flags"] == Json::array({"glowing"}));
    REQUIRE(bench.Open(saved) == VOSTEL_OK);
    CHECK(FirstDifference(bench.Save(), saved) == "");
}

TEST_CASE("a color map and a language that are not known survive until others are chosen")
{
    const SessionBench bench;
    const int32_t      number = bench.Canvas.Number;
    Json               file = bench.File();
    file["contrast"]["map"] = "aurora";
    file["language"] = "eo";
    const std::string text = vostel::JsonTextOf(file);
    REQUIRE(bench.Open(text) == VOSTEL_OK);
    CHECK(LastMessage().find("\"aurora\" is unknown") != std::string::npos);
    CHECK(LastMessage().find("\"eo\" is unknown") != std::string::npos);
    CHECK(FirstDifference(bench.Save(), text) == "");
    REQUIRE(bench.Open(bench.Save()) == VOSTEL_OK);
    CHECK(FirstDifference(bench.Save(), text) == "");
    REQUIRE(vostel_contrast_map(number, "fire") == VOSTEL_OK);
    REQUIRE(vostel_canvas_set_language(number, "en") == VOSTEL_OK);
    CHECK(vostel::ParseJson(bench.Save())["contrast"]["map"] == "fire");
    CHECK(vostel::ParseJson(bench.Save())["language"] == "en");
    // Where the contrast of the session is not taken, its map is not either.
    ShowBytes(number, Width, Height, [](int x, int y) { return x * y; });
    REQUIRE(bench.Open(text) == VOSTEL_OK);
    CHECK(vostel::ParseJson(bench.Save())["contrast"]["map"] == "gray");
    // Another image brings a contrast of its own.
    ShowBytes(number, Width, Height, [](int x, int y) { return x + y; });
    REQUIRE(bench.Open(text) == VOSTEL_OK);
    std::vector<unsigned char> samples(40 * 30);
    REQUIRE(vostel_image_show(number, VOSTEL_U8, samples.data(), Width, Height, 0, VOSTEL_KEEP_OBJECTS) ==
            VOSTEL_OK);
    CHECK(vostel::ParseJson(bench.Save())["contrast"]["map"] == "gray");
}

TEST_CASE("counts that a file does not say follow from its objects")
{
    const SessionBench bench;
    Json               file = bench.File();
    REQUIRE(bench.Open(file) == VOSTEL_OK);
    file.erase("counts");
    REQUIRE(bench.Open(file) == VOSTEL_OK);
    const std::string alone = bench.Save();
    CHECK_FALSE(vostel::ParseJson(alone).contains("counts"));
    file["counts"] = {{"elements", 77}};
    REQUIRE(bench.Open(file) == VOSTEL_OK);
    Json other = vostel::ParseJson(bench.Save());
    CHECK(other["counts"]["elements"] == 77);
    CHECK(other["counts"]["polygon"] == 1);
}

TEST_CASE("objects of an unknown kind stay in their places")
{
    const SessionBench bench;
    Json               file = bench.File();
    const Json         later = {{"kind", "hologram"}, {"points", "none"}, {"selected", 7}};
    Json               objects = Json::array({later});
    for (const Json& object : file["objects"]) {
        objects.push_back(object);
        objects.push_back(later);
    }
    file["objects"] = objects;
    const std::string text = vostel::JsonTextOf(file);
    REQUIRE(bench.Open(text) == VOSTEL_OK);
    CHECK(LastMessage().find("hologram") != std::string::npos);
    CHECK(ObjectsOf(bench.Canvas.Number).size() == 4);
    CHECK(FirstDifference(bench.Save(), text) == "");
    REQUIRE(vostel_object_remove(bench.Canvas.Number, ObjectsOf(bench.Canvas.Number)[0]) == VOSTEL_OK);
    const Json fewer = vostel::ParseJson(bench.Save());
    CHECK(fewer["objects"].size() == 8);
}

TEST_CASE("what was edited by hand wins over the state beside it")
{
    const SessionBench bench;
    Json               file = bench.File();
    REQUIRE(file["objects"][1].contains("state"));    // the text
    file["objects"][0]["points"][0][0] = 7.25;
    file["objects"][0]["name"] = "second";
    file["objects"][0]["flags"] = {"hidden", "later"};
    file["objects"][0].erase("window");
    file["objects"][0]["label"] = 12;
    file["objects"][1]["text"] = "other";
    file["objects"][1]["points"] = {{9, 8}};
    file["objects"][1]["style"]["line_color"] = "#123456";
    file["objects"][3]["points"][1] = {11, 12};
    REQUIRE(bench.Open(file) == VOSTEL_OK);
    const int32_t number = bench.Canvas.Number;
    const auto    objects = ObjectsOf(number);
    CHECK(PointsOf(number, objects[0])[0].x == 7.25);
    CHECK(NameOf(number, objects[0]) == "second");
    VostelObjectInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_object_get(number, objects[0], &info) == VOSTEL_OK);
    CHECK(info.flags == VOSTEL_HIDDEN);
    CHECK(info.label == 12);
    CHECK(PointsOf(number, objects[1])[0].y == 8.0);
    CHECK(PointsOf(number, objects[3])[1].x == 11.0);
    VostelStyle style = {};
    style.size = sizeof style;
    REQUIRE(vostel_object_style(number, objects[1], &style) == VOSTEL_OK);
    CHECK(style.line_color == 0x123456);
    CHECK(vostel::ParseJson(bench.Save())["objects"][1]["text"] == "other");
    CHECK_FALSE(vostel::ParseJson(bench.Save())["objects"][0].contains("window"));
}

TEST_CASE("a file needs no more than kinds and points")
{
    const SessionBench bench;
    REQUIRE(
        bench.Open("{\"format\": \"vostel-session\", \"version\": 1, \"objects\": [\n"
                   "{\"kind\": \"polygon\", \"points\": [[1, 2], [3, 4], [5, 1]]},\n"
                   "{\"kind\": \"length\", \"points\": [[1, 2], [3, 4]], \"style\": {\"line_width\": 3}},\n"
                   "{\"kind\": \"text\", \"points\": [[1, 2]], \"text\": \"hello\"},\n"
                   "{\"kind\": \"free_region\", \"points\": [[1, 2], [3, 4], [5, 1]], \"label\": 9}]}") ==
        VOSTEL_OK);
    const int32_t number = bench.Canvas.Number;
    const auto    objects = ObjectsOf(number);
    REQUIRE(objects.size() == 4);
    VostelObjectInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_object_get(number, objects[0], &info) == VOSTEL_OK);
    CHECK(info.label == 1);
    REQUIRE(vostel_object_get(number, objects[3], &info) == VOSTEL_OK);
    CHECK(info.label == 9);
    const std::string again = bench.Save();
    REQUIRE(bench.Open(again) == VOSTEL_OK);
    CHECK(FirstDifference(bench.Save(), again) == "");
    // As the calls of the interface make them.
    const VostelObject       same = Add(number, VOSTEL_POLYGON, {{1, 2}, {3, 4}, {5, 1}});
    const vostel::CanvasCall call(number);
    CHECK(vostel::SaveShape(*call->Elements[0]) == vostel::SaveShape(*call.Notes().Find(same)));
}

TEST_CASE("a file that is cut off anywhere is VOSTEL_BAD_FORMAT with a line and changes nothing")
{
    const SessionBench bench;
    const std::string  before = ContentOf(bench.Canvas.Number);
    const std::size_t  end = bench.Saved.find_last_of('}');
    for (std::size_t length = 0; length <= end; length += VOSTEL_DAMAGE_STEP) {
        CAPTURE(length);
        REQUIRE(bench.Open(bench.Saved.substr(0, length)) == VOSTEL_BAD_FORMAT);
        REQUIRE(LastMessage().find("line ") != std::string::npos);
    }
    CHECK(IsAsBefore(bench, before));
}

TEST_CASE("a byte changed anywhere harms nothing, and what fails changes nothing")
{
    const SessionBench bench;
    int                refused = 0;
    for (std::size_t at = 0; at < bench.Saved.size(); at += VOSTEL_DAMAGE_STEP) {
        for (const char byte : {'\0', '"', '9', '-', '}', 'e', '\xff'}) {
            std::string text = bench.Saved;
            text[at] = byte;
            const std::string  before = ContentOf(bench.Canvas.Number);
            const VostelStatus status = bench.Open(text);
            CAPTURE(at);
            if (status == VOSTEL_OK)
                continue;
            ++refused;
            REQUIRE(status == VOSTEL_BAD_FORMAT);
            REQUIRE(LastMessage() != "");
            REQUIRE(IsAsBefore(bench, before));
        }
    }
    CHECK(refused > static_cast<int>(bench.Saved.size()) / VOSTEL_DAMAGE_STEP);
}

TEST_CASE("a value of another type in any place harms nothing, and what fails changes nothing")
{
    const SessionBench              bench;
    std::vector<Json::json_pointer> places;
    const Json                      file = bench.File();
    ListPlaces(file, Json::json_pointer(), places);
    const Json values[] = {nullptr,
                           true,
                           -1,
                           0,
                           1e300,
                           -1e-300,
                           3000000000,
                           18446744073709551615u,
                           "",
                           "word",
                           "#12",
                           "AAAA",
                           Json::array(),
                           Json::object(),
                           {1, 2},
                           {"a", "b"},
                           {{"kind", "polygon"}}};
    int        refused = 0;
    for (std::size_t i = 0; i < places.size(); i += VOSTEL_DAMAGE_STEP / 4 + 1) {
        const Json::json_pointer& place = places[i];
        for (const Json& value : values) {
            CAPTURE(place.to_string());
            CAPTURE(value.dump());
            Json other = file;
            other[place] = value;
            const std::string  before = ContentOf(bench.Canvas.Number);
            const VostelStatus status = bench.Open(other);
            if (status == VOSTEL_OK) {
                // What was taken can be saved and opened again.
                const std::string again = bench.Save();
                REQUIRE(bench.Open(again) == VOSTEL_OK);
                REQUIRE(FirstDifference(bench.Save(), again) == "");
                continue;
            }
            ++refused;
            REQUIRE(status == VOSTEL_BAD_FORMAT);
            REQUIRE(LastMessage() != "");
            REQUIRE(IsAsBefore(bench, before));
        }
    }
    CHECK(refused > static_cast<int>(places.size()) / VOSTEL_DAMAGE_STEP);
}

TEST_CASE("a damaged state is passed over with a word or taken, and never reads beyond its bytes")
{
    const SessionBench bench;
    for (const std::size_t which : {1u, 3u}) {
        const std::string state = bench.File()["objects"][which]["state"];
        for (std::size_t at = 0; at < state.size(); at += VOSTEL_DAMAGE_STEP / 4 + 1) {
            Json file = bench.File();
            for (const char digit : {'A', '/', 'g'}) {
                std::string other = state;
                other[at] = digit;
                file["objects"][which]["state"] = other;
                REQUIRE(bench.Open(file) == VOSTEL_OK);
                VostelFrame frame = {};
                frame.size = sizeof frame;
                REQUIRE(vostel_frame_render(bench.Canvas.Number, &frame) == VOSTEL_OK);
            }
            file["objects"][which]["state"] = state.substr(0, at / 4 * 4);
            REQUIRE(bench.Open(file) == VOSTEL_OK);
            REQUIRE(LastMessage().find("state") != std::string::npos);
        }
    }
}

TEST_CASE("bombs and oddities of JSON are refused")
{
    const SessionBench bench;
    const std::string  before = ContentOf(bench.Canvas.Number);
    const std::string  head = "{\"format\": \"vostel-session\", \"version\": 1, ";
    const std::string  polygon = "\"objects\": [{\"kind\": \"polygon\", \"points\": [[1, 2], [3, 4], ";
    for (const std::string& text : {std::string(1000000, '['),
                                    head + "\"a\": " + std::string(100000, '['),
                                    head + "\"view\": {\"scale\": 1e999}}",
                                    head + polygon + "[NaN, 1]]}]}",
                                    head + polygon + "[Infinity, 1]]}]}",
                                    head + polygon + "[1e309, 1]]}]}",
                                    head + polygon + "[1]]}]}",
                                    head + polygon + "[1, 2, 3]]}]}",
                                    head + polygon + "[0x10, 1]]}]}",
                                    head + "\"view\": {}, \"view\": {}}",
                                    head + "\"a\": \"\xff\"}",
                                    head + "\"a\": 1} {}",
                                    std::string("{\"format\": \"vostel-session\"}"),
                                    std::string("{\"format\": \"other\", \"version\": 1}"),
                                    std::string("[]"),
                                    std::string("null"),
                                    std::string("\xef\xbb\xbf"),
                                    head + "\"objects\": [{}]}",
                                    head + "\"objects\": [[]]}",
                                    head + "\"objects\": {}}",
                                    head + "\"version\": 0}"}) {
        CAPTURE(text.substr(0, 120));
        CHECK(bench.Open(text) == VOSTEL_BAD_FORMAT);
        CHECK(LastMessage() != "");
    }
    CHECK(IsAsBefore(bench, before));
}

TEST_CASE("what is wrong with the JSON itself is told with its line")
{
    const SessionBench bench;
    const std::string  head = "{\n\"format\": \"vostel-session\",\n\"version\": 1,\n";
    const std::string  deep = "\"a\":\n" + std::string(70, '[') + "1" + std::string(70, ']') + "}\n\n";
    std::string        many;
    for (int i = 0; i < 1001; ++i)
        many += "\"m" + std::to_string(i) + "\": 0,\n";
    const std::string inside = "\"a\": {\"b\":\n1,\n\"b\": 2\n}}\n";
    for (const auto& [rest, message] :
         {std::pair(deep, "line 5: values are nested too deeply"),
          std::pair(inside, "line 6: an object has two members \"b\""),
          std::pair("\"a\": [\n1e999,\n2]}" + std::string(), "line 5: a number is too large"),
          std::pair("\"a\": {\n" + many + "\"c\": 1}}", "line 1005: an object has too many members"),
          std::pair("\"a\": [1,\n2\n3]}" + std::string(), "line 6: this is no JSON")}) {
        CHECK(bench.Open(head + rest) == VOSTEL_BAD_FORMAT);
        CHECK(LastMessage() == message);
    }
}

TEST_CASE("messages name the place")
{
    const SessionBench bench;
    Json               file = bench.File();
    file["objects"][1]["points"] = {{1, "2"}};
    CHECK(bench.Open(file) == VOSTEL_BAD_FORMAT);
    CHECK(LastMessage() == "objects[1].points[0] is not a pair of finite numbers");
    file = bench.File();
    file["view"]["scale"] = "1";
    CHECK(bench.Open(file) == VOSTEL_BAD_FORMAT);
    CHECK(LastMessage() == "view.scale is not a finite number");
}
