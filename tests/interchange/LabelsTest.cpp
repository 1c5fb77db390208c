// Label images through the calls that leave and take them.

#include "platform/PictureFiles.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int Side = 48;

using Labels = std::vector<std::int32_t>;

class ShownCanvas : public OpenCanvas {
public:
    explicit ShownCanvas(int width = Side, int height = Side)
    {
        ShowBytes(Number, width, height, [](int, int) { return 0; });
    }
};

Labels LabelsOf(int32_t canvas, int width = Side, int height = Side)
{
    Labels labels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    REQUIRE(vostel_labels(canvas, labels.data(), 0) == VOSTEL_OK);
    return labels;
}

std::int32_t LabelOf(int32_t canvas, VostelObject object)
{
    VostelObjectInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_object_get(canvas, object, &info) == VOSTEL_OK);
    return info.label;
}

VostelObject AddNamed(int32_t canvas, VostelKind kind, const Points& points, const char* name, int label)
{
    const VostelObject object = Add(canvas, kind, points);
    REQUIRE(vostel_object_set_name(canvas, object, name) == VOSTEL_OK);
    REQUIRE(vostel_object_set_label(canvas, object, label) == VOSTEL_OK);
    return object;
}

std::string Text(const std::vector<unsigned char>& bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

VostelStatus Import(int32_t canvas, const std::string& path)
{
    std::size_t count = 0;
    return vostel_regions_import(canvas, path.c_str(), "labels", &count);
}

void FillRandomly(int32_t canvas, std::mt19937& random)
{
    std::uniform_real_distribution<double> place(-4.0, Side + 4.0);
    for (const VostelKind kind :
         {VOSTEL_RECTANGLE, VOSTEL_POLYGON, VOSTEL_SPLINE, VOSTEL_FREE_REGION, VOSTEL_RECTANGLE}) {
        Points points;
        for (int i = kind == VOSTEL_RECTANGLE ? 2 : 5; i > 0; --i)
            points.push_back({place(random), place(random)});
        const VostelObject object = Add(canvas, kind, points);
        if (kind == VOSTEL_RECTANGLE && random() % 2 == 0)
            REQUIRE(vostel_object_set_flags(canvas, object, VOSTEL_ELLIPSE) == VOSTEL_OK);
    }
}

}

TEST_CASE("the label image of random regions returns to the pixel")
{
    std::mt19937     random(5);
    const TempFolder folder;
    for (int round = 0; round < 40; ++round) {
        const ShownCanvas left;
        const ShownCanvas back;
        FillRandomly(left.Number, random);
        std::size_t count = 0;
        REQUIRE(vostel_regions_export(left.Number, folder.Path("a.png").c_str(), nullptr) == VOSTEL_OK);
        REQUIRE(vostel_regions_import(back.Number, folder.Path("a.png").c_str(), nullptr, &count) ==
                VOSTEL_OK);
        CAPTURE(round);
        CHECK(LabelsOf(back.Number) == LabelsOf(left.Number));
        CHECK(ObjectsOf(back.Number).size() == count);
    }
}

TEST_CASE("labels and names come back, a label of several parts as objects of that label")
{
    const TempFolder  folder;
    const ShownCanvas left;
    const ShownCanvas back;
    AddNamed(left.Number, VOSTEL_RECTANGLE, {{1.0, 1.0}, {5.0, 9.0}}, "bore", 7);
    AddNamed(left.Number, VOSTEL_RECTANGLE, {{20.0, 1.0}, {25.0, 9.0}}, "", 7);
    AddNamed(left.Number, VOSTEL_RECTANGLE, {{10.0, 20.0}, {15.0, 29.0}}, "größer", 65535);
    REQUIRE(vostel_regions_export(left.Number, folder.Path("a.png").c_str(), "labels") == VOSTEL_OK);
    REQUIRE(Import(back.Number, folder.Path("a.png")) == VOSTEL_OK);
    CHECK(LabelsOf(back.Number) == LabelsOf(left.Number));
    const std::vector<VostelObject> objects = ObjectsOf(back.Number);
    REQUIRE(objects.size() == 3);
    CHECK(NameOf(back.Number, objects[0]) == "bore");
    CHECK(NameOf(back.Number, objects[1]) == "bore");
    CHECK(NameOf(back.Number, objects[2]) == "größer");
    CHECK(LabelOf(back.Number, objects[1]) == 7);
    CHECK(LabelOf(back.Number, objects[2]) == 65535);
    CHECK(HistoryOf(back.Number).undo_count == 1);
}

