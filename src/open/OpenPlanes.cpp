#include "open/OpenPlanes.h"

#include "foundation/Limits.h"

#include <cstdlib>

namespace vostel::open {

namespace {

// Farther apart no rows of an image in memory lie.
constexpr std::ptrdiff_t MostRowBytes = std::ptrdiff_t{1} << 30;

}

SampleType SampleTypeFrom(VostelPixel type, const char* name)
{
    NeedRange(type, VOSTEL_U8, VOSTEL_BGRA8, name);
    return static_cast<SampleType>(type - VOSTEL_U8);
}

VostelPixel PixelOf(SampleType type)
{
    return static_cast<VostelPixel>(type) + VOSTEL_U8;
}

PlaneView PlaneFrom(VostelPixel type, const void* data, std::int32_t width, std::int32_t height,
                    std::ptrdiff_t rowBytes)
{
    PlaneView plane;
    plane.Type = SampleTypeFrom(type, "type");
    NeedPointer(data, "data");
    NeedRange(width, 1, INT32_MAX, "width");
    NeedRange(height, 1, INT32_MAX, "height");
    const Limits limits = LimitsInForce();
    if (width > limits.MaxSide || height > limits.MaxSide || width > limits.MaxPixels / height)
        Fail(VOSTEL_TOO_LARGE, "width and height are beyond the limits");
    plane.Width = width;
    plane.Height = height;
    plane.RowBytes = RowDistance(rowBytes, width, PixelBytes(plane.Type));
    plane.Data = data;
    return plane;
}

std::ptrdiff_t RowDistance(std::ptrdiff_t rowBytes, std::int32_t width, std::size_t pixelBytes)
{
    const std::ptrdiff_t tight = static_cast<std::ptrdiff_t>(pixelBytes) * width;
    const std::ptrdiff_t distance = rowBytes == 0 ? tight : rowBytes;
    if (distance > -tight && distance < tight)
        Fail(VOSTEL_INVALID_ARGUMENT, "row_bytes is less than a row");
    if (distance < -MostRowBytes || distance > MostRowBytes)
        Fail(VOSTEL_INVALID_ARGUMENT, "row_bytes is beyond 2^30");
    return distance;
}

CallerPlane CallerPlaneFrom(const VostelPlane* plane, const char* name)
{
    const VostelPlane given = RecordFrom(plane, VostelPlane{}, name);
    const PlaneView   view = PlaneFrom(given.type, given.data, given.width, given.height, given.row_bytes);
    return {view.Type, view.Width, view.Height, view.RowBytes, given.data};
}

CallerPlane RoutinePlane(const VostelPlane* plane, const char* name)
{
    const CallerPlane rows = CallerPlaneFrom(plane, name);
    if (rows.Type != SampleType::U8 && rows.Type != SampleType::U16 && rows.Type != SampleType::F32)
        Fail(VOSTEL_INVALID_ARGUMENT, std::string(name) + ".type is not VOSTEL_U8, VOSTEL_U16 or VOSTEL_F32");
    return rows;
}

PlaneView NeedImage(const VostelImage& image)
{
    const PlaneView plane = image.ShownPlane();
    if (!plane.Data)
        Fail(VOSTEL_NO_IMAGE, "the canvas shows no image");
    return plane;
}

void NeedChannel(const PlaneView& plane, std::int32_t channel)
{
    if (!HasChannel(plane.Type, channel))
        Fail(VOSTEL_INVALID_ARGUMENT, "there is no channel " + std::to_string(channel) +
                                          (IsColor(plane.Type) ? ", but 0 to 3" : " of a gray image, but 0"));
}

}
