#pragma once

// Planes of random contents and their comparison.

#include "support/EveryVariant.h"

#include <VostelObj.h>

#include <algorithm>
#include <initializer_list>
#include <random>
#include <vector>

namespace vostel {

using FloatPlane = ClassData2DIO<float>;
using BytePlane = ClassData2DIO<unsigned char>;

inline FloatPlane RandomFloats(int width, int height, std::mt19937& random, float low = -100.0f,
                               float high = 1000.0f)
{
    FloatPlane                            plane;
    std::uniform_real_distribution<float> values(low, high);
    plane.Allocate(width, height);
    std::generate_n(plane.Ptr1D, width * height, [&] { return values(random); });
    return plane;
}

// Infinite values, not-a-numbers and extremes among ordinary ones.
inline FloatPlane HardPlane(int width, int height, unsigned seed)
{
    FloatPlane plane;
    plane.Allocate(width, height);
    const std::vector<float> values = MixedFloats(static_cast<std::size_t>(width * height), seed);
    std::copy(values.begin(), values.end(), plane.Ptr1D);
    return plane;
}

template <typename T>
ClassData2DIO<T> PlaneOf(int width, std::initializer_list<T> values)
{
    ClassData2DIO<T> plane;
    plane.Allocate(width, static_cast<int>(values.size()) / width);
    std::copy(values.begin(), values.end(), plane.Ptr1D);
    return plane;
}

template <typename T>
ClassData2DIO<T> Constant(int width, int height, T value)
{
    ClassData2DIO<T> plane;
    plane.Allocate(width, height);
    std::fill_n(plane.Ptr1D, width * height, value);
    return plane;
}

template <typename T>
bool SamePlane(const ClassData2DIO<T>& a, const ClassData2DIO<T>& b)
{
    return a.Width == b.Width && a.Height == b.Height &&
           std::equal(a.Ptr1D, a.Ptr1D + a.Width * a.Height, b.Ptr1D);
}
// Bit for bit, but any two not-a-numbers count as equal.
inline bool SamePlane(const FloatPlane& a, const FloatPlane& b)
{
    return a.Width == b.Width && a.Height == b.Height &&
           SameFloats(a.Ptr1D, b.Ptr1D, static_cast<std::size_t>(a.Width * a.Height));
}

}
