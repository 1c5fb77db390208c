#pragma once

// A canvas of the open interface for the length of a test, and what can be read of it.

#include "vostel.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

class OpenCanvas {
public:
    int32_t Number = -1;

    explicit OpenCanvas(int32_t width = 300, int32_t height = 200)
    {
        REQUIRE(vostel_canvas_create(width, height, &Number) == VOSTEL_OK);
    }
    ~OpenCanvas() { vostel_canvas_destroy(Number); }
    OpenCanvas(const OpenCanvas&) = delete;
    OpenCanvas& operator=(const OpenCanvas&) = delete;
};

inline std::vector<VostelObject> ObjectsOf(int32_t canvas)
{
    std::size_t count = 0;
    REQUIRE(vostel_object_list(canvas, nullptr, 0, &count) == VOSTEL_OK);
    std::vector<VostelObject> list(count);
    REQUIRE(vostel_object_list(canvas, list.data(), count, &count) == VOSTEL_OK);
    return list;
}

inline std::vector<VostelPoint> PointsOf(int32_t canvas, VostelObject object)
{
    std::size_t count = 0;
    REQUIRE(vostel_object_points(canvas, object, nullptr, 0, &count) == VOSTEL_OK);
    std::vector<VostelPoint> points(count);
    REQUIRE(vostel_object_points(canvas, object, points.data(), count, &count) == VOSTEL_OK);
    return points;
}

// What a call that gives text gives.
template <typename Call>
std::string TextOf(Call call)
{
    std::size_t length = 0;
    REQUIRE(call(nullptr, std::size_t(0), &length) == VOSTEL_OK);
    std::string text(length + 1, '\0');
    REQUIRE(call(text.data(), text.size(), &length) == VOSTEL_OK);
    text.resize(length);
    return text;
}

inline std::string NameOf(int32_t canvas, VostelObject object)
{
    return TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return vostel_object_name(canvas, object, buffer, capacity, length);
    });
}

inline VostelHistoryInfo HistoryOf(int32_t canvas)
{
    VostelHistoryInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_history_info(canvas, &info) == VOSTEL_OK);
    return info;
}

// Everything that a step of history restores, to the bit, one object a line.
inline std::string StateOf(int32_t canvas)
{
    std::string state;
    const auto  append = [&](const char* format, auto... values) {
        char part[256];
        std::snprintf(part, sizeof part, format, values...);
        state += part;
    };
    for (const VostelObject object : ObjectsOf(canvas)) {
        VostelObjectInfo info = {};
        info.size = sizeof info;
        REQUIRE(vostel_object_get(canvas, object, &info) == VOSTEL_OK);
        append("%llu kind %d flags %u label %d:", static_cast<unsigned long long>(object), info.kind,
               info.flags, info.label);
        for (const VostelPoint& point : PointsOf(canvas, object))
            append(" %a,%a", point.x, point.y);
        VostelStyle style = {};
        style.size = sizeof style;
        REQUIRE(vostel_object_style(canvas, object, &style) == VOSTEL_OK);
        append(" %x %x %x %x %a %a", style.line_color, style.selected_color, style.handle_color,
               style.fill_color, style.line_width, style.text_height);
        state += " " + NameOf(canvas, object);
        if (info.kind >= VOSTEL_PANEL &&
            info.kind <= VOSTEL_PROFILE) {    // what these say follows the cursor
            state += "\n";
            continue;
        }
        state += " " + TextOf([&](char* buffer, std::size_t capacity, std::size_t* length) {
                     return vostel_object_text(canvas, object, buffer, capacity, length);
                 }) +
                 "\n";
    }
    double low = 0.0, high = 0.0;
    if (vostel_contrast_get(canvas, &low, &high) == VOSTEL_OK)
        append("contrast %a %a\n", low, high);
    return state;
}

// What the canvas shows without a selection and with read-outs of the pixel at 10, 10.
inline std::vector<uint32_t> FrameOf(int32_t canvas)
{
    REQUIRE(vostel_select(canvas, nullptr, 0) == VOSTEL_OK);
    REQUIRE(vostel_event_move(canvas, 10, 10, 0) == VOSTEL_OK);
    VostelFrame frame = {};
    frame.size = sizeof frame;
    REQUIRE(vostel_frame_render(canvas, &frame) == VOSTEL_OK);
    std::vector<uint32_t> pixels;
    for (int y = 0; y < frame.height; ++y) {
        const uint32_t* const row = reinterpret_cast<const uint32_t*>(
            reinterpret_cast<const char*>(frame.pixels) + y * frame.row_bytes);
        pixels.insert(pixels.end(), row, row + frame.width);
    }
    return pixels;
}

// The first line in which two states differ, of both; empty if they do not.
inline std::string FirstDifference(const std::string& a, const std::string& b)
{
    std::size_t line = 0;
    for (std::size_t i = 0; i < a.size() && i < b.size() && a[i] == b[i]; ++i) {
        if (a[i] == '\n')
            line = i + 1;
    }
    if (a == b)
        return "";
    return a.substr(line, a.find('\n', line) - line) + "\n" + b.substr(line, b.find('\n', line) - line);
}
