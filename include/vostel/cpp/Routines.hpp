#pragma once

/// @file
/// The library as a whole, and its routines on planes.

#include "vostel/cpp/Values.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vostel {
inline namespace cpp {

/// @name Library
/// @{

/// Of the library, such as "1.1.0".
inline std::string version()
{
    return vostel_version();
}
/// Of a status, such as "VOSTEL_NOT_FOUND".
inline std::string status_name(VostelStatus status)
{
    return vostel_status_name(status);
}
/// Those in force.
inline Limits get_limits()
{
    Limits limits = detail::sized<Limits>();
    detail::check(vostel_get_limits(&limits));
    return limits;
}
/// Fields of 0 get their default.
inline void set_limits(Limits limits)
{
    limits.size = static_cast<std::uint32_t>(sizeof limits);
    detail::check(vostel_set_limits(&limits));
}
/// Number of pages of a TIFF or frames of a GIF; 1 of other pictures.
inline std::int32_t image_pages(const std::string& path)
{
    std::int32_t pages = 0;
    detail::check(vostel_image_pages(path.c_str(), &pages));
    return pages;
}
/// What Canvas::contrast_map() takes.
inline std::vector<std::string> contrast_map_names()
{
    const std::string text = detail::text_of([](char* buffer, std::size_t capacity, std::size_t* length) {
        return vostel_contrast_map_names(buffer, capacity, length);
    });
    std::vector<std::string> names;
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find('\n', from), text.size());
        names.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return names;
}
/// @}

/// @name Routines
/// On planes of std::uint8_t, std::uint16_t or float; the result has its size and memory.
/// @{

/// The result has the size of the image.
template <typename I, typename K, typename R>
void correlate(const Plane<I>& image, const Plane<K>& kernel, const Plane<R>& result)
{
    const VostelPlane from = image.c(), taps = kernel.c();
    VostelPlane       to = result.c();
    detail::check(vostel_correlate(&from, &taps, &to));
}
/// Smooths by a kernel of size x size.
template <typename I, typename R>
void gaussian(const Plane<I>& image, std::int32_t size, double sigma, const Plane<R>& result)
{
    const VostelPlane from = image.c();
    VostelPlane       to = result.c();
    detail::check(vostel_gaussian(&from, size, sigma, &to));
}
/// To the size of the result.
template <typename I, typename R>
void resize(const Plane<I>& image, const Plane<R>& result)
{
    const VostelPlane from = image.c();
    VostelPlane       to = result.c();
    detail::check(vostel_resize(&from, &to));
}
/// Compares each pixel with a share of the mean around it.
template <typename I, typename R>
void adaptive_threshold(const Plane<I>& image, std::int32_t size, double constant, const Plane<R>& result)
{
    const VostelPlane from = image.c();
    VostelPlane       to = result.c();
    detail::check(vostel_adaptive_threshold(&from, size, constant, &to));
}
/// Joins two images that overlap by so many columns.
template <typename A, typename B, typename R>
void stitch(const Plane<A>& left, const Plane<B>& right, std::int32_t overlap, const Plane<R>& result)
{
    const VostelPlane a = left.c(), b = right.c();
    VostelPlane       to = result.c();
    detail::check(vostel_stitch(&a, &b, overlap, &to));
}
/// Filters each row by the ramp of a reconstruction.
template <typename I, typename R>
void ramp_filter(const Plane<I>& rows, std::int32_t kernel_length, double spacing, const Plane<R>& result)
{
    const VostelPlane from = rows.c();
    VostelPlane       to = result.c();
    detail::check(vostel_ramp_filter(&from, kernel_length, spacing, &to));
}
/// The gray samples of a file without a header, into memory that may serve for the next file too.
template <typename R>
void read_raw(const std::string& path, RawLayout layout, const Plane<R>& result)
{
    layout.size = static_cast<std::uint32_t>(sizeof layout);
    VostelPlane to = result.c();
    detail::check(vostel_read_raw(path.c_str(), &layout, &to));
}
/// In place; both have the same length, a power of two.
inline void fft(std::vector<double>& real, std::vector<double>& imaginary, bool inverse = false)
{
    if (real.size() != imaginary.size())
        throw Error(VOSTEL_INVALID_ARGUMENT, "real and imaginary differ in length");
    detail::check(vostel_fft(real.data(), imaginary.data(), real.size(), inverse ? 1 : 0));
}
/// @}

}
}
