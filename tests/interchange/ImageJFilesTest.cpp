#include "interchange/ImageJFiles.h"

#include "base/Failure.h"
#include "geometry/Coverage.h"
#include "interchange/ImageJRoi.h"
#include "interchange/RegionKinds.h"
#include "interchange/ZipArchive.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

constexpr ImageSize Size{90, 70};

constexpr int Kinds[] = {VOSTEL_RECTANGLE, VOSTEL_POLYGON,      VOSTEL_SPLINE,   VOSTEL_FREE_REGION,
                         VOSTEL_TEXT,      VOSTEL_FREE_STROKES, VOSTEL_LENGTH,   VOSTEL_ANGLE,
                         VOSTEL_PROFILE,   VOSTEL_POINTS,       VOSTEL_POLYLINE, VOSTEL_ARROW};

FileObject Object(int kind, std::vector<ImagePoint> points, std::string name = {})
{
    FileObject object;
    object.Kind = kind;
    object.Points = std::move(points);
    object.Name = std::move(name);
    return object;
}

std::string ZipOf(const std::vector<FileObject>& objects, std::string* remarks = nullptr)
{
    Remarks           told;
    const std::string zip = ImageJZipOf(objects, Size, told);
    if (remarks)
        *remarks = told.Text();
    return zip;
}

std::vector<FileObject> Read(const std::string& bytes, std::string* remarks = nullptr)
{
    Remarks                 told;
    std::vector<FileObject> objects = ObjectsOfImageJ(bytes, "file", told);
    if (remarks)
        *remarks = told.Text();
    return objects;
}

std::string RoiOf(const FileObject& object)
{
    Tally            changed;
    const ImageJRois rois = ImageJRoisOf(object, Size, changed);
    REQUIRE(rois.Files.size() == 1);
    return rois.Files[0];
}

FileObject Returned(const FileObject& object)
{
    const std::vector<FileObject> objects = Read(RoiOf(object));
    REQUIRE(objects.size() == 1);
    return objects[0];
}

std::optional<Failure> FailureOf(const std::string& bytes)
{
    try {
        Read(bytes);
        return std::nullopt;
    } catch (const Failure& failure) {
        return failure;
    }
}

std::vector<std::uint8_t> MaskOf(const FileObject& object)
{
    std::vector<std::uint8_t> mask(static_cast<std::size_t>(Size.Width * Size.Height));
    WriteMask(CoverageOf(ExactOutline(object), Size.Width, Size.Height), Size.Width, Size.Height, mask.data(),
              Size.Width);
    return mask;
}

bool IsRegionKind(int kind)
{
    return kind <= VOSTEL_FREE_REGION;
}

std::size_t CountFor(int kind, std::mt19937& random)
{
    switch (kind) {
    case VOSTEL_TEXT:
        return 1;
    case VOSTEL_ANGLE:
        return 3;
    case VOSTEL_POLYGON:
    case VOSTEL_SPLINE:
    case VOSTEL_FREE_REGION:
        return 3 + random() % 20;
    case VOSTEL_POINTS:
    case VOSTEL_POLYLINE:
    case VOSTEL_FREE_STROKES:
        return 2 + random() % 20;
    default:
        return 2;
    }
}

FileObject RandomObject(std::mt19937& random)
{
    std::uniform_real_distribution<double> x(-10.0, Size.Width + 10.0), y(-10.0, Size.Height + 10.0);
    const double                           step = random() % 3 == 0 ? 0.0 : 1.0 / (1 << random() % 4);
    const auto rounded = [&](double value) { return step > 0.0 ? std::floor(value / step) * step : value; };
    FileObject object;
    object.Kind = Kinds[random() % std::size(Kinds)];
    for (std::size_t i = CountFor(object.Kind, random); i > 0; --i) {
        const double across = rounded(x(random));
        object.Points.emplace_back(across, rounded(y(random)));
    }
    if (object.Kind == VOSTEL_RECTANGLE && random() % 2 == 0)
        object.Flags = VOSTEL_ELLIPSE;
    if (object.Kind == VOSTEL_TEXT)
        object.Text = "two\nlines \xC3\xA9 \xF0\x9F\x94\xAC";
    object.Name = "n" + std::to_string(random() % 1000);
    VostelStyle style = {};
    style.line_color = static_cast<std::uint32_t>(random() & 0xFFFFFF);
    style.fill_color = IsRegionKind(object.Kind) ? static_cast<std::uint32_t>(random() | 0x01000000) : 0;
    style.line_width = 0.25 * static_cast<double>(1 + random() % 40);
    style.text_height = static_cast<double>(6 + random() % 40);
    object.Style = style;
    return object;
}

