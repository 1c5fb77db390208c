// Selections of ImageJ through the calls of a host.

#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <random>
#include <string>
#include <vector>

namespace {

constexpr int Width = 60, Height = 50;

void ShowBlack(const OpenCanvas& canvas)
{
    ShowBytes(canvas.Number, Width, Height, [](int, int) { return 0; });
}

std::vector<std::uint8_t> MaskOf(const OpenCanvas& canvas, VostelObject region)
{
    std::vector<std::uint8_t> mask(static_cast<std::size_t>(Width * Height));
    REQUIRE(vostel_mask(canvas.Number, region, mask.data(), 0) == VOSTEL_OK);
    return mask;
}

VostelStatus Export(const OpenCanvas& canvas, const std::string& path, const char* format = nullptr)
{
    return vostel_regions_export(canvas.Number, path.c_str(), format);
}

VostelStatus Import(const OpenCanvas& canvas, const std::string& path, const char* format = nullptr)
{
    return vostel_regions_import(canvas.Number, path.c_str(), format, nullptr);
}

std::string LastMessage()
{
    return vostel_last_message();
}

Points RandomPoints(std::mt19937& random, int count)
{
    std::uniform_real_distribution<double> x(-5.0, Width + 5.0), y(-5.0, Height + 5.0);
    Points                                 points;
    for (int i = 0; i < count; ++i) {
        const double across = x(random);
        points.push_back({across, y(random)});
    }
    return points;
}

}

TEST_CASE("regions leave a canvas and return to another with the same masks, as one step")
{
    TempFolder   folder;
    std::mt19937 random(12);
    OpenCanvas   from, to;
    ShowBlack(from);
    ShowBlack(to);
    for (int i = 0; i < 60; ++i) {
        const VostelKind   kinds[] = {VOSTEL_RECTANGLE, VOSTEL_RECTANGLE, VOSTEL_POLYGON, VOSTEL_SPLINE,
                                      VOSTEL_FREE_REGION};
        const VostelKind   kind = kinds[i % 5];
        const VostelObject object =
            Add(from.Number, kind, RandomPoints(random, kind == VOSTEL_RECTANGLE ? 2 : 3 + i % 7));
        if (i % 5 == 0)
            REQUIRE(vostel_object_set_flags(from.Number, object, VOSTEL_ELLIPSE) == VOSTEL_OK);
        REQUIRE(vostel_object_set_name(from.Number, object, ("region " + std::to_string(i)).c_str()) ==
                VOSTEL_OK);
    }
    const std::string path = folder.Path("list.zip");
    REQUIRE(Export(from, path) == VOSTEL_OK);
    CHECK(LastMessage() ==
          "ellipse as polygon (12 times); rectangle as polygon (12 times); spline as polygon (12 times)");
    const uint32_t steps = HistoryOf(to.Number).undo_count;
    std::size_t    count = 0;
    REQUIRE(vostel_regions_import(to.Number, path.c_str(), nullptr, &count) == VOSTEL_OK);
    CHECK(LastMessage().empty());
    CHECK(count == 60);
    CHECK(HistoryOf(to.Number).undo_count == steps + 1);
    const std::vector<VostelObject> left = ObjectsOf(from.Number), returned = ObjectsOf(to.Number);
    REQUIRE(returned.size() == 60);
    for (std::size_t i = 0; i < 60; ++i) {
        CAPTURE(i);
        CHECK(MaskOf(from, left[i]) == MaskOf(to, returned[i]));
        CHECK(NameOf(from.Number, left[i]) == NameOf(to.Number, returned[i]));
    }
    REQUIRE(vostel_undo(to.Number) == VOSTEL_OK);
    CHECK(ObjectsOf(to.Number).empty());
}

