// What leaves as a session comes back to the bit, of canvases in all kinds of states.

#include "interchange/CanvasContent.h"
#include "interchange/RandomCanvas.h"
#include "support/OpenCanvas.h"
#include "support/TempFolder.h"

namespace {

constexpr int Width = 90;
constexpr int Height = 70;

std::string PathOf(const TempFolder& folder, const char* name)
{
    return folder.Path(name);
}

// One of four images, the last two of which come from a file.
void ShowImage(int32_t canvas, int which, const TempFolder& folder)
{
    if (which == 0) {
        ShowBytes(canvas, Width, Height, [](int x, int y) { return x + y; });
    } else if (which == 1) {
        ShowFloats(canvas, Width, Height, [](int x, int y) { return x * 1.5 - y; });
    } else if (which == 2) {
        REQUIRE(vostel_image_open(canvas, PathOf(folder, "colors.png").c_str(), 0) == VOSTEL_OK);
    } else {
        const VostelRawLayout layout = {sizeof layout, VOSTEL_U16, Width, Height, 3, 1};
        REQUIRE(vostel_image_open_raw(canvas, PathOf(folder, "deep.raw").c_str(), &layout, 0) == VOSTEL_OK);
    }
}

void WriteImages(const TempFolder& folder)
{
    OpenCanvas painter(Width, Height);
    ShowImage(painter.Number, 1, folder);
    REQUIRE(vostel_contrast_map(painter.Number, "fire") == VOSTEL_OK);
    REQUIRE(vostel_picture_save(painter.Number, PathOf(folder, "colors.png").c_str(), 1.0, 0) == VOSTEL_OK);
    std::vector<unsigned char> bytes(3 + 2 * Width * Height);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(i * 37 >> 3);
    REQUIRE(WriteBytes(PathOf(folder, "deep.raw"), bytes));
}

// The frame as it is, with the selection.
std::vector<uint32_t> ShownOn(int32_t canvas)
{
    std::vector<uint32_t> pixels(120 * 90);
    VostelPlane           target = {sizeof target, VOSTEL_BGRA8, 120, 90, 0, pixels.data()};
    REQUIRE(vostel_event_move(canvas, 10, 10, 0) == VOSTEL_OK);
    REQUIRE(vostel_frame_render_to(canvas, &target) == VOSTEL_OK);
    return pixels;
}

void CheckSaved(int32_t canvas, const std::string& path)
{
    REQUIRE(vostel_session_save(canvas, path.c_str(), 0) == VOSTEL_OK);
    const std::vector<unsigned char> bytes = ReadBytes(path);
    CHECK(std::string(bytes.begin(), bytes.end()) == SessionOf(canvas, path));
}

void CheckRoundTrip(const TempFolder& folder, unsigned seed, bool frames)
{
    CAPTURE(seed);
    const int        which = static_cast<int>(seed % 5);    // 4: no image
    const OpenCanvas first(120, 90);
    const OpenCanvas second(120, 90);
    if (which < 4)
        ShowImage(first.Number, which, folder);
    RandomCanvas(first.Number, seed).Change();
    if (which < 2)
        ShowImage(second.Number, which, folder);
    if (seed % 3 == 0)
        RandomCanvas(second.Number, seed + 1).Change();    // of which nothing is to stay
    const std::string saved = PathOf(folder, "one.vostel.json");
    REQUIRE(WriteText(saved, SessionOf(first.Number, saved)));
    if (seed % 64 == 0)
        CheckSaved(first.Number, saved);
    const VostelStatus opened =
        vostel_session_open(second.Number, saved.c_str(), which < 2 ? VOSTEL_SESSION_ON_IMAGE : 0);
    REQUIRE_MESSAGE(opened == VOSTEL_OK, vostel_last_message());
    CHECK(std::string(vostel_last_message()) == "");
    CHECK(FirstDifference(ContentOf(first.Number), ContentOf(second.Number)) == "");
    CHECK(HistoryOf(second.Number).undo_count == 0);
    CHECK(SessionOf(first.Number, saved) == SessionOf(second.Number, saved));
    if (frames)
        CHECK(ShownOn(first.Number) == ShownOn(second.Number));
}

}

TEST_CASE("canvases at random come back to the bit, and their session to the byte")
{
    const TempFolder folder;
    WriteImages(folder);
    for (unsigned seed = 0; seed < VOSTEL_SESSION_ROUNDS; ++seed)
        CheckRoundTrip(folder, seed, seed % 8 == 0);
}

TEST_CASE("doubles come back to the bit")
{
    const TempFolder folder;
    const OpenCanvas canvas;
    const Points     points = {{0.1, 1.0 / 3.0},
                               {-0.0, 5e-324},
                               {1.7976931348623157e308, 123456789.123456789},
                               {9007199254740993.0, 2.2250738585072014e-308}};
    Add(canvas.Number, VOSTEL_POLYGON, points);
    const std::string path = folder.Path("s");
    REQUIRE(vostel_session_save(canvas.Number, path.c_str(), 0) == VOSTEL_OK);
    const OpenCanvas other;
    REQUIRE(vostel_session_open(other.Number, path.c_str(), 0) == VOSTEL_OK);
    CHECK(FirstDifference(ContentOf(canvas.Number), ContentOf(other.Number)) == "");
    CHECK(std::signbit(PointsOf(other.Number, ObjectsOf(other.Number)[0])[1].x));
}
