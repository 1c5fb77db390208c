// Files without a header. The input begins with the layout; what is shown are the samples that lie there.

#include "fuzz/Fuzzing.h"
#include "fuzz/InputBytes.h"

#include <VostelObj.h>

#include <bit>
#include <cstring>
#include <vector>

namespace {

template <typename Sample>
Sample SampleAt(std::string_view file, std::size_t at, bool bigEndian)
{
    unsigned char bytes[sizeof(Sample)];
    for (std::size_t i = 0; i < sizeof bytes; ++i)
        bytes[bigEndian ? sizeof bytes - 1 - i : i] = static_cast<unsigned char>(file[at + i]);
    return std::bit_cast<Sample>(bytes);
}

float GrayAt(std::string_view file, std::size_t at, const VostelRawLayout& layout)
{
    const bool big = layout.big_endian != 0;
    switch (layout.type) {
    case VOSTEL_U8:
        return SampleAt<std::uint8_t>(file, at, big);
    case VOSTEL_U16:
        return SampleAt<std::uint16_t>(file, at, big);
    case VOSTEL_I16:
        return SampleAt<std::int16_t>(file, at, big);
    default:
        return SampleAt<float>(file, at, big);
    }
}

std::size_t BytesPerPixel(VostelPixel type)
{
    static const std::size_t bytes[] = {0, 1, 2, 2, 4, 3, 3, 4};
    return bytes[type];
}

void CheckShown(std::int32_t canvas, std::string_view file, const VostelRawLayout& layout)
{
    const std::size_t count =
        static_cast<std::size_t>(layout.width) * static_cast<std::size_t>(layout.height);
    const std::size_t bytes = BytesPerPixel(layout.type);
    REQUIRE(file.size() >= static_cast<std::size_t>(layout.offset) + count * bytes);
    if (layout.type > VOSTEL_F32)
        return;
    std::vector<float> values(count);
    REQUIRE(vostel_image_copy(canvas, VOSTEL_F32, values.data(), 0) == VOSTEL_OK);
    for (std::size_t i = 0; i < count; ++i) {
        const float expected = GrayAt(file, static_cast<std::size_t>(layout.offset) + i * bytes, layout);
        CHECK((values[i] == expected || (values[i] != values[i] && expected != expected)));
    }
}

void CheckOpen(std::string_view file, const std::string& path, const VostelRawLayout& layout)
{
    static const FuzzCanvas canvas;
    canvas.ShowImage(0);
    const VostelStatus status = vostel_image_open_raw(canvas.Number, path.c_str(), &layout, 0);
    if (status == VOSTEL_OK) {
        CheckShown(canvas.Number, file, layout);
        FrameOf(canvas.Number);
        return;
    }
    VostelImageInfo info = {};
    info.size = sizeof info;
    REQUIRE(vostel_image_info(canvas.Number, &info) == VOSTEL_OK);
    CHECK(info.width == 64);
    const bool fits = layout.type >= VOSTEL_U8 && layout.type <= VOSTEL_BGRA8 && layout.width > 0 &&
                      layout.height > 0 && layout.offset >= 0 &&
                      std::int64_t{layout.width} * layout.height <= 1 << 20 &&
                      layout.offset + std::int64_t{layout.width} * layout.height *
                                          static_cast<std::int64_t>(BytesPerPixel(layout.type)) <=
                          static_cast<std::int64_t>(file.size()) &&
                      layout.width <= 4096 && layout.height <= 4096;
    CHECK_FALSE(fits);
}

// The three readers of 16-bit images, and a canvas that asks for the layout.
void ReadClassic(std::string path, const VostelRawLayout& layout)
{
    const int                     width = layout.width & 63;
    const int                     height = layout.height & 63;
    ClassData2DIO<unsigned short> image;
    image.Allocate(width, height);
    std::fill_n(image.Ptr1D, width * height, static_cast<unsigned short>(0));
    ReadUsDataFloat(image, path.data(), -10.0f, static_cast<float>(layout.big_endian));
    ReadUsDataShort(image, path.data());
    ReadUsDataChar(image, path.data());
    TessikDialogs dialogs;
    dialogs.ImaLoadPara = [&](tagZEKImaLoadPara& para) {
        para.Width = layout.width;
        para.Height = layout.height;
        para.DataType = layout.type;
        para.HeaderBytes = static_cast<unsigned int>(layout.offset);
        para.MapToByte = layout.big_endian & 1;
        return true;
    };
    gDlgSetDialogs(dialogs);
    const OpenCanvas canvas(160, 120);
    CString          wide(path.c_str());
    try {
        gCVSReadFile(canvas.Number, wide, (layout.big_endian & 2) != 0);
    } catch (const std::bad_alloc&) {
    }
    // What the getters tell is there.
    const std::size_t width64 = static_cast<std::size_t>(std::max(gCVSGetCanvasWidth(canvas.Number), 0));
    const std::size_t height64 = static_cast<std::size_t>(std::max(gCVSGetCanvasHeight(canvas.Number), 0));
    if (const unsigned* const pixels = gCVSGetCanvasPixelPtr(canvas.Number);
        pixels && width64 * height64 > 0) {
        volatile unsigned last = pixels[width64 * height64 - 1];
        static_cast<void>(last);
    }
    gCVSOnDraw(canvas.Number, nullptr);
}

}

void FuzzOne(std::string_view input)
{
    InputBytes      bytes(input);
    VostelRawLayout layout = {};
    layout.size = sizeof layout;
    layout.type = bytes.Byte() % 10 - 1;
    layout.width = bytes.Take<std::int16_t>();
    layout.height = bytes.Take<std::int16_t>();
    layout.offset = bytes.Take<std::int16_t>();
    layout.big_endian = bytes.Byte() % 4;
    const std::string path = WriteInput("samples.raw", bytes.Rest());
    CheckOpen(bytes.Rest(), path, layout);
    ReadClassic(path, layout);
}
