#include "interchange/DrawingFiles.h"

#include <algorithm>
#include <clocale>
#include <filesystem>
#include <fstream>

namespace {

using Elements = std::vector<XmlElement>;

Elements SaveSvg(int32_t canvas, double scale, std::uint32_t flags = VOSTEL_WITH_OBJECTS)
{
    return ElementsOf(SaveBytes(canvas, ".svg", scale, flags));
}

Elements SvgOfOne(VostelKind kind, const Points& points, double scale = 1.0)
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 80, [](int, int) { return 128; });
    Add(canvas.Number, kind, points);
    return SaveSvg(canvas.Number, scale);
}

std::size_t CountOf(const Elements& elements, const std::string& name)
{
    return Named(elements, name).size();
}

}

TEST_CASE("an SVG is as large as the picture of that scale and holds the image in its own size")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 33, 21, [](int x, int y) { return 7 * x + 3 * y; });
    REQUIRE(vostel_contrast_set(canvas.Number, 20.0, 180.0) == VOSTEL_OK);
    for (const double scale : {0.02, 0.5, 1.0, 2.0, 3.7}) {
        CAPTURE(scale);
        const Frame      picture = SaveFrame(canvas.Number, scale, 0);
        const Elements   elements = SaveSvg(canvas.Number, scale);
        const XmlElement svg = elements.at(0);
        CHECK(svg.Number("width") == picture.Width);
        CHECK(svg.Number("height") == picture.Height);
        CHECK(svg.Attributes.at("viewBox") ==
              "0 0 " + std::to_string(picture.Width) + " " + std::to_string(picture.Height));
        const XmlElement image = Named(elements, "image").at(0);
        CHECK(image.Number("width") == picture.Width);
        CHECK(image.Number("height") == picture.Height);
        CHECK(image.Attributes.at("preserveAspectRatio") == "none");
        CHECK(FrameDifference(ImageOfSvg(elements), SaveFrame(canvas.Number, 1.0, 0)) == "");
    }
}

TEST_CASE("a color image is embedded in its colors, with every filter that suits its rows")
{
    OpenCanvas                canvas;
    std::vector<std::uint8_t> pixels;
    unsigned int              random = 1;
    for (int y = 0; y < 40; ++y) {
        for (int i = 0; i < 3 * 50; ++i) {
            random = random * 1103515245u + 12345u;
            const int ramp = y < 10 ? 5 * (i / 3) : y < 20 ? 9 * y : y < 30 ? 2 * i + 3 * y : 0;
            pixels.push_back(static_cast<std::uint8_t>(y < 30 ? ramp : random >> 16));
        }
    }
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_RGB8, pixels.data(), 50, 40, 0, 0) == VOSTEL_OK);
    const Frame held = ImageOfSvg(SaveSvg(canvas.Number, 2.0));
    CHECK(FrameDifference(held, SaveFrame(canvas.Number, 1.0, 0)) == "");
    CHECK(held.At(3, 35) ==
          (pixels[35 * 150 + 9] << 16 | pixels[35 * 150 + 10] << 8 | pixels[35 * 150 + 11]));
}

TEST_CASE("the image is stretched as the canvas stretches it")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 4, 4, [](int x, int) { return 60 * x; });
    const XmlElement blocks = Named(SaveSvg(canvas.Number, 2.0), "image").at(0);
    CHECK(blocks.Attributes.at("image-rendering") == "optimizeSpeed");
    CHECK(blocks.Attributes.at("style") == "image-rendering:pixelated");
    REQUIRE(vostel_view_set_smooth(canvas.Number, 1) == VOSTEL_OK);
    const XmlElement smooth = Named(SaveSvg(canvas.Number, 2.0), "image").at(0);
    CHECK(smooth.Attributes.at("image-rendering") == "auto");
    CHECK(smooth.Attributes.count("style") == 0);
}

TEST_CASE("a rectangle's outline runs through the middle of its pixels")
{
    const Elements rectangles = Named(SvgOfOne(VOSTEL_RECTANGLE, {{10.0, 20.0}, {40.0, 30.0}}, 2.0), "rect");
    REQUIRE(rectangles.size() == 1);
    CHECK(rectangles[0].Number("x") == 20.5);
    CHECK(rectangles[0].Number("y") == 40.5);
    CHECK(rectangles[0].Number("width") == 59.0);
    CHECK(rectangles[0].Number("height") == 19.0);
    CHECK(rectangles[0].Attributes.at("stroke") == "#0000ff");
    CHECK(rectangles[0].Attributes.count("fill") == 0);
}

