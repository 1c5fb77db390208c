#pragma once

#include <cstddef>

namespace vostel {

enum class SampleType { U8, U16, I16, F32, Rgb8, Bgr8, Bgra8 };    // the colors interleaved, in that order

inline bool IsColor(SampleType type)
{
    return type == SampleType::Rgb8 || type == SampleType::Bgr8 || type == SampleType::Bgra8;
}

// Gray of more than 8 bits.
inline bool IsDeep(SampleType type)
{
    return type == SampleType::U16 || type == SampleType::I16 || type == SampleType::F32;
}

inline std::size_t PixelBytes(SampleType type)
{
    switch (type) {
    case SampleType::U16:
    case SampleType::I16:
        return 2;
    case SampleType::F32:
    case SampleType::Bgra8:
        return 4;
    case SampleType::Rgb8:
    case SampleType::Bgr8:
        return 3;
    default:
        return 1;
    }
}

}
