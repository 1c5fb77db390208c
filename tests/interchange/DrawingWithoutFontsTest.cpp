// ctest runs this file in a process of its own that finds no font at all.

#include "interchange/DrawingFiles.h"

TEST_CASE("drawings without fonts have their shapes and say their texts")
{
    OpenCanvas canvas;
    ShowBytes(canvas.Number, 400, 300, [](int, int) { return 128; });
    AddEveryKind(canvas.Number);
    const std::vector<XmlElement> elements = ElementsOf(SaveBytes(canvas.Number, ".svg", 1.0, AllParts));
    CHECK(Named(elements, "text").size() > 5);
    CHECK(Named(elements, "text").back().Text == "Probe 孔 A");
    const PdfReader pdf(SaveBytes(canvas.Number, ".pdf", 1.0, AllParts));
    CHECK(pdf.Content().find(" Tj\n") != std::string::npos);
}