TEST_CASE("a thin line covers its first pixel and leaves out its last one")
{
    const Elements lines = Named(SvgOfOne(VOSTEL_PROFILE, {{10.0, 20.0}, {40.0, 20.0}}), "polyline");
    REQUIRE(lines.size() == 1);
    CHECK(lines[0].Attributes.at("points") == "10,20.5 40,20.5");
    const Elements steep =
        Named(SvgOfOne(VOSTEL_POLYLINE, {{10.0, 60.0}, {10.0, 20.0}, {30.0, 30.0}}), "polyline");
    REQUIRE(steep.size() == 1);
    CHECK(steep[0].Attributes.at("points") == "10.5,61 10.5,20.5 30,30.25");
}

TEST_CASE("a polygon is closed, and a region's filling has its own outline, color and alpha")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 80, [](int, int) { return 128; });
    const VostelObject object =
        Add(canvas.Number, VOSTEL_POLYGON, {{10.25, 10.0}, {50.0, 12.0}, {30.0, 40.5}});
    SetLook(canvas.Number, object, 1.0, 0x123456, 0x80FEDCBA);
    const Elements polygons = Named(SaveSvg(canvas.Number, 2.0), "polygon");
    REQUIRE(polygons.size() == 2);
    CHECK(polygons[0].Attributes.at("points") == "20.5,20 100,24 60,81");
    CHECK(polygons[0].Attributes.at("fill") == "#fedcba");
    CHECK(polygons[0].Attributes.at("fill-opacity") == "0.502");
    CHECK(polygons[0].Attributes.at("fill-rule") == "evenodd");
    CHECK(polygons[1].Attributes.at("points") == "20.5,20.5 100.5,24.5 60.5,81.5");
    CHECK(polygons[1].Attributes.at("stroke") == "#123456");
    CHECK(polygons[1].Attributes.count("stroke-width") == 0);
}

TEST_CASE("wide lines run where the picture's do, of odd widths through the middle of pixels")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 80, [](int, int) { return 128; });
    const VostelObject object =
        Add(canvas.Number, VOSTEL_FREE_STROKES, {{10.0, 10.0}, {50.0, 10.0}, {50.0, 40.0}});
    for (const auto& [width, points] : std::vector<std::pair<double, std::string>>{
             {3.0, "10.5,10.5 50.5,10.5 50.5,40.5"}, {4.0, "10,10 50,10 50,40"}}) {
        SetLook(canvas.Number, object, width, 0x123456, 0);
        const Elements lines = Named(SaveSvg(canvas.Number, 1.0), "polyline");
        REQUIRE(lines.size() == 1);
        CHECK(lines[0].Attributes.at("points") == points);
        CHECK(lines[0].Number("stroke-width") == width);
        CHECK(lines[0].Attributes.at("stroke-linecap") == "round");
    }
}

TEST_CASE("ellipses and splines have their exact outlines, as curves")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 80, [](int, int) { return 128; });
    const VostelObject ellipse = Add(canvas.Number, VOSTEL_RECTANGLE, {{10.0, 10.0}, {50.0, 30.0}});
    REQUIRE(vostel_object_set_flags(canvas.Number, ellipse, VOSTEL_ELLIPSE) == VOSTEL_OK);
    const VostelObject spline =
        Add(canvas.Number, VOSTEL_SPLINE, {{20.0, 40.0}, {60.0, 45.0}, {50.0, 70.0}, {25.0, 65.0}});
    SetLook(canvas.Number, spline, 1.0, 0xFF, 0xFF00FF00);
    const Elements elements = SaveSvg(canvas.Number, 1.0);
    const Elements ellipses = Named(elements, "ellipse");
    REQUIRE(ellipses.size() == 1);
    CHECK(ellipses[0].Number("cx") == 30.0);
    CHECK(ellipses[0].Number("cy") == 20.0);
    CHECK(ellipses[0].Number("rx") == 20.0);
    CHECK(ellipses[0].Number("ry") == 10.0);
    const Elements paths = Named(elements, "path");
    REQUIRE(paths.size() == 2);
    CHECK(paths[0].Attributes.at("d") == paths[1].Attributes.at("d"));
    const std::string& d = paths[0].Attributes.at("d");
    CHECK(d.substr(0, 9) == "M20 40 C2");
    CHECK(std::count(d.begin(), d.end(), 'C') == 4);
    CHECK(d.substr(d.size() - 7) == "20,40 Z");
    CHECK(paths[0].Attributes.count("fill-opacity") == 0);
}