TEST_CASE("beyond 65535 the labels are raw numbers of 32 bits beside the legend")
{
    const TempFolder  folder;
    const ShownCanvas left;
    const ShownCanvas back;
    AddNamed(left.Number, VOSTEL_RECTANGLE, {{1.0, 0.0}, {5.0, 9.0}}, "far", 65536);
    AddNamed(left.Number, VOSTEL_RECTANGLE, {{20.0, 1.0}, {25.0, 9.0}}, "low", 3);
    REQUIRE(vostel_regions_export(left.Number, folder.Path("a.png").c_str(), "labels") == VOSTEL_OK);
    CHECK(!std::filesystem::exists(folder.Path("a.png")));
    const std::vector<unsigned char> raw = ReadBytes(folder.Path("a.labels.raw"));
    REQUIRE(raw.size() == 4 * Side * Side);
    CHECK(std::vector<unsigned char>(raw.begin() + 4, raw.begin() + 8) ==
          std::vector<unsigned char>{0, 0, 1, 0});
    CHECK(Text(ReadBytes(folder.Path("a.labels.json"))).find("\"bits\": 32") != std::string::npos);
    for (const char* const name : {"a.png", "a.labels.json", "a.labels.raw"}) {
        REQUIRE(Import(back.Number, folder.Path(name)) == VOSTEL_OK);
        CHECK(LabelsOf(back.Number) == LabelsOf(left.Number));
        REQUIRE(vostel_undo(back.Number) == VOSTEL_OK);
    }
}

TEST_CASE("a legend beside labels that it was not written for is told of")
{
    const TempFolder  folder;
    const ShownCanvas left;
    const ShownCanvas back;
    const auto        exported = [&](const char* name) {
        REQUIRE(vostel_regions_export(left.Number, folder.Path(name).c_str(), nullptr) == VOSTEL_OK);
    };
    const auto imported = [&](const char* name) {
        REQUIRE(Import(back.Number, folder.Path(name)) == VOSTEL_OK);
        return std::string(vostel_last_message());
    };
    const VostelObject region = AddNamed(left.Number, VOSTEL_RECTANGLE, {{1.0, 0.0}, {5.0, 9.0}}, "one", 1);
    exported("a.png");
    CHECK(imported("a.png") == "");
    REQUIRE(vostel_object_set_points(left.Number, region, Points({{1.0, 0.0}, {5.0, 8.0}}).data(), 2) ==
            VOSTEL_OK);
    exported("b.png");
    REQUIRE(WriteBytes(folder.Path("a.png"), ReadBytes(folder.Path("b.png"))));
    CHECK(imported("a.png").find("other labels") != std::string::npos);
    CHECK(imported("b.png") == "");
}

TEST_CASE("no new legend comes to stand beside old labels")
{
    const TempFolder  folder;
    const ShownCanvas left;
    const auto        exportTo = [&](const char* name) {
        return vostel_regions_export(left.Number, folder.Path(name).c_str(), nullptr);
    };
    AddNamed(left.Number, VOSTEL_RECTANGLE, {{1.0, 0.0}, {5.0, 9.0}}, "one", 1);
    REQUIRE(exportTo("a.png") == VOSTEL_OK);
    const auto legend = ReadBytes(folder.Path("a.labels.json"));
    std::filesystem::remove(folder.Path("a.png"));
    folder.MakeFolder("a.png");    // nothing is moved over that
    AddNamed(left.Number, VOSTEL_RECTANGLE, {{11.0, 0.0}, {15.0, 9.0}}, "two", 2);
    CHECK(exportTo("a.png") == VOSTEL_NOT_WRITTEN);
    CHECK(ReadBytes(folder.Path("a.labels.json")) == legend);
    folder.MakeFolder("b.labels.json");
    CHECK(exportTo("b.png") == VOSTEL_NOT_WRITTEN);
    CHECK(std::string(vostel_last_message()) != "");
    CHECK_FALSE(std::filesystem::exists(folder.Path("b.png")));
}

