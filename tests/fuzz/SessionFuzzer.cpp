// Sessions, beside an image that they can name: image.png.

#include "fuzz/Fuzzing.h"

namespace {

std::string Saved(std::int32_t canvas)
{
    const std::string path = WriteInput("out.vostel.json", "");
    REQUIRE(vostel_session_save(canvas, path.c_str(), 0) == VOSTEL_OK);
    return ReadBack(path);
}

}

void FuzzOne(std::string_view input)
{
    static const std::string image = SaveFuzzImage();
    const std::string        path = WriteInput("in.vostel.json", input);
    for (const std::uint32_t flags : {0, static_cast<int>(VOSTEL_SESSION_ON_IMAGE)}) {
        FuzzCanvas canvas;
        canvas.AddRectangle();
        const std::string  before = StateOf(canvas.Number);
        const VostelStatus status = vostel_session_open(canvas.Number, path.c_str(), flags);
        CheckStatus(status);
        if (status != VOSTEL_OK) {
            CHECK(StateOf(canvas.Number) == before);
            continue;
        }
        CHECK(HistoryOf(canvas.Number).undo_count == 0);
        FrameOf(canvas.Number);
        const std::string text = Saved(canvas.Number);
        const std::string again = WriteInput("again.vostel.json", text);
        const FuzzCanvas  other;
        // One without an image leaves the image that came from memory, and was then saved with that.
        const VostelStatus opened = vostel_session_open(other.Number, again.c_str(), flags);
        if (opened == VOSTEL_NO_IMAGE)
            REQUIRE(vostel_session_open(other.Number, again.c_str(), VOSTEL_SESSION_ON_IMAGE) == VOSTEL_OK);
        else
            REQUIRE(opened == VOSTEL_OK);
        CHECK(Saved(other.Number) == text);
    }
}
