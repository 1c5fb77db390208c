#include "vostel.hpp"

#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <list>
#include <optional>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

using vostel::Canvas;

namespace {

Canvas CanvasWithImage()
{
    Canvas                    canvas(100, 80);
    std::vector<std::uint8_t> pixels;
    for (int i = 0; i < 60 * 40; ++i)
        pixels.push_back(static_cast<std::uint8_t>(i % 60));
    canvas.image_show(vostel::Plane<std::uint8_t>(pixels, 60, 40));
    return canvas;
}

bool Stands(std::int32_t canvas)
{
    std::size_t count = 0;
    return vostel_object_list(canvas, nullptr, 0, &count) == VOSTEL_OK;
}

template <typename Call>
VostelStatus StatusOf(Call call)
{
    try {
        call();
    } catch (const vostel::Error& error) {
        CHECK(!error.message().empty());
        return error.status();
    }
    return VOSTEL_OK;
}

}

TEST_CASE("a canvas that was made goes with its object, and a borrowed one stays")
{
    std::int32_t number = -1;
    {
        Canvas canvas(10, 10);
        number = canvas.number();
        CHECK(Stands(number));
        Canvas moved = std::move(canvas);
        CHECK(moved.number() == number);
        {
            const Canvas borrowed = Canvas::number(number);
        }
        CHECK(Stands(number));
    }
    CHECK_FALSE(Stands(number));
    static_assert(!std::is_copy_constructible_v<Canvas>);
}

TEST_CASE("points come from whatever holds them")
{
    Canvas                                  canvas = CanvasWithImage();
    const std::vector<vostel::Point>        expected = {{1.0, 2.0}, {30.0, 4.0}, {5.0, 36.0}};
    const std::list<std::pair<int, float>>  pairs = {{1, 2.0f}, {30, 4.0f}, {5, 36.0f}};
    const std::array<std::array<int, 2>, 3> arrays = {{{1, 2}, {30, 4}, {5, 36}}};
    const vostel::Point                     plain[] = {{1.0, 2.0}, {30.0, 4.0}, {5.0, 36.0}};
    struct Other {
        float x, y;
    };
    const std::vector<Other> others = {{1.0f, 2.0f}, {30.0f, 4.0f}, {5.0f, 36.0f}};
    for (const vostel::Object& object :
         {canvas.add_polygon({{1, 2}, {30, 4}, {5, 36}}), canvas.add_polygon(expected),
          canvas.add_polygon(pairs), canvas.add_polygon(arrays), canvas.add_polygon(plain),
          canvas.add_polygon(others), canvas.add_polygon({expected.data(), expected.size()})}) {
        const std::vector<vostel::Point> points = object.points();
        REQUIRE(points.size() == 3);
        for (std::size_t i = 0; i < 3; ++i) {
            CHECK(points[i].x == expected[i].x);
            CHECK(points[i].y == expected[i].y);
        }
    }
    CHECK(vostel::Points(expected).data() == expected.data());
}

TEST_CASE("an object is named, measured, found and removed")
{
    Canvas            canvas = CanvasWithImage();
    vostel::Object    rectangle = canvas.add_rectangle(2, 3, 12, 8);
    const std::string name(1000, 'n');
    rectangle.set_name(name);
    CHECK(rectangle.name() == name);
    CHECK(rectangle.kind() == VOSTEL_RECTANGLE);
    CHECK(canvas.measure(rectangle).area == 50.0);
    CHECK(rectangle.measure().mean == 6.5);
    CHECK(canvas.mask(rectangle).at(2, 3) == 255);
    CHECK(canvas.mask(rectangle).at(1, 3) == 0);
    CHECK(canvas.labels().at(11, 7) == rectangle.label());
    CHECK(canvas.histogram(0.0, 60.0, 6, rectangle) == std::vector<std::uint64_t>{40, 10, 0, 0, 0, 0});
    const vostel::Point client = canvas.view_to_client({5.0, 5.0});
    CHECK(canvas.object_at(client) == rectangle);
    CHECK(canvas.object_at({-50.0, -50.0}) == std::nullopt);
    canvas.select({rectangle});
    CHECK(canvas.selection() == std::vector<vostel::Object>{rectangle});
    CHECK(canvas.add_ellipse(0, 0, 10, 10).flags() == VOSTEL_ELLIPSE);
    CHECK(canvas.add_text({1, 1}, "bore").text() == "bore");
    const std::unordered_set<vostel::Object> keys = {rectangle, rectangle};
    CHECK(keys.size() == 1);
    rectangle.remove();
    CHECK(canvas.object_list().size() == 2);
    CHECK(StatusOf([&] { rectangle.measure(); }) == VOSTEL_NOT_FOUND);
}

