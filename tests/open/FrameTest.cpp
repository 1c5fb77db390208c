#include "support/LoadedFrame.h"
#include "support/OpenCanvas.h"
#include "support/TempFolder.h"

#include "vostel.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr std::uint32_t AllParts = VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS | VOSTEL_WITH_HANDLES;

// Gray (3x + 5y) modulo 256.
void ShowPattern(int32_t canvas, int32_t width, int32_t height)
{
    std::vector<std::uint8_t> pixels;
    for (int32_t y = 0; y < height; ++y) {
        for (int32_t x = 0; x < width; ++x)
            pixels.push_back(static_cast<std::uint8_t>(3 * x + 5 * y));
    }
    REQUIRE(vostel_image_show(canvas, VOSTEL_U8, pixels.data(), width, height, 0, 0) == VOSTEL_OK);
}

unsigned int PatternAt(int x, int y)
{
    return static_cast<std::uint8_t>(3 * x + 5 * y) * 0x010101u;
}

VostelObject Add(int32_t canvas, VostelKind kind, const std::vector<VostelPoint>& points)
{
    VostelObject object = 0;
    REQUIRE(vostel_object_add(canvas, kind, points.data(), points.size(), &object) == VOSTEL_OK);
    return object;
}

Frame Render(int32_t canvas)
{
    VostelFrame frame = {};
    frame.size = sizeof frame;
    REQUIRE(vostel_frame_render(canvas, &frame) == VOSTEL_OK);
    REQUIRE(frame.row_bytes == -4 * frame.width);
    Frame copy(frame.width, frame.height);
    for (int y = 0; y < frame.height; ++y)
        std::memcpy(&copy.At(0, y), reinterpret_cast<const char*>(frame.pixels) + y * frame.row_bytes,
                    static_cast<std::size_t>(frame.width) * 4);
    return copy;
}

Frame Save(int32_t canvas, const std::string& path, double scale, std::uint32_t flags)
{
    REQUIRE(vostel_picture_save(canvas, path.c_str(), scale, flags) == VOSTEL_OK);
    return LoadFrame(path);
}

bool Shows(const Frame& frame, unsigned int pixel)
{
    return std::find(frame.Pixels.begin(), frame.Pixels.end(), pixel) != frame.Pixels.end();
}

std::string BytesOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

constexpr unsigned int Blue = 0x0000FF;
constexpr unsigned int Red = 0xFF0000;

}

TEST_CASE("a frame is what a paint leaves, top row first")
{
    OpenCanvas canvas(123, 77);
    ShowPattern(canvas.Number, 60, 50);
    Add(canvas.Number, VOSTEL_RECTANGLE, {{5.0, 6.0}, {30.0, 20.0}});
    Add(canvas.Number, VOSTEL_LENGTH, {{5.0, 6.0}, {30.0, 20.0}});
    const Frame frame = Render(canvas.Number);
    gCVSOnDraw(canvas.Number, nullptr);
    CHECK(frame.Pixels == FrameOfSurface(gCVSGetClientPixelPtr(canvas.Number), 123, 77).Pixels);
    CHECK(Shows(frame, Blue));
}

TEST_CASE("one of the five canvases renders once it has an area")
{
    VostelFrame frame = {};
    frame.size = sizeof frame;
    CHECK(vostel_frame_render(4, &frame) == VOSTEL_NOT_FOUND);
    CHECK(vostel_frame_render(1000000, &frame) == VOSTEL_NOT_FOUND);
    CRect client(0, 0, 40, 30);
    gCVSSetClient(3, client, nullptr);
    REQUIRE(vostel_frame_render(3, &frame) == VOSTEL_OK);
    CHECK(frame.width == 40);
    CHECK(frame.height == 30);
    CHECK(frame.pixels == gCVSGetClientPixelPtr(3) + 29 * 40);
}

TEST_CASE("a frame goes into memory of any alignment and row order, opaque")
{
    OpenCanvas canvas(21, 13);
    ShowPattern(canvas.Number, 21, 13);
    REQUIRE(vostel_view_actual(canvas.Number) == VOSTEL_OK);
    const Frame               frame = Render(canvas.Number);
    const std::ptrdiff_t      row = 21 * 4 + 3;
    std::vector<std::uint8_t> memory(static_cast<std::size_t>(13 * row + 2), 0xEE);
    VostelPlane               target = {sizeof target, VOSTEL_BGRA8, 21, 13, row, memory.data() + 1};
    bool                      flipped = false;
    SUBCASE("downwards") {}
    SUBCASE("upwards")
    {
        target.row_bytes = -row;
        target.data = memory.data() + 1 + 12 * row;
        flipped = true;
    }
    REQUIRE(vostel_frame_render_to(canvas.Number, &target) == VOSTEL_OK);
    for (int y = 0; y < 13; ++y) {
        const std::uint8_t* line = memory.data() + 1 + (flipped ? 12 - y : y) * row;
        for (int x = 0; x < 21; ++x) {
            unsigned int pixel = 0;
            std::memcpy(&pixel, line + 4 * x, 4);
            REQUIRE(pixel == (frame.At(x, y) | 0xFF000000u));
        }
        CHECK(line[21 * 4] == 0xEE);
    }
    CHECK(memory.front() == 0xEE);
    CHECK(memory.back() == 0xEE);
}

