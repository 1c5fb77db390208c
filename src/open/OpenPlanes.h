#pragma once

#include "geometry/PlaneView.h"
#include "open/OpenCall.h"

#include <cstddef>
#include <cstdint>

namespace vostel::open {

// The type of a constant; fails with VOSTEL_INVALID_ARGUMENT for what is none.
SampleType  SampleTypeFrom(VostelPixel type, const char* name);
VostelPixel PixelOf(SampleType type);

// Samples in the caller's memory. Fails with VOSTEL_INVALID_ARGUMENT for a null pointer, sides below 1 and
// rows that overlap or lie absurdly far apart, and with VOSTEL_TOO_LARGE beyond the limits.
PlaneView PlaneFrom(VostelPixel type, const void* data, std::int32_t width, std::int32_t height,
                    std::ptrdiff_t rowBytes);

// The distance of rows as the caller gives it, 0 standing for tightly packed. Fails with
// VOSTEL_INVALID_ARGUMENT for rows that overlap or lie absurdly far apart.
std::ptrdiff_t RowDistance(std::ptrdiff_t rowBytes, std::int32_t width, std::size_t pixelBytes);

// A caller's plane that may be written. It may be aligned as it likes: its rows are copied from and to.
struct CallerPlane {
    SampleType     Type = SampleType::U8;
    int            Width = 0;
    int            Height = 0;
    std::ptrdiff_t RowBytes = 0;
    void*          Data = nullptr;

    char* Row(int y) const { return static_cast<char*>(Data) + y * RowBytes; }
};

// Fails as PlaneFrom does.
CallerPlane CallerPlaneFrom(const VostelPlane* plane, const char* name);
// Of a type that routines take.
CallerPlane RoutinePlane(const VostelPlane* plane, const char* name);

// The values that a canvas shows; fails with VOSTEL_NO_IMAGE.
PlaneView NeedImage(const VostelImage& image);

void NeedChannel(const PlaneView& plane, std::int32_t channel);

}