TEST_CASE("what an object does, its canvas does by the names of C")
{
    Canvas               canvas = CanvasWithImage();
    const vostel::Object object = canvas.add_polygon({{1, 2}, {30, 4}, {5, 36}});
    const vostel::Object top = canvas.add_rectangle(0, 0, 5, 5);
    canvas.object_set_name(object, "bore");
    CHECK(canvas.object_name(object) == "bore");
    canvas.object_set_label(object, 7);
    canvas.object_set_flags(object, VOSTEL_LOCKED);
    canvas.object_move_to(object, 1);
    const vostel::ObjectInfo info = canvas.object_get(object);
    CHECK(info.label == 7);
    CHECK(info.flags == VOSTEL_LOCKED);
    CHECK(info.index == 1);
    CHECK(canvas.object_get(top).index == 0);
    canvas.object_set_points(object, {{0, 0}, {9, 0}, {9, 9}, {0, 9}});
    CHECK(canvas.object_points(object).size() == 4);
    CHECK(canvas.object_outline(object).size() == 4);
    vostel::Style style = canvas.object_style(object);
    style.line_width = 3.0;
    canvas.object_set_style(object, style);
    CHECK(object.style().line_width == 3.0);
    const vostel::Object text = canvas.add_text({1, 1}, "a");
    canvas.object_set_text(text, "b");
    CHECK(canvas.object_text(text) == "b");
    CHECK(canvas.add_panel({5, 5}).kind() == VOSTEL_PANEL);
    CHECK(canvas.add_neighbours({5, 5}).kind() == VOSTEL_NEIGHBOURS);
    canvas.object_remove(top);
    CHECK(canvas.object_list().size() == 4);
}

TEST_CASE("an object by default is none")
{
    vostel::Object object;
    CHECK(object.id() == 0);
    CHECK(object == vostel::Object());
    CHECK(StatusOf([&] { object.info(); }) == VOSTEL_NOT_FOUND);
    Canvas canvas = CanvasWithImage();
    object = canvas.add_points({{1, 1}});
    CHECK(object.kind() == VOSTEL_POINTS);
}

TEST_CASE("a plane takes its type from the container")
{
    std::vector<float>                floats(6);
    const std::array<std::int16_t, 6> words = {};
    static_assert(std::is_same_v<decltype(vostel::Plane(floats, 3, 2)), vostel::Plane<float>>);
    static_assert(std::is_same_v<decltype(vostel::Plane(words, 3, 2)), vostel::Plane<const std::int16_t>>);
    Canvas canvas(20, 20);
    canvas.image_show(vostel::Plane(words, 3, 2));
    CHECK(canvas.image_info()->type == VOSTEL_I16);
}

TEST_CASE("a profile has its samples and what is said of them")
{
    Canvas                canvas = CanvasWithImage();
    const vostel::Profile profile = canvas.profile(canvas.add_length({0.5, 5.5}, {59.5, 5.5}));
    REQUIRE(profile.values.size() == 60);
    CHECK(profile.values[17] == 17.0);
    CHECK(profile.length == 59.0);
    CHECK(profile.spacing == 1.0);
}

