#include "fileio/FilePaths.h"
#include "fileio/RawRows.h"
#include "open/OpenPlanes.h"

#include <cmath>

using namespace vostel;
using namespace vostel::open;

namespace {

ShowKeeps KeepsFrom(std::uint32_t flags)
{
    NeedFlags(flags, VOSTEL_KEEP_OBJECTS | VOSTEL_KEEP_VIEW | VOSTEL_KEEP_CONTRAST);
    return {(flags & VOSTEL_KEEP_OBJECTS) != 0, (flags & VOSTEL_KEEP_VIEW) != 0,
            (flags & VOSTEL_KEEP_CONTRAST) != 0};
}

VostelStatus OpenPage(std::int32_t canvas, const char* path, std::int32_t page, std::uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        const ShowKeeps   keeps = KeepsFrom(flags);
        const std::string name = TextFrom(path, "path");
        NeedRange(page, 0, INT32_MAX, "page");
        ImageSource source{AbsolutePath(name), page, std::nullopt, false};
        image.ShowSamples(ReadImagePage(name, page), keeps);
        image.Source = std::move(source);
    });
}

RawLayout LayoutFrom(const VostelRawLayout* given)
{
    const VostelRawLayout layout = RecordFrom(given, VostelRawLayout{}, "layout");
    NeedRange(layout.width, 1, INT32_MAX, "layout->width");
    NeedRange(layout.height, 1, INT32_MAX, "layout->height");
    NeedRange(layout.offset, 0, INT64_MAX, "layout->offset");
    return {SampleTypeFrom(layout.type, "layout->type"), layout.width, layout.height, layout.offset,
            layout.big_endian != 0};
}

// The value of channel 0; the luma's last places in double.
double ValueAt(const PlaneView& plane, int channel, int x, int y)
{
    switch (plane.Type) {
    case SampleType::U8:
        return plane.Row<std::uint8_t>(y)[x];
    case SampleType::U16:
        return plane.Row<std::uint16_t>(y)[x];
    case SampleType::I16:
        return plane.Row<std::int16_t>(y)[x];
    case SampleType::F32:
        return static_cast<double>(plane.Row<float>(y)[x]);
    default: {
        const ColorLayout         layout(plane.Type);
        const std::uint8_t* const pixel =
            plane.Row<std::uint8_t>(y) + static_cast<std::size_t>(x) * PixelBytes(plane.Type);
        return channel == 0 ? layout.LumaCode(pixel) / static_cast<double>(LumaUnit)
                            : pixel[layout.Offset(channel)];
    }
    }
}

// Truncated and held within 0 and 255; not a number becomes 0.
unsigned char ByteOf(double value)
{
    return static_cast<unsigned char>(value >= 255.0 ? 255.0 : value > 0.0 ? value : 0.0);
}

void CopyRow(const PlaneView& plane, int y, SampleType type, char* target)
{
    if (type == plane.Type) {
        std::memcpy(target, plane.Row<char>(y), PixelBytes(type) * static_cast<std::size_t>(plane.Width));
        return;
    }
    for (int x = 0; x < plane.Width; ++x) {
        if (type == SampleType::F32) {
            Give(reinterpret_cast<float*>(target + 4 * static_cast<std::ptrdiff_t>(x)),
                 static_cast<float>(ValueAt(plane, 0, x, y)));
        } else if (type == SampleType::U8) {
            target[x] = static_cast<char>(ByteOf(ValueAt(plane, 0, x, y)));
        } else {
            for (int channel = 1; channel <= 3; ++channel)
                target[3 * static_cast<std::ptrdiff_t>(x) + channel - 1] =
                    static_cast<char>(ByteOf(ValueAt(plane, IsColor(plane.Type) ? channel : 0, x, y)));
        }
    }
}

}

VostelStatus vostel_image_show(int32_t canvas, VostelPixel type, const void* data, int32_t width,
                               int32_t height, ptrdiff_t row_bytes, uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        const ShowKeeps keeps = KeepsFrom(flags);
        image.ShowSamples(PlaneFrom(type, data, width, height, row_bytes), keeps);
    });
}

