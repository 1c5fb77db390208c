// JPEG by libjpeg. Gray files arrive with 8 bits, all others with 24.

#include "platform/portable/JpegReading.h"
#include "platform/portable/PictureCodecs.h"

#include <csetjmp>
#include <cstdlib>

namespace vostel::pictures {
namespace {

constexpr int Quality = 90;

// Press colors, stored inverted by every known writer, to blue, green, red.
void FromPress(const unsigned char* press, unsigned char* triples, int count)
{
    for (int i = 0; i < count; ++i, press += 4, triples += 3) {
        triples[0] = static_cast<unsigned char>(press[2] * press[3] / 255);
        triples[1] = static_cast<unsigned char>(press[1] * press[3] / 255);
        triples[2] = static_cast<unsigned char>(press[0] * press[3] / 255);
    }
}

bool Read(jpeg_decompress_struct& codec, JpegBudget& budget, const Bytes& file, PictureBuffer& picture)
{
    jpeg_mem_src(&codec, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&codec, TRUE);
    const long long pixels = static_cast<long long>(codec.image_width) * codec.image_height;
    if (!IsTaken(file, codec.image_width, codec.image_height) || !IsPlausible(pixels, file.size(), 4096))
        return false;
    Limit(codec, budget, file.size());
    const bool gray = codec.jpeg_color_space == JCS_GRAYSCALE;
    const bool press = codec.jpeg_color_space == JCS_CMYK || codec.jpeg_color_space == JCS_YCCK;
    codec.out_color_space = gray ? JCS_GRAYSCALE : press ? JCS_CMYK : JCS_EXT_BGR;
    if (!picture.Allocate(static_cast<int>(codec.image_width), static_cast<int>(codec.image_height),
                          gray ? 8 : 24))
        return false;
    jpeg_start_decompress(&codec);
    // The library's own row pool: it is freed with the codec whatever happens.
    JSAMPARRAY scratch = press ? (*codec.mem->alloc_sarray)(reinterpret_cast<j_common_ptr>(&codec),
                                                            JPOOL_IMAGE, codec.output_width * 4, 1)
                               : nullptr;
    while (codec.output_scanline < codec.output_height) {
        unsigned char* row = picture.Row(static_cast<int>(codec.output_scanline));
        jpeg_read_scanlines(&codec, press ? scratch : &row, 1);
        if (press)
            FromPress(scratch[0], row, picture.Width);
    }
    jpeg_finish_decompress(&codec);
    return true;
}

void Write(jpeg_compress_struct& codec, const PictureBuffer& picture, unsigned char*& bytes,
           unsigned long& count)
{
    const bool gray = picture.IsGray() && picture.BitsPerPixel == 8;
    jpeg_mem_dest(&codec, &bytes, &count);
    codec.image_width = static_cast<JDIMENSION>(picture.Width);
    codec.image_height = static_cast<JDIMENSION>(picture.Height);
    codec.input_components = gray ? 1 : 3;
    codec.in_color_space = gray ? JCS_GRAYSCALE : JCS_EXT_BGR;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, Quality, TRUE);
    jpeg_start_compress(&codec, TRUE);
    JSAMPARRAY scratch = (*codec.mem->alloc_sarray)(reinterpret_cast<j_common_ptr>(&codec), JPOOL_IMAGE,
                                                    codec.image_width * 3, 1);
    for (int y = 0; y < picture.Height; ++y) {
        JSAMPROW row = const_cast<JSAMPROW>(picture.Row(y));
        if (!gray && picture.BitsPerPixel != 24) {
            ColorRow(picture, y, scratch[0]);
            row = scratch[0];
        }
        jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
}

}

bool DecodeJpeg(const Bytes& file, PictureBuffer& picture)
{
    if (file.size() < 4 || file[0] != 0xFF || file[1] != 0xD8)
        return false;
    JpegErrors             errors;
    JpegBudget             budget;
    jpeg_decompress_struct codec = {};
    codec.err = UnwindingManager(errors);
    volatile bool good = false;
    if (setjmp(errors.Back) == 0) {
        jpeg_create_decompress(&codec);
        good = Read(codec, budget, file, picture);
    }
    jpeg_destroy_decompress(&codec);
    return good;
}

bool EncodeJpeg(const PictureBuffer& picture, Bytes& file)
{
    if (picture.Width > JPEG_MAX_DIMENSION || picture.Height > JPEG_MAX_DIMENSION)
        return false;
    // The codec fills both in through the addresses it is given, and they are freed however it ends.
    struct Result {
        unsigned char* Data = nullptr;
        unsigned long  Count = 0;
        ~Result() { std::free(Data); }
    } result;
    JpegErrors           errors;
    jpeg_compress_struct codec = {};
    codec.err = UnwindingManager(errors);
    volatile bool good = false;
    if (setjmp(errors.Back) == 0) {
        jpeg_create_compress(&codec);
        Write(codec, picture, result.Data, result.Count);
        good = true;
    }
    jpeg_destroy_compress(&codec);
    if (good)
        file.insert(file.end(), result.Data, result.Data + result.Count);
    return good;
}

}
