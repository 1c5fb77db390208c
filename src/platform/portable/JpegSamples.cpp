// JPEG by libjpeg: gray, or red, green, blue of whatever else it holds.

#include "platform/PictureBuffer.h"
#include "platform/SampleCodecs.h"
#include "platform/portable/JpegReading.h"

#include <csetjmp>

namespace vostel::pictures {
namespace {

struct Reader {
    JpegErrors             Errors;
    JpegBudget             Budget;
    jpeg_decompress_struct Codec = {};

    Reader() { Codec.err = UnwindingManager(Errors); }
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
    if (setjmp(reader.Errors.Back) != 0)
        return false;
    jpeg_decompress_struct& codec = reader.Codec;
    jpeg_create_decompress(&codec);
    jpeg_mem_src(&codec, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&codec, TRUE);
    Limit(codec, reader.Budget, file.size());
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
    if (setjmp(reader.Errors.Back) != 0)
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
    if (!IsWithin(file, codec.image_width, codec.image_height))
        return PictureOutcome::TooLarge;
    constexpr long long mostExpansion = 4096;
    const long long     pixels = static_cast<long long>(codec.image_width) * codec.image_height;
    if (!IsPlausible(pixels, file.Bytes.size(), mostExpansion))
        return PictureOutcome::BadFormat;
    const SampleType     type = codec.jpeg_color_space == JCS_GRAYSCALE ? SampleType::U8 : SampleType::Rgb8;
    const PictureOutcome made = MakeSamples(file, type, codec.image_width, codec.image_height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    const bool read = ReadRows(reader, samples.Data(), samples.RowBytes());
    file.CountWork(reader.Budget.Visits * DCTSIZE2 + pixels);
    if (!read)
        return reader.Budget.IsSpent() ? PictureOutcome::TooLarge : PictureOutcome::BadFormat;
    return PictureOutcome::Taken;
}

}