TEST_CASE("a target of another size or type is refused")
{
    OpenCanvas                 canvas(8, 6);
    std::vector<std::uint32_t> memory(100, 7);
    const VostelPlane          good = {sizeof good, VOSTEL_BGRA8, 8, 6, 0, memory.data()};
    const auto                 refused = [&](auto change) {
        VostelPlane target = good;
        change(target);
        return vostel_frame_render_to(canvas.Number, &target) == VOSTEL_INVALID_ARGUMENT;
    };
    CHECK(refused([](VostelPlane& plane) { plane.width = 9; }));
    CHECK(refused([](VostelPlane& plane) { plane.height = 5; }));
    CHECK(refused([](VostelPlane& plane) { plane.type = VOSTEL_F32; }));
    CHECK(refused([](VostelPlane& plane) { plane.row_bytes = 31; }));
    CHECK(refused([](VostelPlane& plane) { plane.data = nullptr; }));
    CHECK(memory == std::vector<std::uint32_t>(100, 7));
    VostelPlane target = good;
    CHECK(vostel_frame_render_to(canvas.Number, &target) == VOSTEL_OK);
}

TEST_CASE("a saved picture holds the whole image at its scale, whatever the view shows")
{
    TempFolder folder;
    OpenCanvas canvas(50, 40);
    ShowPattern(canvas.Number, 37, 23);
    const VostelView away = {sizeof away, 3.0, -1000.0, 77.0};
    REQUIRE(vostel_view_set(canvas.Number, &away) == VOSTEL_OK);
    for (const int scale : {1, 2, 3}) {
        const Frame picture = Save(canvas.Number, folder.Path("part.png"), scale, 0);
        REQUIRE(picture.Width == 37 * scale);
        REQUIRE(picture.Height == 23 * scale);
        for (int y = 0; y < picture.Height; ++y) {
            for (int x = 0; x < picture.Width; ++x)
                REQUIRE(picture.At(x, y) == PatternAt(x / scale, y / scale));
        }
    }
    VostelView view = {};
    view.size = sizeof view;
    REQUIRE(vostel_view_get(canvas.Number, &view) == VOSTEL_OK);
    CHECK(view.scale == 3.0);
    CHECK(view.left == -1000.0);
    CHECK(view.top == 77.0);
}

TEST_CASE("the sides of a picture are rounded, and none is below 1 px")
{
    TempFolder folder;
    OpenCanvas canvas;
    ShowPattern(canvas.Number, 100, 30);
    CHECK(Save(canvas.Number, folder.Path("a.bmp"), 0.29, 0).Width == 29);
    CHECK(Save(canvas.Number, folder.Path("a.bmp"), 0.29, 0).Height == 9);
    CHECK(Save(canvas.Number, folder.Path("a.bmp"), 0.001, 0).Height == 1);
}

TEST_CASE("every format keeps the picture")
{
    TempFolder folder;
    OpenCanvas canvas;
    ShowPattern(canvas.Number, 31, 17);
    const Frame png = Save(canvas.Number, folder.Path("a.png"), 1.0, AllParts);
    CHECK(Save(canvas.Number, folder.Path("a.bmp"), 1.0, AllParts).Pixels == png.Pixels);
    CHECK(Save(canvas.Number, folder.Path("a.TIF"), 1.0, AllParts).Pixels == png.Pixels);
    CHECK(Save(canvas.Number, folder.Path("a.tiff"), 1.0, AllParts).Pixels == png.Pixels);
    CHECK(Save(canvas.Number, folder.Path("a.jpg"), 1.0, AllParts).Width == 31);
}

TEST_CASE("objects, captions and handles show where they are asked for, and the selection with handles alone")
{
    TempFolder folder;
    OpenCanvas canvas;
    ShowPattern(canvas.Number, 200, 150);
    const auto save = [&](std::uint32_t flags) {
        return Save(canvas.Number, folder.Path("a.png"), 1.0, flags);
    };
    const VostelObject rectangle = Add(canvas.Number, VOSTEL_RECTANGLE, {{20.0, 30.0}, {60.0, 80.0}});
    const VostelObject length = Add(canvas.Number, VOSTEL_LENGTH, {{20.0, 130.0}, {90.0, 130.0}});
    REQUIRE(vostel_select(canvas.Number, &rectangle, 1) == VOSTEL_OK);
    const Frame bare = save(0);
    CHECK_FALSE(Shows(bare, Blue));

    const Frame objects = save(VOSTEL_WITH_OBJECTS);
    CHECK(Shows(objects, Blue));
    CHECK_FALSE(Shows(objects, Red));
    CHECK(objects.At(20, 50) == Blue);
    CHECK(objects.At(40, 30) == Blue);
    CHECK(objects.At(16, 30) == PatternAt(16, 30));    // a handle reaches there
    CHECK(objects.At(50, 130) == Blue);

    const Frame captions = save(VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS);
    CHECK(captions.Pixels != objects.Pixels);

    const Frame handles = save(VOSTEL_WITH_OBJECTS | VOSTEL_WITH_HANDLES);
    CHECK(handles.At(16, 30) == Red);
    CHECK(handles.At(20, 50) == Red);
    CHECK(handles.At(50, 130) == Blue);

    REQUIRE(vostel_object_set_flags(canvas.Number, rectangle, VOSTEL_HIDDEN) == VOSTEL_OK);
    REQUIRE(vostel_object_set_flags(canvas.Number, length, VOSTEL_HIDDEN) == VOSTEL_OK);
    CHECK(save(AllParts).Pixels == bare.Pixels);
}

