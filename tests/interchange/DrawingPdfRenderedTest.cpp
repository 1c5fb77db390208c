// An independent program shows our PDF as we draw the picture, and finds its text.

#include "interchange/DrawingRendered.h"

namespace {

std::string Run(const std::string& pdf, const std::string& command, const std::string& made)
{
    TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("a.pdf"), {pdf.begin(), pdf.end()}));
    REQUIRE(std::system(("cd '" + folder.Path() + "' && " + command + " 2>said").c_str()) == 0);
    CHECK(ReadBytes(folder.Path("said")).empty());
    const std::vector<unsigned char> bytes = ReadBytes(folder.Path(made));
    return {bytes.begin(), bytes.end()};
}

Frame Rendered(const std::string& pdf)
{
    return FrameOfPng(Run(pdf, "pdftoppm -r 72 -png -singlefile a.pdf a", "a.png"));
}

bool IsRendererMissing()
{
    const bool missing = !IsInstalled("pdftoppm") || !IsInstalled("pdftotext");
    if (missing)
        MESSAGE("pdftoppm and pdftotext are not installed");
    return missing;
}

}

TEST_CASE("a page shows image and objects where the picture has them")
{
    if (IsRendererMissing())
        return;
    OpenCanvas canvas(600, 500);
    ShowBytes(canvas.Number, 400, 300, [](int, int) { return 0xC0; });
    int most = 0;
    SUBCASE("thin lines")
    {
        AddEveryKind(canvas.Number, 1.0);
    }
    SUBCASE("wide ones, which have corners where the shapes are round")
    {
        AddEveryKind(canvas.Number);
        most = 10;
    }
    for (const double scale : {0.5, 1.0, 2.0, 3.0}) {
        CAPTURE(scale);
        const std::string       svg = SaveBytes(canvas.Number, ".svg", scale, AllParts);
        const Frame             ours = SaveFrame(canvas.Number, scale, AllParts);
        const Frame             other = Rendered(SaveBytes(canvas.Number, ".pdf", scale, AllParts));
        const Frame             mask = PlacesOfTexts(ElementsOf(svg), ours.Width, ours.Height);
        const DrawingDifference found = Compare(ours, other, mask);
        CAPTURE(found.Places);
        CHECK(found.Away + found.Missing <= most);
        // The program fills small shapes fatter than others do.
        CHECK(InkOf(other, mask) == doctest::Approx(InkOf(ours, mask)).epsilon(0.2));
    }
}

TEST_CASE("the image of a page lies where the picture has it")
{
    if (IsRendererMissing())
        return;
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 80, 60, [](int x, int y) { return (x / 4 * 37 + y / 4 * 11) % 256; });
    // The program smooths images that are stretched by less than four.
    for (const double scale : {4.0, 5.0}) {
        CAPTURE(scale);
        CHECK(FrameDifference(Rendered(SaveBytes(canvas.Number, ".pdf", scale, 0)),
                              SaveFrame(canvas.Number, scale, 0)) == "");
    }
}

TEST_CASE("captions of both languages are found in a page")
{
    if (IsRendererMissing())
        return;
    OpenCanvas canvas(600, 500);
    ShowBytes(canvas.Number, 400, 300, [](int, int) { return 0xC0; });
    AddEveryKind(canvas.Number);
    const auto textOf = [&] {
        return Run(SaveBytes(canvas.Number, ".pdf", 2.0, AllParts), "pdftotext -enc UTF-8 a.pdf a.txt",
                   "a.txt");
    };
    for (const VostelObject object : ObjectsOf(canvas.Number)) {
        const std::string caption = TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_object_text(canvas.Number, object, buffer, capacity, length);
        });
        VostelObjectInfo  info = {};
        info.size = sizeof info;
        REQUIRE(vostel_object_get(canvas.Number, object, &info) == VOSTEL_OK);
        CAPTURE(caption);
        if (info.kind != VOSTEL_PROFILE)    // it is in its plot
            CHECK(textOf().find(caption) != std::string::npos);
    }
    CHECK(textOf().find("长度") != std::string::npos);
    REQUIRE(vostel_canvas_set_language(canvas.Number, "en") == VOSTEL_OK);
    CHECK(textOf().find("Length") != std::string::npos);
}
