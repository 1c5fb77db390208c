// An independent renderer shows our SVG as we draw the picture.

#include "interchange/DrawingRendered.h"

namespace {

Frame Rendered(const std::string& svg)
{
    TempFolder folder;
    REQUIRE(WriteBytes(folder.Path("a.svg"), {svg.begin(), svg.end()}));
    const std::string command =
        "rsvg-convert --output '" + folder.Path("a.png") + "' '" + folder.Path("a.svg") + "'";
    REQUIRE(std::system(command.c_str()) == 0);
    return LoadFrame(folder.Path("a.png"));
}

bool IsRendererMissing()
{
    const bool missing = !IsInstalled("rsvg-convert");
    if (missing)
        MESSAGE("rsvg-convert is not installed");
    return missing;
}

}

// The renderer of Debian 12 smooths whatever it stretches: then the insides of blocks are compared.
TEST_CASE("the image lies where the picture has it, to the pixel")
{
    if (IsRendererMissing())
        return;
    constexpr int Block = 4;    // so that half of the pixels show it too
    OpenCanvas    canvas;
    ShowBytes(canvas.Number, 80, 60, [](int x, int y) { return (x / Block * 37 + y / Block * 11) % 256; });
    for (const int scale : {1, 2, 3}) {
        CAPTURE(scale);
        const Frame ours = SaveFrame(canvas.Number, scale, 0);
        const Frame other = Rendered(SaveBytes(canvas.Number, ".svg", scale, 0));
        REQUIRE(other.Width == ours.Width);
        REQUIRE(other.Height == ours.Height);
        const int  edge = scale == 1 ? 0 : scale;    // px of a block that are smoothed
        const auto isInside = [&](int at) {
            const int place = at % (Block * scale);
            return place >= edge && place < Block * scale - edge;
        };
        int differing = 0;
        for (int y = 0; y < ours.Height; ++y) {
            for (int x = 0; x < ours.Width; ++x)
                differing += isInside(x) && isInside(y) && ours.At(x, y) != other.At(x, y) ? 1 : 0;
        }
        CHECK(differing == 0);
    }
    CHECK(FrameDifference(Rendered(SaveBytes(canvas.Number, ".svg", 0.5, 0)),
                          SaveFrame(canvas.Number, 0.5, 0)) == "");
}

TEST_CASE("objects differ only along edges of one pixel")
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
        for (const std::uint32_t flags : {std::uint32_t(VOSTEL_WITH_OBJECTS), AllParts}) {
            CAPTURE(scale);
            CAPTURE(flags);
            const std::string       svg = SaveBytes(canvas.Number, ".svg", scale, flags);
            const Frame             ours = SaveFrame(canvas.Number, scale, flags);
            const Frame             other = Rendered(svg);
            const Frame             mask = PlacesOfTexts(ElementsOf(svg), ours.Width, ours.Height);
            const DrawingDifference found = Compare(ours, other, mask);
            CAPTURE(found.Places);
            CHECK(found.Away + found.Missing <= most);
            CHECK(InkOf(other, mask) == doctest::Approx(InkOf(ours, mask)).epsilon(0.1));
        }
    }
}

TEST_CASE("the comparison sees a line that moves by two pixels, and one that is missing")
{
    Frame       ours(20, 20, 0xC0C0C0), moved = ours, gone = ours;
    const Frame mask(20, 20);
    ours.FillRect(2, 10, 18, 11, 0x0000FF);
    moved.FillRect(2, 12, 18, 13, 0x0000FF);
    CHECK(Compare(ours, moved, mask).Away == 16);
    CHECK(Compare(ours, moved, mask).Missing == 16);
    CHECK(Compare(ours, gone, mask).Missing == 16);
    CHECK(Compare(gone, ours, mask).Away == 16);
    CHECK(Compare(ours, ours, mask).Places == "");
}
