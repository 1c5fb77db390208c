#include "interchange/Coco.h"

#include "interchange/JsonText.h"
#include "interchange/RegionSamples.h"

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
    return ObjectsOfCoco(text, Size, remarks);
}

std::string Write(const std::vector<FileObject>& objects)
{
    Remarks remarks;
    return CocoOf(objects, Size, "part.png", remarks);
}

std::string Annotations(const std::string& list)
{
    return R"({"images":[{"id":7,"width":64,"height":64,"file_name":"a.jpg"}],
        "categories":[{"id":3,"name":"cell"}],"annotations":[)" +
           list + "]}";
}

}

TEST_CASE("random regions leave and return as COCO with the same masks")
{
    std::mt19937 random(1);
    for (int round = 0; round < 60; ++round) {
        std::vector<FileObject> objects;
        for (const int kind : RegionKinds)
            objects.push_back(RandomSample(random, kind, static_cast<int>(objects.size()) + 1));
        objects[2].Name.clear();
        const std::vector<FileObject> back = Read(Write(objects));
        REQUIRE(back.size() == objects.size());
        for (std::size_t i = 0; i < back.size(); ++i) {
            CAPTURE(round);
            CHECK(back[i].Kind == objects[i].Kind);
            CHECK(back[i].Name == objects[i].Name);
            CHECK(back[i].Label == objects[i].Label);
            CHECK((back[i].Flags & VOSTEL_ELLIPSE) == (objects[i].Flags & VOSTEL_ELLIPSE));
            CHECK(MaskOf(back[i]) == MaskOf(objects[i]));
        }
    }
}

TEST_CASE("the file has one image, categories by name, and areas and boxes of the exact regions")
{
    const Json top = ParseJson(Write({MakeSample(VOSTEL_RECTANGLE, {{4.0, 3.5}, {1.0, 2.0}}, "bore"),
                                      MakeSample(VOSTEL_POLYGON, {{0.0, 0.0}, {8.0, 0.0}, {0.0, 8.0}}, "cut"),
                                      MakeSample(VOSTEL_RECTANGLE, {{0.0, 0.0}, {1.0, 1.0}}, "bore")}));
    REQUIRE(top["images"].size() == 1);
    CHECK(top["images"][0]["file_name"] == "part.png");
    CHECK(top["images"][0]["width"] == SampleSide);
    REQUIRE(top["categories"].size() == 2);
    CHECK(top["categories"][1]["name"] == "cut");
    const Json& annotations = top["annotations"];
    REQUIRE(annotations.size() == 3);
    CHECK(annotations[0]["bbox"] == Json::array({1.0, 2.0, 3.0, 1.5}));
    CHECK(annotations[0]["area"] == 4.5);
    CHECK(annotations[0]["category_id"] == annotations[2]["category_id"]);
    CHECK(annotations[1]["area"] == 32.0);
    CHECK(annotations[1]["segmentation"] == Json::array({Json::array({0.0, 0.0, 8.0, 0.0, 0.0, 8.0})}));
    CHECK(annotations[1]["iscrowd"] == 0);
    CHECK(annotations[1]["image_id"] == top["images"][0]["id"]);
}

TEST_CASE("a box without segments becomes a rectangle, several segments become objects of one label")
{
    const std::vector<FileObject> objects = Read(Annotations(R"(
        {"id":1,"image_id":7,"category_id":3,"bbox":[1.5,2,10,20]},
        {"id":2,"image_id":7,"category_id":3,"segmentation":[[0,0,4,0,4,4],[10,10,14,10,14,14]],"bbox":[0,0,14,14]},
        {"id":3,"image_id":7,"category_id":9,"segmentation":[],"bbox":[0,0,1,1]})"));
    REQUIRE(objects.size() == 4);
    CHECK(objects[0].Kind == VOSTEL_RECTANGLE);
    CHECK(SamePlace(objects[0].Points[1], {11.5, 22.0}));
    CHECK(objects[0].Name == "cell");
    CHECK(objects[0].Label == 0);
    CHECK(objects[1].Kind == VOSTEL_POLYGON);
    CHECK(objects[1].Label > 0);
    CHECK(objects[1].Label == objects[2].Label);
    CHECK(objects[3].Name.empty());
}

TEST_CASE("run lengths and several images are not supported")
{
    const auto status = [](const std::string& text) { return StatusOf([&] { Read(text); }); };
    CHECK(
        status(Annotations(
            R"({"image_id":7,"category_id":3,"iscrowd":1,"segmentation":{"counts":[3,4],"size":[2,3]}})")) ==
        VOSTEL_NOT_SUPPORTED);
    CHECK(
        status(Annotations(
            R"({"image_id":7,"category_id":3,"iscrowd":0,"segmentation":{"counts":"abc","size":[2,3]}})")) ==
        VOSTEL_NOT_SUPPORTED);
    CHECK(status(R"({"images":[{"id":1},{"id":2}],"annotations":[]})") == VOSTEL_NOT_SUPPORTED);
    CHECK(status(Annotations(R"({"image_id":8,"category_id":3,"bbox":[1,2,3,4]})")) == VOSTEL_NOT_SUPPORTED);
}

TEST_CASE("what is wrong is said with its annotation")
{
    const auto message = [](const std::string& list) { return MessageOf([&] { Read(Annotations(list)); }); };
    CHECK(message(R"({"bbox":[1,2,3]})") == "annotation 1: there is no array of pairs of coordinates");
    CHECK(message(R"({"bbox":[1,2,3,4]},{"bbox":[1,2,-3,4]})") == "annotation 2: bbox has a negative size");
    CHECK(message(R"({"segmentation":[[1,2,3,4]]})") ==
          "annotation 1: a segment has fewer than three points");
    CHECK(message(R"({"segmentation":[[1,2,3,4,5,null]]})") ==
          "annotation 1: a coordinate is not a finite number");
    CHECK(message("5") == "annotation 1: it is not an object");
    CHECK(StatusOf([] { Read("[]"); }) == VOSTEL_BAD_FORMAT);
    CHECK(StatusOf([] { Read("{}"); }) == VOSTEL_BAD_FORMAT);
}

TEST_CASE("kinds that are no regions are left out, and that is told")
{
    Remarks remarks;
    CocoOf({MakeSample(VOSTEL_LENGTH, {{1.0, 1.0}, {2.0, 2.0}}), MakeSample(VOSTEL_TEXT, {{1.0, 1.0}}),
            MakeSample(VOSTEL_TEXT, {{1.0, 1.0}})},
           Size, "", remarks);
    CHECK(remarks.Text() == "left out: 1 length, 2 texts");
}

TEST_CASE("damaged COCO is taken as it reads or refused")
{
    std::mt19937            random(2);
    std::vector<FileObject> objects;
    for (const int kind : {VOSTEL_POLYGON, VOSTEL_RECTANGLE})
        objects.push_back(RandomSample(random, kind, 3));
    FeedDamaged(Write(objects), [](const std::string& text) { Read(text); });
}
