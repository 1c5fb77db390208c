#include "interchange/DrawingFiles.h"

#include <algorithm>
#include <sstream>

namespace {

PdfReader SavePdf(int32_t canvas, double scale, std::uint32_t flags = VOSTEL_WITH_OBJECTS)
{
    return PdfReader(SaveBytes(canvas, ".pdf", scale, flags));
}

std::string MediaBoxOf(const PdfReader& pdf)
{
    const std::string page = pdf.Dictionary(pdf.Find("/Type /Page "));
    const std::size_t begin = page.find("/MediaBox [") + 11;
    return page.substr(begin, page.find(']', begin) - begin);
}

std::vector<std::string> LinesOf(const std::string& text)
{
    std::istringstream       stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// The texts of a page by its strings of numbers and the table from numbers to characters, as UTF-16 digits.
std::vector<std::string> TextsOf(const PdfReader& pdf)
{
    std::map<std::string, std::string> characters;
    const std::size_t                  font = pdf.Find("/Subtype /Type0");
    for (const std::string& line : LinesOf(Inflated(pdf.Stream(pdf.Follow(font, "/ToUnicode"))))) {
        const std::size_t between = line.find("> <");
        if (line[0] == '<' && between == 5 && line.size() > 13 - 4)
            characters[line.substr(1, 4)] = line.substr(8, line.size() - 9);
    }
    std::vector<std::string> texts;
    for (const std::string& line : LinesOf(pdf.Content())) {
        if (line.size() < 5 || line.substr(line.size() - 4) != "> Tj")
            continue;
        std::string text;
        for (std::size_t i = 1; i + 4 < line.size() - 3; i += 4) {
            REQUIRE(characters.count(line.substr(i, 4)) == 1);
            text += characters[line.substr(i, 4)];
        }
        texts.push_back(text);
    }
    return texts;
}

std::size_t CountOf(const std::vector<std::string>& lines, const std::string& operation)
{
    return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), operation));
}

}

TEST_CASE("a page has image px times scale in points")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 33, 21, [](int x, int y) { return x + y; });
    CHECK(MediaBoxOf(SavePdf(canvas.Number, 1.0)) == "0 0 33 21");
    CHECK(MediaBoxOf(SavePdf(canvas.Number, 2.5)) == "0 0 82.5 52.5");
    CHECK(MediaBoxOf(SavePdf(canvas.Number, 0.01)) == "0 0 1 1");
    CHECK(LinesOf(SavePdf(canvas.Number, 2.5).Content()).at(1) == "82.5 0 0 52.5 0 0 cm");
}

TEST_CASE("the image of a page inflates to the pixels shown")
{
    OpenCanvas canvas;
    SUBCASE("gray")
    {
        ShowBytes(canvas.Number, 33, 21, [](int x, int y) { return 7 * x + 3 * y; });
        REQUIRE(vostel_contrast_set(canvas.Number, 20.0, 180.0) == VOSTEL_OK);
    }
    SUBCASE("through a color map")
    {
        ShowFloats(canvas.Number, 33, 21, [](int x, int y) { return 0.5 * x - y; });
        REQUIRE(vostel_contrast_map(canvas.Number, "fire") == VOSTEL_OK);
    }
    SUBCASE("with a window of a region's own")
    {
        ShowBytes(canvas.Number, 33, 21, [](int x, int y) { return 7 * x + 3 * y; });
        const VostelObject region = Add(canvas.Number, VOSTEL_RECTANGLE, {{5.0, 5.0}, {20.0, 15.0}});
        REQUIRE(vostel_contrast_of_object(canvas.Number, region, 50.0, 120.0) == VOSTEL_OK);
    }
    CHECK(FrameDifference(ImageOfPdf(SavePdf(canvas.Number, 3.0)), SaveFrame(canvas.Number, 1.0, 0)) == "");
}