VostelStatus vostel_image_open(int32_t canvas, const char* path, uint32_t flags)
{
    return OpenPage(canvas, path, 0, flags);
}

VostelStatus vostel_image_pages(const char* path, int32_t* pages)
{
    return Run([&] {
        NeedPointer(pages, "pages");
        const std::string name = TextFrom(path, "path");
        Give<int32_t>(pages, CountImagePages(name));
    });
}

VostelStatus vostel_image_open_page(int32_t canvas, const char* path, int32_t page, uint32_t flags)
{
    return OpenPage(canvas, path, page, flags);
}

VostelStatus vostel_image_open_raw(int32_t canvas, const char* path, const VostelRawLayout* layout,
                                   uint32_t flags)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        const ShowKeeps   keeps = KeepsFrom(flags);
        const std::string name = TextFrom(path, "path");
        const RawLayout   raw = LayoutFrom(layout);
        ImageSource       source{AbsolutePath(name), 0, raw, false};
        image.ShowSamples(ReadRawImage(name, raw), keeps);
        image.Source = std::move(source);
    });
}

VostelStatus vostel_read_raw(const char* path, const VostelRawLayout* layout, VostelPlane* result)
{
    return Run([&] {
        const std::string name = TextFrom(path, "path");
        const RawLayout   raw = LayoutFrom(layout);
        const CallerPlane to = RoutinePlane(result, "result");
        if (IsColor(raw.Type))
            Fail(VOSTEL_INVALID_ARGUMENT, "layout->type is one of colors");
        if (to.Width != raw.Width || to.Height != raw.Height)
            Fail(VOSTEL_INVALID_ARGUMENT, "result is not of the size of the layout");
        ReadRawRows(name, raw, {to.Type, to.Data, to.RowBytes});
    });
}

VostelStatus vostel_image_info(int32_t canvas, VostelImageInfo* info)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedRecord(info, "info");
        const PlaneView   plane = NeedImage(image);
        const SampleRange range = image.ShownRange();
        GiveRecord(info,
                   VostelImageInfo{0, PixelOf(plane.Type), plane.Width, plane.Height, range.Min, range.Max,
                                   range.NotFinite},
                   "info");
    });
}

VostelStatus vostel_image_value(int32_t canvas, int32_t channel, double x, double y, double* value)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedPointer(value, "value");
        NeedFinite(x, "x");
        NeedFinite(y, "y");
        const PlaneView plane = NeedImage(image);
        NeedChannel(plane, channel);
        if (!(x >= 0.0 && x < plane.Width && y >= 0.0 && y < plane.Height))
            Fail(VOSTEL_NOT_FOUND, "the point lies outside the image");
        Give(value, ValueAt(plane, channel, static_cast<int>(x), static_cast<int>(y)));
    });
}

VostelStatus vostel_image_plane(int32_t canvas, VostelPlane* plane)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        NeedRecord(plane, "plane");
        const PlaneView shown = NeedImage(image);
        GiveRecord(plane,
                   VostelPlane{0, PixelOf(shown.Type), shown.Width, shown.Height, shown.RowBytes,
                               const_cast<void*>(shown.Data)},
                   "plane");
    });
}

VostelStatus vostel_image_copy(int32_t canvas, VostelPixel type, void* data, ptrdiff_t row_bytes)
{
    return OnCanvas(canvas, [&](VostelImage& image, Document&) {
        const SampleType wanted = SampleTypeFrom(type, "type");
        if (wanted != SampleType::F32 && wanted != SampleType::U8 && wanted != SampleType::Rgb8)
            Fail(VOSTEL_NOT_SUPPORTED, "type is neither VOSTEL_F32 nor VOSTEL_U8 nor VOSTEL_RGB8");
        NeedPointer(data, "data");
        const PlaneView plane = NeedImage(image);
        const PlaneView target = PlaneFrom(type, data, plane.Width, plane.Height, row_bytes);
        for (int y = 0; y < plane.Height; ++y)
            CopyRow(plane, y, wanted, static_cast<char*>(data) + y * target.RowBytes);
    });
}
