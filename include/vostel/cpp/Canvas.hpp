#pragma once

/// @file
/// Canvases of the open interface.

#include "vostel/cpp/Object.hpp"
#include "vostel/cpp/Scopes.hpp"
#include "vostel/cpp/Values.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vostel {
inline namespace cpp {

/// A canvas, made with an area of its own and gone with the object, or borrowed by its number.
class Canvas {
public:
    /// Needs no window.
    Canvas(std::int32_t width, std::int32_t height) : owned(true)
    {
        detail::check(vostel_canvas_create(width, height, &place));
    }
    /// One that exists: 0 to 4 always do.
    static Canvas number(std::int32_t canvas) noexcept { return Canvas(canvas); }

    /// What is left borrows.
    Canvas(Canvas&& other) noexcept : place(other.place), owned(std::exchange(other.owned, false)) {}
    /// Exchanges the two.
    Canvas& operator=(Canvas&& other) noexcept
    {
        std::swap(place, other.place);
        std::swap(owned, other.owned);
        return *this;
    }
    /// Ends a canvas that was made.
    ~Canvas()
    {
        if (owned)
            vostel_canvas_destroy(place);
    }

    /// What the calls of C take.
    std::int32_t number() const noexcept { return place; }

    /// Scale and the image point in the middle stay.
    void resize(std::int32_t width, std::int32_t height)
    {
        detail::check(vostel_canvas_resize(place, width, height));
    }
    /// Device px per unit of layout.
    void set_pixel_ratio(double ratio) { detail::check(vostel_canvas_set_pixel_ratio(place, ratio)); }
    /// "zh" or "en".
    void set_language(const std::string& language)
    {
        detail::check(vostel_canvas_set_language(place, language.c_str()));
    }
    /// Size of the area, smoothing, pixel ratio.
    CanvasInfo info() const
    {
        CanvasInfo info = detail::sized<CanvasInfo>();
        detail::check(vostel_canvas_get(place, &info));
        return info;
    }
    /// Of captions and read-outs.
    std::string language() const
    {
        return detail::text_of([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_canvas_language(place, buffer, capacity, length);
        });
    }

    /// @name Image
    /// @{

    /// Gray samples, which are copied.
    template <typename T>
    void image_show(const Plane<T>& plane, std::uint32_t flags = 0)
    {
        image_show(Plane<T>::type(), plane.data, plane.width, plane.height, plane.row_bytes, flags);
    }
    /// Samples of any type, which are copied.
    void image_show(VostelPixel type, const void* data, std::int32_t width, std::int32_t height,
                    std::ptrdiff_t row_bytes = 0, std::uint32_t flags = 0)
    {
        detail::check(vostel_image_show(place, type, data, width, height, row_bytes, flags));
    }
    /// A picture file, told by its content.
    void image_open(const std::string& path, std::uint32_t flags = 0)
    {
        detail::check(vostel_image_open(place, path.c_str(), flags));
    }
    /// One page or frame, from 0.
    void image_open_page(const std::string& path, std::int32_t page, std::uint32_t flags = 0)
    {
        detail::check(vostel_image_open_page(place, path.c_str(), page, flags));
    }
    /// A file without a header.
    void image_open_raw(const std::string& path, RawLayout layout, std::uint32_t flags = 0)
    {
        layout.size = static_cast<std::uint32_t>(sizeof layout);
        detail::check(vostel_image_open_raw(place, path.c_str(), &layout, flags));
    }
    /// Nothing without an image.
    std::optional<ImageInfo> image_info() const
    {
        ImageInfo info = detail::sized<ImageInfo>();
        if (!detail::found(vostel_image_info(place, &info), VOSTEL_NO_IMAGE))
            return std::nullopt;
        return info;
    }
    /// Of the pixel that covers the point; nothing outside the image.
    std::optional<double> image_value(double x, double y, std::int32_t channel = 0) const
    {
        double value = 0.0;
        if (!detail::found(vostel_image_value(place, channel, x, y, &value)))
            return std::nullopt;
        return value;
    }
    /// Borrowed, to be read only, until the next image.
    VostelPlane image_plane() const
    {
        VostelPlane plane = detail::sized<VostelPlane>();
        detail::check(vostel_image_plane(place, &plane));
        return plane;
    }
    /// A copy of the values, of float or std::uint8_t.
    template <typename T>
    ImageOf<T> image_copy() const
    {
        ImageOf<T> copy = whole_image<T>();
        detail::check(vostel_image_copy(place, detail::pixel_of<T>::value, copy.values.data(), 0));
        return copy;
    }
    /// @}

    /// @name Contrast
    /// @{

    /// Low becomes the darkest and high the brightest shade.
    void contrast_set(double low, double high) { detail::check(vostel_contrast_set(place, low, high)); }
    /// Low and high.
    std::pair<double, double> contrast_get() const
    {
        std::pair<double, double> window;
        detail::check(vostel_contrast_get(place, &window.first, &window.second));
        return window;
    }
    /// Of the finite values.
    void contrast_percentiles(double low_percent, double high_percent)
    {
        detail::check(vostel_contrast_percentiles(place, low_percent, high_percent));
    }
    /// Above 0.
    void contrast_gamma(double gamma) { detail::check(vostel_contrast_gamma(place, gamma)); }
    /// One of contrast_map_names().
    void contrast_map(const std::string& name) { detail::check(vostel_contrast_map(place, name.c_str())); }
    /// Colors 0xAARRGGBB; alpha 0: none.
    void contrast_marks(std::uint32_t below, std::uint32_t above, std::uint32_t not_finite)
    {
        detail::check(vostel_contrast_marks(place, below, above, not_finite));
    }
    /// A window inside a region alone; low equal to high ends it.
    void contrast_of_object(const Object& region, double low, double high)
    {
        detail::check(vostel_contrast_of_object(place, region.id(), low, high));
    }
    /// Window, gamma and marks.
    ContrastInfo contrast_info() const
    {
        ContrastInfo contrast = detail::sized<ContrastInfo>();
        detail::check(vostel_contrast_info(place, &contrast));
        return contrast;
    }
    /// The name of the color map.
    std::string contrast_map_name() const
    {
        return detail::text_of([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_contrast_map_name(place, buffer, capacity, length);
        });
    }
    /// The window inside a region alone; nothing where there is none.
    std::optional<std::pair<double, double>> contrast_window_of_object(const Object& region) const
    {
        std::pair<double, double> window;
        detail::check(vostel_contrast_window_of_object(place, region.id(), &window.first, &window.second));
        if (window.first == window.second)
            return std::nullopt;
        return window;
    }
    /// Of the image or of a region.
    std::vector<std::uint64_t> histogram(double low, double high, std::int32_t bins,
                                         std::optional<Object> region = std::nullopt,
                                         std::int32_t          channel = 0) const
    {
        std::vector<std::uint64_t> counts(bins > 0 ? static_cast<std::size_t>(bins) : 0);
        detail::check(
            vostel_histogram(place, region ? region->id() : 0, channel, low, high, bins, counts.data()));
        return counts;
    }
    /// @}

    /// @name View
    /// @{

    /// Scale and place.
    View view_get() const
    {
        View view = detail::sized<View>();
        detail::check(vostel_view_get(place, &view));
        return view;
    }
    /// Comes within one of the place.
    void view_set(double scale, double left, double top)
    {
        View view = detail::sized<View>();
        view.scale = scale;
        view.left = left;
        view.top = top;
        detail::check(vostel_view_set(place, &view));
    }
    /// The whole image, centred.
    void view_fit() { detail::check(vostel_view_fit(place)); }
    /// Scale 1, centred.
    void view_actual() { detail::check(vostel_view_actual(place)); }
    /// The client point keeps its image point.
    void view_zoom(double factor, Point client)
    {
        detail::check(vostel_view_zoom(place, factor, client.x, client.y));
    }
    /// The image point under a client point.
    Point view_to_image(Point client) const
    {
        Point image = {};
        detail::check(vostel_view_to_image(place, client.x, client.y, &image.x, &image.y));
        return image;
    }
    /// The client point of an image point.
    Point view_to_client(Point image) const
    {
        Point client = {};
        detail::check(vostel_view_to_client(place, image.x, image.y, &client.x, &client.y));
        return client;
    }
    /// Else the nearest pixel shows.
    void view_set_smooth(bool smooth) { detail::check(vostel_view_set_smooth(place, smooth ? 1 : 0)); }
    /// With itself: leaves its group.
    void view_link(const Canvas& with) { detail::check(vostel_view_link(place, with.place)); }
    /// @}

    /// @name Frames and pictures
    /// @{

    /// Valid until the next call on the canvas.
    Frame frame_render()
    {
        Frame frame = detail::sized<Frame>();
        detail::check(vostel_frame_render(place, &frame));
        return frame;
    }
    /// Into the caller's memory: BGRA of the size of the area, alpha 255.
    void frame_render_to(void* bgra, std::int32_t width, std::int32_t height, std::ptrdiff_t row_bytes = 0)
    {
        VostelPlane target = bgra_plane(bgra, width, height, row_bytes);
        detail::check(vostel_frame_render_to(place, &target));
    }
    /// The whole image at a scale, in the format of the ending.
    void picture_save(const std::string& path, double scale = 1.0,
                      std::uint32_t flags = VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS)
    {
        detail::check(vostel_picture_save(place, path.c_str(), scale, flags));
    }
    /// The same into the caller's memory: BGRA, alpha 255, of the image's size times the scale, rounded.
    void picture_render_to(void* bgra, std::int32_t width, std::int32_t height, double scale = 1.0,
                           std::uint32_t  flags = VOSTEL_WITH_OBJECTS | VOSTEL_WITH_CAPTIONS,
                           std::ptrdiff_t row_bytes = 0)
    {
        VostelPlane target = bgra_plane(bgra, width, height, row_bytes);
        detail::check(vostel_picture_render_to(place, scale, flags, &target));
    }
    /// @}

    /// @name Events from a window system
    /// @{

    /// The left button went down.
    void event_press(Point client, std::uint32_t flags = 0)
    {
        detail::check(vostel_event_press(place, client.x, client.y, flags));
    }
    /// The left button went up.
    void event_release(Point client, std::uint32_t flags = 0)
    {
        detail::check(vostel_event_release(place, client.x, client.y, flags));
    }
    /// The pointer moved.
    void event_move(Point client, std::uint32_t flags = 0)
    {
        detail::check(vostel_event_move(place, client.x, client.y, flags));
    }
    /// The wheel turned.
    void event_wheel(Point client, double steps, std::uint32_t flags = 0)
    {
        detail::check(vostel_event_wheel(place, client.x, client.y, steps, flags));
    }
    /// A key went down.
    void event_key(std::uint32_t key, std::uint32_t flags = 0)
    {
        detail::check(vostel_event_key(place, key, flags));
    }
    /// Which letter keys act.
    void event_keys(const std::string& letters) { detail::check(vostel_event_keys(place, letters.c_str())); }
    /// @}

    /// @name Objects
    /// In drawing order: the last lies on top.
    /// @{

    /// On top of all others.
    Object object_add(VostelKind kind, const Points& points)
    {
        VostelObject object = 0;
        detail::check(vostel_object_add(place, kind, points.data(), points.size(), &object));
        return Object(place, object);
    }
    /// By its edges.
    Object add_rectangle(double left, double top, double right, double bottom)
    {
        return object_add(VOSTEL_RECTANGLE, {{left, top}, {right, bottom}});
    }
    /// By the edges of its box.
    Object add_ellipse(double left, double top, double right, double bottom)
    {
        const Step one = step("Add ellipse");
        Object     ellipse = add_rectangle(left, top, right, bottom);
        ellipse.set_flags(VOSTEL_ELLIPSE);
        return ellipse;
    }
    /// 3 corners or more.
    Object add_polygon(const Points& points) { return object_add(VOSTEL_POLYGON, points); }
    /// 3 to 198 nodes.
    Object add_spline(const Points& points) { return object_add(VOSTEL_SPLINE, points); }
    /// 3 points or more.
    Object add_free_region(const Points& points) { return object_add(VOSTEL_FREE_REGION, points); }
    /// One stroke.
    Object add_free_strokes(const Points& points) { return object_add(VOSTEL_FREE_STROKES, points); }
    /// 2 points or more.
    Object add_polyline(const Points& points) { return object_add(VOSTEL_POLYLINE, points); }
    /// Counted marks.
    Object add_points(const Points& points) { return object_add(VOSTEL_POINTS, points); }
    /// Between two ends.
    Object add_length(Point a, Point b) { return object_add(VOSTEL_LENGTH, {a, b}); }
    /// At the vertex.
    Object add_angle(Point a, Point vertex, Point b) { return object_add(VOSTEL_ANGLE, {a, vertex, b}); }
    /// Between the directions a to b and c to d.
    Object add_angle_lines(Point a, Point b, Point c, Point d)
    {
        return object_add(VOSTEL_ANGLE_LINES, {a, b, c, d});
    }
    /// Between two ends.
    Object add_profile(Point a, Point b) { return object_add(VOSTEL_PROFILE, {a, b}); }
    /// The head lies at its second point.
    Object add_arrow(Point tail, Point head) { return object_add(VOSTEL_ARROW, {tail, head}); }
    /// By its upper left corner.
    Object add_text(Point corner, const std::string& text)
    {
        const Step one = step("Add text");
        Object     added = object_add(VOSTEL_TEXT, {corner});
        added.set_text(text);
        return added;
    }
    /// At client px: a read-out of what lies under the pointer.
    Object add_panel(Point client) { return object_add(VOSTEL_PANEL, {client}); }
    /// At client px: the values around the pointer.
    Object add_neighbours(Point client) { return object_add(VOSTEL_NEIGHBOURS, {client}); }
    /// Takes an object away.
    void object_remove(const Object& object) { detail::check(vostel_object_remove(place, object.id())); }
    /// The last lies on top.
    std::vector<Object> object_list() const { return objects_by(vostel_object_list); }
    /// That a press at the client point would find.
    std::optional<Object> object_at(Point client) const
    {
        VostelObject object = 0;
        detail::check(vostel_object_at(place, client.x, client.y, &object));
        return object == 0 ? std::nullopt : std::optional<Object>(Object(place, object));
    }
    /// Object::info().
    ObjectInfo object_get(const Object& object) const { return here(object).info(); }
    /// Object::set_flags().
    void object_set_flags(const Object& object, std::uint32_t flags) { here(object).set_flags(flags); }
    /// Object::points().
    std::vector<Point> object_points(const Object& object) const { return here(object).points(); }
    /// Object::set_points().
    void object_set_points(const Object& object, const Points& points) { here(object).set_points(points); }
    /// Object::outline().
    std::vector<Point> object_outline(const Object& object) const { return here(object).outline(); }
    /// Object::name().
    std::string object_name(const Object& object) const { return here(object).name(); }
    /// Object::set_name().
    void object_set_name(const Object& object, const std::string& name) { here(object).set_name(name); }
    /// Object::text().
    std::string object_text(const Object& object) const { return here(object).text(); }
    /// Object::set_text().
    void object_set_text(const Object& object, const std::string& text) { here(object).set_text(text); }
    /// Object::style().
    Style object_style(const Object& object) const { return here(object).style(); }
    /// Object::set_style().
    void object_set_style(const Object& object, const Style& style) { here(object).set_style(style); }
    /// Object::set_label().
    void object_set_label(const Object& object, std::int32_t label) { here(object).set_label(label); }
    /// Object::move_to().
    void object_move_to(const Object& object, std::size_t index) { here(object).move_to(index); }
    /// Replaces the selection.
    void select(const std::vector<Object>& objects)
    {
        const std::vector<VostelObject> chosen = ids_of(objects);
        detail::check(vostel_select(place, chosen.data(), chosen.size()));
    }
    /// In drawing order.
    std::vector<Object> selection() const { return objects_by(vostel_selection); }
    /// Empty and selected: the next presses with Shift draw it.
    Object draw_next(VostelKind kind)
    {
        VostelObject object = 0;
        detail::check(vostel_draw_next(place, kind, &object));
        return Object(place, object);
    }
    /// @}

    /// @name Numbers
    /// @{

    /// Of all measures.
    void set_scale(double units_per_pixel, const std::string& unit)
    {
        detail::check(vostel_set_scale(place, units_per_pixel, unit.c_str()));
    }
    /// Units per px, and their name.
    std::pair<double, std::string> scale() const
    {
        std::pair<double, std::string> scale;
        scale.second = detail::text_of([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_get_scale(place, &scale.first, buffer, capacity, length);
        });
        return scale;
    }
    /// Object::measure().
    Measures measure(const Object& object, std::int32_t channel = 0) const
    {
        return here(object).measure(channel);
    }
    /// Object::profile().
    Profile profile(const Object& line, double width = 1.0, std::int32_t channel = 0) const
    {
        return here(line).profile(width, channel);
    }
    /// 255 inside.
    ImageOf<std::uint8_t> mask(const Object& region) const
    {
        ImageOf<std::uint8_t> mask = whole_image<std::uint8_t>();
        detail::check(vostel_mask(place, region.id(), mask.values.data(), 0));
        return mask;
    }
    /// 0 is background.
    ImageOf<std::int32_t> labels() const
    {
        ImageOf<std::int32_t> labels = whole_image<std::int32_t>();
        detail::check(vostel_labels(place, labels.values.data(), 0));
        return labels;
    }
    /// @param format "csv", "tsv" or "json"
    std::string table(const std::string& format = "csv") const
    {
        return detail::text_of([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_table(place, format.c_str(), buffer, capacity, length);
        });
    }
    /// @}

    /// @name Files
    /// vostel_last_message() says what there is to say of what succeeded.
    /// @{

    /// By convention "NAME.vostel.json".
    void session_save(const std::string& path, std::uint32_t flags = 0) const
    {
        detail::check(vostel_session_save(place, path.c_str(), flags));
    }
    /// All of it or nothing.
    /// @param flags VOSTEL_SESSION_ON_IMAGE or 0
    void session_open(const std::string& path, std::uint32_t flags = 0)
    {
        detail::check(vostel_session_open(place, path.c_str(), flags));
    }
    /// In the format of the ending.
    void regions_export(const std::string& path) const
    {
        detail::check(vostel_regions_export(place, path.c_str(), nullptr));
    }
    /// @param format "json" or another one
    void regions_export(const std::string& path, const std::string& format) const
    {
        detail::check(vostel_regions_export(place, path.c_str(), format.c_str()));
    }
    /// In the format of the ending; the number of objects that were added.
    std::size_t regions_import(const std::string& path)
    {
        std::size_t count = 0;
        detail::check(vostel_regions_import(place, path.c_str(), nullptr, &count));
        return count;
    }
    /// Some objects as text, for a clipboard.
    std::string regions_text(const std::vector<Object>& objects) const
    {
        const std::vector<VostelObject> ids = ids_of(objects);
        return detail::text_of([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_regions_text(place, ids.data(), ids.size(), buffer, capacity, length);
        });
    }
    /// The objects of such a text; the number of those that were added.
    std::size_t regions_add_text(const std::string& text)
    {
        std::size_t count = 0;
        detail::check(vostel_regions_add_text(place, text.c_str(), &count));
        return count;
    }
    /// @param format "json" or another one
    std::size_t regions_import(const std::string& path, const std::string& format)
    {
        std::size_t count = 0;
        detail::check(vostel_regions_import(place, path.c_str(), format.c_str(), &count));
        return count;
    }
    /// @}

    /// @name History
    /// @{

    /// 0: no history is kept.
    void history_limit(std::size_t bytes) { detail::check(vostel_history_limit(place, bytes)); }
    /// Number of steps and what they hold.
    HistoryInfo history_info() const
    {
        HistoryInfo info = detail::sized<HistoryInfo>();
        detail::check(vostel_history_info(place, &info));
        return info;
    }
    /// Of what undo would take back for -1 and redo would bring for 1; nothing where there is no such step.
    std::optional<std::string> history_name(std::int32_t step) const
    {
        try {
            return detail::text_of([&](char* buffer, std::size_t capacity, std::size_t* length) {
                return vostel_history_name(place, step, buffer, capacity, length);
            });
        } catch (const Error& error) {
            if (error.status() != VOSTEL_NOT_FOUND)
                throw;
            return std::nullopt;
        }
    }
    /// False if there is nothing to take back.
    bool undo() { return detail::found(vostel_undo(place)); }
    /// False if there is nothing to bring again.
    bool redo() { return detail::found(vostel_redo(place)); }
    /// Step() is safer.
    void history_begin(const std::string& name) { detail::check(vostel_history_begin(place, name.c_str())); }
    /// Ends the outermost or an inner one.
    void history_end() { detail::check(vostel_history_end(place)); }
    /// One step of all that happens while the result lives.
    [[nodiscard]] Step step(const std::string& name) { return Step(place, name); }
    /// @}

    /// Calls the listener for the events, VOSTEL_OBJECT_ADDED and others combined, while the result lives.
    [[nodiscard]] Subscription listen(std::uint32_t events, std::function<void(const Event&)> listener)
    {
        Subscription made;
        made.listener = std::make_unique<Subscription::Function>(
            std::make_shared<std::function<void(const Event&)>>(std::move(listener)));
        const VostelStatus status =
            vostel_listen(place, events, &Subscription::hear, made.listener.get(), &made.token);
        if (status != VOSTEL_OK)
            made.listener.reset();
        detail::check(status);
        return made;
    }
    /// The same, for every event unless some are chosen.
    [[nodiscard]] Subscription listen(std::function<void(const Event&)> listener,
                                      std::uint32_t                     events = AllEvents)
    {
        return listen(events, std::move(listener));
    }

private:
    std::int32_t place = -1;
    bool         owned = false;

    explicit Canvas(std::int32_t canvas) noexcept : place(canvas) {}

    Object here(const Object& object) const { return Object(place, object.id()); }

    static std::vector<VostelObject> ids_of(const std::vector<Object>& objects)
    {
        std::vector<VostelObject> ids;
        for (const Object& object : objects)
            ids.push_back(object.id());
        return ids;
    }

    static VostelPlane bgra_plane(void* data, std::int32_t width, std::int32_t height,
                                  std::ptrdiff_t row_bytes)
    {
        VostelPlane plane = detail::sized<VostelPlane>();
        plane.type = VOSTEL_BGRA8;
        plane.width = width;
        plane.height = height;
        plane.row_bytes = row_bytes;
        plane.data = data;
        return plane;
    }

    template <typename Call>
    std::vector<Object> objects_by(Call call) const
    {
        std::vector<Object> objects;
        for (const VostelObject object :
             detail::list_of<VostelObject>([&](VostelObject*list, std::size_t capacity, std::size_t*count) {
                 return call(place, list, capacity, count);
             }))
            objects.emplace_back(place, object);
        return objects;
    }

    template <typename T>
    ImageOf<T> whole_image() const
    {
        ImageInfo info = detail::sized<ImageInfo>();
        detail::check(vostel_image_info(place, &info));
        return {info.width, info.height,
                std::vector<T>(static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height))};
    }
};

}
}
