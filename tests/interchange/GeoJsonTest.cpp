#include "interchange/GeoJson.h"

#include "geometry/Keyhole.h"
#include "interchange/JsonText.h"
#include "interchange/RegionSamples.h"
#include "support/CommaLocale.h"

#include <doctest/doctest.h>

#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

constexpr ImageSize Size = {SampleSide, SampleSide};

std::vector<FileObject> Read(const std::string& text)
{
    Remarks remarks;
    return ObjectsOfGeoJson(text, Size, remarks);
}

std::string RemarksOf(const std::string& text)
{
    Remarks remarks;
    ObjectsOfGeoJson(text, Size, remarks);
    return remarks.Text();
}

std::string Write(const std::vector<FileObject>& objects)
{
    Remarks remarks;
    return GeoJsonOf(objects, Size, remarks);
}

std::string Feature(const std::string& geometry, const std::string& properties = "{}")
{
    return R"({"type":"Feature","properties":)" + properties + R"(,"geometry":)" + geometry + "}";
}

void CheckSame(const FileObject& back, const FileObject& left)
{
    CHECK(back.Kind == left.Kind);
    CHECK(back.Name == left.Name);
    CHECK(back.Label == left.Label);
    CHECK(back.Flags == left.Flags);
    CHECK(back.StrokeStarts == left.StrokeStarts);
    if (IsRegion(left.Kind))
        CHECK(MaskOf(back) == MaskOf(left));
    if (left.Kind == VOSTEL_RECTANGLE)
        return;    // its corners come back as upper left and lower right
    REQUIRE(back.Points.size() == left.Points.size());
    if (left.Kind == VOSTEL_POLYGON || left.Kind == VOSTEL_FREE_REGION) {
        CHECK(AreSameRing(back.Points, left.Points, 0.0));
        return;
    }
    for (std::size_t i = 0; i < left.Points.size(); ++i)
        CHECK(SamePlace(back.Points[i], left.Points[i]));
}

}

TEST_CASE("random objects of every kind on the image leave and return as GeoJSON")
{
    std::mt19937 random(1);
    for (int round = 0; round < 60; ++round) {
        std::vector<FileObject> objects;
        for (const int kind : ImageKinds)
            objects.push_back(RandomSample(random, kind, static_cast<int>(objects.size()) + 1));
        const std::vector<FileObject> back = Read(Write(objects));
        REQUIRE(back.size() == objects.size());
        for (std::size_t i = 0; i < back.size(); ++i) {
            CAPTURE(round);
            CAPTURE(objects[i].Kind);
            CheckSame(back[i], objects[i]);
        }
    }
}

TEST_CASE("the file says what its coordinates mean and goes as the RFC wants")
{
    const Json top = ParseJson(Write({MakeSample(VOSTEL_RECTANGLE, {{1.0, 2.0}, {4.0, 3.5}}, "bore")}));
    CHECK(top["type"] == "FeatureCollection");
    CHECK(top["coordinate-rule"] == "image pixels, y downwards, pixel (0,0) covers 0..1");
    CHECK(top["image"]["width"] == SampleSide);
    const Json& feature = top["features"][0];
    CHECK(feature["properties"]["name"] == "bore");
    CHECK(feature["properties"]["kind"] == "rectangle");
    const Json& ring = feature["geometry"]["coordinates"][0];
    REQUIRE(ring.size() == 5);
    CHECK(ring[0] == ring[4]);
    double twice = 0.0;
    for (std::size_t i = 0; i < 4; ++i)
        twice += ring[i][0].get<double>() * ring[i + 1][1].get<double>() -
                 ring[i + 1][0].get<double>() * ring[i][1].get<double>();
    CHECK(twice == 9.0);    // counterclockwise with y upwards
}

TEST_CASE("holes become a keyhole, and leave as holes again")
{
    const std::string             text = Feature(R"({"type":"Polygon","coordinates":[
        [[2,2],[40,2],[40,40],[2,40],[2,2]], [[5,5],[5,15],[15,15],[15,5],[5,5]],
        [[20,20],[20,30],[30,30],[30,20],[20,20]]]})");
    const std::vector<FileObject> objects = Read(text);
    REQUIRE(objects.size() == 1);
    const std::vector<bool> mask = MaskOf(objects[0]);
    CHECK(std::count(mask.begin(), mask.end(), true) == 38 * 38 - 100 - 100);
    CHECK(!mask[10 * SampleSide + 10]);
    CHECK(mask[17 * SampleSide + 17]);

    const std::string             written = Write({Leaving(objects[0])});
    const Json                    rings = ParseJson(written)["features"][0]["geometry"]["coordinates"];
    const std::vector<FileObject> back = Read(written);
    CHECK(rings.size() == 3);
    REQUIRE(back.size() == 1);
    CHECK(MaskOf(back[0]) == mask);
}

