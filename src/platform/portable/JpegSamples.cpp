// JPEG by libjpeg: gray, or red, green, blue of whatever else it holds.

#include "platform/PictureBuffer.h"
#include "platform/SampleCodecs.h"

#include <cstdio>

#include <jerror.h>
#include <jpeglib.h>

#include <csetjmp>

namespace vostel::pictures {
namespace {

struct Errors {
    jpeg_error_mgr Manager;
    std::jmp_buf   Back;
};

// Errors unwind to the setjmp of the call; nothing is printed.
void Fail(j_common_ptr codec)
{
    longjmp(reinterpret_cast<Errors*>(codec->err)->Back, 1);
}

// A file that ends early is filled up with gray by the library; it counts as damaged here. Every other
// warning is about bytes that cameras get wrong and viewers put up with.
void Warn(j_common_ptr codec, int level)
{
    if (level < 0 && codec->err->msg_code == JWRN_JPEG_EOF)
        Fail(codec);
}
void Print(j_common_ptr) {}

struct Reader {
    Errors                 Error;
    jpeg_decompress_struct Codec = {};

    Reader()
    {
        jpeg_std_error(&Error.Manager);
        Error.Manager.error_exit = Fail;
        Error.Manager.emit_message = Warn;
        Error.Manager.output_message = Print;
        Codec.err = &Error.Manager;
    }
    ~Reader() { jpeg_destroy_decompress(&Codec); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
};

bool IsPress(const jpeg_decompress_struct& codec)
{
    return codec.jpeg_color_space == JCS_CMYK || codec.jpeg_color_space == JCS_YCCK;
}

bool ReadHeader(Reader& reader, std::span<const unsigned char> file)
{
    if (setjmp(reader.Error.Back) != 0)
        return false;
    jpeg_decompress_struct& codec = reader.Codec;
    jpeg_create_decompress(&codec);
    codec.mem->max_memory_to_use = 1L << 30;
    jpeg_mem_src(&codec, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&codec, TRUE);
    codec.out_color_space = codec.jpeg_color_space == JCS_GRAYSCALE ? JCS_GRAYSCALE
                            : IsPress(codec)                        ? JCS_CMYK
                                                                    : JCS_EXT_RGB;
    return true;
}

// Press colors to red, green, blue; those of a file with Adobe's mark are stored inverted.
void FromPress(const unsigned char* press, bool inverted, unsigned char* triples, JDIMENSION count)
{
    const unsigned flip = inverted ? 0 : 255;
    for (JDIMENSION i = 0; i < count; ++i, press += 4, triples += 3) {
        for (int channel = 0; channel < 3; ++channel)
            triples[channel] =
                static_cast<unsigned char>(((press[channel] ^ flip) * (press[3] ^ flip) + 127) / 255);
    }
}

bool ReadRows(Reader& reader, unsigned char* first, std::size_t rowBytes)
{
    if (setjmp(reader.Error.Back) != 0)
        return false;
    jpeg_decompress_struct& codec = reader.Codec;
    jpeg_start_decompress(&codec);
    // The library's own row pool: it is freed with the codec whatever happens.
    JSAMPARRAY scratch = IsPress(codec) ? (*codec.mem->alloc_sarray)(reinterpret_cast<j_common_ptr>(&codec),
                                                                     JPOOL_IMAGE, codec.output_width * 4, 1)
                                        : nullptr;
    while (codec.output_scanline < codec.output_height) {
        unsigned char* row = first + rowBytes * codec.output_scanline;
        jpeg_read_scanlines(&codec, scratch ? scratch : &row, 1);
        if (scratch)
            FromPress(scratch[0], codec.saw_Adobe_marker != 0, row, codec.output_width);
    }
    jpeg_finish_decompress(&codec);
    return true;
}

}

PictureOutcome DecodeJpegSamples(const SampleFile& file, ImageSamples& samples)
{
    Reader reader;
    if (!ReadHeader(reader, file.Bytes))
        return PictureOutcome::BadFormat;
    const jpeg_decompress_struct& codec = reader.Codec;
    if (!IsWithin(file.Limits, codec.image_width, codec.image_height))
        return PictureOutcome::TooLarge;
    constexpr long long mostExpansion = 4096;
    const long long     pixels = static_cast<long long>(codec.image_width) * codec.image_height;
    if (!IsPlausible(pixels, file.Bytes.size(), mostExpansion))
        return PictureOutcome::BadFormat;
    const SampleType     type = codec.jpeg_color_space == JCS_GRAYSCALE ? SampleType::U8 : SampleType::Rgb8;
    const PictureOutcome made =
        MakeSamples(file.Limits, type, codec.image_width, codec.image_height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    if (!ReadRows(reader, samples.Data(), samples.RowBytes()))
        return PictureOutcome::BadFormat;
    return PictureOutcome::Taken;
}

}