TEST_CASE("the page's shapes are those of the SVG")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 80, [](int, int) { return 128; });
    SetLook(canvas.Number, Add(canvas.Number, VOSTEL_RECTANGLE, {{10.0, 20.0}, {40.0, 30.0}}), 1.0, 0xFF0000,
            0x80336699);
    const PdfReader                pdf = SavePdf(canvas.Number, 2.0);
    const std::vector<std::string> lines = LinesOf(pdf.Content());
    CHECK(CountOf(lines, "1 0 0 -1 0 160 cm") == 1);
    CHECK(CountOf(lines, "/Alpha128 gs") == 1);
    CHECK(CountOf(lines, "0.2 0.4 0.6 rg") == 1);
    CHECK(CountOf(lines, "f*") == 1);
    CHECK(CountOf(lines, "1 0 0 RG") == 1);
    CHECK(CountOf(lines, "20.5 40.5 59 19 re") == 1);
    CHECK(CountOf(lines, "S") == 1);
    CHECK(CountOf(lines, "q") == CountOf(lines, "Q"));
    CHECK(pdf.Dictionary(pdf.Find("/Type /Page ")).find("/ExtGState << /Alpha128 << /ca 0.502 >> >>") !=
          std::string::npos);
}

TEST_CASE("a page of every kind has its texts as glyphs and once more unseen, to be found")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 400, 300, [](int, int) { return 128; });
    AddEveryKind(canvas.Number);
    const VostelObject text = Add(canvas.Number, VOSTEL_TEXT, {{10.0, 200.0}});
    REQUIRE(vostel_object_set_text(canvas.Number, text, "\xF0\x9F\x93\x8F") == VOSTEL_OK);
    const PdfReader                pdf = SavePdf(canvas.Number, 1.0, AllParts);
    const std::vector<std::string> texts = TextsOf(pdf);
    const auto                     has = [&](const std::string& wanted) {
        return std::count(texts.begin(), texts.end(), wanted);
    };
    CHECK(has("00500072006F0062006500205B5400200041") == 1);    // Probe 孔 A
    CHECK(has("D83DDCCF") == 1);
    CHECK(has("0032") == 1);    // a number of the points, not its shadow
    const std::string length = "957F5EA6";
    CHECK(std::any_of(texts.begin(), texts.end(),
                      [&](const std::string& said) { return said.substr(0, length.size()) == length; }));
    const std::vector<std::string> lines = LinesOf(pdf.Content());
    CHECK(CountOf(lines, "BT") == texts.size());
    CHECK(CountOf(lines, "3 Tr") == texts.size());
    CHECK(CountOf(lines, "q") == CountOf(lines, "Q"));
    // 12 bytes of head and 16 for each table; the sum of all numbers of a font is a constant.
    const std::string font = Inflated(pdf.Stream(pdf.Find("/Length1 ")));
    REQUIRE(font.size() % 4 == 0);
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < font.size(); ++i)
        sum += static_cast<std::uint32_t>(static_cast<unsigned char>(font[i])) << (24 - 8 * (i % 4));
    CHECK(sum == 0xB1B0AFBA);
}

TEST_CASE("a page without text needs no font")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 100, 80, [](int, int) { return 128; });
    Add(canvas.Number, VOSTEL_RECTANGLE, {{10.0, 20.0}, {40.0, 30.0}});
    const PdfReader pdf = SavePdf(canvas.Number, 2.0);
    CHECK(pdf.Count() == 5);
    CHECK(pdf.Dictionary(pdf.Find("/Type /Page ")).find("/Font") == std::string::npos);
}

TEST_CASE("a PDF has the same bytes each time and leaves the canvas as it was")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 400, 300, [](int x, int y) { return x ^ y; });
    AddEveryKind(canvas.Number);
    const std::string       state = StateOf(canvas.Number);
    const VostelHistoryInfo history = HistoryOf(canvas.Number);
    const auto              frame = FrameOf(canvas.Number);
    const std::string       bytes = SaveBytes(canvas.Number, ".pdf", 1.3, AllParts);
    const bool              same = SaveBytes(canvas.Number, ".Pdf", 1.3, AllParts) == bytes;
    CHECK(same);
    CHECK(StateOf(canvas.Number) == state);
    CHECK(HistoryOf(canvas.Number).bytes == history.bytes);
    CHECK(FrameOf(canvas.Number) == frame);
    CHECK(bytes.find("Date") == std::string::npos);
}