TEST_CASE("the parts of one feature share its name and a label that no other has")
{
    const std::vector<FileObject> objects = Read(
        R"({"type":"FeatureCollection","features":[)" +
        Feature(R"({"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,0]]]})", R"({"label":1})") + "," +
        Feature(
            R"({"type":"MultiPolygon","coordinates":[[[[0,0],[1,0],[1,1],[0,0]]],[[[5,5],[6,5],[6,6],[5,5]]]]})",
            R"({"name":"both"})") +
        "]}");
    REQUIRE(objects.size() == 3);
    CHECK(objects[0].Label == 1);
    CHECK(objects[1].Label == 2);
    CHECK(objects[2].Label == 2);
    CHECK(objects[2].Name == "both");
}

TEST_CASE("every geometry of the RFC is read, bare or in a collection")
{
    CHECK(Read(R"({"type":"Point","coordinates":[3,4]})")[0].Kind == VOSTEL_POINTS);
    CHECK(Read(R"({"type":"MultiPoint","coordinates":[[3,4],[5,6]]})")[0].Points.size() == 2);
    CHECK(Read(R"({"type":"LineString","coordinates":[[3,4],[5,6]]})")[0].Kind == VOSTEL_POLYLINE);
    CHECK(Read(R"({"type":"MultiLineString","coordinates":[[[3,4],[5,6]],[[1,2],[3,4],[5,6]]]})").size() ==
          2);
    CHECK(Read(R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[3,4]},
        {"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,0]]]}]})")
              .size() == 2);
    CHECK(Read(Feature("null")).empty());
    CHECK(Read(R"({"type":"MultiPolygon","coordinates":[]})").empty());
}

