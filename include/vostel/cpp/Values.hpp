#pragma once

/// @file
/// Errors, points and planes of the open interface.

#include "vostel.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace vostel {
inline namespace cpp {

/// What a call of the open interface failed with.
class Error : public std::runtime_error {
public:
    /// The message is that of vostel_last_message().
    Error(VostelStatus status, const std::string& message) : std::runtime_error(message), failed(status) {}

    /// VOSTEL_NOT_FOUND or another of the negative ones.
    VostelStatus status() const noexcept { return failed; }
    /// What was wrong, in English.
    std::string message() const { return what(); }

private:
    VostelStatus failed;
};

/// @cond
// What the calls are made of.
namespace detail {

inline void check(VostelStatus status)
{
    if (status != VOSTEL_OK)
        throw Error(status, vostel_last_message());
}

// False for VOSTEL_NOT_FOUND, or another status that stands for nothing there.
inline bool found(VostelStatus status, VostelStatus nothing = VOSTEL_NOT_FOUND)
{
    if (status == nothing)
        return false;
    check(status);
    return true;
}

template <typename Record>
Record sized()
{
    Record record = {};
    record.size = static_cast<std::uint32_t>(sizeof record);
    return record;
}

// What call(buffer, capacity, length) gives as text.
template <typename Call>
std::string text_of(Call&& call)
{
    std::string text(255, '\0');
    for (;;) {
        std::size_t        length = 0;
        const VostelStatus status = call(text.data(), text.size() + 1, &length);
        const bool         whole = length <= text.size();
        text.resize(length);
        if (whole || status != VOSTEL_BUFFER_TOO_SMALL) {
            check(status);
            return text;
        }
    }
}

// What call(buffer, capacity, count) gives as a list.
template <typename Item, typename Call>
std::vector<Item> list_of(Call&& call)
{
    std::vector<Item> list(64);
    for (;;) {
        std::size_t        count = 0;
        const VostelStatus status = call(list.data(), list.size(), &count);
        const bool         whole = count <= list.size();
        list.resize(count);
        if (whole || status != VOSTEL_BUFFER_TOO_SMALL) {
            check(status);
            return list;
        }
    }
}

template <typename Type>
struct pixel_of;
template <>
struct pixel_of<std::uint8_t> : std::integral_constant<VostelPixel, VOSTEL_U8> {
};
template <>
struct pixel_of<std::uint16_t> : std::integral_constant<VostelPixel, VOSTEL_U16> {
};
template <>
struct pixel_of<std::int16_t> : std::integral_constant<VostelPixel, VOSTEL_I16> {
};
template <>
struct pixel_of<float> : std::integral_constant<VostelPixel, VOSTEL_F32> {
};

template <typename Item, typename = void>
struct has_xy : std::false_type {
};
template <typename Item>
struct has_xy<Item,
              std::void_t<decltype(std::declval<const Item&>().x), decltype(std::declval<const Item&>().y)>>
    : std::true_type {
};

// Of anything with x and y, or with two elements.
template <typename Item>
VostelPoint point_of(const Item& item)
{
    if constexpr (has_xy<Item>::value)
        return {static_cast<double>(item.x), static_cast<double>(item.y)};
    else
        return {static_cast<double>(std::get<0>(item)), static_cast<double>(std::get<1>(item))};
}

}
/// @endcond

/// A point in image or client px.
using Point = VostelPoint;
/// What is to be said of an object in a few numbers.
using ObjectInfo = VostelObjectInfo;
/// How an object is drawn.
using Style = VostelStyle;
/// What can be measured of an object.
using Measures = VostelMeasures;
/// What is shown.
using ImageInfo = VostelImageInfo;
/// What holds for all that a canvas draws.
using CanvasInfo = VostelCanvasInfo;
/// Window, gamma and marks.
using ContrastInfo = VostelContrastInfo;
/// What the history holds.
using HistoryInfo = VostelHistoryInfo;
/// What a listener hears.
using Event = VostelEvent;
/// Limits of what is taken from files and callers.
using Limits = VostelLimits;
/// How samples lie in a file without a header.
using RawLayout = VostelRawLayout;
/// Where the image lies in the area.
using View = VostelView;
/// A rendered frame.
using Frame = VostelFrame;

/// Points of the caller, for the length of a call: those of a vector, array or span of Point are looked at
/// where they are; those of other containers, and of other types with x and y or with two elements, are
/// copied.
class Points {
public:
    /// Dense ones.
    Points(const Point* points, std::size_t count) : first(points), number(count) {}
    /// Written in place.
    Points(std::initializer_list<Point> points) : number(points.size()) { first = std::data(points); }
    /// Of a container.
    template <typename Container,
              typename = std::enable_if_t<!std::is_same_v<std::decay_t<Container>, Points>,
                                          decltype(std::begin(std::declval<const Container&>()))>>
    Points(const Container& points)
    {
        using Item = std::decay_t<decltype(*std::begin(points))>;
        if constexpr (std::is_same_v<Item, Point> && is_contiguous<Container>::value) {
            first = std::data(points);
            number = std::size(points);
        } else {
            for (const auto& item : points)
                copies.push_back(detail::point_of(item));
            number = copies.size();
        }
    }

    /// Null if there is none.
    const Point* data() const noexcept { return copies.empty() ? first : copies.data(); }
    /// Number of points.
    std::size_t size() const noexcept { return number; }
    /// The first one.
    const Point* begin() const noexcept { return data(); }
    /// Behind the last one.
    const Point* end() const noexcept { return data() + number; }

private:
    template <typename Container, typename = void>
    struct is_contiguous : std::false_type {
    };
    template <typename Container>
    struct is_contiguous<Container, std::void_t<decltype(std::data(std::declval<const Container&>()))>>
        : std::true_type {
    };

    const Point*       first = nullptr;
    std::size_t        number = 0;
    std::vector<Point> copies;
};

/// Samples of one channel in the caller's memory: std::uint8_t, std::uint16_t, std::int16_t or float, const
/// or not. The distance of rows may be negative; 0 stands for tightly packed.
template <typename T>
class Plane {
public:
    T*             data = nullptr;    ///< the top row
    std::int32_t   width = 0;         ///< px
    std::int32_t   height = 0;        ///< rows
    std::ptrdiff_t row_bytes = 0;     ///< from a row to the one below

    /// Without samples.
    Plane() = default;
    /// Rows in memory.
    Plane(T* samples, std::int32_t columns, std::int32_t rows, std::ptrdiff_t distance = 0)
        : data(samples), width(columns), height(rows), row_bytes(distance)
    {
    }
    /// Rows of a container, tightly packed. It has columns x rows samples or more.
    template <typename Container, typename = decltype(std::data(std::declval<Container&>()))>
    Plane(Container& samples, std::int32_t columns, std::int32_t rows)
        : data(std::data(samples)), width(columns), height(rows)
    {
        if (columns > 0 && rows > 0 &&
            std::size(samples) / static_cast<std::size_t>(columns) < static_cast<std::size_t>(rows))
            throw Error(VOSTEL_INVALID_ARGUMENT, "the container has fewer samples than the plane");
    }

    /// VOSTEL_U8, VOSTEL_U16, VOSTEL_I16 or VOSTEL_F32.
    static constexpr VostelPixel type() { return detail::pixel_of<std::remove_const_t<T>>::value; }
    /// As the calls of C take it. The samples of an input are only read.
    VostelPlane c() const
    {
        VostelPlane plane = detail::sized<VostelPlane>();
        plane.type = type();
        plane.width = width;
        plane.height = height;
        plane.row_bytes = row_bytes;
        plane.data = const_cast<std::remove_const_t<T>*>(data);
        return plane;
    }
};

/// Of the samples of a container.
template <typename Container>
Plane(Container&, std::int32_t, std::int32_t)
    -> Plane<std::remove_pointer_t<decltype(std::data(std::declval<Container&>()))>>;

/// The samples of a profile, with what is said of them.
struct Profile : VostelProfile {
    /// One a pixel of the length.
    std::vector<double> values;
};

/// Values of the whole image, tightly packed, the top row first.
template <typename T>
struct ImageOf {
    /// Px.
    std::int32_t width = 0;
    /// Rows.
    std::int32_t height = 0;
    /// Row after row.
    std::vector<T> values;

    /// The value of a pixel, checked.
    T at(std::int32_t x, std::int32_t y) const
    {
        return values.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x));
    }
};

}
}
