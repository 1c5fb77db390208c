#pragma once

/// @file
/// Objects on a canvas.

#include "vostel/cpp/Values.hpp"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace vostel {
inline namespace cpp {

/// An object on a canvas, by its number: cheap to copy, and of no effect on what it names.
class Object {
public:
    /// None: every call on it fails.
    Object() = default;
    /// Of a canvas by its number.
    Object(std::int32_t canvas, VostelObject object) noexcept : place(canvas), identity(object) {}

    /// Its number, 0 for none.
    VostelObject id() const noexcept { return identity; }
    /// The number of its canvas.
    std::int32_t canvas() const noexcept { return place; }

    /// Kind, flags, label, selection, index, bounds.
    ObjectInfo info() const
    {
        ObjectInfo info = detail::sized<ObjectInfo>();
        detail::check(vostel_object_get(place, identity, &info));
        return info;
    }
    /// VOSTEL_RECTANGLE or another kind.
    VostelKind kind() const { return info().kind; }
    /// VOSTEL_HIDDEN and others, combined.
    std::uint32_t flags() const { return info().flags; }
    /// Of a region, from 1; else 0.
    std::int32_t label() const { return info().label; }
    /// Whether it is.
    bool selected() const { return info().selected != 0; }

    /// Sets all flags.
    void set_flags(std::uint32_t flags) { detail::check(vostel_object_set_flags(place, identity, flags)); }
    /// Of a region, 1 or more.
    void set_label(std::int32_t label) { detail::check(vostel_object_set_label(place, identity, label)); }
    /// To a place in the drawing order, from 0.
    void move_to(std::size_t index) { detail::check(vostel_object_move_to(place, identity, index)); }
    /// Takes it away.
    void remove() { detail::check(vostel_object_remove(place, identity)); }

    /// As Canvas::object_add() takes them.
    std::vector<Point> points() const
    {
        return detail::list_of<Point>([&](Point* list, std::size_t capacity, std::size_t* count) {
            return vostel_object_points(place, identity, list, capacity, count);
        });
    }
    /// As many as its kind takes.
    void set_points(const Points& points)
    {
        detail::check(vostel_object_set_points(place, identity, points.data(), points.size()));
    }
    /// Of a region.
    std::vector<Point> outline() const
    {
        return detail::list_of<Point>([&](Point* list, std::size_t capacity, std::size_t* count) {
            return vostel_object_outline(place, identity, list, capacity, count);
        });
    }

    /// Empty at first.
    std::string name() const
    {
        return detail::text_of([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_object_name(place, identity, buffer, capacity, length);
        });
    }
    /// In UTF-8.
    void set_name(const std::string& name)
    {
        detail::check(vostel_object_set_name(place, identity, name.c_str()));
    }
    /// Of a text object, or the caption of a measure.
    std::string text() const
    {
        return detail::text_of([&](char* buffer, std::size_t capacity, std::size_t* length) {
            return vostel_object_text(place, identity, buffer, capacity, length);
        });
    }
    /// Of a text object.
    void set_text(const std::string& text)
    {
        detail::check(vostel_object_set_text(place, identity, text.c_str()));
    }

    /// Colors, widths, heights.
    Style style() const
    {
        Style style = detail::sized<Style>();
        detail::check(vostel_object_style(place, identity, &style));
        return style;
    }
    /// All of it.
    void set_style(Style style)
    {
        style.size = static_cast<std::uint32_t>(sizeof style);
        detail::check(vostel_object_set_style(place, identity, &style));
    }

    /// Channel 0 is the value or the luma; 1, 2, 3 are red, green, blue.
    Measures measure(std::int32_t channel = 0) const
    {
        Measures measures = detail::sized<Measures>();
        detail::check(vostel_measure(place, identity, channel, &measures));
        return measures;
    }
    /// Of a line.
    Profile profile(double width = 1.0, std::int32_t channel = 0) const
    {
        VostelProfile head = detail::sized<VostelProfile>();
        Profile       profile;
        profile.values =
            detail::list_of<double>([&](double* values, std::size_t capacity, std::size_t* count) {
                return vostel_profile(place, identity, channel, width, &head, values, capacity, count);
            });
        static_cast<VostelProfile&>(profile) = head;
        return profile;
    }

    /// The same number on the same canvas.
    friend bool operator==(const Object& a, const Object& b) noexcept
    {
        return a.place == b.place && a.identity == b.identity;
    }
    /// Another one.
    friend bool operator!=(const Object& a, const Object& b) noexcept { return !(a == b); }
    /// By canvas and number.
    friend bool operator<(const Object& a, const Object& b) noexcept
    {
        return std::tie(a.place, a.identity) < std::tie(b.place, b.identity);
    }

private:
    std::int32_t place = -1;
    VostelObject identity = 0;
};

}
}

/// @cond
// Objects are keys of unordered containers.
template <>
struct std::hash<vostel::Object> {
    std::size_t operator()(const vostel::Object& object) const noexcept
    {
        return std::hash<VostelObject>()(object.id()) ^ (std::hash<std::int32_t>()(object.canvas()) << 1);
    }
};
/// @endcond
