// Region files of one format, which the build names with the file's name.

#include "fuzz/Fuzzing.h"
#include "fuzz/PngSums.h"

namespace {

std::string ExportedJson(std::int32_t canvas)
{
    const std::string path = WriteInput("out.json", "");
    REQUIRE(vostel_regions_export(canvas, path.c_str(), "json") == VOSTEL_OK);
    return ReadBack(path);
}

// What came stands in the own format to the bit, and leaves in the format that it came in.
void CheckLeaving(std::int32_t canvas)
{
    const std::string       json = ExportedJson(canvas);
    const std::string       path = WriteInput("again.json", json);
    static const FuzzCanvas other;
    other.ShowImage(0);
    std::size_t count = 0;
    REQUIRE(vostel_regions_import(other.Number, path.c_str(), "json", &count) == VOSTEL_OK);
    CHECK(ExportedJson(other.Number) == json);
    const std::string left = WriteInput("left-" VOSTEL_FUZZ_FILE, "");
    CheckStatus(vostel_regions_export(canvas, left.c_str(), VOSTEL_FUZZ_FORMAT));
}

}

void FuzzOne(std::string_view input)
{
    const std::string       path = WriteInput(VOSTEL_FUZZ_FILE, WithPngSums(input));
    static const FuzzCanvas canvas;    // making one takes longer than most files
    canvas.ShowImage(0);
    canvas.AddRectangle();
    const std::string  before = StateOf(canvas.Number);
    std::size_t        count = 0;
    const VostelStatus status =
        vostel_regions_import(canvas.Number, path.c_str(), VOSTEL_FUZZ_FORMAT, &count);
    CheckStatus(status);
    if (status != VOSTEL_OK) {
        CHECK(StateOf(canvas.Number) == before);
        return;
    }
    CHECK(ObjectsOf(canvas.Number).size() == 1 + count);
    CheckLeaving(canvas.Number);
    if (count == 0)
        return;
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(StateOf(canvas.Number) == before);
}
