// What panels, read-outs and the captions of profiles say, without a move or a paint.

#include "support/OpenCanvas.h"

#include <cstdio>

namespace {

void ShowRamp(int32_t canvas)
{
    std::vector<float> ramp(80 * 60);
    for (int i = 0; i < 80 * 60; ++i)
        ramp[static_cast<std::size_t>(i)] = static_cast<float>(i % 80) + 0.5f * static_cast<float>(i / 80);
    REQUIRE(vostel_image_show(canvas, VOSTEL_F32, ramp.data(), 80, 60, 0, VOSTEL_KEEP_OBJECTS) == VOSTEL_OK);
}

VostelObject Add(int32_t canvas, VostelKind kind, std::vector<VostelPoint> points)
{
    VostelObject object = 0;
    REQUIRE(vostel_object_add(canvas, kind, points.data(), points.size(), &object) == VOSTEL_OK);
    return object;
}

std::string CaptionOf(int32_t canvas, VostelObject object)
{
    return TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return vostel_object_text(canvas, object, buffer, capacity, length);
    });
}

std::string RangeOf(int32_t canvas, VostelObject object)
{
    VostelMeasures measures = {};
    measures.size = sizeof measures;
    REQUIRE(vostel_measure(canvas, object, 0, &measures) == VOSTEL_OK);
    char text[100];
    std::snprintf(text, sizeof text, "Line: minimum %5.3f, maximum %5.3f", measures.min, measures.max);
    return text;
}

}

TEST_CASE("the caption of a profile says what is measured of it, wherever it lies")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number);
    REQUIRE(vostel_canvas_set_language(canvas.Number, "en") == VOSTEL_OK);
    const VostelObject profile = Add(canvas.Number, VOSTEL_PROFILE, {{10.5, 10.5}, {20.5, 10.5}});
    CHECK(CaptionOf(canvas.Number, profile) == "Line: minimum 15.000, maximum 25.000");
    for (const std::vector<VostelPoint>& ends : std::vector<std::vector<VostelPoint>>{
             {{10, 10}, {15, 15}}, {{-3, 0.25}, {8, 0.25}}, {{3, 3}, {3, 3}}, {{70, 50}, {120, 90}}}) {
        REQUIRE(vostel_object_set_points(canvas.Number, profile, ends.data(), 2) == VOSTEL_OK);
        CHECK(CaptionOf(canvas.Number, profile) == RangeOf(canvas.Number, profile));
    }
    const std::vector<float> fives(80 * 60, 5.0f);
    REQUIRE(vostel_image_show(canvas.Number, VOSTEL_F32, fives.data(), 80, 60, 0, VOSTEL_KEEP_OBJECTS) ==
            VOSTEL_OK);
    CHECK(CaptionOf(canvas.Number, profile) == "Line: minimum 5.000, maximum 5.000");
}

TEST_CASE("a new read-out says at once what lies under the pointer, and comes back with it")
{
    const OpenCanvas canvas;
    ShowRamp(canvas.Number);
    REQUIRE(vostel_event_move(canvas.Number, 150, 100, 0) == VOSTEL_OK);
    for (const VostelKind kind : {VOSTEL_PANEL, VOSTEL_NEIGHBOURS}) {
        const std::vector<uint32_t> before = FrameOf(canvas.Number);
        const VostelObject          panel = Add(canvas.Number, kind, {{20, 20}});
        const std::string           text = CaptionOf(canvas.Number, panel);
        CHECK(text != "");
        const std::vector<uint32_t> with = FrameOf(canvas.Number);
        CHECK(with != before);
        REQUIRE(vostel_object_remove(canvas.Number, panel) == VOSTEL_OK);
        REQUIRE(vostel_undo(canvas.Number) == VOSTEL_OK);
        CHECK(FrameOf(canvas.Number) == with);
        REQUIRE(vostel_object_remove(canvas.Number, panel) == VOSTEL_OK);
    }
}
