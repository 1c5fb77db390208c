// Selections that ImageJ 1.53t wrote, beside the masks that it shows of them.

#include "interchange/ImageJFiles.h"
#include "support/OpenCanvas.h"

#include "base/Failure.h"
#include "geometry/Coverage.h"
#include "interchange/FileBytes.h"
#include "interchange/RegionKinds.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace vostel;

namespace {

std::string PathOf(const std::string& file)
{
    return std::string(VOSTEL_FOREIGN_FOLDER) + "/imagej/" + file;
}

FileObject Read(const std::string& name, std::string* remarks = nullptr)
{
    Remarks                       told;
    const std::vector<FileObject> objects = ImportImageJ(PathOf(name + ".roi").c_str(), {}, told);
    REQUIRE(objects.size() == 1);
    if (remarks)
        *remarks = told.Text();
    return objects[0];
}

// Whether a centre lies exactly on an edge. The points are floats, so doubles hold the products.
bool IsOnEdge(const std::vector<ImagePoint>& corners, ImagePoint centre)
{
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const ImagePoint& a = corners[i];
        const ImagePoint& b = corners[(i + 1) % corners.size()];
        const bool        between = std::min(a.y, b.y) <= centre.y && centre.y <= std::max(a.y, b.y) &&
                             std::min(a.x, b.x) <= centre.x && centre.x <= std::max(a.x, b.x);
        if (between && (b.x - a.x) * (centre.y - a.y) == (b.y - a.y) * (centre.x - a.x))
            return true;
    }
    return false;
}

struct Differences {
    int OnEdges = 0;    // pixels whose centres lie exactly on an edge
    int Others = 0;
};

// Between the region and the mask that ImageJ shows of it.
Differences DifferencesOf(const std::string& name)
{
    OpenCanvas canvas;
    REQUIRE(vostel_image_open(canvas.Number, PathOf(name + ".png").c_str(), 0) == VOSTEL_OK);
    VostelImageInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_image_info(canvas.Number, &info) == VOSTEL_OK);
    std::vector<std::uint8_t> shown(static_cast<std::size_t>(info.width * info.height));
    REQUIRE(vostel_image_copy(canvas.Number, VOSTEL_U8, shown.data(), 0) == VOSTEL_OK);
    std::vector<std::uint8_t> mask(shown.size());
    const FileObject          region = Read(name);
    WriteMask(CoverageOf(ExactOutline(region), info.width, info.height), info.width, info.height, mask.data(),
              info.width);
    Differences differences;
    int         inside = 0;
    for (int i = 0; i < static_cast<int>(mask.size()); ++i) {
        const ImagePoint centre(i % info.width + 0.5, i / info.width + 0.5);
        if (mask[i] != shown[i])
            ++(IsOnEdge(region.Points, centre) ? differences.OnEdges : differences.Others);
        inside += shown[i] == 255;
    }
    REQUIRE(inside > 100);
    return differences;
}

bool HasPoints(const FileObject& object, const std::vector<ImagePoint>& points)
{
    return std::equal(object.Points.begin(), object.Points.end(), points.begin(), points.end(), SamePlace);
}

}

TEST_CASE("areas cover the pixels that ImageJ shows")
{
    for (const std::string name : {"rectangle", "rectangle-sub-pixel", "oval", "circle", "oval-sub-pixel",
                                   "polygon", "polygon-sub-pixel", "freehand", "freehand-sub-pixel",
                                   "ellipse", "rotated-rectangle", "traced", "styled", "filled-placed"}) {
        CAPTURE(name);
        CHECK(DifferencesOf(name).Others == 0);
    }
}

TEST_CASE(
    "centres exactly on edges belong to ImageJ's areas at the right and below, to ours at the left and above")
{
    CHECK(DifferencesOf("styled").OnEdges == 35);    // a diagonal through them
    CHECK(DifferencesOf("polygon").OnEdges == 7);
    CHECK(DifferencesOf("polygon-sub-pixel").OnEdges == 0);
}

TEST_CASE("ImageJ's types become kinds")
{
    CHECK(Read("rectangle").Kind == VOSTEL_RECTANGLE);
    CHECK(Read("oval").Flags == VOSTEL_ELLIPSE);
    CHECK(Read("polygon").Kind == VOSTEL_POLYGON);
    CHECK(Read("freehand").Kind == VOSTEL_FREE_REGION);
    CHECK(Read("traced").Kind == VOSTEL_FREE_REGION);
    CHECK(Read("ellipse").Kind == VOSTEL_FREE_REGION);
    CHECK(Read("rotated-rectangle").Kind == VOSTEL_POLYGON);
    CHECK(Read("freeline").Kind == VOSTEL_FREE_STROKES);
    CHECK(Read("arrow").Kind == VOSTEL_ARROW);
}

TEST_CASE("whole numbers of lines and points are centres of pixels")
{
    CHECK(HasPoints(Read("line"), {{3.5, 4.5}, {50.5, 30.5}}));
    CHECK(HasPoints(Read("line-wide"), {{3.75, 5.0}, {51.25, 30.625}}));
    CHECK(HasPoints(Read("arrow"), {{6.5, 8.5}, {44.5, 22.5}}));
    CHECK(HasPoints(Read("polyline"), {{3.5, 3.5}, {30.5, 9.5}, {60.5, 30.5}}));
    CHECK(HasPoints(Read("freeline"), {{3.5, 3.5}, {30.5, 9.5}, {60.5, 30.5}, {61.5, 31.5}}));
    CHECK(HasPoints(Read("angle"), {{3.5, 33.5}, {30.5, 9.5}, {60.5, 30.5}}));
    CHECK(HasPoints(Read("points"), {{3.5, 33.5}, {30.5, 9.5}, {60.5, 30.5}}));
    CHECK(HasPoints(Read("points-sub-pixel"), {{3.75, 34.25}, {31.0, 9.625}}));
}

TEST_CASE("names, texts and styles come along")
{
    const FileObject text = Read("text");
    CHECK(text.Kind == VOSTEL_TEXT);
    CHECK(text.Text == "first\nsecond");
    CHECK(HasPoints(text, {{12.0, 9.0}}));
    REQUIRE(text.Style);
    CHECK(text.Style->text_height == 14.0);

    const FileObject styled = Read("styled");
    CHECK(styled.Name == "named \xC3\xA9\xE2\x9C\x93");
    REQUIRE(styled.Style);
    CHECK(styled.Style->line_color == 0xFF8000);
    CHECK(styled.Style->line_width == 2.5);
    CHECK(styled.Style->fill_color == 0);

    std::string      remarks;
    const FileObject filled = Read("filled-placed", &remarks);
    REQUIRE(filled.Style);
    CHECK(filled.Style->fill_color == 0x80112233);
    CHECK(remarks == "position in a stack ignored");
    CHECK(Read("line-wide").Style->line_color == 0x336699);
    CHECK(Read("line-wide").Style->line_width == 5.0);
    CHECK_FALSE(Read("rectangle").Style);
}

TEST_CASE("composite shapes, rounded rectangles and fitted splines of ImageJ are not supported")
{
    for (const std::string name : {"composite", "rectangle-rounded", "polygon-spline"}) {
        CAPTURE(name);
        Remarks told;
        CHECK_THROWS_AS(ImportImageJ(PathOf(name + ".roi").c_str(), {}, told), Failure);
    }
}