TEST_CASE("where there may be nothing, nothing comes")
{
    Canvas canvas(20, 20);
    CHECK_FALSE(canvas.image_info().has_value());
    CHECK_FALSE(canvas.undo());
    CHECK_FALSE(canvas.redo());
    CHECK(canvas.history_name(-1) == std::nullopt);
    canvas = CanvasWithImage();
    CHECK(canvas.image_info()->width == 60);
    CHECK(canvas.image_value(17.5, 0.0) == 17.0);
    CHECK(canvas.image_value(-1.0, 0.0) == std::nullopt);
    canvas.add_polygon({{1, 2}, {30, 4}, {5, 36}});
    CHECK(canvas.history_name(-1) == "Add polygon");
    CHECK(canvas.undo());
    CHECK(canvas.redo());
}

TEST_CASE("all that happens while a step lives is taken back at once")
{
    Canvas canvas = CanvasWithImage();
    {
        const vostel::Step step = canvas.step("two");
        canvas.add_arrow({1, 1}, {9, 9});
        canvas.add_profile({1, 1}, {9, 9});
    }
    CHECK(canvas.history_name(-1) == "two");
    CHECK(canvas.undo());
    CHECK(canvas.object_list().empty());
}

TEST_CASE("a listener hears while its subscription lives, and may end it itself")
{
    Canvas               canvas = CanvasWithImage();
    int                  heard = 0;
    vostel::Subscription outer;
    {
        vostel::Subscription inner = canvas.listen(
            VOSTEL_OBJECT_ADDED, [&](const vostel::Event& event) { heard += event.object != 0; });
        canvas.add_points({{1, 1}});
        CHECK(heard == 1);
        outer = std::move(inner);
    }
    canvas.add_points({{1, 1}});
    CHECK(heard == 2);
    const std::string captured(100, 'x');
    outer = canvas.listen(VOSTEL_OBJECT_ADDED, [&heard, &outer, captured](const vostel::Event&) {
        outer.end();
        heard += static_cast<int>(captured.size());
        throw 1;    // goes no further
    });
    canvas.add_points({{1, 1}});
    canvas.add_points({{1, 1}});
    CHECK(heard == 102);
}

TEST_CASE("a listener hears of everything unless it chooses")
{
    Canvas                     canvas = CanvasWithImage();
    std::vector<std::uint32_t> heard;
    const auto                 note = [&](const vostel::Event& event) { heard.push_back(event.type); };
    {
        const vostel::Subscription all = canvas.listen(note);
        canvas.add_points({{1, 1}});
    }
    CHECK(heard ==
          std::vector<std::uint32_t>{VOSTEL_OBJECT_ADDED, VOSTEL_HISTORY_CHANGED, VOSTEL_FRAME_STALE});
    heard.clear();
    const vostel::Subscription some = canvas.listen(note, VOSTEL_FRAME_STALE);
    canvas.add_points({{1, 1}});
    CHECK(heard == std::vector<std::uint32_t>{VOSTEL_FRAME_STALE});
}

TEST_CASE("a failure throws its status and its message")
{
    Canvas canvas(20, 20);
    CHECK(StatusOf([&] { canvas.view_fit(); }) == VOSTEL_NO_IMAGE);
    CHECK(StatusOf([&] { canvas.image_open("no such file"); }) == VOSTEL_NOT_READ);
    CHECK(StatusOf([&] { canvas.table("xml"); }) == VOSTEL_NOT_SUPPORTED);
    CHECK(StatusOf([] { Canvas(0, 5); }) == VOSTEL_INVALID_ARGUMENT);
    CHECK(StatusOf([] { Canvas::number(4711000).view_get(); }) == VOSTEL_NOT_FOUND);
    std::vector<float> few(5);
    CHECK(StatusOf([&] { vostel::Plane<float>(few, 3, 2); }) == VOSTEL_INVALID_ARGUMENT);
}

