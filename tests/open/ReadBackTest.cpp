// What was set is read back, whole pictures come into memory, and objects leave and come as text.

#include "support/LoadedFrame.h"
#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include "vostel.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

void ShowRamp(int32_t canvas, int32_t width, int32_t height)
{
    std::vector<std::uint16_t> samples;
    for (int32_t i = 0; i < width * height; ++i)
        samples.push_back(static_cast<std::uint16_t>(37 * i));
    REQUIRE(vostel_image_show(canvas, VOSTEL_U16, samples.data(), width, height, 0, 0) == VOSTEL_OK);
}

VostelCanvasInfo InfoOf(int32_t canvas)
{
    VostelCanvasInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_canvas_get(canvas, &info) == VOSTEL_OK);
    return info;
}

std::string LanguageOf(int32_t canvas)
{
    return TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return vostel_canvas_language(canvas, buffer, capacity, length);
    });
}

std::string UnitOf(int32_t canvas, double* unitsPerPixel)
{
    return TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return vostel_get_scale(canvas, unitsPerPixel, buffer, capacity, length);
    });
}

std::string RegionsOf(int32_t canvas, const std::vector<VostelObject>& objects)
{
    return TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return vostel_regions_text(canvas, objects.data(), objects.size(), buffer, capacity, length);
    });
}

std::pair<double, double> WindowOf(int32_t canvas, VostelObject region)
{
    std::pair<double, double> window = {-1.0, -1.0};
    REQUIRE(vostel_contrast_window_of_object(canvas, region, &window.first, &window.second) == VOSTEL_OK);
    return window;
}

}

TEST_CASE("area, smoothing, pixel ratio and language are read back")
{
    const OpenCanvas       canvas(320, 240);
    const VostelCanvasInfo first = InfoOf(canvas.Number);
    CHECK(first.width == 320);
    CHECK(first.height == 240);
    CHECK(first.pixel_ratio == 1.0);
    CHECK(LanguageOf(canvas.Number) == "zh");
    REQUIRE(vostel_canvas_resize(canvas.Number, 17, 9) == VOSTEL_OK);
    REQUIRE(vostel_canvas_set_pixel_ratio(canvas.Number, 1.25) == VOSTEL_OK);
    REQUIRE(vostel_canvas_set_language(canvas.Number, "en") == VOSTEL_OK);
    for (const int32_t smooth : {1, 0, 7}) {
        REQUIRE(vostel_view_set_smooth(canvas.Number, smooth) == VOSTEL_OK);
        const int32_t shown = smooth != 0 ? 1 : 0;
        CHECK(InfoOf(canvas.Number).smooth == shown);
    }
    const VostelCanvasInfo then = InfoOf(canvas.Number);
    CHECK(then.width == 17);
    CHECK(then.height == 9);
    CHECK(then.pixel_ratio == 1.25);
    CHECK(LanguageOf(canvas.Number) == "en");
}