TEST_CASE("plain label images are read without a legend: 8 and 16 bits, and the indices of a palette")
{
    using namespace files;
    const TempFolder folder;
    const Labels     expected = {1, 1, 0, 0, 2, 2};
    for (const Bytes& file :
         {Png(3, 2, 8, Gray, {1, 1, 0, 0, 2, 2}), Png(3, 2, 16, Gray, {0, 1, 0, 1, 0, 0, 0, 0, 0, 2, 0, 2}),
          Png(3, 2, 8, Indexed, {1, 1, 0, 0, 2, 2}), Png(3, 2, 4, Indexed, {0x11, 0, 0x02, 0x20})}) {
        const ShownCanvas canvas(3, 2);
        REQUIRE(WriteBytes(folder.Path("a.png"), file));
        REQUIRE(Import(canvas.Number, folder.Path("a.png")) == VOSTEL_OK);
        CHECK(LabelsOf(canvas.Number, 3, 2) == expected);
    }
    const ShownCanvas canvas(1, 1);
    REQUIRE(WriteBytes(folder.Path("a.png"), Png(1, 1, 16, Gray, {0x12, 0x34})));
    REQUIRE(Import(canvas.Number, folder.Path("a.png")) == VOSTEL_OK);
    CHECK(LabelsOf(canvas.Number, 1, 1) == Labels{0x1234});
}

TEST_CASE("labels of another size than the image, colors and missing files are refused, and nothing changes")
{
    using namespace files;
    const TempFolder  folder;
    const ShownCanvas canvas(3, 2);
    Add(canvas.Number, VOSTEL_RECTANGLE, {{0.0, 0.0}, {1.0, 1.0}});
    const std::string state = StateOf(canvas.Number);
    REQUIRE(WriteBytes(folder.Path("size.png"), Png(2, 2, 8, Gray, {1, 1, 0, 0})));
    REQUIRE(WriteBytes(folder.Path("color.png"), Png(1, 1, 8, Color, {1, 2, 3})));
    REQUIRE(WriteBytes(folder.Path("raw.labels.raw"), {1, 2, 3}));
    CHECK(Import(canvas.Number, folder.Path("size.png")) == VOSTEL_BAD_FORMAT);
    CHECK(std::string(vostel_last_message()) == "the labels are of 2 x 2 px and the image of 3 x 2 px");
    CHECK(Import(canvas.Number, folder.Path("color.png")) == VOSTEL_NOT_SUPPORTED);
    CHECK(Import(canvas.Number, folder.Path("raw.labels.raw")) == VOSTEL_NOT_READ);
    CHECK(Import(canvas.Number, folder.Path("none.png")) == VOSTEL_NOT_READ);
    CHECK(StateOf(canvas.Number) == state);

    const OpenCanvas empty;
    CHECK(vostel_regions_export(empty.Number, folder.Path("a.png").c_str(), "labels") == VOSTEL_NO_IMAGE);
    CHECK(vostel_regions_export(canvas.Number, folder.Path("no/a.png").c_str(), "labels") ==
          VOSTEL_NOT_WRITTEN);
    CHECK(Import(empty.Number, folder.Path("size.png")) == VOSTEL_OK);    // no image says another size
}