// What an object is when it returns.
int ReturnedKind(const FileObject& object)
{
    const bool whole = std::all_of(object.Points.begin(), object.Points.end(), [](ImagePoint p) {
        return p.x == std::floor(p.x) && p.y == std::floor(p.y);
    });
    const bool flat =
        object.Points[0].x == object.Points.back().x || object.Points[0].y == object.Points.back().y;
    switch (object.Kind) {
    case VOSTEL_RECTANGLE:
        if (whole && !flat)
            return VOSTEL_RECTANGLE;
        return (object.Flags & VOSTEL_ELLIPSE) != 0 ? VOSTEL_FREE_REGION : VOSTEL_POLYGON;
    case VOSTEL_SPLINE:
        return VOSTEL_POLYGON;
    case VOSTEL_PROFILE:
        return VOSTEL_LENGTH;
    default:
        return object.Kind;
    }
}

double Farthest(const std::vector<ImagePoint>& a, const std::vector<ImagePoint>& b)
{
    REQUIRE(a.size() == b.size());
    double farthest = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        farthest = std::max({farthest, std::abs(a[i].x - b[i].x), std::abs(a[i].y - b[i].y)});
    return farthest;
}

void CheckReturned(const FileObject& object, const FileObject& back)
{
    CHECK(back.Kind == ReturnedKind(object));
    CHECK(back.Name == object.Name);
    CHECK(back.Text == object.Text);
    REQUIRE(back.Style);
    CHECK(back.Style->line_color == object.Style->line_color);
    CHECK(back.Style->fill_color == object.Style->fill_color);
    CHECK(back.Style->line_width == object.Style->line_width);
    if (IsRegionKind(object.Kind))
        CHECK(MaskOf(back) == MaskOf(object));
    else
        CHECK(Farthest(back.Points, object.Points) < 1e-5);
    if (object.Kind == VOSTEL_TEXT)
        CHECK(back.Style->text_height == object.Style->text_height);
}

}

TEST_CASE("objects of all kinds return with their pixels, points, names, texts and styles")
{
    constexpr unsigned      Seed = 7;
    std::mt19937            random(Seed);
    std::vector<FileObject> objects;
    for (int i = 0; i < 3000; ++i)
        objects.push_back(RandomObject(random));
    const std::vector<FileObject> back = Read(ZipOf(objects));
    REQUIRE(back.size() == objects.size());
    for (std::size_t i = 0; i < objects.size(); ++i) {
        CAPTURE(Seed);
        CAPTURE(i);
        CheckReturned(objects[i], back[i]);
    }
}

TEST_CASE("what leaves twice is the same from the first return on, to the byte")
{
    std::mt19937            random(8);
    std::vector<FileObject> objects;
    for (int i = 0; i < 300; ++i)
        objects.push_back(RandomObject(random));
    CHECK(ZipOf(objects) == ZipOf(objects));
    const std::string once = ZipOf(Read(ZipOf(objects)));
    CHECK(ZipOf(Read(once)) == once);
}

TEST_CASE("whole boxes stay boxes, lines and points lie half a pixel from ImageJ's numbers")
{
    const FileObject box = Returned(Object(VOSTEL_RECTANGLE, {{30.0, 4.0}, {-3.0, 20.0}}));
    CHECK(box.Kind == VOSTEL_RECTANGLE);
    CHECK(SamePlace(box.Points[0], {-3.0, 4.0}));
    CHECK(SamePlace(box.Points[1], {30.0, 20.0}));
    const std::string point = RoiOf(Object(VOSTEL_POINTS, {{7.5, 9.5}}));
    CHECK(point[6] == 10);                                        // a point
    CHECK(point.substr(8, 4) == std::string("\0\x9\0\x7", 4));    // its box begins at column 7, row 9
    CHECK(point.substr(64, 4) == std::string(4, '\0'));
}

