#pragma once

#include "base/SampleType.h"

#include <cstddef>
#include <memory>

namespace vostel {

// Samples of an image in memory of their own, tightly packed, the top row first.
class ImageSamples {
public:
    SampleType Type = SampleType::U8;
    int        Width = 0;
    int        Height = 0;

    ImageSamples() = default;
    // With any contents. Fails as the allocator does. The sides are 1 or more.
    ImageSamples(SampleType type, int width, int height);

    bool IsEmpty() const { return Memory == nullptr; }
    bool HasShape(SampleType type, int width, int height) const
    {
        return !IsEmpty() && Type == type && Width == width && Height == height;
    }
    std::size_t RowBytes() const { return PixelBytes(Type) * static_cast<std::size_t>(Width); }
    std::size_t Bytes() const { return RowBytes() * static_cast<std::size_t>(Height); }

    unsigned char*       Data() { return Memory.get(); }
    const unsigned char* Data() const { return Memory.get(); }
    template <typename Sample>
    Sample* Row(int y)
    {
        return reinterpret_cast<Sample*>(Memory.get() + RowBytes() * static_cast<std::size_t>(y));
    }

    void Release() { *this = ImageSamples(); }

private:
    std::unique_ptr<unsigned char[]> Memory;    // aligned for every type
};

}