TEST_CASE("window, gamma, marks and map are read back")
{
    const OpenCanvas   canvas;
    VostelContrastInfo contrast = {};
    contrast.size = sizeof contrast;
    std::size_t length = 0;
    CHECK(vostel_contrast_info(canvas.Number, &contrast) == VOSTEL_NO_IMAGE);
    CHECK(vostel_contrast_map_name(canvas.Number, nullptr, 0, &length) == VOSTEL_NO_IMAGE);
    ShowRamp(canvas.Number, 40, 30);
    const auto map = [&] {
        return TextOf([&](char* buffer, std::size_t capacity, std::size_t* count) {
            return vostel_contrast_map_name(canvas.Number, buffer, capacity, count);
        });
    };
    REQUIRE(vostel_contrast_info(canvas.Number, &contrast) == VOSTEL_OK);
    CHECK(contrast.gamma == 1.0);
    CHECK(contrast.below == 0);
    CHECK(map() == "gray");
    REQUIRE(vostel_contrast_set(canvas.Number, 12.5, 900.25) == VOSTEL_OK);
    REQUIRE(vostel_contrast_gamma(canvas.Number, 0.45) == VOSTEL_OK);
    REQUIRE(vostel_contrast_map(canvas.Number, "fire") == VOSTEL_OK);
    REQUIRE(vostel_contrast_marks(canvas.Number, 0xFF0000FF, 0x80FF0000, 0xFF00FF00) == VOSTEL_OK);
    REQUIRE(vostel_contrast_info(canvas.Number, &contrast) == VOSTEL_OK);
    CHECK(contrast.low == 12.5);
    CHECK(contrast.high == 900.25);
    CHECK(contrast.gamma == 0.45);
    CHECK(contrast.below == 0xFF0000FF);
    CHECK(contrast.above == 0x80FF0000);
    CHECK(contrast.not_finite == 0xFF00FF00);
    CHECK(map() == "fire");

    const VostelObject region = Add(canvas.Number, VOSTEL_RECTANGLE, {{2, 2}, {20, 20}});
    const VostelObject line = Add(canvas.Number, VOSTEL_LENGTH, {{2, 2}, {20, 20}});
    CHECK(WindowOf(canvas.Number, region) == std::pair(0.0, 0.0));
    REQUIRE(vostel_contrast_of_object(canvas.Number, region, 3.0, 70.0) == VOSTEL_OK);
    CHECK(WindowOf(canvas.Number, region) == std::pair(3.0, 70.0));
    double low = 0.0, high = 0.0;
    CHECK(vostel_contrast_window_of_object(canvas.Number, line, &low, &high) == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("the scale of measures is read back, and undone with its step")
{
    const OpenCanvas canvas;
    double           units = 0.0;
    CHECK(UnitOf(canvas.Number, &units) == "px");
    CHECK(units == 1.0);
    REQUIRE(vostel_set_scale(canvas.Number, 0.0125, "\xc2\xb5m") == VOSTEL_OK);
    CHECK(UnitOf(canvas.Number, &units) == "\xc2\xb5m");
    CHECK(units == 0.0125);
    CHECK(UnitOf(canvas.Number, nullptr) == "\xc2\xb5m");
    char        cut[3] = "xx";
    std::size_t length = 0;
    CHECK(vostel_get_scale(canvas.Number, &units, cut, 2, &length) == VOSTEL_BUFFER_TOO_SMALL);
    CHECK(std::string(cut) == "");    // no half of a character
    CHECK(length == 3);
    REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
    CHECK(UnitOf(canvas.Number, &units) == "px");
}

TEST_CASE("a picture in memory is the one that is saved")
{
    const TempFolder folder;
    const OpenCanvas canvas(50, 40);
    ShowRamp(canvas.Number, 61, 47);
    Add(canvas.Number, VOSTEL_POLYGON, {{5, 5}, {50, 10}, {20, 40}});
    Add(canvas.Number, VOSTEL_LENGTH, {{5, 40}, {40, 8}});
    struct Wanted {
        double        Scale;
        std::uint32_t Flags;
    };
    for (const Wanted& wanted : {Wanted{1.0, 0}, Wanted{0.5, VOSTEL_WITH_OBJECTS},
                                 Wanted{2.75, VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS},
                                 Wanted{3.0, VOSTEL_WITH_OBJECTS | VOSTEL_WITH_HANDLES}}) {
        CAPTURE(wanted.Scale);
        const std::string path = folder.Path("picture.png");
        REQUIRE(vostel_picture_save(canvas.Number, path.c_str(), wanted.Scale, wanted.Flags) == VOSTEL_OK);
        const Frame                saved = LoadFrame(path);
        const std::ptrdiff_t       step = saved.Width + 3;
        std::vector<std::uint32_t> memory(static_cast<std::size_t>(step * saved.Height), 0x12345678);
        VostelPlane                target = {sizeof target, VOSTEL_BGRA8, saved.Width,
                                             saved.Height,  4 * step,     memory.data()};
        REQUIRE(vostel_picture_render_to(canvas.Number, wanted.Scale, wanted.Flags, &target) == VOSTEL_OK);
        int others = 0, touched = 0;
        for (int y = 0; y < saved.Height; ++y) {
            const std::uint32_t* const row = memory.data() + y * step;
            for (int x = 0; x < saved.Width; ++x)
                others += row[x] != (saved.At(x, y) | 0xFF000000u);
            for (int x = saved.Width; x < step; ++x)
                touched += row[x] != 0x12345678;
        }
        CHECK(others == 0);
        CHECK(touched == 0);
        ++target.width;
        CHECK(vostel_picture_render_to(canvas.Number, wanted.Scale, wanted.Flags, &target) ==
              VOSTEL_INVALID_ARGUMENT);
    }
    std::uint32_t pixel = 0;
    VostelPlane   target = {sizeof target, VOSTEL_BGRA8, 1, 1, 0, &pixel};
    CHECK(vostel_picture_render_to(canvas.Number, 1e-6, 0, &target) == VOSTEL_OK);
    CHECK((pixel & 0xFF000000u) == 0xFF000000u);
    CHECK(vostel_picture_render_to(canvas.Number, 1e6, 0, &target) == VOSTEL_TOO_LARGE);
    CHECK(vostel_picture_render_to(canvas.Number, 400.0, 0, &target) == VOSTEL_TOO_LARGE);
    CHECK(vostel_picture_render_to(canvas.Number, 1.0, 8, &target) == VOSTEL_INVALID_ARGUMENT);
    target.type = VOSTEL_RGB8;
    CHECK(vostel_picture_render_to(canvas.Number, 1e-6, 0, &target) == VOSTEL_INVALID_ARGUMENT);
    const OpenCanvas empty;
    target.type = VOSTEL_BGRA8;
    CHECK(vostel_picture_render_to(empty.Number, 1.0, 0, &target) == VOSTEL_NO_IMAGE);
}

TEST_CASE("objects go from canvas to canvas as text, in drawing order and as one step")
{
    const OpenCanvas from, to;
    ShowRamp(from.Number, 90, 70);
    ShowRamp(to.Number, 90, 70);
    const VostelObject region = Add(from.Number, VOSTEL_SPLINE, {{5, 5}, {50, 10}, {20, 40}});
    const VostelObject line = Add(from.Number, VOSTEL_LENGTH, {{5, 40}, {40, 8}});
    Add(from.Number, VOSTEL_RECTANGLE, {{1, 1}, {9, 9}});
    REQUIRE(vostel_object_set_name(from.Number, region, "pore \xe4\xb8\xad") == VOSTEL_OK);
    REQUIRE(vostel_object_set_flags(from.Number, region, VOSTEL_LOCKED) == VOSTEL_OK);

    const std::string text = RegionsOf(from.Number, {line, region, line});
    CHECK(RegionsOf(from.Number, {region, line}) == text);
    const VostelObject there = Add(to.Number, VOSTEL_ARROW, {{1, 2}, {3, 4}});
    std::size_t        count = 0;
    REQUIRE(vostel_regions_add_text(to.Number, text.c_str(), &count) == VOSTEL_OK);
    CHECK(count == 2);
    const std::vector<VostelObject> all = ObjectsOf(to.Number);
    REQUIRE(all.size() == 3);
    CHECK(all[0] == there);
    CHECK(PointsOf(to.Number, all[1]).size() == 3);
    CHECK(PointsOf(to.Number, all[2]).size() == 2);
    CHECK(NameOf(to.Number, all[1]) == "pore \xe4\xb8\xad");
    VostelObjectInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_object_get(to.Number, all[1], &info) == VOSTEL_OK);
    CHECK(info.kind == VOSTEL_SPLINE);
    CHECK(info.flags == VOSTEL_LOCKED);
    CHECK(RegionsOf(to.Number, {all[1], all[2]}) == text);
    REQUIRE(vostel_undo(to.Number) == VOSTEL_OK);
    CHECK(ObjectsOf(to.Number) == std::vector<VostelObject>{there});
}

TEST_CASE("text that holds no objects adds none, and what is unfinished does not leave")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number, 90, 70);
    const std::vector<VostelObject> none;
    CHECK(vostel_regions_add_text(canvas.Number, RegionsOf(canvas.Number, none).c_str(), nullptr) ==
          VOSTEL_OK);
    for (const char* const text : {"", "picture", "{}", "[1, 2]", R"({"format": "vostel-regions"})",
                                   R"({"format": "other", "version": 1, "objects": []})",
                                   R"({"format": "vostel-regions", "version": 1, "objects": [{"kind": 4}]})"})
        CHECK(vostel_regions_add_text(canvas.Number, text, nullptr) == VOSTEL_BAD_FORMAT);
    CHECK(ObjectsOf(canvas.Number).empty());
    VostelObject unfinished = 0;
    REQUIRE(vostel_draw_next(canvas.Number, VOSTEL_POLYGON, &unfinished) == VOSTEL_OK);
    const std::string text = RegionsOf(canvas.Number, {unfinished});
    CHECK(std::string(vostel_last_message()).find("unfinished") != std::string::npos);
    std::size_t count = 9;
    CHECK(vostel_regions_add_text(canvas.Number, text.c_str(), &count) == VOSTEL_OK);
    CHECK(count == 0);
}