TEST_CASE("arrows point from tail to head, angles have their vertex in the middle")
{
    const FileObject arrow = Returned(Object(VOSTEL_ARROW, {{5.5, 6.25}, {40.0, 7.75}}));
    CHECK(arrow.Kind == VOSTEL_ARROW);
    CHECK(SamePlace(arrow.Points[0], {5.5, 6.25}));
    CHECK(SamePlace(arrow.Points[1], {40.0, 7.75}));
    const FileObject angle = Returned(Object(VOSTEL_ANGLE, {{5.5, 6.25}, {40.0, 7.75}, {1.0, 50.0}}));
    CHECK(SamePlace(angle.Points[1], {40.0, 7.75}));
}

TEST_CASE("an object without a name has none when it returns, one of an old file that of its entry")
{
    const std::string zip = ZipOf({Object(VOSTEL_POINTS, {{1.5, 1.5}}), Object(VOSTEL_POINTS, {{1.5, 1.5}})});
    const ZipReader   reader(zip);
    CHECK(reader.Entries()[0].Name == "points.roi");
    CHECK(reader.Entries()[1].Name == "points-1.roi");
    CHECK(Read(zip)[0].Name.empty());

    std::string old = RoiOf(Object(VOSTEL_POINTS, {{1.5, 1.5}}, "new name"));
    CHECK(Read(old)[0].Name == "new name");
    old.replace(60, 4, 4, '\0');    // no second header
    CHECK(Read(old)[0].Name == "file");
    ZipWriter writer;
    writer.Add("folder/old name.roi", old);
    CHECK(Read(writer.Finish())[0].Name == "old name");
}

TEST_CASE("entries have names that every file system takes, each its own")
{
    std::vector<FileObject> objects;
    for (const char* const name : {"a/b:c", "A/B:C", "a/b:c", "..", "a.", "\xC3\xA9", "a-1"})
        objects.push_back(Object(VOSTEL_POINTS, {{1.5, 1.5}}, name));
    std::string longName;
    while (longName.size() < 199)
        longName += 'x';
    objects.push_back(Object(VOSTEL_POINTS, {{1.5, 1.5}}, longName + "\xC3\xA9"));
    const std::string zip = ZipOf(objects);
    const ZipReader   reader(zip);
    std::string       names;
    for (std::size_t i = 0; i < 7; ++i)
        names += reader.Entries()[i].Name + " ";
    CHECK(names == "a_b_c.roi A_B_C-1.roi a_b_c-2.roi points.roi a.roi \xC3\xA9.roi a-1.roi ");
    CHECK(reader.Entries()[7].Name.size() == 199 + 4);    // not half of a character
    const std::vector<FileObject> back = Read(zip);
    for (std::size_t i = 0; i < objects.size(); ++i)
        CHECK(back[i].Name == objects[i].Name);
}

TEST_CASE("several strokes leave as a line each")
{
    FileObject strokes =
        Object(VOSTEL_FREE_STROKES, {{1.0, 1.0}, {2.0, 2.5}, {9.0, 9.0}, {8.0, 7.0}, {5.0, 5.0}}, "two");
    strokes.StrokeStarts = {0, 2};
    std::string                   remarks;
    const std::vector<FileObject> back = Read(ZipOf({strokes}, &remarks));
    CHECK(remarks == "strokes as one line each");
    REQUIRE(back.size() == 2);
    CHECK(back[0].Points.size() == 2);
    CHECK(back[1].Points.size() == 3);
    CHECK(back[1].Name == "two");
}

TEST_CASE("what ImageJ lacks is left out and named")
{
    FileObject hidden = Object(VOSTEL_POINTS, {{1.5, 1.5}});
    hidden.Flags = VOSTEL_HIDDEN;
    std::string       remarks;
    const std::string zip =
        ZipOf({Object(VOSTEL_PANEL, {{1.0, 1.0}}), Object(VOSTEL_NEIGHBOURS, {{1.0, 1.0}}), hidden,
               Object(VOSTEL_ANGLE_LINES, {{1.0, 1.0}, {2.0, 2.0}, {3.0, 3.0}, {4.0, 5.0}}),
               Object(VOSTEL_POLYGON, {}), Object(VOSTEL_LENGTH, {{1.0, 1.0}, {1e10, 2.0}}),
               Object(VOSTEL_PROFILE, {{1.0, 1.0}, {10.0, 2.0}}),
               Object(VOSTEL_PROFILE, {{1.0, 1.0}, {10.0, 2.0}})},
              &remarks);
    CHECK(remarks ==
          "left out: 1 angle of two lines, 1 object beyond 8388608 px, 2 panels, 1 unfinished object; "
          "flags of an object; profile as line (2 times)");
    CHECK(Read(zip).size() == 3);
}