TEST_CASE("styles leave and return, and those of web maps are understood")
{
    FileObject  object = MakeSample(VOSTEL_POLYGON, {{1.0, 1.0}, {9.0, 1.0}, {5.0, 7.0}});
    VostelStyle style = {};
    style.line_color = 0x00FF8001;
    style.selected_color = 0x00123456;
    style.handle_color = 0x00ABCDEF;
    style.fill_color = 0x37102030;
    style.line_width = 2.5;
    style.text_height = 21.0;
    object.Style = style;
    const std::optional<VostelStyle> back = Read(Write({object})).at(0).Style;
    REQUIRE(back);
    CHECK(back->line_color == style.line_color);
    CHECK(back->selected_color == style.selected_color);
    CHECK(back->handle_color == style.handle_color);
    CHECK(back->fill_color == style.fill_color);
    CHECK(back->line_width == 2.5);
    CHECK(back->text_height == 21.0);

    const auto web = Read(Feature(R"({"type":"LineString","coordinates":[[3,4],[5,6]]})",
                                  R"({"stroke":"#f80","stroke-width":3,"fill":"#00ff00"})"))[0]
                         .Style;
    REQUIRE(web);
    CHECK(web->line_color == 0xFF8800);
    CHECK(web->line_width == 3.0);
    CHECK(web->fill_color == 0x9900FF00);
    CHECK(!Read(R"({"type":"Point","coordinates":[3,4]})")[0].Style);
}

TEST_CASE("a curve whose ring another program has changed stays a polygon")
{
    FileObject ellipse = MakeSample(VOSTEL_RECTANGLE, {{2.0, 3.0}, {30.0, 20.0}});
    ellipse.Flags = VOSTEL_ELLIPSE;
    Json top = ParseJson(Write({Leaving(ellipse)}));
    CHECK(Read(JsonTextOf(top))[0].Flags == VOSTEL_ELLIPSE);
    for (Json& position : top["features"][0]["geometry"]["coordinates"][0])
        position[0] = position[0].get<double>() + 3.0;
    const FileObject moved = Read(JsonTextOf(top))[0];
    CHECK(moved.Kind == VOSTEL_POLYGON);
    CHECK(moved.Flags == 0);
    CHECK(moved.Points.size() > 10);
}

TEST_CASE("texts, flags and strokes keep what they say")
{
    FileObject text = MakeSample(VOSTEL_TEXT, {{3.5, 4.5}}, "note");
    text.Text = "zwei\nZeilen 中";
    text.Flags = VOSTEL_HIDDEN | VOSTEL_LOCKED;
    const FileObject back = Read(Write({text})).at(0);
    CHECK(back.Kind == VOSTEL_TEXT);
    CHECK(back.Text == text.Text);
    CHECK(back.Flags == text.Flags);

    FileObject region = MakeSample(VOSTEL_FREE_REGION, {{1.0, 1.0}, {9.0, 1.0}, {5.0, 7.0}});
    region.Flags = VOSTEL_NO_LABEL;
    CHECK(Read(Write({region})).at(0).Flags == VOSTEL_NO_LABEL);
}

TEST_CASE("what GeoJSON cannot hold and what is not understood is told")
{
    Remarks remarks;
    GeoJsonOf({MakeSample(VOSTEL_PANEL, {{1.0, 1.0}}), MakeSample(VOSTEL_NEIGHBOURS, {{1.0, 1.0}}),
               MakeSample(VOSTEL_POLYLINE, {{1.0, 1.0}})},
              Size, remarks);
    CHECK(remarks.Text() == "left out: 2 panels, 1 unfinished object");
    CHECK(RemarksOf(Feature(R"({"type":"Point","coordinates":[3,4,5]})",
                            R"({"area":3,"class":"cell","name":null})")) ==
          "ignored: third coordinates; ignored: the properties area, class");
    CHECK(RemarksOf(R"({"type":"FeatureCollection","image":{"width":5,"height":5},"features":[]})") ==
          "the file is of an image of another size");
    CHECK(RemarksOf(Write({MakeSample(VOSTEL_LENGTH, {{1.0, 1.0}, {2.0, 2.0}})})).empty());
}

TEST_CASE("what is wrong is said with its feature or line")
{
    const auto message = [](const std::string& text) { return MessageOf([&] { Read(text); }); };
    CHECK(message(R"({"type":"FeatureCollection","features":[)" +
                  Feature(R"({"type":"Point","coordinates":[3,4]})") + "," +
                  Feature(R"({"type":"Polygon","coordinates":[[[0,0],[1,1],[0,0]]]})") + "]}") ==
          "feature 2: a ring has fewer than three different positions");
    CHECK(message(R"({"type":"Point","coordinates":[3,"4"]})") == "a coordinate is not a finite number");
    CHECK(message(R"({"type":"Blob","coordinates":[3,4]})") == "there is no type \"Blob\" of geometries");
    CHECK(message("{\n\"type\":\n}") == "line 3: this is no JSON");
    CHECK(StatusOf([] { Read("[]"); }) == VOSTEL_BAD_FORMAT);
    CHECK(StatusOf([] { Read("{}"); }) == VOSTEL_BAD_FORMAT);
    std::string nested = R"({"type":"Point","coordinates":[3,4]})";
    for (int i = 0; i < 200; ++i)
        nested = R"({"type":"GeometryCollection","geometries":[)" + nested + "]}";
    CHECK(StatusOf([&] { Read(nested); }) == VOSTEL_BAD_FORMAT);
}

TEST_CASE("damaged GeoJSON is taken as it reads or refused")
{
    std::mt19937            random(2);
    std::vector<FileObject> objects;
    for (const int kind : {VOSTEL_POLYGON, VOSTEL_ANGLE_LINES, VOSTEL_POINTS})
        objects.push_back(RandomSample(random, kind, 3));
    FeedDamaged(Write(objects), [](const std::string& text) { Read(text); });
}

TEST_CASE("coordinates have a point in every locale, written and read")
{
    const std::vector<FileObject> objects = {MakeSample(VOSTEL_LENGTH, {{1234.5, 0.125}, {-7.75, 1e-9}})};
    const std::string             plain = Write(objects);
    const CommaLocale             locale;
    CHECK(Write(objects) == plain);
    const std::vector<FileObject> back = Read(plain);
    REQUIRE(back.size() == 1);
    CHECK(SamePlace(back[0].Points[0], objects[0].Points[0]));
    CHECK(SamePlace(back[0].Points[1], objects[0].Points[1]));
}

TEST_CASE("the same objects give the same bytes")
{
    std::mt19937            random(4);
    std::vector<FileObject> objects;
    for (const int kind : ImageKinds)
        objects.push_back(RandomSample(random, kind, 1));
    CHECK(Write(objects) == Write(objects));
}