TEST_CASE("what the label image loses is told")
{
    const TempFolder  folder;
    const ShownCanvas canvas;
    Add(canvas.Number, VOSTEL_RECTANGLE, {{1.0, 1.0}, {9.0, 9.0}});
    Add(canvas.Number, VOSTEL_LENGTH, {{1.0, 1.0}, {9.0, 9.0}});
    REQUIRE(vostel_regions_export(canvas.Number, folder.Path("a.png").c_str(), nullptr) == VOSTEL_OK);
    CHECK(std::string(vostel_last_message()) == "left out: 1 length");
    Add(canvas.Number, VOSTEL_RECTANGLE, {{5.0, 5.0}, {12.0, 12.0}});
    Add(canvas.Number, VOSTEL_RECTANGLE, {{-5.0, -5.0}, {-2.0, -2.0}});
    const VostelObject hidden = Add(canvas.Number, VOSTEL_RECTANGLE, {{20.0, 20.0}, {22.0, 22.0}});
    REQUIRE(vostel_object_set_flags(canvas.Number, hidden, VOSTEL_HIDDEN) == VOSTEL_OK);
    REQUIRE(vostel_regions_export(canvas.Number, folder.Path("a.png").c_str(), nullptr) == VOSTEL_OK);
    CHECK(std::string(vostel_last_message()) ==
          "left out: 1 hidden region, 1 length, 1 region without pixels; "
          "regions overlap: the upper ones take the pixels of the lower ones");
}

TEST_CASE("the same canvas gives the same bytes, and nothing is left beside them")
{
    const TempFolder  folder;
    const ShownCanvas canvas;
    std::mt19937      random(6);
    FillRandomly(canvas.Number, random);
    for (const char* const name : {"a.png", "b.png"})
        REQUIRE(vostel_regions_export(canvas.Number, folder.Path(name).c_str(), nullptr) == VOSTEL_OK);
    CHECK(ReadBytes(folder.Path("a.png")) == ReadBytes(folder.Path("b.png")));
    CHECK(ReadBytes(folder.Path("a.labels.json")) == ReadBytes(folder.Path("b.labels.json")));
    CHECK(std::distance(std::filesystem::directory_iterator(folder.Path()), {}) == 4);
}

TEST_CASE("damaged label files are refused or taken as they read, and a refused one changes nothing")
{
    const TempFolder  folder;
    const ShownCanvas left(6, 5);
    AddNamed(left.Number, VOSTEL_RECTANGLE, {{1.0, 0.0}, {3.0, 2.0}}, "a", 65536);
    REQUIRE(vostel_regions_export(left.Number, folder.Path("a.png").c_str(), "labels") == VOSTEL_OK);
    REQUIRE(vostel_object_set_label(left.Number, ObjectsOf(left.Number)[0], 5) == VOSTEL_OK);
    REQUIRE(vostel_regions_export(left.Number, folder.Path("b.png").c_str(), "labels") == VOSTEL_OK);

    const ShownCanvas canvas(6, 5);
    const auto        feed = [&](const std::string& name, const std::vector<unsigned char>& bytes) {
        REQUIRE(WriteBytes(folder.Path(name), bytes));
        if (Import(canvas.Number, folder.Path(name)) == VOSTEL_OK) {
            if (HistoryOf(canvas.Number).undo_count > 0)
                REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
        }
        REQUIRE(ObjectsOf(canvas.Number).empty());
    };
    for (const std::string name : {"a.labels.json", "a.labels.raw", "b.labels.json", "b.png"}) {
        const std::vector<unsigned char> whole = ReadBytes(folder.Path(name));
        REQUIRE(!whole.empty());
        for (std::size_t length = 0; length < whole.size(); ++length)
            feed(name, std::vector<unsigned char>(whole.begin(),
                                                  whole.begin() + static_cast<std::ptrdiff_t>(length)));
        for (std::size_t i = 0; i < whole.size(); ++i) {
            std::vector<unsigned char> damaged = whole;
            damaged[i] ^= 0x11;
            feed(name, damaged);
        }
        REQUIRE(WriteBytes(folder.Path(name), whole));
    }
}

TEST_CASE("a legend cannot ask for a size beyond the limits")
{
    const TempFolder  folder;
    const OpenCanvas  canvas;
    const std::string legend = R"({"width":2000000000,"height":2000000000,"bits":32,"labels":[]})";
    REQUIRE(
        WriteBytes(folder.Path("a.labels.json"), std::vector<unsigned char>(legend.begin(), legend.end())));
    REQUIRE(WriteBytes(folder.Path("a.labels.raw"), {1, 2, 3, 4}));
    CHECK(Import(canvas.Number, folder.Path("a.labels.raw")) == VOSTEL_TOO_LARGE);
}