TEST_CASE("a curve that is flat in the picture is a line, since renderers leave out a flat ellipse")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 80, [](int, int) { return 128; });
    for (const Points& box : {Points{{10.0, 10.0}, {50.0, 11.0}}, Points{{60.0, 10.0}, {60.0, 30.0}}}) {
        const VostelObject ellipse = Add(canvas.Number, VOSTEL_RECTANGLE, box);
        REQUIRE(vostel_object_set_flags(canvas.Number, ellipse, VOSTEL_ELLIPSE) == VOSTEL_OK);
    }
    CHECK(CountOf(SaveSvg(canvas.Number, 1.0), "ellipse") == 0);
    CHECK(CountOf(SaveSvg(canvas.Number, 1.0), "polygon") +
              CountOf(SaveSvg(canvas.Number, 1.0), "polyline") >=
          2);
    CHECK(CountOf(SaveSvg(canvas.Number, 4.0), "ellipse") == 1);
}

TEST_CASE("every kind is there, one group each, with names")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 400, 300, [](int, int) { return 128; });
    AddEveryKind(canvas.Number);
    const std::vector<VostelObject> objects = ObjectsOf(canvas.Number);
    REQUIRE(vostel_object_set_name(canvas.Number, objects[0], "bore <1> & \"2\" 孔") == VOSTEL_OK);
    Elements elements = SaveSvg(canvas.Number, 1.0, AllParts);
    CHECK(CountOf(elements, "g") == objects.size() + 1);
    REQUIRE(CountOf(elements, "title") >= 1);
    CHECK(Named(elements, "title")[0].Text == "bore <1> & \"2\" 孔");
    // Each of the numbers of points is there twice, the first time as a shadow.
    std::vector<std::string> texts;
    for (const XmlElement& text : Named(elements, "text")) {
        if (text.Attributes.count("aria-hidden") == 0)
            texts.push_back(text.Text);
        CHECK(text.Number("font-size") > 8.0);
    }
    CHECK(std::find(texts.begin(), texts.end(), "Probe 孔 A") != texts.end());
    CHECK(std::count(texts.begin(), texts.end(), "2") == 1);
    CHECK(std::any_of(texts.begin(), texts.end(),
                      [](const std::string& text) { return text.find("长度") == 0; }));

    REQUIRE(vostel_canvas_set_language(canvas.Number, "en") == VOSTEL_OK);
    elements = SaveSvg(canvas.Number, 1.0, AllParts);
    std::string english;
    for (const XmlElement& text : Named(elements, "text"))
        english += text.Text + "\n";
    CHECK(english.find("ength") != std::string::npos);
    CHECK(english.find("长度") == std::string::npos);
}

TEST_CASE("what the flags leave out is not there")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 400, 300, [](int, int) { return 128; });
    AddEveryKind(canvas.Number);
    Add(canvas.Number, VOSTEL_PANEL, {{10.0, 10.0}});
    const Elements bare = SaveSvg(canvas.Number, 1.0, 0);
    CHECK(bare.size() == 3);    // svg, image and the group around all objects
    const Elements objects = SaveSvg(canvas.Number, 1.0, VOSTEL_WITH_OBJECTS);
    const Elements captioned = SaveSvg(canvas.Number, 1.0, VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS);
    const Elements all = SaveSvg(canvas.Number, 1.0, AllParts);
    CHECK(CountOf(objects, "text") == 1);    // the text object
    CHECK(CountOf(captioned, "text") > 5);
    CHECK(CountOf(captioned, "ellipse") < CountOf(all, "ellipse"));
    const std::vector<VostelObject> list = ObjectsOf(canvas.Number);
    CHECK(CountOf(all, "g") == list.size());    // one is around all and the panel has none
    REQUIRE(vostel_object_set_flags(canvas.Number, list[2], VOSTEL_HIDDEN) == VOSTEL_OK);
    CHECK(CountOf(SaveSvg(canvas.Number, 1.0), "g") == CountOf(objects, "g") - 1);
}

TEST_CASE("text of any characters leaves the document whole")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 300, 100, [](int, int) { return 128; });
    const VostelObject object = Add(canvas.Number, VOSTEL_TEXT, {{10.0, 10.0}});
    const char* const  odd = "  a<b> \"c\" ]]> \x01\x1F\t\n é 孔 \xF0\x9F\x93\x8F \xEF\xBF\xBF end";
    REQUIRE(vostel_object_set_text(canvas.Number, object, odd) == VOSTEL_OK);
    REQUIRE(vostel_object_set_name(canvas.Number, object, "\x02name\r\n]]>") == VOSTEL_OK);
    const Elements elements = SaveSvg(canvas.Number, 1.0);
    const Elements texts = Named(elements, "text");
    REQUIRE(texts.size() == 1);
    CHECK(texts[0].Text == "  a<b> \"c\" ]]>      é 孔 \xF0\x9F\x93\x8F  end");
    CHECK(texts[0].Attributes.at("xml:space") == "preserve");
    CHECK(Named(elements, "title").at(0).Text == "name\r\n]]>");
}

