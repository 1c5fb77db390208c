#pragma once

// Where the fields of the interface's records end. A record of an older header has the first fields only, and
// of one that ends within a field that field is not there.

#include "vostel.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace vostel::open {

constexpr std::size_t RoundedUp(std::size_t at, std::size_t alignment)
{
    return (at + alignment - 1) / alignment * alignment;
}

// Of fields in their order, which begin behind the size.
template <typename Record, typename... Fields>
consteval std::array<std::size_t, sizeof...(Fields)> EndsOf(Fields Record::*...)
{
    std::array<std::size_t, sizeof...(Fields)> ends = {};
    std::size_t                                at = sizeof(std::uint32_t);
    std::size_t                                field = 0;
    ((ends[field++] = at = RoundedUp(at, alignof(Fields)) + sizeof(Fields)), ...);
    return ends;
}

template <typename Record>
inline constexpr auto FieldEnds = nullptr;

template <>
inline constexpr auto FieldEnds<VostelLimits> = EndsOf(&VostelLimits::max_side, &VostelLimits::max_pixels,
                                                       &VostelLimits::max_file_bytes,
                                                       &VostelLimits::max_threads, &VostelLimits::max_memory);
template <>
inline constexpr auto FieldEnds<VostelRawLayout> = EndsOf(&VostelRawLayout::type, &VostelRawLayout::width,
                                                          &VostelRawLayout::height, &VostelRawLayout::offset,
                                                          &VostelRawLayout::big_endian);
template <>
inline constexpr auto
    FieldEnds<VostelCanvasInfo> = EndsOf(&VostelCanvasInfo::width, &VostelCanvasInfo::height,
                                         &VostelCanvasInfo::smooth, &VostelCanvasInfo::pixel_ratio);
template <>
inline constexpr auto
    FieldEnds<VostelContrastInfo> = EndsOf(&VostelContrastInfo::below, &VostelContrastInfo::above,
                                           &VostelContrastInfo::not_finite, &VostelContrastInfo::low,
                                           &VostelContrastInfo::high, &VostelContrastInfo::gamma);
template <>
inline constexpr auto FieldEnds<VostelImageInfo> = EndsOf(&VostelImageInfo::type, &VostelImageInfo::width,
                                                          &VostelImageInfo::height, &VostelImageInfo::min,
                                                          &VostelImageInfo::max,
                                                          &VostelImageInfo::not_finite);
template <>
inline constexpr auto FieldEnds<VostelView> = EndsOf(&VostelView::scale, &VostelView::left, &VostelView::top);
template <>
inline constexpr auto FieldEnds<VostelFrame> = EndsOf(&VostelFrame::width, &VostelFrame::height,
                                                      &VostelFrame::row_bytes, &VostelFrame::pixels);
template <>
inline constexpr auto FieldEnds<VostelStyle> = EndsOf(&VostelStyle::line_color, &VostelStyle::selected_color,
                                                      &VostelStyle::handle_color, &VostelStyle::fill_color,
                                                      &VostelStyle::line_width, &VostelStyle::text_height);
template <>
inline constexpr auto FieldEnds<VostelObjectInfo> = EndsOf(
    &VostelObjectInfo::kind, &VostelObjectInfo::flags, &VostelObjectInfo::label, &VostelObjectInfo::selected,
    &VostelObjectInfo::index, &VostelObjectInfo::point_count, &VostelObjectInfo::left, &VostelObjectInfo::top,
    &VostelObjectInfo::right, &VostelObjectInfo::bottom);
template <>
inline constexpr auto FieldEnds<VostelMeasures> = EndsOf(
    &VostelMeasures::valid, &VostelMeasures::pixels, &VostelMeasures::not_finite, &VostelMeasures::area,
    &VostelMeasures::perimeter, &VostelMeasures::length, &VostelMeasures::angle, &VostelMeasures::centroid_x,
    &VostelMeasures::centroid_y, &VostelMeasures::left, &VostelMeasures::top, &VostelMeasures::right,
    &VostelMeasures::bottom, &VostelMeasures::mean, &VostelMeasures::sd, &VostelMeasures::min,
    &VostelMeasures::max, &VostelMeasures::sum, &VostelMeasures::median, &VostelMeasures::feret_max,
    &VostelMeasures::feret_min, &VostelMeasures::circularity);
template <>
inline constexpr auto FieldEnds<VostelProfile> = EndsOf(&VostelProfile::length, &VostelProfile::spacing,
                                                        &VostelProfile::min, &VostelProfile::max,
                                                        &VostelProfile::mean);
template <>
inline constexpr auto
    FieldEnds<VostelHistoryInfo> = EndsOf(&VostelHistoryInfo::undo_count, &VostelHistoryInfo::redo_count,
                                          &VostelHistoryInfo::bytes, &VostelHistoryInfo::limit);
template <>
inline constexpr auto FieldEnds<VostelPlane> = EndsOf(&VostelPlane::type, &VostelPlane::width,
                                                      &VostelPlane::height, &VostelPlane::row_bytes,
                                                      &VostelPlane::data);

// Bytes up to the end of the last field that lies within the size; 0 for none.
template <typename Record>
std::size_t WholeFields(std::size_t size)
{
    constexpr auto& ends = FieldEnds<Record>;
    static_assert(RoundedUp(ends.back(), alignof(Record)) == sizeof(Record), "a field is missing");
    std::size_t whole = 0;
    for (const std::size_t end : ends) {
        if (end <= size)
            whole = end;
    }
    return whole;
}

}