TEST_CASE("a single selection is one, no more and no less")
{
    const FileObject point = Object(VOSTEL_POINTS, {{1.5, 1.5}});
    const FileObject panel = Object(VOSTEL_PANEL, {{1.0, 1.0}});
    Remarks          told;
    CHECK(ImageJFileOf({panel, point}, Size, told) == RoiOf(point));
    CHECK(told.Text() == "left out: 1 panel");
    for (const std::vector<FileObject>& objects : {std::vector<FileObject>{point, point}, {}, {panel}}) {
        bool refused = false;
        try {
            ImageJFileOf(objects, Size, told);
        } catch (const Failure& failure) {
            refused = failure.Status == VOSTEL_NOT_SUPPORTED;
        }
        CHECK(refused);
    }
}

TEST_CASE("composite shapes, images and fitted splines are named and take nothing")
{
    const std::string good = RoiOf(Object(VOSTEL_RECTANGLE, {{1.0, 1.0}, {5.0, 5.0}}));
    const std::string polygon = RoiOf(Object(VOSTEL_POLYGON, {{1.0, 1.0}, {5.0, 5.0}, {3.0, 9.0}}));
    const auto        message = [&](std::string roi, std::size_t place, char value) {
        roi[place] = value;
        ZipWriter zip;
        zip.Add("good.roi", good);
        zip.Add("other.roi", roi);
        const std::optional<Failure> failure = FailureOf(zip.Finish());
        REQUIRE(failure);
        CHECK(failure->Status == VOSTEL_NOT_SUPPORTED);
        return failure->Message;
    };
    CHECK(message(good, 39, 9) == "entry \"other.roi\" is a composite shape, which is not supported");
    CHECK(message(good, 49, 4) == "entry \"other.roi\" is an image, which is not supported");
    CHECK(message(good, 55, 4) == "entry \"other.roi\" is a rounded rectangle, which is not supported");
    CHECK(message(polygon, 51, 1) == "entry \"other.roi\" is a fitted spline, which is not supported");
}

TEST_CASE("places in a stack and other entries are ignored with a remark")
{
    std::string roi = RoiOf(Object(VOSTEL_RECTANGLE, {{1.0, 1.0}, {5.0, 5.0}}));
    roi[59] = 3;
    std::string remarks;
    CHECK(Read(roi, &remarks).size() == 1);
    CHECK(remarks == "position in a stack ignored");
    ZipWriter zip;
    zip.Add("a.roi", roi);
    zip.Add("folder/", "");
    zip.Add("notes.txt", "words");
    zip.Add("b.ROI", roi);
    CHECK(Read(zip.Finish(), &remarks).size() == 2);
    CHECK(remarks == "entry that is no selection ignored; position in a stack ignored (2 times)");
}

TEST_CASE("other files are told from selections")
{
    for (const char* const bytes : {"", "I", "Iou", "words", "{}"})
        CHECK(FailureOf(bytes)->Status == VOSTEL_BAD_FORMAT);
}

TEST_CASE("a damaged selection is refused or read as another one, whatever byte is changed or missing")
{
    std::mt19937 random(9);
    for (const int kind : Kinds) {
        FileObject object = RandomObject(random);
        while (object.Kind != kind)
            object = RandomObject(random);
        const std::string roi = kind == VOSTEL_SPLINE ? RoiOf(RandomObject(random)) : RoiOf(object);
        for (std::size_t length = 0; length < roi.size(); ++length)
            CHECK(FailureOf(roi.substr(0, length)));
        for (std::size_t i = 0; i < roi.size(); ++i) {
            for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
                std::string changed = roi;
                changed[i] = static_cast<char>(value);
                const std::optional<Failure> failure = FailureOf(changed);
                if (failure)
                    CHECK((failure->Status == VOSTEL_BAD_FORMAT || failure->Status == VOSTEL_NOT_SUPPORTED));
            }
        }
    }
}
