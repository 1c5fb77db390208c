#include "open/OpenFunctions.h"

#include <doctest/doctest.h>

#include <sstream>
#include <type_traits>
#include <utility>

namespace {

template <typename Parameter>
Parameter Cast(const Value& value)
{
    if constexpr (std::is_floating_point_v<Parameter>)
        return static_cast<Parameter>(value.Real);
    else if constexpr (std::is_pointer_v<Parameter> && std::is_function_v<std::remove_pointer_t<Parameter>>)
        return value.Pointer ? &HearNothing : nullptr;
    else if constexpr (std::is_pointer_v<Parameter>)
        return static_cast<Parameter>(value.Pointer);
    else
        return static_cast<Parameter>(value.Whole);
}

template <typename... Parameters, std::size_t... Index>
VostelStatus Apply(VostelStatus (*function)(Parameters...), const std::vector<Value>& values,
                   std::index_sequence<Index...>)
{
    return function(Cast<Parameters>(values[Index])...);
}

template <typename... Parameters>
Function Row(const char* name, VostelStatus (*function)(Parameters...), const char* arguments)
{
    Function           row{name, {}, [function](const std::vector<Value>& values) {
                     return Apply(function, values, std::index_sequence_for<Parameters...>());
                 }};
    std::istringstream words(arguments);
    for (std::string word; words >> word;)
        row.Arguments.push_back(word);
    REQUIRE_MESSAGE(row.Arguments.size() == sizeof...(Parameters), name);
    return row;
}

#define ROW(name, arguments) Row(#name, name, arguments)

}