TEST_CASE("objects lie on the same image points at every scale of a picture")
{
    TempFolder folder;
    OpenCanvas canvas;
    ShowPattern(canvas.Number, 60, 40);
    Add(canvas.Number, VOSTEL_RECTANGLE, {{10.0, 5.0}, {50.0, 30.0}});
    for (const int scale : {1, 2, 5}) {
        const Frame picture = Save(canvas.Number, folder.Path("a.png"), scale, VOSTEL_WITH_OBJECTS);
        CHECK(picture.At(10 * scale, 20 * scale) == Blue);
        CHECK(picture.At(30 * scale, 5 * scale) == Blue);
        CHECK(picture.At(10 * scale - 1, 20 * scale) != Blue);
        CHECK(picture.At(30 * scale, 20 * scale) == PatternAt(30, 20));
    }
}

TEST_CASE("saving a picture leaves frame, history and objects as they were")
{
    TempFolder folder;
    OpenCanvas canvas(150, 120);
    ShowPattern(canvas.Number, 100, 80);
    Add(canvas.Number, VOSTEL_POLYGON, {{10.0, 10.0}, {90.0, 20.0}, {40.0, 70.0}});
    Add(canvas.Number, VOSTEL_SPLINE, {{10.0, 10.0}, {90.0, 20.0}, {40.0, 70.0}});
    Add(canvas.Number, VOSTEL_ANGLE, {{10.0, 10.0}, {90.0, 20.0}, {40.0, 70.0}});
    Add(canvas.Number, VOSTEL_PROFILE, {{10.0, 10.0}, {90.0, 20.0}});
    const Frame             before = Render(canvas.Number);
    const std::string       state = StateOf(canvas.Number);
    const VostelHistoryInfo history = HistoryOf(canvas.Number);
    Save(canvas.Number, folder.Path("a.png"), 2.5, AllParts);
    CHECK(Render(canvas.Number).Pixels == before.Pixels);
    CHECK(StateOf(canvas.Number) == state);
    CHECK(HistoryOf(canvas.Number).undo_count == history.undo_count);
    CHECK(HistoryOf(canvas.Number).bytes == history.bytes);
}

TEST_CASE("a save that fails says why and leaves the old file and no other")
{
    TempFolder        folder;
    OpenCanvas        canvas;
    const std::string path = folder.Path("old.png");
    std::ofstream(path) << "old";
    CHECK(vostel_picture_save(canvas.Number, path.c_str(), 1.0, 0) == VOSTEL_NO_IMAGE);
    ShowPattern(canvas.Number, 1000, 20);
    CHECK(vostel_picture_save(canvas.Number, path.c_str(), 1e6, 0) == VOSTEL_TOO_LARGE);
    CHECK(vostel_picture_save(canvas.Number, path.c_str(), 900.0, 0) == VOSTEL_TOO_LARGE);
    CHECK(vostel_picture_save(canvas.Number, path.c_str(), 0.0, 0) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_picture_save(canvas.Number, path.c_str(), 1.0, 8) == VOSTEL_INVALID_ARGUMENT);
    CHECK(vostel_picture_save(canvas.Number, nullptr, 1.0, 0) == VOSTEL_INVALID_ARGUMENT);
    for (const char* const name : {"a.svgz", "a.ps", "a", "a.", ".x", "", "png"})
        CHECK(vostel_picture_save(canvas.Number, folder.Path(name).c_str(), 1.0, 0) == VOSTEL_NOT_SUPPORTED);
    CHECK(vostel_picture_save(canvas.Number, folder.Path("none/a.png").c_str(), 1.0, 0) ==
          VOSTEL_NOT_WRITTEN);
    std::filesystem::create_directory(folder.Path("folder.png"));
    CHECK(vostel_picture_save(canvas.Number, folder.Path("folder.png").c_str(), 1.0, 0) ==
          VOSTEL_NOT_WRITTEN);
    CHECK(BytesOf(path) == "old");
    const auto files = std::filesystem::directory_iterator(folder.Path(""));
    CHECK(std::distance(begin(files), end(files)) == 2);
    REQUIRE(vostel_picture_save(canvas.Number, path.c_str(), 1.0, 0) == VOSTEL_OK);
    CHECK(LoadFrame(path).Width == 1000);
}