TEST_CASE("an & of a text underlines the next letter, and a double one stays")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 300, 100, [](int, int) { return 128; });
    const VostelObject object = Add(canvas.Number, VOSTEL_TEXT, {{10.0, 10.0}});
    REQUIRE(vostel_object_set_text(canvas.Number, object, "A && &Bore &") == VOSTEL_OK);
    const Elements elements = SaveSvg(canvas.Number, 1.0);
    const Elements texts = Named(elements, "text");
    REQUIRE(texts.size() == 1);
    CHECK(texts[0].Text == "A & Bore &");
    const XmlElement underline = elements.back();
    CHECK(underline.Name == "rect");
    CHECK(underline.Number("height") == 1.0);
    CHECK(underline.Number("y") == texts[0].Number("y") + 1.0);
    CHECK(underline.Number("x") > texts[0].Number("x"));
}

TEST_CASE("an SVG has the same bytes each time")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 400, 300, [](int x, int y) { return x ^ y; });
    AddEveryKind(canvas.Number);
    const bool same =
        SaveBytes(canvas.Number, ".SVG", 1.3, AllParts) == SaveBytes(canvas.Number, ".svg", 1.3, AllParts);
    CHECK(same);
}

// Captions follow the locale, wherever they are drawn.
TEST_CASE("places have a decimal point in every locale")
{
    constexpr std::uint32_t Parts = VOSTEL_WITH_OBJECTS | VOSTEL_WITH_HANDLES;
    OpenCanvas              canvas;
    ShowBytes(canvas.Number, 400, 300, [](int x, int y) { return x ^ y; });
    AddEveryKind(canvas.Number);
    const std::string svg = SaveBytes(canvas.Number, ".svg", 1.3, Parts);
    const std::string pdf = SaveBytes(canvas.Number, ".pdf", 1.3, Parts);
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* const locale : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "German"})
        std::setlocale(LC_ALL, locale);    // the last that there is
    const bool same = SaveBytes(canvas.Number, ".svg", 1.3, Parts) == svg &&
                      SaveBytes(canvas.Number, ".pdf", 1.3, Parts) == pdf;
    std::setlocale(LC_ALL, before.c_str());
    CHECK(same);
}

TEST_CASE("drawings may be larger than pictures, up to the limit of sides")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 100, [](int, int) { return 128; });
    Add(canvas.Number, VOSTEL_RECTANGLE, {{10.0, 10.0}, {90.5, 90.0}});
    const Elements elements = SaveSvg(canvas.Number, 10000.0);
    CHECK(elements.at(0).Number("width") == 1000000.0);
    CHECK(Named(elements, "rect").at(0).Number("width") == 804999.0);
    TempFolder folder;
    for (const char* const name : {"a.svg", "a.pdf"}) {
        const std::string path = folder.Path(name);
        std::ofstream(path) << "old";
        CHECK(vostel_picture_save(canvas.Number, path.c_str(), 20000.0, 0) == VOSTEL_TOO_LARGE);
        CHECK(vostel_picture_save(canvas.Number, path.c_str(), 1e300, 0) == VOSTEL_TOO_LARGE);
        CHECK(vostel_picture_save(canvas.Number, folder.Path(std::string("none/") + name).c_str(), 1.0, 0) ==
              VOSTEL_NOT_WRITTEN);
        CHECK(std::filesystem::file_size(path) == 3);
    }
}

TEST_CASE("objects anywhere and of any size leave finite numbers")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 30, 20, [](int, int) { return 128; });
    for (const double reach : {1e4, 1e9, 1e15, 1e300}) {
        for (const VostelKind kind : {VOSTEL_RECTANGLE, VOSTEL_LENGTH, VOSTEL_ARROW, VOSTEL_PROFILE})
            SetLook(canvas.Number, Add(canvas.Number, kind, {{-reach, 5.0}, {reach, -reach}}), 2.0, 0xFF,
                    0x80FF0000);
        for (const VostelKind kind : {VOSTEL_POLYGON, VOSTEL_SPLINE, VOSTEL_FREE_REGION, VOSTEL_POLYLINE,
                                      VOSTEL_ANGLE, VOSTEL_POINTS, VOSTEL_FREE_STROKES})
            SetLook(canvas.Number, Add(canvas.Number, kind, {{-reach, 5.0}, {reach, -reach}, {0.0, reach}}),
                    3.0, 0xFF, 0x80FF0000);
    }
    const std::string svg = SaveBytes(canvas.Number, ".svg", 2.0, AllParts);
    for (const char* const bad : {"nan", "inf", "e+"})
        CHECK(svg.find(bad) == std::string::npos);
    PdfReader(SaveBytes(canvas.Number, ".pdf", 2.0, AllParts));
}