TEST_CASE("pictures, copies and routines go by containers")
{
    TempFolder folder;
    Canvas     canvas = CanvasWithImage();
    canvas.picture_save(folder.Path("a.png"), 2.0);
    CHECK(vostel::image_pages(folder.Path("a.png")) == 1);
    Canvas again(10, 10);
    again.image_open(folder.Path("a.png"));
    CHECK(again.image_info()->width == 120);
    const vostel::ImageOf<float> values = canvas.image_copy<float>();
    CHECK(values.at(59, 39) == 59.0f);
    std::vector<float> smooth(values.values.size());
    vostel::gaussian(vostel::Plane<const float>(values.values, 60, 40), 3, 1.0,
                     vostel::Plane<float>(smooth, 60, 40));
    CHECK(smooth[30] == doctest::Approx(30.0));
    std::vector<double> real = {1.0, 0.0, 0.0, 0.0}, imaginary(4);
    vostel::fft(real, imaginary);
    CHECK(real == std::vector<double>(4, 1.0));
    CHECK(vostel::contrast_map_names().front() == "gray");
    CHECK(vostel::version() == vostel_version());
}

TEST_CASE("what was set is read back")
{
    Canvas canvas = CanvasWithImage();
    CHECK(canvas.info().pixel_ratio == 1.0);
    canvas.set_language("en");
    CHECK(canvas.language() == "en");
    canvas.contrast_map("fire");
    canvas.contrast_marks(1, 2, 3);
    CHECK(canvas.contrast_map_name() == "fire");
    CHECK(canvas.contrast_info().not_finite == 3);
    const vostel::Object region = canvas.add_polygon({{1, 1}, {9, 2}, {4, 8}});
    CHECK(!canvas.contrast_window_of_object(region));
    canvas.contrast_of_object(region, 2.0, 5.0);
    CHECK(canvas.contrast_window_of_object(region) == std::pair(2.0, 5.0));
    canvas.set_scale(0.5, "mm");
    CHECK(canvas.scale() == std::pair(0.5, std::string("mm")));
    CHECK(canvas.regions_add_text(canvas.regions_text({region})) == 1);
    const vostel::ImageInfo    image = *canvas.image_info();
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(image.width * image.height));
    canvas.picture_render_to(pixels.data(), image.width, image.height);
    CHECK((pixels.front() & 0xFF000000u) == 0xFF000000u);
}

TEST_CASE("raw samples come into a container that stays")
{
    TempFolder folder;
    std::ofstream(folder.Path("a.raw"), std::ios::binary) << "\x01\x02\x03\x04";
    vostel::RawLayout layout = {};
    layout.type = VOSTEL_U8;
    layout.width = layout.height = 2;
    std::vector<float> kept(4);
    vostel::read_raw(folder.Path("a.raw"), layout, vostel::Plane<float>(kept, 2, 2));
    CHECK(kept == std::vector<float>{1, 2, 3, 4});
    layout.offset = 1;
    CHECK_THROWS_AS(vostel::read_raw(folder.Path("a.raw"), layout, vostel::Plane<float>(kept, 2, 2)),
                    vostel::Error);
}

TEST_CASE("sessions and regions leave and return")
{
    TempFolder folder;
    Canvas     canvas = CanvasWithImage();
    canvas.add_polygon({{1, 1}, {9, 2}, {4, 8}});
    canvas.session_save(folder.Path("a.vostel.json"));
    canvas.regions_export(folder.Path("a.json"));
    canvas.regions_export(folder.Path("b"), "json");
    CHECK(canvas.regions_import(folder.Path("a.json")) == 1);
    CHECK(canvas.regions_import(folder.Path("b"), "json") == 1);
    CHECK(canvas.object_list().size() == 3);
    canvas.session_open(folder.Path("a.vostel.json"), VOSTEL_SESSION_ON_IMAGE);
    CHECK(canvas.object_list().size() == 1);
    CHECK(StatusOf([&] { canvas.session_open(folder.Path("a.vostel.json")); }) == VOSTEL_NO_IMAGE);
    CHECK(StatusOf([&] { canvas.session_save(folder.Path("none/a.json")); }) == VOSTEL_NOT_WRITTEN);
    CHECK(StatusOf([&] { canvas.regions_export(folder.Path("a.b")); }) == VOSTEL_NOT_SUPPORTED);
}
