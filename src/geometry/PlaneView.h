#pragma once

#include "base/SampleType.h"
#include "geometry/Coverage.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vostel {

// Values of an image in someone else's memory; rows and samples are aligned for their type.
//
// Channel 0 is the value of a gray image and the luma (299 R + 587 G + 114 B) / 1000 of a color one; 1, 2
// and 3 are red, green and blue.
struct PlaneView {
    SampleType     Type = SampleType::U8;
    int            Width = 0;
    int            Height = 0;
    std::ptrdiff_t RowBytes = 0;    // from a row to the one below; may be negative
    const void*    Data = nullptr;

    template <typename Sample>
    const Sample* Row(int y) const
    {
        return reinterpret_cast<const Sample*>(static_cast<const char*>(Data) + y * RowBytes);
    }
};

inline bool HasChannel(SampleType type, int channel)
{
    return channel == 0 || (channel > 0 && channel <= 3 && IsColor(type));
}

// Where the components of a color pixel lie in it.
struct ColorLayout {
    int PixelBytes = 3;
    int Red = 0;
    int Blue = 2;    // green is always in the middle

    explicit ColorLayout(SampleType type)
    {
        if (type == SampleType::Bgra8)
            PixelBytes = 4;
        if (type != SampleType::Rgb8) {
            Red = 2;
            Blue = 0;
        }
    }
    int Offset(int channel) const { return channel == 1 ? Red : channel == 2 ? 1 : Blue; }
    // A thousand times the luma, which is whole.
    int LumaCode(const std::uint8_t* pixel) const
    {
        return 299 * pixel[Red] + 587 * pixel[1] + 114 * pixel[Blue];
    }
};

inline constexpr int LumaUnit = 1000;

// All pixels of an image of the size.
inline std::vector<PixelRun> RunsOfPlane(int width, int height)
{
    std::vector<PixelRun> runs;
    for (int row = 0; row < height && width > 0; ++row)
        runs.push_back({row, 0, width});
    return runs;
}

}