TEST_CASE("a canvas without an image has selections too")
{
    TempFolder folder;
    OpenCanvas from, to;
    Add(from.Number, VOSTEL_SPLINE, {{1.0, 1.0}, {20.0, 3.0}, {9.0, 17.0}});
    Add(from.Number, VOSTEL_POLYLINE, {{1.0, 1.0}, {20.0, 3.5}});
    REQUIRE(Export(from, folder.Path("list.zip")) == VOSTEL_OK);
    REQUIRE(Import(to, folder.Path("list.zip")) == VOSTEL_OK);
    const std::vector<VostelObject> returned = ObjectsOf(to.Number);
    REQUIRE(returned.size() == 2);
    CHECK(PointsOf(to.Number, returned[1])[1].y == 3.5);
}

TEST_CASE("the ending decides what is written, and the content what is read")
{
    TempFolder folder;
    OpenCanvas from, to;
    Add(from.Number, VOSTEL_LENGTH, {{1.0, 1.0}, {20.0, 3.0}});
    REQUIRE(Export(from, folder.Path("one.ROI")) == VOSTEL_OK);
    CHECK(ReadBytes(folder.Path("one.ROI"))[0] == 'I');
    REQUIRE(Export(from, folder.Path("list.bin"), "imagej") == VOSTEL_OK);
    CHECK(ReadBytes(folder.Path("list.bin"))[0] == 'P');
    REQUIRE(WriteBytes(folder.Path("named.zip"), ReadBytes(folder.Path("one.ROI"))));
    CHECK(Import(to, folder.Path("named.zip")) == VOSTEL_OK);
    CHECK(Import(to, folder.Path("list.bin"), "imagej") == VOSTEL_OK);
    CHECK(ObjectsOf(to.Number).size() == 2);
}

TEST_CASE("a .roi file of several objects is not written, and what was there stays")
{
    TempFolder folder;
    OpenCanvas canvas;
    CHECK(Export(canvas, folder.Path("one.roi")) == VOSTEL_NOT_SUPPORTED);
    Add(canvas.Number, VOSTEL_LENGTH, {{1.0, 1.0}, {20.0, 3.0}});
    REQUIRE(Export(canvas, folder.Path("one.roi")) == VOSTEL_OK);
    const std::vector<unsigned char> before = ReadBytes(folder.Path("one.roi"));
    Add(canvas.Number, VOSTEL_ARROW, {{1.0, 1.0}, {20.0, 3.0}});
    CHECK(Export(canvas, folder.Path("one.roi")) == VOSTEL_NOT_SUPPORTED);
    CHECK(LastMessage() ==
          "a .roi file holds one selection, and the canvas has 2; a .zip file holds them all");
    CHECK(ReadBytes(folder.Path("one.roi")) == before);
}

TEST_CASE("a list that is damaged anywhere leaves the canvas as it was")
{
    TempFolder folder;
    OpenCanvas canvas;
    ShowBlack(canvas);
    Add(canvas.Number, VOSTEL_POLYGON, {{1.0, 1.0}, {20.0, 3.0}, {9.5, 17.25}});
    Add(canvas.Number, VOSTEL_POINTS, {{1.5, 1.5}, {20.5, 3.5}});
    REQUIRE(Export(canvas, folder.Path("list.zip")) == VOSTEL_OK);
    const std::vector<unsigned char> whole = ReadBytes(folder.Path("list.zip"));
    const std::string                state = StateOf(canvas.Number);
    const uint32_t                   steps = HistoryOf(canvas.Number).undo_count;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::vector<unsigned char> damaged = whole;
        damaged[i] ^= 0xFF;
        REQUIRE(WriteBytes(folder.Path("damaged.zip"), damaged));
        CAPTURE(i);
        const VostelStatus status = Import(canvas, folder.Path("damaged.zip"));
        if (status == VOSTEL_OK) {    // a byte that says nothing of the content, such as a date
            CHECK(ObjectsOf(canvas.Number).size() == 4);
            REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
        } else {
            CHECK((status == VOSTEL_BAD_FORMAT || status == VOSTEL_NOT_SUPPORTED));
            CHECK_FALSE(LastMessage().empty());
            CHECK(HistoryOf(canvas.Number).undo_count == steps);
        }
        CHECK(StateOf(canvas.Number) == state);
    }
    CHECK(Import(canvas, folder.Path("missing.zip")) == VOSTEL_NOT_READ);
}
