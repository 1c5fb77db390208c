#include "interchange/PointTable.h"

#include "interchange/CsvText.h"
#include "interchange/RegionSamples.h"
#include "support/CommaLocale.h"

#include <doctest/doctest.h>

#include <random>
#include <string>
#include <vector>

using namespace vostel;

namespace {

std::vector<FileObject> Read(const std::string& text)
{
    Remarks remarks;
    return ObjectsOfPointTable(text, remarks);
}

std::string Write(const std::vector<FileObject>& objects)
{
    Remarks remarks;
    return PointTableOf(objects, remarks);
}

}

TEST_CASE("random objects leave and return as a table of points to the bit")
{
    std::mt19937 random(1);
    for (int round = 0; round < 60; ++round) {
        std::vector<FileObject> objects;
        for (const int kind : ImageKinds)
            objects.push_back(RandomSample(random, kind, static_cast<int>(objects.size()) + 1));
        const std::vector<FileObject> back = Read(Write(objects));
        REQUIRE(back.size() == objects.size());
        for (std::size_t i = 0; i < back.size(); ++i) {
            CAPTURE(objects[i].Kind);
            CHECK(back[i].Kind == objects[i].Kind);
            CHECK(back[i].Name == objects[i].Name);
            CHECK(back[i].Label == objects[i].Label);
            CHECK(back[i].Flags == objects[i].Flags);
            CHECK(back[i].StrokeStarts == objects[i].StrokeStarts);
            REQUIRE(back[i].Points.size() == objects[i].Points.size());
            for (std::size_t k = 0; k < back[i].Points.size(); ++k)
                CHECK(SamePlace(back[i].Points[k], objects[i].Points[k]));
        }
    }
}

TEST_CASE("a table has a header and a row a point, with lines that end by CR LF")
{
    FileObject region = MakeSample(VOSTEL_POLYGON, {{0.1, 1e-7}, {9.0, 1.0}, {5.0, 7.25}}, "a,b");
    region.Label = 4;
    CHECK(Write({region, MakeSample(VOSTEL_POINTS, {{3.0, 4.0}})}) == "object,name,kind,label,index,x,y\r\n"
                                                                      "1,\"a,b\",polygon,4,0,0.1,1e-07\r\n"
                                                                      "1,\"a,b\",polygon,4,1,9,1\r\n"
                                                                      "1,\"a,b\",polygon,4,2,5,7.25\r\n"
                                                                      "2,,points,,0,3,4\r\n");
}

TEST_CASE("any table with an x and a y becomes one object of marks")
{
    Remarks                       remarks;
    const std::vector<FileObject> objects =
        ObjectsOfPointTable("\xEF\xBB\xBF\"Area\", X ,Y\n12,1.5,2\n\n13,+3e1,-4\n", remarks);
    REQUIRE(objects.size() == 1);
    CHECK(objects[0].Kind == VOSTEL_POINTS);
    REQUIRE(objects[0].Points.size() == 2);
    CHECK(SamePlace(objects[0].Points[1], {30.0, -4.0}));
    CHECK(remarks.Text() == "ignored: the columns Area");
    CHECK(Read("x;y\r\n1;2\r\n")[0].Points.size() == 1);
    CHECK(Read("y\tx\n1\t2")[0].Points[0].x == 2.0);
    CHECK(Read("x,y\r1,2\r3,4").at(0).Points.size() == 2);
    CHECK(Read("x,y\n").empty());
    CHECK(Read("x,y,\n1,2\n3,4,\n")[0].Points.size() == 2);
}

TEST_CASE("rows of an object need not stand together, its indices grow")
{
    const std::vector<FileObject> objects = Read("object,index,x,y\na,0,1,1\nb,5,2,2\na,3,3,3\n");
    REQUIRE(objects.size() == 2);
    CHECK(objects[0].Points.size() == 2);
    CHECK(MessageOf([] { Read("object,index,x,y\na,1,1,1\na,1,2,2\n"); }) == "line 3: index does not grow");
}

TEST_CASE("what is wrong is said with its line")
{
    const auto message = [](const std::string& text) { return MessageOf([&] { Read(text); }); };
    CHECK(message("") == "the table is empty");
    CHECK(message("a,b\n1,2\n") == "line 1: the header names no x and y");
    CHECK(message("x,y\n1,2\n1,2,3\n") == "line 3: 3 cells where the header has 2");
    CHECK(message("x,y\n1,2\n1,nan\n") == "line 3: y is not a finite number");
    CHECK(message("x,y\n1,1e999\n") == "line 2: y is not a finite number");
    CHECK(message("name,x,y\n\"two\nlines\",1,2\n\"end,1,2\n") == "line 4: a quote does not end");
    CHECK(message("name,x,y\n\"a\"b,1,2\n") == "line 2: text follows the end of a quote");
    CHECK(message("label,x,y\n1.5,1,2\n") == "line 2: label is not a whole number from 0");
    CHECK(message("kind,x,y\nspline,1,2\n") == "line 2: there is no kind \"spline\" of 1 points");
    CHECK(message("kind,x,y\npanel,1,2\n") == "line 2: there is no kind \"panel\" of 1 points");
}

TEST_CASE("texts and panels are left out, and that is told")
{
    Remarks remarks;
    PointTableOf({MakeSample(VOSTEL_TEXT, {{1.0, 1.0}}), MakeSample(VOSTEL_PANEL, {{1.0, 1.0}}),
                  MakeSample(VOSTEL_LENGTH, {})},
                 remarks);
    CHECK(remarks.Text() == "left out: 1 panel, 1 text, 1 unfinished object");
}

TEST_CASE("damaged tables are taken as they read or refused")
{
    FileObject region =
        MakeSample(VOSTEL_FREE_STROKES, {{0.5, 1.5}, {9.0, 1.0}, {5.0, 7.25}}, "a,\"b\"\r\nc");
    region.StrokeStarts = {0, 2};
    FeedDamaged(Write({region}), [](const std::string& text) { Read(text); });
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

TEST_CASE("cells are quoted where they must be, and read back")
{
    for (const std::string text :
         {"", "plain", "a,b", "say \"so\"", "\"", "two\r\nlines", "\xEF\xBB\xBF", ","}) {
        const std::string        line = "first," + QuotedCell(text, ',') + ",last\r\n";
        CsvReader                reader(line, ',');
        std::vector<std::string> cells;
        REQUIRE(reader.Next(cells));
        CHECK(cells == std::vector<std::string>{"first", text, "last"});
        CHECK(!reader.Next(cells));
    }
}