std::vector<Function> AllFunctions()
{
    return {
        ROW(vostel_set_limits, "limits"),
        ROW(vostel_get_limits, "limits"),
        ROW(vostel_canvas_create, "side=40 side=30 out"),
        ROW(vostel_canvas_destroy, "canvas"),
        ROW(vostel_canvas_resize, "canvas side=40 side=30"),
        ROW(vostel_canvas_set_pixel_ratio, "canvas positive=2"),
        ROW(vostel_canvas_set_language, "canvas language"),
        ROW(vostel_canvas_get, "canvas canvas-info"),
        ROW(vostel_canvas_language, "canvas buffer capacity count"),
        ROW(vostel_image_show, "canvas type=1 data side=64 side=48 distance=0 bits=0"),
        ROW(vostel_image_open, "canvas picture bits=0"),
        ROW(vostel_image_pages, "picture out"),
        ROW(vostel_image_open_page, "canvas picture whole=0 bits=0"),
        ROW(vostel_image_open_raw, "canvas raw layout bits=0"),
        ROW(vostel_image_info, "canvas info"),
        ROW(vostel_image_value, "canvas whole=0 finite=3 finite=4 out"),
        ROW(vostel_image_plane, "canvas plane"),
        ROW(vostel_image_copy, "canvas type=1 out distance=0"),
        ROW(vostel_contrast_set, "canvas finite=10 finite=200"),
        ROW(vostel_contrast_get, "canvas out out"),
        ROW(vostel_contrast_percentiles, "canvas finite=1 finite=99"),
        ROW(vostel_contrast_gamma, "canvas positive=2"),
        ROW(vostel_contrast_map, "canvas map"),
        ROW(vostel_contrast_map_names, "buffer capacity count"),
        ROW(vostel_contrast_marks, "canvas whole=1 whole=2 whole=3"),
        ROW(vostel_contrast_of_object, "canvas region finite=10 finite=50"),
        ROW(vostel_contrast_info, "canvas contrast"),
        ROW(vostel_contrast_map_name, "canvas buffer capacity count"),
        ROW(vostel_contrast_window_of_object, "canvas region out out"),
        ROW(vostel_histogram, "canvas region whole=0 finite=0 finite=256 side=16 out"),
        ROW(vostel_view_get, "canvas view"),
        ROW(vostel_view_set, "canvas view"),
        ROW(vostel_view_fit, "canvas"),
        ROW(vostel_view_actual, "canvas"),
        ROW(vostel_view_zoom, "canvas positive=1.5 finite=10 finite=12"),
        ROW(vostel_view_to_image, "canvas finite=1 finite=2 out out"),
        ROW(vostel_view_to_client, "canvas finite=1 finite=2 out out"),
        ROW(vostel_view_set_smooth, "canvas whole=1"),
        ROW(vostel_view_link, "canvas canvas"),
        ROW(vostel_frame_render, "canvas frame"),
        ROW(vostel_frame_render_to, "canvas target"),
        ROW(vostel_picture_save, "canvas new-picture positive=1 bits=7"),
        ROW(vostel_picture_render_to, "canvas positive=0.5 bits=7 picture-target"),
        ROW(vostel_event_press, "canvas finite=5 finite=6 bits=0"),
        ROW(vostel_event_release, "canvas finite=5 finite=6 bits=0"),
        ROW(vostel_event_move, "canvas finite=5 finite=6 bits=1"),
        ROW(vostel_event_wheel, "canvas finite=5 finite=6 finite=1 bits=8"),
        ROW(vostel_event_key, "canvas whole=37 bits=0"),
        ROW(vostel_event_keys, "canvas letters"),
        ROW(vostel_object_add, "canvas kind=3 points count-in=4 out"),
        ROW(vostel_object_remove, "canvas region"),
        ROW(vostel_object_list, "canvas list capacity count"),
        ROW(vostel_object_get, "canvas region object-info"),
        ROW(vostel_object_set_flags, "canvas region bits=1"),
        ROW(vostel_object_points, "canvas region list capacity count"),
        ROW(vostel_object_set_points, "canvas region points count-in=4"),
        ROW(vostel_object_outline, "canvas region list capacity count"),
        ROW(vostel_object_name, "canvas region buffer capacity count"),
        ROW(vostel_object_set_name, "canvas region text"),
        ROW(vostel_object_text, "canvas text-object buffer capacity count"),
        ROW(vostel_object_set_text, "canvas text-object text"),
        ROW(vostel_object_style, "canvas region style"),
        ROW(vostel_object_set_style, "canvas region style"),
        ROW(vostel_object_set_label, "canvas region side=7"),
        ROW(vostel_object_move_to, "canvas region whole=1"),
        ROW(vostel_object_at, "canvas finite=5 finite=6 out"),
        ROW(vostel_select, "canvas objects count-in=2"),
        ROW(vostel_selection, "canvas list capacity count"),
        ROW(vostel_draw_next, "canvas kind=4 out"),
        ROW(vostel_set_scale, "canvas positive=0.5 text"),
        ROW(vostel_get_scale, "canvas count buffer capacity count"),
        ROW(vostel_measure, "canvas region whole=0 measures"),
        ROW(vostel_profile, "canvas line whole=0 positive=3 profile list capacity count"),
        ROW(vostel_mask, "canvas region out distance=0"),
        ROW(vostel_labels, "canvas out distance=0"),
        ROW(vostel_table, "canvas format buffer capacity count"),
        ROW(vostel_session_save, "canvas new-session whole=0"),
        ROW(vostel_session_open, "canvas session bits=1"),
        ROW(vostel_regions_export, "canvas new-regions region-format"),
        ROW(vostel_regions_import, "canvas regions region-format count"),
        ROW(vostel_regions_text, "canvas objects count-in=2 buffer capacity count"),
        ROW(vostel_regions_add_text, "canvas region-text count"),
        ROW(vostel_history_limit, "canvas whole=100000"),
        ROW(vostel_history_info, "canvas history"),
        ROW(vostel_history_name, "canvas whole=-1 buffer capacity count"),
        ROW(vostel_undo, "canvas"),
        ROW(vostel_redo, "canvas"),
        ROW(vostel_history_begin, "canvas text"),
        ROW(vostel_history_end, "canvas"),
        ROW(vostel_listen, "canvas bits=1 listener user out"),
        ROW(vostel_unlisten, "token"),
        ROW(vostel_correlate, "image-plane kernel-plane result-plane"),
        ROW(vostel_gaussian, "image-plane side=3 positive=1 result-plane"),
        ROW(vostel_resize, "image-plane result-plane"),
        ROW(vostel_adaptive_threshold, "image-plane side=3 finite=0.9 result-plane"),
        ROW(vostel_stitch, "image-plane image-plane whole=8 joined-plane"),
        ROW(vostel_ramp_filter, "image-plane side=9 positive=1 result-plane"),
        ROW(vostel_read_raw, "raw layout layout-plane"),
        ROW(vostel_fft, "reals reals length whole=0"),
    };
}

#undef ROW

std::vector<Value> GoodValues(BadInputWorld& world, const Function& function)
{
    std::vector<Value> values;
    for (std::size_t i = 0; i < function.Arguments.size(); ++i)
        values.push_back(world.Good(function.Arguments[i], i));
    if (function.Name == "vostel_history_end")
        REQUIRE(vostel_history_begin(world.Canvas(), "open") == VOSTEL_OK);
    return values;
}
