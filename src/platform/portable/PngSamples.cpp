// PNG by libpng. Gray below 8 bits is spread to bytes, 16 bits stay; colors of 16 bits become 8.

#include "platform/PictureBuffer.h"
#include "platform/SampleCodecs.h"
#include "platform/portable/PngReading.h"

#include <png.h>

#include <bit>
#include <csetjmp>
#include <cstring>
#include <utility>

namespace vostel::pictures {
namespace {

struct Source {
    std::span<const unsigned char> File;
    std::size_t                    At;
};

// Errors unwind to the setjmp of the call; nothing is printed.
void Fail(png_structp png, png_const_charp)
{
    longjmp(png_jmpbuf(png), 1);
}
void Ignore(png_structp, png_const_charp) {}

void ReadBytes(png_structp png, png_bytep target, png_size_t count)
{
    Source* source = static_cast<Source*>(png_get_io_ptr(png));
    if (source->File.size() - source->At < count)
        png_error(png, "cut short");
    std::memcpy(target, source->File.data() + source->At, count);
    source->At += count;
}

struct Reader {
    png_structp Png = nullptr;
    png_infop   Info = nullptr;

    Reader()
    {
        Png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, Ignore);
        Info = Png ? png_create_info_struct(Png) : nullptr;
    }
    ~Reader() { png_destroy_read_struct(&Png, &Info, nullptr); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
};

// What is to be read, and the palette of indices. Nothing in here owns anything when an error leaps out.
struct Plan {
    SampleType    Type = SampleType::U8;
    png_uint_32   Width = 0;
    png_uint_32   Height = 0;
    std::uint64_t RowBytes = 0;    // as the file holds them
    unsigned      Palette[256] = {};
    int           PaletteCount = 0;    // 0: no indices
    int           Passes = 1;
};

bool MakePlan(png_structp png, png_infop info, Source& source, Plan& plan)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    png_set_read_fn(png, &source, ReadBytes);
    png_set_user_limits(png, 0x7FFFFFFF, 0x7FFFFFFF);
    LimitPng(png);
    png_read_info(png, info);
    plan.Width = png_get_image_width(png, info);
    plan.Height = png_get_image_height(png, info);
    plan.RowBytes = png_get_rowbytes(png, info);
    const int depth = png_get_bit_depth(png, info);
    const int kind = png_get_color_type(png, info);
    if (kind == PNG_COLOR_TYPE_PALETTE) {
        png_colorp entries = nullptr;
        if (png_get_PLTE(png, info, &entries, &plan.PaletteCount) == 0 || plan.PaletteCount < 1)
            return false;
        for (int i = 0; i < plan.PaletteCount && i < 256; ++i)
            plan.Palette[i] =
                static_cast<unsigned>(entries[i].red << 16 | entries[i].green << 8 | entries[i].blue);
        png_set_packing(png);
    } else if ((kind & PNG_COLOR_MASK_COLOR) != 0) {
        plan.Type = kind == PNG_COLOR_TYPE_RGB_ALPHA ? SampleType::Bgra8 : SampleType::Rgb8;
        if (depth == 16)
            png_set_scale_16(png);
        if (plan.Type == SampleType::Bgra8)
            png_set_bgr(png);
    } else {
        plan.Type = depth == 16 ? SampleType::U16 : SampleType::U8;
        if (depth < 8)
            png_set_expand_gray_1_2_4_to_8(png);
        if (depth == 16 && std::endian::native == std::endian::little)
            png_set_swap(png);
        png_set_strip_alpha(png);
    }
    plan.Passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    return png_get_rowbytes(png, info) == std::uint64_t{plan.Width} * PixelBytes(plan.Type);
}

// Interlaced pictures come in several passes over the same rows.
bool ReadRows(png_structp png, unsigned char* first, std::size_t rowBytes, const Plan& plan)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    for (int pass = 0; pass < plan.Passes; ++pass)
        for (png_uint_32 y = 0; y < plan.Height; ++y)
            png_read_row(png, first + rowBytes * y, nullptr);
    png_read_end(png, nullptr);
    return true;
}

}

PictureOutcome DecodePngSamples(const SampleFile& file, ImageSamples& samples)
{
    Source       source{file.Bytes, 0};
    Plan         plan;
    const Reader reader;
    if (!reader.Info)
        throw std::bad_alloc();
    if (!MakePlan(reader.Png, reader.Info, source, plan))
        return PictureOutcome::BadFormat;
    if (!IsWithin(file, plan.Width, plan.Height))
        return PictureOutcome::TooLarge;
    constexpr long long mostExpansion = 1040;
    if (!IsPlausible(static_cast<long long>(plan.RowBytes * plan.Height), file.Bytes.size(), mostExpansion))
        return PictureOutcome::BadFormat;
    const PictureOutcome made = MakeSamples(file, plan.Type, plan.Width, plan.Height, samples);
    if (made != PictureOutcome::Taken)
        return made;
    file.CountWork(static_cast<std::int64_t>(plan.RowBytes * plan.Height) * plan.Passes);
    if (!ReadRows(reader.Png, samples.Data(), samples.RowBytes(), plan))
        return PictureOutcome::BadFormat;
    if (plan.PaletteCount > 0 && file.Palettes == PaletteUse::Colors)
        samples = ColorsOfIndices(std::move(samples),
                                  std::span(plan.Palette, static_cast<std::size_t>(plan.PaletteCount)));
    return PictureOutcome::Taken;
}

}
