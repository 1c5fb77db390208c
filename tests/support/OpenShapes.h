#pragma once

// Images and objects of the open interface for tests, in one call each.

#include "vostel.h"

#include <doctest/doctest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

using Points = std::vector<VostelPoint>;

inline VostelObject Add(int32_t canvas, VostelKind kind, const Points& points)
{
    VostelObject object = 0;
    REQUIRE(vostel_object_add(canvas, kind, points.data(), points.size(), &object) == VOSTEL_OK);
    return object;
}

// An image of valueAt(x, y).
template <typename Sample, typename ValueAt>
void ShowValues(int32_t canvas, VostelPixel type, int32_t width, int32_t height, ValueAt valueAt)
{
    std::vector<Sample> samples;
    samples.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int32_t y = 0; y < height; ++y) {
        for (int32_t x = 0; x < width; ++x)
            samples.push_back(static_cast<Sample>(valueAt(x, y)));
    }
    REQUIRE(vostel_image_show(canvas, type, samples.data(), width, height, 0, 0) == VOSTEL_OK);
}

template <typename ValueAt>
void ShowBytes(int32_t canvas, int32_t width, int32_t height, ValueAt valueAt)
{
    ShowValues<std::uint8_t>(canvas, VOSTEL_U8, width, height, valueAt);
}

template <typename ValueAt>
void ShowFloats(int32_t canvas, int32_t width, int32_t height, ValueAt valueAt)
{
    ShowValues<float>(canvas, VOSTEL_F32, width, height, valueAt);
}

inline VostelMeasures MeasuresOf(int32_t canvas, VostelObject object, int32_t channel = 0)
{
    VostelMeasures measures = {};
    measures.size = sizeof measures;
    REQUIRE(vostel_measure(canvas, object, channel, &measures) == VOSTEL_OK);
    return measures;
}
